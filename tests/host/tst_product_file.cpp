// SPDX-License-Identifier: MIT
//
// Keys that a product file or a host declares, and what stands in a product file's place.
#include <Host/ToolApplication.h>

#include <TestKit/TemporaryHome.h>

#include <support/Named.h>
#include <support/Process.h>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

using Host::OwnKey;
using Host::OwnKeyError;
using Host::OwnKeys;
using Host::ProductFile;
using Host::ProductFileError;
using Part = OwnKeys::Part;

// The first declared key is on line 9.
std::string productWith(std::string const& ownKeys)
{
    return R"({
  "vendorName": "Maker",
  "productName": "Product",
  "sharedDataFolderName": "Common",
  "productKind": 0,
  "projectFileExtensions": [],
  "resourcesRoot": "share",
  "ownKeys": [
)" + ownKeys +
           "\n  ]\n}\n";
}

std::string const rest = R"("store": "product", "class": "local", "purpose": "It is tested")";

class OwnKeyFiles : public testing::Test {
protected:
    OwnKeys keys(std::string const& declared) const { return ProductFile(m_home.write("product.json", productWith(declared))).ownKeys(); }

    // The sentence of the refusal, behind the name of the file.
    std::string refusal(std::filesystem::path const& file) const
    {
        try {
            ProductFile const product(file);
            return "it was read";
        } catch (ProductFileError const& error) {
            std::string const begin = "product file " + file.string() + ' ';
            EXPECT_EQ(std::string(error.what()).substr(0, begin.size()), begin);
            return std::string(error.what()).substr(begin.size());
        }
    }

    TestKit::TemporaryHome m_home;
};

TEST_F(OwnKeyFiles, EveryFieldIsRead)
{
    OwnKeys const read =
        keys(R"({"key": "a.b", "kind": "int", "store": "common", "class": "transient", "purpose": "Counts", "default": 3, "range": [-1, 9]},
    {"prefix": "w.", "kind": "string", "store": "product", "class": "roaming", "purpose": "Words", "default": "x", "accepts": ["x", "y"]})");
    ASSERT_EQ(read.all().size(), 2u);
    OwnKey const& number = read.all()[0];
    EXPECT_EQ(number.key, "a.b");
    EXPECT_EQ(number.defaultValue, OwnKey::Value(3));
    EXPECT_EQ(number.dataClass, OwnKey::Class::transient);
    EXPECT_EQ(number.purpose, "Counts");
    EXPECT_EQ(number.range, std::make_pair(-1, 9));
    EXPECT_TRUE(number.isCommon);
    EXPECT_FALSE(number.isPrefix);
    EXPECT_FALSE(number.isFolder);
    EXPECT_EQ(number.where, "product file " + m_home.path().string() + "/product.json (line 9)");
    OwnKey const& word = read.all()[1];
    EXPECT_EQ(word.key, "w.");
    EXPECT_EQ(word.defaultValue, OwnKey::Value(std::string("x")));
    EXPECT_EQ(word.accepts, (std::vector<std::string>{"x", "y"}));
    EXPECT_EQ(word.dataClass, OwnKey::Class::roaming);
    EXPECT_TRUE(word.isPrefix);
    EXPECT_FALSE(word.isCommon);
    EXPECT_EQ(word.where, "product file " + m_home.path().string() + "/product.json (line 10)");
}

struct Kind {
    char const* meaning;
    char const* fields;
    OwnKey::Value defaultValue;
};

class OwnKeyKind : public OwnKeyFiles, public testing::WithParamInterface<Kind> {};

TEST_P(OwnKeyKind, HasItsDefault)
{
    OwnKeys const read = keys(std::string("{\"key\": \"k\", ") + GetParam().fields + ", " + rest + '}');
    EXPECT_EQ(read.all().at(0).defaultValue, GetParam().defaultValue);
    EXPECT_EQ(read.all().at(0).isFolder, std::string(GetParam().meaning).substr(0, 6) == "Folder");
}

