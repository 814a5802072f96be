// SPDX-License-Identifier: MIT
#include <inspector/window/WindowTest.h>

#include <QClipboard>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QRadioButton>

#include <map>
#include <set>

namespace {

class Keys : public WindowTest {
protected:
    /// The text of the action of that name in a menu, as far as a colon.
    QAction* action(char const* text) const
    {
        for (QAction* const each : m_window->findChildren<QAction*>())
            if (each->text().remove(QLatin1Char('&')).section(QLatin1Char(':'), 0, 0) == QLatin1String(text))
                return each;
        return nullptr;
    }
};

void collect(QMenu const& menu, std::set<QAction const*>& found)
{
    std::set<QChar> letters;
    for (QAction const* const each : menu.actions()) {
        if (each->isSeparator())
            continue;
        found.insert(each);
        auto const at = each->text().indexOf(QLatin1Char('&'));
        bool const isUnique = at < 0 || letters.insert(each->text()[at + 1].toLower()).second;
        EXPECT_TRUE(isUnique) << each->text().toStdString();
        if (each->menu())
            collect(*each->menu(), found);
    }
}

TEST_F(Keys, ReachEveryAction)
{
    open();
    std::set<QAction const*> inMenus;
    std::set<QChar> letters;
    for (QAction const* const menu : m_window->menuBar()->actions()) {
        EXPECT_TRUE(letters.insert(menu->text()[menu->text().indexOf(QLatin1Char('&')) + 1]).second);
        inMenus.insert(menu);
        collect(*menu->menu(), inMenus);
    }
    EXPECT_GT(inMenus.size(), 25u);
    for (QAction const* const each : m_window->findChildren<QAction*>()) {
        bool const isOfMenu = !each->text().isEmpty() && qobject_cast<QMenu*>(each->parent());
        EXPECT_TRUE(!isOfMenu || inMenus.count(each) == 1) << each->text().toStdString();
    }
    std::map<QKeySequence, QString> owners;
    for (QAction const* const each : inMenus)
        for (QKeySequence const& keys : each->shortcuts())
            EXPECT_TRUE(owners.emplace(keys, each->text()).second) << keys.toString().toStdString();
}

TEST_F(Keys, TabVisitsEachWidgetOnce)
{
    m_other.set("exportPath", "/films");
    openChanging();
    for (Qt::Key const page : {Qt::Key_1, Qt::Key_2, Qt::Key_3, Qt::Key_4}) {
        press(page, Qt::ControlModifier);
        std::set<QWidget const*> expected;
        // Of a group of radio buttons Tab visits the chosen one, and arrow keys the others.
        auto const isInGroup = [](QWidget const* widget) {
            auto const* const radio = qobject_cast<QRadioButton const*>(widget);
            return radio && !radio->isChecked();
        };
        for (QWidget const* const each : m_window->findChildren<QWidget*>())
            if (!isInGroup(each) && (each->focusPolicy() & Qt::TabFocus) && each->isVisible() && each->isEnabled() && !each->focusProxy())
                expected.insert(each);
        std::set<QWidget const*> visited;
        for (std::size_t step = 0; step < expected.size(); ++step) {
            QWidget const* const focus = QApplication::focusWidget();
            EXPECT_TRUE(visited.insert(focus).second) << focus->metaObject()->className() << ' ' << focus->accessibleName().toStdString();
            press(Qt::Key_Tab);
        }
        EXPECT_EQ(visited, expected);
        QWidget const* const first = QApplication::focusWidget();
        press(Qt::Key_Tab);
        press(Qt::Key_Backtab, Qt::ShiftModifier);
        EXPECT_EQ(QApplication::focusWidget(), first);
    }
}

TEST_F(Keys, EveryWidgetThatTakesTheFocusHasAName)
{
    open();
    int count = 0;
    for (QWidget const* const each : m_window->findChildren<QWidget*>()) {
        bool const isNamedByItself = qobject_cast<QAbstractButton const*>(each) != nullptr;
        if (!(each->focusPolicy() & Qt::TabFocus) || isNamedByItself)
            continue;
        EXPECT_FALSE(each->accessibleName().isEmpty()) << each->metaObject()->className();
        ++count;
    }
    EXPECT_GT(count, 6);
}

TEST_F(Keys, GoFromPartToPart)
{
    open();
    goTo("exportPath");
    ASSERT_TRUE(settings().hasFocus());
    std::set<QWidget const*> visited = {QApplication::focusWidget()};
    for (press(Qt::Key_F6); !settings().hasFocus() && visited.size() < 10; press(Qt::Key_F6))
        EXPECT_TRUE(visited.insert(QApplication::focusWidget()).second);
    EXPECT_GE(visited.size(), 3u) << "facets, list and status at least";
    press(Qt::Key_F6, Qt::ShiftModifier);
    EXPECT_TRUE(m_window->findChild<Inspector::Facets*>()->hasFocus());
    press(Qt::Key_F6);
    EXPECT_TRUE(settings().hasFocus());
}

// --- Storing ---

TEST_F(Keys, UnsetUndoAndRedoEndInTheStore)
{
    m_other.set("exportPath", "/films");
    openChanging();
    goTo("exportPath");
    press(Qt::Key_Delete);
    ASSERT_TRUE(comesToBeStored("exportPath", "(unset)"));
    ASSERT_TRUE(comes([this] { return action("Undo")->text() == QLatin1String("&Undo: exportPath"); }));
    press(Qt::Key_Z, Qt::ControlModifier);
    ASSERT_TRUE(comesToBeStored("exportPath", "/films"));
    ASSERT_TRUE(comes([this] { return action("Redo")->text() == QLatin1String("&Redo: exportPath"); }));
    press(Qt::Key_Y, Qt::ControlModifier);
    ASSERT_TRUE(comesToBeStored("exportPath", "(unset)"));
    EXPECT_EQ(messages(), QString());
}

TEST_F(Keys, SearchTextIsUndoneBeforeTheStore)
{
    m_other.set("exportPath", "/films");
    openChanging();
    goTo("exportPath");
    press(Qt::Key_Delete);
    ASSERT_TRUE(comes([this] { return action("Undo")->text() == QLatin1String("&Undo: exportPath"); }));
    press(Qt::Key_F, Qt::ControlModifier);
    type("x");
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(search().text(), QString());
    EXPECT_EQ(stored("exportPath"), "(unset)");
    press(Qt::Key_Z, Qt::ControlModifier); // no text is left to undo
    EXPECT_TRUE(comesToBeStored("exportPath", "/films"));
}

TEST_F(Keys, SeveralAreUnsetOnlyOnceTheirListIsConfirmed)
{
    m_other.set("exportPath", "/films");
    m_other.set("lastTarget", "disk");
    m_other.set("who", "Grace");
    openChanging();
    press(Qt::Key_F, Qt::ControlModifier);
    type("@set");
    press(Qt::Key_Down);
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_Delete);
    EXPECT_TRUE(messages().startsWith(QLatin1String("Unset 3 setting"))) << messages().toStdString();
    EXPECT_TRUE(messages().contains(QLatin1String("\nexportPath: /films, then ")));
    EXPECT_TRUE(messages().contains(QLatin1String("\nwho: personal, hidden, then ")));
    press(Qt::Key_Space); // the focus is on the choice that keeps them
    EXPECT_EQ(messages(), QString());
    EXPECT_EQ(stored("exportPath"), "/films");
    EXPECT_TRUE(settings().hasFocus());
    press(Qt::Key_Delete);
    choose("Unset 3");
    ASSERT_TRUE(comesToBeStored("exportPath", "(unset)"));
    EXPECT_EQ(stored("lastTarget"), "(unset)");
    EXPECT_EQ(stored("who"), "(unset)");
    ASSERT_TRUE(comes([this] { return action("Undo")->text().contains(QLatin1String("and 2 more")); }));
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(comesToBeStored("who", "Grace"));
    EXPECT_EQ(stored("exportPath"), "/films");
}

