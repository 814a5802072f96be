// SPDX-License-Identifier: MIT
#include "commands/values/Output.h"

#include "terminal/Escaping.h"

#include <nlohmann/json.hpp>

#include <iostream>

void printJson(nlohmann::ordered_json const& value) { std::cout << Inspection::jsonText(value, 2) << '\n'; }

nlohmann::ordered_json orNull(std::string const& text) { return text.empty() ? nlohmann::ordered_json() : nlohmann::ordered_json(text); }

std::string inColumn(Catalogue::Value const& value, Format format)
{
    std::string const line = onOneLine(value);
    return format == Format::people ? shortened(line, 120) : line;
}
