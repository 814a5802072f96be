// SPDX-License-Identifier: MIT
#pragma once

#include <Storage/SqliteStorage.h>

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace Storage {

/// One key that differs between two states of a store; at least one of the rows is set.
struct RowDifference {
    /// What happened to the key.
    enum class Change { added, removed, changed };

    std::string key;                          ///< Of any bytes; UTF-8 by convention.
    std::optional<SqliteStorage::Row> before; ///< nullopt for an absent key.
    std::optional<SqliteStorage::Row> after;  ///< nullopt for an absent key.

    /// What happened, by which of the rows are set.
    Change change() const { return !before ? Change::added : !after ? Change::removed : Change::changed; }
};

/// The difference from `before` to `after`, rows of one key; nullopt where there is none. A rewritten equal value is no
/// difference; an unreadable one is, as its content cannot be compared.
std::optional<RowDifference> rowDifference(std::optional<SqliteStorage::Row> before, std::optional<SqliteStorage::Row> after);

/// The differences from `before` to `after`, sorted by key.
std::vector<RowDifference> rowDifferences(std::vector<SqliteStorage::Row> const& before, std::vector<SqliteStorage::Row> const& after);

/// Finds what changes in the store of one file, whoever changes it, also where the file appears, goes, or is replaced.
///
/// The file is looked at when `look` is called and never in between. It is never created and never changed. A look at an
/// unchanged store costs a few system calls.
/// Threads: one at a time; best one that may wait, as each look reads the disk.
/// Forks: a process that was forked meanwhile may not use it, unless it calls exec.
class StoreWatcher {
public:
    /// Watches `file`, which need not exist, as a host that opens it with `options`. A store that others keep locked for
    /// longer than `busyTimeout` is an error; `createIfMissing` does not count.
    explicit StoreWatcher(std::filesystem::path const& file, SqliteStorage::Options const& options = {});
    ~StoreWatcher();
    /// Takes over what `other` watches, which may then only be assigned to or destroyed.
    StoreWatcher(StoreWatcher&& other) noexcept;
    /// As above.
    StoreWatcher& operator=(StoreWatcher&& other) noexcept;

    /// A difference, and whose change it is.
    struct Difference : RowDifference {
        /// Whether this process stored or removed the row that `after` tells, with any of its `SqliteStorage` objects or by
        /// a `Backup`. A file that was moved or removed, or replaced in another way, counts as another process's change.
        ///
        /// Rows are compared by kind, value and millisecond, and removals not at all: where another process repeats a
        /// change of this one in the same millisecond, or sets and removes again what this one has removed, between two
        /// looks, the change counts as this process's.
        bool byThisProcess = false;
    };

    /// What a look finds.
    struct Look {
        std::vector<Difference> differences; ///< Since the last look that succeeded, sorted by key.
        std::optional<StorageError> error;   ///< Only in the first look of a run of looks that fail with the same text.
        bool isRead = false;                 ///< Whether the look succeeded; false also while others keep the store locked.
    };

    /// Compares the store with the last look that succeeded; the first one finds all rows of an existing store as added.
    /// After an error, and while others keep the store locked, the rows of the last success stay for the next comparison.
    /// Waits for other processes for at most 0.1 seconds.
    Look look();

private:
    class Watch;
    std::unique_ptr<Watch> m_watch;
};

} // namespace Storage
