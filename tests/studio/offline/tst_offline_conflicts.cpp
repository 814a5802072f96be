// SPDX-License-Identifier: MIT
//
// Changes that others overtook while they waited, and changes that the server does not take.
#include "support/OfflineTest.h"

#include <studio/support/ConnectionTest.h>

#include <mutex>
#include <vector>

using namespace std::chrono_literals;

namespace {

class OfflineConflicts : public OfflineTest {
protected:
    // Has the server refuse each change of a key with the SQLSTATE: one that it stores, or one that it keeps as a loser.
    void failOn(std::string const& key, std::string const& sqlState, std::string const& table = "value") const
    {
        ask("CREATE FUNCTION public.fails() RETURNS trigger LANGUAGE plpgsql AS $$ BEGIN RAISE EXCEPTION USING ERRCODE = '" + sqlState +
            "'; END $$; CREATE TRIGGER fails BEFORE INSERT ON settings." + table + " FOR EACH ROW WHEN (NEW.key = '" + key +
            "'::bytea) EXECUTE FUNCTION public.fails()");
    }
    void failNoLonger() const { ask("SET client_min_messages = warning; DROP FUNCTION public.fails() CASCADE"); }

    // A program of the laptop's changes a value while the server is away, and ends.
    void changeWithoutServer(std::string const& key, int value)
    {
        m_server->stop();
        Program(laptop()).store->setInt(key, value);
        m_server->start();
    }

