// SPDX-License-Identifier: MIT
//
// The keys that the inspected product declares as its own. Like the binding of the library they are one set for the process.
#pragma once

#include <Host/OwnKeys.h>
#include <Host/ProductFile.h>

namespace Inspection {

/// Makes `keys` known to every function of this room, in place of those that were. Throws `Host::OwnKeyError` for a key that the
/// library has or may make of a name, and for a default that a list would not give back. No other thread may inspect meanwhile.
void declareOwnKeys(Host::OwnKeys const& keys);
/// As above, with the keys of a product file. Throws `Host::ProductFileError`.
void declareOwnKeys(Host::ProductFile const& product);

/// The declared keys.
Host::OwnKeys const& ownKeys();

} // namespace Inspection
