// SPDX-License-Identifier: MIT
#include "Tool.h"

#include <Storage/SqliteStorage.h>

#include <support/Named.h>

#include <sys/stat.h>

namespace fs = std::filesystem;

namespace {

// The tool with a product of its own: vendor V, product P, shared data S, resources in the folder R of the home folder.
class Paths : public Tool {
protected:
    Paths() { m_product = m_home.write("product.json", product(0)).string(); }

    static std::string product(int kind)
    {
        return R"({"vendorName": "V", "productName": "P", "sharedDataFolderName": "S", "productKind": )" + std::to_string(kind) +
               R"(, "projectFileExtensions": ["ext1", "ext2"], "resourcesRoot": "R"})";
    }

    Ended paths(std::vector<std::string> arguments, std::map<std::string, std::string> const& environment = {})
    {
        arguments.insert(arguments.begin(), {"--product", m_product, "paths"});
        return tool(arguments, environment);
    }

    // What is printed, where nothing is wrong.
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
               "; mend what is remarked: 'editor-settings paths NAME --explain' tells what decides, and a preference may be set to another "
               "folder\n";
    }

    void store(char const* key, std::string const& value) { Storage::SqliteStorage(storeFile()).setString(key, value); }

    // "~" at the beginning of `text` as the home folder.
    std::string expanded(std::string const& text) const { return text[0] == '~' ? m_home.path().string() + text.substr(1) : text; }
    std::string storeFile() const { return inHome(".local/share/V/P/product-settings.sqlite"); }

    std::string m_product;
};

// --- Listing ---

