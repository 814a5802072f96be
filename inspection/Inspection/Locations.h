// SPDX-License-Identifier: MIT
//
// The editor's locations as they are now: the catalogue's rows, and the folder preferences, whose default is one of those.
#pragma once

#include <Inspection/PathStatus.h>

#include <Catalogue/Catalogue.h>

#include <QString>

#include <string>
#include <vector>

namespace Inspection {

/// A location with the path that the library returns for it.
struct LocationState {
    std::string name;
    std::string argument; ///< The argument of the library's function, in UTF-8; empty where that takes none.
    QString path;         ///< Null where the library finds none.
    Catalogue::Use use;
    Catalogue::Location const* location;               ///< Of a folder preference: its default.
    Catalogue::Preference const* preference = nullptr; ///< Null where the location is no preference.

    /// The name, with the argument in parentheses; raw bytes.
    std::string label() const { return argument.empty() ? name : name + '(' + argument + ')'; }
    /// Whether the location takes any name, so that the listed one is an example.
    bool isExample() const { return location->arguments.size() == 1; }
    /// Whether the path by itself is a place on disk.
    bool isOnDisk() const { return use != Catalogue::Use::fragment && use != Catalogue::Use::embedded; }
    /// What the path leads to, asked as `use` needs it.
    PathStatus status(PathLook const& look = statusOnDisk) const;
};

/// What the library returns for `argument`.
LocationState locationState(Catalogue::Location const& location, std::string const& argument);
/// What the library returns for a folder preference.
LocationState locationState(Catalogue::Preference const& preference);
/// All locations, sorted by name.
std::vector<LocationState> locationStates();
/// The names of all locations, sorted; needs no binding.
std::vector<std::string> locationNames();

/// A folder that the editor writes to: of a location, a preference or a declared key.
struct WrittenFolder {
    std::string label;
    QString path;
    PathStatus check;
    bool isPreference; ///< Else no preference moves it.
};

/// All of them, sorted by name. The library must be bound.
std::vector<WrittenFolder> foldersToWrite(PathLook const& look = statusOnDisk);

} // namespace Inspection
