// SPDX-License-Identifier: MIT
#include "WindowTest.h"

#include <Window/editors/Passage.h>
#include <Window/pane/SettingPane.h>

namespace {

namespace fs = std::filesystem;

class Trouble : public WindowTest {};

TEST_F(Trouble, DamagedStoreIsToldAboveTheListAndTheOtherOneWorks)
{
    m_home.write("stores/product-settings.sqlite", "not a store");
    SqliteStorage(m_commonFile).setBool("sendStatistics", false);
    openChanging();
    EXPECT_TRUE(messages().contains(QLatin1String("product-settings.sqlite: cannot open the store: "))) << messages().toStdString();
    EXPECT_GT(settings().foundCount(), 40);
    EXPECT_EQ(tab(MainWindow::settingsPage), QStringLiteral("Settings"));
    goTo("sendStatistics");
    press(Qt::Key_Delete);
    EXPECT_TRUE(comes([this] { return !SqliteStorage(m_commonFile).find("sendStatistics"); }));
    fs::remove(m_productFile);
    m_other.set("exportPath", "/films");
    EXPECT_TRUE(comes([this] { return messages().isEmpty(); })) << "the trouble is over";
}

TEST_F(Trouble, MessageThatWasClosedStaysClosedForTheSameCause)
{
    m_home.write("stores/product-settings.sqlite", "not a store");
    open();
    ASSERT_FALSE(messages().isEmpty());
    choose("Close");
    EXPECT_TRUE(messages().isEmpty());
    SqliteStorage(m_commonFile).setBool("sendStatistics", false);
    goTo("sendStatistics");
    ASSERT_TRUE(comes([this] { return currentValue() == QLatin1String("false"); })) << "another look";
    EXPECT_TRUE(messages().isEmpty());
}

TEST_F(Trouble, StoreThatIsDamagedLaterKeepsItsLines)
{
    m_other.set("exportPath", "/films");
    open();
    goTo("exportPath");
    fs::rename(m_home.write("garbage", "not a store"), m_productFile);
    ASSERT_TRUE(comes([this] { return !messages().isEmpty(); }));
    EXPECT_EQ(currentKey(), QStringLiteral("exportPath"));
    EXPECT_EQ(currentValue(), QStringLiteral("/films"));
}

TEST_F(Trouble, StoresOfALaterVersionDisableTheSwitchWithTheirReason)
{
    m_other.set("exportPath", "/films");
    SqliteStorage(m_commonFile).setBool("sendStatistics", false);
    for (fs::path const& file : {m_productFile, m_commonFile})
        OtherProgram(file).execute("PRAGMA user_version = 2");
    open();
    auto const* const allow = m_window->findChild<QCheckBox*>();
    EXPECT_FALSE(allow->isEnabled());
    EXPECT_TRUE(allow->toolTip().contains(QLatin1String("newer version"))) << allow->toolTip().toStdString();
    EXPECT_EQ(allow->accessibleDescription(), allow->toolTip());
    EXPECT_TRUE(messages().startsWith(QLatin1String("only for reading: "))) << messages().toStdString();
    press(Qt::Key_E, Qt::ControlModifier);
    EXPECT_FALSE(allow->isChecked());
    goTo("exportPath");
    EXPECT_EQ(currentValue(), QStringLiteral("/films"));
}

TEST_F(Trouble, ProductFileThatCannotBeReadIsToldUntilItCan)
{
    m_place.productFile = m_home.write("product.json", "{");
    open();
    EXPECT_FALSE(messages().isEmpty());
    EXPECT_EQ(tab(MainWindow::healthPage), QStringLiteral("Health · 1"));
    m_home.write("product.json", R"({"vendorName": "V", "productName": "P", "sharedDataFolderName": "S", "productKind": 0,
        "projectFileExtensions": [], "resourcesRoot": "r"})");
    choose("Try again");
    EXPECT_TRUE(comes([this] { return settings().foundCount() > 40 && messages().isEmpty(); }));
}

