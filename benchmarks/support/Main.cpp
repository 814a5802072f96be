// SPDX-License-Identifier: MIT
#include "Bench.h"

#include <QCoreApplication>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <thread>
#include <vector>

namespace {

bool shortForm = false;

std::vector<void (*)()>& registrations()
{
    static std::vector<void (*)()> all;
    return all;
}

// Google Benchmark's arguments: ours first, so that the caller's win.
std::vector<std::string> arguments(int argc, char** argv)
{
    std::vector<std::string> result{argv[0], "--benchmark_enable_random_interleaving=true"};
    for (int index = 1; index < argc; ++index)
        shortForm = shortForm || std::strcmp(argv[index], "--short") == 0;
    result.push_back(shortForm ? "--benchmark_repetitions=1" : "--benchmark_repetitions=5");
    result.push_back(shortForm ? "--benchmark_min_time=0" : "--benchmark_min_time=0.01");
    for (int index = 1; index < argc; ++index)
        if (std::strcmp(argv[index], "--short") != 0)
            result.push_back(argv[index]);
    return result;
}

} // namespace

Bench::Registration::Registration(void (*add)()) { registrations().push_back(add); }

bool Bench::isShort() { return shortForm; }

void Bench::require(bool holds, std::string const& what)
{
    if (holds)
        return;
    std::fprintf(stderr, "%s\n", what.c_str());
    std::_Exit(1);
}

int main(int argc, char** argv)
{
    // An editor has threads, and from the first one on shared pointers count with atomic operations.
    std::thread([] {}).join();
    // Names of files are read as the editor's users have them.
    ::setenv("LC_ALL", "C.UTF-8", 1);
    std::vector<std::string> texts = arguments(argc, argv);
    std::vector<char*> pointers;
    for (std::string& text : texts)
        pointers.push_back(text.data());
    int count = static_cast<int>(pointers.size());
    pointers.push_back(nullptr);
    benchmark::Initialize(&count, pointers.data());
    if (benchmark::ReportUnrecognizedArguments(count, pointers.data()))
        return 2;

    QCoreApplication const application(count, pointers.data());
    benchmark::AddCustomContext("qt", qVersion());
    for (auto const add : registrations())
        add();
    std::size_t const run = benchmark::RunSpecifiedBenchmarks();
    // What the benchmarks share lives in them and must go before the application.
    benchmark::ClearRegisteredBenchmarks();
    return run > 0 ? 0 : 1;
}
