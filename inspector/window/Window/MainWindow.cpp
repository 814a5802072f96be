// SPDX-License-Identifier: MIT
#include <Window/MainWindow.h>

#include <Window/WindowState.h>
#include <Window/list/Facets.h>
#include <Window/list/ItemsView.h>
#include <Window/list/SearchField.h>
#include <Window/pages/DetailPage.h>
#include <Window/pane/SettingPane.h>
#include <Window/status/MessageBar.h>
#include <Window/status/StatusLine.h>
#include <Window/transfer/ImportPanel.h>
#include <Window/transfer/Transfer.h>

#include <Inspection/OneLine.h>

#include <QAccessible>
#include <QApplication>
#include <QBoxLayout>
#include <QCheckBox>
#include <QClipboard>
#include <QCloseEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QSplitter>
#include <QStackedWidget>
#include <QTabBar>

#include <algorithm>
#include <chrono>

namespace Inspector {

namespace {

QString shown(std::string const& text) { return QString::fromStdString(Inspection::withoutControls(text)); }

bool isBusy(StoreView const& store) { return store.error && store.error->code() == Storage::StorageError::Code::busy; }

constexpr int longestList = 10;

// Whether the focus is in a text that has something to undo or redo.
bool hasTextStep(QWidget const* widget, History::Way way)
{
    bool const isUndo = way == History::Way::undo;
    if (auto const* const line = qobject_cast<QLineEdit const*>(widget))
        return !line->isReadOnly() && (isUndo ? line->isUndoAvailable() : line->isRedoAvailable());
    if (auto const* const text = qobject_cast<QPlainTextEdit const*>(widget))
        return !text->isReadOnly() && (isUndo ? text->document()->isUndoAvailable() : text->document()->isRedoAvailable());
    return false;
}

// The first widget in `part` that Tab reaches.
QWidget* firstIn(QWidget* part)
{
    QWidget* widget = part;
    do {
        bool const isInside = widget == part || part->isAncestorOf(widget);
        if (isInside && (widget->focusPolicy() & Qt::TabFocus) && widget->isEnabled() && widget->isVisible())
            return widget;
        widget = widget->nextInFocusChain();
    } while (widget != part);
    return nullptr;
}

} // namespace

MainWindow::MainWindow(Place const& place, QWidget* parent)
    : QMainWindow(parent), m_place(place), m_desk(place), m_committer(m_desk, nullptr)
{
    setWindowTitle(tr("Lumora Video Editor settings"));
    makeParts();
    layOut();
    connectParts();
    connectActions();
    connectCopies();
    connectCommits();
    connectTransfer();
    restoreState();
    showPage(page());
    showSteps();
    setPause();
    qApp->installEventFilter(this);
    connect(&m_desk, &Desk::looked, this, &MainWindow::take);
}

MainWindow::~MainWindow() { disconnect(&m_committer, nullptr, this, nullptr); }

// --- The parts ---

// In the order in which Tab visits them.
void MainWindow::makeParts()
{
    m_tabs = new QTabBar(this);
    m_tabs->setAccessibleName(tr("Pages"));
    m_tabs->setExpanding(false);
    m_tabs->setDrawBase(false);
    for (int at = 0; at < pageCount; ++at)
        m_tabs->addTab({});
    m_facets = new Facets(this);
    m_search = new SearchField(this);
    m_count = new QLabel(this);
    m_messages = new MessageBar(this);
    m_stack = new QStackedWidget(this);
    m_views[settingsPage] = new ItemsView(m_settings, tr("Settings"), m_stack);
    m_stack->addWidget(m_views[settingsPage]);
    m_details[locationsPage] = new DetailPage(m_locations, tr("Locations"), {}, m_stack);
    m_details[healthPage] = new DetailPage(m_findings, tr("Findings"), tr("&Go there"), m_stack);
    m_details[changesPage] = new DetailPage(m_changes, tr("Changes"), tr("&Put back"), m_stack);
    for (int at = locationsPage; at < pageCount; ++at) {
        m_stack->addWidget(m_details[at]);
        m_views[at] = &m_details[at]->view();
    }
    m_import = new ImportPanel(m_place, m_stack);
    m_stack->addWidget(m_import);
    m_pane = new SettingPane(m_place, this);
    m_status = new StatusLine(this);
    m_toSpeak.setSingleShot(true);
    m_toSpeak.setInterval(500);
    m_toCount.setSingleShot(true);
    m_toCount.setInterval(200);
    m_toAge.setInterval(1000);
    m_toAge.start();
}

void MainWindow::layOut()
{
    m_parts = new QSplitter(this);
    m_parts->setChildrenCollapsible(false);
    for (QWidget* const part : {static_cast<QWidget*>(m_facets), static_cast<QWidget*>(m_stack), static_cast<QWidget*>(m_pane)})
        m_parts->addWidget(part);
    m_parts->setStretchFactor(1, 1);
    auto* const top = new QHBoxLayout;
    top->addWidget(m_tabs);
    top->addStretch(1);
    top->addWidget(m_search, 3);
    top->addWidget(m_count);
    auto* const central = new QWidget(this);
    auto* const whole = new QVBoxLayout(central);
    whole->addLayout(top);
    whole->addWidget(m_messages);
    whole->addWidget(m_parts, 1);
    setCentralWidget(central);
    setStatusBar(m_status);
}

void MainWindow::connectParts()
{
    connect(m_tabs, &QTabBar::currentChanged, this, [this](int at) { showPage(static_cast<Page>(at)); });
    m_tabs->installEventFilter(this);
    connect(m_facets, &Facets::searchChosen, m_search, &QLineEdit::setText);
    connect(m_search, &QLineEdit::textChanged, this, [this](QString const& typed) {
        view().setSearch(typed);
        m_facets->setSearch(m_views[settingsPage]->search());
        m_toSpeak.start();
    });
    connect(m_search, &SearchField::wantsFirst, this, [this] {
        view().setFocus(Qt::ShortcutFocusReason);
        view().setCurrentIndex(view().model()->index(0, 0));
    });
    connect(m_search, &SearchField::wantsBack, this, [this] { view().setFocus(Qt::ShortcutFocusReason); });
    for (ItemsView* const each : m_views) {
        connect(each, &ItemsView::moved, this, &MainWindow::showDetails);
        connect(each, &ItemsView::opened, this, &MainWindow::openCurrent);
        connect(each, &ItemsView::wantsToSearch, m_actions.find, &QAction::trigger);
        for (auto const changes : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved})
            connect(each->model(), changes, this, &MainWindow::showCount);
        connect(each->model(), &QAbstractItemModel::modelReset, this, &MainWindow::showCount);
    }
    connect(m_details[healthPage], &DetailPage::chosen, this, &MainWindow::openCurrent);
    connect(m_details[changesPage], &DetailPage::chosen, this, &MainWindow::putBack);
    connect(m_pane, &SettingPane::isDone, this, [this] { m_views[settingsPage]->setFocus(Qt::OtherFocusReason); });
    connect(m_pane, &SettingPane::isRevealed, this, &MainWindow::reveal);
    connect(m_pane, &SettingPane::draftsChanged, this, [this] { m_views[settingsPage]->setDrafts(m_pane->drafts()); });
    connect(&m_toSpeak, &QTimer::timeout, this, &MainWindow::speakCount);
    connect(&m_toAge, &QTimer::timeout, this, &MainWindow::showAge);
    connect(&m_toCount, &QTimer::timeout, this, [this] { m_facets->count(m_settings); });
}

