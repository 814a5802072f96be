// SPDX-License-Identifier: MIT
//
// The file of an open store, below SQLite's pages. Internal.
#pragma once

#include <SQLiteCpp/Database.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

struct sqlite3_file;

namespace Storage {

/// Bytes 24 to 39 of SQLite's header: the file change counter, the size in pages, and the head and length of the list of
/// free pages. Every commit that changes a page of a file without write-ahead log changes them.
using ChangeMark = std::array<unsigned char, 16>;

/// What SQLite's header says of the file.
struct StoreHeader {
    ChangeMark mark = {};
    std::uint32_t schema = 0;
    bool usesWriteAheadLog = false;
};

/// Reads a store's file through SQLite's own handle: closing one of ours would drop the locks that this process holds on
/// the file. No lock is taken. `database` must outlive it; any thread may call at any time.
class StoreFile {
public:
    explicit StoreFile(SQLite::Database const& database);

    /// The mark, in one system call; nullopt where it cannot be read.
    std::optional<ChangeMark> mark() const;
    /// The header. Throws SQLite's error; a file that is shorter, or no SQLite file, has an empty one.
    StoreHeader header() const;
    /// The size in bytes. Throws SQLite's error.
    std::int64_t size() const;

private:
    int read(unsigned char* bytes, std::size_t size, std::int64_t offset) const;

    sqlite3_file* m_file = nullptr;
};

} // namespace Storage