TEST_F(Paths, EveryLocationIsListedSorted)
{
    std::vector<std::pair<char const*, char const*>> const expected = {
        {"animationBackgroundPreviewImagePath", "~/R/resources/samples/animationBackgroundPreview.png"},
        {"animationIconPreviewImagePath", "~/R/resources/samples/animationIconPreview.png"},
        {"audioPreviewImagePath", "~/R/resources/samples/audioPlayerPreview.png"},
        {"audioRecordPath", "~/Music/Lumora Video Editor/Recorded Audio"},
        {"blurMasksPath", "~/R/resources/samples/stock//blurMasks/"},
        {"bundleShadowCachePath", "~/.cache/Lumora Video Editor/Bundle Shadow Copy"},
        {"calloutPreviewImagePath", "~/R/resources/samples/calloutPreview.png"},
        {"colorFilterPreviewImagePath", "~/R/resources/samples/colorFilterPreview.png"},
        {"countDownImagePath", ":/icons/Player/countdownPad.png"},
        {"defaultAudioRecordPath", "~/Music/Lumora Video Editor/Recorded Audio"},
        {"defaultBundleShadowCachePath", "~/.cache/Lumora Video Editor/Bundle Shadow Copy"},
        {"defaultDownloadableResourcesPath", "~/Videos/Lumora Video Editor/Media Content"},
        {"defaultDownloaderCachePath", "~/.cache/Lumora Video Editor/Downloader Cache"},
        {"defaultFastTrackContentPath", "~/Videos/Lumora Video Editor/Preview Files"},
        {"defaultLumoraLibraryPath", "~/Videos/Lumora Library"},
        {"defaultNewsCenterContentPath", "~/.cache/Lumora Video Editor/News Center"},
        {"defaultPackInAppCachePath", "~/.cache/Lumora Video Editor/PackInApp Cache"},
        {"defaultProjectPath", "~/Videos/Lumora Video Editor/Projects"},
        {"defaultStabilizedFilePath", "~/Videos/Lumora Video Editor/Stabilized"},
        {"defaultWaveformCachePath", "~/.local/share/V/SharedData/S/Waveforms/Cache"},
        {"deployedPackagesStatisticsPath", "~/.local/share/V/SharedData/VideoEditor/Packages/"},
        {"downloadableResourcesPath", "~/Videos/Lumora Video Editor/Media Content"},
        {"downloaderCachePath", "~/.cache/Lumora Video Editor/Downloader Cache"},
        {"effectPreviewImagePath", "~/R/resources/samples/effectPreview.png"},
        {"exportPath", "~/Videos/Lumora Library"},
        {"fastTrackConfigurationPath", "~/.local/share/V/SharedData/VideoEditor/FastTrack/"},
        {"fastTrackContentPath", "~/Videos/Lumora Video Editor/Preview Files"},
        {"flyingObjectsPath", "~/R/resources/samples/stock//flyingObjects/"},
        {"newsCenterContentPath", "~/.cache/Lumora Video Editor/News Center"},
        {"notificationFile(finish)", "~/R/resources/samples/notifications/finish.wav"},
        {"notificationFile(error)", "~/R/resources/samples/notifications/error.wav"},
        {"packInAppCachePath", "~/.cache/Lumora Video Editor/PackInApp Cache"},
        {"packageDeploymentPath", "~/.local/share/V/SharedData/VideoEditor/Packages/"},
        {"panZoomPreviewImagePath", "~/R/resources/samples/panZoomPreview.png"},
        {"portableProjectMediaPath", "/media/"},
        {"presetFilePath", "~/R/presets-videoeditor.json"},
        {"productDataPath", "~/.local/share/V/P"},
        {"projectPath", "~/Videos/Lumora Video Editor/Projects"},
        {"quizPreviewImagePath", "~/R/resources/samples/quizPreview.png"},
        {"resourceFile(FILE)", "~/R/FILE"},
        {"sampleProjectPath", ""},
        {"snapshotPath", "~/Videos/Lumora Library"},
        {"stabilizedFilePath", "~/Videos/Lumora Video Editor/Stabilized"},
        {"stockAnimationsPath", "~/R/resources/samples/stock//animations/"},
        {"stockAudioEffectsPath", "~/R/resources/samples/stock//audioEffects/"},
        {"stockAudioPath", "/Audio/"},
        {"stockBackgroundsPath", "/Backgrounds/"},
        {"stockCalloutsSvgPath", "~/R/resources/samples/stock//callouts/"},
        {"stockColorFiltersPath", "~/R/resources/samples/stock//colorFilters/"},
        {"stockContentPackagesPath", "~/R/resources/samples/stock//packages/Content/"},
        {"stockImportsPath", "~/R/resources/samples/stock//imports/"},
        {"stockMusicPath", "/Music Library/"},
        {"stockPackagesStatisticsPath", "~/.local/share/V/P/StockPackagesStats/"},
        {"stockPanAndZoomPath", "~/R/resources/samples/stock//panandzoom/"},
        {"stockPipEffectsPath", "~/R/resources/samples/stock//pipEffects/"},
        {"stockSampleProjectsPath", "~/R/resources/samples/stock/projects"},
        {"stockServicePackagesPath", "~/R/resources/samples/stock//packages/Service/"},
        {"stockStickersSvgPath", "~/R/resources/samples/stock//stickers/"},
        {"stockThemesPath", "~/R/resources/samples/stock//themes/"},
        {"stockTitlesSvgPath", "~/R/resources/samples/stock//titles/"},
        {"stockTransitionsPath", "~/R/resources/samples/stock//transitions/"},
        {"stockVideoEffectsPath", "~/R/resources/samples/stock//videoEffects/"},
        {"stockVideoPath", "/Video/"},
        {"stockWizardBackgroundsPath", "~/R/resources/samples/stock//wizardBackgrounds/"},
        {"stockWizardPackagesPath", "~/R/resources/samples/stock//packages/Wizard/"},
        {"titlePreviewImagePath", "~/R/resources/samples/titlePreview.png"},
        {"transitionPreviewImageAPath", "~/R/resources/samples/transitionPreview1.png"},
        {"transitionPreviewImageBPath", "~/R/resources/samples/transitionPreview2.png"},
        {"unsplashContentPath", "~/.local/share/V/P/Unsplash/Content"},
        {"userEffectsPath(NAME)", "~/.local/share/V/SharedData/S/UserEffects/NAME/"},
        {"userIntrosPath", "~/.local/share/V/SharedData/S/UserImports/"},
        {"userOverlaysPath", "~/.local/share/V/SharedData/S/UserOverlays/"},
        {"userUnsplashPath", "~/.local/share/V/P/Unsplash/SavedCollection"},
        {"waveformCachePath", "~/.local/share/V/SharedData/S/Waveforms/Cache"},
        {"waveformConfigurationPath", "~/.local/share/V/SharedData/VideoEditor/Waveforms/Configuration/"},
    };
    std::vector<std::string> wanted;
    for (auto const& [name, path] : expected)
        wanted.push_back(std::string(name) + '\t' + expanded(path));
    EXPECT_EQ(lines(printed({"--plain"})), wanted);
}

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
    EXPECT_EQ(printed({"userEffectsPath", "My:Effect?"}), inHome(".local/share/V/SharedData/S/UserEffects/My_Effect_/\n"));
    EXPECT_EQ(printed({"resourceFile", "[a,b].png"}), inHome("R/[a,b].png\n"));
    EXPECT_EQ(json::parse(printed({"userEffectsPath", "x", "--json"})),
              json({{"name", "userEffectsPath"}, {"argument", "x"}, {"path", inHome(".local/share/V/SharedData/S/UserEffects/x/")}}));
}

