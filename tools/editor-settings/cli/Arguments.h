// SPDX-License-Identifier: MIT
//
// The arguments of the program in the form in which CLI11 keeps each whole. CLI11 splits an argument in square brackets at its
// commas, and takes "++" for the end of a verb's words. A mark before such an argument, and before one that begins with the
// mark itself, prevents both; every option removes the mark.
#pragma once

#include "commands/Command.h"

#include <CLI/CLI.hpp>

#include <string>
#include <vector>

/// `words` with the options of the verbs that stand before the last verb moved behind it.
std::vector<std::string> verbFirst(std::vector<std::string> words, std::vector<Option> const& global, std::vector<Command> const& commands);
/// `words`, marked, the last one first as CLI11 wants them.
std::vector<std::string> markedArguments(std::vector<std::string> words);
/// A message about marked arguments, without the marks.
std::string unmarked(std::string text);

/// Removes the mark from an argument.
CLI::Validator unmarked();
/// Refuses an empty argument with the reason `refusal`.
CLI::Validator notEmpty(std::string const& refusal);
/// Refuses an argument that is none of `words`.
CLI::Validator oneOf(std::vector<std::string> const& words);
