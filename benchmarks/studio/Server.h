// SPDX-License-Identifier: MIT
//
// A PostgreSQL server of the program's own with a shared store, and clients that call libpq plainly.
#pragma once

#include <studio/support/Cluster.h>

#include <memory>
#include <string>
#include <vector>

struct pg_conn;
struct pg_result;

/// A connection over which nothing goes but what is asked.
class Bare {
public:
    explicit Bare(std::string const& connection);

    /// The first column of the first row. A failure ends the program.
    std::string ask(char const* sql, std::vector<char const*> const& parameters = {}) const;

private:
    struct Close {
        void operator()(pg_conn* connection) const;
    };
    std::unique_ptr<pg_conn, Close> m_connection;
};

/// A program of a user, as the schema's functions know it: it has said hello, listens, and changes settings one by one.
class BareProgram {
public:
    BareProgram(std::string const& connection, int number);

    /// Stores a number as a setting, and returns when the server has it on disk.
    void change();

private:
    Bare m_bare;
    std::string m_client;
    long long m_operation = 0;
};

/// The server, with a schema in the database "studio" and the users user0, user1 and so on. Commits wait for the disk.
class Server {
public:
    explicit Server(int users);

    std::string connection(int user) const { return m_cluster.connection("user" + std::to_string(user), "studio"); }
    std::string administration() const { return m_cluster.connection(Cluster::superuser, "studio"); }

private:
    Cluster m_cluster;
};
