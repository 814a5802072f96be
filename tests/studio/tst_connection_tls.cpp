// SPDX-License-Identifier: MIT
#include "support/ConnectionTest.h"

#include <TestKit/TemporaryHome.h>

#include <support/Process.h>

#include <filesystem>
#include <stdexcept>

namespace fs = std::filesystem;

/// A server with a certificate for db.example, signed by the studio's authority.
class ConnectionTls : public ServerTest {
protected:
    void startServer() override
    {
        makeAuthority("studio");
        makeAuthority("stranger");
        openssl(
            {"req", "-newkey", "rsa:2048", "-nodes", "-subj", "/CN=db.example", "-keyout", file("server.key"), "-out", file("server.csr")});
        openssl({"x509", "-req", "-in", file("server.csr"), "-CA", file("studio.crt"), "-CAkey", file("studio.key"), "-CAcreateserial",
                 "-out", file("server.crt")});
        Cluster::Options options;
        options.tcp = true;
        options.certificate = file("server.crt");
        options.key = file("server.key");
        options.access = {"host all guest 127.0.0.1/32 trust"};
        m_server.emplace(options);
        m_server->ask("CREATE ROLE alice LOGIN PASSWORD 'right'; CREATE ROLE guest LOGIN");
    }

    void makeAuthority(std::string const& name)
    {
        openssl({"req", "-x509", "-newkey", "rsa:2048", "-nodes", "-subj", "/CN=" + name, "-keyout", file(name + ".key"), "-out",
                 file(name + ".crt")});
    }

    static void openssl(std::vector<std::string> arguments)
    {
        arguments.insert(arguments.begin(), "openssl");
        Ended const ended = run(arguments);
        if (ended.status != 0)
            throw std::runtime_error("openssl: " + ended.err);
    }

    std::string file(std::string const& name) const { return m_home.path() / name; }

    std::string as(std::string const& user, std::string const& host, std::string const& more) const
    {
        return "host=" + host + " hostaddr=127.0.0.1 port=" + std::to_string(m_server->port()) + " dbname=postgres user=" + user +
               " password=right " + more;
    }

    std::string studio() const { return "sslrootcert=" + file("studio.crt"); }

    TestKit::TemporaryHome m_home;
};

TEST_F(ConnectionTls, ServerWithTheStudiosCertificateIsTrusted)
{
    Connection connection(patient(as("alice", "db.example", studio())));
    connection.connect();
    EXPECT_EQ(connection.execute("SELECT ssl FROM pg_stat_ssl WHERE pid = pg_backend_pid()").integer(0, 0), 1);
    EXPECT_EQ(connection.host(), "db.example:" + std::to_string(m_server->port()));
}

TEST_F(ConnectionTls, ServerThatCannotProveItsNameIsRefused)
{
    struct {
        char const* meaning;
        std::string connection;
    } const table[] = {
        {"another name", as("alice", "other.example", studio())},
        {"an authority that nobody knows", as("alice", "db.example", "sslrootcert=" + file("stranger.crt"))},
        {"no authority", as("alice", "db.example", "")},
        {"a file that is not there", as("alice", "db.example", "sslrootcert=" + file("none.crt"))},
    };
    for (auto const& row : table) {
        Connection connection(patient(row.connection));
        EXPECT_EQ(errorOf([&] { connection.connect(); }).reason(), Reason::insecure) << row.meaning;
    }
}

TEST_F(ConnectionTls, ServerThatDoesNotKnowThePasswordIsRefused)
{
    Connection bound(patient(as("guest", "db.example", studio())));
    Studio::ServerError const error = errorOf([&] { bound.connect(); });
    EXPECT_EQ(error.reason(), Reason::login);
    EXPECT_EQ(error.sqlState(), "");
    Connection unbound(patient(as("guest", "db.example", studio() + " channel_binding=prefer")));
    unbound.connect();
    EXPECT_TRUE(unbound.isOpen());
}

TEST_F(ConnectionTls, StringMayAskForLess)
{
    Connection connection(patient(as("alice", "other.example", "sslmode=require")));
    connection.connect();
    EXPECT_EQ(connection.execute("SELECT ssl FROM pg_stat_ssl WHERE pid = pg_backend_pid()").integer(0, 0), 1);
}
