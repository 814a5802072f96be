// SPDX-License-Identifier: MIT
//
// A host's own use of SQLite, in the same process as stores.
#include <storage/support/StoreFolder.h>

#include <Storage/Backup.h>

#include <sqlite3.h>

namespace {

using Storage::SqliteStorage;
namespace fs = std::filesystem;

class HostsSqlite : public StoreFolder {
protected:
    void SetUp() override
    {
        SqliteStorage(path()).setString("key", "value");
        SqliteStorage const store(path());
        Storage::Backup::write(path("copy.backup"), {{"product", &store}});
        Storage::Backup const backup(path("copy.backup"));
    }
};

TEST_F(HostsSqlite, KeepsItsDefaultVfs) { EXPECT_STREQ(sqlite3_vfs_find(nullptr)->zName, "unix"); }

TEST_F(HostsSqlite, MayUseWriteAheadLogging)
{
    OtherProgram first(path("host.sqlite"));
    EXPECT_EQ(first.ask("PRAGMA journal_mode = WAL"), "wal");
    first.execute("CREATE TABLE films (name); INSERT INTO films VALUES ('Holiday')");
    EXPECT_TRUE(fs::exists(path("host.sqlite-wal")));
    EXPECT_EQ(OtherProgram(path("host.sqlite")).ask("SELECT name FROM films"), "Holiday");
}

TEST_F(HostsSqlite, MayChangeSeveralFilesTogether)
{
    OtherProgram both(path("host.sqlite"));
    both.execute(("ATTACH '" + path("second.sqlite").string() + "' AS second").c_str());
    both.execute("CREATE TABLE main.films (name); CREATE TABLE second.films (name)");
    both.execute("BEGIN; INSERT INTO main.films VALUES ('Holiday'); INSERT INTO second.films VALUES ('Holiday'); COMMIT");
    EXPECT_EQ(OtherProgram(path("second.sqlite")).ask("SELECT name FROM films"), "Holiday");
}

// --- The VFS of stores, as any code of the process could call it ---

TEST_F(HostsSqlite, VfsOfStoresDeletesNoFileThatIsNotAStoresJournal)
{
    SqliteStorage const store(path());
    sqlite3_vfs* const vfs = sqlite3_vfs_find("editor-settings");
    ASSERT_NE(vfs, nullptr);
    for (char const* name : {"private key", "store.sqlite-wal", "other.sqlite-journal", "store.sqlite-mj0123456789AB"}) {
        overwrite(path(name), "content");
        EXPECT_NE(vfs->xDelete(vfs, path(name).c_str(), 0), SQLITE_OK) << name;
        EXPECT_EQ(content(path(name)), "content") << name;
    }
}

TEST_F(HostsSqlite, VfsOfStoresOpensNoSuperJournalAndNoLog)
{
    SqliteStorage const store(path());
    sqlite3_vfs* const vfs = sqlite3_vfs_find("editor-settings");
    ASSERT_NE(vfs, nullptr);
    std::string memory(static_cast<std::size_t>(vfs->szOsFile), '\0');
    auto* const file = reinterpret_cast<sqlite3_file*>(memory.data());
    std::string const name = path("none").string() + std::string(4, '\0');
    for (int const kind : {SQLITE_OPEN_SUPER_JOURNAL, SQLITE_OPEN_WAL}) {
        EXPECT_EQ(vfs->xOpen(vfs, name.c_str(), file, kind | SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr) & 0xff, SQLITE_CANTOPEN);
        EXPECT_EQ(file->pMethods, nullptr);
        EXPECT_FALSE(fs::exists(path("none")));
    }
}

} // namespace
