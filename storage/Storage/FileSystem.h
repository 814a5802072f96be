// SPDX-License-Identifier: MIT
//
// Whether the locks of a file system hold. For the rooms of this project; not installed.
#pragma once

#include <cstdint>
#include <filesystem>

namespace Storage {

/// Where the files of a file system are kept.
enum class Locality {
    local,
    network, ///< Locks do not hold between machines, so two programs can damage a store.
    unknown, ///< The system does not tell, as for FUSE, where a program decides what a lock does.
};

/// The locality of the file system that holds `path`, or the nearest existing folder above it; links are followed.
Locality localityOf(std::filesystem::path path);

/// The locality of a file system of the type `magic`, in the system's numbers.
Locality localityOfType(std::uint32_t magic);

} // namespace Storage
