// SPDX-License-Identifier: MIT
//
// Where a location comes from: the variables of the environment, the lines of files and the fields that decide it.
#pragma once

#include <Catalogue/Catalogue.h>
#include <Host/Application.h>

#include <optional>
#include <string>
#include <vector>

/// One thing that decides a location.
struct Decision {
    std::string by;   ///< "environment", "user-dirs.dirs", "product file", "preference", "library", "platform" or "argument".
    std::string name; ///< Of the variable, line, field, preference or function.
    std::optional<std::string> value; ///< None where it is not set.
    std::string where;                ///< The file, with the line where there is one; empty for the environment.
    std::string text;                 ///< All of it, for people.
};

/// What decides where `place` lies now, the root first.
std::vector<Decision> decisions(Host::Application const& application, Catalogue::Location const& place);
