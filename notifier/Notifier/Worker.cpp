// SPDX-License-Identifier: MIT
#include "Worker.h"

#include <Storage/StoreWatcher.h>
#include <Storage/watch/ChangeHints.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdint>
#include <memory>
#include <system_error>

#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

namespace Notifier {

namespace {

// How long a change may stay unseen where no hint comes.
constexpr std::chrono::milliseconds longestPause{200};

bool isChosen(Selection const& selection, std::string const& key)
{
    auto const begins = [&](std::string const& prefix) { return key.compare(0, prefix.size(), prefix) == 0; };
    return selection.keys.count(key) > 0 || std::any_of(selection.prefixes.begin(), selection.prefixes.end(), begins);
}

std::vector<std::filesystem::path> pathsOf(std::vector<StoreFile> const& files)
{
    std::vector<std::filesystem::path> paths;
    for (StoreFile const& file : files)
        paths.push_back(file.path);
    return paths;
}

int madeEvent()
{
    int const descriptor = ::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    if (descriptor < 0)
        throw std::system_error(errno, std::generic_category(), "cannot watch stores");
    return descriptor;
}

} // namespace

// The hints are asked for before the first look, so that none is missed.
struct Worker::Watch {
    explicit Watch(std::vector<StoreFile> const& files) : hints(pathsOf(files))
    {
        for (StoreFile const& file : files)
            watchers.emplace_back(file.path, file.options);
    }

    Storage::ChangeHints hints;
    std::vector<Storage::StoreWatcher> watchers;
    bool isFirst = true;
};

Worker::Worker(std::vector<StoreFile> files, std::function<void()> haveNews, std::function<void()> check)
    : m_files(std::move(files)), m_haveNews(std::move(haveNews)), m_check(std::move(check)), m_wake(madeEvent())
{}

Worker::~Worker()
{
    std::unique_lock<std::mutex> turn(m_turns);
    m_isEnding = true;
    wake(std::move(turn));
    if (m_thread.joinable())
        m_thread.join();
    ::close(m_wake);
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
    std::uint64_t const once = 1;
    [[maybe_unused]] ssize_t const written = ::write(m_wake, &once, sizeof once);
}

Worker::Task Worker::nextTask()
{
    std::uint64_t wakes = 0;
    [[maybe_unused]] ssize_t const count = ::read(m_wake, &wakes, sizeof wakes);
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
            pollfd awaited = {m_wake, POLLIN, 0};
            ::poll(&awaited, 1, -1);
            continue;
        }
        if (!watch)
            watch = std::make_unique<Watch>(m_files);
        look(*watch);
        watch->hints.wait(longestPause, m_wake);
    }
}

void Worker::look(Watch& watch)
{
    for (std::size_t store = 0; store < watch.watchers.size(); ++store) {
        Storage::StoreWatcher::Look const look = watch.watchers[store].look();
        tell([&](News& news) {
            if (look.error)
                news.errors.emplace_back(store, look.error->what());
            for (Storage::StoreWatcher::Difference const& difference : look.differences)
                if (!watch.isFirst && isChosen(m_selection, difference.key))
                    news.changes[{store, difference.key}] = difference.byThisProcess;
        });
    }
    if (std::exchange(watch.isFirst, false))
        tell([](News& news) { news.isWatching = true; });
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
