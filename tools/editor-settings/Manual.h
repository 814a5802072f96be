// SPDX-License-Identifier: MIT
//
// The manual page, made from the command line itself, so that it tells what the command line takes.
#pragma once

#include <CLI/CLI.hpp>

#include <string>
#include <vector>

/// What stands after all verbs in the help, and as a section in the manual.
struct Note {
    char const* title; ///< To be translated, as is the text.
    char const* text;  ///< Lines that begin with blanks stay lines of their own.
};

/// The notes as the help shows them, in the user's language.
std::string helpFooter(std::vector<Note> const& notes);
/// The manual page, as troff with the man macros.
std::string manualPage(CLI::App const& app, std::vector<Note> const& notes);
