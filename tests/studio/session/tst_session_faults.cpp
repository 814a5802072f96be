// SPDX-License-Identifier: MIT
#include "support/SessionFaults.h"

#include <atomic>
#include <future>
#include <thread>
#include <vector>

using namespace std::chrono_literals;
using Then = Proxy::Then;
using Way = Proxy::Way;

TEST_F(SessionFaults, ProgramWorksWithoutItsServer)
{
    m_server->stop();
    Program alice(connectionOf("alice"));
    Studio::Status const status = alice.session.status();
    EXPECT_FALSE(status.connected);
    EXPECT_FALSE(status.asOf);
    ASSERT_TRUE(status.problem);
    EXPECT_EQ(status.problem->reason(), Reason::unreachable);
    EXPECT_EQ(alice.store->getInt("number", 42), 42);
    alice.store->setInt("local number", 7);
    EXPECT_EQ(alice.store->getInt("local number", 0), 7);
    Storage::StorageError const error = SessionTest::errorOf([&] { alice.store->setString("secret key", "secret value"); });
    EXPECT_EQ(error.code(), Code::unreachable);
    EXPECT_EQ(error.attempt(), "change a setting");
    EXPECT_EQ(std::string(error.what()).find("secret"), std::string::npos) << error.what();

    m_server->start();
    ASSERT_TRUE(recovers(alice));
    alice.store->setInt("number", 7);
    EXPECT_EQ(atServer("number"), "int 7");
    EXPECT_TRUE(alice.session.status().connected);
    EXPECT_FALSE(alice.session.status().problem);
}

TEST_F(SessionFaults, ServerThatWasAwayBetweenTwoChangesIsNotNoticed)
{
    Program alice(connectionOf("alice"));
    alice.store->setInt("number", 1);
    m_server->kill();
    EXPECT_EQ(alice.store->getInt("number", 0), 1);
    m_server->start();
    alice.store->setInt("number", 2);
    EXPECT_EQ(atServer("number"), "int 2");
    m_server->stop();
    m_server->start();
    EXPECT_TRUE(alice.session.synchronise(60s));
}

TEST_F(SessionFaults, ChangeWhoseConnectionIsCutAnywhereIsDoneOnce)
{
    Program alice(throughProxy());
    int sets = 0;
    for (Way const way : {Way::toServer, Way::toClient}) {
        m_proxy->open();
        alice.store->setInt("number", ++sets);
        long const bytes = m_proxy->passed(way);
        ASSERT_GT(bytes, 20);
        for (long count = 0; count < bytes; ++count) {
            m_proxy->limit(way, count, Then::cutOnce);
            ASSERT_NO_THROW(alice.store->setInt("number", ++sets)) << count << " of " << bytes;
            ASSERT_EQ(atServer("number"), "int " + std::to_string(sets));
            ASSERT_EQ(alice.store->getInt("number", 0), sets);
        }
    }
    EXPECT_EQ(ask("SELECT revision FROM settings.layer WHERE name = 'alice'"), std::to_string(sets));
}

TEST_F(SessionFaults, ChangeThatIsNotAnsweredEndsInTime)
{
    Program alice(throughProxy(), 3s);
    ASSERT_TRUE(alice.session.status().connected);
    m_proxy->limit(Way::toServer, 0, Then::stall);
    auto const time = timeOf([&] { EXPECT_EQ(SessionTest::errorOf([&] { alice.store->setInt("number", 1); }).code(), Code::unreachable); });
    EXPECT_LE(time.count(), (3s + slack).count());
    EXPECT_FALSE(alice.store->contains("number"));
    EXPECT_LE(timeOf([&] { EXPECT_FALSE(alice.session.synchronise(200ms)); }).count(), (200ms + slack).count());
}

TEST_F(SessionFaults, FirstWaitEndsInTime)
{
    BlackHole const hole;
    std::string const connection = "host=127.0.0.1 sslmode=disable user=alice port=" + std::to_string(hole.port());
    EXPECT_LE(timeOf([&] { Program(connection, 300ms); }).count(), (300ms + slack).count());
}

