// SPDX-License-Identifier: MIT
//
// Outboxes that cannot be used, disks that are full, networks that do not answer, and programs that end meanwhile.
#include "support/OfflineTest.h"

#include <studio/support/ConnectionTest.h>
#include <studio/support/Proxy.h>

#include <support/Process.h>

#include <atomic>
#include <csignal>
#include <fstream>
#include <thread>
#include <vector>

#include <sys/resource.h>

using namespace std::chrono_literals;
using Then = Proxy::Then;
using Way = Proxy::Way;

namespace {

class OfflineFaults : public OfflineTest {
protected:
    // The laptop's way to the server is the proxy, which fails as the test wants it to.
    void useProxy() { m_proxy.emplace(m_server->ask("SHOW unix_socket_directories") + "/.s.PGSQL.5432"); }
    Studio::Session::Options throughProxy() const
    {
        return keeping("host=127.0.0.1 sslmode=disable user=alice dbname=studio port=" + std::to_string(m_proxy->port()), folder());
    }

    // Expects a session that works, but only with the server.
    void expectOnlineOnly(Code reason)
    {
        Program alice(laptop());
        alice.store->setInt("number", 8);
        EXPECT_EQ(atServer("number"), "int 8");
        EXPECT_FALSE(alice.session.status().outbox);
        ASSERT_EQ(alice.session.status().obstacles.size(), 1U);
        EXPECT_EQ(alice.session.status().obstacles.front().code(), reason);
        m_server->stop();
        EXPECT_EQ(errorOf([&] { alice.store->setInt("number", 9); }).code(), Code::unreachable);
        EXPECT_EQ(alice.store->getInt("number", 0), 8);
        EXPECT_EQ(alice.session.status().pending, 0U);
    }

