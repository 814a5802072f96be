// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <functional>

namespace Studio {

/// How long a session waits before it tries to connect again: 0.25 s, doubled after each failure up to 30 s, and of that a
/// random part, so that the workstations of a studio do not all knock at once when its server comes back.
///
/// Threads: for one thread.
class Backoff {
public:
    using Clock = std::chrono::steady_clock;

    /// What time it is, and numbers from 0 up to 1, each as likely as the other.
    struct Source {
        std::function<Clock::time_point()> now;
        std::function<double()> random;
    };

    /// Why there is no connection.
    enum class Failure {
        unreachable,  ///< The server or the way to it, which may be back soon.
        refusedLogin, ///< The account, where many tries could lock it: the wait grows up to 5 min.
    };

    /// A connection that held for so long ends the series of failures.
    static constexpr std::chrono::seconds goodService{60};

    /// Uses the steady clock and a random seed.
    Backoff();
    /// As above, with the time and the chance of the caller's choice.
    explicit Backoff(Source source);

    /// Notes that a connection is made.
    void connected();
    /// Notes that no connection could be made, or that the one there was is lost; how long to wait before the next try.
    std::chrono::milliseconds failed(Failure failure);

private:
    Source m_source;
    Clock::time_point m_connected = Clock::time_point::max();
    std::chrono::milliseconds m_next;
};

} // namespace Studio
