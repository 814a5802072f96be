// SPDX-License-Identifier: MIT
//
// Restores over a file that is no usable store, which a program has open all the same.
#include <storage/support/MemoryFolder.h>
#include <storage/support/StoreFolder.h>
#include <storage/support/Traced.h>

#include <Storage/Backup.h>

#include <algorithm>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using Storage::Backup;
using Storage::SqliteStorage;
using Storage::StorageError;

class RestoreLock : public StoreFolder {
protected:
    // A backup, and a store that is not one: it holds a table too many.
    void makeBoth(std::filesystem::path const& file) const
    {
        {
            SqliteStorage store(path("made.sqlite"));
            store.setString("text", "value");
            Backup::write(path("copy.backup"), {{"product", &store}});
        }
        SqliteStorage(file).setString("text", "before");
        OtherProgram(file).execute("CREATE TABLE other (name)");
    }

    void restore(std::filesystem::path const& file) const { Backup(path("copy.backup")).restore("product", file); }

    void waitFor(char const* sign) const
    {
        while (!std::filesystem::exists(path(sign)))
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }

    // Whether somebody holds the lock that SQLite calls reserved; F_GETLK tells of other processes' locks, F_OFD_GETLK of all.
    static bool isReserved(int descriptor, int command)
    {
        struct flock reserved = {};
        reserved.l_type = F_RDLCK; // which only a writer keeps away
        reserved.l_start = 0x40000001;
        reserved.l_len = 1;
        return ::fcntl(descriptor, command, &reserved) == 0 && reserved.l_type == F_WRLCK;
    }

    // Makes the file, and its folder with nothing else in it.
    static void makeAlone(std::filesystem::path const& file, std::string const& content)
    {
        std::filesystem::remove_all(file.parent_path());
        std::filesystem::create_directory(file.parent_path());
        overwrite(file, content);
    }

    std::string busy() const
    {
        return path().string() +
               ": cannot restore the store: database is locked; another process is writing: try again, or close the other "
               "process";
    }

    std::vector<std::string> entries() const
    {
        std::vector<std::string> names;
        for (auto const& entry : std::filesystem::directory_iterator(m_home.path()))
            names.push_back(entry.path().filename());
        std::sort(names.begin(), names.end());
        return names;
    }
};

TEST_F(RestoreLock, IsTakenWhenTheChangeOfAnotherProcessIsDone)
{
    makeBoth(path());
    Child editor([&] {
        OtherProgram other(path());
        other.execute("PRAGMA cache_size = 1; BEGIN IMMEDIATE; UPDATE settings SET value = 'changed'");
        overwrite(path("held"), "");
        std::this_thread::sleep_for(std::chrono::milliseconds(300));
        other.execute("INSERT INTO other VALUES (zeroblob(100000))"); // more than the cache: into the file before the commit
        overwrite(path("done"), "");
        other.execute("COMMIT");
        return std::string("committed");
    });
    waitFor("held");
    std::filesystem::path const kept = *Backup(path("copy.backup")).restore("product", path());
    EXPECT_TRUE(std::filesystem::exists(path("done"))) << "the store was replaced in the midst of a change";
    EXPECT_EQ(editor.answer(), "committed");
    EXPECT_EQ(SqliteStorage(path()).getString("text", "lost"), "value");
    OtherProgram original(kept);
    EXPECT_EQ(original.ask("PRAGMA integrity_check"), "ok");
    EXPECT_EQ(original.ask("SELECT value FROM settings"), "changed");
    EXPECT_EQ(original.ask("SELECT count(*) FROM other"), "1");
}

TEST_F(RestoreLock, IsWaitedForNoLongerThanForAnotherWriter)
{
    makeBoth(path());
    Child editor([&] {
        OtherProgram other(path());
        other.execute("BEGIN IMMEDIATE; UPDATE settings SET value = 'changed'");
        overwrite(path("held"), "");
        waitFor("end");
        return std::string();
    });
    waitFor("held");
    std::vector<std::string> const names = entries();
    std::string const before = content(path());
    EXPECT_EQ(refusal([&] { restore(path()); }), busy());
    EXPECT_EQ(entries(), names);
    EXPECT_TRUE(content(path()) == before);
    overwrite(path("end"), "");
    editor.answer();
    restore(path());
    EXPECT_EQ(SqliteStorage(path()).getString("text", "lost"), "value");
}

