// SPDX-License-Identifier: MIT
//
// What a session does when the server notifies it. Its polls are a day apart unless a test says otherwise.
#include "support/SessionTest.h"

#include <chrono>
#include <future>
#include <mutex>
#include <set>
#include <sstream>
#include <vector>

using namespace std::chrono_literals;
using Hearing = Studio::Status::Hearing;

class SessionListening : public SessionTest {
protected:
    std::vector<std::string> serverSettings() const override { return {"log_statement=all", "log_line_prefix=%p ", "max_connections=40"}; }

    /// How often a process of the server was asked for something.
    long count(std::string const& backend, std::string const& word) const
    {
        long result = 0;
        std::istringstream lines(m_server->log());
        for (std::string line; std::getline(lines, line);)
            result += line.compare(0, backend.size() + 5, backend + " LOG:") == 0 && line.find(word) != std::string::npos;
        return result;
    }

    /// The process of alice's only connection.
    std::string backend() const { return ask("SELECT pid FROM pg_stat_activity WHERE usename = 'alice'"); }

    static bool reads(Program const& program, std::string const& key, int value)
    {
        return comesTrue([&] { return program.store->getInt(key, 0) == value; });
    }

    // Alice's layer is the first of a user.
    static constexpr char const* channel = "settings_u2";
};

TEST_F(SessionListening, ChangesAreSeenAtOnce)
{
    Program alice(listening(connectionOf("alice")));
    EXPECT_EQ(alice.session.status().hearing, Hearing::listening);
    EXPECT_FALSE(alice.session.status().pooled);
    Program other(connectionOf("alice"));
    other.store->setInt("number", 7);
    EXPECT_TRUE(reads(alice, "number", 7));
    other.store->remove("number");
    EXPECT_TRUE(reads(alice, "number", 0));
    give("number", "int", "1", true);
    EXPECT_TRUE(reads(alice, "number", 1));
    EXPECT_TRUE(alice.session.lockOf("common", "number"));
}

TEST_F(SessionListening, QuietLineCostsNothing)
{
    Program alice(listening(connectionOf("alice")));
    std::string const process = backend();
    EXPECT_EQ(count(process, "changes_v1"), 1);
    Program bob(connectionOf("bob"));
    bob.store->setInt("number", 7);
    give("number", "int", "1");
    EXPECT_TRUE(reads(alice, "number", 1));
    EXPECT_EQ(count(process, "changes_v1"), 2);
    EXPECT_EQ(count(process, "LISTEN"), 2);
    EXPECT_EQ(count(process, "execute <unnamed>"), 6) << "limits, greeting, two channels, two fetches";
    EXPECT_EQ(ask("SELECT state FROM pg_stat_activity WHERE usename = 'alice'"), "idle");
}

TEST_F(SessionListening, HeartbeatFindsWhatWasNotNotified)
{
    Studio::Session::Options options = listening(connectionOf("alice"));
    options.heartbeatWait = 20ms;
    Program alice(options);
    ask("WITH l AS (UPDATE settings.layer SET revision = revision + 1 WHERE name = 'alice' RETURNING id, revision) "
        "INSERT INTO settings.value SELECT id, 'common', 'number', 'int', '7', false, revision, NULL, now(), 'alice', 'here' FROM l");
    EXPECT_TRUE(reads(alice, "number", 7));
    EXPECT_EQ(alice.session.status().hearing, Hearing::listening);
}

TEST_F(SessionListening, OwnChangesAreNotFetched)
{
    Program alice(listening(connectionOf("alice")));
    std::string const process = backend();
    Program other(listening(connectionOf("alice"))); // has the server notify
    for (int number = 1; number <= 5; ++number)
        alice.store->setInt("number", number);
    EXPECT_TRUE(reads(other, "number", 5));
    // Behind the own notifications.
    give("number", "int", "1");
    EXPECT_TRUE(comesTrue([&] { return count(process, "changes_v1") == 2; }));
    EXPECT_EQ(count(process, "put_v1"), 5);
    EXPECT_EQ(alice.store->getInt("number", 0), 5);
}

TEST_F(SessionListening, StudiosChangesWaitForATimeAtRandomAndAreFetchedTogether)
{
    Studio::Session::Options options = listening(connectionOf("alice"));
    options.studioWait = 24h;
    Program alice(options);
    std::string const process = backend();
    for (int number = 1; number <= 5; ++number)
        give("number", "int", std::to_string(number));
    Program other(connectionOf("alice"));
    other.store->setInt("own", 7);
    EXPECT_TRUE(reads(alice, "own", 7));
    EXPECT_EQ(alice.store->getInt("number", 0), 5);
    EXPECT_EQ(count(process, "changes_v1"), 2);
}

