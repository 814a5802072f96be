// SPDX-License-Identifier: MIT
#pragma once

#include <Catalogue/Catalogue.h>
#include <Storage/SqliteStorage.h>

#include <filesystem>
#include <optional>
#include <set>

namespace Inspector {

/// Keeps a backup of each store from before the first change, as `editor-settings restore` takes it. Internal.
///
/// Its name is made of the store's, of a number for the store's file, and of the time in UTC:
/// "product-3f2a90c1-20261122T190501.123Z.backup". The latest five of each file are kept. One thread.
class StoreBackups {
public:
    /// nullopt for the user's folder for states.
    explicit StoreBackups(std::optional<std::filesystem::path> const& folder) : m_folder(folder) {}

    /// Copies `store` unless it was copied by this object. The new file, or nullopt. Throws `Storage::StorageError`.
    std::optional<std::filesystem::path> keep(Catalogue::Store name, Storage::SqliteStorage const& store);
    /// Whether it was copied.
    bool has(Catalogue::Store name) const { return m_kept.count(name) > 0; }

private:
    std::optional<std::filesystem::path> const m_folder;
    std::set<Catalogue::Store> m_kept;
};

} // namespace Inspector
