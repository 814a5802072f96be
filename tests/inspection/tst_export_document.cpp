// SPDX-License-Identifier: MIT
//
// The document of an export: its text, what it refuses and where.
#include "Stores.h"

#include <support/Named.h>

namespace {

using Storage::Kind;

struct HostileText {
    char const* meaning;
    std::string text;
    char const* fields; // in the document
};

Document documentOf(Entry const& entry) { return {"NOW", "Lumora Video Editor", {entry}}; }

TEST(ExportDocument, HasALineForEachEntry)
{
    Document const document = {"NOW",
                               "Lumora Video Editor",
                               {{Store::product, Kind::text, "exportPath", std::string("/films")},
                                {Store::product, Kind::text, "npsEmailToSend", {}},
                                {Store::product, Kind::bytes, "unknown", Bytes{0, 255}},
                                {Store::common, Kind::boolean, "autoUpdate", false}}};
    EXPECT_EQ(written(document), R"({
  "format": "editor-settings export",
  "version": 1,
  "made": "NOW",
  "product": "Lumora Video Editor",
  "stores": {
    "product": {
      "exportPath": {"kind": "string", "class": "local", "value": "/films"},
      "npsEmailToSend": {"kind": "string", "class": "personal", "redacted": true},
      "unknown": {"kind": "bytes", "class": null, "value": "AP8="}
    },
    "common": {
      "autoUpdate": {"kind": "bool", "class": "local", "value": false}
    }
  }
}
)");
}

class TextInADocument : public testing::TestWithParam<HostileText> {};

TEST_P(TextInADocument, SurvivesTheRoundTrip)
{
    std::string const whole = written(documentOf({Store::product, Kind::text, "lastTarget", GetParam().text}));
    EXPECT_NE(
        whole.find(std::string("\n      \"lastTarget\": {\"kind\": \"string\", \"class\": \"transient\", ") + GetParam().fields + "}\n"),
        std::string::npos)
        << whole;
    auto const entries = readDocument(whole).entries;
    ASSERT_EQ(entries.size(), 1u);
    EXPECT_EQ(entries[0].value, SqliteStorage::Value(GetParam().text));
}

