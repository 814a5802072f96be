// SPDX-License-Identifier: MIT
#include "Allocations.h"

#include <cstddef>

namespace {

thread_local int count = 0;

} // namespace

int Allocations::soFar() { return count; }

#define VISIBLE __attribute__((visibility("default")))

extern "C" {

void* __libc_malloc(std::size_t size) noexcept;
void* __libc_calloc(std::size_t number, std::size_t size) noexcept;
void* __libc_realloc(void* memory, std::size_t size) noexcept;
void* __libc_memalign(std::size_t alignment, std::size_t size) noexcept;

VISIBLE void* malloc(std::size_t size) noexcept
{
    ++count;
    return __libc_malloc(size);
}

VISIBLE void* calloc(std::size_t number, std::size_t size) noexcept
{
    ++count;
    return __libc_calloc(number, size);
}

VISIBLE void* realloc(void* memory, std::size_t size) noexcept
{
    ++count;
    return __libc_realloc(memory, size);
}

VISIBLE void* aligned_alloc(std::size_t alignment, std::size_t size) noexcept
{
    ++count;
    return __libc_memalign(alignment, size);
}
}
