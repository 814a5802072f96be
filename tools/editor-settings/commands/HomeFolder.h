// SPDX-License-Identifier: MIT
#pragma once

#include <string>

/// The finding of `Inspection::checkHome`, in raw bytes; empty where that finds nothing.
std::string troubleWithTheHome();
