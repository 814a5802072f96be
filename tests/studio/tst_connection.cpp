// SPDX-License-Identifier: MIT
#include "support/ConnectionTest.h"

#include <TestKit/TemporaryHome.h>

#include <filesystem>
#include <fstream>
#include <thread>

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using namespace std::string_literals;

class ConnectionTest : public ServerTest {
protected:
    void startServer() override
    {
        Cluster::Options options;
        options.tcp = true;
        m_server.emplace(options);
    }

    Connection::Options local() const { return patient(m_server->connection()); }

    TestKit::TemporaryHome m_home;
};

TEST_F(ConnectionTest, ValuesOfAnyBytesGoThereAndBack)
{
    Connection connection(local());
    connection.connect();
    std::string const bytes = "nul\0 and no UTF-8 \xFF\xC3"s;
    Studio::Rows const rows = connection.execute(
        "SELECT $1::bytea, $2::text, $3::bytea IS NULL, $4::bytea, $5::bytea",
        {Parameter::raw(bytes), Parameter::raw("gr\xC3\xBC\xC3\x9F"), Parameter::null(), Parameter::raw(""), Parameter::null()});
    ASSERT_EQ(rows.count(), 1);
    EXPECT_EQ(rows.bytes(0, 0), bytes);
    EXPECT_EQ(rows.bytes(0, 1), "gr\xC3\xBC\xC3\x9F");
    EXPECT_EQ(rows.integer(0, 2), 1);
    EXPECT_FALSE(rows.isNull(0, 3));
    EXPECT_EQ(rows.bytes(0, 3), "");
    EXPECT_TRUE(rows.isNull(0, 4));
}

TEST_F(ConnectionTest, IntegersOfEverySizeAreRead)
{
    Connection connection(local());
    connection.connect();
    Studio::Rows const rows = connection.execute("SELECT (-7)::int2, 2147483647::int4, (-2147483648)::int4, 9223372036854775807::int8, "
                                                 "(-9223372036854775807 - 1)::int8, $1::int8, false, 255::int8",
                                                 {Parameter::literal("-42")});
    EXPECT_EQ(rows.integer(0, 0), -7);
    EXPECT_EQ(rows.integer(0, 1), 2147483647);
    EXPECT_EQ(rows.integer(0, 2), -2147483647 - 1);
    EXPECT_EQ(rows.integer(0, 3), 9223372036854775807);
    EXPECT_EQ(rows.integer(0, 4), -9223372036854775807 - 1);
    EXPECT_EQ(rows.integer(0, 5), -42);
    EXPECT_EQ(rows.integer(0, 6), 0);
    EXPECT_EQ(rows.integer(0, 7), 255);
}

TEST_F(ConnectionTest, WhatIsNotInTheAnswerIsAnError)
{
    Connection connection(local());
    connection.connect();
    Studio::Rows const rows = connection.execute("SELECT 'abc'::text WHERE true");
    for (auto const& [row, column] : {std::pair(1, 0), {-1, 0}, {0, 1}, {0, -1}})
        EXPECT_EQ(errorOf([&, at = row, in = column] { rows.bytes(at, in); }).reason(), Reason::outdated);
    EXPECT_EQ(errorOf([&] { rows.integer(0, 0); }).reason(), Reason::outdated);
}

TEST_F(ConnectionTest, ValueOfSixteenMebibytesGoesThereAndBack)
{
    Connection connection(local());
    connection.connect();
    std::string const large(16 << 20, '\xA5');
    EXPECT_EQ(connection.execute("SELECT $1::bytea", {Parameter::raw(large)}).bytes(0, 0), large);
}

TEST_F(ConnectionTest, RefusedStatementKeepsTheConnectionAndTellsNoValue)
{
    Connection connection(local());
    connection.connect();
    Studio::ServerError const error = errorOf([&] { connection.execute("SELECT $1::text::int", {Parameter::raw("hunter2")}); });
    EXPECT_EQ(error.reason(), Reason::rejected);
    EXPECT_EQ(error.sqlState(), "22P02");
    EXPECT_EQ(std::string(error.what()).find("hunter2"), std::string::npos) << error.what();
    EXPECT_NE(std::string(error.what()).find("(SQLSTATE 22P02)"), std::string::npos) << error.what();
    EXPECT_TRUE(connection.isOpen());
    EXPECT_EQ(connection.execute("SELECT 1").integer(0, 0), 1);
}

