// SPDX-License-Identifier: MIT
//
// The parts of a store's errors, and the code of each, on real files.
#include <storage/support/FaultySystem.h>
#include <storage/support/StoreFolder.h>

#include <Storage/Backup.h>

#include <support/Named.h>
#include <support/Process.h>

#include <cerrno>
#include <chrono>
#include <fstream>
#include <functional>

#include <sys/stat.h>
#include <unistd.h>

namespace {

using Storage::Backup;
using Storage::SqliteStorage;
using Storage::StorageError;
using Code = StorageError::Code;
namespace fs = std::filesystem;

TEST(PartsOfAnError, AreKeptAndJoinedToOneSentence)
{
    StorageError const error(Code::full, "/a; b: c.sqlite", "set \"x; y\"", "database or disk is full", "free some space");
    EXPECT_EQ(error.code(), Code::full);
    EXPECT_EQ(error.file(), "/a; b: c.sqlite");
    EXPECT_EQ(error.attempt(), "set \"x; y\"");
    EXPECT_EQ(error.reason(), "database or disk is full");
    EXPECT_EQ(error.remedy(), "free some space");
    EXPECT_STREQ(error.what(), "/a; b: c.sqlite: cannot set \"x; y\": database or disk is full; free some space");
}

// A child process answers with text.
std::string nameOf(Code code)
{
    switch (code) {
    case Code::busy:
        return "busy";
    case Code::full:
        return "full";
    case Code::damaged:
        return "damaged";
    case Code::foreign:
        return "foreign";
    case Code::newer:
        return "newer";
    case Code::readOnly:
        return "readOnly";
    case Code::access:
        return "access";
    case Code::io:
        return "io";
    case Code::tooLarge:
        return "tooLarge";
    case Code::conflict:
        return "conflict";
    case Code::missing:
        return "missing";
    case Code::network:
        return "network";
    case Code::forked:
        return "forked";
    case Code::locked:
        return "locked";
    case Code::unreachable:
        return "unreachable";
    }
    return "no code";
}

std::string codeOf(std::function<void()> const& work)
{
    try {
        work();
    } catch (StorageError const& error) {
        return nameOf(error.code());
    }
    return "nothing was thrown";
}

struct Failure {
    char const* meaning;
    std::string (*provoke)(fs::path const& folder);
    char const* code;
};

class CodeOfAnError : public StoreFolder, public testing::WithParamInterface<Failure> {
protected:
    // A folder that an ordinary user may change, also where this process is root.
    fs::path folder() const
    {
        fs::create_directory(path("folder"));
        if (::geteuid() == 0) {
            EXPECT_EQ(::chmod(m_home.path().c_str(), 0711), 0);
            EXPECT_EQ(::chown(path("folder").c_str(), ordinaryUser, ordinaryUser), 0);
        }
        return path("folder");
    }
};

TEST_P(CodeOfAnError, TellsItsClass) { EXPECT_EQ(GetParam().provoke(folder()), GetParam().code); }

std::string opening(fs::path const& file)
{
    return codeOf([&] { SqliteStorage const store(file); });
}

std::string reading(fs::path const& backup)
{
    return codeOf([&] { Backup const opened(backup); });
}

std::string changing(fs::path const& file, SqliteStorage::Options const& options = {})
{
    return codeOf([&] { SqliteStorage(file, options).setInt("key", 2); });
}

std::string asOrdinaryUser(std::function<std::string()> const& work) { return inChild(work, true); }

fs::path store(fs::path const& folder)
{
    SqliteStorage(folder / "store.sqlite").setInt("key", 1);
    return folder / "store.sqlite";
}

fs::path changedBySql(fs::path const& folder, char const* sql)
{
    fs::path const file = store(folder);
    OtherProgram(file).execute(sql);
    return file;
}

fs::path backup(fs::path const& folder)
{
    SqliteStorage const opened(store(folder));
    Backup::write(folder / "copy.backup", {{"product", &opened}});
    return folder / "copy.backup";
}

fs::path changedBackup(fs::path const& folder, char const* sql)
{
    fs::path const file = backup(folder);
    OtherProgram(file).execute(sql);
    return file;
}

// What a write is refused as on a system whose calls fail with `number`.
std::string writingOnASystemThatAnswers(int number, fs::path const& folder)
{
    SqliteStorage opened(store(folder));
    FaultySystem::watch({number, false, true, {"write", "pwrite64"}});
    std::string const code = codeOf([&] { opened.setInt("key", 2); });
    FaultySystem::rest();
    return code;
}

std::string creatingOnASystemThatAnswers(int number, fs::path const& folder)
{
    FaultySystem::watch({number, false, true, {"write", "pwrite64", "mkdir"}});
    std::string const code = opening(folder / "new" / "store.sqlite");
    FaultySystem::rest();
    return code;
}

std::string busy(fs::path const& folder)
{
    OtherProgram other(store(folder));
    other.execute("BEGIN EXCLUSIVE");
    return changing(folder / "store.sqlite", {std::chrono::milliseconds(0), SqliteStorage::Synchronous::full});
}

std::string moved(fs::path const& folder)
{
    SqliteStorage opened(store(folder));
    fs::rename(folder / "store.sqlite", folder / "elsewhere.sqlite");
    return codeOf([&] { opened.setInt("key", 2); });
}

std::string withoutRights(fs::path const& folder, mode_t mode, std::string (*work)(fs::path const& file))
{
    return asOrdinaryUser([&] {
        fs::path const file = store(folder);
        ::chmod(file.c_str(), mode);
        return work(file);
    });
}

std::string withoutAJournal(fs::path const& folder)
{
    return asOrdinaryUser([&] {
        fs::path const file = store(folder);
        fs::remove(file.string() + "-journal");
        ::chmod(folder.c_str(), 0500);
        return changing(file);
    });
}

std::string orphanedJournal(fs::path const& folder)
{
    std::ofstream(folder / "store.sqlite-journal") << "content";
    return opening(folder / "store.sqlite");
}

std::string overwritten(fs::path const& file, std::string const& content, std::string (*work)(fs::path const& file))
{
    StoreFolder::overwrite(file, content);
    return work(file);
}

INSTANTIATE_TEST_SUITE_P(
    Store, CodeOfAnError,
    testing::Values(
        Failure{"LockOfAnotherProcess", [](fs::path const& folder) { return busy(folder); }, "busy"},
        Failure{"FullDisk", [](fs::path const& folder) { return writingOnASystemThatAnswers(ENOSPC, folder); }, "full"},
        Failure{"FullDiskAtCreation", [](fs::path const& folder) { return creatingOnASystemThatAnswers(ENOSPC, folder); }, "full"},
        Failure{"QuotaAtCreation", [](fs::path const& folder) { return creatingOnASystemThatAnswers(EDQUOT, folder); }, "full"},
        Failure{"Text", [](fs::path const& folder) { return overwritten(folder / "store.sqlite", "text", opening); }, "damaged"},
        Failure{"EmptyFile", [](fs::path const& folder) { return overwritten(folder / "store.sqlite", "", opening); }, "damaged"},
        Failure{"MissingTable", [](fs::path const& folder) { return opening(changedBySql(folder, "DROP TABLE settings")); }, "damaged"},
        Failure{"IntegrityCheck",
                [](fs::path const& folder) {
                    std::string const content = StoreFolder::content(store(folder));
                    return overwritten(folder / "store.sqlite", std::string(content).replace(39, 1, "\5"), opening);
                },
                "damaged"},
        Failure{"FileOfAnotherProgram", [](fs::path const& folder) { return opening(changedBySql(folder, "PRAGMA application_id = 1")); },
                "foreign"},
        Failure{"Folder", [](fs::path const& folder) { return opening(folder); }, "foreign"},
        Failure{"DanglingLink",
                [](fs::path const& folder) {
                    fs::create_symlink("nowhere", folder / "link");
                    return opening(folder / "link");
                },
                "foreign"},
        Failure{"WriteAheadLog", [](fs::path const& folder) { return opening(changedBySql(folder, "PRAGMA journal_mode = WAL")); },
                "foreign"},
        Failure{"NewerLayout",
                [](fs::path const& folder) { return opening(changedBySql(folder, "PRAGMA user_version = 2; DROP TABLE settings")); },
                "newer"},
        Failure{"ChangeOfANewerSchema", [](fs::path const& folder) { return changing(changedBySql(folder, "PRAGMA user_version = 2")); },
                "newer"},
        Failure{"FileThatMayNotBeWritten",
                [](fs::path const& folder) { return withoutRights(folder, 0400, [](fs::path const& file) { return changing(file); }); },
                "readOnly"},
        Failure{"FolderThatTakesNoJournal", [](fs::path const& folder) { return withoutAJournal(folder); }, "readOnly"},
        Failure{"DiskThatMayNotBeWritten", [](fs::path const& folder) { return creatingOnASystemThatAnswers(EROFS, folder); }, "readOnly"},
        Failure{"FileThatMayNotBeRead", [](fs::path const& folder) { return withoutRights(folder, 0000, opening); }, "access"},
        Failure{"FolderThatMayNotBeWritten",
                [](fs::path const& folder) {
                    ::chmod(folder.c_str(), 0500);
                    return asOrdinaryUser([&] { return opening(folder / "store.sqlite"); });
                },
                "access"},
        Failure{"FileThatWasMovedAway", [](fs::path const& folder) { return moved(folder); }, "access"},
        Failure{"JournalWithoutItsStore", [](fs::path const& folder) { return orphanedJournal(folder); }, "access"},
        Failure{"LinkLoop",
                [](fs::path const& folder) {
                    fs::create_symlink("loop", folder / "loop");
                    return opening(folder / "loop");
                },
                "access"},
        Failure{"NoName", [](fs::path const&) { return opening(""); }, "access"},
        Failure{"FileBelowAFile", [](fs::path const& folder) { return opening(store(folder) / "below.sqlite"); }, "access"},
        Failure{"DiskThatFails", [](fs::path const& folder) { return writingOnASystemThatAnswers(EIO, folder); }, "io"},
        Failure{"DiskThatFailsAtCreation", [](fs::path const& folder) { return creatingOnASystemThatAnswers(EIO, folder); }, "io"},
        Failure{"LongPath", [](fs::path const& folder) { return opening(folder / std::string(505, 'p')); }, "tooLarge"},
        Failure{"LongName", [](fs::path const& folder) { return opening(folder / std::string(256, 'n')); }, "tooLarge"},
        Failure{"LongValue",
                [](fs::path const& folder) {
                    SqliteStorage opened(store(folder));
                    return codeOf([&] { opened.setString("key", std::string(1000000001, 'x')); });
                },
                "tooLarge"},
        Failure{"OtherRowThanTheExpectedOne",
                [](fs::path const& folder) {
                    SqliteStorage opened(store(folder));
                    return codeOf([&] { opened.apply({{"key", 2, SqliteStorage::Expected{}}}); });
                },
                "conflict"}),
    byMeaning);

INSTANTIATE_TEST_SUITE_P(
    BackupFile, CodeOfAnError,
    testing::Values(
        Failure{"Missing", [](fs::path const& folder) { return reading(folder / "copy.backup"); }, "access"},
        Failure{"LinkLoopOfABackup",
                [](fs::path const& folder) {
                    fs::create_symlink("loop", folder / "loop");
                    return reading(folder / "loop");
                },
                "access"},
        Failure{"LongNameOfABackup", [](fs::path const& folder) { return reading(folder / std::string(256, 'n')); }, "tooLarge"},
        Failure{"FolderForABackup", [](fs::path const& folder) { return reading(folder); }, "foreign"},
        Failure{"StoreForABackup", [](fs::path const& folder) { return reading(store(folder)); }, "foreign"},
        Failure{"TextForABackup", [](fs::path const& folder) { return overwritten(folder / "copy.backup", "text", reading); }, "damaged"},
        Failure{"IntegrityCheckOfABackup",
                [](fs::path const& folder) {
                    std::string const content = StoreFolder::content(backup(folder));
                    return overwritten(folder / "copy.backup", std::string(content).replace(39, 1, "\5"), reading);
                },
                "damaged"},
        Failure{"NewerFormat", [](fs::path const& folder) { return reading(changedBackup(folder, "PRAGMA user_version = 2")); }, "newer"},
        Failure{"CopyThatIsText",
                [](fs::path const& folder) { return reading(changedBackup(folder, "UPDATE copies SET content = x'00'")); }, "damaged"},
        Failure{"CopyOfNothing", [](fs::path const& folder) { return reading(changedBackup(folder, "UPDATE copies SET content = x''")); },
                "foreign"},
        Failure{"TakenName",
                [](fs::path const& folder) {
                    return codeOf([&] {
                        SqliteStorage const opened(store(folder));
                        Backup::write(folder / "store.sqlite", {{"product", &opened}});
                    });
                },
                "foreign"}),
    byMeaning);

using ReadOnlyStore = StoreFolder;

TEST_F(ReadOnlyStore, HasTheErrorThatAChangeWouldThrow)
{
    std::optional<StorageError> const error = SqliteStorage(changedBySql(m_home.path(), "PRAGMA user_version = 2")).readOnlyError();
    ASSERT_TRUE(error);
    EXPECT_EQ(error->code(), Code::newer);
    EXPECT_EQ(error->file(), path().string());
    EXPECT_EQ(error->attempt(), "change the store");
    EXPECT_EQ(error->reason(), "it was written by a newer version (schema 2, this version writes 1)");
    EXPECT_EQ(error->remedy(), "update this program; the file was left as it is");
}

} // namespace
