// SPDX-License-Identifier: MIT
//
// The name of a file that links lead to. Internal.
#pragma once

#include <filesystem>

namespace Storage {

/// The absolute path `file` without links; the file need not exist. As it is where the system refuses an answer.
std::filesystem::path realName(std::filesystem::path const& file);

} // namespace Storage
