// SPDX-License-Identifier: MIT
#include <Studio/server/Connection.h>

#include <Studio/server/Login.h>

#include <libpq-fe.h>

#include <cerrno>
#include <future>
#include <system_error>
#include <thread>

#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

namespace Studio {

using Reason = ServerError::Reason;

namespace {

// Where nobody waits for the promise any longer, a connection that was made goes with it.
void keep(std::promise<Login> promise, std::string const& connection, std::chrono::steady_clock::time_point deadline)
try {
    promise.set_value(login(connection, deadline));
} catch (...) {
    promise.set_exception(std::current_exception());
}

} // namespace

Signal::Signal() : m_descriptor(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))
{
    if (m_descriptor < 0)
        throw std::system_error(errno, std::generic_category(), "eventfd");
}

Signal::~Signal() { ::close(m_descriptor); }

void Signal::raise() const noexcept { ::eventfd_write(m_descriptor, 1); }

void Signal::lower() const noexcept
{
    eventfd_t count = 0;
    ::eventfd_read(m_descriptor, &count);
}

void Rows::check(bool holds) const
{
    if (!holds)
        throw ServerError(Reason::outdated, m_host);
}

int Rows::count() const { return PQntuples(m_answer.get()); }

bool Rows::isNull(int row, int column) const
{
    check(row >= 0 && row < count() && column >= 0 && column < PQnfields(m_answer.get()));
    return PQgetisnull(m_answer.get(), row, column) != 0;
}

std::string_view Rows::bytes(int row, int column) const
{
    if (isNull(row, column))
        return {};
    return {PQgetvalue(m_answer.get(), row, column), static_cast<std::size_t>(PQgetlength(m_answer.get(), row, column))};
}

std::int64_t Rows::integer(int row, int column) const
{
    std::string_view const digits = bytes(row, column);
    check(digits.size() == 1 || digits.size() == 2 || digits.size() == 4 || digits.size() == 8);
    // Most significant byte first; the first one has the sign.
    std::uint64_t number = digits.front() & 0x80 ? ~std::uint64_t{0} : 0;
    for (char const digit : digits)
        number = number << 8 | static_cast<unsigned char>(digit);
    return static_cast<std::int64_t>(number);
}

// The server counts microseconds from the beginning of 2000.
std::chrono::system_clock::time_point Rows::time(int row, int column) const
{
    constexpr std::chrono::seconds beginning{946684800};
    return std::chrono::system_clock::time_point(beginning + std::chrono::microseconds(integer(row, column)));
}

Connection::Connection(Options options) : m_options(std::move(options)) {}

Connection::~Connection() = default;

bool Connection::isEncrypted() const noexcept { return PQsslInUse(m_link.get()) != 0; }

void Connection::fail(Reason reason, std::string const& sqlState) const { throw ServerError(reason, m_host, sqlState); }

void Connection::await(int descriptor, short events, Clock::time_point deadline) const
{
    int const happened = awaitEvents(descriptor, events, m_interrupt.descriptor(), deadline);
    if (happened == 0)
        fail(Reason::timedOut);
    if (happened >> 16)
        fail(Reason::interrupted);
}

void Connection::connect()
{
    close();
    connectWithin(Clock::now() + m_options.connectWait);
    setLimits();
}

void Connection::connectWithin(Clock::time_point deadline)
{
    if (m_lastTry)
        await(m_lastTry->descriptor(), POLLIN, Clock::now());
    auto const ended = std::make_shared<Signal const>();
    std::promise<Login> promise;
    std::future<Login> future = promise.get_future();
    std::thread([ended, deadline, connection = m_options.connection, promised = std::move(promise)]() mutable {
        keep(std::move(promised), connection, deadline);
        ended->raise();
    }).detach();
    m_lastTry = ended;
    // At the deadline the thread knows best what it waited for, unless it is blocked.
    await(ended->descriptor(), POLLIN, deadline + std::chrono::milliseconds(50));
    Login made = future.get();
    m_host = made.host;
    if (made.failure)
        fail(*made.failure, made.sqlState);
    m_link = std::move(made.link);
}