void MainWindow::connectActions()
{
    auto const on = [this](QAction* action, auto act) { connect(action, &QAction::triggered, this, act); };
    on(m_actions.quit, [this] { close(); });
    on(m_actions.undo, [this] { step(History::Way::undo); });
    on(m_actions.redo, [this] { step(History::Way::redo); });
    on(m_actions.unset, [this] { unset(); });
    on(m_actions.putBack, [this] { putBack(); });
    on(m_actions.find, [this] {
        m_search->setFocus(Qt::ShortcutFocusReason);
        m_search->selectAll();
    });
    for (int at = 0; at < pageCount; ++at)
        on(m_actions.pages[static_cast<std::size_t>(at)], [=] {
            m_tabs->setCurrentIndex(at);
            view().setFocus(Qt::ShortcutFocusReason);
        });
    on(m_actions.reveal, [this](bool isOn) { reveal(isOn); });
    on(m_actions.open, [this] { openCurrent(); });
    on(m_actions.lookAgain, [this] { m_desk.lookAgain(); });
    on(m_actions.nextPart, [this] { focusPart(1); });
    on(m_actions.previousPart, [this] { focusPart(-1); });
    on(m_actions.explain, [this] { explain(); });
    on(m_actions.about, [this] { about(); });
    connect(m_actions.allowChanges, &QAction::toggled, &m_status->changes(), &QCheckBox::setChecked);
    connect(&m_status->changes(), &QCheckBox::toggled, this, &MainWindow::allow);
    for (int column = 0; column < m_settings.columnCount(); ++column) {
        QAction* const action = m_actions.columns->addAction(m_settings.headerData(column, Qt::Horizontal).toString());
        action->setCheckable(true);
        action->setEnabled(column != Setting::keyColumn);
        connect(action, &QAction::toggled, this, [=](bool isOn) { m_views[settingsPage]->setColumnHidden(column, !isOn); });
    }
}

