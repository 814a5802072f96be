// SPDX-License-Identifier: MIT
//
// System calls that fail on demand. A program that links this interposes the functions of the C library that a store
// calls: they record each call, and fail or cut short the one that a test names.
#pragma once

#include <string>
#include <vector>

namespace FaultySystem {

struct Fault {
    int error = 0;                 ///< The `errno` of a failing call; 0 where none fails.
    bool cutsShort = false;        ///< The call moves half of its bytes; the next one fails with `error`.
    bool lasts = false;            ///< All calls from the first one on fail, until `rest`.
    std::vector<std::string> only; ///< The functions concerned; empty for all.
};

/// Records calls from now on, and lets `fault` strike the `nth` call of its functions, counted from 1.
void watch(Fault const& fault = {}, int nth = 1);

/// Ends this process by SIGKILL before the `nth` call of `function`.
void killBefore(std::string const& function, int nth);

/// Stops this process by SIGSTOP before the `nth` call of `function`.
void stopBefore(std::string const& function, int nth);

/// Lets all calls pass unrecorded from now on.
void rest();

/// The number of calls that failed or were cut short since `watch`.
int strikes();

/// The functions called between `watch` and `rest`, in their order.
std::vector<std::string> const& calls();

} // namespace FaultySystem
