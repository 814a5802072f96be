// SPDX-License-Identifier: MIT
//
// Creates, checks and opens the file of a `SqliteStorage`. Internal.
#pragma once

#include "Prepared.h"

#include <Storage/SqliteStorage.h>

#include <SQLiteCpp/Database.h>

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace Storage {

/// "LuES", in the file's header, tells a store from other SQLite files.
inline constexpr int storeApplicationId = 0x4C754553;

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

/// The content of a new file: what `sql` makes, under the numbers that tell whose it is and of which version.
std::string newFile(int applicationId, int schema, std::string const& sql);
/// The content of a store without values.
std::string emptyStore();

/// The steps of `openStore`. First the file, of which only the header is read, and which is made with `content` where it is missing;
/// then `checkStore`; and at last, outside of a transaction, how changes are journalled.
SQLite::Database openFile(std::filesystem::path const& file, SqliteStorage::Options const& options,
                          std::function<std::string()> const& content = emptyStore);
void setJournal(SQLite::Database& database, int synchronous);

/// Throws a `StorageError` about `file`, or SQLite's error, where the open database, which was hardened, is not an undamaged
/// store: of this version's schema exactly, or a newer one that can be read.
void checkStore(std::filesystem::path const& file, SQLite::Database& database);
/// As above, with the statement `allRows` of the caller's, which is prepared by it.
void checkStore(std::filesystem::path const& file, SQLite::Database& database, Prepared& all);

/// Locks the regular file `file`, of any content, against every reader and writer until the result is destroyed; no statement
/// may be run on it. The locks are SQLite's own: closing a descriptor of ours would drop those of other stores in this
/// process, and past the shim, which would empty the file's journal. Returns nullopt where the file cannot be opened for writing or locked,
/// and for a write-ahead log, whose programs hold a lock as long as they run and follow it under another name. Throws SQLITE_BUSY after the
/// timeout, and SQLITE_READONLY_DBMOVED where another file has got the name meanwhile.
std::optional<SQLite::Database> lockForReplacing(std::filesystem::path const& file, SqliteStorage::Options const& options);

/// The error of `attempt`, in which SQLite failed with `error` on the content of a file of a newer schema `schema`; nullopt
/// where the schema is not newer, or the error not about the content.
std::optional<StorageError> newerStoreError(std::filesystem::path const& file, std::string const& attempt, int schema,
                                            SQLite::Exception const& error);

/// The error of `attempt`, a change of the open store whose file has the schema `schema`; nullopt where changes are allowed.
std::optional<StorageError> obstacleToChanges(std::filesystem::path const& file, std::string const& attempt,
                                              SQLite::Database const& database, int schema);

} // namespace Storage
