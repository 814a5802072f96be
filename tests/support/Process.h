// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

/// How a program ended and what it printed.
struct Ended {
    int status = -1; ///< The exit status; 128 and the signal's number where a signal ended it.
    std::string out;
    std::string err;
};

/// Runs the program `command[0]` with the other elements as its arguments and waits for its end. `environment` is added
/// to the one of this process; standard input is empty. Throws `std::system_error` where it cannot be started.
Ended run(std::vector<std::string> const& command, std::map<std::string, std::string> const& environment = {});

/// `command` so that the rights of files count for it also where this process is root.
std::vector<std::string> withoutPrivileges(std::vector<std::string> command);

/// The lines of `text`, without their ends.
std::vector<std::string> lines(std::string const& text);

/// A forked process that does `work`, as an ordinary user where this one is root and `asOrdinaryUser` asks for it: what
/// is not an ordinary user's to do fails there as it should. To be started while no other thread runs, as a fork takes
/// over their locks but not them.
class Child {
public:
    explicit Child(std::function<std::string()> const& work, bool asOrdinaryUser = false);
    Child(Child const&) = delete;
    Child& operator=(Child const&) = delete;

    /// Waits for the end; the text that `work` returned, or that of the exception that it threw. To be called once.
    std::string answer();

private:
    int m_process = -1;
    int m_answer = -1;
};

/// `Child(work, asOrdinaryUser).answer()`
std::string inChild(std::function<std::string()> const& work, bool asOrdinaryUser = false);

/// The user and group that an ordinary user's process runs as where this one is root.
constexpr unsigned ordinaryUser = 65534;
