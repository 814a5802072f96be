// SPDX-License-Identifier: MIT
//
// What ends a wait for a hint. A wait that should end by itself is given a minute, so that the test ends where it does not.
#include <Storage/SqliteStorage.h>
#include <Storage/watch/ChangeHints.h>
#include <storage/support/StoreFolder.h>

#include <support/interposed/RefusedHints.h>

#include <unistd.h>

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;
namespace fs = std::filesystem;

constexpr int nothingElse = -1;

class Hints : public StoreFolder {
protected:
    Hints() { fs::create_directory(path("folder")); }

    // Whether a wait ends before its time.
    static bool isHinted(Storage::ChangeHints& hints)
    {
        Clock::time_point const start = Clock::now();
        EXPECT_FALSE(hints.wait(60s, nothingElse));
        return Clock::now() - start < 50s;
    }

    // Whether a wait lasts as long as it may, so that no hint has come.
    static bool isUnhinted(Storage::ChangeHints& hints)
    {
        Clock::time_point const start = Clock::now();
        EXPECT_FALSE(hints.wait(100ms, nothingElse));
        return Clock::now() - start >= 100ms;
    }

    fs::path const m_file = path("folder/store.sqlite");
};

TEST_F(Hints, ChangeOfTheStoreIsAHint)
{
    Storage::SqliteStorage store(m_file);
    Storage::ChangeHints hints({m_file});
    EXPECT_TRUE(isUnhinted(hints));
    store.setInt("a", 1);
    EXPECT_TRUE(isHinted(hints));
    EXPECT_TRUE(isUnhinted(hints)) << "one change, one wait";
    store.getInt("a", 0);
    Storage::SqliteStorage(m_file).rows();
    EXPECT_TRUE(isUnhinted(hints)) << "a read is none";
}

TEST_F(Hints, FileThatComesAndGoesIsAHint)
{
    Storage::ChangeHints hints({m_file});
    overwrite(m_file, "store");
    EXPECT_TRUE(isHinted(hints));
    fs::rename(m_file, path("folder/away"));
    EXPECT_TRUE(isHinted(hints));
    fs::rename(path("folder/away"), m_file);
    EXPECT_TRUE(isHinted(hints));
    fs::remove(m_file);
    EXPECT_TRUE(isHinted(hints));
}

TEST_F(Hints, OtherFileOfTheFolderIsNone)
{
    Storage::ChangeHints hints({m_file, path("folder/second.sqlite")});
    overwrite(path("folder/log"), "line");
    EXPECT_TRUE(isUnhinted(hints));
    overwrite(path("folder/second.sqlite-journal"), "pages");
    EXPECT_TRUE(isHinted(hints));
}

TEST_F(Hints, FolderThatAppearsIsWatched)
{
    Storage::ChangeHints hints({path("later/store.sqlite")});
    EXPECT_TRUE(isUnhinted(hints));
    fs::create_directory(path("later"));
    EXPECT_TRUE(isUnhinted(hints)) << "a missing folder gives no hint";
    overwrite(path("later/store.sqlite"), "store");
    EXPECT_TRUE(isHinted(hints));
}

TEST_F(Hints, FolderInThePlaceOfAnotherIsWatched)
{
    Storage::ChangeHints hints({m_file});
    fs::rename(path("folder"), path("away"));
    fs::create_directory(path("folder"));
    EXPECT_TRUE(isHinted(hints));
    overwrite(m_file, "store");
    EXPECT_TRUE(isHinted(hints));
    overwrite(path("away/store.sqlite"), "store");
    EXPECT_TRUE(isUnhinted(hints));
}

TEST_F(Hints, FolderOfTheFileThatALinkNamesIsWatched)
{
    fs::create_symlink(m_file, path("link.sqlite"));
    overwrite(m_file, "store");
    Storage::ChangeHints hints({path("link.sqlite")});
    overwrite(m_file, "changed");
    EXPECT_TRUE(isHinted(hints));
}

TEST_F(Hints, OtherDescriptorEndsTheWait)
{
    int ends[2];
    ASSERT_EQ(::pipe(ends), 0);
    Storage::ChangeHints hints({m_file});
    EXPECT_FALSE(hints.wait(1ms, ends[0]));
    ASSERT_EQ(::write(ends[1], "x", 1), 1);
    EXPECT_TRUE(hints.wait(60s, ends[0]));
    overwrite(m_file, "store");
    EXPECT_TRUE(hints.wait(60s, ends[0])) << "also where there is a hint";
    ::close(ends[0]);
    ::close(ends[1]);
}

TEST_F(Hints, WaitLastsItsTimeWhereInotifyIsRefused)
{
    RefusedHints const refused;
    Storage::ChangeHints hints({m_file});
    overwrite(m_file, "store");
    EXPECT_TRUE(isUnhinted(hints));
}

} // namespace