void MainWindow::connectCopies()
{
    std::pair<QAction*, CopyForm> const copies[] = {{m_actions.copy, CopyForm::keyAndValue},
                                                    {m_actions.copyCommand, CopyForm::command},
                                                    {m_actions.copyKey, CopyForm::key},
                                                    {m_actions.copyValue, CopyForm::value},
                                                    {m_actions.copyJson, CopyForm::json}};
    for (auto const& [action, form] : copies) {
        connect(action, &QAction::triggered, this, [this, form = form] { copy(form); });
        m_views[settingsPage]->addAction(action);
    }
    for (int at = locationsPage; at < pageCount; ++at)
        m_views[at]->addAction(m_actions.copy);
    m_views[settingsPage]->addAction(m_actions.unset);
    m_views[settingsPage]->addAction(m_actions.reveal);
    m_views[changesPage]->addAction(m_actions.putBack);
    m_actions.unset->setShortcutContext(Qt::WidgetShortcut);
}

void MainWindow::connectCommits()
{
    connect(m_pane, &SettingPane::wantsToStore, this,
            [this](Commit const& commit) { m_committer.commit(commit, [this](Answer const& answer) { m_pane->take(answer); }); });
    connect(m_import, &ImportPanel::wantsToStore, this,
            [this](Commit const& commit) { m_committer.commit(commit, [this](Answer const& answer) { m_import->take(answer); }); });
    connect(&m_committer, &Committer::stepsChanged, this, &MainWindow::showSteps);
    connect(&m_committer, &Committer::refused, this, [this](QString const& text) { m_messages->report(QStringLiteral("refusal"), text); });
    connect(&m_committer, &Committer::lacksBackup, this, [this](QString const& text) {
        m_messages->report(QStringLiteral("backup"), tr("Nothing was stored, as no backup can be made: %1").arg(text),
                           {{tr("Store &without backups from now on"), [this] { m_desk.storeWithoutBackup(); }}});
    });
    connect(&m_committer, &Committer::madeBackups, this, [this](std::vector<std::filesystem::path> const& files) {
        QStringList names;
        for (std::filesystem::path const& file : files)
            names += shown(file.string());
        m_status->showBackups(tr("As it was before the first change: %1").arg(names.join(QStringLiteral(", "))));
    });
    connect(&m_desk, &Desk::waits, this, [this](int number) {
        if (number == m_ofPane)
            return; // the pane offers it itself
        m_messages->report(QStringLiteral("waits"), tr("Another program keeps a store locked, and the change waits for it."),
                           {{tr("Cance&l the change"), [=] { m_desk.cancel(number); }}});
    });
}

