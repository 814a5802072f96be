// SPDX-License-Identifier: MIT
//
// What a program knows of the server when it starts without it.
#include "support/OutboxTest.h"

#include <algorithm>

using namespace std::string_literals;

namespace {

using Studio::LayerNews;
using Studio::News;
using Studio::SharedRow;
using Studio::StoredValue;

SharedRow row(std::string const& key, std::optional<std::string> const& text)
{
    return {"common", key, text ? std::optional(StoredValue{"string", *text}) : std::nullopt, false, "alice", 7};
}

class Replica : public OutboxTest {
protected:
    // News of the user's layer; the studio's stays at its first revision.
    static News news(std::string const& epoch, std::int64_t since, std::int64_t revision, std::vector<SharedRow> rows)
    {
        return {epoch, {LayerNews{since, revision, std::move(rows)}, LayerNews{since == 0 ? 0 : 1, 1, {}}}, 1000};
    }

    // Such as "epoch 3: a=1 b=2", of the user's layer.
    static std::string text(News const& known)
    {
        std::vector<std::string> words;
        for (SharedRow const& row : known.layers[0].rows)
            words.push_back(' ' + row.key + '=' + row.value->bytes);
        std::sort(words.begin(), words.end());
        std::string result = known.epoch + ' ' + std::to_string(known.layers[0].revision) + ':';
        for (std::string const& word : words)
            result += word;
        return result;
    }
};

TEST_F(Replica, IsEmptyInANewFile)
{
    News const known = Outbox(file(), identity).replica();
    EXPECT_EQ(text(known), " 0:");
    EXPECT_EQ(known.layers[1].revision, 0);
    EXPECT_EQ(known.asOf, 0);
}

TEST_F(Replica, BothLayersAreReadBackWhole)
{
    std::string const key = "\0k\xFF"s;
    {
        Outbox outbox(file(), identity);
        outbox.keep({"e",
                     {LayerNews{0, 5, {{"common", key, StoredValue{"bytes", "\0\xFE"s}, false, "alice", 11}}},
                      LayerNews{0, 9, {{"product", "k", StoredValue{"a later kind", "x"}, true, "ada", 12}}}},
                     1234});
    }
    News const known = Outbox(file(), identity).replica();
    EXPECT_EQ(known.epoch, "e");
    EXPECT_EQ(known.asOf, 1234);
    ASSERT_EQ(known.layers[0].rows.size(), 1U);
    SharedRow const user = known.layers[0].rows.front();
    EXPECT_EQ(known.layers[0].since, 0);
    EXPECT_EQ(known.layers[0].revision, 5);
    EXPECT_EQ(user.store, "common");
    EXPECT_EQ(user.key, key);
    EXPECT_EQ(user.value->kind, "bytes");
    EXPECT_EQ(user.value->bytes, "\0\xFE"s);
    EXPECT_FALSE(user.locked);
    ASSERT_EQ(known.layers[1].rows.size(), 1U);
    SharedRow const studio = known.layers[1].rows.front();
    EXPECT_EQ(known.layers[1].revision, 9);
    EXPECT_EQ(studio.store, "product");
    EXPECT_EQ(studio.value->kind, "a later kind");
    EXPECT_TRUE(studio.locked);
    EXPECT_EQ(studio.changedBy, "ada");
    EXPECT_EQ(studio.changedAt, 12);
}

TEST_F(Replica, NewsIsAddedToWhatIsKnown)
{
    Outbox outbox(file(), identity);
    outbox.keep(news("e", 0, 2, {row("a", "1"), row("b", "1")}));
    outbox.keep(news("e", 2, 4, {row("a", "2"), row("b", std::nullopt), row("c", "3")}));
    EXPECT_EQ(text(outbox.replica()), "e 4: a=2 c=3");
}

TEST_F(Replica, NewsThatAnotherProgramHasKeptIsNotAddedAgain)
{
    Outbox outbox(file(), identity);
    outbox.keep(news("e", 0, 2, {row("a", "1")}));
    outbox.keep(news("e", 2, 4, {row("a", "4")}));
    outbox.keep(news("e", 2, 3, {row("a", "3")}));
    EXPECT_EQ(text(outbox.replica()), "e 4: a=4");
}

TEST_F(Replica, NewsThatBeginsEarlierIsAdded)
{
    Outbox outbox(file(), identity);
    outbox.keep(news("e", 0, 2, {row("a", "1")}));
    outbox.keep(news("e", 2, 3, {row("a", "3")}));
    outbox.keep(news("e", 2, 4, {row("a", "3"), row("b", "4")}));
    EXPECT_EQ(text(outbox.replica()), "e 4: a=3 b=4");
}

TEST_F(Replica, NewsThatLeavesAGapIsNotAdded)
{
    Outbox outbox(file(), identity);
    outbox.keep(news("e", 0, 2, {row("a", "1")}));
    outbox.keep(news("e", 3, 4, {row("b", "4")}));
    EXPECT_EQ(text(outbox.replica()), "e 2: a=1");
}

TEST_F(Replica, AllOfALayerTakesThePlaceOfWhatIsKnown)
{
    Outbox outbox(file(), identity);
    outbox.keep(news("e", 0, 9, {row("a", "1"), row("b", "1")}));
    outbox.keep(news("e", 0, 2, {row("a", "2")}));
    EXPECT_EQ(text(outbox.replica()), "e 2: a=2");
}

TEST_F(Replica, OtherHistoryIsTakenWholeOrNotAtAll)
{
    Outbox outbox(file(), identity);
    outbox.keep(news("e", 0, 2, {row("a", "1"), row("b", "1")}));
    outbox.keep(news("f", 2, 3, {row("a", "2")}));
    EXPECT_EQ(text(outbox.replica()), "e 2: a=1 b=1");
    outbox.keep(news("f", 0, 3, {row("a", "2")}));
    EXPECT_EQ(text(outbox.replica()), "f 3: a=2");
}

TEST_F(Replica, HasWhatTheServerStoredBeforeItsNewsCame)
{
    Outbox outbox(file(), identity);
    outbox.keep(news("epoch", 0, 2, {row("a", "1"), row("b", "1")}));
    outbox.settle(add(outbox, "a", "2"), "epoch", 3);
    outbox.settle(outbox.append("common", "b", std::nullopt, "epoch", 2), "epoch", 4);
    outbox.settle(add(outbox, "c", "3"), "epoch", 5);
    outbox.flush();
    EXPECT_EQ(text(outbox.replica()), "epoch 2: a=2 c=3");
}

TEST_F(Replica, WhatTheServerStoredEarlierDoesNotComeBack)
{
    Outbox outbox(file(), identity);
    outbox.keep(news("epoch", 0, 2, {row("a", "1")}));
    outbox.settle(add(outbox, "a", "2"), "epoch", 3);
    outbox.keep(news("epoch", 2, 4, {row("a", "another's")}));
    EXPECT_EQ(text(outbox.replica()), "epoch 4: a=another's");
    outbox.settle(add(outbox, "a", "3"), "epoch", 4);
    outbox.settle(add(outbox, "a", "4"), "an earlier epoch", 9);
    outbox.settle(add(outbox, "a", "5"), "epoch", 0);
    outbox.flush();
    EXPECT_EQ(text(outbox.replica()), "epoch 4: a=another's");
}

} // namespace
