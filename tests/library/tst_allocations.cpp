// SPDX-License-Identifier: MIT
//
// How often typed access takes memory by itself: what the store takes for its answers is not counted. In this C++ library
// a string of up to fifteen bytes takes none. And that a larger folder takes no more memory for the next name.
#include <support/Allocations.h>
#include <support/BoundLibrary.h>
#include <support/EmptyStorage.h>
#include <support/Named.h>

#include <filesystem>

namespace {

using Rational = boost::rational<long long>;

constexpr bool product = false;

// Gives the same values for every key that begins with "present", and knows what itself it takes.
class CountingStorage final : public EmptyStorage {
public:
    std::string getString(std::string const& key, std::string const& value) const override
    {
        Counted const counted(*this);
        return isPresent(key) ? text : value;
    }
    std::vector<unsigned char> getBytes(std::string const& key, std::vector<unsigned char> const& value) const override
    {
        Counted const counted(*this);
        return isPresent(key) ? std::vector<unsigned char>(100, 'b') : value;
    }

    std::string text;
    mutable int taken = 0;

private:
    struct Counted {
        explicit Counted(CountingStorage const& storage) : m_storage(storage) {}
        ~Counted() { m_storage.taken += Allocations::soFar() - m_before; }
        CountingStorage const& m_storage;
        int m_before = Allocations::soFar();
    };

