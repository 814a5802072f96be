// SPDX-License-Identifier: MIT
//
// Copies of stores in one file: they hold everything, nothing unsound comes out of them, and what they replace is kept.
#include <storage/support/StoreFolder.h>

#include <Storage/Backup.h>

#include <support/Named.h>
#include <support/Process.h>

#include <algorithm>
#include <csignal>
#include <ctime>
#include <functional>
#include <memory>
#include <set>
#include <thread>

#include <sys/resource.h>
#include <unistd.h>

namespace {

using Storage::Backup;
using Storage::SqliteStorage;
using Storage::StorageError;
using Bytes = std::vector<unsigned char>;
using Names = std::vector<std::string>;
using Time = std::chrono::system_clock::time_point;

class Backups : public StoreFolder {
protected:
    void backUp(std::string const& value)
    {
        SqliteStorage store(path("made.sqlite"));
        store.setString("text", value);
        store.setBytes("bytes", Bytes{0, 255});
        Backup::write(path("copy.backup"), {{"product", &store}});
    }

    // How a restore by a process ends that may make no file of more than `size` bytes.
    std::string restoredWithFilesUpTo(rlim_t size) const
    {
        return inChild([&] {
            Backup const backup(path("copy.backup"));
            std::signal(SIGXFSZ, SIG_IGN);
            rlimit const limit{size, size};
            ::setrlimit(RLIMIT_FSIZE, &limit);
            return backup.restore("product", path()), std::string("restored");
        });
    }

    static ino_t inode(std::filesystem::path const& file)
    {
        struct stat status = {};
        ::lstat(file.c_str(), &status);
        return status.st_ino;
    }