TEST_F(Trouble, FindingLeadsToItsSetting)
{
    SqliteStorage(m_productFile).setInt("exportPath", 3);
    open();
    press(Qt::Key_3, Qt::ControlModifier);
    search().setText(QStringLiteral("exportPath (product"));
    ASSERT_TRUE(comes([this] { return view(MainWindow::healthPage).foundCount() == 1; }));
    EXPECT_NE(tab(MainWindow::healthPage), QStringLiteral("Health"));
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_EQ(m_window->findChild<QTabBar*>()->currentIndex(), 0);
    EXPECT_EQ(currentKey(), QStringLiteral("exportPath"));
}

// The window is painted and searched while others keep a store; nothing in it waits.
TEST_F(Trouble, LockedStoreHoldsUpNothing)
{
    m_other.set("exportPath", "/films");
    openChanging();
    goTo("exportPath");
    OtherProgram program(m_productFile);
    program.execute("PRAGMA busy_timeout = 60000; BEGIN EXCLUSIVE"); // the desk reads now and then
    press(Qt::Key_Delete);
    auto const statusSays = [this](char const* text) {
        for (QLabel const* const label : m_window->findChildren<QLabel*>())
            if (label->isVisible() && label->text().contains(QLatin1String(text)))
                return true;
        return false;
    };
    EXPECT_TRUE(statusSays("Storing"));
    ASSERT_TRUE(comes([&] { return statusSays("waiting for another program"); }));
    ASSERT_TRUE(comes([&] { return messages() == QLatin1String("Another program keeps a store locked, and the change waits for it."); }));
    for (char const* const searched : {"l", "last", "", "export"}) {
        search().setText(QLatin1String(searched));
        EXPECT_FALSE(m_window->grab().isNull());
    }
    EXPECT_EQ(currentValue(), QStringLiteral("/films"));
    m_window->close();
    EXPECT_TRUE(m_window->isVisible()) << "what waits would be lost";
    choose("Keep editing");
    program.execute("ROLLBACK");
    EXPECT_TRUE(comesToBeStored("exportPath", "(unset)"));
    ASSERT_TRUE(comes([&] { return !statusSays("Storing"); }));
    EXPECT_EQ(messages(), QString());
    m_window->close();
    EXPECT_FALSE(m_window->isVisible());
}

TEST_F(Trouble, ChangeThatWaitsIsCancelled)
{
    m_other.set("exportPath", "/films");
    openChanging();
    goTo("exportPath");
    OtherProgram program(m_productFile);
    program.execute("PRAGMA busy_timeout = 60000; BEGIN EXCLUSIVE"); // the desk reads now and then
    press(Qt::Key_Delete);
    ASSERT_TRUE(comes([this] { return !messages().isEmpty(); }));
    choose("Cancel the change");
    EXPECT_TRUE(comes([this] { return messages() == QLatin1String("cancelled; nothing was changed"); })) << messages().toStdString();
    program.execute("ROLLBACK");
    EXPECT_EQ(stored("exportPath"), "/films");
}

TEST_F(Trouble, EntryThatWaitsIsCancelledInThePane)
{
    m_other.set("lastTarget", "tv");
    openChanging();
    goTo("lastTarget");
    OtherProgram program(m_productFile);
    program.execute("PRAGMA busy_timeout = 60000; BEGIN EXCLUSIVE"); // the desk reads now and then
    press(Qt::Key_Return);
    type("s");
    press(Qt::Key_Return);
    auto const* const pane = m_window->findChild<Inspector::SettingPane*>();
    auto const says = [&](char const* text) {
        for (auto const* const passage : pane->findChildren<Inspector::Passage*>())
            if (passage->isVisible() && passage->toPlainText().contains(QLatin1String(text)))
                return true;
        return false;
    };
    ASSERT_TRUE(comes([&] { return says("waiting for another process"); }));
    EXPECT_EQ(messages(), QString()) << "the pane offers it";
    choose("Cancel");
    EXPECT_TRUE(comes([&] { return says("cancelled; nothing was changed"); }));
    program.execute("ROLLBACK");
    EXPECT_EQ(stored("lastTarget"), "tv");
}

} // namespace
