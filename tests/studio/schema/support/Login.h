// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

struct pg_conn;

/// What the server answered: rows of texts, null as "null"; or the SQLSTATE and the sentence of its error.
struct Answer {
    std::vector<std::vector<std::string>> rows;
    std::string code; ///< Empty where the statement succeeded; "lost" where there was no answer.
    std::string error;

    /// The cells of a row joined by '|', the rows by a line break; or the SQLSTATE.
    std::string text() const;
};

/// One login of a user, which waits for each answer.
class Login {
public:
    /// Throws `std::runtime_error` where the server refuses.
    explicit Login(std::string const& connection);

    /// Executes statements, of which a failure is an answer.
    Answer ask(std::string const& sql) const;
    /// One statement with parameters, each in SQL's text form; nullopt for null.
    Answer ask(std::string const& sql, std::vector<std::optional<std::string>> const& parameters) const;
    /// Sends statements; `answer` waits for what they return.
    void send(std::string const& sql) const;
    Answer answer() const;
    /// The channels and payloads of the notifications that have arrived, such as "settings_u2 7".
    std::vector<std::string> notifications() const;
    /// The number of the server's process for this login.
    int backend() const;

private:
    struct Close {
        void operator()(pg_conn* connection) const;
    };
    std::unique_ptr<pg_conn, Close> m_connection;
};
