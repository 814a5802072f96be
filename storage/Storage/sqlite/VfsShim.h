// SPDX-License-Identifier: MIT
//
// A VFS shim: stands between SQLite and its own VFS, for the files of stores and backups. Internal.
#pragma once

#include <sqlite3.h>

namespace Storage {

/// Registers the shim, never as the default, and returns its name. It passes every call on to SQLite's VFS, except where
/// SQLite takes a passing error of the system for a fact, or would use a file that is not the store's own:
///
/// - `shimAccess` reports an error where SQLite would call a journal absent that it cannot look for. SQLite would read
///   what the journal undoes, or put a new journal in its place. It refuses a journal that is not a regular file, and one
///   that names an existing super-journal; and it calls every write-ahead log absent.
///   It refuses the journal of another file that got the store's name, and `shimLock` leaves that one alone.
/// - `shimLock` releases a lock whose release failed before it asks for the next one. SQLite would believe that it had
///   just taken the lock, and roll back the journal of a killed process as its own. With the lock of a writer it empties
///   the journal, which SQLite would write over.
/// - `shimOpen` never opens a writable file for reading only, which would hold for as long as it is open. It opens no
///   write-ahead log and no super-journal.
/// - `shimDelete` deletes nothing but the store's own journal.
char const* vfsShim();

/// Extended result codes of the shim's own, which SQLite passes on to its caller.
constexpr int refusedJournal = SQLITE_CANTOPEN | (101 << 8);      ///< The journal is not a regular file.
constexpr int refusedSuperJournal = SQLITE_CANTOPEN | (102 << 8); ///< The journal names an existing super-journal.
constexpr int refusedLog = SQLITE_CANTOPEN | (103 << 8);          ///< The file was switched to write-ahead logging.

} // namespace Storage
