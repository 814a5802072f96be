// SPDX-License-Identifier: MIT
#include <TestKit/FailingStorage.h>

#include <Storage/EmptyStorage.h>
#include <support/BoundLibrary.h>
#include <support/Named.h>

#include <QStringBuilder>

#include <functional>
#include <limits>
#include <type_traits>
#include <utility>
#include <vector>

#include <unistd.h>

using Rational = boost::rational<long long>;

// The fourteen overloads, with the lists by value and all else by reference.
template <typename T, typename Argument = T const&>
constexpr bool hasOverloads(T (*)(std::string const&, Argument, bool), void (*)(std::string const&, Argument, bool))
{
    return true;
}
static_assert(hasOverloads<std::string>(&read, &write));
static_assert(hasOverloads<QString>(&read, &write));
static_assert(hasOverloads<bool>(&read, &write));
static_assert(hasOverloads<int>(&read, &write));
static_assert(hasOverloads<QByteArray>(&read, &write));
static_assert(hasOverloads<Rational>(&read, &write));
static_assert(hasOverloads<QStringList, QStringList>(&read, &write));

// What a call with a value of type `Value` returns; `Refused` where there is no such call, for reading or for writing.
struct Refused {};
template <typename Value, typename = void>
struct CallWith {
    using Result = Refused;
};
template <typename Value>
struct CallWith<Value, std::void_t<decltype(read(std::string(), std::declval<Value>(), false)),
                                   decltype(write(std::string(), std::declval<Value>(), false))>> {
    using Result = decltype(read(std::string(), std::declval<Value>(), false));
};
template <typename Value, typename Result>
constexpr bool picks = std::is_same_v<typename CallWith<Value>::Result, Result>;

static_assert(picks<std::string&, std::string> && picks<std::string const, std::string>);
static_assert(picks<QString&, QString> && picks<QLatin1String, QString> && picks<QStringBuilder<QString, QLatin1Char>, QString>);
static_assert(picks<bool, bool> && picks<std::vector<bool>::reference, bool> && picks<std::true_type, bool>);
static_assert(picks<int&, int> && picks<short, int> && picks<char, int> && picks<unsigned char, int> && picks<Qt::Axis, int>);
static_assert(picks<QByteArray, QByteArray> && picks<Rational, Rational>);
static_assert(picks<QStringList, QStringList> && picks<QList<QString>, QStringList>);
// Nothing says whether these are a bool or an int.
static_assert(picks<long, Refused> && picks<unsigned, Refused> && picks<double, Refused>);
// The system's calls of the same names, also with a number that could be a null pointer, and so a key.
static_assert(std::is_same_v<decltype(::read(0, std::declval<char*>(), std::size_t())), ssize_t>);
static_assert(std::is_same_v<decltype(::write(0, "text", std::size_t())), ssize_t>);
// A literal would convert to a bool, which nobody means who writes a text. A pointer does.
static_assert(picks<char const (&)[5], Refused> && picks<char (&)[5], Refused>);
static_assert(picks<char const*, bool> && picks<char*, bool>);

