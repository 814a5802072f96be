// SPDX-License-Identifier: MIT
//
// Stores in a process that forks. Internal.
#pragma once

#include <filesystem>
#include <string>

namespace Storage {

/// Stands for an open store, or for work with SQLite. A process that is forked meanwhile is unfit for stores, for ever: SQLite
/// there believes in locks that only the parent holds, and another thread of the parent may have left any mutex locked.
class ForkGuard {
public:
    /// Throws a `StorageError` of `attempt` on `file` in a process that is unfit.
    ForkGuard(std::filesystem::path const& file, std::string const& attempt);
    ~ForkGuard();
    ForkGuard(ForkGuard const&) = delete;
    ForkGuard& operator=(ForkGuard const&) = delete;

    /// Whether this process is unfit: then each open store in it is its parent's. Any thread may call; no system call.
    static bool isUnfit() noexcept;
    /// Throws a `StorageError` of `attempt` on `file` in a process that is unfit.
    static void check(std::filesystem::path const& file, std::string const& attempt);
};

} // namespace Storage
