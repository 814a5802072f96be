// SPDX-License-Identifier: MIT
//
// A host that brings its own functions of the platform library: the settings library calls them, not ours.
#include <Lumora/Util/ByteConversion.h>
#include <Lumora/Util/StandardPaths.h>

#include <Storage/EmptyStorage.h>
#include <support/BoundLibrary.h>

#include <functional>

namespace {

using Storage::EmptyStorage;

std::vector<QStandardPaths::StandardLocation> askedLocations;
std::vector<QString> askedLibraries;
QString standardPath;
QString libraryPath;
std::function<void()> onConversion;

} // namespace

QString Lumora::Util::GetStandardPath(QStandardPaths::StandardLocation location)
{
    askedLocations.push_back(location);
    return standardPath;
}

QString Lumora::Util::GetLumoraLibraryPath(QString name)
{
    askedLibraries.push_back(name);
    return libraryPath;
}

std::vector<unsigned char> Lumora::Util::QByteArrayToVectorByte(QByteArray const& bytes)
{
    onConversion();
    return {bytes.begin(), bytes.end()};
}

QByteArray Lumora::Util::VectorByteToQByteArray(std::vector<unsigned char> const& bytes)
{
    onConversion();
    return QByteArray(static_cast<int>(bytes.size()), 'c');
}

namespace {

class OwnPlatform : public BoundLibrary {
protected:
    void SetUp() override
    {
        askedLocations.clear();
        askedLibraries.clear();
        onConversion = [] {};
        standardPath = QStringLiteral("/Users/u/Movies");
        libraryPath = QStringLiteral("/Users/u/Library");
    }
};

TEST_F(OwnPlatform, DefaultPathIsBuiltOnTheHostsStandardPath)
{
    EXPECT_EQ(makeDefaultPath(QStandardPaths::MoviesLocation, QStringLiteral("Projects")),
              QStringLiteral("/Users/u/Movies/Lumora Video Editor/Projects"));
    EXPECT_EQ(askedLocations, std::vector{QStandardPaths::MoviesLocation});
}

TEST_F(OwnPlatform, SeparatorAtTheEndOfAStandardPathIsNotDoubled)
{
    standardPath = QStringLiteral("/m/");
    EXPECT_EQ(Settings::defaultProjectPath(), QStringLiteral("/m/Lumora Video Editor/Projects"));
    EXPECT_EQ(Settings::defaultAudioRecordPath(), QStringLiteral("/m/Lumora Video Editor/Recorded Audio"));
    EXPECT_EQ(Settings::defaultStabilizedFilePath(), QStringLiteral("/m/Lumora Video Editor/Stabilized"));
    EXPECT_EQ(Settings::defaultFastTrackContentPath(), QStringLiteral("/m/Lumora Video Editor/Preview Files"));
    EXPECT_EQ(Settings::defaultDownloadableResourcesPath(), QStringLiteral("/m/Lumora Video Editor/Media Content"));
    EXPECT_EQ(Settings::defaultNewsCenterContentPath(), QStringLiteral("/m/Lumora Video Editor/News Center"));
    EXPECT_EQ(Settings::defaultBundleShadowCachePath(), QStringLiteral("/m/Lumora Video Editor/Bundle Shadow Copy"));
    EXPECT_EQ(Settings::defaultDownloaderCachePath(), QStringLiteral("/m/Lumora Video Editor/Downloader Cache"));
    EXPECT_EQ(Settings::defaultPackInAppCachePath(), QStringLiteral("/m/Lumora Video Editor/PackInApp Cache"));
    using Paths = QStandardPaths;
    EXPECT_EQ(askedLocations,
              (std::vector{Paths::MoviesLocation, Paths::MusicLocation, Paths::MoviesLocation, Paths::MoviesLocation, Paths::MoviesLocation,
                           Paths::CacheLocation, Paths::CacheLocation, Paths::CacheLocation, Paths::CacheLocation}));
}

TEST_F(OwnPlatform, EmptyStandardPathGivesARootedPath)
{
    standardPath.clear();
    EXPECT_EQ(Settings::defaultProjectPath(), QStringLiteral("/Lumora Video Editor/Projects"));
}

TEST_F(OwnPlatform, FolderPreferenceAsksForItsStandardPathOnce)
{
    Settings::projectPath();
    Settings::audioRecordPath();
    Settings::stabilizedFilePath();
    Settings::fastTrackContentPath();
    Settings::downloadableResourcesPath();
    Settings::newsCenterContentPath();
    Settings::bundleShadowCachePath();
    Settings::downloaderCachePath();
    Settings::packInAppCachePath();
    using Paths = QStandardPaths;
    EXPECT_EQ(askedLocations,
              (std::vector{Paths::MoviesLocation, Paths::MusicLocation, Paths::MoviesLocation, Paths::MoviesLocation, Paths::MoviesLocation,
                           Paths::CacheLocation, Paths::CacheLocation, Paths::CacheLocation, Paths::CacheLocation}));
    EXPECT_TRUE(askedLibraries.empty());
}

TEST_F(OwnPlatform, StandardPathIsAskedForAlsoWhenTheFolderIsStored)
{
    Settings::setProjectPath(QStringLiteral("/p"));
    EXPECT_EQ(Settings::projectPath(), QStringLiteral("/p"));
    EXPECT_EQ(Settings::projectPath(), QStringLiteral("/p"));
    EXPECT_EQ(askedLocations, std::vector(2, QStandardPaths::MoviesLocation));
}

TEST_F(OwnPlatform, UserLibraryIsAskedByTheNameOfTheKind)
{
    for (int const kind : {1, 0, 2, -1}) {
        m_product->kind = kind;
        EXPECT_EQ(Settings::defaultLumoraLibraryPath(), QStringLiteral("/Users/u/Library"));
    }
    EXPECT_EQ(askedLibraries, (std::vector{QStringLiteral("Lumora Video Editor"), QStringLiteral("Lumora Library"),
                                           QStringLiteral("Lumora Library"), QStringLiteral("Lumora Library")}));
    EXPECT_TRUE(askedLocations.empty());
}

TEST_F(OwnPlatform, UserLibraryIsCleaned)
{
    libraryPath = QStringLiteral("/Users//u/./Library/");
    EXPECT_EQ(Settings::defaultLumoraLibraryPath(), QStringLiteral("/Users/u/Library"));
    libraryPath.clear();
    EXPECT_EQ(Settings::defaultLumoraLibraryPath(), QString());
}

TEST_F(OwnPlatform, ExportAndSnapshotFoldersAskForTheUserLibrary)
{
    m_product->kind = 1;
    EXPECT_EQ(Settings::exportPath(), QStringLiteral("/Users/u/Library"));
    EXPECT_EQ(Settings::snapshotPath(), QStringLiteral("/Users/u/Library"));
    EXPECT_EQ(askedLibraries, std::vector(2, QStringLiteral("Lumora Video Editor")));
}

// Is dropped by its only owner while it is asked.
struct DroppedStorage final : EmptyStorage {
    explicit DroppedStorage(std::shared_ptr<ISettingsStorage>& storage) : owner(storage) {}

