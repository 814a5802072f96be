// SPDX-License-Identifier: MIT
//
// The manual page, which is made from the verbs themselves, has every verb and option of the help.
#include <tools/commands/Tool.h>

#include <support/Patterns.h>

#include <fstream>
#include <iterator>

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
    std::string const page = replaced(said({"manual"}), "\\\\-", "-");
    for (std::string const& verb : verbs()) {
        std::size_t const begin = page.find(".SS \"\\fB" + verb + "\\fR");
        ASSERT_NE(begin, std::string::npos) << verb;
        std::string const section = page.substr(begin, page.find("\n.S", begin) - begin);
        for (std::string const& option : longOptions({verb}))
            EXPECT_EQ(section.find("\\fB" + option + "\\fR") == std::string::npos, option.find("--help") == 0)
                << verb << " has no " << option << ", or repeats --help";
    }
    EXPECT_NE(page.find("\n.SH NAME\neditor-settings - shows and changes preferences, folders and file names of Lumora Video Editor\n"),
              std::string::npos);
    EXPECT_NE(page.find("\nStores a value.\n.TP\n\\fIKEY\\fR\nThe preference\n.TP\n\\fIVALUE\\fR\nA bool as true or false"),
              std::string::npos);
    for (std::string const& option : longOptions())
        EXPECT_NE(page.find(option + "\\fR"), std::string::npos) << option;
    for (char const* text :
         {".SS \"\\fBnext-name stabilized\\fR \\fISOURCE\\fR \\fIFORMAT\\fR\"", ".SS \"\\fBset\\fR \\fIKEY\\fR [\\fIVALUE\\fR...]\"",
          "\nEDITOR_SETTINGS_HOME\nStands in for --home where that is not given\n",
          ".SH \"EXIT STATUS\"\n.TP\n\\fB0\\fR\nSuccess\n.TP\n\\fB1\\fR\n", "\n.TP\n\\fB2\\fR\nWrong usage; for diff: any error\n",
          "\\fB--store\\fR \\fISTORE\\fR\n", "a backslash is printed as \\e\\e, a tab as \\et,\nline"})
        EXPECT_NE(page.find(text), std::string::npos) << text;
}

// What a section lists: the term of each entry.
std::vector<std::string> termsIn(std::string const& page, std::string const& title)
{
    std::size_t const begin = page.find("\n.SH \"" + title + "\"\n");
    EXPECT_NE(begin, std::string::npos) << title;
    std::string const section = page.substr(begin + 1, page.find("\n.SH ", begin + 1) - begin);
    return captured(section, "\n\\.TP\n(?:\\\\fB)?([^\n\\\\]+)");
}

TEST_F(Manual, PageListsStatusesVariablesClassesAndFiles)
{
    std::string page = replaced(said({"manual"}), "\\\\-", "-");
    page = replaced(page, "\\\\\\(ti", "~");
    page = replaced(page, "\n\\.SH ENVIRONMENT\n", "\n.SH \"ENVIRONMENT\"\n");
    using Terms = std::vector<std::string>;
    EXPECT_EQ(termsIn(page, "EXIT STATUS"), (Terms{"0", "1", "2"}));
    EXPECT_EQ(termsIn(page, "DATA CLASSES"), (Terms{"roaming", "local", "personal", "transient"}));
    EXPECT_EQ(termsIn(page, "ENVIRONMENT"),
              (Terms{"EDITOR_SETTINGS_PRODUCT", "EDITOR_SETTINGS_HOME", "EDITOR_SETTINGS_PAGER, PAGER", "LESS", "NO_COLOR", "TERM", "HOME",
                     "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_CONFIG_HOME", "XDG_STATE_HOME", "TZ", "LC_ALL, LC_NUMERIC, LANG",
                     "PGSERVICE, PGHOST, and others that begin with PG"}));
    EXPECT_EQ(termsIn(page, "FILES"), (Terms{"~/.local/share/VENDOR/PRODUCT/product-settings.sqlite",
                                             "~/.local/share/VENDOR/common-settings.sqlite", "STORE-journal", "STORE.before-restore-TIME",
                                             "~/.local/state/editor-settings", "PREFIX/share/editor-settings/product.json"}));
    EXPECT_NE(page.find("\n.SH \"SEE ALSO\"\neditor-settings-product(5), less(1), sqlite3(1), "), std::string::npos);
}

TEST_F(Manual, PageIsCleanTroff)
{
    std::string const file = m_home.write("editor-settings.1", said({"manual"})).string();
    Ended const groff = run({"groff", "-man", "-Tutf8", "-ww", "-z", file});
    EXPECT_EQ(groff.status, 0);
    EXPECT_EQ(groff.err, "");
}

// --- The page of the product file ---

class ProductPage : public Manual {
protected:
    std::string const m_file =
        std::filesystem::path(TOOL).parent_path().parent_path().string() + "/share/man/man5/editor-settings-product.5";

    // The page, with the escapes of hyphens resolved and each heading as that of the other page.
    std::string text() const
    {
        std::string const page = replaced(fileContent(m_file), "\\\\-", "-");
        return replaced(page, "\n\\.TP\n\\.B ([A-Za-z]+)\n", "\n.TP\n\\fB$1\n");
    }

    // The terms below a heading without quotes.
    std::vector<std::string> terms(std::string const& title) const
    {
        std::string page = text();
        std::size_t const at = page.find("\n.SH " + title + "\n");
        EXPECT_NE(at, std::string::npos) << title;
        return termsIn(page.replace(at, title.size() + 5, "\n.SH \"" + title + '"'), title);
    }

    // What the program says that there is, when something else stands there.
    std::string told(std::string const& text, std::string const& begin)
    {
        std::string const error = tool({"--product", m_home.write("product.json", text).string(), "list"}).err;
        EXPECT_NE(error.find(begin), std::string::npos) << error;
        return error.substr(error.find(begin) + begin.size(), error.find('\n') - error.find(begin) - begin.size());
    }

    static std::string joined(std::vector<std::string> const& words)
    {
        std::string all;
        for (std::string const& word : words)
            all += (all.empty() ? "" : ", ") + word;
        return all;
    }
};

TEST_F(ProductPage, TellsEveryFieldAndEveryKind)
{
    std::string const product = R"("vendorName": "V", "productName": "P", "sharedDataFolderName": "S", "productKind": 0,)"
                                R"("projectFileExtensions": [], "resourcesRoot": "r", "ownKeys": [{"key": "k", )";
    EXPECT_EQ(joined(terms("FIELDS")), told("{}", "the fields are "));
    EXPECT_EQ(joined(terms("OWN KEYS")), told("{" + product + "\"other\": 1}]}", "the fields of a declared key are "));
    EXPECT_EQ(joined(terms("KINDS")), told("{" + product + "\"kind\": \"other\"}]}", "which takes one of "));
}

TEST_F(ProductPage, ExampleIsTaken)
{
    std::string const page = text();
    std::size_t const begin = page.find("\n.nf\n") + 5;
    std::string const file = m_home.write("product.json", page.substr(begin, page.find("\n.fi\n") - begin)).string();
    EXPECT_EQ(said({"--product", file, "list", "cutter*", "--plain"}),
              "cutter.frameRate\trational\tproduct\tunset\t25/1\ncutter.theme\ttext\tproduct\tunset\tdark\n");
}

TEST_F(ProductPage, IsCleanTroff)
{
    Ended const groff = run({"groff", "-man", "-Tutf8", "-ww", "-z", m_file});
    EXPECT_EQ(groff.status, 0);
    EXPECT_EQ(groff.err, "");
}

// --- Both ---

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