void MainWindow::connectTransfer()
{
    m_transfer = new Transfer(m_desk, m_committer, *m_messages, *this);
    connect(m_actions.importFile, &QAction::triggered, m_transfer, &Transfer::chooseImport);
    connect(m_actions.exportFile, &QAction::triggered, m_transfer, [this] { m_transfer->chooseExport(true); });
    connect(m_actions.exportAll, &QAction::triggered, m_transfer, [this] { m_transfer->chooseExport(false); });
    connect(m_actions.backUp, &QAction::triggered, m_transfer, &Transfer::chooseBackup);
    connect(m_transfer, &Transfer::compared, this, [this](auto const& comparison) {
        m_stack->setCurrentWidget(m_import);
        m_facets->hide();
        m_pane->hide();
        m_import->show(comparison);
    });
    connect(m_import, &ImportPanel::isDone, this, [this] {
        showPage(page());
        backToList();
    });
    setAcceptDrops(true);
}

// --- What was found ---

void MainWindow::take(std::shared_ptr<Snapshot const> const& snapshot)
{
    bool const isFirst = !std::exchange(m_snapshot, snapshot);
    // Without a product file there are no lines; those of an earlier look stay.
    if (!snapshot->settings.empty())
        m_settings.show(m_lines = snapshot->settings);
    if (!snapshot->locations.empty())
        m_locations.show(snapshot->locations);
    m_findings.show(snapshot->findings);
    m_changes.show(snapshot->changes);
    m_status->show(*snapshot);
    m_actions.allowChanges->setEnabled(m_status->refusal().isEmpty());
    m_toCount.start();
    showTitles();
    showCount();
    showAge();
    tellTrouble();
    m_pane->look(snapshot);
    showSetting();
    showDetails();
    goToWanted();
    if (isFirst)
        Q_EMIT filled();
}

void MainWindow::tellTrouble()
{
    tellTrouble(QStringLiteral("product"), m_snapshot->product);
    tellTrouble(QStringLiteral("common"), m_snapshot->common);
    QString const cause = QStringLiteral("product file");
    bool const isOpened = m_snapshot->findings.empty() || m_snapshot->findings.front()->found.check != Inspection::Check::productFile;
    if (isOpened)
        return m_messages->clear(cause);
    Inspection::Finding const& found = m_snapshot->findings.front()->found;
    m_messages->tell(cause, shown(found.what) + QStringLiteral("; ") + shown(found.remedy),
                     {{tr("&Try again"), [this] { m_desk.lookAgain(); }}});
}

// That a store is busy is told at the bottom, as it is over before anybody has read it.
void MainWindow::tellTrouble(QString const& cause, StoreView const& store)
{
    if (!store.error)
        m_messages->clear(cause);
    else if (!isBusy(store))
        m_messages->tell(cause,
                         store.state == Inspection::StoreState::readOnly ? tr("only for reading: %1").arg(shown(store.error->what()))
                                                                         : shown(store.error->what()),
                         {{tr("&Try again"), [this] { m_desk.lookAgain(); }}, {tr("Health"), [this] { showPage(healthPage); }}});
}

void MainWindow::goTo(std::string const& key)
{
    m_wantedKey = key;
    if (m_snapshot)
        goToWanted();
}

void MainWindow::goToWanted()
{
    if (m_wantedKey.empty() || m_snapshot->settings.empty())
        return;
    std::string const key = std::exchange(m_wantedKey, {});
    showPage(settingsPage);
    for (Catalogue::Store const store : {Catalogue::Store::product, Catalogue::Store::common})
        if (m_views[settingsPage]->setCurrent(settingId(key, store)))
            return m_views[settingsPage]->setFocus(Qt::OtherFocusReason);
    m_messages->tell(QStringLiteral("key"), tr("There is no setting %1; the list shows all.").arg(shown(Inspection::onOneLine(key))));
}

// --- Showing it ---

