// SPDX-License-Identifier: MIT
//
// Values and JSON as the verbs print them.
#pragma once

#include "terminal/Table.h"

#include <Catalogue/Catalogue.h>
#include <Storage/SqliteStorage.h>

#include <nlohmann/json.hpp>

#include <optional>
#include <string>

/// Prints `value` indented, without raw control characters.
void printJson(nlohmann::ordered_json const& value);

/// The value on one line, for scripts: a list as a JSON array, any other value as its escaped text.
std::string onOneLine(Catalogue::Value const& value);

/// A stored value likewise; `absent` for nullopt.
std::string onOneLine(std::optional<Storage::SqliteStorage::Row> const& row, std::string const& absent);

/// The value for a column: its beginning for people, the whole for scripts.
std::string inColumn(Catalogue::Value const& value, Format format);
