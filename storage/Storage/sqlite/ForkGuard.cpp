// SPDX-License-Identifier: MIT
#include "ForkGuard.h"

#include "SqliteErrors.h"

#include <atomic>

#include <pthread.h>

namespace Storage {

namespace {

std::atomic<int> guards{0};
std::atomic<bool> isForked{false};

// In the child, before fork returns there, where only atomics are safe.
void rememberGuards()
{
    if (guards > 0)
        isForked = true;
}

} // namespace

ForkGuard::ForkGuard(std::filesystem::path const& file, std::string const& attempt)
{
    static int const error = ::pthread_atfork(nullptr, nullptr, rememberGuards);
    if (error != 0)
        throwSystemError(file, attempt.c_str(), error);
    check(file, attempt);
    ++guards;
}

ForkGuard::~ForkGuard() { --guards; }

bool ForkGuard::isUnfit() noexcept { return isForked.load(std::memory_order_relaxed); }

void ForkGuard::check(std::filesystem::path const& file, std::string const& attempt)
{
    if (isUnfit())
        throw StorageError(StorageError::Code::forked, file.u8string(), attempt, "this process was forked from one that had a store open",
                           "start a program of its own with exec, or open stores after the fork only");
}

} // namespace Storage
