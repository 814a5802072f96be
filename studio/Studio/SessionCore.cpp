// SPDX-License-Identifier: MIT
#include <Studio/SessionCore.h>

#include <Studio/ClientName.h>

#include <Storage/SqliteStorage.h>

#include <algorithm>
#include <random>
#include <utility>

#include <signal.h>

namespace Studio {

using namespace std::string_literals;
using Clock = SessionCore::Clock;
using Reason = ServerError::Reason;
using Layer = Snapshot::Layer;

namespace {

SharedRow rowIn(Rows const& rows, int row)
{
    SharedRow result{std::string(rows.bytes(row, 2)), std::string(rows.bytes(row, 3)), std::nullopt, false, {}, 0};
    if (!rows.isNull(row, 4)) {
        result.value = {std::string(rows.bytes(row, 4)), std::string(rows.bytes(row, 5))};
        result.locked = rows.integer(row, 6) != 0;
        result.changedBy = rows.bytes(row, 7);
        result.changedAt = rows.integer(row, 8);
    }
    return result;
}

Connection::Options connectionOptions(Session::Options const& options)
{
    Connection::Options result{options.connection};
    result.connectWait = options.connectWait;
    result.statementWait = options.statementWait;
    return result;
}

constexpr char const* newsColumns = "SELECT studio, layer_revision, store, key, kind, value, locked, changed_by, changed_at";

// With the epoch, which may be newer than the changes, but is never older. A server of the first schema greets for it.
std::string newsWithEpoch(std::int64_t schema)
{
    return std::string(newsColumns) + (schema > 1 ? ", epoch FROM settings.changes_v2($1, $2)"
                                                  : ", (SELECT epoch FROM settings.hello_v1($3, 0)) FROM settings.changes_v1($1, $2)");
}

constexpr char const* studioChannel = "settings_studio";

// Whether the server will never take the change. Its own troubles, which these classes of codes stand for, end.
bool isRefusal(ServerError const& error)
{
    std::string const family = error.sqlState().substr(0, 2);
    Reason const reason = error.reason();
    return reason == Reason::locked || reason == Reason::denied || reason == Reason::tooLarge ||
           (reason == Reason::rejected && family != "58" && family != "XX");
}

bool isLoss(Reason reason) { return reason == Reason::lost || reason == Reason::unreachable; }

// A role that was dropped and made again has its rights on new connections only.
bool mayHelpToConnect(Reason reason) { return isLoss(reason) || reason == Reason::denied; }

} // namespace

SessionCore::SessionCore(Session::Options const& options)
    : m_options(options),
      m_outgoing(options, m_snapshot),
      m_connection(connectionOptions(options)),
      m_random(std::random_device()()),
      m_client(m_outgoing.outbox() ? m_outgoing.outbox()->client(m_outgoing.outbox()->lane()) : newClientName()),
      m_keptEpoch(m_outgoing.known().epoch),
      m_epoch(m_keptEpoch),
      m_userRevision(m_outgoing.known().layers[0].revision),
      m_studioRevision(m_outgoing.known().layers[1].revision)
{
    m_knownEpoch = m_epoch;
    m_knownRevision = m_userRevision;
    if (!m_epoch.empty())
        m_status.asOf = std::chrono::system_clock::time_point(std::chrono::milliseconds(m_outgoing.known().asOf));
}

std::chrono::milliseconds SessionCore::firstWait() const
{
    return m_outgoing.known().epoch.empty() ? m_options.firstWait : m_options.startWait;
}

void SessionCore::demand(Clock::time_point deadline, std::function<void()> work)
{
    auto const request = std::make_shared<Request>(Request{deadline, std::move(work), {}});
    std::future<std::optional<Failure>> done = request->done.get_future();
    std::unique_lock lock(m_mutex);
    if (m_ends)
        throw ServerError(Reason::interrupted, m_host);
    // The listener asks for something: nobody else would do it.
    bool const isOwnThread = m_thread == std::this_thread::get_id();
    if (!isOwnThread)
        m_requests.push_back(request);
    lock.unlock();
    isOwnThread ? perform(*request) : m_wake.raise();
    if (done.wait_until(deadline) == std::future_status::timeout)
        throw ServerError(Reason::timedOut, host());
    if (std::optional<Failure> const failure = done.get())
        throw failure->error();
}

// The outbox keeps the change. The server's answer is waited for only where one may come soon, and not by the thread that
// sends.
void SessionCore::change(std::string const& store, std::string const& key, std::optional<Value> const& value)
{
    std::unique_lock lock(m_mutex);
    bool const waits = !m_problem && !m_sendProblem && m_thread != std::this_thread::get_id();
    std::string const epoch = m_knownEpoch;
    std::int64_t const base = m_knownRevision;
    lock.unlock();
    std::future<Outgoing::Answer> answer = m_outgoing.add(store, key, value, epoch, base);
    if (!answer.valid())
        return changeAtServer(store, key, value);
    m_wake.raise();
    if (waits && answer.wait_for(m_options.writeWait) == std::future_status::ready)
        if (Outgoing::Answer const failure = answer.get())
            throw failure->error();
}

// What no server takes stays where it is.
void SessionCore::offer(std::string const& store, ISettingsStorage const& local)
try {
    auto const* const file = dynamic_cast<Storage::SqliteStorage const*>(&local);
    if (!file || !m_outgoing.outbox())
        return;
    std::vector<Outbox::Local> values;
    for (Storage::SqliteStorage::Row const& row : file->rows()) {
        if (!roams(row.key) || row.key.size() > longestKey || std::holds_alternative<std::monostate>(row.value))
            continue;
        auto const changed = std::chrono::duration_cast<std::chrono::milliseconds>(row.changed.time_since_epoch());
        if (StoredValue const value = storedValue(row.value); value.bytes.size() <= longestValue)
            values.push_back({row.key, value, {"", 0, changed.count()}});
    }
    m_outgoing.offer(store, values);
    m_wake.raise();
} catch (Storage::StorageError const& error) {
    m_outgoing.note(error);
}

void SessionCore::changeAtServer(std::string const& store, std::string const& key, std::optional<Value> const& value)
{
    auto const deadline = Clock::now() + m_options.changeWait;
    auto const setting = value ? std::make_shared<Setting const>(Setting{*value, false, {}, {}, {}}) : nullptr;
    demand(deadline, [this, deadline, change = Snapshot::Change{Layer::user, store, key, setting}] { put(change, deadline); });
}

void SessionCore::awaitConnection(Clock::time_point deadline)
{
    demand(deadline, [this] { connect(); });
}

void SessionCore::synchronise(Clock::time_point deadline)
{
    demand(deadline, [this, deadline, asked = Clock::now()] {
        exchange(deadline, [this, asked] {
            sendAll();
            catchUp(asked, true);
        });
    });
}

Status SessionCore::status() const
{
    std::lock_guard const lock(m_mutex);
    Status status = m_status;
    if (std::optional<Failure> const& problem = m_problem ? m_problem : m_sendProblem)
        status.problem = problem->error();
    m_outgoing.report(status);
    return status;
}

std::string SessionCore::host() const
{
    std::lock_guard const lock(m_mutex);
    return m_host;
}

void SessionCore::end()
{
    {
        std::lock_guard const lock(m_mutex);
        m_ends = true;
    }
    m_connection.interrupt();
    m_wake.raise();
}

// Null where nobody asks for anything.
std::shared_ptr<SessionCore::Request> SessionCore::next()
{
    std::lock_guard const lock(m_mutex);
    if (m_requests.empty())
        return nullptr;
    std::shared_ptr<Request> request = m_requests.front();
    m_requests.pop_front();
    return request;
}

bool SessionCore::isEnding() const
{
    std::lock_guard const lock(m_mutex);
    return m_ends;
}

void SessionCore::run()
{
    // The program's signals are for its own threads; those that libpq connects in inherit this.
    sigset_t all;
    ::sigfillset(&all);
    ::pthread_sigmask(SIG_SETMASK, &all, nullptr);
    {
        std::lock_guard const lock(m_mutex);
        m_thread = std::this_thread::get_id();
    }
    while (!isEnding()) {
        step();
        tell();
    }
    while (std::shared_ptr<Request> const request = next())
        request->done.set_value(Failure{Reason::interrupted, m_connection.host(), ""});
    m_listener.set({});
    m_outgoing.close();
    m_connection.close();
}

// Looks at the server first, or a program that asks without pause would keep it from that.
void SessionCore::step()
{
    hear();
    if (Clock::now() >= nextLook()) {
        Request ownRequest{Clock::time_point::max(), [this] { look(); }, {}};
        perform(ownRequest);
    } else if (std::shared_ptr<Request> const request = next()) {
        perform(*request);
    } else if (mustSend()) {
        Request sending{Clock::time_point::max(), [this] { exchange(Clock::time_point::max(), [this] { sendNext(); }); }, {}};
        perform(sending);
    } else {
        rest();
    }
}

Clock::time_point SessionCore::nextLook() const { return m_connection.isOpen() ? std::min(m_nextPoll, m_hinted) : m_nextTry; }

// At random, so that sessions that begin together do not stay together.
Clock::time_point SessionCore::nextPoll()
{
    std::uniform_real_distribution<double> part(0.8, 1.2);
    auto const wait = m_isListening ? m_options.heartbeatWait : m_options.pollWait;
    return Clock::now() + std::chrono::duration_cast<Clock::duration>(wait * part(m_random));
}

std::chrono::milliseconds SessionCore::atMost(std::chrono::milliseconds wait)
{
    return std::chrono::milliseconds(std::uniform_int_distribution<std::chrono::milliseconds::rep>(0, wait.count())(m_random));
}

// What others notify is a hint to look, whatever it says: anybody can send one. The own changes are known. Of a change of the studio's
// every session hears at once; the first hint decides how long this one waits, or many hints would shorten the wait.
void SessionCore::hear()
{
    for (Notification const& notification : m_connection.notifications()) {
        Clock::time_point const first = std::max(Clock::now(), m_hintsFrom);
        if (notification.backend == m_connection.backend())
            continue;
        if (notification.channel != studioChannel)
            m_hinted = std::min(m_hinted, first);
        else if (m_hinted == Clock::time_point::max())
            m_hinted = first + atMost(m_options.studioWait);
    }
}

void SessionCore::rest()
try {
    bool const waitsToSend = m_connection.isOpen() && m_outgoing.first();
    m_connection.rest(m_wake, waitsToSend ? std::min(nextLook(), m_nextSend) : nextLook());
    m_wake.lower();
} catch (ServerError const& error) {
    note(Failure{error.reason(), error.host(), error.sqlState()});
    planNextTry(error);
}

void SessionCore::tell()
{
    for (auto const& [store, key] : std::exchange(m_news, {}))
        if (!isEnding())
            m_listener.call(store, key);
}

void SessionCore::perform(Request& request)
try {
    // Whoever asked has been told that nothing was done.
    if (Clock::now() >= request.deadline)
        throw ServerError(Reason::timedOut, m_connection.host());
    request.work();
    note(std::nullopt);
    request.done.set_value(std::nullopt);
} catch (ServerError const& error) {
    Failure const failure{error.reason(), error.host(), error.sqlState()};
    note(failure);
    planNextTry(error);
    request.done.set_value(failure);
} catch (...) {
    request.done.set_exception(std::current_exception());
}

void SessionCore::note(std::optional<Failure> const& problem)
{
    std::lock_guard const lock(m_mutex);
    m_status.connected = m_connection.isOpen();
    m_problem = problem;
    m_host = m_connection.host();
}

// What others ask for in between does not delay the next try that the thread makes by itself.
void SessionCore::planNextTry(ServerError const& error)
{
    if (!m_connection.isOpen() && Clock::now() >= m_nextTry)
        m_nextTry = Clock::now() +
                    m_backoff.failed(error.reason() == Reason::login ? Backoff::Failure::refusedLogin : Backoff::Failure::unreachable);
}

// Where the last try failed at once, one more costs nobody much: the server may be back. One that would wait again, or lock an
// account, is left to its time.
void SessionCore::connect()
{
    if (m_connection.isOpen())
        return;
    if (Clock::now() < m_nextTry && !isLoss(m_refusal.reason()))
        throw ServerError(m_refusal);
    try {
        m_connection.connect();
        greet();
        fetch();
        m_checked = m_fetched; // the greeting told the epoch
    } catch (ServerError const& error) {
        m_connection.close();
        m_refusal = error;
        throw;
    }
    m_backoff.connected();
    m_nextPoll = nextPoll();
    m_nextSend = {};
}

// Another epoch is another history, in which the same revisions may stand for other changes. The lock that has writers notify is taken
// by the greeting, and what is new is read after both: a change that nobody announced is among it.
void SessionCore::greet()
{
    int const backend = m_connection.backend();
    Rows const rows =
        m_connection.execute("SELECT epoch, hears, user_layer, pg_catalog.pg_backend_pid(), schema FROM settings.hello_v1($1, $2)",
                             {Parameter::literal(m_client), Parameter::literal(std::to_string(m_options.listen ? backend : 0))});
    std::string const epoch(rows.bytes(0, 0));
    m_greeted.clear();
    if (!m_epoch.empty() && epoch != m_epoch)
        forgetRevisions();
    m_epoch = epoch;
    m_schema = rows.integer(0, 4);
    m_isListening = rows.integer(0, 1) != 0;
    if (m_isListening) {
        m_connection.execute("LISTEN "s + studioChannel);
        m_connection.execute("LISTEN settings_u" + std::to_string(rows.integer(0, 2)));
    }
    std::lock_guard const lock(m_mutex);
    m_status.hearing = m_isListening ? Status::Hearing::listening : Status::Hearing::polling;
    m_status.pooled = rows.integer(0, 3) != backend;
}

void SessionCore::forgetRevisions()
{
    m_userRevision = m_studioRevision = 0;
    std::lock_guard const lock(m_mutex);
    m_status.historyChanged = std::chrono::system_clock::now();
}

// Between polls the outbox keeps what is answered, which saves a sync for each change. A poll asks for the epoch, which may change while a
// connection lasts: with a forgotten user, and behind a pooler always. Forged hints bring it to look ten times a second: only after one
// that brought news may the next follow at once.
void SessionCore::look()
{
    Clock::time_point const now = Clock::now();
    bool const isPoll = !m_connection.isOpen() || now >= m_nextPoll;
    if (isPoll) {
        m_nextPoll = nextPoll();
        m_outgoing.tidy();
    }
    auto const known = std::pair(m_userRevision, m_studioRevision);
    exchange(Clock::time_point::max(), [this, now, isPoll] { catchUp(now, isPoll); });
    if (!isPoll && known == std::pair(m_userRevision, m_studioRevision))
        m_hintsFrom = Clock::now() + std::chrono::milliseconds(100);
}

// A server that is set to read only greets nobody, and forgets nobody either; a standby behind a pooler has no epoch of its own.
void SessionCore::catchUp(Clock::time_point moment, bool checksEpoch)
try {
    if ((checksEpoch ? m_checked : m_fetched) < moment)
        fetch(checksEpoch);
} catch (ServerError const& error) {
    if (!checksEpoch || error.reason() != Reason::readOnly)
        throw;
    fetch();
}

void SessionCore::fetch(bool checksEpoch)
{
    Clock::time_point const begin = Clock::now();
    m_hinted = Clock::time_point::max();
    for (bool isKnown = false; !isKnown;) {
        std::vector<Parameter> parameters{Parameter::literal(std::to_string(m_userRevision)),
                                          Parameter::literal(std::to_string(m_studioRevision))};
        if (checksEpoch && m_schema == 1)
            parameters.push_back(Parameter::literal(m_client));
        Rows const rows = m_connection.execute(
            checksEpoch ? newsWithEpoch(m_schema) : std::string(newsColumns) + " FROM settings.changes_v1($1, $2)", parameters);
        // Only a new greeting helps.
        if (checksEpoch && rows.bytes(0, 9) != m_epoch)
            throw ServerError(Reason::lost, m_connection.host());
        isKnown = takeOver(rows);
    }
    m_fetched = begin;
    if (checksEpoch)
        m_checked = begin;
    std::lock_guard const lock(m_mutex);
    m_status.asOf = std::chrono::system_clock::now();
}

// False where the server's history turns out to be another one, which has to be read from its beginning.
bool SessionCore::takeOver(Rows const& rows)
{
    News fresh{m_epoch, {LayerNews{m_userRevision, m_userRevision, {}}, LayerNews{m_studioRevision, m_studioRevision, {}}}, 0};
    bool hasUser = false;
    for (int row = 0; row < rows.count(); ++row) {
        bool const isStudio = rows.integer(row, 0) != 0;
        LayerNews& layer = fresh.layers[isStudio];
        if (rows.integer(row, 1) < layer.revision) {
            forgetRevisions();
            return false;
        }
        layer.revision = rows.integer(row, 1);
        if (!rows.isNull(row, 3))
            layer.rows.push_back(rowIn(rows, row));
        hasUser = hasUser || !isStudio;
    }
    // Somebody had the server forget the user: only a new greeting helps.
    if (!hasUser)
        throw ServerError(Reason::lost, m_connection.host());
    fresh.asOf = Moment::now().timeOfDay;
    takeOver(fresh);
    return true;
}

void SessionCore::takeOver(News const& fresh)
{
    LayerNews const& user = fresh.layers[0];
    LayerNews const& studio = fresh.layers[1];
    std::vector<Layer> forgotten;
    if (user.since == 0)
        forgotten.push_back(Layer::user);
    if (studio.since == 0)
        forgotten.push_back(Layer::studio);
    std::set<Snapshot::Place> changed = m_snapshot.apply(changesOf(fresh), forgotten);
    if (m_listener.isSet())
        m_news.merge(changed);
    m_userRevision = user.revision;
    m_studioRevision = studio.revision;
    if (fresh.epoch != std::exchange(m_keptEpoch, fresh.epoch) || user.revision != user.since || studio.revision != studio.since)
        m_outgoing.keep(fresh);
    std::lock_guard const lock(m_mutex);
    m_knownEpoch = m_epoch;
    m_knownRevision = m_userRevision;
}

// Does `work` with a connection, and with a new one once more where it breaks: an idle one may be long dead.
void SessionCore::exchange(Clock::time_point deadline, std::function<void()> const& work)
{
    connect();
    try {
        work();
    } catch (ServerError const& error) {
        if (!mayHelpToConnect(error.reason()) || Clock::now() >= deadline)
            throw;
        m_connection.close();
        connect();
        work();
    }
}

// Where the connection breaks, nobody knows whether the server has the change. It is sent again under the same number, by which
// the server knows whether it has it.
void SessionCore::put(Snapshot::Change const& change, Clock::time_point deadline)
try {
    std::int64_t const number = ++m_operation;
    auto const value = change.setting ? std::optional(storedValue(change.setting->value)) : std::nullopt;
    std::int64_t revision = 0;
    exchange(deadline, [&] {
        revision = send({0, 0, number, change.store, change.key, value, Moment::now(), m_epoch, m_userRevision}, m_client);
    });
    if (revision > 0)
        m_snapshot.apply({change});
    else
        fetch();
} catch (ServerError const& error) {
    if (error.reason() == Reason::locked)
        fetch();
    throw;
}

bool SessionCore::mustSend() const { return m_connection.isOpen() && Clock::now() >= m_nextSend && m_outgoing.first(); }

// What waits now, and not what comes meanwhile, or a program that changes without pause would keep this from its end.
void SessionCore::sendAll()
{
    m_nextSend = {};
    for (std::size_t left = m_outgoing.count(); left > 0 && mustSend(); --left)
        sendNext();
}

// A change that the server cannot take now keeps the others waiting: they are to arrive in their order.
void SessionCore::sendNext()
try {
    if (std::shared_ptr<Outgoing::Change> const change = m_outgoing.first())
        sendOne(*change);
    m_sendBackoff.connected();
    std::lock_guard const lock(m_mutex);
    m_sendProblem.reset();
} catch (Storage::StorageError const& error) {
    m_outgoing.note(error);
    postpone(std::nullopt);
} catch (ServerError const& error) {
    if (!m_connection.isOpen() || isLoss(error.reason()))
        throw;
    postpone(Failure{error.reason(), error.host(), error.sqlState()});
}

void SessionCore::postpone(std::optional<Failure> const& problem)
{
    m_nextSend = Clock::now() + m_sendBackoff.failed(Backoff::Failure::unreachable);
    std::lock_guard const lock(m_mutex);
    m_sendProblem = problem;
}

// Where the server's value is not the change's in the end, reads may change: the listener hears of it.
void SessionCore::sendOne(Outgoing::Change& change)
{
    Outbox::Operation const& operation = change.operation;
    std::string const& client = greetLane(operation.lane);
    std::int64_t revision = 0;
    try {
        revision = operation.isOffer() ? sendOffer(operation, client) : send(operation, client);
    } catch (ServerError const& error) {
        if (!isRefusal(error))
            throw;
        if (operation.isOffer() && error.reason() == Reason::locked)
            return m_outgoing.overtaken(change);
        if (error.reason() == Reason::locked)
            fetch();
        m_outgoing.refused(change, Failure{error.reason(), error.host(), error.sqlState()});
        m_news.emplace(operation.store, operation.key);
        return;
    }
    if (revision > 0)
        return m_outgoing.stored(change, m_epoch, revision);
    fetch();
    m_outgoing.overtaken(change);
    m_news.emplace(operation.store, operation.key);
}

// Says hello for a lane, once for each connection. Returns its name.
std::string const& SessionCore::greetLane(std::int64_t lane)
{
    if (auto const greeted = m_greeted.find(lane); greeted != m_greeted.end())
        return greeted->second;
    std::string name = m_outgoing.outbox()->client(lane);
    for (std::string asked; asked != name;) {
        asked = name;
        Rows const rows = m_connection.execute("SELECT last_op FROM settings.hello_v1($1, 0)", {Parameter::literal(asked)});
        name = m_outgoing.outbox()->client(lane, rows.integer(0, 0));
    }
    return m_greeted[lane] = name;
}

// The revision at which the server stored the change; 0 where it has a later one, or had this one before. What was known of
// another history counts for nothing.
std::int64_t SessionCore::send(Outbox::Operation const& operation, std::string const& client)
{
    auto const& value = operation.value;
    std::int64_t const base = operation.epoch == m_epoch ? operation.base : 0;
    Rows const rows = m_connection.execute(
        "SELECT outcome, revision FROM settings.put_v1($1, $2, false, $3, $4, $5, $6, false, $7, $8)",
        {Parameter::literal(client), Parameter::literal(std::to_string(operation.number)), Parameter::raw(operation.store),
         Parameter::raw(operation.key), value ? Parameter::raw(value->kind) : Parameter::null(),
         value ? Parameter::raw(value->bytes) : Parameter::null(),
         Parameter::literal(std::to_string(age(operation.written, Moment::now()))), Parameter::literal(std::to_string(base))});
    return rows.bytes(0, 0) == "stored" ? rows.integer(0, 1) : 0;
}

// Where the server has another value, that stays: the offer is older than the server counts, and loses. Where it has none the offer is a
// change of its age, which is never as old as that.
std::int64_t SessionCore::sendOffer(Outbox::Operation offer, std::string const& client)
{
    constexpr std::int64_t year = 365LL * 24 * 60 * 60 * 1000;
    fetch();
    std::shared_ptr<Setting const> const known = m_snapshot.inLayer(offer.store, offer.key);
    if (known && known->value == valueOf(offer.value->kind, offer.value->bytes))
        return 0;
    Moment const now = Moment::now();
    offer.written = {"", 0, now.timeOfDay - (known ? 20 * year : std::min(age(offer.written, now), 5 * year))};
    offer.epoch = m_epoch;
    offer.base = known ? 0 : m_userRevision;
    return send(offer, client);
}

} // namespace Studio
