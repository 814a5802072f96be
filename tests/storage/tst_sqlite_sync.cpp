// SPDX-License-Identifier: MIT
//
// What reaches the disk before a call returns. This program's own functions stand before the system's, and note what
// SQLite asks for.
#include <Storage/SqliteStorage.h>
#include <TestKit/TemporaryHome.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include <dlfcn.h>
#include <sys/types.h>

namespace {

std::string noted; // w: write, t: truncate, s: sync

template <typename Function>
Function* next(char const* name)
{
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

} // namespace

#define VISIBLE __attribute__((visibility("default")))

extern "C" VISIBLE ssize_t pwrite64(int file, void const* data, size_t size, off64_t offset)
{
    noted += 'w';
    return next<ssize_t(int, void const*, size_t, off64_t)>("pwrite64")(file, data, size, offset);
}

extern "C" VISIBLE int ftruncate64(int file, off64_t size) noexcept
{
    noted += 't';
    return next<int(int, off64_t)>("ftruncate64")(file, size);
}

extern "C" VISIBLE int fdatasync(int file)
{
    noted += 's';
    return next<int(int)>("fdatasync")(file);
}

namespace {

using Storage::SqliteStorage;

std::ptrdiff_t count(char what) { return std::count(noted.begin(), noted.end(), what); }

class Durability : public testing::Test {
protected:
    std::filesystem::path file() const { return m_home.path() / "store.sqlite"; }

    TestKit::TemporaryHome m_home;
};

TEST_F(Durability, SetEndsWithASyncAfterItsLastWrite)
{
    SqliteStorage store(file());
    store.setInt("key", 1);
    noted.clear();
    store.setInt("key", 2);
    EXPECT_GE(count('w'), 2) << "journal and file are written: " << noted;
    EXPECT_EQ(count('t'), 1) << "the journal is emptied: " << noted;
    EXPECT_EQ(noted.back(), 's') << noted;
    EXPECT_GE(count('s'), 3) << "journal, file and emptied journal are synced: " << noted;
}

TEST_F(Durability, RemoveEndsWithASyncToo)
{
    SqliteStorage store(file());
    store.setInt("key", 1);
    noted.clear();
    store.remove("key");
    EXPECT_EQ(noted.back(), 's') << noted;
}

TEST_F(Durability, ReadsWriteNothing)
{
    SqliteStorage store(file());
    store.setInt("key", 1);
    noted.clear();
    store.getInt("key", 0);
    store.rows();
    SqliteStorage(file()).getInt("key", 0);
    EXPECT_EQ(noted, "");
}

TEST_F(Durability, LesserLevelLeavesTheLastSyncOut)
{
    SqliteStorage::Options options;
    options.synchronous = SqliteStorage::Synchronous::normal;
    SqliteStorage store(file(), options);
    store.setInt("key", 1);
    noted.clear();
    store.setInt("key", 2);
    EXPECT_EQ(noted.back(), 't') << noted;
    EXPECT_GE(count('s'), 2) << "the order of journal and file still holds: " << noted;
}

} // namespace
