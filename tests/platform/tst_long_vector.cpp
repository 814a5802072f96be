// SPDX-License-Identifier: MIT
//
// A vector of more bytes than an array can hold, in a program of its own: it takes 4 GiB of address space.
#include <Lumora/Util/ByteConversion.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <stdexcept>

#include <sys/mman.h>

namespace {

// Zeros, of which only the last piece is in memory: an anonymous page that is discarded reads as zeros again.
std::vector<unsigned char> zerosInLittleMemory(std::size_t size)
{
    constexpr std::size_t piece = std::size_t(16) << 20;
    constexpr std::uintptr_t page = 4096;
    std::vector<unsigned char> bytes;
    bytes.reserve(size);
    while (bytes.size() < size) {
        auto const begin = reinterpret_cast<std::uintptr_t>(bytes.data() + bytes.size());
        bytes.resize(std::min(bytes.size() + piece, size));
        auto const end = reinterpret_cast<std::uintptr_t>(bytes.data() + bytes.size());
        std::uintptr_t const firstPage = (begin + page - 1) / page * page;
        ::madvise(reinterpret_cast<void*>(firstPage), end / page * page - firstPage, MADV_DONTNEED);
    }
    return bytes;
}

TEST(ByteConversion, VectorThatIsTooLongForAnArrayThrows)
{
    EXPECT_THROW(Lumora::Util::VectorByteToQByteArray(zerosInLittleMemory(std::size_t(1) << 31)), std::length_error);
}

// Its length in 32 bits is 5.
TEST(ByteConversion, VectorThatIsLongerThan32BitsThrows)
{
    EXPECT_THROW(Lumora::Util::VectorByteToQByteArray(zerosInLittleMemory((std::size_t(1) << 32) + 5)), std::length_error);
}

} // namespace