TEST_F(ConnectionTest, NoticeOfTheServerIsNotPrinted)
{
    Connection connection(local());
    connection.connect();
    testing::internal::CaptureStderr();
    connection.execute("DO $$ BEGIN RAISE WARNING 'hunter2'; END $$");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(ConnectionTest, LockOfAnotherSessionIsWaitedForWithinItsBound)
{
    m_server->ask("CREATE TABLE held()");
    Connection holder(local());
    holder.connect();
    holder.execute("BEGIN");
    holder.execute("LOCK TABLE held");
    Connection::Options options = local();
    options.lockWait = 200ms;
    Connection connection(options);
    connection.connect();
    expectFailure(Reason::busy, 200ms, [&] { connection.execute("SELECT * FROM held"); });
    EXPECT_TRUE(connection.isOpen());
}

TEST_F(ConnectionTest, ServerEndsAStatementThatItsClientGaveUp)
{
    Connection::Options options = local();
    options.statementWait = 2s;
    Connection connection(options);
    connection.connect();
    expectFailure(Reason::timedOut, 2s, [&] { connection.execute("SELECT pg_sleep(300)"); });
    auto const end = std::chrono::steady_clock::now() + 60s;
    std::string const running = "SELECT count(*) FROM pg_stat_activity WHERE state = 'active' AND query = 'SELECT pg_sleep(300)'";
    while (m_server->ask(running) != "0" && std::chrono::steady_clock::now() < end)
        std::this_thread::sleep_for(5ms);
    EXPECT_EQ(m_server->ask(running), "0");
}

TEST_F(ConnectionTest, ConnectionThatTheServerEndedIsMadeAgain)
{
    Connection connection(local());
    connection.connect();
    m_server->ask("SELECT pg_terminate_backend(pid) FROM pg_stat_activity WHERE application_name = 'editor-settings'");
    Studio::ServerError const error = errorOf([&] { connection.execute("SELECT 1"); });
    EXPECT_EQ(error.reason(), Reason::unreachable);
    EXPECT_EQ(error.sqlState(), "57P01");
    EXPECT_FALSE(connection.isOpen());
    EXPECT_EQ(errorOf([&] { connection.execute("SELECT 1"); }).reason(), Reason::lost);
    connection.connect();
    EXPECT_EQ(connection.execute("SELECT 1").integer(0, 0), 1);
}

TEST_F(ConnectionTest, ServerThatWasKilledIsALostConnection)
{
    Connection connection(local());
    connection.connect();
    m_server->kill();
    EXPECT_EQ(errorOf([&] { connection.execute("SELECT 1"); }).reason(), Reason::lost);
    EXPECT_EQ(errorOf([&] { connection.connect(); }).reason(), Reason::unreachable);
    m_server->start();
    connection.connect();
    EXPECT_TRUE(connection.isOpen());
}

TEST_F(ConnectionTest, StringThatCannotBeReadIsToldWithoutItsContent)
{
    struct {
        char const* meaning;
        char const* connection;
    } const table[] = {
        {"no value", "password=hunter2 host"},
        {"no keyword", "host=127.0.0.1 hunter2=1"},
        {"an open quote", "host=127.0.0.1 password='hunter2"},
        {"a URI with a blank port", "postgresql://alice:hunter2@[127.0.0.1"},
        {"a service that is not there", "service=hunter2"},
    };
    for (auto const& row : table) {
        Connection connection(patient(row.connection));
        Studio::ServerError const error = errorOf([&] { connection.connect(); });
        EXPECT_EQ(error.reason(), Reason::malformed) << row.meaning;
        EXPECT_EQ(std::string(error.what()).find("hunter2"), std::string::npos) << row.meaning << ": " << error.what();
    }
}

TEST_F(ConnectionTest, ServerThatIsNotThereIsNamed)
{
    int const port = m_server->port();
    m_server->stop();
    Connection overTcp(patient(m_server->tcpConnection("alice") + " password=hunter2"));
    Studio::ServerError const error = errorOf([&] { overTcp.connect(); });
    EXPECT_EQ(error.reason(), Reason::unreachable);
    EXPECT_EQ(error.host(), "127.0.0.1:" + std::to_string(port));
    EXPECT_EQ(error.what(), "127.0.0.1:" + std::to_string(port) +
                                ": the server cannot be reached; check its name, its port and the network, and whether it runs");
    Connection overSocket(local());
    EXPECT_EQ(errorOf([&] { overSocket.connect(); }).reason(), Reason::unreachable);
    Connection named(patient("host=no-such-host.invalid"));
    EXPECT_EQ(errorOf([&] { named.connect(); }).reason(), Reason::unreachable);
}

TEST_F(ConnectionTest, RefusedLoginsAreToldApart)
{
    m_server->ask("CREATE ROLE alice LOGIN PASSWORD 'right'; CREATE ROLE nobody NOLOGIN");
    std::string const plain = " sslmode=disable password=";
    struct {
        std::string connection;
        Reason reason;
        char const* sqlState;
    } const table[] = {
        {m_server->tcpConnection("alice") + plain + "wrong", Reason::login, "28P01"},
        {m_server->tcpConnection("mallory") + plain + "right", Reason::login, "28P01"},
        {m_server->connection("mallory"), Reason::login, "28000"},
        {m_server->connection("nobody"), Reason::login, "28000"},
        {m_server->connection(Cluster::superuser, "nowhere"), Reason::unreachable, "3D000"},
        {m_server->tcpConnection("alice") + " sslmode=disable", Reason::login, ""},
    };
    for (auto const& row : table) {
        Connection connection(patient(row.connection));
        Studio::ServerError const error = errorOf([&] { connection.connect(); });
        EXPECT_EQ(error.reason(), row.reason) << row.connection;
        EXPECT_EQ(error.sqlState(), row.sqlState) << row.connection;
        EXPECT_EQ(std::string(error.what()).find("wrong"), std::string::npos) << error.what();
    }
    Connection connection(patient(m_server->tcpConnection("alice") + plain + "right"));
    connection.connect();
    EXPECT_EQ(connection.execute("SELECT session_user::text").bytes(0, 0), "alice");
}

TEST_F(ConnectionTest, TooManyConnectionsAreABusyServer)
{
    m_server->ask("CREATE ROLE alice LOGIN CONNECTION LIMIT 1");
    Connection first(patient(m_server->connection("alice")));
    first.connect();
    Connection second(patient(m_server->connection("alice")));
    Studio::ServerError const error = errorOf([&] { second.connect(); });
    EXPECT_EQ(error.reason(), Reason::busy);
    EXPECT_EQ(error.sqlState(), "53300");
}

TEST_F(ConnectionTest, ServiceAndPasswordFilesCountAsForEveryProgram)
{
    m_server->ask("CREATE ROLE alice LOGIN PASSWORD 'right'");
    std::string const port = std::to_string(m_server->port());
    std::ofstream(m_home.path() / ".pg_service.conf") << "[studio]\nhost=127.0.0.1\nport=" << port << "\nuser=alice\ndbname=postgres\n";
    std::ofstream(m_home.path() / ".pgpass") << "127.0.0.1:" << port << ":postgres:alice:right\n";
    fs::permissions(m_home.path() / ".pgpass", fs::perms::owner_read | fs::perms::owner_write);
    Connection byString(patient("service=studio sslmode=disable"));
    byString.connect();
    EXPECT_EQ(byString.execute("SELECT session_user::text").bytes(0, 0), "alice");
    ::setenv("PGSERVICE", "studio", 1);
    Connection byEnvironment(patient("sslmode=disable"));
    byEnvironment.connect();
    EXPECT_EQ(byEnvironment.host(), "127.0.0.1:" + port);
    ::unsetenv("PGSERVICE");
}

TEST_F(ConnectionTest, OnlyTheStringItselfGivesUpTls)
{
    m_server->ask("CREATE ROLE alice LOGIN PASSWORD 'right'");
    std::ofstream(m_home.path() / ".pg_service.conf") << "[weak]\nsslmode=disable\nchannel_binding=disable\n";
    ::setenv("PGSSLMODE", "disable", 1);
    ::setenv("PGCHANNELBINDING", "disable", 1);
    std::string const string = m_server->tcpConnection("alice") + " password=right";
    for (char const* const more : {"", " service=weak", " sslmode=require", " sslmode=verify-ca", " channel_binding=disable"}) {
        Connection connection(patient(string + more));
        EXPECT_EQ(errorOf([&] { connection.connect(); }).reason(), Reason::insecure) << more;
    }
    Connection connection(patient(string + " sslmode=disable"));
    connection.connect();
    EXPECT_TRUE(connection.isOpen());
    ::unsetenv("PGSSLMODE");
    ::unsetenv("PGCHANNELBINDING");
}
