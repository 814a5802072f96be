// SPDX-License-Identifier: MIT
//
// Completion: what the program offers at the cursor, and each shell that asks it.
#include <tools/commands/Tool.h>

#include <Storage/SqliteStorage.h>

#include <support/Table.h>

#include <algorithm>
#include <set>
#include <sstream>

namespace {

using Words = std::set<std::string>;

class Completion : public Tool {
protected:
    // The words that the program offers for the last word of a line, without what they are for.
    Words offered(std::vector<std::string> const& line)
    {
        std::vector<std::string> arguments = {"complete", "--"};
        arguments.insert(arguments.end(), line.begin(), line.end());
        Words result;
        for (std::string const& each : lines(said(arguments)))
            EXPECT_TRUE(result.insert(each.substr(0, each.find('\t'))).second) << each << " is offered twice";
        return result;
    }

    Words verbsOfTheHelp()
    {
        std::vector<std::string> const listed = verbs();
        return {listed.begin(), listed.end()};
    }
};

Words keys()
{
    Words result;
    for (PreferenceRow const& row : preferenceTable())
        if (row.hasAccessors())
            result.insert(row.key);
    return result;
}

TEST_F(Completion, OffersTheVerbs)
{
    EXPECT_EQ(offered({""}), verbsOfTheHelp());
    EXPECT_EQ(offered({}), verbsOfTheHelp());
    EXPECT_EQ(offered({"ne"}), Words{"next-name"});
    EXPECT_EQ(offered({"next-name", ""}), (Words{"audio", "freeze", "stabilized"}));
    EXPECT_EQ(offered({"--home", "x", "next-name", "--reserve", "st"}), Words{"stabilized"});
    EXPECT_EQ(offered({"--no-pager", "mon"}), Words{"monitor"}) << "a flag takes no value";
}

TEST_F(Completion, OffersTheKeys)
{
    for (char const* verb : {"get", "set", "explain", "list"})
        EXPECT_EQ(offered({verb, ""}), keys()) << verb;
    EXPECT_EQ(offered({"get", "expo"}), Words{"exportPath"});
    EXPECT_EQ(offered({"--home", "get", "explain", "expo"}), Words{"exportPath"}) << "an option's value is no verb";
    EXPECT_EQ(offered({"--home=get", "explain", "expo"}), Words{"exportPath"});
    EXPECT_EQ(offered({"get", "exportPath", ""}), keys()) << "it takes several";
    EXPECT_EQ(offered({"explain", "exportPath", ""}), Words{}) << "one key is enough";
    EXPECT_EQ(offered({"set", "exportPath", ""}), Words{});
}

TEST_F(Completion, OffersToUnsetWhatIsStored)
{
    EXPECT_EQ(offered({"unset", ""}), Words{}) << "there is no store yet";
    said({"set", "npsSendCount", "1"});
    said({"set", "autoUpdate", "no"});
    said({"set", "Indication/tour", "AA=="});
    EXPECT_EQ(offered({"unset", ""}), (Words{"autoUpdate", "npsSendCount", "Indication/tour"}));
    EXPECT_EQ(offered({"--home", inHome("elsewhere"), "unset", ""}), Words{});
    EXPECT_EQ(offered({"--product", "/no/such", "unset", ""}), Words{}) << "nobody is there to read an error";
}

TEST_F(Completion, OffersTheLocations)
{
    Words names;
    for (std::string const& line : lines(said({"paths", "--plain"})))
        names.insert(line.substr(0, line.find_first_of("(\t")));
    EXPECT_GT(names.size(), 70u);
    EXPECT_EQ(offered({"paths", ""}), names);
}

TEST_F(Completion, OffersTheOptions)
{
    Words const everywhere = {"--help", "--version", "--color", "--no-pager", "--product", "--home", "--allow-network"};
    EXPECT_EQ(offered({"--"}), everywhere);
    Words list = {"--plain", "--json", "--set", "--unset", "--store", "--format"};
    list.insert(everywhere.begin(), everywhere.end());
    EXPECT_EQ(offered({"list", "-"}), list);
    EXPECT_EQ(offered({"next-name", "freeze", "--res"}), Words{"--reserve"}) << "an option of the verb above";
    EXPECT_EQ(offered({"list", "--", "--"}), Words{}) << "words alone follow two dashes";
}

TEST_F(Completion, LeavesFilesAndFoldersToTheShell)
{
    for (char const* verb : {"export", "import", "diff", "backup", "restore"})
        EXPECT_EQ(offered({verb, "x"}), Words{":files"}) << verb;
    EXPECT_EQ(offered({"next-name", "stabilized", "x"}), Words{":files"});
    EXPECT_EQ(offered({"set", "lastTarget", "--from-file", "x"}), Words{":files"});
    EXPECT_EQ(offered({"--product", "x"}), Words{":files"});
    EXPECT_EQ(offered({"--home", "x"}), Words{":folders"});
    EXPECT_EQ(offered({"get", "/"}), Words{}) << "a key is no file";
}

TEST_F(Completion, OffersTheValuesOfOptions)
{
    EXPECT_EQ(offered({"list", "--store", ""}), (Words{"product", "common"}));
    EXPECT_EQ(offered({"list", "--store", "c"}), Words{"common"});
    EXPECT_EQ(offered({"list", "--store=c"}), Words{"--store=common"});
    EXPECT_EQ(offered({"list", "--store", "=", "c"}), Words{"common"}) << "bash makes a word of its own of =";
    EXPECT_EQ(offered({"list", "--store", "="}), (Words{"product", "common"}));
    EXPECT_EQ(offered({"completion", ""}), (Words{"bash", "zsh", "fish"}));
    EXPECT_EQ(offered({"--color", ""}), (Words{"auto", "always", "never"}));
    EXPECT_EQ(offered({"export", "--only", ""}), (Words{"roaming", "local", "personal", "transient"}));
    EXPECT_EQ(offered({"list", "--format", ""}), Words{"markdown"});
}

TEST_F(Completion, TellsWhatEachWordIsFor)
{
    EXPECT_EQ(said({"complete", "--", "ge"}), "get\tThe value that the editor reads now\n");
    EXPECT_EQ(said({"complete", "--", "list", "--se"}), "--set\tOnly what is stored\n");
    EXPECT_EQ(said({"complete", "--", "get", "exp"}), "exportPath\tFolder of exported films\n");
    EXPECT_EQ(said({"complete", "--", "paths", "stockTi"}), "stockTitlesSvgPath\tTitles\n");
    said({"set", "Indication/tour", "AA=="});
    Storage::SqliteStorage(productFile()).setString("unknown", "");
    EXPECT_EQ(said({"complete", "--", "unset", ""}),
              "Indication/tour\tWhat the editor keeps for the indication called \"tour\"\nunknown\t\n");
}

TEST_F(Completion, IsNotInTheHelp) { EXPECT_EQ(said({"--help"}).find("  complete "), std::string::npos); }

TEST_F(Completion, ScriptThatIsNotInstalledIsNamed)
{
    std::filesystem::create_directories(inHome("bin"));
    std::filesystem::copy_file(TOOL, inHome("bin/editor-settings"));
    Ended const ended = run({inHome("bin/editor-settings"), "completion", "zsh"});
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.err, "editor-settings: cannot read '" + inHome("share/zsh/vendor-completions/_editor-settings") +
                             "' (No such file or directory); install the program again\n");
}

