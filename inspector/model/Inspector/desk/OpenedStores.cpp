// SPDX-License-Identifier: MIT
#include "OpenedStores.h"

#include <Inspector/Commands.h>
#include <Inspector/Search.h>

#include <Inspection/DeclaredKeys.h>
#include <Inspection/RowDifference.h>
#include <Inspection/ValueFormat.h>
#include <Inspection/checks/FolderChecks.h>
#include <Inspection/checks/StoreFileChecks.h>
#include <Inspection/checks/StoredValueChecks.h>

#include <Storage/Backup.h>

#include <absl/strings/str_cat.h>

#include <QSet>

#include <algorithm>
#include <iterator>
#include <map>
#include <tuple>
#include <utility>

#ifdef __GLIBC__
#include <malloc.h>
#endif

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
           left.shownValue == right.shownValue && left.whyFixed == right.whyFixed && left.layers == right.layers;
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
    auto known = earlier.begin();
    for (Line<T>& line : lines) {
        known = std::find_if(known, earlier.end(), [&](Line<T> const& each) { return each == line || each->id >= line->id; });
        if (known != earlier.end() && *known != line && (*known)->id == line->id && isSame(**known, *line))
            line = *known;
    }
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

/// Texts that many lines have, each of which is kept once.
class OpenedStores::SharedTexts {
public:
    QString operator()(QString const& text) { return *m_all.insert(text); }
    void share(QStringList& texts)
    {
        for (QString& text : texts)
            text = (*this)(text);
    }

private:
    QSet<QString> m_all;
};

// --- Looking ---

OpenedStores::OpenedStores(Place place, SlowCalls& calls, std::function<void()> haveNews)
    : m_place(std::move(place)), m_haveNews(std::move(haveNews)), m_folders(calls), m_backups(m_place.backupFolder)
{}
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

// The library's keys are declared while no thread of a studio's server asks for them.
void OpenedStores::readProductFile()
{
    m_application.reset();
    m_studio.reset();
    m_productError.clear();
    m_isDeclaredAsBefore = false;
    try {
        m_product = std::make_shared<Host::ProductFile>(m_place.productFile);
        Inspection::declareOwnKeys(*m_product);
    } catch (Host::ProductFileError const& error) {
        m_product.reset();
        m_productError = error.what();
    }
}

