// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

/// A forked process that is stopped at each of its system calls, as a debugger does it. To be started while no other
/// thread runs.
namespace Traced {

/// What a traced process does: first `before`, then `work`, whose calls count.
struct Work {
    std::function<void()> before;
    std::function<void()> work;
};

/// Whether this process may trace others; in some containers it may not.
bool isPossible();

/// The numbers of the system calls of the work, in their order. Throws `std::runtime_error` where it did not end well.
std::vector<long> systemCalls(Work const& work);

/// Kills the process by SIGKILL at the `nth` system call of the work, counted from 1, before it is carried out. False
/// where the work has no more than `nth` - 1 calls; it was done then.
bool killedAtCall(Work const& work, int nth);

/// Does `meanwhile` in this process while the traced one is stopped before the `nth` system call of the work, counted from
/// 1. False where the work has no more than `nth` - 1 calls.
bool reachedCall(Work const& work, int nth, std::function<void()> const& meanwhile);

} // namespace Traced
