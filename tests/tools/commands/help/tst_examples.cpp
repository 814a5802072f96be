// SPDX-License-Identifier: MIT
//
// The examples of the help: each is run as it stands, in a home where it makes sense.
#include <tools/commands/LastingFolder.h>
#include <tools/commands/Tool.h>

#include <support/Named.h>
#include <support/Patterns.h>

#include <algorithm>

namespace {

struct Example {
    std::string command;
    std::string effect;
};

class Examples : private LastingFolder, public Tool {
protected:
    // The verbs, and what follows those that are no verbs by themselves.
    std::vector<std::string> allVerbs()
    {
        std::vector<std::string> result;
        for (std::string const& verb : verbs()) {
            result.push_back(verb);
            for (std::string const& below : helpLists("Verbs", {verb}))
                result.push_back(verb + ' ' + below);
        }
        return result;
    }

    std::vector<std::string> help(std::string const& verb) { return lines(shell(verb + " --help").out); }

    std::vector<Example> examples(std::string const& verb)
    {
        std::vector<Example> result;
        bool isInside = false;
        for (std::string const& line : help(verb)) {
            if (line.compare(0, 6, "      ") == 0 && isInside)
                result.back().effect = line.substr(6);
            else if (line.compare(0, 2, "  ") == 0 && isInside)
                result.push_back({line.substr(2), ""});
            else
                isInside = line == "Examples:";
        }
        return result;
    }

    static int statedStatus(Example const& example)
    {
        std::vector<std::string> const stated = captured(example.effect, "exit status ([0-9]+)");
        return stated.empty() ? 0 : std::stoi(stated[0]);
    }

    static Ended shell(std::string const& words) { return run({"sh", "-c", TOOL + (' ' + words)}); }

    // A home with some settings, an export and a backup of them, and a change since then.
    std::string prepared(std::string const& verb)
    {
        std::string const home = inHome(("home" + std::to_string(++m_homes)).c_str());
        std::filesystem::create_directories(home + "/stores");
        m_home.write(std::filesystem::path(home) / "tour.state", "seen");
        m_home.write(std::filesystem::path(home) / "holiday.mov", "");
        std::string const stores = " --home '" + home + "/stores' ";
        shell(stores + "set npsSendCount 3");
        shell(stores + "set autoUpdate no");
        if (verb != "export")
            shell(stores + "export '" + home + "/settings.json'");
        if (verb != "backup")
            shell(stores + "backup '" + home + "/settings.backup'");
        shell(stores + "set npsSendCount 4");
        return home;
    }

    Ended runIn(std::string const& home, std::string const& command)
    {
        std::string const tools = std::filesystem::path(TOOL).parent_path().string();
        std::string const before = "cd '" + home + "' && export HOME=$PWD EDITOR_SETTINGS_HOME=$PWD/stores PATH='" + tools + "':$PATH && ";
        // What goes on until it is interrupted is interrupted.
        bool const goesOn = command == "editor-settings monitor";
        return run(
            {"timeout", "--preserve-status", "-s", "INT", goesOn ? "2" : "100", "sh", "-c", before + (goesOn ? "exec " : "") + command});
    }

