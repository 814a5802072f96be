// SPDX-License-Identifier: MIT
//
// The manual page, made from the command line itself, so that it tells what the command line takes.
#pragma once

#include <CLI/CLI.hpp>

#include <string>

/// The manual page, as troff with the man macros.
std::string manualPage(CLI::App const& app);