TEST_F(Paths, JsonIsAnObjectForOneAndAnArrayForMany)
{
    EXPECT_EQ(json::parse(printed({"exportPath", "--json"})), json({{"name", "exportPath"}, {"path", inHome("Videos/Lumora Library")}}));
    EXPECT_EQ(json::parse(printed({"exp*", "--json"})), json::array({{{"name", "exportPath"}, {"path", inHome("Videos/Lumora Library")}}}));
    EXPECT_EQ(json::parse(printed({"--json"})).size(), 75u);
    store("snapshotPath", "");
    EXPECT_EQ(json::parse(printed({"snapshotPath", "--json"}))["path"], "") << "an empty path is none of the missing";
    EXPECT_EQ(json::parse(printed({"sampleProjectPath", "--json"}))["path"], json()) << "none is null, not an empty path";
    m_home.write("R/resources/samples/stock/projects/a/sample.EXT2", "");
    EXPECT_EQ(printed({"sampleProjectPath"}), inHome("R/resources/samples/stock/projects/a/sample.EXT2\n"));
}

TEST_F(Paths, LocationThatIsUnknownIsSaidNoTo)
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

class ExplainedPath : public Paths {
protected:
    // The reasons for one location, without the words before them.
    std::vector<std::string> reasons(std::string const& name, std::map<std::string, std::string> const& environment = {})
    {
        std::vector<std::string> result;
        std::string const before = "decided by\t";
        for (std::string const& line : lines(printed({name, "--explain", "--plain"}, environment)))
            if (line.compare(0, before.size(), before) == 0)
                result.push_back(line.substr(before.size()));
        return result;
    }

    std::string home() const { return m_home.path().string(); }
    std::string homeReason() const { return "HOME=" + home() + " in the environment"; }
    // The test's home sets it.
    std::string configReason() const { return "XDG_CONFIG_HOME=" + home() + "/.config in the environment"; }
    std::string noFile(char const* folder) const
    {
        return "there is no " + home() + "/.config/user-dirs.dirs, so \"" + folder + "\" in the home folder";
    }
    std::string field(char const* text) const { return text + (" in " + m_product); }
};

using Reasons = std::vector<std::string>;

TEST_F(ExplainedPath, IsShownWithItsUse)
{
    EXPECT_EQ(printed({"stockMusicPath", "--explain"}), "location\tstockMusicPath\n"
                                                        "path\t/Music Library/\n"
                                                        "use\tjoined to a folder by the editor\n"
                                                        "decided by\tnothing: the text is fixed\n");
    EXPECT_EQ(lines(printed({"productDataPath", "--explain"}))[2], "use\twritten to");
    EXPECT_EQ(lines(printed({"defaultProjectPath", "--explain"}))[2], "use\tdefault of a preference");
    EXPECT_EQ(lines(printed({"presetFilePath", "--explain"}))[2], "use\tshipped with the product");
    EXPECT_EQ(lines(printed({"countDownImagePath", "--explain"}))[2], "use\tinside the editor's program");
}

TEST_F(ExplainedPath, StandardLocationsAreDecidedByTheHomeFolder)
{
    EXPECT_EQ(reasons("defaultProjectPath"), (Reasons{noFile("Videos"), homeReason(), configReason()}));
    EXPECT_EQ(reasons("defaultAudioRecordPath"), (Reasons{noFile("Music"), homeReason(), configReason()}));
    EXPECT_EQ(reasons("defaultDownloaderCachePath", {{"XDG_CACHE_HOME", ""}}),
              (Reasons{"XDG_CACHE_HOME is empty, so \".cache\" in the home folder", homeReason()}));
    EXPECT_EQ(reasons("packageDeploymentPath", {{"XDG_DATA_HOME", ""}}),
              (Reasons{"XDG_DATA_HOME is empty, so \".local/share\" in the home folder", homeReason(), field("vendorName \"V\"")}));
}

