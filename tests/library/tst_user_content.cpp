// SPDX-License-Identifier: MIT
#include <support/BoundLibrary.h>
#include <support/Named.h>

#include <stdexcept>
#include <type_traits>

static_assert(std::is_same_v<decltype(&Settings::userEffectsPath), QString (*)(std::string const&)>);
static_assert(std::is_same_v<decltype(&Settings::notificationFile), QString (*)(Settings::Notifications)>);
static_assert(std::is_same_v<decltype(&Settings::countDownImagePath), QString (*)()>);
static_assert(std::is_same_v<decltype(&Settings::countFiguresDownFont), QFont (*)()>);
static_assert(std::is_same_v<decltype(&Settings::portableProjectMediaPath), QString (*)()>);
static_assert(Settings::FinishNotification == 0 && Settings::ErrorNotification == 1);
static_assert(std::is_convertible_v<Settings::Notifications, int>, "not a scoped enumeration");

namespace {

class UserContent : public BoundLibrary {
protected:
    void setNames(char const* dataHome, std::string const& vendor, std::string const& product, std::string const& sharedData)
    {
        ::setenv("XDG_DATA_HOME", dataHome, 1);
        m_product->vendor = vendor;
        m_product->product = product;
        m_product->sharedData = sharedData;
    }
};

// --- Every folder ---

QString effectsOfFx() { return Settings::userEffectsPath("fx"); }

Calls const forSharedData{"productInfo.vendorName()", "productInfo.sharedDataFolderName()"};
Calls const forProductData{"productInfo.vendorName()", "productInfo.productName()"};
Calls const forVendor{"productInfo.vendorName()"};

struct Folder {
    char const* meaning;
    QString (*function)();
    QString plain;     // data home "/D", vendor "V", product "P", shared data "S"
    QString uncleaned; // data home "/D/", vendor "a/../b", product "./p/", shared data "s//"
    QString nameless;  // data home "/D" and no names
    Calls calls;
};

class UserFolder : public UserContent, public testing::WithParamInterface<Folder> {};

TEST_P(UserFolder, LiesBelowTheVendor)
{
    setNames("/D", "V", "P", "S");
    EXPECT_EQ(GetParam().function(), GetParam().plain);
    EXPECT_EQ(calls(), GetParam().calls);
}

TEST_P(UserFolder, IsAsConcatenatedOrCleaned)
{
    setNames("/D/", "a/../b", "./p/", "s//");
    EXPECT_EQ(GetParam().function(), GetParam().uncleaned);
}

TEST_P(UserFolder, LeavesOutEmptyNames)
{
    setNames("/D", "", "", "");
    EXPECT_EQ(GetParam().function(), GetParam().nameless);
}

TEST_P(UserFolder, FollowsTheProductInformationAtEachCall)
{
    setNames("/D", "first", "first", "first");
    GetParam().function();
    setNames("/D", "V", "P", "S");
    EXPECT_EQ(GetParam().function(), GetParam().plain);
}

TEST_P(UserFolder, IsNotCreated)
{
    GetParam().function();
    EXPECT_FALSE(std::filesystem::exists(m_home.path() / ".local"));
}

// Each answer changes the data location or a text of the caller.
struct ChangingProductInfo final : IProductInfo {
    explicit ChangingProductInfo(std::string& text) : m_text(text) {}

