// SPDX-License-Identifier: MIT
//
// Texts for users.
#pragma once

#include <stdexcept>
#include <string>
#include <vector>

/// What the tool says no to; the text goes to the user. The exit status is then 1.
class UserError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// `text` on one line: backslash, tab and line breaks as `\\`, `\t`, `\n` and `\r`, the bytes of other control characters
/// and those that are no UTF-8 as `\xHH`.
std::string onOneLine(std::string const& text);
/// As `onOneLine`, but backslashes stay as they are, and so does each control character in `butFor`: for what people read.
std::string withoutControls(std::string const& text, std::string const& butFor = {});
/// `text` within single quotes, for messages.
std::string quoted(std::string const& text);
/// As `quoted`, with the beginning of a long `text` only: for words that the user gave a moment ago.
std::string quotedBriefly(std::string const& text);
/// The first letters of `text` and an ellipsis where it has more than `letters`.
std::string shortened(std::string const& text, std::size_t letters);
/// The number of code points: the columns that `text` takes in every script whose letters are one column wide.
std::size_t width(std::string const& text);
/// The bytes of the letter of UTF-8 that begins at `at`; 0 where none does.
std::size_t lengthOfLetter(std::string const& text, std::size_t at);
/// Tells the user something on standard error, on one line.
void printError(std::string const& text);
/// `count` and `noun`, which takes an "s" unless `count` is 1: "3 values".
std::string counted(std::size_t count, std::string const& noun);
/// `words` with `separator` between each two.
std::string joined(std::vector<std::string> const& words, std::string const& separator);
