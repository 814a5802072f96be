// SPDX-License-Identifier: MIT
//
// What a session sees of its server without being asked to look.
#include "support/SessionTest.h"

#include <Studio/server/SchemaSteps.h>

#include <atomic>
#include <future>
#include <mutex>
#include <set>
#include <sstream>
#include <vector>

using namespace std::chrono_literals;

class SessionPolling : public SessionTest {
protected:
    std::vector<std::string> serverSettings() const override { return {"log_statement=all", "log_line_prefix=%u ", "max_connections=40"}; }

    /// What the server was asked by alice's sessions, after what the log held before.
    std::vector<std::string> statements(std::size_t before = 0) const
    {
        std::vector<std::string> result;
        std::istringstream lines(m_server->log().substr(before));
        for (std::string line; std::getline(lines, line);)
            if (line.compare(0, 11, "alice LOG: ") == 0)
                result.push_back(line.substr(11));
        return result;
    }

    static bool reads(Program const& program, std::string const& key, int value)
    {
        return comesTrue([&] { return program.store->getInt(key, 0) == value; });
    }
};

TEST_F(SessionPolling, ChangeOfAnotherProgramIsSeen)
{
    Program alice(polling(connectionOf("alice")));
    Program other(connectionOf("alice"));
    other.store->setInt("number", 7);
    EXPECT_TRUE(reads(alice, "number", 7));
    other.store->remove("number");
    EXPECT_TRUE(reads(alice, "number", 0));
    give("number", "int", "1");
    EXPECT_TRUE(reads(alice, "number", 1));
    EXPECT_EQ(alice.session.status().hearing, Studio::Status::Hearing::polling);
    auto const known = alice.session.status().asOf;
    ASSERT_TRUE(known);
    EXPECT_TRUE(comesTrue([&] { return alice.session.status().asOf > known; }));
}

TEST_F(SessionPolling, QuietLineCostsOneStatementAPoll)
{
    Studio::Session::Options options = polling(connectionOf("alice"));
    options.pollWait = 50ms;
    Program alice(options);
    auto const begin = std::chrono::steady_clock::now();
    std::size_t const before = m_server->log().size();
    ASSERT_TRUE(comesTrue([&] { return statements(before).size() >= 10; }));
    std::vector<std::string> const asked = statements(before);
    // 40 ms is the shortest pause.
    EXPECT_LE(asked.size(), static_cast<std::size_t>((std::chrono::steady_clock::now() - begin) / 40ms) + 1);
    for (std::string const& statement : asked)
        EXPECT_NE(statement.find(", epoch FROM settings.changes_v2("), std::string::npos) << statement;
    EXPECT_EQ(ask("SELECT count(*) FROM pg_stat_activity WHERE usename = 'alice' AND state = 'idle in transaction'"), "0");
}

TEST_F(SessionPolling, ProgramThatAsksWithoutPausePollsToo)
{
    Program alice(polling(connectionOf("alice")));
    Program other(connectionOf("alice"));
    std::atomic<bool> isSeen = false;
    std::vector<std::future<void>> asking;
    for (int thread = 0; thread < 8; ++thread)
        asking.push_back(std::async(std::launch::async, [&] {
            while (!isSeen)
                alice.store->setInt("own", 1);
        }));
    other.store->setInt("number", 7);
    EXPECT_TRUE(reads(alice, "number", 7));
    isSeen = true;
}

TEST_F(SessionPolling, ServerThatComesBackIsFound)
{
    Program alice(polling(connectionOf("alice")));
    m_server->stop();
    EXPECT_TRUE(comesTrue([&] { return !alice.session.status().connected; }));
    EXPECT_TRUE(alice.session.status().problem);
    m_server->start();
    Program(connectionOf("alice")).store->setInt("number", 7);
    EXPECT_TRUE(reads(alice, "number", 7));
    EXPECT_TRUE(comesTrue([&] { return alice.session.status().connected && !alice.session.status().problem; }));
    EXPECT_FALSE(alice.session.status().historyChanged);
}

TEST_F(SessionPolling, LossIsNoticedAndTheConnectionMadeAgainBetweenPolls)
{
    Program alice(connectionOf("alice"));
    ask("SELECT pg_terminate_backend(pid) FROM pg_stat_activity WHERE usename = 'alice'");
    EXPECT_TRUE(comes("SELECT count(*) FROM pg_stat_activity WHERE usename = 'alice'", "1"));
    EXPECT_TRUE(comesTrue([&] { return alice.session.status().connected; }));
}

TEST_F(SessionPolling, ServerThatWasAwayAtTheStartIsFound)
{
    m_server->stop();
    Program alice(polling(connectionOf("alice")));
    EXPECT_FALSE(alice.session.status().asOf);
    m_server->start();
    EXPECT_TRUE(comesTrue([&] { return alice.session.status().asOf.has_value(); }));
}

