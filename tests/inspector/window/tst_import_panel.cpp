// SPDX-License-Identifier: MIT
//
// The choice of what a document changes.
#include "PaneTest.h"

#include <Window/transfer/ImportPanel.h>

#include <QClipboard>
#include <QTreeView>

namespace {

class Importing : public PaneTest {
protected:
    void show(std::string const& values)
    {
        store("exportPath", std::string("/mine"));
        start();
        m_desk->allowChanges(true);
        int const number = m_desk->compare(
            m_home.write("settings.json", R"({"format": "editor-settings export", "version": 1, "made": "2026-11-20T16:40:53.344Z",
                "product": "P", "stores": {"product": {)" +
                                              values + R"(}, "common": {}}})"));
        ASSERT_TRUE(comes([&] { return !m_answers.empty() && m_answers.back().number == number; }));
        ASSERT_EQ(m_answers.back().outcome, Outcome::compared) << m_answers.back().whyNot().toStdString();
        QObject::connect(&m_panel, &Inspector::ImportPanel::wantsToStore, &m_panel,
                         [this](Inspector::Commit const& commit) { m_number = m_desk->commit(commit); });
        QObject::connect(&m_panel, &Inspector::ImportPanel::isDone, &m_panel, [this] { ++m_ends; });
        QObject::connect(&*m_desk, &Inspector::Desk::answered, &m_panel, [this](Answer const& answer) {
            if (answer.number == m_number)
                m_panel.take(answer);
        });
        m_panel.show(m_answers.back().comparison);
        m_panel.allowChanges(true);
        m_panel.setVisible(true);
    }

    QPushButton& part(char const* begin) const
    {
        for (QPushButton* const each : m_panel.findChildren<QPushButton*>())
            if (each->text().remove(QLatin1Char('&')).startsWith(QLatin1String(begin)))
                return *each;
        throw std::logic_error(begin);
    }

    QString told(char const* name) const
    {
        for (Inspector::Passage* const each : m_panel.findChildren<Inspector::Passage*>())
            if (each->accessibleName() == QLatin1String(name))
                return each->toPlainText();
        return {};
    }

    QAbstractItemModel& table() const { return *m_panel.findChild<QTreeView*>()->model(); }

    Inspector::ImportPanel m_panel{m_place};
    int m_number = 0;
    int m_ends = 0;
};

constexpr char const document[] = R"("exportPath": {"kind": "string", "class": "local", "value": "/films"},
    "npsEmailToSend": {"kind": "string", "class": "personal", "redacted": true},
    "zoom": {"kind": "int", "value": 42})";

TEST_F(Importing, KnownValuesAreTakenAndNoOthers)
{
    show(document);
    EXPECT_EQ(told("Document"), QStringLiteral("settings.json \u2014 P, made 2026-11-20T16:40:53.344Z"));
    EXPECT_EQ(told("Count"), QStringLiteral("3 differ, 1 would be stored in one step, 0 stay."));
    ASSERT_EQ(table().rowCount(), 3);
    QMap<QString, int> boxes;
    for (int row = 0; row < 3; ++row)
        boxes[table().index(row, 0).data().toString()] = table().index(row, 0).data(Qt::CheckStateRole).toInt();
    EXPECT_EQ(boxes[QStringLiteral("exportPath")], Qt::Checked);
    EXPECT_EQ(boxes[QStringLiteral("npsEmailToSend")], Qt::Unchecked);
    EXPECT_EQ(boxes[QStringLiteral("zoom")], Qt::Unchecked);
    part("Store").click();
    EXPECT_TRUE(comes([&] { return m_ends == 1; }));
    EXPECT_EQ(stored("exportPath"), SqliteStorage::Value("/films"));
    EXPECT_EQ(stored("zoom"), SqliteStorage::Value());
}

TEST_F(Importing, CountAndCommandFollowTheChoice)
{
    show(document);
    EXPECT_EQ(part("Store").text(), QStringLiteral("&Store 1"));
    for (int row = 0; row < 3; ++row)
        table().setData(table().index(row, 0), Qt::Unchecked, Qt::CheckStateRole);
    EXPECT_EQ(told("Count"), QStringLiteral("3 differ, 0 would be stored in one step, 0 stay."));
    EXPECT_FALSE(part("Store").isEnabled());
    for (int row = 0; row < 3; ++row)
        table().setData(table().index(row, 0), Qt::Checked, Qt::CheckStateRole);
    EXPECT_EQ(part("Store").text(), QStringLiteral("&Store 2")) << "a redacted value is none";
    part("Copy").click();
    EXPECT_TRUE(QApplication::clipboard()->text().contains(QStringLiteral("import"))) << told("Command").toStdString();
    part("Cancel").click();
    EXPECT_EQ(m_ends, 1);
    EXPECT_EQ(stored("exportPath"), SqliteStorage::Value("/mine"));
}

TEST_F(Importing, LookingOnlyStoresNothingAndSaysWhy)
{
    show(document);
    m_panel.allowChanges(false, QStringLiteral("Only looking"));
    EXPECT_FALSE(part("Store").isEnabled());
    EXPECT_EQ(part("Store").toolTip(), QStringLiteral("Only looking"));
}

TEST_F(Importing, ConflictKeepsTheChoice)
{
    show(document);
    store("exportPath", std::string("/theirs"));
    part("Store").click();
    EXPECT_TRUE(comes([&] { return told("Not stored") == QStringLiteral("exportPath was changed by somebody else meanwhile"); }));
    EXPECT_EQ(m_ends, 0);
    EXPECT_TRUE(part("Store").isEnabled());
    EXPECT_EQ(stored("exportPath"), SqliteStorage::Value("/theirs"));
}

} // namespace
