// SPDX-License-Identifier: MIT
#include <storage/support/FaultySystem.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdlib>
#include <mutex>

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <sys/vfs.h>
#include <unistd.h>

namespace FaultySystem {

namespace {

struct State {
    bool isWatching = false;
    Fault fault;
    int nth = 1;
    int counted = 0;
    int strikes = 0;
    std::string signalled; // the function before which this process gets the signal
    int signal = 0;
    std::vector<std::string> calls;
};

State state;
std::mutex mutex; // a store may be in another thread than its test

enum class Effect { none, refusal, cut };

Effect effectOn(std::string const& function)
{
    std::lock_guard const lock(mutex);
    if (!state.isWatching)
        return Effect::none;
    state.calls.push_back(function);
    if (function == state.signalled && --state.nth == 0)
        ::raise(state.signal);
    Fault const& fault = state.fault;
    if (!fault.only.empty() && std::find(fault.only.begin(), fault.only.end(), function) == fault.only.end())
        return Effect::none;
    int const after = ++state.counted - state.nth;
    bool const isCut = fault.cutsShort && after == 0;
    bool const isRefused = fault.error != 0 && (after == (fault.cutsShort ? 1 : 0) || (fault.lasts && after > 0));
    if (isCut || isRefused)
        ++state.strikes;
    return isCut ? Effect::cut : isRefused ? Effect::refusal : Effect::none;
}

template <typename Function>
Function* next(char const* name)
{
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

template <typename... Arguments>
int passed(char const* name, Arguments... arguments)
{
    if (effectOn(name) == Effect::refusal) {
        errno = state.fault.error;
        return -1;
    }
    return next<int(Arguments...)>(name)(arguments...);
}

template <typename Bytes, typename... Offset>
ssize_t moved(char const* name, int file, Bytes* bytes, size_t size, Offset... offset)
{
    Effect const effect = effectOn(name);
    if (effect == Effect::refusal) {
        errno = state.fault.error;
        return -1;
    }
    size_t const length = effect == Effect::cut ? (size + 1) / 2 : size;
    return next<ssize_t(int, Bytes*, size_t, Offset...)>(name)(file, bytes, length, offset...);
}

// To wait for the disk some hundred thousand times would take hours and test nothing more.
int synced(char const* name)
{
    if (effectOn(name) != Effect::refusal)
        return 0;
    errno = state.fault.error;
    return -1;
}

} // namespace

void watch(Fault const& fault, int nth)
{
    std::lock_guard const lock(mutex);
    state = {};
    state.fault = fault;
    state.nth = nth;
    state.isWatching = true;
}

namespace {

void signalBefore(std::string const& function, int nth, int signal)
{
    watch({}, nth);
    std::lock_guard const lock(mutex);
    state.signalled = function;
    state.signal = signal;
}

} // namespace

void killBefore(std::string const& function, int nth) { signalBefore(function, nth, SIGKILL); }

void stopBefore(std::string const& function, int nth) { signalBefore(function, nth, SIGSTOP); }

void rest()
{
    std::lock_guard const lock(mutex);
    state.isWatching = false;
}

int strikes()
{
    std::lock_guard const lock(mutex);
    return state.strikes;
}

std::vector<std::string> const& calls() { return state.calls; }

} // namespace FaultySystem

// --- The functions that stand before the system's ---

using FaultySystem::moved;
using FaultySystem::passed;
using FaultySystem::synced;

#define VISIBLE __attribute__((visibility("default")))

namespace {

// The mode is given only where a file may be created.
mode_t modeOf(int flags, va_list& arguments) { return flags & (O_CREAT | O_TMPFILE) ? va_arg(arguments, mode_t) : 0; }

} // namespace

extern "C" {

VISIBLE int open(char const* path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    mode_t const mode = modeOf(flags, arguments);
    va_end(arguments);
    return passed("open", path, flags, mode);
}

VISIBLE int open64(char const* path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    mode_t const mode = modeOf(flags, arguments);
    va_end(arguments);
    return passed("open64", path, flags, mode);
}

VISIBLE int fcntl64(int file, int command, ...)
{
    va_list arguments;
    va_start(arguments, command);
    void* const argument = va_arg(arguments, void*);
    va_end(arguments);
    return passed("fcntl64", file, command, argument);
}

// A refused close has closed the file nevertheless, as with the system's.
VISIBLE int close(int file)
{
    bool const isRefused = FaultySystem::effectOn("close") == FaultySystem::Effect::refusal;
    int const result = FaultySystem::next<int(int)>("close")(file);
    if (!isRefused)
        return result;
    errno = FaultySystem::state.fault.error;
    return -1;
}

VISIBLE char* getcwd(char* buffer, size_t size) noexcept
{
    if (FaultySystem::effectOn("getcwd") == FaultySystem::Effect::refusal) {
        errno = FaultySystem::state.fault.error;
        return nullptr;
    }
    return FaultySystem::next<char*(char*, size_t)>("getcwd")(buffer, size);
}

VISIBLE ssize_t read(int file, void* bytes, size_t size) { return moved("read", file, bytes, size); }
VISIBLE ssize_t write(int file, void const* bytes, size_t size) { return moved("write", file, bytes, size); }
VISIBLE ssize_t pread64(int file, void* bytes, size_t size, off64_t offset) { return moved("pread64", file, bytes, size, offset); }
VISIBLE ssize_t pwrite64(int file, void const* bytes, size_t size, off64_t offset) { return moved("pwrite64", file, bytes, size, offset); }
VISIBLE int fsync(int) { return synced("fsync"); }
VISIBLE int fdatasync(int) { return synced("fdatasync"); }
VISIBLE int ftruncate64(int file, off64_t size) noexcept { return passed("ftruncate64", file, size); }
VISIBLE int stat(char const* path, struct stat* status) noexcept { return passed("stat", path, status); }
VISIBLE int lstat(char const* path, struct stat* status) noexcept { return passed("lstat", path, status); }
VISIBLE int stat64(char const* path, struct stat64* status) noexcept { return passed("stat64", path, status); }
VISIBLE int lstat64(char const* path, struct stat64* status) noexcept { return passed("lstat64", path, status); }
VISIBLE int fstat64(int file, struct stat64* status) noexcept { return passed("fstat64", file, status); }
VISIBLE int statfs(char const* path, struct statfs* status) noexcept { return passed("statfs", path, status); }
VISIBLE int access(char const* path, int mode) noexcept { return passed("access", path, mode); }
VISIBLE int faccessat(int folder, char const* path, int mode, int flags) noexcept { return passed("faccessat", folder, path, mode, flags); }
VISIBLE int mkdir(char const* path, mode_t mode) noexcept { return passed("mkdir", path, mode); }
VISIBLE int chmod(char const* path, mode_t mode) noexcept { return passed("chmod", path, mode); }
VISIBLE int fchmod(int file, mode_t mode) noexcept { return passed("fchmod", file, mode); }
VISIBLE int fchown(int file, uid_t owner, gid_t group) noexcept { return passed("fchown", file, owner, group); }
VISIBLE int unlink(char const* path) noexcept { return passed("unlink", path); }
VISIBLE int mkostemp(char* path, int flags) { return passed("mkostemp", path, flags); }
VISIBLE int linkat(int fromFolder, char const* from, int toFolder, char const* to, int flags) noexcept
{
    return passed("linkat", fromFolder, from, toFolder, to, flags);
}
}
