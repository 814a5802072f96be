// SPDX-License-Identifier: MIT
#pragma once

#include "commands/Command.h"

#include <string>
#include <vector>

/// A text about the program as a whole, for the end of the help and a section of the manual.
struct HelpText {
    char const* title;
    char const* text; ///< Lines that begin with blanks stay lines of their own.
};

std::vector<HelpText> const& helpTexts();

/// The texts as the help shows them.
std::string helpFooter();
/// The examples of a verb as its help shows them.
std::string helpOf(std::vector<Example> const& examples);
