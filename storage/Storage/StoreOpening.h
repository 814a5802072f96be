// SPDX-License-Identifier: MIT
//
// The file of a SqliteStorage: how it comes to be, how it is checked. Internal.
#pragma once

#include <Storage/SqliteStorage.h>

#include <SQLiteCpp/Database.h>

#include <filesystem>
#include <optional>
#include <string>

namespace Storage {

/// `file` as an absolute path. Throws `StorageError`, which names `attempt`, where it is empty, holds a NUL or is too
/// long for SQLite, or there is no current directory.
std::filesystem::path absolutePath(std::filesystem::path const& file, char const* attempt);

/// Opens the store in the absolute path `file`, creating a missing one. Throws `StorageError` and SQLite's errors.
SQLite::Database openStore(std::filesystem::path const& file, int busyTimeoutMilliseconds, int synchronous);

/// Throws `StorageError`, which names `file`, and SQLite's errors where the open database is no sound store.
void checkStore(std::filesystem::path const& file, SQLite::Database& database);

/// The error of `attempt`, a change of the open store whose file has the schema `schema`; nullopt where changes are allowed.
std::optional<StorageError> obstacleToChanges(std::filesystem::path const& file, std::string const& attempt,
                                              SQLite::Database const& database, int schema);

} // namespace Storage
