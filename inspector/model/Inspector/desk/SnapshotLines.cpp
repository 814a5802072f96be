// SPDX-License-Identifier: MIT
#include "SnapshotLines.h"

#include <Inspection/checks/FolderChecks.h>
#include <Inspection/checks/StoreFileChecks.h>
#include <Inspection/checks/StoredValueChecks.h>

#include <algorithm>
#include <iterator>
#include <tuple>
#include <utility>

using Catalogue::Store;

namespace Inspector {

namespace {

template <typename T>
using Line = std::shared_ptr<T const>;

template <typename T>
bool isBefore(Line<T> const& left, Line<T> const& right)
{
    return left->id < right->id;
}

template <typename T>
Line<T> const* find(Lines<T> const& lines, std::string const& id)
{
    auto const isLess = [](Line<T> const& line, std::string const& wanted) { return line->id < wanted; };
    auto const found = std::lower_bound(lines.begin(), lines.end(), id, isLess);
    return found != lines.end() && (*found)->id == id ? &*found : nullptr;
}

bool isSame(Item const& left, Item const& right) { return left.cells == right.cells && left.searchText == right.searchText; }

bool isSame(Setting const& left, Setting const& right)
{
    return isSame(static_cast<Item const&>(left), right) && left.rows == right.rows && left.value == right.value &&
           left.shownValue == right.shownValue && left.whyFixed == right.whyFixed && left.layers == right.layers;
}

bool isSame(Location const& left, Location const& right)
{
    return isSame(static_cast<Item const&>(left), right) && left.decidedBy == right.decidedBy;
}

// Sorted, with the objects of `earlier` in place of equal ones.
template <typename T>
Lines<T> sorted(Lines<T> lines, Lines<T> const& earlier)
{
    std::sort(lines.begin(), lines.end(), isBefore<T>);
    auto known = earlier.begin();
    for (Line<T>& line : lines) {
        known = std::find_if(known, earlier.end(), [&](Line<T> const& each) { return each == line || each->id >= line->id; });
        if (known != earlier.end() && *known != line && (*known)->id == line->id && isSame(**known, *line))
            line = *known;
    }
    return lines;
}

bool isSame(Inspection::Finding const& one, Inspection::Finding const& other)
{
    auto const parts = [](Inspection::Finding const& all) {
        return std::tie(all.severity, all.check, all.store, all.key, all.what, all.remedy, all.path, all.names);
    };
    return parts(one) == parts(other);
}

// The line of `earlier` where it tells the same: a note about each of thousands of keys does.
Line<Finding> findingLine(Inspection::Finding const& found, Lines<Finding> const& earlier, SharedTexts& texts)
{
    Line<Finding> const* const known = find(earlier, findingId(found));
    if (known && isSame((*known)->found, found))
        return *known;
    Finding made = findingOf(found);
    texts.share(made.cells);
    return std::make_shared<Finding const>(std::move(made));
}

Inspection::Findings findingsOf(Host::ToolApplication const& application, Inspection::PathLook const& look)
{
    Inspection::Findings all = Inspection::checkHome();
    auto const add = [&](Inspection::Findings more) { std::move(more.begin(), more.end(), std::back_inserter(all)); };
    for (Store const store : Catalogue::bothStores) {
        Inspection::ExaminedStore const examined = Inspection::examine(application, store);
        add(checkStoreFile(examined));
        add(checkStoredValues(application, examined, look));
    }
    add(Inspection::checkFolders(look));
    return all;
}

} // namespace

std::shared_ptr<Setting const> const* lineWithId(Lines<Setting> const& settings, std::string const& id) { return find(settings, id); }

Lines<Setting> sortedSettings(Lines<Setting> settings, Lines<Setting> const& earlier) { return sorted(std::move(settings), earlier); }

Lines<Finding> findingLines(Host::ToolApplication const& application, Inspection::PathLook const& look, Lines<Finding> const& earlier)
{
    Lines<Finding> result;
    SharedTexts texts;
    for (Inspection::Finding const& found : findingsOf(application, look))
        result.push_back(findingLine(found, earlier, texts));
    std::sort(result.begin(), result.end(), isBefore<Finding>);
    return result;
}

Lines<Location> locationLines(Host::ToolApplication const& application, Inspection::PathLook const& look, Lines<Location> const& earlier)
{
    Lines<Location> result;
    for (Inspection::LocationState const& state : Inspection::locationStates())
        result.push_back(std::make_shared<Location const>(locationOf(state, state.status(look), decisions(application, state))));
    return sorted(std::move(result), earlier);
}

} // namespace Inspector
