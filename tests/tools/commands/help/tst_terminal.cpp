// SPDX-License-Identifier: MIT
//
// Answers on a terminal: colours, columns, a screen at a time, and how far something is that takes long.
#include <tools/commands/OnTerminal.h>

#include <Storage/SqliteStorage.h>

#include <support/Named.h>
#include <support/OtherProgram.h>

#include <fstream>

#include <sys/stat.h>

namespace {

using Storage::SqliteStorage;

// --- Colours ---

std::string const plainList = "KEY                  TYPE  STORE    STATE  VALUE\n"
                              "npsSendCount         int   product  set    7\n"
                              "npsStartExportCount  int   product  unset  0\n";
std::string const unalignedList = "KEY\tTYPE\tSTORE\tSTATE\tVALUE\n"
                                  "npsSendCount\tint\tproduct\tset\t7\n"
                                  "npsStartExportCount\tint\tproduct\tunset\t0\n";
std::string const paintedList =
    "\x1b[1mKEY\x1b[0m                  \x1b[1mTYPE\x1b[0m  \x1b[1mSTORE\x1b[0m    \x1b[1mSTATE\x1b[0m  \x1b[1mVALUE\x1b[0m\n"
    "npsSendCount         int   product  \x1b[32mset\x1b[0m    7\n"
    "npsStartExportCount  int   product  unset  0\n";

std::string content(std::string const& file)
{
    std::ifstream stream(file);
    return {std::istreambuf_iterator<char>(stream), {}};
}

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
    EXPECT_EQ(said({"list", "npsS*"}), unalignedList);
    EXPECT_EQ(said({"list", "npsS*", "--color", "always"}), paintedList) << "unless they are asked for";
    EXPECT_EQ(lines(refused({"list", "--color", "red"}, 2)).front(), "editor-settings: --color: red not in {auto,always,never}");
}

TEST_F(Colors, DependOnWhereTheAnswerGoesAlone)
{
    std::string const file = inHome("answer");
    EXPECT_EQ(onTerminal({"sh", "-c", "\"$0\" list 'npsS*' >\"$1\"", TOOL, file}).out, openingStep);
    EXPECT_EQ(content(file), unalignedList);
    EXPECT_EQ(onTerminal({"sh", "-c", "\"$0\" list 'npsS*' 2>\"$1\"", TOOL, file}).out, paintedList);
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
    EXPECT_EQ(
        tool({"diff", file, "--color=always"}).out,
        "\x1b[1mCHANGE\x1b[0m            \x1b[1mSTORE\x1b[0m    \x1b[1mKEY\x1b[0m              \x1b[1mSTORED\x1b[0m   \x1b[1mFILE\x1b[0m\n"
        "\x1b[31monly here\x1b[0m         product  keepVideoAspect  false    (absent)\n"
        "\x1b[33mchanged\x1b[0m           product  npsSendCount     7        8\n"
        "\x1b[32monly in the file\x1b[0m  product  npsValueToSend   (unset)  1\n");
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
    // A backup, and other values since then, outside ASCII.
    void SetUp() override
    {
        tool({"set", "exportPath", "/a"});
        said({"set", "lastTarget", "b"});
        tool({"backup", inHome("backup")});
        tool({"set", "exportPath", "/\xE6\x97\xA5\xE6\x9C\xAC"});
        said({"set", "lastTarget", "e\xCC\x81x"});
    }
    Words const m_command = {"sh", "-c", "exec \"$0\" restore \"$1\" --dry-run --color=never 2>&-", TOOL, inHome("backup")};
};

TEST_F(Aligned, ListLinesUpOnATerminal)
{
    said({"set", "npsValueToSend", "-1"});
    EXPECT_EQ(toolOnTerminal({"list", "nps*[SV]*end*", "--color=never"}).out, "KEY               TYPE  STORE    STATE           VALUE\n"
                                                                              "npsCommentToSend  text  product  unset\n"
                                                                              "npsEmailToSend    text  product  unset\n"
                                                                              "npsSendCount      int   product  unset           0\n"
                                                                              "npsValueToSend    int   product  set to default  -1\n");
}

TEST_F(Aligned, ColumnsLineUpByCodePoints)
{
    EXPECT_EQ(onTerminal(m_command).out, "STORE    KEY         BEFORE  RESTORED\n"
                                         "product  exportPath  /\xE6\x97\xA5\xE6\x9C\xAC     /a\n"
                                         "product  lastTarget  e\xCC\x81x     b\n");
    EXPECT_EQ(onTerminal(m_command, {{"LC_ALL", "C"}}).out, onTerminal(m_command, {{"LC_ALL", "C.UTF-8"}}).out);
}

