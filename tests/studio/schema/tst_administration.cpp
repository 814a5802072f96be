// SPDX-License-Identifier: MIT
#include "support/SchemaTest.h"

#include <Studio/server/Administration.h>

#include <thread>

using namespace std::chrono_literals;
using Locking = Studio::Administration::Locking;
using Reason = Studio::ServerError::Reason;

class AdministrationTest : public SchemaTest {
protected:
    // A connection of one login, and what can be done with it.
    struct Desk {
        explicit Desk(std::string const& text) : connection({text, 1min, 1min}) { connection.connect(); }
        Studio::Connection connection;
        Studio::Administration does{connection};
    };

    std::unique_ptr<Desk> desk(std::string const& role) const { return std::make_unique<Desk>(m_server->connection(role, "studio")); }
    std::string studiosValue() const
    {
        return ask("SELECT concat_ws(' ', v.kind, encode(v.value, 'escape'), v.locked, v.changed_by) FROM settings.value v "
                   "JOIN settings.layer l ON l.id = v.layer WHERE l.kind = 'studio' AND v.key = 'key' AND v.kind IS NOT NULL");
    }
    static Reason reasonOf(std::function<void()> const& work)
    {
        try {
            work();
        } catch (Studio::ServerError const& error) {
            return error.reason();
        }
        ADD_FAILURE() << "nothing was thrown";
        return Reason::interrupted;
    }
};

TEST_F(AdministrationTest, ValueIsSetWithItsKindAndItsLock)
{
    auto const ada = desk("ada");
    ada->does.set("common", "key", 42, Locking::keep);
    EXPECT_EQ(studiosValue(), "int 42 f ada");
    ada->does.set("common", "key", std::string("text"), Locking::lock);
    EXPECT_EQ(studiosValue(), "string text t ada");
    ada->does.set("common", "key", true, Locking::keep);
    EXPECT_EQ(studiosValue(), "bool true t ada");
    ada->does.set("common", "key", std::nullopt, Locking::keep);
    EXPECT_EQ(studiosValue(), "");
    ada->does.set("common", "key", 1, Locking::keep);
    EXPECT_EQ(studiosValue(), "int 1 f ada") << "the lock went with the value";
    Put other;
    other.studio = true;
    other.base = 5;
    EXPECT_EQ(put(user("ada"), other), "stored|6");
    ada->does.set("common", "key", 2, Locking::keep);
    EXPECT_EQ(ask("SELECT count(*) FROM settings.superseded"), "0") << "an administrator decides whatever was there";
}

TEST_F(AdministrationTest, LockNeedsAValue)
{
    auto const ada = desk("ada");
    EXPECT_FALSE(ada->does.lock("common", "key", true));
    EXPECT_FALSE(ada->does.lock("common", "key", false));
    ada->does.set("common", "key", 42, Locking::keep);
    EXPECT_TRUE(ada->does.lock("common", "key", true));
    EXPECT_EQ(studiosValue(), "int 42 t ada");
    EXPECT_TRUE(ada->does.lock("common", "key", false));
    EXPECT_EQ(studiosValue(), "int 42 f ada");
}

TEST_F(AdministrationTest, ProgramsOfOneLoginAtTheSameTimeLoseNothing)
{
    auto const work = [&](std::string const& prefix) {
        auto const ada = desk("ada");
        for (int number = 0; number < 100; ++number)
            ada->does.set("common", prefix + std::to_string(number), number, Locking::keep);
    };
    std::thread other(work, "a");
    work("b");
    other.join();
    EXPECT_EQ(ask("SELECT count(*) FROM settings.value"), "200");
    EXPECT_EQ(ask("SELECT count(*) FROM settings.client"), "1");
}

TEST_F(AdministrationTest, OthersMayNot)
{
    desk("ada")->does.set("common", "key", 1, Locking::keep);
    auto const alice = desk("alice");
    EXPECT_EQ(reasonOf([&] { alice->does.set("common", "key", 2, Locking::keep); }), Reason::denied);
    EXPECT_EQ(reasonOf([&] { alice->does.set("common", "key", std::nullopt, Locking::keep); }), Reason::denied);
    EXPECT_EQ(reasonOf([&] { alice->does.lock("common", "key", true); }), Reason::denied);
    EXPECT_EQ(reasonOf([&] { alice->does.forget("bob"); }), Reason::denied);
    EXPECT_EQ(studiosValue(), "int 1 f ada");
}

TEST_F(AdministrationTest, AccountIsTheLoginsOwn)
{
    auto const [user, schema, isAdministrator] = desk("ada")->does.account();
    EXPECT_EQ(user, "ada");
    EXPECT_EQ(schema, 2);
    EXPECT_TRUE(isAdministrator);
    EXPECT_EQ(desk("alice")->does.account().user, "alice");
    EXPECT_FALSE(desk("alice")->does.account().isAdministrator);
    EXPECT_EQ(reasonOf([&] { desk("mallory")->does.account(); }), Reason::denied);
}

TEST_F(AdministrationTest, HealthIsThatOfTheServer)
{
    auto const [difference, queueUsage, hasSynchronousStandby] = desk("alice")->does.health();
    EXPECT_LT(std::chrono::abs(difference), 30s) << "the server is on this machine";
    EXPECT_EQ(queueUsage, 0);
    EXPECT_FALSE(hasSynchronousStandby);
    m_server->ask("ALTER SYSTEM SET synchronous_standby_names = 'second'");
    EXPECT_EQ(ask("SELECT pg_reload_conf()"), "t");
    ASSERT_TRUE(comes("SHOW synchronous_standby_names", "second"));
    EXPECT_TRUE(desk("alice")->does.health().hasSynchronousStandby);
}

TEST_F(AdministrationTest, ForgottenUserHasNothing)
{
    desk("alice")->does.account();
    auto const ada = desk("ada");
    EXPECT_TRUE(ada->does.forget("alice"));
    EXPECT_FALSE(ada->does.forget("alice"));
    EXPECT_EQ(ask("SELECT count(*) FROM settings.layer WHERE name = 'alice'"), "0");
}

TEST_F(AdministrationTest, LostValuesAreTheLoginsOwn)
{
    Login const first = user("alice", 1);
    Login const second = user("alice", 2);
    EXPECT_EQ(put(first, {}), "stored|1");
    Put late;
    late.client = 2;
    late.kind = "int";
    late.value = "7";
    late.age = 3600000;
    EXPECT_EQ(put(second, late), "superseded|1");
    late.op = 2;
    late.kind = late.value = std::nullopt;
    EXPECT_EQ(put(second, late), "superseded|1");
    auto const lost = desk("alice")->does.superseded();
    ASSERT_EQ(lost.size(), 2U);
    EXPECT_EQ(lost[0].store, "common");
    EXPECT_EQ(lost[0].key, "key");
    EXPECT_EQ(std::get<int>(lost[0].setting.value), 7);
    EXPECT_EQ(lost[0].setting.changedBy, "alice");
    EXPECT_EQ(lost[0].setting.kind, "int");
    EXPECT_FALSE(lost[0].isRemoval);
    EXPECT_EQ(lost[0].origin, "local");
    EXPECT_NEAR(std::chrono::duration<double>(lost[0].lost - lost[0].setting.changed).count(), 3600, 60);
    EXPECT_TRUE(lost[1].isRemoval);
    EXPECT_TRUE(desk("bob")->does.superseded().empty());
}
