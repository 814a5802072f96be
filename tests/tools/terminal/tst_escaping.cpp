// SPDX-License-Identifier: MIT
//
// Escapes: no control character and no byte that is not UTF-8 reaches a terminal.
#include "terminal/Escaping.h"

#include <support/Named.h>

#include <gtest/gtest.h>

namespace {

struct Escape {
    char const* meaning;
    std::string text;
    char const* escaped;
};

class EscapedText : public testing::TestWithParam<Escape> {};

TEST_P(EscapedText, StandsOnOneLine) { EXPECT_EQ(onOneLine(GetParam().text), GetParam().escaped); }

INSTANTIATE_TEST_SUITE_P(
    Table, EscapedText,
    testing::Values(
        Escape{"Nothing", "", ""}, Escape{"Nul", std::string("a\0b", 3), "a\\x00b"}, Escape{"Tab", "a\tb", "a\\tb"},
        Escape{"LineFeed", "a\n", "a\\n"}, Escape{"CarriageReturn", "\r", "\\r"}, Escape{"Backslash", "\\n", "\\\\n"},
        Escape{"Title", "\x1b]0;x\x07", "\\x1b]0;x\\x07"}, Escape{"LastOfC0", "\x1f ", "\\x1f "}, Escape{"Delete", "~\x7f", "~\\x7f"},
        Escape{"FirstOfC1", "\xC2\x80", "\\xc2\\x80"}, Escape{"LastOfC1", "\xC2\x9F", "\\xc2\\x9f"},
        Escape{"NoBreakSpace", "\xC2\xA0", "\xC2\xA0"}, Escape{"ArabicLetterMark", "a\xD8\x9C", "a\\xd8\\x9c"},
        Escape{"BeforeTheMarks", "\xE2\x80\x8D", "\xE2\x80\x8D"}, Escape{"LeftToRightMark", "\xE2\x80\x8E", "\\xe2\\x80\\x8e"},
        Escape{"RightToLeftMark", "\xE2\x80\x8F", "\\xe2\\x80\\x8f"}, Escape{"Hyphen", "\xE2\x80\x90", "\xE2\x80\x90"},
        Escape{"BeforeLineSeparator", "\xE2\x80\xA7", "\xE2\x80\xA7"}, Escape{"LineSeparator", "\xE2\x80\xA8", "\\xe2\\x80\\xa8"},
        Escape{"RightToLeftOverride", "\xE2\x80\xAE", "\\xe2\\x80\\xae"}, Escape{"NarrowNoBreakSpace", "\xE2\x80\xAF", "\xE2\x80\xAF"},
        Escape{"BeforeIsolates", "\xE2\x81\xA5", "\xE2\x81\xA5"}, Escape{"LeftToRightIsolate", "\xE2\x81\xA6", "\\xe2\\x81\\xa6"},
        Escape{"PopIsolate", "\xE2\x81\xA9", "\\xe2\\x81\\xa9"}, Escape{"AfterIsolates", "\xE2\x81\xAA", "\xE2\x81\xAA"},
        Escape{"LastOfTwoBytes", "\xDF\xBF", "\xDF\xBF"}, Escape{"FirstOfThreeBytes", "\xE0\xA0\x80", "\xE0\xA0\x80"},
        Escape{"BeforeSurrogates", "\xED\x9F\xBF", "\xED\x9F\xBF"}, Escape{"AfterSurrogates", "\xEE\x80\x80", "\xEE\x80\x80"},
        Escape{"LastOfThreeBytes", "\xEF\xBF\xBF", "\xEF\xBF\xBF"}, Escape{"FirstOfFourBytes", "\xF0\x90\x80\x80", "\xF0\x90\x80\x80"},
        Escape{"LastCodePoint", "\xF4\x8F\xBF\xBF", "\xF4\x8F\xBF\xBF"}, Escape{"Continuation", "\x80", "\\x80"},
        Escape{"OverlongTwo", "\xC1\xBF", "\\xc1\\xbf"}, Escape{"OverlongThree", "\xE0\x9F\xBF", "\\xe0\\x9f\\xbf"},
        Escape{"Surrogate", "\xED\xA0\x80", "\\xed\\xa0\\x80"}, Escape{"OverlongFour", "\xF0\x8F\xBF\xBF", "\\xf0\\x8f\\xbf\\xbf"},
        Escape{"BeyondUnicode", "\xF4\x90\x80\x80", "\\xf4\\x90\\x80\\x80"},
        Escape{"NoLeadByte", "\xF5\x80\x80\x80", "\\xf5\\x80\\x80\\x80"}, Escape{"CutAfterOne", "\xC3x", "\\xc3x"},
        Escape{"CutAfterTwo", "\xE2\x82x", "\\xe2\\x82x"}, Escape{"CutAfterThree", "\xF0\x90\x80", "\\xf0\\x90\\x80"}),
    byMeaning);

TEST(WithoutControls, KeepsBackslashesAndTheCharactersThatAreNamed)
{
    EXPECT_EQ(withoutControls("a\\b\t\n\x1b"), "a\\b\\t\\n\\x1b");
    EXPECT_EQ(withoutControls("a\\b\t\n\x1b", "\t\n"), "a\\b\t\n\\x1b");
}

TEST(Shortened, CutsBetweenCodePoints)
{
    EXPECT_EQ(shortened("\xC3\xA4\xC3\xB6\xC3\xBC", 3), "\xC3\xA4\xC3\xB6\xC3\xBC");
    EXPECT_EQ(shortened("\xC3\xA4\xC3\xB6\xC3\xBCx", 3), "\xC3\xA4\xC3\xB6\xE2\x80\xA6");
    EXPECT_EQ(shortened("abc", 1), "\xE2\x80\xA6");
}

TEST(Width, CountsCodePoints)
{
    EXPECT_EQ(width("a\xE6\x97\xA5\xE6\x9C\xAC\xF0\x90\x80\x80"), 4u);
    EXPECT_EQ(width(onOneLine("a\xE2\x80\xAE")), 13u) << "an escape is as wide as it is shown";
}

TEST(Quoted, EscapesAndShortens)
{
    EXPECT_EQ(quoted("a\nb"), "'a\\nb'");
    EXPECT_EQ(quotedBriefly(std::string(201, 'x')), '\'' + std::string(199, 'x') + "\xE2\x80\xA6'");
}

TEST(Words, AreCountedAndJoined)
{
    EXPECT_EQ(counted(0, "value"), "0 values");
    EXPECT_EQ(counted(1, "value"), "1 value");
    EXPECT_EQ(joined({"a", "b", "c"}, ", "), "a, b, c");
    EXPECT_EQ(joined({}, ", "), "");
}

TEST(PrintError, EscapesTheText)
{
    testing::internal::CaptureStderr();
    printError("no\x1b[2J\nhere");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "editor-settings: no\\x1b[2J\\nhere\n");
}

} // namespace
