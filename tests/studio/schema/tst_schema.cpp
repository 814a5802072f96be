// SPDX-License-Identifier: MIT
//
// The schema is made, brought up to date and left alone: whatever stands in the database before.
#include "support/Login.h"

#include <Studio/server/Schema.h>

#include <TestKit/TemporaryHome.h>

#include <studio/support/ServerTest.h>
#include <support/Process.h>

#include <chrono>
#include <future>

using namespace std::chrono_literals;
using Studio::Schema;
using Studio::ServerError;

namespace {

constexpr char const* stateNames[] = {"missing", "older", "current", "newer", "foreign", "damaged", "hidden"};
constexpr char const* obstacleNames[] = {"database", "newRoles", "role", "owner"};

/// The state, the version and the obstacles on one line.
std::string text(Schema::Report const& report)
{
    std::string result = std::string(stateNames[static_cast<int>(report.state)]) + ' ' + std::to_string(report.version);
    for (Schema::Obstacle const& obstacle : report.obstacles)
        result += std::string(", ") + obstacleNames[static_cast<int>(obstacle.kind)] + ' ' + obstacle.name;
    return result;
}

/// A third step, as a later version may have it.
constexpr char const* laterStep = "SET LOCAL ROLE settings_owner; ALTER TABLE settings.value ADD note text; "
                                  "CREATE FUNCTION settings.hello_v2() RETURNS integer LANGUAGE sql AS 'SELECT 2'; "
                                  "INSERT INTO settings.schema_version (version, objects) VALUES (3, settings.objects()); RESET ROLE;";

std::vector<std::string> firstStep() { return {Studio::schemaSteps().at(0)}; }
std::vector<std::string> withLaterStep() { return {Studio::schemaSteps().at(0), Studio::schemaSteps().at(1), laterStep}; }

} // namespace

class SchemaMigration : public ServerTest {
protected:
    // What a fresh connection of the role finds or does.
    template <typename Function>
    auto with(std::string const& role, std::vector<std::string> const& steps, Function const& function,
              std::string const& database = "studio") const
    {
        Studio::Connection connection({m_server->connection(role, database), 30s, 60s, 60s});
        connection.connect();
        return function(Schema(connection, steps));
    }
    std::string examined(std::string const& role = "postgres", std::vector<std::string> const& steps = Studio::schemaSteps()) const
    {
        return with(role, steps, [](Schema schema) { return text(schema.examine()); });
    }
    std::string migrated(std::string const& role = "postgres", std::vector<std::string> const& steps = Studio::schemaSteps()) const
    {
        return with(role, steps, [](Schema schema) { return text(schema.migrate()); });
    }
    std::string ask(std::string const& sql) const { return m_server->ask("SET client_min_messages = warning; " + sql, "studio"); }
    std::string countOfObjects() const
    {
        return ask("SELECT (SELECT count(*) FROM pg_class WHERE relnamespace = to_regnamespace('settings')) || ' ' || "
                   "(SELECT count(*) FROM pg_roles WHERE rolname LIKE 'settings%')");
    }
};

TEST_F(SchemaMigration, IsMadeInAnEmptyDatabaseAndThenLeftAlone)
{
    EXPECT_EQ(examined(), "missing 0");
    EXPECT_EQ(countOfObjects(), "0 0") << "a look changes nothing";
    EXPECT_EQ(migrated(), "missing 0");
    EXPECT_EQ(examined(), "current 2");
    std::string const made = ask("SELECT concat(migrated_at, migrated_by, xmin) FROM settings.schema_version");
    EXPECT_EQ(migrated(), "current 2");
    EXPECT_EQ(ask("SELECT concat(migrated_at, migrated_by, xmin) FROM settings.schema_version"), made);
    ask("CREATE ROLE alice LOGIN IN ROLE settings_user");
    EXPECT_EQ(Login(m_server->connection("alice", "studio")).ask("SELECT settings.hello_v1(gen_random_uuid(), 0)").code, "");
}

TEST_F(SchemaMigration, OlderSchemaGetsTheMissingStepOnly)
{
    EXPECT_EQ(migrated(), "missing 0");
    ask("CREATE ROLE alice LOGIN IN ROLE settings_user");
    Login const alice(m_server->connection("alice", "studio"));
    alice.ask("SELECT settings.hello_v1('00000000-0000-0000-0000-000000000001', 0)");
    EXPECT_EQ(alice
                  .ask("SELECT outcome FROM settings.put_v1('00000000-0000-0000-0000-000000000001', 1, false, 's', 'k', 'bool', 'true', "
                       "false, 0, 0)")
                  .text(),
              "stored");
    EXPECT_EQ(examined("postgres", withLaterStep()), "older 2");
    EXPECT_EQ(migrated("postgres", withLaterStep()), "older 2");
    EXPECT_EQ(examined("postgres", withLaterStep()), "current 3");
    EXPECT_EQ(ask("SELECT settings.hello_v2()"), "2");
    EXPECT_EQ(alice.ask("SELECT layer_revision, encode(value, 'escape') FROM settings.changes_v1(0, 0) WHERE NOT studio").text(), "1|true")
        << "an old client goes on, with all that was stored";
}

