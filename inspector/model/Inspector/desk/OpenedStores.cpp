// SPDX-License-Identifier: MIT
#include "OpenedStores.h"

#include <Inspector/Commands.h>

#include <Inspection/DeclaredKeys.h>
#include <Inspection/ValueFormat.h>
#include <Inspection/checks/FolderChecks.h>
#include <Inspection/checks/StoreFileChecks.h>
#include <Inspection/checks/StoredValueChecks.h>

#include <algorithm>
#include <iterator>
#include <utility>

using Catalogue::Store;
using Inspection::PreferenceState;
using Inspection::StoreState;
using Storage::SqliteStorage;
using Storage::StorageError;

namespace Inspector {

namespace {

// A wait in one piece: for longer the end of the program, and the other store, would have to wait.
constexpr std::chrono::milliseconds longestWait{50};
constexpr std::size_t longestJournal = 1000;

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
           left.shownValue == right.shownValue;
}

bool isSame(Location const& left, Location const& right)
{
    return isSame(static_cast<Item const&>(left), right) && left.decidedBy == right.decidedBy;
}

bool isSame(Finding const& left, Finding const& right)
{
    return isSame(static_cast<Item const&>(left), right) && left.found.what == right.found.what && left.found.path == right.found.path &&
           left.found.remedy == right.found.remedy && left.found.names == right.found.names;
}

// Sorted, with the objects of `earlier` in place of equal ones.
template <typename T>
Lines<T> sorted(Lines<T> lines, Lines<T> const& earlier)
{
    std::sort(lines.begin(), lines.end(), isBefore<T>);
    for (Line<T>& line : lines)
        if (Line<T> const* const known = find(earlier, line->id); known && isSame(**known, *line))
            line = *known;
    return lines;
}

template <typename T>
Line<T> line(T item)
{
    return std::make_shared<T const>(std::move(item));
}

StorageError homeError(std::string const& file, Inspection::Finding const& finding)
{
    return {StorageError::Code::access, file, "make the store", finding.what, finding.remedy};
}

} // namespace

// --- Looking ---

OpenedStores::OpenedStores(Place place) : m_place(std::move(place)) {}
OpenedStores::~OpenedStores() = default;

std::optional<OpenedStores::FileIdentity> OpenedStores::identityOf(StoreView const& view)
{
    struct stat status = {};
    if (view.file.empty() || ::stat(view.file.c_str(), &status) != 0)
        return std::nullopt;
    return FileIdentity{status.st_dev, status.st_ino, status.st_ctim};
}

SqliteStorage::Options OpenedStores::options(bool createsMissing) const
{
    SqliteStorage::Options result;
    result.busyTimeout = longestWait;
    result.createIfMissing = createsMissing;
    result.allowNetworkFileSystem = m_place.allowsNetworkFileSystem;
    return result;
}

// The identities are those of the names before they are opened: should a file be replaced in between, the next look sees it.
void OpenedStores::open()
{
    for (Side& side : m_sides)
        side.identity = identityOf(side.view);
    m_application.reset();
    m_productError.clear();
    try {
        Host::Application::Options const choice{m_place.storeFolder, Host::StorePolicy::leaveOutUnusable, options(false)};
        auto application = std::make_unique<Host::ToolApplication>(m_place.productFile, choice);
        Inspection::declareOwnKeys(application->productFile());
        m_application = std::move(application);
    } catch (Host::ProductFileError const& error) {
        m_productError = error.what();
        return;
    }
    for (Side& side : m_sides)
        openSide(side);
    m_isDirty = true;
}

void OpenedStores::openSide(Side& side)
{
    bool const isFirst = side.view.file.empty();
    side.view = {Inspection::storageFile(*m_application, side.store).u8string(), StoreState::missing,
                 Inspection::storageError(*m_application, side.store)};
    if (side.view.error)
        side.view.state = StoreState::unusable;
    if (isFirst)
        side.watcher.emplace(Inspection::storageFile(*m_application, side.store), options(false));
    if (!opened(side))
        return;
    if (isFirst)
        side.identity = identityOf(side.view);
    try {
        side.view.error = opened(side)->readOnlyError();
        side.view.state = side.view.error ? StoreState::readOnly : StoreState::usable;
    } catch (StorageError const& error) {
        side.view.error = error;
        side.view.state = StoreState::unusable;
    }
}

