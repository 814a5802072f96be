// SPDX-License-Identifier: MIT
#include "cli/HelpTexts.h"

#include "terminal/Escaping.h"

#include <absl/strings/str_cat.h>
#include <absl/strings/str_split.h>

#include <algorithm>

std::vector<HelpText> const& helpTexts()
{
    static std::vector<HelpText> const all = {
        {"Exit status",
         "",
         {{"0", "Success"},
          {"1", "Failure: an unknown key, a wrong value, trouble with a store or the product file, a folder that the editor cannot use, "
                "or something wrong found by doctor; for diff: something differs"},
          {"2", "Wrong usage; for diff: any error"}}},
        {"Output",
         R"(Values go to standard output, messages to standard error. With --plain a backslash is printed as \\, a tab as \t,
line breaks as \n and \r, other control characters, marks of writing direction and bytes that are not UTF-8 as \xHH, and a list as
a JSON array. Times are in UTC with --plain and --json, and local for people. A terminal receives no control characters but tabs,
line breaks and colour codes. Output that cannot be written completely is an error.)"},
        {"On a terminal",
         R"(Long answers go through the pager that EDITOR_SETTINGS_PAGER names, else PAGER, else "less"; an empty name or
"cat" turns it off. Where LESS is not set, less ends by itself when the answer fits the screen. Columns line up; elsewhere a
tab separates them. Colours only repeat what the words say; NO_COLOR, or TERM=dumb, turns them off. While a long step runs,
standard error shows its name.)"},
        {"Words that look like options", R"(A value that begins with "-" goes after "--": editor-settings set lastTarget -- -x)"},
        {"Data classes",
         "What a preference is when settings leave the machine, as with export --only and --redact.",
         {{"roaming", "The user's taste, valid on any machine"},
          {"local", "Fits this machine only: folders, windows, updates of the program"},
          {"personal", "Discloses who the user is or what the user works on"},
          {"transient", "Last used or counted: the editor makes it again by itself"}}},
        {"Files",
         "VENDOR and PRODUCT are the names in the product file, see editor-settings-product(5). With --home both stores lie in that "
         "folder.",
         {{"~/.local/share/VENDOR/PRODUCT/product-settings.sqlite", "The store of the product alone"},
          {"~/.local/share/VENDOR/common-settings.sqlite", "The store that the vendor's products share"},
          {"STORE-journal", "SQLite's journal beside a store: empty between two changes, and to be copied or moved with the store"},
          {"STORE.before-restore-TIME", "What restore replaced; restore takes it back"},
          {"~/.local/state/editor-settings",
           "Where a studio shares settings: changes that wait for its server; /var/tmp/editor-settings-UID where that folder cannot be "
           "used"},
          {"PREFIX/share/editor-settings/product.json", "The product file that is installed with the program in PREFIX/bin"}}},
        {"See also", "editor-settings-product(5), less(1), sqlite3(1), the guide and the reference of all preferences and locations in the "
                     "documentation."},
    };
    return all;
}

std::vector<std::pair<char const*, char const*>> const& environmentTerms()
{
    static std::vector<std::pair<char const*, char const*>> const all = {
        {"EDITOR_SETTINGS_PAGER, PAGER", "The pager of long answers; empty or cat for none"},
        {"LESS", "The options of less, in place of those that the program gives it"},
        {"NO_COLOR", "Turns colours off where it is not empty"},
        {"TERM", "The terminal; dumb for one without colours and pager"},
        {"HOME", "The home folder, below which stores and folders lie by default"},
        {"XDG_DATA_HOME", "The folder of data, in place of ~/.local/share; a relative one counts as not set"},
        {"XDG_CACHE_HOME", "The folder of caches, in place of ~/.cache"},
        {"XDG_CONFIG_HOME", "The folder of user-dirs.dirs, which names the folders of films and music, in place of ~/.config"},
        {"XDG_STATE_HOME", "The folder of changes that wait for a studio's server, in place of ~/.local/state"},
        {"TZ", "The time zone of times for people"},
        {"LC_ALL, LC_NUMERIC, LANG", "The locale, whose digits stand in the time that a recording's name holds"},
        {"PGSERVICE, PGHOST, and others that begin with PG",
         "The studio's server where no connection is named, and what a connection leaves out; as libpq reads them"},
    };
    return all;
}

