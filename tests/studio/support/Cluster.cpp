// SPDX-License-Identifier: MIT
#include "Cluster.h"

#include "ServerProcess.h"

#include <support/Process.h>

#include <libpq-fe.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <system_error>
#include <thread>
#include <utility>

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <pwd.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

constexpr std::chrono::seconds patience{120};

// Where Debian has the programs of the newest server; empty where it has none.
fs::path programs()
{
    std::pair<int, fs::path> newest;
    std::error_code none;
    for (fs::directory_entry const& version : fs::directory_iterator("/usr/lib/postgresql", none)) {
        fs::path const folder = version.path() / "bin";
        if (fs::exists(folder / "initdb") && fs::exists(folder / "postgres"))
            newest = std::max(newest, {std::stoi(version.path().filename()), folder});
    }
    return newest.second;
}

void quietly(std::vector<std::string> const& command)
{
    Ended const ended = run(command);
    if (ended.status != 0)
        throw std::runtime_error(command.front() + " failed: " + ended.out + ended.err);
}

// The tests' database takes the place of template0, which no test needs. To create it in each test would make the start of its
// server half as long again.
void makeDatabase(fs::path const& folder)
{
    std::ofstream(folder / "statements") << "ALTER DATABASE template0 IS_TEMPLATE false;\nDROP DATABASE template0;\n"
                                            "CREATE DATABASE studio;\n";
    giveToServer(folder / "statements");
    quietly(asServer({"sh", "-c", "exec \"$0\" --single -c fsync=off -D \"$1\" postgres <\"$2\"", programs() / "postgres", folder / "data",
                      folder / "statements"}));
}

void makeTemplate(fs::path const& target)
{
    fs::path const folder = freshFolder();
    quietly(asServer({programs() / "initdb", "--no-sync", "--auth=trust", "--username", Cluster::superuser, "--locale=C.UTF-8",
                      "--wal-segsize=1", "--pgdata", folder / "data"}));
    makeDatabase(folder);
    std::ofstream(folder / "data/pg_hba.conf") << "local all all trust\nhost all all 127.0.0.1/32 scram-sha-256\n";
    fs::path const partial = target.string() + ".partial";
    fs::remove_all(partial);
    quietly({"cp", "-a", folder / "data", partial});
    fs::rename(partial, target);
    fs::remove_all(folder);
}

