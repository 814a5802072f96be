// SPDX-License-Identifier: MIT
#include "support/ConnectionTest.h"

#include <condition_variable>
#include <mutex>
#include <optional>
#include <thread>

#include <dlfcn.h>
#include <netdb.h>

using namespace std::chrono_literals;

namespace {

// A resolver that does not answer until it may.
std::mutex mutex;
std::condition_variable changed;
bool mayAnswer = true;
int lookups = 0;

void letAnswer(bool may)
{
    std::lock_guard const lock(mutex);
    mayAnswer = may;
    changed.notify_all();
}

int lookupsSoFar()
{
    std::lock_guard const lock(mutex);
    return lookups;
}

} // namespace

// Stands before the C library's function, for libpq too.
extern "C" __attribute__((visibility("default"))) int getaddrinfo(char const* node, char const* service, addrinfo const* hints,
                                                                  addrinfo** result)
{
    {
        std::unique_lock lock(mutex);
        ++lookups;
        changed.notify_all();
        changed.wait(lock, [] { return mayAnswer; });
    }
    auto const real = reinterpret_cast<decltype(&::getaddrinfo)>(::dlsym(RTLD_NEXT, "getaddrinfo"));
    return real(node, service, hints, result);
}

class ConnectionLookup : public ServerTest {
protected:
    void startServer() override
    {
        Cluster::Options options;
        options.tcp = true;
        options.access = {"host all all 127.0.0.1/32 trust"};
        m_server.emplace(options);
    }
};

TEST_F(ConnectionLookup, ResolverThatDoesNotAnswerIsGivenUpAndAskedOnce)
{
    Connection connection({m_server->tcpConnection(Cluster::superuser) + " sslmode=disable", 300ms});
    int const before = lookupsSoFar();
    letAnswer(false);
    expectFailure(Reason::timedOut, 300ms, [&] { connection.connect(); });
    EXPECT_EQ(lookupsSoFar(), before + 1);
    expectFailure(Reason::timedOut, 0ms, [&] { connection.connect(); });
    EXPECT_EQ(lookupsSoFar(), before + 1);

    letAnswer(true);
    // The thread that was left behind has to end first.
    auto const end = std::chrono::steady_clock::now() + 60s;
    while (!connection.isOpen() && std::chrono::steady_clock::now() < end)
        try {
            connection.connect();
        } catch (Studio::ServerError const&) {
            std::this_thread::sleep_for(5ms);
        }
    EXPECT_TRUE(connection.isOpen());
}

TEST_F(ConnectionLookup, ConnectionEndsWhileItsNameIsLookedUp)
{
    std::optional<Connection> connection(Connection::Options{m_server->tcpConnection(Cluster::superuser) + " sslmode=disable", 100ms});
    letAnswer(false);
    expectFailure(Reason::timedOut, 100ms, [&] { connection->connect(); });
    EXPECT_LE(timeOf([&] { connection.reset(); }).count(), slack.count());
    letAnswer(true);
}