TEST_F(Completion, IsForKnownShells) { EXPECT_EQ(tool({"completion", "csh"}).status, 2); }

// --- The shells ---

// Asks a shell what may stand at the end of a command line; the words that it offers.
using Shell = Words (*)(std::string const& script, std::vector<std::string> const& line);

std::string quoted(std::vector<std::string> const& line)
{
    std::string result;
    for (std::string const& word : line)
        result += " '" + word + '\'';
    return result;
}

Words wordsOf(std::string const& text)
{
    std::istringstream stream(text);
    Words result;
    for (std::string word; stream >> word;)
        result.insert(word);
    return result;
}

Words askBash(std::string const& script, std::vector<std::string> const& line)
{
    std::string const count = std::to_string(line.size() - 1);
    Ended const ended = run({"bash", "--norc", "-c",
                             "compopt() { echo \"compopt $*\"; }; source '" + script + "' && COMP_WORDS=(" + quoted(line) +
                                 ") COMP_CWORD=" + count + " && _editor_settings && printf '%s\\n' \"${COMPREPLY[@]}\""});
    EXPECT_EQ(ended.err, "");
    return wordsOf(ended.out);
}

// The completion system of zsh needs a terminal; what the script hands over to it is what counts here.
Words askZsh(std::string const& script, std::vector<std::string> const& line)
{
    Ended const ended = run({"zsh", "-f", "-c",
                             "compdef() { :; }; _files() { print -r -- _files $*; }\n"
                             "_describe() { for each in ${(P)2}; do print -r -- ${each%%:*}; done; true; }\n"
                             "source '" +
                                 script + "'; words=(" + quoted(line) + "); CURRENT=$#words; _editor_settings"});
    EXPECT_EQ(ended.err, "");
    return wordsOf(ended.out);
}

Words askFish(std::string const& script, std::vector<std::string> const& line)
{
    std::string text = "editor-settings";
    for (std::size_t index = 1; index < line.size(); ++index)
        text += ' ' + line[index];
    std::string const folder = std::filesystem::path(line[0]).parent_path().string();
    Ended const ended =
        run({"fish", "--no-config", "-c", "set -x PATH '" + folder + "' $PATH; source '" + script + "'; complete -C '" + text + "'"});
    EXPECT_EQ(ended.err, "");
    Words result;
    for (std::string const& each : lines(ended.out))
        result.insert(each.substr(0, each.find('\t')));
    return result;
}

