// SPDX-License-Identifier: MIT
//
// Completion of a command line as it is typed. A script for each shell asks the hidden verb "complete", which prints what may
// stand at the cursor.
#pragma once

#include "commands/Command.h"

#include <string>
#include <vector>

/// Prints a line for each candidate for the last of `words`, which is being typed: the word, a tab and what it is for. The lines
/// ":files" and ":folders" leave the completion to the shell.
void printCandidates(std::vector<Option> const& global, std::vector<Command> const& commands, std::vector<std::string> const& words);

/// Prints the installed script for "bash", "zsh" or "fish". Throws `UserError` where it cannot be read.
void printCompletionScript(std::string const& shell);