INSTANTIATE_TEST_SUITE_P(Table, TextInADocument,
                         testing::Values(HostileText{"Empty", "", R"("value": "")"}, HostileText{"LineBreak", "a\nb", R"("value": "a\nb")"},
                                         HostileText{"QuotesAndBackslash", "\"\\", R"("value": "\"\\")"},
                                         HostileText{"Nul", std::string("a\0b", 3), R"("value": "a\u0000b")"},
                                         HostileText{"BeyondAscii", "\xC3\xBC\xF0\x9F\x98\x80", "\"value\": \"\xC3\xBC\xF0\x9F\x98\x80\""},
                                         HostileText{"EscapeOfATerminal", "\x1b[31m", R"("value": "\u001b[31m")"},
                                         HostileText{"ControlAboveAscii",
                                                     "\xC2\x9B"
                                                     "31m\x7f\xC2\x80\xC2\x9F\xC2\xA0",
                                                     "\"value\": \"\\u009b31m\\u007f\\u0080\\u009f\xC2\xA0\""},
                                         HostileText{"NoUtf8", "\xFF\xFE", R"("encoding": "base64", "value": "//4=")"},
                                         HostileText{"CutInALetter", "a\xC3", R"("encoding": "base64", "value": "YcM=")"},
                                         HostileText{"HalfAPair", "\xED\xA0\x80", R"("encoding": "base64", "value": "7aCA")"},
                                         HostileText{"TooLongForItsLetter", "\xC0\x80", R"("encoding": "base64", "value": "wIA=")"},
                                         HostileText{"ByteOrderMark", "\xEF\xBB\xBFx", R"("encoding": "base64", "value": "77u/eA==")"},
                                         HostileText{"LikeADocument", R"({"redacted": true})", R"("value": "{\"redacted\": true}")"}),
                         byMeaning);

struct NamedKey {
    char const* meaning;
    std::string key;
    char const* name; // in the document
};

class KeyInADocument : public testing::TestWithParam<NamedKey> {};

TEST_P(KeyInADocument, HasANameOfItsOwn)
{
    std::string const whole = written(documentOf({Store::product, Kind::integer, GetParam().key, 1}));
    EXPECT_NE(whole.find(std::string("\n      ") + GetParam().name + ": {\"kind\": \"int\", \"class\": null, \"value\": 1}\n"),
              std::string::npos)
        << whole;
    auto const entries = readDocument(whole).entries;
    ASSERT_EQ(entries.size(), 1u);
    EXPECT_EQ(entries[0].key, GetParam().key);
}

INSTANTIATE_TEST_SUITE_P(Table, KeyInADocument,
                         testing::Values(NamedKey{"Empty", "", R"("")"},
                                         NamedKey{"NoUtf8", "favorites_\xFF\xC3", R"("favorites_\\xff\\xc3")"},
                                         NamedKey{"NoUtf8BeforeALetter", "\x80z", R"("\\x80z")"},
                                         NamedKey{"Backslash", "a\\xff", R"("a\\\\xff")"}, NamedKey{"LineBreak", "a\nb", R"("a\nb")"},
                                         NamedKey{"BeyondAscii", "\xC3\xBC\xF0\x9F\x98\x80", "\"\xC3\xBC\xF0\x9F\x98\x80\""},
                                         NamedKey{"ByteOrderMark", "\xEF\xBB\xBFx", "\"\xEF\xBB\xBFx\""},
                                         NamedKey{"LikeAField", "redacted", R"("redacted")"}),
                         byMeaning);

TEST(ExportDocument, EntriesAreSortedByStoreAndByTheBytesOfTheirKeys)
{
    auto const entries = readDocument(document(R"("\\xff": {"kind": "int", "value": 1}, "a": {"kind": "int", "value": 2})",
                                               R"("a": {"kind": "int", "value": 3})"))
                             .entries;
    ASSERT_EQ(entries.size(), 3u);
    EXPECT_EQ(entries[0].key, "a");
    EXPECT_EQ(entries[0].value, SqliteStorage::Value(2));
    EXPECT_EQ(entries[1].key, "\xFF");
    EXPECT_EQ(entries[2].store, Store::common);
}

TEST(ExportDocument, BytesMayLackThePaddingOfBase64)
{
    EXPECT_EQ(readDocument(document(R"("mainWindowState": {"kind": "bytes", "value": "AP8"})")).entries.at(0).value,
              SqliteStorage::Value(Bytes{0, 255}));
}

TEST(ExportDocument, ErrorHasItsParts)
{
    try {
        readDocument(document(R"("npsSendCount": {"kind": "int", "value": 1.5})"));
        ADD_FAILURE() << "a fraction is no int";
    } catch (DocumentError const& error) {
        EXPECT_EQ(error.place(), (Inspection::Place{"stores", "product", "npsSendCount", "value"}));
        EXPECT_EQ(error.line(), 0u);
        EXPECT_EQ(error.fault(), "is 1.5");
        EXPECT_EQ(error.remedy(), "give a whole number from -2147483648 to 2147483647");
    }
    try {
        readDocument("{\n  \"format\": 1,\n}");
        ADD_FAILURE() << "a comma too many";
    } catch (DocumentError const& error) {
        EXPECT_TRUE(error.place().empty());
        EXPECT_EQ(error.line(), 3u);
        EXPECT_EQ(error.column(), 1u);
        EXPECT_EQ(error.fault(), "syntax error while parsing object key - unexpected '}'; expected string literal");
        EXPECT_EQ(error.remedy(), "correct it there, or export the file again");
    }
}

class KnownKeysOfADocument : public Stores {};

TEST_F(KnownKeysOfADocument, UnknownOnesAreAcceptedOnRequest)
{
    Document const unknown =
        readDocument(document(R"("unknown": {"kind": "int", "value": 2}, "stabilizedFileFormat": {"kind": "bool", "value": true})"));
    Host::ToolApplication const application = bound();
    EXPECT_NO_THROW(checkKeys(unknown, true));
    EXPECT_THROW(checkKeys(unknown, false), DocumentError);
    EXPECT_THROW(checkKeys(readDocument(document(R"("exprtPath": {"kind": "int", "value": 2})")), false), Inspection::UnknownKeyError);
}

class MalformedDocument : public Stores, public testing::WithParamInterface<Malformed> {};

TEST_P(MalformedDocument, IsRefusedWithThePlace)
{
    Host::ToolApplication const application = bound();
    try {
        checkKeys(readDocument(GetParam().content), false);
        ADD_FAILURE() << "it was accepted";
    } catch (DocumentError const& error) {
        EXPECT_EQ(std::string(error.what()), GetParam().reason);
    }
}

std::string const wholeNumber = "give a whole number from -2147483648 to 2147483647";
std::string const anyKind = "give bool, int, string or bytes";
// The value of a setting, as it stands in a document.
std::string count(std::string const& value) { return after(R"("npsSendCount": {"kind": "int", "value": )" + value + "}"); }

INSTANTIATE_TEST_SUITE_P(Everywhere, MalformedDocument, testing::ValuesIn(malformedEverywhere()), byMeaning);

INSTANTIATE_TEST_SUITE_P(
    Syntax, MalformedDocument,
    testing::Values(
        Malformed{"Empty", "",
                  "line 1, column 1: syntax error while parsing value - unexpected end of input; expected '[', '{', or a literal" +
                      correct},
        Malformed{"NoJson", "exportPath=/x\n", "line 1, column 1: syntax error while parsing value - invalid literal" + correct},
        Malformed{"TruncatedInAText", after("\"npsSe").substr(0, 130),
                  "line 1, column 131: syntax error while parsing object key - invalid string: missing closing quote" + correct},
        Malformed{"CommaTooMany", "{\n  \"format\": 1,\n}",
                  "line 3, column 1: syntax error while parsing object key - unexpected '}'; expected string literal" + correct},
        Malformed{"LineBreakInAText", "{\"format\": \"a\nb\"}",
                  "line 1, column 14: syntax error while parsing value - invalid string: control character U+000A (LF) must be escaped to "
                  "\\u000A or \\n" +
                      correct},
        Malformed{"NoUtf8", "{\"format\": \"\xFF\"}",
                  "line 1, column 13: syntax error while parsing value - invalid string: ill-formed UTF-8 byte" + correct},
        Malformed{"HalfAPair", R"({"format": "\ud800"})",
                  "line 1, column 19: syntax error while parsing value - invalid string: surrogate U+D800..U+DBFF must be followed by "
                  "U+DC00..U+DFFF" +
                      correct},
        Malformed{"Utf16", std::string("\xFF\xFE{\0}\0", 6), "line 1, column 4:" + nul},
        Malformed{"ByteOrderMark", "\xEF\xBB\xBF" + document(""),
                  "line 1, column 1: a byte order mark stands before the text; save the file as UTF-8 without it"},
        Malformed{"SomethingBehind", document("") + "\n]",
                  "line 2, column 1: syntax error while parsing value - unexpected ']'; expected end of input" + correct},
        Malformed{"TwoDocuments", document("") + document(""),
                  "line 1, column 92: syntax error while parsing value - unexpected '{'; expected end of input" + correct},
        Malformed{"NulBehind", document("") + std::string("\n\0{}", 4), "line 2, column 1:" + nul},
        Malformed{"NulInAText", count("\"a" + std::string(1, '\0') + "\""), "line 1, column 166:" + nul},
        Malformed{"Utf16WithoutMark", std::string("{\0}\0", 4), "line 1, column 2:" + nul},
        Malformed{"Comment", "// mine\n" + document(""), "line 1, column 1: syntax error while parsing value - invalid literal" + correct},
        Malformed{"NumberBeyondAll", "{\"version\":\n 1e999}", "line 2, column 6: a number is too large" + correct},
        Malformed{"NumberWithoutEnd", "{\"version\":" + std::string(1000000, '9') + "}",
                  "line 1, column 1000011: a number is too large" + correct},
        Malformed{"TextWithoutEnd", "\"" + std::string(1000000, 'x'),
                  "line 1, column 1000002: syntax error while parsing value - invalid string: missing closing quote" + correct}),
    byMeaning);

INSTANTIATE_TEST_SUITE_P(
    Shape, MalformedDocument,
    testing::Values(
        Malformed{"Text", "\"x\"", "the document is \"x\"; give an object, between { and }"},
        Malformed{"Null", "null", "the document is null; give an object, between { and }"},
        Malformed{"OtherFormat", R"({"format": "theirs", "version": 9})",
                  "format is \"theirs\", so this is no export of settings; " + makeOne},
        Malformed{"FormatIsNoText", R"({"format": {"a": 1}})", "format is an object, so this is no export of settings; " + makeOne},
        Malformed{"NoVersion", R"({"format": "editor-settings export"})", "version is missing; " + makeOne},
        Malformed{"NewerVersion", R"({"format": "editor-settings export", "version": 2, "places": [[{"a": 1}]], "stores": 7})",
                  "version is 2, and this program reads up to 1: a newer one wrote the file; update this program"},
        Malformed{"VersionZero", R"({"format": "editor-settings export", "version": 0})", "version is 0; give 1"},
        Malformed{"NegativeVersion", R"({"format": "editor-settings export", "version": -1})", "version is -1; give 1"},
        Malformed{"VersionWithAFraction", R"({"format": "editor-settings export", "version": 1.0})", "version is 1.0; give 1"},
        Malformed{"VersionIsAText", R"({"format": "editor-settings export", "version": "1"})", "version is \"1\"; give 1"},
        Malformed{"UnknownField", R"({"format": "editor-settings export", "version": 1, "store": {}})",
                  "store means nothing; remove it: what stands there is format, version, made, product, stores"},
        Malformed{"TimeIsNoText", R"({"format": "editor-settings export", "version": 1, "made": 7, "stores": {}})",
                  "made is 7; give a text, in quotes"},
        Malformed{"NoStores", R"({"format": "editor-settings export", "version": 1})", "stores is missing; " + makeOne},
        Malformed{"StoresAreAnArray", R"({"format": "editor-settings export", "version": 1, "stores": []})",
                  "stores is an array; give an object, between { and }"},
        Malformed{"UnknownStore", R"({"format": "editor-settings export", "version": 1, "stores": {"third": {}}})",
                  "stores.third means nothing; remove it: what stands there is product, common"},
        Malformed{"StoreIsNoObject", R"({"format": "editor-settings export", "version": 1, "stores": {"common": true}})",
                  "stores.common is true; give an object, between { and }"},
        Malformed{"FieldTwice", R"({"format": "editor-settings export", "version": 1, "stores": {}, "version": 1})",
                  "version stands there twice; keep one of the two"},
        Malformed{"StoreTwice", R"({"format": "editor-settings export", "version": 1, "stores": {"common": {}, "common": {}}})",
                  "stores.common stands there twice; keep one of the two"},
        Malformed{"ArraysNestedDeeply", count(std::string(500000, '[') + std::string(500000, ']')),
                  "stores.product.npsSendCount.value is an array; " + wholeNumber},
        Malformed{"NestedWithoutEnd", std::string(500000, '['),
                  "line 1, column 500001: syntax error while parsing value - unexpected end of input; expected '[', '{', or a literal" +
                      correct},
        Malformed{"ObjectsInArrays", count("[" + repeated("{\"a\":[", 1000) + repeated("]}", 1000) + "]"),
                  "stores.product.npsSendCount.value is an array; " + wholeNumber}),
    byMeaning);

INSTANTIATE_TEST_SUITE_P(
    Content, MalformedDocument,
    testing::Values(
        Malformed{"EntryIsAValue", after(R"("npsSendCount": 7)"), "stores.product.npsSendCount is 7; give an object, between { and }"},
        Malformed{"EntryIsEmpty", after(R"("npsSendCount": {})"), "stores.product.npsSendCount.kind is missing; " + makeOne},
        Malformed{"NoValue", after(R"("npsSendCount": {"kind": "int"})"), "stores.product.npsSendCount.value is missing; " + makeOne},
        Malformed{"NoTextValue", after(R"("lastUsedPresetId": {"kind": "string"})"),
                  "stores.product.lastUsedPresetId.value is missing; " + makeOne},
        Malformed{"NoBytes", after(R"("mainWindowState": {"kind": "bytes"})"),
                  "stores.product.mainWindowState.value is missing; " + makeOne},
        Malformed{"NoBool", after(R"("keepVideoAspect": {"kind": "bool"})"), "stores.product.keepVideoAspect.value is missing; " + makeOne},
        Malformed{"KeyTwiceInOtherLetters", after(R"("last\u0054arget": {"kind": "string", "value": "y"})"),
                  "stores.product.lastTarget stands there twice; keep one of the two"},
        Malformed{"ValueTwice", count(R"(1, "value": 2)"), "stores.product.npsSendCount.value stands there twice; keep one of the two"},
        Malformed{"UnknownFieldOfAnEntry", count(R"(1, "type": "int")"),
                  "stores.product.npsSendCount.type means nothing; remove it: what stands there is kind, class, encoding, value, redacted"},
        Malformed{"ClassIsANumber", count(R"(1, "class": 1)"), "stores.product.npsSendCount.class is 1; give a text, in quotes"},
        Malformed{"UnknownKind", after(R"("npsSendCount": {"kind": "date", "value": 1})"),
                  "stores.product.npsSendCount.kind is \"date\"; " + anyKind},
        Malformed{"KindIsNoText", after(R"("npsSendCount": {"kind": null, "value": 1})"),
                  "stores.product.npsSendCount.kind is null; give a text, in quotes"},
        Malformed{"Fraction", count("1.5"), "stores.product.npsSendCount.value is 1.5; " + wholeNumber},
        Malformed{"WholeFraction", count("1.0"), "stores.product.npsSendCount.value is 1.0; " + wholeNumber},
        Malformed{"Exponent", count("1e2"), "stores.product.npsSendCount.value is 100.0; " + wholeNumber},
        Malformed{"NumberTooLarge", count("2147483648"), "stores.product.npsSendCount.value is 2147483648; " + wholeNumber},
        Malformed{"NumberTooSmall", count("-2147483649"), "stores.product.npsSendCount.value is -2147483649; " + wholeNumber},
        Malformed{"NumberOfSixtyFourBits", count("18446744073709551615"),
                  "stores.product.npsSendCount.value is 18446744073709551615; " + wholeNumber},
        Malformed{"NumberOfMoreBits", count("18446744073709551616"),
                  "stores.product.npsSendCount.value is 1.8446744073709552e+19; " + wholeNumber},
        Malformed{"TextForANumber", count("\"1\""), "stores.product.npsSendCount.value is \"1\"; " + wholeNumber},
        Malformed{"BoolForANumber", count("true"), "stores.product.npsSendCount.value is true; " + wholeNumber},
        Malformed{"NullForANumber", count("null"), "stores.product.npsSendCount.value is null; " + wholeNumber},
        Malformed{"NumberForABool", after(R"("keepVideoAspect": {"kind": "bool", "value": 1})"),
                  "stores.product.keepVideoAspect.value is 1; give true or false"},
        Malformed{"NumberForAText", after(R"("projectPath": {"kind": "string", "value": 1})"),
                  "stores.product.projectPath.value is 1; give a text, in quotes"},
        Malformed{"ArrayForAText", after(R"("userCustomColors": {"kind": "string", "value": ["a"]})"),
                  "stores.product.userCustomColors.value is an array; give a text, in quotes"},
        Malformed{"NoBase64", after(R"("mainWindowState": {"kind": "bytes", "value": "a*b"})"),
                  "stores.product.mainWindowState.value is \"a*b\"; give bytes in base64"},
        Malformed{"BitsLeftOver", after(R"("mainWindowState": {"kind": "bytes", "value": "AB=="})"),
                  "stores.product.mainWindowState.value is \"AB==\"; give bytes in base64"},
        Malformed{"UnknownEncoding", after(R"("projectPath": {"kind": "string", "encoding": "hex", "value": "00"})"),
                  "stores.product.projectPath.encoding is \"hex\"; give \"base64\", or leave the field out"},
        Malformed{"NoBase64ForAText", after(R"("projectPath": {"kind": "string", "encoding": "base64", "value": "x"})"),
                  "stores.product.projectPath.value is \"x\"; give bytes in base64"},
        Malformed{"EncodingOfANumber", count(R"(1, "encoding": "base64")"),
                  "stores.product.npsSendCount.encoding is for the kind string only; remove it"},
        Malformed{"ArraysInAnArray", count("[[1], 2]"),
                  "stores.product.npsSendCount.value is an array; give a whole number from -2147483648 to 2147483647"},
        Malformed{"RedactedAndValue", count(R"(1, "redacted": true)"),
                  "stores.product.npsSendCount.value stands beside \"redacted\"; keep one of the two"},
        Malformed{"NotRedacted", after(R"("npsSendCount": {"kind": "int", "redacted": false})"),
                  "stores.product.npsSendCount.redacted is false; give true, or a value in its place"},
        Malformed{"RedactedOfNoKind", after(R"("npsSendCount": {"kind": "date", "redacted": true})"),
                  "stores.product.npsSendCount.kind is \"date\"; " + anyKind},
        Malformed{"LoneBackslashInAKey", after(R"("Indication/\\n": {"kind": "bytes", "value": ""})"),
                  "stores.product.Indication/\\n" + writeTheKeySo},
        Malformed{"LetterAsAByteInAKey", after(R"("lastT\\x61rget": {"kind": "string", "value": ""})"),
                  "stores.product.lastT\\x61rget" + writeTheKeySo},
        Malformed{"CapitalsInAByteOfAKey", after(R"("a\\xFF": {"kind": "string", "value": ""})"), "stores.product.a\\xFF" + writeTheKeySo},
        Malformed{"HalfAByteInAKey", after(R"("a\\xf": {"kind": "string", "value": ""})"), "stores.product.a\\xf" + writeTheKeySo}),
    byMeaning);

INSTANTIATE_TEST_SUITE_P(
    Keys, MalformedDocument,
    testing::Values(
        Malformed{"UnknownKey", after(R"("nothingLikeIt": {"kind": "int", "value": 1})"),
                  "stores.product.nothingLikeIt is no preference of the editor; correct or remove it, or give --with-unknown to take such "
                  "keys as they are"},
        Malformed{"FirstOfTwoUnknownKeysByTheirBytes",
                  after(R"("\\xff": {"kind": "int", "value": 1}, "nothingLikeIt": {"kind": "int", "value": 1})"),
                  "stores.product.nothingLikeIt is no preference of the editor; correct or remove it, or give --with-unknown to take such "
                  "keys as they are"},
        Malformed{"MistypedKey", after(R"("exprtPath": {"kind": "string", "value": "x"})"),
                  "stores.product.exprtPath is no preference of the editor; correct or remove it, or give "
                  "--with-unknown to take such keys as they are"},
        Malformed{"RedactedUnknownKey", after(R"("nothingLikeIt": {"kind": "int", "redacted": true})"),
                  "stores.product.nothingLikeIt is no preference of the editor; correct or remove it, or give --with-unknown to take such "
                  "keys as they are"},
        Malformed{
            "ReservedKey", after(R"("stabilizedFileFormat": {"kind": "string", "value": "x"})"),
            "stores.product.stabilizedFileFormat is reserved: the editor neither reads nor writes it; remove it, or give --with-unknown"},
        Malformed{"LongKeyIsWhole", after("\"" + std::string(1000, 'q') + R"(": {"kind": "int", "value": 1})"),
                  "stores.product." + std::string(1000, 'q') +
                      " is no preference of the editor; correct or remove it, or give --with-unknown to take such keys as they are"},
        Malformed{"MemberThatIsNoText", after(R"("favorites_\\xff": {"kind": "string", "value": "x"})"),
                  "stores.product.favorites_\\xff is no preference of the editor; correct or remove it, or give --with-unknown to take "
                  "such keys as they are"},
        Malformed{"OtherStoreToo", after(R"("autoUpdate": {"kind": "bool", "value": true})"),
                  "stores.product.autoUpdate is kept in the other store; move it to stores.common"},
        Malformed{"OtherKindRedacted", after(R"("keepVideoAspect": {"kind": "int", "redacted": true})"),
                  "stores.product.keepVideoAspect.kind is \"int\", which the editor would not read; give a value of kind \"bool\""},
        Malformed{"OtherKindOfAList", after(R"("userCustomColors": {"kind": "bytes", "value": ""})"),
                  "stores.product.userCustomColors.kind is \"bytes\", which the editor would not read; give a value of kind \"string\""},
        Malformed{"OtherKindOfAMember", after(R"("Indication/x": {"kind": "string", "value": ""})"),
                  "stores.product.Indication/x.kind is \"string\", which the editor would not read; give a value of kind \"bytes\""},
        Malformed{"OtherKindOfAnotherMember", after(R"("favorites_x": {"kind": "bytes", "value": ""})"),
                  "stores.product.favorites_x.kind is \"bytes\", which the editor would not read; give a value of kind \"string\""}),
    byMeaning);

} // namespace