    int m_homes = 0;
};

TEST_F(Examples, EachVerbHasSomeThatUseIt)
{
    std::vector<std::string> const all = allVerbs();
    EXPECT_EQ(std::count(all.begin(), all.end(), "next-name audio"), 1);
    for (std::string const& verb : all) {
        EXPECT_FALSE(examples(verb).empty()) << verb;
        for (Example const& example : examples(verb)) {
            EXPECT_NE(example.command.find("editor-settings " + verb), std::string::npos) << example.command;
            EXPECT_NE(example.effect, "") << example.command;
        }
    }
}

TEST_F(Examples, EachEndsAsItIsTold)
{
    for (std::string const& verb : allVerbs())
        for (Example const& example : examples(verb)) {
            Ended const ended = runIn(prepared(verb), example.command);
            EXPECT_EQ(ended.status, statedStatus(example)) << example.command << '\n' << ended.out << ended.err;
        }
}

struct Effect {
    char const* meaning;
    char const* verb;
    Example example;
    char const* then; // what a shell does next, to see the effect
    char const* seen; // ~ stands for the home folder
};

class ExampleWithEffect : public Examples, public testing::WithParamInterface<Effect> {};

TEST_P(ExampleWithEffect, DoesWhatIsSaidOfIt)
{
    Effect const& row = GetParam();
    std::vector<Example> const shown = examples(row.verb);
    EXPECT_TRUE(std::any_of(shown.begin(), shown.end(), [&](Example const& example) {
        return example.command == row.example.command && example.effect == row.example.effect;
    })) << row.example.command;

    std::string const home = prepared(row.verb);
    Ended const ended = runIn(home, row.example.command + row.then);
    std::string const seen = replaced(ended.out, home, "~");
    EXPECT_EQ(seen, row.seen) << ended.err;
}

INSTANTIATE_TEST_SUITE_P(
    Table, ExampleWithEffect,
    testing::Values(
        Effect{"List",
               "list",
               {"editor-settings list '*Path'", "Every preference whose key ends in Path."},
               " | sed '1d; s/\t.*//; s/.*Path$/Path/' | uniq",
               "Path\n"},
        Effect{"ListOfWhatIsSet",
               "list",
               {"editor-settings list --set --plain", "What is stored, one preference a line, for a script."},
               "",
               "autoUpdate\tbool\tcommon\tset\tfalse\nnpsSendCount\tint\tproduct\tset\t4\n"},
        Effect{"SetABool",
               "set",
               {"editor-settings set keepVideoAspect no", "Stores false."},
               " && editor-settings get keepVideoAspect",
               "false\n"},
        Effect{"SetAList",
               "set",
               {"editor-settings set userCustomColors '#ff8800' navy", "Stores a list of two."},
               " && editor-settings get userCustomColors --plain",
               "[\"#ff8800\",\"navy\"]\n"},
        Effect{"SetWhatLooksLikeAnOption",
               "set",
               {"editor-settings set lastTarget -- -x", "Stores a value that looks like an option."},
               " && editor-settings get lastTarget",
               "-x\n"},
        Effect{"StoreBytesOfAFile",
               "set",
               {"editor-settings set Indication/tour @tour.state", "Stores the bytes of a file."},
               " && editor-settings get Indication/tour",
               "c2Vlbg==\n"},
        Effect{"ReserveAName",
               "next-name",
               {"editor-settings next-name --reserve freeze holiday.mov", "Makes an empty file of the next name, and prints that."},
               " && wc -c Videos/*/*",
               "~/Videos/Lumora Library/holiday (1).png\n0 Videos/Lumora Library/holiday (1).png\n"},
        Effect{"Restore",
               "restore",
               {"editor-settings restore settings.backup", "Brings the stores back, and tells the command that undoes it."},
               " >told 2>&1 && editor-settings get npsSendCount && grep -c '; to undo it: editor-settings restore ' told",
               "3\n1\n"},
        Effect{"RestoreInThought",
               "restore",
               {"editor-settings restore settings.backup --dry-run", "What would change."},
               " 2>/dev/null | sed 1d && editor-settings get npsSendCount",
               "product\tnpsSendCount\t4\t3\n4\n"},
        Effect{"ImportInThought",
               "import",
               {"editor-settings import settings.json --dry-run", "What would change."},
               " 2>/dev/null | sed 1d && editor-settings get npsSendCount",
               "changed\tproduct\tnpsSendCount\t4\t3\n4\n"},
        Effect{"ImportOfAClass",
               "import",
               {"editor-settings import --only roaming settings.json", "Stores what belongs to the user rather than to the machine."},
               " && editor-settings get npsSendCount",
               "4\n"},
        Effect{"ExportForOthers",
               "export",
               {"editor-settings export --redact -", "The same without what is personal, on standard output."},
               " | grep -c npsSendCount",
               "1\n"},
        Effect{"DifferencesOfThePast",
               "diff",
               {"editor-settings diff settings.json", "What differs between stores and file; exit status 1 for a difference."},
               " | sed 1d",
               "changed\tproduct\tnpsSendCount\t4\t3\n"},
        Effect{"NoDifferences", "diff", {"editor-settings export - | editor-settings diff -", "Nothing, as the two are alike."}, "", ""},
        Effect{"CompletionOfBash",
               "completion",
               {"editor-settings completion bash > editor-settings.bash", "A script for bash: source editor-settings.bash"},
               " && bash -c 'source ./editor-settings.bash && complete -p editor-settings'",
               "complete -F _editor_settings editor-settings\n"},
        Effect{"ManualInAFile",
               "manual",
               {"editor-settings manual > editor-settings.1", "The page in a file: man ./editor-settings.1"},
               " && head -c 22 editor-settings.1",
               ".TH EDITOR\\-SETTINGS 1"}),
    byMeaning);

TEST_F(Examples, ManualTellsTheSame)
{
    std::string page = said({"manual"});
    for (auto const& [troff, typed] : {std::pair<char const*, char const*>{"\\\\-", "-"}, {"\\\\\\(aq", "'"}, {"\\\\\\(ti", "~"}})
        page = replaced(page, troff, typed);
    for (std::string const& verb : allVerbs())
        for (Example const& example : examples(verb))
            EXPECT_NE(page.find(".TP\n\\fB" + example.command + "\\fR\n" + example.effect + '\n'), std::string::npos) << example.command;
}

} // namespace
