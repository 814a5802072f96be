// SPDX-License-Identifier: MIT
#pragma once

#include "Cluster.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>

/// Skips all tests of a program where no server can be started, and fails where CI is set, which has one. For tests that are
/// no `ServerTest`.
class ServerEnvironment : public testing::Environment {
public:
    void SetUp() override
    {
        forgetEnvironment();
        if (Cluster::obstacle().empty())
            return;
        if (std::getenv("CI"))
            FAIL() << Cluster::obstacle();
        GTEST_SKIP() << Cluster::obstacle();
    }

    /// What libpq reads beside the connection string.
    static void forgetEnvironment()
    {
        for (char const* const variable :
             {"PGHOST", "PGHOSTADDR", "PGPORT", "PGUSER", "PGDATABASE", "PGPASSWORD", "PGPASSFILE", "PGSERVICE", "PGSERVICEFILE",
              "PGOPTIONS", "PGSSLMODE", "PGSSLROOTCERT", "PGCHANNELBINDING", "PGTARGETSESSIONATTRS"})
            ::unsetenv(variable);
    }
};

/// A test with a server of its own, which is skipped or fails likewise.
class ServerTest : public testing::Test {
protected:
    void SetUp() override
    {
        ServerEnvironment::forgetEnvironment();
        if (Cluster::obstacle().empty())
            startServer();
        else if (std::getenv("CI"))
            FAIL() << Cluster::obstacle();
        else
            GTEST_SKIP() << Cluster::obstacle();
    }

    /// The server as most tests want it; others override it.
    virtual void startServer() { m_server.emplace(); }

    std::optional<Cluster> m_server;
};
