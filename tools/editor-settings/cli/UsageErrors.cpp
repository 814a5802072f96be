// SPDX-License-Identifier: MIT
#include "cli/UsageErrors.h"

#include "terminal/Escaping.h"
#include "terminal/Suggestions.h"

#include <absl/strings/str_cat.h>

#include <algorithm>
#include <map>

namespace {

// The verbs that were understood, and what might have followed them.
struct Understood {
    std::string path = "editor-settings";
    std::string last;
    std::vector<std::string> options;
    std::vector<std::string> verbs;
    std::map<std::string, std::string> otherNames; // of these verbs
};

void addNames(std::vector<std::string>& names, std::vector<Option> const& options)
{
    for (Option const& option : options)
        if (!option.isPositional())
            names.push_back(option.name);
}

Understood understood(CLI::App const& app, std::vector<Option> const& global, std::vector<Command> const& commands)
{
    Understood result;
    result.options = {"--help", "--version"};
    addNames(result.options, global);
    std::vector<Command> const* level = &commands;
    for (CLI::App const* verb = &app; !verb->get_subcommands().empty();) {
        verb = verb->get_subcommands().front();
        Command const* const command = findVerb(*level, verb->get_name());
        if (!command)
            break;
        result.path += ' ' + command->name;
        result.last = command->name;
        addNames(result.options, command->options);
        level = &command->verbs;
    }
    for (Command const& command : *level) {
        result.verbs.push_back(command.name);
        for (std::string const& other : command.otherNames)
            result.otherNames[other] = command.name;
    }
    return result;
}

std::string likelyOption(std::string const& word, Understood const& so)
{
    std::string const name = word.substr(0, word.find('='));
    if (std::find(so.options.begin(), so.options.end(), name) != so.options.end())
        return absl::StrCat("Put ", name, " behind '", so.path, "'.\n");
    std::vector<std::string> const likely = suggestions(name, so.options);
    return likely.empty() ? "" : absl::StrCat("Did you mean ", alternatives(likely), "?\n");
}

std::string likelyVerb(std::string const& word, Understood const& so)
{
    auto const other = so.otherNames.find(word);
    std::vector<std::string> const likely =
        other != so.otherNames.end() ? std::vector<std::string>{other->second} : suggestions(word, so.verbs);
    if (likely.empty())
        return {};
    return absl::StrCat("Did you mean ", alternatives(likely), "? '", so.path, " ", likely.front(), " --help' shows how it is used.\n");
}

std::string whatFollows(Understood so)
{
    if (so.verbs.empty())
        return {};
    std::string const lastName = so.verbs.back();
    so.verbs.pop_back();
    std::string const names = absl::StrCat(joined(so.verbs, ", "), " and ", lastName, ".\n");
    return so.last.empty() ? "The verbs are " + names : absl::StrCat("What follows ", so.last, " is one of ", names);
}

} // namespace

std::string adviceOnUsage(CLI::App const& app, std::vector<Option> const& global, std::vector<Command> const& commands)
{
    Understood const so = understood(app, global, commands);
    std::vector<std::string> const notUnderstood = app.remaining(true);
    std::string const word = notUnderstood.empty() ? "" : notUnderstood.front();
    bool const isOption = word.size() > 2 && word.compare(0, 2, "--") == 0;
    return absl::StrCat(isOption ? likelyOption(word, so) : likelyVerb(word, so), whatFollows(so), "Run '", so.path,
                        " --help' for more information.\n");
}