// Whether the store is to be opened again.
bool OpenedStores::isOutdated(Side const& side)
{
    std::optional<FileIdentity> const now = identityOf(side.view);
    switch (side.view.state) {
    case StoreState::missing:
        return now.has_value();
    case StoreState::unusable:
        return side.isReadable;
    case StoreState::readOnly:
        return !now || !side.identity || !now->isUntouched(*side.identity);
    case StoreState::usable:
        break;
    }
    return !now || !side.identity || !now->isSameFile(*side.identity);
}

void OpenedStores::note(Storage::StoreWatcher::Difference const& difference, Store store)
{
    std::optional<Host::OwnKeys::Match> const own = Inspection::ownKeys().find(difference.key);
    m_changed.insert(settingId(own ? own->key : difference.key, store));
    m_journal.push_front(
        line(changeOf({store, static_cast<Storage::RowDifference const&>(difference)}, difference.byThisProcess, m_changes++)));
    if (m_journal.size() > longestJournal)
        m_journal.pop_back();
}

// Whether the watcher found a change. What the first look finds was there before.
bool OpenedStores::watch(Side& side)
{
    Storage::StoreWatcher::Look const look = side.watcher->look();
    side.isReadable = look.isRead;
    if (!std::exchange(side.hasBaseline, side.hasBaseline || look.isRead))
        return false;
    for (Storage::StoreWatcher::Difference const& difference : look.differences)
        note(difference, side.store);
    return !look.differences.empty();
}

// Whether others have written since the last read, an equal value too.
bool OpenedStores::isChanged(Side const& side) const
try {
    return opened(side) && opened(side)->changesOfOthers() != side.version;
} catch (StorageError const&) {
    return true;
}

// Of a store that is unusable the lines of the last read, so that a list does not empty while somebody else writes for long.
Lines<Setting> OpenedStores::settings() const
{
    Lines<Setting> result;
    std::set<std::string> known;
    for (PreferenceState const& state : Inspection::preferenceStates(*m_application)) {
        Store const store = state.observation.store.value_or(state.store);
        bool const isRead = side(store).view.state != StoreState::unusable;
        std::string const id = settingId(state.key, store);
        Line<Setting> const* const earlier = find(m_snapshot->settings, id);
        Marks const marks = {m_changed.count(id) > 0, m_troubled.count(state.key) > 0};
        result.push_back(!isRead && earlier ? *earlier : line(settingOf(state, isRead, marks)));
        known.insert(id);
    }
    // What else a store held before it became unusable.
    for (Line<Setting> const& earlier : m_snapshot->settings)
        if (side(earlier->store).view.state == StoreState::unusable && known.count(earlier->id) == 0)
            result.push_back(earlier);
    return sorted(std::move(result), m_snapshot->settings);
}

// Whether all that is opened could be read.
bool OpenedStores::readSettings()
try {
    auto next = std::make_shared<Snapshot>(*m_snapshot);
    for (Side& side : m_sides)
        if (SqliteStorage const* const store = opened(side))
            side.version = store->changesOfOthers();
    next->settings = settings();
    next->changes.assign(m_journal.begin(), m_journal.end());
    next->product = m_sides[0].view;
    next->common = m_sides[1].view;
    m_snapshot = std::move(next);
    m_isDirty = m_isExamined = false;
    return true;
} catch (StorageError const&) {
    return false;
}

namespace {

Inspection::Findings findingsOf(Host::ToolApplication const& application)
{
    Inspection::Findings all = Inspection::checkHome();
    auto const add = [&](Inspection::Findings more) { std::move(more.begin(), more.end(), std::back_inserter(all)); };
    for (Store const store : {Store::product, Store::common}) {
        Inspection::ExaminedStore const examined = Inspection::examine(application, store);
        add(checkStoreFile(examined));
        add(checkStoredValues(application, examined));
    }
    add(Inspection::checkFolders());
    return all;
}

Lines<Location> locationsOf(Host::ToolApplication const& application)
{
    Lines<Location> result;
    for (Inspection::LocationState const& state : Inspection::locationStates())
        result.push_back(line(locationOf(state, decisions(application, state))));
    return result;
}

} // namespace

void OpenedStores::examine()
try {
    auto next = std::make_shared<Snapshot>(*m_snapshot);
    std::set<std::string> troubled;
    Lines<Finding> findings;
    for (Inspection::Finding const& found : findingsOf(*m_application)) {
        findings.push_back(line(findingOf(found)));
        if (found.severity != Inspection::Severity::note)
            troubled.insert(findings.back()->key);
    }
    next->findings = sorted(std::move(findings), m_snapshot->findings);
    next->locations = sorted(locationsOf(*m_application), m_snapshot->locations);
    m_snapshot = std::move(next);
    m_isExamined = true;
    m_isDirty = std::exchange(m_troubled, troubled) != troubled;
} catch (StorageError const&) { // the next look sees what became of the store
}

