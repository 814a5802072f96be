// SPDX-License-Identifier: MIT
//
// Pages long answers.
#pragma once

#include <iostream>
#include <sstream>

/// Collects what is printed to `std::cout` and pages it at the end of its lifetime, also while an exception unwinds. The
/// pager is the command in EDITOR_SETTINGS_PAGER, else in PAGER, else "less", which ends by itself when the text fits on the
/// screen; an empty command, "cat" and a pager that cannot be started print the text directly. The pager's exit status does
/// not count.
class Pager {
public:
    Pager() = default;
    ~Pager();
    Pager(Pager const&) = delete;
    Pager& operator=(Pager const&) = delete;

    /// Whether standard output is a terminal on which a pager works.
    static bool isOfUse();

private:
    std::stringbuf m_kept;
    std::streambuf* const m_earlier = std::cout.rdbuf(&m_kept);
};
