// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>

namespace Host {

/// The bytes of `file`. Throws `std::system_error` where it cannot be opened or read to its end.
std::string fileContent(std::filesystem::path const& file);

/// The bytes of `file`, which anyone may have put there: a regular file of at most `most` bytes, or a link to one. Never waits.
/// Throws `std::runtime_error` with the reason, such as "it is not a regular file", in UTF-8.
std::string boundedFileContent(std::filesystem::path const& file, std::size_t most);

} // namespace Host
