// SPDX-License-Identifier: MIT
#include "cli/CommandLine.h"
#include "terminal/Streams.h"

#include <csignal>

#include <sqlite3.h>

namespace {

// SQLite takes memory in advance, which costs a process that ends at once more than it saves it.
void startSmall()
{
    sqlite3_config(SQLITE_CONFIG_LOOKASIDE, 0, 0);
    sqlite3_config(SQLITE_CONFIG_PAGECACHE, nullptr, 0, 3);
}

} // namespace

// NOLINTNEXTLINE(bugprone-exception-escape): only a lack of memory is thrown here, which ends the process
int main(int argc, char** argv)
{
    holdStandardStreams();
    std::signal(SIGXFSZ, SIG_IGN); // a write beyond the limit of file sizes then fails as on a full disk
    startSmall();
    return runCommandLine(argc, argv);
}
