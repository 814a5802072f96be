// SPDX-License-Identifier: MIT
#include <support/BoundLibrary.h>
#include <support/Named.h>

#include <type_traits>

static_assert(std::is_same_v<decltype(&resourceFile), std::string (*)(std::string const&)>);
static_assert(std::is_same_v<decltype(&stockSampleProjectsPath), QString (*)()>);
static_assert(std::is_same_v<decltype(&Settings::presetFilePath), std::string (*)()>, "resource files are narrow");
static_assert(std::is_same_v<decltype(&Settings::stockTitlesSvgPath), QString (*)()>, "stock folders are not");
static_assert(std::is_same_v<decltype(&Settings::stockMusicPath), QString (*)()>);

namespace {

void bindRoot(std::string const& root)
{
    SettingsContext context = s_instance;
    context.resourcesRoot = Lumora::ioPath(root);
    Settings::init(context);
}

/// `folder` as the current one, for as long as the object lives.
class CurrentFolder {
public:
    explicit CurrentFolder(std::filesystem::path const& folder) : m_earlier(std::filesystem::current_path())
    {
        std::filesystem::current_path(folder);
    }
    ~CurrentFolder() { std::filesystem::current_path(m_earlier); }
    CurrentFolder(CurrentFolder const&) = delete;
    CurrentFolder& operator=(CurrentFolder const&) = delete;

private:
    std::filesystem::path m_earlier;
};

class Resources : public BoundLibrary {
protected:
    std::string home() const { return m_home.path().string(); }
};

// --- Every resource file ---

struct File {
    char const* meaning;
    std::string (*function)();
    char const* belowRoot; // with the separator before it
};

class ResourceFile : public Resources, public testing::WithParamInterface<File> {};

TEST_P(ResourceFile, LiesBelowTheRoot)
{
    bindRoot("/R");
    EXPECT_EQ(GetParam().function(), std::string("/R") + GetParam().belowRoot);
    bindRoot("/other/place/");
    EXPECT_EQ(GetParam().function(), std::string("/other/place") + GetParam().belowRoot);
    EXPECT_EQ(calls(), Calls{});
}

TEST_P(ResourceFile, NeedsNoCollaborator)
{
    Settings::init({{}, {}, {}, Lumora::ioPath("/R")});
    EXPECT_EQ(GetParam().function(), std::string("/R") + GetParam().belowRoot);
}

TEST_P(ResourceFile, LiesBelowTheCurrentFolderWithoutARoot)
{
    CurrentFolder const current(m_home.path());
    bindRoot("");
    EXPECT_EQ(GetParam().function(), home() + GetParam().belowRoot);
}

INSTANTIATE_TEST_SUITE_P(
    Table, ResourceFile,
    testing::Values(File{"Presets", &Settings::presetFilePath, "/presets-videoeditor.json"},
                    File{"FirstTransition", &Settings::transitionPreviewImageAPath, "/resources/samples/transitionPreview1.png"},
                    File{"SecondTransition", &Settings::transitionPreviewImageBPath, "/resources/samples/transitionPreview2.png"},
                    File{"Title", &Settings::titlePreviewImagePath, "/resources/samples/titlePreview.png"},
                    File{"Callout", &Settings::calloutPreviewImagePath, "/resources/samples/calloutPreview.png"},
                    File{"Quiz", &Settings::quizPreviewImagePath, "/resources/samples/quizPreview.png"},
                    File{"Effect", &Settings::effectPreviewImagePath, "/resources/samples/effectPreview.png"},
                    File{"AudioPlayer", &Settings::audioPreviewImagePath, "/resources/samples/audioPlayerPreview.png"},
                    File{"PanAndZoom", &Settings::panZoomPreviewImagePath, "/resources/samples/panZoomPreview.png"},
                    File{"AnimationBackground", &Settings::animationBackgroundPreviewImagePath,
                         "/resources/samples/animationBackgroundPreview.png"},
                    File{"AnimationIcon", &Settings::animationIconPreviewImagePath, "/resources/samples/animationIconPreview.png"},
                    File{"ColorFilter", &Settings::colorFilterPreviewImagePath, "/resources/samples/colorFilterPreview.png"}),
    byMeaning);

// --- Every stock folder ---

struct Folder {
    char const* meaning;
    QString (*function)();
    QString belowRoot;
};

class StockFolder : public Resources, public testing::WithParamInterface<Folder> {};

TEST_P(StockFolder, IsTheRootAndTheFolderAsConcatenated)
{
    bindRoot("/R");
    EXPECT_EQ(GetParam().function(), QStringLiteral("/R") + GetParam().belowRoot);
    bindRoot("/other/place/");
    EXPECT_EQ(GetParam().function(), QStringLiteral("/other/place/") + GetParam().belowRoot);
    EXPECT_EQ(calls(), Calls{});
}

TEST_P(StockFolder, NeedsNoCollaborator)
{
    Settings::init({{}, {}, {}, Lumora::ioPath("/R")});
    EXPECT_EQ(GetParam().function(), QStringLiteral("/R") + GetParam().belowRoot);
}

TEST_P(StockFolder, StartsAtTheRootOfTheFileSystemWithoutARoot)
{
    CurrentFolder const current(m_home.path());
    bindRoot("");
    EXPECT_EQ(GetParam().function(), GetParam().belowRoot);
}

INSTANTIATE_TEST_SUITE_P(
    Table, StockFolder,
    testing::Values(
        Folder{"Titles", &Settings::stockTitlesSvgPath, QStringLiteral("/resources/samples/stock//titles/")},
        Folder{"Callouts", &Settings::stockCalloutsSvgPath, QStringLiteral("/resources/samples/stock//callouts/")},
        Folder{"Stickers", &Settings::stockStickersSvgPath, QStringLiteral("/resources/samples/stock//stickers/")},
        Folder{"Imports", &Settings::stockImportsPath, QStringLiteral("/resources/samples/stock//imports/")},
        Folder{"AudioEffects", &Settings::stockAudioEffectsPath, QStringLiteral("/resources/samples/stock//audioEffects/")},
        Folder{"VideoEffects", &Settings::stockVideoEffectsPath, QStringLiteral("/resources/samples/stock//videoEffects/")},
        Folder{"PipEffects", &Settings::stockPipEffectsPath, QStringLiteral("/resources/samples/stock//pipEffects/")},
        Folder{"ColorFilters", &Settings::stockColorFiltersPath, QStringLiteral("/resources/samples/stock//colorFilters/")},
        Folder{"Transitions", &Settings::stockTransitionsPath, QStringLiteral("/resources/samples/stock//transitions/")},
        Folder{"Animations", &Settings::stockAnimationsPath, QStringLiteral("/resources/samples/stock//animations/")},
        Folder{"PanAndZoom", &Settings::stockPanAndZoomPath, QStringLiteral("/resources/samples/stock//panandzoom/")},
        Folder{"ContentPackages", &Settings::stockContentPackagesPath, QStringLiteral("/resources/samples/stock//packages/Content/")},
        Folder{"ServicePackages", &Settings::stockServicePackagesPath, QStringLiteral("/resources/samples/stock//packages/Service/")},
        Folder{"WizardPackages", &Settings::stockWizardPackagesPath, QStringLiteral("/resources/samples/stock//packages/Wizard/")},
        Folder{"Themes", &Settings::stockThemesPath, QStringLiteral("/resources/samples/stock//themes/")},
        Folder{"WizardBackgrounds", &Settings::stockWizardBackgroundsPath, QStringLiteral("/resources/samples/stock//wizardBackgrounds/")},
        Folder{"BlurMasks", &Settings::blurMasksPath, QStringLiteral("/resources/samples/stock//blurMasks/")},
        Folder{"FlyingObjects", &Settings::flyingObjectsPath, QStringLiteral("/resources/samples/stock//flyingObjects/")},
        // The only one without a doubled separator and without one at its end.
        Folder{"SampleProjects", &stockSampleProjectsPath, QStringLiteral("/resources/samples/stock/projects")}),
    byMeaning);

// --- Every fragment ---

struct Fragment {
    char const* meaning;
    QString (*function)();
    QString text;
};

class StockFragment : public Resources, public testing::WithParamInterface<Fragment> {};

TEST_P(StockFragment, IsTheSameWhateverTheBinding)
{
    bindRoot("/R");
    EXPECT_EQ(GetParam().function(), GetParam().text);
    EXPECT_EQ(calls(), Calls{});
    Settings::init({});
    EXPECT_EQ(GetParam().function(), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Table, StockFragment,
                         testing::Values(Fragment{"Music", &Settings::stockMusicPath, QStringLiteral("/Music Library/")},
                                         Fragment{"Audio", &Settings::stockAudioPath, QStringLiteral("/Audio/")},
                                         Fragment{"Video", &Settings::stockVideoPath, QStringLiteral("/Video/")},
                                         Fragment{"Backgrounds", &Settings::stockBackgroundsPath, QStringLiteral("/Backgrounds/")}),
                         byMeaning);

// --- Roots of every kind ---

struct Root {
    char const* meaning;
    std::string root;
    std::string presetFile;
    QString titles;
    QString sampleProjects;
};

class ResourcesRoot : public Resources, public testing::WithParamInterface<Root> {};

TEST_P(ResourcesRoot, IsTakenAsItIsByEachForm)
{
    bindRoot(GetParam().root);
    EXPECT_EQ(Settings::presetFilePath(), GetParam().presetFile);
    EXPECT_EQ(Settings::stockTitlesSvgPath(), GetParam().titles);
    EXPECT_EQ(stockSampleProjectsPath(), GetParam().sampleProjects);
    EXPECT_EQ(s_instance.resourcesRoot.utf8string(), GetParam().root) << "the root of the binding is not touched";
}

INSTANTIATE_TEST_SUITE_P(
    Table, ResourcesRoot,
    testing::Values(
        Root{"SeparatorAtTheEnd", "/R/", "/R/presets-videoeditor.json", QStringLiteral("/R//resources/samples/stock//titles/"),
             QStringLiteral("/R//resources/samples/stock/projects")},
        Root{"SeparatorsAtTheEnd", "/R//", "/R//presets-videoeditor.json", QStringLiteral("/R///resources/samples/stock//titles/"),
             QStringLiteral("/R///resources/samples/stock/projects")},
        Root{"DoubledSeparators", "//a//R", "//a//R/presets-videoeditor.json", QStringLiteral("//a//R/resources/samples/stock//titles/"),
             QStringLiteral("//a//R/resources/samples/stock/projects")},
        Root{"RootOfTheFileSystem", "/", "/presets-videoeditor.json", QStringLiteral("//resources/samples/stock//titles/"),
             QStringLiteral("//resources/samples/stock/projects")},
        Root{"FolderAbove", "/a/../R/.", "/a/../R/./presets-videoeditor.json", QStringLiteral("/a/../R/./resources/samples/stock//titles/"),
             QStringLiteral("/a/../R/./resources/samples/stock/projects")},
        Root{"Backslashes", "/R\\a\\", "/R\\a\\/presets-videoeditor.json", QStringLiteral("/R\\a\\/resources/samples/stock//titles/"),
             QStringLiteral("/R\\a\\/resources/samples/stock/projects")},
        Root{"BlanksAndPlaceholders", "/ R %1 ", "/ R %1 /presets-videoeditor.json",
             QStringLiteral("/ R %1 /resources/samples/stock//titles/"), QStringLiteral("/ R %1 /resources/samples/stock/projects")},
        Root{"NotAscii",
             "/gr\xC3\xBC\xC3\x9F"
             "e \xF0\x9F\x8E\xAC",
             "/gr\xC3\xBC\xC3\x9F"
             "e \xF0\x9F\x8E\xAC/presets-videoeditor.json",
             QStringLiteral("/gr\u00FC\u00DFe \U0001F3AC/resources/samples/stock//titles/"),
             QStringLiteral("/gr\u00FC\u00DFe \U0001F3AC/resources/samples/stock/projects")},
        // Bytes pass through a narrow path; text needs a character, which is the replacement character.
        Root{"NotUtf8", "/R\xFFz", "/R\xFFz/presets-videoeditor.json", QStringLiteral("/R\uFFFDz/resources/samples/stock//titles/"),
             QStringLiteral("/R\uFFFDz/resources/samples/stock/projects")},
        // Counted whole where paths are joined, up to the NUL where text is concatenated.
        Root{"EmbeddedNul", std::string("/R\0z", 4), std::string("/R\0z/presets-videoeditor.json", 29),
             QStringLiteral("/R/resources/samples/stock//titles/"), QStringLiteral("/R/resources/samples/stock/projects")},
        Root{"SeveralNuls", std::string("/R\0\0y\0z/", 8), std::string("/R\0\0y\0z/presets-videoeditor.json", 32),
             QStringLiteral("/R/resources/samples/stock//titles/"), QStringLiteral("/R/resources/samples/stock/projects")}),
    byMeaning);

TEST_F(Resources, RelativeRootStartsAtTheCurrentFolderForFilesOnly)
{
    CurrentFolder const current(m_home.path());
    bindRoot("r/../s");
    EXPECT_EQ(Settings::presetFilePath(), home() + "/r/../s/presets-videoeditor.json");
    EXPECT_EQ(Settings::stockTitlesSvgPath(), QStringLiteral("r/../s/resources/samples/stock//titles/"));
    EXPECT_EQ(stockSampleProjectsPath(), QStringLiteral("r/../s/resources/samples/stock/projects"));
    bindRoot("..");
    EXPECT_EQ(Settings::presetFilePath(), home() + "/../presets-videoeditor.json");
    EXPECT_EQ(Settings::stockTitlesSvgPath(), QStringLiteral("../resources/samples/stock//titles/"));
}

TEST_F(Resources, RelativeRootFollowsTheCurrentFolder)
{
    std::filesystem::create_directory(m_home.path() / "other");
    CurrentFolder const current(m_home.path());
    bindRoot("r");
    EXPECT_EQ(resourceFile("x"), home() + "/r/x");
    std::filesystem::current_path(m_home.path() / "other");
    EXPECT_EQ(resourceFile("x"), home() + "/other/r/x");
}

TEST_F(Resources, OnlyARelativeFileNeedsACurrentFolder)
{
    std::filesystem::create_directory(m_home.path() / "removed");
    CurrentFolder const current(m_home.path() / "removed");
    std::filesystem::remove(m_home.path() / "removed");
    bindRoot("/R");
    EXPECT_EQ(resourceFile("x"), "/R/x");
    bindRoot("r");
    EXPECT_EQ(resourceFile("/x"), "/x");
    EXPECT_EQ(stockSampleProjectsPath(), QStringLiteral("r/resources/samples/stock/projects"));
    EXPECT_THROW(resourceFile("x"), std::filesystem::filesystem_error);
}

TEST_F(Resources, RootThatStartsWithANulIsEmptyForFolders)
{
    CurrentFolder const current(m_home.path());
    bindRoot(std::string("\0/R", 3));
    EXPECT_EQ(Settings::presetFilePath(), home() + std::string("/\0/R/presets-videoeditor.json", 29));
    EXPECT_EQ(Settings::stockTitlesSvgPath(), QStringLiteral("/resources/samples/stock//titles/"));
}

TEST_F(Resources, SymbolicLinksAreNotResolved)
{
    std::filesystem::create_directories(m_home.path() / "real/resources");
    std::filesystem::create_symlink("real", m_home.path() / "link");
    bindRoot(home() + "/link");
    EXPECT_EQ(resourceFile("resources/.."), home() + "/link/resources/..");
    EXPECT_EQ(stockSampleProjectsPath(), inHome("link/resources/samples/stock/projects"));
}

TEST_F(Resources, NothingIsLookedForOrCreated)
{
    bindRoot(home());
    EXPECT_EQ(Settings::presetFilePath(), home() + "/presets-videoeditor.json");
    EXPECT_EQ(Settings::stockTitlesSvgPath(), inHome("resources/samples/stock//titles/"));
    EXPECT_FALSE(std::filesystem::exists(m_home.path() / "resources"));
    EXPECT_FALSE(std::filesystem::exists(m_home.path() / "presets-videoeditor.json"));
}

TEST_F(Resources, LaterBindingMovesEverything)
{
    bindRoot("/first");
    EXPECT_EQ(resourceFile("x"), "/first/x");
    EXPECT_EQ(Settings::blurMasksPath(), QStringLiteral("/first/resources/samples/stock//blurMasks/"));
    bindRoot("/second");
    EXPECT_EQ(resourceFile("x"), "/second/x");
    EXPECT_EQ(Settings::blurMasksPath(), QStringLiteral("/second/resources/samples/stock//blurMasks/"));
    EXPECT_EQ(stockSampleProjectsPath(), QStringLiteral("/second/resources/samples/stock/projects"));
}

// --- resourceFile ---

struct Relative {
    char const* meaning;
    std::string root;
    std::string relative;
    std::string file;
};

class RelativePath : public Resources, public testing::WithParamInterface<Relative> {};

TEST_P(RelativePath, IsJoinedToTheRoot)
{
    bindRoot(GetParam().root);
    std::string const relative = GetParam().relative;
    EXPECT_EQ(resourceFile(relative), GetParam().file);
    EXPECT_EQ(relative, GetParam().relative);
    EXPECT_EQ(s_instance.resourcesRoot.utf8string(), GetParam().root) << "the root of the binding is not touched";
    EXPECT_EQ(calls(), Calls{});
}

INSTANTIATE_TEST_SUITE_P(Table, RelativePath,
                         testing::Values(Relative{"Plain", "/R", "a/b.png", "/R/a/b.png"},
                                         Relative{"AsLongAsARootWithASeparator", "/R/", "a/b.png", "/R/a/b.png"},
                                         Relative{"Absolute", "/R", "/a/b.png", "/a/b.png"},
                                         Relative{"AbsoluteBelowARelativeRoot", "R", "/a", "/a"},
                                         Relative{"AbsoluteWithoutARoot", "", "/a", "/a"},
                                         // The root then names a folder, and says so.
                                         Relative{"Empty", "/R", "", "/R/"}, Relative{"EmptyBelowASeparator", "/R/", "", "/R/"},
                                         Relative{"FolderAbove", "/R", "../a/./b/..", "/R/../a/./b/.."},
                                         Relative{"Separators", "/R", "a//b/", "/R/a//b/"}, Relative{"Backslash", "/R", "a\\b", "/R/a\\b"},
                                         Relative{"Placeholder", "/R", "%1 %2", "/R/%1 %2"},
                                         Relative{"NotAscii", "/R", "\xC3\xBC\xF0\x9F\x8E\xAC", "/R/\xC3\xBC\xF0\x9F\x8E\xAC"},
                                         Relative{"NotUtf8", "/R", "\xFF\xC3", "/R/\xFF\xC3"},
                                         Relative{"EmbeddedNul", "/R", std::string("a\0b", 3), std::string("/R/a\0b", 6)}),
                         byMeaning);

TEST_F(Resources, EmptyPathsGiveTheCurrentFolder)
{
    CurrentFolder const current(m_home.path());
    bindRoot("");
    EXPECT_EQ(resourceFile(""), home() + "/");
    EXPECT_EQ(resourceFile("a"), home() + "/a");
}

} // namespace
