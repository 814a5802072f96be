// SPDX-License-Identifier: MIT
#include "cli/CommandLine.h"
#include "terminal/Streams.h"

// NOLINTNEXTLINE(bugprone-exception-escape): only a lack of memory is thrown here, which ends the process
int main(int argc, char** argv)
{
    holdStandardStreams();
    return runCommandLine(argc, argv);
}
