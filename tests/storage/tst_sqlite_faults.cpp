// SPDX-License-Identifier: MIT
//
// Files that cannot be opened, read or written: each is named, and none is changed.
#include <storage/support/MemoryFolder.h>
#include <storage/support/StoreFolder.h>

#include <support/Named.h>
#include <support/Process.h>
#include <support/Tally.h>

#include <csignal>
#include <functional>
#include <random>

#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <unistd.h>

namespace {

using Storage::SqliteStorage;
using Storage::StorageError;

char const restore[] = "the file was left as it is: move it away and restore it from a backup";
char const access[] = "make the file and its folder readable and writable for this user";

// --- Files that no store is in ---

struct Unusable {
    char const* meaning;
    void (*make)(std::filesystem::path const& file);
    std::string reason;
    std::string remedy;
};

class UnusableFile : public StoreFolder, public testing::WithParamInterface<Unusable> {
public:
    static void store(std::filesystem::path const& file)
    {
        MemoryFolder const folder;
        {
            SqliteStorage store(folder.path() / "store.sqlite");
            for (int number = 0; number < 200; ++number)
                store.setString("key " + std::to_string(number), std::string(100, 'x'));
        }
        std::filesystem::copy_file(folder.path() / "store.sqlite", file);
    }

    static void changed(std::filesystem::path const& file, std::string (*change)(std::string content))
    {
        store(file);
        overwrite(file, change(content(file)));
    }

    static void sql(std::filesystem::path const& file, char const* statements) { OtherProgram(file).execute(statements); }

