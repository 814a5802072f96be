// SPDX-License-Identifier: MIT
//
// The verb about locations.
#pragma once

#include "terminal/Table.h"

#include <Host/Application.h>

#include <string>
#include <vector>

enum class PathsView {
    list,    ///< What each location gives now.
    explain, ///< What decides it.
    check,   ///< Whether it can be used.
};

struct PathsOptions {
    std::string name;     ///< Of one location, or a pattern with the wildcards of a shell; empty for all.
    std::string argument; ///< For a location that takes one.
    PathsView view = PathsView::list;
};

/// Prints the locations. Throws `UserError` for an unknown one, and after a check where the editor cannot use one that it
/// writes to.
void showPaths(Host::Application const& application, PathsOptions const& options, Format format);
