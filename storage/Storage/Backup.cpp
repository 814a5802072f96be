// SPDX-License-Identifier: MIT
#include <Storage/Backup.h>

#include "AtomicFile.h"
#include "sqlite/ForkGuard.h"
#include "sqlite/Hardening.h"
#include "sqlite/SqliteErrors.h"
#include "sqlite/StoreContent.h"
#include "sqlite/StoreOpening.h"
#include "sqlite/VfsShim.h"
#include "watch/OwnChanges.h"
#include "watch/RealName.h"

#include <SQLiteCpp/Backup.h>
#include <SQLiteCpp/Column.h>
#include <SQLiteCpp/Statement.h>

#include <sqlite3.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace Storage {

namespace {

using Code = StorageError::Code;

constexpr int backupId = 0x4C754542; // "LuEB"
constexpr int formatVersion = 1;

constexpr char const* aboutTable = "CREATE TABLE about (made INTEGER NOT NULL)"; // seconds since 1970-01-01 00:00 UTC
constexpr char const* copiesTable = "CREATE TABLE copies (name TEXT NOT NULL PRIMARY KEY, content BLOB NOT NULL)";

constexpr char const* keptInfix = ".before-restore-";
constexpr char const* keptStamp = "%Y%m%dT%H%M%SZ"; // in UTC

constexpr char const* keepReplaced = "keep the replaced file";
constexpr char const* readTheBackup = "read the backup";
constexpr char const* restoreTheStore = "restore the store";
constexpr char const* nameAnother = "name another backup; this one was left as it is";

[[noreturn]] void refuseBackup(fs::path const& file, Code code, std::string const& reason, char const* remedy = nameAnother)
{
    throw StorageError(code, file.u8string(), readTheBackup, reason, remedy);
}

long long secondsSinceEpoch()
{
    using namespace std::chrono;
    return duration_cast<seconds>(system_clock::now().time_since_epoch()).count();
}

std::vector<SchemaObject> schemaOfABackup()
{
    return {{"table", "about", "about", aboutTable},
            {"table", "copies", "copies", copiesTable},
            {"index", "sqlite_autoindex_copies_1", "copies", ""}};
}

SQLite::Database opened(fs::path const& file)
{
    std::error_code error;
    fs::file_status const status = fs::status(file, error);
    if (status.type() == fs::file_type::not_found)
        refuseBackup(file, Code::access, "it does not exist", "name the file that was given to backup");
    if (error)
        refuseBackup(file, codeForSystem(error.value()), error.message());
    if (status.type() != fs::file_type::regular)
        refuseBackup(file, Code::foreign, "it is not a regular file");
    SQLite::Database database(file.string(), SQLite::OPEN_READONLY, 0, vfsShim());
    harden(database, Views::refused);
    WorkLimit const limit(database);
    if (int const application = database.execAndGet("PRAGMA application_id").getInt(); application == storeApplicationId)
        refuseBackup(file, Code::foreign, "it is a store, but no backup",
                     "a store that restore kept comes back from beside the one that it was kept of, under the name that it got there");
    else if (application != backupId)
        refuseBackup(file, Code::foreign, "it is an SQLite file, but no backup");
    if (int const version = database.execAndGet("PRAGMA user_version").getInt(); version > formatVersion)
        refuseBackup(file, Code::newer,
                     "it was written by a newer version (format " + std::to_string(version) + ", this version reads " +
                         std::to_string(formatVersion) + ")",
                     "update this program; the file was left as it is");
    if (std::optional<std::string> const strange = strangeObject(database, schemaOfABackup(), "a backup"))
        refuseBackup(file, Code::foreign, *strange);
    if (std::vector<std::string> const damage = damageOf(database, 1); !damage.empty())
        refuseBackup(file, Code::damaged, "it is damaged (" + forSentence(damage.front(), 300) + ")");
    checkNoLog(file, readTheBackup, database);
    return database;
}

} // namespace

