// SPDX-License-Identifier: MIT
//
// Sessions whose server stands behind a pooler, which lends its connections for a transaction each and keeps notifications back.
#include "support/SessionTest.h"

#include <TestKit/StorageContract.h>

#include <studio/support/Pooler.h>

#include <filesystem>

using namespace std::chrono_literals;

namespace {

/// Skips all tests where there is no pooler, and fails where CI is set, which has one.
class PoolerEnvironment : public ServerEnvironment {
public:
    void SetUp() override
    {
        ServerEnvironment::SetUp();
        if (std::filesystem::exists(Pooler::program))
            return;
        if (std::getenv("CI"))
            FAIL() << "there is no pooler here: install Debian's pgbouncer";
        GTEST_SKIP() << "there is no pooler here: install Debian's pgbouncer";
    }
};

[[maybe_unused]] auto* const environment = testing::AddGlobalTestEnvironment(new PoolerEnvironment);

} // namespace

class SessionPooled : public SessionTest {
protected:
    void startServer() override
    {
        SessionTest::startServer();
        m_pooler.emplace(*m_server);
    }

    Studio::Session::Options pooled() const
    {
        Studio::Session::Options options = listening(m_pooler->connection("alice"));
        options.pollWait = 20ms;
        return options;
    }

    std::optional<Pooler> m_pooler;
};

TEST_F(SessionPooled, PoolerIsNoticedWhenTheSessionConnects)
{
    Program alice(pooled());
    EXPECT_TRUE(alice.session.status().connected);
    EXPECT_TRUE(alice.session.status().pooled);
    EXPECT_EQ(alice.session.status().hearing, Studio::Status::Hearing::polling);
    EXPECT_EQ(ask("SELECT count(*) FROM pg_locks WHERE locktype = 'advisory'"), "0");
}

TEST_F(SessionPooled, ChangesAreSeen)
{
    Program first(pooled());
    Program second(pooled());
    Program third(pooled());
    first.store->setInt("number", 7);
    for (Program* const program : {&second, &third})
        EXPECT_TRUE(comesTrue([&] { return program->store->getInt("number", 0) == 7; }));
    give("number", "int", "1", true);
    for (Program* const program : {&first, &second, &third})
        EXPECT_TRUE(comesTrue([&] { return program->store->getInt("number", 0) == 1; }));
}

// The pooler keeps the client's connection, and the server's lies behind it.
TEST_F(SessionPooled, OtherHistoryBehindThePoolerIsNoticed)
{
    Program alice(pooled());
    alice.store->setInt("gone", 1);
    EXPECT_TRUE(alice.session.synchronise(60s));
    makeAliceAgain();
    EXPECT_TRUE(comesTrue([&] { return alice.store->getInt("new", 0) == 2 && !alice.store->contains("gone"); }));
    EXPECT_TRUE(alice.session.status().historyChanged);
}

namespace {

/// The pooler of a `SessionPooled`, for the tests of the contract, which have a fixture of their own.
class SharedPooler : public SessionPooled {
public:
    SharedPooler() { startServer(); }
    using SessionPooled::pooled;

private:
    void TestBody() override {}
};

class OneProgramBehindAPooler {
public:
    std::shared_ptr<ISettingsStorage> open() { return m_program.session.store("common", m_program.local); }

private:
    SharedPooler m_pooler;
    Program m_program{m_pooler.pooled()};
};

} // namespace

namespace TestKit {

INSTANTIATE_TYPED_TEST_SUITE_P(Pooled, StorageContract, OneProgramBehindAPooler);

} // namespace TestKit
