// SPDX-License-Identifier: MIT
#include <Window/MainWindow.h>

#include <Window/WindowState.h>
#include <Window/changes/Unsetting.h>
#include <Window/list/Columns.h>
#include <Window/list/Facets.h>
#include <Window/list/SearchField.h>
#include <Window/menu/Copies.h>
#include <Window/menu/PartFocus.h>
#include <Window/menu/Steps.h>
#include <Window/pages/ChangesPage.h>
#include <Window/pages/HealthPage.h>
#include <Window/pages/LocationsPage.h>
#include <Window/pages/SettingsPage.h>
#include <Window/pane/SettingPane.h>
#include <Window/status/MessageBar.h>
#include <Window/status/StatusLine.h>
#include <Window/status/Trouble.h>
#include <Window/transfer/ImportPanel.h>
#include <Window/transfer/Transfer.h>

#include <Inspector/PlainText.h>

#include <QAccessible>
#include <QApplication>
#include <QBoxLayout>
#include <QCheckBox>
#include <QCloseEvent>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QSplitter>
#include <QStackedWidget>
#include <QTabBar>

#include <algorithm>
#include <chrono>

namespace Inspector {

namespace {

bool isBusy(StoreView const& store) { return store.error && store.error->code() == Storage::StorageError::Code::busy; }

} // namespace

MainWindow::MainWindow(Place const& place, QWidget* parent)
    : QMainWindow(parent), m_place(place), m_desk(place), m_committer(m_desk, nullptr)
{
    setWindowTitle(tr("Lumora Video Editor settings"));
    makeParts();
    layOut();
    connectParts();
    connectPages();
    connectActions();
    connectColumns();
    connectCommits();
    connectTransfer();
    restoreState();
    showPage(page());
    showActions();
    setPause();
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
    makePages();
    m_pane = new SettingPane(m_place, this);
    m_status = new StatusLine(this);
    new Steps(m_actions, m_committer, *m_messages, *m_status, *this);
    m_trouble = new Trouble(*m_messages, this);
    m_toSpeak.setSingleShot(true);
    m_toSpeak.setInterval(500);
    m_toCount.setSingleShot(true);
    m_toCount.setInterval(200);
    m_toAge.setInterval(1000);
    m_toAge.start();
}

void MainWindow::makePages()
{
    m_settings = new SettingsPage(m_stack);
    m_locations = new LocationsPage(m_stack);
    m_health = new HealthPage(m_stack);
    m_changes = new ChangesPage(m_stack);
    m_import = new ImportPanel(m_place, m_stack);
    for (QWidget* const each : std::initializer_list<QWidget*>{m_settings, m_locations, m_health, m_changes, m_import})
        m_stack->addWidget(each);
    m_views = {&m_settings->view(), &m_locations->view(), &m_health->view(), &m_changes->view()};
    new Copies(m_actions, m_place, *m_settings, {m_views.begin() + locationsPage, m_views.end()}, *m_messages);
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
        connect(each, &ItemsView::wantsToSearch, m_actions.find, &QAction::trigger);
        connect(each->model(), &QAbstractItemModel::rowsInserted, this, &MainWindow::showCount);
        connect(each->model(), &QAbstractItemModel::rowsRemoved, this, &MainWindow::showCount);
        connect(each->model(), &QAbstractItemModel::modelReset, this, &MainWindow::showCount);
    }
    connect(m_pane, &SettingPane::isDone, this, [this] { m_views[settingsPage]->setFocus(Qt::OtherFocusReason); });
    connect(m_pane, &SettingPane::isRevealed, this, &MainWindow::reveal);
    connect(m_pane, &SettingPane::draftsChanged, this, [this] { m_views[settingsPage]->setDrafts(m_pane->drafts()); });
    connect(&m_toSpeak, &QTimer::timeout, this, &MainWindow::speakCount);
    connect(&m_toAge, &QTimer::timeout, this, &MainWindow::showAge);
    connect(&m_toCount, &QTimer::timeout, this, [this] { m_facets->count(m_settings->model()); });
    connect(m_trouble, &Trouble::wantsToLookAgain, this, [this] { m_desk.lookAgain(); });
    connect(m_trouble, &Trouble::wantsHealth, this, [this] { showPage(healthPage); });
}

