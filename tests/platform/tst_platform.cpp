// SPDX-License-Identifier: MIT
#include <Lumora/Conf/Formats.h>
#include <Lumora/Util/ByteConversion.h>
#include <Lumora/Util/StandardPaths.h>
#include <Lumora/Util/ioPath.h>

#include <support/BoundLibrary.h>
#include <support/Named.h>

#include <filesystem>
#include <type_traits>

using Lumora::ioPath;

static_assert(!std::is_convertible_v<std::string, ioPath>, "a text becomes a path only where it is said");
static_assert(sizeof(ioPath) == sizeof(std::string), "the text is the only member");
static_assert(std::is_nothrow_move_constructible_v<ioPath>);

namespace {

class StandardPaths : public testing::Test {
protected:
    QString inHome(char const* relative) const { return QString::fromStdString((m_home.path() / relative).string()); }

    TestKit::TemporaryHome m_home;
};

TEST_F(StandardPaths, MoviesMusicAndCacheAreQtsWritableLocations)
{
    EXPECT_EQ(Lumora::Util::GetStandardPath(QStandardPaths::MoviesLocation), inHome("Videos"));
    EXPECT_EQ(Lumora::Util::GetStandardPath(QStandardPaths::MusicLocation), inHome("Music"));
    EXPECT_EQ(Lumora::Util::GetStandardPath(QStandardPaths::CacheLocation), inHome(".cache"));
}

TEST_F(StandardPaths, UserDirectoriesFileMovesTheMovies)
{
    m_home.write(".config/user-dirs.dirs", "XDG_VIDEOS_DIR=\"$HOME/Films\"\n");
    EXPECT_EQ(Lumora::Util::GetStandardPath(QStandardPaths::MoviesLocation), inHome("Films"));
    EXPECT_EQ(Lumora::Util::GetLumoraLibraryPath(QStringLiteral("Mine")), inHome("Films/Mine"));
}

TEST_F(StandardPaths, LibraryIsTheNamedFolderInTheMoviesAndIsNotCreated)
{
    EXPECT_EQ(Lumora::Util::GetLumoraLibraryPath(QStringLiteral("Lumora Library")), inHome("Videos/Lumora Library"));
    EXPECT_FALSE(std::filesystem::exists(m_home.path() / "Videos"));
}

TEST(ByteConversion, EveryByteCrossesUnchanged)
{
    QByteArray array;
    std::vector<unsigned char> vector;
    for (int byte = 0; byte < 256; ++byte) {
        array.append(static_cast<char>(byte));
        vector.push_back(static_cast<unsigned char>(byte));
    }
    EXPECT_EQ(Lumora::Util::QByteArrayToVectorByte(array), vector);
    EXPECT_EQ(Lumora::Util::VectorByteToQByteArray(vector), array);
}

TEST(ByteConversion, EmptyVectorGivesANullArray)
{
    EXPECT_TRUE(Lumora::Util::QByteArrayToVectorByte(QByteArray()).empty());
    EXPECT_TRUE(Lumora::Util::QByteArrayToVectorByte(QByteArray("")).empty());
    std::vector<unsigned char> bytes;
    EXPECT_TRUE(Lumora::Util::VectorByteToQByteArray(bytes).isNull());
    bytes.reserve(16);
    ASSERT_NE(bytes.data(), nullptr);
    EXPECT_TRUE(Lumora::Util::VectorByteToQByteArray(bytes).isNull());
}

TEST(IoPath, HoldsItsTextAsGiven)
{
    EXPECT_EQ(ioPath().utf8string(), "");
    EXPECT_EQ(ioPath("a//b/../\xC3\xBC/").utf8string(), "a//b/../\xC3\xBC/");
    EXPECT_EQ(ioPath(std::string("a\0b", 3)).utf8string(), std::string("a\0b", 3));
}

TEST(IoPath, CopiesAreIndependent)
{
    ioPath const original("root");
    ioPath copy = original;
    copy /= ioPath("file");
    EXPECT_EQ(original.utf8string(), "root");
    EXPECT_EQ(copy.utf8string(), "root/file");
}

struct Join {
    char const* meaning;
    char const* left;
    char const* right;
    char const* joined;
};

class IoPathJoin : public testing::TestWithParam<Join> {};

TEST_P(IoPathJoin, GivesOneSeparator)
{
    ioPath path(GetParam().left);
    ioPath& result = path /= ioPath(GetParam().right);
    EXPECT_EQ(path.utf8string(), GetParam().joined);
    EXPECT_EQ(&result, &path);
}

INSTANTIATE_TEST_SUITE_P(Table, IoPathJoin,
                         testing::Values(Join{"TwoRelativeParts", "a", "b", "a/b"}, Join{"LeftEndsInSeparator", "a/", "b", "a/b"},
                                         Join{"AbsoluteLeft", "/a", "b/c", "/a/b/c"}, Join{"AbsoluteRightReplaces", "/a", "/b", "/b"},
                                         Join{"EmptyLeftAddsNothing", "", "b", "b"}, Join{"RootLeft", "/", "b", "/b"},
                                         Join{"DotsAreKept", "a", "../b", "a/../b"},
                                         Join{"BeyondAscii", "\xC3\xBC", "\xE2\x82\xAC", "\xC3\xBC/\xE2\x82\xAC"}),
                         byMeaning);

TEST(IoPath, PreferredSeparatorsAreThePlatformsOwn)
{
    ioPath path("a/b\\c");
    ioPath& result = path.make_preferred();
    EXPECT_EQ(path.utf8string(), "a/b\\c") << "a backslash is part of a name on POSIX systems";
    EXPECT_EQ(&result, &path);
}

TEST(IoPath, AbsolutePathResolvesAgainstTheCurrentDirectory)
{
    TestKit::TemporaryHome const home;
    std::filesystem::path const earlier = std::filesystem::current_path();
    std::filesystem::create_directory(home.path() / "real");
    std::filesystem::create_directory_symlink("real", home.path() / "link");
    std::filesystem::current_path(home.path());
    std::string const relative = ioPath("link/../x").absolute_path().utf8string();
    std::string const absolute = ioPath("/a/../b").absolute_path().utf8string();
    std::filesystem::current_path(earlier);
    EXPECT_EQ(relative, home.path().string() + "/link/../x") << "neither links nor dots are resolved";
    EXPECT_EQ(absolute, "/a/../b");
}

TEST(IoPath, AbsolutePathNeedsNoCurrentDirectoryWhereItIsAbsolute)
{
    TestKit::TemporaryHome const home;
    std::filesystem::path const earlier = std::filesystem::current_path();
    std::filesystem::create_directory(home.path() / "gone");
    std::filesystem::current_path(home.path() / "gone");
    std::filesystem::remove(home.path() / "gone");
    EXPECT_EQ(ioPath("/a").absolute_path().utf8string(), "/a");
    EXPECT_THROW(ioPath("a").absolute_path(), std::filesystem::filesystem_error);
    std::filesystem::current_path(earlier);
}

TEST(Formats, NamesAreThoseOfFilesAndCodecs)
{
    EXPECT_EQ(Lumora::Conf::IFormatFile::FORMAT_WAV, "wav");
    EXPECT_EQ(Lumora::Conf::IFormatFile::FORMAT_MP4, "mp4");
    EXPECT_EQ(Lumora::Conf::IFormatFile::FORMAT_PNG, "png");
    EXPECT_EQ(Lumora::Conf::IFormatCodecAudio::CODEC_ID_PCM_S16LE, "pcm_s16le");
}

} // namespace
