// SPDX-License-Identifier: MIT
//
// The verb that looks for what is wrong: each finding is made, told and, where nothing is wrong, not told.
#include "LastingFolder.h"
#include "Tool.h"

#include <Storage/SqliteStorage.h>

#include <support/Named.h>
#include <support/OtherProgram.h>

#include <climits>
#include <cstdlib>
#include <fstream>
#include <optional>

#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using Words = std::vector<std::string>;
using Storage::SqliteStorage;

class Doctor : private LastingFolder, public Tool {
protected:
    // A healthy beginning: both stores.
    void SetUp() override
    {
        said({"set", "npsSendCount", "1"});
        said({"set", "autoUpdate", "false"});
    }

    json report(Words const& more = {})
    {
        Words words = {"doctor", "--json"};
        words.insert(words.end(), more.begin(), more.end());
        Ended const ended = tool(words);
        EXPECT_EQ(ended.err, "");
        json const told = json::parse(ended.out);
        EXPECT_EQ(ended.status, told["isWell"] ? 0 : 1);
        return told;
    }

    // The findings of one name.
    static json only(char const* check, json const& told)
    {
        json found = json::array();
        for (json const& finding : told["findings"])
            if (finding["check"] == check)
                found.push_back(finding);
        return found;
    }

    // What must be the only finding but for the note about folders.
    json finding(Words const& more = {})
    {
        json const told = report(more);
        json found = json::array();
        for (json const& one : told["findings"])
            if (one["check"] != "folders-missing")
                found.push_back(one);
        EXPECT_EQ(found.size(), 1u) << told.dump(1);
        return found.empty() ? json() : found[0];
    }

    static json about(char const* severity, char const* check, json const& store, json const& key, json const& path,
                      std::string const& what, std::string const& remedy)
    {
        return {{"severity", severity}, {"check", check}, {"store", store},  {"key", key},
                {"path", path},         {"what", what},   {"remedy", remedy}};
    }

