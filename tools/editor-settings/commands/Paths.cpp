// SPDX-License-Identifier: MIT
#include "commands/Commands.h"
#include "commands/Reference.h"
#include "commands/values/GivenValue.h"
#include "commands/values/Output.h"
#include "terminal/Escaping.h"
#include "terminal/Suggestions.h"
#include <Inspection/Locations.h>
#include <Inspection/PathOrigin.h>
#include <Inspection/ValueFormat.h>

#include <absl/strings/str_cat.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <memory>

#include <fnmatch.h>

using Catalogue::Location;
using Catalogue::Preference;
using Inspection::Decision;
using Inspection::isUtf8;
using Inspection::LocationState;
using Inspection::PathStatus;
using nlohmann::ordered_json;

namespace {

enum class PathsView {
    list,    // What each location gives now.
    explain, // What decides it.
    check,   // Whether it can be used.
};

struct PathsOptions {
    std::string name;     // Of one location, or a pattern with the wildcards of a shell; empty for all.
    std::string argument; // For a location that takes one.
    PathsView view = PathsView::list;
};

// The location called `options.name`, asked about `options.argument`.
LocationState oneLocation(PathsOptions const& options)
{
    if (!isUtf8(options.argument))
        throw UserError(
            absl::StrCat(quotedBriefly(options.argument), " is not UTF-8 without a byte order mark; give it as the editor does"));
    Location const* const location = Catalogue::findLocation(options.name);
    Preference const* const preference = Catalogue::findPreference(options.name);
    if (!location && !(preference && preference->computedDefault))
        throw UserError(absl::StrCat("there is no location ", quotedBriefly(options.name), "; ",
                                     didYouMean(options.name, Inspection::locationNames()), "'editor-settings paths' shows all"));
    std::vector<std::string> const accepted = location ? location->arguments : std::vector<std::string>();
    if (accepted.empty() && !options.argument.empty())
        throw UserError(absl::StrCat(options.name, " takes nothing after it"));
    bool const isOneOfAFew = accepted.size() > 1;
    bool const isAccepted = !isOneOfAFew || std::find(accepted.begin(), accepted.end(), options.argument) != accepted.end();
    if (!accepted.empty() && (options.argument.empty() || !isAccepted))
        throw UserError(absl::StrCat("say what ", options.name, " is asked about: 'editor-settings paths ", options.name, " ",
                                     joined(accepted, "' or '"), "'"));
    return location ? Inspection::locationState(*location, options.argument) : Inspection::locationState(*preference);
}

std::vector<LocationState> askedLocations(PathsOptions const& options)
{
    if (!options.name.empty() && !isPattern(options.name))
        return {oneLocation(options)};
    if (!options.argument.empty())
        throw UserError("nothing goes after a pattern; name one location");
    std::vector<LocationState> locations = Inspection::locationStates();
    auto const isLeftOut = [&](LocationState const& location) {
        bool const matches = options.name.empty() || ::fnmatch(options.name.c_str(), location.name.c_str(), 0) == 0;
        return !matches || (options.view == PathsView::check && location.isExample());
    };
    locations.erase(std::remove_if(locations.begin(), locations.end(), isLeftOut), locations.end());
    return locations;
}

std::string pathOnOneLine(LocationState const& location) { return onOneLine(location.path.toStdString()); }

ordered_json asJson(LocationState const& location)
{
    ordered_json json = {{"name", location.name}};
    if (!location.argument.empty())
        json["argument"] = location.argument;
    json["path"] = location.path.isNull() ? ordered_json() : ordered_json(location.path.toStdString());
    return json;
}

// The answer in both forms: one object for each location, and the lines of the table.
struct Answer {
    ordered_json json = ordered_json::array();
    std::vector<Columns> table;
    Columns heading;

