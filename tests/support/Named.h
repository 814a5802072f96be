// SPDX-License-Identifier: MIT
#pragma once

#include <string>

/// Names the tests of a table by the meanings of its rows.
inline constexpr auto byMeaning = [](auto const& test) { return std::string(test.param.meaning); };
