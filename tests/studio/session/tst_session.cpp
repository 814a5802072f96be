// SPDX-License-Identifier: MIT
#include "support/SessionTest.h"

using namespace std::chrono_literals;
using namespace std::string_literals;

class Session : public SessionTest {};

TEST_F(Session, RoamingKeyIsOnTheServerWhenTheCallReturns)
{
    Program alice(connectionOf("alice"));
    alice.store->setInt("number", -7);
    EXPECT_EQ(atServer("number"), "int -7");
    alice.store->setBool("flag", true);
    EXPECT_EQ(atServer("flag"), "bool true");
    alice.store->setString("text", "plain");
    EXPECT_EQ(atServer("text"), "string plain");
    alice.store->setBytes("bytes", {'a', 0, 'b'});
    EXPECT_EQ(atServer("bytes"), "bytes a\\000b");
    alice.store->remove("number");
    EXPECT_EQ(atServer("number"), "");
    EXPECT_TRUE(alice.local->values().empty());
}

TEST_F(Session, OtherKeysStayOnTheWorkstation)
{
    Program alice(connectionOf("alice"));
    alice.store->setInt("local number", 7);
    EXPECT_EQ(alice.local->getInt("local number", 0), 7);
    EXPECT_EQ(alice.store->getInt("local number", 0), 7);
    EXPECT_TRUE(alice.store->contains("local number"));
    alice.store->remove("local number");
    EXPECT_FALSE(alice.local->contains("local number"));
    alice.store->setBool("local flag", true);
    alice.store->setString("local text", "here");
    alice.store->setBytes("local bytes", {1});
    EXPECT_TRUE(alice.store->getBool("local flag", false));
    EXPECT_EQ(alice.store->getString("local text", ""), "here");
    EXPECT_EQ(alice.store->getBytes("local bytes", {}), (std::vector<unsigned char>{1}));
    EXPECT_EQ(alice.local->values().size(), 3U);
    EXPECT_EQ(ask("SELECT count(*) FROM settings.value"), "0");
}

TEST_F(Session, NoKeyRoamsWhereTheHostSaysNone)
{
    Studio::Session session({connectionOf("alice"), {}});
    auto const local = std::make_shared<TestKit::MemoryStorage>();
    session.store("common", local)->setInt("number", 7);
    EXPECT_EQ(local->getInt("number", 0), 7);
}

TEST_F(Session, StoresAndUsersAreApart)
{
    Program alice(connectionOf("alice"));
    alice.store->setInt("number", 7);
    EXPECT_FALSE(alice.session.store("product", alice.local)->contains("number"));
    Program bob(connectionOf("bob"));
    EXPECT_FALSE(bob.store->contains("number"));
}

TEST_F(Session, ChangeOfAnotherProgramIsSeenAfterSynchronising)
{
    Program first(connectionOf("alice"));
    Program second(connectionOf("alice"));
    first.store->setInt("number", 7);
    EXPECT_EQ(second.store->getInt("number", 0), 0);
    ASSERT_TRUE(second.session.synchronise(60s));
    EXPECT_EQ(second.store->getInt("number", 0), 7);
    first.store->remove("number");
    ASSERT_TRUE(second.session.synchronise(60s));
    EXPECT_FALSE(second.store->contains("number"));
}

TEST_F(Session, NewProgramKnowsEarlierChanges)
{
    Program(connectionOf("alice")).store->setString("text", "from before");
    EXPECT_EQ(Program(connectionOf("alice")).store->getString("text", ""), "from before");
}

TEST_F(Session, StudiosValueStandsBehindTheUsersOwn)
{
    give("number", "int", "1");
    give("local number", "int", "2");
    Program alice(connectionOf("alice"));
    EXPECT_EQ(alice.store->getInt("number", 0), 1);
    EXPECT_EQ(alice.store->getInt("local number", 0), 2);
    EXPECT_TRUE(alice.store->contains("number"));
    EXPECT_TRUE(alice.store->contains("local number"));
    alice.store->setInt("number", 3);
    alice.store->setInt("local number", 4);
    EXPECT_EQ(alice.store->getInt("number", 0), 3);
    EXPECT_EQ(alice.store->getInt("local number", 0), 4);
    alice.store->remove("number");
    alice.store->remove("local number");
    EXPECT_EQ(alice.store->getInt("number", 0), 1);
    EXPECT_EQ(alice.store->getInt("local number", 0), 2);
}

