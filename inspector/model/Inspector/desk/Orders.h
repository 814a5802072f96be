// SPDX-License-Identifier: MIT
#pragma once

#include "OpenedStores.h"
#include "SlowCalls.h"
#include "StoreWriter.h"

#include <chrono>
#include <deque>
#include <filesystem>
#include <map>
#include <optional>
#include <set>
#include <variant>
#include <vector>

namespace Inspector {

/// Compares a document with the stores.
struct Comparing {
    std::filesystem::path file;
    std::shared_ptr<Inspection::Document const> document{}; ///< Once it is read.
};

/// Exports to a new file.
struct Exporting {
    std::filesystem::path file;
    bool isRedacted;
};

/// Copies both stores to a new file.
struct BackingUp {
    std::filesystem::path file;
};

/// What the desk is asked for, with its number.
struct Order {
    int number;
    std::variant<Commit, Comparing, Exporting, BackingUp> what;
    bool isAllowed = false;          ///< Whether changes were, when it was asked for.
    bool mayGoWithoutBackup = false; ///< Likewise.
};

/// The desk's orders, in its thread: carried out in their turn, and tried again while others keep a store locked. Internal.
class Orders {
public:
    /// Backups are kept in `backupFolder`; nullopt for the user's folder for states.
    Orders(OpenedStores& stores, std::optional<std::filesystem::path> const& backupFolder, SlowCalls& calls)
        : m_stores(stores), m_writer(stores, backupFolder), m_calls(calls)
    {}

    void add(Order order);
    /// Answers it as cancelled, unless that is too late.
    void cancel(int number);
    /// Carries out what can be carried out now.
    void carryOut();
    /// Whether some of them are to be tried again soon.
    bool areWaiting() const { return !m_orders.empty(); }
    std::vector<Answer> takeAnswers() { return std::exchange(m_answers, {}); }
    /// The numbers of those that have waited for a quarter of a second since the first attempt, each once.
    std::vector<int> takeWaiting();

private:
    using Clock = std::chrono::steady_clock;

    bool begin(Order& order);
    std::optional<Answer> attempt(Order const& order);
    std::optional<Answer> carriedOut(Commit const& commit, Order const& order);
    std::optional<Answer> carriedOut(Comparing const& comparing, Order const& order);
    std::optional<Answer> carriedOut(Exporting const& exporting, Order const& order);
    std::optional<Answer> carriedOut(BackingUp const& backingUp, Order const& order);
    void finish(int number, Answer answer);

    OpenedStores& m_stores;
    StoreWriter m_writer;
    SlowCalls& m_calls;
    std::deque<Order> m_orders;
    std::optional<Clock::time_point> m_firstAttempt; // of the first of them
    std::map<int, bool> m_aside;                     // those that the system has not answered, by number; whether they can be cancelled
    std::set<int> m_toldToWait;
    std::vector<Answer> m_answers;
};

} // namespace Inspector
