// SPDX-License-Identifier: MIT
//
// Suggestions for mistyped names.
#include "terminal/Suggestions.h"

#include <gtest/gtest.h>

namespace {

using Names = std::vector<std::string>;

TEST(Suggestions, AreTheNearestFirst)
{
    EXPECT_EQ(suggestions("exprtPath", {"exportPaths", "importPath", "exportPath"}), (Names{"exportPath", "exportPaths", "importPath"}));
}

TEST(Suggestions, IgnoreCase) { EXPECT_EQ(suggestions("EXPORTPATH", {"exportPath"}), Names{"exportPath"}); }

TEST(Suggestions, ContainAWordOfThreeCharacters)
{
    EXPECT_EQ(suggestions("aud", {"lastAudioFolder"}), Names{"lastAudioFolder"});
    EXPECT_EQ(suggestions("au", {"lastAudioFolder"}), Names{});
}

TEST(Suggestions, TolerateOneEditAndOneMoreForFourCharacters)
{
    EXPECT_EQ(suggestions("abc", {"axc"}), Names{"axc"});
    EXPECT_EQ(suggestions("abc", {"axy"}), Names{});
    EXPECT_EQ(suggestions("abcd", {"abxy"}), Names{"abxy"});
}

TEST(Suggestions, CountTwoLettersThatChangedPlacesOnce)
{
    EXPECT_EQ(suggestions("gte", {"get", "set"}), Names{"get"});
    EXPECT_EQ(suggestions("exoprtPtah", {"exportPath"}), Names{"exportPath"});
    EXPECT_EQ(suggestions("teg", {"get"}), Names{});
}

TEST(Suggestions, AreThreeAtMost) { EXPECT_EQ(suggestions("a1", {"a5", "a4", "a3", "a2"}), (Names{"a2", "a3", "a4"})); }

TEST(Suggestions, LeaveOutNamesThatAreFarShorter) { EXPECT_EQ(suggestions(std::string(100000, 'a'), {"aaa"}), Names{}); }

TEST(DidYouMean, IsAQuestionOrNothing)
{
    EXPECT_EQ(didYouMean("a1", {"a2", "a3"}), "did you mean a2 or a3? ");
    EXPECT_EQ(didYouMean("zzz", {"a2"}), "");
}

} // namespace
