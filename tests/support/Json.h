// SPDX-License-Identifier: MIT
//
// JSON in tests, read and printed by functions that are compiled once, as their templates would cost each test program half a
// second.
#pragma once

#include <nlohmann/json.hpp>

#include <iosfwd>
#include <string>

using nlohmann::json;

/// The value that `text` tells. Throws `json::parse_error`.
json parsed(std::string const& text);

namespace nlohmann {

/// What GoogleTest prints a value with.
void PrintTo(json const& value, std::ostream* out);

} // namespace nlohmann
