// SPDX-License-Identifier: MIT
#include "cli/UsageErrors.h"

#include "cli/CommandWalk.h"
#include "terminal/Escaping.h"
#include "terminal/Suggestions.h"

#include <absl/strings/str_cat.h>

namespace {

// The verbs given so far, the program first.
std::vector<CLI::App const*> given(CLI::App const& app)
{
    std::vector<CLI::App const*> verbs = {&app};
    while (!verbs.back()->get_subcommands().empty())
        verbs.push_back(verbs.back()->get_subcommands().front());
    return verbs;
}

std::vector<std::string> optionNames(std::vector<CLI::App const*> const& verbs)
{
    std::vector<std::string> names;
    for (CLI::App const* verb : verbs)
        for (CLI::Option const* option : optionsOf(*verb, false))
            for (std::string const& name : option->get_lnames())
                names.push_back("--" + name);
    return names;
}

std::vector<std::string> verbNames(CLI::App const& app)
{
    std::vector<std::string> names;
    for (CLI::App const* verb : verbsOf(app))
        names.push_back(verb->get_name());
    return names;
}

std::string likelyOption(std::string const& word, std::vector<CLI::App const*> const& verbs)
{
    std::vector<std::string> const likely = suggestions(word.substr(0, word.find('=')), optionNames(verbs));
    return likely.empty() ? std::string() : absl::StrCat("Did you mean ", alternatives(likely), "?") + '\n';
}

std::string likelyVerb(std::string const& word, std::vector<CLI::App const*> const& verbs)
{
    std::vector<std::string> const likely = suggestions(word, verbNames(*verbs.back()));
    if (likely.empty())
        return {};
    std::string path;
    for (CLI::App const* verb : verbs)
        path += verb->get_name() + ' ';
    return absl::StrCat("Did you mean ", alternatives(likely), "? '", path + likely.front(), " --help' shows how it is used.") + '\n';
}

std::string whatFollows(CLI::App const& app, CLI::App const& last)
{
    std::vector<std::string> names = verbNames(last);
    if (names.empty())
        return {};
    std::string const lastName = names.back();
    names.pop_back();
    std::string const first = joined(names, ", ");
    return (&last == &app ? absl::StrCat("The verbs are ", first, " and ", lastName, ".")
                          : absl::StrCat("What follows ", last.get_name(), " is one of ", first, " and ", lastName, ".")) +
           '\n';
}

} // namespace

std::string adviceOnWords(CLI::App const& app)
{
    std::vector<CLI::App const*> const verbs = given(app);
    std::vector<std::string> const notUnderstood = app.remaining(true);
    std::string const word = notUnderstood.empty() ? "" : notUnderstood.front();
    bool const isOption = word.size() > 2 && word.compare(0, 2, "--") == 0;
    return (isOption ? likelyOption(word, verbs) : likelyVerb(word, verbs)) + whatFollows(app, *verbs.back());
}
