// SPDX-License-Identifier: MIT
#pragma once

#include "ServerTest.h"

#include <Studio/server/Connection.h>

#include <chrono>
#include <functional>
#include <string>
#include <utility>

using Studio::Connection;
using Studio::Parameter;
using Reason = Studio::ServerError::Reason;

/// How long a call may take beyond its bound where a sanitizer and other work share the machine. Every wait that is not the
/// tested one is far longer.
inline constexpr std::chrono::milliseconds slack{5000};

/// For what is no test of time: waits that are enough for a loaded machine, and under valgrind.
inline Connection::Options patient(std::string connection)
{
    return {std::move(connection), std::chrono::minutes(1), std::chrono::minutes(1)};
}

/// The error that `work` throws. Another end fails the test.
inline Studio::ServerError errorOf(std::function<void()> const& work)
{
    try {
        work();
    } catch (Studio::ServerError const& error) {
        return error;
    }
    ADD_FAILURE() << "nothing was thrown";
    return {Reason::rejected, "nowhere"};
}

/// How long `work` takes.
inline std::chrono::milliseconds timeOf(std::function<void()> const& work)
{
    auto const begin = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - begin);
}

/// Expects `work` to fail for `reason`, within `bound` and the slack.
inline void expectFailure(Reason reason, std::chrono::milliseconds bound, std::function<void()> const& work)
{
    auto const time = timeOf([&] { EXPECT_EQ(errorOf(work).reason(), reason); });
    EXPECT_LE(time.count(), (bound + slack).count());
}
