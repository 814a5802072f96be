// SPDX-License-Identifier: MIT
#pragma once

#include "Orders.h"

#include <Inspector/Place.h>

#include <Inspection/PathStatus.h>
#include <Storage/watch/WakeUp.h>

#include <chrono>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

namespace Inspector {

/// What the thread has to tell.
struct News {
    std::shared_ptr<Snapshot const> snapshot; ///< Of the last look; nullptr before the first.
    std::vector<int> waiting;                 ///< The numbers of orders that wait for others.
    std::vector<Answer> answers;
    std::vector<std::pair<int, Inspection::PathStatus>> folders; ///< By the number of the question.
};

/// The thread of a desk, the one that calls library and stores. Internal.
///
/// Threads: any may call, and waits for no store but in the destructor.
class DeskThread {
public:
    /// `haveNews` is called by the thread when there is something to take.
    DeskThread(Place const& place, std::function<void()> haveNews);
    ~DeskThread();
    DeskThread(DeskThread const&) = delete;
    DeskThread& operator=(DeskThread const&) = delete;

    void setPause(std::chrono::milliseconds longest);
    void lookAgain();
    void add(Order order);
    void cancel(int number);
    /// Looks at a folder that the editor would write to.
    void check(int number, QString const& folder);
    News takeNews();

private:
    // What it is asked for, and takes when it wakes.
    struct Asked {
        std::vector<Order> orders;
        std::vector<int> cancelled;
        std::vector<std::pair<int, QString>> folders;
        bool isToLook = false;
    };

    void ask(std::function<void(Asked&)> const& add);
    void run();
    void lookUntilTheEnd(OpenedStores& stores, SlowCalls& calls);
    std::optional<std::chrono::milliseconds> takeAsked(Orders& orders, OpenedStores& stores, SlowCalls& calls);
    void check(std::pair<int, QString> const& folder, SlowCalls& calls);
    void tell(std::function<void(News&)> const& add);

    Place const m_place;
    std::function<void()> const m_haveNews;
    Storage::WakeUp const m_wake; // when the thread must not wait

    std::mutex m_turns; // for all below
    Asked m_asked;
    std::chrono::milliseconds m_pause{200};
    bool m_isEnding = false;
    News m_news;
    bool m_hasNews = false; // that `haveNews` was called for
    std::thread m_thread;
};

} // namespace Inspector
