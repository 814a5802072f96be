// SPDX-License-Identifier: MIT
#include <Studio/outbox/LaneLocks.h>

#include <Storage/sqlite/SqliteErrors.h>
#include <Studio/outbox/OutboxFolder.h>

#include <algorithm>
#include <cerrno>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <pthread.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Studio {

namespace {

constexpr char const* lockTheOutbox = "lock the outbox";

// The descriptors of all objects.
struct Registry {
    std::mutex mutex;
    std::vector<int*> descriptors;
};

// Never destroyed, as an object may outlive what is static.
Registry& registry()
{
    static auto* const instance = new Registry;
    return *instance;
}

// In the child, before fork returns there. The thread that forked has the mutex.
void closeInheritedCopies()
{
    for (int* const descriptor : registry().descriptors)
        ::close(std::exchange(*descriptor, -1));
    registry().mutex.unlock();
}

void closeCopiesInChildren(std::filesystem::path const& file)
{
    static int const error = ::pthread_atfork([] { registry().mutex.lock(); }, [] { registry().mutex.unlock(); }, closeInheritedCopies);
    if (error != 0)
        Storage::throwSystemError(file, lockTheOutbox, error);
}

} // namespace

LaneLocks::LaneLocks(std::filesystem::path const& file) : m_file(file), m_descriptor(-1)
{
    closeCopiesInChildren(file);
    std::lock_guard const lock(registry().mutex); // a fork waits, so that no child inherits a copy that nobody knows
    m_descriptor = ::open(file.c_str(), O_RDWR | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, 0600);
    struct stat status = {};
    if (m_descriptor < 0 || ::fstat(m_descriptor, &status) != 0)
        Storage::throwSystemError(file, lockTheOutbox, errno);
    try {
        demandOwnFile(file, status, lockTheOutbox);
        registry().descriptors.push_back(&m_descriptor);
    } catch (...) {
        ::close(m_descriptor);
        throw;
    }
}

LaneLocks::~LaneLocks()
{
    std::lock_guard const lock(registry().mutex);
    std::vector<int*>& all = registry().descriptors;
    all.erase(std::find(all.begin(), all.end(), &m_descriptor));
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}

// A count of 0 stands for all from the first on. False where another program has locked one of them.
bool LaneLocks::lockBytes(short type, std::int64_t first, std::int64_t count) const
{
    struct flock range = {};
    range.l_type = type;
    range.l_whence = SEEK_SET;
    range.l_start = first;
    range.l_len = count;
    if (::fcntl(m_descriptor, F_OFD_SETLK, &range) == 0)
        return true;
    if (errno != EAGAIN && errno != EACCES)
        Storage::throwSystemError(m_file, lockTheOutbox, errno);
    return false;
}

void LaneLocks::lockOpening(std::chrono::milliseconds wait)
{
    auto const deadline = std::chrono::steady_clock::now() + wait;
    while (!lockBytes(F_WRLCK, 0, 1)) {
        if (std::chrono::steady_clock::now() >= deadline)
            throw Storage::StorageError(Storage::StorageError::Code::busy, m_file.u8string(), lockTheOutbox,
                                        "another program holds it for too long", "close the other program, or start this one again");
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
}

bool LaneLocks::tryLock(std::int64_t lane) { return lockBytes(F_WRLCK, lane, 1); }

void LaneLocks::unlock(std::int64_t lane) { lockBytes(F_UNLCK, lane, 1); }

bool LaneLocks::tryLockAll() { return lockBytes(F_WRLCK, 1, 0); }

void LaneLocks::unlockAll() { lockBytes(F_UNLCK, 1, 0); }

} // namespace Studio
