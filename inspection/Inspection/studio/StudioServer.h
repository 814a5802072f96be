// SPDX-License-Identifier: MIT
//
// The server on which a studio shares settings, for programs that must not link what talks to it: libpq brings some twenty libraries
// with it, and starts twice as slowly. It stands in a module, which is loaded when a server is asked for.
#pragma once

#include <Storage/LayeredStorage.h>
#include <Storage/StorageError.h>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace Inspection {

/// What is known of the server without asking it again.
struct StudioStatus {
    bool isConnected = false;
    bool isListening = false;                     ///< Whether the server notifies of changes; else it is asked for them now and then.
    std::optional<Storage::StorageError> problem; ///< Why the server was not reached; nullopt where it was.
    std::optional<std::chrono::system_clock::time_point> asOf; ///< When its values were read; nullopt where they never were.
    /// When the server was last found to have lost changes that had been read.
    std::optional<std::chrono::system_clock::time_point> historyChanged;
};

/// Why the server was not reached, and how old what is known of it therefore is, in one sentence; empty where it was reached.
std::string troubleOf(StudioStatus const& status);

/// The login, as the server knows it.
struct StudioAccount {
    std::string server; ///< Such as "db.example:5432".
    std::string user;
    int schema = 0; ///< The version of the server's tables and functions.
    bool isAdministrator = false;
};

/// How well the server can be used from here.
struct StudioHealth {
    StudioAccount account;
    int knownSchema = 0;                          ///< The newest that this program knows.
    bool isEncrypted = false;                     ///< Whether the connection is by TLS.
    bool isLocal = false;                         ///< Whether it stays on this machine.
    bool isPooled = false;                        ///< Whether another program stands between, which hands no notifications on.
    std::chrono::milliseconds clockDifference{0}; ///< How far the server's clock is ahead of this workstation's.
    double queueUsage = 0;                        ///< How full the queue of notifications is, from 0 to 1.
    bool hasSynchronousStandby = false;           ///< Whether a change waits until a standby has it.
};

/// A value of the user's that lost a conflict.
struct SupersededValue {
    std::string store;
    Storage::SqliteStorage::Row row; ///< Without kind where a removal lost.
    std::string by;                  ///< The login that made the change.
    std::string origin;              ///< The address that the change came from, or "local".
    std::chrono::system_clock::time_point lost;
};

/// A program's connection to a studio's server.
///
/// Errors: `Storage::StorageError`, which holds no key, no value and no password. It is `Code::access` for a login without the right.
/// Threads: for one thread, but for the stores.
class StudioServer {
public:
    virtual ~StudioServer() = default;

    /// The store `name` as an editor reads and changes it, with `local` behind it.
    virtual std::shared_ptr<Storage::LayeredStorage> store(std::string const& name, std::shared_ptr<ISettingsStorage> const& local) = 0;
    virtual StudioStatus status() const = 0;
    virtual StudioAccount account() = 0;
    virtual StudioHealth health() = 0;
    /// Has `listener` called by another thread for each key of a store that somebody else changed at the server.
    virtual void onChange(std::function<void(std::string const& store, std::string const& key)> listener) = 0;
    /// Gives all users a value; without one the studio's value is removed, and its lock with it. With `locks` it is locked at once;
    /// else a lock stays as it is.
    virtual void set(std::string const& store, std::string const& key, std::optional<Storage::SqliteStorage::Value> const& value,
                     bool locks) = 0;
    /// Locks or unlocks the studio's value. False where it has none.
    virtual bool lock(std::string const& store, std::string const& key, bool isLocked) = 0;
    /// The user's values that lost a conflict in the last 90 days, the latest last.
    virtual std::vector<SupersededValue> superseded() = 0;
    /// Removes everything that the server has of a user. False where it has nothing.
    virtual bool forget(std::string const& user) = 0;
};

/// Connects, and waits for the server some seconds at most; without it the stores hold what the workstation has. Throws
/// `std::runtime_error` where the module is missing. `connection` is what libpq takes.
std::unique_ptr<StudioServer> openStudioServer(std::string const& connection);

/// The function `name` of the module, which is loaded with the first. Throws as `openStudioServer`.
void* studioFunction(char const* name);

} // namespace Inspection

/// What the module offers `Inspection::openStudioServer`; the caller owns the result.
extern "C" Inspection::StudioServer* openStudio(std::string const& connection, std::function<bool(std::string const&)> const& roams);
