// SPDX-License-Identifier: MIT
#include "OpenedStores.h"

#include "SnapshotLines.h"

#include <Inspector/Search.h>

#include <Inspection/DeclaredKeys.h>
#include <Inspection/RowDifference.h>
#include <Inspection/checks/FolderChecks.h>

#include <algorithm>
#include <iterator>
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

StorageError homeError(std::string const& file, Inspection::Finding const& finding)
{
    return {StorageError::Code::access, file, "make the store", finding.what, finding.remedy};
}

} // namespace

OpenedStores::OpenedStores(Place place, SlowCalls& calls, std::function<void()> haveNews)
    : m_place(std::move(place)), m_haveNews(std::move(haveNews)), m_folders(calls)
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
        m_product = Inspection::readProductFile(m_place.productFile);
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
    m_journal.push_front(std::make_shared<Change const>(
        changeOf({store, static_cast<Storage::RowDifference const&>(difference)}, difference.byThisProcess, m_changes++)));
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
    Line<Setting> const* const earlier = lineWithId(m_snapshot->settings, settingId(row.key, store));
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
    Line<Setting> const* const earlier = isRead ? nullptr : lineWithId(m_snapshot->settings, id);
    Marks const marks = {m_changed.count(id) > 0, m_troubled.count(state.key) > 0, hasStudio()};
    if (earlier)
        return *earlier;
    Setting made = settingOf(state, localRows(state), isRead, marks);
    texts.share(made.cells);
    made.shownValue = texts(made.shownValue);
    made.whyFixed = texts(made.whyFixed);
    return std::make_shared<Setting const>(std::move(made));
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
    return sortedSettings(std::move(result), m_snapshot->settings);
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
    next->findings = findingLines(*m_application, known, m_snapshot->findings);
    next->locations = locationLines(*m_application, known, m_snapshot->locations);
    std::set<std::string> troubled;
    for (Line<Finding> const& finding : next->findings)
        if (finding->found.severity != Inspection::Severity::note)
            troubled.insert(finding->key);
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
    next->findings = {
        std::make_shared<Finding const>(findingOf(Inspection::aboutProductFile(m_productError, m_place.productFile.u8string())))};
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

void OpenedStores::create(Store store)
{
    std::string const& file = side(store).view.file;
    Inspection::Findings const home = Inspection::checkHome();
    if (!home.empty() && !m_place.storeFolder && qEnvironmentVariableIsEmpty("XDG_DATA_HOME"))
        throw StorageError(homeError(file, home.front()));
    SqliteStorage const created(std::filesystem::u8path(file), options(true));
    open();
}

} // namespace Inspector
