// SPDX-License-Identifier: MIT
//
// What reaches the disk before a call returns, and a disk that takes no more.
#include <storage/support/FaultySystem.h>
#include <storage/support/StoreFolder.h>

#include <Storage/Backup.h>

#include <algorithm>
#include <cerrno>

namespace {

using Storage::SqliteStorage;

// What `work` asks of the disk. w: write, t: truncate, s: sync by SQLite, f: sync of a new file or a folder, l: link.
template <typename Work>
std::string asked(Work const& work)
{
    FaultySystem::watch();
    work();
    FaultySystem::rest();
    std::string result;
    for (std::string const& call : FaultySystem::calls()) {
        if (call == "write" || call == "pwrite64")
            result += 'w';
        if (call == "ftruncate64")
            result += 't';
        if (call == "fdatasync")
            result += 's';
        if (call == "fsync")
            result += 'f';
        if (call == "linkat")
            result += 'l';
    }
    return result;
}

std::ptrdiff_t count(std::string const& calls, char what) { return std::count(calls.begin(), calls.end(), what); }

class Durability : public StoreFolder {};

TEST_F(Durability, SetEndsWithASyncAfterItsLastWrite)
{
    SqliteStorage store(path());
    store.setInt("key", 1);
    std::string const calls = asked([&] { store.setInt("key", 2); });
    EXPECT_GE(count(calls, 'w'), 2) << "journal and file are written: " << calls;
    EXPECT_EQ(count(calls, 't'), 1) << "the journal is emptied: " << calls;
    EXPECT_EQ(calls.back(), 's') << calls;
    EXPECT_GE(count(calls, 's'), 3) << "journal, file and emptied journal are synced: " << calls;
}

TEST_F(Durability, NewFileIsOnDiskBeforeItGetsItsNameAndTheNameIsTooBeforeItIsUsed)
{
    EXPECT_EQ(asked([&] { SqliteStorage const store(path()); }), "wflf");
}

// To close it in its place would drop the locks that another store object of this process holds on it by then.
TEST_F(Durability, NewFileIsClosedBeforeItGetsItsName)
{
    asked([&] { SqliteStorage const store(path()); });
    auto const& calls = FaultySystem::calls();
    auto const link = std::find(calls.begin(), calls.end(), "linkat");
    ASSERT_NE(link, calls.end());
    EXPECT_EQ(*std::prev(link), "close");
}

TEST_F(Durability, RestoreIsOnDiskWhenItReturns)
{
    {
        SqliteStorage store(path());
        store.setInt("key", 1);
        Storage::Backup::write(path("copy.backup"), {{"product", &store}});
    }
    Storage::Backup const backup(path("copy.backup"));
    EXPECT_EQ(asked([&] { backup.restore("product", path()); }).back(), 's');
    overwrite(path("damaged.sqlite"), "not a store");
    EXPECT_EQ(asked([&] { backup.restore("product", path("damaged.sqlite")); }), "wff");
    EXPECT_EQ(asked([&] { backup.restore("product", path("new.sqlite")); }), "wflf");
}

TEST_F(Durability, RestoreWhoseFileCannotGetItsNameFails)
{
    {
        SqliteStorage store(path());
        Storage::Backup::write(path("copy.backup"), {{"product", &store}});
    }
    Storage::Backup const backup(path("copy.backup"));
    std::filesystem::create_directory(path("folder.sqlite"));
    FaultySystem::watch({EIO, false, true, {"linkat"}});
    EXPECT_THROW(backup.restore("product", path("folder.sqlite")), Storage::StorageError);
    FaultySystem::rest();
    EXPECT_FALSE(std::filesystem::exists(path("folder.sqlite")));
}

TEST_F(Durability, OpenFilesAreThoseOfTheStoreOnly)
{
    auto const open = [] { return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {}); };
    auto const before = open();
    SqliteStorage const store(path("folder") / "store.sqlite");
    EXPECT_EQ(open(), before + 1);
}

TEST_F(Durability, NewFoldersAreOnDisk)
{
    EXPECT_EQ(asked([&] { SqliteStorage const store(path("one") / "two" / "store.sqlite"); }), "ffwflf");
}

