// SPDX-License-Identifier: MIT
#pragma once

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <functional>
#include <system_error>

#include <sys/wait.h>
#include <unistd.h>

/// A forked process that does `work` and then waits to be killed, by SIGKILL. To be started while no other thread runs and
/// no outbox is open.
class Victim {
public:
    explicit Victim(std::function<void()> const& work)
    {
        int ends[2];
        if (::pipe(ends) != 0 || (m_process = ::fork()) < 0)
            throw std::system_error(errno, std::generic_category(), "a process to kill");
        if (m_process == 0) {
            try {
                work();
            } catch (std::exception const& error) {
                std::fputs(error.what(), stderr);
            }
            static_cast<void>(::write(ends[1], "", 1));
            for (;;)
                ::pause();
        }
        char byte = 0;
        ::close(ends[1]);
        static_cast<void>(::read(ends[0], &byte, 1));
        ::close(ends[0]);
    }
    ~Victim() { kill(); }
    Victim(Victim const&) = delete;
    Victim& operator=(Victim const&) = delete;

    void kill()
    {
        if (m_process <= 0)
            return;
        ::kill(m_process, SIGKILL);
        ::waitpid(m_process, nullptr, 0);
        m_process = -1;
    }

private:
    pid_t m_process = -1;
};
