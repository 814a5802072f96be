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
    /// Waits for a notification, and takes all that came with it.
    void awaitNotification() const;

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
    /// Waits until the server tells of another program's change.
    void awaitHint() const { m_bare.awaitNotification(); }
    /// Asks for what changed since the last time.
    void askForChanges();

private:
    Bare m_bare;
    std::string m_revision = "0"; // of the user's layer, when it was asked last
    std::string m_client;
    long long m_operation = 0;
};

/// The server, with a schema in the database "studio" and the users user0, user1 and so on. Commits wait for the disk.
class Server {
public:
    explicit Server(int users);

    /// Ends it at once and starts it again.
    void restart();
    /// Has it answer nothing more; connections are accepted all the same.
    void halt() { m_cluster.halt(); }
    /// Of the processes that serve `user`: the bytes that are theirs, with their part of what several share.
    double memoryOf(std::string const& user) const;
    /// The seconds of a processor that they have taken.
    double processorTimeOf(std::string const& user) const;

    std::string connection(int user) const { return m_cluster.connection("user" + std::to_string(user), "studio"); }
    std::string administration() const { return m_cluster.connection(Cluster::superuser, "studio"); }

private:
    std::vector<std::string> processesOf(std::string const& user) const;

    Cluster m_cluster;
};
