// SPDX-License-Identifier: MIT
#include "Folders.h"

#include "Bench.h"

#include <algorithm>
#include <cstring>
#include <filesystem>
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

long passOver(std::string const& folder)
{
    std::unique_ptr<DIR, int (*)(DIR*)> const entries(::opendir(folder.c_str()), &::closedir);
    require(entries != nullptr, "cannot list " + folder);
    long files = 0;
    while (dirent const* const entry = ::readdir(entries.get()))
        files += entry->d_type == DT_REG;
    return files;
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
