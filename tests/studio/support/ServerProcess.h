// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include <sys/types.h>

// What servers have in common that tests start: they refuse to run as root. Functions throw `std::runtime_error`.

bool isRoot();
/// `command`, to be run as the user postgres where this process is root. A signal ends it at once with the thread that starts it,
/// and lets it free its shared memory.
std::vector<std::string> asServer(std::vector<std::string> command);
/// Has the file belong to the server's user.
void giveToServer(std::filesystem::path const& file);
/// A new folder that belongs to the server's user.
std::filesystem::path freshFolder();
/// Starts the program with its standard streams in `log`.
pid_t startProgram(std::vector<std::string> const& command, std::filesystem::path const& log);
