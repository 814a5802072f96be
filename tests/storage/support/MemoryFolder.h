// SPDX-License-Identifier: MIT
#pragma once

#include <cerrno>
#include <filesystem>
#include <string>
#include <system_error>

#include <stdlib.h>

/// A new folder in memory, or among the temporary files where the system has none: for tests that would wait for the disk
/// most of the time. A killed process leaves the same files there as on a disk.
class MemoryFolder {
public:
    MemoryFolder()
    {
        std::error_code ignored;
        bool const hasMemory = std::filesystem::is_directory("/dev/shm", ignored);
        std::string folder =
            ((hasMemory ? std::filesystem::path("/dev/shm") : std::filesystem::temp_directory_path()) / "store.XXXXXX").string();
        if (!::mkdtemp(folder.data()))
            throw std::system_error(errno, std::generic_category(), folder);
        m_path = folder;
    }
    ~MemoryFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    MemoryFolder(MemoryFolder const&) = delete;
    MemoryFolder& operator=(MemoryFolder const&) = delete;

    std::filesystem::path const& path() const { return m_path; }

private:
    std::filesystem::path m_path;
};
