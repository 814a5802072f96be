// SPDX-License-Identifier: MIT
//
// The editor's locations as they are now: the catalogue's, and the folder preferences, which fall back on one of those.
#pragma once

#include <Inspection/PathStatus.h>

#include <Catalogue/Catalogue.h>

#include <QString>

#include <string>
#include <vector>

/// A location with all that is known of it.
struct LocationState {
    std::string name;
    std::string argument; ///< What it is asked about; empty where it takes nothing.
    QString path;         ///< What the library answers now; null where it finds none.
    Catalogue::Use use;
    Catalogue::Location const* place; ///< Of a folder preference, the one that it falls back on.
    Catalogue::Preference const* preference = nullptr;

    /// The name, with the argument in parentheses.
    std::string label() const;
    /// Whether the location takes any name, so that the listed one is an example.
    bool isExample() const { return place->arguments.size() == 1; }
};

/// What `place` gives for `argument`.
LocationState locationState(Catalogue::Location const& place, std::string const& argument);
/// What a folder preference gives.
LocationState locationState(Catalogue::Preference const& preference);
/// All locations, sorted by name.
std::vector<LocationState> locationStates();
/// The names of all locations, sorted.
std::vector<std::string> locationNames();

/// A folder that the editor writes to.
struct WrittenFolder {
    std::string label;
    QString path;
    PathStatus check;
};

/// All of them, sorted by name.
std::vector<WrittenFolder> foldersToWrite();
