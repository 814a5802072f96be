// SPDX-License-Identifier: MIT
//
// Answers on a terminal: colours and columns.
#include "OnTerminal.h"

#include <Storage/SqliteStorage.h>

#include <support/Named.h>

namespace {

using Storage::SqliteStorage;

// --- Colours ---

std::string const plainList = "KEY                  TYPE  STORE    STATE  VALUE\n"
                              "npsSendCount         int   product  set    7\n"
                              "npsStartExportCount  int   product  unset  0\n";
std::string const paintedList =
    "\x1b[1mKEY\x1b[0m                  \x1b[1mTYPE\x1b[0m  \x1b[1mSTORE\x1b[0m    \x1b[1mSTATE\x1b[0m  \x1b[1mVALUE\x1b[0m\n"
    "npsSendCount         int   product  \x1b[32mset\x1b[0m    7\n"
    "npsStartExportCount  int   product  unset  0\n";

class Colors : public OnTerminal {
protected:
    void SetUp() override { said({"set", "npsSendCount", "7"}); }
};

TEST_F(Colors, MarkHeadingsAndWhatIsSet) { EXPECT_EQ(toolOnTerminal({"list", "npsS*"}).out, paintedList); }

struct Painting {
    char const* meaning;
    std::vector<std::string> options;
    std::map<std::string, std::string> environment;
    bool isPainted;
};

class PaintedTerminal : public Colors, public testing::WithParamInterface<Painting> {};

TEST_P(PaintedTerminal, ObeysOptionsAndEnvironment)
{
    Words words = {"list", "npsS*"};
    words.insert(words.end(), GetParam().options.begin(), GetParam().options.end());
    EXPECT_EQ(toolOnTerminal(words, GetParam().environment).out, GetParam().isPainted ? paintedList : plainList);
}

INSTANTIATE_TEST_SUITE_P(
    Table, PaintedTerminal,
    testing::Values(Painting{"NoColor", {}, {{"NO_COLOR", "1"}}, false}, Painting{"EmptyNoColor", {}, {{"NO_COLOR", ""}}, true},
                    Painting{"DumbTerminal", {}, {{"TERM", "dumb"}}, false}, Painting{"NamelessTerminal", {}, {{"TERM", ""}}, false},
                    Painting{"Never", {"--color", "never"}, {}, false}, Painting{"Automatic", {"--color=auto"}, {}, true},
                    Painting{"AutomaticWithoutColor", {"--color=auto"}, {{"NO_COLOR", "1"}}, false},
                    Painting{"AlwaysOnADumbTerminal", {"--color=always"}, {{"TERM", "dumb"}}, true},
                    Painting{"AlwaysWithoutColor", {"--color=always"}, {{"NO_COLOR", "1"}}, true}),
    byMeaning);

TEST_F(Colors, AreLeftOutWhereAProgramReads)
{
    EXPECT_EQ(said({"list", "npsS*"}), plainList);
    EXPECT_EQ(said({"list", "npsS*", "--color", "always"}), paintedList) << "unless they are asked for";
    EXPECT_EQ(lines(refused({"list", "--color", "red"}, 2)).front(), "editor-settings: --color: red not in {auto,always,never}");
}

TEST_F(Colors, AreNeverInWhatIsForScripts)
{
    EXPECT_EQ(said({"list", "npsS*", "--plain", "--color=always"}),
              "npsSendCount\tint\tproduct\tset\t7\nnpsStartExportCount\tint\tproduct\tunset\t0\n");
    for (char const* verb : {"list", "paths", "doctor", "project"})
        for (char const* format : {"--plain", "--json"})
            EXPECT_EQ(tool({verb, format, "--color=always"}).out.find('\x1b'), std::string::npos) << verb << format;
    EXPECT_EQ(said({"get", "npsSendCount", "--color=always"}), "7\n");
}

TEST_F(Colors, MarkWhatIsWrong)
{
    SqliteStorage(productFile()).setString("npsSendCount", "many");
    std::string const listed = said({"list", "npsS*", "--set", "--color=always"});
    EXPECT_NE(listed.find("product  \x1b[31mother kind\x1b[0m  0\n"), std::string::npos) << listed;
    std::string const found = tool({"doctor", "--color=always"}).out;
    EXPECT_NE(found.find("\n\x1b[33mwarning\x1b[0m  npsSendCount (product store)\n"), std::string::npos) << found;
    EXPECT_NE(found.find("\x1b[1mSQLite\x1b[0m         3."), std::string::npos) << found;
    std::string const verdict = tool({"--product", "/no/such", "doctor", "--color=always"}).out;
    EXPECT_NE(verdict.find("\n\x1b[31merror\x1b[0m  /no/such\n"), std::string::npos) << verdict;
    EXPECT_EQ(lines(verdict).back(), "\x1b[31m1 error\x1b[0m");
}

TEST_F(Colors, TellWhatADifferenceIs)
{
    std::string const file = m_home.write("in.json", R"({"format": "editor-settings export", "version": 1, "stores": {"product":
        {"npsSendCount": {"kind": "int", "value": 8}, "npsValueToSend": {"kind": "int", "value": 1}}}})");
    said({"set", "keepVideoAspect", "no"});
    EXPECT_EQ(tool({"diff", file, "--color=always"}).out,
              "\x1b[1mCHANGE\x1b[0m   \x1b[1mSTORE\x1b[0m    \x1b[1mKEY\x1b[0m              \x1b[1mSTORED\x1b[0m   \x1b[1mFILE\x1b[0m\n"
              "\x1b[31mremoved\x1b[0m  product  keepVideoAspect  false    (absent)\n"
              "\x1b[33mchanged\x1b[0m  product  npsSendCount     7        8\n"
              "\x1b[32madded\x1b[0m    product  npsValueToSend   (unset)  1\n");
}

