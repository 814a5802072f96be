// SPDX-License-Identifier: MIT
#pragma once

#include <Storage/LayeredStorage.h>
#include <Storage/StorageError.h>
#include <Studio/ServerError.h>

#include <chrono>
#include <cstddef>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

/// Settings that the workstations of a studio share, on a PostgreSQL server.
namespace Studio {

class SessionCore;

/// A change that the server refused after its call had returned.
struct Refused {
    std::string store;                          ///< The store's name.
    std::string key;                            ///< Of any bytes.
    ServerError error;                          ///< Why. It names no server where an earlier program was told.
    std::chrono::system_clock::time_point when; ///< By this workstation's clock.
};

/// What a session knows of its server, and what it keeps for it.
struct Status {
    /// How changes of others arrive.
    enum class Hearing {
        polling,   ///< The session asks every `Session::Options::pollWait`.
        listening, ///< The server notifies the session, which asks every `Session::Options::heartbeatWait` all the same.
    };

    /// Whether the last exchange with the server left a connection.
    bool connected = false;
    /// While there is one.
    Hearing hearing = Hearing::polling;
    /// Whether a pooler stands in between, while there is a connection. It keeps notifications back, so that the session polls.
    bool pooled = false;
    /// Why there is none, or why the last exchange failed; nullopt after one that succeeded.
    std::optional<ServerError> problem;
    /// When what reads show was last up to date, by this workstation's clock; nullopt where the server was never reached,
    /// so that reads show local values and defaults only.
    std::optional<std::chrono::system_clock::time_point> asOf;
    /// When the server was last found to have another history than this session had read, after a failover, a restored backup or
    /// because the user was forgotten: reads may have gone back then. Nullopt where it never was.
    std::optional<std::chrono::system_clock::time_point> historyChanged;
    /// The file on this workstation that keeps what the server has, and changes until it has them; nullopt where there is none, so that
    /// a change needs the server.
    std::optional<std::filesystem::path> outbox;
    /// Why there is none, for each folder that was tried; or the last error of the file, which may then lack what came since.
    std::vector<Storage::StorageError> obstacles;
    /// Earlier outboxes that were damaged and moved aside: changes that are in them were perhaps never sent.
    std::vector<std::filesystem::path> damaged;
    /// How many changes of this program, and of those whose work it goes on with, wait for the server.
    std::size_t pending = 0;
    /// When the oldest of them was made, by this workstation's clock.
    std::optional<std::chrono::system_clock::time_point> pendingSince;
    /// The last changes that the server refused, up to 100, of all programs of the user on this workstation. The oldest is the first.
    /// One is listed until the server stores another change of its key.
    std::vector<Refused> refused;
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
///   those of others when the server notifies, within `Options::pollWait` where it does not, and after `synchronise`. They never
///   go back, but for `Status::historyChanged`.
/// Connection: one thread of the session's keeps it, and connects again by itself: after a random part of 0.25 s, doubled with
///   each failure up to 30 s, or up to 5 min where the login is refused. Calls in between try at once, unless the last try
///   waited in vain or was refused.
/// Changes: of a key that roams, this workstation has them on disk when the call returns, in `Status::outbox`; the server has them
///   too, unless it took longer than `Options::writeWait` or was known to be away. What waits is sent in its order, each change once,
///   by this program or the next one of the user's here. `Status::pending` counts it.
/// Refusals: a change that the server refuses, because the key was locked meanwhile or the account lost its rights, throws where
///   the answer comes in time. Else it is undone, `onChange` tells, and `Status::refused` lists it. The others go on.
/// Without an outbox: a change needs the server, which has it on disk when the call returns. One that throws with the code
///   `unreachable` after the connection was lost may have been stored or not; the next `synchronise` shows it.
/// Conflicts: a change that was made in knowledge of the server's value holds, of others the later one, by their age and by no clock
///   that is set; the server keeps the other one for 90 days.
/// Processes: those of one user share the outbox. They see each other's changes once the server has them. A process that was
///   forked from one with a session can change nothing.
/// Keys and values: of any bytes; keys up to 4096 bytes, values up to 16 MiB.
/// Threads: any thread may call. One thread of the session's talks to the server; calls that need it take turns.
/// Errors: `Storage::StorageError`, whose text holds no key, no value and no password. `locked` is the code for a key that
///   the studio locked, `tooLarge` for a longer key or value, `unreachable` for a server that does not answer and is needed, `full`
///   for a workstation without room. A call that throws has changed nothing but for `unreachable`, as above.
class Session {
public:
    /// What a host may choose.
    struct Options {
        /// The server, as libpq takes it: pairs or a URI, with service and password files and the environment for the rest. But
        /// for Unix sockets, `sslmode=verify-full` and `channel_binding=require` hold where it does not name them itself.
        std::string connection;
        /// Whether a key is kept on the server. Called by any thread. Without it, no key is.
        std::function<bool(std::string const& key)> roams;
        /// How long the constructor waits for the server of which this workstation has no replica yet.
        std::chrono::milliseconds firstWait{3000};
        /// How long a change waits for its answer where it is not kept on the workstation.
        std::chrono::milliseconds changeWait{10000};
        /// The longest that a connection may take, from the lookup of the name to the end of the login.
        std::chrono::milliseconds connectWait{3000};
        /// The longest that the server may take for one statement. From 3 s on: a login that holds a lock of this user's, as any login
        /// can, keeps the session waiting for 2 s when it connects.
        std::chrono::milliseconds statementWait{5000};
        /// How long after one look at the server the next one follows where it does not notify, a fifth more or less at random.
        /// Positive.
        std::chrono::milliseconds pollWait{5000};
        /// Whether the server is to notify the session of changes. That takes it some 2 MiB for each session.
        bool listen = true;
        /// As `pollWait`, where the server notifies.
        std::chrono::milliseconds heartbeatWait{15000};
        /// The longest that a session waits, for a time at random, before it asks what changed for all users, so that a studio's
        /// sessions do not all ask at once.
        std::chrono::milliseconds studioWait{200};
        /// How long the constructor waits for the server where the workstation knows its values of an earlier time.
        std::chrono::milliseconds startWait{500};
        /// How long a change that is kept on the workstation waits for the server's answer.
        std::chrono::milliseconds writeWait{250};
        /// Whether changes are kept on the workstation while the server cannot be reached.
        bool worksOffline = true;
        /// Where they are kept. Empty, and where it is on no local disk: in "editor-settings" of the folder for states (XDG_STATE_HOME),
        /// and where that is on none, in a folder of this user's in /var/tmp.
        std::filesystem::path folder{};
    };

