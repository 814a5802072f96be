// SPDX-License-Identifier: MIT
//
// What a session tells its host of changes.
#include "support/SessionTest.h"

#include <atomic>
#include <mutex>
#include <vector>

using namespace std::chrono_literals;

/// A program that notes what it hears of changes, with what it reads then.
class SessionChanges : public SessionTest {
protected:
    struct Attentive : Program {
        explicit Attentive(Studio::Session::Options const& options) : Program(options)
        {
            session.onChange([this](std::string const& name, std::string const& key) {
                std::lock_guard const lock(mutex);
                heard.push_back(name + ' ' + key + ' ' + std::to_string(store->getInt(key, 0)));
            });
        }
        ~Attentive() { session.onChange({}); }

        std::vector<std::string> news()
        {
            std::lock_guard const lock(mutex);
            return std::exchange(heard, {});
        }
        // What it hears once it has synchronised.
        std::vector<std::string> newsAfterwards()
        {
            EXPECT_TRUE(session.synchronise(60s));
            EXPECT_TRUE(session.synchronise(60s)); // behind the calls of the listener
            return news();
        }

        std::mutex mutex;
        std::vector<std::string> heard;
    };

    using News = std::vector<std::string>;
};

TEST_F(SessionChanges, EachKeyThatSomebodyElseChangedIsTold)
{
    Program other(connectionOf("alice"));
    other.store->setInt("old", 1);
    Attentive alice(quiet(connectionOf("alice")));
    EXPECT_EQ(alice.newsAfterwards(), News{});
    other.store->setInt("b", 2);
    other.store->setInt("a", 3);
    other.store->setInt("b", 4);
    other.session.store("product", other.local)->setInt("a", 5);
    EXPECT_EQ(alice.newsAfterwards(), (News{"common a 3", "common b 4", "product a 3"}));
    other.store->remove("a");
    other.store->remove("absent");
    EXPECT_EQ(alice.newsAfterwards(), News{"common a 0"});
    EXPECT_EQ(alice.newsAfterwards(), News{});
}

TEST_F(SessionChanges, ValueAndLockOfTheStudioAreTold)
{
    Attentive alice(quiet(connectionOf("alice")));
    give("number", "int", "7");
    EXPECT_EQ(alice.newsAfterwards(), News{"common number 7"});
    give("number", "int", "7", true);
    EXPECT_EQ(alice.newsAfterwards(), News{"common number 7"});
    give("number", "int", "7", true);
    EXPECT_EQ(alice.newsAfterwards(), News{}) << "nothing is different";
}

TEST_F(SessionChanges, OwnChangesAreNotTold)
{
    Attentive alice(quiet(connectionOf("alice")));
    alice.store->setInt("number", 7);
    alice.store->setInt("gone", 7);
    alice.store->remove("gone");
    EXPECT_EQ(alice.newsAfterwards(), News{});
}

TEST_F(SessionChanges, OfAnotherHistoryOnlyWhatDiffersIsTold)
{
    Attentive alice(quiet(connectionOf("alice")));
    alice.store->setInt("equal", 1);
    alice.store->setInt("other", 1);
    alice.store->setInt("gone", 1);
    EXPECT_EQ(alice.newsAfterwards(), News{});
    EXPECT_EQ(login("ada").ask("SELECT settings.forget_user_v1('alice')").text(), "t");
    Program other(connectionOf("alice"));
    for (char const* const key : {"equal", "other", "new"})
        other.store->setInt(key, 2);
    other.store->setInt("equal", 1);
    m_server->stop();
    m_server->start();
    EXPECT_EQ(alice.newsAfterwards(), (News{"common gone 0", "common new 2", "common other 2"}));
}

TEST_F(SessionChanges, SilentOnceItIsCleared)
{
    Attentive alice(quiet(connectionOf("alice")));
    alice.session.onChange({});
    Program(connectionOf("alice")).store->setInt("number", 7);
    EXPECT_EQ(alice.newsAfterwards(), News{});
    EXPECT_EQ(alice.store->getInt("number", 0), 7);
}

TEST_F(SessionChanges, ListenerMayUseTheSession)
{
    Program alice(quiet(connectionOf("alice")));
    std::atomic<int> told = 0;
    alice.session.onChange([&](std::string const&, std::string const& key) {
        EXPECT_TRUE(alice.session.synchronise(60s));
        alice.store->setInt("copy of " + key, alice.store->getInt(key, 0));
        alice.session.onChange({});
        ++told;
    });
    Program(connectionOf("alice")).store->setInt("number", 7);
    ASSERT_TRUE(alice.session.synchronise(60s));
    ASSERT_TRUE(comesTrue([&] { return told == 1; }));
    EXPECT_EQ(atServer("copy of number"), "int 7");
}

TEST_F(SessionChanges, SessionFreesItsListenerAtItsEnd)
{
    auto const held = std::make_shared<int>(1);
    std::optional<Program> alice(std::in_place, connectionOf("alice"));
    std::shared_ptr<ISettingsStorage> const store = alice->store;
    alice->session.onChange([held, store](std::string const&, std::string const&) {});
    alice.reset();
    EXPECT_EQ(held.use_count(), 1);
}