    std::vector<unsigned char> getBytes(std::string const&, std::vector<unsigned char> const&) const override
    {
        owner.reset();
        return {1, 2};
    }

    std::shared_ptr<ISettingsStorage>& owner;
};

TEST_F(OwnPlatform, StoreIsReleasedBeforeItsBytesAreConverted)
{
    std::shared_ptr<ISettingsStorage> owner;
    owner = std::make_shared<DroppedStorage>(owner);
    std::weak_ptr<ISettingsStorage> const store = owner;
    TestKit::ScopedBinding const binding({{}, {}, store, {}});
    bool isReleased = false;
    onConversion = [&] { isReleased = store.expired(); };
    EXPECT_EQ(Settings::mainWindowState(), QByteArray("cc"));
    EXPECT_TRUE(isReleased);
}

TEST_F(OwnPlatform, BytesAreConvertedBeforeTheStoreIsLocked)
{
    auto const later = std::make_shared<TestKit::MemoryStorage>();
    onConversion = [&] { Settings::init({{}, {}, later, {}}); };
    Settings::setMainWindowState("v");
    EXPECT_EQ(later->getBytes("mainWindowState", {}), std::vector<unsigned char>{'v'});
}

TEST_F(OwnPlatform, DataRootsDoNotAskTheHost)
{
    ::setenv("XDG_DATA_HOME", "/D", 1);
    EXPECT_EQ(productDataPath(), QStringLiteral("/D/Vendor/Product"));
    EXPECT_EQ(Settings::defaultWaveformCachePath(), QStringLiteral("/D/Vendor/SharedData/Shared/Waveforms/Cache"));
    EXPECT_EQ(Settings::userIntrosPath(), QStringLiteral("/D/Vendor/SharedData/Shared/UserImports/"));
    EXPECT_EQ(Settings::userOverlaysPath(), QStringLiteral("/D/Vendor/SharedData/Shared/UserOverlays/"));
    EXPECT_EQ(Settings::userEffectsPath("fx"), QStringLiteral("/D/Vendor/SharedData/Shared/UserEffects/fx/"));
    EXPECT_EQ(Settings::userUnsplashPath(), QStringLiteral("/D/Vendor/Product/Unsplash/SavedCollection"));
    EXPECT_EQ(Settings::unsplashContentPath(), QStringLiteral("/D/Vendor/Product/Unsplash/Content"));
    EXPECT_EQ(Settings::packageDeploymentPath(), QStringLiteral("/D/Vendor/SharedData/VideoEditor/Packages/"));
    EXPECT_EQ(Settings::fastTrackConfigurationPath(), QStringLiteral("/D/Vendor/SharedData/VideoEditor/FastTrack/"));
    EXPECT_EQ(Settings::waveformConfigurationPath(), QStringLiteral("/D/Vendor/SharedData/VideoEditor/Waveforms/Configuration/"));
    EXPECT_EQ(Settings::stockPackagesStatisticsPath(), QStringLiteral("/D/Vendor/Product/StockPackagesStats/"));
    EXPECT_EQ(Settings::deployedPackagesStatisticsPath(), QStringLiteral("/D/Vendor/SharedData/VideoEditor/Packages/"));
    EXPECT_TRUE(askedLocations.empty());
    EXPECT_TRUE(askedLibraries.empty());
}

TEST_F(OwnPlatform, ResourcesDoNotAskTheHost)
{
    EXPECT_EQ(Settings::presetFilePath(), "/resources/presets-videoeditor.json");
    EXPECT_EQ(Settings::stockTitlesSvgPath(), QStringLiteral("/resources/resources/samples/stock//titles/"));
    EXPECT_EQ(stockSampleProjectsPath(), QStringLiteral("/resources/resources/samples/stock/projects"));
    EXPECT_TRUE(Settings::sampleProjectPath().isNull());
    EXPECT_EQ(Settings::notificationFile(Settings::ErrorNotification),
              QStringLiteral("/resources/resources/samples/notifications/error.wav"));
    EXPECT_EQ(Settings::portableProjectMediaPath(), QStringLiteral("/media/"));
    EXPECT_TRUE(askedLocations.empty());
    EXPECT_TRUE(askedLibraries.empty());
}

} // namespace
