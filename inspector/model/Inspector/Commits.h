// SPDX-License-Identifier: MIT
//
// What a window asks the desk to store, and the answers.
#pragma once

#include <Inspector/Snapshot.h>

#include <Storage/Conflict.h>

#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace Inspector {

/// Another value for a setting, or none, over the one that was on screen.
struct Edit {
    std::shared_ptr<Setting const> seen;
    std::optional<Catalogue::Value> value; ///< Of the type of the setting; nullopt removes its rows, so that the default holds.
};

/// Rows that were changed together: each with the row before and the row after.
using Step = std::vector<Inspection::Difference>;

/// Edits, or a step whose rows get back what they held before. All of either is stored in one transaction for each store, and
/// each row only where it is still the one that was seen, or that the step has left.
using Commit = std::variant<std::vector<Edit>, Step>;

enum class Outcome {
    stored,      ///< All of it.
    unchanged,   ///< Every edit gives the value that is read already: nothing is written.
    conflict,    ///< Somebody else has changed a row since; `Answer::there` has it.
    lookingOnly, ///< Changes are not allowed.
    refused,     ///< `Answer::reason` tells why the value, or the setting, cannot be stored.
    failed,      ///< `Answer::error` tells why.
};

/// What became of a commit.
struct Answer {
    int number = 0; ///< As `Desk::commit` returned it.
    Outcome outcome = Outcome::unchanged;
    Step made{};                                        ///< What was stored: all of it, none, or one store of two.
    std::optional<Catalogue::Store> store{};            ///< Of a conflict.
    std::string key{};                                  ///< Of a conflict: the first row that is another one.
    std::optional<Storage::SqliteStorage::Row> there{}; ///< Of a conflict: that row now; nullopt where it is gone.
    std::string reason{};                               ///< Of a refusal, in the words of the command line.
    std::optional<Storage::StorageError> error{};       ///< Of a failure.
};

} // namespace Inspector
