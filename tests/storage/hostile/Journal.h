// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>

/// A rollback journal, byte by byte as SQLite's description of its file format has it.
namespace Journal {

constexpr std::size_t pageSize = 4096;
constexpr std::size_t sectorSize = 512;

inline std::string const magic("\xd9\xd5\x05\xf9\x20\xa1\x63\xd7");

inline std::string word(std::uint32_t number)
{
    return {static_cast<char>(number >> 24), static_cast<char>(number >> 16), static_cast<char>(number >> 8), static_cast<char>(number)};
}

inline std::string page(std::string const& content, std::size_t number) { return content.substr(number * pageSize, pageSize); }

/// The sum of each 200th byte from the end of a page; the nonce is 0 here.
inline std::uint32_t checksum(std::string const& page)
{
    std::uint32_t sum = 0;
    for (std::size_t at = pageSize - 200; at < pageSize && at > 0; at -= 200)
        sum += static_cast<unsigned char>(page[at]);
    return sum;
}

/// The number of a page that no database uses, then a name with its length and the sum of its bytes.
inline std::string nameOf(std::string const& superJournal)
{
    std::uint32_t sum = 0;
    for (char const byte : superJournal)
        sum += static_cast<std::uint32_t>(static_cast<signed char>(byte));
    return word(0x40000000 / pageSize + 1) + superJournal + word(static_cast<std::uint32_t>(superJournal.size())) + word(sum) + magic;
}

/// The journal that brings a file with the content `after` back to `before`, of the same size.
inline std::string undoing(std::string const& after, std::string const& before, std::optional<std::string> const& superJournal)
{
    std::string records;
    std::uint32_t count = 0;
    for (std::size_t number = 0; number * pageSize < before.size(); ++number)
        if (page(before, number) != page(after, number)) {
            records += word(static_cast<std::uint32_t>(number + 1)) + page(before, number) + word(checksum(page(before, number)));
            ++count;
        }
    std::string header =
        magic + word(count) + word(0) + word(static_cast<std::uint32_t>(before.size() / pageSize)) + word(sectorSize) + word(pageSize);
    header.resize(sectorSize, '\0');
    return header + records + (superJournal ? nameOf(*superJournal) : "");
}

} // namespace Journal
