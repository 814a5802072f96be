// SPDX-License-Identifier: MIT
//
// Rows that another program put into a store: keys, kinds, values and times of any SQL type and content.
//
// An input has a line for each row: key, kind, value and time, with tabs between them. Each begins with its type: "i" for
// an integer, "r" for a real number, "t" for a text and "x" for a blob.
#include <support/Fuzz.h>

#include <Storage/SqliteStorage.h>

#include <sqlite3.h>

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <stdexcept>

using Fuzz::expect;
using Storage::SqliteStorage;

namespace {

// The file as another program that uses SQLite sees it.
class OtherProgram {
public:
    explicit OtherProgram(std::filesystem::path const& file)
    {
        check(sqlite3_open(file.c_str(), &m_database));
        execute("PRAGMA synchronous = OFF; PRAGMA journal_mode = MEMORY");
        check(sqlite3_prepare_v2(m_database, "INSERT OR REPLACE INTO settings VALUES (?1, ?2, ?3, ?4)", -1, &m_insert, nullptr));
        char const* const textKeys = "SELECT key, kind, value, changed FROM settings WHERE typeof(key) = 'text' ORDER BY key";
        check(sqlite3_prepare_v2(m_database, textKeys, -1, &m_select, nullptr));
    }
    ~OtherProgram()
    {
        sqlite3_finalize(m_insert);
        sqlite3_finalize(m_select);
        sqlite3_close(m_database);
    }
    OtherProgram(OtherProgram const&) = delete;
    OtherProgram& operator=(OtherProgram const&) = delete;

    void execute(char const* sql) { check(sqlite3_exec(m_database, sql, nullptr, nullptr, nullptr)); }

    void insert(std::vector<std::string> const& fields)
    {
        for (int index = 0; index < 4; ++index)
            bind(index + 1, fields[static_cast<std::size_t>(index)]);
        sqlite3_step(m_insert);
        check(sqlite3_reset(m_insert));
    }

    // Calls `row` with the statement for each row whose key is a text; a store has no others.
    template <typename Row>
    void forEach(Row const& row)
    {
        while (sqlite3_step(m_select) == SQLITE_ROW)
            row(m_select);
        check(sqlite3_reset(m_select));
    }

private:
    void check(int code)
    {
        if (code != SQLITE_OK)
            throw std::runtime_error(sqlite3_errmsg(m_database));
    }

    void bind(int index, std::string const& field)
    {
        std::string const content = field.substr(std::min<std::size_t>(1, field.size()));
        int const size = static_cast<int>(content.size());
        char const type = field.empty() ? 't' : field[0];
        if (type == 'i')
            check(sqlite3_bind_int64(m_insert, index, Fuzz::number(content)));
        else if (type == 'r')
            // Not a number would be a null, which the table does not take.
            check(sqlite3_bind_double(m_insert, index, static_cast<double>(Fuzz::number(content)) / 8));
        else if (type == 'x')
            check(sqlite3_bind_blob(m_insert, index, content.c_str(), size, SQLITE_TRANSIENT));
        else
            check(sqlite3_bind_text(m_insert, index, content.c_str(), size, SQLITE_TRANSIENT));
    }

