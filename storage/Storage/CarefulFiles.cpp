// SPDX-License-Identifier: MIT
#include "CarefulFiles.h"

#include <sqlite3.h>

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Storage {

namespace {

sqlite3_vfs* sqlitesOwn = nullptr;
sqlite3_io_methods const* ownMethods = nullptr;

int giveBackAndLock(sqlite3_file* file, int level)
{
    int held = SQLITE_LOCK_NONE;
    ownMethods->xFileControl(file, SQLITE_FCNTL_LOCKSTATE, &held);
    if (level == SQLITE_LOCK_SHARED && held != SQLITE_LOCK_NONE) // it asks for this one only where it believes it has none
        if (int const code = ownMethods->xUnlock(file, SQLITE_LOCK_NONE); code != SQLITE_OK)
            return code;
    return ownMethods->xLock(file, level);
}

sqlite3_io_methods careful(sqlite3_io_methods const* methods)
{
    ownMethods = methods;
    sqlite3_io_methods result = *methods;
    result.xLock = giveBackAndLock;
    return result;
}

int openForWhatWasAsked(sqlite3_vfs*, char const* name, sqlite3_file* file, int flags, int* given)
{
    int opened = 0;
    if (int const code = sqlitesOwn->xOpen(sqlitesOwn, name, file, flags, &opened); code != SQLITE_OK)
        return code;
    bool const isLess = (flags & SQLITE_OPEN_READWRITE) && (opened & SQLITE_OPEN_READONLY);
    if (isLess && ::faccessat(AT_FDCWD, name, W_OK, AT_EACCESS) == 0) {
        file->pMethods->xClose(file);
        file->pMethods = nullptr;
        return SQLITE_CANTOPEN;
    }
    if (flags & SQLITE_OPEN_MAIN_DB) {
        static sqlite3_io_methods const methods = careful(file->pMethods); // the same for all such files
        file->pMethods = &methods;
    }
    if (given)
        *given = opened;
    return SQLITE_OK;
}

int exists(sqlite3_vfs*, char const* name, int question, int* answer)
{
    if (question != SQLITE_ACCESS_EXISTS)
        return sqlitesOwn->xAccess(sqlitesOwn, name, question, answer);
    struct stat status = {};
    bool const isThere = ::stat(name, &status) == 0;
    if (!isThere && errno != ENOENT && errno != ENOTDIR)
        return SQLITE_IOERR_ACCESS;
    *answer = isThere && (!S_ISREG(status.st_mode) || status.st_size > 0); // an empty journal is none
    return SQLITE_OK;
}

sqlite3_vfs registered()
{
    sqlitesOwn = sqlite3_vfs_find(nullptr);
    sqlite3_vfs result = *sqlitesOwn;
    result.zName = "editor-settings";
    result.xOpen = openForWhatWasAsked;
    result.xAccess = exists;
    return result;
}

} // namespace

char const* carefulFiles()
{
    static sqlite3_vfs files = registered();
    static int const code = sqlite3_vfs_register(&files, 0);
    static_cast<void>(code); // it fails only where memory is short, and then the name is unknown when it is used
    return files.zName;
}

} // namespace Storage