TEST_F(Aligned, TabsStandBetweenColumnsElsewhere)
{
    EXPECT_EQ(run(m_command).out, "STORE\tKEY\tBEFORE\tRESTORED\n"
                                  "product\texportPath\t/\xE6\x97\xA5\xE6\x9C\xAC\t/a\n"
                                  "product\tlastTarget\te\xCC\x81x\tb\n");
}

// --- A screen at a time ---

class Paged : public OnTerminal {
protected:
    // A pager that marks the lines that it shows.
    std::string pager(char const* name, std::string const& script = "sed \"s|^|$0 |\"") const
    {
        std::filesystem::path const file = m_home.write(std::string("bin/") + name, "#!/bin/sh\n" + script + '\n');
        ::chmod(file.c_str(), 0700);
        return file.string();
    }

    // With no pager of the program's own, unless `environment` names one.
    static Ended pagedTool(Words words, Environment const& environment, Screen const& screen = {}, Typed const& typed = {})
    {
        std::string const own = environment.count("EDITOR_SETTINGS_PAGER") > 0 ? "" : "unset EDITOR_SETTINGS_PAGER; ";
        words.insert(words.begin(), {"sh", "-c", own + "exec \"$0\" \"$@\"", TOOL});
        Ended ended = onTerminal(words, environment, screen, typed);
        if (std::size_t const at = ended.out.find(openingStep); at != std::string::npos)
            ended.out.erase(at, openingStep.size());
        return ended;
    }

    // The first line that is shown of a list of 56.
    std::string firstLine(Environment const& environment, Words const& options = {})
    {
        Words words = {"list", "--color=never"};
        words.insert(words.end(), options.begin(), options.end());
        Ended const ended = pagedTool(words, environment);
        EXPECT_EQ(ended.status, 0);
        EXPECT_EQ(lines(ended.out).size(), 56u) << ended.out;
        return ended.out.substr(0, ended.out.find(" TYPE"));
    }

    std::string const m_unpaged = "KEY                       ";
};

TEST_F(Paged, LongAnswerIsShownByThePager)
{
    std::string const own = pager("own");
    std::string const general = pager("general");
    EXPECT_EQ(firstLine({{"EDITOR_SETTINGS_PAGER", own}, {"PAGER", general}}), own + ' ' + m_unpaged);
    EXPECT_EQ(firstLine({{"PAGER", general}}), general + ' ' + m_unpaged);
    EXPECT_EQ(firstLine({{"PAGER", "sed 's/^/in a shell: /'"}}), "in a shell: " + m_unpaged);
}

TEST_F(Paged, UsualPagerIsToldToEndByItselfAndToShowColours)
{
    pager("less", "sed \"s|^|$LESS |\"");
    std::string const path = inHome("bin") + ':' + std::getenv("PATH");
    EXPECT_EQ(firstLine({{"PATH", path}}), "FRX " + m_unpaged);
    EXPECT_EQ(firstLine({{"PATH", path}, {"LESS", "S"}}), "S " + m_unpaged);
}

TEST_F(Paged, NoPagerIsAskedForInManyWays)
{
    Environment const loud = {{"EDITOR_SETTINGS_PAGER", pager("loud")}};
    EXPECT_EQ(firstLine(loud, {"--no-pager"}), m_unpaged);
    EXPECT_EQ(firstLine({{"EDITOR_SETTINGS_PAGER", ""}, {"PAGER", inHome("bin/loud")}}), m_unpaged);
    EXPECT_EQ(firstLine({{"EDITOR_SETTINGS_PAGER", "cat"}}), m_unpaged);
    EXPECT_EQ(firstLine({{"PAGER", ""}}), m_unpaged);
    EXPECT_EQ(firstLine({{"EDITOR_SETTINGS_PAGER", inHome("bin/loud")}, {"TERM", "dumb"}}), m_unpaged);
    EXPECT_EQ(lines(tool({"list"}, loud).out).front().substr(0, 3), "KEY") << "nobody looks at a screen";
}

TEST_F(Paged, PagerThatCannotBeStartedIsDoneWithout)
{
    EXPECT_EQ(firstLine({{"PAGER", "/no/such"}}), m_unpaged);
    std::string const noProgram = m_home.write("no-program", "").string();
    EXPECT_EQ(firstLine({{"PAGER", noProgram}}), m_unpaged);
    EXPECT_EQ(firstLine({{"PAGER", noProgram + " --option 2>/dev/null"}}), m_unpaged);
    EXPECT_EQ(firstLine({{"PAGER", "/no/such --option 2>/dev/null"}}), m_unpaged);
}

TEST_F(Paged, ShortAnswerGoesToThePagerToo)
{
    Environment const loud = {{"PAGER", pager("loud")}};
    EXPECT_EQ(pagedTool({"list", "npsSend*", "--plain"}, loud).out, inHome("bin/loud") + " npsSendCount\tint\tproduct\tunset\t0\n");
}

