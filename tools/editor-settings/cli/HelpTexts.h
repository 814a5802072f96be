// SPDX-License-Identifier: MIT
#pragma once

#include "commands/Command.h"

#include <string>
#include <vector>

/// A section of the manual about the program as a whole: a text, then terms with their meanings.
struct HelpText {
    char const* title;
    char const* text;
    std::vector<std::pair<char const*, char const*>> terms = {};
};

/// Those before and those behind the section about the environment.
std::vector<HelpText> const& helpTexts();
/// The variables that no option stands for.
std::vector<std::pair<char const*, char const*>> const& environmentTerms();

/// The help of the program: at most 80 columns wide.
std::string programHelp(std::string const& description, std::vector<Option> const& global, std::vector<Command> const& commands);
/// The help of a verb, whose name with those above it is `path`: likewise.
std::string verbHelp(std::string const& path, Command const& command);
