// SPDX-License-Identifier: MIT
//
// The verb "doctor": its output in each format, and its exit status.
#include <tools/commands/LastingFolder.h>
#include <tools/commands/Tool.h>

#include <Storage/SqliteStorage.h>

#include <support/Json.h>
#include <support/OtherProgram.h>
#include <support/Patterns.h>

#include <fstream>
#include <iterator>
#include <sstream>

#include <sqlite3.h>
#include <sys/stat.h>

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
        json const told = parsed(ended.out);
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
                      std::string const& what, json const& remedy)
    {
        return {{"severity", severity}, {"check", check}, {"store", store},   {"key", key},
                {"path", path},         {"what", what},   {"remedy", remedy}, {"names", json::array()}};
    }

    static std::string content(std::string const& file)
    {
        std::ifstream stream(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }
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
    json note = about("note", "folders-missing", {}, {}, {}, "21 folders are not there yet; the editor makes them", {});
    std::istringstream names(replaced(missingFolders, ",", ""));
    note["names"] = std::vector<std::string>{std::istream_iterator<std::string>(names), {}};
    std::string const product = std::filesystem::path(TOOL).parent_path().parent_path().string() + "/share/editor-settings/product.json";
    EXPECT_EQ(told,
              (json{{"facts",
                     {{"productFile", product},
                      {"sqlite", sqlite3_libversion()},
                      {"stores",
                       {{{"store", "product"}, {"file", productFile()}, {"state", "usable"}, {"schema", 1}, {"journalMode", "truncate"}},
                        {{"store", "common"}, {"file", commonFile()}, {"state", "usable"}, {"schema", 1}, {"journalMode", "truncate"}}}}}},
                    {"findings", json::array({note})},
                    {"isWell", true}}));
}

TEST_F(Doctor, HealthIsToldForPeople)
{
    std::vector<std::string> const told = lines(said({"doctor"}));
    ASSERT_EQ(told.size(), 10u);
    EXPECT_EQ(told[0].substr(0, 14), "product file\t/");
    EXPECT_EQ(told[1], std::string("SQLite\t") + sqlite3_libversion());
    EXPECT_EQ(told[2], "product store\t" + productFile());
    EXPECT_EQ(told[3].substr(0, told[3].find(", on ")), "\tusable, schema 1, journal mode truncate");
    EXPECT_EQ(told[4], "common store\t" + commonFile());
    EXPECT_EQ(told[6], "");
    EXPECT_EQ(told[7], "note\t21 folders are not there yet; the editor makes them");
    EXPECT_EQ(told[8], "");
    EXPECT_EQ(told[9], "all is well");
    EXPECT_EQ(lines(said({"doctor", "--verbose"})).at(7), "note\t21 folders are not there yet; the editor makes them: " + missingFolders);
}

