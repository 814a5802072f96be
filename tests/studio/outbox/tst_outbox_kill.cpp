// SPDX-License-Identifier: MIT
//
// A program that is killed at any step of its work with the outbox: what it was told is kept is kept, once and without holes.
#include "support/OutboxTest.h"

#include <storage/support/FaultySystem.h>
#include <storage/support/SharedMemory.h>

#include <support/Tally.h>

#include <atomic>
#include <csignal>
#include <cstdlib>

#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

class OutboxKill : public OutboxTest {
protected:
    // How far the program came: the calls that it began, and those that returned.
    struct Progress {
        std::atomic<int> begun, returned;
    };

    OutboxKill() : m_progress(new (sharedMemory(sizeof(Progress))) Progress{}) {}
    ~OutboxKill() override { ::munmap(m_progress, sizeof(Progress)); }

    void step(std::function<void()> const& work) const
    {
        ++m_progress->begun;
        work();
        ++m_progress->returned;
    }

    // Runs `work` on an open outbox in a process that is killed before the `nth` call of `function`. False where it ends before that.
    bool killed(std::string const& function, int nth, std::function<void(Outbox&)> const& work) const
    {
        m_progress->begun = m_progress->returned = 0;
        pid_t const process = ::fork();
        if (process == 0) {
            {
                Outbox outbox(file(), identity);
                FaultySystem::killBefore(function, nth);
                work(outbox);
                FaultySystem::rest();
            }
            ::_exit(0);
        }
        int status = 0;
        ::waitpid(process, &status, 0);
        EXPECT_TRUE(WIFSIGNALED(status) || WEXITSTATUS(status) == 0);
        return WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
    }

    void removeAll() const
    {
        for (char const* const suffix : {"", "-journal", "-lanes"})
            std::filesystem::remove(file().string() + suffix);
    }

    // Kills `work` before each system call that changes files, and looks at the file each time. Returns the number of kills.
    int killEverywhere(std::function<void()> const& prepare, std::function<void(Outbox&)> const& work,
                       std::function<void()> const& look) const
    {
        int kills = 0;
        for (std::string const function : {"pwrite", "fdatasync", "fsync", "ftruncate", "close", "unlink", "open"})
            for (int nth = 1;; ++nth, ++kills) {
                removeAll();
                prepare();
                bool const isKilled = killed(function, nth, work);
                look();
                if (!isKilled)
                    break;
            }
        return kills;
    }

    Progress* const m_progress;
};

TEST_F(OutboxKill, WhileAddingLosesNothingThatReturned)
{
    int const kills = killEverywhere([] {},
                                     [this](Outbox& outbox) {
                                         for (char const* const key : {"a", "b", "c"})
                                             step([&] { add(outbox, key, "x"); });
                                     },
                                     [this] {
                                         static char const* const after[] = {"", "1:a=x", "1:a=x 2:b=x", "1:a=x 2:b=x 3:c=x"};
                                         std::string const left = pending();
                                         EXPECT_TRUE(left == after[m_progress->returned] || left == after[m_progress->begun])
                                             << left << " after " << m_progress->returned;
                                     });
    EXPECT_GT(kills, 20);
    tally("A program was killed while it kept changes for a shared store", kills, 0);
}

TEST_F(OutboxKill, WhileRemovingLosesNothingButWhatWasSettled)
{
    int const kills = killEverywhere(
        [this] {
            Outbox outbox(file(), identity);
            for (char const* const key : {"a", "b", "c"})
                add(outbox, key, "x");
        },
        [this](Outbox& outbox) {
            std::vector<Operation> const operations = outbox.pending();
            outbox.settle(operations[0], "epoch", 0);
            step([&] { outbox.flush(); });
            outbox.settle(operations[1], "epoch", 0);
            step([&] { add(outbox, "d", "x"); });
        },
        [this] {
            static char const* const after[] = {"1:a=x 2:b=x 3:c=x", "2:b=x 3:c=x", "3:c=x 4:d=x"};
            std::string const left = pending();
            EXPECT_TRUE(left == after[m_progress->returned] || left == after[m_progress->begun])
                << left << " after " << m_progress->returned;
        });
    EXPECT_GT(kills, 10);
}

TEST_F(OutboxKill, WhileRefusingLeavesTheOperationInOnePlace)
{
    int const kills =
        killEverywhere([this] { addAndEnd("a", "x"); }, [](Outbox& outbox) { outbox.refuse(outbox.pending().front(), "ST003"); },
                       [this] {
                           Outbox const outbox(file(), identity);
                           EXPECT_EQ(outbox.pending().size() + outbox.refusals().size(), 1U);
                       });
    EXPECT_GT(kills, 5);
}

TEST_F(OutboxKill, WhileKeepingNewsLeavesTheOldOrTheNew)
{
    using Studio::StoredValue;
    int const kills = killEverywhere(
        [this] {
            Outbox outbox(file(), identity);
            outbox.keep(
                {"e", {Studio::LayerNews{0, 1, {{"common", "a", StoredValue{"int", "1"}, false, "", 0}}}, Studio::LayerNews{0, 1, {}}}, 1});
        },
        [](Outbox& outbox) {
            outbox.keep(
                {"f", {Studio::LayerNews{0, 2, {{"common", "a", StoredValue{"int", "2"}, false, "", 0}}}, Studio::LayerNews{0, 1, {}}}, 2});
        },
        [this] {
            Studio::News const known = Outbox(file(), identity).replica();
            ASSERT_EQ(known.layers[0].rows.size(), 1U);
            std::string const all = known.epoch + std::to_string(known.layers[0].revision) + known.layers[0].rows.front().value->bytes;
            EXPECT_TRUE(all == "e11" || all == "f22") << all;
        });
    EXPECT_GT(kills, 5);
}

} // namespace
