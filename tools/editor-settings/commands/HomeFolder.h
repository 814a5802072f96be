// SPDX-License-Identifier: MIT
#pragma once

#include <string>

/// Whether `bytes` hold the path of the user's home folder: of the one in the environment, of the one that the system
/// has for the user, or of what either is a link to; in UTF-8, UTF-16 or percent-encoded as in a URL.
bool tellsOfTheHome(std::string const& bytes);

/// The finding of `Inspection::checkHome`, in raw bytes; empty where that finds nothing.
std::string troubleWithTheHome();
