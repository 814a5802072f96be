// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace Host {

/// What is wrong with the home folder that the environment names; empty where it exists.
std::string troubleWithHome();

} // namespace Host
