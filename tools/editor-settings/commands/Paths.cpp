// SPDX-License-Identifier: MIT
#include "commands/Paths.h"

#include "commands/Output.h"
#include "terminal/Escaping.h"
#include "terminal/Suggestions.h"
#include <Inspection/Locations.h>
#include <Inspection/PathOrigin.h>
#include <Inspection/PreferenceState.h>
#include <Inspection/ValueFormat.h>

#include <absl/strings/str_cat.h>

#include <algorithm>
#include <iostream>

#include <fnmatch.h>

using Catalogue::Location;
using Catalogue::Preference;
using Catalogue::Use;
using Inspection::isUtf8;
using Inspection::PreferenceState;
using nlohmann::ordered_json;

namespace {

// The whole list, or its only element where one location was asked for by name.
void printJsonOf(ordered_json const& array, bool isOne) { printJson(isOne ? array.front() : array); }

std::string takesNothing(std::string const& name) { return absl::StrCat(name, " takes nothing after it"); }

// One location, asked about `argument`.
LocationState oneLocation(PathsOptions const& options)
{
    if (!isUtf8(options.argument))
        throw UserError(
            absl::StrCat(quotedBriefly(options.argument), " is not UTF-8 without a byte order mark; give it as the editor does"));
    Location const* const place = Catalogue::findLocation(options.name);
    if (!place) {
        Preference const* const row = Catalogue::findPreference(options.name);
        if (!row || !row->computedDefault)
            throw UserError(absl::StrCat("there is no location ", quotedBriefly(options.name), "; ",
                                         didYouMean(options.name, locationNames()), "'editor-settings paths' shows all"));
        if (!options.argument.empty())
            throw UserError(takesNothing(options.name));
        return locationState(*row);
    }
    bool const takesAnArgument = !place->arguments.empty();
    bool const isOneOfAFew = place->arguments.size() > 1;
    bool const isKnown = std::find(place->arguments.begin(), place->arguments.end(), options.argument) != place->arguments.end();
    if (takesAnArgument && (options.argument.empty() || (isOneOfAFew && !isKnown)))
        throw UserError(absl::StrCat("say what ", options.name, " is asked about: 'editor-settings paths ", options.name, " ",
                                     joined(place->arguments, "' or '"), "'"));
    if (!takesAnArgument && !options.argument.empty())
        throw UserError(takesNothing(options.name));
    return locationState(*place, options.argument);
}

bool isPattern(std::string const& name) { return name.find_first_of("*?[") != std::string::npos; }

std::vector<LocationState> askedLocations(PathsOptions const& options)
{
    if (!options.name.empty() && !isPattern(options.name))
        return {oneLocation(options)};
    if (!options.argument.empty())
        throw UserError("nothing goes after a pattern; name one location");
    std::vector<LocationState> locations = locationStates();
    auto const isLeftOut = [&](LocationState const& location) {
        return !options.name.empty() && ::fnmatch(options.name.c_str(), location.name.c_str(), 0) != 0;
    };
    locations.erase(std::remove_if(locations.begin(), locations.end(), isLeftOut), locations.end());
    if (options.view == PathsView::check)
        locations.erase(
            std::remove_if(locations.begin(), locations.end(), [](LocationState const& location) { return location.isExample(); }),
            locations.end());
    return locations;
}

ordered_json asJson(LocationState const& location)
{
    ordered_json json = {{"name", location.name}};
    if (!location.argument.empty())
        json["argument"] = location.argument;
    json["path"] = location.path.isNull() ? ordered_json() : ordered_json(location.path.toStdString());
    return json;
}

// --- What decides ---

std::vector<Decision> decisionsOf(Host::Application const& application, LocationState const& location)
{
    bool const isAbsolute = location.place->root == Catalogue::Root::resources && location.argument[0] == '/';
    if (isAbsolute)
        return {{"argument", location.argument, location.argument, "", "nothing else: an absolute path stands for itself"}};
    if (!location.preference)
        return decisions(application, *location.place);
    PreferenceState const found = Inspection::preferenceState(application, location.name).value();
    std::string const file = application.productStorageFile().u8string();
    if (found.isRead())
        return {{"preference", location.name, location.path.toStdString(), file,
                 absl::StrCat(location.name, " is stored in ", onOneLine(file))}};
    std::string const fallback = std::string("Settings::") + location.place->name + "()";
    std::string const text = found.stored ? absl::StrCat(location.name, " is stored with a value of another kind in ", onOneLine(file),
                                                         ", so ", fallback, " holds")
                                          : absl::StrCat(location.name, " is not stored in ", onOneLine(file), ", so ", fallback, " holds");
    std::vector<Decision> result = decisions(application, *location.place);
    result.insert(result.begin(), {"preference", location.name, {}, file, text});
    return result;
}

void explain(Host::Application const& application, std::vector<LocationState> const& locations, bool isOne, Format format)
{
    auto array = ordered_json::array();
    std::vector<Columns> table;
    for (LocationState const& location : locations) {
        std::vector<Decision> const decided = decisionsOf(application, location);
        ordered_json json = asJson(location);
        json["use"] = useName(location.use);
        json["decidedBy"] = ordered_json::array();
        if (!table.empty())
            table.emplace_back();
        table.push_back({"location", location.label()});
        table.push_back({"path", onOneLine(location.path.toStdString())});
        table.push_back({"use", useName(location.use)});
        for (Decision const& decision : decided) {
            table.push_back({"decided by", decision.text});
            json["decidedBy"].push_back({{"by", decision.by},
                                         {"name", decision.name},
                                         {"value", decision.value ? ordered_json(*decision.value) : ordered_json()},
                                         {"where", decision.where},
                                         {"text", decision.text}});
        }
        array.push_back(json);
    }
    if (format == Format::json)
        printJsonOf(array, isOne);
    else
        printTable(table, {}, format);
}

// --- Whether they can be used ---

PathStatus checked(LocationState const& location)
{
    PathStatus unchecked;
    if (location.path.isNull()) {
        unchecked.remark = "none found";
        return unchecked;
    }
    switch (location.use) {
    case Use::written:
        return writtenFolderStatus(location.path);
    case Use::fallback:
    case Use::shipped:
        return readPathStatus(location.path);
    case Use::fragment:
    case Use::embedded:
        break;
    }
    unchecked.remark = useName(location.use);
    return unchecked;
}

std::string yesOrNo(bool value) { return value ? "yes" : "no"; }

void check(std::vector<LocationState> const& locations, bool isOne, Format format)
{
    auto array = ordered_json::array();
    std::vector<Columns> table;
    std::vector<std::string> unusable;
    for (LocationState const& location : locations) {
        PathStatus const found = checked(location);
        bool const isOnDisk = location.use != Use::fragment && location.use != Use::embedded;
        bool const isUsable = location.use != Use::written || found.isUsable;
        if (!isUsable)
            unusable.push_back(location.label());
        table.push_back({location.label(), isOnDisk ? yesOrNo(found.exists) : "-", isOnDisk ? yesOrNo(found.isWritable) : "-", found.remark,
                         onOneLine(location.path.toStdString())});
        ordered_json json = asJson(location);
        json["use"] = useName(location.use);
        json["exists"] = isOnDisk ? ordered_json(found.exists) : ordered_json();
        json["writable"] = isOnDisk ? ordered_json(found.isWritable) : ordered_json();
        json["remark"] = found.remark;
        json["usable"] = isUsable;
        array.push_back(json);
    }
    if (format == Format::json)
        printJsonOf(array, isOne);
    else
        printTable(table, {"LOCATION", "EXISTS", "WRITABLE", "REMARK", "PATH"}, format);
    if (!unusable.empty())
        throw UserError(absl::StrCat("the editor cannot write to ", joined(unusable, ", "),
                                     "; mend what is remarked: 'editor-settings paths NAME --explain' tells what decides, and a preference "
                                     "may be set to another folder"));
}

} // namespace

void showPaths(Host::Application const& application, PathsOptions const& options, Format format)
{
    std::vector<LocationState> const locations = askedLocations(options);
    bool const isOne = !options.name.empty() && !isPattern(options.name);
    if (options.view == PathsView::explain)
        return explain(application, locations, isOne, format);
    if (options.view == PathsView::check)
        return check(locations, isOne, format);
    if (format == Format::json) {
        auto array = ordered_json::array();
        for (LocationState const& location : locations)
            array.push_back(asJson(location));
        return printJsonOf(array, isOne);
    }
    if (isOne) {
        std::string const path = locations.front().path.toStdString();
        return printAsItIs(format == Format::plain ? onOneLine(path) : path);
    }
    std::vector<Columns> table;
    for (LocationState const& location : locations)
        table.push_back({location.label(), onOneLine(location.path.toStdString())});
    printTable(table, {"LOCATION", "PATH"}, format);
}
