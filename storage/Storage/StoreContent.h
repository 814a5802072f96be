// SPDX-License-Identifier: MIT
//
// What an open store holds. Internal.
#pragma once

#include <Storage/SqliteStorage.h>

#include <SQLiteCpp/Column.h>
#include <SQLiteCpp/Database.h>

#include <string>
#include <vector>

namespace Storage {

/// Stores a value: key, kind, value and time.
extern char const* const setStatement;

/// The offset in SQLite's header of two bytes: the formats for writers and for readers.
inline constexpr int formatsAt = 18;

/// What SQLite finds wrong with the file.
std::vector<std::string> damageOf(SQLite::Database& database);

/// All rows of an open store, sorted by the bytes of their keys.
std::vector<SqliteStorage::Row> storedRows(SQLite::Database& database);

/// A row as the columns of a statement hold it.
SqliteStorage::Row decodedRow(std::string key, SQLite::Column const& kind, SQLite::Column const& value, SQLite::Column const& changed);

/// The bytes of an open store's file as of one moment, with a header that asks for no write-ahead log.
std::string snapshotOf(SQLite::Database& database);

} // namespace Storage
