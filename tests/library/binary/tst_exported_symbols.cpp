// SPDX-License-Identifier: MIT
#include <support/Patterns.h>
#include <support/Process.h>

#include <gtest/gtest.h>

#include <fstream>
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

// The names that the package promises of the library, each as `(c++)"name@Base"`. Those with types that Qt 5 and Qt 6 name
// differently stand in the list of the package for this Qt.
std::set<std::string> promisedNames()
{
    std::set<std::string> names;
    for (char const* name : {SYMBOLS_OF_EVERY_QT, SYMBOLS_OF_THIS_QT}) {
        std::ifstream file(name);
        EXPECT_TRUE(file) << name;
        for (std::string line; std::getline(file, line);)
            for (std::string const& symbol : captured(line, "^ (?:\\(c\\+\\+\\)\")?(.+)@Base\"? .*$"))
                names.insert(symbol);
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
