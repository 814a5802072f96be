// SPDX-License-Identifier: MIT
#include <Inspector/Desk.h>

#include "desk/OpenedStores.h"

#include <Storage/watch/ChangeHints.h>

#include <QPointer>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <iterator>
#include <system_error>
#include <utility>

#include <sys/eventfd.h>
#include <unistd.h>

using Storage::StorageError;

namespace Inspector {

namespace {

// As long as a store waits for others where nobody chooses.
constexpr std::chrono::seconds patience{5};
constexpr std::chrono::milliseconds pauseBetweenAttempts{50};

int madeEvent()
{
    int const descriptor = ::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    if (descriptor < 0)
        throw std::system_error(errno, std::generic_category(), "cannot watch stores");
    return descriptor;
}

} // namespace

Desk::Desk(Place const& place, QObject* parent) : QObject(parent), m_place(place), m_wake(madeEvent()), m_thread([this] { run(); }) {}

Desk::~Desk()
{
    std::unique_lock<std::mutex> turn(m_turns);
    m_isEnding = true;
    wake(std::move(turn));
    m_thread.join();
    ::close(m_wake);
}

void Desk::setPause(std::chrono::milliseconds longest)
{
    std::unique_lock<std::mutex> turn(m_turns);
    m_pause = longest;
    wake(std::move(turn));
}

void Desk::lookAgain()
{
    std::unique_lock<std::mutex> turn(m_turns);
    m_isAskedToLook = true;
    wake(std::move(turn));
}

int Desk::commit(Commit const& commit)
{
    std::unique_lock<std::mutex> turn(m_turns);
    m_orders.push_back({++m_lastNumber, commit, m_isAllowed});
    wake(std::move(turn));
    return m_lastNumber;
}

// The turn ends after the event, so that the thread sees what has changed.
void Desk::wake(std::unique_lock<std::mutex>) const
{
    std::uint64_t const once = 1;
    [[maybe_unused]] ssize_t const written = ::write(m_wake, &once, sizeof once);
}

// --- In the thread ---

// How long to wait after the next look; nullopt where the thread is to end.
std::optional<std::chrono::milliseconds> Desk::takeOrders(std::deque<Order>& orders, OpenedStores& stores)
{
    std::uint64_t wakes = 0;
    [[maybe_unused]] ssize_t const count = ::read(m_wake, &wakes, sizeof wakes);
    std::unique_lock<std::mutex> turn(m_turns);
    std::move(m_orders.begin(), m_orders.end(), std::back_inserter(orders));
    m_orders.clear();
    bool const isAskedToLook = std::exchange(m_isAskedToLook, false);
    if (m_isEnding)
        return std::nullopt;
    std::chrono::milliseconds const pause = m_pause;
    turn.unlock();
    if (isAskedToLook)
        stores.openAgain();
    return pause;
}

// nullopt where another attempt may succeed.
std::optional<Answer> Desk::attempt(Order& order, OpenedStores& stores)
try {
    if (!order.isAllowed)
        return Answer{0, Outcome::lookingOnly};
    order.end = order.end.value_or(Clock::now() + patience);
    return stores.store(order.commit);
} catch (StorageError const& busy) {
    if (Clock::now() < *order.end)
        return std::nullopt;
    return Answer{0, Outcome::failed, {}, {}, {}, {}, {}, busy};
} catch (std::exception const& error) {
    return Answer{0, Outcome::refused, {}, {}, {}, {}, error.what()};
}

// In their order: one that waits holds up the others.
std::vector<Answer> Desk::carriedOut(std::deque<Order>& orders, OpenedStores& stores)
{
    std::vector<Answer> answers;
    while (!orders.empty()) {
        std::optional<Answer> answer = attempt(orders.front(), stores);
        if (!answer)
            break;
        answer->number = orders.front().number;
        answers.push_back(*std::move(answer));
        orders.pop_front();
    }
    return answers;
}

void Desk::run()
{
    OpenedStores stores(m_place);
    std::optional<Storage::ChangeHints> hints;
    std::size_t hinted = 0;
    std::deque<Order> orders;
    tell(stores.look(), {});
    while (std::optional<std::chrono::milliseconds> const pause = takeOrders(orders, stores)) {
        std::vector<Answer> answers = carriedOut(orders, stores);
        tell(stores.look(), std::move(answers));
        if (std::vector<std::filesystem::path> const files = stores.files(); !hints || files.size() != hinted) {
            hints.emplace(files);
            hinted = files.size();
        }
        hints->wait(orders.empty() ? *pause : pauseBetweenAttempts, m_wake);
    }
}

void Desk::tell(std::shared_ptr<Snapshot const> const& snapshot, std::vector<Answer> answers)
{
    std::unique_lock<std::mutex> turn(m_turns);
    bool const isNews = snapshot != m_snapshot || !answers.empty();
    m_snapshot = snapshot;
    std::move(answers.begin(), answers.end(), std::back_inserter(m_answers));
    bool const isFirst = isNews && !std::exchange(m_isTelling, m_isTelling || isNews);
    turn.unlock();
    if (isFirst)
        QMetaObject::invokeMethod(
            this, [this] { deliver(); }, Qt::QueuedConnection);
}

// --- In the thread of the object ---

// Each signal may be the last, as its receivers may destroy this object.
void Desk::deliver()
{
    std::unique_lock<std::mutex> turn(m_turns);
    m_isTelling = false;
    std::shared_ptr<Snapshot const> const snapshot = m_snapshot;
    std::vector<Answer> const answers = std::exchange(m_answers, {});
    turn.unlock();
    QPointer<Desk> const self(this);
    if (std::exchange(m_told, snapshot) != snapshot)
        Q_EMIT looked(snapshot);
    for (Answer const& answer : answers)
        if (self)
            Q_EMIT answered(answer);
}

} // namespace Inspector
