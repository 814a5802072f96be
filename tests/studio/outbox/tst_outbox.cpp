// SPDX-License-Identifier: MIT
//
// The changes that wait to be sent, and those that were refused.
#include "support/OutboxTest.h"

#include <atomic>
#include <set>
#include <thread>

using namespace std::string_literals;

namespace {

using Studio::StoredValue;

class OutboxFileOfAProgram : public OutboxTest {};

TEST_F(OutboxFileOfAProgram, NewOneIsEmptyAndThisUsersAlone)
{
    Outbox const outbox(file(), identity);
    EXPECT_EQ(text(outbox.pending()), "");
    EXPECT_TRUE(outbox.refusals().empty());
    EXPECT_TRUE(outbox.damaged().empty());
    EXPECT_EQ(outbox.file(), file());
    EXPECT_EQ(mode(file()), 0600U);
    EXPECT_EQ(mode(file().string() + "-lanes"), 0600U);
}

TEST_F(OutboxFileOfAProgram, OperationsAreNumberedUpwardsFromOne)
{
    Outbox outbox(file(), identity);
    Operation const first = add(outbox, "a", "1");
    Operation const second = outbox.append("common", "a", std::nullopt, "epoch", 0);
    EXPECT_EQ(first.number, 1);
    EXPECT_EQ(second.number, 2);
    EXPECT_EQ(first.lane, second.lane);
    EXPECT_LT(first.sequence, second.sequence);
    EXPECT_EQ(text(outbox.pending()), "1:a=1 2:a");
}

TEST_F(OutboxFileOfAProgram, OperationIsReadBackWhole)
{
    std::string const key = "\0k\xFF"s;
    std::string const value = "\0v\xFE"s + std::string(100000, 'x');
    Operation added;
    {
        Outbox outbox(file(), identity);
        added = outbox.append("product", key, StoredValue{"bytes", value}, "the epoch", 42);
    }
    Outbox const outbox(file(), identity);
    ASSERT_EQ(outbox.pending().size(), 1U);
    Operation const read = outbox.pending().front();
    EXPECT_EQ(read.store, "product");
    EXPECT_EQ(read.key, key);
    ASSERT_TRUE(read.value);
    EXPECT_EQ(read.value->kind, "bytes");
    EXPECT_EQ(read.value->bytes, value);
    EXPECT_EQ(read.epoch, "the epoch");
    EXPECT_EQ(read.base, 42);
    EXPECT_EQ(read.sequence, added.sequence);
    EXPECT_EQ(read.number, 1);
    EXPECT_EQ(read.written.boot, added.written.boot);
    EXPECT_EQ(read.written.uptime, added.written.uptime);
    EXPECT_EQ(read.written.timeOfDay, added.written.timeOfDay);
}

TEST_F(OutboxFileOfAProgram, EmptyValueIsNoRemoval)
{
    addAndEnd("a", "");
    EXPECT_EQ(pending(), "1:a=");
}

TEST_F(OutboxFileOfAProgram, SettledOperationIsGoneAfterTheNextChange)
{
    Outbox outbox(file(), identity);
    Operation const first = add(outbox, "a", "1");
    outbox.settle(first, "epoch", 0);
    add(outbox, "b", "2");
    EXPECT_EQ(text(outbox.pending()), "2:b=2");
}

TEST_F(OutboxFileOfAProgram, FlushRemovesWhatIsSettledAtOnce)
{
    Outbox outbox(file(), identity);
    outbox.settle(add(outbox, "a", "1"), "epoch", 0);
    outbox.flush();
    outbox.flush();
    EXPECT_EQ(text(outbox.pending()), "");
}

TEST_F(OutboxFileOfAProgram, OperationThatIsSettledButNotRemovedIsSentAgain)
{
    {
        Outbox outbox(file(), identity);
        outbox.settle(add(outbox, "a", "1"), "epoch", 0);
    }
    EXPECT_EQ(pending(), "1:a=1");
}

TEST_F(OutboxFileOfAProgram, NumbersGoOnAfterAllOperationsAreGone)
{
    std::string client;
    {
        Outbox outbox(file(), identity);
        Operation const first = add(outbox, "a", "1");
        client = outbox.client(first.lane);
        outbox.settle(first, "epoch", 0);
        outbox.flush();
    }
    Outbox outbox(file(), identity);
    Operation const second = add(outbox, "a", "2");
    EXPECT_EQ(second.number, 2);
    EXPECT_EQ(outbox.client(second.lane), client);
}

TEST_F(OutboxFileOfAProgram, ClientIsNamedByAUuidOfItsOwn)
{
    Outbox one(file(), identity);
    Outbox other(file(), identity);
    std::string const name = one.client(add(one, "a", "1").lane);
    EXPECT_EQ(name.size(), 36U);
    EXPECT_NE(name, other.client(add(other, "a", "1").lane));
}

TEST_F(OutboxFileOfAProgram, LaneKeepsItsNameWhileTheServerKnowsNoMoreThanItGaveOut)
{
    Outbox outbox(file(), identity);
    Operation const operation = add(outbox, "a", "1");
    std::string const name = outbox.client(operation.lane);
    EXPECT_EQ(outbox.client(operation.lane, 0), name);
    EXPECT_EQ(outbox.client(operation.lane, 1), name);
    EXPECT_EQ(outbox.client(operation.lane), name);
}

TEST_F(OutboxFileOfAProgram, LaneOfAFileThatWasBroughtBackGetsANewName)
{
    std::string name;
    {
        Outbox outbox(file(), identity);
        Operation const operation = add(outbox, "a", "1");
        std::string const old = outbox.client(operation.lane);
        name = outbox.client(operation.lane, 2);
        EXPECT_NE(name, old);
        EXPECT_EQ(outbox.client(operation.lane), name);
        EXPECT_EQ(text(outbox.pending()), "1:a=1");
    }
    Outbox outbox(file(), identity);
    EXPECT_EQ(outbox.client(add(outbox, "b", "2").lane), name);
}

TEST_F(OutboxFileOfAProgram, RefusedOperationIsMovedToTheRefusals)
{
    auto const before = Studio::Moment::now().timeOfDay;
    {
        Outbox outbox(file(), identity);
        Operation const first = add(outbox, "locked", "secret");
        add(outbox, "b", "2");
        outbox.refuse(first, "ST003");
        EXPECT_EQ(text(outbox.pending()), "2:b=2");
    }
    Outbox const outbox(file(), identity);
    ASSERT_EQ(outbox.refusals().size(), 1U);
    Outbox::Refusal const refusal = outbox.refusals().front();
    EXPECT_EQ(refusal.store, "common");
    EXPECT_EQ(refusal.key, "locked");
    EXPECT_EQ(refusal.sqlState, "ST003");
    EXPECT_GE(refusal.refused, before);
    EXPECT_EQ(text(outbox.pending()), "2:b=2");
    // The value stays in the file, for support.
    EXPECT_EQ(OtherProgram(file()).ask("SELECT value FROM refusal"), "secret");
}

TEST_F(OutboxFileOfAProgram, RefusalIsForgottenOnceTheServerStoresAnotherChangeOfItsKey)
{
    Outbox outbox(file(), identity);
    outbox.refuse(add(outbox, "a", "1"), "ST003");
    outbox.refuse(add(outbox, "b", "1"), "ST003");
    auto const refused = [&] {
        outbox.tidy();
        std::string keys;
        for (Outbox::Refusal const& refusal : outbox.refusals())
            keys += refusal.key;
        return keys;
    };
    outbox.settle(add(outbox, "a", "2"), "epoch", 0);
    EXPECT_EQ(refused(), "ab") << "another change holds there";
    outbox.settle(add(outbox, "a", "3"), "epoch", 7);
    EXPECT_EQ(refused(), "b");
    EXPECT_EQ(text(outbox.pending()), "") << "what is answered goes at once";
}

TEST_F(OutboxFileOfAProgram, OldestRefusalGoesWhereThereAreTooMany)
{
    Outbox outbox(file(), identity);
    for (int number = 0; number <= 100; ++number)
        outbox.refuse(add(outbox, std::to_string(number), ""), "ST001");
    std::vector<Outbox::Refusal> const refusals = outbox.refusals();
    ASSERT_EQ(refusals.size(), 100U);
    EXPECT_EQ(refusals.front().key, "1");
    EXPECT_EQ(refusals.back().key, "100");
}

TEST_F(OutboxFileOfAProgram, ThreadsAddWithoutHolesOrDoubles)
{
    Outbox outbox(file(), identity);
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 4; ++thread)
        threads.emplace_back([&] {
            for (int count = 0; count < 10; ++count)
                add(outbox, "key", "text");
        });
    for (std::thread& thread : threads)
        thread.join();
    std::int64_t expected = 0;
    for (Operation const& operation : outbox.pending())
        EXPECT_EQ(operation.number, ++expected);
    EXPECT_EQ(expected, 40);
}

TEST_F(OutboxFileOfAProgram, FileOfAnotherServerOrUserIsRefusedAndLeftAsItIs)
{
    addAndEnd("a", "1");
    std::string const before = content(file());
    Storage::StorageError const error = errorOf([&] { Outbox(file(), "host=other.example\n"); });
    EXPECT_EQ(error.code(), Code::foreign);
    EXPECT_EQ(error.reason(), "it belongs to another server or user");
    EXPECT_EQ(content(file()), before);
}

} // namespace
