// SPDX-License-Identifier: MIT
#include "ServerProcess.h"

#include <cerrno>
#include <cstdlib>
#include <iterator>
#include <stdexcept>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <pwd.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

constexpr char const* serverUser = "postgres";

} // namespace

bool isRoot() { return ::geteuid() == 0; }

std::vector<std::string> asServer(std::vector<std::string> command)
{
    std::vector<std::string> result{"setpriv", "--pdeathsig", "QUIT"};
    if (isRoot())
        result.insert(result.end(), {"--reuid", serverUser, "--regid", serverUser, "--clear-groups"});
    std::move(command.begin(), command.end(), std::back_inserter(result));
    return result;
}

void giveToServer(fs::path const& file)
{
    if (!isRoot())
        return;
    passwd const* const user = ::getpwnam(serverUser);
    if (!user || ::lchown(file.c_str(), user->pw_uid, user->pw_gid) != 0)
        throw std::runtime_error("cannot give " + file.string() + " to the server's user");
}

// In memory where that has room for the servers of some tests at once: a copy of the cluster is most of a short test. Not below
// TMPDIR: the path of a socket has at most 107 bytes, and the server's user must reach it.
fs::path freshFolder()
{
    std::error_code none;
    bool const hasRoom = fs::space("/dev/shm", none).available + 1 > std::uintmax_t{1} << 30;
    std::string folder = hasRoom ? "/dev/shm/es.XXXXXX" : "/tmp/es.XXXXXX";
    if (!::mkdtemp(folder.data()))
        throw std::system_error(errno, std::generic_category(), folder);
    giveToServer(folder);
    return folder;
}

pid_t startProgram(std::vector<std::string> const& command, fs::path const& log)
{
    std::vector<char*> arguments;
    for (std::string const& argument : command)
        arguments.push_back(const_cast<char*>(argument.c_str()));
    arguments.push_back(nullptr);
    pid_t const process = ::fork();
    if (process == 0) {
        ::dup2(::open("/dev/null", O_RDONLY), STDIN_FILENO);
        int const said = ::open(log.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0644);
        ::dup2(said, STDOUT_FILENO);
        ::dup2(said, STDERR_FILENO);
        ::execvp(arguments[0], arguments.data());
        ::_exit(127);
    }
    if (process < 0)
        throw std::system_error(errno, std::generic_category(), "fork");
    return process;
}