TEST_F(SessionListening, ForgedNotificationsCostFewFetches)
{
    Program alice(listening(connectionOf("alice")));
    std::string const process = backend();
    Login const bob = login("bob");
    auto const begin = std::chrono::steady_clock::now();
    for (int number = 0; number < 400; ++number) {
        std::string const payload = number % 2 ? std::string(7999, 'x') : std::to_string(number);
        EXPECT_EQ(
            bob.ask("NOTIFY settings_studio, '" + payload + "'; NOTIFY " + channel + ", '" + payload + "'; SELECT pg_sleep(0.001)").code,
            "");
    }
    Program other(connectionOf("alice"));
    other.store->setInt("number", 7);
    EXPECT_TRUE(reads(alice, "number", 7));
    long const fetches = count(process, "changes_v1");
    EXPECT_GE(fetches, 3) << "at the start, for a forged one, for the change";
    EXPECT_LE(fetches, 3 + (std::chrono::steady_clock::now() - begin) / 100ms);
    EXPECT_FALSE(alice.session.status().problem);
}

TEST_F(SessionListening, StrangersLockLeavesThePoll)
{
    Program(connectionOf("alice")).store->setInt("number", 1);
    Login const mallory = login("mallory");
    EXPECT_EQ(mallory.ask("SELECT pg_advisory_lock(1397052500, 2)").code, "");
    Studio::Session::Options options = listening(connectionOf("alice"));
    options.pollWait = 20ms;
    Program alice(options);
    EXPECT_TRUE(alice.session.status().connected);
    EXPECT_EQ(alice.session.status().hearing, Hearing::polling);
    EXPECT_FALSE(alice.session.status().pooled);
    Program(connectionOf("alice")).store->setInt("number", 7);
    EXPECT_TRUE(reads(alice, "number", 7));
}

TEST_F(SessionListening, HostMayChooseToPoll)
{
    Program alice(polling(connectionOf("alice")));
    EXPECT_EQ(alice.session.status().hearing, Hearing::polling);
    EXPECT_EQ(ask("SELECT count(*) FROM pg_locks WHERE locktype = 'advisory'"), "0");
}

TEST_F(SessionListening, AfterARestartItListensAgain)
{
    Program alice(listening(connectionOf("alice")));
    m_server->kill();
    EXPECT_TRUE(comesTrue([&] { return !alice.session.status().connected; }));
    m_server->start();
    ASSERT_TRUE(comesTrue([&] { return alice.session.status().connected; }));
    Program(connectionOf("alice")).store->setInt("number", 7);
    EXPECT_TRUE(reads(alice, "number", 7));
    EXPECT_EQ(alice.session.status().hearing, Hearing::listening);
}

TEST_F(SessionListening, UserWhoIsMadeAgainIsHeardOnTheNewChannel)
{
    Studio::Session::Options options = listening(connectionOf("alice"));
    options.heartbeatWait = 20ms;
    Program alice(options);
    EXPECT_EQ(login("ada").ask("SELECT settings.forget_user_v1('alice')").text(), "t");
    EXPECT_TRUE(comes("SELECT objid FROM pg_locks WHERE locktype = 'advisory' AND objid <> 2", "3"));
    EXPECT_TRUE(comesTrue([&] { return count(backend(), "LISTEN settings_u3") == 1; }));
}

TEST_F(SessionListening, NothingOfEightWritersIsMissed)
{
    constexpr int writers = 8;
    constexpr int puts = 40;
    Program alice(listening(connectionOf("alice")));
    std::mutex mutex;
    std::set<std::string> told;
    alice.session.onChange([&](std::string const&, std::string const& key) {
        std::lock_guard const lock(mutex);
        told.insert(key);
    });
    std::vector<std::future<void>> writing;
    for (int client = 1; client <= writers; ++client)
        writing.push_back(std::async(std::launch::async, [this, client] {
            Login const writer = login("alice");
            EXPECT_EQ(writer.ask(hello(client, false)).code, "");
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
}

TEST_F(SessionListening, ProgramsThatStartWhileOthersWriteMissNothing)
{
    for (int number = 1; number <= 20; ++number) {
        auto const writing = std::async(std::launch::async, [&] { Program(connectionOf("alice")).store->setInt("number", number); });
        Program alice(listening(connectionOf("alice")));
        EXPECT_TRUE(reads(alice, "number", number)) << number;
    }
}
