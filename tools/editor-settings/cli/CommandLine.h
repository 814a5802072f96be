// SPDX-License-Identifier: MIT
//
// The command line as a whole: from the arguments of the program to the exit status.
#pragma once

#include "commands/Command.h"

#include <string>
#include <vector>

/// What stands for every verb.
struct GlobalOptions {
    std::string color = "auto";
    bool withoutPager = false;
    std::string productFile;
    std::string home;
    bool allowsNetwork = false;

    /// The options that set these. The object must outlive the parsing.
    std::vector<Option> options();
};

/// Parses the arguments, runs the verb, and reports every error on standard error. Returns the exit status.
int runCommandLine(int argc, char** argv);
