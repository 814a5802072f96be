// SPDX-License-Identifier: MIT
#pragma once

#include <Settings/ISettingsStorage.h>
#include <Storage/StorageError.h>

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

/// Stores on disk.
namespace Storage {

/// A durable store: one SQLite file, one row for each key.
///
/// Durability: a set or a removal is one transaction, on disk when the call returns. After a crash each key holds its
///   old or its new value. `apply` and `Batch` make several changes in one transaction.
/// Threads: any thread may call at any time; calls on one object take turns, but for reads of an unchanged file.
/// Processes: several may hold the file open. A read sees what another process committed before it. A writer, and a read
///   that has something new to see, wait for the others for as long as `Options::busyTimeout`.
/// Forks: a process that was forked while a store was open can use no store, unless it calls exec: there every call of an
///   inherited object, and every opening, throws, and the destructor leaves file and parent alone (its memory leaks). A
///   process that is forked while none is open may open stores.
/// Memory: the rows of a file up to 256 KiB are kept in memory, on a local disk, and a read of an unchanged file is one
///   system call.
/// Kinds: a read for another kind than the stored one returns its default and changes nothing; `find` returns the kind.
/// Errors: every function throws `StorageError` (and `std::bad_alloc`), never an exception of SQLite's. An existing file
///   is never replaced and never emptied: only a missing file is created. The object stays usable.
class SqliteStorage final : public ISettingsStorage {
public:
    /// How often SQLite waits for the disk, see its documentation of PRAGMA synchronous.
    enum class Synchronous {
        normal = 1, ///< A crash of the system may undo the last changes and, very rarely, damage the file.
        full = 2,   ///< A change is on disk when its call returns.
    };

    /// What a host may choose for a store.
    struct Options {
        /// How long a call waits for other processes before it throws.
        std::chrono::milliseconds busyTimeout{5000};
        /// How often a change waits for the disk.
        Synchronous synchronous = Synchronous::full;
        /// Whether a missing store is created; otherwise it is an error, and nothing is created.
        bool createIfMissing = true;
        /// Whether the store may lie on a network file system. Locks do not hold there between machines: two programs on two
        /// machines, also one that only reads, can damage the store. For a host that makes sure that one machine uses it.
        bool allowNetworkFileSystem = false;
    };

    /// A stored value; `std::monostate` where this version cannot read the kind, or the value as that kind.
    using Value = std::variant<std::monostate, bool, int, std::string, std::vector<unsigned char>>;

    /// A stored value in a type of SQLite's; `std::monostate` for none.
    using Payload = std::variant<std::monostate, std::int64_t, double, std::string, std::vector<unsigned char>>;

    /// A key with its value.
    struct Row {
        std::string key;  ///< Of any bytes; UTF-8 by convention.
        std::string kind; ///< The stored word of a `Storage::Kind`; another word where a later version stored it.
        Value value;      ///< Of that kind.
        std::chrono::system_clock::time_point changed; ///< When the value was last set, to the millisecond.
        Payload payload{}; ///< The stored value where `value` is `std::monostate`, so that it can be written back; else none.
    };

    /// The state in which a change expects its key.
    struct Expected {
        std::optional<Row> row; ///< As `find` or `rows` returned it; nullopt where the key should be absent.
    };

    /// One of the changes that `apply` makes together.
    struct Change {
        std::string key;                    ///< What is changed.
        Value value{};                      ///< `std::monostate` removes the key, unless `payload` has a value for it.
        std::optional<Expected> expected{}; ///< What must be stored before; nullopt where anything may be.
        std::string kind{};                 ///< The kind of `payload`. Any word.
        Payload payload{};                  ///< Stored instead of `value`, under `kind`.

        /// Writes `row` back, value and kind byte for byte, also where this version cannot read them. It becomes a row that
        /// was changed now.
        static Change restoring(Row const& row, std::optional<Expected> expected = {});
    };

    /// The properties of the file itself.
    struct Report {
        std::string sqliteVersion;       ///< Of the SQLite in use, such as "3.40.1".
        std::string journalMode;         ///< Of this object, in SQLite's word.
        int schemaVersion = 0;           ///< Of the file.
        std::vector<std::string> damage; ///< In SQLite's words; empty where the file is undamaged.
    };

    /// The schema that this version writes. A file with a newer one is opened for reading only.
    static constexpr int writtenSchema = 1;

    /// Opens the store in `file`. A missing file is created with mode 0600, missing folders above it with 0700. An
    /// existing file is checked completely and not changed. A file that the user may read but not write, or that a newer
    /// version wrote, is opened for reading, and each change throws. A relative path is resolved once, here.
    explicit SqliteStorage(std::filesystem::path const& file);
    /// As above, with options of the caller's choice.
    SqliteStorage(std::filesystem::path const& file, Options const& options);
    ~SqliteStorage() override;

    void setBool(std::string const& key, bool value) override;
    void setInt(std::string const& key, int value) override;
    /// Key and value have at most 1,000,000,000 bytes together: SQLite's limit for a row.
    void setString(std::string const& key, std::string const& value) override;
    /// As `setString`.
    void setBytes(std::string const& key, std::vector<unsigned char> const& value) override;

    bool contains(std::string const& key) const override;
    void remove(std::string const& key) override;

    bool getBool(std::string const& key, bool defaultValue) const override;
    int getInt(std::string const& key, int defaultValue) const override;
    std::string getString(std::string const& key, std::string const& defaultValue) const override;
    std::vector<unsigned char> getBytes(std::string const& key, std::vector<unsigned char> const& defaultValue) const override;

    /// The row of `key`, of whichever kind; nullopt where the key is absent.
    std::optional<Row> find(std::string const& key) const;
    /// All rows as of one moment, sorted by the bytes of their keys.
    std::vector<Row> rows() const;

    /// Makes all of `changes`, in their order, or none of them where one cannot be made: one transaction. Throws `Conflict`
    /// where a key differs from what its change expects. Every expectation, also of a second change of a key, is about the
    /// store as it is before the first change; rows are compared by `==`.
    void apply(std::vector<Change> const& changes);
    /// Makes `count` changes likewise, each of which `change` returns for its number from 0 on: for more of them than should
    /// be in memory together. None may expect anything. `change` is called within the transaction, so it must not use the
    /// store; what it throws undoes all.
    void applyEach(std::size_t count, std::function<Change(std::size_t)> const& change);
    /// The bytes of the store as of one moment, which make another store when they are written to a file.
    std::string snapshot() const;
    /// A number that differs from that of the last call where another process, or another object of this one, has changed
    /// the file in between.
    long long changesOfOthers() const;

    /// The file, as an absolute path.
    std::filesystem::path const& file() const noexcept;
    /// Whether every change is refused.
    bool isReadOnly() const { return readOnlyError().has_value(); }
    /// The error that a change would throw; nullopt where changes are allowed.
    std::optional<StorageError> readOnlyError() const;
    /// The version of SQLite that all stores are read and written with.
    static std::string sqliteVersion();
    /// Checks the whole file.
    Report examine() const;

private:
    class Connection;

    std::shared_ptr<Row const> current(std::string const& key) const;
    template <typename T>
    void set(std::string const& key, T const& value);

    std::unique_ptr<Connection> m_connection;
};

/// Whether two rows agree in key, kind, value and time, and their payloads byte for byte.
bool operator==(SqliteStorage::Row const& one, SqliteStorage::Row const& other);

} // namespace Storage
