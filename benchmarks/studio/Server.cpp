// SPDX-License-Identifier: MIT
#include "Server.h"

#include <support/Bench.h>

#include <Studio/server/SchemaSteps.h>

#include <libpq-fe.h>

void Bare::Close::operator()(pg_conn* connection) const { PQfinish(connection); }

Bare::Bare(std::string const& connection) : m_connection(PQconnectdb(connection.c_str()))
{
    Bench::require(PQstatus(m_connection.get()) == CONNECTION_OK, PQerrorMessage(m_connection.get()));
}

std::string Bare::ask(char const* sql, std::vector<char const*> const& parameters) const
{
    std::unique_ptr<PGresult, void (*)(PGresult*)> const result(
        parameters.empty()
            ? PQexec(m_connection.get(), sql)
            : PQexecParams(m_connection.get(), sql, static_cast<int>(parameters.size()), nullptr, parameters.data(), nullptr, nullptr, 0),
        PQclear);
    ExecStatusType const status = PQresultStatus(result.get());
    Bench::require(status == PGRES_TUPLES_OK || status == PGRES_COMMAND_OK, PQerrorMessage(m_connection.get()));
    return PQntuples(result.get()) > 0 ? PQgetvalue(result.get(), 0, 0) : "";
}

BareProgram::BareProgram(std::string const& connection, int number)
    : m_bare(connection), m_client("00000000-0000-0000-0000-" + std::to_string(100000000000 + number))
{
    std::string const layer = m_bare.ask("SELECT user_layer FROM settings.hello_v1($1, pg_backend_pid())", {m_client.c_str()});
    m_bare.ask(("LISTEN settings_studio; LISTEN settings_u" + layer).c_str());
}

void BareProgram::change()
{
    std::string const number = std::to_string(++m_operation);
    std::string const outcome =
        m_bare.ask("SELECT outcome FROM settings.put_v1($1, $2, false, 'common', 'number', 'int', convert_to($2::bigint::text, 'UTF8'), "
                   "false, 0, 0)",
                   {m_client.c_str(), number.c_str()});
    Bench::require(outcome == "stored", "a change was " + outcome);
}

Server::Server(int users)
    : m_cluster([] {
          Cluster::Options options;
          options.settings = {"fsync=on", "max_connections=700"};
          return options;
      }())
{
    m_cluster.ask("CREATE DATABASE studio");
    for (std::string const& step : Studio::schemaSteps())
        m_cluster.ask("BEGIN; " + step + " COMMIT", "studio");
    m_cluster.ask("DO $$ BEGIN FOR number IN 0.." + std::to_string(users - 1) +
                  " LOOP EXECUTE 'CREATE ROLE user' || number || ' LOGIN IN ROLE settings_user'; END LOOP; END $$");
}