    // A store that another program changed, and left without a journal.
    static void changedBySql(std::filesystem::path const& file, char const* statements)
    {
        store(file);
        sql(file, statements);
    }
};

TEST_P(UnusableFile, IsNamedAndLeftAsItIs)
{
    GetParam().make(path());
    std::error_code ignored;
    bool const isRegular = std::filesystem::is_regular_file(path(), ignored);
    std::string const before = isRegular ? content(path()) : "";
    for (int attempt = 0; attempt < 2; ++attempt) {
        try {
            SqliteStorage const store(path());
            FAIL() << "it was opened";
        } catch (StorageError const& error) {
            EXPECT_EQ(std::string(error.what()),
                      path().string() + ": cannot open the store: " + GetParam().reason + "; " + GetParam().remedy);
        }
    }
    EXPECT_EQ(isRegular ? content(path()) : "", before);
    EXPECT_FALSE(std::filesystem::exists(path("store.sqlite-wal"))) << "no file is left beside it";
    SqliteStorage other(path("other.sqlite"));
    other.setInt("key", 1);
    EXPECT_EQ(other.getInt("key", 0), 1) << "the process goes on";
    tally("Damaged or foreign file in the store's place", 1, HasFailure());
}

INSTANTIATE_TEST_SUITE_P(
    Table, UnusableFile,
    testing::Values(Unusable{"EmptyFile", [](std::filesystem::path const& file) { std::ofstream(file).close(); },
                             "the file is empty, which a store never is", restore},
                    Unusable{"TextFile", [](std::filesystem::path const& file) { std::ofstream(file) << std::string(5000, 't'); },
                             "file is not a database", restore},
                    Unusable{"ShortTextFile", [](std::filesystem::path const& file) { std::ofstream(file) << "[General]\nkey=value\n"; },
                             "file is not a database", restore},
                    Unusable{"FileThatEndsInsideTheHeader", [](std::filesystem::path const& file) { std::ofstream(file) << "SQLite"; },
                             "file is not a database", restore},
                    Unusable{"DamagedHeader",
                             [](std::filesystem::path const& file) {
                                 UnusableFile::changed(file, [](std::string content) { return content.replace(0, 8, 8, '\0'); });
                             },
                             "file is not a database", restore},
                    Unusable{"CutInTheMiddle",
                             [](std::filesystem::path const& file) {
                                 UnusableFile::changed(file, [](std::string content) { return content.substr(0, content.size() / 2); });
                             },
                             "database disk image is malformed", restore},
                    Unusable{"ZeroedPage",
                             [](std::filesystem::path const& file) {
                                 UnusableFile::changed(file,
                                                       [](std::string content) { return content.replace(4 * 4096, 4096, 4096, '\0'); });
                             },
                             "the file is damaged (Page 5: btreeInitPage() returns error code 11)", restore},
                    Unusable{"IndexThatDisagreesWithItsTable",
                             [](std::filesystem::path const& file) {
                                 SqliteStorage(file).setInt("some key", 1);
                                 std::string damaged = UnusableFile::content(file);
                                 damaged.replace(damaged.find("some key", 2 * 4096), 8, "same key"); // the third page is the index
                                 UnusableFile::overwrite(file, damaged);
                             },
                             "the file is damaged (row 1 missing from index sqlite_autoindex_settings_1)", restore},
                    Unusable{"AnotherProgramsDatabase",
                             [](std::filesystem::path const& file) { UnusableFile::sql(file, "CREATE TABLE settings (key, value)"); },
                             "it is an SQLite file of another program", "move it away, or name another file"},
                    Unusable{"NewerSchemaInAnotherLayout",
                             [](std::filesystem::path const& file) {
                                 UnusableFile::store(file);
                                 UnusableFile::sql(file, "PRAGMA user_version = 2; ALTER TABLE settings RENAME COLUMN value TO content");
                             },
                             "it was written by a newer version (schema 2, this version writes 1), in a layout that this version "
                             "cannot read (no such column: value)",
                             "update this program; the file was left as it is"},
                    Unusable{"MissingTable",
                             [](std::filesystem::path const& file) {
                                 UnusableFile::store(file);
                                 UnusableFile::sql(file, "DROP TABLE settings");
                             },
                             "no such table: settings", restore},
                    Unusable{"WriteAheadLog",
                             [](std::filesystem::path const& file) {
                                 UnusableFile::store(file);
                                 UnusableFile::sql(file, "PRAGMA journal_mode = WAL");
                             },
                             "it was switched to write-ahead logging, which can damage it",
                             "switch it back with: sqlite3 FILE 'PRAGMA journal_mode=DELETE'"},
                    Unusable{"Socket", &StoreFolder::makeSocket, "it is not a regular file", "move it away, or name another file"},
                    Unusable{"DeviceBehindALink", [](std::filesystem::path const& file) { std::filesystem::create_symlink("/dev/null", file); },
                             "it is not a regular file", "move it away, or name another file"},
                    Unusable{"LinkLoop", [](std::filesystem::path const& file) { std::filesystem::create_symlink(file.filename(), file); },
                             "Too many levels of symbolic links", access},
                    Unusable{"LinkIntoAMissingFolder", [](std::filesystem::path const& file) { std::filesystem::create_symlink("no/where", file); },
                             "it is a symbolic link to a file that does not exist", "remove the link, or restore the file that it names"},
                    Unusable{"HeaderOnly",
                             [](std::filesystem::path const& file) {
                                 UnusableFile::changed(file, [](std::string content) { return content.substr(0, 100); });
                             },
                             "database disk image is malformed", restore},
                    Unusable{"FirstWordsOfTheHeaderOnly",
                             [](std::filesystem::path const& file) {
                                 UnusableFile::changed(file, [](std::string content) { return content.substr(0, 16); });
                             },
                             "file is not a database", restore},
                    Unusable{"RandomBytes",
                             [](std::filesystem::path const& file) {
                                 std::string bytes(40960, '\0');
                                 std::mt19937 random(seed());
                                 for (char& byte : bytes)
                                     byte = static_cast<char>(random());
                                 UnusableFile::overwrite(file, bytes);
                             },
                             "file is not a database", restore},
                    Unusable{"ZeroesOnly", [](std::filesystem::path const& file) { UnusableFile::overwrite(file, std::string(8192, '\0')); },
                             "file is not a database", restore},
                    Unusable{"PageSizeThatIsNone",
                             [](std::filesystem::path const& file) {
                                 UnusableFile::changed(file, [](std::string content) { return content.replace(16, 2, {'\0', '\3'}); });
                             },
                             "file is not a database", restore},
                    Unusable{"OtherPageSize",
                             [](std::filesystem::path const& file) {
                                 UnusableFile::changed(file, [](std::string content) { return content.replace(16, 2, {'\2', '\0'}); });
                             },
                             "malformed database schema (?)", restore},
                    Unusable{"LaterFileFormat",
                             [](std::filesystem::path const& file) {
                                 UnusableFile::changed(file, [](std::string content) { return content.replace(18, 2, "\3\3"); });
                             },
                             "file is not a database", restore},
                    Unusable{"WriteAheadLogForReadersOnly",
                             [](std::filesystem::path const& file) {
                                 UnusableFile::changed(file, [](std::string content) { return content.replace(19, 1, "\2"); });
                             },
                             "it was switched to write-ahead logging, which can damage it",
                             "switch it back with: sqlite3 FILE 'PRAGMA journal_mode=DELETE'"},
                    Unusable{"LaterSchemaFormat",
                             [](std::filesystem::path const& file) {
                                 UnusableFile::changed(file, [](std::string content) { return content.replace(47, 1, "\11"); });
                             },
                             "unsupported file format", restore},
                    Unusable{"FreePagesBeyondTheEnd",
                             [](std::filesystem::path const& file) {
                                 UnusableFile::changed(file, [](std::string content) { return content.replace(35, 1, "c").replace(39, 1, "\1"); });
                             },
                             "the file is damaged (Main freelist: invalid page number 99)", restore},
                    Unusable{"FreePagesThatAreNotThere",
                             [](std::filesystem::path const& file) {
                                 UnusableFile::changed(file, [](std::string content) { return content.replace(39, 1, "\5"); });
                             },
                             "the file is damaged (Main freelist: size is 0 but should be 5)", restore},
                    Unusable{"SchemaThatIsNoStatement",
                             [](std::filesystem::path const& file) {
                                 UnusableFile::changed(file, [](std::string content) { return content.replace(content.find("CREATE TABLE"), 12, "CREATE FABLE"); });
                             },
                             "malformed database schema (settings) - near \"FABLE\": syntax error", restore},
                    Unusable{"TableBeyondTheEnd",
                             [](std::filesystem::path const& file) {
                                 UnusableFile::changedBySql(file, "PRAGMA writable_schema = ON; UPDATE sqlite_master SET rootpage = 99 WHERE name = 'settings'");
                             },
                             "malformed database schema (settings) - invalid rootpage", restore},
                    Unusable{"TableWithOtherColumns",
                             [](std::filesystem::path const& file) {
                                 UnusableFile::changedBySql(file, "DROP TABLE settings; CREATE TABLE settings (name, value)");
                             },
                             "its table \"settings\" is not defined as that of a store", restore},
                    Unusable{"TableWithoutItsKey",
                             [](std::filesystem::path const& file) {
                                 UnusableFile::changedBySql(file, "DROP TABLE settings; CREATE TABLE settings (key, kind, value, changed)");
                             },
                             "its table \"settings\" is not defined as that of a store", restore},
                    Unusable{"ViewInPlaceOfTheTable",
                             [](std::filesystem::path const& file) {
                                 UnusableFile::changedBySql(file, "ALTER TABLE settings RENAME TO other; CREATE VIEW settings AS SELECT * FROM other");
                             },
                             "it holds the table \"other\", which a store never does", restore},
                    Unusable{"WrongApplicationId",
                             [](std::filesystem::path const& file) { UnusableFile::changedBySql(file, "PRAGMA application_id = 1"); },
                             "it is an SQLite file of another program", "move it away, or name another file"},
                    Unusable{"AnotherProgramsDatabaseInUtf16",
                             [](std::filesystem::path const& file) {
                                 UnusableFile::sql(file, "PRAGMA encoding = 'UTF-16'; CREATE TABLE settings (key TEXT PRIMARY KEY, kind TEXT, value, changed)");
                             },
                             "it is an SQLite file of another program", "move it away, or name another file"},
                    Unusable{"Folder", [](std::filesystem::path const& file) { std::filesystem::create_directory(file); },
                             "it is not a regular file", "move it away, or name another file"},
                    Unusable{"Fifo", [](std::filesystem::path const& file) { ::mkfifo(file.c_str(), 0600); }, "it is not a regular file",
                             "move it away, or name another file"},
                    Unusable{"DanglingLink", [](std::filesystem::path const& file) { std::filesystem::create_symlink("nowhere", file); },
                             "it is a symbolic link to a file that does not exist", "remove the link, or restore the file that it names"}),
    byMeaning);

// --- Files that are damaged in one place after the other ---

class DamagedPlaces : public StoreFolder {
protected:
    static constexpr std::size_t page = 4096;

