// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>

/// Shows the step in progress on one line of standard error, provided that this is a capable terminal, and erases the line
/// at the end of its lifetime. Print nothing to that terminal meanwhile but with `aside`.
class Progress {
public:
    explicit Progress(std::size_t steps) : m_steps(steps) {}
    ~Progress() { erase(); }
    Progress(Progress const&) = delete;
    Progress& operator=(Progress const&) = delete;

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
