// SPDX-License-Identifier: MIT
//
// Who may do what, and that nobody reaches another's values past the functions.
#include "support/SchemaTest.h"

#include <support/Named.h>

#include <algorithm>

class Privileges : public SchemaTest {};

// Whatever a role other than the owner may do with the schema, and the database around it. A new object stands here or its test fails.
TEST_F(Privileges, AreTheseAndNoMore)
{
    EXPECT_EQ(login("postgres")
                  .ask(R"(
        WITH acl AS (
            SELECT 'database ' || datname AS what, datdba AS owner, coalesce(datacl, acldefault('d', datdba)) AS acl
            FROM pg_database WHERE datname = current_database()
            UNION ALL SELECT 'schema ' || nspname, nspowner, coalesce(nspacl, acldefault('n', nspowner))
            FROM pg_namespace WHERE nspname IN ('settings', 'public')
            UNION ALL SELECT 'table ' || relname, relowner, coalesce(relacl, acldefault((CASE relkind WHEN 'S' THEN 's' ELSE 'r' END)::"char", relowner))
            FROM pg_class WHERE relnamespace = 'settings'::regnamespace AND relkind IN ('r', 'S')
            UNION ALL SELECT 'function ' || proname, proowner, coalesce(proacl, acldefault('f', proowner))
            FROM pg_proc WHERE pronamespace = 'settings'::regnamespace)
        SELECT what, CASE grantee WHEN 0 THEN 'PUBLIC' ELSE grantee::regrole::text END, privilege_type
        FROM acl, aclexplode(acl) WHERE grantee <> owner ORDER BY what, 2, 3)")
                  .text(),
              "database studio|mallory|CONNECT\n" // for these tests
              "database studio|settings_user|CONNECT\n"
              "database studio|settings_watch|CONNECT\n"
              "function changes_v1|settings_user|EXECUTE\n"
              "function changes_v2|settings_user|EXECUTE\n"
              "function forget_user_v1|settings_admin|EXECUTE\n"
              "function hello_v1|settings_user|EXECUTE\n"
              "function lock_v1|settings_admin|EXECUTE\n"
              "function put_v1|settings_user|EXECUTE\n"
              "function revisions_v1|settings_watch|EXECUTE\n"
              "function superseded_v1|settings_user|EXECUTE\n"
              "schema public|PUBLIC|USAGE\n"
              "schema settings|settings_user|USAGE\n"
              "schema settings|settings_watch|USAGE");
}

TEST_F(Privileges, EveryFunctionHasAPathOfItsOwnAndTheInterfaceRunsAsTheOwner)
{
    EXPECT_EQ(login("postgres")
                  .ask("SELECT DISTINCT proowner::regrole, proconfig[1] FROM pg_proc WHERE pronamespace = "
                       "'settings'::regnamespace")
                  .text(),
              "settings_owner|search_path=pg_catalog, pg_temp");
    EXPECT_EQ(
        ask("SELECT string_agg(proname, ' ' ORDER BY proname) FROM pg_proc WHERE pronamespace = 'settings'::regnamespace AND prosecdef"),
        "changes_v1 changes_v2 forget_user_v1 hello_v1 lock_v1 put_v1 revisions_v1 superseded_v1");
}

TEST_F(Privileges, RolesAreGroupsThatCannotLogIn)
{
    EXPECT_EQ(login("postgres")
                  .ask("SELECT rolname, rolcanlogin OR rolsuper OR rolcreaterole OR rolcreatedb OR rolbypassrls OR rolreplication "
                       "FROM pg_roles WHERE rolname LIKE 'settings%' ORDER BY 1")
                  .text(),
              "settings_admin|f\nsettings_owner|f\nsettings_user|f\nsettings_watch|f");
    EXPECT_EQ(login("postgres")
                  .ask("SELECT roleid::regrole, member::regrole FROM pg_auth_members WHERE member::regrole::text LIKE "
                       "'settings%' OR roleid = 'settings_owner'::regrole")
                  .text(),
              "settings_user|settings_admin");
}

TEST_F(Privileges, TablesOfUsersAreBehindTheSecondWall)
{
    EXPECT_EQ(login("postgres")
                  .ask("SELECT relname, relrowsecurity AND relforcerowsecurity FROM pg_class WHERE relnamespace = "
                       "'settings'::regnamespace AND relkind = 'r' ORDER BY 1")
                  .text(),
              "client|t\nlayer|t\nschema_version|f\nsuperseded|t\nvalue|t");
}

