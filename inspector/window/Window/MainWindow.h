// SPDX-License-Identifier: MIT
#pragma once

#include <Inspector/Desk.h>
#include <Inspector/Place.h>
#include <Window/changes/Committer.h>
#include <Window/menu/Actions.h>

#include <QElapsedTimer>
#include <QMainWindow>
#include <QTimer>

#include <array>
#include <functional>
#include <string>

class QLabel;
class QSplitter;
class QStackedWidget;
class QTabBar;

namespace Inspector {

class ChangesPage;
class DetailPage;
class Facets;
class HealthPage;
class ImportPanel;
class ItemsView;
class MessageBar;
class SearchField;
class SettingPane;
class SettingsPage;
class StatusLine;
class Transfer;
class Trouble;

/// The window onto the stores of `place`. It opens read-only and asks nothing in windows of its own but for the names of files.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    enum Page { settingsPage, locationsPage, healthPage, changesPage, pageCount };

    explicit MainWindow(Place const& place, QWidget* parent = nullptr);
    ~MainWindow() override;

    /// Makes the setting `key` the current line, as soon as there are lines. Where there is no such key a message says so.
    void goTo(std::string const& key);

Q_SIGNALS:
    /// The first lines are in the list, or it is known that there are none.
    void filled();

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void makeParts();
    void makePages();
    void layOut();
    void connectParts();
    void connectPages();
    void connectActions();
    void connectColumns();
    void connectCommits();
    void connectTransfer();
    void restoreState();
    void saveState() const;

    void take(std::shared_ptr<Snapshot const> const& snapshot);
    void goToWanted();

    Page page() const;
    ItemsView& view() const { return *m_views[page()]; }
    void showPage(Page page);
    bool isListed(Page page) const;
    void allow(bool isOn);
    QString whyLookingOnly() const;
    void showTitles();
    void showCount();
    void speakCount();
    void showSetting();
    void showActions();
    void showAge();
    void reveal(bool isRevealed);

    void openCurrent();
    void unset();
    void lackBackup(QString const& text, std::function<void()> const& again);
    void explain();
    void about();
    void backToList();
    void goToPart(int direction);
    QString draftsText() const;
    void setPause();

    Place const m_place;
    Desk m_desk;
    Committer m_committer;
    std::shared_ptr<Snapshot const> m_snapshot;

    Actions m_actions{*this};
    QTabBar* m_tabs;
    Facets* m_facets;
    SearchField* m_search;
    QLabel* m_count;
    MessageBar* m_messages;
    QStackedWidget* m_stack;
    QSplitter* m_parts;
    SettingsPage* m_settings;
    DetailPage* m_locations;
    HealthPage* m_health;
    ChangesPage* m_changes;
    std::array<ItemsView*, pageCount> m_views;
    SettingPane* m_pane;
    ImportPanel* m_import;
    StatusLine* m_status;
    Trouble* m_trouble;
    Transfer* m_transfer;
    QTimer m_toSpeak;
    QTimer m_toAge;
    QTimer m_toCount;
    QElapsedTimer m_busy; // since a store is

    std::string m_wantedKey;
    std::string m_shown; // the id of the setting in the pane
    int m_ofPane = 0;    // the number of its last commit
    bool m_mayClose = false;
};

} // namespace Inspector
