// SPDX-License-Identifier: MIT
#include "Login.h"

#include <libpq-fe.h>

#include <stdexcept>

namespace {

struct Clear {
    void operator()(PGresult* result) const { PQclear(result); }
    void operator()(PGnotify* notification) const { PQfreemem(notification); }
};

Answer toAnswer(PGresult* raw)
{
    std::unique_ptr<PGresult, Clear> const result(raw);
    Answer answer;
    ExecStatusType const status = PQresultStatus(result.get());
    if (status != PGRES_TUPLES_OK && status != PGRES_COMMAND_OK) {
        char const* const code = PQresultErrorField(result.get(), PG_DIAG_SQLSTATE);
        answer.code = code ? code : "lost";
        answer.error = PQresultErrorMessage(result.get());
        return answer;
    }
    for (int row = 0; row < PQntuples(result.get()); ++row) {
        answer.rows.emplace_back();
        for (int column = 0; column < PQnfields(result.get()); ++column)
            answer.rows.back().emplace_back(PQgetisnull(result.get(), row, column) ? "null" : PQgetvalue(result.get(), row, column));
    }
    return answer;
}

} // namespace

std::string Answer::text() const
{
    std::string text = code;
    for (std::vector<std::string> const& row : rows) {
        text += text.empty() ? "" : "\n";
        for (std::size_t column = 0; column < row.size(); ++column)
            text += (column == 0 ? "" : "|") + row[column];
    }
    return text;
}

void Login::Close::operator()(pg_conn* connection) const { PQfinish(connection); }

Login::Login(std::string const& connection) : m_connection(PQconnectdb(connection.c_str()))
{
    if (PQstatus(m_connection.get()) != CONNECTION_OK)
        throw std::runtime_error(PQerrorMessage(m_connection.get()));
    PQsetNoticeProcessor(
        m_connection.get(), [](void*, char const*) {}, nullptr);
}

Answer Login::ask(std::string const& sql) const { return toAnswer(PQexec(m_connection.get(), sql.c_str())); }

Answer Login::ask(std::string const& sql, std::vector<std::optional<std::string>> const& parameters) const
{
    std::vector<char const*> values;
    for (std::optional<std::string> const& parameter : parameters)
        values.push_back(parameter ? parameter->c_str() : nullptr);
    return toAnswer(
        PQexecParams(m_connection.get(), sql.c_str(), static_cast<int>(values.size()), nullptr, values.data(), nullptr, nullptr, 0));
}

void Login::send(std::string const& sql) const
{
    if (PQsendQuery(m_connection.get(), sql.c_str()) != 1)
        throw std::runtime_error(PQerrorMessage(m_connection.get()));
}

Answer Login::answer() const
{
    Answer last;
    while (PGresult* const result = PQgetResult(m_connection.get()))
        last = toAnswer(result);
    return last;
}

std::vector<std::string> Login::notifications() const
{
    ask("SELECT 1"); // what was notified before arrives with the answer
    std::vector<std::string> result;
    while (PGnotify* const raw = PQnotifies(m_connection.get())) {
        std::unique_ptr<PGnotify, Clear> const notification(raw);
        result.push_back(std::string(notification->relname) + ' ' + notification->extra);
    }
    return result;
}

int Login::backend() const { return PQbackendPID(m_connection.get()); }
