// SPDX-License-Identifier: MIT
#include <Inspector/Snapshot.h>

#include <Inspector/PlainText.h>
#include <Inspector/Search.h>

#include <Inspection/ValueFormat.h>

#include <absl/strings/str_cat.h>

#include <algorithm>
#include <chrono>
#include <limits>

using Inspection::onOneLine;
using Inspection::State;

namespace Inspector {

namespace {

QString shown(std::string const& text) { return QString::fromStdString(text); }

QString spokenLine(QStringList const& parts) { return parts.join(QStringLiteral(", ")); }

// --- Settings ---

QString stateWord(std::optional<State> state) { return shown(state ? Inspection::stateName(*state) : "cannot be read"); }

QString shownValueOf(Inspection::PreferenceState const& state)
{
    bool const isUnreadable = state.isUndeclared() && state.state() == State::unreadable;
    return shown(isUnreadable ? "(unreadable)" : onOneLine(state.observation.value));
}

QString changedAt(std::vector<Storage::SqliteStorage::Row> const& rows)
{
    auto const isEarlier = [](auto const& left, auto const& right) { return left.changed < right.changed; };
    auto const last = std::max_element(rows.begin(), rows.end(), isEarlier);
    return last == rows.end() ? QString() : shown(Inspection::inLocalTime(last->changed));
}

QStringList marksOf(Setting const& setting, Marks const& marks)
{
    static constexpr char const* stateMarks[] = {"", "", "@default", "@other-kind", "@unreadable", "@undeclared"};
    QStringList result = {QLatin1Char('@') + setting.cells[Setting::storeColumn], QLatin1Char('@') + setting.cells[Setting::classColumn]};
    if (setting.state)
        result << shown(setting.state == State::unset ? "@unset" : "@set") << shown(stateMarks[static_cast<std::size_t>(*setting.state)]);
    if (marks.isChanged)
        result << QStringLiteral("@changed");
    if (marks.hasTrouble)
        result << QStringLiteral("@trouble");
    if (setting.isLocked)
        result << QStringLiteral("@locked");
    return result;
}

bool isPersonal(std::string const& key) { return Inspection::classOf(key) == Catalogue::dataClassName(Catalogue::DataClass::personal); }

} // namespace

std::string settingId(std::string const& key, Catalogue::Store store) { return absl::StrCat(key, std::string(1, '\0'), name(store)); }

QString Item::spokenLine() const
{
    if (!spoken.isEmpty())
        return spoken;
    QStringList parts = cells;
    parts.removeAll({});
    return Inspector::spokenLine(parts);
}

QString Item::searchedText() const { return searchText.isEmpty() ? Search::textOf(cells, {}) : searchText; }

QString Setting::spokenWithValue() const { return Inspector::spokenLine({cells[keyColumn], shownValue, cells[stateColumn]}); }

namespace {

void addTexts(Setting& setting, Inspection::PreferenceState const& state, Marks const& marks)
{
    QString const value = setting.isHidden ? shown(hiddenText) : setting.shownValue;
    setting.cells = QStringList{shown(onOneLine(state.key)),
                                value,
                                stateWord(setting.state),
                                shown(state.storeName()),
                                shown(state.dataClass ? Catalogue::dataClassName(*state.dataClass) : ""),
                                shown(state.isUndeclared() ? "" : onOneLine(setting.defaultValue)),
                                changedAt(setting.rows),
                                shown(onOneLine(setting.about.purpose)),
                                marks.hasStudio && setting.state ? shown(Inspection::layerName(state.layer())) : QString()};
    setting.spoken = spokenLine({setting.cells[Setting::keyColumn], value, setting.cells[Setting::stateColumn]});
    QStringList const all = marksOf(setting, marks);
    setting.searchText = Search::textOf({setting.cells[Setting::keyColumn], value, setting.cells[Setting::purposeColumn]}, all);
    setting.marks = Search::bitsOf(all);
}

} // namespace

std::string whyFixed(Inspection::PreferenceState const& state, bool hasStudio)
{
    if (!state.write)
        return "it takes " + Inspection::describe(state).accepts;
    if (!state.observation.store)
        return "it is kept in memory only by a product of this kind, so it cannot be set from outside the editor";
    if (state.layer() == Inspection::Layer::locked)
        return "the studio has locked this setting; ask the administrator of the studio's settings to unlock it";
    if (hasStudio && state.dataClass == Catalogue::DataClass::roaming)
        return absl::StrCat("it is the user's own on every workstation of the studio, so it is changed at the studio's server: "
                            "'editor-settings set ",
                            onOneLine(state.key), " VALUE'");
    return {};
}

Setting settingOf(Inspection::PreferenceState const& state, std::vector<Storage::SqliteStorage::Row> const& rows, bool isRead,
                  Marks const& marks)
{
    Setting setting;
    setting.key = state.key;
    setting.store = state.observation.store.value_or(state.store);
    setting.id = settingId(setting.key, setting.store);
    setting.value = state.observation.value;
    setting.defaultValue = state.observation.defaultValue;
    setting.about = Inspection::describe(state);
    setting.usable = Inspection::usableOf(state);
    setting.computedBy = state.computedDefault ? Catalogue::locationOf(state.computedDefault).name : "";
    if (isRead) {
        setting.state = state.state();
        setting.rows = rows;
        setting.shownValue = shownValueOf(state);
        setting.isHidden = state.dataClass == Catalogue::DataClass::personal && !state.stored.empty();
        setting.whyFixed = shown(whyFixed(state, marks.hasStudio));
        setting.isSettable = setting.whyFixed.isEmpty();
        setting.isLocked = state.layer() == Inspection::Layer::locked;
        if (marks.hasStudio)
            setting.layers = Inspection::layerFacts(state.layers, Inspection::inLocalTime, setting.isHidden ? hiddenText : nullptr);
    }
    addTexts(setting, state, marks);
    return setting;
}

bool operator==(StudioView const& one, StudioView const& other)
{
    return one.isConnected == other.isConnected && one.asOf == other.asOf && one.trouble == other.trouble;
}

// --- Locations, findings, changes ---

namespace {

std::string keyOf(Inspection::Finding const& found) { return found.folderKey.empty() ? found.key : found.folderKey; }

// Of these the texts hold the value, or a part of it.
bool showsValue(Inspection::Check check) { return check == Inspection::Check::folder || check == Inspection::Check::unusableValue; }

// Whether no text may be shown as it is.
bool isAboutHidden(Inspection::Finding const& found, std::string const& key) { return showsValue(found.check) && isPersonal(key); }

std::string whereOf(Inspection::Finding const& found, std::string const& key)
{
    if (key.empty() || !found.store)
        return onOneLine(key.empty() ? found.path : key);
    return absl::StrCat(onOneLine(key), " (", name(*found.store), " store)");
}

} // namespace

Location locationOf(Inspection::LocationState const& state, Inspection::PathStatus const& status,
                    std::vector<Inspection::Decision> const& decisions)
{
    Location location;
    location.id = state.label();
    location.cells = QStringList{shown(onOneLine(location.id)), shown(onOneLine(state.path.toStdString())),
                                 shown(Catalogue::useName(state.use)), shown(onOneLine(remark(status)))};
    location.isUsable = status.isUsable;
    for (Inspection::Decision const& decision : decisions)
        location.decidedBy.push_back(text(decision));
    return location;
}

std::string findingId(Inspection::Finding const& found)
{
    std::string const key = keyOf(found);
    std::string const rank = absl::StrCat(9 - static_cast<int>(found.severity), absl::Dec(static_cast<int>(found.check), absl::kZeroPad3));
    if (isAboutHidden(found, key))
        return rank + key;
    return absl::StrCat(rank, found.store ? name(*found.store) : "", " ", key, " ", found.path, " ", found.what);
}

Finding findingOf(Inspection::Finding const& found)
{
    Finding finding;
    finding.found = found;
    finding.key = keyOf(found);
    finding.id = findingId(found);
    std::string what = found.what;
    std::string remedy = found.remedy;
    if (isAboutHidden(found, finding.key)) {
        what = hiddenText;
        remedy.clear();
    }
    finding.cells =
        QStringList{shown(severityName(found.severity)), shown(whereOf(found, finding.key)), plainText(what), plainText(remedy)};
    return finding;
}

Change changeOf(Inspection::Difference const& row, bool byThisWindow, std::size_t number)
{
    auto const& [key, before, after] = row.row;
    bool const isHidden = isPersonal(key);
    auto const value = [&](std::optional<Storage::SqliteStorage::Row> const& stored) {
        return shown(isHidden && stored ? hiddenText : onOneLine(stored, "(unset)"));
    };
    auto const time = after ? after->changed : std::chrono::system_clock::now();
    Change change;
    change.row = row;
    change.byThisWindow = byThisWindow;
    change.id = absl::StrCat(absl::Dec(std::numeric_limits<std::size_t>::max() - number, absl::kZeroPad20));
    change.cells = QStringList{shown(Inspection::inLocalTime(time)),
                               shown(byThisWindow ? "this window" : "somebody else"),
                               shown(name(row.store)),
                               shown(onOneLine(key)),
                               value(before),
                               value(after)};
    return change;
}

} // namespace Inspector
