// SPDX-License-Identifier: MIT
//
// Models follow what they show by its differences, and stay in order for Qt's own tester while everything changes.
#include "DeskTest.h"
#include "Lines.h"

#include <Inspector/SearchProxy.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include <algorithm>
#include <random>

namespace {

using Inspector::ItemsModel;
using Inspector::Search;
using Inspector::SearchProxy;
using Inspector::SettingsModel;
using Told = std::vector<std::string>;

constexpr auto fatal = QAbstractItemModelTester::FailureReportingMode::Fatal;

// The signals of a model, with the rows that they name.
class Signals {
public:
    explicit Signals(QAbstractItemModel& model)
    {
        auto const rows = [this](char const* what) {
            return [this, what](QModelIndex const&, int first, int last) {
                m_told.push_back(what + (' ' + std::to_string(first)) + '-' + std::to_string(last));
            };
        };
        QObject::connect(&model, &QAbstractItemModel::rowsInserted, &m_receiver, rows("inserted"));
        QObject::connect(&model, &QAbstractItemModel::rowsRemoved, &m_receiver, rows("removed"));
        QObject::connect(&model, &QAbstractItemModel::dataChanged, &m_receiver, [this](QModelIndex const& first, QModelIndex const& last) {
            m_told.push_back("changed " + std::to_string(first.row()) + '-' + std::to_string(last.row()));
        });
        QObject::connect(&model, &QAbstractItemModel::modelReset, &m_receiver, [this] { m_told.push_back("reset"); });
    }

    Told taken() { return std::exchange(m_told, {}); }

private:
    QObject m_receiver;
    Told m_told;
};

class Model : public testing::Test {
protected:
    ItemsModel m_model{{QStringLiteral("Name"), QStringLiteral("Value")}};
    QAbstractItemModelTester m_tester{&m_model, fatal};
    Signals m_signals{m_model};
};

TEST_F(Model, DifferencesAreToldInRuns)
{
    Lines const first = {line("a", "1"), line("b", "1"), line("c", "1"), line("d", "1")};
    m_model.show(first);
    EXPECT_EQ(m_signals.taken(), Told{"inserted 0-3"});
    m_model.show(first);
    EXPECT_EQ(m_signals.taken(), Told{});
    m_model.show(Lines{first[0], line("b", "2"), line("c", "2"), first[3]});
    EXPECT_EQ(m_signals.taken(), Told{"changed 1-2"});
    m_model.show(Lines{line("A", "1"), first[0], first[3], line("e", "1"), line("f", "1")});
    EXPECT_EQ(m_signals.taken(), (Told{"inserted 0-0", "removed 2-3", "inserted 3-4"}));
    m_model.show(Lines());
    EXPECT_EQ(m_signals.taken(), Told{"removed 0-4"});
}

TEST_F(Model, CellsAndHeadingsAreRead)
{
    m_model.show(Lines{line("a", "1"), line("b", "2")});
    EXPECT_EQ(m_model.headerData(1, Qt::Horizontal), QVariant(QStringLiteral("Value")));
    EXPECT_EQ(m_model.headerData(2, Qt::Horizontal), QVariant());
    EXPECT_EQ(m_model.headerData(0, Qt::Vertical), QVariant());
    EXPECT_EQ(m_model.index(1, 1).data(), QVariant(QStringLiteral("2")));
    EXPECT_EQ(m_model.index(1, 1).data(Qt::AccessibleTextRole), QVariant(QStringLiteral("b, 2")));
    EXPECT_EQ(m_model.index(1, 0).data(ItemsModel::idRole), QVariant(QByteArray("b")));
    EXPECT_EQ(m_model.index(1, 0).data(Qt::EditRole), QVariant());
    EXPECT_EQ(m_model.indexOf("b").row(), 1);
    EXPECT_FALSE(m_model.indexOf("aa").isValid());
    EXPECT_FALSE(m_model.indexOf("c").isValid());
}

// Changes of every sort: what the model shows then is what it was given, and a view's place follows its line.
TEST_F(Model, RandomChangesLeadToWhatIsShown)
{
    std::mt19937 random(seed());
    SearchProxy proxy(m_model);
    QAbstractItemModelTester proxyTester(&proxy, fatal);
    Lines all = numbered(40);
    int followed = 0;
    for (int round = 0; round < times(300, 10000); ++round) {
        Lines shown;
        for (std::shared_ptr<Inspector::Item const>& each : all) {
            if (random() % 4 == 0)
                each = line(each->id, std::to_string(random() % 3) + "x");
            if (random() % 3 != 0)
                shown.push_back(each);
        }
        QPersistentModelIndex const place = m_model.index(static_cast<int>(random() % 40), 0);
        std::string const id = place.data(ItemsModel::idRole).toByteArray().toStdString();
        m_model.show(shown);
        ASSERT_EQ(m_model.rowCount(), static_cast<int>(shown.size()));
        for (int row = 0; row < m_model.rowCount(); ++row)
            ASSERT_EQ(&m_model.item(row), shown[static_cast<std::size_t>(row)].get());
        if (place.isValid()) {
            ++followed;
            ASSERT_EQ(place.data(ItemsModel::idRole).toByteArray().toStdString(), id);
        }
        if (random() % 5 == 0)
            proxy.setSearch(Search(QString::number(random() % 3) + QLatin1Char('x')));
        if (random() % 5 == 0)
            proxy.keep(all[random() % all.size()]->id);
        ASSERT_LE(proxy.rowCount(), m_model.rowCount());
    }
    EXPECT_GT(followed, 0);
    for (std::string const& told : m_signals.taken())
        ASSERT_NE(told, "reset");
}

// --- All models while another process writes ---

class LiveModels : public DeskTest {
protected:
    void show()
    {
        m_settings.show(m_snapshot->settings);
        m_locations.show(m_snapshot->locations);
        m_findings.show(m_snapshot->findings);
        m_changes.show(m_snapshot->changes);
    }

