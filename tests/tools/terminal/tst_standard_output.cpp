// SPDX-License-Identifier: MIT
//
// Standard output is checked when it is closed; each case runs in a process of its own.
#include "terminal/Streams.h"

#include <gtest/gtest.h>

#include <iostream>

#include <fcntl.h>
#include <unistd.h>

namespace {

// Prints `bytes` to `file` and ends the process, with the reason of `closeStandardOutput` on standard error.
[[noreturn]] void printTo(char const* file, std::size_t bytes)
{
    std::cout.flush();
    ::dup2(::open(file, O_WRONLY | O_CLOEXEC), STDOUT_FILENO);
    std::cout << std::string(bytes, 'x');
    std::string const reason = closeStandardOutput(); // before std::cerr, which flushes std::cout
    std::cerr << '<' << reason << '>' << std::flush;
    ::_exit(0);
}

TEST(StandardOutput, ThatTakesAllIsNoError) { EXPECT_EXIT(printTo("/dev/null", 1000000), testing::ExitedWithCode(0), "^<>$"); }

TEST(StandardOutput, FailsWithItsReasonWhenItIsFlushed)
{
    EXPECT_EXIT(printTo("/dev/full", 1), testing::ExitedWithCode(0), "^<No space left on device>$");
}

TEST(StandardOutput, FailsWithItsReasonAlsoAfterAnEarlierFailure)
{
    EXPECT_EXIT(printTo("/dev/full", 1000000), testing::ExitedWithCode(0), "^<No space left on device>$");
}

TEST(StandardOutput, WithNothingPrintedIsNoError) { EXPECT_EXIT(printTo("/dev/full", 0), testing::ExitedWithCode(0), "^<>$"); }

} // namespace
