// SPDX-License-Identifier: MIT
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

TEST(ExportedSymbols, AreThoseOfTheListAndNoOther)
{
    std::ifstream file(TESTS_DATA "/exported-symbols.txt");
    std::set<std::string> listed;
    for (std::string line; std::getline(file, line);)
        listed.insert(line);
    std::set<std::string> const found = exportedNames();
    ASSERT_GT(listed.size(), 100u);
    for (std::string const& name : listed)
        EXPECT_EQ(found.count(name), 1u) << "not exported: " << name;
    for (std::string const& name : found)
        EXPECT_EQ(listed.count(name), 1u) << "exported, but not in exported-symbols.txt: " << name;
}

} // namespace
