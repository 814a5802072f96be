// SPDX-License-Identifier: MIT
//
// The words of the command line as CLI11 keeps them whole, and what looks at them one by one. CLI11 takes a word in square
// brackets apart at its commas, and takes "++" for the end of a verb's words. A mark before such a word, and before one that
// begins with the mark itself, keeps it whole; every option takes the mark off again.
#pragma once

#include <CLI/CLI.hpp>

#include <string>
#include <vector>

/// The words, marked, the last one first as CLI11 wants them.
std::vector<std::string> markedArguments(int argc, char** argv);
/// A text that tells of marked words, without their marks.
std::string unmarked(std::string text);

/// Takes the mark off a word.
CLI::Validator unmarked();
/// Refuses an empty name of a file.
CLI::Validator aFile();
/// Refuses an empty name where there is a default.
CLI::Validator aNameIfGiven();
/// Refuses what is none of `words`.
CLI::Validator oneOf(std::vector<std::string> const& words);
