// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace Names {

/// "stem1end" to "stemNend".
inline std::vector<std::string> numbered(std::string const& stem, int count, std::string const& end)
{
    std::vector<std::string> result;
    for (int number = 1; number <= count; ++number)
        result.push_back(stem + std::to_string(number) + end);
    return result;
}

inline std::vector<std::string> recordings(int count) { return numbered("Rec-", count, "-2024.03.09-17.05.31.wav"); }
inline std::vector<std::string> freezeFrames(std::string const& stem, int count) { return numbered(stem + " (", count, ").png"); }
inline std::vector<std::string> stabilized(std::string const& stem, int count) { return numbered(stem + '-', count, ".mp4"); }

/// How many freeze frames of one source lie in a folder where a free name is looked for.
inline std::vector<int> takenCounts(bool isShort) { return isShort ? std::vector{500} : std::vector{500, 5000, 50000}; }

inline std::string takenRow(int count, std::string const& place) { return "freeze frame, " + std::to_string(count) + " taken, " + place; }

} // namespace Names
