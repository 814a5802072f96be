// SPDX-License-Identifier: MIT
//
// One source serves Qt 5 and Qt 6. What is shipped asks nowhere which of them it is built with, and what Qt 6 has for old
// programs alone is used in one place.
#include <support/Patterns.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>

namespace {

namespace fs = std::filesystem;

using Files = std::set<std::string>;

constexpr char const* rooms[] = {"platform", "library", "storage", "notifier", "testkit", "host", "catalogue", "inspection", "tools"};

// The shipped files in which the expression is found.
Files filesWith(char const* expression)
{
    fs::path const root = SOURCES;
    Files result;
    for (char const* const room : rooms)
        for (fs::directory_entry const& entry : fs::recursive_directory_iterator(root / room)) {
            std::string const kind = entry.path().extension().string();
            if (kind != ".h" && kind != ".cpp" && kind != ".in")
                continue;
            std::ifstream file(entry.path());
            std::string const content(std::istreambuf_iterator<char>(file), {});
            if (contains(content, expression))
                result.insert(entry.path().lexically_relative(root).string());
        }
    return result;
}

TEST(ShippedSource, AsksForNoVersionOfQt)
{
    EXPECT_EQ(filesWith("QT_VERSION|QTCORE_VERSION|QT_MAJOR_VERSION|QT_DEPRECATED_SINCE|QT_REMOVED_SINCE|__has_include"), Files());
}

TEST(ShippedSource, TakesOneClassOfTheOldOnesInOneFile)
{
    EXPECT_EQ(filesWith("#include <QRegExp>"), Files{"library/Settings/RunningNumber.cpp"});
    EXPECT_EQ(filesWith("#include <(QtCore5Compat|QLinkedList|QStringRef|QText(Codec|Decoder|Encoder)|QXml)"), Files());
}

TEST(ShippedSource, IsLookedThrough) { EXPECT_GT(filesWith("SPDX-License-Identifier").size(), 100u); }

} // namespace
