// SPDX-License-Identifier: MIT
#include "Pooler.h"

#include "ServerProcess.h"

#include <libpq-fe.h>

#include <chrono>
#include <csignal>
#include <fstream>
#include <stdexcept>
#include <thread>

#include <sys/wait.h>

Pooler::Pooler(Cluster const& server) : m_folder(freshFolder())
{
    std::ofstream(m_folder / "users") << "\"alice\" \"\"\n\"bob\" \"\"\n\"ada\" \"\"\n";
    std::ofstream(m_folder / "settings") << "[databases]\nstudio = host=" << server.ask("SHOW unix_socket_directories")
                                         << " port=5432 dbname=studio\n[pgbouncer]\nlisten_port = 6432\nunix_socket_dir = "
                                         << m_folder.string() << "\nauth_type = trust\nauth_file = " << m_folder.string()
                                         << "/users\npool_mode = transaction\ndefault_pool_size = 2\n";
    m_process = startProgram(asServer({program, m_folder / "settings"}), m_folder / "log");
    auto const end = std::chrono::steady_clock::now() + std::chrono::minutes(2);
    while (PQping(connection("alice").c_str()) != PQPING_OK) {
        if (::waitpid(m_process, nullptr, WNOHANG) == m_process || std::chrono::steady_clock::now() > end)
            throw std::runtime_error("the pooler does not start");
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
}

Pooler::~Pooler()
{
    ::kill(m_process, SIGTERM);
    ::waitpid(m_process, nullptr, 0);
    std::error_code ignored;
    std::filesystem::remove_all(m_folder, ignored);
}

std::string Pooler::connection(std::string const& role) const
{
    return "host=" + m_folder.string() + " port=6432 dbname=studio user=" + role;
}
