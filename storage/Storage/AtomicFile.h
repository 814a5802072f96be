// SPDX-License-Identifier: MIT
//
// Files that are whole when they get their name. For the rooms of this project; not installed.
#pragma once

#include <filesystem>
#include <functional>
#include <string>

namespace Storage {

/// Writes `content` to the new file `file`, with mode 0600, making missing folders above it with 0700; all is on disk
/// when it returns. False where something is there already, which is left as it is. Throws `StorageError`, which names
/// `attempt`.
bool writeNewFile(std::filesystem::path const& file, std::string const& content, char const* attempt);

/// Writes `content` to a new file, as above, in the place of `file`, which is there. `keep` is called before that, when
/// nothing but the new name is missing: it gives what is there another name, and answers whether its place is free then.
void replaceFile(std::filesystem::path const& file, std::string const& content, char const* attempt, std::function<bool()> const& keep);

} // namespace Storage
