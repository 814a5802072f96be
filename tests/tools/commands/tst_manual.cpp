// SPDX-License-Identifier: MIT
//
// The manual page, which is made from the verbs themselves, has every verb and option of the help.
#include "Tool.h"

#include <fstream>
#include <regex>

namespace {

std::string fileContent(std::string const& name)
{
    std::ifstream file(name);
    EXPECT_TRUE(file) << name;
    return {std::istreambuf_iterator<char>(file), {}};
}

class Manual : public Tool {
protected:
    // The long options that a verb takes itself.
    std::vector<std::string> longOptions(std::vector<std::string> const& verb = {})
    {
        std::vector<std::string> result = helpLists("Options", verb);
        for (std::string& option : result)
            option.erase(0, option.find("--"));
        return result;
    }
};

// --- The manual page ---

TEST_F(Manual, PageTellsEveryVerbAndOptionOfTheHelp)
{
    std::string const page = std::regex_replace(said({"manual"}), std::regex("\\\\-"), "-");
    for (std::string const& verb : verbs()) {
        std::size_t const begin = page.find(".SS \"\\fB" + verb + "\\fR");
        ASSERT_NE(begin, std::string::npos) << verb;
        std::string const section = page.substr(begin, page.find("\n.S", begin) - begin);
        for (std::string const& option : longOptions({verb}))
            EXPECT_EQ(section.find("\\fB" + option + "\\fR") == std::string::npos, option.find("--help") == 0)
                << verb << " has no " << option << ", or repeats --help";
    }
    EXPECT_NE(
        page.find(
            "\n.SH NAME\neditor-settings - reads, changes and explains the preferences, folders and file names of Lumora Video Editor\n"),
        std::string::npos);
    EXPECT_NE(page.find("\nStores a value.\n.TP\n\\fIKEY\\fR\nThe preference\n.TP\n\\fIVALUE\\fR\nA bool as true or false"),
              std::string::npos);
    for (std::string const& option : longOptions())
        EXPECT_NE(page.find(option + "\\fR"), std::string::npos) << option;
    for (char const* text :
         {".SS \"\\fBnext-name stabilized\\fR \\fISOURCE\\fR \\fIFORMAT\\fR\"", ".SS \"\\fBset\\fR \\fIKEY\\fR [\\fIVALUE\\fR...]\"",
          "\nEDITOR_SETTINGS_HOME\nStands in for --home where that is not given\n", ".SH \"EXIT STATUS\"\n  0  success\n",
          "\\fB--store\\fR \\fISTORE\\fR\n", "a backslash is printed as \\e\\e, a tab as \\et,\nline"})
        EXPECT_NE(page.find(text), std::string::npos) << text;
}

TEST_F(Manual, PageIsCleanTroff)
{
    std::string const file = m_home.write("editor-settings.1", said({"manual"})).string();
    Ended const groff = run({"groff", "-man", "-Tutf8", "-ww", "-z", file});
    EXPECT_EQ(groff.status, 0);
    EXPECT_EQ(groff.err, "");
}

TEST_F(Manual, NeedsNoProductFileAndNoStore)
{
    EXPECT_EQ(tool({"--product", "/no/such", "manual"}).status, 0);
    EXPECT_EQ(tool({"--product", "/no/such", "completion", "bash"}).status, 0);
    EXPECT_FALSE(std::filesystem::exists(inHome(".local")));
}

TEST_F(Manual, BuildHoldsThePageThatTheProgramPrints)
{
    std::string const share = std::filesystem::path(TOOL).parent_path().parent_path().string() + "/share/";
    EXPECT_EQ(fileContent(share + "man/man1/editor-settings.1"), said({"manual"}));
}

} // namespace