// The identities are those of the names before they are opened: should a file be replaced in between, the next look sees it.
void OpenedStores::open()
{
    for (Side& side : m_sides)
        side.identity = identityOf(side.view);
    m_application.reset();
    Host::Application::Options choice{m_place.storeFolder, Host::StorePolicy::leaveOutUnusable, options(false)};
    m_isShared = m_studio && m_studio->server();
    if (m_isShared)
        choice.share = [server = m_studio->server()](std::string const& name, std::shared_ptr<ISettingsStorage> const& local) {
            return server->store(name, local);
        };
    m_application = std::make_unique<Host::ToolApplication>(m_product, choice);
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

// The line of an undeclared key that is stored as it shows; null for all else. Of thousands of keys nearly all have one, so nothing
// else is asked for them. What is declared may have another default.
Line<Setting> const* OpenedStores::lineThatHolds(Store store, Row const& row) const
{
    static unsigned const changed = Search::bitsOf({QStringLiteral("@changed")});
    static unsigned const troubled = Search::bitsOf({QStringLiteral("@trouble")});
    Line<Setting> const* const earlier = find(m_snapshot->settings, settingId(row.key, store));
    if (!earlier || (*earlier)->state != Inspection::State::undeclared)
        return nullptr;
    std::vector<Row> const& rows = (*earlier)->rows;
    if (rows.size() != 1 || !(rows.front() == row))
        return nullptr;
    unsigned const marks = (m_changed.count((*earlier)->id) > 0 ? changed : 0) | (m_troubled.count(row.key) > 0 ? troubled : 0);
    return ((*earlier)->marks & (changed | troubled)) == marks ? earlier : nullptr;
}

// What a commit may expect: with a studio, the value in force may be one of the server's.
std::vector<OpenedStores::Row> OpenedStores::localRows(PreferenceState const& state) const
{
    if (!m_isShared)
        return state.stored;
    std::vector<Row> rows;
    SqliteStorage const* const local = Inspection::storage(*m_application, state.observation.store.value_or(state.store));
    for (Row const& row : state.stored)
        if (std::optional<Row> found = local ? local->find(row.key) : std::nullopt)
            rows.push_back(*std::move(found));
    return rows;
}

// Of a store that is unusable that of the last read, so that a list does not empty while somebody else writes for long.
Line<Setting> OpenedStores::lineOf(PreferenceState const& state, SharedTexts& texts) const
{
    Store const store = state.observation.store.value_or(state.store);
    bool const isRead = side(store).view.state != StoreState::unusable;
    std::string const id = settingId(state.key, store);
    Line<Setting> const* const earlier = isRead ? nullptr : find(m_snapshot->settings, id);
    Marks const marks = {m_changed.count(id) > 0, m_troubled.count(state.key) > 0, hasStudio()};
    if (earlier)
        return *earlier;
    Setting made = settingOf(state, localRows(state), isRead, marks);
    texts.share(made.cells);
    made.shownValue = texts(made.shownValue);
    made.whyFixed = texts(made.whyFixed);
    return line(std::move(made));
}

// What else a store held before it became unusable.
void OpenedStores::addUnread(Lines<Setting>& lines) const
{
    std::set<std::string> known;
    for (Line<Setting> const& each : lines)
        if (side(each->store).view.state == StoreState::unusable)
            known.insert(each->id);
    for (Line<Setting> const& earlier : m_snapshot->settings)
        if (side(earlier->store).view.state == StoreState::unusable && known.count(earlier->id) == 0)
            lines.push_back(earlier);
}

Lines<Setting> OpenedStores::settings() const
{
    Lines<Setting> result;
    auto const isKept = [&](Store store, std::vector<Inspection::LayeredRow> const& stored) {
        Line<Setting> const* const holds = m_isDeclaredAsBefore && !hasStudio() ? lineThatHolds(store, stored.front().row) : nullptr;
        if (holds)
            result.push_back(*holds);
        return holds != nullptr;
    };
    SharedTexts texts;
    for (PreferenceState const& state : Inspection::preferenceStates(*m_application, isKept))
        result.push_back(lineOf(state, texts));
    addUnread(result);
    return sorted(std::move(result), m_snapshot->settings);
}

// Whether its lines may be of an earlier product file.
bool OpenedStores::isUnread(Side const& side) { return side.view.state == StoreState::unusable; }

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
    m_isDeclaredAsBefore = m_isDeclaredAsBefore || std::none_of(m_sides.begin(), m_sides.end(), isUnread);
    m_folders.renew();
    return true;
} catch (StorageError const&) {
    return false;
}

