// SPDX-License-Identifier: MIT
//
// The C library's allocation, counted while somebody asks for it. Every shared library of the process comes here.
#include "Bench.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstddef>

#include <malloc.h>

extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void* block);
}

namespace {

std::atomic<bool> isCounting{false};
std::atomic<long long> calls{0};
std::atomic<long long> bytes{0};
std::atomic<long long> peak{0};

void* allocated(void* block)
{
    if (isCounting.load(std::memory_order_relaxed)) {
        ++calls;
        bytes += static_cast<long long>(::malloc_usable_size(block));
        peak = std::max(peak.load(), bytes.load());
    }
    return block;
}

void released(void* block)
{
    if (isCounting.load(std::memory_order_relaxed))
        bytes -= static_cast<long long>(::malloc_usable_size(block));
}

} // namespace

extern "C" {

[[gnu::visibility("default")]] void* malloc(std::size_t size) noexcept { return allocated(__libc_malloc(size)); }
[[gnu::visibility("default")]] void* calloc(std::size_t count, std::size_t size) noexcept { return allocated(__libc_calloc(count, size)); }
[[gnu::visibility("default")]] void* realloc(void* block, std::size_t size) noexcept
{
    released(block);
    return allocated(__libc_realloc(block, size));
}
[[gnu::visibility("default")]] void* memalign(std::size_t alignment, std::size_t size) noexcept
{
    return allocated(__libc_memalign(alignment, size));
}
[[gnu::visibility("default")]] void* aligned_alloc(std::size_t alignment, std::size_t size) noexcept { return memalign(alignment, size); }
[[gnu::visibility("default")]] int posix_memalign(void** block, std::size_t alignment, std::size_t size) noexcept
{
    *block = memalign(alignment, size);
    return *block ? 0 : ENOMEM;
}
[[gnu::visibility("default")]] void free(void* block) noexcept
{
    released(block);
    __libc_free(block);
}

} // extern "C"

void Bench::startCounting()
{
    calls = bytes = peak = 0;
    isCounting = true;
}

Bench::Allocations Bench::stopCounting()
{
    isCounting = false;
    return {calls, peak};
}
