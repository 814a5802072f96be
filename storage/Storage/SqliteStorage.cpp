// SPDX-License-Identifier: MIT
#include <Storage/Batch.h>
#include <Storage/Conflict.h>
#include <Storage/Kind.h>
#include <Storage/SqliteStorage.h>

#include "sqlite/ForkGuard.h"
#include "sqlite/Hardening.h"
#include "sqlite/Prepared.h"
#include "sqlite/RowCache.h"
#include "sqlite/SqliteErrors.h"
#include "sqlite/StoreContent.h"
#include "sqlite/StoreFile.h"
#include "sqlite/StoreOpening.h"
#include "watch/OwnChanges.h"
#include <Storage/FileSystem.h>

#include <SQLiteCpp/Column.h>
#include <SQLiteCpp/Exception.h>
#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>

#include <sqlite3.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <mutex>
#include <thread>
#include <utility>

namespace Storage {

namespace {

long long millisecondsSinceEpoch()
{
    using namespace std::chrono;
    return duration_cast<milliseconds>(system_clock::now().time_since_epoch()).count();
}

// Throws beyond SQLite's limit for a text or a blob. SQLite takes sizes as `int`, which would truncate a longer one.
int checkedSize(std::size_t size)
{
    if (size > 1000000000)
        throw SQLite::Exception("a key or value is longer than 1000000000 bytes", SQLITE_TOOBIG);
    return static_cast<int>(size);
}

void bindText(SQLite::Statement& statement, int index, std::string const& text)
{
    checkedSize(text.size());
    statement.bindNoCopy(index, text);
}

void bindValue(SQLite::Statement& statement, int index, bool value) { statement.bind(index, value ? 1 : 0); }
void bindValue(SQLite::Statement& statement, int index, int value) { statement.bind(index, value); }
void bindValue(SQLite::Statement& statement, int index, std::int64_t value) { statement.bind(index, value); }
void bindValue(SQLite::Statement& statement, int index, double value) { statement.bind(index, value); }
void bindValue(SQLite::Statement& statement, int index, std::string const& value) { bindText(statement, index, value); }
void bindValue(SQLite::Statement& statement, int index, std::vector<unsigned char> const& value)
{
    // A null pointer would be stored as NULL instead of an empty blob.
    void const* const bytes = value.empty() ? static_cast<void const*>("") : value.data();
    statement.bindNoCopy(index, bytes, checkedSize(value.size()));
}

std::optional<SqliteStorage::Row> copyOf(std::shared_ptr<SqliteStorage::Row const> const& row)
{
    return row ? std::optional<SqliteStorage::Row>(*row) : std::nullopt;
}

} // namespace

// The open file with its statements. Each public member function is one call of the store, under a mutex; reads of
// what the rows in memory hold need none.
class SqliteStorage::Connection {
    template <typename Work>
    auto attempt(std::string const& what, Work const& work)
    {
        ForkGuard::check(m_file, what); // first, as another thread may have held the mutex when the process was forked
        std::lock_guard<std::mutex> const turn(m_turns);
        return withStorageErrors(m_file, what, work);
    }

    // A forged or newer file may make a read last for ever, or fail on its layout.
    template <typename Work>
    auto readNow(std::string const& what, Work const& work)
    {
        WorkLimit const limit(m_database);
        try {
            return work();
        } catch (SQLite::Exception const& error) {
            if (std::optional<StorageError> const newer = newerStoreError(m_file, what, schemaVersion(), error))
                throw StorageError(*newer);
            throw;
        }
    }

    template <typename Work>
    auto read(std::string const& what, Work const& work)
    {
        return attempt(what, [&] { return readNow(what, work); });
    }

    // One transaction. The schema is checked inside it, as a newer version may have migrated the file since it was opened.
    template <typename Work>
    void changeNow(std::string const& what, Work const& work)
    {
        SQLite::Transaction transaction(m_database, SQLite::TransactionBehavior::IMMEDIATE);
        if (std::optional<StorageError> const obstacle = obstacleToChanges(m_file, what, m_database, schemaVersion()))
            throw StorageError(*obstacle);
        OwnChanges::Transaction own(*m_own);
        work();
        transaction.commit();
        own.keep();
    }

    // Pauses now and then, as processes that wait for the file would starve while this one goes on changing it. It does
    // not pause after each change, as a short sleep lasts far longer than requested.
    template <typename Work>
    void change(std::string const& what, Work const& work)
    {
        using Clock = std::chrono::steady_clock;
        attempt(what, [&] {
            std::this_thread::sleep_until(m_pauseEnd);
            Clock::time_point const start = Clock::now();
            changeNow(what, work);
            Clock::time_point const end = Clock::now();
            m_taken += end - start;
            if (m_taken >= std::chrono::milliseconds(4))
                m_pauseEnd = end + std::min<Clock::duration>(std::exchange(m_taken, {}) / 16, std::chrono::milliseconds(2));
        });
    }

