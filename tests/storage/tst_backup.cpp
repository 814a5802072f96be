// SPDX-License-Identifier: MIT
//
// Copies of stores in one file: they hold everything, nothing unsound comes out of them, and what they replace is kept.
#include "StoreFolder.h"

#include <Storage/Backup.h>

#include <support/Named.h>
#include <support/Process.h>

#include <algorithm>
#include <functional>
#include <set>

#include <unistd.h>

namespace {

using Storage::Backup;
using Storage::SqliteStorage;
using Storage::StorageError;
using Bytes = std::vector<unsigned char>;
using Names = std::vector<std::string>;

class Backups : public StoreFolder {
protected:
    static std::string refusal(std::function<void()> const& work)
    {
        try {
            work();
        } catch (StorageError const& error) {
            return error.what();
        }
        return "nothing was thrown";
    }

    void backUp(std::string const& value)
    {
        SqliteStorage store(path("made.sqlite"));
        store.setString("text", value);
        store.setBytes("bytes", Bytes{0, 255});
        Backup::write(path("copy.backup"), {{"product", &store}});
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

TEST_F(Backups, EachStoreIsAsOfOneMomentWhileOthersWrite)
{
    SqliteStorage store(path());
    std::string const filler(20000, 'x');
    store.apply({{"left", 0}, {"middle", filler}, {"right", 0}});
    Child writer([&] {
        SqliteStorage other(path());
        for (int number = 1; number <= 10; ++number)
            other.apply({{"left", number}, {"middle", filler + std::to_string(number)}, {"right", number}});
        return std::string("done");
    });
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
        Unusable{"Empty", [](auto const& file) { std::filesystem::resize_file(file, 0); },
                 std::string(": cannot read the backup: it is an SQLite file, but no backup") + another},
        Unusable{"Text", [](auto const& file) { StoreFolder::overwrite(file, std::string(5000, 't')); },
                 std::string(": cannot read the backup: file is not a database") + another},
        Unusable{"Store",
                 [](auto const& file) {
                     std::filesystem::copy(file.parent_path() / "made.sqlite", file, std::filesystem::copy_options::overwrite_existing);
                 },
                 std::string(": cannot read the backup: it is an SQLite file, but no backup") + another},
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
    std::optional<std::filesystem::path> const kept = Backup(path("copy.backup")).restore("product", path());
    ASSERT_TRUE(kept);
    EXPECT_EQ(content(*kept), before);
    EXPECT_EQ(mode(*kept), 0600u);
    EXPECT_EQ(SqliteStorage(path()).getString("text", ""), "value");
    EXPECT_EQ(mode(path()), 0600u);
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