/// Alice and the studio have values, and bob has one of his own.
class Foreign : public SchemaTest {
protected:
    void SetUp() override
    {
        SchemaTest::SetUp();
        if (IsSkipped())
            return;
        Login const alice = user("alice", 1);
        alice.ask(hello(2));
        EXPECT_EQ(put(alice, {1, 1, false, "common", "key", "string", "private", false, 0, 0}), "stored|1");
        EXPECT_EQ(put(alice, {2, 1, false, "common", "key", "string", "lost", false, 60000, 0}), "superseded|1");
        EXPECT_EQ(put(user("ada"), {1, 1, true, "common", "locked", "string", "studio", true, 0, 0}), "stored|1");
        EXPECT_EQ(put(user("bob"), {}), "stored|1");
        ask("ANALYZE");
        m_before = everything();
    }
    void TearDown() override
    {
        if (m_server) {
            EXPECT_EQ(everything(), m_before);
        }
    }

    // Every row of all tables, every role and right.
    std::string everything() const
    {
        return ask("SELECT concat((SELECT string_agg(l::text, ',' ORDER BY id) FROM settings.layer l), "
                   "(SELECT string_agg(v::text, ',' ORDER BY layer, revision) FROM settings.value v), "
                   "(SELECT string_agg(s::text, ',' ORDER BY id) FROM settings.superseded s), "
                   "(SELECT string_agg(c::text, ',' ORDER BY layer, id) FROM settings.client c), "
                   "(SELECT string_agg(r::text, ',' ORDER BY rolname) FROM pg_roles r), "
                   "(SELECT string_agg(m::text, ',' ORDER BY roleid, member) FROM pg_auth_members m), "
                   "(SELECT string_agg(p::text, ',' ORDER BY oid) FROM pg_proc p WHERE pronamespace = 'settings'::regnamespace))");
    }

    std::string m_before;
};

struct Attempt {
    char const* meaning;
    char const* role;
    char const* statement;
    char const* answer; ///< The rows, or the SQLSTATE.
};

class ForeignAttempt : public Foreign, public testing::WithParamInterface<Attempt> {};

TEST_P(ForeignAttempt, GainsNothing) { EXPECT_EQ(login(GetParam().role).ask(GetParam().statement).text(), GetParam().answer); }

constexpr char const* denied = "42501";
constexpr char const* changesOfBob = "SELECT encode(value, 'escape') FROM settings.changes_v1(0, 0) ORDER BY 1";

INSTANTIATE_TEST_SUITE_P(Rows, ForeignAttempt,
                         testing::ValuesIn(std::vector<Attempt>{
                             {"ValuesOfAnother", "bob", changesOfBob, "studio\ntrue"},
                             {"ValuesOfAnotherAsAdministrator", "ada", changesOfBob, "studio\nnull"},
                             {"LosersOfAnother", "bob", "SELECT * FROM settings.superseded_v1(false)", ""},
                             {"LosersOfTheStudio", "bob", "SELECT * FROM settings.superseded_v1(true)", "ST004"},
                             {"RowsInStatistics", "bob", "SELECT most_common_vals FROM pg_stats WHERE schemaname = 'settings'", ""},
                             {"RowsInRawStatistics", "bob", "SELECT * FROM pg_statistic", denied},
                             {"SwitchedOffRowSecurity", "bob", "SET row_security = off; SELECT * FROM settings.changes_v1(0, 0)", denied},
                         }),
                         byMeaning);

INSTANTIATE_TEST_SUITE_P(Functions, ForeignAttempt,
                         testing::ValuesIn(std::vector<Attempt>{
                             {"LockByAUser", "bob", "SELECT settings.lock_v1('common', 'locked', false)", denied},
                             {"ForgettingByAUser", "bob", "SELECT settings.forget_user_v1('alice')", denied},
                             {"RevisionsForAUser", "bob", "SELECT settings.revisions_v1('{2}')", denied},
                             {"HelloOfAWatcher", "watcher", "SELECT settings.hello_v1('00000000-0000-0000-0000-000000000001', 0)", denied},
                             {"ChangesForAWatcher", "watcher", "SELECT settings.changes_v1(0, 0)", denied},
                             {"RevisionsForAWatcher", "watcher", "SELECT settings.revisions_v1('{2}')", "(2,1)"},
                             {"HelloOfAStranger", "mallory", "SELECT settings.hello_v1('00000000-0000-0000-0000-000000000001', 0)", denied},
                             {"ChangesWithEpochForAWatcher", "watcher", "SELECT settings.changes_v2(0, 0)", denied},
                             {"ClientOfAnother", "bob", "SELECT settings.see_client(2, '00000000-0000-0000-0000-000000000001')", denied},
                             {"ChangesForAStranger", "mallory", "SELECT settings.changes_v1(0, 0)", denied},
                         }),
                         byMeaning);