TEST_F(Session, LockedKeyHasTheStudiosValueAndCannotBeChanged)
{
    Program alice(connectionOf("alice"));
    alice.store->setInt("number", 3);
    alice.store->setInt("local number", 4);
    give("number", "int", "1", true);
    give("local number", "int", "2", true);
    ASSERT_TRUE(alice.session.synchronise(60s));
    EXPECT_EQ(alice.store->getInt("number", 0), 1);
    EXPECT_EQ(alice.store->getInt("local number", 0), 2);
    for (auto const& change :
         std::vector<std::function<void()>>{[&] { alice.store->setInt("number", 5); }, [&] { alice.store->setBool("number", true); },
                                            [&] { alice.store->setString("number", ""); }, [&] { alice.store->setBytes("number", {}); },
                                            [&] { alice.store->remove("number"); }, [&] { alice.store->setInt("local number", 5); },
                                            [&] { alice.store->remove("local number"); }}) {
        Storage::StorageError const error = errorOf(change);
        EXPECT_EQ(error.code(), Code::locked);
        EXPECT_EQ(error.reason(), "the studio has locked this setting");
    }
    EXPECT_EQ(alice.local->getInt("local number", 0), 4);
    EXPECT_EQ(atServer("number"), "int 3");
}

TEST_F(Session, LockSaysWhoAndWhen)
{
    give("number", "int", "1");
    give("locked", "int", "1", true);
    Program alice(connectionOf("alice"));
    EXPECT_FALSE(alice.session.lockOf("common", "number"));
    EXPECT_FALSE(alice.session.lockOf("common", "absent"));
    EXPECT_FALSE(alice.session.lockOf("product", "locked"));
    std::optional<Studio::Lock> const lock = alice.session.lockOf("common", "locked");
    ASSERT_TRUE(lock);
    EXPECT_EQ(lock->by, "ada");
    EXPECT_LE(std::chrono::abs(std::chrono::system_clock::now() - lock->since), 10min);
}

TEST_F(Session, LockThatTheProgramHasNotHeardOfHoldsToo)
{
    Program alice(connectionOf("alice"));
    give("number", "int", "1", true);
    EXPECT_FALSE(alice.session.lockOf("common", "number"));
    EXPECT_EQ(errorOf([&] { alice.store->setInt("number", 5); }).code(), Code::locked);
    EXPECT_TRUE(alice.session.lockOf("common", "number"));
    EXPECT_EQ(alice.store->getInt("number", 0), 1);
    give("number", "int", "1", false);
    ASSERT_TRUE(alice.session.synchronise(60s));
    alice.store->setInt("number", 5);
    EXPECT_EQ(atServer("number"), "int 5");
}

TEST_F(Session, KeysAndValuesUpToTheirLimitsAreStored)
{
    Program alice(connectionOf("alice"));
    std::string const key = "\0\xFF"s + std::string(4094, 'k');
    alice.store->setString(key, std::string(16 << 20, '\xA5'));
    Program other(connectionOf("alice"));
    EXPECT_EQ(other.store->getString(key, ""), std::string(16 << 20, '\xA5'));
}

TEST_F(Session, LongerKeysAndValuesAreRefusedWithASentence)
{
    Program alice(connectionOf("alice"));
    for (auto const& change : std::vector<std::function<void()>>{
             [&] { alice.store->setString("text", std::string((16 << 20) + 1, 'x')); },
             [&] { alice.store->setBytes("text", std::vector<unsigned char>((16 << 20) + 1)); },
             [&] { alice.store->setInt(std::string(4097, 'k'), 1); }, [&] { alice.store->remove(std::string(4097, 'k')); }}) {
        Storage::StorageError const error = errorOf(change);
        EXPECT_EQ(error.code(), Code::tooLarge);
        EXPECT_EQ(error.reason(), "a key has at most 4096 bytes, a value 16 MiB");
    }
    EXPECT_EQ(errorOf([&] { alice.session.store(std::string(256, 's'), alice.local)->setInt("number", 1); }).code(), Code::tooLarge);
    EXPECT_EQ(ask("SELECT count(*) FROM settings.value"), "0");
}

TEST_F(Session, ValueThatCannotBeReadGivesTheDefault)
{
    give("number", "int", "12x");
    give("large", "int", "2147483648");
    give("empty", "int", "");
    give("flag", "bool", "maybe");
    Program alice(connectionOf("alice"));
    for (char const* const key : {"number", "large", "empty"}) {
        EXPECT_EQ(alice.store->getInt(key, 42), 42) << key;
        EXPECT_TRUE(alice.store->contains(key)) << key;
    }
    EXPECT_TRUE(alice.store->getBool("flag", true));
    EXPECT_FALSE(alice.store->getBool("flag", false));
}

