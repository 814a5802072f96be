// SPDX-License-Identifier: MIT
//
// The pages of the reference hold what the program prints, and what it prints is the same for everybody.
#include <support/Table.h>
#include <tools/commands/Tool.h>

#include <fstream>

namespace {

std::string committed(std::string const& page)
{
    std::ifstream file(DOCS "/reference/" + page);
    EXPECT_TRUE(file) << page;
    return {std::istreambuf_iterator<char>(file), {}};
}

class Reference : public Tool {
protected:
    std::string preferences(std::map<std::string, std::string> const& environment = {}) { return page("list", environment); }
    std::string locations(std::map<std::string, std::string> const& environment = {}) { return page("paths", environment); }

private:
    std::string page(char const* verb, std::map<std::string, std::string> const& environment)
    {
        Ended const ended = tool({verb, "--format", "markdown"}, environment);
        EXPECT_EQ(ended.status, 0) << ended.err;
        EXPECT_EQ(ended.err, "");
        return ended.out;
    }
};

TEST_F(Reference, PageOfPreferencesIsWhatTheProgramPrints)
{
    EXPECT_EQ(preferences(), committed("preferences.md")) << "scripts/docs rewrites it";
}

TEST_F(Reference, PageOfLocationsIsWhatTheProgramPrints)
{
    EXPECT_EQ(locations(), committed("locations.md")) << "scripts/docs rewrites it";
}

TEST_F(Reference, IsTheSameForAUserWhoHasSetEverything)
{
    m_home.write(".config/user-dirs.dirs", "XDG_VIDEOS_DIR=\"$HOME/Films\"\nXDG_MUSIC_DIR=\"$HOME/Songs\"\n");
    tool({"set", "exportPath", "/films"});
    said({"set", "keepVideoAspect", "false"});
    std::map<std::string, std::string> const environment = {
        {"XDG_CONFIG_HOME", inHome(".config")}, {"XDG_DATA_HOME", "/data"}, {"XDG_CACHE_HOME", "/cache"}, {"LC_ALL", "de_DE.UTF-8"}};
    EXPECT_EQ(preferences(environment), committed("preferences.md"));
    EXPECT_EQ(locations(environment), committed("locations.md"));
}

TEST_F(Reference, NeedsNoStore)
{
    m_home.write(".local/share/Lumora/Lumora Video Editor/product-settings.sqlite", "no store");
    EXPECT_EQ(preferences(), committed("preferences.md"));
    EXPECT_FALSE(std::filesystem::exists(commonFile()));
}

// The cells of a row, after the one with its name.
std::string rowOf(std::string const& page, std::string const& name)
{
    std::string const begin = "\n| `" + name + "` | ";
    std::size_t const at = page.find(begin);
    if (at == std::string::npos)
        return "no row";
    std::size_t const cells = at + begin.size();
    return page.substr(cells, page.find('\n', cells) - cells);
}

TEST_F(Reference, RowTellsTypeStoreClassDefaultAndPurpose)
{
    std::string const page = preferences();
    EXPECT_EQ(rowOf(page, "keepVideoAspect"), "bool | product | roaming | `true` | Whether a video keeps its aspect ratio when it is "
                                              "resized | `Settings::keepVideoAspect`, `setKeepVideoAspect` |");
    EXPECT_EQ(
        rowOf(page, "exportPath"),
        "text, `QString` | product | local | `~/Videos/Lumora Library`, which is `defaultLumoraLibraryPath` | Folder of exported films | "
        "`Settings::exportPath`, `setExportPath` |");
    EXPECT_EQ(rowOf(page, "SUAutomaticallyUpdate"), "bool | common | local | `false` | Whether the updater downloads what it finds | "
                                                    "`Settings::autoDownloadUpdates`, `setAutoDownloadUpdates` |");
    EXPECT_EQ(rowOf(page, "achievedTutorials"), "list, `QStringList` | product | roaming | empty | Tutorials that the user has finished | "
                                                "`Settings::achievedTutorials`, `setAchievedTutorials` |");
    EXPECT_EQ(rowOf(page, "Indication/name"),
              "bytes, `QByteArray` | product | transient | What the editor keeps for the indication called `name` | "
              "`Settings::indicationObject`, `setIndicationObject` |");
    EXPECT_EQ(rowOf(page, "stabilizedFileFormat"), "no row") << "nothing reads it";
    EXPECT_NE(page.find("reads yet: `stabilizedFileFormat`.\n"), std::string::npos);
}

TEST_F(Reference, EveryPreferenceHasARowWithItsDefault)
{
    std::string const page = preferences();
    std::map<std::string, std::string> const cells = {
        {"\"\"", "empty"},    {"{}", "empty"},    {"\"wav\"", "`wav`"}, {"\"pcm_s16le\"", "`pcm_s16le`"},
        {"\"png\"", "`png`"}, {"true", "`true`"}, {"false", "`false`"}, {"0", "`0`"},
        {"-1", "`-1`"}};
    for (PreferenceRow const& row : preferenceTable()) {
        if (!row.hasAccessors())
            continue;
        std::string const function = row.defaultValue.substr(0, row.defaultValue.find('('));
        std::string const expected = row.hasComputedDefault() ? ", which is `" + function + "`" : cells.at(row.defaultValue);
        std::string const found = rowOf(page, row.key);
        EXPECT_NE(found.find(" | " + row.store + " | " + row.dataClass + " | "), std::string::npos) << row.key << ": " << found;
        EXPECT_NE(found.find(expected + " | "), std::string::npos) << row.key << ": " << found;
        EXPECT_NE(found.find(" | `" + row.getter + "`, `" + row.setter.substr(10) + "` |"), std::string::npos) << row.key << ": " << found;
    }
}

TEST_F(Reference, RowTellsWhereALocationLiesAndWhatDecidesIt)
{
    std::string const page = locations();
    EXPECT_EQ(rowOf(page, "defaultProjectPath"),
              "`~/Videos/Lumora Video Editor/Projects` | default of a preference | movies | Saved projects |");
    EXPECT_EQ(rowOf(page, "projectPath"),
              "`~/Videos/Lumora Video Editor/Projects` | written to | itself, else as `defaultProjectPath` | Folder of saved projects |");
    EXPECT_EQ(
        rowOf(page, "productDataPath"),
        "`~/.local/share/Lumora/Lumora Video Editor` | written to | data, `vendorName`, `productName` | The product's own data, such as "
        "its store |");
    EXPECT_EQ(rowOf(page, "stockTitlesSvgPath"),
              "`/opt/editor/resources/samples/stock//titles/` | shipped with the product | resources | Titles |");
    EXPECT_EQ(
        rowOf(page, "notificationFile(error)"),
        "`/opt/editor/resources/samples/notifications/error.wav` | shipped with the product | resources | The sound of a notification |");
    EXPECT_EQ(rowOf(page, "stockMusicPath"), "`/Music Library/` | joined to a folder by the editor | nothing | Music |");
    EXPECT_EQ(rowOf(page, "sampleProjectPath"),
              "whichever is found | shipped with the product | resources, `projectFileExtensions` | The sample project to offer |");
}

TEST_F(Reference, OtherProductHasAPageOfItsOwn)
{
    std::string const product = m_home.write("product.json", R"({"vendorName": "A|B", "productName": "Cutter",
        "sharedDataFolderName": "Shared", "productKind": 1, "projectFileExtensions": ["cut"], "resourcesRoot": "."})");
    std::string const page = said({"--product", product, "paths", "--format", "markdown"});
    EXPECT_EQ(rowOf(page, "productDataPath").substr(0, 31), "`~/.local/share/A\\|B/Cutter` | ");
    EXPECT_EQ(rowOf(page, "defaultLumoraLibraryPath").substr(0, 32), "`~/Videos/Lumora Video Editor` |");
}

TEST_F(Reference, PageIsWholeAndOfAKnownFormat)
{
    for (std::vector<std::string> const& other :
         {std::vector<std::string>{"--plain"}, {"--json"}, {"--set"}, {"--unset"}, {"--store", "common"}, {"*Path"}}) {
        std::vector<std::string> words = {"list", "--format", "markdown"};
        words.insert(words.end(), other.begin(), other.end());
        refused(words, 2);
    }
    refused({"paths", "--format", "markdown", "exportPath"}, 2);
    refused({"paths", "--format", "markdown", "--check"}, 2);
    refused({"list", "--format", "html"}, 2);
    refused({"get", "exportPath", "--format", "markdown"}, 2);
}

} // namespace