INSTANTIATE_TEST_SUITE_P(
    Table, OwnKeyKind,
    testing::Values(Kind{"Bool", R"("kind": "bool", "default": true)", true}, Kind{"BoolWithout", R"("kind": "bool")", false},
                    Kind{"Int", R"("kind": "int", "default": -2147483648)", std::numeric_limits<int>::min()},
                    Kind{"IntWithout", R"("kind": "int")", 0},
                    Kind{"String", R"("kind": "string", "default": "\u00e4")", std::string("\xC3\xA4")},
                    Kind{"StringWithout", R"("kind": "string")", std::string()}, Kind{"BytesWithout", R"("kind": "bytes")", QByteArray()},
                    Kind{"List", R"("kind": "list", "default": ["a", "b c"])", QStringList{QStringLiteral("a"), QStringLiteral("b c")}},
                    Kind{"ListWithout", R"("kind": "list")", QStringList()},
                    Kind{"Rational", R"("kind": "rational", "default": "30000/1001")", OwnKey::Rational(30000, 1001)},
                    Kind{"RationalInLowestTerms", R"("kind": "rational", "default": "-50/2")", OwnKey::Rational(-25, 1)},
                    Kind{"RationalThatIsWhole", R"("kind": "rational", "default": "25")", OwnKey::Rational(25)},
                    Kind{"RationalWithout", R"("kind": "rational")", OwnKey::Rational(0)},
                    Kind{"Folder", R"("kind": "folder", "default": "/films")", std::string("/films")},
                    Kind{"FolderWithout", R"("kind": "folder")", std::string()}),
    byMeaning);

// --- What is refused ---

struct Wrong {
    char const* meaning;
    std::string declared;
    std::string reason;
};

class WrongOwnKey : public OwnKeyFiles, public testing::WithParamInterface<Wrong> {};

TEST_P(WrongOwnKey, IsRefusedWithItsLine)
{
    EXPECT_EQ(refusal(m_home.write("product.json", productWith(GetParam().declared))), GetParam().reason);
}

std::string key(std::string const& fields) { return "{\"key\": \"k\", " + fields + ", " + rest + '}'; }
std::string named(std::string const& name, std::string const& kind) { return '{' + name + ", \"kind\": \"" + kind + "\", " + rest + '}'; }
std::string const allFields = "the fields of a declared key are key, prefix, kind, store, class, purpose, default, accepts, range";
std::string const wholeNumber = "which takes a whole number from -2147483648 to 2147483647";