INSTANTIATE_TEST_SUITE_P(
    Identities, ForeignAttempt,
    testing::ValuesIn(std::vector<Attempt>{
        {"RoleOfTheOwner", "bob", "SET ROLE settings_owner", denied},
        {"RoleOfAnAdministrator", "bob", "SET ROLE settings_admin", denied},
        {"RoleOfAnother", "bob", "SET ROLE alice", denied},
        {"SessionOfAnother", "bob", "SET SESSION AUTHORIZATION alice", denied},
        {"GroupDoesNotChangeTheLogin", "bob",
         "SET ROLE settings_user; SELECT encode(value, 'escape') FROM settings.changes_v1(0, 0) ORDER BY 1", "studio\ntrue"},
        {"AnotherByASetting", "bob", "SET session_authorization = alice", denied},
        {"RoleThatIsGranted", "bob", "GRANT settings_admin TO bob", denied},
        {"NewRole", "bob", "CREATE ROLE alice2", denied},
        {"EndedSession", "bob", "SELECT pg_terminate_backend(pid) FROM pg_stat_activity WHERE usename = 'postgres' LIMIT 1", denied},
    }),
    byMeaning);

INSTANTIATE_TEST_SUITE_P(
    Objects, ForeignAttempt,
    testing::ValuesIn(std::vector<Attempt>{
        {"Schema", "bob", "CREATE SCHEMA pg_catalog2", denied},
        {"ObjectInTheSchema", "bob", "CREATE TABLE settings.other()", denied},
        {"PublicTable", "bob", "CREATE TABLE public.sha256()", denied},
        {"PublicFunction", "bob", "CREATE FUNCTION public.sha256(bytea) RETURNS bytea LANGUAGE sql AS 'SELECT $1'", denied},
        {"TemporaryTable", "bob", "CREATE TEMP TABLE sha256()", denied},
        {"TemporaryFunction", "bob", "CREATE FUNCTION pg_temp.sha256(bytea) RETURNS bytea LANGUAGE sql AS 'SELECT $1'", denied},
        {"Trigger", "bob",
         "CREATE TRIGGER t AFTER INSERT ON settings.value EXECUTE FUNCTION pg_catalog.suppress_redundant_updates_trigger()", denied},
        {"SwitchedOffTriggers", "bob", "SET session_replication_role = replica", denied},
        {"FileOfTheServer", "bob", "SELECT pg_read_file('postgresql.conf')", denied},
        {"CopyToAProgram", "bob", "COPY (SELECT 1) TO PROGRAM 'cat'", denied},
        {"CopyOfATable", "bob", "COPY settings.value TO STDOUT", denied},
    }),
    byMeaning);

// PostgreSQL refuses none of these. A notification is a hint to look and an advisory lock costs a poll, so nothing is gained.
INSTANTIATE_TEST_SUITE_P(Allowed, ForeignAttempt,
                         testing::ValuesIn(std::vector<Attempt>{
                             {"ForgedNotification", "mallory", "NOTIFY settings_studio, '999999'", ""},
                             {"ForeignChannel", "mallory", "LISTEN settings_u2", ""},
                             {"GrantWithoutEffect", "bob", "GRANT EXECUTE ON FUNCTION settings.changes_v1 TO PUBLIC", ""},
                             {"ForeignLock", "mallory", "SELECT pg_advisory_lock(1397052500, 2)", ""},
                         }),
                         byMeaning);