TEST_F(SchemaMigration, FirstSchemaGetsTheSecondWithWhatItHolds)
{
    EXPECT_EQ(migrated("postgres", firstStep()), "missing 0");
    ask("CREATE ROLE alice LOGIN IN ROLE settings_user");
    Login const alice(m_server->connection("alice", "studio"));
    std::string const hello = "SELECT schema, epoch, last_op FROM settings.hello_v1('00000000-0000-0000-0000-000000000001', 0)";
    std::string const epoch = alice.ask(hello).rows.at(0).at(1);
    EXPECT_EQ(alice
                  .ask("SELECT outcome FROM settings.put_v1('00000000-0000-0000-0000-000000000001', 1, false, 's', 'k', 'bool', 'true', "
                       "false, 0, 0)")
                  .text(),
              "stored");
    EXPECT_EQ(examined(), "older 1");
    EXPECT_EQ(migrated(), "older 1");
    EXPECT_EQ(examined(), "current 2");
    EXPECT_EQ(alice.ask(hello).text(), "2|" + epoch + "|1") << "no client reads everything again";
    EXPECT_EQ(alice.ask("SELECT layer_revision, encode(value, 'escape'), epoch FROM settings.changes_v2(0, 0) WHERE NOT studio").text(),
              "1|true|" + epoch);
}

TEST_F(SchemaMigration, NewerSchemaIsLeftAlone)
{
    EXPECT_EQ(migrated("postgres", withLaterStep()), "missing 0");
    EXPECT_EQ(examined(), "newer 3");
    EXPECT_EQ(migrated(), "newer 3");
    EXPECT_EQ(examined("postgres", withLaterStep()), "current 3");
}

TEST_F(SchemaMigration, SchemaOfSomebodyElseIsLeftAlone)
{
    ask("CREATE SCHEMA settings; CREATE TABLE settings.layer(mine int)");
    EXPECT_EQ(examined(), "foreign 0");
    EXPECT_EQ(migrated(), "foreign 0");
    EXPECT_EQ(countOfObjects(), "1 0");
}

TEST_F(SchemaMigration, SchemaThatWasNotMadeToItsEndIsToldApart)
{
    std::string const& step = Studio::schemaSteps().front();
    for (char const* const last :
         {"-- --- Tables ---", "CREATE POLICY", "CREATE FUNCTION settings.hello_v1", "INSERT INTO settings.schema_version"}) {
        std::size_t const end = step.find(last);
        ASSERT_NE(end, std::string::npos) << last;
        ask("BEGIN; " + step.substr(0, end) + "; COMMIT");
        EXPECT_EQ(examined(), "damaged 0") << last;
        EXPECT_EQ(migrated(), "damaged 0") << last;
        ask("DROP SCHEMA settings CASCADE");
    }
    EXPECT_EQ(migrated(), "missing 0") << "the roles that are left are no obstacle";
    EXPECT_EQ(examined(), "current 2");
}

TEST_F(SchemaMigration, SchemaThatWasChangedByHandIsToldApart)
{
    EXPECT_EQ(migrated(), "missing 0");
    for (char const* const change :
         {"DROP FUNCTION settings.superseded_v1", "CREATE TABLE settings.extra()", "DROP POLICY seen ON settings.layer",
          "CREATE FUNCTION settings.put_v1() RETURNS int LANGUAGE sql AS 'SELECT 1'", "DELETE FROM settings.schema_version"}) {
        ask(change);
        EXPECT_EQ(examined().substr(0, 7), "damaged") << change;
        EXPECT_EQ(migrated("postgres", withLaterStep()).substr(0, 7), "damaged") << change;
        ask("DROP SCHEMA settings CASCADE");
        EXPECT_EQ(migrated(), "missing 0");
    }
    ask("CREATE INDEX ON settings.superseded (changed_at)");
    EXPECT_EQ(examined(), "current 2") << "an index changes no meaning";
}

TEST_F(SchemaMigration, StepThatFailsLeavesNothing)
{
    std::vector<std::string> const steps = {Studio::schemaSteps().at(0), Studio::schemaSteps().at(1) + " SELECT 1 / 0;"};
    try {
        migrated("postgres", steps);
        ADD_FAILURE() << "it was migrated";
    } catch (ServerError const& error) {
        EXPECT_EQ(error.sqlState(), "22012");
    }
    EXPECT_EQ(countOfObjects(), "0 0");
    EXPECT_EQ(migrated(), "missing 0");
}

