// SPDX-License-Identifier: MIT
#include "Tool.h"

#include <Storage/SqliteStorage.h>

#include <support/Json.h>

namespace fs = std::filesystem;

namespace {

// The tool with a product of its own: vendor V, product P, shared data S, resources in the folder R of the home folder.
class Paths : public Tool {
protected:
    Paths()
    {
        m_product = m_home
                        .write("product.json", R"({"vendorName": "V", "productName": "P", "sharedDataFolderName": "S", "productKind": 0,)"
                                               R"( "projectFileExtensions": ["ext1", "ext2"], "resourcesRoot": "R"})")
                        .string();
    }

    Ended paths(std::vector<std::string> arguments, std::map<std::string, std::string> const& environment = {})
    {
        arguments.insert(arguments.begin(), {"--product", m_product, "paths"});
        return tool(arguments, environment);
    }

    // Standard output of a call that must succeed without a message.
    std::string printed(std::vector<std::string> const& arguments, std::map<std::string, std::string> const& environment = {})
    {
        Ended const ended = paths(arguments, environment);
        EXPECT_EQ(ended.status, 0) << ended.err;
        EXPECT_EQ(ended.err, "");
        return ended.out;
    }

    std::string refusal(std::vector<std::string> const& arguments)
    {
        Ended const ended = paths(arguments);
        EXPECT_EQ(ended.status, 1);
        EXPECT_EQ(ended.out, "");
        return ended.err;
    }

    static std::string cannotWriteTo(std::string const& names)
    {
        return "editor-settings: the editor cannot write to " + names +
               "; 'editor-settings paths NAME --explain' tells what decides, and a preference may be set to another folder\n";
    }

    void store(char const* key, std::string const& value) { Storage::SqliteStorage(storeFile()).setString(key, value); }

    std::string storeFile() const { return inHome(".local/share/V/P/product-settings.sqlite"); }