TEST_F(Paged, UsualPagerEndsByItselfWhenTheAnswerFits)
{
    EXPECT_NE(pagedTool({"list", "npsSend*", "--color=never"}, {}).out.find("\nnpsSendCount  int   product  unset  0"), std::string::npos);
}

TEST_F(Paged, UsualPagerShowsAScreenInColourAndIsLeftByAKey)
{
    Ended const ended = pagedTool({"list"}, {}, {}, {"\n:\x1b[K", "q"});
    EXPECT_EQ(ended.status, 0);
    EXPECT_NE(ended.out.find("\x1b[1mKEY\x1b[0m "), std::string::npos) << ended.out;
    EXPECT_NE(ended.out.find("\nachievedTutorials "), std::string::npos) << ended.out;
    EXPECT_EQ(ended.out.find("\nwaveformCachePath "), std::string::npos) << "this is on another screen";
}

TEST_F(Paged, OnlyLongAnswersArePaged)
{
    Environment const loud = {{"PAGER", pager("loud")}};
    said({"set", "lastTarget", "a\nb\nc\nd\ne\nf"});
    m_home.write("in.json", R"({"format": "editor-settings export", "version": 1, "stores": {}})");
    struct Case {
        Words words;
        bool isPaged;
    };
    for (Case const& one : {Case{{"list"}, true},
                            {{"list", "--json"}, true},
                            {{"paths"}, true},
                            {{"doctor"}, true},
                            {{"diff", inHome("in.json")}, true},
                            {{"get", "lastTarget"}, false},
                            {{"export", "-"}, false},
                            {{"list", "--help"}, false},
                            {{"manual"}, false}})
        EXPECT_EQ(pagedTool(one.words, loud, {2, 80}).out.find("bin/loud") != std::string::npos, one.isPaged) << one.words.front();
}

TEST_F(Paged, WhoeverLeavesEarlyDoesNothingWrong)
{
    said({"set", "lastTarget", std::string(120000, 'x')}); // more than a pipe takes
    Ended const ended = pagedTool({"list", "--plain"}, {{"PAGER", "true"}});
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.out, "");
    EXPECT_EQ(pagedTool({"list", "--color=never"}, {{"PAGER", "head -n 1 | cut -c -3"}}).out, "KEY\n");
    Ended const failed = pagedTool({"list"}, {{"PAGER", "exit 9"}});
    EXPECT_EQ(failed.out, "");
    EXPECT_EQ(failed.status, 0);
    Ended const killed = pagedTool({"list", "--color=never"}, {{"PAGER", "head -n 1 | cut -c -3; kill -KILL $$"}});
    EXPECT_EQ(killed.out, "KEY\n") << "what was seen is not shown again";
    EXPECT_EQ(killed.status, 0);
}

TEST_F(Paged, ExitStatusIsTheVerbs)
{
    tool({"set", "exportPath", "films"});
    Ended const ended = pagedTool({"paths", "--check", "--color=never"}, {{"PAGER", "head -n 1 | cut -c -8"}});
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.out.substr(0, 65), "LOCATION\neditor-settings: the editor cannot write to exportPath; ") << "the reason comes last";
}

TEST_F(Paged, InterruptIsThePagersToTake)
{
    for (auto const& [signal, key] : Environment{{"INT", "\x03"}, {"QUIT", "\x1c"}}) {
        std::string const waiting =
            pager("waiting", "trap 'echo taken; exit 3' " + signal + "; echo waiting; while :; do sleep 0.05; done");
        Ended const ended = pagedTool({"list"}, {{"PAGER", waiting}}, {}, {"waiting", key});
        EXPECT_EQ(ended.status, 0) << signal;
        EXPECT_NE(ended.out.find("taken\n"), std::string::npos) << signal << ended.out;
    }
}

// --- How far it is ---

class Lasting : public OnTerminal {
protected:
    // An import from a pipe.
    Ended pipedImport(char const* redirection, Environment const& environment = {}, Screen const& screen = {})
    {
        tool({"unset", "npsSendCount"});
        m_home.write("in.json", R"({"format": "editor-settings export", "version": 1, "stores": {"product":
            {"npsSendCount": {"kind": "int", "value": 8}}}})");
        std::string const script = std::string("cat \"$1\" | \"$0\" import - ") + redirection;
        return onTerminal({"sh", "-c", script, TOOL, inHome("in.json")}, environment, screen);
    }

    void expectStep(std::string const& sent, std::string const& step) const
    {
        std::string const erased = "\r\x1b[K";
        std::string const end = erased + m_result;
        EXPECT_NE((erased + sent).find(erased + step + erased), std::string::npos) << sent;
        EXPECT_EQ(sent.find(step), sent.rfind(step)) << sent;
        EXPECT_EQ(sent.substr(sent.size() - std::min(sent.size(), end.size())), end) << sent;
    }

    std::string const m_result = "editor-settings: 1 changed, 0 already as in the file\n";
};