TEST_F(RestoreLock, ReaderWithoutEndIsNotReplacedBelow)
{
    makeBoth(path());
    OtherProgram other(path());
    other.execute("BEGIN; SELECT * FROM settings");
    EXPECT_EQ(refusal([&] { restore(path()); }), busy());
    other.execute("COMMIT");
    EXPECT_EQ(other.ask("SELECT value FROM settings"), "before");
}

TEST_F(RestoreLock, LeavesTheJournalToTheKeptFile)
{
    makeBoth(path());
    overwrite(path(), "not a store");
    std::string const journal = std::string(100, '\0') + "its journal"; // which SQLite has no reason to play back
    overwrite(path("store.sqlite-journal"), journal);
    std::filesystem::path const kept = *Backup(path("copy.backup")).restore("product", path());
    EXPECT_EQ(content(kept.string() + "-journal"), journal);
}

// Closing a file drops every lock that the process holds on it.
TEST_F(RestoreLock, LocksOfThisProcessOutliveIt)
{
    makeBoth(path());
    OtherProgram other(path());
    other.execute("BEGIN IMMEDIATE");
    EXPECT_EQ(refusal([&] { restore(path()); }), busy());
    int const descriptor = ::open(path().c_str(), O_RDWR | O_CLOEXEC);
    EXPECT_TRUE(isReserved(descriptor, F_OFD_GETLK));
    ::close(descriptor);
}

// An editor that begins a change in the last moment would leave its journal to the restored store.
TEST_F(RestoreLock, IsHeldWhenTheFileIsReplaced)
{
    if (!Traced::isPossible())
        GTEST_SKIP() << "this process may not trace others, as in some containers: no restore was stopped at its system calls";
    MemoryFolder const memory;
    std::filesystem::path const file = memory.path() / "store.sqlite";
    makeBoth(file);
    std::string const before = content(file);
    bool wasHeld = false;
    bool isReplaced = false;
    for (int call = 1; !isReplaced; ++call) {
        SCOPED_TRACE("system call " + std::to_string(call));
        makeAlone(file, before);
        int const original = ::open(file.c_str(), O_RDWR | O_CLOEXEC);
        bool isHeld = false;
        bool const isReached = Traced::reachedCall({[] {}, [&] { restore(file); }}, call, [&] {
            struct stat there = {};
            struct stat opened = {};
            ::fstat(original, &opened);
            isReplaced = ::stat(file.c_str(), &there) == 0 && there.st_ino != opened.st_ino;
            isHeld = isReserved(original, F_GETLK);
        });
        ::close(original);
        ASSERT_TRUE(isReached) << "the file was not replaced";
        if (isReplaced) {
            EXPECT_TRUE(wasHeld) << "let go before";
            EXPECT_TRUE(isHeld) << "let go at once";
        }
        wasHeld = isHeld;
    }
}

TEST_F(RestoreLock, KilledRestoreLeavesTheOldFileOrTheNew)
{
    if (!Traced::isPossible())
        GTEST_SKIP() << "this process may not trace others, as in some containers: nothing was killed at its system calls";
    MemoryFolder const memory;
    std::filesystem::path const file = memory.path() / "store.sqlite";
    makeBoth(file);
    std::string const before = content(file);
    int calls = 0;
    int replaced = 0;
    for (bool isKilled = true; isKilled; ++calls) {
        SCOPED_TRACE("system call " + std::to_string(calls + 1));
        makeAlone(file, before);
        isKilled = Traced::killedAtCall({[] {}, [&] { restore(file); }}, calls + 1);
        if (content(file) == before)
            continue;
        EXPECT_EQ(SqliteStorage(file).getString("text", "lost"), "value");
        ++replaced;
    }
    EXPECT_GT(replaced, 1);
    EXPECT_GT(calls - replaced, 20);
}

} // namespace
