// SPDX-License-Identifier: MIT
#include <Storage/Backup.h>

#include "NewFile.h"
#include "StoreFile.h"

#include <SQLiteCpp/Backup.h>
#include <SQLiteCpp/Column.h>
#include <SQLiteCpp/Statement.h>

#include <sqlite3.h>

#include <cerrno>
#include <cstring>

#include <sys/stat.h>

namespace fs = std::filesystem;

namespace Storage {

namespace {

constexpr int applicationId = 0x4C754542; // "LuEB"
constexpr int formatVersion = 1;
constexpr int busyMilliseconds = 5000;

constexpr char const* nameAnother = "name another backup; this one was left as it is";

[[noreturn]] void refuse(fs::path const& file, std::string const& reason, char const* remedy = nameAnother)
{
    throw StorageError(file.u8string(), "read the backup", reason, remedy);
}

long long secondsSinceEpoch()
{
    using namespace std::chrono;
    return duration_cast<seconds>(system_clock::now().time_since_epoch()).count();
}

SQLite::Database opened(fs::path const& file)
{
    std::error_code error;
    fs::file_status const status = fs::status(file, error);
    if (status.type() == fs::file_type::not_found)
        refuse(file, "it does not exist", "name the file that was given to backup");
    if (status.type() != fs::file_type::regular)
        refuse(file, error ? error.message() : "it is not a regular file");
    SQLite::Database database(file.string(), SQLite::OPEN_READONLY);
    if (database.execAndGet("PRAGMA application_id").getInt() != applicationId)
        refuse(file, "it is an SQLite file, but no backup");
    if (int const version = database.execAndGet("PRAGMA user_version").getInt(); version > formatVersion)
        refuse(file,
               "it was written by a newer version (format " + std::to_string(version) + ", this version reads " +
                   std::to_string(formatVersion) + ")",
               "update this program; the file was left as it is");
    if (std::vector<std::string> const damage = damageOf(database); !damage.empty())
        refuse(file, "it is damaged (" + damage.front() + ")");
    return database;
}

} // namespace

// A store in memory, with the bytes of a snapshot.
class Backup::Copy {
public:
    explicit Copy(std::string content) : m_content(std::move(content)), m_database(":memory:", SQLite::OPEN_READWRITE)
    {
        auto* const bytes = reinterpret_cast<unsigned char*>(m_content.data());
        auto const size = static_cast<sqlite3_int64>(m_content.size());
        if (sqlite3_deserialize(m_database.getHandle(), "main", bytes, size, size, SQLITE_DESERIALIZE_READONLY) != SQLITE_OK)
            throw SQLite::Exception(m_database.getHandle());
    }

