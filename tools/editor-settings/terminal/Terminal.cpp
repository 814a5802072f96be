// SPDX-License-Identifier: MIT
#include "terminal/Terminal.h"

#include <cstdlib>

#include <sys/ioctl.h>
#include <unistd.h>

namespace {

Terminal::Colors chosen = Terminal::Colors::automatic;

bool isSet(char const* variable)
{
    char const* const value = std::getenv(variable);
    return value && *value != '\0';
}

bool isPainting()
{
    if (chosen == Terminal::Colors::automatic)
        return !isSet("NO_COLOR") && Terminal::isCapable(STDOUT_FILENO);
    return chosen == Terminal::Colors::always;
}

char const* codeOf(Terminal::Style style)
{
    switch (style) {
    case Terminal::Style::normal:
        break;
    case Terminal::Style::heading:
        return "\x1b[1m";
    case Terminal::Style::good:
        return "\x1b[32m";
    case Terminal::Style::odd:
        return "\x1b[33m";
    case Terminal::Style::bad:
        return "\x1b[31m";
    }
    return "";
}

} // namespace

bool Terminal::is(int stream) { return ::isatty(stream) == 1; }

bool Terminal::isCapable(int stream) { return is(stream) && isSet("TERM") && std::getenv("TERM") != std::string("dumb"); }

std::size_t Terminal::columns(int stream)
{
    winsize size = {};
    return ::ioctl(stream, TIOCGWINSZ, &size) == 0 ? size.ws_col : 0;
}

void Terminal::chooseColors(Colors colors) { chosen = colors; }

bool Terminal::isLookedAt() { return is(STDOUT_FILENO) || chosen == Colors::always; }

std::string Terminal::painted(std::string const& text, Style style)
{
    std::string const code = codeOf(style);
    return code.empty() || text.empty() || !isPainting() ? text : code + text + "\x1b[0m";
}
