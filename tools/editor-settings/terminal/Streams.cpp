// SPDX-License-Identifier: MIT
#include "terminal/Streams.h"

#include <cerrno>
#include <cstdio>
#include <iostream>
#include <system_error>

#include <fcntl.h>
#include <unistd.h>

void holdStandardStreams()
{
    // Opened in the wrong direction, so that reading standard input fails, and so does writing the others.
    for (int const stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        if (::fcntl(stream, F_GETFD) < 0)
            ::open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY); // open takes the lowest free descriptor, which is `stream`
}

std::string closeStandardOutput()
{
    bool const wasWritten = std::cout && std::ferror(stdout) == 0;
    if (std::fflush(stdout) != 0)
        return std::generic_category().message(errno);
    // The reason of an earlier failure is lost, so one more byte asks for it again.
    if (!wasWritten)
        return std::generic_category().message(::write(STDOUT_FILENO, "\n", 1) < 0 ? errno : EIO);
    return ::close(STDOUT_FILENO) == 0 ? std::string() : std::generic_category().message(errno);
}
