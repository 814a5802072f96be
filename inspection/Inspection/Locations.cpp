// SPDX-License-Identifier: MIT
#include <Inspection/Locations.h>

#include <algorithm>

using Catalogue::Location;
using Catalogue::Preference;
using Catalogue::Use;

namespace Inspection {

PathStatus LocationState::status() const
{
    PathStatus notOnDisk;
    if (path.isNull()) {
        notOnDisk.reason = PathReason::noPath;
        return notOnDisk;
    }
    switch (use) {
    case Use::written:
        return writtenFolderStatus(path);
    case Use::fallback:
    case Use::shipped:
        return readPathStatus(path);
    case Use::fragment:
    case Use::embedded:
        break;
    }
    notOnDisk.reason = use == Use::fragment ? PathReason::joined : PathReason::embedded;
    return notOnDisk;
}

LocationState locationState(Preference const& preference)
{
    return {preference.name, {}, std::get<QString>(preference.read()), Use::written, &Catalogue::locationOf(preference.computedDefault),
            &preference};
}

LocationState locationState(Location const& location, std::string const& argument)
{
    return {location.name, argument, location.path(argument), location.use, &location};
}

std::vector<LocationState> locationStates()
{
    std::vector<LocationState> states;
    for (Preference const& row : Catalogue::preferences())
        if (row.computedDefault)
            states.push_back(locationState(row));
    for (Location const& row : Catalogue::locations()) {
        if (row.arguments.empty())
            states.push_back(locationState(row, {}));
        for (std::string const& argument : row.arguments)
            states.push_back(locationState(row, argument));
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
    for (Location const& row : Catalogue::locations())
        names.push_back(row.name);
    std::sort(names.begin(), names.end());
    return names;
}

std::vector<WrittenFolder> foldersToWrite()
{
    std::vector<WrittenFolder> folders;
    for (LocationState const& state : locationStates())
        if (state.use == Use::written && !state.isExample())
            folders.push_back({state.label(), state.path, writtenFolderStatus(state.path), state.preference != nullptr});
    return folders;
}

} // namespace Inspection