    static bool isPresent(std::string const& key) { return key.compare(0, 7, "present") == 0; }
};

// What calls are made with; made before anything is counted.
struct Values {
    std::string absent = "absent";
    std::string present = "present";
    std::string longKey = "absent, and longer than fifteen bytes";
    std::string narrow = std::string(46, 'n');
    QString none;
    QString shortAscii = QString(15, QLatin1Char('s'));
    QString longAscii = QString(46, QLatin1Char('l'));
    QString literal = QStringLiteral("a text that lies in the program, not on the heap");
    QString beyondAscii = QString(46, QChar(0xFC));
    QByteArray noBytes;
    QByteArray bytes = QByteArray(100, 'b');
    Rational rational{3, 4};
    QStringList noElements;
    QStringList list{longAscii, longAscii, longAscii};
};

struct Row {
    char const* meaning;
    char const* stored; // under the key "present"
    void (*call)(Values const&);
    int expected;
    char const* reason;
};

class Taken : public testing::TestWithParam<Row> {};

TEST_P(Taken, ByTheLibraryItself)
{
    Values const values;
    auto const store = std::make_shared<CountingStorage>();
    store->text = GetParam().stored;
    TestKit::ScopedBinding const binding({{}, {}, store, {}});
    GetParam().call(values); // the first may set something up
    store->taken = 0;
    int const before = Allocations::soFar();
    GetParam().call(values);
    EXPECT_EQ(Allocations::soFar() - before - store->taken, GetParam().expected) << GetParam().reason;
}

Row const table[] = {
    {"BoolRead", "", [](Values const& v) { read(v.absent, true, product); }, 0, "nothing"},
    {"BoolWritten", "", [](Values const& v) { write(v.absent, true, product); }, 0, "nothing"},
    {"IntRead", "", [](Values const& v) { read(v.absent, 1, product); }, 0, "nothing"},
    {"IntWritten", "", [](Values const& v) { write(v.absent, 1, product); }, 0, "nothing"},
    {"NarrowReadAbsent", "", [](Values const& v) { read(v.absent, v.narrow, product); }, 0, "passed through"},
    {"NarrowReadPresent", "0123456789012345678901234567890123456789012345", [](Values const& v) { read(v.present, v.narrow, product); }, 0,
     "passed through"},
    {"NarrowWritten", "", [](Values const& v) { write(v.absent, v.narrow, product); }, 0, "passed through"},
    {"TextReadAbsentWithoutDefault", "", [](Values const& v) { read(v.absent, v.none, product); }, 0, "empty"},
    {"TextReadAbsentShort", "", [](Values const& v) { read(v.absent, v.shortAscii, product); }, 0, "the default itself"},
    {"TextReadAbsentLong", "", [](Values const& v) { read(v.absent, v.longAscii, product); }, 1, "default for the store"},
    {"TextReadAbsentLiteral", "", [](Values const& v) { read(v.absent, v.literal, product); }, 2, "default for the store, result"},
    {"TextReadAbsentBeyondAscii", "", [](Values const& v) { read(v.absent, v.beyondAscii, product); }, 3,
     "Qt's bytes, default for the store, result"},
    {"TextReadPresentWithoutDefault", "0123456789012345678901234567890123456789012345",
     [](Values const& v) { read(v.present, v.none, product); }, 1, "result"},
    {"TextReadPresentShort", "stored", [](Values const& v) { read(v.present, v.shortAscii, product); }, 1, "result"},
    {"TextReadPresentLong", "0123456789012345678901234567890123456789012345",
     [](Values const& v) { read(v.present, v.longAscii, product); }, 2, "default for the store, result"},
    {"TextReadPresentBeyondAscii", "\xC3\xBC", [](Values const& v) { read(v.present, v.none, product); }, 1, "result"},
    {"TextWrittenEmpty", "", [](Values const& v) { write(v.absent, v.none, product); }, 0, "empty"},
    {"TextWrittenShort", "", [](Values const& v) { write(v.absent, v.shortAscii, product); }, 0, "short enough"},
    {"TextWrittenLong", "", [](Values const& v) { write(v.absent, v.longAscii, product); }, 1, "value for the store"},
    {"TextWrittenBeyondAscii", "", [](Values const& v) { write(v.absent, v.beyondAscii, product); }, 2, "Qt's bytes, value for the store"},
    {"BytesReadAbsent", "", [](Values const& v) { read(v.absent, v.bytes, product); }, 0, "empty"},
    {"BytesReadPresent", "", [](Values const& v) { read(v.present, v.noBytes, product); }, 1, "result"},
    {"BytesWrittenEmpty", "", [](Values const& v) { write(v.absent, v.noBytes, product); }, 0, "empty"},
    {"BytesWritten", "", [](Values const& v) { write(v.absent, v.bytes, product); }, 1, "value for the store"},
    {"RationalReadShortKey", "", [](Values const& v) { read(v.absent, v.rational, product); }, 0, "short enough"},
    {"RationalReadLongKey", "", [](Values const& v) { read(v.longKey, v.rational, product); }, 1, "key for the store"},
    {"RationalWrittenShortKey", "", [](Values const& v) { write(v.absent, v.rational, product); }, 0, "short enough"},
    {"RationalWrittenLongKey", "", [](Values const& v) { write(v.longKey, v.rational, product); }, 1, "key for the store"},
    {"ListReadAbsentWithoutDefault", "", [](Values const& v) { read(v.absent, v.noElements, product); }, 0, "empty"},
    {"ListReadAbsent", "", [](Values const& v) { read(v.absent, v.list, product); }, 7,
     "joined, default for the store, list and its growth, three elements"},
    {"ListReadPresent", "one|#|two|#|three", [](Values const& v) { read(v.present, v.noElements, product); }, 6,
     "text, list and its growth, three elements"},
    {"ListReadPresentOneElement", "one", [](Values const& v) { read(v.present, v.noElements, product); }, 2, "text, list"},
    {"ListWrittenEmpty", "", [](Values const& v) { write(v.absent, v.noElements, product); }, 0, "empty"},
    {"ListWritten", "", [](Values const& v) { write(v.absent, v.list, product); }, 1, "value for the store"},
};

std::ostream& operator<<(std::ostream& stream, Row const& row) { return stream << row.meaning; }

INSTANTIATE_TEST_SUITE_P(Table, Taken, testing::ValuesIn(table), byMeaning);

// --- Running numbers ---------------------------------------------------------------------------------------------------

class NextName : public BoundLibrary, public testing::WithParamInterface<char const*> {
protected:
    NextName() { m_productValues->setString("stabilizedFilePath", (m_home.path() / "clips").string()); }

    // All names are of one length, whatever their number.
    void make(int first, int last) const
    {
        for (int number = first; number <= last; ++number)
            m_home.write(std::filesystem::u8path("clips/" + (GetParam() + ('-' + std::to_string(number)) + ".mp4")), "");
    }

    static int takenFor(QString const& source, QString const& format)
    {
        Settings::generateStabilizedFilePath(source, format); // the first may set something up
        int const before = Allocations::soFar();
        Settings::generateStabilizedFilePath(source, format);
        return Allocations::soFar() - before;
    }
};

TEST_P(NextName, TakesNoMoreInALargerFolder)
{
    QString const source = QString::fromUtf8(GetParam()) + QStringLiteral(".mov");
    QString const format = QStringLiteral("mp4");
    make(1001, 1010);
    int const taken = takenFor(source, format);
    make(1011, 1500);
    EXPECT_LE(takenFor(source, format), taken);
    EXPECT_TRUE(Settings::generateStabilizedFilePath(source, format).endsWith(QStringLiteral("-1501.mp4")));
}

INSTANTIATE_TEST_SUITE_P(Scripts, NextName,
                         testing::Values("Holiday", u8"\u4F11\u65E5", u8"\u0639\u0637\u0644\u0629", u8"e\u0301te\u0301"));

} // namespace
