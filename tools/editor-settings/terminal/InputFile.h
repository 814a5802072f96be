// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>

/// The content of the regular file `name`, or of standard input for "-". Throws `UserError` when it cannot be read, is not a
/// regular file, or exceeds `most` bytes.
std::string inputFile(std::string const& name, std::size_t most);