    std::optional<Proxy> m_proxy;
};

TEST_F(OfflineFaults, OutboxOfANewerVersionIsLeftAloneAndTheServerNeeded)
{
    Program(laptop()).store->setInt("number", 7);
    OtherProgram(outbox()).execute("PRAGMA user_version = 2");
    expectOnlineOnly(Code::newer);
    EXPECT_EQ(inOutbox("PRAGMA user_version"), "2");
}

TEST_F(OfflineFaults, OutboxOfAnotherProgramIsLeftAloneAndTheServerNeeded)
{
    Program(laptop()).store->setInt("number", 7);
    OtherProgram(outbox()).execute("CREATE TABLE other (x)");
    expectOnlineOnly(Code::foreign);
}

TEST_F(OfflineFaults, DamagedOutboxIsMovedAsideAndTold)
{
    {
        Program alice(laptop());
    }
    std::filesystem::path const file = outbox();
    std::ofstream(file, std::ios::trunc) << "damaged";
    for (int start = 0; start < 2; ++start) {
        Program alice(laptop());
        alice.store->setInt("number", start);
        EXPECT_EQ(alice.session.status().outbox, file);
        EXPECT_TRUE(alice.session.status().obstacles.empty());
        ASSERT_EQ(alice.session.status().damaged.size(), 1U);
        EXPECT_EQ(std::filesystem::file_size(alice.session.status().damaged.front()), 7U);
    }
    EXPECT_EQ(atServer("number"), "int 1");
}

TEST_F(OfflineFaults, OutboxThatWasBroughtBackFromACopyLosesNoLaterChange)
{
    Program(laptop()).store->setInt("number", 1);
    std::filesystem::path const copy = m_home.path() / "copy";
    std::filesystem::copy_file(outbox(), copy);
    for (int number = 2; number <= 5; ++number)
        Program(laptop()).store->setInt("number", number);
    std::filesystem::copy_file(copy, outbox(), std::filesystem::copy_options::overwrite_existing);
    Program alice(laptop());
    ASSERT_TRUE(alice.session.synchronise(60s));
    EXPECT_EQ(alice.store->getInt("number", 0), 5);
    alice.store->setInt("number", 6);
    EXPECT_EQ(atServer("number"), "int 6");
    EXPECT_EQ(losers(), "");
}

TEST_F(OfflineFaults, FullDiskIsToldAndChangesNothing)
{
    m_server->stop();
    std::string const answer = inChild([this] {
        Program alice(laptop());
        alice.store->setInt("number", 1);
        std::signal(SIGXFSZ, SIG_IGN);
        rlimit const limit{64 * 1024, 64 * 1024};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        Storage::StorageError const error = errorOf([&] { alice.store->setString("text", std::string(200000, 'x')); });
        std::string const refused = error.code() == Code::full ? "full" : error.what();
        alice.store->setInt("other", 2);
        return refused + ' ' + std::to_string(alice.store->contains("text")) + ' ' + std::to_string(alice.session.status().pending);
    });
    EXPECT_EQ(answer, "full 0 2");
    m_server->start();
    ASSERT_TRUE(Program(laptop()).session.synchronise(60s));
    EXPECT_EQ(atServer("number"), "int 1");
    EXPECT_EQ(atServer("other"), "int 2");
    EXPECT_EQ(atServer("text"), "");
}

// A server whose log cannot go on drops all connections and takes none. A link to /dev/full is a file on a disk without room.
TEST_F(OfflineFaults, ServerWhoseLogHasAFullDiskGetsChangesOnceThereIsRoom)
{
    Studio::Session::Options options = laptop();
    options.writeWait = 300ms;
    Program alice(options);
    alice.store->setInt("number", 1);
    std::filesystem::path const next = std::filesystem::path(m_server->ask("SHOW data_directory")) / "pg_wal" /
                                       m_server->ask("SELECT pg_walfile_name(pg_current_wal_insert_lsn() + 1048576)");
    std::filesystem::remove(next);
    std::filesystem::create_symlink("/dev/full", next);
    m_server->ask("SELECT pg_switch_wal()");

    alice.store->setInt("number", 2);
    EXPECT_EQ(alice.store->getInt("number", 0), 2);
    EXPECT_EQ(alice.session.status().pending, 1U);
    EXPECT_TRUE(comesTrue([&] {
        std::optional<Studio::ServerError> const problem = alice.session.status().problem;
        return problem && problem->reason() == Reason::unreachable;
    }));
    EXPECT_NE(m_server->log().find("No space left on device"), std::string::npos) << m_server->log();

    m_server->stop();
    std::filesystem::remove(next);
    m_server->start();
    ASSERT_TRUE(comesTrue([&] { return alice.session.synchronise(60s); }));
    EXPECT_EQ(atServer("number"), "int 2");
    EXPECT_EQ(stored(), "2");
    EXPECT_EQ(losers(), "");
}

TEST_F(OfflineFaults, StartWithKnownValuesWaitsForAShorterTime)
{
    useProxy();
    Program(throughProxy()).store->setInt("number", 7);
    m_proxy->limit(Way::toServer, 0, Then::stall);
    Studio::Session::Options options = throughProxy();
    options.startWait = 300ms;
    std::optional<Program> alice;
    EXPECT_LE(timeOf([&] { alice.emplace(options); }).count(), (300ms + slack).count());
    EXPECT_EQ(alice->store->getInt("number", 0), 7);
}

TEST_F(OfflineFaults, ChangeWaitsForALostAnswerNoLongerThanItsPatienceAndThenNotAtAll)
{
    useProxy();
    Studio::Session::Options options = throughProxy();
    options.writeWait = 300ms;
    options.statementWait = options.connectWait = 1s;
    Program alice(options);
    m_proxy->limit(Way::toClient, 0, Then::stall);
    EXPECT_LE(timeOf([&] { alice.store->setInt("number", 1); }).count(), (300ms + slack).count());
    EXPECT_TRUE(comesTrue([&] { return alice.session.status().problem.has_value(); }));
    auto const manyTimes = timeOf([&] {
        for (int number = 2; number <= 100; ++number)
            alice.store->setInt("number", number);
    });
    EXPECT_LE(manyTimes.count(), (300ms + slack).count()) << "a hundred patiences would be 30 s";
    m_proxy->open();
    EXPECT_TRUE(comesTrue([&] { return alice.session.status().pending == 0; }));
    EXPECT_EQ(atServer("number"), "int 100");
    EXPECT_EQ(stored(), "100");
}

TEST_F(OfflineFaults, ChangeWhoseConnectionIsCutAnywhereIsDoneOnce)
{
    useProxy();
    Program alice(throughProxy());
    int sets = 0;
    for (Way const way : {Way::toServer, Way::toClient}) {
        m_proxy->open();
        alice.store->setInt("number", ++sets);
        long const bytes = m_proxy->passed(way);
        ASSERT_GT(bytes, 20);
        for (long count = 0; count < bytes; count += 5) {
            m_proxy->limit(way, count, Then::cutOnce);
            alice.store->setInt("number", ++sets);
            ASSERT_EQ(alice.store->getInt("number", 0), sets);
        }
    }
    m_proxy->open();
    ASSERT_TRUE(comesTrue([&] { return alice.session.status().pending == 0; }));
    EXPECT_EQ(atServer("number"), "int " + std::to_string(sets));
    EXPECT_EQ(stored(), std::to_string(sets));
    EXPECT_EQ(losers(), "");
}

TEST_F(OfflineFaults, SessionEndsAtOnceAndLeavesWhatWaitsToTheNext)
{
    useProxy();
    std::optional<Program> alice(std::in_place, throughProxy());
    m_proxy->limit(Way::toServer, 10, Then::stall);
    std::shared_ptr<ISettingsStorage> const store = alice->store;
    std::atomic<int> begun = 0;
    std::vector<std::thread> changes;
    for (char const* const key : {"a", "b", "c", "d"})
        changes.emplace_back([&, key] {
            ++begun;
            store->setInt(key, 1); // waits for an answer until the session ends
        });
    while (begun < 4 || alice->session.status().pending < 4 || m_proxy->passed(Way::toServer) < 10)
        std::this_thread::sleep_for(1ms);
    auto const time = timeOf([&] {
        alice.reset();
        for (std::thread& change : changes)
            change.join();
    });
    EXPECT_LE(time.count(), slack.count());
    EXPECT_EQ(store->getInt("a", 0), 1);
    EXPECT_EQ(errorOf([&] { store->setInt("a", 2); }).code(), Code::unreachable);
    m_proxy->open();
    Program next(throughProxy());
    EXPECT_EQ(next.store->getInt("d", 0), 1);
    ASSERT_TRUE(next.session.synchronise(60s));
    EXPECT_EQ(stored(), "4");
}

TEST_F(OfflineFaults, ServerThatStartsAgainIsNotAskedToDoTheSameTwice)
{
    Program alice(laptop());
    for (int number = 1; number <= 10; ++number) {
        alice.store->setInt("number", number);
        number % 2 == 0 ? m_server->stop() : m_server->kill();
        alice.store->setInt("other", number);
        m_server->start();
        ASSERT_TRUE(comesTrue([&] { return alice.session.synchronise(60s); }));
    }
    EXPECT_EQ(atServer("number"), "int 10");
    EXPECT_EQ(atServer("other"), "int 10");
    EXPECT_EQ(stored(), "20");
}

} // namespace