    static std::string content(std::string const& file)
    {
        std::ifstream stream(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    // With a table of mounts in the place of the system's, after the shell's command `first`.
    Ended toolWithMounts(std::string const& table, Words const& words, std::string const& first = "true",
                         std::map<std::string, std::string> const& environment = {})
    {
        std::string const mounts = m_home.write("mounts", table).string();
        std::string const script = first + " && mount --bind '" + mounts + "' /proc/$$/mountinfo || exit 77; exec \"$0\" \"$@\"";
        Words command = {"unshare", "--mount", "--map-root-user", "sh", "-c", script, TOOL};
        command.insert(command.end(), words.begin(), words.end());
        return run(command, environment);
    }

    static bool mayNotMount(Ended const& ended) { return ended.status == 77 || ended.err.compare(0, 8, "unshare:") == 0; }
};

// --- Where all is well ---

std::string const missingFolders =
    "audioRecordPath, bundleShadowCachePath, deployedPackagesStatisticsPath, downloadableResourcesPath, downloaderCachePath, exportPath, "
    "fastTrackConfigurationPath, fastTrackContentPath, newsCenterContentPath, packInAppCachePath, packageDeploymentPath, projectPath, "
    "snapshotPath, stabilizedFilePath, stockPackagesStatisticsPath, unsplashContentPath, userIntrosPath, userOverlaysPath, "
    "userUnsplashPath, waveformCachePath, waveformConfigurationPath";

TEST_F(Doctor, HealthIsToldWithItsFacts)
{
    json told = report();
    ASSERT_EQ(told["facts"]["stores"].size(), 2u);
    for (json& store : told["facts"]["stores"]) {
        EXPECT_NE(store["fileSystem"]["type"], "");
        store.erase("fileSystem");
    }
    std::string const product = std::filesystem::path(TOOL).parent_path().parent_path().string() + "/share/editor-settings/product.json";
    EXPECT_EQ(told,
              (json{{"facts",
                     {{"productFile", product},
                      {"sqlite", sqlite3_libversion()},
                      {"stores",
                       {{{"store", "product"}, {"file", productFile()}, {"state", "usable"}, {"schema", 1}, {"journalMode", "truncate"}},
                        {{"store", "common"}, {"file", commonFile()}, {"state", "usable"}, {"schema", 1}, {"journalMode", "truncate"}}}}}},
                    {"findings",
                     {about("note", "folders-missing", {}, {}, {}, "not there yet: " + missingFolders,
                            "nothing to do: the editor makes them when it writes there")}},
                    {"isWell", true}}));
}

TEST_F(Doctor, HealthIsToldForPeople)
{
    std::vector<std::string> const told = lines(said({"doctor"}));
    ASSERT_EQ(told.size(), 11u);
    EXPECT_EQ(told[0].substr(0, 14), "product file\t/");
    EXPECT_EQ(told[1], std::string("SQLite\t") + sqlite3_libversion());
    EXPECT_EQ(told[2], "product store\t" + productFile());
    EXPECT_EQ(told[3].substr(0, told[3].find(", on ")), "\tusable, schema 1, journal mode truncate");
    EXPECT_EQ(told[4], "common store\t" + commonFile());
    EXPECT_EQ(told[6], "");
    EXPECT_EQ(told[7], "note\tnot there yet: " + missingFolders);
    EXPECT_EQ(told[8], "\tnothing to do: the editor makes them when it writes there");
    EXPECT_EQ(told[9], "");
    EXPECT_EQ(told[10], "all is well");
}

TEST_F(Doctor, HealthIsToldForScripts)
{
    std::vector<std::string> const told = lines(said({"doctor", "--plain"}));
    ASSERT_EQ(told.size(), 5u);
    EXPECT_EQ(told[1], std::string("fact\tsqlite\t\t") + sqlite3_libversion() + '\t');
    EXPECT_EQ(told[2].substr(0, told[2].find(", on ")),
              "fact\tproduct-store\t" + productFile() + "\tusable, schema 1, journal mode truncate");
    EXPECT_EQ(told[4],
              "note\tfolders-missing\t\tnot there yet: " + missingFolders + "\tnothing to do: the editor makes them when it writes there");
}

TEST_F(Doctor, LooksAndChangesNothing)
{
    std::string const before = content(productFile());
    said({"doctor"});
    EXPECT_EQ(content(productFile()), before);
    EXPECT_FALSE(std::filesystem::exists(inHome("Videos"))) << "no folder is made";
    json const told = report({"--home", inHome("empty")});
    EXPECT_FALSE(std::filesystem::exists(inHome("empty")));
    EXPECT_EQ(told["facts"]["stores"][0]["state"], "missing");
    EXPECT_EQ(told["facts"]["stores"][0]["schema"], json());
    EXPECT_EQ(told["facts"]["stores"][0]["journalMode"], json());
    json const missing = only("store-missing", told);
    ASSERT_EQ(missing.size(), 2u);
    EXPECT_EQ(missing[0], about("note", "store-missing", "product", {}, inHome("empty/product-settings.sqlite"),
                                "nothing is stored there yet", "nothing to do: the store is made when something is stored"));
    EXPECT_EQ(missing[1]["store"], "common");
    EXPECT_TRUE(told["isWell"]);
}

TEST_F(Doctor, EverythingThatTheToolStoresIsWell)
{
    said({"indication", "x", "AP8="});
    said({"colors", "a", "b"});
    said({"tutorials", "--empty"});
    said({"set", "lastTarget", ""});
    said({"set", "recentProjects", "\xC3\xBC"});
    said({"set", "npsValueToSend", "2147483646"});
    said({"set", "npsStartExportCount", "-2147483647"});
    SqliteStorage(productFile()).setString("favorites_fonts", "Verdana|#|Open Sans");
    SqliteStorage(productFile()).setString("stabilizedFileFormat", "mp4");
    SqliteStorage(productFile()).setString("recentProjects", "narrow \xFF text comes back as it is");
    EXPECT_EQ(report()["findings"].size(), 1u) << "the note about folders";
}

// --- The product file and the files of the stores ---

TEST_F(Doctor, ProductFileThatCannotBeUsedIsFound)
{
    json const told = report({"--product", "/no/such.json"});
    EXPECT_EQ(told["findings"], json::array({about("error", "product-file", {}, {}, "/no/such.json",
                                                   "product file /no/such.json cannot be read (No such file or directory); check its name "
                                                   "and rights, or name another product file",
                                                   "nothing else can be looked at without it: mend it, or name another with --product")}));
    EXPECT_EQ(told["facts"], (json{{"productFile", "/no/such.json"}, {"sqlite", sqlite3_libversion()}, {"stores", json::array()}}));
    Ended const ended = tool({"--product", "/no/such.json", "doctor"});
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(lines(ended.out).back(), "1 error");
}

TEST_F(Doctor, StoreThatIsNoneIsFoundAndTheOtherLookedAt)
{
    std::string const file = m_home.write("broken/product-settings.sqlite", "not a store").string();
    ::chmod(file.c_str(), 0600);
    SqliteStorage(inHome("broken/common-settings.sqlite")).setInt("autoUpdate", 1);
    json const told = report({"--home", inHome("broken")});
    EXPECT_EQ(only("store-unusable", told),
              json::array({about("error", "store-unusable", "product", {}, file, "cannot open the store: file is not a database",
                                 "the file was left as it is: move it away and restore it from a backup")}));
    EXPECT_EQ(told["facts"]["stores"][0]["state"], "unusable");
    EXPECT_EQ(told["facts"]["stores"][1]["state"], "usable");
    EXPECT_EQ(only("other-kind", told).size(), 1u);
    EXPECT_EQ(content(file), "not a store");
}

TEST_F(Doctor, DamagedStoreIsFound)
{
    {
        SqliteStorage store(productFile());
        for (int number = 0; number < 200; ++number)
            store.setString("Indication/" + std::to_string(number), std::string(100, 'x'));
    }
    std::fstream stream(productFile(), std::ios::binary | std::ios::in | std::ios::out);
    stream.seekp(4 * 4096);
    stream << std::string(4096, '\0');
    stream.close();
    json const found = finding();
    EXPECT_EQ(found, about("error", "store-unusable", "product", {}, productFile(),
                           "cannot open the store: the file is damaged (Page 5: btreeInitPage() returns error code 11)",
                           "the file was left as it is: move it away and restore it from a backup"));
}

TEST_F(Doctor, NewerStoreIsFound)
{
    OtherProgram(productFile()).execute("PRAGMA user_version = 2");
    EXPECT_EQ(finding(), about("warning", "store-newer", "product", {}, productFile(),
                               "cannot change the store: it was written by a newer version (schema 2, this version writes 1)",
                               "update this program; the file was left as it is"));
    json const store = report()["facts"]["stores"][0];
    EXPECT_EQ(store["state"], "read-only");
    EXPECT_EQ(store["schema"], 2);
}

TEST_F(Doctor, StoreThatMayNotBeWrittenIsFound)
{
    ::chmod(productFile().c_str(), 0400);
    Ended const ended = run(withoutPrivileges({TOOL, "doctor", "--json"}));
    EXPECT_EQ(ended.status, 1);
    json const told = json::parse(ended.out);
    EXPECT_EQ(only("store-read-only", told),
              json::array({about("error", "store-read-only", "product", {}, productFile(), "cannot change the store: it may not be written",
                                 "make the file and its folder readable and writable for this user")}));
    EXPECT_EQ(told["facts"]["stores"][0]["state"], "read-only");
}

TEST_F(Doctor, FolderOfAStoreThatMayNotBeWrittenIsFound)
{
    std::string const folder = inHome(".local/share/Lumora/Lumora Video Editor");
    std::filesystem::remove(productFile() + "-journal");
    ::chmod(folder.c_str(), 0500);
    Ended const ended = run(withoutPrivileges({TOOL, "doctor", "--json"}));
    Ended const missing = run(withoutPrivileges({TOOL, "doctor", "--json", "--home", folder + "/none"}));
    ::chmod(folder.c_str(), 0700);
    EXPECT_EQ(only("store-folder", json::parse(ended.out)),
              json::array({about("error", "store-folder", "product", {}, folder,
                                 "the folder of the store cannot be used: not writable, so no change can be stored",
                                 "give this user the rights to the folder, or name another with --home")}));
    json const found = only("store-folder", json::parse(missing.out));
    ASSERT_EQ(found.size(), 2u);
    EXPECT_EQ(found[1],
              about("error", "store-folder", "common", {}, folder + "/none",
                    "the folder of the store cannot be used: missing, and " + folder + " is not writable, so no store can be made",
                    "give this user the rights to the folder, or name another with --home"));
}

TEST_F(Doctor, ModesThatLetOthersInAreFound)
{
    ::chmod(productFile().c_str(), 0644);
    EXPECT_EQ(finding(), about("warning", "file-mode", "product", {}, productFile(), "other users may read or change it: its mode is 0644",
                               "chmod 600 '" + productFile() + "'"));
    ::chmod(productFile().c_str(), 0600);
    std::string const journal = commonFile() + "-journal";
    std::ofstream(journal).close();
    ::chmod(journal.c_str(), 0620);
    EXPECT_EQ(finding(), about("warning", "file-mode", "common", {}, journal, "other users may read or change it: its mode is 0620",
                               "chmod 600 '" + journal + "'"));
}

TEST_F(Doctor, FileOfAnotherUserIsFound)
{
    if (::geteuid() != 0)
        GTEST_SKIP() << "only root can give a file away";
    ASSERT_EQ(::chown(productFile().c_str(), 4242, 0), 0);
    EXPECT_EQ(finding(), about("warning", "file-owner", "product", {}, productFile(), "it belongs to another user, 4242",
                               "run this program and the editor as that user, or give the file to root"));
}

TEST_F(Doctor, JournalOfAChangeThatIsBeingMadeIsFound)
{
    OtherProgram editor(productFile());
    editor.execute("BEGIN IMMEDIATE; UPDATE settings SET changed = 1");
    json const found = finding();
    EXPECT_EQ(found,
              about("warning", "journal-left", "product", {}, productFile() + "-journal",
                    "a journal of " + std::to_string(std::filesystem::file_size(productFile() + "-journal")) +
                        " bytes lies there: a change is being made right now, or was interrupted",
                    "look again in a moment; where it stays, leave it beside the store and start the editor, which undoes the change"));
    editor.execute("COMMIT");
    EXPECT_TRUE(report()["isWell"]);
}

TEST_F(Doctor, JournalOfAStoreThatIsGoneIsFound)
{
    std::string const journal = commonFile() + "-journal";
    std::filesystem::remove(commonFile());
    std::ofstream(journal) << "no journal of a new store";
    ::chmod(journal.c_str(), 0600);
    EXPECT_EQ(only("journal-left", report()),
              json::array({about("error", "journal-left", "common", {}, journal,
                                 "a journal of 25 bytes lies there: its store is gone, and no new one is made beside it",
                                 "bring the store back beside its journal, or move the journal away")}));
    EXPECT_EQ(content(journal), "no journal of a new store");
}

// --- File systems ---

struct Mounted {
    char const* meaning;
    char const* type;
    char const* number; // the type in hexadecimal digits
    char const* options;
    char const* severity; // null where it is fine
    std::string what;
    std::string remedy;
};

class StoreOn : public Doctor, public testing::WithParamInterface<Mounted> {
protected:
    // The doctor's run with the stores on what the row describes.
    Ended run()
    {
        std::string const folder = inHome(".local/share");
        std::string const table = "1 0 0:1 / / rw - ext4 /dev/x rw\n2 1 0:2 / " + folder + " rw - " + GetParam().type + " x rw\n";
        std::string const mount =
            "mount --bind '" + folder + "' '" + folder + "' && mount -o remount,bind," + GetParam().options + " '" + folder + '\'';
        return toolWithMounts(table, {"doctor", "--json"}, mount,
                              {{"LD_PRELOAD", FILE_SYSTEM_TYPE_LIBRARY},
                               {"FILE_SYSTEM_TYPE", GetParam().number},
                               {"ASAN_OPTIONS", "verify_asan_link_order=0"}});
    }
};

std::string const elsewhere = "keep the stores on a local disk: move the data folder there (XDG_DATA_HOME), or name a folder with --home";

TEST_P(StoreOn, IsJudged)
{
    Ended const ended = run();
    if (mayNotMount(ended))
        GTEST_SKIP() << "this process may not mount anything: " << ended.err;
    json const told = json::parse(ended.out);
    EXPECT_EQ(told["facts"]["stores"][0]["fileSystem"], (json{{"type", GetParam().type}, {"mountPoint", inHome(".local/share")}}));
    json const found = only("file-system", told);
    if (!GetParam().severity) {
        EXPECT_EQ(found, json::array());
        EXPECT_EQ(ended.status, 0);
        return;
    }
    ASSERT_EQ(found.size(), 2u);
    EXPECT_EQ(found[0], about(GetParam().severity, "file-system", "product", {}, productFile(),
                              "it lies on " + std::string(GetParam().type) + GetParam().what, GetParam().remedy));
    EXPECT_EQ(found[1]["store"], "common");
    EXPECT_EQ(ended.status, GetParam().severity == std::string("note") ? 0 : 1);
}

INSTANTIATE_TEST_SUITE_P(
    Table, StoreOn,
    testing::Values(
        Mounted{"LocalDisk", "xfs", "58465342", "rw", nullptr, "", ""},
        Mounted{"Nfs", "nfs4", "6969", "rw", "warning", ", where locks do not hold between machines, so that two editors can damage it",
                elsewhere},
        Mounted{"Stick", "vfat", "4d44", "rw", "warning", ", which has no hard links, so that no store can be made there", elsewhere},
        Mounted{"Memory", "tmpfs", "01021994", "rw", "warning", ", which is kept in memory, so that all is lost with a restart", elsewhere},
        Mounted{"ReadOnlyDisk", "ext4", "ef53", "ro", "error", ", which may only be read, so nothing can be stored",
                "mount it for writing, or name another folder with --home"},
        Mounted{"ProgramsFileSystem", "fuse.sshfs", "65735546", "rw", "note", ", of which it cannot be told whether locks hold there",
                "nothing to do where the disk is local; else " + elsewhere}),
    byMeaning);

TEST_F(Doctor, StoreThatCannotBeMadeForWantOfLinksIsFound)
{
    Ended const ended = toolWithMounts("1 0 0:1 / / rw - vfat /dev/x rw\n", {"doctor", "--json", "--home", inHome("none")});
    if (mayNotMount(ended))
        GTEST_SKIP() << "this process may not mount anything: " << ended.err;
    EXPECT_EQ(only("file-system", json::parse(ended.out))[0]["severity"], "error");
}

// --- What the stores hold ---

struct Held {
    char const* meaning;
    void (*make)(SqliteStorage& product, SqliteStorage& common);
    char const* severity;
    char const* check;
    char const* store;
    char const* key;
    std::string what;
    std::string remedy;
};

class HeldValue : public Doctor, public testing::WithParamInterface<Held> {};

TEST_P(HeldValue, IsFoundAndKept)
{
    {
        SqliteStorage product(productFile());
        SqliteStorage common(commonFile());
        GetParam().make(product, common);
    }
    std::size_t const rows = SqliteStorage(productFile()).rows().size();
    EXPECT_EQ(finding(),
              about(GetParam().severity, GetParam().check, GetParam().store, GetParam().key, {}, GetParam().what, GetParam().remedy));
    EXPECT_EQ(SqliteStorage(productFile()).rows().size(), rows);
}

std::string const nothingToDo = "nothing to do where a later version or another program stored it";
std::string const storeAnew = "have the program that keeps it store it anew";
std::string const listChanges =
    "the stored list would be another one when it is read and stored again, as it has empty elements or a part of the separator";

std::string unset(std::string const& key) { return "'editor-settings unset " + key + "' removes it, so that the default holds"; }
std::string setAnew(std::string const& key) { return "store it anew: 'editor-settings set " + key + " VALUE'"; }

INSTANTIATE_TEST_SUITE_P(
    Table, HeldValue,
    testing::Values(
        Held{"UnknownKey", [](SqliteStorage& product, SqliteStorage&) { product.setBytes("ownKey", {1}); }, "warning", "unknown-key", "product", "ownKey", "the library knows no such key; it is kept", nothingToDo},
        Held{"MistypedKey", [](SqliteStorage& product, SqliteStorage&) { product.setString("exprtPath", "/x"); }, "warning", "unknown-key", "product", "exprtPath", "the library knows no such key; it is kept", "did you mean exportPath? " + nothingToDo},
        Held{"UnknownKeyOfTheCommonStore", [](SqliteStorage&, SqliteStorage& common) { common.setString("favorites_x", "y"); }, "warning", "unknown-key", "common", "favorites_x", "the library knows no such key; it is kept", nothingToDo},
        Held{"TextThatEndsLikeAHalf", [](SqliteStorage& product, SqliteStorage&) { product.setString("own_N", "1"); }, "warning", "unknown-key", "product", "own_N", "the library knows no such key; it is kept", nothingToDo},
        Held{"KeyThatIsOnlyTheEnding", [](SqliteStorage& product, SqliteStorage&) { product.setInt("_N", 1); }, "warning", "unknown-key", "product", "_N", "the library knows no such key; it is kept", nothingToDo},
        Held{"KeyOfTheOtherStore", [](SqliteStorage& product, SqliteStorage&) { product.setBool("autoUpdate", true); }, "warning", "misplaced-key", "product", "autoUpdate", "it belongs in the common store and is not read here", "'editor-settings explain autoUpdate' shows what is read; what lies here is kept"},
        Held{"KeyOfTheProductInTheCommonStore", [](SqliteStorage&, SqliteStorage& common) { common.setInt("npsSendCount", 2); }, "warning", "misplaced-key", "common", "npsSendCount", "it belongs in the product store and is not read here", "'editor-settings explain npsSendCount' shows what is read; what lies here is kept"},
        Held{"OtherKind", [](SqliteStorage& product, SqliteStorage&) { product.setString("npsSendCount", "1"); }, "warning", "other-kind", "product", "npsSendCount", "it holds a value of kind string where one of kind int is read, so the default is read", unset("npsSendCount")},
        Held{"OtherKindInAFamily", [](SqliteStorage& product, SqliteStorage&) { product.setString("Indication/x", "y"); }, "warning", "other-kind", "product", "Indication/x", "it holds a value of kind string where one of kind bytes is read, so the default is read", unset("Indication/x")},
        Held{"OtherKindInTheCommonStore", [](SqliteStorage&, SqliteStorage& common) { common.setInt("autoUpdate", 1); }, "warning", "other-kind", "common", "autoUpdate", "it holds a value of kind int where one of kind bool is read, so the default is read", unset("autoUpdate")},
        Held{"KindOfALaterVersion", [](SqliteStorage& product, SqliteStorage&) { OtherProgram(product.file()).execute("UPDATE settings SET kind = 'date'"); }, "warning", "other-kind", "product", "npsSendCount", "it holds a value of kind date where one of kind int is read, so the default is read", unset("npsSendCount")},
        Held{"ValueThatDoesNotFitItsKind", [](SqliteStorage& product, SqliteStorage&) { OtherProgram(product.file()).execute("UPDATE settings SET value = 2147483648"); }, "warning", "unreadable", "product", "npsSendCount", "it holds a value of kind int that cannot be read, so the default is read", unset("npsSendCount")},
        Held{"TextThatIsNotUtf8", [](SqliteStorage& product, SqliteStorage&) { product.setString("lastTarget", "x\xFF"); }, "warning", "no-utf8", "product", "lastTarget", "it holds text that is not UTF-8, so it is not read as it is stored", setAnew("lastTarget")},
        Held{"ListWithAnEmptyElement", [](SqliteStorage& product, SqliteStorage&) { product.setString("userCustomColors", "a|#||#|b"); }, "warning", "list-changes", "product", "userCustomColors", listChanges, setAnew("userCustomColors")},
        Held{"ListThatEndsWithASeparator", [](SqliteStorage& product, SqliteStorage&) { product.setString("achievedTutorials", "a|#|"); }, "warning", "list-changes", "product", "achievedTutorials", listChanges, setAnew("achievedTutorials")},
        Held{"ListOfTheEditor", [](SqliteStorage& product, SqliteStorage&) { product.setString("favorites_x", "|#|a"); }, "warning", "list-changes", "product", "favorites_x", listChanges, "have the editor store it anew"},
        Held{"GreatestNumber", [](SqliteStorage& product, SqliteStorage&) { product.setInt("npsSendCount", INT_MAX); }, "warning", "number-edge", "product", "npsSendCount", "it holds 2147483647, at the edge of its range: counting on would leave it", unset("npsSendCount")},
        Held{"SmallestNumber", [](SqliteStorage& product, SqliteStorage&) { product.setInt("npsValueToSend", INT_MIN); }, "warning", "number-edge", "product", "npsValueToSend", "it holds -2147483648, at the edge of its range: counting on would leave it", unset("npsValueToSend")},
        Held{"RationalWithoutDenominator", [](SqliteStorage& product, SqliteStorage&) { product.setInt("rate_N", 25); }, "warning", "rational-half", "product", "rate", "the rational has no rate_D, so a read mixes it with a default", storeAnew},
        Held{"RationalWithoutNumerator", [](SqliteStorage&, SqliteStorage& common) { common.setInt("rate_D", 0); }, "warning", "rational-half", "common", "rate", "the rational has no rate_N, so a read mixes it with a default", storeAnew},
        Held{"RationalWithZeroDenominator", [](SqliteStorage& product, SqliteStorage&) { product.setInt("rate_N", 25); product.setInt("rate_D", 0); }, "error", "rational-zero", "product", "rate", "the rational's denominator is 0, so every read of it fails", storeAnew},
        Held{"RationalWithADenominatorOfAnotherKind", [](SqliteStorage& product, SqliteStorage&) { product.setInt("rate_N", 25); product.setString("rate_D", "1"); }, "warning", "rational-kind", "product", "rate", "the rational's rate_D is no int, so a read mixes it with a default", storeAnew},
        Held{"RationalWithANumeratorOfAnotherKind", [](SqliteStorage& product, SqliteStorage&) { product.setBool("rate_N", true); product.setInt("rate_D", 1); }, "warning", "rational-kind", "product", "rate", "the rational's rate_N is no int, so a read mixes it with a default", storeAnew},
        Held{"SoundRational", [](SqliteStorage& product, SqliteStorage&) { product.setInt("rate_N", 0); product.setInt("rate_D", -7); }, "warning", "unknown-key", "product", "rate", "the library knows no such rational; it is kept", nothingToDo}),
    byMeaning);

TEST_F(Doctor, ControlsOfStoredKeysAreNotSentToATerminal)
{
    SqliteStorage(productFile()).setInt("a\x1b[31m\n\tb", 1);
    Ended const ended = tool({"doctor"});
    EXPECT_NE(ended.out.find("warning\ta\\x1b[31m\\n\\tb (product store)\n\tthe library knows no such key; it is kept\n\t"
                             "nothing to do where a later version or another program stored it\n"),
              std::string::npos)
        << ended.out;
    EXPECT_EQ(lines(ended.out).back(), "1 warning");
    EXPECT_NE(
        tool({"doctor", "--plain"})
            .out.find("\nwarning\tunknown-key\ta\\x1b[31m\\n\\tb (product store)\tthe library knows no such key; it is kept\tnothing"),
        std::string::npos);
}

TEST_F(Doctor, ControlsOfTheReasonAreNotSentToATerminal)
{
    Ended const ended = tool({"doctor", "--product", "/no/\x1b[31m.json"});
    EXPECT_NE(ended.out.find("product file /no/\\x1b[31m.json cannot be read"), std::string::npos) << ended.out;
    EXPECT_EQ(ended.out.find('\x1b'), std::string::npos) << ended.out;
}

TEST_F(Doctor, FindingsAreCounted)
{
    SqliteStorage(productFile()).setInt("a", 1);
    SqliteStorage(productFile()).setInt("b", 1);
    SqliteStorage(productFile()).setInt("c_N", 1);
    SqliteStorage(productFile()).setInt("c_D", 0);
    EXPECT_EQ(lines(tool({"doctor"}).out).back(), "1 error, 2 warnings");
}

// --- What the editor writes ---

TEST_F(Doctor, FolderThatTheEditorCannotWriteToIsFound)
{
    said({"set", "snapshotPath", m_home.write("file", "").string()});
    EXPECT_EQ(
        finding(),
        about(
            "error", "folder", {}, {}, inHome("file"), "snapshotPath: the editor cannot write there: not a folder",
            "mend what is remarked: 'editor-settings paths --explain' tells what decides, and a preference may be set to another folder"));
}

TEST_F(Doctor, FolderThatMayNotBeWrittenIsFound)
{
    std::filesystem::create_directories(inHome("locked"));
    said({"set", "snapshotPath", inHome("locked")});
    said({"set", "exportPath", inHome("locked/below")});
    ::chmod(inHome("locked").c_str(), 0500);
    Ended const ended = run(withoutPrivileges({TOOL, "doctor", "--json"}));
    ::chmod(inHome("locked").c_str(), 0700);
    json const found = only("folder", json::parse(ended.out));
    ASSERT_EQ(found.size(), 2u);
    EXPECT_EQ(found[0]["what"], "exportPath: the editor cannot write there: missing, and " + inHome("locked") + " is not writable");
    EXPECT_EQ(found[1]["what"], "snapshotPath: the editor cannot write there: not writable");
}

TEST_F(Doctor, FolderThatMayNotBeReadIsFound)
{
    std::filesystem::create_directories(inHome("unread"));
    said({"set", "snapshotPath", inHome("unread")});
    ::chmod(inHome("unread").c_str(), 0300);
    Ended const ended = run(withoutPrivileges({TOOL, "doctor", "--json"}));
    ::chmod(inHome("unread").c_str(), 0700);
    EXPECT_EQ(only("folder", json::parse(ended.out)),
              json::array({about("warning", "folder", {}, {}, inHome("unread"),
                                 "snapshotPath: not readable, so names are numbered as if it were empty",
                                 "make it readable, or set the preference to another folder")}));
}

TEST_F(Doctor, FoldersThatAreThereAreNotTold)
{
    std::string const names = ' ' + missingFolders;
    for (std::size_t at = 0; at != std::string::npos; at = names.find(' ', at + 1))
        std::filesystem::create_directories(lines(said({"paths", names.substr(at + 1, names.find(',', at) - at - 1)})).front());
    EXPECT_EQ(report()["findings"], json::array());
    EXPECT_EQ(lines(said({"doctor"})).size(), 8u);
}

} // namespace
