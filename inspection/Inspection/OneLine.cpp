// SPDX-License-Identifier: MIT
#include <Inspection/OneLine.h>

#include <absl/strings/str_cat.h>
#include <absl/strings/str_replace.h>

namespace Inspection {

namespace {

unsigned byteAt(std::string const& text, std::size_t at) { return at < text.size() ? static_cast<unsigned char>(text[at]) : 0; }

// C0, DEL and C1: terminals obey all three.
bool isControlCharacter(std::string const& codePoint)
{
    unsigned const first = byteAt(codePoint, 0);
    return first < 0x20 || first == 0x7f || (first == 0xC2 && byteAt(codePoint, 1) < 0xA0);
}

// They reorder what a terminal shows, or break its line: U+061C, U+200E and F, U+2028 to U+202E, U+2066 to U+2069.
bool isDirectionMark(std::string const& codePoint)
{
    return codePoint == "\xD8\x9C" || codePoint == "\xE2\x80\x8E" || codePoint == "\xE2\x80\x8F" ||
           (codePoint >= "\xE2\x80\xA8" && codePoint <= "\xE2\x80\xAE") || (codePoint >= "\xE2\x81\xA6" && codePoint <= "\xE2\x81\xA9");
}

std::string escaped(std::string const& bytes)
{
    if (bytes == "\t")
        return "\\t";
    if (bytes == "\n")
        return "\\n";
    if (bytes == "\r")
        return "\\r";
    std::string result;
    for (char const byte : bytes)
        absl::StrAppend(&result, "\\x", absl::Hex(static_cast<unsigned char>(byte), absl::kZeroPad2));
    return result;
}

// The number of bytes of the UTF-8 code point that begins at `at`; 0 when none does.
std::size_t codePointLength(std::string const& text, std::size_t at)
{
    unsigned const first = byteAt(text, at);
    if (first < 0x80)
        return 1;
    unsigned const second = byteAt(text, at + 1);
    // These bounds exclude overlong forms, surrogates and what lies beyond U+10FFFF.
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

} // namespace

std::string withoutControls(std::string const& text, std::string const& kept)
{
    std::string result;
    for (std::size_t at = 0; at < text.size();) {
        std::size_t const length = codePointLength(text, at);
        std::string const codePoint = text.substr(at, length == 0 ? 1 : length);
        bool const isKept =
            length > 0 && !isDirectionMark(codePoint) && (!isControlCharacter(codePoint) || kept.find(codePoint) != std::string::npos);
        result += isKept ? codePoint : escaped(codePoint);
        at += codePoint.size();
    }
    return result;
}

std::string onOneLine(std::string const& text) { return withoutControls(absl::StrReplaceAll(text, {{"\\", "\\\\"}})); }

} // namespace Inspection
