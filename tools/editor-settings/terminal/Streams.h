// SPDX-License-Identifier: MIT
#pragma once

#include <string>

/// Opens /dev/null on each standard stream that the caller closed, so that no store gets the descriptor of standard output
/// and receives what is printed. Call it before any file is opened.
void holdStandardStreams();

/// Flushes and closes standard output. Returns the system's reason why some of what was printed could not be written, else
/// an empty string. Call it once, at the end.
std::string closeStandardOutput();
