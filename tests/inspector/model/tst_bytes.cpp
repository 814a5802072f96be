// SPDX-License-Identifier: MIT
//
// Stored bytes as people see them.
#include <Inspector/HexText.h>
#include <Inspector/WindowGeometry.h>

#include <gtest/gtest.h>

#include <optional>
#include <ostream>
#include <string>

// Lets GoogleTest print what it compares.
inline void PrintTo(QString const& text, std::ostream* stream) { *stream << '"' << text.toStdString() << '"'; }

namespace {

QByteArray bytesOf(char const* hex) { return QByteArray::fromHex(hex); }

// A window of 640 by 360 with borders, at 120,80 on a screen of 800.
QByteArray const geometry = bytesOf("01d9d0cb 0003 0000 00000076 0000004e 000002f9 000001b9 00000078 00000050 000002f7 000001b7"
                                    "00000000 00 00 00000320 00000078 00000050 000002f7 000001b7");
// Two parts, the second one collapsed.
QByteArray const splitter = bytesOf("000000ff 00000001 00000002 000000c8 00000000 01 00000004 01 00000001 00");

TEST(StoredBytes, WindowGeometryIsRead)
{
    ASSERT_EQ(geometry.size(), 66);
    std::optional<Inspector::WindowGeometry> const window = Inspector::windowGeometryIn(geometry);
    ASSERT_TRUE(window);
    EXPECT_EQ(window->frame, QRect(118, 78, 644, 364));
    EXPECT_EQ(window->normal, QRect(120, 80, 640, 360));
    EXPECT_EQ(window->now, QRect(120, 80, 640, 360));
    EXPECT_EQ(window->screen, 0);
    EXPECT_EQ(window->screenWidth, 800);
    EXPECT_FALSE(window->isMaximized);
    EXPECT_FALSE(window->isFullScreen);
}

TEST(StoredBytes, MaximizedAndFullScreenAreToldApart)
{
    QByteArray maximized = geometry;
    maximized[44] = 1;
    EXPECT_TRUE(Inspector::windowGeometryIn(maximized)->isMaximized);
    EXPECT_FALSE(Inspector::windowGeometryIn(maximized)->isFullScreen);
    QByteArray full = geometry;
    full[45] = 1;
    EXPECT_TRUE(Inspector::windowGeometryIn(full)->isFullScreen);
}

TEST(StoredBytes, SplitterStateIsRead)
{
    ASSERT_EQ(splitter.size(), 31);
    std::optional<Inspector::SplitterState> const state = Inspector::splitterStateIn(splitter);
    ASSERT_TRUE(state);
    EXPECT_EQ(state->sizes, (std::vector<int>{200, 0}));
    EXPECT_FALSE(state->isVertical);
}

TEST(StoredBytes, LookIsInWords)
{
    EXPECT_EQ(Inspector::recognised(geometry),
              QStringLiteral("window geometry of Qt, version 3.0\nframe 118,78 644\u00D7364\nnormal 120,80 640\u00D7360\n"
                             "now 120,80 640\u00D7360\nscreen 0 (800 wide)\nnot maximized, not full screen"));
    EXPECT_EQ(Inspector::recognised(splitter), QStringLiteral("splitter state of Qt, version 1\nhorizontal, sizes 200, 0"));
}

TEST(StoredBytes, NothingButTheWholeIsRecognised)
{
    for (QByteArray const& whole : {geometry, splitter}) {
        for (int size = 0; size < whole.size(); ++size)
            EXPECT_EQ(Inspector::recognised(whole.left(size)), QString()) << size;
        EXPECT_EQ(Inspector::recognised(whole + '\0'), QString());
    }
}

TEST(StoredBytes, OtherVersionsAreNotRecognised)
{
    struct {
        char const* name;
        int byte;
        char value;
    } const cases[] = {{"mark", 3, 0}, {"major version", 5, 2}, {"minor version", 7, 1}, {"maximized", 44, 2}, {"full screen", 45, '\xFF'}};
    for (auto const& [name, byte, value] : cases) {
        QByteArray other = geometry;
        other[byte] = value;
        EXPECT_EQ(Inspector::recognised(other), QString()) << name;
    }
    QByteArray diagonal = splitter;
    diagonal[29] = 3;
    EXPECT_EQ(Inspector::recognised(diagonal), QString());
    EXPECT_EQ(Inspector::recognised(bytesOf("000000ff 00000001 7fffffff")), QString()) << "more parts than bytes";
}

TEST(StoredBytes, HexHasOffsetsAndText)
{
    EXPECT_EQ(Inspector::hexText({}, 100), QString());
    EXPECT_EQ(Inspector::hexText(QByteArray("\0\xFF"
                                            "Az ~\x7F",
                                            7),
                                 100),
              QStringLiteral("0000  00 ff 41 7a 20 7e 7f                             ..Az ~."));
    EXPECT_EQ(Inspector::hexText(QByteArray(17, 'a'), 100),
              QStringLiteral("0000  61 61 61 61 61 61 61 61 61 61 61 61 61 61 61 61  aaaaaaaaaaaaaaaa\n"
                             "0010  61                                               a"));
    EXPECT_EQ(Inspector::hexText(QByteArray(20, 'a'), 16).section(QLatin1Char('\n'), 1), QStringLiteral("and 4 bytes more"));
}

} // namespace