    SettingsModel m_settings;
    ItemsModel m_locations{Inspector::locationHeadings()};
    ItemsModel m_findings{Inspector::findingHeadings()};
    ItemsModel m_changes{Inspector::changeHeadings()};
    SearchProxy m_found{m_settings};
    QAbstractItemModelTester m_settingsTester{&m_settings, fatal};
    QAbstractItemModelTester m_locationsTester{&m_locations, fatal};
    QAbstractItemModelTester m_findingsTester{&m_findings, fatal};
    QAbstractItemModelTester m_changesTester{&m_changes, fatal};
    QAbstractItemModelTester m_foundTester{&m_found, fatal};
};

TEST_F(LiveModels, FollowEveryChange)
{
    std::mt19937 random(seed());
    m_other.set("exportPath", "/films");
    start();
    QSignalSpy const resets(&m_settings, &QAbstractItemModel::modelReset);
    m_found.setSearch(Search(QStringLiteral("@set")));
    std::vector<std::string> const keys = {"exportPath", "lastTarget", "npsSendCount", "zoom", "who", "favorites_x"};
    std::map<std::string, std::string> expected = {{"exportPath", "/films"}};
    for (int round = 0; round < times(50, 1000); ++round) {
        std::string const& key = keys[random() % keys.size()];
        if (random() % 3 == 0) {
            m_other.remove(key);
            expected.erase(key);
        } else {
            m_other.set(key, "v" + std::to_string(round));
            expected[key] = "v" + std::to_string(round);
        }
        QCoreApplication::processEvents();
        show();
    }
    ASSERT_TRUE(comes([&] {
        show();
        return m_found.rowCount() == static_cast<int>(expected.size()) &&
               std::all_of(expected.begin(), expected.end(), [&](auto const& each) {
                   auto const found = setting(each.first);
                   return found && !found->rows.empty() && found->rows[0].value == SqliteStorage::Value(each.second);
               });
    }));
    ASSERT_TRUE(comes([&] { return !m_snapshot->locations.empty(); }));
    show();
    EXPECT_EQ(resets.count(), 0);
    EXPECT_GT(m_changes.rowCount(), 0);
    EXPECT_GT(m_locations.rowCount(), 70);
}

TEST_F(LiveModels, HeadingsNameEachColumn)
{
    m_other.set("exportPath", "/films");
    start();
    m_other.set("exportPath", "/other");
    ASSERT_TRUE(comes([&] { return !m_snapshot->changes.empty() && !m_snapshot->locations.empty(); }));
    show();
    for (ItemsModel const* const model : {static_cast<ItemsModel const*>(&m_settings), static_cast<ItemsModel const*>(&m_locations),
                                          static_cast<ItemsModel const*>(&m_findings), static_cast<ItemsModel const*>(&m_changes)}) {
        ASSERT_GT(model->rowCount(), 0);
        EXPECT_EQ(model->item(0).cells.size(), model->columnCount());
    }
}

} // namespace
