// SPDX-License-Identifier: MIT
#pragma once

#include <Storage/SqliteStorage.h>
#include <Storage/StorageError.h>

#include <optional>
#include <string>

namespace Storage {

/// The error of `SqliteStorage::apply` where a key differs from what its change expects. No change was made. Its code is
/// `StorageError::Code::conflict`.
class Conflict : public StorageError {
public:
    /// The parts of the error; `stored` is compared with `expected` for the reason.
    Conflict(std::string const& file, std::string const& attempt, std::string const& key, std::optional<SqliteStorage::Row> const& expected,
             std::optional<SqliteStorage::Row> const& stored);

    /// The key of the first change that expects another row.
    std::string const& key() const noexcept { return m_key; }
    /// Its row as of the attempt; nullopt where the key is absent.
    std::optional<SqliteStorage::Row> const& row() const noexcept { return m_row; }

private:
    std::string m_key;
    std::optional<SqliteStorage::Row> m_row;
};

} // namespace Storage
