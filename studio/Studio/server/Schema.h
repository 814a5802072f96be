// SPDX-License-Identifier: MIT
#pragma once

#include <Studio/server/Connection.h>
#include <Studio/server/SchemaSteps.h>

#include <string>
#include <vector>

namespace Studio {

/// The schema of a shared store in the database behind a connection: what state it is in, and how it becomes the newest.
///
/// Errors: `ServerError`.
/// Threads: for the connection's thread.
class Schema {
public:
    /// What was found in the database.
    enum class State {
        missing, ///< No schema.
        older,   ///< One that an earlier version made.
        current, ///< The newest that this program knows.
        newer,   ///< One that a later version made.
        foreign, ///< Something else that has the schema's name.
        damaged, ///< One that is incomplete, or in which something was added or removed by hand.
        hidden,  ///< One whose version this login may not read: an obstacle tells why.
    };

    /// What keeps this login from migrating.
    struct Obstacle {
        enum class Kind {
            database, ///< The database `name` belongs to a role that this login is no member of.
            newRoles, ///< There is no role `name`, and this login may make none.
            role,     ///< The role `name` can log in or has powers of its own, so it is not the group that the schema needs.
            owner,    ///< This login is no member of the role `name`, which owns the schema.
        };
        Kind kind;
        std::string name;
    };

    /// What `examine` found.
    struct Report {
        State state = State::missing;
        int version = 0; ///< Of the schema; 0 where that is not known.
        std::vector<Obstacle> obstacles;

        /// Whether `migrate` changes something.
        bool canMigrate() const { return obstacles.empty() && (state == State::missing || state == State::older); }
    };

    /// `connection` is open and outlives this object. Step N of `steps` makes version N of version N - 1.
    explicit Schema(Connection& connection, std::vector<std::string> steps = schemaSteps());

    /// Looks at the database, and changes nothing.
    Report examine();
    /// Executes the missing steps in one transaction, unless something is in the way. Two calls at once wait for each other.
    /// Returns what was found before. After an error the database is as it was, and the connection closed.
    Report migrate();
    /// The version that `migrate` makes.
    int newest() const { return static_cast<int>(m_steps.size()); }

private:
    State findState(bool isReadable, int& version);
    void migrateFrom(int version);

    Connection& m_connection;
    std::vector<std::string> m_steps;
};

} // namespace Studio
