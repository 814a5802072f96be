// SPDX-License-Identifier: MIT
//
// The kinds of values and their stored words.
#include <Storage/Kind.h>

#include <gtest/gtest.h>

namespace {

using Storage::Kind;

TEST(StoredWord, IsThatOfTheFileFormat)
{
    EXPECT_STREQ(Storage::storedWord(Kind::boolean), "bool");
    EXPECT_STREQ(Storage::storedWord(Kind::integer), "int");
    EXPECT_STREQ(Storage::storedWord(Kind::text), "string");
    EXPECT_STREQ(Storage::storedWord(Kind::bytes), "bytes");
}

TEST(KindFromWord, IsFoundForEachStoredWord)
{
    EXPECT_EQ(Storage::kindFromWord("bool"), Kind::boolean);
    EXPECT_EQ(Storage::kindFromWord("int"), Kind::integer);
    EXPECT_EQ(Storage::kindFromWord("string"), Kind::text);
    EXPECT_EQ(Storage::kindFromWord("bytes"), Kind::bytes);
}

TEST(KindFromWord, IsNulloptForAnyOtherWord)
{
    for (char const* const word : {"", "b", "boolean", "Bool", "bool ", "text", "date"})
        EXPECT_EQ(Storage::kindFromWord(word), std::nullopt) << word;
}

TEST(KindOfType, FollowsTheStoresInterface)
{
    EXPECT_EQ(Storage::kindOfType<bool>(), Kind::boolean);
    EXPECT_EQ(Storage::kindOfType<int>(), Kind::integer);
    EXPECT_EQ(Storage::kindOfType<std::string>(), Kind::text);
    EXPECT_EQ(Storage::kindOfType<std::vector<unsigned char>>(), Kind::bytes);
}

} // namespace
