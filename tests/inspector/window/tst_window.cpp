// SPDX-License-Identifier: MIT
#include "WindowTest.h"

#include <Window/WindowState.h>
#include <Window/editors/Passage.h>
#include <Window/pane/SettingPane.h>
#include <Window/transfer/ImportPanel.h>

#include <QClipboard>
#include <QFile>
#include <QFileDialog>
#include <QMimeData>
#include <QScrollBar>

namespace {

namespace fs = std::filesystem;

class Windows : public WindowTest {};

TEST_F(Windows, LookingMakesNoStore)
{
    open();
    close();
    EXPECT_FALSE(fs::exists(m_home.path() / "stores"));
}

TEST_F(Windows, KeyOnTheCommandLineIsTheCurrentLine)
{
    m_window = std::make_unique<MainWindow>(m_place);
    m_window->goTo("exportPath");
    m_window->show();
    EXPECT_TRUE(comes([this] { return currentKey() == QLatin1String("exportPath"); }));
    EXPECT_EQ(messages(), QString());
}

TEST_F(Windows, KeyThatDoesNotExistIsTold)
{
    open();
    goTo("nonsense");
    EXPECT_EQ(messages(), QStringLiteral("There is no setting nonsense; the list shows all."));
}

// --- Search ---

TEST_F(Windows, SearchKeepsTheCurrentLineOverWhatDoesNotFindIt)
{
    open();
    goTo("exportPath");
    press(Qt::Key_F, Qt::ControlModifier);
    type("lastTarget");
    EXPECT_EQ(currentKey(), QStringLiteral("lastTarget"));
    EXPECT_EQ(settings().foundCount(), 1);
    press(Qt::Key_Escape);
    EXPECT_EQ(search().text(), QString());
    EXPECT_EQ(currentKey(), QStringLiteral("exportPath"));
    press(Qt::Key_Escape);
    EXPECT_TRUE(settings().hasFocus());
    EXPECT_EQ(currentKey(), QStringLiteral("exportPath"));
}

TEST_F(Windows, DownGoesFromTheSearchToTheFirstLine)
{
    open();
    goTo("exportPath");
    press(Qt::Key_Slash);
    EXPECT_TRUE(search().hasFocus());
    type("Path");
    EXPECT_EQ(currentKey(), QStringLiteral("exportPath"));
    press(Qt::Key_Down);
    EXPECT_TRUE(settings().hasFocus());
    EXPECT_EQ(settings().currentIndex().row(), 0);
}

// What was shown is hidden while the list takes its line out.
TEST_F(Windows, SearchThatTakesAShownPersonalValueAwayHidesIt)
{
    SqliteStorage(m_productFile).setString("who", "Grace");
    open();
    for (char const* const away : {"@unset", "keepVideoAspect", "@set @local", "@common"}) {
        search().clear();
        goTo("who");
        press(Qt::Key_R, Qt::ControlModifier);
        ASSERT_EQ(currentValue(), QStringLiteral("Grace"));
        search().setText(QString::fromLatin1(away));
        search().clear();
        EXPECT_EQ(currentKey(), QStringLiteral("who"));
        EXPECT_EQ(currentValue(), QStringLiteral("personal, hidden")) << away;
    }
}

// A search of so many lines resets the model of the list.
TEST_F(Windows, LargeSearchKeepsTheCurrentLineAndTheSelection)
{
    {
        SqliteStorage store(m_productFile);
        for (int number = 1000; number < 2000; ++number)
            store.setInt("made" + std::to_string(number), number);
    }
    open();
    goTo("made1500");
    press(Qt::Key_Down, Qt::ShiftModifier);
    ASSERT_EQ(currentKey(), QStringLiteral("made1501"));
    search().setText(QStringLiteral("5")); // 271 of the thousand
    EXPECT_EQ(currentKey(), QStringLiteral("made1501"));
    EXPECT_EQ(settings().selectedRows().size(), 2u);
    search().clear();
    EXPECT_EQ(currentKey(), QStringLiteral("made1501"));
    EXPECT_TRUE(settings().viewport()->rect().intersects(settings().visualRect(settings().currentIndex())));
}

TEST_F(Windows, FacetsOnlyWriteWordsIntoTheSearch)
{
    m_other.set("exportPath", "/films");
    open();
    auto* const facets = m_window->findChild<Inspector::Facets*>();
    ASSERT_TRUE(comes([&] { return facets->findItems(QStringLiteral("Set"), Qt::MatchExactly).at(0)->text(1) == QLatin1String("1"); }));
    auto const press = [&](char const* name) {
        facets->setCurrentItem(facets->findItems(QString::fromLatin1(name), Qt::MatchExactly).at(0));
        QTest::keyClick(facets, Qt::Key_Space);
        return search().text();
    };
    search().setText(QStringLiteral("film"));
    EXPECT_EQ(press("Set"), QStringLiteral("film @set"));
    EXPECT_EQ(settings().foundCount(), 1);
    EXPECT_EQ(press("Product"), QStringLiteral("film @set @product"));
    EXPECT_EQ(press("Unset"), QStringLiteral("film @product @unset")) << "one of a group";
    EXPECT_EQ(press("Product"), QStringLiteral("film @unset")) << "once more takes it out";
    EXPECT_EQ(press("All"), QStringLiteral("film"));
}

TEST_F(Windows, EachPageHasItsOwnSearch)
{
    open();
    search().setText(QStringLiteral("exportPath"));
    press(Qt::Key_2, Qt::ControlModifier);
    EXPECT_EQ(search().text(), QString());
    search().setText(QStringLiteral("cache"));
    press(Qt::Key_1, Qt::ControlModifier);
    EXPECT_EQ(search().text(), QStringLiteral("exportPath"));
}

// --- Live changes ---

TEST_F(Windows, ChangesOfOthersMoveNothing)
{
    {
        SqliteStorage store(m_productFile);
        for (int number = 100; number < 200; ++number)
            store.setInt("made" + std::to_string(number), number);
    }
    open();
    goTo("made150");
    int const top = settings().visualRect(settings().currentIndex()).top();
    m_other.set("aaa", "1"); // sorted before all
    ASSERT_TRUE(comes([this] { return settings().model()->index(1, 0).data().toString() == QLatin1String("aaa"); }))
        << settings().model()->index(1, 0).data().toString().toStdString();
    QCoreApplication::processEvents();
    EXPECT_EQ(currentKey(), QStringLiteral("made150"));
    EXPECT_EQ(settings().visualRect(settings().currentIndex()).top(), top);
    EXPECT_TRUE(comes([this] { return tab(MainWindow::changesPage) == QStringLiteral("Changes · 1"); }));
}

TEST_F(Windows, CurrentLineStaysWhereAChangeTakesItOutOfTheSearch)
{
    m_other.set("exportPath", "/films");
    open();
    goTo("exportPath");
    search().setText(QStringLiteral("@set"));
    ASSERT_EQ(settings().foundCount(), 1);
    m_other.remove("exportPath");
    ASSERT_TRUE(comes([this] { return cell(settings(), 2) == QLatin1String("unset"); }));
    EXPECT_EQ(currentKey(), QStringLiteral("exportPath"));
}

// --- Personal values ---

TEST_F(Windows, PersonalValueIsShownUntilAnotherLineIsTheCurrentOne)
{
    m_other.set("who", "Grace");
    open();
    goTo("who");
    EXPECT_EQ(currentValue(), QStringLiteral("personal, hidden"));
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("who\tpersonal, hidden"));
    press(Qt::Key_R, Qt::ControlModifier);
    EXPECT_EQ(currentValue(), QStringLiteral("Grace"));
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("who\tGrace"));
    press(Qt::Key_Up);
    press(Qt::Key_Down);
    EXPECT_EQ(currentKey(), QStringLiteral("who"));
    EXPECT_EQ(currentValue(), QStringLiteral("personal, hidden"));
}

