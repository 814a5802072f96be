// SPDX-License-Identifier: MIT
//
// Lanes of programs that live, that ended and that were killed: which of them the next program adopts.
#include "support/OutboxTest.h"
#include "support/Victim.h"

#include <storage/support/SharedMemory.h>

#include <Studio/outbox/LaneLocks.h>

#include <atomic>
#include <chrono>
#include <memory>
#include <optional>
#include <set>
#include <thread>

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

using namespace std::chrono_literals;

namespace {

using Studio::LaneLocks;

class Lanes : public OutboxTest {
protected:
    // A program that opens the outbox, adds a text, stays for as long as `stay` takes and is killed.
    void addAndDie(
        std::string const& key, std::string const& text, std::function<void()> const& stay = [] {}) const
    {
        std::unique_ptr<Outbox> outbox;
        Victim([&] {
            outbox = std::make_unique<Outbox>(file(), identity);
            add(*outbox, key, text);
            stay();
        });
    }
};

TEST_F(Lanes, ProgramThatLivesKeepsItsLane)
{
    Outbox first(file(), identity);
    add(first, "a", "1");
    Outbox second(file(), identity);
    EXPECT_EQ(text(second.pending()), "");
    EXPECT_NE(add(second, "b", "2").lane, add(first, "c", "3").lane);
    EXPECT_EQ(text(first.pending()), "1:a=1 2:c=3");
    EXPECT_EQ(text(second.pending()), "1:b=2");
}

TEST_F(Lanes, OperationsOfAllLanesAreInTheOrderOfTheirMaking)
{
    {
        Outbox first(file(), identity);
        Outbox second(file(), identity);
        add(first, "a", "1");
        add(second, "b", "2");
        add(first, "c", "3");
        add(second, "d", "4");
    }
    EXPECT_EQ(pending(), "1:a=1 1:b=2 2:c=3 2:d=4");
}

TEST_F(Lanes, LaneOfAKilledProgramIsAdopted)
{
    addAndDie("a", "1");
    Outbox outbox(file(), identity);
    EXPECT_EQ(text(outbox.pending()), "1:a=1");
    EXPECT_EQ(add(outbox, "b", "2").lane, outbox.pending().front().lane);
    EXPECT_EQ(text(outbox.pending()), "1:a=1 2:b=2");
}

TEST_F(Lanes, LaneOfALivingProcessIsNotAdopted)
{
    Victim const victim([this] { add(*new Outbox(file(), identity), "a", "1"); });
    EXPECT_EQ(pending(), "");
}

TEST_F(Lanes, ManyProgramsThatStartAtOnceAdoptEachLaneOnce)
{
    constexpr int programs = 8;
    for (char const* const key : {"a", "b", "c"}) {
        Victim const other([this] { new Outbox(file(), identity); });
        addAndDie(key, "text");
    }
    struct Counts {
        std::atomic<int> ready, opened, operations;
    };
    auto* const counts = new (sharedMemory(sizeof(Counts))) Counts{};
    auto const meet = [](std::atomic<int>& count) {
        for (++count; count < programs;)
            std::this_thread::sleep_for(1ms);
    };
    std::vector<std::unique_ptr<Child>> children;
    for (int program = 0; program < programs; ++program)
        children.push_back(std::make_unique<Child>([&]() -> std::string {
            meet(counts->ready);
            Outbox outbox(file(), identity);
            counts->operations += static_cast<int>(outbox.pending().size());
            meet(counts->opened); // all have it open at once
            return std::to_string(add(outbox, "d", "4").lane);
        }));
    std::set<std::string> lanes;
    for (auto const& child : children)
        lanes.insert(child->answer());
    EXPECT_EQ(counts->operations, 3);
    EXPECT_EQ(lanes.size(), 8U);
    ::munmap(counts, sizeof(Counts));
}

TEST_F(Lanes, ManyProgramsThatStartAtOnceMoveADamagedFileAsideOnce)
{
    for (int round = 0; round < 10; ++round) {
        std::ofstream(file(), std::ios::trunc) << "no outbox";
        std::filesystem::permissions(file(), std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
        std::vector<std::unique_ptr<Child>> children;
        for (char const* const key : {"a", "b", "c", "d"})
            children.push_back(std::make_unique<Child>([this, key]() -> std::string {
                addAndEnd(key, "text");
                return "added";
            }));
        for (auto const& child : children)
            EXPECT_EQ(child->answer(), "added");
        Outbox const outbox(file(), identity);
        EXPECT_EQ(outbox.pending().size(), 4U);
        ASSERT_EQ(outbox.damaged().size(), static_cast<std::size_t>(round) + 1);
    }
}

TEST_F(Lanes, ChildOfAKilledProgramDoesNotKeepItsLane)
{
    auto* const child = new (sharedMemory(sizeof(std::atomic<pid_t>))) std::atomic<pid_t>{0};
    addAndDie("a", "1", [&] {
        if (pid_t const forked = ::fork(); forked == 0) {
            *child = ::getpid();
            for (;;)
                ::pause();
        }
        while (*child == 0)
            std::this_thread::sleep_for(1ms);
    });
    EXPECT_EQ(::kill(*child, 0), 0);
    EXPECT_EQ(pending(), "1:a=1");
    EXPECT_EQ(::kill(*child, SIGKILL), 0);
    ::munmap(child, sizeof(std::atomic<pid_t>));
}

TEST_F(Lanes, ForkedChildIsRefusedAndLeavesTheOutboxAlone)
{
    Outbox outbox(file(), identity);
    add(outbox, "a", "1");
    std::string const answer = inChild([&] {
        std::string codes;
        for (auto const& call : std::vector<std::function<void()>>{[&] { add(outbox, "b", "2"); }, [&] { outbox.pending(); },
                                                                   [&] { outbox.flush(); }, [&] { Outbox(file(), identity); }})
            codes += errorOf(call).code() == Code::forked ? "forked " : "other ";
        return codes;
    });
    EXPECT_EQ(answer, "forked forked forked forked ");
    EXPECT_EQ(add(outbox, "b", "2").number, 2);
    EXPECT_EQ(pending(), "") << "the lane is no longer its program's";
}

TEST_F(Lanes, OperationsOfAnEarlierRunOfTheSystemKeepTheirNumbersAndNewOnesHaveTheirOwn)
{
    addAndEnd("a", "1");
    OtherProgram(file()).execute("UPDATE lane SET boot = 'an earlier one', client = 'old'");
    {
        Outbox outbox(file(), identity);
        Operation const added = add(outbox, "b", "2");
        EXPECT_EQ(text(outbox.pending()), "1:a=1 1:b=2");
        EXPECT_EQ(outbox.client(outbox.pending().front().lane), "old");
        EXPECT_NE(outbox.client(added.lane), "old");
        outbox.settle(outbox.pending().front(), "epoch", 0);
        outbox.flush();
    }
    EXPECT_EQ(pending(), "1:b=2");
    EXPECT_EQ(OtherProgram(file()).ask("SELECT count(*) FROM lane"), "1");
}

TEST_F(Lanes, LaneWithoutOperationsIsNotContinuedInAnotherRunOfTheSystem)
{
    {
        Outbox(file(), identity);
    }
    OtherProgram(file()).execute("UPDATE lane SET boot = 'an earlier one', client = 'old', last = 7");
    Outbox outbox(file(), identity);
    Operation const added = add(outbox, "a", "1");
    EXPECT_EQ(added.number, 1);
    EXPECT_NE(outbox.client(added.lane), "old");
}

TEST_F(Lanes, FileThatTakesThePlaceOfARemovedOneSharesNoLaneWithIt)
{
    Outbox removed(file(), identity);
    std::filesystem::remove(file());
    Outbox outbox(file(), identity);
    EXPECT_NE(add(outbox, "a", "1").lane, 1);
    EXPECT_EQ(errorOf([&] { add(removed, "b", "2"); }).code(), Code::access);
}

TEST_F(Lanes, LockIsKeptThoughOtherCodeOpensAndClosesTheFile)
{
    std::filesystem::path const path = m_home.path() / "locks";
    LaneLocks mine(path);
    LaneLocks other(path);
    EXPECT_TRUE(mine.tryLock(1));
    ::close(::open(path.c_str(), O_RDWR | O_CLOEXEC));
    EXPECT_FALSE(other.tryLock(1));
    EXPECT_TRUE(other.tryLock(2));
    EXPECT_FALSE(other.tryLockAll());
    mine.unlock(1);
    EXPECT_TRUE(other.tryLock(1));
    other.unlock(1);
    other.unlock(2);
    EXPECT_TRUE(mine.tryLockAll());
    EXPECT_FALSE(other.tryLock(1000000));
    mine.unlockAll();
    EXPECT_TRUE(other.tryLock(1000000));
}

TEST_F(Lanes, OpeningIsWaitedFor)
{
    std::filesystem::path const path = m_home.path() / "locks";
    std::optional<LaneLocks> mine(std::in_place, path);
    LaneLocks other(path);
    mine->lockOpening(0ms);
    EXPECT_EQ(errorOf([&] { other.lockOpening(20ms); }).code(), Code::busy);
    std::thread ends([&] {
        std::this_thread::sleep_for(20ms);
        mine.reset();
    });
    other.lockOpening(60s);
    ends.join();
}

} // namespace
