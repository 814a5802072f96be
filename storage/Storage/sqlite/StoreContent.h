// SPDX-License-Identifier: MIT
//
// The rows and the bytes of an open store. Internal.
#pragma once

#include <Storage/SqliteStorage.h>

#include <SQLiteCpp/Column.h>
#include <SQLiteCpp/Database.h>

#include <string>
#include <vector>

namespace Storage {

/// The statement that stores a row: key, kind, value and time.
extern char const* const setStatement;

/// The statement that lists all rows in no order: key, kind, value and time. A row of NULLs is the first, also where there
/// is no other, so that SQLite holds its lock when it was stepped to.
extern char const* const allRows;

/// The offset in SQLite's header of two bytes: the formats for writers and for readers.
inline constexpr int formatsAt = 18;

/// The first `most` findings of SQLite's integrity check; empty where the file is undamaged. One finding about the trees of
/// pages ends the check before it walks them row by row, which may take for ever in a forged file.
std::vector<std::string> damageOf(SQLite::Database& database, int most = 100);

/// All rows of an open store, sorted by the bytes of their keys.
std::vector<SqliteStorage::Row> storedRows(SQLite::Database& database);

/// Decodes the columns of a row.
SqliteStorage::Row decodedRow(std::string key, SQLite::Column const& kind, SQLite::Column const& value, SQLite::Column const& changed);

/// The stored word for the kind of `value`; empty for `std::monostate`.
char const* kindWord(SqliteStorage::Value const& value);

/// The bytes of an open store's file as of one moment.
std::string snapshotOf(SQLite::Database& database);

} // namespace Storage
