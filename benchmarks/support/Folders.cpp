// SPDX-License-Identifier: MIT
#include "Folders.h"

#include "Bench.h"

#include <algorithm>
#include <chrono>
#include <cstring>
#include <filesystem>
#include <limits>
#include <memory>
#include <random>

#include <dirent.h>
#include <fcntl.h>
#include <linux/magic.h>
#include <sys/syscall.h>
#include <sys/vfs.h>
#include <unistd.h>

namespace Bench {

Folder::Folder(std::string const& parent) : m_path(parent + "/bench.XXXXXX")
{
    require(::mkdtemp(m_path.data()), "cannot make a folder below " + parent);
}

Folder::~Folder()
{
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
}

void Folder::fill(std::vector<std::string> names) const
{
    std::shuffle(names.begin(), names.end(), std::mt19937{1});
    int const folder = ::open(m_path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    for (std::string const& name : names) {
        int const file = ::openat(folder, name.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, 0600);
        require(file >= 0, "cannot make " + name);
        ::close(file);
    }
    ::close(folder);
}

std::vector<Place> places()
{
    std::vector<Place> result{{"disk", std::filesystem::temp_directory_path().string()}};
    Place const memory{"tmpfs", "/dev/shm"};
    struct statfs status;
    if (::statfs(memory.path.c_str(), &status) == 0 && status.f_type == TMPFS_MAGIC && ::access(memory.path.c_str(), W_OK) == 0)
        result.push_back(memory);
    return result;
}

void passOver(std::string const& folder, std::size_t bufferSize)
{
    std::unique_ptr<char[]> const buffer(new char[bufferSize]);
    int const descriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    long size = 0;
    do
        size = ::syscall(SYS_getdents64, descriptor, buffer.get(), bufferSize);
    while (size > 0);
    ::close(descriptor);
    if (size != 0)
        require(false, "cannot list " + folder);
}

std::size_t bestBufferSize(std::string const& folder)
{
    using Clock = std::chrono::steady_clock;
    std::size_t best = 0;
    Clock::duration shortest = Clock::duration::max();
    for (int round = 0; round < 5; ++round)
        for (std::size_t const kibibytes : {32U, 64U, 256U}) {
            std::size_t const size = kibibytes * 1024;
            Clock::time_point const start = Clock::now();
            passOver(folder, size);
            Clock::duration const taken = Clock::now() - start;
            if (taken < shortest) {
                shortest = taken;
                best = size;
            }
        }
    return best;
}

namespace {

// What getdents64 fills its buffer with.
struct KernelEntry {
    unsigned long long inode;
    long long offset;
    unsigned short size;
    unsigned char type;
    char name[1];
};

bool visitBelow(int parent, Entry const& entry, std::function<bool(Entry const&)> const& visit, std::string& path)
{
    if (entry.name == "." || entry.name == "..")
        return false;
    bool isFound = false;
    if (entry.type == DT_DIR) {
        int const descriptor = ::openat(parent, entry.name.data(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
        isFound = descriptor >= 0 && walk(descriptor, visit, path);
        ::close(descriptor);
    } else {
        isFound = visit(entry);
    }
    if (isFound)
        path = path.empty() ? std::string(entry.name) : std::string(entry.name) + '/' + path;
    return isFound;
}

} // namespace

bool walk(int descriptor, std::function<bool(Entry const&)> const& visit, std::string& path)
{
    alignas(KernelEntry) char buffer[32 * 1024];
    for (long size = 0; (size = ::syscall(SYS_getdents64, descriptor, buffer, sizeof buffer)) > 0;)
        for (long at = 0; at < size;) {
            auto const* const entry = reinterpret_cast<KernelEntry const*>(buffer + at);
            if (visitBelow(descriptor, {entry->name, entry->type}, visit, path))
                return true;
            at += entry->size;
        }
    return false;
}

} // namespace Bench
