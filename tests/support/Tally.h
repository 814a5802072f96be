// SPDX-License-Identifier: MIT
//
// What a test did how often and what was lost: the rows of the report on reliability; and what its choices start from.
#pragma once

#include <cstdlib>
#include <fstream>
#include <string>

/// EDITOR_SETTINGS_THOROUGH: 0 for the everyday form of tests, 1 for the long one, 2 for the one that takes many minutes.
inline int thoroughness()
{
    char const* const asked = std::getenv("EDITOR_SETTINGS_THOROUGH");
    return asked ? std::atoi(asked) : 0;
}

/// Whether the long form is asked for.
inline bool thorough() { return thoroughness() > 0; }

/// How often a test does something: `shortCount` in the everyday form, `longCount` in the long one.
inline int times(int shortCount, int longCount) { return thorough() ? longCount : shortCount; }

/// As above, with `soakCount` in the longest form.
inline int times(int shortCount, int longCount, int soakCount) { return thoroughness() > 1 ? soakCount : times(shortCount, longCount); }

/// Adds "what<TAB>done<TAB>lost" to the file that EDITOR_SETTINGS_RELIABILITY names. Where none is named, does nothing.
inline void tally(std::string const& what, long long done, long long lost)
{
    char const* const file = std::getenv("EDITOR_SETTINGS_RELIABILITY");
    if (!file || !*file)
        return;
    // In one write at the end of the file, so that tests that run at once keep their lines whole.
    std::ofstream(file, std::ios::app) << what + '\t' + std::to_string(done) + '\t' + std::to_string(lost) + '\n';
}

/// What a test's random choices start from; EDITOR_SETTINGS_SEED gives another one.
inline unsigned seed()
{
    char const* const given = std::getenv("EDITOR_SETTINGS_SEED");
    return given ? static_cast<unsigned>(std::strtoul(given, nullptr, 10)) : 1;
}