MainWindow::Page MainWindow::page() const { return static_cast<Page>(m_tabs->currentIndex()); }

void MainWindow::showPage(Page page)
{
    m_tabs->setCurrentIndex(page);
    m_stack->setCurrentIndex(page);
    m_actions.pages[page]->setChecked(true);
    m_facets->setVisible(page == settingsPage);
    m_pane->setVisible(page == settingsPage);
    m_search->setText(view().search());
    m_toSpeak.stop();
    showCount();
    showDetails();
}

// Whether its list can be seen.
bool MainWindow::isListed(Page page) const { return m_stack->currentIndex() == page; }

void MainWindow::allow(bool isOn)
{
    m_actions.allowChanges->setChecked(isOn);
    m_desk.allowChanges(isOn);
    m_import->allowChanges(isOn, isOn ? QString() : whyLookingOnly());
    showDetails();
    showSetting();
    showSteps();
}

QString MainWindow::whyLookingOnly() const
{
    return m_status->refusal().isEmpty() ? tr("Looking only: Ctrl+E allows changes") : m_status->refusal();
}

void MainWindow::showTitles()
{
    auto const title = [](QString const& name, std::size_t count) {
        return count > 0 ? QStringLiteral("%1 · %2").arg(name, QLocale().toString(static_cast<qulonglong>(count))) : name;
    };
    auto const isTrouble = [](auto const& finding) { return finding->found.severity != Inspection::Severity::note; };
    std::size_t const troubles =
        m_snapshot ? static_cast<std::size_t>(std::count_if(m_snapshot->findings.begin(), m_snapshot->findings.end(), isTrouble)) : 0;
    m_tabs->setTabText(settingsPage, tr("Settings"));
    m_tabs->setTabText(locationsPage, tr("Locations"));
    m_tabs->setTabText(healthPage, title(tr("Health"), troubles));
    m_tabs->setTabText(changesPage, title(tr("Changes"), m_snapshot ? m_snapshot->changes.size() : 0));
}

void MainWindow::showCount()
{
    m_count->setText(tr("%1 of %2").arg(locale().toString(view().foundCount()), locale().toString(view().allCount())));
}

