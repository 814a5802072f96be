// SPDX-License-Identifier: MIT
#include <Inspection/Locations.h>

#include <Host/ToolApplication.h>
#include <TestKit/TemporaryHome.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

namespace fs = std::filesystem;
using Catalogue::Use;
using Inspection::LocationState;
using Inspection::PathReason;
using Inspection::PathStatus;

namespace {

// The library bound to vendor V, product P, shared data S, and resources in the folder R of the home folder.
class Locations : public testing::Test {
protected:
    std::string expanded(std::string const& text) const { return text[0] == '~' ? m_home.path().string() + text.substr(1) : text; }
    std::string inHome(char const* relative) const { return (m_home.path() / relative).string(); }

    static LocationState location(char const* name, char const* argument = "")
    {
        return Inspection::locationState(*Catalogue::findLocation(name), argument);
    }
    static LocationState preference(char const* name) { return Inspection::locationState(*Catalogue::findPreference(name)); }

    static PathStatus status(LocationState const& state) { return state.status(); }

    TestKit::TemporaryHome m_home;
    Host::ToolApplication m_application{
        m_home.write("product.json", R"({"vendorName": "V", "productName": "P", "sharedDataFolderName": "S", "productKind": 0,)"
                                     R"( "projectFileExtensions": ["ext1", "ext2"], "resourcesRoot": "R"})")};
};

TEST_F(Locations, AreAllListedSorted)
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
    for (auto const& [label, path] : expected)
        wanted.push_back(std::string(label) + '\t' + expanded(path));
    std::vector<std::string> found;
    for (LocationState const& state : Inspection::locationStates())
        found.push_back(state.label() + '\t' + state.path.toStdString());
    EXPECT_EQ(found, wanted);
}

TEST_F(Locations, NamesAreSortedAndWithoutRepetition)
{
    std::vector<std::string> const names = Inspection::locationNames();
    EXPECT_EQ(names.size(), 74u);
    EXPECT_TRUE(std::is_sorted(names.begin(), names.end()));
    EXPECT_EQ(std::count(names.begin(), names.end(), "notificationFile"), 1);
    EXPECT_EQ(std::count(names.begin(), names.end(), "exportPath"), 1);
}

TEST_F(Locations, ArgumentIsPassedAndKeptAsItIs)
{
    EXPECT_EQ(location("userEffectsPath", "My:Effect?").path.toStdString(), inHome(".local/share/V/SharedData/S/UserEffects/My_Effect_/"));
    EXPECT_EQ(location("userEffectsPath", "a\nb").label(), "userEffectsPath(a\nb)");
    EXPECT_EQ(location("notificationFile", "error").path.toStdString(), inHome("R/resources/samples/notifications/error.wav"));
}

TEST_F(Locations, MissingSampleIsNullAndAFoundOneIsNot)
{
    EXPECT_TRUE(location("sampleProjectPath").path.isNull());
    EXPECT_EQ(remark(status(location("sampleProjectPath"))), "none found");
    m_home.write("R/resources/samples/stock/projects/a/sample.EXT2", "");
    EXPECT_EQ(location("sampleProjectPath").path.toStdString(), inHome("R/resources/samples/stock/projects/a/sample.EXT2"));
}

TEST_F(Locations, FolderPreferenceIsWrittenAndKnowsItsDefault)
{
    LocationState const state = preference("exportPath");
    EXPECT_EQ(state.use, Use::written);
    EXPECT_STREQ(state.location->name, "defaultLumoraLibraryPath");
    EXPECT_STREQ(state.preference->name, "exportPath");
    EXPECT_EQ(location("defaultLumoraLibraryPath").preference, nullptr);
}

TEST_F(Locations, StatusIsAskedAsTheUseNeedsIt)
{
    m_home.write("R/presets-videoeditor.json", "{}");
    EXPECT_EQ(status(location("presetFilePath")).reason, PathReason::none) << "a file is what the editor reads there";
    EXPECT_TRUE(status(location("presetFilePath")).exists);
    EXPECT_EQ(status(location("titlePreviewImagePath")).reason, PathReason::missing);
    EXPECT_EQ(status(location("userIntrosPath")).reason, PathReason::canBeMade);
    m_home.write("Videos", "a file in the way");
    EXPECT_EQ(status(location("defaultLumoraLibraryPath")).reason, PathReason::missing) << "a default need not be in use";
    EXPECT_TRUE(status(location("defaultLumoraLibraryPath")).isUsable);
    EXPECT_EQ(status(preference("exportPath")).reason, PathReason::notAFolder);
    EXPECT_FALSE(status(preference("exportPath")).isUsable);
}

TEST_F(Locations, FragmentsAndEmbeddedFilesAreNotOnDisk)
{
    EXPECT_FALSE(location("stockMusicPath").isOnDisk());
    EXPECT_EQ(remark(status(location("stockMusicPath"))), "joined to a folder by the editor");
    EXPECT_FALSE(location("countDownImagePath").isOnDisk());
    EXPECT_EQ(remark(status(location("countDownImagePath"))), "inside the editor's program");
    EXPECT_TRUE(location("presetFilePath").isOnDisk());
    EXPECT_TRUE(location("defaultProjectPath").isOnDisk());
    EXPECT_TRUE(location("productDataPath").isOnDisk());
}

TEST_F(Locations, FoldersToWriteLeaveExamplesAndReadFilesOut)
{
    std::vector<std::string> labels;
    for (Inspection::WrittenFolder const& folder : Inspection::foldersToWrite())
        labels.push_back(folder.label);
    EXPECT_EQ(std::count(labels.begin(), labels.end(), "exportPath"), 1);
    EXPECT_EQ(std::count(labels.begin(), labels.end(), "productDataPath"), 1);
    EXPECT_EQ(std::count(labels.begin(), labels.end(), "userEffectsPath(NAME)"), 0);
    EXPECT_EQ(std::count(labels.begin(), labels.end(), "presetFilePath"), 0);
    EXPECT_EQ(std::count(labels.begin(), labels.end(), "defaultLumoraLibraryPath"), 0);
}

} // namespace
