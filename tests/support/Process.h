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

/// The lines of `text`, without their ends.
std::vector<std::string> lines(std::string const& text);

/// Runs `work` in a forked process, as an ordinary user where this one is root, and returns the text that it returned,
/// or the text of the exception that it threw. What is not an ordinary user's to do fails there as it should.
std::string inChild(std::function<std::string()> const& work, bool asOrdinaryUser = false);

/// The user and group that an ordinary user's process runs as where this one is root.
constexpr unsigned ordinaryUser = 65534;