    int schemaVersion()
    {
        Use schema(m_schema);
        schema->executeStep();
        return schema->getColumn(0).getInt();
    }

    // The row that SQLite reads, within the transaction where there is one.
    std::shared_ptr<Row const> findNow(std::string const& key)
    {
        Use find(m_find);
        bindText(*find, 1, key);
        if (!find->executeStep())
            return nullptr;
        return std::make_shared<Row const>(decodedRow(key, find->getColumn(0), find->getColumn(1), find->getColumn(2)));
    }

    // Notes the row as it is read, as SQLite may store a value in another type.
    void noteNow(std::string const& key)
    {
        if (m_own->isWatched())
            m_own->note(key, copyOf(findNow(key)));
    }

    template <typename T>
    void putNow(std::string const& key, std::string const& kind, T const& value)
    {
        Use set(m_set);
        bindText(*set, 1, key);
        bindText(*set, 2, kind);
        bindValue(*set, 3, value);
        set->bind(4, static_cast<std::int64_t>(millisecondsSinceEpoch()));
        set->exec();
        noteNow(key);
    }

    void putNow(std::string const& key, std::string const&, std::monostate)
    {
        Use remove(m_remove);
        bindText(*remove, 1, key);
        if (remove->exec() > 0)
            noteNow(key);
    }

    void makeNow(Change const& change)
    {
        if (std::holds_alternative<std::monostate>(change.payload))
            std::visit([&](auto const& value) { putNow(change.key, kindWord(change.value), value); }, change.value);
        else
            std::visit([&](auto const& value) { putNow(change.key, change.kind, value); }, change.payload);
    }

    void checkExpected(std::string const& what, Change const& change)
    {
        if (!change.expected)
            return;
        if (std::optional<Row> const stored = copyOf(findNow(change.key)); !(stored == change.expected->row))
            throw Conflict(m_file.u8string(), what, change.key, change.expected->row, stored);
    }

    std::filesystem::path const m_file;
    ForkGuard const m_guard{m_file, "open the store"};
    std::mutex m_turns;
    std::chrono::steady_clock::duration m_taken{}; // the time that changes took since the last pause
    std::chrono::steady_clock::time_point m_pauseEnd;
    SQLite::Database m_database;
    StoreFile const m_storeFile{m_database};
    RowCache m_cache;
    Prepared m_all{m_database, allRows};
    Prepared m_schema{m_database, "PRAGMA user_version"};
    Prepared m_find{m_database, "SELECT kind, value, changed FROM settings WHERE key = ?1"};
    Prepared m_set{m_database, setStatement};
    Prepared m_remove{m_database, "DELETE FROM settings WHERE key = ?1"};
    std::shared_ptr<OwnChanges> const m_own = OwnChanges::of(sqlite3_db_filename(m_database.getHandle(), "main")); // without links

public:
    Connection(std::filesystem::path const& path, Options const& options)
        : m_file(path), m_database(openFile(m_file, options)), m_cache(m_storeFile, localityOf(m_file) == Locality::local)
    {
        SQLite::Transaction look(m_database); // the file is locked once for the whole look
        checkStore(m_file, m_database, m_all);
        readNow("open the store", [&] { m_cache.load(m_all); });
        look.commit();
        setJournal(m_database, static_cast<int>(options.synchronous));
    }

    // nullptr where the key is absent.
    std::shared_ptr<Row const> find(std::string const& key)
    {
        if (!ForkGuard::isUnfit())
            if (std::optional<RowCache::Answer> known = m_cache.find(key))
                return std::move(known->row);
        return read("read \"" + key + '"', [&] {
            std::optional<RowCache::Answer> known = m_cache.findAfterChange(key, m_database, m_all);
            return known ? std::move(known->row) : findNow(key);
        });
    }

    std::vector<Row> rows()
    {
        return read("list the stored values", [&] { return storedRows(m_database); });
    }

    template <typename T>
    void set(std::string const& key, T const& value)
    {
        change("set \"" + key + '"', [&] { putNow(key, storedWord(kindOfType<T>()), value); });
    }

    void remove(std::string const& key)
    {
        change("remove \"" + key + '"', [&] { putNow(key, {}, std::monostate()); });
    }

    static std::string making(std::size_t count)
    {
        return "make " + std::to_string(count) + (count == 1 ? " change" : " changes together");
    }

    void applyEach(std::size_t count, std::function<Change(std::size_t)> const& next)
    {
        change(making(count), [&] {
            for (std::size_t number = 0; number < count; ++number)
                makeNow(next(number));
        });
    }

