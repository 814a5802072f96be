// SPDX-License-Identifier: MIT
//
// What decides a location. The editor's own platform library, here the test's, may return another folder than Qt.
#include <Inspection/PathOrigin.h>

#include <Lumora/Util/StandardPaths.h>
#include <Storage/SqliteStorage.h>
#include <TestKit/TemporaryHome.h>

#include <support/Named.h>

#include <gtest/gtest.h>

#include <filesystem>

namespace {

// The platform's own folder for movies; null where Qt's holds.
QString platformMovies;

} // namespace

QString Lumora::Util::GetStandardPath(QStandardPaths::StandardLocation location)
{
    bool const isOwn = location == QStandardPaths::MoviesLocation && !platformMovies.isNull();
    return isOwn ? platformMovies : QStandardPaths::writableLocation(location);
}

namespace {

namespace fs = std::filesystem;
using Inspection::Decision;
using By = Decision::By;
using Lookup = Decision::Lookup;
using Texts = std::vector<std::string>;

// Vendor V, product P, shared data S, and resources in the folder R of the home folder.
class Origin : public testing::Test {
protected:
    ~Origin() override { platformMovies = QString(); }

    std::vector<Decision> decisionsAbout(char const* name, char const* argument = "") const
    {
        Host::ToolApplication const application(m_productFile);
        Catalogue::Location const* const location = Catalogue::findLocation(name);
        return decisions(application, location ? Inspection::locationState(*location, argument)
                                               : Inspection::locationState(*Catalogue::findPreference(name)));
    }

    Texts texts(char const* name) const
    {
        Texts result;
        for (Decision const& decision : decisionsAbout(name))
            result.push_back(text(decision));
        return result;
    }

    void setProductKind(int kind) const
    {
        m_home.write("product.json", R"({"vendorName": "V", "productName": "P", "sharedDataFolderName": "S", "productKind": )" +
                                         std::to_string(kind) + R"(, "projectFileExtensions": ["ext1", "ext2"], "resourcesRoot": "R"})");
    }

    std::string inHome(char const* relative) const { return (m_home.path() / relative).string(); }
    std::string home() const { return m_home.path().string(); }
    std::string homeText() const { return "HOME=" + home() + " in the environment"; }
    std::string configText() const { return "XDG_CONFIG_HOME=" + home() + "/.config in the environment"; }
    std::string field(char const* text) const { return text + (" in " + m_productFile.string()); }
    std::string noFile(char const* folder) const
    {
        return "there is no " + home() + "/.config/user-dirs.dirs, so \"" + folder + "\" in the home folder";
    }