    Names entries() const
    {
        Names names;
        for (auto const& entry : std::filesystem::directory_iterator(m_home.path()))
            if (entry.is_regular_file())
                names.push_back(entry.path().filename());
        std::sort(names.begin(), names.end());
        return names;
    }
};

// --- Writing ---

TEST_F(Backups, HoldsEveryRowOfEachStore)
{
    SqliteStorage product(path("product.sqlite"));
    SqliteStorage common(path("common.sqlite"));
    product.setString("text", "value");
    product.setBytes("bytes", Bytes{0, 255});
    common.setBool("autoUpdate", false);
    OtherProgram(path("product.sqlite")).execute("INSERT INTO settings VALUES ('colour', 'colour', 0.5, 5)");
    Backup::write(path("copy.backup"), {{"product", &product}, {"common", &common}});
    product.setString("text", "later");

    Backup const backup(path("copy.backup"));
    EXPECT_EQ(backup.names(), (Names{"common", "product"}));
    ASSERT_EQ(backup.rows("product").size(), 3u);
    EXPECT_EQ(backup.rows("product")[0].value, SqliteStorage::Value(Bytes{0, 255}));
    EXPECT_EQ(backup.rows("product")[1].kind, "colour");
    EXPECT_EQ(backup.rows("product")[2].value, SqliteStorage::Value(std::string("value")));
    ASSERT_EQ(backup.rows("common").size(), 1u);
    EXPECT_EQ(backup.rows("common")[0].value, SqliteStorage::Value(false));
    auto const age = std::chrono::system_clock::now() - backup.made();
    EXPECT_GE(age, std::chrono::seconds(0));
    EXPECT_LT(age, std::chrono::minutes(5));
}

TEST_F(Backups, IsForItsOwnerOnlyWhateverTheUmask)
{
    SqliteStorage const store(path());
    for (mode_t const mask : {0u, 022u, 0777u}) {
        mode_t const earlier = ::umask(mask);
        Backup::write(path("folder") / std::to_string(mask), {{"product", &store}});
        ::umask(earlier);
        EXPECT_EQ(mode(path("folder") / std::to_string(mask)), 0600u) << mask;
        EXPECT_EQ(mode(path("folder")), 0700u);
    }
}

TEST_F(Backups, FileThatIsThereIsNeverOverwritten)
{
    SqliteStorage const store(path());
    overwrite(path("mine.txt"), "my text");
    std::filesystem::create_symlink("nowhere", path("link"));
    std::string const reason = ": cannot write the backup: it is there already; name a new file, or move that one away";
    EXPECT_EQ(refusal([&] { Backup::write(path("mine.txt"), {{"product", &store}}); }), path("mine.txt").string() + reason);
    EXPECT_EQ(refusal([&] { Backup::write(path("link"), {{"product", &store}}); }), path("link").string() + reason);
    EXPECT_EQ(content(path("mine.txt")), "my text");
    EXPECT_FALSE(std::filesystem::exists(path("nowhere")));
}

TEST_F(Backups, FolderThatTakesNoFileIsNamed)
{
    SqliteStorage const store(path());
    overwrite(path("mine.txt"), "my text");
    EXPECT_EQ(refusal([&] {
                  Backup::write(path("mine.txt") / "copy", {{"product", &store}});
              }),
              path("mine.txt").string() +
                  "/copy: cannot write the backup: Not a directory; make the file and its folder readable and writable for this user");
}

TEST_F(Backups, NamesAreMeantFromTheCurrentFolder)
{
    std::filesystem::path const earlier = std::filesystem::current_path();
    std::filesystem::current_path(m_home.path());
    {
        SqliteStorage store("made.sqlite");
        store.setString("text", "value");
        Backup::write("copy.backup", {{"product", &store}});
    }
    Backup const backup("copy.backup");
    EXPECT_EQ(backup.restore("product", "store.sqlite"), std::nullopt);
    EXPECT_EQ(refusal([&] { Backup const other("other.backup"); }).substr(0, path("other.backup").native().size()), path("other.backup"));
    std::filesystem::current_path(earlier);
    EXPECT_EQ(Backup(path("copy.backup")).names(), Names{"product"});
    EXPECT_EQ(SqliteStorage(path()).getString("text", ""), "value");
}

TEST_F(Backups, NameThatIsNoneIsToldWithWhatWasTried)
{
    backUp("value");
    std::string const reason = "Invalid argument; make the file and its folder readable and writable for this user";
    EXPECT_EQ(refusal([&] { Backup::write("", {}); }), ": cannot write the backup: " + reason);
    EXPECT_EQ(refusal([&] { Backup(""); }), ": cannot read the backup: " + reason);
    EXPECT_EQ(refusal([&] { Backup(path("copy.backup")).restore("product", ""); }), ": cannot restore the store: " + reason);
}

TEST_F(Backups, StoreThatWasSwitchedToALogWhileItWasOpenIsNotCopied)
{
    SqliteStorage store(path());
    OtherProgram(path()).execute("PRAGMA journal_mode = WAL");
    EXPECT_EQ(refusal([&] {
                  Backup::write(path("copy.backup"), {{"product", &store}});
              }),
              path().string() + ": cannot copy the store: it was switched to write-ahead logging, which can damage it; switch it back "
                                "with: sqlite3 FILE 'PRAGMA journal_mode=DELETE'");
    EXPECT_FALSE(std::filesystem::exists(path("copy.backup")));
}

TEST_F(Backups, EachStoreIsAsOfOneMomentWhileOthersWrite)
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
    SqliteStorage::Value seen;
    for (int copies = 0; seen != SqliteStorage::Value(10); ++copies) {
        std::filesystem::path const file = path("copies") / std::to_string(copies);
        Backup::write(file, {{"product", &store}});
        std::vector<SqliteStorage::Row> const rows = Backup(file).rows("product");
        ASSERT_EQ(rows.size(), 3u);
        ASSERT_EQ(rows[0].value, rows[2].value);
        seen = rows[0].value;
    }
    EXPECT_EQ(writer.answer(), "done");
}

// --- Reading ---

struct Unusable {
    char const* meaning;
    std::function<void(std::filesystem::path const& file)> change;
    std::string reason;
};

class UnusableBackup : public Backups, public testing::WithParamInterface<Unusable> {};

TEST_P(UnusableBackup, IsNamedAndLeftAsItIs)
{
    backUp("value");
    GetParam().change(path("copy.backup"));
    bool const isRegular = std::filesystem::is_regular_file(path("copy.backup"));
    std::string const before = isRegular ? content(path("copy.backup")) : "";
    std::string const what = refusal([&] { Backup const backup(path("copy.backup")); });
    EXPECT_EQ(what, path("copy.backup").string() + GetParam().reason);
    EXPECT_EQ(isRegular ? content(path("copy.backup")) : "", before);
}

void execute(std::filesystem::path const& file, char const* sql) { OtherProgram(file).execute(sql); }

