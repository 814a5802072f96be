// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>

namespace Studio {

/// The locks by which programs that share an outbox know of each other: byte N of a file beside it is locked by the program that
/// owns lane N, and byte 0 by the one that opens the outbox. The kernel releases the locks of a program at its death, however
/// it dies, and not before.
///
/// They belong to the open file, not to the process: two objects of one process exclude each other, too, and other code that
/// opens and closes the file releases none. A forked child would keep the file open, so it closes its copy at once; there the
/// object holds no lock.
///
/// Threads: for one thread at a time.
/// Errors: `Storage::StorageError`.
class LaneLocks {
public:
    /// Opens the file, and creates a missing one with mode 0600. One that is not this user's own alone is refused.
    explicit LaneLocks(std::filesystem::path const& file);
    /// Releases all locks.
    ~LaneLocks();
    LaneLocks(LaneLocks const&) = delete;
    LaneLocks& operator=(LaneLocks const&) = delete;

    /// Locks byte 0, and waits for another program to release it for as long as `wait`.
    void lockOpening(std::chrono::milliseconds wait);
    void unlockOpening() { unlock(0); }
    /// Locks a lane, from 1 on, unless another program owns it.
    bool tryLock(std::int64_t lane);
    void unlock(std::int64_t lane);
    /// Locks every lane, unless another program owns one.
    bool tryLockAll();
    void unlockAll();

private:
    bool lockBytes(short type, std::int64_t first, std::int64_t count) const;

    std::filesystem::path const m_file;
    int m_descriptor;
};

} // namespace Studio
