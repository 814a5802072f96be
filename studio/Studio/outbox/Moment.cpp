// SPDX-License-Identifier: MIT
#include <Studio/outbox/Moment.h>

#include <algorithm>
#include <ctime>
#include <fstream>

namespace Studio {

namespace {

std::int64_t millisecondsOf(clockid_t clock)
{
    timespec time = {};
    ::clock_gettime(clock, &time);
    return std::int64_t{time.tv_sec} * 1000 + time.tv_nsec / 1000000;
}

std::string const& currentBoot()
{
    static std::string const boot = [] {
        std::string line;
        std::getline(std::ifstream("/proc/sys/kernel/random/boot_id"), line);
        return line;
    }();
    return boot;
}

// A file may hold any number, and a clock may have been set back.
std::int64_t elapsed(std::int64_t then, std::int64_t now) { return now - std::clamp<std::int64_t>(then, 0, now); }

} // namespace

Moment Moment::now() { return {currentBoot(), millisecondsOf(CLOCK_BOOTTIME), millisecondsOf(CLOCK_REALTIME)}; }

std::int64_t age(Moment const& then, Moment const& now)
{
    std::int64_t const byTimeOfDay = elapsed(then.timeOfDay, std::max<std::int64_t>(now.timeOfDay, 0));
    if (then.boot.empty() || now.boot.empty())
        return byTimeOfDay;
    return then.boot == now.boot ? elapsed(then.uptime, now.uptime) : std::max(byTimeOfDay, now.uptime);
}

} // namespace Studio