void MainWindow::connectPages()
{
    connect(m_views[settingsPage], &ItemsView::moved, this, &MainWindow::showSetting);
    connect(m_views[settingsPage], &ItemsView::opened, this, &MainWindow::openCurrent);
    connect(m_health, &HealthPage::wantsSetting, this, &MainWindow::goTo);
    connect(m_changes, &ChangesPage::wantsToPutBack, this, [this](Step const& step) {
        if (isListed(changesPage))
            m_committer.commit(step);
    });
    connect(m_changes, &DetailPage::refreshed, this, &MainWindow::showActions);
    m_views[settingsPage]->addAction(m_actions.unset);
    m_views[settingsPage]->addAction(m_actions.reveal);
    m_views[changesPage]->addAction(m_actions.putBack);
    m_actions.unset->setShortcutContext(Qt::WidgetShortcut);
}

void MainWindow::connectActions()
{
    auto const on = [this](QAction* action, auto act) { connect(action, &QAction::triggered, this, act); };
    on(m_actions.quit, [this] { close(); });
    on(m_actions.unset, [this] { unset(); });
    on(m_actions.putBack, [this] { m_changes->choose(); });
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
    on(m_actions.nextPart, [this] { goToPart(1); });
    on(m_actions.previousPart, [this] { goToPart(-1); });
    on(m_actions.explain, [this] { explain(); });
    on(m_actions.about, [this] { about(); });
    connect(m_actions.allowChanges, &QAction::toggled, &m_status->changes(), &QCheckBox::setChecked);
    connect(&m_status->changes(), &QCheckBox::toggled, this, &MainWindow::allow);
}

void MainWindow::connectColumns()
{
    for (int column = 0; column < m_settings->model().columnCount(); ++column) {
        QAction* const action = m_actions.columns->addAction(m_settings->model().headerData(column, Qt::Horizontal).toString());
        action->setCheckable(true);
        action->setEnabled(column != Setting::keyColumn);
        connect(action, &QAction::toggled, this, [=](bool isOn) { m_views[settingsPage]->setColumnHidden(column, !isOn); });
    }
}

