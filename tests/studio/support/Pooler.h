// SPDX-License-Identifier: MIT
#pragma once

#include "Cluster.h"

/// A pooler before the database "studio" of a server, for the users of tests: its clients take turns on two connections, a
/// transaction each.
class Pooler {
public:
    /// What has to be installed.
    static constexpr char const* program = "/usr/sbin/pgbouncer";

    /// Starts it; it accepts connections when this returns. Throws `std::runtime_error`.
    explicit Pooler(Cluster const& server);
    ~Pooler();
    Pooler(Pooler const&) = delete;
    Pooler& operator=(Pooler const&) = delete;

    /// The connection string of a client.
    std::string connection(std::string const& role) const;

private:
    std::filesystem::path m_folder;
    pid_t m_process = -1;
};
