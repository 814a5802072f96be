// SPDX-License-Identifier: MIT
#include "VfsShim.h"

#include <cerrno>
#include <new>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Storage {

namespace {

sqlite3_vfs* sqliteVfs = nullptr;
sqlite3_io_methods const* sqliteMethods = nullptr;

// The names that SQLite passes for the files beside a store. They are compared by address, as a hostile journal may give its
// super-journal any name.
struct Companions {
    char const* journal = nullptr;
    char const* log = nullptr;
};

// The store that this thread locked last, and its companions: SQLite locks a store before it asks for a file beside it.
thread_local sqlite3_file* store = nullptr;
thread_local Companions companions;

// Whether the store lost its name. A journal beside the name belongs to another file then, whose writer may be alive.
bool hasMoved()
{
    int answer = 0;
    sqliteMethods->xFileControl(store, SQLITE_FCNTL_HAS_MOVED, &answer);
    return answer != 0;
}

// Where the shim keeps the companions of a store: behind SQLite's file object, in the same memory.
void* behind(sqlite3_file* file) { return reinterpret_cast<char*>(file) + sqliteVfs->szOsFile; }

// A writer, who has looked for a journal to roll back before, empties what is left of one. In TRUNCATE mode SQLite would write
// the next journal over it, which could then end in the name of a missing super-journal and never be rolled back.
int emptied(char const* journal)
{
    struct stat status = {};
    if (::lstat(journal, &status) != 0)
        return errno == ENOENT ? SQLITE_OK : SQLITE_IOERR_ACCESS;
    if (status.st_size == 0)
        return SQLITE_OK;
    if (hasMoved())
        return SQLITE_READONLY_DBMOVED;
    int const descriptor = ::open(journal, O_WRONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    bool const isEmpty = descriptor >= 0 && ::ftruncate(descriptor, 0) == 0;
    if (descriptor >= 0)
        ::close(descriptor);
    return isEmpty ? SQLITE_OK : SQLITE_IOERR_TRUNCATE;
}

int shimLock(sqlite3_file* file, int level)
{
    store = file;
    companions = *static_cast<Companions*>(behind(file));
    int held = SQLITE_LOCK_NONE;
    sqliteMethods->xFileControl(file, SQLITE_FCNTL_LOCKSTATE, &held);
    if (level == SQLITE_LOCK_SHARED && held != SQLITE_LOCK_NONE) // SQLite asks for it only where it believes that it holds none
        if (int const code = sqliteMethods->xUnlock(file, SQLITE_LOCK_NONE); code != SQLITE_OK)
            return code;
    int const code = sqliteMethods->xLock(file, level);
    if (code == SQLITE_OK && level == SQLITE_LOCK_RESERVED)
        return emptied(companions.journal); // an error ends the transaction, and the lock with it
    return code;
}

sqlite3_io_methods shimMethods(sqlite3_io_methods const* methods)
{
    sqliteMethods = methods;
    sqlite3_io_methods result = *methods;
    result.xLock = shimLock;
    return result;
}

void takeOver(sqlite3_file* file, char const* name)
{
    static sqlite3_io_methods const methods = shimMethods(file->pMethods); // SQLite has one table for all such files
    file->pMethods = &methods;
    new (behind(file)) Companions{sqlite3_filename_journal(name), sqlite3_filename_wal(name)};
}

int shimOpen(sqlite3_vfs*, char const* name, sqlite3_file* file, int flags, int* outFlags)
{
    file->pMethods = nullptr;
    if (flags & (SQLITE_OPEN_WAL | SQLITE_OPEN_SUPER_JOURNAL))
        return flags & SQLITE_OPEN_WAL ? refusedLog : refusedSuperJournal;
    int opened = 0;
    if (int const code = sqliteVfs->xOpen(sqliteVfs, name, file, flags, &opened); code != SQLITE_OK)
        return code;
    bool const isReadOnly = (flags & SQLITE_OPEN_READWRITE) && (opened & SQLITE_OPEN_READONLY);
    if (isReadOnly && ::faccessat(AT_FDCWD, name, W_OK, AT_EACCESS) == 0) {
        file->pMethods->xClose(file);
        file->pMethods = nullptr;
        return SQLITE_CANTOPEN;
    }
    if (outFlags)
        *outFlags = opened;
    if (flags & SQLITE_OPEN_MAIN_DB)
        takeOver(file, name);
    return SQLITE_OK;
}

int shimDelete(sqlite3_vfs*, char const* name, int syncsFolder)
{
    return name == companions.journal ? sqliteVfs->xDelete(sqliteVfs, name, syncsFolder) : SQLITE_IOERR_DELETE;
}

int shimAccess(sqlite3_vfs*, char const* name, int question, int* answer)
{
    if (question != SQLITE_ACCESS_EXISTS)
        return sqliteVfs->xAccess(sqliteVfs, name, question, answer);
    *answer = 0;
    if (name == companions.log)
        return SQLITE_OK;
    struct stat status = {};
    bool const exists = ::lstat(name, &status) == 0;
    if (!exists && (errno == ENOENT || errno == ENOTDIR))
        return SQLITE_OK;
    if (name != companions.journal)
        return refusedSuperJournal;
    if (!exists)
        return SQLITE_IOERR_ACCESS;
    if (!S_ISREG(status.st_mode))
        return refusedJournal;
    *answer = status.st_size > 0; // an empty journal has nothing to undo
    return *answer && hasMoved() ? SQLITE_READONLY_DBMOVED : SQLITE_OK;
}

sqlite3_vfs shimVfs()
{
    sqliteVfs = sqlite3_vfs_find(nullptr);
    sqlite3_vfs result = *sqliteVfs;
    result.zName = "editor-settings";
    result.szOsFile += static_cast<int>(sizeof(Companions));
    result.xOpen = shimOpen;
    result.xDelete = shimDelete;
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
