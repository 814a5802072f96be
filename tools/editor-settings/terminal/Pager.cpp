// SPDX-License-Identifier: MIT
#include "terminal/Pager.h"

#include "terminal/Terminal.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <optional>
#include <string>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

std::string command()
{
    for (char const* name : {"EDITOR_SETTINGS_PAGER", "PAGER"})
        if (char const* const value = std::getenv(name))
            return value;
    return "less";
}

// The pager handles Ctrl+C and Ctrl+\, and its early end must not end this process by SIGPIPE.
class SignalsOfThePager {
public:
    SignalsOfThePager()
    {
        for (std::size_t at = 0; at < signals.size(); ++at)
            m_earlier[at] = std::signal(signals[at], SIG_IGN);
    }
    ~SignalsOfThePager()
    {
        for (std::size_t at = 0; at < signals.size(); ++at)
            std::signal(signals[at], m_earlier[at]);
    }
    SignalsOfThePager(SignalsOfThePager const&) = delete;
    SignalsOfThePager& operator=(SignalsOfThePager const&) = delete;

    static constexpr std::array<int, 3> signals = {SIGINT, SIGQUIT, SIGPIPE};

private:
    std::array<void (*)(int), signals.size()> m_earlier = {};
};

bool needsAShell(std::string const& command) { return command.find_first_of("|&;<>()$`\\\"' \t\n*?[#~=%") != std::string::npos; }

// Starts `command` with `input` as its standard input; returns nullopt when it cannot be started.
std::optional<pid_t> started(std::string const& command, int input)
{
    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_adddup2(&actions, input, STDIN_FILENO);
    posix_spawnattr_t attributes;
    ::posix_spawnattr_init(&attributes);
    sigset_t obeyed;
    sigemptyset(&obeyed);
    for (int const signal : SignalsOfThePager::signals)
        sigaddset(&obeyed, signal);
    ::posix_spawnattr_setsigdefault(&attributes, &obeyed);
    ::posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF);

    std::string words[] = {"sh", "-c", command};
    char* const throughShell[] = {words[0].data(), words[1].data(), words[2].data(), nullptr};
    char* const byItself[] = {words[2].data(), nullptr};
    char* const* const arguments = needsAShell(command) ? throughShell : byItself;
    pid_t process = 0;
    int const error = ::posix_spawnp(&process, arguments[0], &actions, &attributes, arguments, ::environ);
    ::posix_spawnattr_destroy(&attributes);
    ::posix_spawn_file_actions_destroy(&actions);
    return error == 0 ? std::optional<pid_t>(process) : std::nullopt;
}

void writeAll(int descriptor, std::string const& text)
{
    for (std::size_t written = 0; written < text.size();) {
        ssize_t const count = ::write(descriptor, text.data() + written, text.size() - written);
        if (count < 0 && errno != EINTR)
            return;
        written += count < 0 ? 0 : static_cast<std::size_t>(count);
    }
}

int statusOf(pid_t process)
{
    int status = 0;
    while (::waitpid(process, &status, 0) < 0 && errno == EINTR)
        ;
    return WIFEXITED(status) ? WEXITSTATUS(status) : 0;
}

// Returns false when no pager is set or the pager cannot be started.
bool paged(std::string const& text)
{
    constexpr int notExecutable = 126; // the shell's exit status, or 127 for a command that does not exist
    std::string const pager = command();
    int ends[2];
    if (pager.empty() || pager == "cat" || ::pipe2(ends, O_CLOEXEC) != 0)
        return false;
    ::setenv("LESS", "FRX", 0); // quit when one screen suffices, pass colours through, keep the screen
    SignalsOfThePager const signals;
    std::optional<pid_t> const process = started(pager, ends[0]);
    ::close(ends[0]);
    if (process)
        writeAll(ends[1], text);
    ::close(ends[1]);
    return process && statusOf(*process) < notExecutable;
}

} // namespace

bool Pager::isOfUse() { return Terminal::isCapable(STDOUT_FILENO); }

Pager::~Pager()
{
    std::cout.rdbuf(m_earlier);
    std::string const text = m_kept.str();
    if (!paged(text))
        std::cout << text;
}
