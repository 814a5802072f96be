// SPDX-License-Identifier: MIT
//
// What is made from the command line itself holds what the command line holds: the manual page and the completion
// scripts, which are tried in the shells that they are for.
#include "Tool.h"

#include <support/Table.h>

#include <algorithm>
#include <fstream>
#include <regex>
#include <set>
#include <sstream>

namespace {

using Words = std::set<std::string>;

Words words(std::string const& text)
{
    std::istringstream stream(text);
    Words result;
    for (std::string word; stream >> word;)
        result.insert(word);
    return result;
}

std::string fileContent(std::string const& name)
{
    std::ifstream file(name);
    EXPECT_TRUE(file) << name;
    return {std::istreambuf_iterator<char>(file), {}};
}

class Manual : public Tool {
protected:
    // What the help lists under a heading: the first word of each line.
    Words helpLists(std::string const& heading, std::vector<std::string> const& verb = {})
    {
        std::vector<std::string> command = verb;
        command.emplace_back("--help");
        Words result;
        bool isInside = false;
        for (std::string const& line : lines(said(command))) {
            if (line.empty() || line[0] != ' ')
                isInside = line == heading + ":";
            else if (isInside && line[2] != ' ')
                result.insert(line.substr(2, line.find_first_of(" ", 2) - 2));
        }
        return result;
    }

    // The long options that a verb takes itself.
    Words longOptions(std::vector<std::string> const& verb = {})
    {
        Words result;
        for (std::string const& option : helpLists("Options", verb))
            result.insert(option.substr(option.find("--")));
        return result;
    }

    Words verbs() { return helpLists("Subcommands"); }
};

Words keys()
{
    Words result;
    for (PreferenceRow const& row : preferenceTable())
        if (row.hasAccessors())
            result.insert(row.key);
    return result;
}

// --- The manual page ---

TEST_F(Manual, PageTellsEveryVerbAndOptionOfTheHelp)
{
    std::string const page = std::regex_replace(said({"manual"}), std::regex("\\\\-"), "-");
    ASSERT_EQ(verbs().size(), 22u);
    for (std::string const& verb : verbs()) {
        std::size_t const begin = page.find(".SS \"\\fB" + verb + "\\fR");
        ASSERT_NE(begin, std::string::npos) << verb;
        std::string const section = page.substr(begin, page.find("\n.S", begin) - begin);
        for (std::string const& option : longOptions({verb}))
            EXPECT_EQ(section.find("\\fB" + option + "\\fR") == std::string::npos, option.find("--help") == 0)
                << verb << " has no " << option << ", or tells --help anew";
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
          "\nEDITOR_SETTINGS_HOME\nStands in for --home where that is not given\n", ".SH \"EXIT STATUS\"\n  0  done\n",
          "\\fB--store\\fR \\fISTORE\\fR\n", "a backslash is printed as \\e\\e, a tab\nas \\et,"})
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

TEST_F(Manual, BuildHoldsWhatTheProgramMakes)
{
    std::string const share = std::filesystem::path(TOOL).parent_path().parent_path().string() + "/share/";
    EXPECT_EQ(fileContent(share + "man/man1/editor-settings.1"), said({"manual"}));
    EXPECT_EQ(fileContent(share + "bash-completion/completions/editor-settings"), said({"completion", "bash"}));
    EXPECT_EQ(fileContent(share + "zsh/site-functions/_editor-settings"), said({"completion", "zsh"}));
    EXPECT_EQ(fileContent(share + "fish/vendor_completions.d/editor-settings.fish"), said({"completion", "fish"}));
}

// --- Completion ---

// Asks a shell what may stand at the end of a command line; the words that it offers.
using Shell = Words (*)(std::string const& script, std::vector<std::string> const& line);

std::string quoted(std::vector<std::string> const& line)
{
    std::string result;
    for (std::string const& word : line)
        result += " '" + word + '\'';
    return result;
}

Words askBash(std::string const& script, std::vector<std::string> const& line)
{
    std::string const count = std::to_string(line.size() - 1);
    Ended const ended = run({"bash", "--norc", "-c",
                             "compopt() { echo \"compopt $*\"; }; source '" + script + "' && COMP_WORDS=(" + quoted(line) +
                                 ") COMP_CWORD=" + count + " && _editor_settings && printf '%s\\n' \"${COMPREPLY[@]}\""});
    EXPECT_EQ(ended.err, "");
    std::vector<std::string> const offered = lines(ended.out);
    EXPECT_EQ(Words(offered.begin(), offered.end()).size(), offered.size()) << "a word is offered twice";
    return words(ended.out);
}

// The completion system of zsh needs a terminal; what the script hands over to it is what counts here.
Words askZsh(std::string const& script, std::vector<std::string> const& line)
{
    Ended const ended =
        run({"zsh", "-f", "-c",
             "compdef() { :; }; _files() { print -r -- _files $*; }; compset() { current=${current#*=}; }\n"
             "_describe() { for each in ${(P)2}; do [[ ${each%%:*} == $current* ]] && print -r -- ${each%%:*}; done; true; }\n"
             "source '" +
                 script + "'; words=(" + quoted(line) + "); CURRENT=$#words; _editor_settings"});
    EXPECT_EQ(ended.err, "");
    return words(ended.out);
}

Words askFish(std::string const& script, std::vector<std::string> const& line)
{
    std::string text;
    for (std::string const& word : line)
        text += (text.empty() ? "" : " ") + word;
    Ended const ended = run({"fish", "--no-config", "-c", "source '" + script + "'; complete -C '" + text + "'"});
    EXPECT_EQ(ended.err, "");
    Words result;
    for (std::string const& each : lines(ended.out))
        result.insert(each.substr(0, each.find('\t')));
    return result;
}

struct ShellCase {
    char const* name;
    Shell ask;
    Words files; // how the shell is told to complete with files; fish does it itself
    Words folders;
};

class ShellCompletion : public Manual, public testing::WithParamInterface<ShellCase> {
protected:
    void SetUp() override { m_script = m_home.write("script", said({"completion", GetParam().name})).string(); }

