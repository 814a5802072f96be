// SPDX-License-Identifier: MIT
#include <Inspection/Locations.h>

#include "terminal/Escaping.h"

#include <algorithm>

using Catalogue::Location;
using Catalogue::Preference;
using Catalogue::Use;

std::string LocationState::label() const { return argument.empty() ? name : name + '(' + onOneLine(argument) + ')'; }

LocationState locationState(Preference const& preference)
{
    return {preference.name, {}, std::get<QString>(preference.read()), Use::written, &Catalogue::locationOf(preference.computedDefault),
            &preference};
}

LocationState locationState(Location const& place, std::string const& argument)
{
    return {place.name, argument, place.path(argument), place.use, &place};
}

std::vector<LocationState> locationStates()
{
    std::vector<LocationState> states;
    for (Preference const& row : Catalogue::preferences())
        if (row.computedDefault)
            states.push_back(locationState(row));
    for (Location const& place : Catalogue::locations()) {
        if (place.arguments.empty())
            states.push_back(locationState(place, {}));
        for (std::string const& argument : place.arguments)
            states.push_back(locationState(place, argument));
    }
    std::stable_sort(states.begin(), states.end(),
                     [](LocationState const& left, LocationState const& right) { return left.name < right.name; });
    return states;
}

std::vector<std::string> locationNames()
{
    std::vector<std::string> names;
    for (Preference const& row : Catalogue::preferences())
        if (row.computedDefault)
            names.push_back(row.name);
    for (Location const& place : Catalogue::locations())
        names.push_back(place.name);
    std::sort(names.begin(), names.end());
    return names;
}

std::vector<WrittenFolder> foldersToWrite()
{
    std::vector<WrittenFolder> folders;
    for (LocationState const& location : locationStates())
        if (location.use == Use::written && !location.isExample())
            folders.push_back({location.label(), location.path, writtenFolderStatus(location.path)});
    return folders;
}
