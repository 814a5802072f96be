// SPDX-License-Identifier: MIT
//
// Backups of both stores on the command line.
#include <tools/commands/Tool.h>

#include <Storage/SqliteStorage.h>

#include <support/Json.h>
#include <support/OtherProgram.h>
#include <support/Patterns.h>

#include <fstream>

#include <sys/stat.h>

namespace {

using Storage::SqliteStorage;
using Words = std::vector<std::string>;

std::string const lookAtTheStores =
    "Run 'editor-settings doctor' with the same options to see what is wrong; 'editor-settings restore FILE' "
    "brings a backup back.\n";

class ToolBackups : public Tool {
protected:
    void store(std::string const& exportPath)
    {
        SqliteStorage product(productFile());
        product.setString("exportPath", exportPath);
        product.setInt("npsSendCount", 3);
        SqliteStorage(commonFile()).setBool("autoUpdate", false);
    }

    std::ptrdiff_t entriesBesideTheStore() const
    {
        return std::distance(std::filesystem::directory_iterator(std::filesystem::path(productFile()).parent_path()), {});
    }

    std::string backup() const { return inHome("settings.backup"); }

    // With the time of the backup and the names of the kept files made alike.
    static std::string timeless(std::string const& text)
    {
        std::string const time = replaced(text, "\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d:", "TIME:");
        return replaced(time, "before-restore-\\d{8}T\\d{6}Z(-\\d+)?", "before-restore-TIME");
    }

