// SPDX-License-Identifier: MIT
//
// Which sessions are notified of a change, and that none is sent where nobody listens.
#include "support/SchemaTest.h"

class Notification : public SchemaTest {
protected:
    // A login of alice, whose layer is number 2, that listens to the layer and the studio. It announces itself if asked to.
    Login listener(bool announces) const
    {
        Login result = login("alice");
        EXPECT_EQ(result.ask(hello(1, announces)).rows.at(0).at(5), announces ? "t" : "f");
        EXPECT_EQ(result.ask("LISTEN settings_u2; LISTEN settings_studio").code, "");
        return result;
    }

    using Heard = std::vector<std::string>;
};

TEST_F(Notification, AnnouncedListenerIsTold)
{
    Login const listening = listener(true);
    EXPECT_EQ(put(user("alice", 2), {2, 1}), "stored|1");
    EXPECT_EQ(listening.notifications(), Heard{"settings_u2 1"});
}

TEST_F(Notification, NothingIsSentForNobody)
{
    Login const unannounced = listener(false); // it hears what is sent, and nobody knows of it
    Login const writer = login("alice");
    EXPECT_EQ(writer.ask(hello(2)).rows.at(0).at(5), "t");
    EXPECT_EQ(put(writer, {2, 1}), "stored|1") << "the writer's own announcement does not count";
    EXPECT_EQ(unannounced.notifications(), Heard{});
}

TEST_F(Notification, ListenerThatWentIsNotTold)
{
    Login const unannounced = listener(false);
    Login const writer = user("alice", 2);
    {
        Login const listening = listener(true);
        EXPECT_EQ(put(writer, {2, 1}), "stored|1");
    }
    ASSERT_TRUE(comes("SELECT count(*) FROM pg_locks WHERE locktype = 'advisory'", "1"));
    EXPECT_EQ(put(writer, {2, 2}), "stored|2");
    EXPECT_EQ(unannounced.notifications(), Heard{"settings_u2 1"});
}

TEST_F(Notification, OtherUsersAreNotTold)
{
    Login const bob = user("bob");
    Login const listening = listener(true);
    EXPECT_EQ(put(bob, {}), "stored|1");
    EXPECT_EQ(listening.notifications(), Heard{});
}

TEST_F(Notification, NoEffectIsNoNews)
{
    Login const listening = listener(true);
    Login const writer = user("alice", 2);
    EXPECT_EQ(put(listening, {1, 1}), "stored|1");
    EXPECT_EQ(put(listening, {1, 1}), "repeated|1");
    EXPECT_EQ(put(writer, {2, 1, false, "common", "key", "bool", "false", false, 60000, 0}), "superseded|1");
    EXPECT_EQ(listening.notifications(), Heard{"settings_u2 1"}) << "the writer that announced itself is another listener";
}

TEST_F(Notification, ChangeOfTheStudioIsToldToAll)
{
    Login const unannounced = listener(false);
    Login const ada = user("ada");
    EXPECT_EQ(put(ada, {1, 1, true}), "stored|1");
    EXPECT_EQ(ada.ask("SELECT settings.lock_v1('common', 'key', true)").text(), "2");
    EXPECT_EQ(unannounced.notifications(), (Heard{"settings_studio 1", "settings_studio 2"}));
}

// It would else read before the commit and miss a change of which nobody was told.
TEST_F(Notification, NewcomerWaitsForTheWriterThatToldNobody)
{
    ask("ALTER FUNCTION settings.hello_v1 SET lock_timeout = '60s'"); // for a busy machine
    Login const writer = user("alice", 2);
    EXPECT_EQ(writer.ask("BEGIN; " + statement({2, 1})).text(), "stored|1");
    Login const newcomer = login("alice");
    newcomer.send(hello());
    ASSERT_TRUE(comes("SELECT count(*) FROM pg_locks WHERE locktype = 'advisory' AND NOT granted", "1"));
    EXPECT_EQ(writer.ask("COMMIT").code, "");
    EXPECT_EQ(newcomer.answer().rows.at(0).at(5), "t");
    EXPECT_EQ(changes(newcomer), "f|1|common|key|bool|true|f|1\nt|0|null|null|null|null|null|null");
}
