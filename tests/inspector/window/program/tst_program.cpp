// SPDX-License-Identifier: MIT
#include <TestKit/TemporaryHome.h>
#include <support/Patterns.h>
#include <support/Process.h>

#include <gtest/gtest.h>

#include <filesystem>

namespace {

class Program : public testing::Test {
protected:
    Ended start(std::vector<std::string> arguments, char const* platform = "offscreen") const
    {
        arguments.insert(arguments.begin(), PROGRAM);
        return run(arguments, {{"QT_QPA_PLATFORM", platform}, {"XDG_DATA_HOME", "relative"}});
    }

    TestKit::TemporaryHome m_home;
};

TEST_F(Program, HelpAndVersionNeedNoScreen)
{
    Ended const help = start({"--help"}, "none");
    EXPECT_EQ(help.status, 0) << help.err;
    EXPECT_NE(help.out.find("--allow-network"), std::string::npos) << help.out;
    Ended const version = start({"--version"}, "none");
    EXPECT_EQ(version.status, 0);
    EXPECT_TRUE(matches(version.out, "\\d+\\.\\d+\\.\\d+\n")) << version.out;
}

TEST_F(Program, WrongArgumentsAreToldOnStandardError)
{
    struct {
        std::vector<std::string> arguments;
        char const* message;
    } const rows[] = {{{"--nonsense"}, "Unknown option 'nonsense'"},
                      {{"a", "b"}, "expected one KEY at most"},
                      {{"--home="}, "--home: the name is empty"},
                      {{"--product"}, "Missing value after '--product'"}};
    for (auto const& [arguments, message] : rows) {
        Ended const ended = start(arguments);
        EXPECT_EQ(ended.status, 2) << message;
        EXPECT_EQ(ended.out, "") << message;
        EXPECT_NE(ended.err.find(std::string("editor-settings-inspector: ") + message), std::string::npos) << ended.err;
    }
}

TEST_F(Program, MeasurementTellsTheFirstPaintingAndTheRows)
{
    std::string const product = m_home.write("product.json", R"({"vendorName": "V", "productName": "P", "sharedDataFolderName": "S",
        "productKind": 0, "projectFileExtensions": [], "resourcesRoot": "r"})");
    Ended const ended = start({"--product", product, "--home", m_home.path() / "stores", "--measure"});
    EXPECT_EQ(ended.status, 0);
    EXPECT_TRUE(matches(ended.out, "first paint: \\d+ ms\nrows shown: \\d+ ms\n")) << ended.out;
    EXPECT_NE(ended.err.find("XDG_DATA_HOME is 'relative', which is not absolute, so it counts as not set"), std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(m_home.path() / "stores"));
}

} // namespace
