// SPDX-License-Identifier: MIT
#include "StoreOpening.h"

#include "Hardening.h"
#include "SqliteErrors.h"
#include "StoreContent.h"
#include "StoreFile.h"
#include "VfsShim.h"
#include <Storage/AtomicFile.h>
#include <Storage/FileSystem.h>

#include <sqlite3.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdint>
#include <limits>
#include <system_error>
#include <thread>
#include <utility>

#include <sys/stat.h>

namespace fs = std::filesystem;

namespace Storage {

namespace {

using Code = StorageError::Code;

// Kinds and values have no constraint, so that rows of a later version survive in a file that this one made. `kind` is a
// stored word of Kind, `changed` counts milliseconds since 1970-01-01 00:00 UTC. Every store has this text: a change of a
// letter makes strangers of them all.
constexpr char const* settingsTable =
    "CREATE TABLE settings ( key TEXT NOT NULL PRIMARY KEY, kind TEXT NOT NULL, value NOT NULL, changed INTEGER NOT NULL)";

constexpr char const* openTheStore = "open the store";

constexpr std::size_t longestPath = 504; // SQLite's limit, beyond which it only reports that it cannot open the file

// Clamped to SQLite's `int`, some 24 days.
int busyMilliseconds(std::chrono::milliseconds duration)
{
    return static_cast<int>(std::clamp<std::chrono::milliseconds::rep>(duration.count(), 0, std::numeric_limits<int>::max()));
}

// A busy handler that retries every millisecond. SQLite's own backs off so far that it misses every moment in which
// processes that write without end leave the file free. The pause varies, so that two waiting processes do not keep step.
int retryWhileBusy(void* timeout, int earlier)
{
    using Clock = std::chrono::steady_clock;
    thread_local Clock::time_point start;
    Clock::time_point const now = Clock::now();
    if (earlier == 0)
        start = now;
    if (now - start >= std::chrono::milliseconds(reinterpret_cast<std::intptr_t>(timeout)))
        return 0;
    std::this_thread::sleep_for(std::chrono::microseconds(500 + now.time_since_epoch().count() % 1000));
    return 1;
}

[[noreturn]] void refuse(fs::path const& file, Code code, std::string const& reason, char const* remedy)
{
    throw StorageError(code, file.u8string(), openTheStore, reason, remedy);
}

// Whether a companion of a store is more than an empty file. A link counts for itself.
bool isInTheWay(fs::path const& companion, fs::path const& file, char const* attempt)
{
    struct stat status = {};
    if (::lstat(companion.c_str(), &status) == 0)
        return !S_ISREG(status.st_mode) || status.st_size > 0;
    if (errno != ENOENT && errno != ENOTDIR)
        throwSystemError(file, attempt, errno);
    return false;
}

// Throws where a new store must not be created under the name.
void checkMissing(fs::path const& file, SqliteStorage::Options const& options)
{
    std::error_code error;
    if (fs::is_symlink(fs::symlink_status(file, error)))
        refuse(file, Code::foreign, "it is a symbolic link to a file that does not exist",
               "remove the link, or restore the file that it names");
    if (!options.createIfMissing)
        refuse(file, Code::missing, "it does not exist", "name the file of a store");
    fs::path const log = file.string() + "-wal";
    bool const hasJournal = isInTheWay(file.string() + "-journal", file, openTheStore);
    if (fs::exists(file, error)) // checked again, as another process may just have made the store
        return;
    if (hasJournal)
        refuse(file, Code::access, "it is gone, but its journal is there and would be played back into a new one",
               "bring the store back beside its journal, or move the journal away");
    if (isInTheWay(log, file, openTheStore))
        refuse(file, Code::access, "it is gone, but a write-ahead log, " + log.u8string() + ", is there and would be played into a new one",
               "bring the store back beside its log, or move the log away");
}

// Returns whether the file exists, and throws where it cannot be a store. It asks for names and sizes only: closing the
// file here would drop the locks that another store object of this process holds on it.
bool isPresent(fs::path const& file, SqliteStorage::Options const& options)
{
    struct stat status = {};
    if (::stat(file.c_str(), &status) != 0) {
        if (errno != ENOENT && errno != ENOTDIR)
            throwSystemError(file, openTheStore, errno);
        checkMissing(file, options);
        return false;
    }
    if (!S_ISREG(status.st_mode))
        refuse(file, Code::foreign, "it is not a regular file", nameAnotherFile);
    if (status.st_size == 0)
        refuse(file, Code::damaged, "the file is empty, which a store never is", restoreBackup);
    return true;
}

sqlite3_file* fileOf(SQLite::Database const& database)
{
    sqlite3_file* file = nullptr;
    sqlite3_file_control(database.getHandle(), "main", SQLITE_FCNTL_FILE_POINTER, &file);
    return file;
}

// The lock by which a writer excludes other writers. Returns SQLite's code.
int lockReserved(sqlite3_file* file)
{
    int code = file->pMethods->xLock(file, SQLITE_LOCK_SHARED);
    if (code == SQLITE_OK)
        code = file->pMethods->xLock(file, SQLITE_LOCK_RESERVED);
    if (code != SQLITE_OK)
        file->pMethods->xUnlock(file, SQLITE_LOCK_NONE); // the writer that holds it waits for readers to leave
    return code;
}

// The lock of a writer that commits: nobody else reads or writes the file.
void lockExclusive(sqlite3_file* file, int busyTimeoutMilliseconds)
{
    bool isReserved = false;
    for (int waits = 0;;) {
        int const code = isReserved ? file->pMethods->xLock(file, SQLITE_LOCK_EXCLUSIVE) : lockReserved(file);
        if (code == SQLITE_OK && std::exchange(isReserved, true))
            return;
        if (code == SQLITE_BUSY && retryWhileBusy(reinterpret_cast<void*>(static_cast<std::intptr_t>(busyTimeoutMilliseconds)), waits++))
            continue;
        if (code != SQLITE_OK)
            throw SQLite::Exception(sqlite3_errstr(code), code);
    }
}

std::string newerSchema(int schema)
{
    return "it was written by a newer version (schema " + std::to_string(schema) + ", this version writes " +
           std::to_string(SqliteStorage::writtenSchema) + ")";
}

constexpr char const* updateProgram = "update this program; the file was left as it is";

// Throws where the file is not exactly what this version makes. Whatever else its schema holds may answer or undo a change.
void checkSchema(fs::path const& file, SQLite::Database& database)
{
    std::vector<SchemaObject> const objects = {{"table", "settings", "settings", settingsTable},
                                               {"index", "sqlite_autoindex_settings_1", "settings", ""}};
    if (std::optional<std::string> const strange = strangeObject(database, objects, "a store"))
        refuse(file, Code::foreign, *strange, restoreBackup);
    if (std::string const encoding = database.execAndGet("PRAGMA encoding").getString(); encoding != "UTF-8")
        refuse(file, Code::foreign, "its texts are in " + encoding + ", which those of a store never are", restoreBackup);
}

void checkContent(fs::path const& file, SQLite::Database& database, int schema, Prepared& all)
{
    WorkLimit const limit(database);
    if (schema <= SqliteStorage::writtenSchema)
        checkSchema(file, database);
    if (std::vector<std::string> const damage = damageOf(database, 1); !damage.empty())
        refuse(file, Code::damaged, "the file is damaged (" + forSentence(damage.front(), 300) + ")", restoreBackup);
    all.statement();
}

} // namespace

void checkStore(fs::path const& file, SQLite::Database& database, Prepared& all)
{
    if (database.execAndGet("PRAGMA application_id").getInt() != storeApplicationId)
        refuse(file, Code::foreign, "it is an SQLite file of another program", nameAnotherFile);
    int const schema = database.execAndGet("PRAGMA user_version").getInt();
    try {
        checkContent(file, database, schema, all);
    } catch (SQLite::Exception const& error) {
        if (std::optional<StorageError> const newer = newerStoreError(file, "open the store", schema, error))
            throw StorageError(*newer);
        throw;
    }
}

void checkStore(fs::path const& file, SQLite::Database& database)
{
    Prepared all(database, allRows);
    checkStore(file, database, all);
}

fs::path absolutePath(fs::path const& file, char const* attempt)
{
    std::error_code error;
    fs::path const absolute = fs::absolute(file, error);
    if (file.native().find('\0') != std::string::npos)
        error = std::make_error_code(std::errc::invalid_argument);
    if (error)
        throwSystemError(file, attempt, error.value());
    if (absolute.native().size() > longestPath)
        throw StorageError(Code::tooLarge, file.u8string(), attempt, "its path is longer than " + std::to_string(longestPath) + " bytes",
                           shortenName);
    return absolute;
}

void checkFileSystem(fs::path const& file, char const* attempt, SqliteStorage::Options const& options)
{
    if (!options.allowNetworkFileSystem && localityOf(file) == Locality::network)
        throw StorageError(Code::network, file.u8string(), attempt,
                           "it lies on a network file system, where locks do not hold between machines, so that two programs can damage it",
                           "keep it on a local disk");
}

void checkNoLog(fs::path const& file, char const* attempt, SQLite::Database const& database)
{
    std::string const log = sqlite3_filename_wal(sqlite3_db_filename(database.getHandle(), "main"));
    if (isInTheWay(log, file, attempt))
        throw StorageError(Code::foreign, file.u8string(), attempt,
                           "a write-ahead log, " + log + ", lies beside it, which other programs would play into it",
                           "move the log away: it is not a part of this file");
}

std::string newFile(int applicationId, int schema, std::string const& sql)
{
    SQLite::Database database(":memory:", SQLite::OPEN_READWRITE);
    database.exec("PRAGMA application_id = " + std::to_string(applicationId) + "; PRAGMA user_version = " + std::to_string(schema) + ";" +
                  sql);
    return snapshotOf(database);
}

std::string emptyStore() { return newFile(storeApplicationId, SqliteStorage::writtenSchema, settingsTable); }

SQLite::Database openFile(fs::path const& file, SqliteStorage::Options const& options, std::function<std::string()> const& content)
{
    bool const exists = isPresent(file, options);
    checkFileSystem(file, openTheStore, options);
    if (!exists)
        writeNewFile(file, content(), "create the store"); // a file that another process made first is the store
    SQLite::Database database(file.string(), SQLite::OPEN_READWRITE | SQLite::OPEN_NOMUTEX, 0, vfsShim());
    harden(database, Views::read);
    sqlite3_busy_handler(database.getHandle(), retryWhileBusy,
                         reinterpret_cast<void*>(static_cast<std::intptr_t>(busyMilliseconds(options.busyTimeout))));
    if (StoreFile(database).header().usesWriteAheadLog)
        throw SQLite::Exception(sqlite3_errstr(refusedLog), refusedLog);
    checkNoLog(file, openTheStore, database); // beside a switched store it would be the store's own
    return database;
}

// TRUNCATE rather than DELETE: with synchronous=FULL it syncs the emptied journal, so that a crash after the call cannot
// bring the journal back and undo the change; a deleted one could come back with its folder entry.
void setJournal(SQLite::Database& database, int synchronous)
{
    database.exec("PRAGMA journal_mode = TRUNCATE; PRAGMA synchronous = " + std::to_string(synchronous));
}

SQLite::Database openStore(fs::path const& file, SqliteStorage::Options const& options)
{
    SQLite::Database database = openFile(file, options);
    checkStore(file, database);
    setJournal(database, static_cast<int>(options.synchronous));
    return database;
}

std::optional<SQLite::Database> lockForReplacing(fs::path const& file, SqliteStorage::Options const& options)
{
    std::error_code ignored;
    if (!fs::is_regular_file(file, ignored))
        return std::nullopt;
    try {
        SQLite::Database database(file.string(), SQLite::OPEN_READWRITE | SQLite::OPEN_NOMUTEX);
        if (sqlite3_db_readonly(database.getHandle(), "main") == 1 || StoreFile(database).header().usesWriteAheadLog)
            return std::nullopt;
        lockExclusive(fileOf(database), busyMilliseconds(options.busyTimeout));
        int hasMoved = 0;
        sqlite3_file_control(database.getHandle(), "main", SQLITE_FCNTL_HAS_MOVED, &hasMoved);
        if (hasMoved)
            throw SQLite::Exception(sqlite3_errstr(SQLITE_READONLY), SQLITE_READONLY_DBMOVED);
        return database;
    } catch (SQLite::Exception const& error) {
        if (error.getErrorCode() == SQLITE_BUSY || error.getErrorCode() == SQLITE_READONLY_DBMOVED)
            throw;
        return std::nullopt;
    }
}

std::optional<StorageError> newerStoreError(fs::path const& file, std::string const& attempt, int schema, SQLite::Exception const& error)
{
    Code const code = codeFor(error);
    if (schema <= SqliteStorage::writtenSchema || (code != Code::damaged && error.getErrorCode() != SQLITE_INTERRUPT))
        return std::nullopt;
    return StorageError(Code::newer, file.u8string(), attempt,
                        newerSchema(schema) + ", in a layout that this version cannot read (" + reasonOf(file, error) + ")", updateProgram);
}

std::optional<StorageError> obstacleToChanges(fs::path const& file, std::string const& attempt, SQLite::Database const& database,
                                              int schema)
{
    if (schema > SqliteStorage::writtenSchema)
        return StorageError(Code::newer, file.u8string(), attempt, newerSchema(schema), updateProgram);
    if (sqlite3_db_readonly(database.getHandle(), "main") == 1)
        return StorageError(Code::readOnly, file.u8string(), attempt, "it may not be written", checkAccess);
    return std::nullopt;
}

} // namespace Storage