    /// Reads what the workstation knows of the server, connects, and reads what is new. Where the server does not answer in time, the
    /// session works without it until it can be reached; `status` says why.
    explicit Session(Options const& options);
    /// Ends within a second, whatever the server does. Stores that outlive the session can be read, and refuse changes.
    ~Session();
    Session(Session const&) = delete;
    Session& operator=(Session const&) = delete;

    /// The store `name`, such as "common": up to 255 bytes of UTF-8, not empty. `local`, which must not be null, keeps the keys
    /// that do not roam. What a `Storage::SqliteStorage` holds of the others, from before it met the server, is offered to it
    /// once: where the server has no value it gets this one, now or when it can be reached; a value that it has stays, and
    /// this one is filed with those that lost a conflict. `local` keeps it. Without an outbox nothing is offered.
    std::shared_ptr<Storage::LayeredStorage> store(std::string const& name, std::shared_ptr<ISettingsStorage> const& local);

    /// Sends what waits, unless the server takes no change now. Afterwards reads show every change that the server had acknowledged,
    /// to anybody, before the call, below what still waits. False where that could not be reached in time.
    bool synchronise(std::chrono::milliseconds deadline);
    /// Has `listener` called for each key whose value or lock somebody else changed at the server, for all users or for this one,
    /// once reads show it. What reads give may be the same as before: the other layer may decide. A change of this program whose
    /// connection broke may be told, too. An empty function ends that.
    ///
    /// Threads: the session's thread calls, one key after the other, and does nothing else meanwhile: `listener` should return
    ///   soon. It may call the session and its stores, and this function; it must not destroy the session, nor wait for a thread
    ///   that calls it. Any thread may set it at any time; once this returns, the listener before is neither running nor called
    ///   again, unless this was called by it.
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
