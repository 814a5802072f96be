// SPDX-License-Identifier: MIT
//
// What the parser of the command line says by itself, in the user's language.
#pragma once

#include <CLI/CLI.hpp>

#include <string>

/// Has the help of `app`, whose verbs and options are all there, say its own words in the user's language.
void translateHelp(CLI::App& app);

/// What is wrong with the words of the command line. Rare reasons stay English.
std::string reasonOf(CLI::Error const& error);