TEST_F(Doctor, HealthIsToldForScripts)
{
    std::vector<std::string> const told = lines(said({"doctor", "--plain"}));
    ASSERT_EQ(told.size(), 5u);
    EXPECT_EQ(told[1], std::string("fact\tsqlite\t\t") + sqlite3_libversion() + '\t');
    EXPECT_EQ(told[2].substr(0, told[2].find(", on ")),
              "fact\tproduct-store\t" + productFile() + "\tusable, schema 1, journal mode truncate");
    EXPECT_EQ(told[4], "note\tfolders-missing\t\t21 folders are not there yet; the editor makes them\t");
    EXPECT_EQ(lines(said({"doctor", "--plain", "--verbose"})).at(4),
              "note\tfolders-missing\t\t21 folders are not there yet; the editor makes them: " + missingFolders + '\t');
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

// --- The product file and the files of the stores ---

TEST_F(Doctor, ProductFileThatCannotBeUsedIsFound)
{
    json const told = report({"--product", "/no/such.json"});
    EXPECT_EQ(told["findings"], json::array({about("error", "product-file", {}, {}, "/no/such.json",
                                                   "product file /no/such.json cannot be read (No such file or directory); check its name "
                                                   "and rights, or name another product file",
                                                   "nothing else can be checked without it: correct it, or name another with --product")}));
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

// --- What the stores hold ---

TEST_F(Doctor, UnknownKeyIsFoundWithThePreferenceThatItResembles)
{
    SqliteStorage(productFile()).setString("exprtPath", "/x");
    EXPECT_EQ(finding(), about("note", "unknown-key", "product", "exprtPath", {}, "the library knows no such key; it is kept",
                               "did you mean exportPath? nothing to do where a later version or another program stored it; a product file "
                               "declares a host's own keys"));
    EXPECT_NE(tool({"doctor"}).out.find("\n\tdid you mean exportPath? nothing to do where a later version"), std::string::npos);
    EXPECT_NE(tool({"doctor", "--plain"}).out.find("\tdid you mean exportPath? nothing to do where a later version"), std::string::npos);
}

TEST_F(Doctor, UnknownRationalIsTakenForNoPreference)
{
    SqliteStorage(productFile()).setInt("exprtPath_N", 25);
    SqliteStorage(productFile()).setInt("exprtPath_D", 1);
    EXPECT_EQ(finding(),
              about("note", "unknown-key", "product", "exprtPath", {}, "the library knows no such rational; it is kept",
                    "nothing to do where a later version or another program stored it; a product file declares a host's own keys"));
}

TEST_F(Doctor, ValueOfAnotherKindIsFound)
{
    SqliteStorage(commonFile()).setInt("autoUpdate", 1);
    EXPECT_EQ(finding(), about("warning", "other-kind", "common", "autoUpdate", {},
                               "it holds a value of kind int where one of kind bool is read, so the default is read",
                               "'editor-settings unset autoUpdate' removes it, so that the default holds"));
}

TEST_F(Doctor, ControlsOfStoredKeysAreNotSentToATerminal)
{
    SqliteStorage(productFile()).setInt("a\x1b[31m\n\tb", 1);
    Ended const ended = tool({"doctor"});
    EXPECT_NE(
        ended.out.find("note\ta\\x1b[31m\\n\\tb (product store)\n\tthe library knows no such key; it is kept\n\t"
                       "nothing to do where a later version or another program stored it; a product file declares a host's own keys\n"),
        std::string::npos)
        << ended.out;
    EXPECT_EQ(lines(ended.out).back(), "all is well");
    EXPECT_NE(tool({"doctor", "--plain"})
                  .out.find("\nnote\tunknown-key\ta\\x1b[31m\\n\\tb (product store)\tthe library knows no such key; it is kept\tnothing"),
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
    SqliteStorage(productFile()).setInt("keepVideoAspect", 1);
    SqliteStorage(productFile()).setInt("useGuideLines", 1);
    SqliteStorage(productFile()).setInt("c_N", 1);
    SqliteStorage(productFile()).setInt("c_D", 0);
    EXPECT_EQ(lines(tool({"doctor"}).out).back(), "1 error, 2 warnings");
}

// --- What the editor writes ---

TEST_F(Doctor, FolderThatTheEditorCannotWriteToIsFound)
{
    tool({"set", "snapshotPath", m_home.write("file", "").string()});
    EXPECT_EQ(finding(), about("error", "folder", {}, {}, inHome("file"), "snapshotPath: the editor cannot write there: not a folder",
                               "move it away, as it is no folder, or set another: 'editor-settings set snapshotPath FOLDER'"));
}

TEST_F(Doctor, NothingIsPrintedBetweenTheFactsAndTheVerdictWithoutFindings)
{
    for (std::string const& line : lines(said({"paths", "--plain"})))
        if (std::string const folder = line.substr(line.find('\t') + 1);
            folder.compare(0, m_home.path().string().size(), m_home.path()) == 0)
            std::filesystem::create_directories(folder);
    EXPECT_EQ(report()["findings"], json::array());
    std::vector<std::string> const told = lines(said({"doctor"}));
    ASSERT_EQ(told.size(), 8u);
    EXPECT_EQ(told[6], "");
    EXPECT_EQ(told[7], "all is well");
}

} // namespace
