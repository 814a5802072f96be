// SPDX-License-Identifier: MIT
#include "SqliteErrors.h"

#include <sqlite3.h>

#include <cerrno>
#include <system_error>

namespace fs = std::filesystem;

namespace Storage {

namespace {

char const* remedyFor(int extendedCode)
{
    if (extendedCode == SQLITE_READONLY_DBMOVED)
        return "the file was moved or removed while it was open: start the program again";
    switch (extendedCode & 0xff) {
    case SQLITE_BUSY:
        return "another process is writing: try again, or close the other process";
    case SQLITE_FULL:
        return "free some space on the disk and try again";
    case SQLITE_NOTADB:
    case SQLITE_CORRUPT:
    case SQLITE_ERROR: // the statements are right, so the tables are not
        return restoreBackup;
    case SQLITE_READONLY:
    case SQLITE_CANTOPEN:
        return checkAccess;
    case SQLITE_TOOBIG:
        return "keep the value in a file of its own and store the file's name";
    default:
        return "check the disk and its space, and try again";
    }
}

char const* remedyForSystem(int error)
{
    if (error == ENAMETOOLONG)
        return shortenName;
    return error == ENOSPC || error == EDQUOT ? remedyFor(SQLITE_FULL) : checkAccess;
}

} // namespace

void throwSystemError(fs::path const& file, char const* attempt, int error)
{
    throw StorageError(file.u8string(), attempt, std::generic_category().message(error), remedyForSystem(error));
}

StorageError storageError(fs::path const& file, std::string const& attempt, SQLite::Exception const& error)
{
    bool const isFromSqlite = error.getExtendedErrorCode() > 0;
    return {file.u8string(), attempt, error.what(), remedyFor(isFromSqlite ? error.getExtendedErrorCode() : error.getErrorCode())};
}

} // namespace Storage
