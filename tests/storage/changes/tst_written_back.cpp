// SPDX-License-Identifier: MIT
//
// Rows that this version cannot read are removed and written back as they were.
#include <storage/support/StoreFolder.h>

#include <Storage/Conflict.h>

#include <support/Named.h>

#include <chrono>
#include <cmath>
#include <string>
#include <variant>
#include <vector>

namespace {

using Storage::SqliteStorage;
using Bytes = std::vector<unsigned char>;
using Change = SqliteStorage::Change;
using Expected = SqliteStorage::Expected;
using Payload = SqliteStorage::Payload;
using Row = SqliteStorage::Row;

struct UnreadableRow {
    char const* meaning;
    char const* kind;  // as SQL
    char const* value; // as SQL
    std::string kindWord;
    Payload payload;
};

class RowOfALaterVersion : public StoreFolder, public testing::WithParamInterface<UnreadableRow> {
protected:
    void SetUp() override
    {
        OtherProgram(path()).execute(
            (std::string("INSERT INTO settings VALUES ('key', ") + GetParam().kind + ", " + GetParam().value + ", 1000)").c_str());
    }

    // Whether the file holds the row, time apart, as another program sees it.
    std::string held() const
    {
        std::string const same = std::string("typeof(kind) = 'text' AND hex(kind) = hex(") + GetParam().kind +
                                 ") AND typeof(value) = typeof(" + GetParam().value + ") AND value = " + GetParam().value +
                                 " AND hex(value) = hex(" + GetParam().value + ")";
        return OtherProgram(path()).ask(("SELECT count(*) FROM settings WHERE key = 'key' AND " + same).c_str());
    }

    SqliteStorage m_store{path()};
};

TEST_P(RowOfALaterVersion, HasNoValueButItsPayload)
{
    Row const row = m_store.rows().at(0);
    EXPECT_EQ(row.kind, GetParam().kindWord);
    EXPECT_EQ(row.value, SqliteStorage::Value());
    EXPECT_EQ(row.payload, GetParam().payload);
    EXPECT_TRUE(row == *m_store.find("key"));
}

TEST_P(RowOfALaterVersion, IsWrittenBackAsItWas)
{
    ASSERT_EQ(held(), "1");
    std::optional<Row> const row = m_store.find("key");
    m_store.apply({{"key", std::monostate(), Expected{row}}});
    ASSERT_FALSE(m_store.contains("key"));
    auto const before = std::chrono::system_clock::now() - std::chrono::milliseconds(1);
    m_store.apply({Change::restoring(*row, Expected{})});
    EXPECT_EQ(held(), "1");
    Row const restored = m_store.find("key").value();
    EXPECT_EQ(restored.payload, row->payload);
    EXPECT_EQ(restored.value, SqliteStorage::Value());
    EXPECT_GE(restored.changed, before);
}

TEST_P(RowOfALaterVersion, IsWrittenBackOverAnotherValue)
{
    Row const row = m_store.find("key").value();
    m_store.setString("key", "in between");
    m_store.apply({Change::restoring(row, Expected{m_store.find("key")})});
    EXPECT_EQ(held(), "1");
}

INSTANTIATE_TEST_SUITE_P(Table, RowOfALaterVersion,
                         testing::Values(UnreadableRow{"Integer", "'long'", "-9223372036854775807", "long",
                                                       std::int64_t{-9223372036854775807}},
                                         UnreadableRow{"RealNumber", "'ratio'", "0.1 + 0.2", "ratio", 0.1 + 0.2},
                                         UnreadableRow{"WholeRealNumber", "'ratio'", "1.0", "ratio", 1.0},
                                         UnreadableRow{"InfiniteNumber", "'ratio'", "-9e999", "ratio", -HUGE_VAL},
                                         UnreadableRow{"Text", "'colour'", "'red'", "colour", std::string("red")},
                                         UnreadableRow{"TextWithNulAndBadUtf8", "'colour'", "CAST(x'61006280FF' AS TEXT)", "colour",
                                                       std::string("a\0b\x80\xFF", 5)},
                                         UnreadableRow{"EmptyText", "'colour'", "''", "colour", std::string()},
                                         UnreadableRow{"Bytes", "'colour'", "x'00FF00'", "colour", Bytes{0, 255, 0}},
                                         UnreadableRow{"EmptyBytes", "'colour'", "x''", "colour", Bytes{}},
                                         UnreadableRow{"KindWithNulAndBadUtf8", "CAST(x'696E740080' AS TEXT)", "1",
                                                       std::string("int\0\x80", 5), std::int64_t{1}},
                                         UnreadableRow{"EmptyKind", "''", "1", "", std::int64_t{1}},
                                         UnreadableRow{"NumberBeyondInt", "'int'", "5000000000", "int", std::int64_t{5000000000}},
                                         UnreadableRow{"FlagThatIsTwo", "'bool'", "2", "bool", std::int64_t{2}},
                                         UnreadableRow{"NumberAsText", "'int'", "'1'", "int", std::string("1")},
                                         UnreadableRow{"TextAsBytes", "'string'", "x'61'", "string", Bytes{'a'}},
                                         UnreadableRow{"BytesAsText", "'bytes'", "'a'", "bytes", std::string("a")}),
                         byMeaning);

class WrittenBack : public StoreFolder {
protected:
    SqliteStorage m_store{path()};
};

TEST_F(WrittenBack, RowsOfKnownKindsAreToo)
{
    m_store.apply({{"bool", true}, {"bytes", Bytes{0, 255}}, {"int", -1}, {"string", std::string("a\0b", 3)}});
    std::vector<Row> const rows = m_store.rows();
    ASSERT_EQ(rows.size(), 4u);
    for (Row const& row : rows) {
        EXPECT_EQ(row.payload, Payload()) << row.key;
        m_store.remove(row.key);
        m_store.apply({Change::restoring(row)});
    }
    EXPECT_TRUE(m_store.getBool("bool", false));
    EXPECT_EQ(m_store.getBytes("bytes", {}), (Bytes{0, 255}));
    EXPECT_EQ(m_store.getInt("int", 0), -1);
    EXPECT_EQ(m_store.getString("string", ""), std::string("a\0b", 3));
}

TEST_F(WrittenBack, RowIsNotWrittenBackOverAnUnexpectedOne)
{
    m_store.setInt("key", 1);
    Row const row = m_store.find("key").value();
    m_store.setInt("key", 2);
    EXPECT_THROW(m_store.apply({Change::restoring(row, Expected{})}), Storage::Conflict);
    EXPECT_EQ(m_store.getInt("key", 0), 2);
}

TEST_F(WrittenBack, NegativeZeroStaysNegative)
{
    m_store.apply({{"key", {}, {}, "ratio", -0.0}});
    Row const row = m_store.find("key").value();
    EXPECT_TRUE(std::signbit(std::get<double>(row.payload)));
    m_store.apply({{"key", {}, {}, "ratio", 0.0}});
    EXPECT_FALSE(std::signbit(std::get<double>(m_store.find("key")->payload)));
    Row positive = row;
    positive.payload = 0.0;
    EXPECT_FALSE(row == positive);
    EXPECT_TRUE(row == Row(row));
}

TEST_F(WrittenBack, RowOfALaterVersionIsRemovedWithoutAPayload)
{
    OtherProgram(path()).execute("INSERT INTO settings VALUES ('key', 'colour', 'red', 1000)");
    m_store.apply({{"key", std::monostate()}});
    EXPECT_FALSE(m_store.contains("key"));
}

} // namespace
