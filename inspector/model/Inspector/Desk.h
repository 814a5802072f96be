// SPDX-License-Identifier: MIT
#pragma once

#include <Inspector/Commits.h>
#include <Inspector/Place.h>

#include <QObject>

#include <chrono>
#include <deque>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace Inspector {

class OpenedStores;

/// Looks at both stores again and again, and stores what it is asked to, in the one thread that calls library and stores. While it
/// lives no other thread may call either.
///
/// Nothing is stored, and no store is created, until changes are allowed. A store that others keep locked holds up nobody: what is to
/// be stored is tried again for five seconds, and the last lines of the store stay as they were.
///
/// Threads: all functions and signals belong to the thread that the object lives in, whose event loop must run. None of them waits
/// for a store, but the destructor for a look that has begun: some tenths of a second, longer only where the system does not
/// answer, as for a folder on a network that is gone. What has not been stored then is dropped.
class Desk : public QObject {
    Q_OBJECT

public:
    /// Throws `std::system_error` where the process can have no further descriptor or thread.
    explicit Desk(Place const& place, QObject* parent = nullptr);
    ~Desk() override;

    /// Whether commits are stored from now on.
    void allowChanges(bool isAllowed) { m_isAllowed = isAllowed; }
    /// How long a change may stay unseen where the system gives no hint of it; 200 ms at first.
    void setPause(std::chrono::milliseconds longest);
    /// Looks at once and at everything, also at a product file that could not be read.
    void lookAgain();
    /// Stores `commit` after those that were asked for before. Returns the number of its answer.
    int commit(Commit const& commit);

Q_SIGNALS:
    /// Something differs from the last snapshot. The first one comes by itself.
    void looked(std::shared_ptr<Inspector::Snapshot const> const& snapshot);
    /// What became of a commit, after the snapshot that shows it.
    void answered(Inspector::Answer const& answer);

private:
    using Clock = std::chrono::steady_clock;

    struct Order {
        int number;
        Commit commit;
        bool isAllowed;
        std::optional<Clock::time_point> end{}; // of the attempts, once there was one
    };

    void wake(std::unique_lock<std::mutex> turn) const;
    std::optional<std::chrono::milliseconds> takeOrders(std::deque<Order>& orders, OpenedStores& stores);
    void run();
    static std::vector<Answer> carriedOut(std::deque<Order>& orders, OpenedStores& stores);
    static std::optional<Answer> attempt(Order& order, OpenedStores& stores);
    void tell(std::shared_ptr<Snapshot const> const& snapshot, std::vector<Answer> answers);
    void deliver();

    Place const m_place;
    int const m_wake; // an eventfd, readable when the thread must not wait
    bool m_isAllowed = false;
    int m_lastNumber = 0;
    std::shared_ptr<Snapshot const> m_told;

    std::mutex m_turns; // for all below
    std::deque<Order> m_orders;
    std::chrono::milliseconds m_pause{200};
    bool m_isAskedToLook = false;
    bool m_isEnding = false;
    std::shared_ptr<Snapshot const> m_snapshot; // of the last look
    std::vector<Answer> m_answers;              // that were not told
    bool m_isTelling = false;                   // whether `deliver` will be called
    std::thread m_thread;
};

} // namespace Inspector
