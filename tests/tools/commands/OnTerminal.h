// SPDX-License-Identifier: MIT
#pragma once

#include <tools/commands/Tool.h>

#include <algorithm>
#include <cstdlib>

#include <poll.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utmp.h>

/// A terminal of a program's own.
struct Screen {
    unsigned short rows = 24;
    unsigned short columns = 80;
};

/// What is typed when the terminal was sent `after`.
struct Typed {
    std::string after;
    std::string keys;
};

/// The program as its users see it: on a terminal that is called "xterm", with no pager and no colours of the caller's.
class OnTerminal : public Tool {
protected:
    using Words = std::vector<std::string>;
    using Environment = std::map<std::string, std::string>;

    // `out` is all that the terminal was sent, with the ends of lines as they were printed.
    static Ended onTerminal(Words const& command, Environment const& environment = {}, Screen const& screen = {}, Typed typed = {})
    {
        Words words = {"env", "-u", "NO_COLOR", "-u", "PAGER", "-u", "LESS", "EDITOR_SETTINGS_PAGER=cat", "TERM=xterm"};
        for (auto const& [name, value] : environment)
            words.push_back(name + '=' + value);
        words.insert(words.end(), command.begin(), command.end());
        std::vector<char*> arguments;
        for (std::string& word : words)
            arguments.push_back(word.data());
        arguments.push_back(nullptr);

        winsize const size = {screen.rows, screen.columns, 0, 0};
        int terminal = -1;
        int program = -1; // the program's side
        EXPECT_EQ(::openpty(&terminal, &program, nullptr, nullptr, &size), 0);
        pid_t const child = ::fork();
        if (child == 0) {
            ::close(terminal);
            ::login_tty(program);
            ::execvp(arguments[0], arguments.data());
            ::_exit(127);
        }
        Ended ended;
        // The side is kept open, as what is on its way may be lost when the last one closes it. The end is a byte of this process.
        int status = 0;
        for (bool isMarked = false; !isMarked || ended.out.empty() || ended.out.back() != '\0';) {
            pollfd wanted = {terminal, POLLIN, 0};
            if (::poll(&wanted, 1, 1) <= 0) {
                if (!isMarked && ::waitpid(child, &status, WNOHANG) == child) {
                    EXPECT_EQ(::write(program, "", 1), 1);
                    isMarked = true;
                }
                continue;
            }
            char buffer[4096];
            ended.out.append(buffer, static_cast<std::size_t>(std::max(ssize_t(0), ::read(terminal, buffer, sizeof buffer))));
            if (!typed.keys.empty() && ended.out.find(typed.after) != std::string::npos) {
                EXPECT_EQ(::write(terminal, typed.keys.data(), typed.keys.size()), static_cast<ssize_t>(typed.keys.size()));
                typed.keys.clear();
            }
        }
        ended.out.pop_back();
        ::close(program);
        ::close(terminal);
        ended.status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
        for (std::size_t at = 0; (at = ended.out.find("\r\n", at)) != std::string::npos;)
            ended.out.erase(at, 1);
        return ended;
    }

    inline static std::string const openingStep = "editor-settings: step 1 of 1: opening the stores\r\x1b[K";

    // The program itself on a terminal. `out` is without `openingStep`, which each verb shows and erases.
    static Ended toolOnTerminal(Words words, Environment const& environment = {}, Screen const& screen = {}, Typed const& typed = {})
    {
        words.insert(words.begin(), TOOL);
        Ended ended = onTerminal(words, environment, screen, typed);
        if (std::size_t const at = ended.out.find(openingStep); at != std::string::npos)
            ended.out.erase(at, openingStep.size());
        return ended;
    }
};