// A cluster with nothing in it, made by the first test that wants one and kept in the build folder.
fs::path templateCluster()
{
    fs::path const folder = fs::path(CLUSTER_TEMPLATES) / programs().parent_path().filename();
    fs::create_directories(folder.parent_path());
    int const lock = ::open((folder.string() + ".lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (lock < 0 || ::flock(lock, LOCK_EX) != 0)
        throw std::system_error(errno, std::generic_category(), folder.string() + ".lock");
    std::unique_ptr<int const, void (*)(int const*)> const unlock(&lock, [](int const* held) { ::close(*held); });
    if (!fs::exists(folder))
        makeTemplate(folder);
    return folder;
}

// A port that was free just now.
int freePort()
{
    int const listener = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto* const generic = reinterpret_cast<sockaddr*>(&address);
    bool const bound = ::bind(listener, generic, size) == 0 && ::getsockname(listener, generic, &size) == 0;
    ::close(listener);
    if (!bound)
        throw std::system_error(errno, std::generic_category(), "a free port");
    return ntohs(address.sin_port);
}

// The process and all that descend from it, the first one first.
std::vector<pid_t> familyOf(pid_t process)
{
    std::vector<pid_t> family{process};
    for (std::size_t at = 0; at < family.size(); ++at) {
        std::string const number = std::to_string(family[at]);
        std::ifstream children("/proc/" + number + "/task/" + number + "/children");
        for (pid_t child; children >> child;)
            family.push_back(child);
    }
    return family;
}

void putInFront(std::vector<std::string> const& lines, fs::path const& file)
{
    std::ifstream stream(file);
    std::string const earlier{std::istreambuf_iterator<char>(stream), {}};
    std::ofstream all(file);
    for (std::string const& line : lines)
        all << line << '\n';
    all << earlier;
}

void copyForServer(fs::path const& from, fs::path const& to)
{
    fs::copy_file(from, to);
    fs::permissions(to, fs::perms::owner_read | fs::perms::owner_write);
    giveToServer(to);
}

} // namespace

std::string const& Cluster::obstacle()
{
    static std::string const reason = programs().empty() ? "there is no PostgreSQL server here: install Debian's postgresql"
                                      : isRoot() && !::getpwnam(Cluster::superuser) ? "there is no user postgres for the server to run as"
                                                                                    : "";
    return reason;
}

Cluster::Cluster() : Cluster(Options{}) {}

Cluster::Cluster(Options options) : m_options(std::move(options)), m_folder(freshFolder())
{
    quietly(
        {"cp", "-a", "--reflink=auto", m_options.primary ? m_options.primary->m_folder / "data" : templateCluster(), m_folder / "data"});
    if (m_options.primary) {
        std::ofstream const signal(m_folder / "data/standby.signal");
        giveToServer(m_folder / "data/standby.signal");
    }
    if (!m_options.access.empty())
        putInFront(m_options.access, m_folder / "data/pg_hba.conf");
    if (!m_options.certificate.empty()) {
        copyForServer(m_options.certificate, m_folder / "data/server.crt");
        copyForServer(m_options.key, m_folder / "data/server.key");
        m_options.settings.insert(m_options.settings.begin(), "ssl=on");
    }
    if (m_options.tcp)
        m_port = freePort();
    start();
}

Cluster::~Cluster()
{
    if (m_process > 0)
        awaitEnd(SIGQUIT);
    std::error_code ignored;
    fs::remove_all(m_folder, ignored);
}

std::vector<std::string> Cluster::command() const
{
    std::vector<std::string> result{programs() / "postgres", "-D", m_folder / "data"};
    // Shared memory lies in the server's folder, so that nothing remains of one that was killed.
    std::vector<std::string> settings{"unix_socket_directories=" + m_folder.string(), "port=" + std::to_string(m_port),
                                      m_options.tcp ? "listen_addresses=127.0.0.1" : "listen_addresses=", "fsync=off",
                                      "dynamic_shared_memory_type=mmap"};
    settings.insert(settings.end(), m_options.settings.begin(), m_options.settings.end());
    for (std::string const& setting : settings)
        result.insert(result.end(), {"-c", setting});
    return asServer(result);
}

// Whether it accepts connections: false where it has ended instead.
bool Cluster::startOnce()
{
    fs::remove(m_folder / "log");
    m_process = startProgram(command(), m_folder / "log");
    auto const end = std::chrono::steady_clock::now() + patience;
    while (PQping(connection().c_str()) != PQPING_OK) {
        if (::waitpid(m_process, nullptr, WNOHANG) == m_process) {
            m_process = -1;
            return false;
        }
        if (std::chrono::steady_clock::now() > end)
            throw std::runtime_error("the server does not answer: " + log());
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return true;
}

void Cluster::start()
{
    // Another test may take the port in between.
    for (int attempt = 0; attempt < 10; ++attempt) {
        if (startOnce())
            return;
        if (log().find("Address already in use") == std::string::npos)
            break;
        m_port = freePort();
    }
    throw std::runtime_error("the server does not start: " + log());
}

void Cluster::signalAll(int number) const
{
    for (pid_t const process : familyOf(m_process))
        ::kill(process, number);
}

// A halted process takes no signal but SIGKILL until it goes on.
void Cluster::awaitEnd(int firstSignal)
{
    signalAll(SIGCONT);
    ::kill(m_process, firstSignal);
    auto const end = std::chrono::steady_clock::now() + patience;
    while (::waitpid(m_process, nullptr, WNOHANG) == 0) {
        if (std::chrono::steady_clock::now() > end)
            signalAll(SIGKILL);
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    m_process = -1;
}

void Cluster::stop() { awaitEnd(SIGQUIT); }

void Cluster::kill()
{
    std::vector<pid_t> const family = familyOf(m_process);
    // One that sees the first one die would still tell its client.
    for (int const number : {SIGSTOP, SIGKILL})
        for (pid_t const process : family)
            ::kill(process, number);
    ::waitpid(m_process, nullptr, 0);
    // The next start refuses to share the data with one that is left.
    for (pid_t const process : family)
        while (::kill(process, 0) == 0)
            std::this_thread::sleep_for(std::chrono::milliseconds(2));
    m_process = -1;
}

void Cluster::halt() { signalAll(SIGSTOP); }
void Cluster::goOn() { signalAll(SIGCONT); }

std::string Cluster::connection(std::string const& role, std::string const& database) const
{
    return "host=" + m_folder.string() + " port=" + std::to_string(m_port) + " user=" + role + " dbname=" + database;
}

std::string Cluster::tcpConnection(std::string const& role, std::string const& database) const
{
    return "host=127.0.0.1 port=" + std::to_string(m_port) + " user=" + role + " dbname=" + database;
}

std::string Cluster::ask(std::string const& sql, std::string const& database) const
{
    std::unique_ptr<PGconn, void (*)(PGconn*)> const link(PQconnectdb(connection(superuser, database).c_str()), PQfinish);
    std::unique_ptr<PGresult, void (*)(PGresult*)> const result(PQexec(link.get(), sql.c_str()), PQclear);
    ExecStatusType const status = PQresultStatus(result.get());
    if (status != PGRES_TUPLES_OK && status != PGRES_COMMAND_OK)
        throw std::runtime_error(PQerrorMessage(link.get()) + log());
    return PQntuples(result.get()) > 0 ? PQgetvalue(result.get(), 0, 0) : "";
}

std::string Cluster::log() const
{
    std::ifstream stream(m_folder / "log", std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}