TEST_F(SchemaMigration, OfSeveralAtOnceOneMigratesAndNoneFails)
{
    for (int round = 0; round < 3; ++round) {
        std::vector<std::future<std::string>> calls;
        for (int call = 0; call < 4; ++call)
            calls.push_back(std::async(std::launch::async, [&] { return migrated(); }));
        int made = 0;
        for (std::future<std::string>& call : calls) {
            std::string const found = call.get();
            EXPECT_TRUE(found == "missing 0" || found == "current 2") << found;
            made += found == "missing 0";
        }
        EXPECT_EQ(made, 1);
        EXPECT_EQ(ask("SELECT count(*) FROM settings.schema_version"), "2");
        ask("DROP SCHEMA settings CASCADE");
    }
}

TEST_F(SchemaMigration, OwnerOfTheDatabaseNeedsNotBeASuperuser)
{
    m_server->ask("CREATE ROLE dba LOGIN CREATEROLE; ALTER DATABASE studio OWNER TO dba");
    EXPECT_EQ(examined("dba"), "missing 0");
    EXPECT_EQ(migrated("dba"), "missing 0");
    EXPECT_EQ(examined("dba"), "current 2");
    EXPECT_EQ(migrated("dba", withLaterStep()), "older 2");
    EXPECT_EQ(ask("SELECT has_database_privilege('public', 'studio', 'TEMP') OR has_schema_privilege('public', 'public', 'CREATE')"), "f");
    EXPECT_EQ(ask("SELECT string_agg(nspowner::regrole::text, ' ') FROM pg_namespace WHERE nspname = 'settings'"), "settings_owner");
}

TEST_F(SchemaMigration, RestoredDumpIsWholeAndHasAnotherEpoch)
{
    EXPECT_EQ(migrated(), "missing 0");
    ask("CREATE ROLE alice LOGIN IN ROLE settings_user");
    m_server->ask("CREATE DATABASE restored");
    std::string const hello = "SELECT epoch, last_op FROM settings.hello_v1('00000000-0000-0000-0000-000000000001', 0)";
    Login const alice(m_server->connection("alice", "studio"));
    Answer const before = alice.ask(hello);
    EXPECT_EQ(alice
                  .ask("SELECT outcome FROM settings.put_v1('00000000-0000-0000-0000-000000000001', 1, false, 's', 'k', 'bytes', "
                       "'\\x00ff', false, 0, 0)")
                  .text(),
              "stored");
    TestKit::TemporaryHome const home;
    std::string const dump = (home.path() / "dump").string();
    EXPECT_EQ(run({"pg_dump", "-Fc", "-f", dump, m_server->connection("postgres", "studio")}).err, "");
    EXPECT_EQ(run({"pg_restore", "--exit-on-error", "-d", m_server->connection("postgres", "restored"), dump}).err, "");
    EXPECT_EQ(with(
                  "postgres", Studio::schemaSteps(), [](Schema schema) { return text(schema.examine()); }, "restored"),
              "current 2");
    Login const again(m_server->connection("alice", "restored"));
    Answer const after = again.ask(hello);
    EXPECT_EQ(after.rows.at(0).at(1), "1") << "an operation that comes again is known";
    EXPECT_NE(after.rows.at(0).at(0), before.rows.at(0).at(0));
    EXPECT_EQ(again.ask("SELECT layer_revision, value FROM settings.changes_v1(0, 0) WHERE NOT studio").text(), "1|\\x00ff");
}

TEST_F(SchemaMigration, WhatIsInTheWayIsNamed)
{
    m_server->ask("CREATE ROLE stranger LOGIN");
    std::string const all = "missing 0, database studio, newRoles settings_admin, newRoles settings_owner, newRoles settings_user, "
                            "newRoles settings_watch";
    EXPECT_EQ(examined("stranger"), all);
    EXPECT_EQ(migrated("stranger"), all);
    m_server->ask("CREATE ROLE settings_watch LOGIN");
    EXPECT_EQ(examined(), "missing 0, role settings_watch");
    EXPECT_EQ(migrated(), "missing 0, role settings_watch");
    m_server->ask("ALTER ROLE settings_watch NOLOGIN SUPERUSER");
    EXPECT_EQ(migrated(), "missing 0, role settings_watch");
    m_server->ask("ALTER ROLE settings_watch NOSUPERUSER");
    EXPECT_EQ(migrated(), "missing 0");
    m_server->ask("CREATE ROLE other LOGIN; ALTER DATABASE studio OWNER TO other");
    EXPECT_EQ(examined("other"), "hidden 0, owner settings_owner");
    EXPECT_EQ(migrated("other"), "hidden 0, owner settings_owner");
}
