// SPDX-License-Identifier: MIT
//
// The file of a SqliteStorage: how it comes to be, how it is checked, and what its troubles are called. Internal.
#pragma once

#include <Storage/SqliteStorage.h>

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Exception.h>

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace Storage {

/// `file` as an absolute path. Throws `StorageError`, which names `attempt`, where it is empty, holds a NUL or is too
/// long for SQLite, or there is no current directory.
std::filesystem::path absolutePath(std::filesystem::path const& file, char const* attempt);

/// Opens the store in the absolute path `file`, creating a missing one. Throws `StorageError` and SQLite's errors.
SQLite::Database openStore(std::filesystem::path const& file, int busyTimeoutMilliseconds, int synchronous);

/// Throws `StorageError`, which names `file`, and SQLite's errors where the open database is no sound store.
void checkStore(std::filesystem::path const& file, SQLite::Database& database);

/// Why changes are refused.
struct Obstacle {
    std::string reason;
    std::string remedy;
};

/// What stands against every change of the open store, whose file has the schema `schema`; nothing where nothing does.
std::optional<Obstacle> obstacleToChanges(SQLite::Database const& database, int schema);

/// Stores a value: key, kind, value and time.
extern char const* const setStatement;

/// What SQLite finds wrong with the file.
std::vector<std::string> damageOf(SQLite::Database& database);

/// All rows of an open store, sorted by the bytes of their keys.
std::vector<SqliteStorage::Row> storedRows(SQLite::Database& database);

/// The bytes of an open store's file as of one moment, with a header that asks for no write-ahead log.
std::string snapshotOf(SQLite::Database& database);

/// SQLite's error as this project's, with a remedy.
StorageError storageError(std::filesystem::path const& file, std::string const& attempt, SQLite::Exception const& error);

/// Does `work`; what SQLite throws comes out as a `StorageError`.
template <typename Work>
auto translated(std::filesystem::path const& file, std::string const& attempt, Work const& work)
{
    try {
        return work();
    } catch (SQLite::Exception const& error) {
        throw storageError(file, attempt, error);
    }
}

} // namespace Storage
