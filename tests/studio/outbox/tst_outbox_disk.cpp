// SPDX-License-Identifier: MIT
//
// A disk that is full, and one that would lose what was not synced.
#include "support/OutboxTest.h"

#include <storage/support/FaultySystem.h>

#include <algorithm>
#include <cerrno>
#include <optional>

namespace {

class OutboxDisk : public OutboxTest {};

TEST_F(OutboxDisk, FullOneIsNamedAndNothingIsChanged)
{
    Outbox outbox(file(), identity);
    add(outbox, "a", "1");
    for (int nth = 1; nth < 100; ++nth) {
        FaultySystem::watch({ENOSPC, false, true, {"pwrite", "pwrite64", "write"}}, nth);
        std::optional<Storage::StorageError> error;
        try {
            add(outbox, "b", std::string(20000, 'x'));
        } catch (Storage::StorageError const& thrown) {
            error = thrown;
        }
        FaultySystem::rest();
        if (!error) {
            EXPECT_GT(nth, 3);
            EXPECT_EQ(outbox.pending().size(), 2U);
            EXPECT_EQ(outbox.pending().back().number, 2);
            return;
        }
        ASSERT_EQ(error->code(), Code::full) << error->what();
        ASSERT_EQ(error->attempt(), "change a setting");
        ASSERT_EQ(text(outbox.pending()), "1:a=1") << nth;
    }
    FAIL() << "it never succeeds";
}

TEST_F(OutboxDisk, ChangeIsSyncedBeforeItsCallReturns)
{
    Outbox outbox(file(), identity);
    FaultySystem::watch();
    add(outbox, "a", "1");
    FaultySystem::rest();
    int unsynced = 0;
    for (std::string const& call : FaultySystem::calls())
        unsynced = call.find("sync") != std::string::npos ? 0 : unsynced + (call.find("write") != std::string::npos ? 1 : 0);
    EXPECT_EQ(unsynced, 0);
    EXPECT_GE(std::count_if(FaultySystem::calls().begin(), FaultySystem::calls().end(),
                            [](std::string const& call) { return call.find("sync") != std::string::npos; }),
              2);
}

} // namespace