TEST_F(Session, StatusTellsSinceWhenTheServerIsKnown)
{
    auto const before = std::chrono::system_clock::now();
    Program alice(connectionOf("alice"));
    Studio::Status const status = alice.session.status();
    EXPECT_TRUE(status.connected);
    EXPECT_FALSE(status.problem);
    ASSERT_TRUE(status.asOf);
    EXPECT_GE(*status.asOf, before);
}

TEST_F(Session, UserWithoutRightsIsToldSo)
{
    Program mallory(connectionOf("mallory"));
    Studio::Status const status = mallory.session.status();
    EXPECT_FALSE(status.connected);
    EXPECT_FALSE(status.asOf);
    ASSERT_TRUE(status.problem);
    EXPECT_EQ(status.problem->reason(), Studio::ServerError::Reason::denied);
    EXPECT_EQ(errorOf([&] { mallory.store->setInt("number", 1); }).code(), Code::access);
}

TEST_F(Session, DatabaseThatNobodySetUpIsToldSo)
{
    Program nobody(m_server->connection());
    ASSERT_TRUE(nobody.session.status().problem);
    EXPECT_EQ(nobody.session.status().problem->reason(), Studio::ServerError::Reason::outdated);
    EXPECT_EQ(nobody.session.status().problem->remedy(), "let the administrator run: editor-settings studio migrate");
}

TEST_F(Session, UserWhomTheServerForgotStartsEmpty)
{
    Program alice(connectionOf("alice"));
    alice.store->setInt("number", 7);
    ASSERT_TRUE(alice.session.synchronise(60s));
    EXPECT_EQ(login("ada").ask("SELECT settings.forget_user_v1('alice')").text(), "t");
    ASSERT_TRUE(alice.session.synchronise(60s));
    EXPECT_FALSE(alice.store->contains("number"));
    alice.store->setInt("number", 8);
    EXPECT_EQ(atServer("number"), "int 8");
    ASSERT_TRUE(alice.session.synchronise(60s));
    EXPECT_EQ(login("ada").ask("SELECT settings.forget_user_v1('alice')").text(), "t");
    alice.store->setInt("other", 9);
    EXPECT_EQ(atServer("other"), "int 9");
    EXPECT_FALSE(alice.store->contains("number"));
}

TEST_F(Session, UserWhoWasMadeAgainWithMoreChangesIsReadFromTheBeginning)
{
    Program alice(connectionOf("alice"));
    alice.store->setInt("gone", 1);
    ASSERT_TRUE(alice.session.synchronise(60s));
    EXPECT_EQ(login("ada").ask("SELECT settings.forget_user_v1('alice')").text(), "t");
    {
        Program elsewhere(connectionOf("alice"));
        for (int const value : {2, 3, 4})
            elsewhere.store->setInt("new", value);
    }
    ASSERT_TRUE(alice.session.synchronise(60s));
    EXPECT_FALSE(alice.store->contains("gone"));
    EXPECT_EQ(alice.store->getInt("new", 0), 4);
}

TEST_F(Session, ServerWhoseHistoryWentBackIsReadFromItsBeginning)
{
    Program alice(connectionOf("alice"));
    alice.store->setInt("kept", 1);
    alice.store->setInt("gone", 2);
    alice.store->setInt("gone too", 3);
    ASSERT_TRUE(alice.session.synchronise(60s));
    // As a server that lost its last commits.
    ask("DELETE FROM settings.value WHERE revision > 1; UPDATE settings.layer SET revision = 1 WHERE name = 'alice'");
    ASSERT_TRUE(alice.session.synchronise(60s));
    EXPECT_EQ(alice.store->getInt("kept", 0), 1);
    EXPECT_FALSE(alice.store->contains("gone"));
    EXPECT_FALSE(alice.store->contains("gone too"));
}

TEST_F(Session, OtherHistoryOfTheSameLengthIsReadFromItsBeginning)
{
    Program alice(connectionOf("alice"));
    alice.store->setInt("gone", 1);
    ASSERT_TRUE(alice.session.synchronise(60s));
    EXPECT_EQ(login("ada").ask("SELECT settings.forget_user_v1('alice')").text(), "t");
    Program(connectionOf("alice")).store->setInt("new", 2);
    m_server->stop();
    m_server->start();
    ASSERT_TRUE(alice.session.synchronise(60s));
    EXPECT_FALSE(alice.store->contains("gone"));
    EXPECT_EQ(alice.store->getInt("new", 0), 2);
}