void MainWindow::connectCommits()
{
    connect(m_pane, &SettingPane::wantsToStore, this, [this](Commit const& commit) {
        m_ofPane = m_committer.commit(
            commit, [this](Answer const& answer) { m_pane->take(answer); }, [this] { m_pane->storeAgain(); });
    });
    connect(m_pane, &SettingPane::wantsToCancel, this, [this] { m_desk.cancel(m_ofPane); });
    connect(m_import, &ImportPanel::wantsToStore, this,
            [this](Commit const& commit) { m_committer.commit(commit, [this](Answer const& answer) { m_import->take(answer); }); });
    connect(&m_committer, &Committer::refused, this, [this](QString const& text) { m_messages->report(QStringLiteral("refusal"), text); });
    connect(&m_committer, &Committer::lacksBackup, this, &MainWindow::lackBackup);
    connect(&m_committer, &Committer::madeBackups, this, [this](std::vector<std::filesystem::path> const& files) {
        QStringList names;
        for (std::filesystem::path const& file : files)
            names += plainText(file.string());
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
        m_settings->showLines(snapshot->settings);
    if (!snapshot->locations.empty())
        m_locations->showLines(snapshot->locations);
    m_settings->showTrouble(snapshot->findings);
    m_health->showLines(snapshot->findings);
    m_changes->showLines(snapshot->changes);
    m_status->show(*snapshot);
    m_actions.allowChanges->setEnabled(m_status->refusal().isEmpty());
    m_toCount.start();
    showTitles();
    showCount();
    showAge();
    m_trouble->tell(*snapshot);
    m_pane->look(snapshot);
    showSetting();
    goToWanted();
    if (isFirst)
        Q_EMIT filled();
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
    for (Catalogue::Store const store : Catalogue::bothStores)
        if (m_views[settingsPage]->setCurrent(settingId(key, store)))
            return m_views[settingsPage]->setFocus(Qt::OtherFocusReason);
    m_messages->tell(QStringLiteral("key"), tr("There is no setting %1; the list shows all.").arg(plainText(Inspection::onOneLine(key))));
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
    showSetting();
    showActions();
}

// Whether its list can be seen.
bool MainWindow::isListed(Page page) const { return m_stack->currentIndex() == page; }

void MainWindow::allow(bool isOn)
{
    m_actions.allowChanges->setChecked(isOn);
    m_desk.allowChanges(isOn);
    QString const reason = isOn ? QString() : whyLookingOnly();
    m_import->allowChanges(isOn, reason);
    m_changes->allowChanges(isOn, reason);
    showSetting();
    showActions();
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

void MainWindow::showActions()
{
    m_actions.unset->setEnabled(m_status->changes().isChecked());
    m_actions.putBack->setEnabled(page() == changesPage && m_changes->isOffered());
}

void MainWindow::showSetting()
{
    std::shared_ptr<Setting const> const setting = m_settings->current();
    std::string const id = setting ? setting->id : "";
    m_pane->show(setting);
    if (std::exchange(m_shown, id) != id)
        reveal(false);
    bool const isOn = m_status->changes().isChecked();
    StoreView const* const store = !setting                                      ? nullptr
                                   : setting->store == Catalogue::Store::product ? &m_snapshot->product
                                                                                 : &m_snapshot->common;
    bool const isFixed = store && store->state == Inspection::StoreState::readOnly;
    m_pane->allowChanges(isOn && !isFixed, !isOn ? whyLookingOnly() : isFixed ? plainText(store->error->what()) : QString());
    m_actions.reveal->setEnabled(setting && setting->isHidden);
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
    m_settings->reveal(isRevealed);
    m_pane->reveal(!m_settings->revealed().empty());
    m_actions.reveal->setChecked(!m_settings->revealed().empty());
}

// --- What is done ---

void MainWindow::openCurrent()
{
    if (page() == settingsPage)
        m_pane->edit();
    else if (page() == healthPage)
        m_health->choose();
}

void MainWindow::unset()
{
    if (isListed(settingsPage))
        Inspector::unset(m_settings->selected(), m_committer, *m_messages, [this] { backToList(); });
}

void MainWindow::lackBackup(QString const& text, std::function<void()> const& again)
{
    m_messages->report(QStringLiteral("backup"), tr("Nothing was stored, as no backup can be made: %1").arg(text),
                       {{tr("Store &without backups from now on"), [this, again] {
                             m_desk.storeWithoutBackup();
                             again();
                         }}});
}

void MainWindow::explain()
{
    std::shared_ptr<Setting const> const setting = m_settings->current();
    if (!setting || page() != settingsPage)
        return;
    QString text = setting->cells[Setting::keyColumn] + QStringLiteral(": ") +
                   (setting->about.purpose.empty() ? tr("no version of the editor declares it") : plainText(setting->about.purpose));
    if (!setting->about.accepts.empty())
        text += QLatin1Char('\n') + tr("It takes %1.").arg(plainText(setting->about.accepts));
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

void MainWindow::goToPart(int direction)
{
    DetailPage const* const pages[] = {nullptr, m_locations, m_health, m_changes};
    QWidget* const below = page() == settingsPage ? static_cast<QWidget*>(m_pane) : &pages[page()]->details();
    focusPart({m_facets, m_messages, &view(), m_import, below, m_status}, direction);
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

// The wheel would turn pages.
bool MainWindow::eventFilter(QObject* watched, QEvent* event) { return watched == m_tabs && event->type() == QEvent::Wheel; }

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
    QList<QList<int>> const inCharacters = {{26, 14, 12, 10, 0, 0, 0, 0, 0}, {34, 46, 26, 20}, {10, 30, 60, 20}, {22, 16, 10, 26, 26, 26}};
    for (int at = 0; at < pageCount; ++at) {
        ItemsView& view = *m_views[static_cast<std::size_t>(at)];
        setColumns(view, state.columns.size() == pageCount ? state.columns[at] : QList<int>(), inCharacters[at]);
        view.setSearch(state.searches.size() == pageCount ? state.searches[at].left(m_search->maxLength()) : QString());
    }
    QList<QAction*> const columns = m_actions.columns->actions();
    for (int column = 0; column < columns.size(); ++column)
        columns[column]->setChecked(!m_views[settingsPage]->isColumnHidden(column));
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
        state.columns += columnsOf(*each);
    }
    state.save();
}

} // namespace Inspector
