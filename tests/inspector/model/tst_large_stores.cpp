// SPDX-License-Identifier: MIT
//
// Stores with thousands of keys that nobody declared: what a change costs does not grow with them more than it must.
#include "DeskTest.h"

#include <Inspector/SearchProxy.h>

#include <QElapsedTimer>

#include <iostream>

namespace {

class Large : public DeskTest {
protected:
    // Keys from "key00000" on.
    void fill(int count)
    {
        std::vector<SqliteStorage::Change> changes;
        for (int number = 0; number < count; ++number)
            changes.push_back({"key" + QStringLiteral("%1").arg(number, 5, 10, QLatin1Char('0')).toStdString(), number});
        SqliteStorage(m_productFile).apply(changes);
    }

    // Milliseconds until it holds.
    double took(std::function<bool()> const& holds)
    {
        QElapsedTimer timer;
        timer.start();
        EXPECT_TRUE(comes(holds));
        return static_cast<double>(timer.nsecsElapsed()) / 1e6;
    }
};

TEST_F(Large, StoreIsShownAndFollowed)
{
    fill(10000);
    Inspector::SettingsModel model;
    QElapsedTimer timer;
    timer.start();
    start();
    std::cout << "first snapshot after " << timer.elapsed() << " ms\n";
    ASSERT_TRUE(comesToBeExamined());
    std::cout << "examined after " << timer.elapsed() << " ms\n";
    timer.start();
    model.show(m_snapshot->settings);
    std::cout << "model filled in " << static_cast<double>(timer.nsecsElapsed()) / 1e6 << " ms\n";
    int changed = 0;
    QObject::connect(&model, &QAbstractItemModel::dataChanged, &m_receiver, [&] { ++changed; });
    for (int round = 0; round < 5; ++round) {
        std::string const value = std::to_string(round);
        timer.start();
        m_other.set("key05000", value);
        double const shown = took([&] { return cell("key05000") == value; });
        timer.start();
        model.show(m_snapshot->settings);
        std::cout << "change shown after " << shown << " ms, model in " << static_cast<double>(timer.nsecsElapsed()) / 1e6 << " ms\n";
    }
    EXPECT_EQ(changed, 5) << "one line each";
}

// What is examined once more is found to be as it was, too.
TEST_F(Large, ChangeOfOneKeyMakesOneLine)
{
    fill(2000);
    start();
    ASSERT_TRUE(comesToBeExamined());
    ASSERT_TRUE(comes([this] { return m_snapshot->findings.size() >= 2000; }));
    std::shared_ptr<Snapshot const> const earlier = m_snapshot;
    m_other.set("key01000", "one");
    ASSERT_TRUE(comesToShow("key01000", "one"));
    m_desk->lookAgain();
    m_other.set("key01001", "two");
    ASSERT_TRUE(comesToShow("key01001", "two"));
    ASSERT_EQ(m_snapshot->settings.size(), earlier->settings.size());
    std::vector<std::string> made;
    for (std::size_t row = 0; row < earlier->settings.size(); ++row)
        if (m_snapshot->settings[row] != earlier->settings[row])
            made.push_back(m_snapshot->settings[row]->key);
    EXPECT_EQ(made, (std::vector<std::string>{"key01000", "key01001"}));
    EXPECT_EQ(m_snapshot->findings, earlier->findings);
}

TEST_F(Large, KeyThatIsDeclaredLaterIsNoUndeclaredOne)
{
    fill(2);
    start();
    EXPECT_EQ(cell("key00001", Setting::stateColumn), "undeclared");
    m_home.write("product.json", R"({"vendorName": "V", "productName": "P", "sharedDataFolderName": "S", "productKind": 0,
        "projectFileExtensions": [], "resourcesRoot": "r", "ownKeys": [
        {"key": "key00001", "kind": "int", "store": "product", "class": "local", "purpose": "the second", "default": 7}]})");
    m_desk->lookAgain();
    EXPECT_TRUE(comesToShow("key00001", "set", Setting::stateColumn));
    EXPECT_EQ(cell("key00000", Setting::stateColumn), "undeclared");
}

TEST_F(Large, SnapshotEndsSoonAfterNobodyHasIt)
{
    fill(2);
    start();
    ASSERT_TRUE(comesToBeExamined());
    std::weak_ptr<Snapshot const> const earlier = m_snapshot;
    m_other.set("key00001", "one");
    ASSERT_TRUE(comesToShow("key00001", "one"));
    EXPECT_TRUE(comes([&] { return earlier.expired(); }));
}

} // namespace
