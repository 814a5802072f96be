// SPDX-License-Identifier: MIT
//
// Values and JSON as the verbs print them.
#pragma once

#include "terminal/Table.h"

#include <Inspection/RowDifference.h>
#include <Inspection/ValueFormat.h>

#include <nlohmann/json_fwd.hpp>

#include <string>

/// Prints `value` indented, without raw control characters.
void printJson(nlohmann::ordered_json const& value);
/// A text as a JSON value, and null for an empty one.
nlohmann::ordered_json orNull(std::string const& text);

using Inspection::onOneLine;

/// The value for a column: its beginning for people, the whole for scripts.
std::string inColumn(Catalogue::Value const& value, Format format);
