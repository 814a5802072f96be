// SPDX-License-Identifier: MIT
#include <Studio/outbox/Outbox.h>

#include <Studio/ClientName.h>
#include <Studio/outbox/LaneLocks.h>
#include <Studio/outbox/OutboxFile.h>

#include <Storage/sqlite/ForkGuard.h>
#include <Storage/sqlite/Prepared.h>
#include <Storage/sqlite/SqliteErrors.h>

#include <SQLiteCpp/Column.h>
#include <SQLiteCpp/Transaction.h>

#include <chrono>
#include <map>
#include <mutex>
#include <utility>

namespace Studio {

using Operation = Outbox::Operation;
using Storage::Use;

namespace {

constexpr char const* readTheOutbox = "read the outbox";
constexpr char const* keepAChange = "change a setting";
constexpr char const* keepAnAnswer = "keep the server's answer";

std::optional<StoredValue> valueIn(SQLite::Column const& kind, SQLite::Column const& value)
{
    if (kind.isNull() || value.isNull())
        return std::nullopt;
    return StoredValue{kind.getString(), value.getString()};
}

Operation operationIn(SQLite::Statement& row)
{
    return {row.getColumn(0).getInt64(),
            row.getColumn(1).getInt64(),
            row.getColumn(2).getInt64(),
            row.getColumn(3).getString(),
            row.getColumn(4).getString(),
            valueIn(row.getColumn(5), row.getColumn(6)),
            {row.getColumn(7).getString(), row.getColumn(8).getInt64(), row.getColumn(9).getInt64()},
            row.getColumn(10).getString(),
            row.getColumn(11).getInt64()};
}

} // namespace

// The open file. Each public member function is one call of the outbox, under a mutex.
class Outbox::File {
    struct Settled {
        std::int64_t sequence;
        std::string epoch;
        std::int64_t revision;
    };

    template <typename Work>
    auto attempt(char const* what, Work const& work)
    {
        Storage::ForkGuard::check(m_path, what); // first, as another thread may have held the mutex when the process was forked
        std::lock_guard const turn(m_turns);
        return Storage::withStorageErrors(m_path, what, work);
    }

    // One transaction, in which the answered operations go, too.
    template <typename Work>
    void change(char const* what, Work const& work)
    {
        attempt(what, [&] {
            SQLite::Transaction transaction(m_database, SQLite::TransactionBehavior::IMMEDIATE);
            for (Settled const& settled : m_settled)
                removeNow(settled);
            work();
            transaction.commit();
            m_settled.clear();
        });
    }

    void removeNow(Settled const& settled)
    {
        if (settled.revision > 0) {
            keepStored(m_database, settled.sequence, settled.epoch, settled.revision);
            forgetRefusals(settled.sequence);
        }
        removeNow(settled.sequence);
    }

    void removeNow(std::int64_t sequence)
    {
        Use remove(m_remove);
        bindAll(*remove, sequence);
        remove->exec();
    }

    void forgetRefusals(std::int64_t sequence)
    {
        SQLite::Statement forget(m_database,
                                 "DELETE FROM refusal WHERE (store, key) = (SELECT store, key FROM operation WHERE sequence = ?1)");
        bindAll(forget, sequence);
        forget.exec();
    }

    // Locks the lanes of dead programs, and takes one of them for this program, or a new one.
    void adoptLanes()
    {
        std::string const boot = Moment::now().boot;
        SQLite::Transaction transaction(m_database, SQLite::TransactionBehavior::IMMEDIATE);
        SQLite::Statement lanes(m_database, "SELECT id, client, boot FROM lane ORDER BY id");
        while (lanes.executeStep()) {
            std::int64_t const lane = lanes.getColumn(0).getInt64();
            if (lane < 1 || !m_locks.tryLock(lane))
                continue;
            m_clients[lane] = lanes.getColumn(1).getString();
            if (m_own == 0 && !boot.empty() && lanes.getColumn(2).getString() == boot)
                m_own = lane;
        }
        lanes.reset();
        dropEmptyLanes(boot);
        if (m_own == 0)
            addLane(boot);
        transaction.commit();
    }

    // Of earlier runs of the system, which nobody goes on with.
    void dropEmptyLanes(std::string const& boot)
    {
        SQLite::Statement drop(m_database, "DELETE FROM lane WHERE id = ?1 AND boot <> ?2 AND id NOT IN (SELECT lane FROM operation)");
        for (auto lane = m_clients.begin(); lane != m_clients.end();) {
            bindAll(drop, lane->first, boot);
            bool const isGone = drop.exec() > 0;
            drop.reset();
            if (isGone)
                m_locks.unlock(lane->first);
            lane = isGone ? m_clients.erase(lane) : std::next(lane);
        }
    }

