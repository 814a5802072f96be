// SPDX-License-Identifier: MIT
#include "Bench.h"

#include <csignal>

#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

// Stops the traced child, with the same few calls each time.
void mark() { ::kill(::getpid(), SIGSTOP); }

[[noreturn]] void child(void (*call)(void const*), void const* work)
{
    if (::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0)
        ::_exit(1);
    call(work);
    mark();
    call(work);
    mark();
    mark();
    ::_exit(0);
}

// The stops at the kernel's door, in and out, until the next mark; negative where the child ended.
int stopsUntilMark(pid_t pid)
{
    for (int stops = 0;; ++stops) {
        int status = 0;
        if (::ptrace(PTRACE_SYSCALL, pid, nullptr, nullptr) != 0 || ::waitpid(pid, &status, 0) != pid || !WIFSTOPPED(status))
            return -1;
        if (WSTOPSIG(status) == SIGSTOP)
            return stops;
    }
}

} // namespace

int Bench::systemCallsOf(void (*call)(void const*), void const* work)
{
    pid_t const pid = ::fork();
    require(pid >= 0, "cannot start a process to count its system calls");
    if (pid == 0)
        child(call, work);
    int status = 0;
    ::waitpid(pid, &status, 0);
    bool const isTraced = WIFSTOPPED(status) && ::ptrace(PTRACE_SETOPTIONS, pid, nullptr, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL) == 0;
    int const withWork = isTraced ? stopsUntilMark(pid) : -1;
    int const without = isTraced ? stopsUntilMark(pid) : -1; // what the marks take
    if (isTraced) {
        ::kill(pid, SIGKILL);
        ::waitpid(pid, &status, 0);
    }
    return withWork < 0 || without < 0 ? -1 : (withWork - without) / 2;
}