namespace {

using Storage::EmptyStorage;

std::string const key = "key";
bool const common = true;
bool const product = false;

// "grüße €🎬" in the two encodings.
std::string const textUtf8 = "gr\xC3\xBC\xC3\x9F"
                             "e \xE2\x82\xAC\xF0\x9F\x8E\xAC";
QString text() { return QString::fromUtf16(u"gr\u00FC\u00DFe \u20AC\U0001F3AC"); }

class TypedAccess : public BoundLibrary {};

// --- Which store call each overload makes ---

TEST_F(TypedAccess, NarrowStringIsPassedUntouched)
{
    std::string const raw("\xFF\0raw", 5);
    EXPECT_EQ(read(key, raw, product), raw);
    EXPECT_EQ(calls(), (Calls{"product.getString(\"key\", \"\xFF\\x00raw\")"}));
    write(key, raw, product);
    EXPECT_EQ(calls(), (Calls{"product.setString(\"key\", \"\xFF\\x00raw\")"}));
    EXPECT_EQ(read(key, std::string("default"), product), raw);
    EXPECT_EQ(calls(), (Calls{"product.getString(\"key\", \"default\")"}));
}

TEST_F(TypedAccess, TextCrossesAsUtf8)
{
    EXPECT_EQ(read(key, text(), product), text());
    EXPECT_EQ(calls(), (Calls{"product.getString(\"key\", \"" + textUtf8 + "\")"}));
    write(key, text(), product);
    EXPECT_EQ(calls(), (Calls{"product.setString(\"key\", \"" + textUtf8 + "\")"}));
    EXPECT_EQ(m_productValues->getString(key, ""), textUtf8);
    EXPECT_EQ(read(key, QString(), product), text());
}

TEST_F(TypedAccess, TextCrossesInFullLength)
{
    QString const withNul = QString::fromUtf16(u"a\0b", 3);
    write(key, withNul, product);
    EXPECT_EQ(m_productValues->getString(key, ""), std::string("a\0b", 3));
    EXPECT_EQ(read(key, QString(), product), withNul);
    EXPECT_EQ(read("absent", withNul, product), withNul);
}

TEST_F(TypedAccess, InvalidUtf8IsReadWithReplacementCharacters)
{
    m_productStore->setString(key, "a\xFFz");
    EXPECT_EQ(read(key, QString(), product), QString::fromUtf16(u"a\uFFFDz"));
    EXPECT_EQ(read(key, QStringList(), product), QStringList(QString::fromUtf16(u"a\uFFFDz")));
}

TEST_F(TypedAccess, BoolMakesOneCall)
{
    EXPECT_TRUE(read(key, true, product));
    EXPECT_FALSE(read(key, false, product));
    EXPECT_EQ(calls(), (Calls{"product.getBool(\"key\", true)", "product.getBool(\"key\", false)"}));
    write(key, true, product);
    EXPECT_EQ(calls(), (Calls{"product.setBool(\"key\", true)"}));
    EXPECT_TRUE(read(key, false, product));
    write(key, false, product);
    EXPECT_FALSE(read(key, true, product));
}

TEST_F(TypedAccess, IntMakesOneCall)
{
    EXPECT_EQ(read(key, -5, product), -5);
    EXPECT_EQ(calls(), (Calls{"product.getInt(\"key\", -5)"}));
    write(key, std::numeric_limits<int>::min(), product);
    EXPECT_EQ(calls(), (Calls{"product.setInt(\"key\", -2147483648)"}));
    EXPECT_EQ(read(key, 0, product), std::numeric_limits<int>::min());
}

TEST_F(TypedAccess, BytesCrossByteForByte)
{
    QByteArray const bytes("\x00\xFF|#|\x80", 6);
    write(key, bytes, product);
    EXPECT_EQ(calls(), (Calls{"product.setBytes(\"key\", [00 ff 7c 23 7c 80])"}));
    EXPECT_EQ(read(key, QByteArray(), product), bytes);
    EXPECT_EQ(calls(), (Calls{"product.getBytes(\"key\", [])"}));
}

TEST_F(TypedAccess, AbsentBytesAreEmptyWhateverTheDefault)
{
    EXPECT_EQ(read(key, QByteArray("default"), product), QByteArray());
    EXPECT_EQ(calls(), (Calls{"product.getBytes(\"key\", [])"}));
}

TEST_F(TypedAccess, RationalAsksNumeratorThenDenominator)
{
    EXPECT_EQ(read(key, Rational(3, 4), product), Rational(3, 4));
    EXPECT_EQ(calls(), (Calls{"product.getInt(\"key_N\", 3)", "product.getInt(\"key_D\", 4)"}));
    write(key, Rational(6, -8), product);
    EXPECT_EQ(calls(), (Calls{"product.setInt(\"key_N\", -3)", "product.setInt(\"key_D\", 4)"}));
    EXPECT_EQ(read(key, Rational(1, 1), product), Rational(-3, 4));
}

TEST_F(TypedAccess, ListMakesOneCallWithTheElementsJoined)
{
    QStringList const list{QStringLiteral("a"), QStringLiteral("b c"), text()};
    EXPECT_EQ(read(key, list, product), list);
    EXPECT_EQ(calls(), (Calls{"product.getString(\"key\", \"a|#|b c|#|" + textUtf8 + "\")"}));
    write(key, list, product);
    EXPECT_EQ(calls(), (Calls{"product.setString(\"key\", \"a|#|b c|#|" + textUtf8 + "\")"}));
    EXPECT_EQ(read(key, QStringList(), product), list);
    EXPECT_EQ(calls(), (Calls{"product.getString(\"key\", \"\")"}));
}

TEST_F(TypedAccess, FlagPicksTheStore)
{
    write(key, 1, common);
    write(key, 2, product);
    EXPECT_EQ(read(key, 0, common), 1);
    EXPECT_EQ(read(key, 0, product), 2);
    EXPECT_EQ(calls(), (Calls{"common.setInt(\"key\", 1)", "product.setInt(\"key\", 2)", "common.getInt(\"key\", 0)",
                              "product.getInt(\"key\", 0)"}));
}

TEST_F(TypedAccess, FlagPicksTheStoreInEveryOverload)
{
    write("s", std::string("v"), common);
    write("q", QStringLiteral("v"), common);
    write("b", true, common);
    write("i", 1, common);
    write("y", QByteArray("v"), common);
    write("r", Rational(1, 2), common);
    write("l", QStringList(QStringLiteral("v")), common);
    EXPECT_TRUE(m_productValues->values().empty());
    EXPECT_EQ(m_commonValues->values().size(), 8u);
    EXPECT_EQ(read("s", std::string(), common), "v");
    EXPECT_EQ(read("q", QString(), common), QStringLiteral("v"));
    EXPECT_TRUE(read("b", false, common));
    EXPECT_EQ(read("i", 0, common), 1);
    EXPECT_EQ(read("y", QByteArray(), common), QByteArray("v"));
    EXPECT_EQ(read("r", Rational(5), common), Rational(1, 2));
    EXPECT_EQ(read("l", QStringList(), common), QStringList(QStringLiteral("v")));
    EXPECT_EQ(read("s", std::string("none"), product), "none");
    EXPECT_EQ(read("r", Rational(5), product), Rational(5));
}

// --- Lists ---

struct ListCase {
    char const* meaning;
    QStringList written;
    std::string stored;
    QStringList readBack;
};

class ListEncoding : public BoundLibrary, public testing::WithParamInterface<ListCase> {};

TEST_P(ListEncoding, IsJoinedAndSplit)
{
    write(key, GetParam().written, product);
    EXPECT_EQ(m_productValues->getString(key, "unset"), GetParam().stored);
    EXPECT_EQ(read(key, QStringList(QStringLiteral("default")), product), GetParam().readBack);
    EXPECT_EQ(read("absent", GetParam().written, product), GetParam().readBack) << "a default takes the same way";
}

QStringList list(std::initializer_list<char const*> elements)
{
    QStringList result;
    for (char const* element : elements)
        result.append(QString::fromUtf8(element));
    return result;
}

INSTANTIATE_TEST_SUITE_P(
    Table, ListEncoding,
    testing::Values(
        ListCase{"EmptyListIsAnEmptyText", {}, "", {}}, ListCase{"OneElementHasNoSeparator", list({"a"}), "a", list({"a"})},
        ListCase{"EmptyElementInTheMiddleIsLost", list({"a", "", "b"}), "a|#||#|b", list({"a", "b"})},
        ListCase{"EmptyElementsAtTheEndsAreLost", list({"", "a", ""}), "|#|a|#|", list({"a"})},
        ListCase{"OnlyEmptyElementsGiveAnEmptyList", list({"", ""}), "|#|", {}},
        ListCase{"ElementWithTheSeparatorComesBackAsTwo", list({"x|#|y"}), "x|#|y", list({"x", "y"})},
        ListCase{"ElementThatIsTheSeparatorIsLost", list({"|#|"}), "|#|", {}},
        ListCase{"PartsOfTheSeparatorAreKept", list({"|", "#", "|#", "#|"}), "||#|#|#||#|#|#|", list({"|", "#", "#"})},
        ListCase{"BlanksAreElements", list({" ", "a b"}), " |#|a b", list({" ", "a b"})},
        ListCase{"LettersKeepTheirCase", list({"A", "a"}), "A|#|a", list({"A", "a"})},
        ListCase{"LettersOutsideAscii", list({"\u00E9", "b", "\u30AF"}), "\u00E9|#|b|#|\u30AF", list({"\u00E9", "b", "\u30AF"})},
        ListCase{"MarkOfByteOrderIsLostAtTheStartOnly",
                 {QString(QChar(0xFEFF)) + QStringLiteral("a"), QString(QChar(0xFEFF))},
                 "\uFEFFa|#|\uFEFF",
                 {QStringLiteral("a"), QString(QChar(0xFEFF))}},
        ListCase{"HalvesOfASurrogatePairDoNotMeet",
                 {QString(QChar(0xD83C)), QString(QChar(0xDFAC))},
                 "?|#|?",
                 {QStringLiteral("?"), QStringLiteral("?")}},
        ListCase{
            "Nul", {QStringLiteral("a\0b"), QString(QChar(0))}, std::string("a\0b|#|\0", 7), {QStringLiteral("a\0b"), QString(QChar(0))}},
        ListCase{"LongElements",
                 {QString(100, QLatin1Char('x')), QString(), QString(100, QLatin1Char('y'))},
                 std::string(100, 'x') + "|#||#|" + std::string(100, 'y'),
                 {QString(100, QLatin1Char('x')), QString(100, QLatin1Char('y'))}}),
    byMeaning);

TEST_F(TypedAccess, ListOfTheCallerStaysAsItIs)
{
    QStringList const written = list({"a", "", "b"});
    write(key, written, product);
    EXPECT_EQ(written, list({"a", "", "b"}));
}

// --- Texts of every kind ---

struct TextCase {
    char const* meaning;
    QString text;
    std::string stored;
    QString readBack;
};

QString units(std::initializer_list<char16_t> units)
{
    return QString(reinterpret_cast<QChar const*>(units.begin()), static_cast<int>(units.size()));
}

class TextEncoding : public BoundLibrary, public testing::WithParamInterface<TextCase> {};

TEST_P(TextEncoding, IsQts)
{
    TextCase const& test = GetParam();
    ASSERT_EQ(test.text.toStdString(), test.stored) << "what Qt makes of it";
    write(key, test.text, product);
    EXPECT_EQ(m_productValues->getString(key, "unset"), test.stored);
    for (QString const& result : {read(key, QStringLiteral("default"), product), read("absent", test.text, product)}) {
        EXPECT_EQ(result, test.readBack);
        EXPECT_EQ(result.size(), test.readBack.size());
        EXPECT_FALSE(result.isNull());
    }
}

INSTANTIATE_TEST_SUITE_P(Table, TextEncoding,
                         testing::Values(TextCase{"NullComesBackEmpty", QString(), "", QStringLiteral("")},
                                         TextCase{"Empty", QStringLiteral(""), "", QStringLiteral("")},
                                         TextCase{"Ascii", QStringLiteral("a/~"), "a/~", QStringLiteral("a/~")},
                                         TextCase{"LastOfAscii", units({0x7F}), "\x7F", units({0x7F})},
                                         TextCase{"FirstBeyondAscii", units({0x80}), "\xC2\x80", units({0x80})},
                                         TextCase{"LastOfLatin1", units({0xFF}), "\xC3\xBF", units({0xFF})},
                                         TextCase{"BeyondLatin1WithAnAsciiByte", units({0x141}), "\xC5\x81", units({0x141})},
                                         TextCase{"NulAlone", units({0}), std::string(1, '\0'), units({0})},
                                         TextCase{"NulWithin", units({'a', 0, 'b'}), std::string("a\0b", 3), units({'a', 0, 'b'})},
                                         TextCase{"ByteOrderMarkIsLost", units({0xFEFF, 'a'}),
                                                  "\xEF\xBB\xBF"
                                                  "a",
                                                  units({'a'})},
                                         TextCase{"ByteOrderMarkAlone", units({0xFEFF}), "\xEF\xBB\xBF", QStringLiteral("")},
                                         TextCase{"ByteOrderMarkWithin", units({'a', 0xFEFF}), "a\xEF\xBB\xBF", units({'a', 0xFEFF})},
                                         TextCase{"BeyondThePlane", units({0xD83C, 0xDFAC}), "\xF0\x9F\x8E\xAC", units({0xD83C, 0xDFAC})},
                                         TextCase{"HighSurrogateAlone", units({'a', 0xD83C}), "a?", QStringLiteral("a?")},
                                         TextCase{"LowSurrogateAlone", units({0xDFAC, 'a'}), "?a", QStringLiteral("?a")},
                                         TextCase{"SurrogatesInTheWrongOrder", units({0xDFAC, 0xD83C}), "??", QStringLiteral("??")},
                                         TextCase{"NoCharacter", units({0xFFFF}), "\xEF\xBF\xBF", units({0xFFFF})}),
                         byMeaning);

// --- The caller's default ---

// Answers with the default that it is given, and calls `change` meanwhile.
struct ChangingStorage final : EmptyStorage {
    explicit ChangingStorage(std::function<void()> call) : change(std::move(call)) {}

