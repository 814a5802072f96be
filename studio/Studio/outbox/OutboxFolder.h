// SPDX-License-Identifier: MIT
#pragma once

#include <Storage/StorageError.h>

#include <filesystem>
#include <string>
#include <vector>

struct stat;

namespace Studio {

/// Where an outbox may lie, best first: `chosen`, unless it is empty; "editor-settings" in the folder for states, which
/// XDG_STATE_HOME or HOME names; and a folder of this user's in /var/tmp, for workstations whose home folders lie on a network.
std::vector<std::filesystem::path> outboxFolders(std::filesystem::path const& chosen);

/// The first folder on a local disk.
struct OutboxFolder {
    std::filesystem::path path;                 ///< Exists, and is this user's own. Empty where there is none.
    std::vector<Storage::StorageError> skipped; ///< Why those before it, or all, will not do.
};

/// Finds the first of `folders` that lies on a local disk, and creates it with mode 0700 where it is missing. What another user owns or
/// may write to is skipped, and a symbolic link: anybody may put one into /var/tmp.
OutboxFolder findOutboxFolder(std::vector<std::filesystem::path> const& folders);

/// The file in `folder` for the server and user that `identity` names. Its name is a hash of that, and the file itself holds it.
std::filesystem::path outboxFile(std::filesystem::path const& folder, std::string const& identity);

/// What to do about a file that is refused.
inline constexpr char const* moveAway = "move it away; it was left as it is";

/// Throws a `StorageError` of `attempt` unless `file`, with what lstat says of it, is a regular file of this user's that
/// nobody else may read or write.
void demandOwnFile(std::filesystem::path const& file, struct stat const& status, char const* attempt);

} // namespace Studio
