// SPDX-License-Identifier: MIT
//
// What reaches the disk before a call returns, and a disk that takes no more. This program's own functions stand before
// the system's: they note what SQLite asks for, and refuse it as a full disk does.
#include <Storage/SqliteStorage.h>
#include <TestKit/TemporaryHome.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <string>

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <unistd.h>

namespace {

std::string noted; // w: write, t: truncate, s: sync of a file, l: link, f: sync of a folder
bool diskIsFull = false;

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
    if (diskIsFull) {
        errno = ENOSPC;
        return -1;
    }
    return next<ssize_t(int, void const*, size_t, off64_t)>("pwrite64")(file, data, size, offset);
}

extern "C" VISIBLE int ftruncate64(int file, off64_t size) noexcept
{
    noted += 't';
    return next<int(int, off64_t)>("ftruncate64")(file, size);
}

extern "C" VISIBLE ssize_t write(int file, void const* data, size_t size)
{
    if (diskIsFull) {
        errno = ENOSPC;
        return -1;
    }
    return next<ssize_t(int, void const*, size_t)>("write")(file, data, size);
}

extern "C" VISIBLE int linkat(int fromFolder, char const* from, int toFolder, char const* to, int flags) noexcept
{
    noted += 'l';
    return next<int(int, char const*, int, char const*, int)>("linkat")(fromFolder, from, toFolder, to, flags);
}

extern "C" VISIBLE int fsync(int file)
{
    struct stat status = {};
    ::fstat(file, &status);
    noted += S_ISDIR(status.st_mode) ? 'f' : 's';
    return next<int(int)>("fsync")(file);
}

extern "C" VISIBLE int mkdir(char const* folder, mode_t mode) noexcept
{
    if (diskIsFull) {
        errno = ENOSPC;
        return -1;
    }
    return next<int(char const*, mode_t)>("mkdir")(folder, mode);
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

TEST_F(Durability, NewFileIsOnDiskBeforeItGetsItsNameAndTheNameIsTooBeforeItIsUsed)
{
    noted.clear();
    SqliteStorage const store(file());
    EXPECT_NE(noted.find("slf"), std::string::npos) << noted;
}

TEST_F(Durability, NewFoldersAreOnDisk)
{
    noted.clear();
    SqliteStorage const store(file().parent_path() / "one" / "two" / "store.sqlite");
    EXPECT_EQ(noted.substr(0, 2), "ff") << noted;
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

class FullDisk : public Durability {
protected:
    ~FullDisk() override { diskIsFull = false; }

    template <typename Work>
    static std::string refusal(Work const& work)
    {
        diskIsFull = true;
        std::string what = "nothing was thrown";
        try {
            work();
        } catch (Storage::StorageError const& error) {
            what = error.what();
        }
        diskIsFull = false;
        return what;
    }
};

TEST_F(FullDisk, IsNamedAndTheEarlierValueKept)
{
    SqliteStorage store(file());
    store.setString("key", "value");
    EXPECT_EQ(refusal([&] { store.setString("key", "other"); }),
              file().string() + ": cannot set \"key\": database or disk is full; free some space on the disk and try again");
    EXPECT_EQ(store.getString("key", "lost"), "value");
    store.setString("key", "works again");
    EXPECT_EQ(store.getString("key", "lost"), "works again");
}

TEST_F(FullDisk, WithoutRoomForAFolderIsNamedAsSuch)
{
    std::filesystem::path const folder = file().parent_path() / "folder";
    EXPECT_EQ(refusal([&] { SqliteStorage const store(folder / "store.sqlite"); }),
              folder.string() + ": cannot create the folder: No space left on device; free some space on the disk and try again");
}

TEST_F(FullDisk, AtCreationLeavesNothing)
{
    std::filesystem::create_directory(file().parent_path() / "folder");
    std::filesystem::path const fresh = file().parent_path() / "folder" / "store.sqlite";
    EXPECT_EQ(refusal([&] { SqliteStorage const store(fresh); }),
              fresh.string() + ": cannot create the store: No space left on device; free some space on the disk and try again");
    EXPECT_TRUE(std::filesystem::is_empty(fresh.parent_path()));
}

} // namespace
