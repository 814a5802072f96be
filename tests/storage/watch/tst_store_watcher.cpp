// SPDX-License-Identifier: MIT
//
// What a watcher finds of the changes to a store and to its file, and whose changes they are.
#include <Storage/Backup.h>
#include <Storage/StoreWatcher.h>
#include <Storage/watch/OwnChanges.h>
#include <storage/support/MemoryFolder.h>
#include <storage/support/OtherProcess.h>
#include <storage/support/StoreFolder.h>

#include <atomic>
#include <map>
#include <thread>

namespace {

using Storage::Backup;
using Storage::SqliteStorage;
using Storage::StoreWatcher;
using Lines = std::vector<std::string>;

std::string text(std::optional<SqliteStorage::Row> const& row)
{
    if (!row)
        return "(unset)";
    if (auto const* const number = std::get_if<int>(&row->value))
        return std::to_string(*number);
    auto const* const value = std::get_if<std::string>(&row->value);
    return value ? *value : "(unreadable)";
}

std::string line(StoreWatcher::Difference const& difference)
{
    return difference.key + ' ' + text(difference.before) + " -> " + text(difference.after);
}

class Watched : public StoreFolder {
protected:
    Watched()
    {
        std::filesystem::create_directory(path("folder"));
        std::filesystem::create_directory_symlink(path("folder"), path("link"));
    }

    StoreWatcher::Look succeeded()
    {
        StoreWatcher::Look look = m_watcher.look();
        EXPECT_FALSE(look.error) << look.error->what();
        return look;
    }

    // The differences since the last look.
    Lines look()
    {
        Lines lines;
        for (auto const& difference : succeeded().differences)
            lines.push_back(line(difference));
        return lines;
    }

    // The same, and whose they are.
    Lines lookForMakers()
    {
        Lines lines;
        for (auto const& difference : succeeded().differences)
            lines.push_back((difference.byThisProcess ? "ours: " : "others': ") + line(difference));
        return lines;
    }

    void putGarbage() const { std::filesystem::rename(m_home.write("garbage", "not a store"), m_file); }

