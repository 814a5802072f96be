// SPDX-License-Identifier: MIT
#include <Studio/Listener.h>

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <future>
#include <stdexcept>
#include <thread>
#include <vector>

using namespace std::chrono_literals;
using Studio::Listener;

TEST(Listener, IsCalledFromWhenItIsSetUntilItIsCleared)
{
    Listener listener;
    std::vector<std::string> heard;
    listener.call("common", "early");
    EXPECT_FALSE(listener.isSet());
    listener.set([&](std::string const& store, std::string const& key) { heard.push_back(store + ' ' + key); });
    EXPECT_TRUE(listener.isSet());
    listener.call("common", "one");
    listener.set([&](std::string const&, std::string const& key) { heard.push_back("other " + key); });
    listener.call("common", "two");
    listener.set({});
    EXPECT_FALSE(listener.isSet());
    listener.call("common", "late");
    EXPECT_EQ(heard, (std::vector<std::string>{"common one", "other two"}));
}

TEST(Listener, ClearingWaitsForTheCallThatRuns)
{
    for (bool const isReplaced : {false, true}) {
        Listener listener;
        std::promise<void> begun;
        std::promise<void> mayEnd;
        std::atomic<bool> hasEnded = false;
        listener.set([&](std::string const&, std::string const&) {
            begun.set_value();
            mayEnd.get_future().wait();
            hasEnded = true;
        });
        std::thread caller([&] { listener.call("common", "key"); });
        begun.get_future().wait();
        std::future<bool> cleared = std::async(std::launch::async, [&] {
            listener.set(isReplaced ? [](std::string const&, std::string const&) {} : Listener::Function());
            return hasEnded.load();
        });
        EXPECT_EQ(cleared.wait_for(50ms), std::future_status::timeout);
        mayEnd.set_value();
        caller.join();
        EXPECT_TRUE(cleared.get());
    }
}

TEST(Listener, MayClearItself)
{
    Listener listener;
    int calls = 0;
    listener.set([&](std::string const&, std::string const&) {
        ++calls;
        listener.set({});
    });
    listener.call("common", "key");
    listener.call("common", "key");
    EXPECT_EQ(calls, 1);
}

TEST(Listener, WhatItHoldsIsFreedWhenItIsCleared)
{
    Listener listener;
    auto const held = std::make_shared<int>(1);
    listener.set([held](std::string const&, std::string const&) {});
    EXPECT_EQ(held.use_count(), 2);
    listener.set({});
    EXPECT_EQ(held.use_count(), 1);
}

TEST(ListenerDeathTest, ExceptionEndsTheProgram)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    Listener listener;
    listener.set([](std::string const&, std::string const&) { throw std::runtime_error("of the host"); });
    EXPECT_DEATH(listener.call("common", "key"), "of the host");
}