TEST_F(Windows, MenuAndPaneShowAPersonalValueTogether)
{
    m_other.set("who", "Grace");
    open();
    goTo("who");
    auto const* const pane = m_window->findChild<Inspector::SettingPane*>();
    auto const isInPane = [&] {
        for (auto const* const passage : pane->findChildren<Inspector::Passage*>())
            if (passage->isVisible() && passage->toPlainText() == QLatin1String("Grace"))
                return true;
        return false;
    };
    auto const isInMenu = [this] {
        for (QAction const* const action : m_window->findChildren<QAction*>())
            if (action->text() == QLatin1String("Show &personal value"))
                return action->isChecked();
        return false;
    };
    press(Qt::Key_R, Qt::ControlModifier);
    EXPECT_TRUE(isInPane());
    EXPECT_TRUE(isInMenu());
    choose("Hide");
    EXPECT_FALSE(isInPane());
    EXPECT_FALSE(isInMenu());
    EXPECT_EQ(currentValue(), QStringLiteral("personal, hidden"));
    choose("Show");
    EXPECT_TRUE(isInPane());
    EXPECT_TRUE(isInMenu());
    EXPECT_EQ(currentValue(), QStringLiteral("Grace"));
    press(Qt::Key_R, Qt::ControlModifier);
    EXPECT_FALSE(isInPane());
    press(Qt::Key_R, Qt::ControlModifier);
    settings().setFocus();
    press(Qt::Key_Up);
    EXPECT_FALSE(isInMenu());
    press(Qt::Key_Down);
    EXPECT_FALSE(isInPane());
}

