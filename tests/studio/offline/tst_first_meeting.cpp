// SPDX-License-Identifier: MIT
//
// A workstation with settings of its own meets the studio's server for the first time.
#include "support/OfflineTest.h"

#include <Storage/SqliteStorage.h>

#include <csignal>

#include <sys/wait.h>
#include <unistd.h>

using namespace std::chrono_literals;

namespace {

/// A workstation of alice's: a store from before, and a folder for the outbox.
struct Workstation {
    Workstation(std::filesystem::path const& folder, std::string const& connection)
        : options(keeping(connection, folder / "outbox")),
          local((std::filesystem::create_directories(folder), std::make_shared<Storage::SqliteStorage>(folder / "store.sqlite")))
    {}

    Studio::Session::Options options;
    std::shared_ptr<Storage::SqliteStorage> local;
};

/// A program on it.
struct Start {
    explicit Start(Workstation const& on) : session(on.options), store(session.store("common", on.local)) {}

    Studio::Session session;
    std::shared_ptr<ISettingsStorage> store;
};

class FirstMeeting : public OfflineTest {
protected:
    Workstation workstation(std::string const& name) const { return {m_home.path() / name, connectionOf("alice")}; }
};

TEST_F(FirstMeeting, ServerGetsWhatItHasNotAndOnlyWhatRoams)
{
    Workstation const first = workstation("first");
    first.local->setInt("number", 1);
    first.local->setString("text", "mine");
    first.local->setInt("local number", 3);
    Start program(first);
    EXPECT_EQ(program.store->getInt("number", 0), 1) << "at once";
    ASSERT_TRUE(program.session.synchronise(60s));
    EXPECT_EQ(atServer("number"), "int 1");
    EXPECT_EQ(atServer("text"), "string mine");
    EXPECT_EQ(atServer("local number"), "");
    EXPECT_EQ(stored(), "2");
    EXPECT_EQ(losers(), "");
    EXPECT_EQ(first.local->getInt("number", 0), 1) << "the workstation keeps it";
}

TEST_F(FirstMeeting, SecondWorkstationOverwritesNothingAndItsValueIsListed)
{
    Workstation const first = workstation("first");
    first.local->setInt("number", 1);
    first.local->setInt("same", 7);
    ASSERT_TRUE(Start(first).session.synchronise(60s));
    Workstation const second = workstation("second");
    second.local->setInt("number", 2); // later, and an offer all the same
    second.local->setInt("same", 7);
    second.local->setInt("other", 3);
    Start program(second);
    EXPECT_EQ(program.store->getInt("number", 0), 1) << "no read shows what will lose";
    ASSERT_TRUE(program.session.synchronise(60s));
    EXPECT_EQ(program.store->getInt("number", 0), 1);
    EXPECT_EQ(atServer("number"), "int 1");
    EXPECT_EQ(atServer("other"), "int 3");
    EXPECT_EQ(losers(), "number=2");
    EXPECT_EQ(stored(), "3") << "an equal value is no change";
    EXPECT_EQ(second.local->getInt("number", 0), 2);
    EXPECT_TRUE(program.session.status().refused.empty());
}

TEST_F(FirstMeeting, RepeatedStartOffersNothingAgain)
{
    Workstation const first = workstation("first");
    first.local->setInt("number", 1);
    ASSERT_TRUE(Start(first).session.synchronise(60s));
    Program other(connectionOf("alice"));
    other.store->remove("number");
    other.store->setInt("second", 5);
    first.local->setInt("second", 2); // by a program that knows no studio
    for (int start = 0; start < 2; ++start) {
        Start program(first);
        ASSERT_TRUE(program.session.synchronise(60s));
        EXPECT_EQ(program.store->getInt("number", 0), 0) << "what was removed stays removed";
        EXPECT_EQ(program.store->getInt("second", 0), 5);
    }
    EXPECT_EQ(atServer("number"), "");
    EXPECT_EQ(losers(), "second=2") << "once";
    EXPECT_EQ(stored(), "3");
}

TEST_F(FirstMeeting, OfflineFirstStartOffersWhenTheServerIsThere)
{
    Workstation const first = workstation("first");
    first.local->setInt("number", 1);
    first.local->setInt("other", 2);
    Program(connectionOf("alice")).store->setInt("number", 5);
    m_server->stop();
    for (int start = 0; start < 2; ++start) {
        Start const program(first);
        EXPECT_EQ(program.store->getInt("number", 0), 1) << "nothing else is known";
        EXPECT_EQ(program.session.status().pending, 2U);
    }
    m_server->start();
    Start program(first);
    ASSERT_TRUE(program.session.synchronise(60s));
    EXPECT_EQ(program.store->getInt("number", 0), 5);
    EXPECT_EQ(program.store->getInt("other", 0), 2);
    EXPECT_EQ(atServer("other"), "int 2");
    EXPECT_EQ(losers(), "number=1");
}

TEST_F(FirstMeeting, ChangeOfTheUsersGoesOverAnOffer)
{
    Workstation const first = workstation("first");
    first.local->setInt("number", 1);
    m_server->stop();
    {
        Start const program(first);
        program.store->setInt("number", 2);
        EXPECT_EQ(program.store->getInt("number", 0), 2);
    }
    m_server->start();
    ASSERT_TRUE(Start(first).session.synchronise(60s));
    EXPECT_EQ(atServer("number"), "int 2");
    EXPECT_EQ(losers(), "");
}

TEST_F(FirstMeeting, LockedKeyKeepsItsLocalValueAndIsNoRefusal)
{
    give("number", "int", "5", true);
    Workstation const first = workstation("first");
    first.local->setInt("number", 1);
    Start program(first);
    ASSERT_TRUE(program.session.synchronise(60s));
    EXPECT_EQ(program.store->getInt("number", 0), 5);
    EXPECT_EQ(program.session.status().pending, 0U);
    EXPECT_TRUE(program.session.status().refused.empty());
    EXPECT_EQ(atServer("number"), "");
    EXPECT_EQ(first.local->getInt("number", 0), 1);
}

TEST_F(FirstMeeting, ValueOfAnyAgeIsNeverTakenForAnOfferThatLoses)
{
    Workstation const first = workstation("first");
    first.local->setInt("number", 1);
    OtherProgram(m_home.path() / "first/store.sqlite").execute("UPDATE settings SET changed = 0"); // by a clock that was never set
    ASSERT_TRUE(Start(first).session.synchronise(60s));
    Workstation const second = workstation("second");
    second.local->setInt("number", 2);
    ASSERT_TRUE(Start(second).session.synchronise(60s));
    EXPECT_EQ(atServer("number"), "int 1");
    EXPECT_EQ(losers(), "number=2");
}

TEST_F(FirstMeeting, ProgramThatIsKilledInTheMiddleOffersEachValueOnce)
{
    constexpr int count = 30;
    for (int const killedAt : {0, 1, 10, 29}) {
        std::string const name = "killed at " + std::to_string(killedAt);
        int const before = std::stoi("0" + stored());
        {
            Workstation const first = workstation(name);
            for (int number = 0; number < count; ++number)
                first.local->setInt(name + ' ' + std::to_string(number), number);
        }
        pid_t const child = ::fork();
        if (child == 0) {
            Start const program(workstation(name));
            while (static_cast<int>(program.session.status().pending) > count - killedAt)
                std::this_thread::sleep_for(1ms);
            ::raise(SIGKILL);
        }
        int status = 0;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        ASSERT_TRUE(WIFSIGNALED(status));
        ASSERT_TRUE(Start(workstation(name)).session.synchronise(60s));
        EXPECT_EQ(std::stoi(stored()) - before, count) << name;
        EXPECT_EQ(atServer(name + " 29"), "int 29");
    }
    EXPECT_EQ(losers(), "");
}

} // namespace
