// SPDX-License-Identifier: MIT
//
// What to do next where the command line was not understood.
#pragma once

#include <CLI/CLI.hpp>

#include <string>

/// What a word that nothing is called may have meant, and what was to follow the verbs given so far: a line each, where
/// there is something to say. To be asked when the words were parsed in vain.
std::string adviceOnWords(CLI::App const& app);