// --- What is kept ---

TEST_F(Windows, SearchPageAndSizeAreKeptAndNothingElse)
{
    m_other.set("who", "Grace");
    open();
    goTo("who");
    press(Qt::Key_R, Qt::ControlModifier);
    press(Qt::Key_E, Qt::ControlModifier);
    search().setText(QStringLiteral("who"));
    settings().setColumnWidth(0, 123);
    press(Qt::Key_3, Qt::ControlModifier);
    m_window->resize(900, 600);
    close();
    open();
    EXPECT_EQ(m_window->findChild<QTabBar*>()->currentIndex(), 2);
    EXPECT_EQ(settings().search(), QStringLiteral("who"));
    EXPECT_EQ(settings().columnWidth(0), 123);
    EXPECT_FALSE(m_window->findChild<QCheckBox*>()->isChecked());
    goTo("who");
    EXPECT_EQ(currentValue(), QStringLiteral("personal, hidden"));
    QFile kept(Inspector::WindowState::file());
    ASSERT_TRUE(kept.open(QIODevice::ReadOnly));
    EXPECT_FALSE(kept.readAll().contains("Grace"));
}

TEST_F(Windows, HostileStateIsTakenForNone)
{
    fs::path const file = Inspector::WindowState::file().toStdString();
    fs::create_directories(file.parent_path());
    fs::path const target = m_home.write("target", R"({"page": 2})");
    std::pair<char const*, std::string> const contents[] = {
        {"no JSON", "{"},
        {"other types", R"({"page": "x", "size": 7, "searches": {"a": 1}, "columns": [1, [-5, 1e300]], "parts": [[], "x", null]})"},
        {"large numbers", R"({"page": 1e9, "size": [2147483647, -2147483648], "parts": [1e9, 1e9, 1e9]})"},
        {"too large", std::string(100000, ' ') + R"({"page": 2})"}};
    for (auto const& [what, content] : contents) {
        m_home.write(fs::relative(file, m_home.path()), content);
        Inspector::WindowState const state = Inspector::WindowState::load();
        EXPECT_LE(state.size.width(), 10000) << what;
        EXPECT_NE(state.page, 2) << what;
        open();
        EXPECT_LT(m_window->width(), 10001) << what;
        m_window.reset();
    }
    fs::remove(file);
    fs::create_symlink(target, file);
    EXPECT_EQ(Inspector::WindowState::load().page, 0) << "a link";
    Inspector::WindowState().save();
    EXPECT_EQ(fs::file_size(target), 11u) << "what the link leads to stays as it is";
}

// --- Documents ---

TEST_F(Windows, ExportAndImportGoThroughFileNamesAndAComparison)
{
    m_other.set("exportPath", "/films");
    m_other.set("who", "Grace");
    openChanging();
    QString const file = QString::fromStdString((m_home.path() / "kept.json").string());
    auto const chooseFile = [&] {
        auto* const chooser = m_window->findChild<QFileDialog*>();
        ASSERT_TRUE(chooser);
        chooser->selectFile(file);
        QMetaObject::invokeMethod(chooser, "accept");
    };
    for (QAction* const action : m_window->findChildren<QAction*>())
        if (action->text() == QStringLiteral("Export with &personal values…"))
            action->trigger();
    chooseFile();
    ASSERT_TRUE(comes([&] { return messages().startsWith(file + QStringLiteral(" was written.")); })) << messages().toStdString();
    ASSERT_TRUE(comes([this] { return !m_window->findChild<QFileDialog*>(); }));
    m_other.set("exportPath", "/other");
    m_window->activateWindow();
    ASSERT_TRUE(comes([this] { return m_window->isActiveWindow(); }));
    settings().setFocus();
    press(Qt::Key_O, Qt::ControlModifier);
    chooseFile();
    auto* const panel = m_window->findChild<Inspector::ImportPanel*>();
    ASSERT_TRUE(comes([&] { return panel->isVisible(); })) << messages().toStdString();
    EXPECT_EQ(stored("exportPath"), "/other") << "only shown so far";
    choose("Store 1");
    EXPECT_TRUE(comesToBeStored("exportPath", "/films"));
    EXPECT_TRUE(comes([&] { return !panel->isVisible(); }));
    EXPECT_EQ(stored("who"), "Grace");
    ASSERT_TRUE(comes([this] {
        for (QLabel const* const label : m_window->findChildren<QLabel*>())
            if (label->text() == QLatin1String("Undo: exportPath (Ctrl+Z)"))
                return true;
        return false;
    }));
    m_window->activateWindow();
    ASSERT_TRUE(comes([this] { return m_window->isActiveWindow() && QApplication::focusWidget(); }));
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(comesToBeStored("exportPath", "/other"));
}

