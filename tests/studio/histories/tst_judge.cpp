// SPDX-License-Identifier: MIT
//
// The judge of histories finds each flaw that it is there to find.
#include "support/Judge.h"

#include <gtest/gtest.h>

namespace {

using Kind = Step::Kind;
using Flaws = std::vector<std::string>;

Stored byAlice(long long revision, std::string const& key, std::optional<int> value, std::string const& client = "first")
{
    return {2, "alice", revision, key, value, false, client};
}

Stored byStudio(long long revision, std::string const& key, std::optional<int> value, bool locked = false)
{
    return {1, "", revision, key, value, locked, "ada"};
}

Step step(Kind kind, std::string const& key, std::optional<int> value, bool locked = false) { return {kind, key, value, locked}; }

Flaws judged(std::vector<Stored> const& stored, std::vector<Step> const& steps, std::vector<Kept> const& kept = {})
{
    return Judge({stored, kept}).flawsOf("alice", steps);
}

} // namespace

TEST(Judge, OrdinaryHistoryHasNoFlaw)
{
    std::vector<Stored> const stored{byStudio(1, "k", -1), byAlice(1, "k", 1), byAlice(2, "other", 2), byStudio(2, "k", -2, true),
                                     byAlice(3, "other", std::nullopt)};
    EXPECT_EQ(Judge({stored, {}}).flawsOfServer(), Flaws{});
    EXPECT_EQ(judged(stored, {step(Kind::read, "k", std::nullopt),
                              step(Kind::read, "k", -1),
                              step(Kind::changed, "k", 1),
                              step(Kind::read, "k", 1),
                              step(Kind::read, "other", 2),
                              {Kind::synchronised, "", {}, false, {2, 2}},
                              step(Kind::read, "k", -2, true),
                              step(Kind::refused, "k", 3),
                              step(Kind::doubted, "k", 4),
                              step(Kind::changed, "other", std::nullopt),
                              step(Kind::read, "other", std::nullopt)}),
              Flaws{});
}

TEST(Judge, HolesAndDoublesOfTheServerAreFound)
{
    EXPECT_EQ(Judge({{byAlice(1, "k", 1), byAlice(3, "k", 2), byAlice(3, "k", 2)}, {{"k", 5}, {"k", 5}}}).flawsOfServer(),
              (Flaws{"revision 3 is not the next of its layer", "2 was stored twice", "5 was kept twice"}));
}

TEST(Judge, LostChangeIsFound)
{
    EXPECT_EQ(judged({}, {step(Kind::changed, "k", 1)}), Flaws{"step 0 of alice, k 1: the change is lost"});
    EXPECT_EQ(judged({byAlice(1, "k", 1)}, {step(Kind::changed, "k", std::nullopt)}), Flaws{"step 0 of alice, k 0: the change is lost"});
    EXPECT_EQ(judged({}, {step(Kind::changed, "k", 1)}, {{"k", 1}}), Flaws{}) << "it lost a conflict";
    EXPECT_EQ(judged({}, {step(Kind::changed, "k", std::nullopt)}, {{"k", std::nullopt}}), Flaws{}) << "likewise";
    EXPECT_EQ(judged({}, {step(Kind::changed, "k", std::nullopt)}, {{"other", std::nullopt}}).size(), 1U) << "another removal did";
    EXPECT_EQ(judged({byAlice(1, "k", 1, "second"), byAlice(2, "k", std::nullopt, "second")},
                     {step(Kind::changed, "k", std::nullopt), step(Kind::read, "k", 1)}, {{"k", std::nullopt}}),
              Flaws{})
        << "a later removal is another one";
}

TEST(Judge, ChangesOutOfTheirOrderAreFound)
{
    EXPECT_EQ(judged({byAlice(1, "k", 2), byAlice(2, "k", 1)}, {step(Kind::changed, "k", 1), step(Kind::changed, "k", 2)}),
              Flaws{"step 1 of alice, k 2: a later change of the program was stored before this one"});
}

TEST(Judge, OwnChangeThatIsNotSeenIsFound)
{
    EXPECT_EQ(judged({byAlice(1, "k", 1), byAlice(2, "k", 2)}, {step(Kind::changed, "k", 2), step(Kind::read, "k", 1)}),
              Flaws{"step 1 of alice, k 1: the user's part of a read goes back, or was never there"});
}

TEST(Judge, ReadThatGoesBackIsFound)
{
    std::vector<Stored> const stored{byAlice(1, "k", 1), byAlice(2, "other", 2), byAlice(3, "k", 3), byStudio(1, "s", -1),
                                     byStudio(2, "s", -2)};
    EXPECT_EQ(judged(stored, {step(Kind::read, "k", 3), step(Kind::read, "k", 1)}).size(), 1U);
    EXPECT_EQ(judged(stored, {step(Kind::read, "k", 3), step(Kind::read, "other", std::nullopt)}).size(), 1U) << "older than k was";
    EXPECT_EQ(judged(stored, {step(Kind::read, "s", -2), step(Kind::read, "s", -1)}),
              Flaws{"step 1 of alice, s -1: the studio's part of a read goes back, or was never there"});
    EXPECT_EQ(judged(stored, {step(Kind::read, "s", -2), step(Kind::read, "s", -2, true)}).size(), 1U) << "it was never locked";
    EXPECT_EQ(judged(stored, {step(Kind::refused, "s", 9)}),
              Flaws{"step 0 of alice, s 9: a change was refused, but the key is not locked"});
}

TEST(Judge, MissedChangeIsFoundAfterSynchronising)
{
    std::vector<Stored> const stored{byAlice(1, "k", 1), byAlice(2, "k", 2), byStudio(1, "s", -1)};
    EXPECT_EQ(judged(stored, {{Kind::synchronised, "", {}, false, {1, 0}}, step(Kind::read, "k", 1)}), Flaws{});
    EXPECT_EQ(judged(stored, {{Kind::synchronised, "", {}, false, {2, 0}}, step(Kind::read, "k", 1)}).size(), 1U);
    EXPECT_EQ(judged(stored, {{Kind::began, "", {}, false, {0, 1}}, step(Kind::read, "s", std::nullopt)}).size(), 1U);
}

TEST(Judge, LoserThatIsNotKeptIsFound)
{
    std::vector<Stored> const stored{byAlice(1, "k", 1, "second"), byAlice(2, "k", 2)};
    Step const deaf{Kind::changed, "k", 2, false, {}, true};
    EXPECT_EQ(judged(stored, {deaf}), Flaws{"step 0 of alice, k 2: the value that it overwrote unseen is not kept"});
    EXPECT_EQ(judged(stored, {deaf}, {{"k", 1}}), Flaws{});
    EXPECT_EQ(judged(stored, {{Kind::synchronised, "", {}, false, {1, 0}}, deaf}), Flaws{}) << "it had seen the other";
    EXPECT_EQ(judged(stored, {step(Kind::changed, "k", 2)}), Flaws{}) << "it may have seen the other";
    EXPECT_EQ(judged(stored, {step(Kind::changed, "k", 3), deaf}, {{"k", 3}}), Flaws{}) << "it lost, and saw the other";
}