void MainWindow::speakCount()
{
    m_count->setAccessibleName(m_count->text());
    QAccessibleEvent alert(m_count, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

std::shared_ptr<Setting const> MainWindow::lineOf(int row) const
{
    std::string const& id = m_settings.item(row).id;
    auto const isBefore = [](std::shared_ptr<Setting const> const& line, std::string const& wanted) { return line->id < wanted; };
    auto const found = std::lower_bound(m_lines.begin(), m_lines.end(), id, isBefore);
    return found != m_lines.end() && (*found)->id == id ? *found : nullptr;
}

std::shared_ptr<Setting const> MainWindow::current() const
{
    int const row = m_views[settingsPage]->currentRow();
    return row < 0 ? nullptr : lineOf(row);
}

Lines<Setting> MainWindow::selected() const
{
    Lines<Setting> result;
    for (int const row : m_views[settingsPage]->selectedRows())
        if (std::shared_ptr<Setting const> const line = lineOf(row))
            result.push_back(line);
    return result;
}

void MainWindow::showSetting()
{
    std::shared_ptr<Setting const> const setting = current();
    std::string const id = setting ? setting->id : "";
    m_pane->show(setting);
    if (std::exchange(m_shown, id) != id)
        reveal(false);
    bool const isOn = m_status->changes().isChecked();
    StoreView const* const store = !setting                                      ? nullptr
                                   : setting->store == Catalogue::Store::product ? &m_snapshot->product
                                                                                 : &m_snapshot->common;
    bool const isFixed = store && store->state == Inspection::StoreState::readOnly;
    m_pane->allowChanges(isOn && !isFixed, !isOn ? whyLookingOnly() : isFixed ? shown(store->error->what()) : QString());
    m_actions.reveal->setEnabled(setting && setting->isHidden);
}

// A line of a page that has no pane, and what can be done with it.
void MainWindow::showDetails()
{
    Page const at = page();
    if (at == settingsPage)
        return showSetting();
    int const row = view().currentRow();
    if (row < 0)
        return m_details[at]->show({});
    QStringList text;
    if (at == locationsPage)
        for (std::string const& decision : static_cast<Location const&>(m_locations.item(row)).decidedBy)
            text += shown(decision);
    else if (at == healthPage)
        text = m_findings.item(row).cells.mid(2);
    else
        text = m_changes.item(row).cells;
    bool const isOffered =
        at == healthPage ? !static_cast<Finding const&>(m_findings.item(row)).key.empty() : m_status->changes().isChecked();
    m_details[at]->show(text.join(QLatin1Char('\n')), isOffered, at == changesPage && !isOffered ? whyLookingOnly() : QString());
    m_actions.putBack->setEnabled(at == changesPage && isOffered);
}

void MainWindow::showSteps()
{
    bool const isOn = m_status->changes().isChecked();
    QString const undo = m_committer.nextStep(History::Way::undo);
    QString const redo = m_committer.nextStep(History::Way::redo);
    m_actions.undo->setText(undo.isEmpty() ? tr("&Undo") : tr("&Undo: %1").arg(undo));
    m_actions.redo->setText(redo.isEmpty() ? tr("&Redo") : tr("&Redo: %1").arg(redo));
    m_status->showStep(m_committer.isWaiting() ? tr("Storing…") : undo.isEmpty() ? QString() : tr("Undo: %1 (Ctrl+Z)").arg(undo));
    m_actions.unset->setEnabled(isOn);
    if (!m_committer.isWaiting())
        m_messages->clear(QStringLiteral("waits"));
}

void MainWindow::showAge()
{
    if (!m_snapshot)
        return m_status->showAge(tr("opening the stores"));
    bool const isWaiting = isBusy(m_snapshot->product) || isBusy(m_snapshot->common);
    if (!isWaiting)
        m_busy.invalidate();
    else if (!m_busy.isValid())
        m_busy.start();
    m_status->showAge(isWaiting ? tr("waiting for another program, %1 s").arg(m_busy.elapsed() / 1000) : tr("live"));
}

// Of the current setting, until another one is.
void MainWindow::reveal(bool isRevealed)
{
    std::shared_ptr<Setting const> const setting = current();
    m_revealed = isRevealed && setting ? setting->id : "";
    m_settings.reveal(m_revealed);
    m_pane->reveal(!m_revealed.empty());
    m_actions.reveal->setChecked(!m_revealed.empty());
}

// --- What is done ---

void MainWindow::openCurrent()
{
    if (page() == settingsPage)
        return m_pane->edit();
    int const row = view().currentRow();
    if (page() == healthPage && row >= 0)
        goTo(static_cast<Finding const&>(m_findings.item(row)).key);
}

void MainWindow::unset()
{
    if (!isListed(settingsPage))
        return;
    std::vector<Edit> edits;
    QStringList lines;
    for (std::shared_ptr<Setting const> const& setting : selected())
        if (!setting->rows.empty()) {
            edits.push_back({setting, std::nullopt});
            lines +=
                tr("%1: %2, then %3")
                    .arg(setting->cells[Setting::keyColumn], setting->cells[Setting::valueColumn], setting->cells[Setting::defaultColumn]);
        }
    if (edits.size() == 1)
        m_committer.commit(edits);
    if (edits.size() < 2)
        return;
    int const count = static_cast<int>(edits.size());
    if (int const more = count - longestList; more > 0)
        lines = lines.mid(0, longestList) << tr("and %n more", nullptr, more);
    m_messages->ask(QStringLiteral("unset"),
                    tr("Unset %n settings? They follow their defaults then.", nullptr, count) + QLatin1Char('\n') +
                        lines.join(QLatin1Char('\n')),
                    {{tr("&Unset %n", nullptr, count),
                      [=] {
                          m_committer.commit(edits);
                          backToList();
                      }},
                     {tr("&Keep them"), [this] { backToList(); }}});
}

void MainWindow::putBack()
{
    int const row = m_views[changesPage]->currentRow();
    if (row >= 0 && isListed(changesPage))
        m_committer.commit(Step{static_cast<Change const&>(m_changes.item(row)).row});
}

void MainWindow::step(History::Way way)
{
    QWidget* const focus = QApplication::focusWidget();
    if (hasTextStep(focus, way))
        QMetaObject::invokeMethod(focus, way == History::Way::undo ? "undo" : "redo");
    else if (m_status->changes().isChecked())
        m_committer.step(way);
}

void MainWindow::copy(CopyForm form)
{
    if (page() != settingsPage)
        return QApplication::clipboard()->setText(view().selectedText());
    std::optional<QString> const text = copyText(selected(), form, m_revealed, m_place);
    if (text)
        QApplication::clipboard()->setText(*text);
    else
        m_messages->report(QStringLiteral("copy"), tr("No command line can hold this value."));
}

void MainWindow::explain()
{
    std::shared_ptr<Setting const> const setting = current();
    if (!setting || page() != settingsPage)
        return;
    QString text = setting->cells[Setting::keyColumn] + QStringLiteral(": ") +
                   (setting->about.purpose.empty() ? tr("no version of the editor declares it") : shown(setting->about.purpose));
    if (!setting->about.accepts.empty())
        text += QLatin1Char('\n') + tr("It takes %1.").arg(shown(setting->about.accepts));
    m_messages->report(QStringLiteral("help"), text);
}

void MainWindow::about()
{
    m_messages->report(QStringLiteral("help"),
                       tr("editor-settings-inspector %1 shows and changes the settings of Lumora Video Editor. It "
                          "stores nothing until changes are allowed. The command line editor-settings does the same.")
                           .arg(QApplication::applicationVersion()));
}

// --- The window ---

void MainWindow::backToList() { view().setFocus(Qt::OtherFocusReason); }

void MainWindow::focusPart(int direction)
{
    QWidget* const below = page() == settingsPage ? static_cast<QWidget*>(m_pane) : &m_details[page()]->details();
    QWidget* const all[] = {m_facets, m_messages, &view(), m_import, below, m_status};
    std::vector<QWidget*> parts;
    std::copy_if(std::begin(all), std::end(all), std::back_inserter(parts),
                 [](QWidget* part) { return part->isVisible() && firstIn(part); });
    QWidget const* const focus = QApplication::focusWidget();
    auto const hasFocus = [&](QWidget const* part) { return focus && (part == focus || part->isAncestorOf(focus)); };
    auto const here = std::find_if(parts.begin(), parts.end(), hasFocus);
    int const count = static_cast<int>(parts.size());
    int const from = here == parts.end() ? (direction > 0 ? -1 : 0) : static_cast<int>(here - parts.begin());
    firstIn(parts[static_cast<std::size_t>((from + direction + count) % count)])->setFocus(Qt::ShortcutFocusReason);
}

void MainWindow::setPause()
{
    using namespace std::chrono_literals;
    m_desk.setPause(isMinimized() ? 1h : isActiveWindow() ? 100ms : 1s);
}

void MainWindow::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    if (event->type() != QEvent::ActivationChange && event->type() != QEvent::WindowStateChange)
        return;
    setPause();
    if (event->type() == QEvent::ActivationChange && isActiveWindow())
        m_desk.lookAgain();
}

// Keys that a text takes for itself although it has nothing to undo, and the wheel, which would turn pages.
bool MainWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_tabs && event->type() == QEvent::Wheel)
        return true;
    if (event->type() != QEvent::ShortcutOverride)
        return false;
    QKeySequence const keys(static_cast<QKeyEvent*>(event)->key() | static_cast<int>(static_cast<QKeyEvent*>(event)->modifiers()));
    bool const isUndo = m_actions.undo->shortcuts().contains(keys) && !hasTextStep(qobject_cast<QWidget*>(watched), History::Way::undo);
    bool const isRedo = m_actions.redo->shortcuts().contains(keys) && !hasTextStep(qobject_cast<QWidget*>(watched), History::Way::redo);
    if (isUndo || isRedo)
        event->ignore();
    return isUndo || isRedo;
}

