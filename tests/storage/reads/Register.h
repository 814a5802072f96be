// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <functional>
#include <string>

/// A number that one writer after another counts up in a store, while others read it: the counters of a linearizability
/// check, in memory that forked processes share and that outlives them. A read is stale where a later number was committed
/// before it began, back where somebody had seen a later one before, and future where its number was not yet begun.
class Register {
public:
    Register();
    ~Register();
    Register(Register const&) = delete;
    Register& operator=(Register const&) = delete;

    /// Has `commit` commit the next number. One writer at a time; it may be killed at any moment.
    void write(std::function<void(int)> const& commit);
    /// Checks the number that `ask` reads.
    void read(std::function<int()> const& ask);

    /// Whether the readers may go home.
    bool isOver() const { return m_shared->isOver; }
    void end() { m_shared->isOver = true; }

    /// Whether the present writer is to end, so that the next one can begin.
    bool isTurnOver() const { return m_shared->isTurnOver; }
    void beginTurn() { m_shared->isTurnOver = false; }
    void endTurn() { m_shared->isTurnOver = true; }

    int begun() const { return m_shared->begun; }
    long long reads() const { return m_shared->reads; }
    long long wrongReads() const { return m_shared->stale + m_shared->back + m_shared->future; }
    /// The wrong reads by their kinds; empty where all were right.
    std::string wrong() const;

private:
    struct Shared {
        std::atomic<int> begun{0};
        std::atomic<int> ended{0};
        std::atomic<int> seen{0};
        std::atomic<long long> reads{0};
        std::atomic<long long> stale{0};
        std::atomic<long long> back{0};
        std::atomic<long long> future{0};
        std::atomic<bool> isOver{false};
        std::atomic<bool> isTurnOver{false};
    };

    Shared* const m_shared;
};
