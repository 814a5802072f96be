// SPDX-License-Identifier: MIT
//
// Interposes statfs, as no network file system can be mounted in a test: the folder that TEST_NETWORK_FOLDER names lies on NFS.
#include <cstdlib>
#include <filesystem>
#include <string>

#include <dlfcn.h>
#include <sys/vfs.h>

extern "C" __attribute__((visibility("default"))) int statfs(char const* path, struct statfs* status) noexcept
{
    auto const next = reinterpret_cast<int (*)(char const*, struct statfs*)>(::dlsym(RTLD_NEXT, "statfs"));
    int const result = next(path, status);
    char const* const folder = std::getenv("TEST_NETWORK_FOLDER");
    std::error_code error;
    std::string const real = std::filesystem::canonical(path, error).string();
    if (result == 0 && folder && real.rfind(folder, 0) == 0)
        status->f_type = 0x6969;
    return result;
}