    std::string vendorName() const override
    {
        ::setenv("XDG_DATA_HOME", "/later", 1);
        return "V";
    }
    std::string productName() const override
    {
        ::setenv("XDG_DATA_HOME", "/latest", 1);
        return "P";
    }
    std::string sharedDataFolderName() const override
    {
        m_text = "changed";
        return "S";
    }
    int productKind() const override { return 0; }
    std::string projectFileExtensions() const override { return {}; }

private:
    std::string& m_text;
};

TEST_P(UserFolder, AsksForTheDataLocationBeforeTheNames)
{
    std::string text;
    auto const product = std::make_shared<ChangingProductInfo>(text);
    TestKit::ScopedBinding const binding({product, m_common, m_productStore, {}});
    ::setenv("XDG_DATA_HOME", "/D", 1);
    EXPECT_EQ(GetParam().function(), GetParam().plain);
}

TEST_P(UserFolder, LetsTheFirstFailurePass)
{
    struct Throwing final : IProductInfo {
        std::string vendorName() const override { throw std::runtime_error("vendorName"); }
        std::string productName() const override { throw std::runtime_error("productName"); }
        std::string sharedDataFolderName() const override { throw std::runtime_error("sharedDataFolderName"); }
        int productKind() const override { return 0; }
        std::string projectFileExtensions() const override { return {}; }
    };
    auto const product = std::make_shared<Throwing>();
    TestKit::ScopedBinding const binding({product, m_common, m_productStore, {}});
    std::string message;
    try {
        GetParam().function();
    } catch (std::runtime_error const& error) {
        message = error.what();
    }
    EXPECT_EQ(message, "vendorName");
}

INSTANTIATE_TEST_SUITE_P(
    Table, UserFolder,
    testing::Values(
        Folder{"ProductData", &productDataPath, QStringLiteral("/D/V/P"), QStringLiteral("/D//a/../b/./p/"), QStringLiteral("/D//"),
               forProductData},
        Folder{"WaveformCache", &Settings::defaultWaveformCachePath, QStringLiteral("/D/V/SharedData/S/Waveforms/Cache"),
               QStringLiteral("/D//a/../b/SharedData/s///Waveforms/Cache"), QStringLiteral("/D//SharedData//Waveforms/Cache"),
               forSharedData},
        Folder{"Intros", &Settings::userIntrosPath, QStringLiteral("/D/V/SharedData/S/UserImports/"),
               QStringLiteral("/D//a/../b/SharedData/s///UserImports/"), QStringLiteral("/D//SharedData//UserImports/"), forSharedData},
        Folder{"Overlays", &Settings::userOverlaysPath, QStringLiteral("/D/V/SharedData/S/UserOverlays/"),
               QStringLiteral("/D//a/../b/SharedData/s///UserOverlays/"), QStringLiteral("/D//SharedData//UserOverlays/"), forSharedData},
        Folder{"Effects", &effectsOfFx, QStringLiteral("/D/V/SharedData/S/UserEffects/fx/"),
               QStringLiteral("/D//a/../b/SharedData/s///UserEffects/fx/"), QStringLiteral("/D//SharedData//UserEffects/fx/"),
               forSharedData},
        Folder{"SavedPhotos", &Settings::userUnsplashPath, QStringLiteral("/D/V/P/Unsplash/SavedCollection"),
               QStringLiteral("/D/b/p/Unsplash/SavedCollection"), QStringLiteral("/D/Unsplash/SavedCollection"), forProductData},
        Folder{"DownloadedPhotos", &Settings::unsplashContentPath, QStringLiteral("/D/V/P/Unsplash/Content"),
               QStringLiteral("/D/b/p/Unsplash/Content"), QStringLiteral("/D/Unsplash/Content"), forProductData},
        Folder{"Packages", &Settings::packageDeploymentPath, QStringLiteral("/D/V/SharedData/VideoEditor/Packages/"),
               QStringLiteral("/D//a/../b/SharedData/VideoEditor/Packages/"), QStringLiteral("/D//SharedData/VideoEditor/Packages/"),
               forVendor},
        Folder{"FastTrack", &Settings::fastTrackConfigurationPath, QStringLiteral("/D/V/SharedData/VideoEditor/FastTrack/"),
               QStringLiteral("/D//a/../b/SharedData/VideoEditor/FastTrack/"), QStringLiteral("/D//SharedData/VideoEditor/FastTrack/"),
               forVendor},
        Folder{"Waveforms", &Settings::waveformConfigurationPath, QStringLiteral("/D/V/SharedData/VideoEditor/Waveforms/Configuration/"),
               QStringLiteral("/D//a/../b/SharedData/VideoEditor/Waveforms/Configuration/"),
               QStringLiteral("/D//SharedData/VideoEditor/Waveforms/Configuration/"), forVendor},
        Folder{"StatisticsOfStockPackages", &Settings::stockPackagesStatisticsPath, QStringLiteral("/D/V/P/StockPackagesStats/"),
               QStringLiteral("/D//a/../b/./p//StockPackagesStats/"), QStringLiteral("/D///StockPackagesStats/"), forProductData},
        // Where the packages lie.
        Folder{"StatisticsOfDeployedPackages", &Settings::deployedPackagesStatisticsPath,
               QStringLiteral("/D/V/SharedData/VideoEditor/Packages/"), QStringLiteral("/D//a/../b/SharedData/VideoEditor/Packages/"),
               QStringLiteral("/D//SharedData/VideoEditor/Packages/"), forVendor}),
    byMeaning);

TEST_F(UserContent, NamesAreDecodedWhole)
{
    setNames("/D", std::string("V\0\xC3\xBC", 4), std::string("P\0\xC3\xBC", 4), std::string("S\0\xC3\xBC", 4));
    EXPECT_EQ(Settings::userOverlaysPath(), QStringLiteral("/D/V\0\u00FC/SharedData/S\0\u00FC/UserOverlays/"));
    EXPECT_EQ(Settings::packageDeploymentPath(), QStringLiteral("/D/V\0\u00FC/SharedData/VideoEditor/Packages/"));
    EXPECT_EQ(Settings::stockPackagesStatisticsPath(), QStringLiteral("/D/V\0\u00FC/P\0\u00FC/StockPackagesStats/"));
    EXPECT_EQ(Settings::unsplashContentPath(), QStringLiteral("/D/V\0\u00FC/P\0\u00FC/Unsplash/Content"));
}

TEST_F(UserContent, NamesThatAreNotUtf8HaveReplacementCharacters)
{
    setNames("/D", "V\xFF", "P\xFF", "S\xFF");
    EXPECT_EQ(Settings::userOverlaysPath(), QStringLiteral("/D/V\uFFFD/SharedData/S\uFFFD/UserOverlays/"));
    EXPECT_EQ(Settings::fastTrackConfigurationPath(), QStringLiteral("/D/V\uFFFD/SharedData/VideoEditor/FastTrack/"));
    EXPECT_EQ(Settings::userUnsplashPath(), QStringLiteral("/D/V\uFFFD/P\uFFFD/Unsplash/SavedCollection"));
}

TEST_F(UserContent, DataLocationIsLookedUpAtEachCall)
{
    EXPECT_EQ(Settings::userIntrosPath(), inHome(".local/share/Vendor/SharedData/Shared/UserImports/"));
    ::setenv("XDG_DATA_HOME", "/D", 1);
    EXPECT_EQ(Settings::userIntrosPath(), QStringLiteral("/D/Vendor/SharedData/Shared/UserImports/"));
}

// --- Names of effects ---

struct Effect {
    char const* meaning;
    std::string name;
    QString folder; // the last part of the path
};

class EffectName : public UserContent, public testing::WithParamInterface<Effect> {};

TEST_P(EffectName, HasSevenCharactersReplaced)
{
    setNames("/D", "V", "P", "S");
    std::string const name = GetParam().name;
    EXPECT_EQ(Settings::userEffectsPath(name), QStringLiteral("/D/V/SharedData/S/UserEffects/") + GetParam().folder);
    EXPECT_EQ(name, GetParam().name);
    EXPECT_EQ(calls(), forSharedData);
}

INSTANTIATE_TEST_SUITE_P(
    Table, EffectName,
    testing::Values(Effect{"Plain", "My Effect-1.2", QStringLiteral("My Effect-1.2/")}, Effect{"Slash", "a/b", QStringLiteral("a_b/")},
                    Effect{"Colon", "a:b", QStringLiteral("a_b/")}, Effect{"QuestionMark", "a?b", QStringLiteral("a_b/")},
                    Effect{"QuotationMark", "a\"b", QStringLiteral("a_b/")}, Effect{"Less", "a<b", QStringLiteral("a_b/")},
                    Effect{"Greater", "a>b", QStringLiteral("a_b/")}, Effect{"Bar", "a|b", QStringLiteral("a_b/")},
                    Effect{"ColonAndQuestionMark", "My:Effect?", QStringLiteral("My_Effect_/")},
                    Effect{"SlashAndColon", "a/b:c", QStringLiteral("a_b_c/")}, Effect{"OneForEach", "a//b", QStringLiteral("a__b/")},
                    Effect{"NothingElse", "/:?\"<>|", QStringLiteral("_______/")}, Effect{"AtBothEnds", "/fx/", QStringLiteral("_fx_/")},
                    // Let through, though some file systems refuse them.
                    Effect{"Backslash", "a\\b\\/", QStringLiteral("a\\b\\_/")}, Effect{"Asterisk", "a*b", QStringLiteral("a*b/")},
                    Effect{"ControlCharacters", "a\x01\t\r\n\x1F\x7F", QStringLiteral("a\u0001\t\r\n\u001F\u007F/")},
                    Effect{"Brackets", "[a](b){c}^$.+", QStringLiteral("[a](b){c}^$.+/")},
                    Effect{"Placeholder", "%1%2", QStringLiteral("%1%2/")}, Effect{"Underscores", "a__b", QStringLiteral("a__b/")},
                    Effect{"Blanks", " a ", QStringLiteral(" a /")}, Effect{"FolderAbove", "..", QStringLiteral("../")},
                    Effect{"SlashAfterAFolderAbove", "../x", QStringLiteral(".._x/")}, Effect{"Empty", "", QStringLiteral("/")},
                    Effect{"NotAscii",
                           "\xC3\xA9"
                           "dition:\xE2\x82\xAC \xF0\x9F\x8E\xAC",
                           QStringLiteral("\u00E9dition_\u20AC \U0001F3AC/")},
                    // Look like the colon, the slash and the question mark, and are others.
                    Effect{"Lookalikes", "\xEF\xBC\x9A\xE2\x88\x95\xEF\xBC\x9F", QStringLiteral("\uFF1A\u2215\uFF1F/")},
                    Effect{"NotUtf8", "a\xFFz:", QStringLiteral("a\uFFFDz_/")},
                    // An overlong slash is not UTF-8, so it gets through as no slash.
                    Effect{"OverlongSlash", "a\xC0\xAFz", QStringLiteral("a\uFFFD\uFFFDz/")},
                    Effect{"EmbeddedNul", std::string("a\0b:c", 5), QStringLiteral("a\0b_c/")},
                    // Qt takes three bytes at the start for a mark of the encoding.
                    Effect{"ByteOrderMark",
                           "\xEF\xBB\xBF"
                           "fx",
                           QStringLiteral("fx/")}),
    byMeaning);

TEST_F(UserContent, NameOfAnEffectIsReadAfterItsFolder)
{
    std::string name = "first";
    auto const product = std::make_shared<ChangingProductInfo>(name);
    TestKit::ScopedBinding const binding({product, m_common, m_productStore, {}});
    ::setenv("XDG_DATA_HOME", "/D", 1);
    EXPECT_EQ(Settings::userEffectsPath(name), QStringLiteral("/D/V/SharedData/S/UserEffects/changed/"));
}

TEST_F(UserContent, LongNameOfAnEffectIsNotCut)
{
    ::setenv("XDG_DATA_HOME", "/D", 1);
    EXPECT_EQ(Settings::userEffectsPath(std::string(5000, ':')),
              QStringLiteral("/D/Vendor/SharedData/Shared/UserEffects/") + QString(5000, QLatin1Char('_')) + QStringLiteral("/"));
}

// --- Notifications ---

struct Sound {
    char const* meaning;
    int kind;
    QString file; // below the root
};

class Notification : public UserContent, public testing::WithParamInterface<Sound> {
protected:
    static QString below(char const* root)
    {
        Settings::init({{}, {}, {}, Lumora::ioPath(root)});
        return Settings::notificationFile(static_cast<Settings::Notifications>(GetParam().kind));
    }
};

TEST_P(Notification, LiesBelowTheRootAndNeedsNoCollaborator)
{
    EXPECT_EQ(below("/R"), QStringLiteral("/R") + GetParam().file);
    EXPECT_EQ(below("/R/"), QStringLiteral("/R/") + GetParam().file);
    EXPECT_EQ(below("../r\xC3\xBC"), QStringLiteral("../r\u00FC") + GetParam().file);
    EXPECT_EQ(below("/R\xFF"), QStringLiteral("/R\uFFFD") + GetParam().file);
}

TEST_P(Notification, StartsAtTheRootOfTheFileSystemWithoutARoot) { EXPECT_EQ(below(""), GetParam().file); }

TEST_P(Notification, TakesTheRootUpToItsFirstNul)
{
    Settings::init({{}, {}, {}, Lumora::ioPath(std::string("/R\0z", 4))});
    EXPECT_EQ(Settings::notificationFile(static_cast<Settings::Notifications>(GetParam().kind)), QStringLiteral("/R") + GetParam().file);
}

INSTANTIATE_TEST_SUITE_P(Table, Notification,
                         testing::Values(Sound{"Finish", 0, QStringLiteral("/resources/samples/notifications/finish.wav")},
                                         Sound{"Error", 1, QStringLiteral("/resources/samples/notifications/error.wav")},
                                         Sound{"NextToTheLast", 2, QStringLiteral("/resources/samples/notifications/")},
                                         Sound{"Negative", -1, QStringLiteral("/resources/samples/notifications/")},
                                         Sound{"OneInTheLowByte", 257, QStringLiteral("/resources/samples/notifications/")},
                                         Sound{"Largest", 2147483647, QStringLiteral("/resources/samples/notifications/")}),
                         byMeaning);

TEST_F(UserContent, NotificationsAskNoCollaborator)
{
    EXPECT_EQ(Settings::notificationFile(Settings::FinishNotification),
              QStringLiteral("/resources/resources/samples/notifications/finish.wav"));
    EXPECT_EQ(Settings::notificationFile(Settings::ErrorNotification),
              QStringLiteral("/resources/resources/samples/notifications/error.wav"));
    EXPECT_EQ(calls(), Calls{});
}

// --- Countdown and portable projects ---

TEST_F(UserContent, CountdownAndMediaFolderAreTheSameWhateverTheBinding)
{
    for (SettingsContext const& context : {s_instance, SettingsContext()}) {
        Settings::init(context);
        EXPECT_EQ(Settings::countDownImagePath(), QStringLiteral(":/icons/Player/countdownPad.png"));
        EXPECT_EQ(Settings::portableProjectMediaPath(), QStringLiteral("/media/"));
        QFont const font = Settings::countFiguresDownFont();
        EXPECT_EQ(font.family(), QStringLiteral("Verdana"));
        EXPECT_EQ(font.pointSize(), 60);
        EXPECT_EQ(font.weight(), static_cast<int>(QFont::Normal));
        EXPECT_FALSE(font.italic());
    }
    EXPECT_EQ(calls(), Calls{});
}

TEST_F(UserContent, CountdownGivesCopies)
{
    QFont font = Settings::countFiguresDownFont();
    font.setPointSize(12);
    QString image = Settings::countDownImagePath();
    image.clear();
    EXPECT_EQ(Settings::countFiguresDownFont().pointSize(), 60);
    EXPECT_EQ(Settings::countDownFont.pointSize(), 60);
    EXPECT_EQ(Settings::countDownImagePath(), QStringLiteral(":/icons/Player/countdownPad.png"));
}

} // namespace
