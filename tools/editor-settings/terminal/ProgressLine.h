// SPDX-License-Identifier: MIT
//
// How far something that takes long is.
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <mutex>
#include <string>
#include <thread>

/// One line on standard error about the step that is being done, where that is a terminal: from a second after the object
/// was made until it goes, which erases the line.
class Progress {
public:
    explicit Progress(std::size_t steps);
    ~Progress();
    Progress(Progress const&) = delete;
    Progress& operator=(Progress const&) = delete;

    /// The next step begins: `what` is being done, which is told unless it is empty.
    void next(std::string const& what);
    /// Tells the user something meanwhile, as `tell` does.
    void aside(std::string const& text);

private:
    void show();
    void erase();

    std::size_t const m_steps;
    std::size_t m_step = 0;
    std::mutex m_mutex;
    std::condition_variable m_end;
    bool m_isOver = false;
    std::string m_line;
    std::string m_shown;
    std::thread m_shower; // runs where the line can be shown
};
