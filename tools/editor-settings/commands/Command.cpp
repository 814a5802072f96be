// SPDX-License-Identifier: MIT
#include "commands/Command.h"

#include <algorithm>

Option fileOption(std::string const& name, std::string& target, std::string const& help)
{
    return Option(name, &target, help).refusingEmpty("the name is empty; name a file").completedBy(Candidates::files);
}

Command const* findVerb(std::vector<Command> const& commands, std::string const& name)
{
    auto const found = std::find_if(commands.begin(), commands.end(), [&](Command const& each) { return each.name == name; });
    return found == commands.end() ? nullptr : &*found;
}

std::function<StoreUse()> always(StoreUse use)
{
    return [use] { return use; };
}

std::vector<Option> withFormat(FormatChoice& choice, char const* json, std::vector<Option> options)
{
    std::vector<Option> all = {
        Option("--plain", &choice.plain, "Tab-separated, one record a line, nothing shortened; for scripts").excluding({"--json"}),
        Option("--json", &choice.json, json)};
    all.insert(all.end(), options.begin(), options.end());
    return all;
}
