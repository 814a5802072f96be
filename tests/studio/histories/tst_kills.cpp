// SPDX-License-Identifier: MIT
//
// Three programs of a user write without a pause, and the server, or one of its processes, is killed. Nothing whose call had
// returned is lost, nothing is done twice, and the programs go on.
#include "support/ObservedServer.h"
#include "support/Writer.h"

#include <TestKit/TemporaryHome.h>

#include <support/Tally.h>

#include <csignal>
#include <deque>
#include <random>
#include <thread>

using namespace std::chrono_literals;

/// In several rounds, so that the long form of none takes long.
class Kills : public ObservedServer, public testing::WithParamInterface<unsigned> {
protected:
    std::vector<std::string> serverSettings() const override { return {"fsync=on"}; }

    // Starts the programs, has `kill` done at some moment, and waits until all of them have written after it.
    void whileWriting(std::function<void()> const& kill)
    {
        std::deque<Writer> writers;
        int const first = 1000000 * ++m_series;
        for (int number = 1; number <= 3; ++number)
            writers.emplace_back(connectionOf("alice"), first + 300000 * number, m_home.path() / std::to_string(first + number));
        for (Writer& writer : writers)
            awaitChanges(writer, 5);
        std::this_thread::sleep_for(std::chrono::microseconds(m_random() % 200000));
        kill();
        observe();
        for (Writer& writer : writers)
            awaitChanges(writer, writer.changes() + 5);
        for (Writer& writer : writers)
            writer.end();
        judge(writers);
    }

    static void awaitChanges(Writer const& writer, long count)
    {
        auto const end = std::chrono::steady_clock::now() + 120s;
        while (writer.changes() < count) {
            ASSERT_LT(std::chrono::steady_clock::now(), end) << "the program does not go on";
            std::this_thread::sleep_for(10ms);
        }
    }

    // What they did, and what a program that starts now sees.
    void judge(std::deque<Writer> const& writers)
    {
        Judge const judge(record());
        EXPECT_EQ(judge.flawsOfServer(), Flaws{});
        for (Writer const& writer : writers) {
            std::vector<Step> const steps = writer.steps();
            EXPECT_EQ(judge.flawsOf("alice", steps), Flaws{});
            for (Step const& step : steps)
                m_changes += step.kind == Step::Kind::changed;
        }
        Program const newcomer(connectionOf("alice"));
        for (auto const& [key, value] : lastValues())
            EXPECT_EQ(newcomer.store->getInt(key, 0), value);
    }

    std::map<std::string, int> lastValues() const
    {
        std::map<std::string, int> result;
        for (Stored const& stored : record().stored)
            result[stored.key] = stored.value.value_or(0);
        return result;
    }

    // A process of the server's that serves one of the programs.
    void killABackend()
    {
        std::string const process = ask("SELECT pid FROM pg_stat_activity WHERE usename = 'alice' ORDER BY random() LIMIT 1");
        ::kill(std::stoi(process), SIGKILL);
        while (m_observer->ask("SELECT 1").code.empty())
            std::this_thread::sleep_for(1ms);
        awaitServer();
    }

    void awaitServer() const
    {
        auto const end = std::chrono::steady_clock::now() + 120s;
        while (std::chrono::steady_clock::now() < end) {
            try {
                ask("SELECT 1");
                return;
            } catch (std::runtime_error const&) {
                std::this_thread::sleep_for(20ms);
            }
        }
        FAIL() << m_server->log();
    }

    void killServer()
    {
        m_observer.reset();
        m_server->kill();
        m_server->start();
    }

    using Flaws = std::vector<std::string>;

    TestKit::TemporaryHome m_home;
    std::minstd_rand m_random{seed() + GetParam()};
    int m_series = 0;
    long long m_changes = 0;
};

TEST_P(Kills, OfAServersProcessLoseNothing)
{
    int const kills = times(1, 5, 25);
    for (int kill = 0; kill < kills; ++kill)
        whileWriting([this] { killABackend(); });
    EXPECT_GE(m_changes, 30 * kills);
    tally("The server's process of one of three writers was killed", kills, 0);
}

TEST_P(Kills, OfTheWholeServerLoseNothing)
{
    int const kills = times(1, 5, 25);
    for (int kill = 0; kill < kills; ++kill)
        whileWriting([this] { killServer(); });
    EXPECT_GE(m_changes, 30 * kills);
    tally("The server of three writers was killed", kills, 0);
}

INSTANTIATE_TEST_SUITE_P(Rounds, Kills, testing::Range(0u, 2u));