TEST_F(SessionPolling, HaltedServerIsFoundAgain)
{
    Studio::Session::Options options = polling(connectionOf("alice"));
    options.statementWait = options.connectWait = 200ms;
    Program alice(options);
    m_server->halt();
    ASSERT_TRUE(comesTrue([&] { return alice.session.status().problem.has_value(); }));
    EXPECT_EQ(alice.session.status().problem->reason(), Studio::ServerError::Reason::timedOut);
    m_server->goOn();
    Program(connectionOf("alice")).store->setInt("number", 7);
    EXPECT_TRUE(reads(alice, "number", 7));
}

TEST_F(SessionPolling, UserWhoIsForgottenAndMadeAgainIsReadFromTheBeginning)
{
    Program alice(polling(connectionOf("alice")));
    alice.store->setInt("gone", 1);
    EXPECT_TRUE(alice.session.synchronise(60s));
    EXPECT_FALSE(alice.session.status().historyChanged);
    makeAliceAgain();
    EXPECT_TRUE(reads(alice, "new", 2));
    EXPECT_TRUE(comesTrue([&] { return !alice.store->contains("gone"); }));
    EXPECT_TRUE(alice.session.status().historyChanged);
}

TEST_F(SessionPolling, StandbyWithoutTheLastChangesIsReadFromTheBeginning)
{
    Program(connectionOf("alice")).store->setInt("kept", 1);
    m_server->stop();
    Cluster::Options options;
    options.primary = &*m_server;
    Cluster standby(options);
    m_server->start();
    std::string const both = "host=" + m_server->ask("SHOW unix_socket_directories") + ',' + standby.ask("SHOW unix_socket_directories") +
                             " port=5432 user=alice dbname=studio target_session_attrs=read-write";
    Program alice(polling(both));
    for (char const* const key : {"kept", "lost", "lost too"})
        alice.store->setInt(key, 2);
    ASSERT_TRUE(alice.session.synchronise(60s));
    standby.ask("SELECT pg_promote()");
    // The revisions that the lost changes had.
    for (int number = 3; number <= 5; ++number)
        Program(standby.connection("alice", "studio")).store->setInt("other", number);
    m_server->stop();
    EXPECT_TRUE(reads(alice, "other", 5));
    EXPECT_EQ(alice.store->getInt("kept", 0), 1);
    EXPECT_FALSE(alice.store->contains("lost"));
    EXPECT_FALSE(alice.store->contains("lost too"));
    EXPECT_TRUE(alice.session.status().historyChanged);
}

TEST_F(SessionPolling, NothingOfEightWritersIsMissed)
{
    constexpr int writers = 8;
    constexpr int puts = 40;
    Program alice(polling(connectionOf("alice")));
    std::mutex mutex;
    std::set<std::string> told;
    alice.session.onChange([&](std::string const&, std::string const& key) {
        std::lock_guard const lock(mutex);
        told.insert(key);
    });
    std::vector<std::future<void>> writing;
    for (int client = 1; client <= writers; ++client)
        writing.push_back(std::async(std::launch::async, [this, client] {
            Login const writer = user("alice", client);
            for (int op = 1; op <= puts; ++op) {
                std::string const key = std::to_string(client) + '/' + std::to_string(op);
                EXPECT_EQ(put(writer, {client, op, false, "common", key, "int", std::to_string(op)}).substr(0, 7), "stored|");
            }
        }));
    for (std::future<void>& writer : writing)
        writer.get();
    EXPECT_TRUE(comesTrue([&] {
        std::lock_guard const lock(mutex);
        return told.size() == writers * puts;
    }));
    alice.session.onChange({});
    for (int client = 1; client <= writers; ++client)
        for (int op = 1; op <= puts; ++op)
            EXPECT_EQ(alice.store->getInt(std::to_string(client) + '/' + std::to_string(op), 0), op);
}

/// A server that was not migrated yet.
class SessionOnTheFirstSchema : public SessionPolling {
protected:
    std::size_t schema() const override { return 1; }
};

TEST_F(SessionOnTheFirstSchema, ReadsChangesAndNoticesAnotherHistory)
{
    Program alice(polling(connectionOf("alice")));
    Program other(connectionOf("alice"));
    other.store->setInt("number", 7);
    EXPECT_TRUE(reads(alice, "number", 7));
    give("given", "int", "1");
    ASSERT_TRUE(other.session.synchronise(60s));
    EXPECT_EQ(other.store->getInt("given", 0), 1);
    makeAliceAgain();
    ASSERT_TRUE(other.session.synchronise(60s));
    EXPECT_EQ(other.store->getInt("new", 0), 2);
    EXPECT_TRUE(other.session.status().historyChanged);
    EXPECT_TRUE(reads(alice, "new", 2));
}

TEST_F(SessionOnTheFirstSchema, ProgramGoesOnWhileTheServerIsMigrated)
{
    Program before(polling(connectionOf("alice")));
    ask("BEGIN; " + Studio::schemaSteps().at(1) + " COMMIT");
    Program after(connectionOf("alice"));
    after.store->setInt("number", 7);
    EXPECT_TRUE(reads(before, "number", 7));
    before.store->setInt("number", 8);
    ASSERT_TRUE(after.session.synchronise(60s));
    EXPECT_EQ(after.store->getInt("number", 0), 8);
    EXPECT_FALSE(before.session.status().problem);
}
