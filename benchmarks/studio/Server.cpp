// SPDX-License-Identifier: MIT
#include "Server.h"

#include <support/Bench.h>

#include <Studio/server/SchemaSteps.h>

#include <libpq-fe.h>

#include <fstream>
#include <iterator>
#include <sstream>

#include <poll.h>

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

void Bare::awaitNotification() const
{
    // What came with an answer is there before anything is waited for.
    for (bool isThere = false; !isThere;) {
        while (PGnotify* const notification = PQnotifies(m_connection.get())) {
            PQfreemem(notification);
            isThere = true;
        }
        pollfd waiting{PQsocket(m_connection.get()), POLLIN, 0};
        Bench::require(isThere || ::poll(&waiting, 1, 60000) == 1, "no notification came");
        Bench::require(isThere || PQconsumeInput(m_connection.get()) == 1, PQerrorMessage(m_connection.get()));
    }
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

void BareProgram::askForChanges()
{
    m_revision = m_bare.ask("SELECT max(layer_revision) FROM settings.changes_v2($1, 0) WHERE NOT studio", {m_revision.c_str()});
}

void Server::restart()
{
    m_cluster.stop();
    m_cluster.start();
}

std::vector<std::string> Server::processesOf(std::string const& user) const
{
    std::istringstream processes(m_cluster.ask("SELECT string_agg(pid::text, ' ') FROM pg_stat_activity WHERE usename = '" + user + "'"));
    return {std::istream_iterator<std::string>(processes), {}};
}

double Server::memoryOf(std::string const& user) const
{
    double bytes = 0;
    for (std::string const& process : processesOf(user)) {
        std::ifstream memory("/proc/" + process + "/smaps_rollup");
        for (std::string line; std::getline(memory, line);)
            if (line.rfind("Pss:", 0) == 0)
                bytes += 1024 * std::stod(line.substr(4));
    }
    return bytes;
}

double Server::processorTimeOf(std::string const& user) const
{
    double nanoseconds = 0;
    for (std::string const& process : processesOf(user)) {
        double own = 0;
        std::ifstream("/proc/" + process + "/schedstat") >> own;
        nanoseconds += own;
    }
    return nanoseconds / 1e9;
}

Server::Server(int users)
    : m_cluster([] {
          Cluster::Options options;
          options.settings = {"fsync=on", "max_connections=700"};
          return options;
      }())
{
    for (std::string const& step : Studio::schemaSteps())
        m_cluster.ask("BEGIN; " + step + " COMMIT", "studio");
    m_cluster.ask("DO $$ BEGIN FOR number IN 0.." + std::to_string(users - 1) +
                  " LOOP EXECUTE 'CREATE ROLE user' || number || ' LOGIN IN ROLE settings_user'; END LOOP; END $$");
}
