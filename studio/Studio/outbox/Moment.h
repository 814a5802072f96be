// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace Studio {

/// When something happened on this workstation, by two clocks: the one that counts from the start of the system, which nobody
/// sets and which goes on while the machine sleeps; and the time of day, for what happened before that start.
struct Moment {
    std::string boot;           ///< Names the start of the system; empty where the system does not tell.
    std::int64_t uptime = 0;    ///< Milliseconds since that start.
    std::int64_t timeOfDay = 0; ///< Milliseconds since 1970-01-01 00:00 UTC.

    /// This moment.
    static Moment now();
};

/// The milliseconds from `then` to `now`, never negative. Within one run of the system the time of day does not count. Across a
/// restart its difference counts, but at least the time since the restart, however the clock was set meanwhile.
std::int64_t age(Moment const& then, Moment const& now);

} // namespace Studio
