// SPDX-License-Identifier: MIT
//
// Before the first change of a store it is copied to where a person finds it.
#include "DeskTest.h"

#include <Inspector/History.h>

#include <Storage/Backup.h>

#include <fstream>
#include <sys/stat.h>

namespace {

namespace fs = std::filesystem;
using Storage::StorageError;

class Keeping : public DeskTest {
protected:
    std::vector<std::string> files() const
    {
        std::vector<std::string> names;
        if (fs::exists(m_folder))
            for (fs::directory_entry const& entry : fs::directory_iterator(m_folder))
                names.push_back(entry.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }

    void startAgain()
    {
        m_desk.reset();
        m_snapshot.reset();
        m_answers.clear();
        startChanging();
    }

    // Has a file lie in the folder's place.
    void block() { m_place.backupFolder = m_home.write("a-file", "") / "backups"; }

    void addUnreadable()
    {
        SqliteStorage(m_productFile).setString("later", "x");
        OtherProgram(m_productFile).execute("UPDATE settings SET kind = 'colour' WHERE key = 'later'");
    }

    fs::path const m_folder = m_home.path() / ".local/state/editor-settings/backups";
};

TEST_F(Keeping, StoreIsCopiedBeforeItsFirstChangeOnly)
{
    m_other.set("exportPath", "/films");
    SqliteStorage(m_commonFile).setBool("sendStatistics", false);
    startChanging();
    EXPECT_TRUE(files().empty());
    EXPECT_EQ(set("exportPath", QStringLiteral("/films")).outcome, Outcome::unchanged);
    EXPECT_TRUE(files().empty()) << "nothing was changed";
    Answer const first = set("exportPath", QStringLiteral("/other"));
    ASSERT_EQ(first.backups.size(), 1u);
    EXPECT_EQ(first.backups[0].parent_path(), m_folder);
    struct stat status = {};
    ASSERT_EQ(::stat(first.backups[0].c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0600u);
    Storage::Backup const backup(first.backups[0]);
    EXPECT_EQ(backup.names(), std::vector<std::string>{"product"}) << "the other one is not changed";
    EXPECT_EQ(backup.rows("product").at(0).value, SqliteStorage::Value("/films"));
    EXPECT_TRUE(set("exportPath", QStringLiteral("/third")).backups.empty());
    Answer const other = committed(std::vector<Edit>{{setting("sendStatistics", Store::common), true}});
    ASSERT_EQ(other.backups.size(), 1u);
    EXPECT_EQ(other.backups[0].filename().string().substr(0, 7), "common-");
    EXPECT_EQ(files().size(), 2u);
}

TEST_F(Keeping, StepIsAlsoAChange)
{
    m_other.set("exportPath", "/films");
    startChanging();
    std::optional<SqliteStorage::Row> const now = SqliteStorage(m_productFile).find("exportPath");
    EXPECT_EQ(committed(Inspector::Step{{Store::product, {"exportPath", std::nullopt, now}}}).backups.size(), 1u);
}

TEST_F(Keeping, MissingStoreNeedsNoBackup)
{
    startChanging();
    EXPECT_TRUE(set("exportPath", QStringLiteral("/films")).backups.empty());
}

TEST_F(Keeping, LatestFiveOfAStoreAreKeptAndNothingElseGoes)
{
    m_other.set("exportPath", "/films");
    startChanging();
    std::string const first = set("exportPath", QStringLiteral("/0")).backups.at(0).filename().string();
    std::string const prefix = first.substr(0, first.size() - std::string("20261122T190501.123Z.backup").size());
    std::vector<std::string> const others = {prefix + "20200101T000000.000Z.backup.bak", prefix + "notes",
                                             "product-00000000-20200101T000000.000Z.backup", "product.backup"};
    for (std::string const& name : others)
        std::ofstream(m_folder / name) << "mine";
    for (std::string const second : {"1", "2", "3", "4"})
        std::ofstream(m_folder / (prefix + "2020010" + second + "T000000.000Z.backup")) << "earlier";
    startAgain();
    std::string const last = set("exportPath", QStringLiteral("/1")).backups.at(0).filename().string();
    std::vector<std::string> expected = {first, last, prefix + "20200102T000000.000Z.backup", prefix + "20200103T000000.000Z.backup",
                                         prefix + "20200104T000000.000Z.backup"};
    expected.insert(expected.end(), others.begin(), others.end());
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(files(), expected);
}

TEST_F(Keeping, NothingIsStoredWithoutABackupUntilThatIsAllowed)
{
    m_other.set("exportPath", "/films");
    block();
    startChanging();
    Answer const refused = set("exportPath", QStringLiteral("/other"));
    EXPECT_EQ(refused.outcome, Outcome::noBackup);
    ASSERT_TRUE(refused.error);
    EXPECT_EQ(refused.error->attempt(), "create the folder");
    EXPECT_EQ(SqliteStorage(m_productFile).getString("exportPath", ""), "/films");
    m_desk->storeWithoutBackup();
    EXPECT_EQ(set("exportPath", QStringLiteral("/other")).outcome, Outcome::stored);
    EXPECT_EQ(SqliteStorage(m_productFile).getString("exportPath", ""), "/other");
}

TEST_F(Keeping, BackupIsNotMadeBelowAHomeFolderThatIsMissing)
{
    m_other.set("exportPath", "/films");
    ::unsetenv("XDG_STATE_HOME");
    ::setenv("HOME", (m_home.path() / "missing").c_str(), 1);
    startChanging();
    Answer const refused = set("exportPath", QStringLiteral("/other"));
    EXPECT_EQ(refused.outcome, Outcome::noBackup);
    EXPECT_EQ(refused.error->remedy(), "set HOME to your folder, or XDG_STATE_HOME to another one");
    EXPECT_FALSE(fs::exists(m_home.path() / "missing"));
}

TEST_F(Keeping, ValueOfALaterVersionIsRemovedOnlyWithABackup)
{
    addUnreadable();
    block();
    startChanging();
    m_desk->storeWithoutBackup();
    ASSERT_EQ(cell("later", Setting::stateColumn), "unreadable");
    Answer const refused = reset("later");
    EXPECT_EQ(refused.outcome, Outcome::refused);
    EXPECT_EQ(refused.reason, "later holds a value of kind colour that this version cannot read, so it stays as it is until the store can "
                              "be backed up");
    EXPECT_EQ(SqliteStorage(m_productFile).rows().size(), 1u);
    m_place.backupFolder.reset();
    startAgain();
    Answer const removed = reset("later");
    EXPECT_EQ(removed.outcome, Outcome::stored);
    EXPECT_EQ(removed.backups.size(), 1u);
    EXPECT_TRUE(SqliteStorage(m_productFile).rows().empty());
    EXPECT_EQ(committed(removed.made).outcome, Outcome::stored) << "and comes back, byte for byte";
    EXPECT_EQ(SqliteStorage(m_productFile).rows().at(0).kind, "colour");
    EXPECT_EQ(SqliteStorage(m_productFile).rows().at(0).payload, SqliteStorage::Payload("x"));
}

} // namespace
