// SPDX-License-Identifier: MIT
#pragma once

#include "OpenedStores.h"
#include "StoreBackups.h"

#include <Inspector/Commits.h>

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace Inspector {

/// Stores commits, each over the rows that were seen. Internal.
///
/// Everything here waits for other processes for some tenths of a second at most. One thread.
class StoreWriter {
public:
    /// Backups are kept in `backupFolder`; nullopt for the user's folder for states.
    StoreWriter(OpenedStores& stores, std::optional<std::filesystem::path> const& backupFolder) : m_stores(stores), m_backups(backupFolder)
    {}

    /// Stores it, after a backup of each store that was not changed before. Without one nothing is stored, unless `mayGoWithout`, and
    /// nothing over a value that this version cannot read. Throws `Storage::StorageError` with the code busy if it stored nothing and
    /// another try may succeed.
    Answer store(Commit const& commit, bool mayGoWithout);

private:
    using Row = Storage::SqliteStorage::Row;

    struct Planned {
        Catalogue::Store store;
        Storage::SqliteStorage::Change change;
    };

    std::optional<std::string> refusal(std::vector<Edit> const& edits) const;
    std::string refusalWithoutBackup(Commit const& commit) const;
    void keepBackups(Commit const& commit);
    std::optional<Answer> obstacle(Commit const& commit, bool mayGoWithout);
    Answer stored(Commit const& commit, bool mayGoWithout);
    std::vector<Planned> plan(std::vector<Edit> const& edits);
    static std::vector<Planned> plan(Step const& step);
    void createWhereMissing(Catalogue::Store store, std::optional<Row> const& expected);
    Answer applied(std::vector<Planned> const& planned, bool mayRewrite);
    Step apply(Catalogue::Store store, std::vector<Storage::SqliteStorage::Change> changes, bool mayRewrite);

    OpenedStores& m_stores;
    StoreBackups m_backups;
    std::vector<std::filesystem::path> m_untoldBackups;
};

} // namespace Inspector