// Puts what `sql` makes of the backed up store in the place of its copy.
void changeCopy(std::filesystem::path const& backup, char const* sql)
{
    std::filesystem::path const store = backup.parent_path() / "made.sqlite";
    execute(store, sql);
    std::string statement = "UPDATE copies SET content = x'";
    for (char const byte : StoreFolder::content(store)) {
        char hex[3];
        std::snprintf(hex, sizeof hex, "%02x", static_cast<unsigned char>(byte));
        statement += hex;
    }
    execute(backup, (statement + '\'').c_str());
}

char const another[] = "; name another backup; this one was left as it is";

INSTANTIATE_TEST_SUITE_P(
    Table, UnusableBackup,
    testing::Values(
        Unusable{"Missing", [](auto const& file) { std::filesystem::remove(file); },
                 ": cannot read the backup: it does not exist; name the file that was given to backup"},
        Unusable{"Folder",
                 [](auto const& file) {
                     std::filesystem::remove(file);
                     std::filesystem::create_directory(file);
                 },
                 std::string(": cannot read the backup: it is not a regular file") + another},
        Unusable{"DeviceBehindALink",
                 [](auto const& file) {
                     std::filesystem::remove(file);
                     std::filesystem::create_symlink("/dev/null", file);
                 },
                 std::string(": cannot read the backup: it is not a regular file") + another},
        Unusable{"IndexThatDisagreesWithItsTable",
                 [](auto const& file) {
                     std::string damaged = StoreFolder::content(file);
                     damaged.replace(damaged.rfind("product"), 7, "protect");
                     StoreFolder::overwrite(file, damaged);
                 },
                 std::string(": cannot read the backup: it is damaged (row 1 missing from index sqlite_autoindex_copies_1)") + another},
        Unusable{
            "CopyThatTakesNoValues",
            [](auto const& file) { changeCopy(file, "ALTER TABLE settings RENAME TO other; CREATE VIEW settings AS SELECT * FROM other"); },
            std::string(": cannot read the backup: its copy of the product store cannot be used (it holds the table \"other\", which "
                        "a store never does)") +
                another},
        Unusable{"Empty", [](auto const& file) { std::filesystem::resize_file(file, 0); },
                 std::string(": cannot read the backup: it is an SQLite file, but no backup") + another},
        Unusable{"Text", [](auto const& file) { StoreFolder::overwrite(file, std::string(5000, 't')); },
                 std::string(": cannot read the backup: file is not a database") + another},
        Unusable{"Store",
                 [](auto const& file) {
                     std::filesystem::copy(file.parent_path() / "made.sqlite", file, std::filesystem::copy_options::overwrite_existing);
                 },
                 ": cannot read the backup: it is a store, but no backup; a store that restore kept comes back from beside the one that "
                 "it was kept of, under the name that it got there"},
        Unusable{"CutOff", [](auto const& file) { std::filesystem::resize_file(file, std::filesystem::file_size(file) - 4096); },
                 std::string(": cannot read the backup: database disk image is malformed") + another},
        Unusable{"OtherTables", [](auto const& file) { execute(file, "DROP TABLE copies"); },
                 std::string(": cannot read the backup: no such table: copies") + another},
        Unusable{"NewerFormat", [](auto const& file) { execute(file, "PRAGMA user_version = 2"); },
                 ": cannot read the backup: it was written by a newer version (format 2, this version reads 1); update this program; the "
                 "file was left as it is"},
        Unusable{"CopyThatIsNoStore", [](auto const& file) { execute(file, "UPDATE copies SET content = x'00'"); },
                 std::string(": cannot read the backup: its copy of the product store cannot be used (file is not a database)") + another},
        Unusable{"CopyWithoutContent", [](auto const& file) { execute(file, "UPDATE copies SET content = x''"); },
                 std::string(": cannot read the backup: its copy of the product store cannot be used (it is an SQLite file of another "
                             "program)") +
                     another},
        Unusable{"CopyThatIsDamaged",
                 [](auto const& file) {
                     std::string damaged = StoreFolder::content(file);
                     damaged.replace(damaged.rfind("text"), 4, "next"); // in the index of the store, the last page of all
                     StoreFolder::overwrite(file, damaged);
                 },
                 std::string(": cannot read the backup: its copy of the product store cannot be used (the file is damaged (row 1 missing "
                             "from index sqlite_autoindex_settings_1))") +
                     another},
        Unusable{"CopyOfANewerSchema",
                 [](auto const& file) {
                     std::string newer = StoreFolder::content(file);
                     newer[newer.rfind("SQLite format 3") + 63] = 2; // user_version in the header of the store
                     StoreFolder::overwrite(file, newer);
                 },
                 std::string(": cannot read the backup: its copy of the product store cannot be used (it was written by a newer version "
                             "(schema 2, this version writes 1))") +
                     another}),
    byMeaning);

