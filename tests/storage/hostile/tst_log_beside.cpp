// SPDX-License-Identifier: MIT
//
// Write-ahead logs beside a store or a backup, and stores that another program switches to write-ahead logging.
#include <storage/support/StoreFolder.h>

#include <Storage/Backup.h>

#include <support/Process.h>

#include <sys/stat.h>

namespace {

using Storage::Backup;
using Storage::SqliteStorage;
using Storage::StorageError;
namespace fs = std::filesystem;

std::string const switched = "it was switched to write-ahead logging, which can damage it; switch it back with: sqlite3 FILE 'PRAGMA "
                             "journal_mode=DELETE'";

class LogBeside : public StoreFolder {
protected:
    fs::path log() const { return path("store.sqlite-wal"); }

    // A log that changes the value of the store in `file` from "value" to "in the log".
    std::string logFor(fs::path const& file) const
    {
        fs::copy_file(file, path("copy.sqlite"), fs::copy_options::overwrite_existing);
        OtherProgram other(path("copy.sqlite"));
        other.execute("PRAGMA journal_mode = WAL; UPDATE settings SET value = 'in the log'");
        return content(path("copy.sqlite-wal"));
    }

    std::string reasonOf(fs::path const& log) const
    {
        return "a write-ahead log, " + log.string() +
               ", lies beside it, which other programs would play into it; move the log away: it "
               "is not a part of this file";
    }
};

TEST_F(LogBeside, IsNamedAndNotPlayedIntoASoundStore)
{
    SqliteStorage(path()).setString("key", "value");
    overwrite(log(), logFor(path()));
    std::string const store = content(path());
    std::string const left = content(log());
    for (int attempt = 0; attempt < 2; ++attempt)
        EXPECT_EQ(refusal([&] { SqliteStorage const opened(path()); }), path().string() + ": cannot open the store: " + reasonOf(log()));
    EXPECT_EQ(content(path()), store);
    EXPECT_EQ(content(log()), left);
    EXPECT_FALSE(fs::exists(path("store.sqlite-shm")));
    fs::remove(log());
    EXPECT_EQ(SqliteStorage(path()).getString("key", ""), "value");
}

TEST_F(LogBeside, ThatComesWhileTheStoreIsOpenIsNotPlayedIntoIt)
{
    SqliteStorage store(path());
    store.setString("key", "value");
    std::string const left = logFor(path());
    overwrite(log(), left);
    EXPECT_EQ(store.getString("key", ""), "value");
    store.setString("other", "value");
    EXPECT_EQ(store.rows().size(), 2u);
    EXPECT_EQ(store.getString("key", ""), "value");
    EXPECT_EQ(content(log()), left);
}

TEST_F(LogBeside, OfAMissingStoreIsNamedAndNoStoreIsMade)
{
    SqliteStorage(path("first.sqlite")).setString("key", "value");
    overwrite(log(), logFor(path("first.sqlite")));
    EXPECT_EQ(refusal([&] { SqliteStorage const opened(path()); }),
              path().string() + ": cannot open the store: it is gone, but a write-ahead log, " + log().string() +
                  ", is there and would be played into a new one; bring the store back beside its log, or move the log away");
    EXPECT_FALSE(fs::exists(path()));
}

TEST_F(LogBeside, ThatIsEmptyIsNotInTheWay)
{
    overwrite(log(), "");
    SqliteStorage(path()).setString("key", "value");
    EXPECT_EQ(SqliteStorage(path()).getString("key", ""), "value");
    EXPECT_TRUE(fs::exists(log()));
}

TEST_F(LogBeside, ThatIsNotARegularFileIsNamed)
{
    ::mkfifo(log().c_str(), 0600);
    EXPECT_THROW(SqliteStorage{path()}, StorageError);
    EXPECT_FALSE(fs::exists(path()));
    fs::remove(log());
    SqliteStorage(path()).setString("key", "value");
    fs::create_symlink("nowhere", log());
    EXPECT_EQ(refusal([&] { SqliteStorage const opened(path()); }), path().string() + ": cannot open the store: " + reasonOf(log()));
}

TEST_F(LogBeside, OfALinkedStoreLiesBesideTheTargetOfTheLink)
{
    SqliteStorage(path()).setString("key", "value");
    overwrite(log(), logFor(path()));
    fs::create_directory(path("links"));
    fs::create_symlink("../store.sqlite", path("links") / "link.sqlite");
    EXPECT_EQ(refusal([&] { SqliteStorage const opened(path("links") / "link.sqlite"); }),
              (path("links") / "link.sqlite").string() + ": cannot open the store: " + reasonOf(log()));
}

TEST_F(LogBeside, OfABackupIsNamed)
{
    Backup::write(path("copy.backup"), {});
    overwrite(path("copy.backup-wal"), "log");
    EXPECT_EQ(refusal([&] { Backup(path("copy.backup")); }),
              path("copy.backup").string() + ": cannot read the backup: " + reasonOf(path("copy.backup-wal")));
}

TEST_F(LogBeside, IsSetAsideByARestore)
{
    SqliteStorage(path()).setString("key", "value");
    {
        SqliteStorage const store(path());
        Backup::write(path("copy.backup"), {{"product", &store}});
    }
    std::string const left = logFor(path());
    overwrite(log(), left);
    std::optional<fs::path> const kept = Backup(path("copy.backup")).restore("product", path());
    ASSERT_TRUE(kept);
    EXPECT_EQ(content(kept->string() + "-wal"), left);
    EXPECT_EQ(SqliteStorage(path()).getString("key", ""), "value");
}

// --- A switch to write-ahead logging ---

using SwitchedStore = LogBeside;

TEST_F(SwitchedStore, WhileItIsOpenIsNeitherReadNorChanged)
{
    SqliteStorage store(path());
    store.setString("key", "value");
    OtherProgram(path()).execute("PRAGMA journal_mode = WAL");
    std::string const before = content(path());
    EXPECT_EQ(refusal([&] { store.setString("key", "other"); }), path().string() + ": cannot set \"key\": " + switched);
    EXPECT_EQ(refusal([&] { store.getString("key", ""); }), path().string() + ": cannot read \"key\": " + switched);
    EXPECT_EQ(content(path()), before);
    EXPECT_FALSE(fs::exists(log()));
    EXPECT_FALSE(fs::exists(path("store.sqlite-shm")));
}

TEST_F(SwitchedStore, IsRefusedWhileTheOtherProgramWritesItsLog)
{
    SqliteStorage store(path());
    store.setString("key", "value");
    OtherProgram other(path());
    other.execute("PRAGMA journal_mode = WAL; UPDATE settings SET value = 'in the log'");
    std::string const left = content(log());
    EXPECT_EQ(refusal([&] { store.setString("key", "other"); }), path().string() + ": cannot set \"key\": " + switched);
    EXPECT_EQ(refusal([&] { SqliteStorage const opened(path()); }), path().string() + ": cannot open the store: " + switched);
    EXPECT_EQ(content(log()), left);
    EXPECT_EQ(other.ask("SELECT value FROM settings"), "in the log");
}

TEST_F(SwitchedStore, WorksAgainWhenItIsSwitchedBack)
{
    SqliteStorage store(path());
    store.setString("key", "value");
    OtherProgram(path()).execute("PRAGMA journal_mode = WAL; UPDATE settings SET value = 'in the log'");
    EXPECT_THROW(store.setString("key", "other"), StorageError);
    OtherProgram(path()).execute("PRAGMA journal_mode = DELETE");
    EXPECT_EQ(store.getString("key", ""), "in the log");
    store.setString("key", "other");
    EXPECT_EQ(SqliteStorage(path()).getString("key", ""), "other");
}

TEST_F(SwitchedStore, BackupThatWasSwitchedIsRefused)
{
    Backup::write(path("copy.backup"), {});
    OtherProgram(path("copy.backup")).execute("PRAGMA journal_mode = WAL");
    std::string const before = content(path("copy.backup"));
    EXPECT_EQ(refusal([&] { Backup(path("copy.backup")); }), path("copy.backup").string() + ": cannot read the backup: " + switched);
    EXPECT_EQ(content(path("copy.backup")), before);
    EXPECT_FALSE(fs::exists(path("copy.backup-wal")));
    EXPECT_FALSE(fs::exists(path("copy.backup-shm")));
}

} // namespace