    std::string m_product;
};

// --- Listing ---

TEST_F(Paths, ListHasAHeadingForPeople)
{
    EXPECT_EQ(printed({"stock[AB]*"}), "LOCATION\tPATH\n"
                                       "stockAnimationsPath\t" +
                                           inHome("R/resources/samples/stock//animations/") +
                                           "\n"
                                           "stockAudioEffectsPath\t" +
                                           inHome("R/resources/samples/stock//audioEffects/") +
                                           "\n"
                                           "stockAudioPath\t/Audio/\n"
                                           "stockBackgroundsPath\t/Backgrounds/\n");
}

TEST_F(Paths, OneLocationIsPrintedBare)
{
    EXPECT_EQ(printed({"exportPath"}), inHome("Videos/Lumora Library\n"));
    EXPECT_EQ(printed({"stockMusicPath"}), "/Music Library/\n");
    store("exportPath", "/a\tb\nc");
    EXPECT_EQ(printed({"exportPath"}), "/a\tb\nc\n");
    EXPECT_EQ(printed({"exportPath", "--plain"}), "/a\\tb\\nc\n");
}

TEST_F(Paths, LocationIsAskedAboutItsArgument)
{
    EXPECT_EQ(printed({"notificationFile", "error"}), inHome("R/resources/samples/notifications/error.wav\n"));
    EXPECT_EQ(printed({"resourceFile", "[a,b].png"}), inHome("R/[a,b].png\n")) << "an argument is no pattern";
    EXPECT_EQ(parsed(printed({"userEffectsPath", "x", "--json"})),
              json({{"name", "userEffectsPath"}, {"argument", "x"}, {"path", inHome(".local/share/V/SharedData/S/UserEffects/x/")}}));
}

TEST_F(Paths, JsonIsAnObjectForOneAndAnArrayForMany)
{
    EXPECT_EQ(parsed(printed({"exportPath", "--json"})), json({{"name", "exportPath"}, {"path", inHome("Videos/Lumora Library")}}));
    EXPECT_EQ(parsed(printed({"exp*", "--json"})), json::array({{{"name", "exportPath"}, {"path", inHome("Videos/Lumora Library")}}}));
    EXPECT_EQ(parsed(printed({"--json"})).size(), 75u);
    store("snapshotPath", "");
    EXPECT_EQ(parsed(printed({"snapshotPath", "--json"}))["path"], "") << "an empty path is none of the missing";
    EXPECT_EQ(parsed(printed({"sampleProjectPath", "--json"}))["path"], json()) << "none is null, not an empty path";
}

TEST_F(Paths, UnknownLocationIsRefused)
{
    EXPECT_EQ(refusal({"exprtPath"}),
              "editor-settings: there is no location 'exprtPath'; did you mean exportPath? 'editor-settings paths' shows all\n");
    EXPECT_EQ(refusal({"nothing"}), "editor-settings: there is no location 'nothing'; 'editor-settings paths' shows all\n");
    EXPECT_EQ(refusal({"lastAddMediaPath"}),
              "editor-settings: there is no location 'lastAddMediaPath'; 'editor-settings paths' shows all\n")
        << "a preference that remembers a folder is none";
    EXPECT_EQ(printed({"nothing*"}), "LOCATION\tPATH\n");
    EXPECT_EQ(printed({"STOCK*"}), "LOCATION\tPATH\n");
    EXPECT_EQ(printed({"stock[M]usicPath", "--plain"}), "stockMusicPath\t/Music Library/\n");
}

TEST_F(Paths, ArgumentMustFit)
{
    EXPECT_EQ(refusal({"notificationFile"}),
              "editor-settings: say what notificationFile is asked about: 'editor-settings paths notificationFile finish' or 'error'\n");
    EXPECT_EQ(refusal({"notificationFile", "bell"}), refusal({"notificationFile"}));
    EXPECT_EQ(refusal({"userEffectsPath"}),
              "editor-settings: say what userEffectsPath is asked about: 'editor-settings paths userEffectsPath NAME'\n");
    EXPECT_EQ(refusal({"exportPath", "x"}), "editor-settings: exportPath takes nothing after it\n");
    EXPECT_EQ(refusal({"stockMusicPath", "x"}), "editor-settings: stockMusicPath takes nothing after it\n");
    EXPECT_EQ(refusal({"stock*", "x"}), "editor-settings: nothing goes after a pattern; name one location\n");
    EXPECT_EQ(refusal({"userEffectsPath", "\xFF"}),
              "editor-settings: '\\xff' is not UTF-8 without a byte order mark; give it as the editor does\n");
}

// --- What decides ---

TEST_F(Paths, ExplainedPathIsShownWithItsUse)
{
    EXPECT_EQ(printed({"stockMusicPath", "--explain"}), "location\tstockMusicPath\n"
                                                        "path\t/Music Library/\n"
                                                        "use\tjoined to a folder by the editor\n"
                                                        "decided by\tnothing: the text is fixed\n");
}

TEST_F(Paths, ControlCharactersAreEscaped)
{
    store("exportPath", "/a\nb");
    std::string const reason = "decided by\texportPath is stored in " + storeFile();
    EXPECT_EQ(lines(printed({"exportPath", "--explain", "--plain"})),
              (std::vector<std::string>{"location\texportPath", "path\t/a\\nb", "use\twritten to", reason}));
    EXPECT_EQ(printed({"exp*", "--plain"}), "exportPath\t/a\\nb\n");
    EXPECT_EQ(printed({"userEffectsPath", "a\nb", "--check", "--plain"}).substr(0, 22), "userEffectsPath(a\\nb)\t");
    std::vector<std::string> const explained =
        lines(printed({"userEffectsPath", "a\nb", "--explain", "--plain"}, {{"XDG_DATA_HOME", "/a\nb"}}));
    EXPECT_EQ(explained[0], "location\tuserEffectsPath(a\\nb)");
    EXPECT_EQ(explained[3], "decided by\tXDG_DATA_HOME=/a\\nb in the environment");
    fs::create_symlink("a\nb", inHome("odd"));
    store("exportPath", inHome("odd"));
    EXPECT_EQ(paths({"exportPath", "--check", "--plain"}).out, "exportPath\tno\tno\tdangling link to a\\nb\t" + inHome("odd") + '\n');
    EXPECT_EQ(parsed(paths({"exportPath", "--check", "--json"}).out)["remark"], "dangling link to a\\nb");
}

TEST_F(Paths, ExplainedJsonHoldsTheParts)
{
    m_home.write(".config/user-dirs.dirs", "XDG_VIDEOS_DIR=\"/v\"\n");
    json const explained = parsed(printed({"defaultLumoraLibraryPath", "--explain", "--json"}));
    EXPECT_EQ(explained["use"], "default of a preference");
    EXPECT_EQ(explained["path"], "/v/Lumora Library");
    ASSERT_EQ(explained["decidedBy"].size(), 3u);
    EXPECT_EQ(explained["decidedBy"][0], json({{"by", "user-dirs.dirs"},
                                               {"name", "XDG_VIDEOS_DIR"},
                                               {"value", "/v"},
                                               {"where", inHome(".config/user-dirs.dirs, line 1")},
                                               {"text", "XDG_VIDEOS_DIR=\"/v\" in " + inHome(".config/user-dirs.dirs, line 1")}}));
    EXPECT_EQ(explained["decidedBy"][1], json({{"by", "environment"},
                                               {"name", "XDG_CONFIG_HOME"},
                                               {"value", inHome(".config")},
                                               {"where", ""},
                                               {"text", "XDG_CONFIG_HOME=" + inHome(".config") + " in the environment"}}));
    EXPECT_EQ(explained["decidedBy"][2], json({{"by", "product file"},
                                               {"name", "productKind"},
                                               {"value", "0"},
                                               {"where", m_product},
                                               {"text", "productKind \"0\" in " + m_product}}));
    json const unset = parsed(printed({"exportPath", "--explain", "--json"}))["decidedBy"][0];
    EXPECT_EQ(unset["by"], "preference");
    EXPECT_EQ(unset["value"], json()) << "an absent value is null";
}

TEST_F(Paths, ExplainedPathsAreSeparatedByAnEmptyLine)
{
    std::vector<std::string> const explained = lines(printed({"stock[MV]*Path", "--explain"}));
    ASSERT_EQ(explained.size(), 14u);
    EXPECT_EQ(explained[0], "location\tstockMusicPath");
    EXPECT_EQ(explained[4], "");
    EXPECT_EQ(explained[5], "location\tstockVideoEffectsPath");
}

// --- Whether they can be used ---

TEST_F(Paths, CheckOfAllNamesWhatTheEditorCannotWriteTo)
{
    EXPECT_EQ(paths({"--check"}).status, 0) << "a missing folder can be made, and a shipped file may be missing";
    EXPECT_FALSE(fs::exists(inHome(".local"))) << "a check makes nothing, not even the stores";
    EXPECT_FALSE(fs::exists(inHome("Videos")));
    EXPECT_FALSE(fs::exists(inHome("Music")));
    EXPECT_FALSE(fs::exists(inHome(".cache/Lumora Video Editor")));
    store("exportPath", "films");
    store("projectPath", "/dev/null/x");
    Ended const ended = paths({"--check"});
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.err, cannotWriteTo("exportPath, projectPath"));
}

