// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

/// What stands after all verbs in the help, and as a section in the manual.
struct HelpText {
    char const* title;
    char const* text; ///< Lines that begin with blanks stay lines of their own.
};

std::vector<HelpText> const& helpTexts();

/// The notes as the help shows them.
std::string helpFooter();
