// SPDX-License-Identifier: MIT
#include "terminal/ProgressLine.h"

#include "terminal/Escaping.h"
#include "terminal/Terminal.h"

#include <absl/strings/str_cat.h>

#include <iostream>

#include <unistd.h>

namespace {

constexpr std::chrono::seconds untilItIsShown(1);
constexpr std::chrono::milliseconds betweenLooks(100);

// What fits on one line: one that goes on below cannot be written over.
std::string fitting(std::string const& line)
{
    std::size_t const columns = Terminal::size(STDERR_FILENO).columns;
    std::string result = line;
    for (std::size_t letters = width(line); columns > 1 && letters > 1 && Terminal::columns(result) >= columns; --letters)
        result = shortened(line, letters);
    return result;
}

} // namespace

Progress::Progress(std::size_t steps) : m_steps(steps)
{
    if (Terminal::isCapable(STDERR_FILENO))
        m_shower = std::thread([this] { show(); });
}

Progress::~Progress()
{
    if (!m_shower.joinable())
        return;
    {
        std::lock_guard const lock(m_mutex);
        m_isOver = true;
    }
    m_end.notify_one();
    m_shower.join();
}

void Progress::next(std::string const& what)
{
    if (!m_shower.joinable())
        return;
    std::lock_guard const lock(m_mutex);
    std::string const step = std::to_string(++m_step);
    m_line = what.empty() ? what : "editor-settings: " + absl::StrCat("step ", step, " of ", m_steps, ": ", what);
}

void Progress::aside(std::string const& text)
{
    std::lock_guard const lock(m_mutex);
    erase();
    printError(text);
}

void Progress::show()
{
    std::unique_lock lock(m_mutex);
    auto const isOver = [this] { return m_isOver; };
    for (bool ended = m_end.wait_for(lock, untilItIsShown, isOver); !ended; ended = m_end.wait_for(lock, betweenLooks, isOver)) {
        if (m_line == m_shown)
            continue;
        erase();
        m_shown = m_line;
        std::cerr << fitting(m_line) << std::flush;
    }
    erase();
}

void Progress::erase()
{
    if (!m_shown.empty())
        std::cerr << "\r\x1b[K" << std::flush;
    m_shown.clear();
}
