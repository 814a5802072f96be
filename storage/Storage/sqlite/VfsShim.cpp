// SPDX-License-Identifier: MIT
#include "VfsShim.h"

#include <sqlite3.h>

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Storage {

namespace {

sqlite3_vfs* sqliteVfs = nullptr;
sqlite3_io_methods const* sqliteMethods = nullptr;

int shimLock(sqlite3_file* file, int level)
{
    int held = SQLITE_LOCK_NONE;
    sqliteMethods->xFileControl(file, SQLITE_FCNTL_LOCKSTATE, &held);
    if (level == SQLITE_LOCK_SHARED && held != SQLITE_LOCK_NONE) // SQLite asks for it only where it believes that it holds none
        if (int const code = sqliteMethods->xUnlock(file, SQLITE_LOCK_NONE); code != SQLITE_OK)
            return code;
    return sqliteMethods->xLock(file, level);
}

sqlite3_io_methods shimMethods(sqlite3_io_methods const* methods)
{
    sqliteMethods = methods;
    sqlite3_io_methods result = *methods;
    result.xLock = shimLock;
    return result;
}

int shimOpen(sqlite3_vfs*, char const* name, sqlite3_file* file, int flags, int* outFlags)
{
    int opened = 0;
    if (int const code = sqliteVfs->xOpen(sqliteVfs, name, file, flags, &opened); code != SQLITE_OK)
        return code;
    bool const isReadOnly = (flags & SQLITE_OPEN_READWRITE) && (opened & SQLITE_OPEN_READONLY);
    if (isReadOnly && ::faccessat(AT_FDCWD, name, W_OK, AT_EACCESS) == 0) {
        file->pMethods->xClose(file);
        file->pMethods = nullptr;
        return SQLITE_CANTOPEN;
    }
    if (flags & SQLITE_OPEN_MAIN_DB) {
        static sqlite3_io_methods const methods = shimMethods(file->pMethods); // SQLite has one table for all such files
        file->pMethods = &methods;
    }
    if (outFlags)
        *outFlags = opened;
    return SQLITE_OK;
}

int shimAccess(sqlite3_vfs*, char const* name, int question, int* answer)
{
    if (question != SQLITE_ACCESS_EXISTS)
        return sqliteVfs->xAccess(sqliteVfs, name, question, answer);
    struct stat status = {};
    bool const exists = ::stat(name, &status) == 0;
    if (!exists && errno != ENOENT && errno != ENOTDIR)
        return SQLITE_IOERR_ACCESS;
    *answer = exists && (!S_ISREG(status.st_mode) || status.st_size > 0); // an empty journal has nothing to undo
    return SQLITE_OK;
}

sqlite3_vfs shimVfs()
{
    sqliteVfs = sqlite3_vfs_find(nullptr);
    sqlite3_vfs result = *sqliteVfs;
    result.zName = "editor-settings";
    result.xOpen = shimOpen;
    result.xAccess = shimAccess;
    return result;
}

} // namespace

char const* vfsShim()
{
    static sqlite3_vfs shim = shimVfs();
    static int const code = sqlite3_vfs_register(&shim, 0);
    static_cast<void>(code); // fails only for want of memory; the name is then unknown to sqlite3_open
    return shim.zName;
}

} // namespace Storage