    std::filesystem::path const m_file = path("folder/store.sqlite");
    OtherProcess m_other{m_file};
    StoreWatcher m_watcher{m_file};
};

// --- Whether the store was read ---

TEST_F(Watched, LookThatFailsWithoutAWordIsNotTakenForASuccess)
{
    EXPECT_TRUE(m_watcher.look().isRead) << "missing";
    SqliteStorage(m_file).setString("exportPath", "/films");
    OtherProgram program(m_file);
    program.execute("BEGIN EXCLUSIVE");
    StoreWatcher::Look const locked = m_watcher.look();
    EXPECT_FALSE(locked.error);
    EXPECT_FALSE(locked.isRead);
    program.execute("ROLLBACK");
    EXPECT_TRUE(m_watcher.look().isRead);
    putGarbage();
    EXPECT_TRUE(m_watcher.look().error);
    StoreWatcher::Look const garbage = m_watcher.look();
    EXPECT_FALSE(garbage.error) << "known already";
    EXPECT_FALSE(garbage.isRead);
}

// --- What has changed ---

TEST_F(Watched, ChangesAreFoundOnce)
{
    SqliteStorage store(m_file);
    store.setString("exportPath", "/films");
    EXPECT_EQ(look(), Lines{"exportPath (unset) -> /films"});
    EXPECT_EQ(look(), Lines{});
    store.setString("exportPath", "/a\nb");
    store.setInt("npsSendCount", 7);
    EXPECT_EQ(look(), (Lines{"exportPath /films -> /a\nb", "npsSendCount (unset) -> 7"}));
    store.setInt("npsSendCount", 7);
    store.remove("exportPath");
    EXPECT_EQ(look(), Lines{"exportPath /a\nb -> (unset)"}) << "an equal value is no difference";
    EXPECT_EQ(look(), Lines{});
}

TEST_F(Watched, DifferenceSaysWhatHappened)
{
    using Change = Storage::RowDifference::Change;
    SqliteStorage store(m_file);
    store.setInt("a", 1);
    EXPECT_EQ(succeeded().differences.at(0).change(), Change::added);
    store.setInt("a", 2);
    EXPECT_EQ(succeeded().differences.at(0).change(), Change::changed);
    store.remove("a");
    EXPECT_EQ(succeeded().differences.at(0).change(), Change::removed);
}

TEST_F(Watched, UnreadableValueThatIsRewrittenDiffers)
{
    SqliteStorage(m_file).setString("exportPath", "/films");
    OtherProgram(m_file).execute("UPDATE settings SET kind = 'later', changed = 5");
    look();
    OtherProgram(m_file).execute("UPDATE settings SET changed = 6");
    EXPECT_EQ(look(), Lines{"exportPath (unreadable) -> (unreadable)"});
}

TEST_F(Watched, MissingStoreIsNotCreated)
{
    EXPECT_EQ(look(), Lines{});
    EXPECT_FALSE(std::filesystem::exists(m_file));
    SqliteStorage(m_file).setString("exportPath", "/a");
    EXPECT_EQ(look(), Lines{"exportPath (unset) -> /a"});
}

TEST_F(Watched, StoreBehindALinkThatLeadsNowhereIsAnError)
{
    std::filesystem::create_symlink("nowhere", m_file);
    std::optional<Storage::StorageError> const error = m_watcher.look().error;
    ASSERT_TRUE(error);
    EXPECT_EQ(error->reason(), "it is a symbolic link to a file that does not exist");
    EXPECT_FALSE(std::filesystem::exists(path("folder/nowhere")));
}

TEST_F(Watched, StoreInAMissingFolderIsMissing)
{
    StoreWatcher watcher(path("absent/store.sqlite"));
    EXPECT_FALSE(watcher.look().error);
    EXPECT_FALSE(std::filesystem::exists(path("absent")));
    StoreWatcher belowAFile(m_home.write("file", "no folder") / "store.sqlite");
    EXPECT_FALSE(belowAFile.look().error);
}

TEST_F(Watched, NameThatCannotBeFollowedIsAnError)
{
    std::filesystem::create_symlink(m_file, m_file);
    std::optional<Storage::StorageError> const error = m_watcher.look().error;
    ASSERT_TRUE(error);
    EXPECT_EQ(error->reason(), "Too many levels of symbolic links");
}

TEST_F(Watched, ReplacedStoreIsFollowed)
{
    SqliteStorage(m_file).setString("exportPath", "/films");
    look();
    SqliteStorage(path("other.sqlite")).setString("exportPath", "/other");
    std::filesystem::rename(path("other.sqlite"), m_file);
    EXPECT_EQ(look(), Lines{"exportPath /films -> /other"});
    SqliteStorage(m_file).setString("exportPath", "/next");
    EXPECT_EQ(look(), Lines{"exportPath /other -> /next"});
}

TEST_F(Watched, LinkThatIsTurnedElsewhereIsFollowed)
{
    SqliteStorage(path("a.sqlite")).setString("exportPath", "/a");
    SqliteStorage(path("b.sqlite")).setString("exportPath", "/b");
    std::filesystem::create_symlink(path("a.sqlite"), m_file);
    EXPECT_EQ(look(), Lines{"exportPath (unset) -> /a"});
    std::filesystem::create_symlink(path("b.sqlite"), path("link.sqlite"));
    std::filesystem::rename(path("link.sqlite"), m_file);
    EXPECT_EQ(look(), Lines{"exportPath /a -> /b"});
}

TEST_F(Watched, StoreThatIsMovedAwayAndBackIsFollowed)
{
    SqliteStorage(m_file).setString("exportPath", "/films");
    look();
    std::filesystem::rename(m_file, path("away"));
    EXPECT_EQ(look(), Lines{"exportPath /films -> (unset)"});
    EXPECT_EQ(look(), Lines{});
    std::filesystem::rename(path("away"), m_file);
    EXPECT_EQ(look(), Lines{"exportPath (unset) -> /films"});
}

TEST_F(Watched, RelativeNameStaysWithItsFolder)
{
    SqliteStorage(m_file).setString("exportPath", "/films");
    std::filesystem::path const before = std::filesystem::current_path();
    std::filesystem::current_path(path("folder"));
    StoreWatcher watcher("store.sqlite");
    std::filesystem::current_path(before);
    EXPECT_EQ(watcher.look().differences.size(), 1u);
}

// --- Errors ---

TEST_F(Watched, ErrorIsReturnedOnceForAsLongAsItLasts)
{
    SqliteStorage(path("away")).setString("exportPath", "/films");
    putGarbage();
    std::optional<Storage::StorageError> const error = m_watcher.look().error;
    ASSERT_TRUE(error);
    EXPECT_EQ(error->file(), m_file.string());
    EXPECT_EQ(error->reason(), "file is not a database");
    EXPECT_FALSE(m_watcher.look().error);

    std::filesystem::rename(path("away"), m_file);
    EXPECT_EQ(look(), Lines{"exportPath (unset) -> /films"});
    putGarbage();
    EXPECT_TRUE(m_watcher.look().error) << "another store was between";

    std::filesystem::remove(m_file);
    EXPECT_EQ(look(), Lines{"exportPath /films -> (unset)"});
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
    EXPECT_EQ(look(), Lines{"exportPath /films -> /next"});
}

TEST_F(Watched, DamagedStoreThatIsMendedKeepsItsRows)
{
    SqliteStorage(m_file).setString("exportPath", "/films");
    look();
    std::string const sound = content(m_file);
    overwrite(m_file, sound.substr(0, sound.size() / 2));
    EXPECT_TRUE(m_watcher.look().error);
    overwrite(m_file, sound);
    EXPECT_EQ(look(), Lines{});
}

TEST_F(Watched, LockedStoreIsLookedAtLater)
{
    SqliteStorage(m_file).setString("exportPath", "/films");
    look();
    {
        OtherProgram program(m_file);
        program.execute("BEGIN EXCLUSIVE; UPDATE settings SET value = '/next'");
        EXPECT_EQ(look(), Lines{});
        program.execute("COMMIT");
    }
    EXPECT_EQ(look(), Lines{"exportPath /films -> /next"});
}

TEST_F(Watched, StoreThatStaysLockedIsAnError)
{
    SqliteStorage(m_file).setString("exportPath", "/films");
    StoreWatcher watcher(m_file, {std::chrono::milliseconds(0)});
    OtherProgram program(m_file);
    program.execute("BEGIN EXCLUSIVE");
    std::optional<Storage::StorageError> const error = watcher.look().error;
    ASSERT_TRUE(error);
    EXPECT_EQ(error->code(), Storage::StorageError::Code::busy);
    EXPECT_FALSE(watcher.look().error);
    program.execute("COMMIT");
    EXPECT_EQ(watcher.look().differences.size(), 1u);
}

TEST_F(Watched, StoreThatThisProgramIsWritingIsLookedAtLater)
{
    SqliteStorage(m_file).setString("exportPath", "/films");
    StoreWatcher impatient(m_file, {std::chrono::milliseconds(0)});
    {
        std::shared_ptr<Storage::OwnChanges> const own = Storage::OwnChanges::of(std::filesystem::canonical(m_file));
        Storage::OwnChanges::Turn const turn = own->turn();
        EXPECT_EQ(look(), Lines{});
        std::optional<Storage::StorageError> const error = impatient.look().error;
        ASSERT_TRUE(error);
        EXPECT_EQ(error->reason(), "this program is writing");
    }
    EXPECT_EQ(look(), Lines{"exportPath (unset) -> /films"});
}

// --- Whose change it was ---

TEST_F(Watched, ChangesOfAllObjectsOfThisProcessAreOurs)
{
    SqliteStorage first(m_file);
    SqliteStorage second(path("link/store.sqlite"));
    first.setString("a", "1");
    second.setBool("b", true);
    second.apply({{"c", 3}, {"d", std::string("4")}});
    EXPECT_EQ(lookForMakers(),
              (Lines{"ours: a (unset) -> 1", "ours: b (unset) -> (unreadable)", "ours: c (unset) -> 3", "ours: d (unset) -> 4"}));
    first.remove("d");
    second.setBytes("c", {5});
    EXPECT_EQ(lookForMakers(), (Lines{"ours: c 3 -> (unreadable)", "ours: d 4 -> (unset)"}));
    first.apply({{"e", {}, {}, "later", 1.5}});
    EXPECT_EQ(lookForMakers(), Lines{"ours: e (unset) -> (unreadable)"});
}

TEST_F(Watched, ChangesOfAnotherProcessAreNotOurs)
{
    m_other.set("a", "1");
    EXPECT_EQ(lookForMakers(), Lines{"others': a (unset) -> 1"});
    m_other.set("a", "2");
    m_other.set("b", "3");
    EXPECT_EQ(lookForMakers(), (Lines{"others': a 1 -> 2", "others': b (unset) -> 3"}));
    m_other.remove("a");
    EXPECT_EQ(lookForMakers(), Lines{"others': a 2 -> (unset)"});
    OtherProgram(m_file).execute("UPDATE settings SET value = '4'");
    EXPECT_EQ(lookForMakers(), Lines{"others': b 3 -> 4"});
}

TEST_F(Watched, LastChangeBetweenTwoLooksDecides)
{
    SqliteStorage store(m_file);
    look();
    store.setString("a", "ours");
    m_other.set("a", "theirs");
    m_other.set("b", "theirs");
    store.setString("b", "ours");
    EXPECT_EQ(lookForMakers(), (Lines{"others': a (unset) -> theirs", "ours: b (unset) -> ours"}));
    store.setString("a", "ours");
    m_other.remove("a");
    m_other.set("b", "next");
    store.remove("b");
    EXPECT_EQ(lookForMakers(), (Lines{"others': a theirs -> (unset)", "ours: b ours -> (unset)"}));
}

// Equal values of two processes differ by their times.
TEST_F(Watched, EqualValueOfAnotherProcessIsNotOurs)
{
    SqliteStorage store(m_file);
    store.setString("a", "1");
    store.setString("a", "2");
    look();
    store.setString("a", "1");
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
    m_other.set("a", "1");
    EXPECT_EQ(lookForMakers(), Lines{"others': a 2 -> 1"});
}

TEST_F(Watched, RemovalIsOursOnceOnly)
{
    SqliteStorage store(m_file);
    store.setString("a", "1");
    store.remove("a");
    look();
    m_other.set("a", "2");
    EXPECT_EQ(lookForMakers(), Lines{"others': a (unset) -> 2"});
    m_other.remove("a");
    EXPECT_EQ(lookForMakers(), Lines{"others': a 2 -> (unset)"});
}

TEST_F(Watched, RemovalOfAnAbsentKeyIsNoChange)
{
    SqliteStorage store(m_file);
    store.setString("a", "1");
    look();
    m_other.remove("a");
    store.remove("a");
    EXPECT_EQ(lookForMakers(), Lines{"others': a 1 -> (unset)"});
}

TEST_F(Watched, ChangeThatFailedIsNotOurs)
{
    SqliteStorage store(m_file);
    store.apply({{"a", 1}, {"b", 1}});
    look();
    store.setInt("b", 2);
    EXPECT_THROW(store.apply({{"a", {}}, {"b", 3}, {"c", std::string(1000000001, 'x')}}), Storage::StorageError);
    m_other.remove("a");
    store.setInt("d", 1);
    EXPECT_EQ(lookForMakers(), (Lines{"others': a 1 -> (unset)", "ours: b 1 -> 2", "ours: d (unset) -> 1"}));
}

TEST_F(Watched, StoreThatThisProcessMakesIsOurs)
{
    look();
    SqliteStorage(m_file).setString("a", "1");
    EXPECT_EQ(lookForMakers(), Lines{"ours: a (unset) -> 1"});
    std::filesystem::remove(m_file);
    EXPECT_EQ(lookForMakers(), Lines{"others': a 1 -> (unset)"}) << "nobody can tell who removed it";
    m_other.set("a", "2");
    EXPECT_EQ(lookForMakers(), Lines{"others': a (unset) -> 2"});
}

TEST_F(Watched, WatchersOfOneStoreDoNotTakeChangesFromEachOther)
{
    SqliteStorage store(m_file);
    look();
    StoreWatcher second(path("link/store.sqlite"));
    second.look();
    store.setString("a", "1");
    EXPECT_EQ(lookForMakers(), Lines{"ours: a (unset) -> 1"});
    {
        StoreWatcher const third(m_file);
    }
    StoreWatcher::Look const seen = second.look();
    ASSERT_EQ(seen.differences.size(), 1u);
    EXPECT_TRUE(seen.differences[0].byThisProcess);
}

TEST_F(Watched, RestoredStoreIsOurs)
{
    {
        SqliteStorage store(m_file);
        store.setString("a", "1");
        Backup::write(path("backup"), {{"product", &store}});
        store.setString("a", "2");
        store.setString("b", "3");
    }
    look();
    Backup const backup(path("backup"));
    backup.restore("product", m_file);
    EXPECT_EQ(lookForMakers(), (Lines{"ours: a 2 -> 1", "ours: b 3 -> (unset)"}));

    m_other.set("b", "4");
    std::filesystem::remove(m_file);
    look();
    backup.restore("product", m_file);
    EXPECT_EQ(lookForMakers(), Lines{"ours: a (unset) -> 1"}) << "a new file";

    std::filesystem::remove(m_file);
    look();
    putGarbage();
    backup.restore("product", m_file);
    EXPECT_EQ(lookForMakers(), Lines{"ours: a (unset) -> 1"}) << "a file in the place of another";
    m_other.set("a", "5");
    EXPECT_EQ(lookForMakers(), Lines{"others': a 1 -> 5"});
}

// Sets and removes `key` many times, then sets it for good.
void changeOften(SqliteStorage& store, std::string const& key)
{
    for (int number = 1; number <= 1000; ++number) {
        store.setInt(key, number);
        if (number % 3 == 0)
            store.remove(key);
    }
}

// A look finds each change of this process with its note, however they fall together.
TEST(WatchedInMemory, ChangesOfSeveralThreadsAndAProcessAreTheirs)
{
    MemoryFolder const folder;
    std::filesystem::path const file = folder.path() / "store.sqlite";
    OtherProcess other(file);
    SqliteStorage shared(file);
    StoreWatcher watcher(file);
    std::atomic<int> running{4};
    auto const started = [&](auto const& work) { return std::thread([&running, work] { work(), --running; }); };
    std::thread threads[] = {started([&] { changeOften(shared, "a"); }), started([&] { changeOften(shared, "b"); }), started([&] {
                                 SqliteStorage own(file);
                                 changeOften(own, "c");
                             }),
                             started([&] { other.count("others", 1000); })};
    Lines wrong;
    std::map<std::string, int> found;
    for (bool isLast = false; !isLast;) {
        isLast = running == 0;
        for (auto const& difference : watcher.look().differences) {
            ++found[difference.key];
            if (difference.byThisProcess == (difference.key == "others"))
                wrong.push_back(line(difference));
        }
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(wrong, Lines{});
    EXPECT_EQ(found.size(), 4u);
}

} // namespace
