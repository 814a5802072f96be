// SPDX-License-Identifier: MIT
//
// Each call of the system that a store makes for a change of the window fails in turn: the window tells it, loses nothing, and goes
// on working.
#include "WindowTest.h"

#include <storage/support/FaultySystem.h>

#include <cerrno>

namespace {

class Faults : public WindowTest, public testing::WithParamInterface<char const*> {
protected:
    void TearDown() override { FaultySystem::rest(); }

    void closeMessages()
    {
        while (!messages().isEmpty())
            choose("Close");
    }

    void unset()
    {
        settings().setFocus();
        press(Qt::Key_Delete);
    }

    // With the line as the current one. Returns whether a call has failed.
    bool unsetWithAFault(int nth)
    {
        m_other.set("exportPath", "/films");
        EXPECT_TRUE(comes([this] { return currentValue() == QLatin1String("/films"); }));
        FaultySystem::Fault fault;
        fault.error = EIO;
        fault.only = {GetParam()};
        FaultySystem::watch(fault, nth);
        unset();
        EXPECT_TRUE(comes([this] { return currentValue() != QLatin1String("/films") || !messages().isEmpty(); })) << nth;
        FaultySystem::rest();
        return FaultySystem::strikes() > 0;
    }
};

TEST_P(Faults, FailedCallIsToldAndTheNextChangeIsStored)
{
    m_other.set("exportPath", "/films");
    SqliteStorage(m_commonFile).setBool("sendStatistics", false);
    openChanging();
    goTo("exportPath");
    unset(); // the first change, before which there is a backup
    ASSERT_TRUE(comes([this] { return currentValue() != QLatin1String("/films"); }));
    int told = 0;
    int nth = 1;
    for (; unsetWithAFault(nth); ++nth) {
        EXPECT_TRUE(m_window->isVisible());
        if (!messages().isEmpty()) {
            ++told;
            EXPECT_TRUE(messages().contains(QLatin1String("product-settings.sqlite"))) << messages().toStdString();
        }
        closeMessages();
        if (stored("exportPath") != "(unset)") {
            unset();
            EXPECT_TRUE(comesToBeStored("exportPath", "(unset)")) << GetParam() << ' ' << nth;
        }
        ASSERT_TRUE(comes([this] { return currentValue() != QLatin1String("/films"); }));
        closeMessages();
    }
    EXPECT_GT(told, 0) << nth;
    goTo("sendStatistics");
    unset();
    EXPECT_TRUE(comes([this] { return !SqliteStorage(m_commonFile).find("sendStatistics"); }));
}

INSTANTIATE_TEST_SUITE_P(Calls, Faults, testing::Values("pwrite64", "pread64", "open64", "fdatasync", "ftruncate64"),
                         [](auto const& each) { return std::string(each.param); });

} // namespace
