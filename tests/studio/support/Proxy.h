// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

/// A stretch of network between a client and the server behind a Unix socket, which fails as a test wants it to.
class Proxy {
public:
    enum class Way { toServer, toClient };
    /// What happens once the bytes are through that a way lets pass.
    enum class Then {
        cut,     ///< Both sides see their connection end.
        cutOnce, ///< The same, and everything passes on the next connection.
        stall,   ///< Sends nothing more, and leaves both sockets open.
        trickle, ///< One byte a second.
        delay,   ///< Everything, half a second later each time.
    };

    /// Listens at a port of 127.0.0.1 and passes everything on to `socket`.
    explicit Proxy(std::string socket);
    ~Proxy();
    Proxy(Proxy const&) = delete;
    Proxy& operator=(Proxy const&) = delete;

    int port() const { return m_port; }
    /// Lets `bytes` pass from now on, of all connections together.
    void limit(Way way, long bytes, Then then);
    /// Lets everything pass. A connection that stalls goes on.
    void open();
    /// The bytes that have passed since the last call of `limit` or `open`.
    long passed(Way way) const { return m_passed[static_cast<int>(way)]; }

private:
    void accept();
    void serve(int client);
    bool pass(Way way, int from, int to);
    bool rest(int milliseconds) const;

    std::string const m_socket;
    int m_listener = -1;
    int m_port = 0;
    std::atomic<bool> m_ends = false;
    std::atomic<long> m_limit[2];
    std::atomic<long> m_passed[2] = {0, 0};
    std::atomic<Then> m_then = Then::cut;
    std::vector<std::thread> m_servants;
    std::thread m_acceptor;
};

/// A server that can be found but not reached: whoever connects to its port hears nothing.
class BlackHole {
public:
    BlackHole();
    ~BlackHole();
    BlackHole(BlackHole const&) = delete;
    BlackHole& operator=(BlackHole const&) = delete;

    int port() const { return m_port; }

private:
    int m_port = 0;
    std::vector<int> m_sockets;
};
