// SPDX-License-Identifier: MIT
//
// The verbs that show one setting under a name of their own, and store it where a value is given.
#include "commands/Commands.h"
#include "commands/Preferences.h"

#include <Inspection/PreferenceState.h>

#include <memory>

namespace {

// A verb for the setting under a key.
struct NamedValue {
    std::string member; // for a key that is made from a name
    std::vector<std::string> values;
    bool isEmpty = false;
    FormatChoice format;

    bool isToStore() const { return !values.empty() || isEmpty; }
};

Command command(char const* name, char const* summary, char const* json, std::shared_ptr<NamedValue> const& words,
                std::vector<Option> options, std::function<std::string()> const& key)
{
    Command command;
    command.name = name;
    command.summary = summary;
    command.options = withFormat(words->format, json, std::move(options));
    command.stores = [words] { return words->isToStore() ? StoreUse::change : StoreUse::read; };
    command.run = [words, key](Invocation const& invocation) {
        if (words->isToStore())
            setPreference(*invocation.application, key(), words->values);
        else
            getPreference(*invocation.application, key(), words->format);
        return 0;
    };
    return command;
}

Option nameOption(NamedValue& words) { return Option("NAME", &words.member, "The name that the editor keeps it under").required(); }

std::vector<Option> listOptions(NamedValue& words)
{
    return {Option("VALUE", &words.values, "Stores this list, one word for each element"),
            Option("--empty", &words.isEmpty, "Stores an empty list").excluding({"VALUE"})};
}

std::function<std::string()> memberKey(char const* family, std::shared_ptr<NamedValue> const& words)
{
    return [family, words] { return keyInFamily(Catalogue::familyOf(family), words->member); };
}

Command favoritesCommand()
{
    auto const words = std::make_shared<NamedValue>();
    Command result =
        command("favorites", "The favourites of one list", jsonHelp, words, {nameOption(*words)}, memberKey("favoriteItems", words));
    result.examples = {{"editor-settings favorites fonts", "The favourites of the list \"fonts\"."}};
    return result;
}

Command indicationCommand()
{
    auto const words = std::make_shared<NamedValue>();
    Command result = command("indication", "What the editor keeps for an indication, or stores it", jsonHelpWithBytes, words,
                             {nameOption(*words), Option("VALUE", &words->values, "Stores these bytes: in base64, or @FILE").single()},
                             memberKey("indicationObject", words));
    result.examples = {{"editor-settings indication tour", "What is kept for the indication \"tour\", in base64."},
                       {"editor-settings indication tour @tour.state", "Stores the bytes of the file tour.state for it."}};
    return result;
}

Command tutorialsCommand()
{
    auto const words = std::make_shared<NamedValue>();
    Command result = command("tutorials", "The finished tutorials, or stores them", jsonHelp, words, listOptions(*words),
                             [] { return "achievedTutorials"; });
    result.examples = {{"editor-settings tutorials", "The finished ones, one a line."},
                       {"editor-settings tutorials --empty", "Forgets them all."}};
    return result;
}

Command colorsCommand()
{
    auto const words = std::make_shared<NamedValue>();
    Command result = command("colors", "The user's own colours, or stores them", jsonHelp, words, listOptions(*words),
                             [] { return "userCustomColors"; });
    result.examples = {{"editor-settings colors '#ff8800' navy", "Stores these two in the place of those before."}};
    return result;
}

Command targetHistoryCommand()
{
    auto const words = std::make_shared<NamedValue>();
    Command result = command("target-history", "The recent export targets, or stores them", jsonHelp, words,
                             {Option("VALUE", &words->values, "Stores this text").single()}, [] { return "targetHistory"; });
    result.examples = {{"editor-settings target-history --json", "The text in which the editor keeps them."}};
    return result;
}

} // namespace

std::vector<Command> commandsOfNamedValues()
{
    return {favoritesCommand(), indicationCommand(), tutorialsCommand(), colorsCommand(), targetHistoryCommand()};
}
