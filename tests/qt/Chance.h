// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

using Texts = std::vector<std::string>;

/// Choices that follow from the seed alone: the standard leaves its distributions to each library, but not this engine.
class Chance {
public:
    explicit Chance(std::uint64_t seed) : m_engine(seed) {}

    std::uint64_t any() { return m_engine(); }
    std::size_t below(std::size_t end) { return m_engine() % end; }
    bool oneIn(std::size_t count) { return below(count) == 0; }

    template <typename Choice>
    Choice const& of(std::vector<Choice> const& choices)
    {
        return choices[below(choices.size())];
    }

    /// Up to `most` of them, one after the other.
    std::string some(Texts const& choices, std::size_t most)
    {
        std::string result;
        for (std::size_t count = below(most + 1); count > 0; --count)
            result += of(choices);
        return result;
    }

private:
    std::mt19937_64 m_engine;
};
