// SPDX-License-Identifier: MIT
//
// Texts for users.
#pragma once

#include <stdexcept>
#include <string>
#include <vector>

/// What the tool says no to; the text goes to the user. The exit status is then 1.
class Refusal : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// `text` on one line: backslash, tab and line breaks as `\\`, `\t`, `\n` and `\r`, other control characters as `\xHH`.
std::string onOneLine(std::string const& text);
/// `text` within single quotes, for messages.
std::string quoted(std::string const& text);
/// Whether `text` comes back unchanged from the library's texts: UTF-8 that does not begin with a byte order mark.
bool isUtf8(std::string const& text);
/// `words` with `separator` between each two.
std::string joined(std::vector<std::string> const& words, std::string const& separator);
