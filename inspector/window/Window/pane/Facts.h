// SPDX-License-Identifier: MIT
//
// What the pane says of a setting, as plain text of a few lines. Only `valueNow` holds a personal value.
#pragma once

#include <Inspector/Snapshot.h>

namespace Inspector {

/// Whether nobody declared the key.
bool isUndeclared(Setting const& setting);
/// Type, class and store.
QString kindFacts(Setting const& setting);
/// The state, since when, and what follows from it.
QString stateFacts(Setting const& setting, Snapshot const& snapshot);
/// The default and who computes it; empty for a key that nobody declared.
QString defaultFacts(Setting const& setting);
/// Where the value lies, and what decides the default.
QString originFacts(Setting const& setting, Snapshot const& snapshot);
/// The value that a read returns, marked as the default if none is stored.
QString valueNow(Setting const& setting);

/// Why `setting` takes no other value; empty where it does, or may once unknown keys may be changed.
QString whyFixed(Setting const& setting, Snapshot const& snapshot);
/// Why nothing can be stored in, or removed from, the store of `setting`; empty where it can.
QString whyStoreIsFixed(Setting const& setting, Snapshot const& snapshot);

} // namespace Inspector