// What was written since the watchers' look is noted before anybody sees it: the next change is compared with it.
void OpenedStores::readAll()
{
    if (!readSettings()) {
        open(); // leaves out what cannot be read
        if (m_application)
            readSettings();
    }
    if (m_application)
        for (Side& side : m_sides)
            m_isDirty = watch(side) || m_isDirty;
}

// Settings are read at once, folders only after a look that found nothing new: a folder may be slow to answer.
std::shared_ptr<Snapshot const> OpenedStores::look()
{
    if (!m_application && m_productError.empty())
        openAgain();
    if (!m_application)
        return m_snapshot;
    for (Side& side : m_sides)
        m_isDirty = watch(side) || m_isDirty;
    if (std::any_of(m_sides.begin(), m_sides.end(), isOutdated))
        open();
    if (!m_application)
        return m_snapshot;
    for (Side const& side : m_sides)
        m_isDirty = isChanged(side) || m_isDirty;
    if (!m_isDirty && !m_isExamined) {
        examine();
    } else if (m_isDirty) {
        readAll();
    }
    return m_snapshot;
}

void OpenedStores::openAgain()
{
    open();
    m_isExamined = false;
    if (m_application)
        return;
    auto next = std::make_shared<Snapshot>();
    next->findings = {line(findingOf(Inspection::aboutProductFile(m_productError, m_place.productFile.u8string())))};
    m_snapshot = std::move(next);
}

std::vector<std::filesystem::path> OpenedStores::files() const
{
    std::vector<std::filesystem::path> result;
    for (Side const& side : m_sides)
        if (!side.view.file.empty())
            result.push_back(std::filesystem::u8path(side.view.file));
    return result;
}

// --- Storing ---

namespace {

using Row = SqliteStorage::Row;
using StoreChange = SqliteStorage::Change;

std::optional<Row> rowOf(std::vector<Row> const& rows, std::string const& key)
{
    auto const found = std::find_if(rows.begin(), rows.end(), [&](Row const& row) { return row.key == key; });
    return found == rows.end() ? std::nullopt : std::optional(*found);
}

// The row that `change` has left. Where somebody else has changed it already, one that is never found in a store.
std::optional<Row> rowLeft(SqliteStorage const& store, StoreChange const& change)
{
    bool const isRemoval = change.value == SqliteStorage::Value() && change.payload == SqliteStorage::Payload();
    if (isRemoval)
        return std::nullopt;
    try {
        std::optional<Row> found = store.find(change.key);
        bool const isUnreadable = change.payload != SqliteStorage::Payload();
        if (found && found->value == change.value && found->payload == change.payload && (!isUnreadable || found->kind == change.kind))
            return found;
    } catch (StorageError const&) { // as if somebody else had changed it
    }
    return Row{change.key, change.kind, change.value, {}, change.payload};
}

// An equal value that was stored again is no other value than the one that was seen.
bool adopt(std::vector<StoreChange>& changes, Storage::Conflict const& conflict)
{
    for (StoreChange& change : changes)
        if (change.key == conflict.key() && !Storage::rowDifference(change.expected->row, conflict.row())) {
            change.expected->row = conflict.row();
            return true;
        }
    return false;
}

bool isChange(Edit const& edit) { return edit.value ? *edit.value != edit.seen->value : !edit.seen->rows.empty(); }

} // namespace

// Why one of the edits cannot be stored, as the command line refuses it; nullopt where all can.
std::optional<std::string> OpenedStores::refusal(std::vector<Edit> const& edits) const
{
    for (Edit const& edit : edits) {
        if (!edit.value)
            continue;
        std::optional<PreferenceState> const state = Inspection::preferenceState(*m_application, edit.seen->key);
        if (!state || !state->write)
            return "it takes " + edit.seen->about.accepts;
        if (!state->observation.store)
            return "it is kept in memory only by a product of this kind, so it cannot be set from outside the editor";
        try {
            Inspection::parsed(state->observation.value, wordsOf(*edit.value));
        } catch (Inspection::ValueError const& error) {
            return error.what();
        }
    }
    return std::nullopt;
}

