// SPDX-License-Identifier: MIT
#include <support/BoundLibrary.h>
#include <support/Named.h>

#include <type_traits>

static_assert(std::is_same_v<decltype(Settings::lumoraLibrary), std::string const>, "alone among the folder names a narrow string");
static_assert(std::is_same_v<decltype(Settings::projectDirectory), QString const>);
static_assert(std::is_same_v<decltype(Settings::countDownFont), QFont const>);
static_assert(std::is_same_v<decltype(Settings::targetHistoryLength), int const>);
static_assert(std::is_same_v<decltype(Configuration::productDataFolder), QString const>);
static_assert(std::is_same_v<decltype(&makeDefaultPath), QString (*)(QStandardPaths::StandardLocation, QString)>);

namespace {

struct Name {
    char const* meaning;
    QString const& constant;
    char const* value;
};

class FolderName : public testing::TestWithParam<Name> {};

TEST_P(FolderName, IsTheAgreedWord) { EXPECT_EQ(GetParam().constant, QString::fromUtf8(GetParam().value)); }

INSTANTIATE_TEST_SUITE_P(Table, FolderName,
                         testing::Values(Name{"Product", Configuration::productDataFolder, "Lumora Video Editor"},
                                         Name{"Projects", Settings::projectDirectory, "Projects"},
                                         Name{"Recordings", Settings::audioRecordDirectory, "Recorded Audio"},
                                         Name{"Resources", Settings::resourcesDirectory, "Media Content"},
                                         Name{"Stabilized", Settings::stabilizedFileDirectory, "Stabilized"},
                                         Name{"FastTrack", Settings::fastTrackContentDirectory, "Preview Files"},
                                         Name{"Waveforms", Settings::waveformCacheDirectory, "Cache"},
                                         Name{"News", Settings::newsCenterContentDirectory, "News Center"},
                                         Name{"ShadowCopies", Settings::bundleShadowCacheDirectory, "Bundle Shadow Copy"},
                                         Name{"Downloader", Settings::downloaderCacheDirectory, "Downloader Cache"},
                                         Name{"PackInApp", Settings::packInAppCacheDirectory, "PackInApp Cache"},
                                         Name{"CountDownImage", Settings::countDownPadImage, ":/icons/Player/countdownPad.png"},
                                         Name{"PackageExtension", Settings::packageExtenstion, "mpack"},
                                         Name{"WaveformExtension", Settings::waveformExtension, "blob"}),
                         byMeaning);

TEST(FolderNames, UserLibraryIsANarrowString) { EXPECT_EQ(Settings::lumoraLibrary, "Lumora Library"); }

TEST(FolderNames, CountDownFontIsVerdanaOfSixtyPoints)
{
    EXPECT_EQ(Settings::countDownFont.family(), QStringLiteral("Verdana"));
    EXPECT_EQ(Settings::countDownFont.pointSize(), 60);
    EXPECT_EQ(Settings::countDownFont.weight(), static_cast<int>(QFont::Normal));
    EXPECT_FALSE(Settings::countDownFont.italic());
}

class Locations : public BoundLibrary {};

// --- makeDefaultPath ---

TEST_F(Locations, FolderLiesInTheProductFolderOfTheStandardLocation)
{
    EXPECT_EQ(makeDefaultPath(QStandardPaths::MoviesLocation, QStringLiteral("Some Folder")),
              inHome("Videos/Lumora Video Editor/Some Folder"));
    EXPECT_EQ(makeDefaultPath(QStandardPaths::MusicLocation, QStringLiteral("x")), inHome("Music/Lumora Video Editor/x"));
    EXPECT_EQ(calls(), Calls{}) << "the product information is not asked";
}

TEST_F(Locations, DefaultPathIsCleaned)
{
    QString const product = inHome("Videos/Lumora Video Editor");
    EXPECT_EQ(makeDefaultPath(QStandardPaths::MoviesLocation, QString()), product);
    EXPECT_EQ(makeDefaultPath(QStandardPaths::MoviesLocation, QStringLiteral("a/")), product + QStringLiteral("/a"));
    EXPECT_EQ(makeDefaultPath(QStandardPaths::MoviesLocation, QStringLiteral("/a//b")), product + QStringLiteral("/a/b"));
    EXPECT_EQ(makeDefaultPath(QStandardPaths::MoviesLocation, QStringLiteral("a/../b/.")), product + QStringLiteral("/b"));
}

// --- Product data, shared data, product name ---

TEST_F(Locations, ProductDataLiesBelowTheVendor)
{
    ::setenv("XDG_DATA_HOME", "/D", 1);
    m_product->vendor = "V";
    m_product->product = "P";
    EXPECT_EQ(productDataPath(), QStringLiteral("/D/V/P"));
    EXPECT_EQ(calls(), (Calls{"productInfo.vendorName()", "productInfo.productName()"}));
}

TEST_F(Locations, SharedDataIsAskedVendorFirst)
{
    ::setenv("XDG_DATA_HOME", "/D", 1);
    m_product->vendor = "V";
    m_product->sharedData = "S";
    EXPECT_EQ(Settings::defaultWaveformCachePath(), QStringLiteral("/D/V/SharedData/S/Waveforms/Cache"));
    EXPECT_EQ(calls(), (Calls{"productInfo.vendorName()", "productInfo.sharedDataFolderName()"}));
}

TEST_F(Locations, DataRootsKeepDoubledSeparators)
{
    ::setenv("XDG_DATA_HOME", "/D/", 1);
    m_product->vendor = "";
    m_product->sharedData = "";
    EXPECT_EQ(productDataPath(), QStringLiteral("/D///Product"));
    EXPECT_EQ(Settings::defaultWaveformCachePath(), QStringLiteral("/D///SharedData//Waveforms/Cache"));
    m_product->product = "";
    EXPECT_EQ(productDataPath(), QStringLiteral("/D///"));
}

TEST_F(Locations, DataRootsAreNotCleaned)
{
    ::setenv("XDG_DATA_HOME", "/D", 1);
    m_product->vendor = "a/../b";
    m_product->product = "./p/";
    EXPECT_EQ(productDataPath(), QStringLiteral("/D/a/../b/./p/"));
    EXPECT_EQ(Settings::defaultWaveformCachePath(), QStringLiteral("/D/a/../b/SharedData/Shared/Waveforms/Cache"));
}

TEST_F(Locations, ProductNameIsDecodedWhole)
{
    m_product->product = "\xC3\x89"
                         "dition \xF0\x9F\x8E\xAC";
    EXPECT_EQ(nonLocalizedProductName(), QString::fromUtf16(u"\u00C9dition \U0001F3AC"));
    EXPECT_EQ(calls(), (Calls{"productInfo.productName()"}));
    m_product->product = std::string("a\0b", 3);
    m_product->vendor = std::string("c\0d", 3);
    m_product->sharedData = std::string("e\0f", 3);
    EXPECT_EQ(nonLocalizedProductName(), QString::fromUtf16(u"a\0b", 3));
    ::setenv("XDG_DATA_HOME", "/D", 1);
    EXPECT_EQ(productDataPath(), QString::fromUtf16(u"/D/c\0d/a\0b", 10));
    EXPECT_EQ(Settings::defaultWaveformCachePath(), QString::fromUtf16(u"/D/c\0d/SharedData/e\0f/Waveforms/Cache", 37));
}

TEST_F(Locations, ChangedProductInformationShowsInTheNextResult)
{
    ::setenv("XDG_DATA_HOME", "/D", 1);
    EXPECT_EQ(productDataPath(), QStringLiteral("/D/Vendor/Product"));
    m_product->vendor = "Other";
    EXPECT_EQ(productDataPath(), QStringLiteral("/D/Other/Product"));
}

// --- The user library ---

TEST_F(Locations, UserLibraryIsNamedByTheKindOfProduct)
{
    for (int const kind : {0, 2, -1, 257}) {
        m_product->kind = kind;
        EXPECT_EQ(Settings::defaultLumoraLibraryPath(), inHome("Videos/Lumora Library")) << "kind " << kind;
    }
    m_product->kind = 1;
    EXPECT_EQ(Settings::defaultLumoraLibraryPath(), inHome("Videos/Lumora Video Editor"));
    EXPECT_EQ(calls(), Calls(5, "productInfo.productKind()"));
}

// --- The default folders ---

struct Default {
    char const* meaning;
    QString (*function)();
    char const* inHome;
};

class DefaultFolder : public BoundLibrary, public testing::WithParamInterface<Default> {};

TEST_P(DefaultFolder, LiesInItsStandardLocation) { EXPECT_EQ(GetParam().function(), inHome(GetParam().inHome)); }

INSTANTIATE_TEST_SUITE_P(
    Table, DefaultFolder,
    testing::Values(Default{"Projects", &Settings::defaultProjectPath, "Videos/Lumora Video Editor/Projects"},
                    Default{"Recordings", &Settings::defaultAudioRecordPath, "Music/Lumora Video Editor/Recorded Audio"},
                    Default{"Stabilized", &Settings::defaultStabilizedFilePath, "Videos/Lumora Video Editor/Stabilized"},
                    Default{"FastTrack", &Settings::defaultFastTrackContentPath, "Videos/Lumora Video Editor/Preview Files"},
                    Default{"Downloads", &Settings::defaultDownloadableResourcesPath, "Videos/Lumora Video Editor/Media Content"},
                    Default{"News", &Settings::defaultNewsCenterContentPath, ".cache/Lumora Video Editor/News Center"},
                    Default{"ShadowCopies", &Settings::defaultBundleShadowCachePath, ".cache/Lumora Video Editor/Bundle Shadow Copy"},
                    Default{"Downloader", &Settings::defaultDownloaderCachePath, ".cache/Lumora Video Editor/Downloader Cache"},
                    Default{"PackInApp", &Settings::defaultPackInAppCachePath, ".cache/Lumora Video Editor/PackInApp Cache"},
                    Default{"Waveforms", &Settings::defaultWaveformCachePath, ".local/share/Vendor/SharedData/Shared/Waveforms/Cache"}),
    byMeaning);

} // namespace
