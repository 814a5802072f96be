// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include <sys/types.h>

/// A PostgreSQL server for one test: its data a copy of a cluster with an empty database `studio`, its socket in a folder of its
/// own, its life ended with this object, or with the thread that started it.
///
/// Over the socket every role is let in without a password, over TCP with one. Functions throw `std::runtime_error`, with
/// the end of the server's log where it says why.
class Cluster {
public:
    struct Options {
        std::vector<std::string> settings; ///< Each "name=value", as in postgresql.conf.
        bool tcp = false;                  ///< Whether it listens at `port()` of 127.0.0.1, too.
        std::vector<std::string> access;   ///< Lines of pg_hba.conf that stand before the usual ones.
        std::filesystem::path certificate; ///< With `key`, what the server offers TLS with; none where empty.
        std::filesystem::path key;
        /// A server that is stopped: this one begins as its standby, with what it had then, and gets nothing more.
        Cluster const* primary = nullptr;
    };

    /// Why no server can be started here; empty where one can.
    static std::string const& obstacle();

    /// Starts the server; it accepts connections when this returns.
    Cluster();
    explicit Cluster(Options options);
    ~Cluster();
    Cluster(Cluster const&) = delete;
    Cluster& operator=(Cluster const&) = delete;

    /// Starts the server again after `stop` or `kill`.
    void start();
    /// Ends the server at once; its clients see their connections fall.
    void stop();
    /// Ends every process of the server with SIGKILL.
    void kill();
    /// Halts every process of the server, or lets them go on. A connection that is made meanwhile is accepted by the kernel.
    void halt();
    void goOn();

    /// The connection string over the socket.
    std::string connection(std::string const& role = superuser, std::string const& database = "postgres") const;
    /// The same over TCP. Password and TLS are for the caller to add.
    std::string tcpConnection(std::string const& role, std::string const& database = "postgres") const;
    int port() const { return m_port; }

    /// Executes statements as the superuser; the first column of the last one's first row, "" where it has none.
    std::string ask(std::string const& sql, std::string const& database = "postgres") const;
    /// What the server has said.
    std::string log() const;

    static constexpr char const* superuser = "postgres";

private:
    void signalAll(int number) const;
    bool startOnce();
    void awaitEnd(int firstSignal);
    std::vector<std::string> command() const;

    Options m_options;
    std::filesystem::path m_folder;
    int m_port = 5432;
    pid_t m_process = -1;
};
