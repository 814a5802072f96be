// SPDX-License-Identifier: MIT
#include "StoreFile.h"

#include "StoreContent.h"

#include <SQLiteCpp/Exception.h>

#include <sqlite3.h>

#include <algorithm>
#include <cstring>

namespace Storage {

namespace {

constexpr std::size_t markAt = 24;
constexpr std::size_t schemaAt = 60; // PRAGMA user_version, four bytes, the highest first
constexpr std::size_t headerSize = schemaAt + 4;

void require(int code)
{
    if (code != SQLITE_OK)
        throw SQLite::Exception(sqlite3_errstr(code), code);
}

} // namespace

StoreFile::StoreFile(SQLite::Database const& database)
{
    sqlite3_file_control(database.getHandle(), "main", SQLITE_FCNTL_FILE_POINTER, &m_file);
    if (!m_file || !m_file->pMethods)
        require(SQLITE_CANTOPEN);
    // A mapped file would be read without a system call, and one that another program cuts short would end this process.
    sqlite3_int64 mapped = 0;
    require(sqlite3_file_control(database.getHandle(), "main", SQLITE_FCNTL_MMAP_SIZE, &mapped));
}

int StoreFile::read(unsigned char* bytes, std::size_t size, std::int64_t offset) const
{
    return m_file->pMethods->xRead(m_file, bytes, static_cast<int>(size), offset);
}

std::optional<ChangeMark> StoreFile::mark() const
{
    ChangeMark mark;
    return read(mark.data(), mark.size(), markAt) == SQLITE_OK ? std::optional(mark) : std::nullopt;
}

StoreHeader StoreFile::header() const
{
    std::array<unsigned char, headerSize> bytes = {};
    int const code = read(bytes.data(), bytes.size(), 0);
    if (code != SQLITE_IOERR_SHORT_READ)
        require(code);
    if (std::memcmp(bytes.data(), "SQLite format 3", 15) != 0)
        return {};
    StoreHeader header;
    std::copy_n(bytes.begin() + markAt, header.mark.size(), header.mark.begin());
    for (std::size_t at = schemaAt; at < headerSize; ++at)
        header.schema = header.schema << 8 | bytes[at];
    header.usesWriteAheadLog = bytes[formatsAt] == 2 || bytes[formatsAt + 1] == 2;
    return header;
}

std::int64_t StoreFile::size() const
{
    sqlite3_int64 size = 0;
    require(m_file->pMethods->xFileSize(m_file, &size));
    return size;
}

} // namespace Storage