TEST_F(ExplainedPath, VariablesOfTheEnvironmentAreNamed)
{
    EXPECT_EQ(reasons("packageDeploymentPath", {{"XDG_DATA_HOME", home() + "/D"}}),
              (Reasons{"XDG_DATA_HOME=" + home() + "/D in the environment", field("vendorName \"V\"")}));
    EXPECT_EQ(reasons("defaultDownloaderCachePath", {{"XDG_CACHE_HOME", "/C"}}), Reasons{"XDG_CACHE_HOME=/C in the environment"});
}

TEST_F(ExplainedPath, VariableThatIsNotSetIsTold)
{
    Ended const ended = run({"env", "--unset=XDG_DATA_HOME", "--unset=XDG_CONFIG_HOME", TOOL, "--product", m_product, "paths",
                             "stockPackagesStatisticsPath", "--explain", "--plain"});
    EXPECT_EQ(lines(ended.out)[3], "decided by\tXDG_DATA_HOME is not set, so \".local/share\" in the home folder");
    EXPECT_EQ(
        reasons("packageDeploymentPath", {{"XDG_DATA_HOME", ""}, {"HOME", ""}}),
        (Reasons{"XDG_DATA_HOME is empty, so \".local/share\" in the home folder", "HOME is empty, so /", field("vendorName \"V\"")}));
}

struct Line {
    char const* meaning;
    char const* content;              // of user-dirs.dirs
    char const* folder;               // what Qt makes of it
    std::vector<char const*> reasons; // "~" stands for the home folder
};

class ExplainedLine : public ExplainedPath, public testing::WithParamInterface<Line> {};

TEST_P(ExplainedLine, IsToldAsQtTakesIt)
{
    m_home.write(".config/user-dirs.dirs", GetParam().content);
    EXPECT_EQ(printed({"defaultProjectPath"}), expanded(std::string(GetParam().folder) + "/Lumora Video Editor/Projects\n"));
    Reasons expected;
    for (std::string reason : GetParam().reasons) {
        for (std::size_t tilde; (tilde = reason.find('~')) != std::string::npos;)
            reason.replace(tilde, 1, home());
        expected.push_back(reason);
    }
    expected.push_back(configReason());
    EXPECT_EQ(reasons("defaultProjectPath"), expected);
}

INSTANTIATE_TEST_SUITE_P(
    Table, ExplainedLine,
    testing::Values(
        Line{"InTheHomeFolder",
             "# mine\nXDG_VIDEOS_DIR=\"$HOME/Films\"\n",
             "~/Films",
             {"XDG_VIDEOS_DIR=\"$HOME/Films\" in ~/.config/user-dirs.dirs, line 2", "HOME=~ in the environment"}},
        Line{"LastOfTwo",
             "XDG_VIDEOS_DIR=\"/other\"\nXDG_VIDEOS_DIR=\"/films\"\n",
             "/films",
             {"XDG_VIDEOS_DIR=\"/films\" in ~/.config/user-dirs.dirs, line 2"}},
        Line{"WithoutQuotes", "XDG_VIDEOS_DIR=/films", "/films", {"XDG_VIDEOS_DIR=\"/films\" in ~/.config/user-dirs.dirs, line 1"}},
        Line{"WithSeparatorAtItsEnd",
             "XDG_VIDEOS_DIR=/films/\n",
             "/films",
             {"XDG_VIDEOS_DIR=\"/films/\" in ~/.config/user-dirs.dirs, line 1"}},
        Line{"RootFolder", "XDG_VIDEOS_DIR=\"/\"\n", "", {"XDG_VIDEOS_DIR=\"/\" in ~/.config/user-dirs.dirs, line 1"}},
        Line{"Nothing", "XDG_VIDEOS_DIR=\n", "", {"XDG_VIDEOS_DIR=\"\" in ~/.config/user-dirs.dirs, line 1"}},
        Line{"TwoQuotesOnly", "XDG_VIDEOS_DIR=\"\"\n", "\"\"", {"XDG_VIDEOS_DIR=\"\"\"\" in ~/.config/user-dirs.dirs, line 1"}},
        Line{"OpenQuote", "XDG_VIDEOS_DIR=\"/a\n", "\"/a", {"XDG_VIDEOS_DIR=\"\"/a\" in ~/.config/user-dirs.dirs, line 1"}},
        Line{
            "CarriageReturn", "XDG_VIDEOS_DIR=\"/films\"\r\n", "/films", {"XDG_VIDEOS_DIR=\"/films\" in ~/.config/user-dirs.dirs, line 1"}},
        Line{"OtherName",
             "XDG_VIDEOS_DIRX=\"/a\"\n XDG_VIDEOS_DIR=\"/b\"\n",
             "~/Videos",
             {"no XDG_VIDEOS_DIR in ~/.config/user-dirs.dirs, so \"Videos\" in the home folder", "HOME=~ in the environment"}},
        // Qt takes the name up to the last "_DIR=" of a line, so that this one names no known folder.
        Line{"NameWithinTheValue",
             "XDG_VIDEOS_DIR=\"/x_DIR=y\"\n",
             "~/Videos",
             {"no XDG_VIDEOS_DIR in ~/.config/user-dirs.dirs, so \"Videos\" in the home folder", "HOME=~ in the environment"}},
        Line{"NameWithinTheValueOfAnEarlierLine",
             "XDG_VIDEOS_DIR=\"/films\"\nXDG_VIDEOS_DIR=\"/x_DIR=y\"\n",
             "/films",
             {"XDG_VIDEOS_DIR=\"/films\" in ~/.config/user-dirs.dirs, line 1"}}),
    byMeaning);

