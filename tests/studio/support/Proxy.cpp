// SPDX-License-Identifier: MIT
#include "Proxy.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <limits>
#include <system_error>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

constexpr long unlimited = std::numeric_limits<long>::max();
// How soon a thread sees that it should end, or that more may pass.
constexpr int tick = 5;

sockaddr_in loopback(int port)
{
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<std::uint16_t>(port));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return address;
}

// A socket that listens, and its port.
std::pair<int, int> listenSomewhere(int backlog)
{
    int const listener = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address = loopback(0);
    socklen_t size = sizeof address;
    auto* const generic = reinterpret_cast<sockaddr*>(&address);
    if (::bind(listener, generic, size) != 0 || ::listen(listener, backlog) != 0 || ::getsockname(listener, generic, &size) != 0)
        throw std::system_error(errno, std::generic_category(), "listening");
    return {listener, ntohs(address.sin_port)};
}

int connectTo(std::string const& path)
{
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    int const server = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (::connect(server, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0)
        return server;
    ::close(server);
    return -1;
}

bool sendAll(int to, char const* bytes, ssize_t count)
{
    for (ssize_t sent; count > 0; bytes += sent, count -= sent)
        if ((sent = ::send(to, bytes, static_cast<std::size_t>(count), MSG_NOSIGNAL)) <= 0)
            return false;
    return true;
}

} // namespace

Proxy::Proxy(std::string socket) : m_socket(std::move(socket))
{
    open();
    std::tie(m_listener, m_port) = listenSomewhere(100);
    m_acceptor = std::thread([this] { accept(); });
}

Proxy::~Proxy()
{
    m_ends = true;
    m_acceptor.join();
    for (std::thread& servant : m_servants)
        servant.join();
    ::close(m_listener);
}

void Proxy::limit(Way way, long bytes, Then then)
{
    open();
    m_then = then;
    m_limit[static_cast<int>(way)] = bytes;
}

void Proxy::open()
{
    for (int const way : {0, 1}) {
        m_passed[way] = 0;
        m_limit[way] = unlimited;
    }
}

void Proxy::accept()
{
    pollfd listener = {m_listener, POLLIN, 0};
    while (!m_ends)
        if (::poll(&listener, 1, tick) > 0)
            m_servants.emplace_back([this, client = ::accept4(m_listener, nullptr, nullptr, SOCK_CLOEXEC)] { serve(client); });
}

void Proxy::serve(int client)
{
    int const server = connectTo(m_socket);
    pollfd ends[] = {{client, POLLIN, 0}, {server, POLLIN, 0}};
    bool going = server >= 0;
    while (going && !m_ends) {
        ::poll(ends, 2, tick);
        if (ends[0].revents)
            going = pass(Way::toServer, client, server);
        if (going && ends[1].revents)
            going = pass(Way::toClient, server, client);
    }
    ::close(client);
    if (server >= 0)
        ::close(server);
}

// Whether the connection goes on.
bool Proxy::pass(Way way, int from, int to)
{
    int const at = static_cast<int>(way);
    char buffer[65536];
    long count = std::min<long>(m_limit[at] - m_passed[at], sizeof buffer);
    if (count <= 0) {
        if (m_then == Then::cutOnce)
            open();
        if (m_then == Then::cut || m_then == Then::cutOnce)
            return false;
        // Both ways share this thread, so that they stall together.
        if (!rest(m_then == Then::trickle ? 1000 : m_then == Then::delay ? 500 : tick) || m_then == Then::stall)
            return !m_ends;
        count = m_then == Then::delay ? sizeof buffer : 1;
    }
    ssize_t const read = ::recv(from, buffer, static_cast<std::size_t>(count), 0);
    if (read <= 0)
        return false;
    // Counted before the other side can answer.
    m_passed[at] += read;
    return sendAll(to, buffer, read);
}

// Whether the time is over, rather than this object's life.
bool Proxy::rest(int milliseconds) const
{
    for (; milliseconds > 0 && !m_ends; milliseconds -= tick)
        std::this_thread::sleep_for(std::chrono::milliseconds(tick));
    return !m_ends;
}

BlackHole::BlackHole()
{
    auto const [listener, port] = listenSomewhere(0);
    m_port = port;
    m_sockets.push_back(listener);
    // The kernel answers only as many clients as the listener has room for, and these are never taken from it.
    sockaddr_in const address = loopback(port);
    for (int number = 0; number < 4; ++number) {
        m_sockets.push_back(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
        ::connect(m_sockets.back(), reinterpret_cast<sockaddr const*>(&address), sizeof address);
    }
}

BlackHole::~BlackHole()
{
    for (int const socket : m_sockets)
        ::close(socket);
}