TEST_F(Backups, TimeBeyondTheClockIsItsFirstOrLast)
{
    backUp("value");
    execute(path("copy.backup"), "UPDATE about SET made = 9223372036854775807");
    EXPECT_EQ(Backup(path("copy.backup")).made().time_since_epoch(), std::chrono::seconds(9223372036));
    execute(path("copy.backup"), "UPDATE about SET made = -9223372036854775807");
    EXPECT_EQ(Backup(path("copy.backup")).made().time_since_epoch(), std::chrono::seconds(-9223372036));
}

TEST_F(Backups, FileThatMayNotBeReadIsNamed)
{
    backUp("value");
    ::chmod(m_home.path().c_str(), 0755);
    EXPECT_EQ(inChild([&] { return Backup(path("copy.backup")), std::string("read"); }, true),
              path("copy.backup").string() +
                  ": cannot read the backup: unable to open database file; make the file and its folder readable and "
                  "writable for this user");
}

// --- Restoring ---

TEST_F(Backups, MissingStoreIsMade)
{
    backUp("value");
    EXPECT_EQ(Backup(path("copy.backup")).restore("product", path("new") / "store.sqlite"), std::nullopt);
    EXPECT_EQ(SqliteStorage(path("new") / "store.sqlite").getString("text", ""), "value");
    EXPECT_EQ(SqliteStorage(path("new") / "store.sqlite").getBytes("bytes", {}), (Bytes{0, 255}));
    EXPECT_EQ(mode(path("new") / "store.sqlite"), 0600u);
}

TEST_F(Backups, JournalOfAStoreThatIsGoneIsMovedAside)
{
    backUp("value");
    overwrite(path("store.sqlite-journal"), "its journal");
    EXPECT_EQ(Backup(path("copy.backup")).restore("product", path()), std::nullopt);
    EXPECT_EQ(SqliteStorage(path()).getString("text", ""), "value");
    Names const now = entries();
    ASSERT_EQ(now.size(), 5u);
    EXPECT_EQ(now[4].substr(0, 28), "store.sqlite.before-restore-");
    EXPECT_EQ(content(path(now[4].c_str())), "its journal");
}

TEST_F(Backups, UsableStoreGetsTheValuesAndWhatWasThereIsKept)
{
    backUp("value");
    SqliteStorage open(path());
    open.setString("text", "before");
    open.setInt("own", 1);
    std::optional<std::filesystem::path> const kept = Backup(path("copy.backup")).restore("product", path());
    EXPECT_EQ(open.getString("text", ""), "value") << "who has it open reads the restored values";
    EXPECT_FALSE(open.contains("own"));
    open.setString("text", "after");
    EXPECT_EQ(SqliteStorage(path()).getString("text", ""), "after");

    ASSERT_TRUE(kept);
    EXPECT_EQ(kept->parent_path(), m_home.path());
    std::string const name = kept->filename();
    EXPECT_EQ(name.substr(0, 28), "store.sqlite.before-restore-");
    EXPECT_EQ(name.size(), 44u) << name;
    EXPECT_EQ(mode(*kept), 0600u);
    SqliteStorage const before(*kept);
    EXPECT_EQ(before.getString("text", ""), "before");
    EXPECT_EQ(before.getInt("own", 0), 1);
}

TEST_F(Backups, KeptStoreIsABackupOfItself)
{
    backUp("value");
    SqliteStorage(path()).setString("text", "before");
    std::filesystem::path const kept = *Backup(path("copy.backup")).restore("product", path());
    std::optional<Time> const made = Backup::timeOfKeeping(kept, path());
    ASSERT_TRUE(made);
    Backup const back(kept, "product", *made);
    EXPECT_EQ(back.names(), Names{"product"});
    EXPECT_EQ(back.made(), *made);
    EXPECT_EQ(back.rows("product").size(), 1u);
    EXPECT_TRUE(back.restore("product", path()));
    EXPECT_EQ(SqliteStorage(path()).getString("text", ""), "before");
    EXPECT_EQ(SqliteStorage(kept).getString("text", ""), "before");
}

