// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace Host {

/// What is wrong with the home folder that the environment names; empty where it exists.
std::string troubleWithHome();

/// Removes XDG_DATA_HOME from the environment where it is relative, and returns it; else an empty string. The rules of these
/// variables have programs ignore a relative folder; Qt takes it, so that the stores would lie wherever the program is started. To be
/// called while there is one thread.
std::string ignoreRelativeDataFolder();

} // namespace Host
