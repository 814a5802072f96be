// SPDX-License-Identifier: MIT
#include "Worker.h"

#include <Storage/StoreWatcher.h>
#include <Storage/watch/ChangeHints.h>

#include <algorithm>
#include <chrono>
#include <memory>

namespace Notifier {

namespace {

// How long a change may stay unseen where no hint comes.
constexpr std::chrono::milliseconds longestPause{200};

bool isChosen(Selection const& selection, std::string const& key)
{
    auto const begins = [&](std::string const& prefix) { return key.compare(0, prefix.size(), prefix) == 0; };
    return selection.keys.count(key) > 0 || std::any_of(selection.prefixes.begin(), selection.prefixes.end(), begins);
}

std::vector<std::filesystem::path> pathsOf(std::vector<WatchedStore> const& files)
{
    std::vector<std::filesystem::path> paths;
    for (WatchedStore const& file : files)
        paths.push_back(file.path);
    return paths;
}

} // namespace

// The hints are asked for before the first look, so that none is missed.
struct Worker::Watch {
    explicit Watch(std::vector<WatchedStore> const& files) : hints(pathsOf(files))
    {
        for (WatchedStore const& file : files)
            watchers.emplace_back(file.path, file.options);
        hasBaseline.resize(files.size());
    }

    bool isComplete() const { return std::find(hasBaseline.begin(), hasBaseline.end(), false) == hasBaseline.end(); }

    Storage::ChangeHints hints;
    std::vector<Storage::StoreWatcher> watchers;
    std::vector<bool> hasBaseline; // of each watcher
    bool isTold = false;
};

Worker::Worker(std::vector<WatchedStore> files, std::function<void()> haveNews, std::function<void()> check)
    : m_files(std::move(files)), m_haveNews(std::move(haveNews)), m_check(std::move(check))
{}

Worker::~Worker()
{
    std::unique_lock<std::mutex> turn(m_turns);
    m_isEnding = true;
    wake(std::move(turn));
    if (m_thread.joinable())
        m_thread.join();
}

void Worker::choose(std::function<void(Selection&)> const& add)
{
    std::unique_lock<std::mutex> turn(m_turns);
    add(m_selection);
    wake(std::move(turn));
}

void Worker::setHeard(bool isHeard)
{
    std::unique_lock<std::mutex> turn(m_turns);
    m_isHeard = isHeard;
    wake(std::move(turn));
}

void Worker::requestCheck()
{
    std::unique_lock<std::mutex> turn(m_turns);
    m_isCheckDue = m_isHeard;
    wake(std::move(turn));
}

void Worker::report(std::size_t store, std::string const& key)
{
    tell([&](News& news) {
        if (m_isHeard && isChosen(m_selection, key))
            news.changes[{store, key}] = false;
    });
}

News Worker::takeNews()
{
    std::lock_guard<std::mutex> const turn(m_turns);
    m_hasNews = false;
    return std::exchange(m_news, {});
}

bool Worker::isNeeded() const { return m_isHeard && !(m_selection.keys.empty() && m_selection.prefixes.empty()); }

// Has the thread see what has changed; starts it where it is needed for the first time.
void Worker::wake(std::unique_lock<std::mutex>)
{
    if (isNeeded() && !m_isEnding && !m_thread.joinable())
        m_thread = std::thread([this] { run(); });
    m_wake.wake();
}

Worker::Task Worker::nextTask()
{
    m_wake.clear();
    std::unique_lock<std::mutex> turn(m_turns);
    if (m_isEnding)
        return Task::end;
    Task const task = isNeeded() ? Task::look : Task::rest;
    bool const isCheckDue = std::exchange(m_isCheckDue, false);
    turn.unlock();
    if (isCheckDue)
        m_check();
    return task;
}

void Worker::run()
{
    std::unique_ptr<Watch> watch;
    for (Task task; (task = nextTask()) != Task::end;) {
        if (task == Task::rest) {
            watch.reset();
            m_wake.wait();
            continue;
        }
        if (!watch)
            watch = std::make_unique<Watch>(m_files);
        look(*watch);
        watch->hints.wait(longestPause, m_wake.descriptor());
    }
}

// What was there before is known once each store was read; others may keep one locked. An error counts as well, as what it hides is to
// be told once it is gone.
void Worker::look(Watch& watch)
{
    for (std::size_t store = 0; store < watch.watchers.size(); ++store) {
        Storage::StoreWatcher::Look const look = watch.watchers[store].look();
        tell([&](News& news) {
            if (look.error)
                news.errors.emplace_back(store, look.error->what());
            for (Storage::StoreWatcher::Difference const& difference : look.differences)
                if (watch.isTold && isChosen(m_selection, difference.key))
                    news.changes[{store, difference.key}] = difference.byThisProcess;
        });
        watch.hasBaseline[store] = watch.hasBaseline[store] || look.isRead || look.error;
    }
    if (!watch.isTold && watch.isComplete()) {
        watch.isTold = true;
        tell([](News& news) { news.isWatching = true; });
    }
}

void Worker::tell(std::function<void(News&)> const& add)
{
    std::unique_lock<std::mutex> turn(m_turns);
    add(m_news);
    bool const isNew = !m_hasNews && (m_news.isWatching || !m_news.changes.empty() || !m_news.errors.empty());
    m_hasNews = m_hasNews || isNew;
    turn.unlock();
    if (isNew)
        m_haveNews();
}

} // namespace Notifier
