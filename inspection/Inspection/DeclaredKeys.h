// SPDX-License-Identifier: MIT
//
// The keys that the inspected product declares as its own. Like the binding of the library they are one set for the process.
#pragma once

#include <Host/OwnKeys.h>
#include <Host/ProductFile.h>

#include <filesystem>
#include <memory>

namespace Inspection {

/// Makes `keys` known to every function of this room, in place of those that were. Throws `Host::OwnKeyError` for a key that the
/// library has or may make of a name, and for a list as default that does not survive the round trip. No other thread may inspect
/// meanwhile.
void declareOwnKeys(Host::OwnKeys const& keys);
/// Reads a product file and declares its own keys, as they must be before a store is opened for them. Throws
/// `Host::ProductFileError`.
std::shared_ptr<Host::ProductFile> readProductFile(std::filesystem::path const& file);

/// The declared keys.
Host::OwnKeys const& ownKeys();

} // namespace Inspection
