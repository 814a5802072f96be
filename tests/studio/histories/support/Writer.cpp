// SPDX-License-Identifier: MIT
#include "Writer.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <fstream>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

Writer::Writer(std::string const& connection, int first, std::filesystem::path file) : m_file(std::move(file))
{
    std::string const number = std::to_string(first);
    m_process = ::fork();
    if (m_process < 0)
        throw std::system_error(errno, std::generic_category(), "fork");
    if (m_process == 0) {
        ::dup2(::open(m_file.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600), STDOUT_FILENO);
        ::execl(WRITER, WRITER, connection.c_str(), number.c_str(), nullptr);
        ::_exit(127);
    }
}

Writer::~Writer() { kill(); }

void Writer::awaitEnd(int signal)
{
    if (m_process < 0)
        return;
    ::kill(m_process, signal);
    ::waitpid(m_process, nullptr, 0);
    m_process = -1;
}

void Writer::end() { awaitEnd(SIGTERM); }
void Writer::kill() { awaitEnd(SIGKILL); }

// The only word that it prints with a "c" in it is "changed".
long Writer::changes() const
{
    std::ifstream stream(m_file);
    return std::count(std::istreambuf_iterator<char>(stream), {}, 'c');
}

std::vector<Step> Writer::steps() const
{
    std::vector<Step> result;
    std::ifstream stream(m_file);
    for (std::string line; std::getline(stream, line);) {
        std::size_t const key = line.find(' ') + 1;
        std::size_t const value = line.rfind(' ');
        std::string const word = line.substr(0, key - 1);
        Step step{word == "changed" ? Step::Kind::changed : word == "doubted" ? Step::Kind::doubted : Step::Kind::refused};
        step.key = line.substr(key, value - key);
        step.value = std::stoi(line.substr(value + 1));
        result.push_back(step);
    }
    return result;
}
