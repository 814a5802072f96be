// SPDX-License-Identifier: MIT
//
// All verbs. A new one is a file that makes its `Command`, and its line below.
#pragma once

#include "commands/Command.h"

#include <vector>

std::vector<Command> preferenceCommands(); // list, get, set, unset, explain
Command pathsCommand();
Command nextNameCommand();
Command projectCommand();
std::vector<Command> namedValueCommands(); // favorites, indication, tutorials, colors, target-history
std::vector<Command> backupCommands();     // backup, restore
Command monitorCommand();
Command doctorCommand();
std::vector<Command> transferCommands(); // export, import, diff