TEST_F(Paths, CheckTellsWhatIsThere)
{
    m_home.write("R/presets-videoeditor.json", "{}");
    EXPECT_EQ(printed({"presetFilePath", "--check", "--plain"}), "presetFilePath\tyes\tyes\t\t" + inHome("R/presets-videoeditor.json\n"));
    EXPECT_EQ(printed({"stockMusicPath", "--check"}), "LOCATION\tEXISTS\tWRITABLE\tREMARK\tPATH\n"
                                                      "stockMusicPath\t-\t-\tjoined to a folder by the editor\t/Music Library/\n");
    EXPECT_EQ(printed({"sampleProjectPath", "--check", "--plain"}), "sampleProjectPath\tno\tno\tnone found\t\n");
}

TEST_F(Paths, CheckLeavesExamplesOut)
{
    std::string const all = paths({"--check", "--plain"}).out;
    EXPECT_EQ(all.find("resourceFile"), std::string::npos);
    EXPECT_EQ(all.find("userEffectsPath"), std::string::npos);
    EXPECT_NE(all.find("notificationFile(finish)\t"), std::string::npos);
    EXPECT_EQ(lines(all).size(), 73u);
    EXPECT_EQ(printed({"userEffectsPath", "x", "--check", "--plain"}),
              "userEffectsPath(x)\tno\tyes\tmissing; the editor can make it\t" + inHome(".local/share/V/SharedData/S/UserEffects/x/\n"));
}

TEST_F(Paths, CheckAsJson)
{
    store("exportPath", "films");
    Ended const ended = paths({"exportPath", "--check", "--json"});
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(parsed(ended.out), json({{"name", "exportPath"},
                                       {"path", "films"},
                                       {"use", "written to"},
                                       {"exists", false},
                                       {"writable", false},
                                       {"reason", "relative"},
                                       {"remark", "not absolute: it depends on the folder that the editor is started in"},
                                       {"usable", false}}));
    json const fragment = parsed(printed({"stockMusicPath", "--check", "--json"}));
    EXPECT_EQ(fragment["exists"], json());
    EXPECT_EQ(fragment["reason"], "joined");
    EXPECT_EQ(parsed(printed({"userEffectsPath", "x", "--check", "--json"}))["reason"], "can-be-made");
    std::filesystem::create_directories(inHome("exports"));
    store("exportPath", inHome("exports"));
    EXPECT_EQ(parsed(printed({"exportPath", "--check", "--json"}))["reason"], json());
    EXPECT_EQ(fragment["usable"], true);
}

TEST_F(Paths, CheckNamesTheAskedLocationWithItsArgument)
{
    m_home.write(".local/share/V/SharedData", "a file in the way");
    Ended const ended = paths({"userEffectsPath", "x", "--check"});
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.err, cannotWriteTo("userEffectsPath(x)"));
}

TEST_F(Paths, ExplainAndCheckExcludeEachOther) { EXPECT_EQ(paths({"--explain", "--check"}).status, 2); }

} // namespace
