// SPDX-License-Identifier: MIT
#include <Studio/SessionCore.h>

#include <Studio/ClientName.h>

#include <signal.h>

namespace Studio {

using Clock = SessionCore::Clock;
using Reason = ServerError::Reason;
using Layer = Snapshot::Layer;

namespace {

// The server counts microseconds from the beginning of 2000.
std::chrono::system_clock::time_point timeOf(std::int64_t microseconds)
{
    constexpr std::chrono::seconds beginning{946684800};
    return std::chrono::system_clock::time_point(beginning + std::chrono::microseconds(microseconds));
}

std::shared_ptr<Setting const> settingIn(Rows const& rows, int row)
{
    if (rows.isNull(row, 4))
        return nullptr;
    return std::make_shared<Setting const>(Setting{valueOf(rows.bytes(row, 4), rows.bytes(row, 5)), rows.integer(row, 6) != 0,
                                                   std::string(rows.bytes(row, 7)), timeOf(rows.integer(row, 8))});
}

Connection::Options connectionOptions(Session::Options const& options)
{
    Connection::Options result{options.connection};
    result.connectWait = options.connectWait;
    result.statementWait = options.statementWait;
    return result;
}

// The epoch is looked at after the changes: it may be newer than they are, but never older.
constexpr char const* news = "SELECT studio, layer_revision, store, key, kind, value, locked, changed_by, changed_at, "
                             "CASE WHEN $3 THEN (SELECT epoch FROM settings.hello_v1($4, 0)) END FROM settings.changes_v1($1, $2)";

bool isLoss(Reason reason) { return reason == Reason::lost || reason == Reason::unreachable; }

} // namespace

SessionCore::SessionCore(Session::Options const& options)
    : m_options(options), m_connection(connectionOptions(options)), m_random(std::random_device()()), m_client(newClientName())
{}

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

void SessionCore::change(std::string const& store, std::string const& key, std::optional<Value> const& value)
{
    auto const deadline = Clock::now() + m_options.changeWait;
    auto const setting = value ? std::make_shared<Setting const>(Setting{*value, false, {}, {}}) : nullptr;
    demand(deadline, [this, deadline, change = Snapshot::Change{Layer::user, store, key, setting}] { put(change, deadline); });
}

void SessionCore::awaitConnection(Clock::time_point deadline)
{
    demand(deadline, [this] { connect(); });
}

void SessionCore::synchronise(Clock::time_point deadline)
{
    demand(deadline, [this, deadline, asked = Clock::now()] { exchange(deadline, [this, asked] { catchUp(asked); }); });
}

Status SessionCore::status() const
{
    std::lock_guard const lock(m_mutex);
    Status status = m_status;
    if (m_problem)
        status.problem = m_problem->error();
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
    m_connection.close();
}

// Looks at the server first, or a program that asks without pause would keep it from that.
void SessionCore::step()
{
    if (Clock::now() >= nextLook()) {
        Request look{Clock::time_point::max(), [this] { poll(); }, {}};
        perform(look);
    } else if (std::shared_ptr<Request> const request = next()) {
        perform(*request);
    } else {
        rest();
    }
}

Clock::time_point SessionCore::nextLook() const { return m_connection.isOpen() ? m_nextPoll : m_nextTry; }

// At random, so that sessions that begin together do not stay together.
Clock::time_point SessionCore::nextPoll()
{
    std::uniform_real_distribution<double> part(0.8, 1.2);
    return Clock::now() + std::chrono::duration_cast<Clock::duration>(m_options.pollWait * part(m_random));
}

void SessionCore::rest()
try {
    m_connection.rest(m_wake, nextLook());
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
    } catch (ServerError const& error) {
        m_connection.close();
        m_refusal = error;
        throw;
    }
    m_backoff.connected();
    m_nextPoll = nextPoll();
}

// Another epoch is another history, in which the same revisions may stand for other changes.
void SessionCore::greet()
{
    Rows const rows = m_connection.execute("SELECT epoch FROM settings.hello_v1($1, 0)", {Parameter::literal(m_client)});
    std::string const epoch(rows.bytes(0, 0));
    if (!m_epoch.empty() && epoch != m_epoch)
        forgetRevisions();
    m_epoch = epoch;
}