TEST_F(ExplainedPath, OtherConfigurationFolderIsTold)
{
    std::string const other = m_home.write("config/user-dirs.dirs", "XDG_VIDEOS_DIR=\"/v\"\n").string();
    EXPECT_EQ(reasons("defaultProjectPath", {{"XDG_CONFIG_HOME", inHome("config")}}),
              (Reasons{"XDG_VIDEOS_DIR=\"/v\" in " + other + ", line 1", "XDG_CONFIG_HOME=" + inHome("config") + " in the environment"}));
}

TEST_F(ExplainedPath, FileThatCannotBeReadIsToldFromAMissingLine)
{
    fs::create_directories(inHome(".config/user-dirs.dirs"));
    EXPECT_EQ(reasons("defaultProjectPath").front(),
              inHome(".config/user-dirs.dirs") + " cannot be read (file to open is a directory), so \"Videos\" in the home folder");
}

TEST_F(ExplainedPath, AbsoluteArgumentStandsForItself)
{
    EXPECT_EQ(lines(printed({"resourceFile", "/a/b", "--explain", "--plain"})),
              (Reasons{"location\tresourceFile(/a/b)", "path\t/a/b", "use\tshipped with the product",
                       "decided by\tnothing else: an absolute path stands for itself"}));
}

TEST_F(ExplainedPath, ControlCharactersAreEscaped)
{
    store("exportPath", "/a\nb");
    EXPECT_EQ(lines(printed({"exportPath", "--explain", "--plain"}))[1], "path\t/a\\nb");
    EXPECT_EQ(lines(printed({"exp*", "--plain"})), Reasons{"exportPath\t/a\\nb"});
    EXPECT_EQ(lines(printed({"exportPath", "--check"})).size(), 2u);
    EXPECT_EQ(lines(printed({"userEffectsPath", "a\nb", "--explain", "--plain"})).front(), "location\tuserEffectsPath(a\\nb)");
    EXPECT_EQ(reasons("packageDeploymentPath", {{"XDG_DATA_HOME", "/a\nb"}}).front(), "XDG_DATA_HOME=/a\\nb in the environment");
    Ended const elsewhere = tool({"--product", m_product, "--home", inHome("a\nb"), "paths", "exportPath", "--explain", "--plain"});
    EXPECT_EQ(lines(elsewhere.out)[3], "decided by\texportPath is not stored in " + inHome("a\\nb/product-settings.sqlite") +
                                           ", so Settings::defaultLumoraLibraryPath() holds");
}

TEST_F(ExplainedPath, FieldsOfTheProductFileAreNamed)
{
    EXPECT_EQ(reasons("productDataPath").back(), field("productName \"P\""));
    EXPECT_EQ(reasons("userOverlaysPath").back(), field("sharedDataFolderName \"S\""));
    EXPECT_EQ(reasons("stockTitlesSvgPath"), Reasons{"resourcesRoot of " + m_product + ", which is " + inHome("R")});
    EXPECT_EQ(reasons("sampleProjectPath"),
              (Reasons{"resourcesRoot of " + m_product + ", which is " + inHome("R"), field("projectFileExtensions \"ext1,ext2\"")}));
    m_home.write("product.json", product(1));
    EXPECT_EQ(reasons("defaultLumoraLibraryPath").back(), field("productKind \"1\""));
}

