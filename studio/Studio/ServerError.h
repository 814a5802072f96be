// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>
#include <string>

namespace Studio {

/// An error about the server or the way to it. `what` joins its parts to one sentence for the user, in UTF-8. No part has a
/// password, a key or a value in it: of what libpq and the server say, only the SQLSTATE is taken over, as their own
/// sentences quote what they were sent.
class ServerError : public std::runtime_error {
public:
    /// What a program may decide by.
    enum class Reason {
        malformed,   ///< The connection string, or the service that it names, cannot be read.
        unreachable, ///< No address, nothing listens there, or the server is starting or stopping.
        timedOut,    ///< The server, or the way to it, does not answer in time.
        insecure,    ///< No TLS, or no certificate that is trusted for this host.
        login,       ///< The account, its password or its right to connect is refused.
        lost,        ///< The connection broke, or there is none.
        busy,        ///< Too many connections, or another session holds a lock for too long.
        full,        ///< The server's disk or memory is full.
        readOnly,    ///< The server is a standby, or is set to read only.
        denied,      ///< The account has no right to what was asked.
        outdated,    ///< The database has no such function: nobody has set it up, or another version did.
        locked,      ///< The studio has locked the key.
        tooLarge,    ///< The key, the value or the store's name is too long.
        rejected,    ///< The server refuses the statement for another reason, which its SQLSTATE names.
        interrupted, ///< This program gave the attempt up.
    };

    /// An error of the server at `host`, such as "db.example:5432"; `sqlState` is empty where the server named none.
    ServerError(Reason reason, std::string const& host, std::string const& sqlState = {});

    /// The class of the error.
    Reason reason() const noexcept { return m_reason; }
    /// Five characters as PostgreSQL's documentation lists them, or none.
    std::string const& sqlState() const noexcept { return m_sqlState; }
    /// The server that the error is about.
    std::string const& host() const noexcept { return m_host; }
    /// What is wrong, as a sentence without its end.
    std::string explanation() const;
    /// What the user can do.
    std::string remedy() const;

private:
    Reason m_reason;
    std::string m_host;
    std::string m_sqlState;
};

/// The parts of an error, as threads hand them to each other.
struct Failure {
    ServerError::Reason reason; ///< As `ServerError::reason` returns it; the others likewise.
    std::string host;           ///< The server.
    std::string sqlState;       ///< Empty where the server named none.

    /// The error of these parts.
    ServerError error() const { return {reason, host, sqlState}; }
};

/// The reason behind `sqlState`.
ServerError::Reason reasonOf(std::string const& sqlState);

} // namespace Studio