    // The command that the last restore named for undoing it, which a shell runs as it stands.
    Ended undone(Ended const& restored)
    {
        std::string const begin = "; to undo it: editor-settings ";
        std::size_t const at = restored.err.find(begin);
        EXPECT_NE(at, std::string::npos) << restored.err;
        std::string const words = at == std::string::npos ? "" : restored.err.substr(at + begin.size());
        return run({"sh", "-c", "cd / && " TOOL " " + words.substr(0, words.find('\n'))});
    }
};

TEST_F(ToolBackups, BackupComesBackAndWhatWasThereIsKept)
{
    store("/films");
    Ended const made = tool({"backup", backup()});
    EXPECT_EQ(made.status, 0);
    EXPECT_EQ(made.out, "");
    EXPECT_EQ(made.err, "editor-settings: the common store is backed up with 1 value\n"
                        "editor-settings: the product store is backed up with 2 values\n");
    store("/later");
    said({"set", "keepVideoAspect", "no"});

    Ended const restored = tool({"restore", backup()});
    EXPECT_EQ(restored.status, 0);
    EXPECT_EQ(restored.out, "STORE\tKEY\tBEFORE\tRESTORED\n"
                            "product\texportPath\t/later\t/films\n"
                            "product\tkeepVideoAspect\tfalse\t(unset)\n");
    EXPECT_EQ(timeless(restored.err),
              "editor-settings: the product store of TIME: 2 values changed; to undo it: editor-settings restore '" + productFile() +
                  ".before-restore-TIME'\n"
                  "editor-settings: the common store of TIME: nothing differs, so the store stays as it is\n");
    EXPECT_EQ(said({"get", "exportPath"}), "/films\n");
    EXPECT_EQ(said({"get", "keepVideoAspect"}), "true\n");

    Ended const back = undone(restored);
    EXPECT_EQ(back.status, 0);
    EXPECT_EQ(back.out, "STORE\tKEY\tBEFORE\tRESTORED\n"
                        "product\texportPath\t/films\t/later\n"
                        "product\tkeepVideoAspect\t(unset)\tfalse\n");
    EXPECT_EQ(lines(timeless(back.err)).size(), 1u) << back.err;
    EXPECT_EQ(said({"get", "exportPath"}), "/later\n");
    undone(back);
    EXPECT_EQ(said({"get", "exportPath"}), "/films\n");
}

TEST_F(ToolBackups, CommandThatUndoesARestoreNamesTheSameStores)
{
    std::string const home = inHome("it's a \"home\" $HOME");
    std::string const product = inHome("it's.json");
    std::filesystem::copy(std::filesystem::path(TOOL).parent_path().parent_path() / "share/editor-settings/product.json", product);
    Words const stores = {"--home", home, "--product", product};
    auto const withStores = [&](Words words) {
        words.insert(words.end(), stores.begin(), stores.end());
        return tool(words);
    };
    withStores({"set", "npsSendCount", "1"});
    withStores({"backup", backup()});
    withStores({"set", "npsSendCount", "2"});
    Ended const restored = withStores({"restore", backup()});
    EXPECT_EQ(withStores({"get", "npsSendCount"}).out, "1\n");
    EXPECT_EQ(undone(restored).status, 0);
    EXPECT_EQ(withStores({"get", "npsSendCount"}).out, "2\n");
    EXPECT_FALSE(std::filesystem::exists(productFile()));
}

TEST_F(ToolBackups, TimeOfABackupIsToldInTheUsersZone)
{
    store("/films");
    std::filesystem::copy(productFile(), productFile() + ".before-restore-20260102T230405Z");
    Ended const told = tool({"restore", productFile() + ".before-restore-20260102T230405Z", "--dry-run"}, {{"TZ", "XYZ-9"}});
    EXPECT_EQ(told.err, "editor-settings: the product store of 2026-01-03 08:04:05: nothing differs, so the store stays as it is\n");
    EXPECT_EQ(parsed(said({"restore", productFile() + ".before-restore-20260102T230405Z", "--json"}))["made"], "2026-01-02T23:04:05.000Z");
}

TEST_F(ToolBackups, ListIsShownAsEverywhere)
{
    said({"set", "userCustomColors", "\\", "a"});
    tool({"backup", backup()});
    said({"unset", "userCustomColors"});
    EXPECT_EQ(tool({"restore", backup(), "--plain"}).out, "product\tuserCustomColors\t(unset)\t[\"\\\\\",\"a\"]\n");
}

TEST_F(ToolBackups, StoreThatDoesNotDifferIsNotReplaced)
{
    store("/films");
    tool({"backup", backup()});
    auto const lastWrite = std::filesystem::last_write_time(productFile());
    EXPECT_EQ(timeless(tool({"restore", backup()}).err),
              "editor-settings: the product store of TIME: nothing differs, so the store stays as it is\n"
              "editor-settings: the common store of TIME: nothing differs, so the store stays as it is\n");
    EXPECT_EQ(std::filesystem::last_write_time(productFile()), lastWrite);
    EXPECT_EQ(entriesBesideTheStore(), 2);
    OtherProgram(productFile()).execute("PRAGMA user_version = 2");
    Ended const replaced = tool({"restore", backup()});
    EXPECT_NE(
        timeless(replaced.err)
            .find("the product store of TIME: 0 values changed; what was there is kept in " + productFile() + ".before-restore-TIME\n"),
        std::string::npos)
        << replaced.err;
    said({"set", "exportPath", "/a"});
}

TEST_F(ToolBackups, KeptFileThatIsNoStoreIsRefusedAndNothingIsLost)
{
    store("/films");
    std::string const kept = productFile() + ".before-restore-20260102T030405Z";
    std::ofstream(kept) << "not a store";
    EXPECT_EQ(refused({"restore", kept}), "editor-settings: " + kept +
                                              ": cannot read the backup: it holds no store that can be used (file is not a database); "
                                              "name another backup; this one was left as it is\n");
    EXPECT_EQ(std::filesystem::file_size(kept), 11u);
    EXPECT_EQ(said({"get", "exportPath"}), "/films\n");
    EXPECT_EQ(entriesBesideTheStore(), 3);
}

TEST_F(ToolBackups, KeptStoreOfAnotherFolderIsRefused)
{
    store("/films");
    std::string const kept = productFile() + ".before-restore-20260102T030405Z";
    std::filesystem::copy(productFile(), kept);
    EXPECT_EQ(refused({"restore", kept, "--home", inHome("other")}),
              "editor-settings: " + kept +
                  ": cannot read the backup: it is a store, but no backup; a store that restore kept comes back from beside the one that "
                  "it was kept of, under the name that it got there\n");
    EXPECT_FALSE(std::filesystem::exists(inHome("other")));
}

TEST_F(ToolBackups, DryRunTellsWhatWouldChangeAndChangesNothing)
{
    store("/films");
    tool({"backup", backup()});
    store("/later\n");
    Ended const told = tool({"restore", backup(), "--dry-run"});
    EXPECT_EQ(told.status, 0);
    EXPECT_EQ(told.out, "STORE\tKEY\tBEFORE\tRESTORED\n"
                        "product\texportPath\t/later\\n\t/films\n");
    EXPECT_EQ(timeless(told.err), "editor-settings: the product store of TIME: 1 value would change\n"
                                  "editor-settings: the common store of TIME: nothing differs, so the store stays as it is\n");
    EXPECT_EQ(said({"restore", backup(), "--dry-run", "--plain"}), "product\texportPath\t/later\\n\t/films\n");
    json const expected = parsed(R"({"dryRun": true, "stores": {"common": {"kept": null, "changes": []}, "product": {"kept": null,
        "changes": [{"key": "exportPath", "before": {"kind": "string", "value": "/later\n"},
                     "after": {"kind": "string", "value": "/films"}}]}}})");
    json answer = parsed(said({"restore", backup(), "--dry-run", "--json"}));
    EXPECT_EQ(answer["made"].get<std::string>().size(), 24u);
    answer.erase("made");
    EXPECT_EQ(answer, expected);
    EXPECT_EQ(SqliteStorage(productFile()).getString("exportPath", ""), "/later\n");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(std::filesystem::path(commonFile()).parent_path()), {}), 3)
        << "a folder, a store and its journal: nothing new";
}