    // JSON of one location that was asked for by name is an object, not an array.
    void print(Format format, bool isOne) const
    {
        if (format == Format::json)
            printJson(isOne ? json.front() : json);
        else
            printTable(table, heading, format);
    }
};

Answer list(std::vector<LocationState> const& locations)
{
    Answer answer{ordered_json::array(), {}, {"LOCATION", "PATH"}};
    for (LocationState const& location : locations) {
        answer.json.push_back(asJson(location));
        answer.table.push_back({onOneLine(location.label()), pathOnOneLine(location)});
    }
    return answer;
}

// --- What decides ---

ordered_json asJson(Decision const& decision)
{
    return {{"by", name(decision.by)},
            {"name", decision.name},
            {"value", decision.value ? ordered_json(*decision.value) : ordered_json()},
            {"where", place(decision)},
            {"text", onOneLine(text(decision))}};
}

Answer explain(Host::ToolApplication const& application, std::vector<LocationState> const& locations)
{
    Answer answer;
    for (LocationState const& location : locations) {
        ordered_json json = asJson(location);
        json["use"] = useName(location.use);
        json["decidedBy"] = ordered_json::array();
        if (!answer.table.empty())
            answer.table.emplace_back();
        answer.table.push_back({"location", onOneLine(location.label())});
        answer.table.push_back({"path", pathOnOneLine(location)});
        answer.table.push_back({"use", useName(location.use)});
        for (Decision const& decision : decisions(application, location)) {
            answer.table.push_back({"decided by", onOneLine(text(decision))});
            json["decidedBy"].push_back(asJson(decision));
        }
        answer.json.push_back(json);
    }
    return answer;
}

// --- Whether they can be used ---

std::string yesOrNo(bool value) { return value ? "yes" : "no"; }

Answer check(std::vector<LocationState> const& locations, std::vector<std::string>& unusable)
{
    Answer answer{ordered_json::array(), {}, {"LOCATION", "EXISTS", "WRITABLE", "REMARK", "PATH"}};
    for (LocationState const& location : locations) {
        PathStatus const status = location.status();
        std::string const label = onOneLine(location.label());
        std::string const remarkText = onOneLine(remark(status));
        bool const isOnDisk = location.isOnDisk();
        if (!status.isUsable)
            unusable.push_back(label);
        answer.table.push_back({label, isOnDisk ? yesOrNo(status.exists) : "-", isOnDisk ? yesOrNo(status.isWritable) : "-", remarkText,
                                pathOnOneLine(location)});
        ordered_json json = asJson(location);
        json["use"] = useName(location.use);
        json["exists"] = isOnDisk ? ordered_json(status.exists) : ordered_json();
        json["writable"] = isOnDisk ? ordered_json(status.isWritable) : ordered_json();
        json["reason"] = orNull(reasonName(status.reason));
        json["remark"] = remarkText;
        json["usable"] = status.isUsable;
        answer.json.push_back(json);
    }
    return answer;
}

// Prints the locations. Throws `UserError` for an unknown one, and after a check where the editor cannot use one that it
// writes to.
void showPaths(Host::ToolApplication const& application, PathsOptions const& options, Format format)
{
    std::vector<LocationState> const locations = askedLocations(options);
    bool const isOne = !options.name.empty() && !isPattern(options.name);
    std::vector<std::string> unusable;
    switch (options.view) {
    case PathsView::list:
        if (isOne && format != Format::json)
            return printAsItIs(format == Format::plain ? pathOnOneLine(locations.front()) : locations.front().path.toStdString());
        return list(locations).print(format, isOne);
    case PathsView::explain:
        return explain(application, locations).print(format, isOne);
    case PathsView::check:
        check(locations, unusable).print(format, isOne);
    }
    if (!unusable.empty())
        throw UserError(absl::StrCat("the editor cannot write to ", joined(unusable, ", "),
                                     "; 'editor-settings paths NAME --explain' tells what decides, and a preference may be set to another "
                                     "folder"));
}

struct PathsWords {
    PathsOptions options;
    bool isExplained = false;
    bool isChecked = false;
    std::string page;
    FormatChoice format;
};

std::vector<Option> pathsOptions(PathsWords& words)
{
    return withFormat(
        words.format, jsonHelp,
        {Option("NAME", &words.options.name, "One location, or those that match, such as 'stock*'").completedBy(Candidates::locations),
         Option("ARGUMENT", &words.options.argument, "What the location is asked about, where it takes that"),
         Option("--explain", &words.isExplained, "What decides where a location lies"),
         Option("--check", &words.isChecked,
                "Whether they exist and can be used; exit status 1 where the editor cannot write to one that it writes to")
             .excluding({"--explain"}),
         pageOption(words.page, {"NAME", "ARGUMENT", "--explain", "--check", "--plain", "--json"})});
}

} // namespace

std::vector<Command> commandsOfPaths()
{
    auto const words = std::make_shared<PathsWords>();
    Command command;
    command.name = "paths";
    command.group = Group::look;
    command.summary = "Where the editor's files and folders lie";
    command.options = pathsOptions(*words);
    command.examples = {{"editor-settings paths 'stock*'", "Every location whose name begins with stock."},
                        {"editor-settings paths exportPath --explain", "What decides where exports go."},
                        {"editor-settings paths --check", "Whether the editor can write wherever it writes to."}};
    command.stores = [words] {
        return !words->page.empty() ? StoreUse::none : words->isExplained ? StoreUse::readQuietly : StoreUse::read;
    };
    command.studio = StudioUse::look;
    command.isLong = true;
    command.run = [words](Invocation const& invocation) {
        if (!words->page.empty())
            return printLocationsPage(invocation.productFile), 0;
        words->options.view = words->isExplained ? PathsView::explain : words->isChecked ? PathsView::check : PathsView::list;
        showPaths(*invocation.application, words->options, words->format);
        return 0;
    };
    return {command};
}
