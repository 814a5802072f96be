// SPDX-License-Identifier: MIT
#pragma once

#include <Studio/ServerError.h>
#include <Studio/server/Libpq.h>

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Studio {

/// A counter of the kernel's that threads can wait for together with sockets: readable from when it is raised until it is lowered.
class Signal {
public:
    /// Throws `std::system_error` where the process has too many descriptors.
    Signal();
    ~Signal();
    Signal(Signal const&) = delete;
    Signal& operator=(Signal const&) = delete;

    /// Any thread may call.
    void raise() const noexcept;
    void lower() const noexcept;
    int descriptor() const noexcept { return m_descriptor; }

private:
    int m_descriptor;
};

/// A value that goes with a statement.
struct Parameter {
    /// For a parameter of type bytea or text: `value` as it is. The server refuses a text that is no UTF-8.
    static Parameter raw(std::string value) { return {std::move(value), true}; }
    /// For every other type: `value` as SQL writes it, such as "42", without NUL.
    static Parameter literal(std::string value) { return {std::move(value), false}; }
    /// SQL's null.
    static Parameter null() { return {std::nullopt, false}; }

    std::optional<std::string> value; ///< nullopt for null.
    bool binary;                      ///< Whether the server takes the bytes as they are.
};

/// The rows that a statement returned. Rows and columns count from 0. A row or a column that is not there, and a value of
/// another type, is a `ServerError` with the reason `outdated`: the server has other functions than this program calls.
class Rows {
public:
    /// Made by `Connection`.
    Rows(Answer answer, std::string host) : m_answer(std::move(answer)), m_host(std::move(host)) {}

    /// How many rows there are.
    int count() const;
    /// Whether the value is SQL's null.
    bool isNull(int row, int column) const;
    /// The bytes of a bytea or a text, valid as long as this object; none for null.
    std::string_view bytes(int row, int column) const;
    /// An integer of 2, 4 or 8 bytes, or a boolean as 0 or 1.
    std::int64_t integer(int row, int column) const;
    /// A timestamp with time zone, by the server's clock.
    std::chrono::system_clock::time_point time(int row, int column) const;

private:
    void check(bool holds) const;

    Answer m_answer;
    std::string m_host;
};

/// What a statement NOTIFY of any login sent to those who listen.
struct Notification {
    std::string channel;
    int backend; ///< The server's process of the sender.
};

/// A connection to a PostgreSQL server of which no call takes longer than its bound, whatever the server, the network or the
/// resolver of names do.
///
/// Connecting: libpq looks up names, reads service and password files and talks to Kerberos in calls that block. So it
///   connects in a thread of its own, which is left behind at the deadline and ends with those calls. There is at most one
///   such thread: while it is there, the next try fails at once.
/// Security: but for Unix sockets `sslmode=verify-full` and `channel_binding=require` hold unless the connection string itself
///   says otherwise; neither the environment nor a service file weakens them. `sslmode=disable` takes both back.
/// Threads: for one thread, but for `interrupt`.
/// Errors: `ServerError`. After one that is not the server's answer to a statement, the connection is closed.
class Connection {
public:
    /// What to connect to, and how long each step may take.
    struct Options {
        std::string connection; ///< As libpq takes it, pairs or a URI. What it leaves out comes from service and environment.
        std::chrono::milliseconds connectWait{3000};   ///< From the lookup of the name to the end of the login.
        std::chrono::milliseconds statementWait{5000}; ///< From sending a statement to the end of its answer.
        std::chrono::milliseconds lockWait{2000};      ///< For what another session has locked.
    };

    /// Does not connect yet.
    explicit Connection(Options options);
    /// As `close`.
    ~Connection();
    Connection(Connection const&) = delete;
    Connection& operator=(Connection const&) = delete;

    /// Connects, or connects again where there is a connection.
    void connect();
    /// Whether the last call left a connection.
    bool isOpen() const noexcept { return m_link != nullptr; }
    /// Whether the connection is by TLS.
    bool isEncrypted() const noexcept;
    /// Closes the connection without a wait. A statement that runs is left to the server, which ends it in time.
    void close() noexcept { m_link.reset(); }
    /// Has the server execute one statement, with the parameters $1, $2 and so on.
    Rows execute(std::string const& statement, std::vector<Parameter> const& parameters = {});
    /// Waits, without asking the server anything, until `wake` is raised, the server sends something, or it is `until`. Without
    /// a connection too. The reason `lost` where the server ended the connection.
    void rest(Signal const& wake, std::chrono::steady_clock::time_point until);
    /// What was notified since the last call, as far as it has arrived.
    std::vector<Notification> notifications();
    /// The server's process behind the connection, as it was named when the connection was made: a pooler names one of its own.
    int backend() const noexcept;
    /// Makes the running call, and every later one, fail at once with the reason `interrupted`, but for `rest`. Any thread may call.
    void interrupt() const noexcept { m_interrupt.raise(); }
    /// The server that it was connected to last, such as "db.example:5432".
    std::string const& host() const noexcept { return m_host; }

private:
    using Clock = std::chrono::steady_clock;

    void connectWithin(Clock::time_point deadline);
    void setLimits();
    Answer answerTo(std::string const& statement, std::vector<Parameter> const& parameters);
    void send(std::string const& statement, std::vector<Parameter> const& parameters);
    void receive(Clock::time_point deadline);
    void await(int descriptor, short events, Clock::time_point deadline) const;
    [[noreturn]] void fail(ServerError::Reason reason, std::string const& sqlState = {}) const;

    Options m_options;
    std::string m_host = "the studio's server";
    Signal m_interrupt;
    std::shared_ptr<Signal const> m_lastTry;
    Link m_link;
};

} // namespace Studio