TEST_F(ToolBackups, RestoreAsJsonNamesWhatIsKept)
{
    store("/films");
    tool({"backup", backup()});
    store("/later");
    json const answer = parsed(said({"restore", backup(), "--json"}));
    EXPECT_EQ(answer["dryRun"], false);
    std::string const kept = answer["stores"]["product"]["kept"];
    EXPECT_EQ(SqliteStorage(kept).getString("exportPath", ""), "/later");
    EXPECT_EQ(answer["stores"]["common"]["kept"], json());
}

TEST_F(ToolBackups, NothingIsBackedUpWhereNothingIsThere)
{
    EXPECT_EQ(refused({"backup", backup()}), "editor-settings: there is no store yet, so there is nothing to back up\n");
    EXPECT_FALSE(std::filesystem::exists(backup()));
    EXPECT_FALSE(std::filesystem::exists(productFile()));
}

TEST_F(ToolBackups, BackupIsNeverWrittenOverAFile)
{
    store("/films");
    std::ofstream(backup()) << "mine";
    EXPECT_EQ(refused({"backup", backup()}),
              "editor-settings: " + backup() + ": cannot write the backup: it is there already; name a new file, or move that one away\n");
    EXPECT_EQ(std::filesystem::file_size(backup()), 4u);
}

TEST_F(ToolBackups, StoreThatTheBackupDoesNotHoldStaysAsItIs)
{
    SqliteStorage(productFile()).setString("exportPath", "/films");
    tool({"backup", backup()});
    store("/later");
    Ended const restored = tool({"restore", backup()});
    EXPECT_EQ(restored.status, 0);
    EXPECT_NE(restored.err.find("editor-settings: the backup holds no common store, so that one stays as it is\n"), std::string::npos);
    EXPECT_EQ(said({"get", "exportPath"}), "/films\n");
    EXPECT_EQ(said({"get", "autoUpdate"}), "false\n");
}

TEST_F(ToolBackups, DamagedStoreIsReplacedAndKept)
{
    store("/films");
    tool({"backup", backup()});
    std::ofstream(productFile()) << "not a store";
    std::string const trouble = productFile() + ": cannot open the store: file is not a database; the file was left as it is: move it away "
                                                "and restore it from a backup\n";
    EXPECT_EQ(refused({"get", "exportPath"}), "editor-settings: " + trouble + lookAtTheStores);
    Ended const restored = tool({"restore", backup()});
    EXPECT_EQ(restored.status, 0);
    EXPECT_EQ(timeless(restored.err).substr(0, 17 + trouble.size()), "editor-settings: " + trouble);
    EXPECT_NE(timeless(restored.err).find("kept in " + productFile() + ".before-restore-TIME\n"), std::string::npos);
    EXPECT_EQ(said({"get", "exportPath"}), "/films\n");
}

TEST_F(ToolBackups, FileThatIsNoBackupChangesNothing)
{
    store("/films");
    std::ofstream(backup()) << "not a backup";
    EXPECT_EQ(refused({"restore", backup()}),
              "editor-settings: " + backup() +
                  ": cannot read the backup: file is not a database; name another backup; this one was left as "
                  "it is\n");
    EXPECT_EQ(refused({"restore", productFile()}),
              "editor-settings: " + productFile() +
                  ": cannot read the backup: it is a store, but no backup; a store that restore kept comes back from beside the one that "
                  "it was kept of, under the name that it got there\n");
    EXPECT_EQ(said({"get", "exportPath"}), "/films\n");
}

TEST_F(ToolBackups, StoreOfANewerVersionIsReadWithANote)
{
    store("/films");
    OtherProgram(productFile()).execute("PRAGMA user_version = 2");
    Ended const got = tool({"get", "exportPath"});
    std::string const reason =
        "it was written by a newer version (schema 2, this version writes 1); update this program; the file was left "
        "as it is\n";
    EXPECT_EQ(got.status, 0);
    EXPECT_EQ(got.out, "/films\n");
    EXPECT_EQ(got.err, "editor-settings: only for reading: " + productFile() + ": cannot change the store: " + reason);
    EXPECT_EQ(refused({"set", "exportPath", "/x"}),
              "editor-settings: " + productFile() + ": cannot set \"exportPath\": " + reason + lookAtTheStores);
}

} // namespace
