// SPDX-License-Identifier: MIT
#include <support/Json.h>

#include <ostream>

json parsed(std::string const& text) { return json::parse(text); }

namespace nlohmann {

void PrintTo(json const& value, std::ostream* out) { *out << value; }

} // namespace nlohmann
