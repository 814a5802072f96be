// SPDX-License-Identifier: MIT
#pragma once

#include <cstdlib>
#include <optional>
#include <string>

/// Homes of tests are made where a file system keeps what it is given, which the folder of temporary files may not be. To
/// be a base before the one that makes the home.
class LastingFolder {
public:
    LastingFolder() { ::setenv("TMPDIR", "/var/tmp", 1); }
    ~LastingFolder()
    {
        if (m_earlier)
            ::setenv("TMPDIR", m_earlier->c_str(), 1);
        else
            ::unsetenv("TMPDIR");
    }
    LastingFolder(LastingFolder const&) = delete;
    LastingFolder& operator=(LastingFolder const&) = delete;

private:
    std::optional<std::string> const m_earlier = std::getenv("TMPDIR") ? std::optional<std::string>(std::getenv("TMPDIR")) : std::nullopt;
};