    // A program may still own a lane of a file that was removed.
    void addLane(std::string const& boot)
    {
        m_own = m_database.execAndGet("SELECT coalesce(max(id), 0) + 1 FROM lane").getInt64();
        while (!m_locks.tryLock(m_own))
            ++m_own;
        m_clients[m_own] = newClientName();
        SQLite::Statement add(m_database, "INSERT INTO lane VALUES (?1, ?2, ?3, 0)");
        bindAll(add, m_own, m_clients[m_own], boot);
        add.exec();
    }

    std::int64_t lastNumber(std::int64_t lane)
    {
        Use last(m_last);
        bindAll(*last, lane);
        return last->executeStep() ? last->getColumn(0).getInt64() : 0;
    }

    void setLastNumber(std::int64_t lane, std::int64_t number)
    {
        Use last(m_setLast);
        bindAll(*last, number, lane);
        last->exec();
    }

    void addNow(Operation const& operation)
    {
        Use add(m_add);
        bindAll(*add, operation.lane, operation.number, operation.store, operation.key, operation.written.boot, operation.written.uptime,
                operation.written.timeOfDay, operation.epoch, operation.base);
        if (operation.value) {
            add->bindNoCopy(10, operation.value->kind);
            add->bindNoCopy(11, operation.value->bytes);
        } else {
            add->bind(10);
            add->bind(11);
        }
        add->exec();
    }

    std::filesystem::path const m_path;
    Storage::ForkGuard const m_guard{m_path, openTheOutbox};
    std::mutex m_turns;
    LaneLocks m_locks;
    SQLite::Database m_database;
    std::map<std::int64_t, std::string> m_clients; // of the lanes that this program has locked
    std::int64_t m_own = 0;
    std::vector<Settled> m_settled;
    Storage::Prepared m_last{m_database, "SELECT last FROM lane WHERE id = ?1"};
    Storage::Prepared m_setLast{m_database, "UPDATE lane SET last = ?1 WHERE id = ?2"};
    Storage::Prepared m_add{m_database,
                            "INSERT INTO operation (lane, number, store, key, boot, uptime, time_of_day, epoch, base, kind, value) "
                            "VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9, ?10, ?11)"};
    Storage::Prepared m_remove{m_database, "DELETE FROM operation WHERE sequence = ?1"};

    static SQLite::Database open(std::filesystem::path const& path, std::string const& identity, LaneLocks& locks)
    {
        locks.lockOpening(std::chrono::seconds(5));
        return openOutbox(path, identity, locks);
    }

public:
    File(std::filesystem::path const& path, std::string const& identity)
        : m_path(path), m_locks(path.string() + "-lanes"), m_database(open(path, identity, m_locks))
    {
        adoptLanes();
        m_locks.unlockOpening();
    }

    News replica()
    {
        return attempt(readTheOutbox, [&] { return readReplica(m_database); });
    }

    std::vector<Operation> pending()
    {
        return attempt(readTheOutbox, [&] {
            std::vector<Operation> result;
            SQLite::Statement all(m_database, "SELECT sequence, lane, number, store, key, kind, value, boot, uptime, time_of_day, epoch, "
                                              "base FROM operation ORDER BY sequence");
            while (all.executeStep())
                if (Operation operation = operationIn(all); m_clients.count(operation.lane) > 0)
                    result.push_back(std::move(operation));
            return result;
        });
    }

    std::vector<Refusal> refusals()
    {
        return attempt(readTheOutbox, [&] { return readRefusals(m_database); });
    }

    std::string client(std::int64_t lane)
    {
        return attempt(readTheOutbox, [&] { return m_clients.at(lane); });
    }

    std::string client(std::int64_t lane, std::int64_t lastOperation)
    {
        bool const isKnown = attempt(readTheOutbox, [&] { return lastOperation <= lastNumber(lane); });
        if (isKnown)
            return client(lane);
        std::string const name = newClientName();
        change(keepAnAnswer, [&] {
            SQLite::Statement rename(m_database, "UPDATE lane SET client = ?1 WHERE id = ?2");
            bindAll(rename, name, lane);
            rename.exec();
        });
        return attempt(readTheOutbox, [&] { return m_clients[lane] = name; });
    }

    void append(Operation& operation)
    {
        operation.lane = m_own;
        change(keepAChange, [&] {
            operation.number = lastNumber(m_own) + 1;
            setLastNumber(m_own, operation.number);
            addNow(operation);
            operation.sequence = m_database.getLastInsertRowid();
        });
    }

