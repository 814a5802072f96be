// SPDX-License-Identifier: MIT
#include <Studio/outbox/Outgoing.h>

#include <Studio/outbox/OutboxFolder.h>
#include <Studio/server/Login.h>

#include <algorithm>
#include <utility>

namespace Studio {

using Layer = Snapshot::Layer;
using SystemTime = std::chrono::system_clock::time_point;

namespace {

// The server counts microseconds from the beginning of 2000.
SystemTime timeOfMicroseconds(std::int64_t microseconds)
{
    constexpr std::chrono::seconds beginning{946684800};
    return SystemTime(beginning + std::chrono::microseconds(microseconds));
}

Snapshot::Change changeOf(Outbox::Operation const& operation)
{
    auto const& value = operation.value;
    return {Layer::user, operation.store, operation.key,
            value ? std::make_shared<Setting const>(Setting{valueOf(value->kind, value->bytes), false, {}, {}, value->kind}) : nullptr};
}

Refused refusedOf(Outbox::Refusal const& refusal)
{
    return {refusal.store,
            refusal.key,
            {reasonOf(refusal.sqlState), "the studio's server", refusal.sqlState},
            SystemTime(std::chrono::milliseconds(refusal.refused))};
}

} // namespace

std::vector<Snapshot::Change> changesOf(News const& news)
{
    std::vector<Snapshot::Change> changes;
    for (Layer const layer : {Layer::user, Layer::studio})
        for (SharedRow const& row : news.layers[static_cast<std::size_t>(layer)].rows) {
            auto const setting =
                row.value ? std::make_shared<Setting const>(Setting{valueOf(row.value->kind, row.value->bytes), row.locked, row.changedBy,
                                                                    timeOfMicroseconds(row.changedAt), row.value->kind})
                          : nullptr;
            changes.push_back({layer, row.store, row.key, setting});
        }
    return changes;
}

Outgoing::Outgoing(Session::Options const& options, Snapshot& snapshot) : m_snapshot(snapshot)
{
    if (options.worksOffline)
        attempt([&] { open(options); });
}

void Outgoing::open(Session::Options const& options)
{
    std::string const identity = identityOf(options.connection);
    if (identity.empty()) // there is no server either
        return;
    OutboxFolder const found = findOutboxFolder(outboxFolders(options.folder));
    if (found.path.empty())
        m_obstacles = found.skipped;
    else {
        auto outbox = std::make_unique<Outbox>(outboxFile(found.path, identity), identity);
        showAll(*outbox);
        m_outbox = std::move(outbox);
    }
}

void Outgoing::showAll(Outbox const& outbox)
{
    m_damaged = outbox.damaged();
    m_known = outbox.replica();
    std::vector<Outbox::Operation> operations = outbox.pending();
    for (Outbox::Refusal const& refusal : outbox.refusals())
        m_refused.push_back(refusedOf(refusal));
    m_file = outbox.file();
    m_snapshot.apply(changesOf(m_known));
    for (Outbox::Operation& operation : operations) {
        show(operation);
        m_changes.push_back(std::make_shared<Change>(Change{std::move(operation), {}}));
    }
}

void Outgoing::show(Outbox::Operation const& operation)
{
    operation.isOffer() ? m_snapshot.offer(operation.sequence, changeOf(operation))
                        : m_snapshot.cover(operation.sequence, changeOf(operation));
}

std::future<Outgoing::Answer> Outgoing::add(std::string const& store, std::string const& key, std::optional<Value> const& value,
                                            std::string const& epoch, std::int64_t base)
{
    std::lock_guard const turn(m_turns);
    if (!m_outbox)
        return {};
    auto const stored = value ? std::optional(storedValue(*value)) : std::nullopt;
    auto const change = std::make_shared<Change>(Change{m_outbox->append(store, key, stored, epoch, base), {}});
    show(change->operation);
    std::lock_guard const lock(m_mutex);
    m_changes.push_back(change);
    return change->answer.get_future();
}

void Outgoing::offer(std::string const& store, std::vector<Outbox::Local> const& values)
{
    std::lock_guard const turn(m_turns);
    if (!m_outbox)
        return;
    attempt([&] {
        for (Outbox::Operation& operation : m_outbox->offer(store, values)) {
            show(operation);
            std::lock_guard const lock(m_mutex);
            m_changes.push_back(std::make_shared<Change>(Change{std::move(operation), {}}));
        }
    });
}

std::shared_ptr<Outgoing::Change> Outgoing::first() const
{
    std::lock_guard const lock(m_mutex);
    return m_changes.empty() ? nullptr : m_changes.front();
}

std::size_t Outgoing::count() const
{
    std::lock_guard const lock(m_mutex);
    return m_changes.size();
}

// The snapshot first: once the outbox lacks an operation, another one may get its number in the sequence.
void Outgoing::stored(Change& change, std::string const& epoch, std::int64_t revision)
{
    Outbox::Operation const& operation = change.operation;
    m_snapshot.lift(operation.sequence, {operation.store, operation.key}, changeOf(operation));
    attempt([&] { m_outbox->settle(operation, epoch, revision); });
    {
        std::lock_guard const lock(m_mutex);
        auto const isOf = [&](Refused const& refused) { return refused.store == operation.store && refused.key == operation.key; };
        m_refused.erase(std::remove_if(m_refused.begin(), m_refused.end(), isOf), m_refused.end());
    }
    end(change, std::nullopt);
}

void Outgoing::overtaken(Change& change)
{
    Outbox::Operation const& operation = change.operation;
    m_snapshot.lift(operation.sequence, {operation.store, operation.key});
    attempt([&] { m_outbox->settle(operation, {}, 0); });
    end(change, std::nullopt);
}

void Outgoing::refused(Change& change, Failure const& failure)
{
    Outbox::Operation const& operation = change.operation;
    m_snapshot.lift(operation.sequence, {operation.store, operation.key});
    attempt([&] { m_outbox->refuse(operation, failure.sqlState); });
    {
        std::lock_guard const lock(m_mutex);
        m_refused.push_back({operation.store, operation.key, failure.error(), std::chrono::system_clock::now()});
        if (m_refused.size() > Outbox::mostRefusals)
            m_refused.erase(m_refused.begin());
    }
    end(change, failure);
}

// Only the first change is ever sent.
void Outgoing::end(Change& change, Answer const& answer)
{
    {
        std::lock_guard const lock(m_mutex);
        m_changes.pop_front();
    }
    change.answer.set_value(answer);
}

void Outgoing::keep(News const& news)
{
    if (m_outbox)
        attempt([&] { m_outbox->keep(news); });
}

void Outgoing::tidy()
{
    if (m_outbox)
        attempt([&] { m_outbox->tidy(); });
}

void Outgoing::close()
{
    std::lock_guard const turn(m_turns);
    if (m_outbox)
        attempt([&] { m_outbox->flush(); });
    m_outbox.reset();
    std::lock_guard const lock(m_mutex);
    for (std::shared_ptr<Change> const& change : std::exchange(m_changes, {}))
        change->answer.set_value(std::nullopt);
}

// What the outbox cannot keep of the server's answers, it asks for again at the next start.
void Outgoing::attempt(std::function<void()> const& work)
try {
    work();
} catch (Storage::StorageError const& error) {
    note(error);
}

void Outgoing::note(Storage::StorageError const& error)
{
    std::lock_guard const lock(m_mutex);
    m_obstacles = {error};
}

void Outgoing::report(Status& status) const
{
    std::lock_guard const lock(m_mutex);
    status.pending = m_changes.size();
    if (!m_changes.empty())
        status.pendingSince = SystemTime(std::chrono::milliseconds(m_changes.front()->operation.written.timeOfDay));
    status.refused = m_refused;
    status.outbox = m_file;
    status.obstacles = m_obstacles;
    status.damaged = m_damaged;
}

} // namespace Studio
