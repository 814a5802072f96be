// SPDX-License-Identifier: MIT
//
// Creates, checks and opens the file of a `SqliteStorage`. Internal.
#pragma once

#include "Prepared.h"

#include <Storage/SqliteStorage.h>

#include <SQLiteCpp/Database.h>

#include <filesystem>
#include <optional>
#include <string>

namespace Storage {

/// Returns `file` as an absolute path. Throws a `StorageError` of `attempt` where it is empty, holds a NUL or is too long
/// for SQLite, or where the process has no current directory.
std::filesystem::path absolutePath(std::filesystem::path const& file, char const* attempt);

/// Throws a `StorageError` of `attempt` where `file`, which may be missing, lies on a network file system and `options` do
/// not allow that.
void checkFileSystem(std::filesystem::path const& file, char const* attempt, SqliteStorage::Options const& options);

/// Throws a `StorageError` of `attempt` where a write-ahead log lies beside `file`, which `database` has open.
void checkNoLog(std::filesystem::path const& file, char const* attempt, SQLite::Database const& database);

/// Opens the store in the absolute path `file`, and creates a missing one unless `options` forbid it. Throws `StorageError`
/// and SQLite's errors.
SQLite::Database openStore(std::filesystem::path const& file, SqliteStorage::Options const& options);

/// The steps of `openStore`. First the file, of which only the header is read; then `checkStore`; and at last, outside of
/// a transaction, how changes are journalled.
SQLite::Database openFile(std::filesystem::path const& file, SqliteStorage::Options const& options);
void setJournal(SQLite::Database& database, int synchronous);

/// Throws a `StorageError` about `file`, or SQLite's error, where the open database is not an undamaged store.
void checkStore(std::filesystem::path const& file, SQLite::Database& database);
/// As above, with the statements `allRows` and `setStatement` of the caller's, which are prepared by it.
void checkStore(std::filesystem::path const& file, SQLite::Database& database, Prepared& all, Prepared& set);

/// The error of `attempt`, a change of the open store whose file has the schema `schema`; nullopt where changes are allowed.
std::optional<StorageError> obstacleToChanges(std::filesystem::path const& file, std::string const& attempt,
                                              SQLite::Database const& database, int schema);

} // namespace Storage