TEST_F(Keys, PutBackIsANewStep)
{
    m_other.set("exportPath", "/films");
    openChanging();
    m_other.set("exportPath", "/other");
    ASSERT_TRUE(comes([this] { return tab(MainWindow::changesPage) == QStringLiteral("Changes · 1"); }));
    press(Qt::Key_4, Qt::ControlModifier);
    press(Qt::Key_Down);
    ASSERT_TRUE(action("Put back")->isEnabled());
    action("Put back")->trigger();
    ASSERT_TRUE(comesToBeStored("exportPath", "/films"));
    ASSERT_TRUE(comes([this] { return action("Undo")->text() == QLatin1String("&Undo: exportPath"); }));
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(comesToBeStored("exportPath", "/other"));
}

TEST_F(Keys, UndoLeavesWhatSomebodyElseHasChangedSince)
{
    m_other.set("exportPath", "/films");
    openChanging();
    goTo("exportPath");
    press(Qt::Key_Delete);
    ASSERT_TRUE(comes([this] { return action("Undo")->text() == QLatin1String("&Undo: exportPath"); }));
    m_other.set("exportPath", "/other");
    ASSERT_TRUE(comes([this] { return currentValue() == QLatin1String("/other"); }));
    press(Qt::Key_Z, Qt::ControlModifier);
    ASSERT_TRUE(comes([this] { return !messages().isEmpty(); }));
    EXPECT_EQ(messages(), QStringLiteral("exportPath was changed by somebody else meanwhile, so it stays as it is now.\n"
                                         "There was: (unset)\nThere is now: /other\nThere would be again: /films"));
    EXPECT_EQ(stored("exportPath"), "/other");
}

TEST_F(Keys, LookingOnlyStoresNothing)
{
    m_other.set("exportPath", "/films");
    open();
    goTo("exportPath");
    press(Qt::Key_Delete);
    EXPECT_FALSE(action("Unset")->isEnabled());
    press(Qt::Key_E, Qt::ControlModifier);
    press(Qt::Key_E, Qt::ControlModifier);
    press(Qt::Key_Delete);
    press(Qt::Key_Z, Qt::ControlModifier);
    close();
    EXPECT_EQ(stored("exportPath"), "/films");
}

// --- Copies ---

TEST_F(Keys, CopiesAreTextJsonAndCommand)
{
    m_other.set("exportPath", "/my$films");
    open();
    goTo("exportPath");
    std::string const options = "--product " + m_place.productFile.string() + " --home " + m_place.storeFolder->string();
    std::pair<char const*, std::string> const copies[] = {
        {"Copy", "exportPath\t/my$films"},
        {"Copy key", "exportPath"},
        {"Copy value", "/my$films"},
        {"Copy as JSON", "{\n  \"key\": \"exportPath\",\n  \"value\": \"/my$films\"\n}"},
        {"Copy as command", "editor-settings " + options + " set exportPath '/my$films'"},
    };
    for (auto const& [name, text] : copies) {
        action(name)->trigger();
        EXPECT_EQ(QApplication::clipboard()->text().toStdString(), text) << name;
    }
}

} // namespace
