// SPDX-License-Identifier: MIT
//
// The changes of this process to a watched store. Internal.
#pragma once

#include <Storage/SqliteStorage.h>

#include <chrono>
#include <filesystem>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace Storage {

/// The last change that this process made to each key of the store in one file, for the watchers of that file in this
/// process; nothing is noted where there are none.
///
/// A change takes its turn before its commit and keeps it until the change is noted, and a look while it reads: so a look
/// sees a change of this process together with its note, or neither. A change asks for its turn when it holds SQLite's lock
/// for writers, so that a look, which asks for SQLite's lock for readers in its turn, does not wait for it in vain.
class OwnChanges {
public:
    using Row = SqliteStorage::Row;
    using Turn = std::unique_lock<std::mutex>;

    /// The object for the file of that real name, which all stores and watchers of the file share. Any thread may call.
    static std::shared_ptr<OwnChanges> of(std::filesystem::path const& realName);

    /// The turn, once it is free.
    Turn turn() { return Turn(m_turns); }
    /// The turn, or none where it is not free in time.
    Turn turnWithin(std::chrono::milliseconds time);

    /// The turn of a change. Its notes count where `keep` is called.
    class Transaction {
    public:
        explicit Transaction(OwnChanges& changes) : m_changes(changes), m_turn(changes.turn()) { m_changes.m_made.clear(); }
        void keep() { m_changes.keepMade(); }

    private:
        OwnChanges& m_changes;
        Turn const m_turn;
    };

    // The rest is for who has the turn.

    /// Whether there is a watcher, so that changes are to be noted.
    bool isWatched() const { return m_watchers > 0; }
    /// Notes that the transaction leaves `key` with `row`.
    void note(std::string const& key, std::optional<Row> row) { m_made.emplace_back(key, std::move(row)); }
    /// Notes that the store holds `rows` now and nothing else.
    void noteReplacement(std::vector<Row> const& rows);

    void addWatcher() { ++m_watchers; }
    void removeWatcher();

    /// The number of changes so far.
    long long count() const { return m_count; }
    /// Whether a change after the first `seen` ones left `key` with the row `after`.
    bool hasMade(std::string const& key, std::optional<Row> const& after, long long seen) const;

private:
    struct Made {
        long long number;
        std::optional<Row> row;
    };

    void keepMade();

    std::mutex m_turns;
    int m_watchers = 0;
    std::vector<std::pair<std::string, std::optional<Row>>> m_made; // by the transaction that has the turn
    std::map<std::string, Made> m_last;
    long long m_count = 0;
    long long m_replacement = 0; // the number of the last replacement; it removed what is not in `m_last`
};

} // namespace Storage
