// SPDX-License-Identifier: MIT
//
// Two clients change one key: which value is stored and which is kept beside it. Alice's clients are numbered; what each knew is
// the revision that it gives as its base, and when it changed the value is the age.
#include "support/SchemaTest.h"

#include <thread>

namespace {

constexpr long long second = 1000;
constexpr long long hour = 3600 * second;
constexpr long long nineYears = 9 * 365 * 24 * hour;

} // namespace

class Conflict : public SchemaTest {
protected:
    void SetUp() override
    {
        SchemaTest::SetUp();
        if (IsSkipped())
            return;
        m_alice.emplace(user("alice", 1));
        for (int const client : {2, 3})
            m_alice->ask(hello(client));
    }

    // A client sets the key to a word.
    std::string set(int client, long long op, std::string const& word, long long age, long long base) const
    {
        return put(*m_alice, {client, op, false, "common", "key", "string", word, false, age, base});
    }
    std::string remove(int client, long long op, long long age, long long base) const
    {
        return put(*m_alice, {client, op, false, "common", "key", {}, {}, false, age, base});
    }
    // The word that is stored; null where the key was removed.
    std::string stored() const { return ask("SELECT coalesce(encode(value, 'escape'), 'null') FROM settings.value WHERE key = 'key'"); }
    // The words that lost.
    std::string kept() const
    {
        return m_alice->ask("SELECT coalesce(encode(value, 'escape'), 'null') FROM settings.superseded_v1(false)").text();
    }

    std::optional<Login> m_alice;
};

TEST_F(Conflict, OlderChangeThatKnewNothingOfTheStoredOneIsSuperseded)
{
    EXPECT_EQ(set(1, 1, "A", 0, 0), "stored|1");
    EXPECT_EQ(set(2, 1, "B", hour, 0), "superseded|1");
    EXPECT_EQ(stored(), "A");
    EXPECT_EQ(kept(), "B");
    EXPECT_EQ(set(2, 1, "B", hour, 0), "repeated|1");
    EXPECT_EQ(kept(), "B");
}

TEST_F(Conflict, LaterChangeThatKnewNothingOfTheStoredOneWins)
{
    EXPECT_EQ(set(1, 1, "A", hour, 0), "stored|1");
    EXPECT_EQ(set(3, 1, "C", second, 0), "stored|2");
    EXPECT_EQ(stored(), "C");
    EXPECT_EQ(kept(), "A");
}

TEST_F(Conflict, ChangeThatKnewTheStoredOneWinsWhateverItsClock)
{
    EXPECT_EQ(set(1, 1, "A", 0, 0), "stored|1");
    EXPECT_EQ(set(2, 1, "B", nineYears, 1), "stored|2");
    EXPECT_EQ(set(3, 1, "C", -nineYears, 2), "stored|3");
    EXPECT_EQ(stored(), "C");
    EXPECT_EQ(kept(), "");
}

TEST_F(Conflict, LastOfTwoOnlineWritersWins)
{
    EXPECT_EQ(set(1, 1, "A", 0, 0), "stored|1");
    EXPECT_EQ(set(2, 1, "B", 0, 0), "stored|2");
    EXPECT_EQ(set(1, 2, "C", 0, 1), "stored|3");
    EXPECT_EQ(stored(), "C");
    EXPECT_EQ(kept(), "A\nB");
}

TEST_F(Conflict, AgesDecideRatherThanTheOrderOfArrival)
{
    EXPECT_EQ(set(1, 1, "an hour ago", hour, 0), "stored|1");
    EXPECT_EQ(set(2, 1, "two hours ago", 2 * hour, 0), "superseded|1");
    EXPECT_EQ(set(3, 1, "half an hour ago", hour / 2, 0), "stored|2");
    EXPECT_EQ(stored(), "half an hour ago");
    EXPECT_EQ(kept(), "two hours ago\nan hour ago");
}

TEST_F(Conflict, ClientKnowsItsOwnEarlierChange)
{
    EXPECT_EQ(set(1, 1, "first, offline", hour, 0), "stored|1");
    EXPECT_EQ(set(1, 2, "second, offline", 2 * hour, 0), "stored|2");
    EXPECT_EQ(stored(), "second, offline");
    EXPECT_EQ(kept(), "");
}

TEST_F(Conflict, OtherKeysAndUsersAreNotInTheWay)
{
    Login const bob = user("bob");
    EXPECT_EQ(set(1, 1, "A", 0, 0), "stored|1");
    EXPECT_EQ(put(bob, {1, 1, false, "common", "key", "string", "B", false, hour, 0}), "stored|1");
    EXPECT_EQ(put(*m_alice, {2, 1, false, "common", "other", "string", "B", false, hour, 0}), "stored|2");
    EXPECT_EQ(put(*m_alice, {2, 2, false, "Editor", "key", "string", "B", false, hour, 0}), "stored|3");
    EXPECT_EQ(kept(), "");
}

TEST_F(Conflict, SameValueTwiceIsNoConflict)
{
    EXPECT_EQ(set(1, 1, "A", 0, 0), "stored|1");
    EXPECT_EQ(set(2, 1, "A", hour, 0), "stored|2");
    EXPECT_EQ(kept(), "");
    EXPECT_EQ(put(*m_alice, {2, 2, false, "common", "key", "bytes", "A", false, hour, 0}), "stored|3") << "its own change";
    EXPECT_EQ(set(1, 2, "A", 2 * hour, 1), "superseded|3") << "the same bytes of another kind";
}

