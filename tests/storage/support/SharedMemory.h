// SPDX-License-Identifier: MIT
#pragma once

#include <cerrno>
#include <cstddef>
#include <system_error>

#include <sys/mman.h>

/// Zeroed memory that this process shares with those that it forks. To be unmapped by `munmap`.
inline void* sharedMemory(std::size_t size)
{
    void* const memory = ::mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED)
        throw std::system_error(errno, std::generic_category(), "shared memory");
    return memory;
}