TEST_F(Backups, NameOfAKeptStoreTellsWhatItWasKeptOfAndWhen)
{
    std::filesystem::create_directory(path("other"));
    std::filesystem::create_directory_symlink(".", path("link"));
    auto const secondsIn = [&](std::filesystem::path const& name) {
        std::optional<Time> const time = Backup::timeOfKeeping(m_home.path() / name, path());
        return time ? std::chrono::system_clock::to_time_t(*time) : -1;
    };
    for (char const* name : {"store.sqlite.before-restore-20260102T030405Z", "store.sqlite.before-restore-20260102T030405Z-12",
                             "link/store.sqlite.before-restore-20260102T030405Z"})
        EXPECT_EQ(secondsIn(name), 1767323045) << name;
    for (char const* name : {"store.sqlite", "store.sqlite.before-restore-", "store.sqlite.before-restore-20261302T030405Z",
                             "store.sqlite.before-restore-20260102T030405", "store.sqlite.before-restore-20260102T030405Z-",
                             "store.sqlite.before-restore-20260102T030405Z-journal", "store.sqlite.before-restore-20260102T030405Z-2-wal",
                             "other.sqlite.before-restore-20260102T030405Z", "other/store.sqlite.before-restore-20260102T030405Z",
                             "none/store.sqlite.before-restore-20260102T030405Z"})
        EXPECT_EQ(secondsIn(name), -1) << name;
}

TEST_F(Backups, EachRestoreKeepsAFileOfItsOwn)
{
    backUp("value");
    SqliteStorage(path()).setString("text", "first");
    Backup const backup(path("copy.backup"));
    std::set<std::filesystem::path> kept;
    for (int time = 0; time < 3; ++time)
        kept.insert(*backup.restore("product", path()));
    EXPECT_EQ(kept.size(), 3u);
    int first = 0;
    for (std::filesystem::path const& file : kept)
        first += SqliteStorage(file).getString("text", "") == "first";
    EXPECT_EQ(first, 1);
}

struct Replaced {
    char const* meaning;
    std::function<void(std::filesystem::path const& file)> make;
};

class ReplacedStore : public Backups, public testing::WithParamInterface<Replaced> {};

TEST_P(ReplacedStore, IsKeptAsItWas)
{
    backUp("value");
    GetParam().make(path());
    std::string const before = content(path());
    ino_t const file = inode(path());
    std::optional<std::filesystem::path> const kept = Backup(path("copy.backup")).restore("product", path());
    ASSERT_TRUE(kept);
    EXPECT_EQ(inode(*kept), file) << "who has it open keeps what was there";
    EXPECT_EQ(content(*kept), before);
    EXPECT_EQ(mode(*kept), 0600u);
    EXPECT_EQ(SqliteStorage(path()).getString("text", ""), "value");
    EXPECT_EQ(mode(path()), 0600u);
    std::string const refused = refusal([&] { Backup const back(*kept, "product", Time()); });
    EXPECT_EQ(refused.find(kept->string() + ": cannot read the backup: "), 0u) << refused;
    EXPECT_NE(refused.find(" be used ("), std::string::npos) << refused;
    EXPECT_EQ(content(*kept), before);
}

INSTANTIATE_TEST_SUITE_P(Table, ReplacedStore,
                         testing::Values(Replaced{"Text", [](auto const& file) { StoreFolder::overwrite(file, "not a store"); }},
                                         Replaced{"Empty", [](auto const& file) { StoreFolder::overwrite(file, ""); }},
                                         Replaced{"CutOff",
                                                  [](auto const& file) {
                                                      SqliteStorage(file).setString("text", std::string(20000, 'x'));
                                                      std::filesystem::resize_file(file, 8192);
                                                  }},
                                         Replaced{"AnotherProgramsDatabase",
                                                  [](auto const& file) { execute(file, "CREATE TABLE settings (key, value)"); }},
                                         Replaced{"MissingTable",
                                                  [](auto const& file) {
                                                      SqliteStorage(file).setString("text", "before");
                                                      execute(file, "DROP TABLE settings");
                                                  }},
                                         Replaced{"NewerSchema",
                                                  [](auto const& file) {
                                                      SqliteStorage(file).setString("text", "newer");
                                                      execute(file, "PRAGMA user_version = 2");
                                                  }}),
                         byMeaning);

