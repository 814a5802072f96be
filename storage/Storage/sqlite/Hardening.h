// SPDX-License-Identifier: MIT
//
// Keeps what a stranger put into an SQLite file from being run. Internal.
#pragma once

#include <SQLiteCpp/Database.h>

#include <optional>
#include <string>
#include <vector>

struct sqlite3;

namespace Storage {

/// Whether views of a file may be read: those of a newer store stand for tables that this version knows.
enum class Views { refused, read };

/// Switches off what a file can make SQLite do: triggers, functions in views, virtual tables, extensions and further files.
/// To be called before the first statement.
void harden(SQLite::Database& database, Views views);

/// What SQLite's schema table holds of an object. An index that a table makes by itself has no `sql`.
struct SchemaObject {
    std::string type;
    std::string name;
    std::string table;
    std::string sql;
};

/// Returns why the schema is not exactly `expected`, for people, where it holds anything that differs; `what` is the kind of
/// file, such as "a store". The statistics that ANALYZE leaves are allowed. A missing object is not looked for.
std::optional<std::string> strangeObject(SQLite::Database& database, std::vector<SchemaObject> const& expected, char const* what);

/// Interrupts SQLite, with SQLITE_INTERRUPT, where the statements of its lifetime take far longer than reading a file of
/// this size can. No change may be made meanwhile, as what it adds is not in the file yet.
class WorkLimit {
public:
    explicit WorkLimit(SQLite::Database const& database);
    ~WorkLimit();
    WorkLimit(WorkLimit const&) = delete;
    WorkLimit& operator=(WorkLimit const&) = delete;

private:
    static int isSpent(void* limit);

    sqlite3* const m_database;
    std::optional<double> m_start; // asked for after the first steps, as most statements end within them
};

} // namespace Storage
