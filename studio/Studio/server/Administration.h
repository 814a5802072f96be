// SPDX-License-Identifier: MIT
#pragma once

#include <Studio/Snapshot.h>
#include <Studio/server/Connection.h>

#include <chrono>
#include <optional>
#include <string>
#include <vector>

namespace Studio {

/// What people do at the server besides editing: the studio's values and locks, and questions about the login's own account.
///
/// Errors: `ServerError`; the reason `denied` where the login lacks the role.
/// Threads: for the connection's thread.
class Administration {
public:
    /// Who asks, and what the server is.
    struct Account {
        std::string user;             ///< The login, by which the server knows a user.
        int schema = 0;               ///< The version of the schema.
        bool isAdministrator = false; ///< Whether it may change the studio's values.
    };

    /// How the server does.
    struct Health {
        std::chrono::system_clock::duration difference; ///< How far its clock is ahead of this workstation's.
        double queueUsage;                              ///< How full the queue of notifications is, from 0 to 1.
        bool hasSynchronousStandby;                     ///< Whether a change waits until a standby has it.
    };

    /// A value that lost a conflict.
    struct Superseded {
        std::string store;
        std::string key;
        Setting setting;    ///< The value, who set it and when.
        bool isRemoval;     ///< Whether a removal lost, so that there is no value.
        std::string origin; ///< The address of the workstation that it came from; "local" for the server's own machine.
        std::chrono::system_clock::time_point lost; ///< When it lost.
    };

    /// What becomes of a lock when a value is set.
    enum class Locking { keep, lock };

    /// `connection` is open and outlives this object.
    explicit Administration(Connection& connection) : m_connection(connection) {}

    Account account();
    Health health();
    /// The values of the login that lost a conflict in the last 90 days, the latest last.
    std::vector<Superseded> superseded();
    /// Sets a value for the whole studio. Without a value it is removed, and its lock with it.
    void set(std::string const& store, std::string const& key, std::optional<Value> const& value, Locking locking);
    /// Locks or unlocks the studio's value. False where it has none.
    bool lock(std::string const& store, std::string const& key, bool isLocked);
    /// Removes everything of a user. False where there is nothing.
    bool forget(std::string const& user);

private:
    Connection& m_connection;
};

} // namespace Studio
