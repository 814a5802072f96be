// SPDX-License-Identifier: MIT
#include "DeskThread.h"

#include <Storage/watch/ChangeHints.h>

#include <algorithm>
#include <iterator>

namespace Inspector {

namespace {

constexpr std::chrono::milliseconds pauseBetweenAttempts{50};

} // namespace

DeskThread::DeskThread(Place const& place, std::function<void()> haveNews)
    : m_place(place), m_haveNews(std::move(haveNews)), m_thread([this] { run(); })
{}

DeskThread::~DeskThread()
{
    std::unique_lock<std::mutex> turn(m_turns);
    m_isEnding = true;
    m_wake.wake();
    turn.unlock();
    m_thread.join();
}

void DeskThread::setPause(std::chrono::milliseconds longest)
{
    std::lock_guard<std::mutex> const turn(m_turns);
    m_pause = longest;
    m_wake.wake();
}

// Woken within the turn, so that the thread sees what was added.
void DeskThread::ask(std::function<void(Asked&)> const& add)
{
    std::lock_guard<std::mutex> const turn(m_turns);
    add(m_asked);
    m_wake.wake();
}

void DeskThread::lookAgain()
{
    ask([](Asked& asked) { asked.isToLook = true; });
}

void DeskThread::add(Order order)
{
    ask([&](Asked& asked) { asked.orders.push_back(std::move(order)); });
}

void DeskThread::cancel(int number)
{
    ask([&](Asked& asked) { asked.cancelled.push_back(number); });
}

void DeskThread::check(int number, QString const& folder)
{
    ask([&](Asked& asked) { asked.folders.emplace_back(number, folder); });
}

News DeskThread::takeNews()
{
    std::lock_guard<std::mutex> const turn(m_turns);
    m_hasNews = false;
    News news = m_news;
    m_news = {m_news.snapshot, {}, {}, {}};
    return news;
}

// --- In the thread ---

// How long to wait after the next look; nullopt where the thread is to end.
std::optional<std::chrono::milliseconds> DeskThread::takeAsked(Orders& orders, OpenedStores& stores, SlowCalls& calls)
{
    m_wake.clear();
    std::unique_lock<std::mutex> turn(m_turns);
    Asked asked = std::exchange(m_asked, {});
    std::chrono::milliseconds const pause = m_pause;
    if (m_isEnding)
        return std::nullopt;
    turn.unlock();
    for (SlowCalls::Result const& take : calls.takeResults())
        take();
    for (Order& order : asked.orders)
        orders.add(std::move(order));
    for (int const number : asked.cancelled)
        orders.cancel(number);
    for (std::pair<int, QString> const& folder : asked.folders)
        check(folder, calls);
    if (asked.isToLook)
        stores.openAgain();
    return pause;
}

void DeskThread::check(std::pair<int, QString> const& folder, SlowCalls& calls)
{
    calls.add([this, folder]() -> SlowCalls::Result {
        Inspection::PathStatus const status = Inspection::statusOnDisk(folder.second, Inspection::PathUse::written);
        return [this, number = folder.first, status] { tell([&](News& news) { news.folders.emplace_back(number, status); }); };
    });
}

void DeskThread::run()
{
    SlowCalls calls([this] { m_wake.wake(); });
    OpenedStores stores(m_place, calls, [this] { m_wake.wake(); });
    lookUntilTheEnd(stores, calls);
}

namespace {

using Snapshots = std::vector<std::shared_ptr<Snapshot const>>;

// Keeps `snapshot`, and each one before it for as long as somebody else has it: where thousands of lines end with one, they end here,
// and not in the thread that paints.
void keep(std::shared_ptr<Snapshot const> const& snapshot, Snapshots& kept)
{
    if (kept.empty() || kept.back() != snapshot)
        kept.push_back(snapshot);
    auto const isOver = [](std::shared_ptr<Snapshot const> const& each) { return each.use_count() == 1; };
    kept.erase(std::remove_if(kept.begin(), kept.end(), isOver), kept.end());
}

} // namespace

void DeskThread::lookUntilTheEnd(OpenedStores& stores, SlowCalls& calls)
{
    Orders orders(stores, m_place.backupFolder, calls);
    std::optional<Storage::ChangeHints> hints;
    std::size_t hinted = 0;
    Snapshots kept;
    while (std::optional<std::chrono::milliseconds> const pause = takeAsked(orders, stores, calls)) {
        orders.carryOut();
        std::shared_ptr<Snapshot const> const snapshot = stores.look(*pause);
        keep(snapshot, kept);
        tell([&](News& news) {
            news.snapshot = snapshot;
            std::vector<Answer> answers = orders.takeAnswers();
            std::move(answers.begin(), answers.end(), std::back_inserter(news.answers));
            std::vector<int> const waiting = orders.takeWaiting();
            news.waiting.insert(news.waiting.end(), waiting.begin(), waiting.end());
        });
        if (std::vector<std::filesystem::path> const files = stores.files(); !hints || files.size() != hinted) {
            hints.emplace(files);
            hinted = files.size();
        }
        hints->wait(orders.areWaiting() ? std::min(*pause, pauseBetweenAttempts) : *pause, m_wake.descriptor());
    }
}

void DeskThread::tell(std::function<void(News&)> const& add)
{
    std::unique_lock<std::mutex> turn(m_turns);
    std::shared_ptr<Snapshot const> const earlier = m_news.snapshot;
    add(m_news);
    bool const isThere = m_news.snapshot != earlier || !m_news.waiting.empty() || !m_news.answers.empty() || !m_news.folders.empty();
    bool const isFirst = isThere && !std::exchange(m_hasNews, m_hasNews || isThere);
    turn.unlock();
    if (isFirst)
        m_haveNews();
}

} // namespace Inspector
