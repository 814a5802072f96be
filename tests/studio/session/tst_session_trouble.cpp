// SPDX-License-Identifier: MIT
//
// What may befall a server while programs are connected: it is named, reads go on, and once it is over the programs go on, too.
#include "support/SessionFaults.h"

#include <TestKit/TemporaryHome.h>

#include <support/Named.h>

#include <filesystem>
#include <fstream>
#include <random>

namespace fs = std::filesystem;
using namespace std::chrono_literals;

namespace {

using Code = Storage::StorageError::Code;

struct Trouble {
    char const* meaning;
    bool reconnects;   ///< Whether it meets a program that has to connect again, rather than one that is connected.
    char const* begin; ///< SQL of the superuser.
    char const* end;
    Reason reason;
    Code code;
};

} // namespace

class SessionTrouble : public SessionFaults {
protected:
    // Expects that a change is refused so, and that reads go on.
    static void expectTrouble(Program& program, Reason reason, Code code)
    {
        EXPECT_EQ(errorOf([&] { program.store->setInt("number", 2); }).code(), code);
        std::optional<Studio::ServerError> const problem = program.session.status().problem;
        EXPECT_EQ(problem ? problem->reason() : Reason::rejected, reason) << (problem ? problem->what() : "no problem");
        EXPECT_EQ(program.store->getInt("number", 0), 1);
    }

    void expectRecovery(Program& program) const
    {
        ASSERT_TRUE(recovers(program));
        EXPECT_FALSE(program.session.status().problem);
        EXPECT_EQ(program.store->getInt("number", 0), 1);
        program.store->setInt("number", 3);
        EXPECT_EQ(atServer("number"), "int 3");
    }

    // A cluster reads the file again on request.
    void demandPassword() const
    {
        fs::path const file = fs::path(m_server->ask("SHOW data_directory")) / "pg_hba.conf";
        std::ifstream stream(file);
        std::string const earlier{std::istreambuf_iterator<char>(stream), {}};
        std::ofstream(file) << "local studio alice scram-sha-256\n" << earlier;
        m_server->ask("SELECT pg_reload_conf()");
    }

    // Where the server keeps values that do not fit into a row.
    fs::path fileOfLongValues() const
    {
        return fs::path(m_server->ask("SHOW data_directory")) /
               ask("SELECT pg_relation_filepath(reltoastrelid) FROM pg_class WHERE oid = 'settings.value'::regclass");
    }
};

class ServerTrouble : public SessionTrouble, public testing::WithParamInterface<Trouble> {};

TEST_P(ServerTrouble, IsNamedWhileReadsGoOnAndEndsWithoutARestart)
{
    Program alice(connectionOf("alice"));
    alice.store->setInt("number", 1);
    ask(GetParam().begin);
    if (GetParam().reconnects)
        endConnections();
    expectTrouble(alice, GetParam().reason, GetParam().code);
    ask(GetParam().end);
    expectRecovery(alice);
}

namespace {

constexpr char const* drop = "DROP ROLE alice";
constexpr char const* create = "CREATE ROLE alice LOGIN IN ROLE settings_user";
constexpr char const* revokeRole = "REVOKE settings_user FROM alice";
constexpr char const* grant = "GRANT settings_user TO alice";
constexpr char const* renameRole = "ALTER ROLE alice RENAME TO alicia";
constexpr char const* renameBack = "ALTER ROLE alicia RENAME TO alice";

} // namespace

INSTANTIATE_TEST_SUITE_P(Roles, ServerTrouble,
                         testing::Values(Trouble{"RoleIsDropped", false, drop, create, Reason::login, Code::access},
                                         Trouble{"RoleWasDropped", true, drop, create, Reason::login, Code::access},
                                         Trouble{"RoleIsRenamed", false, renameRole, renameBack, Reason::login, Code::access},
                                         Trouble{"RoleWasRenamed", true, renameRole, renameBack, Reason::login, Code::access},
                                         Trouble{"MembershipIsRevoked", false, revokeRole, grant, Reason::denied, Code::access},
                                         Trouble{"MembershipWasRevoked", true, revokeRole, grant, Reason::denied, Code::access},
                                         Trouble{"LoginIsForbidden", true, "ALTER ROLE alice NOLOGIN", "ALTER ROLE alice LOGIN",
                                                 Reason::login, Code::access},
                                         Trouble{"RoleHasNoConnectionLeft", true, "ALTER ROLE alice CONNECTION LIMIT 0",
                                                 "ALTER ROLE alice CONNECTION LIMIT -1", Reason::busy, Code::busy},
                                         Trouble{"RoleMayOnlyRead", true, "ALTER ROLE alice SET default_transaction_read_only = on",
                                                 "ALTER ROLE alice RESET default_transaction_read_only", Reason::readOnly, Code::readOnly}),
                         byMeaning);

INSTANTIATE_TEST_SUITE_P(
    Functions, ServerTrouble,
    testing::Values(Trouble{"ExecuteIsRevoked", false, "REVOKE EXECUTE ON FUNCTION settings.put_v1 FROM settings_user",
                            "GRANT EXECUTE ON FUNCTION settings.put_v1 TO settings_user", Reason::denied, Code::access},
                    Trouble{"ExecuteOfTheFirstCallWasRevoked", true, "REVOKE EXECUTE ON FUNCTION settings.hello_v1 FROM settings_user",
                            "GRANT EXECUTE ON FUNCTION settings.hello_v1 TO settings_user", Reason::denied, Code::access},
                    Trouble{"FunctionIsGone", false, "ALTER FUNCTION settings.put_v1 RENAME TO put_v0",
                            "ALTER FUNCTION settings.put_v0 RENAME TO put_v1", Reason::outdated, Code::access},
                    Trouble{"SchemaIsGone", false, "ALTER SCHEMA settings RENAME TO moved", "ALTER SCHEMA moved RENAME TO settings",
                            Reason::outdated, Code::access}),
    byMeaning);

