// SPDX-License-Identifier: MIT
#include <support/interposed/RefusedHints.h>

#include <atomic>
#include <cerrno>

#include <dlfcn.h>
#include <sys/inotify.h>

namespace {

std::atomic<int> refusals{0};

} // namespace

RefusedHints::RefusedHints() { ++refusals; }
RefusedHints::~RefusedHints() { --refusals; }

extern "C" __attribute__((visibility("default"))) int inotify_init1(int flags) noexcept
{
    static auto* const real = reinterpret_cast<int (*)(int)>(::dlsym(RTLD_NEXT, "inotify_init1"));
    if (refusals == 0)
        return real(flags);
    errno = EMFILE;
    return -1;
}