TEST_F(Conflict, RemovalWinsAndLosesLikeAnyChange)
{
    EXPECT_EQ(set(1, 1, "A", hour, 0), "stored|1");
    EXPECT_EQ(remove(2, 1, 2 * hour, 0), "superseded|1");
    EXPECT_EQ(remove(2, 2, second, 0), "stored|2");
    EXPECT_EQ(set(3, 1, "C", hour, 0), "superseded|2");
    EXPECT_EQ(stored(), "null");
    EXPECT_EQ(kept(), "null\nA\nC");
}

TEST_F(Conflict, NonsenseAgesCountAsNowOrLongAgo)
{
    EXPECT_EQ(set(1, 1, "A", 9223372036854775807, 0), "stored|1");
    EXPECT_EQ(set(2, 1, "B", nineYears, 0), "stored|2");
    EXPECT_EQ(set(3, 1, "C", -9223372036854775807, 0), "stored|3");
    EXPECT_EQ(ask("SELECT changed_at <= now() FROM settings.value"), "t") << "nothing is changed in the future";
    EXPECT_EQ(set(1, 2, "D", 0, 1), "stored|4");
    EXPECT_EQ(set(2, 2, "E", 9223372036854775807, 2), "superseded|4");
}

TEST_F(Conflict, RowOfTheFutureCountsAsChangedJustNow)
{
    EXPECT_EQ(set(1, 1, "A", 0, 0), "stored|1");
    ask("UPDATE settings.value SET changed_at = now() + interval '1 year'"); // as after the server's clock was set back
    EXPECT_EQ(set(2, 1, "B", second, 0), "superseded|1");
    EXPECT_EQ(set(2, 2, "B", 0, 0), "stored|2");
    EXPECT_EQ(stored(), "B");
}

// A time from before the wait for the layer would make the last change the oldest one.
TEST_F(Conflict, TimesAreInTheOrderOfTheRevisions)
{
    Login const other = user("alice", 2);
    EXPECT_EQ(m_alice->ask("BEGIN; " + statement({1, 1, false, "common", "first"})).text(), "stored|1");
    other.send(statement({2, 1, false, "common", "key", "string", "waited", false, 0, 0}));
    ASSERT_TRUE(comes("SELECT count(*) FROM pg_stat_activity WHERE wait_event_type = 'Lock'", "1"));
    EXPECT_EQ(set(1, 2, "was before", 0, 0), "stored|2");
    EXPECT_EQ(put(*m_alice, {1, 3, false, "common", "third"}), "stored|3");
    EXPECT_EQ(m_alice->ask("COMMIT").code, "");
    EXPECT_EQ(other.answer().text(), "stored|4");
    EXPECT_EQ(stored(), "waited") << "of two online writers the last one wins";
    EXPECT_EQ(ask("SELECT string_agg(revision::text, ' ' ORDER BY changed_at) FROM settings.value"), "1 3 4");
}

TEST_F(Conflict, LoserIsToldWithItsOrigin)
{
    EXPECT_EQ(set(1, 1, "A", 0, 0), "stored|1");
    EXPECT_EQ(set(2, 1, "B", 10 * hour, 0), "superseded|1");
    EXPECT_EQ(m_alice
                  ->ask("SELECT store, key, kind, value, round(extract(epoch FROM superseded_at - changed_at) / 3600), changed_by, "
                        "changed_on FROM settings.superseded_v1(false)")
                  .text(),
              "common|\\x6b6579|string|\\x42|10|alice|local");
    EXPECT_EQ(user("bob").ask("SELECT * FROM settings.superseded_v1(false)").text(), "");
}

TEST_F(Conflict, LosersAreKeptFor90Days)
{
    EXPECT_EQ(set(1, 1, "A", 0, 0), "stored|1");
    EXPECT_EQ(set(2, 1, "old", hour, 0), "superseded|1");
    EXPECT_EQ(set(2, 2, "young", hour, 0), "superseded|1");
    ask("UPDATE settings.superseded SET superseded_at = now() - interval '89 days' WHERE value = 'young'");
    EXPECT_EQ(kept(), "young\nold");
    ask("UPDATE settings.superseded SET superseded_at = now() - interval '91 days' WHERE value = 'old'");
    EXPECT_EQ(kept(), "young");
    EXPECT_EQ(ask("SELECT count(*) FROM settings.superseded"), "2");
    EXPECT_EQ(set(2, 3, "new", hour, 0), "superseded|1");
    EXPECT_EQ(kept(), "young\nnew");
    EXPECT_EQ(ask("SELECT count(*) FROM settings.superseded"), "2") << "the next loser takes the room of those that are too old";
}

TEST_F(Conflict, AdministratorsSeeWhatTheStudioLost)
{
    Login const ada = user("ada", 1);
    ada.ask(hello(2));
    EXPECT_EQ(put(ada, {1, 1, true, "common", "key", "string", "A", false, 0, 0}), "stored|1");
    EXPECT_EQ(put(ada, {2, 1, true, "common", "key", "string", "B", false, hour, 0}), "superseded|1");
    EXPECT_EQ(ada.ask("SELECT value FROM settings.superseded_v1(true)").text(), "\\x42");
    EXPECT_EQ(ada.ask("SELECT value FROM settings.superseded_v1(false)").text(), "");
    EXPECT_EQ(m_alice->ask("SELECT * FROM settings.superseded_v1(true)").text(), "ST004");
    EXPECT_EQ(m_alice->ask("SELECT * FROM settings.superseded_v1(NULL)").text(), "");
}
