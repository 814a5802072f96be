// SPDX-License-Identifier: MIT
//
// The examples of the help: each is run as it stands, in a home where it makes sense.
#include "LastingFolder.h"
#include "Tool.h"

#include <regex>

namespace {

struct Example {
    std::string command;
    std::string effect;
};

class Examples : private LastingFolder, public Tool {
protected:
    // The verbs, and what follows those that are no verbs by themselves.
    std::vector<std::string> verbs(std::string const& above = {})
    {
        std::vector<std::string> result;
        bool isInside = false;
        for (std::string const& line : help(above)) {
            if (line.empty() || line[0] != ' ') {
                isInside = line == "Subcommands:";
            } else if (isInside && line[2] != ' ') {
                result.push_back((above.empty() ? "" : above + ' ') + line.substr(2, line.find(' ', 2) - 2));
                for (std::string const& below : above.empty() ? verbs(result.back()) : std::vector<std::string>())
                    result.push_back(below);
            }
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
        std::smatch stated;
        return std::regex_search(example.effect, stated, std::regex("exit status ([0-9]+)")) ? std::stoi(stated[1]) : 0;
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
    std::vector<std::string> const all = verbs();
    ASSERT_EQ(all.size(), 25u);
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
    for (std::string const& verb : verbs())
        for (Example const& example : examples(verb)) {
            Ended const ended = runIn(prepared(verb), example.command);
            EXPECT_EQ(ended.status, statedStatus(example)) << example.command << '\n' << ended.out << ended.err;
        }
}

TEST_F(Examples, ManualTellsTheSame)
{
    std::string page = said({"manual"});
    for (auto const& [troff, typed] : {std::pair<char const*, char const*>{"\\\\-", "-"}, {"\\\\\\(aq", "'"}, {"\\\\\\(ti", "~"}})
        page = std::regex_replace(page, std::regex(troff), typed);
    for (std::string const& verb : verbs())
        for (Example const& example : examples(verb))
            EXPECT_NE(page.find(".TP\n\\fB" + example.command + "\\fR\n" + example.effect + '\n'), std::string::npos) << example.command;
}

} // namespace