struct ShellCase {
    char const* name;
    Shell ask;
    Words files; // what asks the shell for files; fish completes them itself
    Words folders;
};

class ShellCompletion : public Completion, public testing::WithParamInterface<ShellCase> {
protected:
    void SetUp() override { m_script = m_home.write("script", said({"completion", GetParam().name})).string(); }

    Words shellOffers(std::vector<std::string> line)
    {
        line.insert(line.begin(), TOOL);
        return GetParam().ask(m_script, line);
    }

    std::string m_script;
};

TEST_P(ShellCompletion, OffersWhatTheProgramOffers)
{
    EXPECT_EQ(shellOffers({""}), verbsOfTheHelp());
    EXPECT_EQ(shellOffers({"get", "expo"}), Words{"exportPath"});
    EXPECT_EQ(shellOffers({"next-name", "freeze", "--res"}), Words{"--reserve"});
    EXPECT_EQ(shellOffers({"list", "--store", "c"}), Words{"common"});
    EXPECT_EQ(shellOffers({"explain", "exportPath", ""}), Words{});
    EXPECT_EQ(shellOffers({"exp"}), (Words{"explain", "export"}));
}

// What zsh and fish show beside each word.
TEST_F(Completion, ShellsShowThePurpose)
{
    std::string const script = m_home.write("script", said({"completion", "zsh"})).string();
    Ended const zsh = run({"zsh", "-f", "-c",
                           "compdef() { :; }; _describe() { print -rl -- ${(P)2}; }; source '" + script +
                               "'; words=('" TOOL "' get expo); CURRENT=3; _editor_settings"});
    EXPECT_EQ(zsh.out, "exportPath:Folder of exported films\n") << zsh.err;
    m_home.write("script.fish", said({"completion", "fish"}));
    std::string const folder = std::filesystem::path(TOOL).parent_path().string();
    Ended const fish =
        run({"fish", "--no-config", "-c",
             "set -x PATH '" + folder + "' $PATH; source '" + inHome("script.fish") + "'; complete -C 'editor-settings get expo'"});
    EXPECT_EQ(fish.out, "exportPath\tFolder of exported films\n") << fish.err;
}

TEST_P(ShellCompletion, CompletesFilesAndFolders)
{
    m_home.write("in/a b[1].mov", "");
    std::filesystem::create_directories(inHome("in/folder"));
    std::string const here = inHome("in/");
    Words const files = GetParam().files.empty() ? Words{here + "a b[1].mov", here + "folder/"} : GetParam().files;
    Words const folders = GetParam().folders.empty() ? Words{here + "folder/"} : GetParam().folders;
    EXPECT_EQ(shellOffers({"next-name", "freeze", here}), files);
    EXPECT_EQ(shellOffers({"--home", here}), folders);
}

INSTANTIATE_TEST_SUITE_P(Shells, ShellCompletion,
                         testing::Values(ShellCase{"bash", &askBash, {"compopt", "-o", "default"}, {"compopt", "-o", "dirnames"}},
                                         ShellCase{"zsh", &askZsh, {"_files"}, {"_files", "-/"}}, ShellCase{"fish", &askFish, {}, {}}),
                         [](auto const& test) { return std::string(test.param.name); });

// The completion system itself, on a terminal, with the script in a folder of completions. It is asked twice, as the
// script is read at the first time only.
TEST_F(Completion, WorksInZshOnATerminal)
{
    m_home.write("functions/_editor-settings", said({"completion", "zsh"}));
    m_home.write("driver", R"(
        zmodload zsh/zpty
        TRAPALRM() { print -r -- "too late"; exit 1 }
        TMOUT=60
        zpty terminal zsh -f -i
        zpty -w terminal "PS1=READY; path=(${TOOL:h} \$path); fpath=($1 \$fpath); autoload -Uz compinit; compinit -u -D; print LOADED"
        zpty -r -m terminal text '*LOADED*READY*'
        for round in 1 2 3; do
            zpty -w -n terminal $'editor-settings get expo\t'
            zpty -r -m terminal text '*expo*rtPath*' && print completed
            zpty -w terminal $'\x15'
            zpty -r -m terminal text '*READY*'
        done
        zpty -d terminal
    )");
    Ended const ended = run({"timeout", "60", "zsh", "-f", inHome("driver"), inHome("functions")}, {{"TOOL", TOOL}});
    EXPECT_EQ(ended.out, "completed\ncompleted\ncompleted\n") << ended.err;
}

} // namespace