INSTANTIATE_TEST_SUITE_P(
    Fields, WrongOwnKey,
    testing::Values(
        Wrong{"NoObject", "7", "(line 9) has 7 where a key is declared; write its fields between { and }"},
        Wrong{"UnknownField", key(R"("kind": "int", "colour": 1)"), "(line 9) has a field \"colour\" that means nothing; " + allFields},
        Wrong{"FieldTwice", key("\"kind\": \"int\",\n\"kind\": \"bool\""), "(line 10) has the field \"kind\" twice; keep one of the two"},
        Wrong{"NestedDeeply", key(R"("kind": "list", "default": [["a"]])"),
              "(line 9) is nested too deeply; its fields are texts, numbers, arrays of texts, and declared keys"},
        Wrong{"NoName", "{\"kind\": \"int\", " + rest + '}',
              "(line 9) declares a key with both a \"key\" and a \"prefix\", or with neither; give one of the two"},
        Wrong{"BothNames", named(R"("key": "a", "prefix": "b")", "int"),
              "(line 9) declares a key with both a \"key\" and a \"prefix\", or with neither; give one of the two"},
        Wrong{"NameIsNoText", named("\"key\": 7", "int"), "(line 9) has the value 7 in field \"key\", which takes a text"},
        Wrong{"NoKind", key("\"default\": 1"), "(line 9) has no field \"kind\"; " + allFields},
        Wrong{"UnknownKind", key("\n\"kind\": \"colour\""),
              "(line 10) has the value \"colour\" in field \"kind\", which takes one of bool, int, string, bytes, list, rational, folder"},
        Wrong{"KindIsNoText", key("\"kind\": 1"),
              "(line 9) has the value 1 in field \"kind\", which takes one of bool, int, string, bytes, list, rational, folder"},
        Wrong{"NoStore", R"({"key": "k", "kind": "int", "class": "local", "purpose": "p"})",
              "(line 9) has no field \"store\"; " + allFields},
        Wrong{"UnknownStore", R"({"key": "k", "kind": "int", "store": "mine", "class": "local", "purpose": "p"})",
              "(line 9) has the value \"mine\" in field \"store\", which takes one of product, common"},
        Wrong{"UnknownClass", R"({"key": "k", "kind": "int", "store": "product", "class": "secret", "purpose": "p"})",
              "(line 9) has the value \"secret\" in field \"class\", which takes one of roaming, local, personal, transient"},
        Wrong{"NoPurpose", R"({"key": "k", "kind": "int", "store": "product", "class": "local"})",
              "(line 9) has no field \"purpose\"; " + allFields},
        Wrong{"EmptyPurpose", R"({"key": "k", "kind": "int", "store": "product", "class": "local", "purpose": ""})",
              "(line 9) declares the key \"k\" without a purpose on one line; say what it is for"},
        Wrong{"PurposeOnTwoLines", R"({"key": "k", "kind": "int", "store": "product", "class": "local", "purpose": "a\nb"})",
              "(line 9) declares the key \"k\" without a purpose on one line; say what it is for"},
        Wrong{"DefaultOfAnotherKind", key(R"("kind": "int", "default": "1")"),
              "(line 9) has the value \"1\" in field \"default\", " + wholeNumber},
        Wrong{"BoolAsANumber", key(R"("kind": "bool", "default": 1)"),
              "(line 9) has the value 1 in field \"default\", which takes true or false"},
        Wrong{"StringAsANumber", key(R"("kind": "string", "default": 1)"),
              "(line 9) has the value 1 in field \"default\", which takes a text"},
        Wrong{"ListAsAText", key(R"("kind": "list", "default": "a")"),
              "(line 9) has the value \"a\" in field \"default\", which takes an array of texts"},
        Wrong{"BytesWithADefault", key(R"("kind": "bytes", "default": "AA==")"),
              "(line 9) has the value \"AA==\" in field \"default\", which takes nothing for bytes, as a read ignores their default: leave "
              "it "
              "out"},
        Wrong{"RationalWithoutDenominator", key(R"("kind": "rational", "default": "1/")"),
              "(line 9) has the value \"1/\" in field \"default\", which takes a fraction such as \"30000/1001\""},
        Wrong{"RationalWithZero", key(R"("kind": "rational", "default": "1/0")"),
              "(line 9) has the value \"1/0\" in field \"default\", which takes a fraction such as \"30000/1001\""},
        Wrong{"RationalBeyond32Bits", key(R"("kind": "rational", "default": "2147483648")"),
              "(line 9) declares the key \"k\" with a default beyond 32 bits, which a store cannot hold; give a smaller fraction"},
        Wrong{"FolderThatIsRelative", key(R"("kind": "folder", "default": "films")"),
              "(line 9) declares the key \"k\" with the default \"films\", which is no absolute path; give one, or none"},
        Wrong{"FolderWithNul", key(R"("kind": "folder", "default": "/a\u0000b")"),
              "(line 9) has the value \"/a\\u0000b\" in field \"default\", which takes a path"},
        Wrong{"ListWithAnEmptyElement", key(R"("kind": "list", "default": [""])"),
              "(line 9) declares the key \"k\" with an empty element in its default, which a list loses; leave it out"},
        Wrong{"AcceptsIsNoArray", key(R"("kind": "string", "accepts": "a")"),
              "(line 9) has the value \"a\" in field \"accepts\", which takes an array of texts"},
        Wrong{"AcceptsOfAnInt", key(R"("kind": "int", "accepts": ["1"])"),
              "(line 9) declares the key \"k\" with accepted words, which are for a string or a list; leave them out"},
        Wrong{"AcceptsOfAFolder", key(R"("kind": "folder", "accepts": ["/a"])"),
              "(line 9) declares the key \"k\" with accepted words, which are for a string or a list; leave them out"},
        Wrong{"DefaultOutsideTheWords", key(R"("kind": "string", "default": "c", "accepts": ["a", "b"])"),
              "(line 9) declares the key \"k\" with the default \"c\", which it does not accept; give one that it accepts"},
        Wrong{"DefaultLeftOutBesideWords", key(R"("kind": "string", "accepts": ["a"])"),
              "(line 9) declares the key \"k\" with the default \"\", which it does not accept; give one that it accepts"},
        Wrong{"ElementOutsideTheWords", key(R"("kind": "list", "default": ["c"], "accepts": ["a"])"),
              "(line 9) declares the key \"k\" with \"c\" in its default, which it does not accept; give what it accepts"},
        Wrong{"RangeOfAString", key(R"("kind": "string", "range": [0, 1])"),
              "(line 9) declares the key \"k\" with a range, which is for an int; leave it out"},
        Wrong{"RangeOfOne", key(R"("kind": "int", "range": [0])"),
              "(line 9) has the value [0] in field \"range\", which takes an array of two whole numbers, the least and the greatest"},
        Wrong{"RangeOfFractions", key(R"("kind": "int", "range": [0, 1.5])"),
              "(line 9) has the value [0,1.5] in field \"range\", which takes an array of two whole numbers, the least and the greatest"},
        Wrong{"RangeFromItsEnd", key(R"("kind": "int", "range": [1, 0])"),
              "(line 9) declares the key \"k\" with a range that begins above its end; give the least number first"},
        Wrong{"DefaultBelowTheRange", key(R"("kind": "int", "range": [1, 9])"),
              "(line 9) declares the key \"k\" with the default 0, which is outside its range; give one inside"},
        Wrong{"DefaultAboveTheRange", key(R"("kind": "int", "default": 10, "range": [1, 9])"),
              "(line 9) declares the key \"k\" with the default 10, which is outside its range; give one inside"}),
    byMeaning);