TEST_F(Lasting, StepIsToldAndErased) { expectStep(pipedImport("").out, "editor-settings: step 1 of 3: reading the file"); }

TEST_F(Lasting, StepTakesThePlaceOfTheOneBefore)
{
    said({"set", "npsSendCount", "1"});
    m_home.write("in.json", R"({"format": "editor-settings export", "version": 1, "stores": {}})");
    Child holder([this] {
        while (!std::filesystem::exists(inHome("hold")))
            ::usleep(10000);
        OtherProgram other(productFile());
        other.execute("BEGIN EXCLUSIVE");
        m_home.write("held", "");
        ::sleep(2);
        return std::string();
    });
    // The file comes when the store is held by another program.
    char const* const script = "cd \"$1\"; { sleep 2; : >hold; until [ -e held ]; do sleep 0.01; done; cat in.json; } | \"$0\" import -";
    Ended const ended = onTerminal({"sh", "-c", script, TOOL, m_home.path().string()});
    EXPECT_EQ(holder.answer(), "");
    EXPECT_EQ(ended.out.find(openingStep + "editor-settings: step 1 of 3: reading the file\r\x1b[K"
                                           "editor-settings: step 2 of 3: comparing with the product store\r\x1b[K"),
              0u)
        << ended.out;
}

TEST_F(Lasting, WhatIsToldMeanwhileHasALineOfItsOwn)
{
    said({"set", "npsSendCount", "1"});
    SqliteStorage(productFile()).setInt(std::string("a\0b", 3), 1);
    m_home.write("in.json", R"({"format": "editor-settings export", "version": 1, "stores": {}})");
    Ended const ended = onTerminal({"sh", "-c", "cat \"$1\" | \"$0\" diff -", TOOL, inHome("in.json")});
    EXPECT_EQ(ended.out.find(openingStep + "editor-settings: step 1 of 3: reading the file\r\x1b[K"), 0u) << ended.out;
    EXPECT_NE(ended.out.find("\r\x1b[Keditor-settings: 'a\\x00b' in the product store has a NUL in its key, so it is not compared\n"),
              std::string::npos)
        << ended.out;
}

TEST_F(Lasting, NothingIsToldOfWaitingForWhoeverTypes)
{
    char const* const script = "{ sleep 1; echo type; } & exec \"$0\" import -";
    std::string const typed = R"({"format": "editor-settings export", "version": 1, "stores": {}})";
    Ended const ended = onTerminal({"sh", "-c", script, TOOL}, {}, {}, {"type", typed + "\n\x04"});
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.out.find("step 1 of 3"), std::string::npos) << ended.out;
    EXPECT_NE(ended.out.find("editor-settings: 0 changed, 0 already as in the file\n"), std::string::npos) << ended.out;
}

TEST_F(Lasting, StepFitsOnALine)
{
    expectStep(pipedImport("", {}, {24, 30}).out, "editor-settings: step 1 of 3\xE2\x80\xA6");
    // A terminal that does not tell its size.
    expectStep(pipedImport("", {}, {0, 0}).out, "editor-settings: step 1 of 3: reading the file");
}

TEST_F(Lasting, StepIsToldToATerminalOnly)
{
    std::string const err = inHome("err");
    EXPECT_EQ(pipedImport(("2>'" + err + '\'').c_str()).out, "");
    EXPECT_EQ(content(err), m_result);
    EXPECT_EQ(pipedImport("", {{"TERM", "dumb"}}).out, m_result);
}

struct Waiting {
    char const* meaning;
    std::vector<std::string> words;
    char const* step;
};

class WaitingVerb : public Lasting, public testing::WithParamInterface<Waiting> {};

TEST_P(WaitingVerb, TellsThatItWaitsForAStore)
{
    said({"set", "npsSendCount", "1"});
    Child holder([this] {
        OtherProgram other(productFile());
        other.execute("BEGIN EXCLUSIVE");
        m_home.write("held", "");
        ::sleep(3);
        return std::string();
    });
    while (!std::filesystem::exists(inHome("held")))
        ::usleep(10000);
    Words words = GetParam().words;
    words.insert(words.begin(), TOOL);
    Ended const ended = onTerminal(words);
    EXPECT_EQ(holder.answer(), "");
    EXPECT_NE(ended.out.find(std::string("editor-settings: ") + GetParam().step + ": opening the stores\r\x1b[K"), std::string::npos)
        << ended.out;
}

INSTANTIATE_TEST_SUITE_P(Table, WaitingVerb,
                         testing::Values(Waiting{"Doctor", {"doctor"}, "step 1 of 4"},
                                         Waiting{"Get", {"get", "npsSendCount"}, "step 1 of 1"}),
                         byMeaning);

} // namespace