TEST_F(Backups, WriteAheadLogIsKeptWithItsStore)
{
    backUp("value");
    SqliteStorage(path()).setString("text", "before");
    OtherProgram other(path());
    other.execute("PRAGMA journal_mode = WAL; UPDATE settings SET value = 'in the log'");
    ASSERT_GT(std::filesystem::file_size(path("store.sqlite-wal")), 0u);
    std::optional<std::filesystem::path> const kept = Backup(path("copy.backup")).restore("product", path());
    EXPECT_EQ(SqliteStorage(path()).getString("text", ""), "value");
    EXPECT_EQ(OtherProgram(*kept).ask("SELECT value FROM settings"), "in the log");
    EXPECT_EQ(mode(kept->string() + "-wal"), 0600u);
    EXPECT_TRUE(std::filesystem::exists(kept->string() + "-shm"));
    EXPECT_FALSE(std::filesystem::exists(path("store.sqlite-shm")));
    EXPECT_FALSE(std::filesystem::exists(path("store.sqlite-wal")));
}

TEST_F(Backups, FolderOrDanglingLinkInItsPlaceIsKept)
{
    backUp("value");
    Backup const backup(path("copy.backup"));
    std::filesystem::create_directory(path("folder.sqlite"));
    std::filesystem::create_symlink("nowhere", path("link.sqlite"));
    EXPECT_TRUE(std::filesystem::is_directory(*backup.restore("product", path("folder.sqlite"))));
    EXPECT_TRUE(std::filesystem::is_symlink(*backup.restore("product", path("link.sqlite"))));
    EXPECT_EQ(SqliteStorage(path("folder.sqlite")).getString("text", ""), "value");
    EXPECT_EQ(SqliteStorage(path("link.sqlite")).getString("text", ""), "value");
    EXPECT_FALSE(std::filesystem::exists(path("nowhere")));
}

TEST_F(Backups, LinkToAStoreStaysAndItsStoreIsChanged)
{
    backUp("value");
    SqliteStorage(path("real.sqlite")).setString("text", "before");
    std::filesystem::create_symlink("real.sqlite", path());
    std::optional<std::filesystem::path> const kept = Backup(path("copy.backup")).restore("product", path());
    EXPECT_TRUE(std::filesystem::is_symlink(path()));
    EXPECT_EQ(SqliteStorage(path("real.sqlite")).getString("text", ""), "value");
    ASSERT_TRUE(kept);
    EXPECT_EQ(SqliteStorage(*kept).getString("text", ""), "before");
}

// What is written after the keeping comes after the restoring too.
TEST_F(Backups, ChangeOfAnotherProcessDuringARestoreIsKeptOrComesAfterIt)
{
    constexpr int writes = 60;
    backUp("value");
    LaterChild writer(*this, [&] {
        SqliteStorage other(path());
        for (int number = 0; number < writes; ++number)
            other.setInt("written " + std::to_string(number), number);
        overwrite(path("ended"), "");
        return std::string("done");
    });
    SqliteStorage const store(path());
    writer.begin();
    Backup const backup(path("copy.backup"));
    std::set<std::string> found;
    for (bool isLast = false, hasEnded = false; !isLast; hasEnded = std::filesystem::exists(path("ended"))) {
        isLast = hasEnded;
        for (SqliteStorage::Row const& row : SqliteStorage(*backup.restore("product", path())).rows())
            found.insert(row.key);
    }
    EXPECT_EQ(writer.answer(), "done");
    for (int number = 0; number < writes; ++number)
        EXPECT_EQ(found.count("written " + std::to_string(number)), 1u) << number;
}

TEST_F(Backups, RestoresAtOnceAllSucceedAndWhatWasThereIsKept)
{
    backUp("value");
    for (char const* place : {"damaged", "usable"}) {
        std::filesystem::path const folder = path(place);
        std::filesystem::create_directory(folder);
        if (place == std::string("damaged"))
            overwrite(folder / "store.sqlite", "not a store");
        else
            SqliteStorage(folder / "store.sqlite").setString("text", "not a store");
        std::vector<std::unique_ptr<Child>> children;
        for (int child = 0; child < 4; ++child)
            children.push_back(std::make_unique<Child>(
                [&] { return Backup(path("copy.backup")).restore("product", folder / "store.sqlite"), std::string("restored"); }));
        for (auto const& child : children)
            EXPECT_EQ(child->answer(), "restored");
        int kept = 0;
        for (auto const& entry : std::filesystem::directory_iterator(folder))
            kept += content(entry.path()).find("not a store") != std::string::npos && entry.path().filename() != "store.sqlite";
        EXPECT_GE(kept, 1) << place;
        EXPECT_EQ(SqliteStorage(folder / "store.sqlite").getString("text", ""), "value");
    }
}

