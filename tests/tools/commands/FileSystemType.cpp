// SPDX-License-Identifier: MIT
//
// Preloaded into the program under test, answers `statfs` with the type in FILE_SYSTEM_TYPE, as no test can mount a
// network file system.
#include <cstdlib>

#include <dlfcn.h>
#include <sys/vfs.h>

namespace {

template <typename Status>
int answer(char const* function, char const* path, Status* status)
{
    int const result = reinterpret_cast<int (*)(char const*, Status*)>(::dlsym(RTLD_NEXT, function))(path, status);
    if (char const* const type = std::getenv("FILE_SYSTEM_TYPE"))
        status->f_type = static_cast<decltype(status->f_type)>(std::strtoul(type, nullptr, 16));
    return result;
}

} // namespace

extern "C" [[gnu::visibility("default")]] int statfs(char const* path, struct statfs* status) noexcept
{
    return answer("statfs", path, status);
}