std::string const anInt = "int";

INSTANTIATE_TEST_SUITE_P(
    Names, WrongOwnKey,
    testing::Values(
        Wrong{"Empty", named(R"("key": "")", anInt), "(line 9) declares the key \"\" that is empty; give it a name"},
        Wrong{"EmptyPrefix", named(R"("prefix": "")", anInt), "(line 9) declares the prefix \"\" that is empty; give it a name"},
        Wrong{"Nul", named(R"("key": "a\u0000b")", anInt), "(line 9) declares the key \"a\\u0000b\" that holds a NUL; leave it out"},
        Wrong{"KeyTwice", named(R"("key": "a")", anInt) + ",\n" + named(R"("key": "a")", "bool"),
              "(line 10) declares the key \"a\" twice; keep one of the two"},
        Wrong{"PrefixTwice", named(R"("prefix": "a")", anInt) + ",\n" + named(R"("prefix": "a")", anInt),
              "(line 10) declares the prefix \"a\" twice; keep one of the two"},
        Wrong{"NumeratorOfARational", named(R"("key": "a")", "rational") + ",\n" + named(R"("key": "a_N")", anInt),
              "(line 10) declares the key \"a_N\" that is half of the rational with the key \"a\"; choose another name"},
        Wrong{"DenominatorOfARational", named(R"("key": "a_D")", anInt) + ",\n" + named(R"("key": "a")", "rational"),
              "(line 9) declares the key \"a_D\" that is half of the rational with the key \"a\"; choose another name"},
        Wrong{"NumeratorOfAFamily", named(R"("prefix": "a.")", "rational") + ",\n" + named(R"("key": "a.x_N")", anInt),
              "(line 10) declares the key \"a.x_N\" that is half of the rational with the prefix \"a.\"; choose another name"}),
    byMeaning);

TEST_F(OwnKeyFiles, OwnKeysAreAnArray)
{
    std::string text = productWith("");
    text.replace(text.find("[\n\n  ]"), 6, "{}");
    EXPECT_EQ(refusal(m_home.write("product.json", text)),
              "(line 8) has the value {} in field \"ownKeys\", which takes an array of declared keys");
}

