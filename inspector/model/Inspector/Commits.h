// SPDX-License-Identifier: MIT
//
// What a window asks the desk to do, and the answers.
#pragma once

#include <Inspector/Snapshot.h>
#include <Inspector/transfer/DocumentComparison.h>

#include <Storage/Conflict.h>

#include <filesystem>
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

/// Edits, or a step whose rows get back what they held before. All of either is stored in one transaction for each store, and
/// each row only where it is still the one that was seen, or that the step has left.
using Commit = std::variant<std::vector<Edit>, Step>;

enum class Outcome {
    stored,      ///< All of it.
    unchanged,   ///< Every edit gives the value that is read already: nothing is written.
    conflict,    ///< Somebody else has changed a row since; `Answer::there` has it.
    lookingOnly, ///< Changes are not allowed.
    refused,     ///< `Answer::reason` tells why the value, the setting or the document cannot be taken.
    failed,      ///< `Answer::error` tells why.
    noBackup,    ///< Nothing is stored, as the store could not be copied before; `Answer::error` tells why.
    cancelled,   ///< Nothing is stored.
    compared,    ///< `Answer::comparison` has the differences.
    written,     ///< `Answer::file` is complete and on disk.
};

/// What became of a request.
struct Answer {
    int number = 0; ///< As `Desk::commit`, or another request, returned it.
    Outcome outcome = Outcome::unchanged;
    Step made{};                                            ///< What was stored: all of it, none, or one store of two.
    std::optional<Catalogue::Store> store{};                ///< Of a conflict.
    std::string key{};                                      ///< Of a conflict: the first row that is another one.
    std::optional<Storage::SqliteStorage::Row> there{};     ///< Of a conflict: that row now; nullopt where it is gone.
    std::string reason{};                                   ///< Of a refusal, in the words of the command line.
    std::optional<Storage::StorageError> error{};           ///< Of a failure.
    std::vector<std::filesystem::path> backups{};           ///< What was kept of the stores before their first change, to be told once.
    std::shared_ptr<DocumentComparison const> comparison{}; ///< Of `Desk::compare`.
    std::filesystem::path file{};                           ///< Of an export or a backup.
    std::vector<std::string> notes{};                       ///< What an export left out, each in one sentence; no value.

    /// Why it did not succeed, for people; empty where it did.
    QString whyNot() const;
};

/// Nothing was tried, for this reason.
Answer refused(std::string const& reason);
/// It was tried, and this is what failed.
Answer failed(Storage::StorageError const& error);

} // namespace Inspector
