// SPDX-License-Identifier: MIT
#pragma once

#include "commands/Command.h"

#include <CLI/CLI.hpp>

#include <string>
#include <vector>

/// What a mistyped word may have meant, and what may follow the verbs given so far: a line each. The last line names the help to ask.
/// To be called after `app` failed to parse.
std::string adviceOnUsage(CLI::App const& app, std::vector<Option> const& global, std::vector<Command> const& commands);
