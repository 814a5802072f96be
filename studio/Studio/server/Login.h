// SPDX-License-Identifier: MIT
#pragma once

#include <Studio/ServerError.h>
#include <Studio/server/Libpq.h>

#include <chrono>
#include <optional>
#include <string>

namespace Studio {

/// What came of a try to connect.
struct Login {
    Link link;                                  ///< The connection, or null where there is a failure.
    std::string host;                           ///< The server that answered, or those that were tried.
    std::optional<ServerError::Reason> failure; ///< Why there is no connection.
    std::string sqlState;                       ///< Of that failure, where the server named one.
};

/// Connects as `Connection` says. The network is waited for up to `deadline`; what libpq does without the network's
/// sockets (names, files, Kerberos) blocks for as long as it likes.
Login login(std::string const& connection, std::chrono::steady_clock::time_point deadline);

/// Which server and user `connection` stands for, with its service and the environment: host, port, database and user, a line
/// each, and no password. Empty where it cannot be read.
std::string identityOf(std::string const& connection);

/// Waits until `socket` has one of `events`, or `interrupt` can be read, or the deadline is over: 0 then. Returns what
/// `poll` says of the socket, and of the interrupt as POLLIN in the upper half. -1 stands for no descriptor.
int awaitEvents(int socket, short events, int interrupt, std::chrono::steady_clock::time_point deadline);

} // namespace Studio
