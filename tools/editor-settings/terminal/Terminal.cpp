// SPDX-License-Identifier: MIT
#include "terminal/Terminal.h"

#include "terminal/Escaping.h"

#include <QString>
#include <QVector>

#include <cstdlib>

#include <locale.h>
#include <sys/ioctl.h>
#include <unistd.h>
#include <wchar.h>

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

// The rules of UTF-8 for this thread, whatever the locale of the user: texts are in UTF-8 in each.
class RulesOfUtf8 {
public:
    RulesOfUtf8() : m_earlier(rules() ? ::uselocale(rules()) : locale_t()) {}
    ~RulesOfUtf8()
    {
        if (m_earlier)
            ::uselocale(m_earlier);
    }
    RulesOfUtf8(RulesOfUtf8 const&) = delete;
    RulesOfUtf8& operator=(RulesOfUtf8 const&) = delete;

    static locale_t rules()
    {
        static locale_t const utf8 = ::newlocale(LC_CTYPE_MASK, "C.UTF-8", locale_t());
        return utf8;
    }

private:
    locale_t m_earlier;
};

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

Terminal::Size Terminal::size(int stream)
{
    winsize told = {};
    return ::ioctl(stream, TIOCGWINSZ, &told) == 0 ? Size{told.ws_row, told.ws_col} : Size();
}

std::size_t Terminal::columns(std::string const& text)
{
    if (!RulesOfUtf8::rules())
        return width(text);
    RulesOfUtf8 const rules;
    std::size_t result = 0;
    QVector<uint> const letters = QString::fromStdString(text).toUcs4();
    for (uint const letter : letters) {
        int const taken = ::wcwidth(static_cast<wchar_t>(letter));
        result += taken < 0 ? 1 : static_cast<std::size_t>(taken);
    }
    return result;
}

void Terminal::chooseColors(Colors colors) { chosen = colors; }

bool Terminal::isLookedAt() { return is(STDOUT_FILENO) || chosen == Colors::always; }

std::string Terminal::painted(std::string const& text, Style style)
{
    std::string const code = codeOf(style);
    return code.empty() || text.empty() || !isPainting() ? text : code + text + "\x1b[0m";
}
