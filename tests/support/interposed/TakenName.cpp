// SPDX-License-Identifier: MIT
//
// Interposes open, as no test can make a file between another program's look at a folder and its claim of a name: somebody
// takes the name in TEST_TAKEN_NAME just before the program does.
#include <cstdarg>
#include <cstdlib>
#include <cstring>

#include <dlfcn.h>
#include <fcntl.h>
#include <unistd.h>

extern "C" __attribute__((visibility("default"))) int open(char const* path, int flags, ...)
{
    auto const next = reinterpret_cast<int (*)(char const*, int, ...)>(::dlsym(RTLD_NEXT, "open"));
    std::va_list arguments;
    va_start(arguments, flags);
    mode_t const mode = (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    char const* const taken = std::getenv("TEST_TAKEN_NAME");
    if (taken && (flags & O_EXCL) != 0 && std::strcmp(path, taken) == 0)
        ::close(next(path, flags, mode));
    return next(path, flags, mode);
}
