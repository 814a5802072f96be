// SPDX-License-Identifier: MIT
//
// Personal values are in no role of any model until somebody asks to see them.
#include "DeskTest.h"

#include <Inspector/Commands.h>
#include <Inspector/SearchProxy.h>

namespace {

using Inspector::ItemsModel;
using Inspector::Search;

constexpr char const* secrets[] = {"s3cret",      "2147483647", "hidden-place", "third.one", "wedding-2019",
                                   "dailies-ada", "stills-bo",  "songs-cy",     "rushes-di", "ed-the-user"};

class Personal : public DeskTest {
protected:
    Personal()
    {
        SqliteStorage store(m_productFile);
        store.setString("who", "s3cret\n\xFF");
        store.setInt("age", 2147483647);
        m_home.write("hidden-place", "a file in the folder's place");
        store.setString("home: nest", (m_home.path() / "hidden-place").string());
        store.setString("npsEmailToSend", "third.one@example.org");
        store.setString("lastAddMediaPath", "/home/wedding-2019");
        store.setString("lastAddVideoPath", (m_home.path() / "dailies-ada").string());
        store.setString("lastAddImagePath", "stills-bo");
        store.setString("lastAddAudioPath", "/dev/null/songs-cy");
        store.setString("lastAddDirectoryPath", "~/rushes-di");
        store.setString("quizExportUserId", "ed-the-user");
    }

    // Everything that a model tells of itself, in every role and cell; what is dragged is made of that.
    static std::string everything(QAbstractItemModel const& model)
    {
        std::string all;
        for (int row = 0; row < model.rowCount(); ++row)
            for (int column = 0; column < model.columnCount(); ++column)
                for (int role = 0; role < Qt::UserRole + 20; ++role)
                    all += model.index(row, column).data(role).toString().toStdString() + '\n';
        return all;
    }

    std::string everythingShown()
    {
        m_settings.show(m_snapshot->settings);
        m_locations.show(m_snapshot->locations);
        m_findings.show(m_snapshot->findings);
        m_changes.show(m_snapshot->changes);
        return everything(m_settings) + everything(m_locations) + everything(m_findings) + everything(m_changes);
    }

    Inspector::SettingsModel m_settings;
    ItemsModel m_locations{Inspector::locationHeadings()};
    ItemsModel m_findings{Inspector::findingHeadings()};
    ItemsModel m_changes{Inspector::changeHeadings()};
};

TEST_F(Personal, ValuesAreInNoRoleOfAnyModel)
{
    start();
    ASSERT_TRUE(comes([this] { return setting("home: nest")->searchText.contains(QStringLiteral("@trouble")); }));
    SqliteStorage(m_productFile).setString("who", "s3cret, once more");
    m_other.set("who", "s3cretbyothers");
    m_other.remove("npsEmailToSend");
    ASSERT_TRUE(comes([this] { return everythingShown().find("personal, hidden, (unset)") != std::string::npos; })) << "in the journal";
    ASSERT_TRUE(comes([this] { return !m_snapshot->findings.empty(); }));
    std::string const all = everythingShown();
    for (char const* const secret : secrets)
        EXPECT_EQ(all.find(secret), std::string::npos) << secret;
    EXPECT_NE(all.find("who, personal, hidden, set"), std::string::npos);
    EXPECT_GE(m_findings.rowCount(), 2);
}

TEST_F(Personal, RevealedValueIsShownInItsLineUntilTheNextOne)
{
    start();
    everythingShown();
    m_settings.reveal(Inspector::settingId("npsEmailToSend", Store::product));
    QModelIndex const line = m_settings.indexOf(Inspector::settingId("npsEmailToSend", Store::product));
    EXPECT_EQ(line.siblingAtColumn(Inspector::Setting::valueColumn).data().toString(), QStringLiteral("third.one@example.org"));
    EXPECT_EQ(line.data(Qt::AccessibleTextRole).toString(), QStringLiteral("npsEmailToSend, third.one@example.org, set"));
    std::string const all = everything(m_settings);
    EXPECT_EQ(all.find("s3cret"), std::string::npos);
    m_settings.reveal(Inspector::settingId("who", Store::product));
    EXPECT_EQ(everything(m_settings).find("third.one"), std::string::npos);
    m_settings.reveal({});
    EXPECT_EQ(everything(m_settings).find("s3cret"), std::string::npos);
}

TEST_F(Personal, NoSearchFindsAHiddenValue)
{
    start();
    everythingShown();
    Inspector::SearchProxy proxy(m_settings);
    proxy.setSearch(Search(QStringLiteral("third")));
    EXPECT_EQ(proxy.rowCount(), 0);
    m_settings.reveal(Inspector::settingId("npsEmailToSend", Store::product));
    proxy.setSearch(Search(QStringLiteral("third.")));
    EXPECT_EQ(proxy.rowCount(), 0) << "revealed on screen only";
    proxy.setSearch(Search(QStringLiteral("@personal @set")));
    EXPECT_EQ(proxy.rowCount(), 10);
}

TEST_F(Personal, UnsetPersonalSettingShowsItsDefault)
{
    SqliteStorage(m_productFile).remove("age");
    start();
    EXPECT_EQ(cell("age"), "0");
}

} // namespace
