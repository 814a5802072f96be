// SPDX-License-Identifier: MIT
#pragma once

#include <Catalogue/Catalogue.h>
#include <Host/Application.h>
#include <Storage/FileSystem.h>

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace Inspection {

enum class StoreState {
    missing,
    unusable, ///< Its file exists and cannot be opened or read.
    readOnly, ///< It can be read, and takes no change.
    usable,
};

/// The word for tables and JSON: "missing", "unusable", "read-only" or "usable".
char const* storeStateName(StoreState state);

/// The file system of a store, or of the nearest existing folder above a missing one.
struct FileSystem {
    std::string type;       ///< The system's name for it, such as "ext4" or "fuse.sshfs"; empty where it is unknown.
    std::string mountPoint; ///< In UTF-8; empty where it is unknown.
    bool isReadOnly = false;
    Storage::Locality locality = Storage::Locality::unknown;
    std::int64_t bytesFree = -1; ///< For this user; negative where it is unknown.
};

/// A store as one look at its file, its rows and its file system found it.
struct ExaminedStore {
    Catalogue::Store store;
    std::filesystem::path file;
    FileSystem fileSystem;
    StoreState state;
    std::optional<Storage::StorageError> error;    ///< Why it is unusable or read-only; nullopt in the other states.
    Storage::SqliteStorage::Report report;         ///< Filled where the store can be read.
    std::vector<Storage::SqliteStorage::Row> rows; ///< Likewise.

    /// Whether the store can be read.
    bool isOpen() const { return state == StoreState::readOnly || state == StoreState::usable; }
};

/// Examines the store that `application` bound or left out. Changes nothing, except that SQLite undoes an interrupted
/// change, as it does for every program that opens the store.
ExaminedStore examine(Host::Application const& application, Catalogue::Store store);

} // namespace Inspection