namespace {

constexpr std::size_t columns = 80;

// The words of `text`, in lines behind the column `indent`; the first line is `begun` already.
std::string wrapped(std::string begun, std::size_t indent, std::string const& text)
{
    std::string lines;
    begun.resize(std::max(indent, begun.size()), ' ');
    for (std::string const& word : std::vector<std::string>(absl::StrSplit(text, ' '))) {
        bool const isFirst = begun.size() <= indent;
        if (!isFirst && width(begun) + 1 + width(word) > columns) {
            absl::StrAppend(&lines, begun, "\n");
            begun = std::string(indent, ' ');
        }
        begun += (begun.size() > indent ? " " : "") + word;
    }
    return lines + begun + '\n';
}

using Terms = std::vector<std::pair<std::string, std::string>>;

std::string listed(std::string const& heading, Terms const& terms)
{
    if (terms.empty())
        return {};
    std::size_t longest = 0;
    for (auto const& [term, meaning] : terms)
        longest = std::max(longest, term.size());
    std::string text = absl::StrCat("\n", heading, ":\n");
    for (auto const& [term, meaning] : terms)
        text += wrapped("  " + term, longest + 4, meaning);
    return text;
}

Terms termsOf(std::vector<Option> const& options, bool positional)
{
    Terms terms;
    for (Option const& option : options)
        if (option.isPositional() == positional)
            terms.emplace_back(option.valueName.empty() ? option.name : option.name + ' ' + option.valueName, option.help);
    if (!positional)
        terms.insert(terms.begin(), {"-h,--help", "This help"});
    return terms;
}

Terms termsOf(std::vector<Command> const& commands)
{
    Terms terms;
    for (Command const& command : commands)
        terms.emplace_back(command.name, command.summary);
    return terms;
}

std::string usage(std::string const& path, Command const& command)
{
    std::string text = absl::StrCat("Usage: ", path, " [OPTIONS]", command.verbs.empty() ? "" : " VERB");
    for (Option const& option : command.options)
        if (option.isPositional()) {
            std::string const name = option.name + (option.isRepeated() ? "..." : "");
            text += option.isRequired ? ' ' + name : " [" + name + ']';
        }
    return text + '\n';
}

std::string examplesOf(std::vector<Example> const& examples)
{
    std::string text = examples.empty() ? "" : "\nExamples:\n";
    for (Example const& example : examples)
        absl::StrAppend(&text, "  ", example.command, "\n      ", example.effect, "\n");
    return text;
}

} // namespace

std::string programHelp(std::string const& description, std::vector<Option> const& global, std::vector<Command> const& commands)
{
    std::string text = wrapped("", 0, description) + "Usage: editor-settings [OPTIONS] VERB [WORDS]\n";
    for (auto const& [group, heading] :
         {std::pair(Group::look, "Look"), {Group::change, "Change"}, {Group::keep, "Keep"}, {Group::support, "Support"}}) {
        std::vector<Command> members;
        std::copy_if(commands.begin(), commands.end(), std::back_inserter(members),
                     [&, wanted = group](Command const& each) { return each.group == wanted; });
        text += listed(heading, termsOf(members));
    }
    Terms options = termsOf(global, false);
    options.insert(options.begin() + 1, {"--version", "The version"});
    return text + listed("Options", options) + "\n'editor-settings help VERB' explains a verb, 'editor-settings manual' the rest.\n";
}

std::string verbHelp(std::string const& path, Command const& command)
{
    return wrapped("", 0, command.summary + '.') + usage(path, command) + listed("Words", termsOf(command.options, true)) +
           listed("Options", termsOf(command.options, false)) + listed("Verbs", termsOf(command.verbs)) + examplesOf(command.examples) +
           "\n'editor-settings help' shows the options that every verb takes.\n";
}
