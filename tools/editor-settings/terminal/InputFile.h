// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>

/// The bytes of the regular file `name`, or of standard input where that is "-". Throws `UserError` where it cannot be
/// read, is another kind of file, or holds more than `most` bytes.
std::string inputFile(std::string const& name, std::size_t most);