    void SetUp() override
    {
        UnusableFile::store(path());
        m_whole = content(path());
        ASSERT_EQ(m_whole.size() % page, 0u);
        ASSERT_GT(m_whole.size() / page, 5u);
    }

    // Why the store is not opened; its file is left as it is.
    std::string reasonFor(std::string const& damaged)
    {
        overwrite(path(), damaged);
        std::string reason = "it was opened";
        try {
            SqliteStorage const store(path());
        } catch (StorageError const& error) {
            reason = error.reason();
            EXPECT_EQ(error.file(), path().string());
            EXPECT_EQ(error.attempt(), "open the store");
            EXPECT_EQ(error.remedy(), restore);
        }
        EXPECT_TRUE(content(path()) == damaged) << "the file was changed";
        ++m_files;
        return reason;
    }

    void TearDown() override { tally("Damaged or foreign file in the store's place", m_files, HasFailure()); }

    std::string m_whole;
    int m_files = 0;
};

TEST_F(DamagedPlaces, FileThatIsCutAtAnyPageIsNamed)
{
    for (std::size_t at = page; at < m_whole.size(); at += page)
        EXPECT_EQ(reasonFor(m_whole.substr(0, at)), "database disk image is malformed") << "cut at " << at;
    for (std::size_t at = 2000; at < m_whole.size() - page; at += page)
        EXPECT_EQ(reasonFor(m_whole.substr(0, at)), "database disk image is malformed") << "cut at " << at;
}

TEST_F(DamagedPlaces, AnyPageOfZeroesIsNamed)
{
    EXPECT_EQ(reasonFor(std::string(m_whole).replace(0, page, page, '\0')), "file is not a database");
    for (std::size_t number = 2; number <= m_whole.size() / page; ++number)
        EXPECT_EQ(reasonFor(std::string(m_whole).replace((number - 1) * page, page, page, '\0')),
                  "the file is damaged (Page " + std::to_string(number) + ": btreeInitPage() returns error code 11)");
}

TEST_F(DamagedPlaces, BytesOfALogInAFileThatIsNotSqlitesAreNothing)
{
    EXPECT_EQ(reasonFor(std::string(m_whole).replace(0, 20, std::string(18, 'x') + "\2\2")), "file is not a database");
}

TEST_F(DamagedPlaces, AnyPageOfRandomBytesIsNamed)
{
    std::mt19937 random(seed());
    for (int round = 0; round < times(2, 50); ++round)
        for (std::size_t at = 0; at < m_whole.size(); at += page) {
            std::string damaged = m_whole;
            for (std::size_t byte = at; byte < at + page; ++byte)
                damaged[byte] = static_cast<char>(random());
            std::string const reason = reasonFor(damaged);
            EXPECT_NE(reason, "it was opened") << "EDITOR_SETTINGS_SEED=" << seed() << ", page at " << at;
            EXPECT_TRUE(at > 0 || reason == "file is not a database") << reason;
        }
}

// --- What lies beside a store and is not its own ---

struct Companion {
    char const* meaning;
    std::string journal;
};

class StrangeJournal : public StoreFolder, public testing::WithParamInterface<Companion> {};

TEST_P(StrangeJournal, ChangesNothingAndIsNotInTheWay)
{
    UnusableFile::store(path());
    std::string const before = content(path());
    overwrite(path("store.sqlite-journal"), GetParam().journal);
    SqliteStorage store(path());
    EXPECT_EQ(store.rows().size(), 200u);
    EXPECT_EQ(store.getString("key 7", ""), std::string(100, 'x'));
    EXPECT_TRUE(content(path()) == before);
    store.setString("key 7", "value");
    EXPECT_EQ(SqliteStorage(path()).getString("key 7", ""), "value");
    EXPECT_EQ(SqliteStorage(path()).rows().size(), 200u);
}

std::string const journalMagic("\xd9\xd5\x05\xf9\x20\xa1\x63\xd7");

INSTANTIATE_TEST_SUITE_P(Table, StrangeJournal,
                         testing::Values(Companion{"Text", std::string(5000, 'j')}, Companion{"OneByte", "x"},
                                         Companion{"Zeroes", std::string(5000, '\0')}, Companion{"FirstWordOnly", journalMagic},
                                         Companion{"DamagedAfterItsFirstWord", journalMagic + std::string(5000, 'j')}),
                         byMeaning);

class SqliteFaults : public StoreFolder {
protected:
    // A folder that an ordinary user owns.
    std::filesystem::path ordinaryFolder()
    {
        std::filesystem::create_directory(path("ordinary"));
        if (::geteuid() == 0) {
            EXPECT_EQ(::chown(m_home.path().c_str(), ordinaryUser, ordinaryUser), 0);
            EXPECT_EQ(::chown(path("ordinary").c_str(), ordinaryUser, ordinaryUser), 0);
        }
        return path("ordinary");
    }

