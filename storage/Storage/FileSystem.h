// SPDX-License-Identifier: MIT

/// @file
/// The file system that a path lies on, and whether a store can be trusted to it.
#pragma once

#include <filesystem>
#include <string>

namespace Storage {

/// What the system tells of a file system.
struct FileSystem {
    std::string type;                 ///< As the system names it, such as "ext4" or "fuse.sshfs"; empty where it cannot be told.
    std::filesystem::path mountPoint; ///< Empty where it cannot be told.
    bool isReadOnly = false;          ///< Whether nothing can be changed there.
};

/// What a file system is for a store.
enum class Suitability {
    suitable,     ///< Nothing speaks against it.
    readOnly,     ///< Nothing can be changed there.
    network,      ///< Locks do not hold for programs on other machines, so that two can damage the store.
    withoutLinks, ///< A store cannot be made there, as a file gets its name by a link when it is whole.
    passing,      ///< Kept in memory only: all is lost with the next restart.
    unknown,      ///< A program answers for its files; what it does about locks cannot be told.
};

/// The file system of `path`, or of the nearest folder above that exists; links are followed.
FileSystem fileSystemOf(std::filesystem::path const& path);

/// The file system that the absolute `path`, without links, is on by a table of mounts such as /proc/self/mountinfo.
FileSystem fileSystemIn(std::string const& mountTable, std::filesystem::path const& path);

/// What speaks against a store on `fileSystem`, if anything does.
Suitability suitabilityForStores(FileSystem const& fileSystem);

} // namespace Storage