TEST_F(Backups, WhatCannotBeReplacedForWantOfRoomStaysInItsPlace)
{
    backUp("value");
    overwrite(path(), "not a store");
    Names const before = entries();
    EXPECT_EQ(restoredWithFilesUpTo(4096),
              path().string() + ": cannot restore the store: File too large; free some space on the disk and try again");
    EXPECT_EQ(content(path()), "not a store");
    EXPECT_EQ(entries(), before);
}

TEST_F(Backups, StoreThatCannotTakeAllTheValuesKeepsItsOwn)
{
    backUp(std::string(200000, 'x'));
    SqliteStorage(path()).setString("text", "before");
    EXPECT_EQ(restoredWithFilesUpTo(65536),
              path().string() + ": cannot restore the store: File too large; free some space on the disk and try again");
    EXPECT_EQ(SqliteStorage(path()).getString("text", ""), "before");
}

TEST_F(Backups, NameWithoutRoomForAnotherBesideItIsRefused)
{
    backUp("value");
    std::filesystem::path const file = path(std::string(240, 'n').c_str());
    for (char const* there : {"store", "no store"}) {
        if (there == std::string("store"))
            SqliteStorage(file).setString("text", "before");
        else
            overwrite(file, "not a store");
        std::string const before = content(file);
        std::string const what = refusal([&] { Backup(path("copy.backup")).restore("product", file); });
        EXPECT_EQ(what.substr(what.rfind(": cannot")),
                  ": cannot keep the replaced file: File name too long; name a file with a shorter path");
        EXPECT_EQ(content(file), before) << there;
    }
}

TEST_F(Backups, FolderThatMayNotBeEnteredIsNamed)
{
    backUp("value");
    std::filesystem::permissions(m_home.path(), std::filesystem::perms(0755));
    std::filesystem::permissions(path("copy.backup"), std::filesystem::perms(0444));
    std::filesystem::create_directory(path("folder"));
    std::filesystem::permissions(path("folder"), std::filesystem::perms(0));
    std::filesystem::path const file = path("folder") / "store.sqlite";
    EXPECT_EQ(inChild([&] { return Backup(path("copy.backup")).restore("product", file), std::string("restored"); }, true),
              file.string() +
                  ": cannot restore the store: Permission denied; make the file and its folder readable and writable for this user");
    std::filesystem::permissions(path("folder"), std::filesystem::perms(0700));
}

TEST_F(Backups, NameThatIsTooLongForABackupIsNamed)
{
    std::filesystem::path const file = path(std::string(300, 'n').c_str());
    EXPECT_EQ(refusal([&] { Backup const backup(file); }),
              file.string() + ": cannot read the backup: File name too long; name another backup; this one was left as it is");
}

TEST_F(Backups, PlaceBelowAFileIsNamed)
{
    backUp("value");
    overwrite(path("mine.txt"), "my text");
    EXPECT_EQ(refusal([&] { Backup(path("copy.backup")).restore("product", path("mine.txt") / "store.sqlite"); }),
              (path("mine.txt") / "store.sqlite").string() +
                  ": cannot restore the store: Not a directory; make the file and its folder readable and writable for this user");
    EXPECT_EQ(content(path("mine.txt")), "my text");
}

TEST_F(Backups, FolderThatMayNotBeWrittenLosesNothing)
{
    backUp("value");
    std::filesystem::permissions(m_home.path(), std::filesystem::perms(0755));
    std::filesystem::permissions(path("copy.backup"), std::filesystem::perms(0444));
    std::string const rights = ": Permission denied; make the file and its folder readable and writable for this user";
    auto const restored = [&](std::filesystem::path const& file) {
        std::filesystem::permissions(file.parent_path(), std::filesystem::perms(0555));
        return inChild([&] { return Backup(path("copy.backup")).restore("product", file), std::string("restored"); }, true);
    };

    std::filesystem::path const gone = path("one") / "store.sqlite";
    std::filesystem::create_directory(path("one"));
    overwrite(gone.string() + "-journal", "its journal");
    EXPECT_EQ(restored(gone), gone.string() + "-journal: cannot keep the replaced file" + rights);
    EXPECT_EQ(content(gone.string() + "-journal"), "its journal");

    std::filesystem::path const damaged = path("two") / "store.sqlite";
    std::filesystem::create_directory(path("two"));
    overwrite(damaged, "not a store");
    std::filesystem::permissions(damaged, std::filesystem::perms(0666));
    EXPECT_EQ(restored(damaged), damaged.string() + ": cannot restore the store" + rights);
    EXPECT_EQ(content(damaged), "not a store");
}

