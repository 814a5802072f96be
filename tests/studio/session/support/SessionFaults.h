// SPDX-License-Identifier: MIT
#pragma once

#include "SessionTest.h"

#include <studio/support/ConnectionTest.h>
#include <studio/support/Proxy.h>

#include <chrono>
#include <optional>
#include <string>
#include <thread>

/// Programs whose network or server fails.
class SessionFaults : public SessionTest {
protected:
    void startServer() override
    {
        SessionTest::startServer();
        m_proxy.emplace(m_server->ask("SHOW unix_socket_directories") + "/.s.PGSQL.5432");
    }

    std::string throughProxy() const
    {
        return "host=127.0.0.1 sslmode=disable user=alice dbname=studio port=" + std::to_string(m_proxy->port());
    }

    /// Synchronises until it succeeds; false where that takes longer than a minute.
    static bool recovers(Program& program)
    {
        auto const end = std::chrono::steady_clock::now() + std::chrono::minutes(1);
        while (std::chrono::steady_clock::now() < end) {
            if (program.session.synchronise(std::chrono::minutes(1)))
                return true;
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
        return false;
    }

    /// Ends what the server still does for users.
    void endConnections() const
    {
        std::string const others = " FROM pg_stat_activity WHERE backend_type = 'client backend' AND usename IS DISTINCT FROM 'postgres'";
        m_server->ask("SELECT pg_terminate_backend(pid)" + others);
        ASSERT_TRUE(comes("SELECT count(*)" + others, "0"));
    }

    std::optional<Proxy> m_proxy;
};
