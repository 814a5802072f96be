// SPDX-License-Identifier: MIT
#include <support/Process.h>

#include <cerrno>
#include <cstdlib>
#include <sstream>
#include <system_error>
#include <thread>
#include <utility>

#include <fcntl.h>
#include <grp.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

struct Pipe {
    int ends[2] = {-1, -1};

    Pipe()
    {
        if (::pipe2(ends, O_CLOEXEC) != 0)
            throw std::system_error(errno, std::generic_category(), "pipe");
    }
    ~Pipe() { ::close(ends[0]); }
};

std::string readToEnd(int descriptor)
{
    std::string result;
    char buffer[4096];
    for (ssize_t count; (count = ::read(descriptor, buffer, sizeof buffer)) > 0;)
        result.append(buffer, static_cast<std::size_t>(count));
    return result;
}

// What this process has, but for the variables that have another value.
std::vector<std::string> environmentWith(std::map<std::string, std::string> const& changed)
{
    std::vector<std::string> result;
    for (char** variable = ::environ; *variable; ++variable) {
        std::string const text = *variable;
        if (changed.count(text.substr(0, text.find('='))) == 0)
            result.push_back(text);
    }
    for (auto const& [name, value] : changed)
        result.push_back(name + '=' + value);
    return result;
}

// As the C library takes a list of words, which must live longer.
std::vector<char*> pointersTo(std::vector<std::string> const& words)
{
    std::vector<char*> result;
    for (std::string const& word : words)
        result.push_back(const_cast<char*>(word.c_str()));
    result.push_back(nullptr);
    return result;
}

} // namespace

Ended run(std::vector<std::string> const& command, std::map<std::string, std::string> const& environment)
{
    Pipe out;
    Pipe err;
    posix_spawn_file_actions_t streams;
    ::posix_spawn_file_actions_init(&streams);
    ::posix_spawn_file_actions_addopen(&streams, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    ::posix_spawn_file_actions_adddup2(&streams, out.ends[1], STDOUT_FILENO);
    ::posix_spawn_file_actions_adddup2(&streams, err.ends[1], STDERR_FILENO);
    std::vector<std::string> const variables = environmentWith(environment);
    pid_t child = 0;
    // No fork: a copy of a large process, as one under a sanitizer is, takes longer than most programs.
    int const error =
        ::posix_spawnp(&child, command.front().c_str(), &streams, nullptr, pointersTo(command).data(), pointersTo(variables).data());
    ::posix_spawn_file_actions_destroy(&streams);
    ::close(out.ends[1]);
    ::close(err.ends[1]);
    Ended ended;
    std::thread reader([&] { ended.err = readToEnd(err.ends[0]); });
    ended.out = readToEnd(out.ends[0]);
    reader.join();
    int status = W_EXITCODE(127, 0); // as a shell says where there is no such program
    if (error == 0)
        ::waitpid(child, &status, 0);
    ended.status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    return ended;
}

std::vector<std::string> withoutPrivileges(std::vector<std::string> command)
{
    if (::geteuid() == 0)
        command.insert(command.begin(), {"setpriv", "--bounding-set=-dac_override,-dac_read_search", "--"});
    return command;
}

std::vector<std::string> lines(std::string const& text)
{
    std::vector<std::string> result;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        result.push_back(line);
    return result;
}

Child::Child(std::function<std::string()> const& work, bool asOrdinaryUser)
{
    Pipe answer;
    m_process = ::fork();
    if (m_process < 0)
        throw std::system_error(errno, std::generic_category(), "fork");
    if (m_process == 0) {
        std::string text;
        try {
            if (asOrdinaryUser && ::geteuid() == 0 &&
                (::setgroups(0, nullptr) != 0 || ::setgid(ordinaryUser) != 0 || ::setuid(ordinaryUser) != 0))
                throw std::system_error(errno, std::generic_category(), "becoming an ordinary user");
            text = work();
        } catch (std::exception const& error) {
            text = error.what();
        }
        std::size_t written = 0;
        for (ssize_t count; written < text.size() && (count = ::write(answer.ends[1], text.data() + written, text.size() - written)) > 0;)
            written += static_cast<std::size_t>(count);
        std::exit(0);
    }
    ::close(answer.ends[1]);
    m_answer = std::exchange(answer.ends[0], -1);
}

std::string Child::answer()
{
    std::string const text = readToEnd(m_answer);
    ::close(m_answer);
    ::waitpid(m_process, nullptr, 0);
    return text;
}

std::string inChild(std::function<std::string()> const& work, bool asOrdinaryUser) { return Child(work, asOrdinaryUser).answer(); }
