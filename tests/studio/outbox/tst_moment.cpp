// SPDX-License-Identifier: MIT
//
// How old a change is, whatever was done to the clock.
#include <Studio/outbox/Moment.h>

#include <gtest/gtest.h>

#include <limits>
#include <thread>

namespace {

using Studio::age;
using Studio::Moment;

constexpr std::int64_t hour = 3600000;
constexpr std::int64_t year = 365 * 24 * hour;
constexpr std::int64_t today = 56 * year;

TEST(Age, IsTheDifferenceOfUptimeWithinOneRunOfTheSystem)
{
    EXPECT_EQ(age({"a", 1000, today}, {"a", 4500, today + 3500}), 3500);
    EXPECT_EQ(age({"a", 1000, today}, {"a", 1000, today}), 0);
}

TEST(Age, WithinOneRunHeedsNoClockThatIsSet)
{
    EXPECT_EQ(age({"a", hour, today}, {"a", 2 * hour, today + 9 * year}), hour);
    EXPECT_EQ(age({"a", hour, today}, {"a", 2 * hour, today - 9 * year}), hour);
}

TEST(Age, AcrossARestartIsTheDifferenceOfTheTimeOfDay)
{
    EXPECT_EQ(age({"a", 500 * hour, today}, {"b", hour, today + 72 * hour}), 72 * hour);
}

TEST(Age, AcrossARestartIsAtLeastTheTimeSinceThen)
{
    EXPECT_EQ(age({"a", 500 * hour, today}, {"b", hour, today - year}), hour);
    EXPECT_EQ(age({"a", 500 * hour, today}, {"b", hour, today + 1}), hour);
}

TEST(Age, GoesByTheTimeOfDayWhereTheSystemNamesNoRun)
{
    EXPECT_EQ(age({"", 0, today}, {"", 500 * hour, today + hour}), hour);
    EXPECT_EQ(age({"a", 0, today}, {"", 500 * hour, today + hour}), hour);
    EXPECT_EQ(age({"", 0, today}, {"b", 500 * hour, today - hour}), 0);
}

TEST(Age, IsNeverNegativeAndNeverOverflows)
{
    constexpr std::int64_t least = std::numeric_limits<std::int64_t>::min();
    constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max();
    EXPECT_EQ(age({"a", 2000, today}, {"a", 1000, today}), 0);
    EXPECT_EQ(age({"a", most, most}, {"a", 1000, today}), 0);
    EXPECT_EQ(age({"a", least, least}, {"a", 1000, today}), 1000);
    EXPECT_EQ(age({"a", least, least}, {"b", 1000, today}), today);
    EXPECT_EQ(age({"a", 0, 0}, {"b", 1000, -today}), 1000);
}

TEST(Moment, CountsOnWithinTheSameRun)
{
    Moment const then = Moment::now();
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    Moment const now = Moment::now();
    EXPECT_EQ(now.boot, then.boot);
    EXPECT_EQ(now.boot.size(), 36U);
    EXPECT_GE(age(then, now), 19);
    EXPECT_GT(now.timeOfDay, 50 * year);
}

} // namespace