void SessionCore::forgetRevisions()
{
    m_userRevision = m_studioRevision = 0;
    std::lock_guard const lock(m_mutex);
    m_status.historyChanged = std::chrono::system_clock::now();
}

// A connection to one server process survives some changes of epoch: of a forgotten user, and behind a pooler all.
void SessionCore::poll()
{
    Clock::time_point const now = Clock::now();
    m_nextPoll = nextPoll();
    exchange(Clock::time_point::max(), [this, now] { catchUp(now, true); });
}

void SessionCore::catchUp(Clock::time_point moment, bool checksEpoch)
{
    if (m_fetched < moment)
        fetch(checksEpoch);
}

void SessionCore::fetch(bool checksEpoch)
{
    Clock::time_point const begin = Clock::now();
    for (bool isKnown = false; !isKnown;)
        isKnown = takeOver(m_connection.execute(news, {Parameter::literal(std::to_string(m_userRevision)),
                                                       Parameter::literal(std::to_string(m_studioRevision)),
                                                       Parameter::literal(checksEpoch ? "true" : "false"), Parameter::literal(m_client)}));
    m_fetched = begin;
    std::lock_guard const lock(m_mutex);
    m_status.asOf = std::chrono::system_clock::now();
}

// False where the server's history turns out to be another one, which has to be read from its beginning.
bool SessionCore::takeOver(Rows const& rows)
{
    std::vector<Snapshot::Change> changes;
    bool hasUser = false;
    std::int64_t revisions[] = {m_userRevision, m_studioRevision};
    for (int row = 0; row < rows.count(); ++row) {
        Layer const layer = rows.integer(row, 0) != 0 ? Layer::studio : Layer::user;
        std::int64_t& revision = revisions[static_cast<std::size_t>(layer)];
        if (rows.integer(row, 1) < revision) {
            forgetRevisions();
            return false;
        }
        revision = rows.integer(row, 1);
        if (!rows.isNull(row, 3))
            changes.push_back({layer, std::string(rows.bytes(row, 2)), std::string(rows.bytes(row, 3)), settingIn(rows, row)});
        hasUser = hasUser || layer == Layer::user;
    }
    // Somebody had the server forget the user: only a new greeting helps.
    bool const isOtherEpoch = rows.count() > 0 && !rows.isNull(0, 9) && rows.bytes(0, 9) != m_epoch;
    if (!hasUser || isOtherEpoch)
        throw ServerError(Reason::lost, m_connection.host());
    std::vector<Layer> forgotten;
    if (m_userRevision == 0)
        forgotten.push_back(Layer::user);
    if (m_studioRevision == 0)
        forgotten.push_back(Layer::studio);
    std::set<Snapshot::Place> changed = m_snapshot.apply(changes, forgotten);
    if (m_listener.isSet())
        m_news.merge(changed);
    m_userRevision = revisions[0];
    m_studioRevision = revisions[1];
    return true;
}

// Does `work` with a connection, and with a new one once more where it breaks: an idle one may be long dead.
void SessionCore::exchange(Clock::time_point deadline, std::function<void()> const& work)
{
    connect();
    try {
        work();
    } catch (ServerError const& error) {
        if (!isLoss(error.reason()) || Clock::now() >= deadline)
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
    std::int64_t const operation = ++m_operation;
    bool isStored = false;
    exchange(deadline, [&] { isStored = send(change, operation); });
    if (isStored)
        m_snapshot.apply({change});
    else
        fetch();
} catch (ServerError const& error) {
    if (error.reason() == Reason::locked)
        fetch();
    throw;
}

// Whether the value is what the server has now, rather than a later one.
bool SessionCore::send(Snapshot::Change const& change, std::int64_t operation)
{
    StoredValue const stored = change.setting ? storedValue(change.setting->value) : StoredValue();
    bool const isRemoval = !change.setting;
    Rows const rows = m_connection.execute(
        "SELECT outcome FROM settings.put_v1($1, $2, false, $3, $4, $5, $6, false, 0, $7)",
        {Parameter::literal(m_client), Parameter::literal(std::to_string(operation)), Parameter::raw(change.store),
         Parameter::raw(change.key), isRemoval ? Parameter::null() : Parameter::raw(stored.kind),
         isRemoval ? Parameter::null() : Parameter::raw(stored.bytes), Parameter::literal(std::to_string(m_userRevision))});
    return rows.bytes(0, 0) == "stored";
}

} // namespace Studio