TEST_F(Windows, DroppedDocumentIsCompared)
{
    m_other.set("exportPath", "/other");
    open();
    std::string const document = m_home.write("kept.json", R"({"format": "editor-settings export", "version": 1,
        "made": "2026-01-01T00:00:00.000Z", "product": "P", "stores": {"product": {}, "common": {}}})");
    auto const drop = [this](std::string const& file) {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(QString::fromStdString(file))});
        QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        enter.ignore();
        QApplication::sendEvent(m_window.get(), &enter);
        QDropEvent event({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        if (enter.isAccepted())
            QApplication::sendEvent(m_window.get(), &event);
        return enter.isAccepted();
    };
    EXPECT_FALSE(drop(m_home.write("kept.txt", "")));
    EXPECT_TRUE(drop(document));
    auto const* const panel = m_window->findChild<Inspector::ImportPanel*>();
    EXPECT_TRUE(comes([&] { return panel->isVisible(); })) << messages().toStdString();
}

TEST_F(Windows, ClosingWithADraftAsksAboveTheList)
{
    m_other.set("lastTarget", "tv");
    openChanging();
    goTo("lastTarget");
    press(Qt::Key_Return);
    type("s");
    m_window->close();
    EXPECT_TRUE(m_window->isVisible());
    EXPECT_EQ(messages(), QStringLiteral("What was entered for 1 settings is not stored: lastTarget"));
    choose("Keep editing");
    EXPECT_TRUE(m_window->isVisible());
    EXPECT_EQ(messages(), QString());
    m_window->close();
    choose("Discard drafts and close");
    EXPECT_FALSE(m_window->isVisible());
    EXPECT_EQ(stored("lastTarget"), "tv");
}

TEST_F(Windows, ChangeThatFoundNoBackupIsStoredOnceThatIsAllowed)
{
    m_place.backupFolder = m_home.write("a-file", "") / "backups";
    m_other.set("exportPath", "/films");
    openChanging();
    goTo("exportPath");
    press(Qt::Key_Delete);
    ASSERT_TRUE(comes([this] { return messages().startsWith(QLatin1String("Nothing was stored, as no backup can be made: ")); }));
    EXPECT_EQ(stored("exportPath"), "/films");
    choose("Store without backups from now on");
    EXPECT_TRUE(comesToBeStored("exportPath", "(unset)"));
}

TEST_F(Windows, EntryThatFoundNoBackupIsStoredOnceThatIsAllowed)
{
    m_place.backupFolder = m_home.write("a-file", "") / "backups";
    m_other.set("lastTarget", "tv");
    openChanging();
    goTo("lastTarget");
    press(Qt::Key_Return);
    press(Qt::Key_A, Qt::ControlModifier);
    type("phone");
    press(Qt::Key_Return);
    ASSERT_TRUE(comes([this] { return !messages().isEmpty(); }));
    goTo("exportPath");
    choose("Store without backups from now on");
    EXPECT_TRUE(comesToBeStored("lastTarget", "phone"));
    EXPECT_TRUE(comes([this] { return m_window->findChild<Inspector::SettingPane*>()->drafts().empty(); }));
}

TEST_F(Windows, BackupBeforeTheFirstChangeIsTold)
{
    m_other.set("exportPath", "/films");
    openChanging();
    goTo("exportPath");
    press(Qt::Key_Delete);
    ASSERT_TRUE(comesToBeStored("exportPath", "(unset)"));
    auto const isTold = [this] {
        for (QLabel const* const label : m_window->findChildren<QLabel*>())
            if (label->text() == QLatin1String("backup kept"))
                return label->toolTip().contains(QLatin1String("product"));
        return false;
    };
    EXPECT_TRUE(comes(isTold));
}

} // namespace
