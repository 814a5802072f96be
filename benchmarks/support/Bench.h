// SPDX-License-Identifier: MIT
//
// What the benchmark programs share. A benchmark is called "row/side": the row says what is done, the side by whom:
// "library", "floor" (the least that the answer takes), or a peer. All sides of a row run in one process, in random
// alternation.
#pragma once

#include <benchmark/benchmark.h>

#include <chrono>
#include <string>
#include <type_traits>
#include <utility>

namespace Bench {

/// Has `add` called by main once the arguments are known and Qt's application is there.
class Registration {
public:
    explicit Registration(void (*add)());
};

/// Whether each benchmark is only to be run once, on little.
bool isShort();

/// Ends the program with status 1 and a line on standard error unless `holds`.
void require(bool holds, std::string const& what);

struct Allocations {
    long long count = 0; ///< Calls of malloc, realloc and their like.
    long long peak = 0;  ///< The most bytes that were allocated at a time beyond those at the start.
};

void startCounting();
Allocations stopCounting();

/// What `work` allocates in this process, in all threads.
template <typename Work>
Allocations allocationsOf(Work const& work)
{
    startCounting();
    static_cast<void>(work());
    return stopCounting();
}

template <typename Work>
void call(Work const& work)
{
    if constexpr (std::is_void_v<decltype(work())>)
        work();
    else
        benchmark::DoNotOptimize(work());
}

/// The time of one `work` in seconds, taken over `calls` of them.
template <typename Work>
double timeOf(Work const& work, int calls = 1)
{
    using Clock = std::chrono::steady_clock;
    Clock::time_point const start = Clock::now();
    for (int count = 0; count < calls; ++count)
        call(work);
    return std::chrono::duration<double>(Clock::now() - start).count() / calls;
}

template <typename Work>
void repeat(benchmark::State& state, Work const& work)
{
    for ([[maybe_unused]] auto const once : state)
        call(work);
}

/// Adds the benchmark "row/side", which takes its state.
template <typename Run>
benchmark::internal::Benchmark* addRun(std::string const& row, std::string const& side, Run run)
{
    return benchmark::RegisterBenchmark((row + '/' + side).c_str(), std::move(run))->UseRealTime();
}

/// Adds the benchmark "row/side", which does `work` over and over and counts what it allocates.
template <typename Work>
benchmark::internal::Benchmark* add(std::string const& row, std::string const& side, Work work)
{
    return addRun(row, side, [work = std::move(work)](benchmark::State& state) {
        state.counters["allocations"] = static_cast<double>(allocationsOf(work).count);
        repeat(state, work);
    });
}

/// As `add`, but each `work` comes after `preparation`, which does not count.
template <typename Preparation, typename Work>
benchmark::internal::Benchmark* addAfter(std::string const& row, std::string const& side, Preparation preparation, Work work)
{
    auto const run = [preparation, work](benchmark::State& state) {
        preparation();
        state.counters["allocations"] = static_cast<double>(allocationsOf(work).count);
        for ([[maybe_unused]] auto const once : state) {
            preparation();
            state.SetIterationTime(timeOf(work));
        }
    };
    return benchmark::RegisterBenchmark((row + '/' + side).c_str(), run)->UseManualTime();
}

/// Adds the benchmark "row/library", which does `work` and `floor` by turns of so many calls, so that a neighbour's load
/// meets both alike; `prepare` gets the state before. The counter "floor" is the time of a floor in nanoseconds. Turns
/// of several calls are for calls that are short; their number is to be set, as the time of one call would give too many.
template <typename Preparation, typename Work, typename Floor>
benchmark::internal::Benchmark* addByTurns(std::string const& row, Preparation prepare, Work work, Floor floor, int calls = 1)
{
    auto const run = [prepare, work, floor, calls](benchmark::State& state) {
        prepare(state);
        double inFloors = 0;
        for ([[maybe_unused]] auto const once : state) {
            inFloors += timeOf(floor, calls);
            state.SetIterationTime(timeOf(work, calls));
        }
        state.counters["floor"] = benchmark::Counter(1e9 * inFloors, benchmark::Counter::kAvgIterations);
    };
    return benchmark::RegisterBenchmark((row + "/library").c_str(), run)->UseManualTime();
}

/// As `addByTurns`, but each `work` comes after `beforeWork` and each `floor` after `beforeFloor`, which do not count.
template <typename BeforeWork, typename Work, typename BeforeFloor, typename Floor>
benchmark::internal::Benchmark* addAfterByTurns(std::string const& row, BeforeWork beforeWork, Work work, BeforeFloor beforeFloor,
                                                Floor floor)
{
    auto const run = [beforeWork, work, beforeFloor, floor](benchmark::State& state) {
        double inFloors = 0;
        for ([[maybe_unused]] auto const once : state) {
            beforeFloor();
            inFloors += timeOf(floor);
            beforeWork();
            state.SetIterationTime(timeOf(work));
        }
        state.counters["floor"] = benchmark::Counter(1e9 * inFloors, benchmark::Counter::kAvgIterations);
    };
    return benchmark::RegisterBenchmark((row + "/library").c_str(), run)->UseManualTime();
}

template <typename Work, typename Floor>
benchmark::internal::Benchmark* addByTurns(std::string const& row, Work work, Floor floor, int calls = 1)
{
    auto const nothing = [](benchmark::State&) {};
    return addByTurns(row, nothing, work, floor, calls);
}

} // namespace Bench
