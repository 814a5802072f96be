// SPDX-License-Identifier: MIT
//
// The system as a store meets it, refusing on demand. A program that links this has its own functions before those of
// the system that a store reaches: they note each call, and refuse or cut short the one that they are told to.
#pragma once

#include <string>
#include <vector>

namespace FaultySystem {

struct Fault {
    int error = 0;                 ///< What errno a refused call gives; 0 where none is refused.
    bool cutsShort = false;        ///< The call moves half of its bytes; the one after it gives `error`.
    bool lasts = false;            ///< Calls are refused from the first one on, until `rest`.
    std::vector<std::string> only; ///< The functions that it is about; none for all.
};

/// Notes calls from now on, and lets `fault` strike the `nth` of those that it is about, counted from 1.
void watch(Fault const& fault = {}, int nth = 1);

/// Ends this process by SIGKILL before the `nth` call of `function`.
void killBefore(std::string const& function, int nth);

/// From now on all calls go through unnoted.
void rest();

/// How many calls were refused or cut short since `watch`.
int strikes();

/// The functions called between `watch` and `rest`, in their order.
std::vector<std::string> const& calls();

} // namespace FaultySystem
