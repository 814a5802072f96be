// SPDX-License-Identifier: MIT
#include <Studio/outbox/OutboxFile.h>

#include <Storage/sqlite/Hardening.h>
#include <Storage/sqlite/SqliteErrors.h>
#include <Storage/sqlite/StoreContent.h>
#include <Storage/sqlite/StoreOpening.h>
#include <Studio/outbox/OutboxFolder.h>

#include <SQLiteCpp/Column.h>

#include <algorithm>
#include <cerrno>
#include <ctime>
#include <optional>
#include <system_error>

#include <sys/stat.h>

namespace fs = std::filesystem;

namespace Studio {

using Code = Storage::StorageError::Code;
using Storage::StorageError;

namespace {

constexpr char const* damagedInfix = ".damaged-";

constexpr int applicationId = 0x4C75454F; // "LuEO"
constexpr int writtenSchema = 1;

// What the server has, as far as it is known: one row. `known` counts milliseconds since 1970-01-01 00:00 UTC.
constexpr char const* aboutTable = "CREATE TABLE about (identity TEXT NOT NULL, epoch TEXT NOT NULL, user_revision INTEGER NOT NULL, "
                                   "studio_revision INTEGER NOT NULL, known INTEGER NOT NULL)";
// In the layers 0 and 1, the user's and the studio's. In layer 2 is an empty row for each local value that was offered.
constexpr char const* settingTable =
    "CREATE TABLE setting (layer INTEGER NOT NULL, store TEXT NOT NULL, key TEXT NOT NULL, kind TEXT NOT NULL, value TEXT NOT NULL, "
    "locked INTEGER NOT NULL, changed_by TEXT NOT NULL, changed_at INTEGER NOT NULL, PRIMARY KEY (layer, store, key))";
// A lane stays when its operations are gone, with the last number that it gave out.
constexpr char const* laneTable =
    "CREATE TABLE lane (id INTEGER NOT NULL PRIMARY KEY, client TEXT NOT NULL, boot TEXT NOT NULL, last INTEGER NOT NULL)";
// Without kind and value it removes the key. An offer has the base -1.
constexpr char const* operationTable =
    "CREATE TABLE operation (sequence INTEGER NOT NULL PRIMARY KEY, lane INTEGER NOT NULL, number INTEGER NOT NULL, store TEXT NOT NULL, "
    "key TEXT NOT NULL, kind TEXT, value TEXT, boot TEXT NOT NULL, uptime INTEGER NOT NULL, time_of_day INTEGER NOT NULL, "
    "epoch TEXT NOT NULL, base INTEGER NOT NULL)";
constexpr char const* refusalTable = "CREATE TABLE refusal (id INTEGER NOT NULL PRIMARY KEY, store TEXT NOT NULL, key TEXT NOT NULL, "
                                     "kind TEXT, value TEXT, code TEXT NOT NULL, refused INTEGER NOT NULL)";

std::vector<Storage::SchemaObject> schemaObjects()
{
    return {{"table", "about", "about", aboutTable},
            {"table", "setting", "setting", settingTable},
            {"index", "sqlite_autoindex_setting_1", "setting", ""},
            {"table", "lane", "lane", laneTable},
            {"table", "operation", "operation", operationTable},
            {"table", "refusal", "refusal", refusalTable}};
}

std::string emptyOutbox(std::string const& identity)
{
    std::string sql;
    for (Storage::SchemaObject const& object : schemaObjects())
        sql += object.sql + ';';
    std::string quoted;
    for (char const character : identity)
        quoted += character == '\'' ? "''" : std::string(1, character);
    return Storage::newFile(applicationId, writtenSchema, sql + "INSERT INTO about VALUES ('" + quoted + "', '', 0, 0, 0)");
}

[[noreturn]] void refuse(fs::path const& file, Code code, std::string const& reason, char const* remedy = moveAway)
{
    throw StorageError(code, file.u8string(), openTheOutbox, reason, remedy);
}

void checkContent(fs::path const& file, SQLite::Database& database, std::string const& identity)
{
    Storage::WorkLimit const limit(database);
    if (database.execAndGet("PRAGMA application_id").getInt() != applicationId)
        refuse(file, Code::foreign, "it is an SQLite file of another program");
    if (int const schema = database.execAndGet("PRAGMA user_version").getInt(); schema > writtenSchema)
        refuse(file, Code::newer,
               "it was written by a newer version (schema " + std::to_string(schema) + ", this version writes " +
                   std::to_string(writtenSchema) + ")",
               "update this program; the file was left as it is");
    if (std::vector<std::string> const damage = Storage::damageOf(database, 1); !damage.empty())
        refuse(file, Code::damaged, "the file is damaged (" + Storage::forSentence(damage.front(), 300) + ")");
    if (std::optional<std::string> const strange = Storage::strangeObject(database, schemaObjects(), "an outbox"))
        refuse(file, Code::foreign, *strange);
    if (database
            .execAndGet("SELECT (SELECT count(*) FROM about) <> 1 OR EXISTS (SELECT 1 FROM lane WHERE typeof(last) <> 'integer' OR "
                        "last NOT BETWEEN 0 AND 1000000000000000)")
            .getInt() != 0)
        refuse(file, Code::damaged, "its numbers make no sense");
    if (database.execAndGet("SELECT identity FROM about").getString() != identity)
        refuse(file, Code::foreign, "it belongs to another server or user");
}

SQLite::Database openWhole(fs::path const& file, std::string const& identity, bool createIfMissing)
try {
    struct stat status = {};
    if (::lstat(file.c_str(), &status) == 0)
        demandOwnFile(file, status, openTheOutbox);
    Storage::SqliteStorage::Options options;
    options.busyTimeout = std::chrono::seconds(2);
    options.createIfMissing = createIfMissing;
    SQLite::Database database = Storage::openFile(file, options, [&] { return emptyOutbox(identity); });
    checkContent(file, database, identity);
    Storage::setJournal(database, static_cast<int>(options.synchronous));
    return database;
} catch (SQLite::Exception const& error) {
    throw Storage::storageError(file, openTheOutbox, error);
}

void moveTo(fs::path const& to, fs::path const& from)
{
    std::error_code error;
    fs::rename(from, to, error);
    if (error && error != std::errc::no_such_file_or_directory)
        Storage::throwSystemError(from, "move the damaged outbox aside", error.value());
}

// The journal goes first: beside a new file it would be played back into that.
void moveAside(fs::path const& file)
{
    std::time_t const now = std::time(nullptr);
    std::tm time = {};
    char stamp[] = "20000101T000000Z";
    ::gmtime_r(&now, &time);
    std::strftime(stamp, sizeof stamp, "%Y%m%dT%H%M%SZ", &time);
    fs::path aside = file.string() + damagedInfix + stamp;
    for (int number = 2; fs::exists(aside); ++number)
        aside = file.string() + damagedInfix + stamp + '-' + std::to_string(number);
    moveTo(aside.string() + "-journal", file.string() + "-journal");
    moveTo(aside, file);
}

} // namespace

SQLite::Database openOutbox(fs::path const& file, std::string const& identity, LaneLocks& locks)
try {
    return openWhole(file, identity, true);
} catch (StorageError const& error) {
    if (error.code() != Code::damaged || !locks.tryLockAll())
        throw;
    moveAside(file);
    locks.unlockAll();
    return openWhole(file, identity, true);
}

SQLite::Database openOutboxToRead(fs::path const& file, std::string const& identity) { return openWhole(file, identity, false); }

std::vector<fs::path> damagedOutboxes(fs::path const& file)
{
    std::vector<fs::path> result;
    std::string const prefix = file.filename().string() + damagedInfix;
    std::error_code ignored;
    for (fs::directory_entry const& entry : fs::directory_iterator(file.parent_path(), ignored)) {
        std::string const name = entry.path().filename().string();
        if (name.compare(0, prefix.size(), prefix) == 0 && name.find("-journal") == std::string::npos)
            result.push_back(entry.path());
    }
    std::sort(result.begin(), result.end());
    return result;
}

} // namespace Studio