    std::vector<Operation> offer(std::string const& store, std::vector<Local> const& values)
    {
        std::vector<Operation> offers;
        change(keepAChange, [&] {
            for (Local const& local : values) {
                if (!markOffered(m_database, store, local.key))
                    continue;
                std::int64_t const number = lastNumber(m_own) + 1;
                setLastNumber(m_own, number);
                offers.push_back({0, m_own, number, store, local.key, local.value, local.written, {}, Operation::offered});
                addNow(offers.back());
                offers.back().sequence = m_database.getLastInsertRowid();
            }
        });
        return offers;
    }

    void settle(Settled settled)
    {
        attempt(keepAnAnswer, [&] { m_settled.push_back(std::move(settled)); });
    }

    void flush()
    {
        m_database.setBusyTimeout(200); // of use, but not worth a long wait
        tidy();
    }

    void tidy()
    {
        if (attempt(keepAnAnswer, [&] { return !m_settled.empty(); }))
            change(keepAnAnswer, [] {});
    }

    void refuse(Operation const& operation, std::string const& sqlState)
    {
        change(keepAnAnswer, [&] {
            SQLite::Statement add(m_database, "INSERT INTO refusal (store, key, kind, value, code, refused) "
                                              "SELECT store, key, kind, value, ?1, ?2 FROM operation WHERE sequence = ?3");
            bindAll(add, sqlState, Moment::now().timeOfDay, operation.sequence);
            add.exec();
            removeNow(operation.sequence);
            SQLite::Statement trim(m_database, "DELETE FROM refusal WHERE id NOT IN (SELECT id FROM refusal ORDER BY id DESC LIMIT ?1)");
            bindAll(trim, std::int64_t{mostRefusals});
            trim.exec();
        });
    }

    void keep(News const& news)
    {
        change(keepAnAnswer, [&] { keepNews(m_database, news); });
    }

    std::int64_t lane() const { return m_own; }
    std::filesystem::path const& path() const { return m_path; }
};

Outbox::Outbox(std::filesystem::path const& file, std::string const& identity)
    : m_file(Storage::withStorageErrors(file, openTheOutbox, [&] { return std::make_unique<File>(file, identity); }))
{}

Outbox::~Outbox()
{
    if (Storage::ForkGuard::isUnfit()) // closing would roll back what the parent has begun
        static_cast<void>(m_file.release());
}

News Outbox::replica() const { return m_file->replica(); }

std::vector<Operation> Outbox::pending() const { return m_file->pending(); }

std::vector<Outbox::Refusal> Outbox::refusals() const { return m_file->refusals(); }

std::vector<std::filesystem::path> Outbox::damaged() const { return damagedOutboxes(m_file->path()); }

std::int64_t Outbox::lane() const noexcept { return m_file->lane(); }

std::string Outbox::client(std::int64_t lane) const { return m_file->client(lane); }

std::string Outbox::client(std::int64_t lane, std::int64_t lastOperation) { return m_file->client(lane, lastOperation); }

Operation Outbox::append(std::string const& store, std::string const& key, std::optional<StoredValue> const& value,
                         std::string const& epoch, std::int64_t base)
{
    Operation operation{0, 0, 0, store, key, value, Moment::now(), epoch, base};
    m_file->append(operation);
    return operation;
}

std::vector<Operation> Outbox::offer(std::string const& store, std::vector<Local> const& values)
{
    return values.empty() ? std::vector<Operation>() : m_file->offer(store, values);
}

void Outbox::settle(Operation const& operation, std::string const& epoch, std::int64_t revision)
{
    m_file->settle({operation.sequence, epoch, revision});
}

void Outbox::refuse(Operation const& operation, std::string const& sqlState) { m_file->refuse(operation, sqlState); }

void Outbox::flush() { m_file->flush(); }

void Outbox::tidy() { m_file->tidy(); }

void Outbox::keep(News const& news) { m_file->keep(news); }

std::filesystem::path const& Outbox::file() const noexcept { return m_file->path(); }

std::vector<Outbox::Refusal> readRefusals(SQLite::Database& database)
{
    std::vector<Outbox::Refusal> result;
    SQLite::Statement all(database, "SELECT store, key, code, refused FROM refusal ORDER BY id");
    while (all.executeStep())
        result.push_back(
            {all.getColumn(0).getString(), all.getColumn(1).getString(), all.getColumn(2).getString(), all.getColumn(3).getInt64()});
    return result;
}

} // namespace Studio