    std::string const& content() const { return m_content; }
    SQLite::Database& database() { return m_database; }

private:
    std::string m_content; // outlives the database that reads it
    SQLite::Database m_database;
};

std::unique_ptr<Backup::Copy> Backup::checkedCopy(fs::path const& backup, std::string const& name, std::string content)
{
    std::string reason;
    try {
        auto copy = std::make_unique<Copy>(std::move(content));
        checkStore(backup, copy->database());
        int const schema = copy->database().execAndGet("PRAGMA user_version").getInt();
        if (schema <= SqliteStorage::writtenSchema)
            return copy;
        reason = obstacleToChanges(copy->database(), schema)->reason;
    } catch (StorageError const& error) {
        reason = error.reason();
    } catch (SQLite::Exception const& error) {
        reason = error.what();
    }
    refuse(backup, "its copy of the " + name + " store cannot be used (" + reason + ')');
}

void Backup::write(fs::path const& file, std::map<std::string, SqliteStorage const*> const& stores)
{
    fs::path const target = absolutePath(file);
    std::map<std::string, std::string> snapshots;
    for (auto const& [name, store] : stores)
        snapshots[name] = store->snapshot();
    std::string const content = translated(target, "write the backup", [&] {
        SQLite::Database database(":memory:", SQLite::OPEN_READWRITE);
        database.exec("PRAGMA application_id = " + std::to_string(applicationId) +
                      "; PRAGMA user_version = " + std::to_string(formatVersion) +
                      "; CREATE TABLE about (made INTEGER NOT NULL);" // seconds since 1970-01-01 00:00 UTC
                      "CREATE TABLE copies (name TEXT NOT NULL PRIMARY KEY, content BLOB NOT NULL);"
                      "INSERT INTO about VALUES (" +
                      std::to_string(secondsSinceEpoch()) + ")");
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
        throw StorageError(target.u8string(), "write the backup", "it is there already", "name a new file, or move that one away");
}

Backup::Backup(fs::path const& file) : m_file(absolutePath(file))
{
    try {
        SQLite::Database database = opened(m_file);
        m_made = std::chrono::system_clock::time_point(std::chrono::seconds(database.execAndGet("SELECT made FROM about").getInt64()));
        SQLite::Statement copies(database, "SELECT name, content FROM copies");
        while (copies.executeStep()) {
            std::string const name = copies.getColumn(0).getString();
            m_copies[name] = checkedCopy(m_file, name, copies.getColumn(1).getString());
        }
    } catch (SQLite::Exception const& error) {
        if (error.getErrorCode() == SQLITE_CANTOPEN)
            throw storageError(m_file, "read the backup", error);
        refuse(m_file, error.what());
    }
}

Backup::~Backup() = default;

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
    return translated(m_file, "read the backup", [&] { return storedRows(m_copies.at(name)->database()); });
}

namespace {

// A name beside `file` that nothing has, for what was in its place.
fs::path keptName(fs::path const& file)
{
    std::time_t const now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
    std::tm utc = {};
    char stamp[32];
    std::strftime(stamp, sizeof stamp, "%Y%m%dT%H%M%SZ", ::gmtime_r(&now, &utc));
    std::string const name = file.string() + ".before-restore-" + stamp;
    std::error_code ignored;
    fs::path kept = name;
    for (int number = 2; fs::symlink_status(kept, ignored).type() != fs::file_type::not_found; ++number)
        kept = name + '-' + std::to_string(number);
    return kept;
}

void move(fs::path const& from, fs::path const& to)
{
    std::error_code error;
    fs::rename(from, to, error);
    if (error && error != std::errc::no_such_file_or_directory)
        throwSystemError(from, "move it aside", error.value());
    if (!error && fs::is_regular_file(fs::symlink_status(to, error)))
        ::chmod(to.c_str(), 0600);
}

// Companions first: a journal beside a new file would be played back into it.
fs::path setAside(fs::path const& file)
{
    fs::path const kept = keptName(file);
    for (char const* companion : {"-journal", "-wal", "-shm", ""})
        move(file.string() + companion, kept.string() + companion);
    return kept;
}

// Opens the store where its values can be replaced; none where the file has to be replaced instead.
std::optional<SQLite::Database> openedForReplacing(fs::path const& file)
{
    try {
        SQLite::Database database = openStore(file, busyMilliseconds, static_cast<int>(SqliteStorage::Synchronous::full));
        if (database.execAndGet("PRAGMA user_version").getInt() > SqliteStorage::writtenSchema)
            return std::nullopt;
        if (std::optional<Obstacle> const obstacle = obstacleToChanges(database, 0))
            throw SQLite::Exception(obstacle->reason, SQLITE_READONLY);
        return database;
    } catch (StorageError const&) {
        return std::nullopt;
    } catch (SQLite::Exception const& error) {
        int const code = error.getErrorCode() & 0xff;
        if (code == SQLITE_CORRUPT || code == SQLITE_NOTADB || code == SQLITE_ERROR)
            return std::nullopt;
        throw;
    }
}

} // namespace

std::optional<fs::path> Backup::restore(std::string const& name, fs::path const& file) const
{
    Copy& copy = *m_copies.at(name);
    fs::path const target = absolutePath(file);
    constexpr char const* attempt = "restore the store";
    return translated(target, attempt, [&]() -> std::optional<fs::path> {
        std::error_code ignored;
        if (fs::symlink_status(target, ignored).type() == fs::file_type::not_found) {
            setAside(target); // a journal may be there alone
            if (writeNewFile(target, copy.content(), attempt))
                return std::nullopt;
        }
        if (std::optional<SQLite::Database> store = openedForReplacing(target)) {
            fs::path const kept = keptName(target);
            if (!writeNewFile(kept, snapshotOf(*store), "keep what is there"))
                throwSystemError(kept, "keep what is there", EEXIST);
            SQLite::Backup all(*store, copy.database());
            if (int const code = all.executeStep(); code != SQLITE_DONE)
                throw SQLite::Exception(sqlite3_errstr(code), code);
            return kept;
        }
        fs::path const kept = setAside(target);
        if (!writeNewFile(target, copy.content(), attempt))
            throw StorageError(target.u8string(), attempt, "another program has made a store there meanwhile", "try again");
        return kept;
    });
}

} // namespace Storage
