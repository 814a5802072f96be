// SPDX-License-Identifier: MIT
#pragma once

#include <Settings/ISettingsStorage.h>
#include <Studio/ServerError.h>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <thread>

/// Settings that the workstations of a studio share, on a PostgreSQL server.
namespace Studio {

class SessionCore;

/// What a session knows of its server.
struct Status {
    /// How changes of others arrive.
    enum class Hearing {
        polling,   ///< The session asks every `Session::Options::pollWait`.
        listening, ///< The server notifies the session.
    };

    /// Whether the last exchange with the server left a connection.
    bool connected = false;
    /// While there is one.
    Hearing hearing = Hearing::polling;
    /// Why there is none, or why the last exchange failed; nullopt after one that succeeded.
    std::optional<ServerError> problem;
    /// When what reads show was last up to date, by this workstation's clock; nullopt where the server was never reached,
    /// so that reads show local values and defaults only.
    std::optional<std::chrono::system_clock::time_point> asOf;
    /// When the server was last found to have another history than this session had read, after a failover, a restored backup or
    /// because the user was forgotten: reads may have gone back then. Nullopt where it never was.
    std::optional<std::chrono::system_clock::time_point> historyChanged;
};

/// A preference that the studio has locked.
struct Lock {
    std::string by;                              ///< The login of who locked it, or changed its value since.
    std::chrono::system_clock::time_point since; ///< When that was, by the server's clock.
};

/// A program's connection to the settings of its user and of the studio. A program has one; its stores share it.
///
/// Values: a key has the studio's value where the studio locked it; else the user's own, which for a key that roams is on the
///   server and for every other key in the local store; else the studio's; else none. A key that holds another kind than
///   asked for gives the default, as in every store.
/// Reads: from memory and the local store. They never wait for the network. They show this program's own changes at once,
///   those of others within `Options::pollWait` while there is a connection, and after `synchronise`. They never go back, but
///   for `Status::historyChanged`.
/// Connection: one thread of the session's keeps it, and connects again by itself: after a random part of 0.25 s, doubled with
///   each failure up to 30 s, or up to 5 min where the login is refused. Calls in between try at once, unless the last try
///   waited in vain or was refused.
/// Changes: of a key that roams, the server has them on disk when the call returns. One that throws with the code
///   `unreachable` after the connection was lost may have been stored or not; the next `synchronise` shows it. One whose
///   connection is lost is sent once more, and done once.
/// Conflicts: of two changes the later one holds; the server keeps the other one for 90 days.
/// Keys and values: of any bytes; keys up to 4096 bytes, values up to 16 MiB.
/// Threads: any thread may call. One thread of the session's talks to the server; calls that need it take turns.
/// Errors: `Storage::StorageError`, whose text holds no key, no value and no password. `locked` is the code for a key that
///   the studio locked, `tooLarge` for a longer key or value, `unreachable` for a server that does not answer.
class Session {
public:
    /// What a host may choose.
    struct Options {
        /// The server, as libpq takes it: pairs or a URI, with service and password files and the environment for the rest. But
        /// for Unix sockets, `sslmode=verify-full` and `channel_binding=require` hold where it does not name them itself.
        std::string connection;
        /// Whether a key is kept on the server. Called by any thread. Without it, no key is.
        std::function<bool(std::string const& key)> roams;
        /// How long the constructor waits for the server.
        std::chrono::milliseconds firstWait{3000};
        /// How long a change waits for its answer.
        std::chrono::milliseconds changeWait{10000};
        /// The longest that a connection may take, from the lookup of the name to the end of the login.
        std::chrono::milliseconds connectWait{3000};
        /// The longest that the server may take for one statement.
        std::chrono::milliseconds statementWait{5000};
        /// How long after one look at the server the next one follows, a fifth more or less at random. Positive.
        std::chrono::milliseconds pollWait{5000};
    };

    /// Connects, and reads what the server has. Where it does not answer in time, the session works without it until a later
    /// call reaches it; `status` says why.
    explicit Session(Options const& options);
    /// Ends within a second, whatever the server does. Stores that outlive the session can be read, and refuse changes.
    ~Session();
    Session(Session const&) = delete;
    Session& operator=(Session const&) = delete;

    /// The store `name`, such as "common": up to 255 bytes of UTF-8, not empty. `local`, which must not be null, keeps the keys
    /// that do not roam.
    std::shared_ptr<ISettingsStorage> store(std::string const& name, std::shared_ptr<ISettingsStorage> const& local);

    /// Afterwards reads show every change that the server had acknowledged, to anybody, before the call. False where that could
    /// not be reached in time.
    bool synchronise(std::chrono::milliseconds deadline);
    /// Has `listener` called for each key whose value or lock somebody else changed at the server, for all users or for this one,
    /// once reads show it. What reads give may be the same as before: the other layer may decide. A change of this program whose
    /// connection broke may be told, too. An empty function ends that.
    ///
    /// Threads: the session's thread calls, one key after the other, and does nothing else meanwhile: `listener` should return
    ///   soon. It may call the session and its stores, and this function; it must not destroy the session. Any thread may set it
    ///   at any time; once this returns, the listener before is neither running nor called again, unless this was called by it.
    /// Errors: an exception of `listener` ends the program.
    void onChange(std::function<void(std::string const& store, std::string const& key)> listener);
    /// What is known of the server, without asking it.
    Status status() const;
    /// Whether, by whom and since when `key` of the store `store` is locked, without asking the server.
    std::optional<Lock> lockOf(std::string const& store, std::string const& key) const;

private:
    std::shared_ptr<SessionCore> m_core;
    std::thread m_thread;
};

} // namespace Studio
