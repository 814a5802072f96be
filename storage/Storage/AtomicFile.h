// SPDX-License-Identifier: MIT
//
// Files that are complete and on disk when they get their name. For the rooms of this project; not installed.
#pragma once

#include <filesystem>
#include <functional>
#include <string>

namespace Storage {

/// Creates `folder` and the folders above it where they are missing, with mode 0700. Throws a `StorageError`.
void createFolders(std::filesystem::path const& folder);

/// Writes `content` to the new file `file`, with mode 0600, and creates missing folders above it with 0700; all is on disk
/// when it returns. Returns false and changes nothing where `file` exists. Throws a `StorageError` of `attempt`.
bool writeNewFile(std::filesystem::path const& file, std::string const& content, char const* attempt);

/// Replaces the existing `file` by a new one with `content`, as above. `keep` is called once the new file lacks only its
/// name: it gives the existing file another name and returns whether `file` is free then.
void replaceFile(std::filesystem::path const& file, std::string const& content, char const* attempt, std::function<bool()> const& keep);

} // namespace Storage
