// SPDX-License-Identifier: MIT
#pragma once

#include <Studio/Listener.h>
#include <Studio/Session.h>
#include <Studio/Snapshot.h>
#include <Studio/outbox/Outgoing.h>
#include <Studio/server/Backoff.h>
#include <Studio/server/Connection.h>

#include <deque>
#include <future>
#include <map>
#include <mutex>
#include <random>
#include <set>
#include <thread>

namespace Studio {

/// The bytes that a key and a value may have.
inline constexpr std::size_t longestKey = 4096;
inline constexpr std::size_t longestValue = 16 << 20;

/// What the stores of a session and its thread share. Calls for any thread come first; what they ask of the server is done by
/// the thread that runs `run`, one after the other. Between them it looks at the server by itself, and connects again.
class SessionCore {
public:
    using Clock = std::chrono::steady_clock;

    explicit SessionCore(Session::Options const& options);

    /// Does what is asked for, and polls, until `end`.
    void run();
    /// Makes `run` return soon. What waits, and what is asked for later, fails with the reason `interrupted`.
    void end();

    /// Whether a key is kept on the server.
    bool roams(std::string const& key) const { return m_options.roams && m_options.roams(key); }
    /// How long the start waits for the server.
    std::chrono::milliseconds firstWait() const;
    /// Sets a key of the user's layer, or removes it where there is no value. Throws `ServerError`, and where the outbox cannot keep
    /// the change `Storage::StorageError`.
    void change(std::string const& store, std::string const& key, std::optional<Value> const& value);
    /// Offers the server what `local` holds of the keys that roam, as `Session::store` says.
    void offer(std::string const& store, ISettingsStorage const& local);
    /// Waits for the first connection, or for what is in its way. Throws `ServerError`.
    void awaitConnection(Clock::time_point deadline);
    /// Takes over what is new at the server. Throws `ServerError`.
    void synchronise(Clock::time_point deadline);
    /// As `Session::onChange`.
    void onChange(Listener::Function function) { m_listener.set(std::move(function)); }

    Snapshot::Found find(std::string const& store, std::string const& key) const { return m_snapshot.find(store, key); }
    std::set<std::string> keys(std::string const& store) const { return m_snapshot.keys(store); }
    /// As `Snapshot::shown` and `Snapshot::read`.
    Snapshot::Shown const& shown(std::string const& store) { return m_snapshot.shown(store); }
    template <typename Look>
    auto read(Snapshot::Shown const& store, std::string const& key, Look const& look) const
    {
        return m_snapshot.read(store, key, look);
    }
    Status status() const;
    /// The server, as far as it is known.
    std::string host() const;

private:
    struct Request {
        Clock::time_point deadline;
        std::function<void()> work;
        std::promise<std::optional<Failure>> done;
    };

    void changeAtServer(std::string const& store, std::string const& key, std::optional<Value> const& value);
    void demand(Clock::time_point deadline, std::function<void()> work);
    std::shared_ptr<Request> next();
    bool isEnding() const;

    void step();
    void perform(Request& request);
    void rest();
    void tell();
    void planNextTry(ServerError const& error);
    Clock::time_point nextLook() const;
    Clock::time_point nextPoll();
    std::chrono::milliseconds atMost(std::chrono::milliseconds wait);

    void hear();
    void look();
    void exchange(Clock::time_point deadline, std::function<void()> const& work);
    void connect();
    void greet();
    void forgetRevisions();
    void catchUp(Clock::time_point moment, bool checksEpoch);
    void fetch(bool checksEpoch = false);
    bool takeOver(Rows const& rows);
    void takeOver(News const& fresh);
    void put(Snapshot::Change const& change, Clock::time_point deadline);
    bool mustSend() const;
    void sendAll();
    void sendNext();
    void sendOne(Outgoing::Change& change);
    std::string const& greetLane(std::int64_t lane);
    std::int64_t send(Outbox::Operation const& operation, std::string const& client);
    std::int64_t sendOffer(Outbox::Operation offer, std::string const& client);
    void postpone(std::optional<Failure> const& problem);
    void note(std::optional<Failure> const& problem);

    Session::Options const m_options;
    Snapshot m_snapshot;
    Outgoing m_outgoing;
    Listener m_listener;
    Signal m_wake; // raised when something is asked for, or at the end

    mutable std::mutex m_mutex; // for these
    std::thread::id m_thread;
    std::deque<std::shared_ptr<Request>> m_requests;
    bool m_ends = false;
    Status m_status; // but for the problem
    std::optional<Failure> m_problem;
    std::optional<Failure> m_sendProblem; // why the server takes no change, although it answers
    std::string m_knownEpoch;             // as below, as the snapshot has it at least
    std::int64_t m_knownRevision = 0;
    std::string m_host = "the studio's server";

    // For the thread of `run` alone, but for an interruption.
    Connection m_connection;
    Backoff m_backoff;
    std::minstd_rand m_random;
    Clock::time_point m_nextTry;                                                    // to connect, where there is no connection
    ServerError m_refusal{ServerError::Reason::unreachable, "the studio's server"}; // why the last try failed
    bool m_isListening = false;
    Clock::time_point m_nextPoll;
    Clock::time_point m_hinted = Clock::time_point::max();  // when to look because of a notification
    Clock::time_point m_hintsFrom;                          // no hint makes it look before
    Clock::time_point m_fetched = Clock::time_point::min(); // when the last fetch that succeeded began
    Clock::time_point m_checked = Clock::time_point::min(); // the same of one that asked for the epoch
    std::set<Snapshot::Place> m_news;                       // what the listener has not been called for
    std::string const m_client;
    std::map<std::int64_t, std::string> m_greeted; // the names of the lanes that the connection has said hello for
    Backoff m_sendBackoff;
    Clock::time_point m_nextSend; // while there is a connection
    std::string m_keptEpoch;      // of the outbox
    std::string m_epoch;
    std::int64_t m_schema = 0; // of the server that was greeted last
    std::int64_t m_operation = 0;
    std::int64_t m_userRevision = 0;
    std::int64_t m_studioRevision = 0;
};

} // namespace Studio
