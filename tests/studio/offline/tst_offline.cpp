// SPDX-License-Identifier: MIT
//
// Changes that are made without the server, and programs that start without it.
#include "support/OfflineTest.h"

#include <studio/support/ConnectionTest.h>

#include <atomic>
#include <thread>
#include <vector>

using namespace std::chrono_literals;

namespace {

class Offline : public OfflineTest {};

TEST_F(Offline, ChangeIsKeptAndShown)
{
    m_server->stop();
    Program alice(laptop());
    alice.store->setInt("number", 7);
    alice.store->setString("text", "here");
    alice.store->remove("text");
    EXPECT_EQ(alice.store->getInt("number", 0), 7);
    EXPECT_FALSE(alice.store->contains("text"));
    Studio::Status const status = alice.session.status();
    EXPECT_FALSE(status.connected);
    EXPECT_EQ(status.pending, 3U);
    EXPECT_EQ(status.outbox, outbox());
    EXPECT_TRUE(status.obstacles.empty());
    EXPECT_FALSE(status.asOf);
    ASSERT_TRUE(status.problem);
    EXPECT_EQ(status.problem->reason(), Reason::unreachable);
}

TEST_F(Offline, ConnectedChangeIsOnTheServerWhenTheCallReturns)
{
    Program alice(laptop());
    alice.store->setInt("number", 7);
    EXPECT_EQ(atServer("number"), "int 7");
    EXPECT_EQ(alice.session.status().pending, 0U);
}

TEST_F(Offline, ChangesArriveInTheirOrderAndOnceWhenTheServerIsBack)
{
    m_server->stop();
    Program alice(laptop());
    for (int number = 1; number <= 20; ++number)
        alice.store->setInt("number", number);
    alice.store->setBytes("bytes", {0, 255});
    alice.store->setBool("flag", true);
    alice.store->remove("flag");
    m_server->start();
    ASSERT_TRUE(alice.session.synchronise(60s));
    EXPECT_EQ(atServer("number"), "int 20");
    EXPECT_EQ(atServer("bytes"), "bytes \\000\\377");
    EXPECT_EQ(atServer("flag"), "");
    EXPECT_EQ(stored(), "23");
    EXPECT_EQ(losers(), "");
    EXPECT_EQ(alice.session.status().pending, 0U);
    EXPECT_EQ(alice.store->getInt("number", 0), 20);
    ASSERT_TRUE(alice.session.synchronise(60s));
    EXPECT_EQ(stored(), "23");
}

TEST_F(Offline, ChangesAreSentWithoutBeingAskedFor)
{
    m_server->stop();
    Program alice(laptop());
    alice.store->setInt("number", 7);
    m_server->start();
    EXPECT_TRUE(comesTrue([&] { return alice.session.status().pending == 0; }));
    EXPECT_EQ(atServer("number"), "int 7");
}

TEST_F(Offline, ChangesOfAnEndedProgramAreSentByTheNextOne)
{
    m_server->stop();
    {
        Program alice(laptop());
        alice.store->setInt("number", 1);
        alice.store->setInt("number", 2);
        alice.store->setInt("other", 3);
    }
    {
        Program alice(laptop());
        EXPECT_EQ(alice.store->getInt("number", 0), 2);
        EXPECT_EQ(alice.session.status().pending, 3U);
        alice.store->setInt("number", 4);
    }
    m_server->start();
    Program alice(laptop());
    ASSERT_TRUE(alice.session.synchronise(60s));
    EXPECT_EQ(atServer("number"), "int 4");
    EXPECT_EQ(atServer("other"), "int 3");
    EXPECT_EQ(stored(), "4");
}

TEST_F(Offline, NumbersGoOnSoThatNoLaterChangeIsTakenForAnEarlierOne)
{
    for (int number = 1; number <= 3; ++number)
        Program(laptop()).store->setInt("number", number);
    EXPECT_EQ(atServer("number"), "int 3");
    EXPECT_EQ(stored(), "3");
    EXPECT_EQ(ask("SELECT count(*) FROM settings.client"), "1") << "the server keeps a row for each lane, not for each start";
}

TEST_F(Offline, ProgramStartsWithWhatTheLastOneKnew)
{
    give("given", "int", "1");
    give("locked", "int", "2", true);
    std::optional<std::chrono::system_clock::time_point> asOf;
    {
        Program alice(laptop());
        alice.store->setInt("number", 7);
        alice.store->setString("text", "there");
        ASSERT_TRUE(alice.session.synchronise(60s));
        asOf = alice.session.status().asOf;
    }
    m_server->stop();
    Program alice(laptop());
    EXPECT_EQ(alice.store->getInt("number", 0), 7);
    EXPECT_EQ(alice.store->getString("text", ""), "there");
    EXPECT_EQ(alice.store->getInt("given", 0), 1);
    EXPECT_EQ(alice.store->getInt("locked", 0), 2);
    ASSERT_TRUE(alice.session.lockOf("common", "locked"));
    EXPECT_EQ(alice.session.lockOf("common", "locked")->by, "ada");
    EXPECT_EQ(errorOf([&] { alice.store->setInt("locked", 3); }).code(), Code::locked);
    ASSERT_TRUE(alice.session.status().asOf);
    EXPECT_LE(*alice.session.status().asOf, *asOf);
    EXPECT_GE(*alice.session.status().asOf, *asOf - 1min);
}

TEST_F(Offline, StartAsksOnlyForWhatIsNew)
{
    {
        Program alice(laptop());
        alice.store->setInt("kept", 1);
        alice.store->setInt("gone", 2);
        ASSERT_TRUE(alice.session.synchronise(60s));
    }
    Program(connectionOf("alice")).store->remove("gone");
    Program(connectionOf("alice")).store->setInt("new", 3);
    // A row that is not new, and changed behind the server's back: a program that asks for all would see it.
    ask("UPDATE settings.value SET value = '9' WHERE key = 'kept'");
    Program alice(laptop());
    EXPECT_EQ(alice.store->getInt("kept", 0), 1);
    EXPECT_FALSE(alice.store->contains("gone"));
    EXPECT_EQ(alice.store->getInt("new", 0), 3);
}

TEST_F(Offline, WhatTheServerHasOfThisProgramIsKnownAtTheNextStart)
{
    {
        Program alice(laptop());
        alice.store->setInt("number", 1);
        ASSERT_TRUE(alice.session.synchronise(60s));
        alice.store->setInt("number", 2); // the replica hears of it by the answer alone
    }
    m_server->stop();
    EXPECT_EQ(Program(laptop()).store->getInt("number", 0), 2);
}

TEST_F(Offline, ReadsOfAllThreadsShowAChangeOnceItsCallReturnsAndNeverGoBack)
{
    Studio::Session::Options options = laptop();
    options.pollWait = 1ms;
    options.writeWait = 2ms; // some calls return before the server has the change, and some after
    Program alice(options);
    std::atomic<int> returned = 0;
    std::atomic<int> wrong = 0;
    std::atomic<bool> ends = false;
    std::vector<std::thread> readers;
    for (int reader = 0; reader < 3; ++reader)
        readers.emplace_back([&] {
            for (int last = 0; !ends;) {
                int const least = std::max(last, returned.load());
                last = alice.store->getInt("number", 0);
                wrong += last < least ? 1 : 0;
            }
        });
    for (int number = 1; number <= 100; ++number) {
        alice.store->setInt("number", number);
        returned = number;
    }
    EXPECT_TRUE(comesTrue([&] { return alice.session.status().pending == 0; }));
    ends = true;
    for (std::thread& reader : readers)
        reader.join();
    EXPECT_EQ(wrong, 0);
    EXPECT_EQ(atServer("number"), "int 100");
    EXPECT_EQ(stored(), "100");
}

TEST_F(Offline, TwoProgramsOfOneUserShareTheOutbox)
{
    m_server->stop();
    Program first(laptop());
    Program second(laptop());
    first.store->setInt("first", 1);
    second.store->setInt("second", 2);
    first.store->setInt("both", 3);
    std::this_thread::sleep_for(2s); // ages are as exact as a change is quick on its way
    second.store->setInt("both", 4);
    EXPECT_EQ(first.session.status().pending, 2U);
    EXPECT_EQ(second.session.status().pending, 2U);
    m_server->start();
    ASSERT_TRUE(second.session.synchronise(60s));
    ASSERT_TRUE(first.session.synchronise(60s));
    EXPECT_EQ(atServer("first"), "int 1");
    EXPECT_EQ(atServer("second"), "int 2");
    EXPECT_EQ(atServer("both"), "int 4") << "the later change, whichever came first";
    ASSERT_TRUE(first.session.synchronise(60s));
    EXPECT_EQ(first.store->getInt("both", 0), 4);
    EXPECT_EQ(first.store->getInt("second", 0), 2);
    EXPECT_EQ(losers(), "both=3");
}

TEST_F(Offline, ServersAndUsersDoNotMix)
{
    Program(laptop()).store->setInt("number", 7);
    Program const bob(keeping(connectionOf("bob"), folder()));
    EXPECT_FALSE(bob.store->contains("number"));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder()), {}), 6) << "two outboxes, each with locks and a journal";
}

TEST_F(Offline, ChangeFromTheListenerIsKeptAndSent)
{
    Program alice(laptop());
    std::atomic<int> calls = 0;
    alice.session.onChange([&](std::string const&, std::string const& key) {
        alice.store->setString("echo", key);
        ++calls;
    });
    Program(connectionOf("alice")).store->setInt("number", 1);
    ASSERT_TRUE(alice.session.synchronise(60s));
    EXPECT_TRUE(comesTrue([&] { return atServer("echo") == "string number"; }));
    alice.session.onChange({});
    EXPECT_EQ(calls, 1);
}

TEST_F(Offline, NothingIsKeptWhereTheHostWantsNone)
{
    Studio::Session::Options options = laptop();
    options.worksOffline = false;
    m_server->stop();
    Program alice(options);
    EXPECT_EQ(errorOf([&] { alice.store->setInt("number", 7); }).code(), Code::unreachable);
    EXPECT_FALSE(alice.session.status().outbox);
    EXPECT_FALSE(std::filesystem::exists(folder()));
}

} // namespace
