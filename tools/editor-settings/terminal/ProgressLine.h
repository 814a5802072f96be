// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>

/// Shows the step in progress on one line of standard error, provided that this is a capable terminal, and erases the line
/// at the end of its lifetime. Print nothing to that terminal meanwhile but with `aside`.
class ProgressLine {
public:
    explicit ProgressLine(std::size_t steps) : m_steps(steps) {}
    ~ProgressLine() { erase(); }
    ProgressLine(ProgressLine const&) = delete;
    ProgressLine& operator=(ProgressLine const&) = delete;

    /// Begins the next step and shows `what`; an empty `what` shows nothing.
    void next(std::string const& what);
    /// Prints an error, as `printError` does, on a line of its own.
    void aside(std::string const& text);

private:
    void show() const;
    void erase() const;

    std::size_t const m_steps;
    std::size_t m_step = 0;
    std::string m_line;
};