// A store in memory on the bytes of a snapshot.
class Backup::Copy {
public:
    explicit Copy(std::string content) : m_content(std::move(content)), m_database(":memory:", SQLite::OPEN_READWRITE)
    {
        auto* const bytes = reinterpret_cast<unsigned char*>(m_content.data());
        auto const size = static_cast<sqlite3_int64>(m_content.size());
        if (sqlite3_deserialize(m_database.getHandle(), "main", bytes, size, size, SQLITE_DESERIALIZE_READONLY) != SQLITE_OK)
            throw SQLite::Exception(m_database.getHandle());
        harden(m_database, Views::refused);
    }

    SQLite::Database& database() { return m_database; }

    // Makes `target` equal to the copy. Returns the name of the kept original; nullopt where `target` was missing.
    std::optional<fs::path> replace(fs::path const& target, SqliteStorage::Options const& options);

private:
    std::string m_content; // must outlive the database that reads it
    SQLite::Database m_database;
};

std::unique_ptr<Backup::Copy> Backup::checkedCopy(fs::path const& backup, std::string const& name, std::string content)
{
    auto const unusable = [&](Code code, std::string const& reason) {
        return StorageError(code, backup.u8string(), readTheBackup,
                            "its copy of the " + forSentence(name, 40) + " store cannot be used (" + reason + ')', nameAnother);
    };
    try {
        auto copy = std::make_unique<Copy>(std::move(content));
        int const schema = copy->database().execAndGet("PRAGMA user_version").getInt();
        if (schema > SqliteStorage::writtenSchema) // of which nothing more is read
            throw *obstacleToChanges(backup, restoreTheStore, copy->database(), schema);
        checkStore(backup, copy->database());
        return copy;
    } catch (StorageError const& error) {
        throw unusable(error.code(), error.reason());
    } catch (SQLite::Exception const& error) {
        throw unusable(codeFor(error), reasonOf(backup, error));
    }
}

void Backup::write(fs::path const& file, std::map<std::string, SqliteStorage const*> const& stores)
{
    fs::path const target = absolutePath(file, "write the backup");
    ForkGuard const guard(target, "write the backup");
    std::map<std::string, std::string> snapshots;
    for (auto const& [name, store] : stores)
        snapshots[name] = store->snapshot();
    std::string const content = withStorageErrors(target, "write the backup", [&] {
        SQLite::Database database(":memory:", SQLite::OPEN_READWRITE);
        database.exec("PRAGMA application_id = " + std::to_string(backupId) + "; PRAGMA user_version = " + std::to_string(formatVersion) +
                      ";" + aboutTable + ";" + copiesTable + "; INSERT INTO about VALUES (" + std::to_string(secondsSinceEpoch()) + ")");
        SQLite::Statement insert(database, "INSERT INTO copies VALUES (?1, ?2)");
        for (auto const& [name, snapshot] : snapshots) {
            insert.bind(1, name);
            insert.bindNoCopy(2, snapshot.data(), static_cast<int>(snapshot.size()));
            insert.exec();
            insert.reset();
        }
        return snapshotOf(database);
    });
    if (!writeNewFile(target, content, "write the backup"))
        throw StorageError(Code::foreign, target.u8string(), "write the backup", "it is there already",
                           "name a new file, or move that one away");
}

Backup::Backup(fs::path const& file) : m_file(absolutePath(file, readTheBackup))
{
    ForkGuard const guard(m_file, readTheBackup);
    try {
        SQLite::Database database = opened(m_file);
        long long const latest = std::chrono::duration_cast<std::chrono::seconds>(std::chrono::system_clock::duration::max()).count();
        long long const made = database.execAndGet("SELECT made FROM about").getInt64();
        m_made = std::chrono::system_clock::time_point(std::chrono::seconds(std::clamp(made, -latest, latest)));
        SQLite::Statement copies(database, "SELECT name, content FROM copies");
        while (copies.executeStep()) {
            std::string const name = copies.getColumn(0).getString();
            m_copies[name] = checkedCopy(m_file, name, copies.getColumn(1).getString());
        }
    } catch (SQLite::Exception const& error) {
        StorageError const unusable = storageError(m_file, readTheBackup, error);
        if ((error.getErrorCode() & 0xff) == SQLITE_CANTOPEN)
            throw StorageError(unusable);
        refuseBackup(m_file, unusable.code(), unusable.reason());
    }
}