    TestKit::TemporaryHome m_home;
    fs::path const m_productFile = m_home.path() / "product.json";
    fs::path const m_store = m_home.path() / ".local/share/V/P/product-settings.sqlite";

private:
    void SetUp() override { setProductKind(0); }
};

// --- The environment ---

TEST_F(Origin, StandardFoldersLieInTheHomeFolder)
{
    EXPECT_EQ(texts("defaultProjectPath"), (Texts{noFile("Videos"), homeText(), configText()}));
    EXPECT_EQ(texts("defaultAudioRecordPath"), (Texts{noFile("Music"), homeText(), configText()}));
    qputenv("XDG_CACHE_HOME", "");
    EXPECT_EQ(texts("defaultDownloaderCachePath"), (Texts{"XDG_CACHE_HOME is empty, so \".cache\" in the home folder", homeText()}));
    qunsetenv("XDG_DATA_HOME");
    EXPECT_EQ(texts("packageDeploymentPath"),
              (Texts{"XDG_DATA_HOME is not set, so \".local/share\" in the home folder", homeText(), field("vendorName \"V\"")}));
}

TEST_F(Origin, EmptyHomeFolderIsTheRoot)
{
    qputenv("XDG_CACHE_HOME", "");
    qputenv("HOME", "");
    EXPECT_EQ(texts("defaultDownloaderCachePath"),
              (Texts{"XDG_CACHE_HOME is empty, so \".cache\" in the home folder", "HOME is empty, so /"}));
}

TEST_F(Origin, VariableHasItsParts)
{
    qputenv("XDG_CACHE_HOME", "/a\nb");
    std::vector<Decision> const set = decisionsAbout("defaultDownloaderCachePath");
    ASSERT_EQ(set.size(), 1u);
    EXPECT_EQ(set[0].by, By::environment);
    EXPECT_EQ(set[0].name, "XDG_CACHE_HOME");
    EXPECT_EQ(set[0].value, "/a\nb");
    EXPECT_EQ(place(set[0]), "");
    EXPECT_EQ(text(set[0]), "XDG_CACHE_HOME=/a\nb in the environment");
    qunsetenv("XDG_CACHE_HOME");
    Decision const unset = decisionsAbout("defaultDownloaderCachePath").front();
    EXPECT_EQ(unset.lookup, Lookup::unset);
    EXPECT_EQ(unset.value, std::nullopt);
    qputenv("XDG_CACHE_HOME", "");
    Decision const empty = decisionsAbout("defaultDownloaderCachePath").front();
    EXPECT_EQ(empty.lookup, Lookup::empty);
    EXPECT_EQ(empty.value, "");
}

// --- user-dirs.dirs ---

struct Line {
    char const* meaning;
    char const* content;              // of user-dirs.dirs
    char const* folder;               // what Qt makes of it
    std::vector<char const*> reasons; // "~" stands for the home folder
};

class UserDirsLine : public Origin, public testing::WithParamInterface<Line> {};

TEST_P(UserDirsLine, IsReadAsQtReadsIt)
{
    auto const expanded = [this](std::string text) {
        for (std::size_t tilde; (tilde = text.find('~')) != std::string::npos;)
            text.replace(tilde, 1, home());
        return text;
    };
    m_home.write(".config/user-dirs.dirs", GetParam().content);
    Texts expected;
    for (char const* reason : GetParam().reasons)
        expected.push_back(expanded(reason));
    expected.push_back(configText());
    EXPECT_EQ(texts("defaultProjectPath"), expected);
    EXPECT_EQ(Settings::defaultProjectPath().toStdString(), expanded(GetParam().folder) + "/Lumora Video Editor/Projects");
}

INSTANTIATE_TEST_SUITE_P(
    Table, UserDirsLine,
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

TEST_F(Origin, LineHasItsParts)
{
    m_home.write(".config/user-dirs.dirs", "\nXDG_MUSIC_DIR=\"/sounds\"\n");
    Decision const line = decisionsAbout("defaultAudioRecordPath").front();
    EXPECT_EQ(line.by, By::userDirs);
    EXPECT_EQ(line.name, "XDG_MUSIC_DIR");
    EXPECT_EQ(line.value, "/sounds");
    EXPECT_EQ(line.where, inHome(".config/user-dirs.dirs"));
    EXPECT_EQ(line.line, 2);
    EXPECT_EQ(place(line), inHome(".config/user-dirs.dirs, line 2"));
    Decision const absent = decisionsAbout("defaultProjectPath").front();
    EXPECT_EQ(absent.by, By::userDirs);
    EXPECT_EQ(absent.lookup, Lookup::unset);
    EXPECT_EQ(absent.value, std::nullopt);
    EXPECT_EQ(place(absent), inHome(".config/user-dirs.dirs"));
}

TEST_F(Origin, OtherConfigurationFolderIsNamed)
{
    m_home.write("config/user-dirs.dirs", "XDG_VIDEOS_DIR=\"/v\"\n");
    qputenv("XDG_CONFIG_HOME", inHome("config").c_str());
    EXPECT_EQ(texts("defaultProjectPath"), (Texts{"XDG_VIDEOS_DIR=\"/v\" in " + inHome("config/user-dirs.dirs, line 1"),
                                                  "XDG_CONFIG_HOME=" + inHome("config") + " in the environment"}));
    qunsetenv("XDG_CONFIG_HOME");
    EXPECT_EQ(texts("defaultProjectPath"), (Texts{noFile("Videos"), homeText()}));
}

TEST_F(Origin, UnreadableFileIsNoMissingLine)
{
    fs::create_directories(inHome(".config/user-dirs.dirs"));
    EXPECT_EQ(texts("defaultProjectPath").front(),
              inHome(".config/user-dirs.dirs") + " cannot be read (file to open is a directory), so \"Videos\" in the home folder");
}

// Half of a character is not valid text, and Qt takes no setting from such a line.
TEST_F(Origin, LineThatIsNotValidTextSetsNothing)
{
    std::u16string const content = u"\uFEFFXDG_MUSIC_DIR=\"/a\xD800\"\n";
    m_home.write(".config/user-dirs.dirs", std::string(reinterpret_cast<char const*>(content.data()), content.size() * 2));
    Decision const absent = decisionsAbout("defaultAudioRecordPath").front();
    EXPECT_EQ(absent.by, By::userDirs);
    EXPECT_EQ(absent.value, std::nullopt);
    EXPECT_EQ(Lumora::Util::GetStandardPath(QStandardPaths::MusicLocation).toStdString(), inHome("Music"));
}

// --- The platform, the product and the store ---

TEST_F(Origin, FolderThatNothingKnownLeadsToIsThePlatformsOwn)
{
    m_home.write(".config/user-dirs.dirs", "XDG_VIDEOS_DIR=\"/films\"\n");
    platformMovies = QStringLiteral("/own\nmovies");
    std::vector<Decision> const found = decisionsAbout("defaultProjectPath");
    ASSERT_EQ(found.size(), 1u);
    EXPECT_EQ(found[0].by, By::platform);
    EXPECT_EQ(found[0].name, "Lumora::Util::GetStandardPath");
    EXPECT_EQ(found[0].value, "/own\nmovies");
    EXPECT_EQ(place(found[0]), "");
    EXPECT_EQ(text(found[0]), "Lumora::Util::GetStandardPath gives /own\nmovies");
}

TEST_F(Origin, FieldsOfTheProductFileFollowTheRoot)
{
    EXPECT_EQ(texts("productDataPath").back(), field("productName \"P\""));
    EXPECT_EQ(texts("userOverlaysPath").back(), field("sharedDataFolderName \"S\""));
    EXPECT_EQ(texts("stockTitlesSvgPath"), Texts{"resourcesRoot of " + m_productFile.string() + ", which is " + inHome("R")});
    EXPECT_EQ(texts("sampleProjectPath").back(), field("projectFileExtensions \"ext1,ext2\""));
    setProductKind(1);
    EXPECT_EQ(texts("defaultLumoraLibraryPath").back(), field("productKind \"1\""));
    EXPECT_EQ(texts("stockMusicPath"), Texts{"nothing: the text is fixed"});
}

TEST_F(Origin, AbsoluteArgumentStandsForItself)
{
    std::vector<Decision> const found = decisionsAbout("resourceFile", "/a/b");
    ASSERT_EQ(found.size(), 1u);
    EXPECT_EQ(found[0].by, By::argument);
    EXPECT_EQ(found[0].value, "/a/b");
    EXPECT_EQ(text(found[0]), "nothing else: an absolute path stands for itself");
    EXPECT_EQ(decisionsAbout("resourceFile", "a/b").front().by, By::resourcesRoot);
}

TEST_F(Origin, PreferenceDecidesOnceItIsStored)
{
    EXPECT_EQ(texts("exportPath"),
              (Texts{"exportPath is not stored in " + m_store.string() + ", so Settings::defaultLumoraLibraryPath() holds",
                     noFile("Videos"), homeText(), configText(), field("productKind \"0\"")}));
    Storage::SqliteStorage(m_store).setString("exportPath", "/films");
    std::vector<Decision> const found = decisionsAbout("exportPath");
    ASSERT_EQ(found.size(), 1u);
    EXPECT_EQ(found[0].by, By::preference);
    EXPECT_EQ(found[0].value, "/films");
    EXPECT_EQ(found[0].where, m_store.string());
    EXPECT_EQ(text(found[0]), "exportPath is stored in " + m_store.string());
    Storage::SqliteStorage(m_store).setInt("exportPath", 5);
    EXPECT_EQ(texts("exportPath").front(), "exportPath is stored with a value of another kind in " + m_store.string() +
                                               ", so Settings::defaultLumoraLibraryPath() holds");
}

TEST(OriginNames, AreThoseOfJson)
{
    EXPECT_STREQ(name(By::environment), "environment");
    EXPECT_STREQ(name(By::userDirs), "user-dirs.dirs");
    EXPECT_STREQ(name(By::productField), "product file");
    EXPECT_STREQ(name(By::resourcesRoot), "product file");
    EXPECT_STREQ(name(By::preference), "preference");
    EXPECT_STREQ(name(By::library), "library");
    EXPECT_STREQ(name(By::platform), "platform");
    EXPECT_STREQ(name(By::argument), "argument");
}

} // namespace
