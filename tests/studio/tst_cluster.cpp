// SPDX-License-Identifier: MIT
#include "support/ServerTest.h"

#include <TestKit/TemporaryHome.h>

#include <support/Process.h>

#include <libpq-fe.h>

#include <chrono>
#include <csignal>
#include <fstream>
#include <thread>

#include <unistd.h>

namespace fs = std::filesystem;

/// What the other tests of this room rely on.
class ClusterTest : public ServerTest {};

TEST_F(ClusterTest, ServerAnswersOverItsSocket)
{
    EXPECT_EQ(m_server->ask("SELECT 6 * 7"), "42");
    m_server->ask("CREATE ROLE alice LOGIN");
    EXPECT_EQ(m_server->ask("SELECT count(*) FROM pg_roles WHERE rolname = 'alice'"), "1");
}

TEST_F(ClusterTest, TwoServersShareNothing)
{
    Cluster other;
    m_server->ask("CREATE TABLE here()");
    EXPECT_EQ(other.ask("SELECT count(*) FROM pg_class WHERE relname = 'here'"), "0");
}

TEST_F(ClusterTest, ServerThatWasKilledStartsAgain)
{
    m_server->ask("CREATE TABLE kept(number int)");
    m_server->kill();
    EXPECT_ANY_THROW(m_server->ask("SELECT 1"));
    m_server->start();
    EXPECT_EQ(m_server->ask("SELECT count(*) FROM kept"), "0");
    m_server->stop();
    EXPECT_ANY_THROW(m_server->ask("SELECT 1"));
    m_server->start();
    EXPECT_EQ(m_server->ask("SELECT count(*) FROM kept"), "0");
}

TEST_F(ClusterTest, HaltedServerCanBeEnded)
{
    std::string const connection = m_server->connection();
    m_server->halt();
    m_server.reset();
    EXPECT_EQ(PQping(connection.c_str()), PQPING_NO_RESPONSE);
}

TEST_F(ClusterTest, ServerEndsWithItsTest)
{
    TestKit::TemporaryHome const home;
    fs::path const note = home.path() / "connection";
    inChild([&] {
        auto* const left = new Cluster;
        std::ofstream(note) << left->ask("SHOW unix_socket_directories") << std::flush;
        ::kill(::getpid(), SIGKILL);
        return "";
    });
    std::string folder;
    std::getline(std::ifstream(note), folder);
    ASSERT_NE(folder, "");
    auto const end = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while (PQping(("host=" + folder).c_str()) != PQPING_NO_RESPONSE && std::chrono::steady_clock::now() < end)
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    EXPECT_EQ(PQping(("host=" + folder).c_str()), PQPING_NO_RESPONSE);
    // Its last words are written below the folder.
    while (fs::exists(fs::path(folder) / "data/postmaster.pid") && std::chrono::steady_clock::now() < end)
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    fs::remove_all(folder);
}