    void apply(std::vector<Change> const& changes)
    {
        std::string const what = making(changes.size());
        change(what, [&] {
            for (Change const& change : changes)
                checkExpected(what, change);
            for (Change const& change : changes)
                makeNow(change);
        });
    }

    std::string snapshot()
    {
        return attempt("copy the store", [&] { return snapshotOf(m_database); });
    }

    long long changesOfOthers()
    {
        return attempt("ask for changes", [&]() -> long long { return m_database.execAndGet("PRAGMA data_version").getInt64(); });
    }

    std::filesystem::path const& file() const { return m_file; }

    std::optional<StorageError> readOnlyError()
    {
        return attempt("ask about the store", [&] { return obstacleToChanges(m_file, "change the store", m_database, schemaVersion()); });
    }

    Report examine()
    {
        return read("examine the store", [&]() -> Report {
            return {sqliteVersion(), m_database.execAndGet("PRAGMA journal_mode").getString(), schemaVersion(), damageOf(m_database)};
        });
    }
};

SqliteStorage::SqliteStorage(std::filesystem::path const& file) : SqliteStorage(file, Options{}) {}
SqliteStorage::SqliteStorage(std::filesystem::path const& file, Options const& options)
    : m_connection(withStorageErrors(file, "open the store",
                                     [&] { return std::make_unique<Connection>(absolutePath(file, "open the store"), options); }))
{}
SqliteStorage::~SqliteStorage()
{
    if (ForkGuard::isUnfit()) // closing would roll back what the parent has begun
        static_cast<void>(m_connection.release());
}

namespace {

// Returns the default where the key is absent or holds another kind.
template <typename T>
T valueOr(std::shared_ptr<SqliteStorage::Row const> const& row, T const& defaultValue)
{
    T const* const value = row ? std::get_if<T>(&row->value) : nullptr;
    return value ? *value : defaultValue;
}

} // namespace

// Looks in the batch of this thread first.
std::shared_ptr<SqliteStorage::Row const> SqliteStorage::current(std::string const& key) const
{
    Batch const* const batch = Batch::openOn(*this);
    std::shared_ptr<Row const> const* const collected = batch ? batch->find(key) : nullptr;
    return collected ? *collected : m_connection->find(key);
}

template <typename T>
void SqliteStorage::set(std::string const& key, T const& value)
{
    if (Batch* const batch = Batch::openOn(*this))
        batch->put(key, value);
    else
        m_connection->set(key, value);
}

void SqliteStorage::setBool(std::string const& key, bool value) { set(key, value); }

void SqliteStorage::setInt(std::string const& key, int value) { set(key, value); }

void SqliteStorage::setString(std::string const& key, std::string const& value) { set(key, value); }

void SqliteStorage::setBytes(std::string const& key, std::vector<unsigned char> const& value) { set(key, value); }

bool SqliteStorage::contains(std::string const& key) const { return current(key) != nullptr; }

void SqliteStorage::remove(std::string const& key)
{
    if (Batch* const batch = Batch::openOn(*this))
        batch->put(key, {});
    else
        m_connection->remove(key);
}

bool SqliteStorage::getBool(std::string const& key, bool defaultValue) const { return valueOr(current(key), defaultValue); }

int SqliteStorage::getInt(std::string const& key, int defaultValue) const { return valueOr(current(key), defaultValue); }

std::string SqliteStorage::getString(std::string const& key, std::string const& defaultValue) const
{
    return valueOr(current(key), defaultValue);
}

std::vector<unsigned char> SqliteStorage::getBytes(std::string const& key, std::vector<unsigned char> const& defaultValue) const
{
    return valueOr(current(key), defaultValue);
}

std::optional<SqliteStorage::Row> SqliteStorage::find(std::string const& key) const { return copyOf(current(key)); }

std::vector<SqliteStorage::Row> SqliteStorage::rows() const
{
    Batch const* const batch = Batch::openOn(*this);
    return batch ? batch->laidOver(m_connection->rows()) : m_connection->rows();
}

void SqliteStorage::apply(std::vector<Change> const& changes) { m_connection->apply(changes); }

void SqliteStorage::applyEach(std::size_t count, std::function<Change(std::size_t)> const& change)
{
    m_connection->applyEach(count, change);
}

std::string SqliteStorage::snapshot() const { return m_connection->snapshot(); }

long long SqliteStorage::changesOfOthers() const { return m_connection->changesOfOthers(); }

std::filesystem::path const& SqliteStorage::file() const noexcept { return m_connection->file(); }

std::optional<StorageError> SqliteStorage::readOnlyError() const { return m_connection->readOnlyError(); }

SqliteStorage::Report SqliteStorage::examine() const { return m_connection->examine(); }

std::string SqliteStorage::sqliteVersion() { return sqlite3_libversion(); }

} // namespace Storage
