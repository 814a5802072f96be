// SPDX-License-Identifier: MIT
#include "terminal/ProgressLine.h"

#include "terminal/Escaping.h"
#include "terminal/Terminal.h"

#include <absl/strings/str_cat.h>

#include <iostream>

#include <unistd.h>

void ProgressLine::next(std::string const& what)
{
    erase();
    ++m_step;
    m_line = what.empty() ? what : absl::StrCat("editor-settings: step ", m_step, " of ", m_steps, ": ", what);
    show();
}

void ProgressLine::aside(std::string const& text)
{
    erase();
    printError(text);
    show();
}

void ProgressLine::show() const
{
    if (m_line.empty() || !Terminal::isCapable(STDERR_FILENO))
        return;
    // A line that wraps cannot be erased.
    std::size_t const columns = Terminal::columns(STDERR_FILENO);
    std::cerr << (columns > 1 ? shortened(m_line, columns - 1) : m_line) << std::flush;
}

void ProgressLine::erase() const
{
    if (!m_line.empty() && Terminal::isCapable(STDERR_FILENO))
        std::cerr << "\r\x1b[K" << std::flush;
}