Backup::Backup(fs::path const& kept, std::string const& name, std::chrono::system_clock::time_point made,
               SqliteStorage::Options const& options)
    : m_file(absolutePath(kept, readTheBackup)), m_made(made)
{
    SqliteStorage::Options present = options;
    present.createIfMissing = false;
    std::string content;
    try {
        content = SqliteStorage(m_file, present).snapshot();
    } catch (StorageError const& error) {
        refuseBackup(m_file, error.code(), "it holds no store that can be used (" + error.reason() + ')');
    }
    m_copies[name] = checkedCopy(m_file, name, std::move(content));
}

Backup::~Backup() = default;

// A number follows where several were kept within one second.
std::optional<std::chrono::system_clock::time_point> Backup::timeOfKeeping(fs::path const& file, fs::path const& store)
{
    std::error_code error;
    std::string const name = file.filename().string();
    std::string const begin = store.filename().string() + keptInfix;
    if (name.compare(0, begin.size(), begin) != 0 || !fs::equivalent(fs::absolute(file, error).parent_path(), store.parent_path(), error))
        return std::nullopt;
    std::tm utc = {};
    char const* const end = ::strptime(name.c_str() + begin.size(), keptStamp, &utc);
    if (!end || (*end != '\0' && (*end != '-' || end[1] == '\0' || end[1 + std::strspn(end + 1, "0123456789")] != '\0')))
        return std::nullopt;
    return std::chrono::system_clock::from_time_t(::timegm(&utc));
}

std::chrono::system_clock::time_point Backup::made() const { return m_made; }

std::vector<std::string> Backup::names() const
{
    std::vector<std::string> names;
    for (auto const& [name, copy] : m_copies)
        names.push_back(name);
    return names;
}

std::vector<SqliteStorage::Row> Backup::rows(std::string const& name) const
{
    ForkGuard const guard(m_file, readTheBackup);
    return withStorageErrors(m_file, readTheBackup, [&] { return storedRows(m_copies.at(name)->database()); });
}

namespace {

// Returns a free name beside `file` for the original.
fs::path keptName(fs::path const& file)
{
    std::time_t const now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
    std::tm utc = {};
    char stamp[32];
    std::strftime(stamp, sizeof stamp, keptStamp, ::gmtime_r(&now, &utc));
    std::string const name = file.string() + keptInfix + stamp;
    std::error_code error;
    for (int number = 1;; ++number) {
        fs::path const kept = number == 1 ? name : name + '-' + std::to_string(number);
        fs::file_type const type = fs::symlink_status(kept, error).type();
        if (type == fs::file_type::not_found)
            return kept;
        if (type == fs::file_type::none)
            throwSystemError(kept, keepReplaced, error.value());
    }
}

// Retries, as another restore may take a free name first.
fs::path keptCopy(fs::path const& file, std::string const& content)
{
    for (;;)
        if (fs::path const kept = keptName(file); writeNewFile(kept, content, keepReplaced))
            return kept;
}

void makePrivate(fs::path const& kept)
{
    std::error_code ignored;
    if (fs::is_regular_file(fs::symlink_status(kept, ignored)))
        ::chmod(kept.c_str(), 0600);
}

// SQLite would roll a journal beside a new file back into it.
void setCompanionsAside(fs::path const& file, fs::path const& kept)
{
    for (char const* companion : {"-journal", "-wal", "-shm"}) {
        fs::path const from = file.string() + companion;
        fs::path const to = kept.string() + companion;
        if (::rename(from.c_str(), to.c_str()) == 0)
            makePrivate(to);
        else if (errno != ENOENT && errno != ENOTDIR)
            throwSystemError(from, keepReplaced, errno);
    }
}

struct Kept {
    fs::path name;
    bool isMoved = false;
};

// Gives the original a second name, so that a rename can replace it atomically; a folder cannot have two names and is moved.
Kept keptAside(fs::path const& file)
{
    for (;;) {
        fs::path const name = keptName(file);
        if (::link(file.c_str(), name.c_str()) == 0)
            return {name, false};
        if (::renameat2(AT_FDCWD, file.c_str(), AT_FDCWD, name.c_str(), RENAME_NOREPLACE) == 0)
            return {name, true};
        if (errno != EEXIST)
            throwSystemError(file, keepReplaced, errno);
    }
}

// Returns the name of the kept original.
fs::path replacedByNewFile(fs::path const& target, std::string const& content)
{
    Kept kept;
    replaceFile(target, content, restoreTheStore, [&] {
        kept = keptAside(target);
        makePrivate(kept.name);
        setCompanionsAside(target, kept.name);
        return kept.isMoved;
    });
    return kept.name;
}

// Whether anything has the name, also a link that leads nowhere.
bool isThere(fs::path const& target)
{
    std::error_code error;
    fs::file_type const type = fs::symlink_status(target, error).type();
    if (type == fs::file_type::none)
        throwSystemError(target, restoreTheStore, error.value());
    return type != fs::file_type::not_found;
}

// Opens the store for replacing its values; returns nullopt where the file itself has to be replaced.
std::optional<SQLite::Database> openedForReplacing(fs::path const& file, SqliteStorage::Options const& options)
{
    try {
        SQLite::Database database = openStore(file, options);
        std::optional<StorageError> const obstacle = obstacleToChanges(file, restoreTheStore, database, 0);
        if (!obstacle) // locks the file until it is closed, so that the kept copy equals the replaced store
            database.exec("BEGIN IMMEDIATE; PRAGMA locking_mode = EXCLUSIVE; COMMIT");
        if (database.execAndGet("PRAGMA user_version").getInt() > SqliteStorage::writtenSchema)
            return std::nullopt;
        if (obstacle)
            throw SQLite::Exception(obstacle->reason(), SQLITE_READONLY);
        return database;
    } catch (StorageError const&) {
        return std::nullopt;
    } catch (SQLite::Exception const& error) {
        Code const code = codeFor(error);
        if (code == Code::damaged || code == Code::foreign)
            return std::nullopt;
        throw;
    }
}

} // namespace