    static constexpr bool asOrdinaryUser = true;
};

TEST_F(SqliteFaults, FolderThatCannotBeMadeIsNamed)
{
    overwrite(path("file"), "a file where a folder should be");
    try {
        SqliteStorage const store(path("file") / "folder" / "store.sqlite");
        FAIL() << "it was opened";
    } catch (StorageError const& error) {
        EXPECT_EQ(std::string(error.what()), path("file").string() + "/folder: cannot create the folder: Not a directory; " + access);
    }
    EXPECT_EQ(content(path("file")), "a file where a folder should be");
}

TEST_F(SqliteFaults, NameThatCannotBeMadeAbsoluteIsAnError)
{
    EXPECT_THROW(SqliteStorage(""), StorageError);
    EXPECT_THROW(SqliteStorage((path() / std::string("a\0b", 3))), StorageError);
    std::filesystem::path const earlier = std::filesystem::current_path();
    std::filesystem::create_directory(path("gone"));
    std::filesystem::current_path(path("gone"));
    std::filesystem::remove(path("gone"));
    EXPECT_THROW(SqliteStorage("relative.sqlite"), StorageError);
    std::filesystem::current_path(earlier);
}

TEST_F(SqliteFaults, PathThatIsTooLongForSqliteIsNamedAndNothingIsMade)
{
    std::filesystem::path file = m_home.path();
    while (file.native().size() + 101 <= 504 - 2)
        file /= std::string(100, 'p');
    file /= std::string(504 - 1 - file.native().size(), 'f');
    ASSERT_EQ(file.native().size(), 504u);
    SqliteStorage(file).setInt("key", 1);
    EXPECT_EQ(SqliteStorage(file).getInt("key", 0), 1);
    file += 'f';
    try {
        SqliteStorage const store(file);
        FAIL() << "it was opened";
    } catch (StorageError const& error) {
        EXPECT_EQ(std::string(error.what()),
                  file.string() + ": cannot open the store: its path is longer than 504 bytes; name a file with a shorter path");
    }
    EXPECT_FALSE(std::filesystem::exists(file));
}

TEST_F(SqliteFaults, FolderThatMayNotBeWrittenIsNamed)
{
    std::filesystem::path const folder = ordinaryFolder();
    ::chmod(folder.c_str(), 0500);
    EXPECT_EQ(inChild([&] { return SqliteStorage(folder / "store.sqlite"), std::string("opened"); }, asOrdinaryUser),
              (folder / "store.sqlite").string() + ": cannot create the store: Permission denied; " + access);
    EXPECT_TRUE(std::filesystem::is_empty(folder));
}

TEST_F(SqliteFaults, FolderThatMayNotBeEnteredIsNamed)
{
    std::filesystem::path const folder = ordinaryFolder();
    ::chmod(folder.c_str(), 0600);
    EXPECT_EQ(inChild([&] { return SqliteStorage(folder / "store.sqlite"), std::string("opened"); }, asOrdinaryUser),
              (folder / "store.sqlite").string() + ": cannot open the store: Permission denied; " + access);
}

TEST_F(SqliteFaults, FolderThatMayNotBeListedTakesAStoreAllTheSame)
{
    std::filesystem::path const folder = ordinaryFolder();
    ::chmod(folder.c_str(), 0300);
    EXPECT_EQ(inChild([&] { return SqliteStorage(folder / "store.sqlite").setInt("key", 1), std::string("set"); }, asOrdinaryUser), "set");
    ::chmod(folder.c_str(), 0700);
    EXPECT_EQ(SqliteStorage(folder / "store.sqlite").getInt("key", 0), 1);
}

TEST_F(SqliteFaults, FileThatMayNotBeReadIsNamed)
{
    std::filesystem::path const file = ordinaryFolder() / "store.sqlite";
    auto const open = [&] { return SqliteStorage(file).getString("key", "default"); };
    ASSERT_EQ(inChild([&] { return SqliteStorage(file).setString("key", "value"), std::string("set"); }, asOrdinaryUser), "set");
    ::chmod(file.c_str(), 0000);
    EXPECT_EQ(inChild(open, asOrdinaryUser), file.string() + ": cannot open the store: unable to open database file; " + access);
    ::chmod(file.c_str(), 0600);
    EXPECT_EQ(inChild(open, asOrdinaryUser), "value");
}

TEST_F(SqliteFaults, FileThatMayNotBeWrittenIsReadAndRefusesChanges)
{
    std::filesystem::path const file = ordinaryFolder() / "store.sqlite";
    ASSERT_EQ(inChild([&] { return SqliteStorage(file).setString("key", "value"), std::string("set"); }, asOrdinaryUser), "set");
    ::chmod(file.c_str(), 0400);
    std::string const before = content(file);
    EXPECT_EQ(
        inChild([&] { return SqliteStorage(file).isReadOnly() ? SqliteStorage(file).getString("key", "") : "writable"; }, asOrdinaryUser),
        "value");
    EXPECT_EQ(inChild([&] { return SqliteStorage(file).setString("key", "other"), std::string("set"); }, asOrdinaryUser),
              file.string() + ": cannot set \"key\": it may not be written; " + access);
    EXPECT_EQ(inChild([&] { return SqliteStorage(file).remove("key"), std::string("removed"); }, asOrdinaryUser),
              file.string() + ": cannot remove \"key\": it may not be written; " + access);
    EXPECT_EQ(content(file), before);
    EXPECT_FALSE(SqliteStorage(path("own.sqlite")).isReadOnly());
}

TEST_F(SqliteFaults, FolderThatTakesNoJournalRefusesChanges)
{
    std::filesystem::path const folder = ordinaryFolder();
    std::filesystem::path const file = folder / "store.sqlite";
    ASSERT_EQ(inChild([&] { return SqliteStorage(file).setString("key", "value"), std::string("set"); }, asOrdinaryUser), "set");
    std::filesystem::remove(file.string() + "-journal");
    ::chmod(folder.c_str(), 0500);
    EXPECT_EQ(inChild([&] { return SqliteStorage(file).setString("key", "other"), std::string("set"); }, asOrdinaryUser),
              file.string() + ": cannot set \"key\": attempt to write a readonly database; " + access);
    EXPECT_EQ(inChild([&] { return SqliteStorage(file).getString("key", ""); }, asOrdinaryUser), "value");
}

// A file system of 64 KiB, of this process's own; an ordinary user gets one in a namespace. Where a process may not
// mount, as in many containers, the test is skipped: the same refusals are tested without a mount in tst_sqlite_sync.
std::string onSmallDisk(std::filesystem::path const& folder, std::function<std::string()> const& work)
{
    return inChild([&]() -> std::string {
        if (::unshare(::geteuid() == 0 ? CLONE_NEWNS : CLONE_NEWUSER | CLONE_NEWNS) != 0 ||
            ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
            ::mount("tmpfs", folder.c_str(), "tmpfs", 0, "size=64k") != 0)
            return "cannot mount";
        return work();
    });
}

TEST_F(SqliteFaults, FullDiskIsNamedAndTheEarlierValueKept)
{
    std::filesystem::create_directory(path("small"));
    std::string const answer = onSmallDisk(path("small"), [&] {
        SqliteStorage store(path("small") / "store.sqlite");
        store.setString("key", "value");
        std::string what;
        try {
            store.setString("key", std::string(200000, 'x'));
        } catch (StorageError const& error) {
            what = error.what();
        }
        store.setString("other", "still works");
        return what + '|' + store.getString("key", "lost") + '|' + store.getString("other", "");
    });
    if (answer == "cannot mount")
        GTEST_SKIP() << "this process may not mount a file system";
    EXPECT_EQ(answer, (path("small") / "store.sqlite").string() +
                          ": cannot set \"key\": database or disk is full; free some space on the disk and try again|value|still works");
}

TEST_F(SqliteFaults, FileSizeLimitIsNamedAndTheEarlierValueKept)
{
    std::string const answer = inChild([&] {
        SqliteStorage store(path());
        store.setString("key", "value");
        std::signal(SIGXFSZ, SIG_IGN);
        rlimit const limit{64 * 1024, 64 * 1024};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        std::string what;
        try {
            store.setString("key", std::string(200000, 'x'));
        } catch (StorageError const& error) {
            what = error.what();
        }
        return what + '|' + store.getString("key", "lost");
    });
    EXPECT_EQ(answer, path().string() + ": cannot set \"key\": File too large; free some space on the disk and try again|value");
    EXPECT_EQ(SqliteStorage(path()).getString("key", "lost"), "value");
}

TEST_F(SqliteFaults, DamageThatComesWhileItIsOpenIsNamed)
{
    SqliteStorage store(path());
    for (int number = 0; number < 200; ++number)
        store.setString("key " + std::to_string(number), std::string(100, 'x'));
    overwrite(path(), std::string(content(path()).size(), 'z'));
    EXPECT_THROW(store.getString("key 1", "default"), StorageError) << "a default would be a silent reset";
    EXPECT_THROW(store.rows(), StorageError);
    EXPECT_THROW(store.setInt("key 1", 1), StorageError);
    EXPECT_EQ(content(path()), std::string(content(path()).size(), 'z')) << "nothing is written over it";
}

TEST_F(SqliteFaults, FileThatWasMovedAwayTakesNoChanges)
{
    SqliteStorage store(path());
    store.setInt("key", 1);
    std::filesystem::rename(path(), path("moved.sqlite"));
    try {
        store.setInt("key", 2);
        FAIL() << "a change went where nobody will look for it";
    } catch (StorageError const& error) {
        EXPECT_EQ(std::string(error.what()), path().string() +
                                                 ": cannot set \"key\": attempt to write a readonly database; the file was moved or "
                                                 "removed while it was open: start the program again");
    }
    EXPECT_EQ(SqliteStorage(path("moved.sqlite")).getInt("key", 0), 1);
}

TEST_F(SqliteFaults, WhatIsBeyondTheLimitIsRefusedRatherThanCut)
{
    SqliteStorage store(path());
    auto const refusal = [](auto const& work) -> std::string {
        try {
            work();
        } catch (StorageError const& error) {
            return error.reason() + "; " + error.remedy();
        }
        return "nothing was thrown";
    };
    std::string const reason =
        "a key or value is longer than 1000000000 bytes; keep the value in a file of its own and store the file's name";
    store.setString("key", "value");
    EXPECT_EQ(refusal([&] { store.setString("key", std::string(1000000001, 'x')); }), reason);
    EXPECT_EQ(refusal([&] { store.setBytes("key", std::vector<unsigned char>(1000000001)); }), reason);
    EXPECT_EQ(store.getString("key", "lost"), "value");
    EXPECT_EQ(store.rows().size(), 1u);
}

} // namespace
