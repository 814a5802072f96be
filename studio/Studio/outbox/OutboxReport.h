// SPDX-License-Identifier: MIT
#pragma once

#include <Studio/outbox/Outbox.h>

#include <chrono>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace Studio {

/// What the outboxes of this workstation hold for a server and a user, of all programs, as one sees it who sends nothing.
struct OutboxReport {
    std::size_t pending = 0; ///< How many changes wait. A running program's last change counts for some seconds longer.
    /// When the oldest of them was made, by this workstation's clock.
    std::optional<std::chrono::system_clock::time_point> since;
    std::vector<Outbox::Refusal> refusals;      ///< What the server refused, the oldest first.
    std::vector<std::filesystem::path> damaged; ///< Files that were moved aside.
};

/// Reads the outboxes in `folders`, which may have none. Creates, changes and locks nothing, so that a program goes on meanwhile.
/// `identity` is that of the connection. Throws `Storage::StorageError`.
OutboxReport readOutboxes(std::vector<std::filesystem::path> const& folders, std::string const& identity);

} // namespace Studio
