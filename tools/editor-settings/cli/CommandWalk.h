// SPDX-License-Identifier: MIT
//
// The command line as CLI11 holds it, for what is made from it.
#pragma once

#include <CLI/CLI.hpp>

#include <string>
#include <vector>

/// The verbs below `app`, in their order.
inline std::vector<CLI::App const*> verbsOf(CLI::App const& app)
{
    return app.get_subcommands([](CLI::App const*) { return true; });
}

/// The positional words of `app`, or its options.
inline std::vector<CLI::Option const*> optionsOf(CLI::App const& app, bool positional)
{
    return app.get_options([=](CLI::Option const* option) { return option->get_positional() == positional; });
}

/// Whether an option is followed by a value.
inline bool takesValue(CLI::Option const& option) { return option.get_items_expected_max() > 0; }

/// Every form of an option: "-h" and "--help".
inline std::vector<std::string> formsOf(CLI::Option const& option)
{
    std::vector<std::string> forms;
    for (std::string const& name : option.get_snames())
        forms.push_back('-' + name);
    for (std::string const& name : option.get_lnames())
        forms.push_back("--" + name);
    return forms;
}

/// Calls `visit` with every verb and the words that lead to it, the program itself first, without any.
template <typename Visit>
void walk(CLI::App const& app, std::string const& path, Visit const& visit)
{
    visit(app, path);
    for (CLI::App const* verb : verbsOf(app))
        walk(*verb, path.empty() ? verb->get_name() : path + ' ' + verb->get_name(), visit);
}