// Each statement on each object, by a user who has values of his own.
TEST_F(Foreign, EveryGeneratedStatementIsDenied)
{
    Login const catalogue = login("postgres");
    auto const each = [&](char const* sql) { return catalogue.ask(sql).rows; };
    std::vector<std::string> statements;
    auto const add = [&](std::string pattern, std::string const& object) {
        for (std::size_t at; (at = pattern.find('@')) != std::string::npos;)
            pattern.replace(at, 1, object);
        statements.push_back(pattern);
    };
    for (auto const& row : each("SELECT oid::regclass FROM pg_class WHERE relnamespace = 'settings'::regnamespace AND relkind = 'r'"))
        for (char const* const pattern : {"SELECT * FROM @",
                                          "SELECT count(*) FROM @",
                                          "TABLE @",
                                          "SELECT ctid FROM @ FOR UPDATE",
                                          "SELECT FROM @ LIMIT 1",
                                          "DELETE FROM @",
                                          "TRUNCATE @",
                                          "DO 'BEGIN LOCK TABLE @ IN ACCESS SHARE MODE; END'",
                                          "COPY @ TO STDOUT",
                                          "INSERT INTO @ DEFAULT VALUES",
                                          "INSERT INTO @ OVERRIDING SYSTEM VALUE SELECT * FROM @",
                                          "ALTER TABLE @ DISABLE ROW LEVEL SECURITY",
                                          "ALTER TABLE @ NO FORCE ROW LEVEL SECURITY",
                                          "ALTER TABLE @ OWNER TO bob",
                                          "ALTER TABLE @ ADD COLUMN x int",
                                          "DROP TABLE @",
                                          "GRANT SELECT ON @ TO bob",
                                          "CREATE POLICY p ON @ USING (true)",
                                          "CREATE INDEX ON @ ((1))",
                                          "COMMENT ON TABLE @ IS 'x'",
                                          "WITH x AS (DELETE FROM @ RETURNING *) SELECT * FROM x",
                                          "EXPLAIN ANALYZE SELECT * FROM @",
                                          "DO 'BEGIN PERFORM * FROM @; END'"})
            add(pattern, row[0]);
    for (auto const& row : each("SELECT oid::regprocedure FROM pg_proc WHERE pronamespace = 'settings'::regnamespace"))
        for (char const* const pattern : {"ALTER FUNCTION @ OWNER TO bob", "ALTER FUNCTION @ SECURITY INVOKER",
                                          "ALTER FUNCTION @ RESET search_path", "DROP FUNCTION @"})
            add(pattern, row[0]);
    for (auto const& row :
         each("SELECT oid::regproc || '(' || (SELECT coalesce(string_agg('NULL::' || format_type(t, NULL), ', '), '') FROM "
              "unnest(proargtypes) AS t) || ')' FROM pg_proc WHERE pronamespace = 'settings'::regnamespace AND NOT prosecdef"))
        add("SELECT @", row[0]);
    for (char const* const role : {"settings_owner", "settings_admin", "settings_watch", "alice", "ada", "postgres"})
        for (char const* const pattern : {"SET ROLE @", "SET SESSION AUTHORIZATION @", "GRANT @ TO bob", "ALTER ROLE @ PASSWORD 'x'",
                                          "DROP ROLE @", "REASSIGN OWNED BY @ TO bob", "ALTER ROLE @ SET search_path = public"})
            add(pattern, role);
    EXPECT_GE(statements.size(), 200u);
    Login const bob = login("bob");
    for (std::string const& statement : statements)
        EXPECT_EQ(bob.ask(statement).text(), denied) << statement;
}

