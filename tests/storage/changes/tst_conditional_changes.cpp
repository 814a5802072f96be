// SPDX-License-Identifier: MIT
//
// Changes that are made only where the store holds the row that their maker saw.
#include <storage/support/StoreFolder.h>

#include <Storage/Conflict.h>

#include <support/Named.h>

#include <chrono>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace {

using namespace std::chrono_literals;
using Storage::Conflict;
using Storage::SqliteStorage;
using Storage::StorageError;
using Bytes = std::vector<unsigned char>;
using Expected = SqliteStorage::Expected;
using Row = SqliteStorage::Row;

// The conflict that `work` throws.
template <typename Work>
std::optional<Conflict> conflict(Work const& work)
{
    try {
        work();
    } catch (Conflict const& error) {
        return error;
    }
    return std::nullopt;
}

class ConditionalChanges : public StoreFolder {
protected:
    SqliteStorage m_store{path()};
};

TEST_F(ConditionalChanges, RowOfEachKindIsReplacedWhereItIsAsSeen)
{
    m_store.apply({{"bool", true}, {"bytes", Bytes{0, 255}}, {"int", -1}, {"string", std::string("a\0b", 3)}});
    std::vector<Row> const rows = m_store.rows();
    ASSERT_EQ(rows.size(), 4u);
    for (Row const& row : rows)
        m_store.apply({{row.key, 7, Expected{row}}});
    for (char const* key : {"bool", "bytes", "int", "string"})
        EXPECT_EQ(m_store.getInt(key, 0), 7) << key;
}

TEST_F(ConditionalChanges, AbsentKeyIsSetWhereItIsExpectedAbsent)
{
    m_store.apply({{"key", 1, Expected{m_store.find("key")}}});
    EXPECT_EQ(m_store.getInt("key", 0), 1);
}

TEST_F(ConditionalChanges, RowIsRemovedWhereItIsAsSeen)
{
    m_store.setInt("key", 1);
    m_store.apply({{"key", {}, Expected{m_store.find("key")}}});
    EXPECT_FALSE(m_store.contains("key"));
}

TEST_F(ConditionalChanges, ChangeWithoutExpectationIsMadeOverAnything)
{
    m_store.setInt("key", 1);
    m_store.apply({{"key", 2}});
    m_store.apply({{"key", std::string("text")}});
    EXPECT_EQ(m_store.getString("key", ""), "text");
}

TEST_F(ConditionalChanges, ChangesThatAreAskedForOneByOneAreOneTransaction)
{
    m_store.applyEach(3, [](std::size_t number) {
        return SqliteStorage::Change{"key" + std::to_string(number), static_cast<int>(number)};
    });
    EXPECT_EQ(m_store.rows().size(), 3u);
    EXPECT_EQ(m_store.getInt("key2", 0), 2);
    std::string const before = content(path());
    auto const fail = [](std::size_t number) { return number < 2 ? SqliteStorage::Change{"key", 1} : throw std::runtime_error("no more"); };
    EXPECT_THROW(m_store.applyEach(3, fail), std::runtime_error);
    EXPECT_EQ(content(path()), before);
    m_store.setInt("after", 1);
    EXPECT_FALSE(m_store.contains("key"));
}

// --- Conflicts ---

