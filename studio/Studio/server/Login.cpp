// SPDX-License-Identifier: MIT
#include <Studio/server/Login.h>

#include <libpq-fe.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>
#include <vector>

#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>

namespace Studio {

using Clock = std::chrono::steady_clock;
using Reason = ServerError::Reason;

void LibpqRelease::operator()(pg_conn* connection) const noexcept { PQfinish(connection); }
void LibpqRelease::operator()(pg_result* result) const noexcept { PQclear(result); }

namespace {

using Settings = std::unique_ptr<PQconninfoOption, void (*)(PQconninfoOption*)>;

std::string settingIn(Settings const& settings, char const* keyword)
{
    for (PQconninfoOption const* option = settings.get(); option && option->keyword; ++option)
        if (std::strcmp(option->keyword, keyword) == 0)
            return option->val ? option->val : "";
    return {};
}

Link startLink(std::vector<std::pair<char const*, char const*>> const& settings)
{
    std::vector<char const*> keywords;
    std::vector<char const*> values;
    for (auto const& [keyword, value] : settings) {
        keywords.push_back(keyword);
        values.push_back(value);
    }
    keywords.push_back(nullptr);
    values.push_back(nullptr);
    return Link(PQconnectStartParams(keywords.data(), values.data(), true));
}

// What the string, its service, the environment and libpq's defaults come to. libpq tells that of a connection only, so
// this one has a setting that it refuses before it touches the network.
Settings effectiveSettings(std::string const& connection)
{
    Link const refused = startLink({{"dbname", connection.c_str()}, {"channel_binding", "none that is known"}});
    return {PQconninfo(refused.get()), PQconninfoFree};
}

bool isLocal(std::string const& hosts, std::string const& addresses)
{
    if (!addresses.empty())
        return false;
    for (std::size_t at = 0; at < hosts.size();) {
        if (hosts[at] != '/' && hosts[at] != '@')
            return false;
        at = std::min(hosts.find(',', at), hosts.size() - 1) + 1;
    }
    return true;
}

struct Target {
    std::string name;
    bool readable;
    bool local;
};

Target targetOf(std::string const& connection)
{
    Settings const settings = effectiveSettings(connection);
    std::string const hosts = settingIn(settings, "host");
    std::string const addresses = settingIn(settings, "hostaddr");
    std::string const port = settingIn(settings, "port"); // libpq always has one for a string that it can read
    if (port.empty())
        return {"the studio's server", false, false};
    std::string const& name = hosts.empty() ? addresses : hosts;
    return {(name.empty() ? "the local socket" : name) + ':' + port, true, isLocal(hosts, addresses)};
}

// A server that is cut off is given up after a second while connecting, so that the next address has its turn, but has more
// time to acknowledge what it is sent later.
constexpr char const* connectingTimeout = "1000";
constexpr unsigned int connectedTimeout = 5000;

Link start(std::string const& connection, bool local)
{
    // What stands behind the string would overrule it; what stands before it is overruled.
    std::vector<std::pair<char const*, char const*>> settings = {
        {"keepalives_idle", "10"},   {"keepalives_interval", "5"},
        {"keepalives_count", "3"},   {"tcp_user_timeout", connectingTimeout},
        {"client_encoding", "UTF8"}, {"fallback_application_name", "editor-settings"},
    };
    Settings const given(PQconninfoParse(connection.c_str(), nullptr), PQconninfoFree);
    if (!local) {
        settings.emplace_back("sslmode", "verify-full");
        if (settingIn(given, "sslmode") != "disable")
            settings.emplace_back("channel_binding", "require");
    }
    settings.emplace_back("dbname", connection.c_str());
    Link link = startLink(settings);
    // The code alone, in every language: the words may quote what they are about.
    PQsetErrorVerbosity(link.get(), PQERRORS_SQLSTATE);
    PQsetNoticeReceiver(
        link.get(), [](void*, PGresult const*) {}, nullptr);
    return link;
}

// The five characters at the end of "FATAL:  28P01\n", which is the only way by which libpq tells them of a login.
std::string sqlStateOf(Link const& link)
{
    std::string const message = PQerrorMessage(link.get());
    std::size_t const at = message.rfind(":  ");
    if (at == std::string::npos || at + 9 != message.size())
        return {};
    std::string const code = message.substr(at + 3, 5);
    bool const wellFormed = std::all_of(code.begin(), code.end(), [](char c) { return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z'); });
    return wellFormed ? code : std::string();
}

// What a failure means that happens in this state.
Reason reasonIn(ConnStatusType state)
{
    switch (state) {
    case CONNECTION_SSL_STARTUP:
        return Reason::insecure;
    case CONNECTION_AWAITING_RESPONSE:
    case CONNECTION_AUTH_OK:
        return Reason::login;
    case CONNECTION_CHECK_WRITABLE:
    case CONNECTION_CONSUME:
    case CONNECTION_CHECK_TARGET:
        return Reason::readOnly;
    default:
        return Reason::unreachable;
    }
}

// Whether the other side has ended the connection. Not to be asked before the connection is made, as the question takes
// the error away that says why it was not.
bool isCut(Link const& link)
{
    char byte = 0;
    ssize_t const count = ::recv(PQsocket(link.get()), &byte, 1, MSG_PEEK | MSG_DONTWAIT);
    return count == 0 || (count < 0 && errno != EAGAIN && errno != EINTR);
}

// nullopt once the link can be used.
std::optional<Reason> finish(Link const& link, Clock::time_point deadline)
{
    Reason reason = Reason::unreachable;
    if (PQstatus(link.get()) == CONNECTION_BAD)
        return reason;
    for (auto step = PGRES_POLLING_WRITING; step != PGRES_POLLING_OK; step = PQconnectPoll(link.get())) {
        if (step == PGRES_POLLING_FAILED)
            return reason;
        if (awaitEvents(PQsocket(link.get()), step == PGRES_POLLING_READING ? POLLIN : POLLOUT, -1, deadline) == 0)
            return Reason::timedOut;
        reason = reasonIn(PQstatus(link.get()));
        if (reason != Reason::unreachable && isCut(link))
            reason = Reason::lost;
    }
    return std::nullopt;
}

void giveTime(Link const& link, std::string const& connection)
{
    Settings const given(PQconninfoParse(connection.c_str(), nullptr), PQconninfoFree);
    if (settingIn(given, "tcp_user_timeout").empty())
        ::setsockopt(PQsocket(link.get()), IPPROTO_TCP, TCP_USER_TIMEOUT, &connectedTimeout, sizeof connectedTimeout);
}

// Beyond it, an int has no room for the milliseconds; it is waited for again.
constexpr long long longestPoll = 1 << 30;

} // namespace

int awaitEvents(int socket, short events, int interrupt, Clock::time_point deadline)
{
    pollfd descriptors[] = {{socket, events, 0}, {interrupt, POLLIN, 0}};
    for (;;) {
        auto const left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now()).count();
        int const count = ::poll(descriptors, 2, static_cast<int>(std::clamp<long long>(left, 0, longestPoll)));
        if (count > 0)
            return descriptors[0].revents | (descriptors[1].revents ? POLLIN << 16 : 0);
        if (count == 0 && Clock::now() >= deadline)
            return 0;
    }
}

std::string identityOf(std::string const& connection)
{
    Settings const settings = effectiveSettings(connection);
    if (settingIn(settings, "port").empty())
        return {};
    std::string identity;
    for (char const* const keyword : {"host", "hostaddr", "port", "dbname", "user"})
        identity += keyword + ('=' + settingIn(settings, keyword)) + '\n';
    return identity;
}

Login login(std::string const& connection, Clock::time_point deadline)
{
    Target const target = targetOf(connection);
    if (!target.readable)
        return {nullptr, target.name, Reason::malformed, ""};
    Link link = start(connection, target.local);
    if (std::optional<Reason> const reason = finish(link, deadline)) {
        std::string const code = sqlStateOf(link);
        return {nullptr, target.name, code.empty() ? *reason : reasonOf(code), code};
    }
    PQsetnonblocking(link.get(), 1);
    giveTime(link, connection);
    std::string const host = std::string(PQhost(link.get())) + ':' + PQport(link.get());
    return {std::move(link), host, std::nullopt, ""};
}

} // namespace Studio
