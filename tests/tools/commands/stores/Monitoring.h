// SPDX-License-Identifier: MIT
#pragma once

#include <tools/commands/Tool.h>

#include <chrono>
#include <csignal>
#include <fstream>
#include <iterator>
#include <thread>
#include <utility>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

/// The monitor, running in the background with its outputs in files.
template <typename Fixture>
class Monitoring : public Fixture {
protected:
    ~Monitoring() override
    {
        if (m_process > 0) {
            ::kill(m_process, SIGKILL);
            ::waitpid(m_process, nullptr, 0);
        }
    }

    void start(std::vector<std::string> const& options = {}) { start(options, this->inHome("out")); }

    void start(std::vector<std::string> const& options, std::string const& output)
    {
        std::vector<std::string> words = {TOOL, "monitor"};
        words.insert(words.end(), options.begin(), options.end());
        m_process = ::fork();
        if (m_process == 0) {
            ::dup2(::open(output.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600), STDOUT_FILENO);
            ::dup2(::open(this->inHome("err").c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600), STDERR_FILENO);
            std::vector<char*> arguments;
            for (std::string& word : words)
                arguments.push_back(word.data());
            arguments.push_back(nullptr);
            ::execv(TOOL, arguments.data());
            ::_exit(127);
        }
    }

    static std::size_t timesIn(std::string const& text, std::string const& part)
    {
        std::size_t times = 0;
        for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
            ++times;
        return times;
    }

    static std::string content(std::string const& file)
    {
        std::ifstream stream(file);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    // Waits until `file` holds `text` so many times; the whole of it then, or what it held after a minute.
    std::string awaited(char const* file, std::string const& text, std::size_t times = 1) const
    {
        for (int time = 0; time < 6000 && timesIn(content(this->inHome(file)), text) < times; ++time)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        return content(this->inHome(file));
    }

    void awaitReady(std::string const& watched = "both stores") const
    {
        EXPECT_EQ(awaited("err", "ends it\n"), "editor-settings: watching " + watched + "; Ctrl+C ends it\n");
    }

    int statusAfter(int signal)
    {
        ::kill(m_process, signal);
        int status = 0;
        ::waitpid(std::exchange(m_process, -1), &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    }

private:
    pid_t m_process = -1;
};