TEST_F(Colors, MarkTheNamesOfAnExplanation)
{
    EXPECT_EQ(lines(said({"explain", "npsSendCount", "--color=always"})).front(), "\x1b[1mkey\x1b[0m          npsSendCount");
    EXPECT_EQ(lines(said({"paths", "stockMusicPath", "--explain", "--color=always"}))[1], "\x1b[1mpath\x1b[0m        /Music Library/");
}

TEST_F(Colors, AreTheOnlyCodesThatATerminalIsSent)
{
    SqliteStorage(productFile()).setString("lastTarget", "\x1b[31mred\x1b]0;x\x07");
    std::string sent = toolOnTerminal({"list", "lastTarget"}).out;
    for (std::string const code : {"\x1b[1m", "\x1b[32m", "\x1b[0m"})
        for (std::size_t at = 0; (at = sent.find(code, at)) != std::string::npos;)
            sent.erase(at, code.size());
    EXPECT_EQ(sent, "KEY         TYPE  STORE    STATE  VALUE\nlastTarget  text  product  set    \\x1b[31mred\\x1b]0;x\\x07\n");
}

// --- Columns ---

class Aligned : public OnTerminal {
protected:
    // A backup, and other values since then: wide letters, and a letter with a mark.
    void SetUp() override
    {
        said({"set", "exportPath", "/a"});
        said({"set", "lastTarget", "b"});
        tool({"backup", inHome("backup")});
        said({"set", "exportPath", "/\xE6\x97\xA5\xE6\x9C\xAC"});
        said({"set", "lastTarget", "e\xCC\x81x"});
    }
    Words const m_command = {"sh", "-c", "exec \"$0\" restore \"$1\" --dry-run --color=never 2>&-", TOOL, inHome("backup")};
};

TEST_F(Aligned, ColumnsAreCountedOnATerminal)
{
    EXPECT_EQ(onTerminal(m_command).out, "STORE    KEY         NOW    IN THE BACKUP\n"
                                         "product  exportPath  /\xE6\x97\xA5\xE6\x9C\xAC  /a\n"
                                         "product  lastTarget  e\xCC\x81x     b\n");
    EXPECT_EQ(onTerminal(m_command, {{"LC_ALL", "C"}}).out, onTerminal(m_command, {{"LC_ALL", "C.UTF-8"}}).out);
}

TEST_F(Aligned, LettersAreCountedElsewhere)
{
    EXPECT_EQ(run(m_command).out, "STORE    KEY         NOW  IN THE BACKUP\n"
                                  "product  exportPath  /\xE6\x97\xA5\xE6\x9C\xAC  /a\n"
                                  "product  lastTarget  e\xCC\x81x  b\n");
}

} // namespace