TEST_F(OwnKeyFiles, AThousandKeysAreTheMost)
{
    std::string declared = named(R"("key": "k0")", "int");
    for (int number = 1; number < 1000; ++number)
        declared += ",\n" + named("\"key\": \"k" + std::to_string(number) + '"', "int");
    EXPECT_EQ(keys(declared).all().size(), 1000u);
    EXPECT_EQ(refusal(m_home.write("product.json", productWith(declared + ",\n" + named(R"("key": "last")", "int")))),
              "(line 1009) declares the key \"last\" after 1000 others, which are all that it may; declare a prefix in place of many keys");
}

// --- What stands in the file's place ---

std::string const remedy = "; check its name and rights, or name another product file";

TEST_F(OwnKeyFiles, FileOfOneMebibyteIsTheLargest)
{
    std::string text = productWith("");
    text.append((std::size_t{1} << 20) - text.size(), ' ');
    EXPECT_EQ(refusal(m_home.write("product.json", text)), "it was read");
    EXPECT_EQ(refusal(m_home.write("product.json", text + ' ')), "cannot be read (it is larger than 1048576 bytes)" + remedy);
}

TEST_F(OwnKeyFiles, LinkToAFileIsFollowed)
{
    m_home.write("there.json", productWith(""));
    std::filesystem::create_symlink("there.json", m_home.path() / "product.json");
    EXPECT_EQ(refusal(m_home.path() / "product.json"), "it was read");
}

struct Other {
    char const* meaning;
    void (*make)(std::filesystem::path const& path);
    char const* reason;
};

class OtherThanAFile : public OwnKeyFiles, public testing::WithParamInterface<Other> {};

TEST_P(OtherThanAFile, IsRefusedWithoutWaiting)
{
    std::filesystem::path const path = m_home.path() / "product.json";
    GetParam().make(path);
    ::alarm(30); // a program that waits for it ends here
    EXPECT_EQ(refusal(path), std::string("cannot be read (") + GetParam().reason + ')' + remedy);
    ::alarm(0);
}

void makeSocket(std::filesystem::path const& path)
{
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    path.string().copy(address.sun_path, sizeof address.sun_path - 1);
    int const descriptor = ::socket(AF_UNIX, SOCK_STREAM, 0);
    EXPECT_EQ(::bind(descriptor, reinterpret_cast<sockaddr const*>(&address), sizeof address), 0);
    ::close(descriptor);
}

INSTANTIATE_TEST_SUITE_P(
    Table, OtherThanAFile,
    testing::Values(
        Other{"Fifo", [](auto const& path) { ::mkfifo(path.c_str(), 0600); }, "it is not a regular file"},
        Other{"LinkToADevice", [](auto const& path) { std::filesystem::create_symlink("/dev/zero", path); }, "it is not a regular file"},
        Other{"Folder", [](auto const& path) { std::filesystem::create_directory(path); }, "it is a folder"},
        Other{"Socket", makeSocket, "it is not a regular file"},
        Other{"DanglingLink", [](auto const& path) { std::filesystem::create_symlink("nowhere", path); }, "No such file or directory"},
        Other{"LinkToItself", [](auto const& path) { std::filesystem::create_symlink("product.json", path); },
              "Too many levels of symbolic links"}),
    byMeaning);

// --- Which declaration a key belongs to ---

OwnKey declared(std::string const& key, OwnKey::Value const& value, bool isPrefix = false)
{
    OwnKey result;
    result.key = key;
    result.defaultValue = value;
    result.purpose = "It is tested";
    result.isPrefix = isPrefix;
    return result;
}

struct Found {
    char const* meaning;
    char const* key;
    char const* declaration; // null for none
    char const* whole;
    Part part;
};

class OwnKeyOf : public testing::TestWithParam<Found> {};

TEST_P(OwnKeyOf, IsTheNearestDeclaration)
{
    OwnKeys const keys({declared("a", 1), declared("a.", false, true), declared("a.long.", std::string(), true), declared("a.x", 2),
                        declared("rate", OwnKey::Rational(25)), declared("rates.", OwnKey::Rational(), true)});
    auto const found = keys.find(GetParam().key);
    ASSERT_EQ(found.has_value(), GetParam().declaration != nullptr);
    if (!found)
        return;
    EXPECT_EQ(found->declaration->key, GetParam().declaration);
    EXPECT_EQ(found->key, GetParam().whole);
    EXPECT_EQ(found->part, GetParam().part);
}

