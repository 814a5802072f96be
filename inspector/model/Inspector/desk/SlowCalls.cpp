// SPDX-License-Identifier: MIT
#include "SlowCalls.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <system_error>
#include <utility>

namespace Inspector {

namespace {

// So that a call that hangs does not keep the others waiting.
constexpr std::size_t mostThreads = 4;
constexpr std::chrono::milliseconds patienceAtTheEnd{100};

} // namespace

struct SlowCalls::Shared {
    explicit Shared(std::function<void()> have) : haveResults(std::move(have)) {}

    bool isBusy() const { return std::find(busy.begin(), busy.end(), true) != busy.end(); }
    std::size_t idle() const { return static_cast<std::size_t>(std::count(busy.begin(), busy.end(), false)); }

    std::function<void()> const haveResults;
    std::mutex turns; // for all below
    std::condition_variable changed;
    std::deque<Call> calls;
    std::vector<Result> results;
    std::vector<bool> busy; // by the number of the thread
    bool isEnding = false;
};

SlowCalls::SlowCalls(std::function<void()> const& haveResults) : m_shared(std::make_shared<Shared>(haveResults)) {}

SlowCalls::~SlowCalls()
{
    std::unique_lock<std::mutex> turn(m_shared->turns);
    m_shared->isEnding = true;
    m_shared->calls.clear();
    m_shared->changed.notify_all();
    m_shared->changed.wait_for(turn, patienceAtTheEnd, [this] { return !m_shared->isBusy(); });
    std::vector<bool> const busy = m_shared->busy;
    turn.unlock();
    for (std::size_t number = 0; number < m_threads.size(); ++number)
        busy[number] ? m_threads[number].detach() : m_threads[number].join();
}

void SlowCalls::add(Call call)
{
    std::unique_lock<std::mutex> turn(m_shared->turns);
    m_shared->calls.push_back(std::move(call));
    m_shared->changed.notify_all();
    if (m_shared->calls.size() <= m_shared->idle() || m_threads.size() == mostThreads)
        return;
    m_shared->busy.push_back(false);
    try {
        m_threads.emplace_back([shared = m_shared, number = m_threads.size()] { run(shared, number); });
    } catch (std::system_error const&) { // the call waits for another thread, or for the next call
        m_shared->busy.pop_back();
    }
}

std::vector<SlowCalls::Result> SlowCalls::takeResults()
{
    std::lock_guard<std::mutex> const turn(m_shared->turns);
    return std::exchange(m_shared->results, {});
}

// The callback runs with the lock held, so that it never runs after the destructor.
void SlowCalls::run(std::shared_ptr<Shared> const& shared, std::size_t number)
{
    std::unique_lock<std::mutex> turn(shared->turns);
    for (;;) {
        shared->changed.wait(turn, [&] { return shared->isEnding || !shared->calls.empty(); });
        if (shared->isEnding)
            return;
        Call const call = std::move(shared->calls.front());
        shared->calls.pop_front();
        shared->busy[number] = true;
        turn.unlock();
        Result result = call();
        turn.lock();
        shared->busy[number] = false;
        shared->changed.notify_all();
        if (shared->isEnding)
            return;
        shared->results.push_back(std::move(result));
        shared->haveResults();
    }
}

} // namespace Inspector
