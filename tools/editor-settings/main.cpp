// SPDX-License-Identifier: MIT
#include "cli/CommandLine.h"
#include "terminal/Streams.h"

#include <csignal>

// NOLINTNEXTLINE(bugprone-exception-escape): only a lack of memory is thrown here, which ends the process
int main(int argc, char** argv)
{
    holdStandardStreams();
    std::signal(SIGXFSZ, SIG_IGN); // a write beyond the limit of file sizes then fails as on a full disk
    return runCommandLine(argc, argv);
}