    sqlite3* m_database = nullptr;
    sqlite3_stmt* m_insert = nullptr;
    sqlite3_stmt* m_select = nullptr;
};

std::string bytes(sqlite3_stmt* row, int column)
{
    auto const* const begin = static_cast<char const*>(sqlite3_column_blob(row, column));
    return begin ? std::string(begin, static_cast<std::size_t>(sqlite3_column_bytes(row, column))) : std::string();
}

// The value that `row` holds, where its SQL type fits its kind.
SqliteStorage::Value expectedValue(sqlite3_stmt* row)
{
    std::string const kind = bytes(row, 1);
    int const type = sqlite3_column_type(row, 2);
    sqlite3_int64 const number = sqlite3_column_int64(row, 2);
    if (kind == "bool" && type == SQLITE_INTEGER && (number == 0 || number == 1))
        return number != 0;
    if (kind == "int" && type == SQLITE_INTEGER && number == static_cast<int>(number))
        return static_cast<int>(number);
    std::string const content = bytes(row, 2);
    if (kind == "string" && type == SQLITE_TEXT)
        return content;
    if (kind == "bytes" && type == SQLITE_BLOB)
        return std::vector<unsigned char>(content.begin(), content.end());
    return {};
}

template <typename T>
T valueOr(SqliteStorage::Value const& value, T const& defaultValue)
{
    T const* const held = std::get_if<T>(&value);
    return held ? *held : defaultValue;
}

void checkReads(SqliteStorage const& store, SqliteStorage::Row const& row)
{
    std::vector<unsigned char> const noBytes = {9};
    expect(store.contains(row.key), "a row's key is contained");
    expect(store.getBool(row.key, true) == valueOr(row.value, true), "bool");
    expect(store.getInt(row.key, -7) == valueOr(row.value, -7), "int");
    expect(store.getString(row.key, "default") == valueOr<std::string>(row.value, "default"), "string");
    expect(store.getBytes(row.key, noBytes) == valueOr(row.value, noBytes), "bytes");
    auto const found = store.find(row.key);
    expect(found && found->key == row.key && found->kind == row.kind && found->value == row.value && found->changed == row.changed,
           "a row found by its key");
}

// Each row as the other program has it; the two list them in the same order.
void checkRows(SqliteStorage const& store, OtherProgram& other)
{
    std::vector<SqliteStorage::Row> const rows = store.rows();
    std::size_t index = 0;
    other.forEach([&](sqlite3_stmt* row) {
        expect(index < rows.size(), "no row is missing");
        SqliteStorage::Row const& ours = rows[index++];
        Fuzz::expectEqual("key", ours.key, bytes(row, 0));
        Fuzz::expectEqual("kind", ours.kind, bytes(row, 1));
        expect(ours.value == expectedValue(row), "value of a row");
        // As far as the clock's type reaches, which counts in nanoseconds.
        long long const changed = std::clamp<long long>(sqlite3_column_int64(row, 3), -9223372036854LL, 9223372036854LL);
        expect(ours.changed.time_since_epoch() == std::chrono::milliseconds(changed), "time of a row");
        checkReads(store, ours);
    });
    expect(index == rows.size(), "no row is made up");
}

// That a row that is removed can be written back, also of a kind that cannot be read.
void checkWritingBack(SqliteStorage& store, std::string const& key)
{
    std::optional<SqliteStorage::Row> const row = store.find(key);
    if (!row)
        return;
    store.apply({{key, {}, SqliteStorage::Expected{row}}});
    store.apply({SqliteStorage::Change::restoring(*row, SqliteStorage::Expected{})});
    std::optional<SqliteStorage::Row> restored = store.find(key);
    expect(restored.has_value(), "a row that is written back");
    restored->changed = row->changed;
    expect(restored == row, "a row that is written back as it was");
}

// That a set replaces whatever is there, and a removal takes it away.
void checkChanges(SqliteStorage& store, std::string const& key)
{
    store.setInt(key, 5);
    expect(store.getInt(key, 0) == 5 && store.getString(key, "default") == "default", "a value that is set");
    store.remove(key);
    expect(!store.contains(key), "a value that is removed");
}

} // namespace

int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    static TestKit::TemporaryHome const home;
    static SqliteStorage store(home.path() / "store.sqlite", {std::chrono::milliseconds(0), SqliteStorage::Synchronous::normal});
    static OtherProgram other(store.file());
    other.execute("BEGIN; DELETE FROM settings");
    std::string first;
    for (std::string const& line : Fuzz::split(std::string(data, data + size), '\n')) {
        std::string fields = line + "\t\t\t\t";
        std::vector<std::string> parts = Fuzz::split(fields, '\t');
        other.insert(parts);
        first = first.empty() && parts[0].size() > 1 ? parts[0].substr(1) : first;
    }
    other.execute("COMMIT");
    checkRows(store, other);
    checkWritingBack(store, first);
    checkChanges(store, first);
    return 0;
}
