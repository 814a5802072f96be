// SPDX-License-Identifier: MIT
#pragma once

#include "Cluster.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>

/// A test with a server of its own. Where none can be started the test is skipped, and fails where CI is set, which has one.
class ServerTest : public testing::Test {
protected:
    void SetUp() override
    {
        // libpq reads more than the test says.
        for (char const* const variable :
             {"PGHOST", "PGHOSTADDR", "PGPORT", "PGUSER", "PGDATABASE", "PGPASSWORD", "PGPASSFILE", "PGSERVICE", "PGSERVICEFILE",
              "PGOPTIONS", "PGSSLMODE", "PGSSLROOTCERT", "PGCHANNELBINDING", "PGTARGETSESSIONATTRS"})
            ::unsetenv(variable);
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
