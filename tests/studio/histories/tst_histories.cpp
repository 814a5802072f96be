// SPDX-License-Identifier: MIT
//
// Whatever programs of two users, an administrator, the network and the server do in whatever order: no change is lost or done
// twice, each program sees its own changes at once, no read goes back, and all see the same in the end.
#include "support/HistoryTest.h"

#include <support/Tally.h>

/// In several rounds, so that the long form of none takes long.
class Histories : public HistoryTest, public testing::WithParamInterface<unsigned> {};

TEST_P(Histories, AreThoseOfOneStore)
{
    int const histories = times(1, 6, 400);
    int flawed = 0;
    for (int number = 0; number < histories; ++number) {
        // The first history of the first round has the seed that is given.
        unsigned const chosen = seed() + 100000 * GetParam() + static_cast<unsigned>(number);
        std::vector<std::string> const flaws = flawsOfHistory(chosen, 60);
        EXPECT_EQ(flaws, std::vector<std::string>{}) << "EDITOR_SETTINGS_SEED=" << chosen << " --gtest_filter='*/0' repeats it";
        flawed += !flaws.empty();
    }
    tally("Random histories of a shared store", histories, flawed);
}

INSTANTIATE_TEST_SUITE_P(Rounds, Histories, testing::Range(0u, 25u));
