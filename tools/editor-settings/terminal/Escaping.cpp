// SPDX-License-Identifier: MIT
#include "terminal/Escaping.h"

#include <QByteArray>

#include <algorithm>
#include <iostream>

namespace {

unsigned byteAt(std::string const& text, std::size_t at) { return at < text.size() ? static_cast<unsigned char>(text[at]) : 0; }

// Those of ASCII, and those of Unicode that terminals obey as well.
bool isControl(std::string const& letter)
{
    unsigned const first = byteAt(letter, 0);
    return first < 0x20 || first == 0x7f || (first == 0xC2 && byteAt(letter, 1) < 0xA0);
}

std::string escaped(std::string const& letter)
{
    if (letter == "\t")
        return "\\t";
    if (letter == "\n")
        return "\\n";
    if (letter == "\r")
        return "\\r";
    std::string result;
    for (char const byte : letter)
        result += "\\x" + QByteArray(1, byte).toHex().toStdString();
    return result;
}

} // namespace

std::size_t lengthOfLetter(std::string const& text, std::size_t at)
{
    unsigned const first = byteAt(text, at);
    if (first < 0x80)
        return 1;
    unsigned const second = byteAt(text, at + 1);
    // Neither longer than need be, nor a half of a surrogate pair, nor beyond the last code point.
    unsigned const least = first == 0xE0 ? 0xA0 : first == 0xF0 ? 0x90 : 0x80;
    unsigned const greatest = first == 0xED ? 0x9F : first == 0xF4 ? 0x8F : 0xBF;
    if (first < 0xC2 || first > 0xF4 || second < least || second > greatest)
        return 0;
    std::size_t const length = first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
    for (std::size_t next = 2; next < length; ++next)
        if (byteAt(text, at + next) < 0x80 || byteAt(text, at + next) > 0xBF)
            return 0;
    return length;
}

std::string withoutControls(std::string const& text, std::string const& butFor)
{
    std::string result;
    for (std::size_t at = 0; at < text.size();) {
        std::size_t const length = lengthOfLetter(text, at);
        std::string const letter = text.substr(at, length == 0 ? 1 : length);
        bool const isKept = length > 0 && (!isControl(letter) || butFor.find(letter) != std::string::npos);
        result += isKept ? letter : escaped(letter);
        at += letter.size();
    }
    return result;
}

std::string onOneLine(std::string const& text)
{
    std::string doubled;
    for (char const character : text)
        doubled += character == '\\' ? "\\\\" : std::string(1, character);
    return withoutControls(doubled);
}

std::string quoted(std::string const& text) { return '\'' + onOneLine(text) + '\''; }

std::string quotedBriefly(std::string const& text) { return '\'' + shortened(onOneLine(text), 200) + '\''; }

std::size_t width(std::string const& text)
{
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char byte) { return (byte & 0xC0) != 0x80; }));
}

std::string shortened(std::string const& text, std::size_t letters)
{
    if (width(text) <= letters)
        return text;
    std::size_t end = 0;
    for (std::size_t taken = 0; taken < letters - 1; ++end)
        taken += (text[end + 1] & 0xC0) != 0x80;
    return text.substr(0, end) + "\xE2\x80\xA6";
}

void printError(std::string const& text) { std::cerr << "editor-settings: " << withoutControls(text) << '\n'; }

std::string joined(std::vector<std::string> const& words, std::string const& separator)
{
    std::string text;
    for (std::string const& word : words)
        text += (&word == &words.front() ? "" : separator) + word;
    return text;
}

std::string counted(std::size_t count, std::string const& noun) { return std::to_string(count) + ' ' + noun + (count == 1 ? "" : "s"); }