std::optional<fs::path> Backup::restore(std::string const& name, fs::path const& file, SqliteStorage::Options const& options) const
{
    Copy& copy = *m_copies.at(name);
    fs::path const target = absolutePath(file, restoreTheStore);
    ForkGuard const guard(target, restoreTheStore);
    checkFileSystem(target, restoreTheStore, options);
    return withStorageErrors(target, restoreTheStore, [&] {
        for (;;) {
            try {
                return copy.replace(target, options);
            } catch (SQLite::Exception const& error) {
                // Retries where another restore has replaced the file that this one had opened.
                if (error.getExtendedErrorCode() != SQLITE_READONLY_DBMOVED && error.getErrorCode() != SQLITE_READONLY_DBMOVED)
                    throw;
            }
        }
    });
}

std::optional<fs::path> Backup::Copy::replace(fs::path const& target, SqliteStorage::Options const& options)
{
    bool const isPresent = isThere(target);
    std::shared_ptr<OwnChanges> const own = OwnChanges::of(realName(target));
    std::vector<SqliteStorage::Row> const rows = storedRows(m_database);
    if (!isPresent) {
        setCompanionsAside(target, keptName(target)); // a journal may lie there without its store
        OwnChanges::Turn const turn = own->turn();
        if (writeNewFile(target, m_content, restoreTheStore)) {
            own->noteReplacement(rows);
            return std::nullopt;
        }
    }
    if (std::optional<SQLite::Database> store = openedForReplacing(target, options)) {
        fs::path const kept = keptCopy(target, snapshotOf(*store));
        OwnChanges::Turn const turn = own->turn();
        SQLite::Backup all(*store, m_database);
        if (int const code = all.executeStep(); code != SQLITE_DONE)
            throw SQLite::Exception(sqlite3_errstr(code), code);
        own->noteReplacement(rows);
        return kept;
    }
    // A program in the midst of a change would otherwise journal it beside the new file, into which it would be played back.
    std::optional<SQLite::Database> const lock = lockForReplacing(target, options);
    OwnChanges::Turn const turn = own->turn();
    fs::path const kept = replacedByNewFile(target, m_content);
    own->noteReplacement(rows);
    return kept;
}

} // namespace Storage
