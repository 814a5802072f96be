// SPDX-License-Identifier: MIT
//
// What a session's stores tell of the layers behind a value.
#include "support/SessionTest.h"

#include <sstream>

using namespace std::chrono_literals;
using Storage::Layer;

class SessionLayers : public SessionTest {
protected:
    using Row = Storage::LayeredStorage::LayeredRow;

    // Each layer with its value, such as "locked int 1 by ada".
    static std::string told(Program const& program, std::string const& key)
    {
        static constexpr char const* names[] = {"locked", "user", "local", "studio"};
        std::ostringstream result;
        for (Row const& each : program.layers->layersOf(key)) {
            EXPECT_EQ(each.row.key, key);
            result << names[static_cast<std::size_t>(each.layer)];
            if (int const* const value = std::get_if<int>(&each.row.value))
                result << ' ' << each.row.kind << ' ' << *value << " by " << each.by;
            result << ';';
        }
        return result.str();
    }
};

TEST_F(SessionLayers, FirstIsWhatIsRead)
{
    Program alice(connectionOf("alice"));
    EXPECT_EQ(told(alice, "number"), "");
    give("number", "int", "1");
    give("local number", "int", "2");
    ASSERT_TRUE(alice.session.synchronise(60s));
    EXPECT_EQ(told(alice, "number"), "studio int 1 by ada;");
    alice.store->setInt("number", 3);
    alice.store->setInt("local number", 4);
    ASSERT_TRUE(alice.session.synchronise(60s));
    EXPECT_EQ(told(alice, "number"), "user int 3 by alice;studio int 1 by ada;");
    EXPECT_EQ(told(alice, "local number"), "local;studio int 2 by ada;");
    give("number", "int", "1", true);
    give("local number", "int", "2", true);
    ASSERT_TRUE(alice.session.synchronise(60s));
    EXPECT_EQ(told(alice, "number"), "locked int 1 by ada;user int 3 by alice;");
    EXPECT_EQ(told(alice, "local number"), "locked int 2 by ada;local;");
    EXPECT_EQ(alice.store->getInt("number", 0), 1);
}

TEST_F(SessionLayers, OldLocalValueOfARoamingKeyCountsForNothing)
{
    Program alice(connectionOf("alice"));
    alice.local->setInt("number", 7);
    EXPECT_EQ(told(alice, "number"), "");
    EXPECT_FALSE(alice.store->contains("number"));
}

TEST_F(SessionLayers, ValueAtTheServerOfAKeyThatDoesNotRoamCountsForNothing)
{
    Put put;
    put.key = "local number";
    EXPECT_EQ(SchemaTest::put(user("alice"), put), "stored|1");
    Program alice(connectionOf("alice"));
    EXPECT_EQ(told(alice, "local number"), "");
    EXPECT_FALSE(alice.store->contains("local number"));
}

TEST_F(SessionLayers, TimeIsTheServersAndKindIsKeptOfWhatCannotBeRead)
{
    give("number", "int", "one");
    ask("UPDATE settings.value SET kind = 'matrix', changed_at = '2001-02-03 04:05:06.789+00' WHERE key = 'number'");
    Program alice(connectionOf("alice"));
    std::vector<Row> const rows = alice.layers->layersOf("number");
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0].row.kind, "matrix");
    EXPECT_TRUE(std::holds_alternative<std::monostate>(rows[0].row.value));
    EXPECT_EQ(rows[0].row.changed.time_since_epoch(), 981173106789ms);
}

TEST_F(SessionLayers, SharedKeysAreThoseOfBothLayersOfTheStore)
{
    give("given", "int", "1");
    give("both", "int", "1");
    Program alice(connectionOf("alice"));
    alice.store->setInt("both", 2);
    alice.store->setInt("mine", 3);
    alice.store->setInt("local number", 4);
    EXPECT_EQ(alice.layers->sharedKeys(), (std::vector<std::string>{"both", "given", "mine"}));
    alice.store->remove("mine");
    EXPECT_EQ(alice.layers->sharedKeys(), (std::vector<std::string>{"both", "given"}));
    EXPECT_TRUE(alice.session.store("product", alice.local)->sharedKeys().empty());
}