TEST_F(Durability, RemoveEndsWithASyncToo)
{
    SqliteStorage store(path());
    store.setInt("key", 1);
    EXPECT_EQ(asked([&] { store.remove("key"); }).back(), 's');
}

TEST_F(Durability, ReadsWriteNothing)
{
    SqliteStorage store(path());
    store.setInt("key", 1);
    EXPECT_EQ(asked([&] {
                  store.getInt("key", 0);
                  store.rows();
                  SqliteStorage(path()).getInt("key", 0);
              }),
              "");
}

TEST_F(Durability, LesserLevelLeavesTheLastSyncOut)
{
    SqliteStorage::Options options;
    options.synchronous = SqliteStorage::Synchronous::normal;
    SqliteStorage store(path(), options);
    store.setInt("key", 1);
    std::string const calls = asked([&] { store.setInt("key", 2); });
    EXPECT_EQ(calls.back(), 't') << calls;
    EXPECT_GE(count(calls, 's'), 2) << "the order of journal and file still holds: " << calls;
}

// --- A system without files that have no name ---

class PassingName : public StoreFolder {
protected:
    // Refuses the `nth` opening during a creation, and expects the store to be made in the other way.
    void expectMade(int error, int nth)
    {
        std::filesystem::create_directory(path("folder"));
        FaultySystem::watch({error, false, false, {"open"}}, nth);
        SqliteStorage store(path("folder") / "store.sqlite");
        FaultySystem::rest();
        EXPECT_EQ(FaultySystem::strikes(), 1);
        EXPECT_EQ(std::count(FaultySystem::calls().begin(), FaultySystem::calls().end(), "mkostemp"), 1);
        EXPECT_EQ(mode(path("folder") / "store.sqlite"), 0600u);
        EXPECT_EQ(std::distance(std::filesystem::directory_iterator(path("folder")), {}), 1) << "no other file is left";
        store.setInt("key", 1);
        EXPECT_EQ(store.getInt("key", 0), 1);
    }
};

TEST_F(PassingName, IsTakenWhereTheFileSystemHasNoNamelessFiles) { expectMade(EOPNOTSUPP, 1); }

TEST_F(PassingName, IsTakenWhereNamelessFilesCannotBeReached) { expectMade(ENOENT, 2); }

// --- A full disk ---

class FullDisk : public StoreFolder {
protected:
    template <typename Work>
    static std::string refusal(Work const& work, int number = ENOSPC)
    {
        FaultySystem::watch({number, false, true, {"write", "pwrite64", "mkdir"}});
        std::string what = "nothing was thrown";
        try {
            work();
        } catch (Storage::StorageError const& error) {
            what = error.what();
        }
        FaultySystem::rest();
        return what;
    }
};

TEST_F(FullDisk, IsNamedAndTheEarlierValueKept)
{
    SqliteStorage store(path());
    store.setString("key", "value");
    EXPECT_EQ(refusal([&] { store.setString("key", "other"); }),
              path().string() + ": cannot set \"key\": database or disk is full; free some space on the disk and try again");
    EXPECT_EQ(store.getString("key", "lost"), "value");
    store.setString("key", "works again");
    EXPECT_EQ(store.getString("key", "lost"), "works again");
}

TEST_F(FullDisk, WithoutRoomForAFolderIsNamedAsSuch)
{
    EXPECT_EQ(refusal([&] { SqliteStorage const store(path("folder") / "store.sqlite"); }),
              path("folder").string() + ": cannot create the folder: No space left on device; free some space on the disk and try again");
}

TEST_F(FullDisk, AtCreationLeavesNothing)
{
    std::filesystem::create_directory(path("folder"));
    std::filesystem::path const fresh = path("folder") / "store.sqlite";
    EXPECT_EQ(refusal([&] { SqliteStorage const store(fresh); }),
              fresh.string() + ": cannot create the store: No space left on device; free some space on the disk and try again");
    EXPECT_TRUE(std::filesystem::is_empty(path("folder")));
}

TEST_F(FullDisk, OfAUserWithAQuotaIsNamedWithTheSameAdvice)
{
    EXPECT_EQ(refusal([&] { SqliteStorage const store(path()); }, EDQUOT),
              path().string() + ": cannot create the store: Disk quota exceeded; free some space on the disk and try again");
}

} // namespace
