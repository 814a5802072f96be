// SPDX-License-Identifier: MIT
#include "StoreContent.h"

#include <Storage/Kind.h>

#include <SQLiteCpp/Column.h>
#include <SQLiteCpp/Exception.h>
#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>

#include <sqlite3.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <limits>
#include <memory>
#include <optional>
#include <sstream>
#include <type_traits>
#include <utility>

namespace Storage {

namespace {

using Value = SqliteStorage::Value;
using Payload = SqliteStorage::Payload;

std::vector<unsigned char> bytesOf(SQLite::Column const& stored)
{
    auto const* bytes = static_cast<unsigned char const*>(stored.getBlob());
    return {bytes, bytes + stored.getBytes()};
}

// Returns no value where its SQL type does not fit its kind.
Value decoded(std::optional<Kind> kind, SQLite::Column const& stored)
{
    if (kind == Kind::text && stored.isText())
        return stored.getString();
    if (kind == Kind::bytes && stored.isBlob())
        return bytesOf(stored);
    if (!stored.isInteger())
        return {};
    long long const number = stored.getInt64();
    if (kind == Kind::boolean && (number == 0 || number == 1))
        return number == 1;
    if (kind == Kind::integer && number >= std::numeric_limits<int>::min() && number <= std::numeric_limits<int>::max())
        return static_cast<int>(number);
    return {};
}

Payload payloadOf(SQLite::Column const& stored)
{
    switch (stored.getType()) {
    case SQLITE_INTEGER:
        return std::int64_t{stored.getInt64()};
    case SQLITE_FLOAT:
        return stored.getDouble();
    case SQLITE_TEXT:
        return stored.getString();
    case SQLITE_BLOB:
        return bytesOf(stored);
    default:
        return {};
    }
}

// Tells the zeros of a real number apart, which `==` does not. SQLite stores no NaN.
bool isSame(Payload const& one, Payload const& other)
{
    double const* const number = std::get_if<double>(&one);
    double const* const otherNumber = std::get_if<double>(&other);
    return one == other && (!number || std::signbit(*number) == std::signbit(*otherNumber));
}

// Clamps a time beyond the clock's range, which another program may have stored.
std::chrono::system_clock::time_point decodedTime(long long sinceEpoch)
{
    using namespace std::chrono;
    auto const first = duration_cast<milliseconds>(system_clock::time_point::min().time_since_epoch());
    auto const last = duration_cast<milliseconds>(system_clock::time_point::max().time_since_epoch());
    return system_clock::time_point{std::clamp(milliseconds{sinceEpoch}, first, last)};
}

} // namespace

SqliteStorage::Row decodedRow(std::string key, SQLite::Column const& kind, SQLite::Column const& value, SQLite::Column const& changed)
{
    SqliteStorage::Row row{std::move(key), kind.getString(), {}, decodedTime(changed.getInt64())};
    row.value = decoded(kindFromWord(row.kind), value);
    if (std::holds_alternative<std::monostate>(row.value))
        row.payload = payloadOf(value);
    return row;
}

char const* kindWord(Value const& value)
{
    auto const word = [](auto const& held) {
        if constexpr (std::is_same_v<decltype(held), std::monostate const&>)
            return "";
        else
            return storedWord(kindOfType<std::decay_t<decltype(held)>>());
    };
    return std::visit(word, value);
}

bool operator==(SqliteStorage::Row const& one, SqliteStorage::Row const& other)
{
    return one.key == other.key && one.kind == other.kind && one.value == other.value && one.changed == other.changed &&
           isSame(one.payload, other.payload);
}

SqliteStorage::Change SqliteStorage::Change::restoring(Row const& row, std::optional<Expected> expected)
{
    return {row.key, row.value, std::move(expected), row.kind, row.payload};
}

char const* const setStatement = "INSERT INTO settings (key, kind, value, changed) VALUES (?1, ?2, ?3, ?4) ON CONFLICT (key) DO UPDATE "
                                 "SET kind = excluded.kind, value = excluded.value, changed = excluded.changed";

char const* const allRows = "SELECT key, kind, value, changed FROM settings";

std::vector<SqliteStorage::Row> storedRows(SQLite::Database& database)
{
    // No read finds a key of another type, which only another program can have stored. The condition also has SQLite step
    // through the rows when it counts them, so that the limit on its work holds in a forged file.
    std::string const rows = " FROM settings WHERE typeof(key) = 'text'";
    std::vector<SqliteStorage::Row> result;
    result.reserve(database.execAndGet("SELECT count(*)" + rows).getUInt()); // growing would take up to twice the memory
    SQLite::Statement all(database, "SELECT key, kind, value, changed" + rows + " ORDER BY key");
    while (all.executeStep())
        result.push_back(decodedRow(all.getColumn(0).getString(), all.getColumn(1), all.getColumn(2), all.getColumn(3)));
    return result;
}

std::vector<std::string> damageOf(SQLite::Database& database, int most)
{
    sqlite3_db_release_memory(database.getHandle()); // cached pages would hide damage in the file
    SQLite::Statement check(database, "PRAGMA integrity_check(" + std::to_string(most) + ")");
    std::vector<std::string> damage;
    try {
        while (check.executeStep()) {
            // A row may hold several findings, one a line, below a heading that names the database.
            std::istringstream findings(check.getColumn(0).getString());
            for (std::string finding; std::getline(findings, finding);)
                if (finding != "ok" && finding.compare(0, 3, "***") != 0)
                    damage.push_back(finding);
        }
    } catch (SQLite::Exception const&) {
        if (damage.empty()) // else the check stopped at the damage that it found
            throw;
    }
    return damage;
}

std::string snapshotOf(SQLite::Database& database)
{
    // The first read in a transaction fixes the moment of the snapshot.
    SQLite::Transaction const moment(database);
    database.execAndGet("PRAGMA user_version");
    sqlite3_int64 size = 0;
    std::unique_ptr<unsigned char, void (*)(void*)> const bytes(sqlite3_serialize(database.getHandle(), "main", &size, 0), &sqlite3_free);
    if (!bytes)
        throw SQLite::Exception(database.getHandle());
    return {reinterpret_cast<char const*>(bytes.get()), static_cast<std::size_t>(size)};
}

} // namespace Storage
