// SPDX-License-Identifier: MIT
#include <support/Process.h>

#include <QtGlobal>

#include <gtest/gtest.h>

#include <fstream>
#include <regex>
#include <set>

namespace {

std::set<std::string> exportedNames()
{
    std::set<std::string> names;
    Ended const nm = run({"nm", "--dynamic", "--defined-only", "--demangle", "--format=posix", LIBRARY_FILE});
    EXPECT_EQ(nm.status, 0) << nm.err;
    for (std::string line : lines(nm.out)) {
        // "name type address size", where the name may hold blanks
        for (int field = 0; field < 3; ++field)
            line.erase(line.find_last_of(' '));
        names.insert(line);
    }
    return names;
}

// Qt 5 has a class QStringList, and Qt 6 the name for a list of texts.
std::string inThisQt(std::string const& name)
{
    static std::regex const list("QStringList");
    return QT_VERSION < QT_VERSION_CHECK(6, 0, 0) ? name : std::regex_replace(name, list, "QList<QString>");
}

// The names that the package promises of the library: `name@Base` or `(c++)"name@Base"`, indented below its file name.
std::set<std::string> promisedNames()
{
    std::ifstream file(SYMBOLS_FILE);
    std::regex const symbol("^ (?:\\(c\\+\\+\\)\")?(.+)@Base\"? .*");
    std::set<std::string> names;
    bool inLibrary = false;
    std::smatch match;
    for (std::string line; std::getline(file, line);) {
        if (line.find_first_of(" *") != 0)
            inLibrary = line.rfind("libEditorSettings.so.1 ", 0) == 0;
        else if (inLibrary && std::regex_match(line, match, symbol))
            names.insert(inThisQt(match[1]));
    }
    return names;
}

TEST(ExportedSymbols, AreThoseThatThePackagePromises)
{
    std::set<std::string> const promised = promisedNames();
    std::set<std::string> const exported = exportedNames();
    ASSERT_GT(promised.size(), 100u);
    for (std::string const& name : promised)
        EXPECT_EQ(exported.count(name), 1u) << "promised, but not exported: " << name;
    for (std::string const& name : exported)
        EXPECT_EQ(promised.count(name), 1u) << "exported, but not promised: " << name;
}

} // namespace
