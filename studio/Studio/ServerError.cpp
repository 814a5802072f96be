// SPDX-License-Identifier: MIT
#include <Studio/ServerError.h>

#include <array>
#include <string_view>
#include <utility>

namespace Studio {

using Reason = ServerError::Reason;

namespace {

struct Words {
    Reason reason;
    char const* explanation;
    char const* remedy;
};

// One row for each reason.
constexpr std::array<Words, 15> vocabulary = {{
    {Reason::malformed, "the connection string cannot be read",
     "write it as key=value pairs or as a URI, and look whether its service exists"},
    {Reason::unreachable, "the server cannot be reached", "check its name, its port and the network, and whether it runs"},
    {Reason::timedOut, "the server does not answer in time", "check the network, and whether the server is overloaded"},
    {Reason::insecure, "there is no TLS connection that can be trusted",
     "give the authority of the server's certificate as sslrootcert, and the name in the certificate as host"},
    {Reason::login, "the login is refused",
     "check the user and the password; without a SCRAM password, say channel_binding=prefer in the connection string"},
    {Reason::lost, "the connection is lost", "try again"},
    {Reason::busy, "the server is busy", "try again, or let the server have more connections"},
    {Reason::full, "the server has no room left", "make room on the server's disk"},
    {Reason::readOnly, "the server takes no changes", "name the primary server, too, and say target_session_attrs=read-write"},
    {Reason::denied, "the account has no right to do this", "ask the administrator of the studio's settings"},
    {Reason::outdated, "the database is not set up for this version", "let the administrator run: editor-settings studio migrate"},
    {Reason::locked, "the studio has locked this setting", "ask the administrator of the studio's settings to unlock it"},
    {Reason::tooLarge, "a key has at most 4096 bytes, a value 16 MiB", "keep the value in a file of its own and store the file's name"},
    {Reason::rejected, "the server refuses the statement", "look for the code in the server's log"},
    {Reason::interrupted, "the program ends", "start it again"},
}};

Words const& wordsOf(Reason reason)
{
    for (Words const& words : vocabulary)
        if (words.reason == reason)
            return words;
    throw std::logic_error("a reason without words");
}

std::string sentence(Reason reason, std::string const& sqlState)
{
    std::string const code = sqlState.empty() ? "" : " (SQLSTATE " + sqlState + ')';
    return wordsOf(reason).explanation + code;
}

} // namespace

ServerError::ServerError(Reason reason, std::string const& host, std::string const& sqlState)
    : std::runtime_error(host + ": " + sentence(reason, sqlState) + "; " + wordsOf(reason).remedy),
      m_reason(reason),
      m_host(host),
      m_sqlState(sqlState)
{}

std::string ServerError::explanation() const { return sentence(m_reason, m_sqlState); }
std::string ServerError::remedy() const { return wordsOf(m_reason).remedy; }

Reason reasonOf(std::string const& sqlState)
{
    // The codes with ST are the schema's own. A whole code stands before its class, which its first two characters name.
    static constexpr std::array<std::pair<std::string_view, Reason>, 21> meanings = {{
        {"53300", Reason::busy},     {"55P03", Reason::busy},     {"40001", Reason::busy},        {"40P01", Reason::busy},
        {"53", Reason::full},        {"25006", Reason::readOnly}, {"42501", Reason::denied},      {"42883", Reason::outdated},
        {"42P01", Reason::outdated}, {"3F000", Reason::outdated}, {"3D000", Reason::unreachable}, {"57014", Reason::timedOut},
        {"ST001", Reason::tooLarge}, {"ST002", Reason::tooLarge}, {"ST003", Reason::locked},      {"ST004", Reason::denied},
        {"ST006", Reason::lost},     {"ST008", Reason::readOnly}, {"57P", Reason::unreachable},   {"28", Reason::login},
        {"08", Reason::lost},
    }};
    for (auto const& [code, reason] : meanings)
        if (sqlState.compare(0, code.size(), code) == 0)
            return reason;
    return Reason::rejected;
}

} // namespace Studio
