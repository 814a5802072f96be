// SPDX-License-Identifier: MIT
//
// Typed access allocates what its conversions allocate and nothing more; allocations of the store are not counted. A larger
// folder takes no more memory for the next name.
#include <Lumora/Util/ByteConversion.h>
#include <Storage/EmptyStorage.h>
#include <support/Allocations.h>
#include <support/BoundLibrary.h>
#include <support/Named.h>

#include <filesystem>

namespace {

using Storage::EmptyStorage;

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

// The arguments of the calls, made before anything is counted.
struct Values {
    std::string absent = "absent";
    std::string present = "present";
    std::string longKey = "absent, and longer than fifteen bytes";
    std::string narrow = std::string(46, 'n');
    QString none;
    QString text = QString(46, QLatin1Char('t'));
    QString beyondAscii = QString(46, QChar(0xFC));
    QByteArray bytes = QByteArray(100, 'b');
    std::vector<unsigned char> storedBytes = std::vector<unsigned char>(100, 'b');
    Rational rational{3, 4};
    QStringList noElements;
    QStringList list{text, text, text};
};

struct Row {
    char const* meaning;
    std::string const& stored; // under the key "present"
    void (*call)(Values const&);
    void (*conversions)(Values const&);
};

class TypedAccess : public testing::TestWithParam<Row> {};

TEST_P(TypedAccess, AllocatesWhatItsConversionsAllocate)
{
    Values const values;
    auto const store = std::make_shared<CountingStorage>();
    store->text = GetParam().stored;
    TestKit::ScopedBinding const binding({{}, {}, store, {}});
    auto const allocations = [&](void (*work)(Values const&)) {
        work(values); // the first call may set something up
        store->taken = 0;
        int const before = Allocations::soFar();
        work(values);
        return Allocations::soFar() - before - store->taken;
    };
    EXPECT_EQ(allocations(GetParam().call), allocations(GetParam().conversions));
}

TEST(TypedAccessOfPlainValues, AllocatesNothing)
{
    Values const values;
    auto const store = std::make_shared<CountingStorage>();
    TestKit::ScopedBinding const binding({{}, {}, store, {}});
    int const before = Allocations::soFar();
    read(values.absent, true, product);
    write(values.absent, true, product);
    read(values.absent, 1, product);
    write(values.absent, 1, product);
    write(values.absent, values.narrow, product);
    EXPECT_EQ(Allocations::soFar() - before, 0);
    read(values.absent, values.narrow, product);
    EXPECT_EQ(Allocations::soFar() - before, 1) << "the store's answer";
}

void nothing(Values const&) {}

// The conversions that the library needs, by themselves.
void encode(QString const& text) { std::string const utf8 = text.toStdString(); }
void decode(std::string const& utf8) { QString const text = QString::fromStdString(utf8); }
void encodeList(QStringList const& list) { std::string const utf8 = list.join(QStringLiteral("|#|")).toStdString(); }
void decodeList(std::string const& utf8)
{
    QStringList const list = QString::fromStdString(utf8).split(QStringLiteral("|#|"), Qt::SkipEmptyParts);
}
void decodeOne(std::string const& utf8) { QStringList const list(QString::fromStdString(utf8)); }
void makeRationalKeys(Values const& values)
{
    std::string const numerator = values.longKey + "_N";
    std::string const denominator = values.longKey + "_D";
}

std::string const noText;
std::string const storedText(46, 's');
std::string const storedList = "one|#|two|#|three";
std::string const defaultText(46, 't');
std::string const defaultList = defaultText + "|#|" + defaultText + "|#|" + defaultText;
std::string const defaultBeyondAscii = QString(46, QChar(0xFC)).toStdString();

Row const table[] = {
    {"NarrowReadPresent", storedText, [](Values const& v) { read(v.present, v.narrow, product); }, nothing},
    {"TextReadAbsentWithoutDefault", noText, [](Values const& v) { read(v.absent, v.none, product); },
     [](Values const& v) { encode(v.none), decode(noText); }},
    {"TextReadAbsent", noText, [](Values const& v) { read(v.absent, v.text, product); },
     [](Values const& v) { encode(v.text), decode(defaultText); }},
    {"TextReadAbsentBeyondAscii", noText, [](Values const& v) { read(v.absent, v.beyondAscii, product); },
     [](Values const& v) { encode(v.beyondAscii), decode(defaultBeyondAscii); }},
    {"TextReadPresent", storedText, [](Values const& v) { read(v.present, v.text, product); },
     [](Values const& v) { encode(v.text), decode(storedText); }},
    {"TextWrittenEmpty", noText, [](Values const& v) { write(v.absent, v.none, product); }, [](Values const& v) { encode(v.none); }},
    {"TextWritten", noText, [](Values const& v) { write(v.absent, v.text, product); }, [](Values const& v) { encode(v.text); }},
    {"TextWrittenBeyondAscii", noText, [](Values const& v) { write(v.absent, v.beyondAscii, product); },
     [](Values const& v) { encode(v.beyondAscii); }},
    {"BytesReadAbsent", noText, [](Values const& v) { read(v.absent, v.bytes, product); }, nothing},
    {"BytesReadPresent", noText, [](Values const& v) { read(v.present, v.bytes, product); },
     [](Values const& v) { Lumora::Util::VectorByteToQByteArray(v.storedBytes); }},
    {"BytesWritten", noText, [](Values const& v) { write(v.absent, v.bytes, product); },
     [](Values const& v) { Lumora::Util::QByteArrayToVectorByte(v.bytes); }},
    {"RationalRead", noText, [](Values const& v) { read(v.longKey, v.rational, product); }, makeRationalKeys},
    {"RationalWritten", noText, [](Values const& v) { write(v.longKey, v.rational, product); }, makeRationalKeys},
    {"ListReadAbsent", noText, [](Values const& v) { read(v.absent, v.list, product); },
     [](Values const& v) { encodeList(v.list), decodeList(defaultList); }},
    {"ListReadPresent", storedList, [](Values const& v) { read(v.present, v.noElements, product); },
     [](Values const& v) { encodeList(v.noElements), decodeList(storedList); }},
    {"ListReadPresentOneElement", storedText, [](Values const& v) { read(v.present, v.noElements, product); },
     [](Values const&) { decodeOne(storedText); }},
    {"ListWritten", noText, [](Values const& v) { write(v.absent, v.list, product); }, [](Values const& v) { encodeList(v.list); }},
};

std::ostream& operator<<(std::ostream& stream, Row const& row) { return stream << row.meaning; }

INSTANTIATE_TEST_SUITE_P(Table, TypedAccess, testing::ValuesIn(table), byMeaning);

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
