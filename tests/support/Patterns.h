// SPDX-License-Identifier: MIT
//
// Regular expressions, in ECMAScript's grammar. Each test program that used <regex> itself would take a second and a half longer
// to compile.
#pragma once

#include <string>
#include <vector>

/// Whether `pattern` matches the whole of `text`.
bool matches(std::string const& text, std::string const& pattern);

/// Whether `pattern` matches some part of `text`.
bool contains(std::string const& text, std::string const& pattern);

/// What the groups of `pattern` hold in each match in `text`, one after the other; "" for a group without a part in a match.
std::vector<std::string> captured(std::string const& text, std::string const& pattern);

/// `text` with `replacement`, where "$1" stands for what the first group holds, in the place of each match of `pattern`.
std::string replaced(std::string const& text, std::string const& pattern, std::string const& replacement);