// The library makes the rows of a value, as it does for the editor: lists, fractions and paths have their form from there.
std::vector<OpenedStores::Planned> OpenedStores::plan(std::vector<Edit> const& edits)
{
    std::vector<Planned> planned;
    for (Edit const& edit : edits) {
        Setting const& seen = *edit.seen;
        if (!edit.value)
            for (Row const& row : seen.rows)
                planned.push_back({seen.store, {row.key, {}, SqliteStorage::Expected{row}}});
        if (!edit.value || !isChange(edit))
            continue;
        createWhereMissing(side(seen.store), seen.rows.empty() ? std::nullopt : std::optional(seen.rows.front()));
        std::optional<PreferenceState> const state = Inspection::preferenceState(*m_application, seen.key);
        for (SqliteStorage::Change& change : changesTo(*m_application, state.value(), *edit.value)) {
            change.expected = SqliteStorage::Expected{rowOf(seen.rows, change.key)};
            planned.push_back({seen.store, std::move(change)});
        }
    }
    return planned;
}

std::vector<OpenedStores::Planned> OpenedStores::plan(Step const& step)
{
    std::vector<Planned> planned;
    for (auto const& [store, row] : step) {
        SqliteStorage::Expected const expected{row.after};
        planned.push_back(
            {store, row.before ? SqliteStorage::Change::restoring(*row.before, expected) : SqliteStorage::Change{row.key, {}, expected}});
    }
    return planned;
}

// Only for a change that finds what it expects.
void OpenedStores::createWhereMissing(Side& side, std::optional<Row> const& expected)
{
    if (opened(side))
        return;
    if (side.view.error)
        throw StorageError(*side.view.error);
    if (expected)
        throw Storage::Conflict(side.view.file, "make a change", expected->key, expected, std::nullopt);
    Inspection::Findings const home = Inspection::checkHome();
    if (!home.empty() && !m_place.storeFolder && qEnvironmentVariableIsEmpty("XDG_DATA_HOME"))
        throw StorageError(homeError(side.view.file, home.front()));
    SqliteStorage const created(std::filesystem::u8path(side.view.file), options(true));
    open();
    if (!m_application)
        throw Host::ProductFileError(m_productError);
}

// `mayRewrite` takes a row that was stored again with an equal value for the one that is expected.
Step OpenedStores::apply(Store store, std::vector<SqliteStorage::Change> changes, bool mayRewrite)
{
    createWhereMissing(side(store), changes.front().expected->row);
    SqliteStorage& target = *opened(side(store));
    for (bool isApplied = false; !isApplied;)
        try {
            target.apply(changes);
            isApplied = true;
        } catch (Storage::Conflict const& conflict) {
            if (!mayRewrite || !adopt(changes, conflict))
                throw;
        }
    Step made;
    for (SqliteStorage::Change const& change : changes)
        made.push_back({store, {change.key, change.expected->row, rowLeft(target, change)}});
    return made;
}

// One transaction for each store. Once the first is done there is no other try, as it would be done twice.
Answer OpenedStores::applied(std::vector<Planned> const& planned, bool mayRewrite)
{
    Answer answer;
    m_isDirty = true;
    for (Store const store : {Store::product, Store::common}) {
        std::vector<SqliteStorage::Change> changes;
        for (Planned const& each : planned)
            if (each.store == store)
                changes.push_back(each.change);
        if (changes.empty())
            continue;
        try {
            Step const made = apply(store, std::move(changes), mayRewrite);
            answer.made.insert(answer.made.end(), made.begin(), made.end());
            answer.outcome = Outcome::stored;
        } catch (Storage::Conflict const& conflict) {
            return {0, Outcome::conflict, answer.made, store, conflict.key(), conflict.row()};
        } catch (StorageError const& error) {
            if (error.code() == StorageError::Code::busy && answer.made.empty())
                throw;
            return {0, Outcome::failed, answer.made, store, {}, {}, {}, error};
        }
    }
    return answer;
}

Answer OpenedStores::store(Commit const& commit)
try {
    if (!m_application)
        return {0, Outcome::refused, {}, {}, {}, {}, m_productError};
    auto const* const edits = std::get_if<std::vector<Edit>>(&commit);
    if (!edits)
        return applied(plan(std::get<Step>(commit)), false);
    if (std::none_of(edits->begin(), edits->end(), isChange))
        return {};
    if (std::optional<std::string> const reason = refusal(*edits))
        return {0, Outcome::refused, {}, {}, {}, {}, *reason};
    return applied(plan(*edits), true);
} catch (Storage::Conflict const& conflict) {
    return {0, Outcome::conflict, {}, {}, conflict.key(), conflict.row()};
} catch (StorageError const& error) {
    if (error.code() == StorageError::Code::busy)
        throw;
    return {0, Outcome::failed, {}, {}, {}, {}, {}, error};
}

} // namespace Inspector
