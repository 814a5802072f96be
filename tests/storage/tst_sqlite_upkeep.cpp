// SPDX-License-Identifier: MIT
//
// What keeps a store usable over the years: changes made together, copies, a look at the file, and files of other
// versions.
#include <storage/support/StoreFolder.h>

#include <support/Process.h>

#include <unistd.h>

namespace {

using Storage::SqliteStorage;
using Storage::StorageError;
using Bytes = std::vector<unsigned char>;
using Change = SqliteStorage::Change;

class SqliteUpkeep : public StoreFolder {
protected:
    static std::vector<std::string> keys(SqliteStorage const& store)
    {
        std::vector<std::string> keys;
        for (SqliteStorage::Row const& row : store.rows())
            keys.push_back(row.key);
        return keys;
    }
};

using Keys = std::vector<std::string>;

// --- Changes together ---

TEST_F(SqliteUpkeep, ChangesTogetherAreAllMadeInTheirOrder)
{
    SqliteStorage store(path());
    store.setInt("gone", 1);
    store.setInt("other", 2);
    store.apply({{"flag", true},
                 {"number", 7},
                 {"text", std::string("first")},
                 {"text", std::string("second")},
                 {"bytes", Bytes{0, 255}},
                 {"gone", std::monostate()},
                 {"never there", std::monostate()}});
    EXPECT_EQ(keys(store), (Keys{"bytes", "flag", "number", "other", "text"}));
    EXPECT_TRUE(store.getBool("flag", false));
    EXPECT_EQ(store.getInt("number", 0), 7);
    EXPECT_EQ(store.getString("text", ""), "second");
    EXPECT_EQ(store.getBytes("bytes", {}), (Bytes{0, 255}));
}

TEST_F(SqliteUpkeep, OneChangeThatFailsUndoesThemAll)
{
    SqliteStorage store(path());
    store.setString("text", "old");
    OtherProgram(path()).execute("CREATE UNIQUE INDEX no ON settings (kind)");
    EXPECT_EQ(refusal([&] {
                  store.apply({{"text", std::string("new")}, {"other", 1}, {"last", 2}});
              }),
              path().string() +
                  ": cannot make 3 changes together: UNIQUE constraint failed: settings.kind; check the disk and its space, and try again");
    EXPECT_EQ(store.getString("text", "lost"), "old");
    EXPECT_EQ(keys(store), Keys{"text"});
    OtherProgram(path()).execute("DROP INDEX no");
    store.setString("text", "works again");
    EXPECT_EQ(SqliteStorage(path()).getString("text", "lost"), "works again");
}

TEST_F(SqliteUpkeep, ChangesTogetherAreOneForOtherProcesses)
{
    LaterChild writer(*this, [&] {
        SqliteStorage other(path());
        for (int number = 1; number <= 10; ++number)
            other.apply({{"left", number}, {"right", number}});
        return std::string("done");
    });
    SqliteStorage store(path());
    store.apply({{"left", 0}, {"right", 0}});
    writer.begin();
    int seen = 0;
    while (seen < 10) {
        std::vector<SqliteStorage::Row> const rows = store.rows();
        ASSERT_EQ(rows[0].value, rows[1].value);
        seen = std::get<int>(rows[0].value);
    }
    EXPECT_EQ(writer.answer(), "done");
}

// --- Copies and changes of others ---

TEST_F(SqliteUpkeep, SnapshotIsAStoreOfItsOwn)
{
    SqliteStorage store(path());
    store.setString("text", "value");
    overwrite(path("copy.sqlite"), store.snapshot());
    store.setString("text", "later");
    SqliteStorage copy(path("copy.sqlite"));
    EXPECT_EQ(copy.getString("text", ""), "value");
    copy.setInt("own", 1);
    EXPECT_EQ(keys(store), Keys{"text"});
}

TEST_F(SqliteUpkeep, SnapshotIsOfOneMomentWhileOthersWrite)
{
    std::string const filler(20000, 'x');
    LaterChild writer(*this, [&] {
        SqliteStorage other(path());
        for (int number = 1; number <= 10; ++number)
            other.apply({{"left", number}, {"middle", filler + std::to_string(number)}, {"right", number}});
        return std::string("done");
    });
    SqliteStorage store(path());
    store.apply({{"left", 0}, {"middle", filler}, {"right", 0}});
    writer.begin();
    for (int seen = 0; seen < 10;) {
        overwrite(path("copy.sqlite"), store.snapshot());
        SqliteStorage const copy(path("copy.sqlite"));
        seen = copy.getInt("left", -1);
        ASSERT_EQ(copy.getInt("right", -2), seen);
    }
    EXPECT_EQ(writer.answer(), "done");
}

TEST_F(SqliteUpkeep, ChangesOfOthersAreNoticedAndItsOwnAreNot)
{
    LaterChild writer(*this, [&] { return SqliteStorage(path()).setInt("key", 2), std::string("done"); });
    SqliteStorage store(path());
    SqliteStorage other(path());
    long long const before = store.changesOfOthers();
    store.setInt("own", 1);
    EXPECT_EQ(store.changesOfOthers(), before);
    other.setInt("key", 1);
    long long const after = store.changesOfOthers();
    EXPECT_NE(after, before);
    EXPECT_EQ(store.changesOfOthers(), after);
    writer.begin();
    EXPECT_EQ(writer.answer(), "done");
    EXPECT_NE(store.changesOfOthers(), after);
}

// --- A look at the file ---

TEST_F(SqliteUpkeep, SoundFileIsReportedWithoutDamage)
{
    SqliteStorage::Report const report = SqliteStorage(path()).examine();
    EXPECT_EQ(report.sqliteVersion, sqlite3_libversion());
    EXPECT_EQ(report.journalMode, "truncate");
    EXPECT_EQ(report.schemaVersion, 1);
    EXPECT_EQ(report.damage, std::vector<std::string>());
}

TEST_F(SqliteUpkeep, EveryDamageIsReportedAndNothingIsMended)
{
    SqliteStorage store(path());
    store.setInt("some key", 1);
    std::string damaged = content(path());
    damaged.replace(damaged.find("some key", 2 * 4096), 8, "same key"); // the third page is the index
    overwrite(path(), damaged);
    EXPECT_EQ(store.examine().damage, (std::vector<std::string>{"row 1 missing from index sqlite_autoindex_settings_1"}));
    EXPECT_EQ(content(path()), damaged);
}

TEST_F(SqliteUpkeep, EmptyJournalOfAStoreThatIsGoneIsNothing)
{
    overwrite(path("store.sqlite-journal"), "");
    SqliteStorage(path()).setInt("key", 1);
    EXPECT_EQ(SqliteStorage(path()).getInt("key", 0), 1);
}

TEST_F(SqliteUpkeep, JournalOfAStoreThatIsGoneIsNotPlayedBackIntoANewOne)
{
    std::string journal;
    {
        SqliteStorage store(path());
        store.setString("key", std::string(20000, 'x'));
        OtherProgram other(path());
        other.execute("PRAGMA cache_size = 1; BEGIN; UPDATE settings SET value = 'new'; INSERT INTO settings VALUES ('k', 's', "
                      "zeroblob(100000), 5)");
        journal = content(path("store.sqlite-journal"));
    }
    ASSERT_GT(journal.size(), 4096u);
    std::filesystem::remove(path());
    overwrite(path("store.sqlite-journal"), journal);
    EXPECT_EQ(refusal([&] { SqliteStorage const store(path()); }),
              path().string() + ": cannot open the store: it is gone, but its journal is there and would be played back into a new one; "
                                "bring the store back beside its journal, or move the journal away");
    EXPECT_FALSE(std::filesystem::exists(path()));
    EXPECT_EQ(content(path("store.sqlite-journal")), journal);
    std::filesystem::rename(path("store.sqlite-journal"), path("elsewhere"));
    SqliteStorage(path()).setInt("key", 1);
    EXPECT_EQ(SqliteStorage(path()).getInt("key", 0), 1);
}

// --- Files of other versions ---

TEST_F(SqliteUpkeep, FileOfTheFirstSchemaIsReadWhole)
{
    std::filesystem::copy(TESTS_DATA "/stores/schema-1.sqlite", path());
    SqliteStorage const store(path());
    EXPECT_FALSE(store.isReadOnly());
    EXPECT_EQ(store.examine().schemaVersion, 1);
    EXPECT_EQ(keys(store),
              (Keys{"colourOfALaterVersion", "exportPath", "keepVideoAspect", "keyOfALaterVersion", "mainWindowState", "npsSendCount"}));
    EXPECT_FALSE(store.getBool("keepVideoAspect", true));
    EXPECT_EQ(store.getInt("npsSendCount", 0), 7);
    EXPECT_EQ(store.getString("exportPath", ""), "/films/\xC3\xA4");
    EXPECT_EQ(store.getBytes("mainWindowState", {}), (Bytes{0, 1, 255}));
    EXPECT_EQ(store.find("npsSendCount")->changed.time_since_epoch(), std::chrono::milliseconds(1763719200123));
}

TEST_F(SqliteUpkeep, KeysAndKindsOfLaterVersionsSurviveChangesOfThisOne)
{
    std::filesystem::copy(TESTS_DATA "/stores/schema-1.sqlite", path());
    {
        SqliteStorage store(path());
        store.setInt("npsSendCount", 8);
        store.remove("exportPath");
        store.apply({{"mainWindowState", Bytes(5000, 1)}});
        EXPECT_EQ(store.getString("colourOfALaterVersion", "default"), "default");
    }
    OtherProgram other(path());
    EXPECT_EQ(other.ask("SELECT kind || '|' || value || '|' || typeof(value) || '|' || changed FROM settings "
                        "WHERE key = 'colourOfALaterVersion'"),
              "colour|0.5|real|1763719200000");
    EXPECT_EQ(other.ask("SELECT kind || '|' || value || '|' || changed FROM settings WHERE key = 'keyOfALaterVersion'"),
              "string|kept|1763719200123");
    EXPECT_EQ(other.ask("SELECT count(*) FROM settings"), "5");
}

TEST_F(SqliteUpkeep, FileOfANewerSchemaIsReadAndRefusesEveryChange)
{
    {
        SqliteStorage store(path());
        store.setString("key", "value");
    }
    OtherProgram(path()).execute("ALTER TABLE settings ADD COLUMN author TEXT; UPDATE settings SET author = 'a later version';"
                                 "CREATE TABLE later (thing); PRAGMA user_version = 2");
    std::string const before = content(path());
    std::string const reason = "it was written by a newer version (schema 2, this version writes 1); update this program; the file was "
                               "left as it is";
    {
        SqliteStorage store(path());
        EXPECT_TRUE(store.isReadOnly());
        ASSERT_TRUE(store.readOnlyError());
        EXPECT_EQ(std::string(store.readOnlyError()->what()), path().string() + ": cannot change the store: " + reason);
        EXPECT_EQ(store.getString("key", "lost"), "value");
        EXPECT_EQ(keys(store), Keys{"key"});
        EXPECT_EQ(store.examine().schemaVersion, 2);
        EXPECT_EQ(refusal([&] { store.setString("key", "new"); }), path().string() + ": cannot set \"key\": " + reason);
        EXPECT_EQ(refusal([&] { store.setBool("key", true); }), path().string() + ": cannot set \"key\": " + reason);
        EXPECT_EQ(refusal([&] { store.setInt("key", 1); }), path().string() + ": cannot set \"key\": " + reason);
        EXPECT_EQ(refusal([&] { store.setBytes("key", Bytes{1}); }), path().string() + ": cannot set \"key\": " + reason);
        EXPECT_EQ(refusal([&] { store.remove("key"); }), path().string() + ": cannot remove \"key\": " + reason);
        EXPECT_EQ(refusal([&] { store.apply({{"key", 1}}); }), path().string() + ": cannot make 1 change: " + reason);
        EXPECT_EQ(store.getString("key", "lost"), "value");
    }
    EXPECT_EQ(content(path()), before);
}

TEST_F(SqliteUpkeep, WritableStoreHasNoReadOnlyError)
{
    EXPECT_FALSE(SqliteStorage(path()).readOnlyError());
    EXPECT_FALSE(SqliteStorage(path()).isReadOnly());
}

TEST_F(SqliteUpkeep, VersionThatTakesTheFileOverWhileItIsOpenIsNotWrittenOver)
{
    SqliteStorage store(path());
    store.setString("key", "value");
    OtherProgram(path()).execute("PRAGMA user_version = 2");
    EXPECT_EQ(refusal([&] { store.setString("key", "new"); }),
              path().string() + ": cannot set \"key\": it was written by a newer version (schema 2, this version writes 1); update this "
                                "program; the file was left as it is");
    EXPECT_EQ(store.getString("key", "lost"), "value");
    EXPECT_TRUE(store.isReadOnly());
}

} // namespace