TEST_F(ExplainedPath, PreferenceIsToldStoredOrNot)
{
    EXPECT_EQ(reasons("exportPath"),
              (Reasons{"exportPath is not stored in " + storeFile() + ", so Settings::defaultLumoraLibraryPath() holds", noFile("Videos"),
                       homeReason(), configReason(), field("productKind \"0\"")}));
    store("exportPath", "/films");
    EXPECT_EQ(reasons("exportPath"), Reasons{"exportPath is stored in " + storeFile()});
    Storage::SqliteStorage(storeFile()).setInt("exportPath", 5);
    EXPECT_EQ(reasons("exportPath").front(),
              "exportPath is stored with a value of another kind in " + storeFile() + ", so Settings::defaultLumoraLibraryPath() holds");
}

TEST_F(ExplainedPath, JsonHoldsTheParts)
{
    m_home.write(".config/user-dirs.dirs", "XDG_VIDEOS_DIR=\"/v\"\n");
    json const explained = json::parse(printed({"defaultLumoraLibraryPath", "--explain", "--json"}));
    EXPECT_EQ(explained["use"], "default of a preference");
    EXPECT_EQ(explained["path"], "/v/Lumora Library");
    ASSERT_EQ(explained["decidedBy"].size(), 3u);
    EXPECT_EQ(explained["decidedBy"][0], json({{"by", "user-dirs.dirs"},
                                               {"name", "XDG_VIDEOS_DIR"},
                                               {"value", "/v"},
                                               {"where", inHome(".config/user-dirs.dirs, line 1")},
                                               {"text", "XDG_VIDEOS_DIR=\"/v\" in " + inHome(".config/user-dirs.dirs, line 1")}}));
    EXPECT_EQ(explained["decidedBy"][1]["name"], "XDG_CONFIG_HOME");
    EXPECT_EQ(
        explained["decidedBy"][2],
        json(
            {{"by", "product file"}, {"name", "productKind"}, {"value", "0"}, {"where", m_product}, {"text", field("productKind \"0\"")}}));
}

TEST_F(ExplainedPath, StoredPreferenceIsAllThatDecides)
{
    store("exportPath", "/films");
    json const explained = json::parse(printed({"exportPath", "--explain", "--json"}));
    EXPECT_EQ(explained["decidedBy"], json::array({{{"by", "preference"},
                                                    {"name", "exportPath"},
                                                    {"value", "/films"},
                                                    {"where", storeFile()},
                                                    {"text", "exportPath is stored in " + storeFile()}}}));
}

TEST_F(ExplainedPath, ManyAreToldApartByAnEmptyLine)
{
    std::vector<std::string> const explained = lines(printed({"stock[MV]*Path", "--explain"}));
    ASSERT_EQ(explained.size(), 14u);
    EXPECT_EQ(explained[0], "location\tstockMusicPath");
    EXPECT_EQ(explained[4], "");
    EXPECT_EQ(explained[5], "location\tstockVideoEffectsPath");
}

// --- Whether they can be used ---

struct Checked {
    char const* meaning;
    char const* stored; // as exportPath; "~" stands for the home folder
    char const* exists;
    char const* writable;
    char const* remark;
    int status;
};

class CheckedFolder : public Paths, public testing::WithParamInterface<Checked> {
protected:
    void SetUp() override
    {
        fs::create_directories(inHome("there/below"));
        m_home.write("file", "");
        fs::create_symlink("nowhere", inHome("dangling"));
        fs::create_directory_symlink("there", inHome("link"));
        fs::create_symlink("loop", inHome("loop"));
        fs::create_symlink("a\nb", inHome("odd"));
        ::mkfifo(inHome("fifo").c_str(), 0600);
    }
};

TEST_P(CheckedFolder, IsJudgedAsTheEditorFindsIt)
{
    Checked const& row = GetParam();
    store("exportPath", expanded(row.stored));
    Ended const ended = paths({"exportPath", "--check", "--plain"});
    std::string remark = row.remark;
    for (std::size_t tilde; (tilde = remark.find('~')) != std::string::npos;)
        remark.replace(tilde, 1, m_home.path().string());
    EXPECT_EQ(ended.out,
              std::string("exportPath\t") + row.exists + '\t' + row.writable + '\t' + remark + '\t' + expanded(row.stored) + '\n');
    EXPECT_EQ(ended.status, row.status);
    EXPECT_EQ(ended.err, row.status == 0 ? "" : cannotWriteTo("exportPath"));
}

