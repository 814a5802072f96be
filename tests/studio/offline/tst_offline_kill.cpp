// SPDX-License-Identifier: MIT
//
// A program is killed at whatever moment of its changes: none that returned is lost, none is done twice, and none is skipped.
#include "support/OfflineTest.h"

#include <storage/support/MemoryFolder.h>
#include <storage/support/SharedMemory.h>

#include <support/Tally.h>

#include <atomic>
#include <csignal>
#include <random>
#include <set>
#include <thread>

#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace std::chrono_literals;

namespace {

/// Change N sets key N to N.
class OfflineKill : public OfflineTest, public testing::WithParamInterface<unsigned> {
protected:
    struct Progress {
        std::atomic<int> begun, returned;
    };

    OfflineKill() : m_progress(new (sharedMemory(sizeof(Progress))) Progress{}) {}
    ~OfflineKill() override { ::munmap(m_progress, sizeof(Progress)); }

    Studio::Session::Options laptop() const
    {
        Studio::Session::Options options = keeping(connectionOf("alice"), m_folder.path());
        options.startWait = options.firstWait = 200ms;
        options.writeWait = 20ms;
        options.connectWait = options.statementWait = 2s;
        return options;
    }

    // A process that changes without pause. From its first new change on it has the server for some time, and is killed some time later.
    void killWhileChanging(std::chrono::microseconds withServer, std::chrono::microseconds without)
    {
        int const before = m_progress->begun;
        pid_t const process = ::fork();
        if (process == 0) {
            try {
                Program alice(laptop());
                for (int number = before + 1;; ++number) {
                    m_progress->begun = number;
                    alice.store->setInt(std::to_string(number), number);
                    m_progress->returned = number;
                }
            } catch (std::exception const& error) {
                std::fputs(error.what(), stderr);
            }
            ::_exit(1);
        }
        EXPECT_TRUE(comesTrue([&] { return m_progress->begun > before || ::waitpid(process, nullptr, WNOHANG) > 0; }));
        std::this_thread::sleep_for(withServer);
        if (without > 0us)
            m_server->halt();
        std::this_thread::sleep_for(without);
        ::kill(process, SIGKILL);
        ::waitpid(process, nullptr, 0);
        m_server->goOn(); // and it does what it was sent before
        // Whether the change at which it was killed is kept shows at the next start; the next process makes the one after it.
        if (m_progress->returned < m_progress->begun)
            m_begunAtKills.insert(m_progress->begun);
    }

    // Each change that returned is there, and of the others only those at which a process was killed.
    void expectAllOnce()
    {
        Program alice(laptop());
        ASSERT_TRUE(comesTrue([&] { return alice.session.synchronise(60s) && alice.session.status().pending == 0; }));
        int there = 0;
        for (int number = 1; number <= m_progress->begun; ++number) {
            bool const isThere = atServer(std::to_string(number)) == "int " + std::to_string(number);
            EXPECT_TRUE(isThere || m_begunAtKills.count(number) > 0) << number << " is lost";
            there += isThere ? 1 : 0;
        }
        EXPECT_EQ(stored(), std::to_string(there)) << "each was stored once";
        EXPECT_EQ(ask("SELECT count(*) FROM settings.value"), std::to_string(there));
        EXPECT_EQ(losers(), "");
    }

    Progress* const m_progress;
    MemoryFolder m_folder;
    std::set<int> m_begunAtKills;
    std::minstd_rand m_random{seed() + GetParam()};
};

TEST_P(OfflineKill, AtAnyMomentLosesNothingDoublesNothingAndLeavesNoHole)
{
    int const kills = times(9, 30, 250);
    for (int kill = 0; kill < kills; ++kill) {
        // A third of the processes with the server, a third that lose it on the way, and a third that never find it.
        if (kill % 3 == 2)
            m_server->halt();
        killWhileChanging(std::chrono::microseconds(m_random() % 30000), std::chrono::microseconds(kill % 3 == 1 ? m_random() % 30000 : 0));
    }
    expectAllOnce();
    EXPECT_GT(m_progress->returned, 0);
    tally("A program that changes settings of a shared store was killed", kills, 0);
}

INSTANTIATE_TEST_SUITE_P(Rounds, OfflineKill, testing::Range(0u, 4u));

} // namespace