// A document only, of which the comparison is shown: nothing is stored by a drop.
void MainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    QList<QUrl> const urls = event->mimeData()->urls();
    if (urls.size() == 1 && urls[0].toLocalFile().endsWith(QLatin1String(".json")))
        event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event) { m_transfer->compare(event->mimeData()->urls().value(0).toLocalFile()); }

void MainWindow::closeEvent(QCloseEvent* event)
{
    std::size_t const drafts = m_pane->drafts().size();
    if (m_mayClose || (drafts == 0 && !m_committer.isWaiting())) {
        saveState();
        return QMainWindow::closeEvent(event);
    }
    event->ignore();
    auto const leave = [this] {
        m_mayClose = true;
        close();
    };
    MessageBar::Choices const choices = {{drafts > 0 ? tr("&Discard drafts and close") : tr("&Close now"), leave},
                                         {tr("&Keep editing"), [this] { backToList(); }}};
    m_messages->ask(QStringLiteral("close"),
                    drafts > 0 ? draftsText() : tr("A change is waiting for a store that another program has locked."), choices);
}

QString MainWindow::draftsText() const
{
    QStringList keys;
    for (std::string const& id : m_pane->drafts())
        keys += QString::fromStdString(Inspection::onOneLine(id.substr(0, id.find('\0'))));
    return tr("What was entered for %n settings is not stored: %1", nullptr, static_cast<int>(keys.size()))
        .arg(keys.join(QStringLiteral(", ")));
}