// What the server itself ends: a statement goes on there when its client is gone.
void Connection::setLimits()
{
    execute("SELECT pg_catalog.set_config('statement_timeout', $1, false), pg_catalog.set_config('lock_timeout', $2, false)",
            {Parameter::raw(std::to_string(m_options.statementWait.count())), Parameter::raw(std::to_string(m_options.lockWait.count()))});
}

Rows Connection::execute(std::string const& statement, std::vector<Parameter> const& parameters)
{
    Answer answer;
    try {
        answer = answerTo(statement, parameters);
    } catch (ServerError const&) {
        close();
        throw;
    }
    ExecStatusType const status = PQresultStatus(answer.get());
    if (status == PGRES_TUPLES_OK || status == PGRES_COMMAND_OK)
        return {std::move(answer), m_host};
    char const* const code = PQresultErrorField(answer.get(), PG_DIAG_SQLSTATE);
    if (PQstatus(m_link.get()) == CONNECTION_BAD)
        close();
    fail(code ? reasonOf(code) : Reason::lost, code ? code : "");
}

void Connection::rest(Signal const& wake, Clock::time_point until)
{
    int const happened = awaitEvents(m_link ? PQsocket(m_link.get()) : -1, POLLIN, wake.descriptor(), until);
    bool const hasSent = (happened & 0xFFFF) != 0;
    if (hasSent && !PQconsumeInput(m_link.get())) {
        close();
        fail(Reason::lost);
    }
}

std::vector<Notification> Connection::notifications()
{
    std::vector<Notification> result;
    while (std::unique_ptr<PGnotify, void (*)(void*)> const next{m_link ? PQnotifies(m_link.get()) : nullptr, PQfreemem})
        result.push_back({next->relname, next->be_pid});
    return result;
}

int Connection::backend() const noexcept { return PQbackendPID(m_link.get()); }

Answer Connection::answerTo(std::string const& statement, std::vector<Parameter> const& parameters)
{
    if (!m_link)
        fail(Reason::lost);
    auto const deadline = Clock::now() + m_options.statementWait;
    send(statement, parameters);
    Answer last;
    for (;;) {
        receive(deadline);
        Answer next(PQgetResult(m_link.get()));
        if (!next)
            break;
        // After the server's last words libpq adds that the connection is lost.
        if (!last || PQresultStatus(last.get()) != PGRES_FATAL_ERROR)
            last = std::move(next);
    }
    if (!last)
        fail(Reason::lost);
    return last;
}

void Connection::send(std::string const& statement, std::vector<Parameter> const& parameters)
{
    std::vector<char const*> values;
    std::vector<int> lengths;
    std::vector<int> formats;
    for (Parameter const& parameter : parameters) {
        values.push_back(parameter.value ? parameter.value->c_str() : nullptr);
        lengths.push_back(parameter.value ? static_cast<int>(parameter.value->size()) : 0);
        formats.push_back(parameter.binary);
    }
    if (!PQsendQueryParams(m_link.get(), statement.c_str(), static_cast<int>(values.size()), nullptr, values.data(), lengths.data(),
                           formats.data(), true))
        fail(Reason::lost);
}

// Returns once libpq can answer without a wait. While it still sends, it must read too: the server may wait for that.
void Connection::receive(Clock::time_point deadline)
{
    for (;;) {
        int const unsent = PQflush(m_link.get());
        if ((unsent == 0 && !PQisBusy(m_link.get())) || PQstatus(m_link.get()) == CONNECTION_BAD)
            return;
        await(PQsocket(m_link.get()), static_cast<short>(unsent > 0 ? POLLIN | POLLOUT : POLLIN), deadline);
        if (!PQconsumeInput(m_link.get()))
            return;
    }
}

} // namespace Studio
