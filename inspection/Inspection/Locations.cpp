// SPDX-License-Identifier: MIT
#include <Inspection/Locations.h>

#include <Inspection/DeclaredKeys.h>

#include <algorithm>

using Catalogue::Location;
using Catalogue::Preference;
using Catalogue::Use;

namespace Inspection {

PathStatus LocationState::status(PathLook const& look) const
{
    PathStatus notOnDisk;
    if (path.isNull()) {
        notOnDisk.reason = PathReason::noPath;
        return notOnDisk;
    }
    switch (use) {
    case Use::written:
        return look(path, PathUse::written);
    case Use::fallback:
    case Use::shipped:
        return look(path, PathUse::read);
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

std::vector<WrittenFolder> foldersToWrite(PathLook const& look)
{
    std::vector<WrittenFolder> folders;
    for (LocationState const& state : locationStates())
        if (state.use == Use::written && !state.isExample())
            folders.push_back({state.label(), state.path, look(state.path, PathUse::written), state.preference != nullptr});
    for (Host::OwnKey const& own : ownKeys().all()) {
        if (!own.isFolder || own.isPrefix)
            continue;
        QString const path = ::read(own.key, QString::fromStdString(std::get<std::string>(own.defaultValue)), own.isCommon);
        if (!path.isEmpty())
            folders.push_back({own.key, path, look(path, PathUse::written), true});
    }
    std::stable_sort(folders.begin(), folders.end(),
                     [](WrittenFolder const& left, WrittenFolder const& right) { return left.label < right.label; });
    return folders;
}

} // namespace Inspection
