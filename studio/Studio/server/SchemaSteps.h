// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace Studio {

/// The steps from an empty database to the newest schema, each as SQL: the files of `schema/`. Step N makes version N.
std::vector<std::string> const& schemaSteps();

} // namespace Studio
