// SPDX-License-Identifier: MIT
//
// The thread that looks at the stores of a Notifier. Internal.
#pragma once

#include <Storage/SqliteStorage.h>
#include <Storage/watch/WakeUp.h>

#include <cstddef>
#include <filesystem>
#include <functional>
#include <map>
#include <mutex>
#include <set>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace Notifier {

/// A store, and how it is opened.
struct WatchedStore {
    std::filesystem::path path;
    Storage::SqliteStorage::Options options;
};

/// The keys that are chosen.
struct Selection {
    std::set<std::string> keys;
    std::set<std::string> prefixes;
};

/// What is to be told: at most one change for each row. Stores go by their numbers.
struct News {
    bool isWatching = false;                                     ///< Whether watching began.
    std::map<std::pair<std::size_t, std::string>, bool> changes; ///< Store and key; whether this process made the last one.
    std::vector<std::pair<std::size_t, std::string>> errors;     ///< Store and message.
};

/// Looks at stores in a thread of its own, which starts when it is first needed, and rests while nothing is chosen or
/// nobody listens. Any thread may call, and waits for no store but in the destructor, which waits for a look that has begun.
class Worker {
public:
    /// `haveNews` is called when there is something to take, by the worker's thread or by that of `report`; `check` after
    /// `requestCheck`, by the worker's thread.
    Worker(std::vector<WatchedStore> files, std::function<void()> haveNews, std::function<void()> check);
    ~Worker();
    Worker(Worker const&) = delete;
    Worker& operator=(Worker const&) = delete;

    /// Has `add` add to what is chosen.
    void choose(std::function<void(Selection&)> const& add);
    /// Says whether anybody listens.
    void setHeard(bool isHeard);
    /// Has `check` called, where the thread does not rest.
    void requestCheck();
    /// Adds a change that somebody else made, where its key is chosen and somebody listens.
    void report(std::size_t store, std::string const& key);
    /// Takes what is to be told.
    News takeNews();

private:
    struct Watch;
    enum class Task { look, rest, end };

    bool isNeeded() const;
    void wake(std::unique_lock<std::mutex> turn);
    void run();
    Task nextTask();
    void look(Watch& watch);
    void tell(std::function<void(News&)> const& add);

    std::vector<WatchedStore> const m_files;
    std::function<void()> const m_haveNews;
    std::function<void()> const m_check;
    Storage::WakeUp const m_wake; // when the thread must not wait

    std::mutex m_turns; // for all below
    Selection m_selection;
    News m_news;
    bool m_hasNews = false;
    bool m_isHeard = false;
    bool m_isCheckDue = false;
    bool m_isEnding = false;
    std::thread m_thread;
};

} // namespace Notifier
