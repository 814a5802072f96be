// SPDX-License-Identifier: MIT
//
// Long answers, a screen at a time.
#pragma once

#include <iostream>
#include <sstream>

/// While the object lives, what is printed to `std::cout` is kept; when it goes, that is printed, also where an error is on
/// its way. What is longer than the terminal that standard output is goes through the program that EDITOR_SETTINGS_PAGER
/// names, else PAGER, else "less"; an empty name and "cat" stand for none. Whoever leaves it early does nothing wrong.
class Pager {
public:
    Pager() = default;
    ~Pager();
    Pager(Pager const&) = delete;
    Pager& operator=(Pager const&) = delete;

    /// Whether standard output is a terminal that a pager works on.
    static bool isOfUse();

private:
    std::stringbuf m_kept;
    std::streambuf* const m_earlier = std::cout.rdbuf(&m_kept);
};