TEST_F(Backups, NameOfWhatIsKeptTellsTheTimeInUtc)
{
    backUp("value");
    overwrite(path(), "not a store");
    auto const now = [] {
        std::time_t const seconds = std::time(nullptr);
        char stamp[32];
        std::strftime(stamp, sizeof stamp, "%Y%m%dT%H%M%SZ", std::gmtime(&seconds));
        return std::string(stamp);
    };
    std::string const earliest = now();
    std::string const kept = inChild([&] {
        ::setenv("TZ", "XYZ-9", 1);
        ::tzset();
        return Backup(path("copy.backup")).restore("product", path())->filename().string();
    });
    EXPECT_GE(kept.substr(28, 16), earliest);
    EXPECT_LE(kept.substr(28, 16), now());
}

TEST_F(Backups, RestoreWaitsForAnotherProcess)
{
    backUp("value");
    SqliteStorage(path()).setString("text", "before");
    OtherProgram other(path());
    other.execute("BEGIN EXCLUSIVE");
    std::thread releasing([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(200));
        other.execute("COMMIT");
    });
    EXPECT_EQ(refusal([&] { Backup(path("copy.backup")).restore("product", path()); }), "nothing was thrown");
    releasing.join();
    EXPECT_EQ(SqliteStorage(path()).getString("text", ""), "value");
}

TEST_F(Backups, StoreThatAnotherProcessReadsWithoutEndIsLeftAsItIs)
{
    backUp("value");
    SqliteStorage(path()).setString("text", "before");
    {
        OtherProgram other(path());
        other.execute("BEGIN; SELECT * FROM settings");
        EXPECT_EQ(refusal([&] { Backup(path("copy.backup")).restore("product", path()); }),
                  path().string() + ": cannot restore the store: database is locked; another process is writing: try again, or close the "
                                    "other process");
    }
    EXPECT_EQ(SqliteStorage(path()).getString("text", ""), "before");
}

TEST_F(Backups, StoreThatMayNotBeWrittenIsNotReplaced)
{
    backUp("value");
    std::filesystem::create_directory(path("folder"));
    std::filesystem::path const file = path("folder") / "store.sqlite";
    SqliteStorage(file).setString("text", "before");
    std::filesystem::remove(file.string() + "-journal");
    std::filesystem::permissions(path("folder"), std::filesystem::perms(0755));
    std::filesystem::permissions(m_home.path(), std::filesystem::perms(0755));
    std::filesystem::permissions(file, std::filesystem::perms(0444));
    std::filesystem::permissions(path("copy.backup"), std::filesystem::perms(0444));
    std::string const answer = inChild([&] { return Backup(path("copy.backup")).restore("product", file), std::string("restored"); }, true);
    EXPECT_EQ(answer, file.string() +
                          ": cannot restore the store: it may not be written; make the file and its folder readable and writable "
                          "for this user");
    EXPECT_EQ(SqliteStorage(file).getString("text", ""), "before");
}

TEST_F(Backups, StoreThatAnotherProcessHoldsIsLeftAsItIs)
{
    backUp("value");
    SqliteStorage(path()).setString("text", "before");
    {
        OtherProgram other(path());
        other.execute("BEGIN EXCLUSIVE");
        EXPECT_EQ(refusal([&] { Backup(path("copy.backup")).restore("product", path()); }),
                  path().string() + ": cannot restore the store: database is locked; another process is writing: try again, or close the "
                                    "other process");
    }
    EXPECT_EQ(SqliteStorage(path()).getString("text", ""), "before");
    EXPECT_EQ(entries(), (Names{"copy.backup", "made.sqlite", "made.sqlite-journal", "store.sqlite", "store.sqlite-journal"}));
}

} // namespace
