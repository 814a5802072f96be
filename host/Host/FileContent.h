// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>

namespace Host {

/// The bytes of `file`. Throws `std::system_error` where it cannot be opened or read to its end.
std::string fileContent(std::filesystem::path const& file);

} // namespace Host
