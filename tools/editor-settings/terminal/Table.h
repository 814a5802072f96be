// SPDX-License-Identifier: MIT
//
// Answers on standard output: aligned for people, tab-separated for scripts, or as JSON.
#pragma once

#include <Inspection/JsonText.h>

#include <Catalogue/Catalogue.h>

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

enum class Format { people, plain, json };

using Columns = std::vector<std::string>;

/// Prints `table` below `heading`, aligned; for scripts without heading, the columns separated by tabs. In colour, the words
/// of the column `judging` have the one of what they say; without heading and without that, the first column is one.
void printTable(std::vector<Columns> table, Columns const& heading, Format format, std::optional<std::size_t> judging = std::nullopt);

/// Prints `text` and a line break: as it is for a program that reads it, but without what a terminal would obey where
/// standard output is one.
void printAsItIs(std::string const& text);

/// Prints the `jsonText` of `value`, indented.
void printJson(nlohmann::ordered_json const& value);

/// The value for a column. It may be long: people get the beginning, scripts the whole.
std::string inColumn(Catalogue::Value const& value, Format format);
