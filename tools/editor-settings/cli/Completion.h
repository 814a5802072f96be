// SPDX-License-Identifier: MIT
//
// Completion for shells, made from the command line itself, so that it offers what the command line takes.
#pragma once

#include <CLI/CLI.hpp>

#include <map>
#include <string>
#include <vector>

/// What can stand for a word of the command line.
struct Choice {
    enum class Kind { words, files, folders };
    Kind kind = Kind::words;
    std::vector<std::string> words = {};
};

/// A completion script for "bash", "zsh" or "fish". `choices` tells what completes a positional word or an option's
/// value; nothing does where it is silent.
std::string completionScript(CLI::App const& app, std::map<CLI::Option const*, Choice> const& choices, std::string const& shell);
