// SPDX-License-Identifier: MIT
#include "terminal/Escaping.h"

#include <absl/strings/str_cat.h>
#include <absl/strings/str_join.h>

#include <algorithm>
#include <iostream>

std::string quoted(std::string const& text) { return '\'' + onOneLine(text) + '\''; }

std::string quotedBriefly(std::string const& text) { return '\'' + shortened(onOneLine(text), 200) + '\''; }

std::size_t width(std::string const& text)
{
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char byte) { return (byte & 0xC0) != 0x80; }));
}

std::string shortened(std::string const& text, std::size_t codePoints)
{
    if (width(text) <= codePoints)
        return text;
    std::size_t end = 0;
    for (std::size_t taken = 0; taken < codePoints - 1; ++end)
        taken += (text[end + 1] & 0xC0) != 0x80;
    return text.substr(0, end) + "\xE2\x80\xA6";
}

void printError(std::string const& text) { std::cerr << "editor-settings: " << withoutControls(text) << '\n'; }

std::string joined(std::vector<std::string> const& words, std::string const& separator) { return absl::StrJoin(words, separator); }

std::string counted(std::size_t count, std::string const& noun) { return absl::StrCat(count, " ", noun, count == 1 ? "" : "s"); }
