// SPDX-License-Identifier: MIT
//
// What a watcher finds of the changes that others make to a store and to its file.
#include <Inspection/StoreWatcher.h>

#include <TestKit/TemporaryHome.h>

#include <support/OtherProgram.h>

#include <gtest/gtest.h>

namespace {

using Inspection::storedText;
using Inspection::StoreWatcher;
using Storage::SqliteStorage;

class Watched : public testing::Test {
protected:
    // The differences since the last look, as text.
    std::vector<std::string> look()
    {
        std::vector<std::string> lines;
        StoreWatcher::Look const result = m_watcher.look();
        EXPECT_FALSE(result.error) << result.error->what();
        for (auto const& difference : result.differences)
            lines.push_back(std::string(changeName(difference.change())) + ' ' + difference.key + ' ' +
                            storedText(difference.before, "(unset)") + " -> " + storedText(difference.after, "(unset)"));
        return lines;
    }

    std::filesystem::path inHome(char const* relative) const { return m_home.path() / relative; }
    void putGarbage() const { std::filesystem::rename(m_home.write("garbage", "not a store"), m_file); }

    TestKit::TemporaryHome m_home;
    std::filesystem::path const m_file = m_home.path() / "store.sqlite";
    StoreWatcher m_watcher{m_file};
};

using Lines = std::vector<std::string>;

TEST_F(Watched, ChangesOfOthersAreFoundOnce)
{
    SqliteStorage store(m_file);
    store.setString("exportPath", "/films");
    EXPECT_EQ(look(), Lines{"added exportPath (unset) -> /films"});
    EXPECT_EQ(look(), Lines{});
    store.setString("exportPath", "/a\nb");
    store.setInt("npsSendCount", 7);
    EXPECT_EQ(look(), (Lines{"changed exportPath /films -> /a\nb", "added npsSendCount (unset) -> 7"}));
    store.setInt("npsSendCount", 7);
    store.remove("exportPath");
    EXPECT_EQ(look(), Lines{"removed exportPath /a\nb -> (unset)"}) << "an equal value is no difference";
    EXPECT_EQ(look(), Lines{});
}

TEST_F(Watched, UnreadableValueThatIsRewrittenDiffers)
{
    SqliteStorage(m_file).setString("exportPath", "/films");
    OtherProgram(m_file).execute("UPDATE settings SET kind = 'later', changed = 5");
    look();
    OtherProgram(m_file).execute("UPDATE settings SET changed = 6");
    EXPECT_EQ(look(), Lines{"changed exportPath (unreadable) -> (unreadable)"});
}

TEST_F(Watched, MissingStoreIsNotCreated)
{
    EXPECT_EQ(look(), Lines{});
    EXPECT_FALSE(std::filesystem::exists(m_file));
    SqliteStorage(m_file).setString("exportPath", "/a");
    EXPECT_EQ(look(), Lines{"added exportPath (unset) -> /a"});
}

TEST_F(Watched, MissingStoreIsNotCreatedByAProgramThatCreatesItsStores)
{
    SqliteStorage::Options options;
    options.createIfMissing = true;
    StoreWatcher watcher(m_file, options);
    EXPECT_FALSE(watcher.look().error);
    EXPECT_FALSE(std::filesystem::exists(m_file));
}

TEST_F(Watched, StoreBehindALinkThatLeadsNowhereIsAnError)
{
    std::filesystem::create_symlink("nowhere", m_file);
    std::optional<Storage::StorageError> const error = m_watcher.look().error;
    ASSERT_TRUE(error);
    EXPECT_EQ(error->reason(), "it is a symbolic link to a file that does not exist");
    EXPECT_FALSE(std::filesystem::exists(inHome("nowhere")));
}

TEST_F(Watched, ReplacedStoreIsFollowed)
{
    SqliteStorage(m_file).setString("exportPath", "/films");
    look();
    SqliteStorage(inHome("other.sqlite")).setString("exportPath", "/other");
    std::filesystem::rename(inHome("other.sqlite"), m_file);
    EXPECT_EQ(look(), Lines{"changed exportPath /films -> /other"});
    SqliteStorage(m_file).setString("exportPath", "/next");
    EXPECT_EQ(look(), Lines{"changed exportPath /other -> /next"});
}

TEST_F(Watched, StoreThatIsMovedAwayAndBackIsFollowed)
{
    SqliteStorage(m_file).setString("exportPath", "/films");
    look();
    std::filesystem::rename(m_file, inHome("away"));
    EXPECT_EQ(look(), Lines{"removed exportPath /films -> (unset)"});
    std::filesystem::rename(inHome("away"), m_file);
    EXPECT_EQ(look(), Lines{"added exportPath (unset) -> /films"});
}

TEST_F(Watched, ErrorIsReturnedOnceForAsLongAsItLasts)
{
    SqliteStorage(inHome("away")).setString("exportPath", "/films");
    putGarbage();
    std::optional<Storage::StorageError> const error = m_watcher.look().error;
    ASSERT_TRUE(error);
    EXPECT_EQ(error->file(), m_file.string());
    EXPECT_EQ(error->reason(), "file is not a database");
    EXPECT_FALSE(m_watcher.look().error);

    std::filesystem::rename(inHome("away"), m_file);
    EXPECT_EQ(look(), Lines{"added exportPath (unset) -> /films"});
    putGarbage();
    EXPECT_TRUE(m_watcher.look().error) << "another store was between";

    std::filesystem::remove(m_file);
    EXPECT_EQ(look(), Lines{"removed exportPath /films -> (unset)"});
    putGarbage();
    EXPECT_TRUE(m_watcher.look().error) << "no store was between";
}

// A store that cannot be read is opened again at each look, so that no change beside it makes the error look new.
TEST_F(Watched, ErrorOfAReadLastsWhileTheFileChanges)
{
    SqliteStorage(m_file).setString("exportPath", "/films");
    look();
    std::string const table = OtherProgram(m_file).ask("SELECT sql FROM sqlite_master WHERE name = 'settings'");
    OtherProgram(m_file).execute("ALTER TABLE settings RENAME TO elsewhere");
    EXPECT_TRUE(m_watcher.look().error);
    m_watcher.look();
    OtherProgram(m_file).execute("CREATE TABLE other (name TEXT)");
    EXPECT_FALSE(m_watcher.look().error);
    OtherProgram(m_file).execute((table + "; INSERT INTO settings SELECT * FROM elsewhere; DROP TABLE elsewhere; DROP TABLE other;"
                                          "UPDATE settings SET value = '/next'")
                                     .c_str());
    EXPECT_EQ(look(), Lines{"changed exportPath /films -> /next"});
}

} // namespace
