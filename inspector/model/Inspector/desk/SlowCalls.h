// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <thread>
#include <vector>

namespace Inspector {

/// Calls of the system that may take minutes, such as a look at a folder of a network that is gone, in up to four threads that
/// nobody waits for. Internal.
///
/// The destructor waits for a tenth of a second. A thread that is in a call then is left behind: it drops the result and ends. So a
/// call owns all that it uses, by value or shared, and calls neither library nor stores.
/// Threads: one, but for the calls.
class SlowCalls {
public:
    /// What is done with what a call found, in the thread that takes it.
    using Result = std::function<void()>;
    using Call = std::function<Result()>;

    /// `haveResults` is called in any thread, after each call, and not after the destructor.
    explicit SlowCalls(std::function<void()> const& haveResults);
    ~SlowCalls();
    SlowCalls(SlowCalls const&) = delete;
    SlowCalls& operator=(SlowCalls const&) = delete;

    /// Has `call` called, which must not throw.
    void add(Call call);
    /// What the calls found since the last time.
    std::vector<Result> takeResults();

private:
    struct Shared;

    static void run(std::shared_ptr<Shared> const& shared, std::size_t number);

    std::shared_ptr<Shared> const m_shared;
    std::vector<std::thread> m_threads;
};

} // namespace Inspector
