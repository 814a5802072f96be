// SPDX-License-Identifier: MIT
//
// Where a location comes from: the variables of the environment, the lines of files and the fields that decide it.
#pragma once

#include <Inspection/Locations.h>

#include <Host/ToolApplication.h>

#include <optional>
#include <string>
#include <vector>

namespace Inspection {

/// One thing that decides a location. All texts are raw bytes.
struct Decision {
    enum class By {
        environment,   ///< A variable.
        userDirs,      ///< A line of user-dirs.dirs.
        productField,  ///< A field of the product file.
        resourcesRoot, ///< The folder that the product file names for resources.
        preference,    ///< A row of the product's store.
        library,       ///< The library alone.
        platform,      ///< A function of the platform library, for a reason that is not known.
        argument,      ///< The argument of the library's function, which is an absolute path.
    };
    /// Whether `value` decides, or why there is none that could.
    enum class Lookup {
        found,
        unset,
        empty,     ///< A variable that Qt takes for unset.
        otherKind, ///< A row that the library cannot read.
        noFile,
        unreadable, ///< `error` is the system's text.
    };

    By by = By::library;
    std::string name;                 ///< Of the variable, line, field, preference or function.
    std::optional<std::string> value; ///< nullopt for an unset one.
    std::string where = {};           ///< The file; empty where it is no file's.
    int line = 0;                     ///< The line in the file, from 1; 0 where no line decides.
    Lookup lookup = Lookup::found;
    /// The fallback: a path, relative to the home folder or absolute; of a preference, a location.
    std::string fallback = {};
    std::string error = {};
};

/// The word for JSON: "environment", "user-dirs.dirs", "product file", "preference", "library", "platform" or "argument".
char const* name(Decision::By by);
/// The file with the line, such as "/a/user-dirs.dirs, line 2"; empty where it is no file's.
std::string place(Decision const& decision);
/// The whole decision as a sentence, in raw bytes.
std::string text(Decision const& decision);

/// What decides where `location` lies now, what decides most first. Reads the environment, user-dirs.dirs and the store.
std::vector<Decision> decisions(Host::ToolApplication const& application, LocationState const& location);

} // namespace Inspection
