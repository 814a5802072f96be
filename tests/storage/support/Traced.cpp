// SPDX-License-Identifier: MIT
#include <storage/support/Traced.h>

#include <cerrno>
#include <csignal>
#include <stdexcept>
#include <system_error>

#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace Traced {

namespace {

constexpr int untraceable = 77;
constexpr long mark = SYS_getppid; // stands at both ends of the work, which has no use for it itself

// The process between its stops.
class Process {
public:
    explicit Process(Work const& work) : m_id(::fork())
    {
        if (m_id < 0)
            throw std::system_error(errno, std::generic_category(), "fork");
        if (m_id == 0)
            run(work);
        wait();
        if (WIFSTOPPED(m_status))
            ::ptrace(PTRACE_SETOPTIONS, m_id, nullptr, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL);
    }
    ~Process()
    {
        if (!hasEnded())
            kill();
    }
    Process(Process const&) = delete;
    Process& operator=(Process const&) = delete;

    bool hasEnded() const { return WIFEXITED(m_status) || WIFSIGNALED(m_status); }
    int status() const { return m_status; }

    // Goes on to the next system call, and stops before it; -1 where the process ended.
    long nextCall()
    {
        for (;;) {
            ::ptrace(PTRACE_SYSCALL, m_id, nullptr, nullptr);
            wait();
            if (hasEnded())
                return -1;
            __ptrace_syscall_info call = {};
            ::ptrace(PTRACE_GET_SYSCALL_INFO, m_id, sizeof call, &call);
            if (call.op == PTRACE_SYSCALL_INFO_ENTRY)
                return static_cast<long>(call.entry.nr);
        }
    }

    void kill()
    {
        ::kill(m_id, SIGKILL);
        while (!hasEnded())
            wait();
    }

private:
    [[noreturn]] static void run(Work const& work)
    {
        if (::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0)
            ::_exit(untraceable);
        ::raise(SIGSTOP);
        int status = 1;
        try {
            work.before();
            ::syscall(mark);
            work.work();
            ::syscall(mark);
            status = 0;
        } catch (...) { // the status tells
        }
        ::_exit(status);
    }

    void wait()
    {
        while (::waitpid(m_id, &m_status, 0) < 0 && errno == EINTR) {
        }
    }

    pid_t m_id;
    int m_status = 0;
};

// Stops at each call of the work, until `stop` says that it is enough.
template <typename Stop>
void follow(Work const& work, Stop const& stop)
{
    Process process(work);
    long call = 0;
    while (call != mark && call >= 0)
        call = process.nextCall();
    while (call >= 0 && (call = process.nextCall()) != mark && call >= 0)
        if (stop(call))
            return;
    while (!process.hasEnded())
        process.nextCall();
    if (!WIFEXITED(process.status()) || WEXITSTATUS(process.status()) != 0)
        throw std::runtime_error("the traced work failed");
}

} // namespace

bool isPossible()
{
    Work const nothing{[] {}, [] {}};
    try {
        return systemCalls(nothing).empty();
    } catch (std::runtime_error const&) {
        return false;
    }
}

std::vector<long> systemCalls(Work const& work)
{
    std::vector<long> result;
    follow(work, [&](long call) {
        result.push_back(call);
        return false;
    });
    return result;
}

bool killedAtCall(Work const& work, int nth)
{
    bool isKilled = false;
    follow(work, [&](long) { return isKilled = --nth == 0; });
    return isKilled;
}

bool reachedCall(Work const& work, int nth, std::function<void()> const& meanwhile)
{
    follow(work, [&](long) {
        if (--nth == 0)
            meanwhile();
        return false;
    });
    return nth <= 0;
}

} // namespace Traced
