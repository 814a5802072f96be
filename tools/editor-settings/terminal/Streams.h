// SPDX-License-Identifier: MIT
//
// Standard output that loses nothing without a word.
#pragma once

#include <array>
#include <iostream>
#include <streambuf>
#include <string>

/// Takes the place of each standard stream that the caller closed, so that no file gets its number: what is written to
/// standard output then fails, as it should, and does not end in a store. To be called before any file is opened.
void holdStandardStreams();

/// While the object lives, `std::cout` writes to standard output through it, and the first failure is kept.
class StandardOutput final : public std::streambuf {
public:
    StandardOutput() { setp(m_buffer.data(), m_buffer.data() + m_buffer.size()); }
    ~StandardOutput() override { std::cout.rdbuf(m_earlier); }
    StandardOutput(StandardOutput const&) = delete;
    StandardOutput& operator=(StandardOutput const&) = delete;

    /// Writes what is left. Why not all that was printed is written, in the system's words; empty where it is.
    std::string trouble();

protected:
    int_type overflow(int_type character) override;
    int sync() override;

private:
    std::array<char, 1 << 16> m_buffer = {};
    int m_error = 0;
    std::streambuf* const m_earlier = std::cout.rdbuf(this);
};
