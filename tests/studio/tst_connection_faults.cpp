// SPDX-License-Identifier: MIT
#include "support/ConnectionTest.h"
#include "support/Proxy.h"

#include <thread>

using namespace std::chrono_literals;
using Then = Proxy::Then;
using Way = Proxy::Way;

/// A server behind a network that fails.
class ConnectionFaults : public ServerTest {
protected:
    void startServer() override
    {
        m_server.emplace();
        m_proxy.emplace(m_server->ask("SHOW unix_socket_directories") + "/.s.PGSQL.5432");
    }

    Connection::Options throughProxy(std::chrono::milliseconds connectWait = 30s, std::chrono::milliseconds statementWait = 30s) const
    {
        return {on(m_proxy->port()), connectWait, statementWait};
    }

    static std::string on(int port) { return "host=127.0.0.1 sslmode=disable user=postgres dbname=postgres port=" + std::to_string(port); }

    std::optional<Proxy> m_proxy;
};

TEST_F(ConnectionFaults, HostThatHearsNothingIsGivenUp)
{
    BlackHole const hole;
    Connection connection({on(hole.port()), 400ms});
    expectFailure(Reason::timedOut, 400ms, [&] { connection.connect(); });
}

TEST_F(ConnectionFaults, HostThatHearsNothingLeavesTimeForTheNext)
{
    BlackHole const hole;
    Connection connection({"host=127.0.0.1,127.0.0.1 sslmode=disable user=postgres dbname=postgres port=" + std::to_string(hole.port()) +
                               ',' + std::to_string(m_proxy->port()),
                           30s});
    EXPECT_LE(timeOf([&] { connection.connect(); }), 10s);
    EXPECT_EQ(connection.host(), "127.0.0.1:" + std::to_string(m_proxy->port()));
}

TEST_F(ConnectionFaults, StalledLoginIsGivenUp)
{
    Connection whole(throughProxy());
    m_proxy->open();
    whole.connect();
    long const bytes = m_proxy->passed(Way::toClient);
    ASSERT_GT(bytes, 100);
    for (long const count : {0L, 1L, 9L, bytes / 2, bytes - 1}) {
        m_proxy->limit(Way::toClient, count, Then::stall);
        Connection connection(throughProxy(200ms, 200ms));
        expectFailure(Reason::timedOut, 400ms, [&] { connection.connect(); });
        EXPECT_FALSE(connection.isOpen());
    }
}

TEST_F(ConnectionFaults, LoginThatIsCutAnywhereIsALostConnection)
{
    Connection whole(throughProxy());
    m_proxy->open();
    whole.connect();
    long const bytes = m_proxy->passed(Way::toClient);
    ASSERT_GT(bytes, 100);
    for (long count = 0; count < bytes; count += 7) {
        m_proxy->limit(Way::toClient, count, Then::cut);
        Connection connection(throughProxy());
        EXPECT_EQ(errorOf([&] { connection.connect(); }).reason(), Reason::lost) << count;
    }
}

TEST_F(ConnectionFaults, StatementThatIsCutAnywhereIsALostConnection)
{
    auto const query = [](Connection& connection) { connection.execute("SELECT $1::bytea, 'answer'", {Parameter::raw("asked")}); };
    Connection connection(throughProxy());
    connection.connect();
    for (Way const way : {Way::toServer, Way::toClient}) {
        m_proxy->open();
        query(connection);
        long const bytes = m_proxy->passed(way);
        ASSERT_GT(bytes, 40);
        for (long count = 0; count < bytes; ++count) {
            m_proxy->limit(way, count, Then::cut);
            Studio::ServerError const error = errorOf([&] { query(connection); });
            EXPECT_EQ(error.reason(), Reason::lost) << count << " of " << bytes;
            EXPECT_FALSE(connection.isOpen());
            m_proxy->open();
            connection.connect();
        }
    }
}

TEST_F(ConnectionFaults, StalledAnswerIsGivenUpAndClosedWithoutAWait)
{
    Connection connection(throughProxy(30s, 2s));
    connection.connect();
    m_proxy->limit(Way::toClient, 20, Then::stall);
    expectFailure(Reason::timedOut, 2s, [&] { connection.execute("SELECT 1"); });
    EXPECT_FALSE(connection.isOpen());
}

TEST_F(ConnectionFaults, StatementThatTheServerDoesNotTakeIsGivenUp)
{
    Connection connection(throughProxy(30s, 2s));
    connection.connect();
    m_proxy->limit(Way::toServer, 1000, Then::stall);
    std::string const large(16 << 20, 'x');
    expectFailure(Reason::timedOut, 2s, [&] { connection.execute("SELECT $1::bytea", {Parameter::raw(large)}); });
    EXPECT_FALSE(connection.isOpen());
}

TEST_F(ConnectionFaults, AnswerThatTricklesIsGivenUp)
{
    Connection connection(throughProxy(30s, 3s));
    connection.connect();
    m_proxy->limit(Way::toClient, 0, Then::trickle);
    expectFailure(Reason::timedOut, 3s, [&] { connection.execute("SELECT 1"); });
    EXPECT_GE(m_proxy->passed(Way::toClient), 1);
}

TEST_F(ConnectionFaults, LoginThatTricklesIsGivenUp)
{
    m_proxy->limit(Way::toClient, 0, Then::trickle);
    Connection connection(throughProxy(1500ms));
    expectFailure(Reason::timedOut, 1500ms, [&] { connection.connect(); });
}

TEST_F(ConnectionFaults, HaltedServerIsGivenUp)
{
    Connection open({m_server->connection(), 300ms, 300ms});
    open.connect();
    m_server->halt();
    expectFailure(Reason::timedOut, 300ms, [&] { open.execute("SELECT 1"); });
    Connection connection({m_server->connection(), 300ms});
    expectFailure(Reason::timedOut, 300ms, [&] { connection.connect(); });
    m_server->goOn();
}

TEST_F(ConnectionFaults, WaitIsInterrupted)
{
    Connection executing(throughProxy());
    executing.connect();
    m_proxy->limit(Way::toClient, 0, Then::stall);
    Connection connecting(throughProxy());
    for (Connection* const connection : {&executing, &connecting}) {
        std::thread other([&] {
            std::this_thread::sleep_for(50ms);
            connection->interrupt();
        });
        expectFailure(Reason::interrupted, 50ms, [&] {
            if (connection->isOpen())
                connection->execute("SELECT 1");
            else
                connection->connect();
        });
        other.join();
        expectFailure(Reason::interrupted, 0ms, [&] { connection->connect(); });
    }
}

TEST_F(ConnectionFaults, OpenConnectionIsClosedWithoutAWait)
{
    std::optional<Connection> connection(throughProxy());
    connection->connect();
    m_proxy->limit(Way::toServer, 0, Then::stall);
    EXPECT_LE(timeOf([&] { connection.reset(); }).count(), slack.count());
}
