// SPDX-License-Identifier: MIT
//
// Commands that show what each verb is for, as its help and the manual tell them.
#pragma once

#include <string>
#include <vector>

struct Example {
    std::string command; ///< As it is typed in a shell.
    char const* effect;  ///< A sentence, which names the exit status where that is not 0.
};

/// The examples of the verb that the words `path` lead to, such as "next-name audio".
std::vector<Example> const& examplesOf(std::string const& path);

/// The same as the help shows them.
std::string helpExamples(std::string const& path);
