// SPDX-License-Identifier: MIT
//
// Values of preferences as a command line takes and shows them.
#pragma once

#include "terminal/Escaping.h"

#include <Catalogue/Catalogue.h>

#include <nlohmann/json.hpp>

#include <string>
#include <vector>

/// The type of a value: "bool", "int", "text", "bytes" or "list".
std::string typeName(Catalogue::Value const& value);
/// Its type in the library's interface, such as "QString".
std::string cppTypeName(Catalogue::Value const& value);
/// The kind that the stores keep such a value as: "bool", "int", "string" or "bytes".
std::string storedKind(Catalogue::Value const& value);

/// The value that `words` give for what is called `name`, of the type of `like`. Throws `UserError`, with what is accepted.
Catalogue::Value parsed(std::string const& name, Catalogue::Value const& like, std::vector<std::string> const& words);

/// The value that is in `file`, or on standard input where that is "-": the elements of a list on a line each, all else byte
/// for byte. Throws `UserError`.
Catalogue::Value parsedFile(std::string const& name, Catalogue::Value const& like, std::string const& file);

/// The value as text: bytes in base64, the elements of a list each on a line of its own.
std::string text(Catalogue::Value const& value);
/// The value as JSON: bytes as a base64 text, lists as arrays.
nlohmann::ordered_json toJson(Catalogue::Value const& value);
/// The value on one line, for scripts: a list as a JSON array, all else as its text.
std::string onOneLine(Catalogue::Value const& value);
