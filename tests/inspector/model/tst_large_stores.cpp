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

} // namespace