namespace {

bool isEqual(Inspection::Finding const& one, Inspection::Finding const& other)
{
    auto const parts = [](Inspection::Finding const& all) {
        return std::tie(all.severity, all.check, all.store, all.key, all.what, all.remedy, all.path, all.names);
    };
    return parts(one) == parts(other);
}

// The line of `earlier` where it tells the same: a note about each of thousands of keys does.
template <typename Texts>
Line<Finding> findingLine(Inspection::Finding const& found, Lines<Finding> const& earlier, Texts& texts)
{
    Line<Finding> const* const known = find(earlier, findingId(found));
    if (known && isEqual((*known)->found, found))
        return *known;
    Finding made = findingOf(found);
    texts.share(made.cells);
    return line(std::move(made));
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

Lines<Location> locationsOf(Host::ToolApplication const& application, Inspection::PathLook const& look)
{
    Lines<Location> result;
    for (Inspection::LocationState const& state : Inspection::locationStates())
        result.push_back(line(locationOf(state, state.status(look), decisions(application, state))));
    return result;
}

} // namespace

namespace {

// What thousands of rows took to be examined lies between what is kept of them.
void giveMemoryBack()
{
#ifdef __GLIBC__
    ::malloc_trim(0);
#endif
}

} // namespace

void OpenedStores::examine()
try {
    auto next = std::make_shared<Snapshot>(*m_snapshot);
    Inspection::PathLook const known = [this](QString const& path, Inspection::PathUse use) { return m_folders.status(path, use); };
    std::set<std::string> troubled;
    Lines<Finding> findings;
    SharedTexts texts;
    for (Inspection::Finding const& found : findingsOf(*m_application, known)) {
        findings.push_back(findingLine(found, m_snapshot->findings, texts));
        if (found.severity != Inspection::Severity::note)
            troubled.insert(findings.back()->key);
    }
    next->findings = sorted(std::move(findings), m_snapshot->findings);
    next->locations = sorted(locationsOf(*m_application, known), m_snapshot->locations);
    m_snapshot = std::move(next);
    m_isExamined = true;
    m_isDirty = std::exchange(m_troubled, troubled) != troubled;
} catch (StorageError const&) { // the next look sees what became of the store
}

// What was written since the watchers' look is noted before anybody sees it, and seen together with its note: the next change is
// compared with it.
void OpenedStores::readAll()
{
    if (!readSettings()) {
        open(); // leaves out what cannot be read
        readSettings();
    }
    for (Side& side : m_sides)
        m_isDirty = watch(side) || m_isDirty;
    if (!m_isDirty)
        return;
    auto next = std::make_shared<Snapshot>(*m_snapshot);
    next->changes.assign(m_journal.begin(), m_journal.end());
    m_snapshot = std::move(next);
}

// A server that answers late is taken up as soon as it does.
void OpenedStores::readStudio()
{
    if (!m_studio)
        return;
    if (m_studio->server() && !m_isShared)
        open();
    m_isDirty = m_studio->takeNews() || m_isDirty;
    StudioView const view = m_studio->view();
    if (m_snapshot->studio && *m_snapshot->studio == view)
        return;
    auto next = std::make_shared<Snapshot>(*m_snapshot);
    next->studio = view;
    m_snapshot = std::move(next);
}

// Whether changes have stopped for as long as `pause`, or come without a pause for ten times as long.
bool OpenedStores::isTimeToExamine(std::chrono::milliseconds pause) const
{
    Clock::time_point const now = Clock::now();
    return now >= m_lastRead + pause || now >= m_lastExamined + 10 * pause;
}

// Settings are read at once, all else only after a look that found nothing new.
std::shared_ptr<Snapshot const> OpenedStores::look(std::chrono::milliseconds pause)
{
    if (!m_application && m_productError.empty())
        openAgain();
    if (!m_application)
        return m_snapshot;
    for (Side& side : m_sides)
        m_isDirty = watch(side) || m_isDirty;
    if (std::any_of(m_sides.begin(), m_sides.end(), isOutdated))
        open();
    readStudio();
    m_isExamined = !m_folders.takeNews() && m_isExamined;
    for (Side const& side : m_sides)
        m_isDirty = isChanged(side) || m_isDirty;
    if (m_isDirty) {
        readAll();
        m_lastRead = Clock::now();
    } else if (!m_isExamined && isTimeToExamine(pause)) {
        examine();
        giveMemoryBack();
        m_lastExamined = Clock::now();
    }
    return m_snapshot;
}

void OpenedStores::openAgain()
{
    readProductFile();
    m_isExamined = false;
    if (m_product) {
        open();
        if (!m_product->studio().empty())
            m_studio = std::make_unique<StudioLink>(m_product->studio(), m_haveNews);
        return;
    }
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

bool isUnreadable(Row const& row) { return std::holds_alternative<std::monostate>(row.value); }

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
        if (std::string const reason = whyFixed(*state, hasStudio()); !reason.empty())
            return reason;
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
    for (Store const store : Catalogue::bothStores) {
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

namespace {

// What a commit changes, each with the row that it was made over.
std::vector<std::pair<Store, std::optional<Row>>> rowsBefore(Commit const& commit)
{
    std::vector<std::pair<Store, std::optional<Row>>> rows;
    if (auto const* const step = std::get_if<Step>(&commit)) {
        for (auto const& [store, row] : *step)
            rows.emplace_back(store, row.after);
        return rows;
    }
    for (Edit const& edit : std::get<std::vector<Edit>>(commit)) {
        if (!isChange(edit))
            continue;
        rows.emplace_back(edit.seen->store, std::nullopt);
        for (Row const& row : edit.seen->rows)
            rows.emplace_back(edit.seen->store, row);
    }
    return rows;
}

Answer withoutBackup(StorageError const& error) { return {0, Outcome::noBackup, {}, {}, {}, {}, {}, error}; }

} // namespace

// Why the commit cannot be stored without a backup; empty where it can.
std::string OpenedStores::refusalWithoutBackup(Commit const& commit) const
{
    for (auto const& [store, row] : rowsBefore(commit))
        if (row && isUnreadable(*row) && !m_backups.has(store))
            return absl::StrCat(Inspection::onOneLine(row->key), " holds a value of kind ", Inspection::onOneLine(row->kind),
                                " that this version cannot read, so it stays as it is until the store can be backed up");
    return {};
}

// Of the stores that it changes and that were not changed before.
void OpenedStores::keepBackups(Commit const& commit)
{
    for (auto const& [name, row] : rowsBefore(commit))
        if (SqliteStorage const* const store = opened(side(name)); store && !store->isReadOnly())
            if (std::optional<std::filesystem::path> file = m_backups.keep(name, *store))
                m_untoldBackups.push_back(*std::move(file));
}

// What keeps the commit from being stored; nullopt if it can be stored.
std::optional<Answer> OpenedStores::obstacle(Commit const& commit, bool mayGoWithout)
{
    if (!m_application)
        return refused(m_productError);
    if (auto const* const edits = std::get_if<std::vector<Edit>>(&commit)) {
        if (std::none_of(edits->begin(), edits->end(), isChange))
            return Answer{};
        if (std::optional<std::string> const reason = refusal(*edits))
            return refused(*reason);
    }
    try {
        keepBackups(commit);
    } catch (StorageError const& error) {
        if (error.code() == StorageError::Code::busy)
            throw;
        if (!mayGoWithout)
            return withoutBackup(error);
        if (std::string const reason = refusalWithoutBackup(commit); !reason.empty())
            return refused(reason);
    }
    return std::nullopt;
}

Answer OpenedStores::stored(Commit const& commit, bool mayGoWithout)
try {
    if (std::optional<Answer> const answer = obstacle(commit, mayGoWithout))
        return *answer;
    auto const* const edits = std::get_if<std::vector<Edit>>(&commit);
    return edits ? applied(plan(*edits), true) : applied(plan(std::get<Step>(commit)), false);
} catch (Storage::Conflict const& conflict) {
    return {0, Outcome::conflict, {}, {}, conflict.key(), conflict.row()};
} catch (StorageError const& error) {
    if (error.code() == StorageError::Code::busy)
        throw;
    return failed(error);
}

Answer OpenedStores::store(Commit const& commit, bool mayGoWithout)
{
    Answer answer = stored(commit, mayGoWithout);
    answer.backups = std::exchange(m_untoldBackups, {});
    return answer;
}

// --- Documents and backups ---

Answer OpenedStores::compare(std::filesystem::path const& file, Inspection::Document const& document) const
try {
    if (!m_application)
        return refused(m_productError);
    Answer answer = {0, Outcome::compared};
    answer.comparison = std::make_shared<DocumentComparison const>(comparisonOf(*m_application, file, document));
    return answer;
} catch (Inspection::DocumentError const& error) {
    return refused(documentFault(file, error));
}

std::optional<Inspection::Export> OpenedStores::exported(bool isRedacted) const
{
    return m_application ? std::optional(Inspection::exported(*m_application, {{}, isRedacted})) : std::nullopt;
}

Answer OpenedStores::backUp(std::filesystem::path const& file) const
{
    std::map<std::string, SqliteStorage const*> present;
    for (Side const& side : m_sides)
        if (SqliteStorage const* const store = m_application ? opened(side) : nullptr)
            present[Catalogue::name(side.store)] = store;
    if (present.empty())
        return refused(m_application ? "there is no store yet, so there is nothing to back up" : m_productError);
    Storage::Backup::write(file, present);
    Answer answer = {0, Outcome::written};
    answer.file = file;
    return answer;
}

} // namespace Inspector
