// SPDX-License-Identifier: MIT
#include <Studio/server/Backoff.h>

#include <gtest/gtest.h>

#include <vector>

using namespace std::chrono_literals;
using Studio::Backoff;
using Failure = Studio::Backoff::Failure;

/// A backoff whose time and chance the test sets.
class BackoffTest : public testing::Test {
protected:
    std::vector<long long> waits(Failure failure, int count)
    {
        std::vector<long long> result;
        for (int number = 0; number < count; ++number)
            result.push_back(m_backoff.failed(failure).count());
        return result;
    }

    Backoff::Clock::time_point m_now = Backoff::Clock::time_point(24h);
    double m_random = 1;
    Backoff m_backoff{{[this] { return m_now; }, [this] { return m_random; }}};
};

TEST_F(BackoffTest, WaitsDoubleUpToHalfAMinute)
{
    EXPECT_EQ(waits(Failure::unreachable, 10), (std::vector<long long>{250, 500, 1000, 2000, 4000, 8000, 16000, 30000, 30000, 30000}));
}

TEST_F(BackoffTest, RefusedLoginWaitsUpToFiveMinutes)
{
    EXPECT_EQ(waits(Failure::refusedLogin, 13),
              (std::vector<long long>{250, 500, 1000, 2000, 4000, 8000, 16000, 32000, 64000, 128000, 256000, 300000, 300000}));
}

TEST_F(BackoffTest, ServerThatIsAwayAfterARefusedLoginIsTriedTwiceAMinute)
{
    waits(Failure::refusedLogin, 12);
    EXPECT_EQ(waits(Failure::unreachable, 2), (std::vector<long long>{30000, 30000}));
}

TEST_F(BackoffTest, WaitIsARandomPart)
{
    m_random = 0;
    EXPECT_EQ(m_backoff.failed(Failure::unreachable), 0ms);
    m_random = 0.5;
    EXPECT_EQ(m_backoff.failed(Failure::unreachable), 250ms);
    m_random = 0.25;
    EXPECT_EQ(m_backoff.failed(Failure::unreachable), 250ms);
}

TEST_F(BackoffTest, MinuteOfGoodServiceResetsIt)
{
    waits(Failure::unreachable, 5);
    m_backoff.connected();
    m_now += 60s;
    EXPECT_EQ(waits(Failure::unreachable, 2), (std::vector<long long>{250, 500}));
}

TEST_F(BackoffTest, ShorterServiceChangesNothing)
{
    waits(Failure::unreachable, 5);
    m_backoff.connected();
    m_now += 59999ms;
    EXPECT_EQ(waits(Failure::unreachable, 1), (std::vector<long long>{8000}));
}

TEST_F(BackoffTest, TimeWithoutAConnectionIsNoService)
{
    m_backoff.connected();
    m_now += 60s;
    waits(Failure::unreachable, 5);
    m_now += 24h;
    EXPECT_EQ(waits(Failure::unreachable, 1), (std::vector<long long>{8000}));
}

TEST(Backoff, ByItselfStaysWithinItsBound)
{
    Backoff backoff;
    for (auto const bound : {250ms, 500ms, 1000ms, 2000ms}) {
        auto const wait = backoff.failed(Failure::unreachable);
        EXPECT_GE(wait, 0ms);
        EXPECT_LE(wait, bound);
    }
}
