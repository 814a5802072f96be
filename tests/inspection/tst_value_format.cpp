// SPDX-License-Identifier: MIT
//
// Values to and from words, text and JSON.
#include <Inspection/ValueFormat.h>

#include <support/BoundLibrary.h>
#include <support/Named.h>

#include <nlohmann/json.hpp>

#include <limits>

using Catalogue::Value;
using Inspection::ValueFault;

namespace {

QStringList list(std::vector<char const*> const& elements)
{
    QStringList result;
    for (char const* element : elements)
        result.append(QString::fromUtf8(element));
    return result;
}

Value const aBool = false;
Value const anInt = 0;
Value const narrowText = std::string();
Value const aText = QString();
Value const bytes = QByteArray();
Value const aList = QStringList();

// --- Words that are taken ---

struct Taken {
    char const* meaning;
    Value like;
    std::vector<std::string> words;
    Value value;
};

class TakenWords : public BoundLibrary, public testing::WithParamInterface<Taken> {};

TEST_P(TakenWords, MakeTheValue)
{
    Value const value = Inspection::parsed(GetParam().like, GetParam().words);
    EXPECT_EQ(value.index(), GetParam().value.index());
    EXPECT_EQ(value, GetParam().value);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(
    Table, TakenWords,
    testing::Values(
        Taken{"True", aBool, {"true"}, true},
        Taken{"False", aBool, {"False"}, false},
        Taken{"On", aBool, {"on"}, true},
        Taken{"Off", aBool, {"off"}, false},
        Taken{"Yes", aBool, {"YES"}, true},
        Taken{"No", aBool, {"no"}, false},
        Taken{"One", aBool, {"1"}, true},
        Taken{"Zero", aBool, {"0"}, false},
        Taken{"Number", anInt, {"42"}, 42},
        Taken{"NegativeNumber", anInt, {"-5"}, -5},
        Taken{"NumberWithPlus", anInt, {"+5"}, 5},
        Taken{"NumberWithZeros", anInt, {"007"}, 7},
        Taken{"SmallestNumber", anInt, {"-2147483648"}, std::numeric_limits<int>::min()},
        Taken{"LargestNumber", anInt, {"2147483647"}, std::numeric_limits<int>::max()},
        Taken{"Text", aText, {"a text"}, QStringLiteral("a text")},
        Taken{"NarrowText", narrowText, {"a text"}, std::string("a text")},
        Taken{"EmptyText", aText, {""}, QString()},
        Taken{"TextBeyondAscii", aText, {"\xC3\xBC\xE2\x82\xAC"}, QString(QChar(0xFC)) + QChar(0x20AC)},
        Taken{"TextWithControlCharacters", aText, {"\x1f\n"}, QStringLiteral("\x1f\n")},
        Taken{"TextLikeAFileName", aText, {"@file"}, QStringLiteral("@file")},
        Taken{"Bytes", bytes, {"AP8="}, QByteArray("\0\xFF", 2)},
        Taken{"NoBytes", bytes, {""}, QByteArray()},
        Taken{"List", aList, {"#fff", "a b", "[c,d]"}, list({"#fff", "a b", "[c,d]"})},
        Taken{"EmptyList", aList, {}, QStringList()},
        Taken{"PartsOfTheSeparator", aList, {"|", "#"}, list({"|", "#"})}),
    byMeaning);
// clang-format on

// --- Words that are refused ---

struct Refused {
    char const* meaning;
    Value like;
    std::vector<std::string> words;
    ValueFault reason;
    std::string word;
};

class RefusedWords : public BoundLibrary, public testing::WithParamInterface<Refused> {};

TEST_P(RefusedWords, TellReasonAndWord)
{
    try {
        Inspection::parsed(GetParam().like, GetParam().words);
        FAIL() << "taken";
    } catch (Inspection::ValueError const& error) {
        EXPECT_EQ(error.reason, GetParam().reason) << error.what();
        EXPECT_EQ(error.word, GetParam().word);
    }
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(
    Table, RefusedWords,
    testing::Values(
        Refused{"NumberForABool", aBool, {"2"}, ValueFault::notBool, "2"},
        Refused{"NothingForABool", aBool, {""}, ValueFault::notBool, ""},
        Refused{"BlankAfterABool", aBool, {"true "}, ValueFault::notBool, "true "},
        Refused{"WordForANumber", anInt, {"many"}, ValueFault::notInt, "many"},
        Refused{"NothingForANumber", anInt, {""}, ValueFault::notInt, ""},
        Refused{"FractionForANumber", anInt, {"1.5"}, ValueFault::notInt, "1.5"},
        Refused{"NumberTooLarge", anInt, {"2147483648"}, ValueFault::notInt, "2147483648"},
        Refused{"NumberTooSmall", anInt, {"-2147483649"}, ValueFault::notInt, "-2147483649"},
        Refused{"TwoSigns", anInt, {"+-1"}, ValueFault::notInt, "+-1"},
        Refused{"PlusAlone", anInt, {"+"}, ValueFault::notInt, "+"},
        Refused{"BlankBeforeANumber", anInt, {" 1"}, ValueFault::notInt, " 1"},
        Refused{"BlankAfterANumber", anInt, {"1 "}, ValueFault::notInt, "1 "},
        Refused{"NotBase64", bytes, {"a*b"}, ValueFault::notBase64, "a*b"},
        Refused{"BitsThatMakeNoByte", bytes, {"A"}, ValueFault::notBase64, "A"},
        Refused{"BitsLeftOver", bytes, {"AB=="}, ValueFault::notBase64, "AB=="},
        Refused{"Base64WithoutPadding", bytes, {"AP8"}, ValueFault::notBase64, "AP8"},
        Refused{"BlankInBase64", bytes, {"AP 8="}, ValueFault::notBase64, "AP 8="},
        Refused{"FileNameForBytes", bytes, {"@file"}, ValueFault::notBase64, "@file"},
        Refused{"TextWithAByteOrderMark", aText, {"\xEF\xBB\xBFx"}, ValueFault::notUtf8, "\xEF\xBB\xBFx"},
        Refused{"TextThatIsNotUtf8", aText, {"a\xFF"}, ValueFault::notUtf8, "a\xFF"},
        Refused{"NarrowTextCutInALetter", narrowText, {"a\xC3"}, ValueFault::notUtf8, "a\xC3"},
        Refused{"ElementThatIsNotUtf8", aList, {"a", "\xFF"}, ValueFault::notUtf8, "\xFF"},
        Refused{"EmptyElement", aList, {"a", ""}, ValueFault::emptyElement, ""},
        Refused{"ElementWithTheSeparator", aList, {"a", "x|#|y"}, ValueFault::separatorInElement, "x|#|y"},
        Refused{"ElementsThatMakeTheSeparator", aList, {"a|#", "|b"}, ValueFault::separatorAcrossElements, "|b"},
        Refused{"LaterElementsThatMakeTheSeparator", aList, {"x", "a|#", "|b"}, ValueFault::separatorAcrossElements, "|b"},
        Refused{"TwoNumbers", anInt, {"1", "2"}, ValueFault::wordCount, ""},
        Refused{"NoWordForAText", aText, {}, ValueFault::wordCount, ""}),
    byMeaning);
// clang-format on

TEST(ValueError, TellsWhatIsAccepted)
{
    EXPECT_STREQ(Inspection::ValueError(ValueFault::notBool).what(), "give true or false (or yes, no, on, off, 1, 0)");
    EXPECT_STREQ(Inspection::ValueError(ValueFault::separatorAcrossElements).what(),
                 "together with the element before it, it makes up the separator of stored lists and would come back differently");
    EXPECT_STREQ(Inspection::ValueError(ValueFault::wordCount).what(), "give one value");
}

// --- Types, text and JSON ---

struct Shown {
    char const* meaning;
    Value value;
    char const* type;
    char const* cppType;
    char const* kind;
    std::string text;
    char const* json;
};

class ShownValue : public testing::TestWithParam<Shown> {};

TEST_P(ShownValue, HasTypeTextAndJson)
{
    Value const& value = GetParam().value;
    EXPECT_EQ(Inspection::typeName(value), GetParam().type);
    EXPECT_EQ(Inspection::cppTypeName(value), GetParam().cppType);
    EXPECT_STREQ(Storage::storedWord(Inspection::storedKind(value)), GetParam().kind);
    EXPECT_EQ(Inspection::text(value), GetParam().text);
    EXPECT_EQ(Inspection::jsonText(Inspection::toJson(value)), GetParam().json);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(
    Table, ShownValue,
    testing::Values(
        Shown{"Bool", true, "bool", "bool", "bool", "true", "true"},
        Shown{"OtherBool", false, "bool", "bool", "bool", "false", "false"},
        Shown{"Int", -5, "int", "int", "int", "-5", "-5"},
        Shown{"NarrowText", std::string("a\tb"), "text", "std::string", "string", "a\tb", R"("a\tb")"},
        Shown{"Text", QStringLiteral("a\nb"), "text", "QString", "string", "a\nb", R"("a\nb")"},
        Shown{"Bytes", QByteArray("\0\xFF", 2), "bytes", "QByteArray", "bytes", "AP8=", R"("AP8=")"},
        Shown{"List", list({"a", "b c"}), "list", "QStringList", "string", "a\nb c", R"(["a","b c"])"},
        Shown{"EmptyList", QStringList(), "list", "QStringList", "string", "", "[]"}),
    byMeaning);
// clang-format on

TEST(JsonText, HoldsNoRawControlCharacter)
{
    EXPECT_EQ(Inspection::jsonText("a\x1b[31m\x7f\xC2\x80\xC2\x9F\xC2\xA0z"), "\"a\\u001b[31m\\u007f\\u0080\\u009f\xC2\xA0z\"");
}

TEST(JsonText, HoldsNoRawMarkOfDirection)
{
    EXPECT_EQ(
        Inspection::jsonText("\xD8\x9C|\xE2\x80\x8D\xE2\x80\x8E\xE2\x80\x8F\xE2\x80\x90|\xE2\x80\xA7\xE2\x80\xA8\xE2\x80\xAE\xE2\x80\xAF|"
                             "\xE2\x81\xA5\xE2\x81\xA6\xE2\x81\xA9\xE2\x81\xAA"),
        "\"\\u061c|\xE2\x80\x8D\\u200e\\u200f\xE2\x80\x90|\xE2\x80\xA7\\u2028\\u202e\xE2\x80\xAF|"
        "\xE2\x81\xA5\\u2066\\u2069\xE2\x81\xAA\"");
    EXPECT_EQ(Inspection::jsonText("\xF0\x9F\x8E\xAC"), "\"\xF0\x9F\x8E\xAC\"") << "beyond the first plane";
}

TEST(JsonText, ReplacesBytesThatAreNotUtf8) { EXPECT_EQ(Inspection::jsonText("a\xFFz"), "\"a\xEF\xBF\xBDz\""); }

TEST(JsonText, IsIndentedOnRequest) { EXPECT_EQ(Inspection::jsonText({{"a", 1}}, 2), "{\n  \"a\": 1\n}"); }

TEST(Base64, SurvivesTheRoundTrip)
{
    EXPECT_EQ(Inspection::toBase64(std::string("\x00\xFFraw\n", 6)), "AP9yYXcK");
    EXPECT_EQ(Inspection::toBase64("a"), "YQ==");
    EXPECT_EQ(Inspection::fromBase64("AP9yYXcK"), std::string("\x00\xFFraw\n", 6));
    EXPECT_EQ(Inspection::fromBase64("YQ"), "a");
    EXPECT_EQ(Inspection::fromBase64(""), "");
}

TEST(Base64, IsRefusedUnlessCanonical)
{
    for (char const* text : {"YQ=", "YR==", "Y Q==", "YQ==\n", "Y", "YQ==YQ==", "-_8="})
        EXPECT_EQ(Inspection::fromBase64(text), std::nullopt) << text;
}

TEST(Utf8, IsWhatTheLibrarysTextsKeep)
{
    for (char const* text : {"", "a", "\xC3\xBC", "\xF0\x9F\x8E\xAC", "a\xEF\xBB\xBF"})
        EXPECT_TRUE(Inspection::isUtf8(text)) << text;
    for (char const* text : {"\xFF", "a\xC3", "\xED\xA0\x80", "\xC0\x80", "\xEF\xBB\xBF"})
        EXPECT_FALSE(Inspection::isUtf8(text)) << text;
    EXPECT_TRUE(Inspection::isUtf8(std::string("a\0b", 3)));
}

} // namespace