INSTANTIATE_TEST_SUITE_P(
    Table, CheckedFolder,
    testing::Values(
        Checked{"Folder", "~/there", "yes", "yes", "", 0}, Checked{"FolderWithSeparatorAtItsEnd", "~/there/", "yes", "yes", "", 0},
        Checked{"LinkToAFolder", "~/link", "yes", "yes", "", 0}, Checked{"HomeFolder", "~", "yes", "yes", "the home folder itself", 0},
        Checked{"HomeFolderByAnotherWay", "~/there/..", "yes", "yes", "the home folder itself", 0},
        Checked{"RootFolder", "/", "yes", "yes", "", 0},
        Checked{"DanglingLinkWithALineBreak", "~/odd", "no", "no", "dangling link to a\\nb", 1},
        Checked{"MissingFolder", "~/there/new/newer", "no", "yes", "missing; the editor can make it", 0},
        Checked{"Nothing", "", "no", "no", "empty", 1},
        Checked{"RelativePath", "films", "no", "no", "not absolute: it depends on the folder that the editor is started in", 1},
        Checked{"DanglingLink", "~/dangling", "no", "no", "dangling link to nowhere", 1},
        Checked{"DanglingLinkWithSeparatorAtItsEnd", "~/dangling/", "no", "no", "dangling link to nowhere", 1},
        Checked{"FolderBelowADanglingLink", "~/dangling/new", "no", "no", "missing, and ~/dangling: dangling link to nowhere", 1},
        Checked{"LinkToItself", "~/loop", "no", "no", "Too many levels of symbolic links", 1},
        Checked{"File", "~/file", "yes", "yes", "not a folder", 1},
        Checked{"FolderBelowAFile", "~/file/new", "no", "no", "missing, and ~/file is not a folder", 1},
        Checked{"Fifo", "~/fifo", "yes", "yes", "not a folder", 1}),
    byMeaning);

TEST_F(Paths, FolderThatTheUserMayNotWriteToIsFound)
{
    fs::create_directories(inHome("locked"));
    fs::permissions(inHome("locked"), fs::perms::owner_read | fs::perms::owner_exec);
    std::vector<std::string> const check = {TOOL, "--product", m_product, "paths", "exportPath", "--check", "--plain"};
    store("exportPath", inHome("locked"));
    EXPECT_EQ(run(withoutPrivileges(check)).out, "exportPath\tyes\tno\tnot writable\t" + inHome("locked") + '\n');
    store("exportPath", inHome("locked/new"));
    EXPECT_EQ(run(withoutPrivileges(check)).out,
              "exportPath\tno\tno\tmissing, and " + inHome("locked") + " is not writable\t" + inHome("locked/new") + '\n');
    fs::permissions(inHome("locked"), fs::perms::none);
    EXPECT_EQ(run(withoutPrivileges(check)).out, "exportPath\tno\tno\tPermission denied\t" + inHome("locked/new") + '\n');
}

TEST_F(Paths, CheckOfAllNamesWhatTheEditorCannotWriteTo)
{
    EXPECT_EQ(paths({"--check"}).status, 0) << "what is missing can be made, and what the product ships may be missing";
    store("exportPath", "films");
    store("projectPath", "/dev/null/x");
    Ended const ended = paths({"--check"});
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.err, cannotWriteTo("exportPath, projectPath"));
}

TEST_F(Paths, DefaultThatIsNotInUseMayBeUnusable)
{
    m_home.write(".config/user-dirs.dirs", "XDG_VIDEOS_DIR=\"/dev/null\"\n");
    for (char const* key :
         {"exportPath", "snapshotPath", "projectPath", "stabilizedFilePath", "fastTrackContentPath", "downloadableResourcesPath"})
        store(key, inHome("films"));
    EXPECT_EQ(paths({"--check"}).status, 0);
    Ended const ended = paths({"defaultProjectPath", "--check", "--plain"});
    EXPECT_EQ(ended.out, "defaultProjectPath\tno\tno\tmissing\t/dev/null/Lumora Video Editor/Projects\n");
    EXPECT_EQ(ended.status, 0);
}

