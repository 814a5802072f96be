// SPDX-License-Identifier: MIT
#pragma once

#include <Inspection/RowDifference.h>

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <sys/types.h>

namespace Inspection {

/// Finds what other processes change in the store of one file, also where the file appears, goes, or is replaced. Never
/// creates the file. The first look finds all rows of an existing store as added.
class StoreWatcher {
public:
    explicit StoreWatcher(std::filesystem::path file, Storage::SqliteStorage::Options const& options = {})
        : m_file(std::move(file)), m_options(options)
    {
        m_options.createIfMissing = false;
    }

    struct Look {
        std::vector<RowDifference> differences;     ///< Since the last successful look.
        std::optional<Storage::StorageError> error; ///< Only in the first look of a row of looks that fail with the same text.
    };

    /// Reads the store if it may have changed. An error leaves the rows of the last successful look for the next comparison.
    Look look();

private:
    using Identity = std::pair<dev_t, ino_t>; // another one for the file that replaced another

    bool read();

    std::filesystem::path m_file;
    Storage::SqliteStorage::Options m_options;
    std::unique_ptr<Storage::SqliteStorage> m_opened;
    std::optional<Identity> m_identity;
    long long m_version = 0;
    std::vector<Storage::SqliteStorage::Row> m_rows;
    std::string m_error;
};

} // namespace Inspection