INSTANTIATE_TEST_SUITE_P(
    Table, OwnKeyOf,
    testing::Values(
        Found{"Exact", "a", "a", "a", Part::whole}, Found{"BeginOfNone", "ab", nullptr, "", Part::whole},
        Found{"ExactBeforePrefix", "a.x", "a.x", "a.x", Part::whole}, Found{"Prefix", "a.y", "a.", "a.y", Part::whole},
        Found{"PrefixItself", "a.", "a.", "a.", Part::whole}, Found{"LongerPrefix", "a.long.y", "a.long.", "a.long.y", Part::whole},
        Found{"NoHalfOfAnInt", "a_N", nullptr, "", Part::whole}, Found{"HalfNameBelowAPrefix", "a.y_N", "a.", "a.y_N", Part::whole},
        Found{"Rational", "rate", "rate", "rate", Part::whole}, Found{"Numerator", "rate_N", "rate", "rate", Part::numerator},
        Found{"Denominator", "rate_D", "rate", "rate", Part::denominator}, Found{"OtherEnd", "rate_X", nullptr, "", Part::whole},
        Found{"SmallEnd", "rate_n", nullptr, "", Part::whole}, Found{"MemberOfRationals", "rates.x", "rates.", "rates.x", Part::whole},
        Found{"NumeratorOfAMember", "rates.x_N", "rates.", "rates.x", Part::numerator},
        Found{"NumeratorOfTheMemberWithoutName", "rates._N", "rates.", "rates.", Part::numerator},
        Found{"Empty", "", nullptr, "", Part::whole}),
    byMeaning);

TEST(OwnKeysInCode, WrongOnesAreRefusedInTheHostsName)
{
    try {
        OwnKeys const keys({declared("a\n", 1), declared("a\n", true)});
        FAIL() << "they were taken";
    } catch (OwnKeyError const& error) {
        EXPECT_EQ(std::string(error.what()), "the host declares the key \"a\\u000a\" twice; keep one of the two");
    }
    EXPECT_THROW(OwnKeys({declared("b", QByteArray("x"))}), OwnKeyError);
    EXPECT_THROW(OwnKeys({declared("r", OwnKey::Rational(1, 2147483648))}), OwnKeyError);
    EXPECT_NO_THROW(OwnKeys({declared("r", OwnKey::Rational(-2147483648, 2147483647))}));
}

TEST_F(OwnKeyFiles, ApplicationHasTheKeysOfItsFileOrOfItsCode)
{
    std::filesystem::path const file = m_home.write("product.json", productWith(named(R"("key": "a")", "int")));
    Host::Application::Options options;
    options.storeFolder = m_home.path() / "stores";
    options.ownKeys = OwnKeys({declared("b", 1)});
    {
        Host::ToolApplication const application(file, options);
        ASSERT_EQ(application.ownKeys().all().size(), 1u);
        EXPECT_EQ(application.ownKeys().all()[0].key, "a");
    }
    Host::Application const application(std::make_shared<ProductFile>(file), {}, options);
    ASSERT_EQ(application.ownKeys().all().size(), 1u);
    EXPECT_EQ(application.ownKeys().all()[0].key, "b");
}

TEST(Rationals, AreReadFromText)
{
    EXPECT_EQ(Host::rationalIn("30000/1001"), OwnKey::Rational(30000, 1001));
    EXPECT_EQ(Host::rationalIn("-4/8"), OwnKey::Rational(-1, 2));
    EXPECT_EQ(Host::rationalIn("4/-8"), OwnKey::Rational(-1, 2));
    EXPECT_EQ(Host::rationalIn("7"), OwnKey::Rational(7));
    EXPECT_EQ(Host::rationalIn("9223372036854775807/1"), OwnKey::Rational(9223372036854775807));
    for (char const* none : {"", "/", "1/", "/1", "1/0", "0/0", "1.5", " 1", "1 ", "1/2/3", "+1", "0x1", "9223372036854775808",
                             "-9223372036854775808", "1/-9223372036854775808", "one"})
        EXPECT_FALSE(Host::rationalIn(none)) << none;
}

} // namespace