TEST_F(Paths, CheckOfWhatIsShippedAndOfFragments)
{
    m_home.write("R/presets-videoeditor.json", "{}");
    EXPECT_EQ(printed({"presetFilePath", "--check", "--plain"}), "presetFilePath\tyes\tyes\t\t" + inHome("R/presets-videoeditor.json\n"));
    EXPECT_EQ(printed({"titlePreviewImagePath", "--check", "--plain"}),
              "titlePreviewImagePath\tno\tno\tmissing\t" + inHome("R/resources/samples/titlePreview.png\n"));
    EXPECT_EQ(printed({"stockMusicPath", "--check", "--plain"}),
              "stockMusicPath\t-\t-\tjoined to a folder by the editor\t/Music Library/\n");
    EXPECT_EQ(printed({"countDownImagePath", "--check", "--plain"}),
              "countDownImagePath\t-\t-\tinside the editor's program\t:/icons/Player/countdownPad.png\n");
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
    EXPECT_EQ(json::parse(ended.out), json({{"name", "exportPath"},
                                            {"path", "films"},
                                            {"use", "written to"},
                                            {"exists", false},
                                            {"writable", false},
                                            {"remark", "not absolute: it depends on the folder that the editor is started in"},
                                            {"usable", false}}));
    json const fragment = json::parse(printed({"stockMusicPath", "--check", "--json"}));
    EXPECT_EQ(fragment["exists"], json());
    EXPECT_EQ(fragment["usable"], true);
}

TEST_F(Paths, CheckNamesTheAskedLocationWithItsArgument)
{
    m_home.write(".local/share/V/SharedData", "a file in the way");
    Ended const ended = paths({"userEffectsPath", "x", "--check"});
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.err, cannotWriteTo("userEffectsPath(x)"));
}

// What an ordinary user may not do is found as such.
class CheckedRights : public Paths {
protected:
    Ended check(char const* name) { return run(withoutPrivileges({TOOL, "--product", m_product, "paths", name, "--check", "--plain"})); }
};

TEST_F(CheckedRights, FolderThatCanBeWrittenButNotReadIsRemarked)
{
    fs::create_directories(inHome("blind"));
    fs::permissions(inHome("blind"), fs::perms::owner_write | fs::perms::owner_exec);
    store("exportPath", inHome("blind"));
    EXPECT_EQ(check("exportPath").status, 0);
    EXPECT_EQ(check("exportPath").out,
              "exportPath\tyes\tyes\tnot readable, so names are numbered as if it were empty\t" + inHome("blind") + '\n');
    fs::permissions(inHome("blind"), fs::perms::owner_write);
    EXPECT_EQ(check("exportPath").out, "exportPath\tyes\tno\tnot writable\t" + inHome("blind") + '\n');
}

TEST_F(CheckedRights, LinkIntoAForbiddenFolderIsNotCalledDangling)
{
    fs::create_directories(inHome("forbidden/there"));
    fs::create_directory_symlink("forbidden/there", inHome("link"));
    fs::permissions(inHome("forbidden"), fs::perms::none);
    store("exportPath", inHome("link"));
    EXPECT_EQ(check("exportPath").out, "exportPath\tno\tno\tPermission denied\t" + inHome("link") + '\n');
    fs::permissions(inHome("forbidden"), fs::perms::owner_all);
}

TEST_F(CheckedRights, ShippedFileThatIsNotWritableIsTold)
{
    fs::permissions(m_home.write("R/presets-videoeditor.json", "{}"), fs::perms::owner_read);
    EXPECT_EQ(check("presetFilePath").out, "presetFilePath\tyes\tno\t\t" + inHome("R/presets-videoeditor.json\n"));
}

TEST_F(CheckedRights, HomeFolderThatIsNotWritableIsChecked)
{
    fs::permissions(m_home.path(), fs::perms::owner_read | fs::perms::owner_exec);
    Ended const ended = check("exportPath");
    fs::permissions(m_home.path(), fs::perms::owner_all);
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.out,
              "exportPath\tno\tno\tmissing, and " + m_home.path().string() + " is not writable\t" + inHome("Videos/Lumora Library") + '\n');
}

TEST_F(Paths, CheckMakesNothing)
{
    paths({"--check"});
    EXPECT_FALSE(fs::exists(inHome(".local"))) << "not even the stores";
    EXPECT_FALSE(fs::exists(inHome("Videos")));
    EXPECT_FALSE(fs::exists(inHome("Music")));
    EXPECT_FALSE(fs::exists(inHome(".cache/Lumora Video Editor")));
}

TEST_F(Paths, ExplainAndCheckExcludeEachOther) { EXPECT_EQ(paths({"--explain", "--check"}).status, 2); }

} // namespace
