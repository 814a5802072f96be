// SPDX-License-Identifier: MIT
//
// What can be wrong with the stores, with what they hold and with the folders that the editor writes to. Each check looks
// and changes nothing.
#pragma once

#include <Catalogue/Catalogue.h>
#include <Host/Application.h>
#include <Storage/FileSystem.h>
#include <Storage/Kind.h>

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

enum class Severity {
    note,    ///< Nothing is wrong.
    warning, ///< Something does not work as it seems to, or may be lost.
    error,   ///< Something does not work.
};

struct Finding {
    Severity severity;
    char const* check;  ///< The name of what was found, for scripts; the same in every version.
    std::string what;   ///< For people.
    std::string remedy; ///< What to do.
    std::optional<Catalogue::Store> store = std::nullopt;
    std::string key = {};  ///< Empty where it is about no key.
    std::string path = {}; ///< Empty where it is about no file or folder.
};

using Findings = std::vector<Finding>;

/// The file system that a store lies on, or would.
struct FileSystem {
    std::string type;       ///< As the system names it, such as "ext4" or "fuse.sshfs"; empty where it is unknown.
    std::string mountPoint; ///< Empty where it is unknown.
    bool isReadOnly = false;
    Storage::Locality locality = Storage::Locality::unknown;
};

/// A store with all that is known of it.
struct ExaminedStore {
    Catalogue::Store store;
    std::filesystem::path file;
    FileSystem fileSystem;
    std::optional<Storage::StorageError> error; ///< Why it cannot be used; nullopt where it can, or is missing.
    bool isMissing = false;
    std::optional<Storage::StorageError> readOnlyError; ///< Nullopt where it takes changes, is missing or cannot be used.
    Storage::SqliteStorage::Report report;              ///< Of one that can be used, as are the rows.
    std::vector<Storage::SqliteStorage::Row> rows;
};

ExaminedStore examined(Host::Application const& application, Catalogue::Store store);

// The file of a store.
Findings checkAccess(ExaminedStore const& store);
Findings checkModes(ExaminedStore const& store);
Findings checkJournal(ExaminedStore const& store);
Findings checkFileSystem(ExaminedStore const& store);

// What a store holds.
Findings checkKeys(ExaminedStore const& store);
Findings checkRationals(ExaminedStore const& store);
Findings checkValues(Host::Application const& application, ExaminedStore const& store);

// What the editor writes.
Findings checkFolders();