void MainWindow::restoreState()
{
    WindowState const state = WindowState::load();
    int const unit = fontMetrics().averageCharWidth();
    resize(state.size.isEmpty() ? QSize(unit * 150, fontMetrics().lineSpacing() * 38) : state.size);
    m_parts->setSizes(state.parts.size() == 3 ? state.parts : QList<int>{unit * 22, width() - unit * 58, unit * 36});
    // In characters; the values take what is left.
    QList<QList<int>> const first = {{20, 14, 9, 8, 0, 0, 0, 0, 0}, {34, 50, 12, 20}, {10, 30, 60, 20}, {22, 16, 10, 26, 26, 26}};
    m_views[settingsPage]->header()->setMinimumSectionSize(unit * 6);
    m_views[settingsPage]->header()->setStretchLastSection(false);
    m_views[settingsPage]->header()->setSectionResizeMode(Setting::valueColumn, QHeaderView::Stretch);
    for (int at = 0; at < pageCount; ++at) {
        bool const isKept = state.columns.size() == pageCount && state.columns[at].size() == m_views[at]->model()->columnCount();
        for (int column = 0; column < m_views[at]->model()->columnCount(); ++column) {
            int const width = isKept ? state.columns[at][column] : first[at][column] * unit;
            m_views[at]->setColumnHidden(column, width == 0 && column > 0);
            if (width > 0)
                m_views[at]->setColumnWidth(column, width);
        }
        m_views[at]->setSearch(state.searches.size() == pageCount ? state.searches[at].left(m_search->maxLength()) : QString());
    }
    for (int column = 0; column < m_settings.columnCount(); ++column)
        m_actions.columns->actions()[column]->setChecked(!m_views[settingsPage]->isColumnHidden(column));
    m_tabs->setCurrentIndex(qBound(0, state.page, pageCount - 1));
}

void MainWindow::saveState() const
{
    WindowState state;
    state.size = size();
    state.page = page();
    state.parts = m_parts->sizes();
    for (ItemsView const* const each : m_views) {
        state.searches += each->search();
        QList<int> widths;
        for (int column = 0; column < each->model()->columnCount(); ++column)
            widths += each->isColumnHidden(column) ? 0 : each->columnWidth(column);
        state.columns += widths;
    }
    state.save();
}

} // namespace Inspector