// As if a later version granted too much by mistake.
TEST_F(Foreign, SecondWallHoldsWhereTablesAreOpen)
{
    ask("GRANT ALL ON ALL TABLES IN SCHEMA settings TO bob");
    Login const bob = login("bob");
    EXPECT_EQ(bob.ask("SELECT encode(value, 'escape') FROM settings.value ORDER BY 1").text(), "studio\ntrue");
    EXPECT_EQ(bob.ask("SELECT kind || name FROM settings.layer ORDER BY 1").text(), "studio\nuserbob");
    EXPECT_EQ(bob.ask("SELECT * FROM settings.superseded").text(), "");
    EXPECT_EQ(bob.ask("SELECT count(*) FROM settings.client").text(), "1");
    EXPECT_EQ(bob.ask("UPDATE settings.value SET locked = true WHERE layer <> 4 RETURNING 1").text(), "");
    EXPECT_EQ(bob.ask("DELETE FROM settings.value RETURNING 1").text(), "");
    EXPECT_EQ(bob.ask("DELETE FROM settings.layer RETURNING 1").text(), "");
    EXPECT_EQ(bob.ask("UPDATE settings.layer SET revision = 0 WHERE id <> 4 RETURNING 1").text(), "");
    EXPECT_EQ(bob.ask("INSERT INTO settings.layer (kind, name) VALUES ('user', 'carol')").text(), denied);
    EXPECT_EQ(bob.ask("INSERT INTO settings.client VALUES (2, gen_random_uuid(), 0)").text(), denied);
    EXPECT_EQ(bob.ask("UPDATE settings.client SET layer = 2").text(), denied);
    for (char const* const layer : {"1", "2"})
        EXPECT_EQ(
            bob.ask(std::string("INSERT INTO settings.value SELECT ") + layer +
                    ", store, 'forged', kind, value, locked, revision, client, changed_at, changed_by, changed_on FROM settings.value")
                .text(),
            denied);
    EXPECT_EQ(bob.ask("UPDATE settings.value SET layer = 2").text(), denied);
    ask("REVOKE ALL ON ALL TABLES IN SCHEMA settings FROM bob");
}

TEST_F(Foreign, OwnerSeesNoValuesOfUsers)
{
    Login const superuser = login("postgres");
    EXPECT_EQ(superuser.ask("SELECT count(*) FROM settings.value").text(), "3");
    EXPECT_EQ(superuser.ask("SET ROLE settings_owner; SELECT encode(value, 'escape') FROM settings.value").text(), "studio");
    EXPECT_EQ(superuser.ask("SELECT count(*) FROM settings.client").text(), "0");
}

/// Keys and values with a marker in them, sent as parameters like every client does.
class Secrecy : public SchemaTest {
protected:
    static Answer send(Login const& login, std::string const& op, std::string const& studio, std::string const& store,
                       std::string const& key, std::string const& kind, std::string const& value)
    {
        return login.ask("SELECT outcome FROM settings.put_v1($1, $2, $3, $4, $5, $6, $7, false, 0, 0)",
                         {clientId(1), op, studio, store, key, kind, value});
    }
    void expectSecret(Answer const& answer, char const* code)
    {
        EXPECT_EQ(answer.code, code);
        EXPECT_FALSE(tells(answer.error)) << answer.error;
        ++m_errors;
    }
    // Whether the marker stands in a text, as it is or as the server writes bytes.
    static bool tells(std::string const& text)
    {
        return text.find("marker") != std::string::npos || text.find("6d61726b6572") != std::string::npos;
    }

    int m_errors = 0;
};

TEST_F(Secrecy, NoErrorAndNoLogHoldsAKeyOrAValue)
{
    Login const alice = user("alice");
    Login const other = login("alice");
    ASSERT_EQ(put(user("ada"), {1, 1, true, "common", "marker", "string", "marker", true, 0, 0}), "stored|1");
    expectSecret(send(alice, "1", "f", "common", "marker", "bytes", "marker" + std::string(16777216, '.')), "ST001");
    expectSecret(send(alice, "1", "f", "common", "marker" + std::string(4096, '.'), "string", "marker"), "ST002");
    expectSecret(send(alice, "1", "f", "common", "marker", "string", "marker"), "ST003");
    expectSecret(send(alice, "1", "t", "common", "marker", "string", "marker"), "ST004");
    expectSecret(send(alice, "1", "f", "", "marker", "string", "marker"), "ST005");
    expectSecret(send(login("bob"), "1", "f", "common", "marker", "string", "marker"), "ST006");
    expectSecret(send(login("mallory"), "1", "f", "common", "marker", "string", "marker"), "42501");
    ASSERT_EQ(other.ask("BEGIN; " + statement({1, 1, false, "common", "unrelated"})).text(), "stored|1");
    alice.ask("SET lock_timeout = 100");
    expectSecret(send(alice, "2", "f", "common", "marker2", "string", "marker"), "55P03");
    alice.ask("SET lock_timeout = 0; SET statement_timeout = 100");
    expectSecret(send(alice, "2", "f", "common", "marker2", "string", "marker"), "57014");
    EXPECT_EQ(m_errors, 9);
    std::string const log = m_server->log();
    EXPECT_NE(log.find("the studio has locked this preference"), std::string::npos) << "it is the log of these errors";
    EXPECT_FALSE(tells(log)) << log;
}
