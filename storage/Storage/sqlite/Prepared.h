// SPDX-License-Identifier: MIT
//
// Statements of an open store. Internal.
#pragma once

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>

#include <optional>

namespace Storage {

/// A statement that is prepared when it is first used. Not movable, as `database` must outlive it.
class Prepared {
public:
    Prepared(SQLite::Database& database, char const* sql) : m_database(database), m_sql(sql) {}
    Prepared(Prepared const&) = delete;
    Prepared& operator=(Prepared const&) = delete;

    /// The statement. Throws SQLite's error where it cannot be prepared, as on tables of another layout.
    SQLite::Statement& statement() { return m_statement ? *m_statement : m_statement.emplace(m_database, m_sql); }

private:
    SQLite::Database& m_database;
    char const* const m_sql;
    std::optional<SQLite::Statement> m_statement;
};

/// Resets a statement at the end of its scope, as a running statement holds a lock on the file.
class Use {
public:
    explicit Use(Prepared& prepared) : m_statement(prepared.statement()) {}
    ~Use() { m_statement.tryReset(); }
    Use(Use const&) = delete;
    Use& operator=(Use const&) = delete;

    SQLite::Statement& operator*() { return m_statement; }
    SQLite::Statement* operator->() { return &m_statement; }

private:
    SQLite::Statement& m_statement;
};

} // namespace Storage