TEST_F(SessionFaults, SessionEndsAtOnceInEveryState)
{
    BlackHole const hole;
    std::string const nowhere = "host=127.0.0.1 sslmode=disable user=alice port=" + std::to_string(hole.port());
    std::optional<Studio::Session> connecting(std::in_place, Studio::Session::Options{nowhere, {}, 10ms, 60s, 60s, 60s});
    EXPECT_LE(timeOf([&] { connecting.reset(); }).count(), slack.count());

    std::optional<Program> idle(std::in_place, connectionOf("alice"));
    EXPECT_LE(timeOf([&] { idle.reset(); }).count(), slack.count());

    std::optional<Program> changing(std::in_place, throughProxy());
    std::shared_ptr<ISettingsStorage> const store = changing->store;
    m_proxy->limit(Way::toServer, 10, Then::stall);
    // The first of them is sent, the others wait for their turn.
    std::atomic<int> begun = 0;
    std::vector<std::future<Code>> changes;
    for (int number = 0; number < 8; ++number)
        changes.push_back(std::async(std::launch::async, [&] {
            ++begun;
            return SessionTest::errorOf([&] { store->setInt("number", 1); }).code();
        }));
    while (begun < 8 || m_proxy->passed(Way::toServer) < 10)
        std::this_thread::sleep_for(1ms);
    EXPECT_LE(timeOf([&] { changing.reset(); }).count(), slack.count());
    auto const answers = timeOf([&] {
        for (std::future<Code>& change : changes)
            EXPECT_EQ(change.get(), Code::unreachable);
    });
    EXPECT_LE(answers.count(), slack.count());
}

TEST_F(SessionFaults, SessionThatNobodyAsksEndsAtOnceInEveryState)
{
    std::optional<Program> resting(std::in_place, listening(connectionOf("alice")));
    EXPECT_EQ(resting->session.status().hearing, Studio::Status::Hearing::listening);
    EXPECT_LE(timeOf([&] { resting.reset(); }).count(), slack.count());

    std::optional<Program> looking(std::in_place, polling(throughProxy()));
    m_proxy->limit(Way::toServer, 10, Then::stall);
    ASSERT_TRUE(comesTrue([&] { return m_proxy->passed(Way::toServer) == 10; }));
    EXPECT_LE(timeOf([&] { looking.reset(); }).count(), slack.count());

    std::optional<Program> telling(std::in_place, polling(connectionOf("alice")));
    std::atomic<bool> isTelling = false;
    telling->session.onChange([&](std::string const&, std::string const&) { isTelling = true; });
    Program(connectionOf("alice")).store->setInt("number", 7);
    ASSERT_TRUE(comesTrue([&] { return isTelling.load(); }));
    EXPECT_LE(timeOf([&] { telling.reset(); }).count(), slack.count());

    std::optional<Program> waiting(std::in_place, polling(connectionOf("alice")));
    m_server->stop();
    ASSERT_TRUE(comesTrue([&] { return !waiting->session.status().connected; }));
    EXPECT_LE(timeOf([&] { waiting.reset(); }).count(), slack.count());
}

TEST_F(SessionFaults, StoreThatOutlivesItsSessionCanBeRead)
{
    std::optional<Program> alice(std::in_place, connectionOf("alice"));
    std::shared_ptr<ISettingsStorage> const store = alice->store;
    store->setInt("number", 7);
    alice.reset();
    EXPECT_EQ(store->getInt("number", 0), 7);
    EXPECT_EQ(SessionTest::errorOf([&] { store->setInt("number", 8); }).code(), Code::unreachable);
}

TEST_F(SessionFaults, ServerThatTakesNoChangesIsTold)
{
    Program alice(connectionOf("alice"));
    alice.store->setInt("number", 1);
    ask("ALTER ROLE alice SET default_transaction_read_only = on");
    Program other(connectionOf("alice"));
    EXPECT_EQ(SessionTest::errorOf([&] { other.store->setInt("number", 2); }).code(), Code::readOnly);
    EXPECT_EQ(atServer("number"), "int 1");
}
