// SPDX-License-Identifier: MIT
#include "Hardening.h"

#include "SqliteErrors.h"

#include <SQLiteCpp/Column.h>
#include <SQLiteCpp/Exception.h>
#include <SQLiteCpp/Statement.h>

#include <sqlite3.h>

#include <algorithm>
#include <ctime>

namespace Storage {

namespace {

// One function can take any time in one step, in which no limit of work ends it.
int denyFunctionsOfViews(void*, int action, char const*, char const*, char const*, char const* view)
{
    return action == SQLITE_FUNCTION && view ? SQLITE_DENY : SQLITE_OK;
}

void configure(SQLite::Database& database, int option, bool isOn)
{
    if (int const code = sqlite3_db_config(database.getHandle(), option, isOn ? 1 : 0, nullptr); code != SQLITE_OK)
        throw SQLite::Exception(sqlite3_errstr(code), code);
}

// What ANALYZE makes. SQLite reads it to choose an index, nothing more.
std::vector<SchemaObject> const& statistics()
{
    static std::vector<SchemaObject> const tables = {
        {"table", "sqlite_stat1", "sqlite_stat1", "CREATE TABLE sqlite_stat1(tbl,idx,stat)"},
        {"table", "sqlite_stat4", "sqlite_stat4", "CREATE TABLE sqlite_stat4(tbl,idx,neq,nlt,ndlt,sample)"}};
    return tables;
}

bool isAmong(std::vector<SchemaObject> const& objects, SchemaObject const& object)
{
    return std::any_of(objects.begin(), objects.end(), [&](SchemaObject const& known) {
        return known.type == object.type && known.name == object.name && known.table == object.table && known.sql == object.sql;
    });
}

std::string sentence(SchemaObject const& object, std::vector<SchemaObject> const& expected, char const* what)
{
    bool const isKnown = std::any_of(expected.begin(), expected.end(),
                                     [&](SchemaObject const& known) { return known.type == object.type && known.name == object.name; });
    std::string const named = forSentence(object.type, 40) + " \"" + forSentence(object.name, 40) + '"';
    return isKnown ? "its " + named + " is not defined as that of " + what : "it holds the " + named + ", which " + what + " never does";
}

// Of this thread: waiting for a disk or for other processes, and sleeping, count for nothing.
double processorSeconds()
{
    timespec time = {};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

double sizeOf(sqlite3* database)
{
    sqlite3_file* file = nullptr;
    sqlite3_int64 size = 0;
    sqlite3_file_control(database, "main", SQLITE_FCNTL_FILE_POINTER, &file);
    if (file && file->pMethods)
        file->pMethods->xFileSize(file, &size);
    return static_cast<double>(size);
}

constexpr int steps = 1000; // of SQLite's virtual machine, between two looks at the clock: some 20 microseconds
constexpr double freeSeconds = 1;
constexpr double mostSeconds = 60;     // the size of a sparse file costs a stranger nothing
constexpr double bytesPerSecond = 4e6; // the densest rows are checked twenty times as fast

} // namespace

void harden(SQLite::Database& database, Views views)
{
    configure(database, SQLITE_DBCONFIG_TRUSTED_SCHEMA, false);
    configure(database, SQLITE_DBCONFIG_ENABLE_TRIGGER, false);
    configure(database, SQLITE_DBCONFIG_ENABLE_VIEW, views == Views::read);
    configure(database, SQLITE_DBCONFIG_DEFENSIVE, true);
    sqlite3_limit(database.getHandle(), SQLITE_LIMIT_ATTACHED, 0);
    sqlite3_drop_modules(database.getHandle(), nullptr);
    database.exec("PRAGMA ignore_check_constraints = ON"); // of a newer store: this version makes none
    sqlite3_set_authorizer(database.getHandle(), denyFunctionsOfViews, nullptr);
}

std::optional<std::string> strangeObject(SQLite::Database& database, std::vector<SchemaObject> const& expected, char const* what)
{
    SQLite::Statement all(database, "SELECT type, name, tbl_name, sql FROM sqlite_master");
    while (all.executeStep()) {
        SchemaObject const object{all.getColumn(0).getString(), all.getColumn(1).getString(), all.getColumn(2).getString(),
                                  all.getColumn(3).getString()};
        if (!isAmong(expected, object) && !isAmong(statistics(), object))
            return sentence(object, expected, what);
    }
    return std::nullopt;
}

WorkLimit::WorkLimit(SQLite::Database const& database) : m_database(database.getHandle())
{
    sqlite3_progress_handler(m_database, steps, isSpent, this);
}

WorkLimit::~WorkLimit() { sqlite3_progress_handler(m_database, 0, nullptr, nullptr); }

int WorkLimit::isSpent(void* limit)
{
    auto& self = *static_cast<WorkLimit*>(limit);
    double const now = processorSeconds();
    double const taken = now - self.m_start.value_or(now);
    self.m_start = now - taken;
    return taken > freeSeconds && taken > std::min(freeSeconds + sizeOf(self.m_database) / bytesPerSecond, mostSeconds);
}

} // namespace Storage
