// SPDX-License-Identifier: MIT
#pragma once

#include <Storage/SqliteStorage.h>

#include <atomic>
#include <optional>
#include <string>
#include <vector>

/// Changes keys of a store, and knows after any fault what the store must hold: for each key the value of the last change
/// that returned, or that of the one begun after it; and nothing else. It is kept in memory that forked processes share
/// and that outlives them, so that a process may change keys, be killed at any moment, and another one look.
class Ledger {
public:
    static constexpr int keys = 6;

    Ledger();
    ~Ledger();
    Ledger(Ledger const& other);
    Ledger& operator=(Ledger const& other);

    /// Puts rows of every kind into a new store that no change may touch, and some values.
    void fill(Storage::SqliteStorage& store);

    /// The next change of a key: another value, at times a removal.
    void change(Storage::SqliteStorage& store, int key);

    /// What is wrong with what the store holds, nothing where it is as it must be. What was seen once is settled: a value
    /// that is undone again, or comes up later, is wrong from then on.
    std::string wrong(Storage::SqliteStorage const& store);

    /// As `wrong`, for one key, read by itself.
    std::string wrongAt(Storage::SqliteStorage const& store, int key);

    /// How many changes were begun, and how many of them returned.
    int begun() const;
    int returned() const;

    static std::string name(int key);

    /// The text of a key's change, nothing for a removal. Each place in it depends on key and number, so that texts that
    /// are mixed, torn or of another key do not pass for one.
    static std::optional<std::string> text(int key, int number);

private:
    struct Entry {
        std::atomic<int> begun;
        std::atomic<int> returned;
    };

    std::string wrongRow(int key, std::optional<Storage::SqliteStorage::Row> const& row);

    Entry* const m_entries;
    std::vector<Storage::SqliteStorage::Row> m_untouched;
};