TEST_F(SessionTrouble, ServerThatIsSetToReadOnlyIsNamed)
{
    Program alice(connectionOf("alice"));
    alice.store->setInt("number", 1);
    ask("ALTER SYSTEM SET default_transaction_read_only = on");
    ask("SELECT pg_reload_conf()");
    ASSERT_TRUE(comes("SHOW default_transaction_read_only", "on"));
    expectTrouble(alice, Reason::readOnly, Code::readOnly);
    EXPECT_TRUE(alice.session.synchronise(60s)) << "reading needs no right to write";
    ask("ALTER SYSTEM RESET default_transaction_read_only");
    ask("SELECT pg_reload_conf()");
    ASSERT_TRUE(comes("SHOW default_transaction_read_only", "off"));
    expectRecovery(alice);
}

TEST_F(SessionTrouble, HaltedServerIsNamedAndReadsGoOn)
{
    Studio::Session::Options options = quiet(connectionOf("alice"));
    options.changeWait = 1s;
    options.statementWait = 500ms;
    Program alice(options);
    ASSERT_TRUE(alice.session.status().connected);
    m_server->halt();
    auto const time = timeOf([&] { EXPECT_EQ(errorOf([&] { alice.store->setInt("number", 2); }).code(), Code::unreachable); });
    EXPECT_LE(time.count(), (1s + slack).count());
    EXPECT_LE(timeOf([&] { EXPECT_EQ(alice.store->getInt("number", 42), 42); }).count(), slack.count());
    EXPECT_FALSE(alice.session.synchronise(700ms));
    ASSERT_TRUE(alice.session.status().problem);
    EXPECT_EQ(alice.session.status().problem->reason(), Reason::timedOut);
    m_server->goOn();
    ASSERT_TRUE(recovers(alice));
    EXPECT_FALSE(alice.session.status().problem);
    alice.store->setInt("number", 3);
    EXPECT_EQ(atServer("number"), "int 3");
}

// A link to /dev/full is a file on a disk without room: the kernel answers ENOSPC to whoever makes it longer.
TEST_F(SessionTrouble, FullDiskOfTheServerIsNamedAndLosesNothing)
{
    Program alice(connectionOf("alice"));
    alice.store->setInt("number", 1);
    std::vector<unsigned char> large(100000);
    std::minstd_rand random;
    for (unsigned char& byte : large)
        byte = static_cast<unsigned char>(random() % 256); // or it would be compressed into the row
    fs::path const file = fileOfLongValues();
    fs::remove(file);
    fs::create_symlink("/dev/full", file);

    EXPECT_EQ(errorOf([&] { alice.store->setBytes("large", large); }).code(), Code::full);
    ASSERT_TRUE(alice.session.status().problem);
    EXPECT_EQ(alice.session.status().problem->reason(), Reason::full);
    EXPECT_EQ(alice.session.status().problem->sqlState(), "53100");
    EXPECT_EQ(alice.store->getInt("number", 0), 1);
    EXPECT_FALSE(alice.store->contains("large"));
    EXPECT_EQ(ask("SELECT revision FROM settings.layer WHERE name = 'alice'"), "1");

    login(Cluster::superuser).ask("VACUUM FULL settings.value"); // writes the rows into new files
    expectRecovery(alice);
    alice.store->setBytes("large", large);
    EXPECT_EQ(ask("SELECT length(value) FROM settings.value WHERE key = 'large'"), "100000");
}

TEST_F(SessionTrouble, PasswordThatWasChangedIsNamedAndTheNewOneTakenFromItsFile)
{
    TestKit::TemporaryHome const home;
    fs::path const passwords = home.path() / "passwords";
    std::ofstream(passwords) << "*:*:*:alice:old\n";
    fs::permissions(passwords, fs::perms::owner_read | fs::perms::owner_write);
    ask("ALTER ROLE alice PASSWORD 'old'");
    demandPassword();
    Program alice(connectionOf("alice") + " passfile=" + passwords.string());
    ASSERT_TRUE(alice.session.status().connected);
    alice.store->setInt("number", 1);
    ask("ALTER ROLE alice PASSWORD 'new'");
    alice.store->setInt("number", 1); // a connection that is made stays
    endConnections();
    expectTrouble(alice, Reason::login, Code::access);
    std::ofstream(passwords) << "*:*:*:alice:new\n";
    expectRecovery(alice);
}

/// A server with room for few connections.
class CrowdedServer : public SessionTrouble {
protected:
    std::vector<std::string> serverSettings() const override
    {
        return {"max_connections=10", "superuser_reserved_connections=5", "max_wal_senders=0"};
    }
};

TEST_F(CrowdedServer, IsNamedAndReachedOnceThereIsRoom)
{
    Login const superuser = login(Cluster::superuser); // connected before: whoever is refused is gone only a little later
    Program alice(connectionOf("alice"));
    alice.store->setInt("number", 1);
    std::vector<Login> crowd;
    while (crowd.size() < 4) {
        try {
            crowd.push_back(login("bob"));
        } catch (std::runtime_error const&) { // as her program comes back at once
            superuser.ask("SELECT pg_terminate_backend(pid) FROM pg_stat_activity WHERE usename = 'alice'");
        }
    }
    expectTrouble(alice, Reason::busy, Code::busy);
    crowd.clear();
    ASSERT_TRUE(comes("SELECT count(*) FROM pg_stat_activity WHERE usename = 'bob'", "0"));
    expectRecovery(alice);
}
