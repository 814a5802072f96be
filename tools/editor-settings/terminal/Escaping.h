// SPDX-License-Identifier: MIT
//
// Escapes for messages and columns.
#pragma once

#include <Inspection/OneLine.h>

#include <stdexcept>
#include <string>
#include <vector>

using Inspection::onOneLine;
using Inspection::withoutControls;

/// An error whose text is for the user. Unless it is caught, the exit status is 1.
class UserError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// `onOneLine(text)` in single quotes, for messages.
std::string quoted(std::string const& text);
/// As `quoted`, shortened to 200 code points: for an argument that the user just typed.
std::string quotedBriefly(std::string const& text);
/// `text` cut to at most `codePoints`, the last of which is then an ellipsis. `text` is UTF-8, `codePoints` at least 1.
std::string shortened(std::string const& text, std::size_t codePoints);
/// The number of code points in `text`, which is UTF-8: the columns of an escaped text, unless it has wide or combining characters.
std::size_t width(std::string const& text);
/// Prints "editor-settings: " and `text`, escaped, on standard error.
void printError(std::string const& text);
/// `count` and `noun`, with an "s" unless `count` is 1: "3 values".
std::string counted(std::size_t count, std::string const& noun);
/// `words` with `separator` between each two.
std::string joined(std::vector<std::string> const& words, std::string const& separator);