    // A laptop that has seen the value 0 changes it to 1, without the server.
    void changeOffline()
    {
        {
            Program alice(laptop());
            alice.store->setInt("number", 0);
            ASSERT_TRUE(alice.session.synchronise(60s));
        }
        changeWithoutServer("number", 1);
        ASSERT_EQ(inOutbox("SELECT count(*) FROM operation WHERE key = 'number' AND value = '1'"), "1");
    }
};

TEST_F(OfflineConflicts, EarlierIntentLosesAndIsListed)
{
    changeOffline();
    Program(connectionOf("alice")).store->setInt("number", 2);
    Program alice(laptop());
    ASSERT_TRUE(alice.session.synchronise(60s));
    EXPECT_EQ(alice.store->getInt("number", 0), 2);
    EXPECT_EQ(atServer("number"), "int 2");
    EXPECT_EQ(losers(), "number=1");
    EXPECT_EQ(alice.session.status().pending, 0U);
    EXPECT_TRUE(alice.session.status().refused.empty());
}

TEST_F(OfflineConflicts, LaterIntentWinsAndTheOtherIsListed)
{
    changeOffline();
    Program(connectionOf("alice")).store->setInt("number", 2);
    ask("UPDATE settings.value SET changed_at = changed_at - interval '1 hour'");
    Program alice(laptop());
    ASSERT_TRUE(alice.session.synchronise(60s));
    EXPECT_EQ(alice.store->getInt("number", 0), 1);
    EXPECT_EQ(atServer("number"), "int 1");
    EXPECT_EQ(losers(), "number=2");
}

TEST_F(OfflineConflicts, KnowledgeOfTheOtherValueWinsWhateverTheClocksSay)
{
    changeOffline();
    // As old as can be; but the laptop knew the value that the server has.
    OtherProgram(outbox()).execute("UPDATE operation SET uptime = 0, time_of_day = 0, boot = 'another'");
    Program alice(laptop());
    ASSERT_TRUE(alice.session.synchronise(60s));
    EXPECT_EQ(atServer("number"), "int 1");
    EXPECT_EQ(losers(), "");
}

TEST_F(OfflineConflicts, ClockThatIsSetWhileTheServerIsAwayDoesNotDecide)
{
    changeOffline();
    Program(connectionOf("alice")).store->setInt("number", 2);
    // The time of day said years ahead when the change was made.
    OtherProgram(outbox()).execute("UPDATE operation SET time_of_day = time_of_day + 300000000000");
    ASSERT_TRUE(Program(laptop()).session.synchronise(60s));
    EXPECT_EQ(atServer("number"), "int 2");
    EXPECT_EQ(losers(), "number=1");
}

TEST_F(OfflineConflicts, AgeCountsAcrossARestartOfTheWorkstation)
{
    changeOffline();
    Program(connectionOf("alice")).store->setInt("number", 2);
    // Another's change of half an hour ago against one of an hour ago, in an earlier run of the system.
    ask("UPDATE settings.value SET changed_at = changed_at - interval '30 minutes'");
    OtherProgram(outbox()).execute("UPDATE operation SET boot = 'another', uptime = 999999999999, time_of_day = time_of_day - 3600000");
    ASSERT_TRUE(Program(laptop()).session.synchronise(60s));
    EXPECT_EQ(atServer("number"), "int 2");
}

TEST_F(OfflineConflicts, KnowledgeOfAnotherHistoryCountsForNothing)
{
    changeOffline();
    EXPECT_EQ(login("ada").ask("SELECT settings.forget_user_v1('alice')").text(), "t");
    Program(connectionOf("alice")).store->setInt("number", 2);
    // The base of the laptop's change would cover the revision of this one.
    OtherProgram(outbox()).execute("UPDATE operation SET base = 1000");
    ASSERT_TRUE(Program(laptop()).session.synchronise(60s));
    EXPECT_EQ(atServer("number"), "int 2");
    EXPECT_EQ(losers(), "number=1");
}

TEST_F(OfflineConflicts, ListenerHearsOfALoser)
{
    changeOffline();
    Program(connectionOf("alice")).store->setInt("number", 2);
    failOn("number", "53100", "superseded"); // so that it waits, with the other value below it
    Program alice(laptop());
    EXPECT_TRUE(comesTrue([&] { return alice.session.status().problem.has_value(); }));
    EXPECT_EQ(alice.store->getInt("number", 0), 1);
    std::mutex mutex;
    std::vector<std::string> told;
    alice.session.onChange([&](std::string const&, std::string const& key) {
        std::lock_guard const lock(mutex);
        told.push_back(key);
    });
    failNoLonger();
    ASSERT_TRUE(alice.session.synchronise(60s));
    EXPECT_EQ(alice.store->getInt("number", 0), 2);
    EXPECT_TRUE(comesTrue([&] {
        std::lock_guard const lock(mutex);
        return !told.empty();
    }));
    alice.session.onChange({});
    EXPECT_EQ(told, std::vector<std::string>{"number"});
}

TEST_F(OfflineConflicts, PendingChangeShowsOverWhatIsFetched)
{
    Studio::Session::Options options = laptop();
    options.writeWait = 1ms;
    Program alice(options);
    failOn("number", "53100");
    alice.store->setInt("number", 1);
    Program other(connectionOf("alice"));
    other.store->setInt("other", 2);
    ASSERT_TRUE(alice.session.synchronise(60s));
    EXPECT_EQ(alice.store->getInt("other", 0), 2);
    EXPECT_EQ(alice.store->getInt("number", 0), 1);
    EXPECT_EQ(alice.session.status().pending, 1U);
    failNoLonger();
    ASSERT_TRUE(alice.session.synchronise(60s));
    EXPECT_EQ(atServer("number"), "int 1");
}

TEST_F(OfflineConflicts, ServerWithoutRoomKeepsChangesWaitingInTheirOrder)
{
    Studio::Session::Options options = laptop();
    options.writeWait = 20ms;
    Program alice(options);
    failOn("first", "53100");
    alice.store->setInt("first", 1);
    alice.store->setInt("second", 2);
    EXPECT_TRUE(comesTrue([&] { return alice.session.status().problem.has_value(); }));
    EXPECT_EQ(alice.session.status().problem->reason(), Reason::full);
    EXPECT_TRUE(alice.session.status().connected);
    EXPECT_EQ(alice.session.status().pending, 2U);
    EXPECT_EQ(atServer("second"), "");
    failNoLonger();
    EXPECT_TRUE(comesTrue([&] { return alice.session.status().pending == 0; }));
    EXPECT_EQ(atServer("first"), "int 1");
    EXPECT_EQ(atServer("second"), "int 2");
    EXPECT_TRUE(comesTrue([&] { return !alice.session.status().problem; }));
    EXPECT_TRUE(alice.session.status().refused.empty());
}

TEST_F(OfflineConflicts, KeyThatWasLockedMeanwhileIsRefusedAndBlocksNothing)
{
    give("number", "int", "5");
    changeOffline();
    changeWithoutServer("other", 2);
    give("number", "int", "5", true);
    auto const before = std::chrono::system_clock::now() - 1s;
    for (bool const isFirst : {true, false}) {
        Program alice(laptop());
        ASSERT_TRUE(alice.session.synchronise(60s));
        EXPECT_EQ(alice.store->getInt("number", 0), 5);
        Studio::Status const status = alice.session.status();
        EXPECT_EQ(status.pending, 0U);
        ASSERT_EQ(status.refused.size(), 1U) << isFirst;
        EXPECT_EQ(status.refused.front().store, "common");
        EXPECT_EQ(status.refused.front().key, "number");
        EXPECT_EQ(status.refused.front().error.reason(), Reason::locked);
        EXPECT_GE(status.refused.front().when, before);
    }
    EXPECT_EQ(atServer("other"), "int 2");
    EXPECT_EQ(atServer("number"), "int 0");
}

TEST_F(OfflineConflicts, RefusalThatComesInTimeIsThrown)
{
    Program alice(laptop());
    give("number", "int", "5", true);
    EXPECT_EQ(errorOf([&] { alice.store->setInt("number", 1); }).code(), Code::locked);
    EXPECT_TRUE(alice.session.lockOf("common", "number"));
    EXPECT_EQ(alice.store->getInt("number", 0), 5);
    EXPECT_EQ(alice.session.status().pending, 0U);
    alice.store->setInt("other", 2);
    EXPECT_EQ(atServer("other"), "int 2");
}

TEST_F(OfflineConflicts, ChangeOfAnAccountThatLostItsRoleIsRefused)
{
    Program alice(laptop());
    alice.store->setInt("number", 1);
    ask("REVOKE settings_user FROM alice");
    EXPECT_EQ(errorOf([&] { alice.store->setInt("number", 2); }).code(), Code::access);
    EXPECT_EQ(alice.store->getInt("number", 0), 1);
    ASSERT_EQ(alice.session.status().refused.size(), 1U);
    EXPECT_EQ(alice.session.status().refused.front().error.reason(), Reason::denied);
    ask("GRANT settings_user TO alice");
    alice.store->setInt("number", 3);
    EXPECT_EQ(atServer("number"), "int 3");
}

TEST_F(OfflineConflicts, ChangeThatTheServerCannotTakeIsRefusedAndItsOwnTroubleIsNot)
{
    Program alice(laptop());
    for (auto const& [sqlState, code] : std::vector<std::pair<std::string, Code>>{{"ST001", Code::tooLarge}, {"22000", Code::io}}) {
        failOn("number", sqlState);
        EXPECT_EQ(errorOf([&] { alice.store->setInt("number", 1); }).code(), code);
        EXPECT_FALSE(alice.store->contains("number"));
        failNoLonger();
    }
    EXPECT_EQ(alice.session.status().refused.size(), 2U);
    EXPECT_EQ(errorOf([&] { alice.session.store(std::string(256, 's'), alice.local)->setInt("number", 1); }).code(), Code::tooLarge);
    EXPECT_EQ(alice.session.status().refused.size(), 2U) << "what no server takes is not sent";
}

TEST_F(OfflineConflicts, TroubleOfTheServersOwnKeepsAChangeWaiting)
{
    for (std::string const sqlState : {"58030", "XX000", "55P03", "57014"}) {
        Studio::Session::Options options = laptop();
        options.writeWait = 1ms;
        Program alice(options);
        failOn("number", sqlState);
        alice.store->setString("number", sqlState);
        EXPECT_TRUE(comesTrue([&] { return alice.session.status().problem.has_value(); }));
        EXPECT_EQ(alice.session.status().pending, 1U);
        failNoLonger();
        ASSERT_TRUE(alice.session.synchronise(60s));
        EXPECT_EQ(atServer("number"), "string " + sqlState);
        EXPECT_TRUE(alice.session.status().refused.empty());
    }
}

} // namespace
