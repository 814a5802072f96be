// SPDX-License-Identifier: MIT
//
// Files that cannot be opened, read or written: each is named, and none is changed.
#include "StoreFolder.h"

#include <support/Named.h>
#include <support/Process.h>

#include <csignal>
#include <functional>

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
        SqliteStorage store(file);
        for (int number = 0; number < 200; ++number)
            store.setString("key " + std::to_string(number), std::string(100, 'x'));
        std::filesystem::remove(file.string() + "-journal");
    }

    static void changed(std::filesystem::path const& file, std::string (*change)(std::string content))
    {
        store(file);
        overwrite(file, change(content(file)));
    }

    static void sql(std::filesystem::path const& file, char const* statements) { OtherProgram(file).execute(statements); }
};

TEST_P(UnusableFile, IsNamedAndLeftAsItIs)
{
    GetParam().make(path());
    bool const isRegular = std::filesystem::is_regular_file(path());
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
}

INSTANTIATE_TEST_SUITE_P(
    Table, UnusableFile,
    testing::Values(Unusable{"EmptyFile", [](std::filesystem::path const& file) { std::ofstream(file).close(); },
                             "the file is empty, which a store never is", restore},
                    Unusable{"TextFile", [](std::filesystem::path const& file) { std::ofstream(file) << std::string(5000, 't'); },
                             "file is not a database", restore},
                    Unusable{"ShortTextFile", [](std::filesystem::path const& file) { std::ofstream(file) << "[General]\nkey=value\n"; },
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
                             "cannot read",
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
                    Unusable{"Folder", [](std::filesystem::path const& file) { std::filesystem::create_directory(file); },
                             "it is not a regular file", "move it away, or name another file"},
                    Unusable{"Fifo", [](std::filesystem::path const& file) { ::mkfifo(file.c_str(), 0600); }, "it is not a regular file",
                             "move it away, or name another file"},
                    Unusable{"DanglingLink", [](std::filesystem::path const& file) { std::filesystem::create_symlink("nowhere", file); },
                             "it is a symbolic link to a file that does not exist", "remove the link, or restore the file that it names"}),
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

TEST_F(SqliteFaults, FolderThatMayNotBeWrittenIsNamed)
{
    std::filesystem::path const folder = ordinaryFolder();
    ::chmod(folder.c_str(), 0500);
    EXPECT_EQ(inChild([&] { return SqliteStorage(folder / "store.sqlite"), std::string("opened"); }, asOrdinaryUser),
              (folder / "store.sqlite").string() + ": cannot create the store: Permission denied; " + access);
    EXPECT_TRUE(std::filesystem::is_empty(folder));
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
    EXPECT_EQ(answer, path().string() + ": cannot set \"key\": disk I/O error; check the disk and its space, and try again|value");
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
            std::string const what = error.what();
            return what.substr(what.rfind(": ") + 2);
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
