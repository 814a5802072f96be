// SPDX-License-Identifier: MIT
#pragma once

#include "Judge.h"

#include <filesystem>
#include <string>
#include <vector>

#include <sys/types.h>

/// A process of the program studio-writer, killed with this object.
class Writer {
public:
    /// Starts it; what it prints goes to `file`.
    Writer(std::string const& connection, int first, std::filesystem::path file);
    ~Writer();
    Writer(Writer const&) = delete;
    Writer& operator=(Writer const&) = delete;

    /// How many of its changes have returned.
    long changes() const;
    /// Has it end after its change.
    void end();
    /// Ends it at once.
    void kill();
    /// What it did.
    std::vector<Step> steps() const;

private:
    void awaitEnd(int signal);

    std::filesystem::path m_file;
    pid_t m_process = -1;
};