    int getInt(std::string const&, int value) const override
    {
        change();
        return value;
    }
    std::string getString(std::string const&, std::string const& value) const override
    {
        change();
        return value;
    }

    std::function<void()> change;
};

TEST_F(TypedAccess, TextIsTheStoresAnswerAlthoughTheDefaultChanges)
{
    QString defaultValue = QStringLiteral("first");
    auto const store = std::make_shared<ChangingStorage>([&] { defaultValue[0] = QLatin1Char('t'); });
    TestKit::ScopedBinding const binding({{}, {}, store, {}});
    EXPECT_EQ(read("absent", defaultValue, product), QStringLiteral("first"));
    EXPECT_EQ(defaultValue, QStringLiteral("tirst")) << "the store has changed the default";
}

TEST_F(TypedAccess, RationalFallsBackOnTheDefaultAsItWasAtTheCall)
{
    Rational defaultValue(3, 4);
    auto const store = std::make_shared<ChangingStorage>([&] { defaultValue = Rational(5, 7); });
    TestKit::ScopedBinding const binding({{}, {}, store, {}});
    EXPECT_EQ(read("absent", defaultValue, product), Rational(3, 4));
}

TEST_F(TypedAccess, TextSharesNoMemoryWithTheDefault)
{
    for (QString const& defaultValue : {QString(20, QLatin1Char('a')), QStringLiteral("literal"), QStringLiteral("")}) {
        QString const result = read("absent", defaultValue, product);
        EXPECT_EQ(result, defaultValue);
        EXPECT_NE(result.constData(), defaultValue.constData());
    }
}

TEST_F(TypedAccess, ElementsShareNoMemoryWithTheDefault)
{
    QStringList const defaultValue(QString(20, QLatin1Char('a')));
    QStringList const result = read("absent", defaultValue, product);
    ASSERT_EQ(result, defaultValue);
    EXPECT_NE(result.first().constData(), defaultValue.first().constData());
}

TEST_F(TypedAccess, DefaultWhoseCharactersAreTheCallersIsCopied)
{
    QChar characters[] = {QLatin1Char('a'), QLatin1Char('b')};
    QString const result = read("absent", QString::fromRawData(characters, 2), product);
    characters[0] = QLatin1Char('x');
    EXPECT_EQ(result, QStringLiteral("ab"));
}

// --- Rationals ---

TEST_F(TypedAccess, RationalBeyond32BitsIsCutOnWrite)
{
    write(key, Rational(5000000000LL, 3), product);
    EXPECT_EQ(calls(), (Calls{"product.setInt(\"key_N\", 705032704)", "product.setInt(\"key_D\", 3)"}));
    write(key, Rational(1, 4294967297LL), product);
    EXPECT_EQ(calls(), (Calls{"product.setInt(\"key_N\", 1)", "product.setInt(\"key_D\", 1)"}));
    write(key, Rational(-2147483649LL, 1), product);
    EXPECT_EQ(calls(), (Calls{"product.setInt(\"key_N\", 2147483647)", "product.setInt(\"key_D\", 1)"}));
}

TEST_F(TypedAccess, RationalDefaultBeyond32BitsIsCutOnRead)
{
    EXPECT_EQ(read(key, Rational(5000000000LL, 3), product), Rational(705032704, 3));
    EXPECT_EQ(calls(), (Calls{"product.getInt(\"key_N\", 705032704)", "product.getInt(\"key_D\", 3)"}));
    EXPECT_EQ(read(key, Rational(1, 4294967298LL), product), Rational(1, 2));
}

TEST_F(TypedAccess, RationalDefaultWhoseDenominatorIsCutToZeroThrows)
{
    EXPECT_THROW(read(key, Rational(1, 4294967296LL), product), boost::bad_rational);
}

TEST_F(TypedAccess, RationalIsNormalised)
{
    m_productStore->setInt("key_N", 4);
    m_productStore->setInt("key_D", -6);
    Rational const value = read(key, Rational(1), product);
    EXPECT_EQ(value.numerator(), -2);
    EXPECT_EQ(value.denominator(), 3);
}

TEST_F(TypedAccess, SmallestIntegersAreSignExtended)
{
    m_productStore->setInt("key_N", std::numeric_limits<int>::min());
    m_productStore->setInt("key_D", -1);
    Rational const value = read(key, Rational(1), product);
    EXPECT_EQ(value.numerator(), 2147483648LL);
    EXPECT_EQ(value.denominator(), 1);
}

TEST_F(TypedAccess, HalvesOfARationalFallBackOneByOne)
{
    m_productStore->setInt("numerator only_N", 3);
    EXPECT_EQ(read("numerator only", Rational(1, 4), product), Rational(3, 4));
    m_productStore->setInt("denominator only_D", 9);
    EXPECT_EQ(read("denominator only", Rational(1, 4), product), Rational(1, 9));
}

TEST_F(TypedAccess, ZeroDenominatorThrowsBadRational)
{
    m_productStore->setInt("key_N", 1);
    m_productStore->setInt("key_D", 0);
    try {
        read(key, Rational(1), product);
        FAIL() << "nothing was thrown";
    } catch (boost::bad_rational const& error) {
        EXPECT_STREQ(error.what(), "bad rational: zero denominator");
    }
}

TEST_F(TypedAccess, FailingSecondHalfLeavesTheFirstWritten)
{
    auto const failing = std::make_shared<TestKit::FailingStorage>(2, m_productValues);
    TestKit::ScopedBinding const binding({{}, {}, failing, {}});
    EXPECT_THROW(write(key, Rational(3, 4), product), TestKit::StorageFailure);
    EXPECT_EQ(m_productValues->getInt("key_N", 0), 3);
    EXPECT_FALSE(m_productValues->contains("key_D"));
}

TEST_F(TypedAccess, FailingFirstHalfAsksForNoSecond)
{
    auto const failing = std::make_shared<TestKit::FailingStorage>(1, m_productStore);
    TestKit::ScopedBinding const binding({{}, {}, failing, {}});
    EXPECT_THROW(read(key, Rational(3, 4), product), TestKit::StorageFailure);
    EXPECT_EQ(calls(), Calls{});
}

// --- Traps for callers ---

TEST_F(TypedAccess, PointerToTextPicksTheBoolOverload)
{
    char const* const text = "text";
    write(key, text, product);
    EXPECT_EQ(calls(), (Calls{"product.setBool(\"key\", true)"}));
}

} // namespace
