// SPDX-License-Identifier: MIT
#pragma once

#include <nlohmann/json.hpp>

#include <string>

/// `value` as JSON text, without raw control characters of any kind. Text that is no UTF-8 gets replacement characters, as
/// JSON knows no other.
std::string jsonText(nlohmann::ordered_json const& value, int indent = -1);
