// SPDX-License-Identifier: MIT
#pragma once

#include "commands/Command.h"

#include <string>
#include <vector>

/// The manual page in troff, for man.
std::string manualPage(std::string const& description, std::vector<Option> const& global, std::vector<Command> const& commands);