TEST_F(ConditionalChanges, ConflictIsAStorageErrorWithKeyAndRow)
{
    m_store.setInt("key", 1);
    Expected const seen{m_store.find("key")};
    m_store.setString("key", "of somebody else");
    std::optional<Conflict> const error = conflict([&] { m_store.apply({{"other", 1}, {"key", 2, seen}}); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->code(), StorageError::Code::conflict);
    EXPECT_EQ(error->file(), path().string());
    EXPECT_EQ(error->attempt(), "make 2 changes together");
    EXPECT_EQ(error->key(), "key");
    ASSERT_TRUE(error->row());
    EXPECT_EQ(error->row()->kind, "string");
    EXPECT_EQ(error->row()->value, SqliteStorage::Value("of somebody else"));
    EXPECT_EQ(std::string(error->what()), path().string() + ": cannot make 2 changes together: \"key\" was changed in the meantime; "
                                                            "read it again and decide again");
}

TEST_F(ConditionalChanges, ConflictHasNoRowWhereTheKeyWasRemoved)
{
    m_store.setInt("key", 1);
    Expected const seen{m_store.find("key")};
    m_store.remove("key");
    std::optional<Conflict> const error = conflict([&] { m_store.apply({{"key", 2, seen}}); });
    ASSERT_TRUE(error);
    EXPECT_FALSE(error->row());
    EXPECT_EQ(error->reason(), "\"key\" was removed in the meantime");
    EXPECT_FALSE(m_store.contains("key"));
}

TEST_F(ConditionalChanges, KeyThatWasExpectedAbsentIsLeftAsItIs)
{
    m_store.setInt("key", 1);
    std::optional<Conflict> const error = conflict([&] { m_store.apply({{"key", 2, Expected{}}}); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->row()->value, SqliteStorage::Value(1));
    EXPECT_EQ(error->reason(), "\"key\" was set in the meantime");
    EXPECT_EQ(m_store.getInt("key", 0), 1);
}

TEST_F(ConditionalChanges, ConflictLeavesEveryChangeUnmade)
{
    m_store.setInt("key", 1);
    std::string const before = content(path());
    EXPECT_TRUE(conflict([&] { m_store.apply({{"first", 1}, {"key", 2, Expected{}}, {"last", 3}}); }));
    EXPECT_EQ(content(path()), before);
}

TEST_F(ConditionalChanges, FirstOfSeveralConflictsIsReported)
{
    m_store.apply({{"a", 1}, {"b", 2}, {"c", 3}});
    std::optional<Conflict> const error = conflict([&] {
        m_store.apply({{"c", 9, Expected{m_store.find("c")}}, {"b", 9, Expected{}}, {"a", 9, Expected{}}});
    });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->key(), "b");
}

TEST_F(ConditionalChanges, RowOfAnotherKeyIsNotTheExpectedOne)
{
    m_store.apply({{"key", 1}, {"other", 1}});
    EXPECT_TRUE(conflict([&] { m_store.apply({{"key", 2, Expected{m_store.find("other")}}}); }));
}

TEST_F(ConditionalChanges, ExpectationOfASecondChangeIsAboutTheStoreBeforeTheFirst)
{
    m_store.setInt("key", 1);
    Expected const seen{m_store.find("key")};
    m_store.apply({{"key", {}, seen}, {"key", 2, seen}});
    EXPECT_EQ(m_store.getInt("key", 0), 2);
    EXPECT_TRUE(conflict([&] { m_store.apply({{"key", {}}, {"key", 3, Expected{}}}); }));
    EXPECT_EQ(m_store.getInt("key", 0), 2);
}

TEST_F(ConditionalChanges, ConflictKeepsNobodyOut)
{
    m_store.setInt("key", 1);
    EXPECT_TRUE(conflict([&] { m_store.apply({{"key", 2, Expected{}}}); }));
    OtherProgram(path()).execute("UPDATE settings SET value = 3");
    EXPECT_EQ(m_store.getInt("key", 0), 3);
    m_store.setInt("key", 4);
    EXPECT_EQ(m_store.getInt("key", 0), 4);
}

// The row is compared when the other's transaction is over, not when `apply` is called.
TEST_F(ConditionalChanges, ChangeThatIsCommittedWhileApplyWaitsIsNoticed)
{
    m_store.setInt("key", 1);
    Expected const seen{m_store.find("key")};
    OtherProgram other(path());
    other.execute("BEGIN IMMEDIATE; UPDATE settings SET value = 5");
    std::thread committing([&] {
        std::this_thread::sleep_for(100ms);
        other.execute("COMMIT");
    });
    std::optional<Conflict> const error = conflict([&] { m_store.apply({{"key", 2, seen}}); });
    committing.join();
    ASSERT_TRUE(error);
    EXPECT_EQ(error->row()->value, SqliteStorage::Value(5));
}

// --- What tells two rows apart ---

struct Difference {
    char const* meaning;
    char const* before; // kind, value and time, as SQL
    char const* after;
};

class RowsThatDiffer : public StoreFolder, public testing::WithParamInterface<Difference> {
protected:
    void insert(std::string const& row)
    {
        OtherProgram(path()).execute(("INSERT OR REPLACE INTO settings (key, kind, value, changed) VALUES ('key', " + row + ")").c_str());
    }
};

TEST_P(RowsThatDiffer, Conflict)
{
    SqliteStorage store(path());
    insert(GetParam().before);
    Expected const seen{store.find("key")};
    insert(GetParam().after);
    EXPECT_TRUE(conflict([&] { store.apply({{"key", 1, seen}}); }));
    insert(GetParam().before);
    store.apply({{"key", 1, seen}});
    EXPECT_EQ(store.getInt("key", 0), 1);
}

INSTANTIATE_TEST_SUITE_P(
    Table, RowsThatDiffer,
    testing::Values(Difference{"Time", "'int', 1, 1000", "'int', 1, 1001"}, //
                    Difference{"Number", "'int', 1, 1000", "'int', 2, 1000"},
                    Difference{"KindWithTheSameStoredNumber", "'int', 1, 1000", "'bool', 1, 1000"},
                    Difference{"Text", "'string', 'a', 1000", "'string', 'A', 1000"},
                    Difference{"TextAfterANul", "'string', CAST(x'610062' AS TEXT), 1000", "'string', CAST(x'610063' AS TEXT), 1000"},
                    Difference{"LastByte", "'bytes', x'0001', 1000", "'bytes', x'0002', 1000"},
                    Difference{"UnknownKind", "'colour', 'red', 1000", "'color', 'red', 1000"},
                    Difference{"UnknownKindAfterANul", "CAST(x'6B0061' AS TEXT), 1, 1000", "CAST(x'6B0062' AS TEXT), 1, 1000"},
                    Difference{"PayloadOfAnUnknownKind", "'colour', 'red', 1000", "'colour', 'reD', 1000"},
                    Difference{"LastBitOfARealNumber", "'ratio', 0.3, 1000", "'ratio', 0.1 + 0.2, 1000"},
                    Difference{"IntegerAndRealNumber", "'ratio', 1, 1000", "'ratio', 1.0, 1000"},
                    Difference{"TextAndBytes", "'colour', 'red', 1000", "'colour', x'726564', 1000"},
                    Difference{"NumberThatDoesNotFitItsKind", "'int', 5000000000, 1000", "'int', 5000000001, 1000"},
                    Difference{"ReadableAndUnreadableFlag", "'bool', 1, 1000", "'bool', 2, 1000"}),
    byMeaning);

} // namespace
