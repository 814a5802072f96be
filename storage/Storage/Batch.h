// SPDX-License-Identifier: MIT
#pragma once

#include <Storage/SqliteStorage.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace Storage {

/// Collects what this thread sets and removes on one store: all of it is on disk when `commit` returns, none of it before.
///
///     Storage::Batch batch(*store);
///     Settings::setKeepVideoAspect(false);
///     Settings::setExportPath(folder);
///     batch.commit();
///
/// Reads: on this thread `contains`, `find`, `rows` and the getters of the store look in the batch first; a row that they
///   find there was changed when it was collected. Other threads, other processes and other store objects see what is
///   stored. `apply`, `snapshot`, `examine`, `changesOfOthers` and `readOnlyError` are about the file on every thread.
/// Locks: a batch holds none, so it may be open for as long as a window is.
/// Errors: a set or a removal in a batch throws `std::bad_alloc` only; trouble with the file reaches the caller of `commit`.
/// Lifetime: the store must outlive the batch. A batch belongs to the thread that made it and must end there: on another one
///   `commit` throws `std::logic_error`, and the destructor prints a line to standard error and ends the process.
class Batch {
public:
    /// Collects from now on. Throws `std::logic_error` where this thread has a batch on `store` already.
    explicit Batch(SqliteStorage& store);
    /// Drops what was collected and not committed.
    ~Batch();
    Batch(Batch const&) = delete;
    Batch& operator=(Batch const&) = delete;

    /// Makes all collected changes, or none where it throws, in one transaction. Throws as `SqliteStorage::apply` does, and
    /// then keeps the changes, so that it may be called again. After a success the batch goes on, empty.
    void commit();

    /// What `commit` would apply: the last change of each key. Another thread may apply it to a store object of its own.
    std::vector<SqliteStorage::Change> changes() const;

private:
    friend class SqliteStorage;

    using SharedRow = std::shared_ptr<SqliteStorage::Row const>;

    static Batch* openOn(SqliteStorage const& store);
    void put(std::string const& key, SqliteStorage::Value value);
    SharedRow const* find(std::string const& key) const;
    std::vector<SqliteStorage::Row> laidOver(std::vector<SqliteStorage::Row> stored) const;

    SqliteStorage& m_store;
    Batch* m_outer;                          // the batch that this thread opened before, on another store
    std::map<std::string, SharedRow> m_rows; // nullptr where the key is removed
};

} // namespace Storage
