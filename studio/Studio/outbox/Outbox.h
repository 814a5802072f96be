// SPDX-License-Identifier: MIT
#pragma once

#include <Studio/Snapshot.h>
#include <Studio/outbox/Moment.h>
#include <Studio/outbox/Replica.h>

#include <SQLiteCpp/Database.h>

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace Studio {

/// One SQLite file on the workstation, with what is known of a server and what it has not been told yet: a replica of the settings, the
/// changes that wait to be sent, and those that the server refused.
///
/// Lanes: each program numbers its changes in a lane of its own, which the server knows by a name: what is sent twice under one
///   number is done once. A lane whose program is dead is adopted by the next one that opens the file, and by one only.
///   Its changes are sent under its own name. A program goes on with the numbers of a dead lane only within one run of the system: a disk
///   that is copied to a second workstation would otherwise number different changes alike.
/// Durability: what a call has changed is on disk when it returns, but for `settle`.
/// Processes: programs of one user share the file.
/// Forks: a process that was forked while an outbox was open can use none; there each call throws.
/// Threads: any thread may call.
/// Errors: `Storage::StorageError`. A call that throws has changed nothing.
class Outbox {
public:
    /// A change of the user's that waits to be sent.
    struct Operation {
        std::int64_t sequence = 0; ///< In the order in which the programs of this workstation made the changes.
        std::int64_t lane = 0;     ///< Whose change it is.
        std::int64_t number = 0;   ///< Upwards within the lane.
        std::string store;
        std::string key;
        std::optional<StoredValue> value; ///< nullopt removes the key.
        Moment written;
        std::string epoch;     ///< The server's history that was known then,
        std::int64_t base = 0; ///< and the revision of the user's layer in it.

        /// Whether it only fills a hole: a value of this workstation's own, for a key of which the server has none.
        bool isOffer() const { return base == offered; }
        static constexpr std::int64_t offered = -1;
    };

    /// A value that this workstation had before it met the server.
    struct Local {
        std::string key;
        StoredValue value;
        Moment written;
    };

    /// A change that the server refused.
    struct Refusal {
        std::string store;
        std::string key;
        std::string sqlState;     ///< Why.
        std::int64_t refused = 0; ///< Milliseconds since 1970-01-01 00:00 UTC, by this workstation's clock.
    };

    /// How many refusals are kept; then the oldest one goes.
    static constexpr int mostRefusals = 100;

    /// Opens the outbox in `file`, which lies in a folder of this user's own, and creates a missing one. `identity` names server and user.
    /// A damaged file is moved aside where no other program has it open; `damaged` names it from then on.
    Outbox(std::filesystem::path const& file, std::string const& identity);
    ~Outbox();
    Outbox(Outbox const&) = delete;
    Outbox& operator=(Outbox const&) = delete;

    /// What is known of the server.
    News replica() const;
    /// The operations of this program's lanes in the order of their sequence, at the start those of dead programs.
    std::vector<Operation> pending() const;
    /// The kept refusals of all programs, the oldest one first.
    std::vector<Refusal> refusals() const;
    /// The damaged files that were moved aside: changes may be lost with them.
    std::vector<std::filesystem::path> damaged() const;

    /// This program's own lane.
    std::int64_t lane() const noexcept;
    /// The name by which the server knows a lane.
    std::string client(std::int64_t lane) const;
    /// The same, once the server says that `lastOperation` is the last one of the lane that it has. Where the lane never gave that
    /// number out, the file was brought back from a copy, and the server would take new changes for old ones: the lane gets a new
    /// name then.
    std::string client(std::int64_t lane, std::int64_t lastOperation);

    /// Adds a change of this program's, of a layer that the program knew up to `base` in the history `epoch`.
    Operation append(std::string const& store, std::string const& key, std::optional<StoredValue> const& value, std::string const& epoch,
                     std::int64_t base);
    /// Adds an offer for each of `values` of which this file never had one; the new ones. Never the same twice, also where a program is
    /// killed in between.
    std::vector<Operation> offer(std::string const& store, std::vector<Local> const& values);
    /// Notes that the server has answered; `revision` is where it stored the change, or 0 where another one holds. The file lacks the
    /// operation from the next change of it on: one that is sent again has no effect.
    void settle(Operation const& operation, std::string const& epoch, std::int64_t revision);
    /// Removes the settled operations from the file at once. To be called last: from then on no call waits long for other programs.
    void flush();
    /// Removes the settled operations from the file, where it has some.
    void tidy();
    /// Moves an operation to the refusals. They keep it until the server stores another change of the key.
    void refuse(Operation const& operation, std::string const& sqlState);
    /// Takes news into the replica, as `keepNews` does.
    void keep(News const& news);

    std::filesystem::path const& file() const noexcept;

private:
    class File;

    std::unique_ptr<File> m_file;
};

/// The refusals in the file of an outbox.
std::vector<Outbox::Refusal> readRefusals(SQLite::Database& database);

} // namespace Studio
