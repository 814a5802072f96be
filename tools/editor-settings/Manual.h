// SPDX-License-Identifier: MIT
//
// Descriptions of the command line that are made from the command line itself, so that they hold what it holds: the
// manual page, and completion for shells.
#pragma once

#include <CLI/CLI.hpp>

#include <map>
#include <string>
#include <vector>

/// What stands after all verbs in the help, and as a section in the manual.
struct Note {
    std::string title;
    std::string text; ///< Lines that begin with blanks stay lines of their own.
};

/// The notes as the help shows them.
std::string helpFooter(std::vector<Note> const& notes);
/// The manual page, as troff with the man macros.
std::string manualPage(CLI::App const& app, std::vector<Note> const& notes);

/// What can stand for a word of the command line.
struct Choice {
    enum class Kind { words, files, folders };
    Kind kind = Kind::words;
    std::vector<std::string> words = {};
};

/// A completion script for "bash", "zsh" or "fish". `choices` tells what completes a positional word or an option's
/// value; nothing does where it is silent.
std::string completionScript(CLI::App const& app, std::map<CLI::Option const*, Choice> const& choices, std::string const& shell);