    Words offered(std::vector<std::string> line)
    {
        line.insert(line.begin(), "editor-settings");
        return GetParam().ask(m_script, line);
    }

    // Without the forms of one letter.
    static Words longForms(Words options)
    {
        for (auto option = options.begin(); option != options.end();)
            option = option->compare(0, 2, "--") == 0 ? std::next(option) : options.erase(option);
        return options;
    }

    std::string m_script;
};

TEST_P(ShellCompletion, OffersTheVerbs)
{
    EXPECT_EQ(offered({""}), verbs());
    EXPECT_EQ(offered({"ne"}), Words{"next-name"});
    EXPECT_EQ(offered({"next-name", ""}), (Words{"audio", "freeze", "stabilized"}));
    EXPECT_EQ(offered({"--home", "x", "next-name", "--reserve", "st"}), Words{"stabilized"});
}

TEST_P(ShellCompletion, OffersTheKeys)
{
    for (char const* verb : {"get", "set", "unset", "explain", "list"})
        EXPECT_EQ(offered({verb, ""}), keys()) << verb;
    EXPECT_EQ(offered({"get", "expo"}), Words{"exportPath"});
    EXPECT_EQ(offered({"--home", "x", "get", "expo"}), Words{"exportPath"}) << "an option's value is no verb";
    EXPECT_EQ(offered({"get", "exportPath", ""}), Words{}) << "one key is enough";
    EXPECT_EQ(offered({"set", "exportPath", ""}), Words{});
}

TEST_P(ShellCompletion, OffersTheLocations)
{
    Words names;
    for (std::string const& line : lines(said({"paths", "--plain"})))
        names.insert(line.substr(0, line.find_first_of("(\t")));
    EXPECT_GT(names.size(), 70u);
    EXPECT_EQ(offered({"paths", ""}), names);
}

TEST_P(ShellCompletion, OffersTheOptions)
{
    Words const everywhere = {"--help", "--version", "--color", "--no-pager", "--product", "--home"};
    EXPECT_EQ(longOptions(), everywhere);
    for (std::string const& verb : verbs()) {
        Words expected = longOptions({verb});
        expected.insert(everywhere.begin(), everywhere.end());
        EXPECT_EQ(longForms(offered({verb, "--"})), expected) << verb;
    }
    EXPECT_EQ(offered({"next-name", "freeze", "--res"}), Words{"--reserve"}) << "an option of the verb above";
}

TEST_P(ShellCompletion, OffersFilesAndFolders)
{
    m_home.write("in/a b[1].mov", "");
    std::filesystem::create_directories(inHome("in/folder"));
    std::string const here = inHome("in/");
    Words const files = GetParam().files.empty() ? Words{here + "a b[1].mov", here + "folder/"} : GetParam().files;
    Words const folders = GetParam().folders.empty() ? Words{here + "folder/"} : GetParam().folders;
    EXPECT_EQ(offered({"next-name", "freeze", here}), files);
    EXPECT_EQ(offered({"next-name", "stabilized", here}), files);
    for (char const* verb : {"export", "import", "diff"})
        EXPECT_EQ(offered({verb, here}), files) << verb;
    EXPECT_EQ(offered({"--product", here}), files);
    EXPECT_EQ(offered({"--home", here}), folders);
    EXPECT_EQ(offered({"get", here}), Words{}) << "a key is no file";
}

TEST_P(ShellCompletion, OffersTheValuesOfOptions)
{
    EXPECT_EQ(offered({"list", "--store", ""}), (Words{"product", "common"}));
    EXPECT_EQ(offered({"list", "--store", "c"}), Words{"common"});
    std::vector<std::string> const inOneWord = {"list", "--store=c"};
    std::vector<std::string> const asBashHasIt = {"list", "--store", "=", "c"};
    bool const isBash = std::string(GetParam().name) == "bash";
    Words const common = std::string(GetParam().name) == "fish" ? Words{"--store=common"} : Words{"common"};
    EXPECT_EQ(offered(isBash ? asBashHasIt : inOneWord), common);
    if (isBash) {
        EXPECT_EQ(offered({"list", "--store", "="}), (Words{"product", "common"}));
        EXPECT_EQ(offered({"--home", "=", "x", "get", "expo"}), Words{"exportPath"});
    }
    EXPECT_EQ(offered({"--home=x", "get", "expo"}), Words{"exportPath"});
    EXPECT_EQ(offered({"completion", ""}), (Words{"bash", "zsh", "fish"}));
    EXPECT_EQ(offered({"--color", ""}), (Words{"auto", "always", "never"}));
    for (char const* verb : {"export", "import", "diff"})
        EXPECT_EQ(offered({verb, "--only", ""}), (Words{"roaming", "local", "personal", "transient"})) << verb;
}

INSTANTIATE_TEST_SUITE_P(Shells, ShellCompletion,
                         testing::Values(ShellCase{"bash", &askBash, {"compopt", "-o", "default"}, {"compopt", "-o", "dirnames"}},
                                         ShellCase{"zsh", &askZsh, {"_files"}, {"_files", "-/"}}, ShellCase{"fish", &askFish, {}, {}}),
                         [](auto const& test) { return std::string(test.param.name); });

TEST_F(Manual, CompletionTellsWhatVerbsAndOptionsDo)
{
    EXPECT_NE(said({"completion", "zsh"}).find("'get:The value that the editor reads now'"), std::string::npos);
    EXPECT_NE(said({"completion", "zsh"}).find("'--set:Only what is stored'"), std::string::npos);
    EXPECT_NE(said({"completion", "zsh"}).find("editor'\\''s files"), std::string::npos) << "a quote is kept";
    EXPECT_NE(said({"completion", "fish"}).find("-a 'get' -d 'The value that the editor reads now'"), std::string::npos);
    EXPECT_NE(said({"completion", "fish"}).find("-l set -d 'Only what is stored'"), std::string::npos);
}

// The completion system itself, on a terminal, with the script in a folder of completions. It is asked twice, as the
// script is read at the first time only.
TEST_F(Manual, CompletionWorksInZshOnATerminal)
{
    m_home.write("functions/_editor-settings", said({"completion", "zsh"}));
    m_home.write("driver", R"(
        zmodload zsh/zpty
        TRAPALRM() { print -r -- "too late"; exit 1 }
        TMOUT=60
        zpty terminal zsh -f -i
        zpty -w terminal "PS1=READY; fpath=($1 \$fpath); autoload -Uz compinit; compinit -u -D; print LOADED"
        zpty -r -m terminal text '*LOADED*READY*'
        for round in 1 2 3; do
            zpty -w -n terminal $'editor-settings get expo\t'
            zpty -r -m terminal text '*expo*rtPath*' && print completed
            zpty -w terminal $'\x15'
            zpty -r -m terminal text '*READY*'
        done
        zpty -d terminal
    )");
    Ended const ended = run({"timeout", "60", "zsh", "-f", inHome("driver"), inHome("functions")});
    EXPECT_EQ(ended.out, "completed\ncompleted\ncompleted\n") << ended.err;
}

TEST_F(Manual, CompletionIsForKnownShells) { EXPECT_EQ(tool({"completion", "csh"}).status, 2); }

} // namespace
