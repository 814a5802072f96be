// SPDX-License-Identifier: MIT
//
// Keys that the product file declares, and those that nobody declared, through every verb.
#include "Tool.h"

#include <Storage/SqliteStorage.h>

#include <support/Json.h>
#include <support/Named.h>
#include <support/OtherProgram.h>

namespace {

using Storage::SqliteStorage;

char const productText[] = R"({
  "vendorName": "Maker",
  "productName": "Product",
  "sharedDataFolderName": "Common",
  "productKind": 0,
  "projectFileExtensions": [],
  "resourcesRoot": "share",
  "ownKeys": [
    {"key": "my.snap", "kind": "bool", "store": "product", "class": "roaming", "purpose": "Whether clips snap", "default": true},
    {"key": "my.starts", "kind": "int", "store": "common", "class": "transient", "purpose": "Starts so far", "range": [0, 1000]},
    {"key": "my.theme", "kind": "string", "store": "product", "class": "roaming", "purpose": "The theme", "default": "dark",
     "accepts": ["dark", "light"]},
    {"key": "my.layout", "kind": "bytes", "store": "product", "class": "local", "purpose": "The layout"},
    {"key": "my.tracks", "kind": "list", "store": "product", "class": "personal", "purpose": "The tracks", "default": ["Video"]},
    {"key": "my.rate", "kind": "rational", "store": "product", "class": "roaming", "purpose": "Frames a second", "default": "25"},
    {"key": "my.proxies", "kind": "folder", "store": "product", "class": "local", "purpose": "Folder of proxies"},
    {"prefix": "my.window.", "kind": "string", "store": "product", "class": "local", "purpose": "Geometry of a window"}
  ]
}
)";

class OwnKeys : public Tool {
protected:
    OwnKeys() { ::setenv("EDITOR_SETTINGS_PRODUCT", m_home.write("product.json", productText).c_str(), 1); }
    ~OwnKeys() override { ::unsetenv("EDITOR_SETTINGS_PRODUCT"); }

    std::string product() const { return inHome(".local/share/Maker/Product/product-settings.sqlite"); }
    std::string common() const { return inHome(".local/share/Maker/common-settings.sqlite"); }
};

// --- Declared ---

struct Kept {
    char const* meaning;
    char const* key;
    std::vector<std::string> given;
    char const* printed;
    char const* listed; // as a line of list, without the key
};

class OwnKey : public OwnKeys, public testing::WithParamInterface<Kept> {};

TEST_P(OwnKey, IsSetReadListedAndUnset)
{
    std::string const before = said({"list", GetParam().key, "--plain"});
    std::vector<std::string> arguments = {"set", GetParam().key};
    arguments.insert(arguments.end(), GetParam().given.begin(), GetParam().given.end());
    EXPECT_EQ(said(arguments), "");
    EXPECT_EQ(said({"get", GetParam().key}), GetParam().printed);
    EXPECT_EQ(said({"list", GetParam().key, "--set", "--plain"}), std::string(GetParam().key) + '\t' + GetParam().listed + '\n');
    EXPECT_EQ(said({"unset", GetParam().key}), "");
    EXPECT_EQ(said({"list", GetParam().key, "--set", "--plain"}), "");
    EXPECT_EQ(said({"list", GetParam().key, "--unset", "--plain"}), before);
    EXPECT_TRUE(SqliteStorage(product()).rows().empty());
}

INSTANTIATE_TEST_SUITE_P(
    Table, OwnKey,
    testing::Values(Kept{"Bool", "my.snap", {"off"}, "false\n", "bool\tproduct\tset\tfalse"},
                    Kept{"BoolSetToItsDefault", "my.snap", {"on"}, "true\n", "bool\tproduct\tset to default\ttrue"},
                    Kept{"Int", "my.starts", {"7"}, "7\n", "int\tcommon\tset\t7"},
                    Kept{"String", "my.theme", {"light"}, "light\n", "text\tproduct\tset\tlight"},
                    Kept{"Bytes", "my.layout", {"AP8="}, "AP8=\n", "bytes\tproduct\tset\tAP8="},
                    Kept{"List", "my.tracks", {"a", "b c"}, "a\nb c\n", "list\tproduct\tset\t[\"a\",\"b c\"]"},
                    Kept{"EmptyList", "my.tracks", {"--empty"}, "", "list\tproduct\tset\t[]"},
                    Kept{"Rational", "my.rate", {"60000/2002"}, "30000/1001\n", "rational\tproduct\tset\t30000/1001"},
                    Kept{"RationalSetToItsDefault", "my.rate", {"25"}, "25/1\n", "rational\tproduct\tset to default\t25/1"},
                    Kept{"RationalBelowZero", "my.rate", {"--", "-1/2"}, "-1/2\n", "rational\tproduct\tset\t-1/2"},
                    Kept{"Folder", "my.proxies", {"/tmp"}, "/tmp\n", "text\tproduct\tset\t/tmp"}),
    byMeaning);

TEST_F(OwnKeys, DefaultsAreListedBesideTheLibrarys)
{
    EXPECT_EQ(said({"list", "my.*", "--plain"}), "my.layout\tbytes\tproduct\tunset\t\n"
                                                 "my.proxies\ttext\tproduct\tunset\t\n"
                                                 "my.rate\trational\tproduct\tunset\t25/1\n"
                                                 "my.snap\tbool\tproduct\tunset\ttrue\n"
                                                 "my.starts\tint\tcommon\tunset\t0\n"
                                                 "my.theme\ttext\tproduct\tunset\tdark\n"
                                                 "my.tracks\tlist\tproduct\tunset\t[\"Video\"]\n");
    EXPECT_EQ(
        parsed(said({"list", "my.rate", "--json"})),
        parsed(
            R"([{"key": "my.rate", "type": "rational", "store": "product", "state": "unset", "layer": "default", "value": "25/1", "default": "25/1"}])"));
    EXPECT_EQ(parsed(said({"get", "my.rate", "--json"})), parsed(R"({"key": "my.rate", "type": "rational", "value": "25/1"})"));
    EXPECT_NE(said({"list"}).find("\nkeepVideoAspect"), std::string::npos);
}

TEST_F(OwnKeys, KeysBelowAPrefixComeWithTheirFirstValue)
{
    EXPECT_EQ(said({"get", "my.window.main"}), "\n");
    said({"set", "my.window.main", "10x10"});
    EXPECT_EQ(said({"list", "--set", "--plain"}), "my.window.main\ttext\tproduct\tset\t10x10\n");
    EXPECT_EQ(lines(said({"explain", "my.window.main"}))[1], "purpose\tGeometry of a window");
}

struct Doubtful {
    char const* meaning;
    char const* key;
    char const* value;
    char const* reason;
    char const* accepted;
};

class DoubtfulOwnKey : public OwnKeys, public testing::WithParamInterface<Doubtful> {};

TEST_P(DoubtfulOwnKey, IsStoredWithAWarningAndRefusedOnRequest)
{
    auto const told = [](std::string const& consequence) {
        return std::string("editor-settings: ") + GetParam().key + ": the editor cannot use '" + GetParam().value +
               "': " + GetParam().reason + "; " + consequence + "; give " + GetParam().accepted + '\n';
    };
    EXPECT_EQ(refused({"set", GetParam().key, GetParam().value, "--strict"}), told("nothing was stored"));
    EXPECT_EQ(said({"list", "--set", "--plain"}), "");
    Ended const set = tool({"set", GetParam().key, GetParam().value});
    EXPECT_EQ(set.status, 0);
    EXPECT_EQ(set.err, told("it is stored all the same"));
    EXPECT_EQ(said({"get", GetParam().key}), GetParam().value + std::string("\n"));
}

INSTANTIATE_TEST_SUITE_P(
    Table, DoubtfulOwnKey,
    testing::Values(Doubtful{"OtherWord", "my.theme", "blue", "the product does not accept it", "dark or light"},
                    Doubtful{"AboveTheRange", "my.starts", "1001", "it is outside the range that the product accepts",
                             "a whole number from 0 to 1000"},
                    Doubtful{"RelativeFolder", "my.proxies", "films",
                             "not absolute: it depends on the folder that the editor is started in", "the absolute path of a folder"},
                    Doubtful{"FolderOfAShell", "my.proxies", "~/films", "only a shell replaces ~, and only outside quotes",
                             "the absolute path of a folder"},
                    Doubtful{"FileForAFolder", "my.proxies", "/etc/passwd", "not a folder", "the absolute path of a folder"}),
    byMeaning);

struct Wrong {
    char const* meaning;
    std::vector<std::string> arguments;
    std::string reason;
};

class WrongOwnKey : public OwnKeys, public testing::WithParamInterface<Wrong> {};

TEST_P(WrongOwnKey, IsRefused)
{
    SqliteStorage(product()).setString("theirs", "x");
    EXPECT_EQ(refused(GetParam().arguments), "editor-settings: " + GetParam().reason + '\n');
    EXPECT_EQ(SqliteStorage(product()).rows().size(), 1u);
}

std::string const giveRational = "; give a fraction such as 30000/1001, or a whole number; in lowest terms each half has at most 32 bits, "
                                 "and the lower one is not 0";

INSTANTIATE_TEST_SUITE_P(
    Table, WrongOwnKey,
    testing::Values(
        Wrong{"ZeroBelow", {"set", "my.rate", "1/0"}, "my.rate is a rational and cannot be '1/0'" + giveRational},
        Wrong{"Decimal", {"set", "my.rate", "29.97"}, "my.rate is a rational and cannot be '29.97'" + giveRational},
        Wrong{"Beyond32Bits", {"set", "my.rate", "1/4294967296"}, "my.rate is a rational and cannot be '1/4294967296'" + giveRational},
        Wrong{"HalfToSet",
              {"set", "my.rate_N", "1"},
              "'my.rate_N' is half of the rational 'my.rate', which is read and set as a whole; give that key"},
        Wrong{"HalfToGet",
              {"get", "my.rate_D"},
              "'my.rate_D' is half of the rational 'my.rate', which is read and set as a whole; give that key"},
        Wrong{"MistypedKey",
              {"get", "my.tehme"},
              "there is no preference 'my.tehme'; did you mean my.theme? 'editor-settings list' shows all"},
        Wrong{"UndeclaredKey",
              {"set", "theirs", "y"},
              "'theirs' is not declared, so it cannot be set; declare it in \"ownKeys\" of the product file, see "
              "editor-settings-product(5), or have the program that stored it set it"},
        Wrong{"KeyLikeNone",
              {"set", "wholly/different", "1"},
              "there is no preference 'wholly/different'; 'editor-settings list' shows all; a key of the host's own is "
              "declared in \"ownKeys\" of the product file, see editor-settings-product(5)"}),
    byMeaning);

TEST_F(OwnKeys, ExplainTellsWhatTheDeclarationSays)
{
    EXPECT_EQ(said({"explain", "my.theme", "--plain"}),
              "key\tmy.theme\npurpose\tThe theme\naccepts\tdark or light\ngetter\tread\nsetter\twrite\n"
              "type\ttext (std::string)\nclass\troaming\nstore\tproduct\nfile\t" +
                  product() + "\nstate\tunset\ndefault\tdark\ncomputed by\tnothing: it is fixed\nvalue\tdark\n");
    EXPECT_EQ(lines(said({"explain", "my.starts"}))[2], "accepts\ta whole number from 0 to 1000");
    said({"set", "my.tracks", "a", "b"});
    EXPECT_EQ(lines(said({"explain", "my.tracks", "--plain"}))[10], "stored\t[\"a\",\"b\"]");
    said({"set", "my.rate", "30000/1001"});
    json const explained = parsed(said({"explain", "my.rate", "--json"}));
    EXPECT_EQ(explained["stored"][0]["key"], "my.rate_N");
    EXPECT_EQ(explained["stored"][0]["value"], 30000);
    EXPECT_EQ(explained["stored"][1]["key"], "my.rate_D");
    EXPECT_EQ(explained["stored"][1]["value"], 1001);
    EXPECT_EQ(explained["stored"].size(), 2u);
    EXPECT_EQ(explained["value"], "30000/1001");
    EXPECT_EQ(lines(said({"explain", "my.rate", "--plain"}))[10], "stored\tmy.rate_N = 30000");
}

TEST_F(OwnKeys, RationalWithZeroBelowIsShownAndCannotBeRead)
{
    SqliteStorage(product()).setInt("my.rate_N", 1);
    SqliteStorage(product()).setInt("my.rate_D", 0);
    EXPECT_EQ(said({"list", "my.rate", "--plain"}), "my.rate\trational\tproduct\tunreadable\t25/1\n");
    EXPECT_EQ(refused({"get", "my.rate"}), "editor-settings: 'my.rate' is stored with the denominator 0, so every read of it fails; "
                                           "'editor-settings unset' removes it, so that the default holds\n");
    EXPECT_EQ(lines(said({"explain", "my.rate", "--plain"}))[9], "state\tunreadable");
    Ended const doctor = tool({"doctor", "--plain"});
    EXPECT_EQ(doctor.status, 1);
    EXPECT_NE(
        doctor.out.find("\nerror\trational-zero\tmy.rate (product store)\tthe rational's denominator is 0, so every read of it fails\t"),
        std::string::npos);
    said({"unset", "my.rate"});
    EXPECT_EQ(said({"get", "my.rate"}), "25/1\n");
}

TEST_F(OwnKeys, ExportAndImportCarryTheHalvesWithTheirClass)
{
    said({"set", "my.rate", "30000/1001"});
    said({"set", "my.tracks", "Wedding"});
    said({"set", "my.proxies", "/tmp"});
    said({"set", "my.starts", "3"});
    SqliteStorage(product()).setString("theirs", "x");
    EXPECT_EQ(parsed(said({"export", "-"}))["stores"], parsed(R"({
        "product": {"my.proxies": {"kind": "string", "class": "local", "value": "/tmp"},
                    "my.rate_D": {"kind": "int", "class": "roaming", "value": 1001},
                    "my.rate_N": {"kind": "int", "class": "roaming", "value": 30000},
                    "my.tracks": {"kind": "string", "class": "personal", "value": "Wedding"},
                    "theirs": {"kind": "string", "class": null, "value": "x"}},
        "common": {"my.starts": {"kind": "int", "class": "transient", "value": 3}}})"));
    Ended const redacted = tool({"export", "--redact", "-"});
    EXPECT_EQ(redacted.err, "editor-settings: 1 unknown key in the product store left out\n");
    json const kept = parsed(redacted.out)["stores"];
    EXPECT_EQ(kept["product"]["my.tracks"], parsed(R"({"kind": "string", "class": "personal", "redacted": true})"));
    EXPECT_EQ(kept["product"]["my.proxies"], parsed(R"({"kind": "string", "class": "local", "redacted": true})"));
    EXPECT_EQ(kept["product"]["my.rate_N"]["value"], 30000);
    EXPECT_FALSE(kept["product"].contains("theirs"));
    std::string const file = inHome("roaming.json");
    said({"export", "--only", "roaming", file});
    EXPECT_EQ(said({"diff", "--only", "roaming", file}), "");
    said({"unset", "my.rate"});
    EXPECT_EQ(tool({"diff", "--only", "roaming", file, "--plain"}).out,
              "added\tproduct\tmy.rate_D\t\t\tint\t1001\nadded\tproduct\tmy.rate_N\t\t\tint\t30000\n");
    EXPECT_EQ(tool({"import", file}).err, "editor-settings: 2 changed, 0 already as in the file\n");
    EXPECT_EQ(said({"get", "my.rate"}), "30000/1001\n");
}

TEST_F(OwnKeys, DoctorChecksADeclaredFolder)
{
    EXPECT_EQ(tool({"set", "my.proxies", "/etc/passwd"}).status, 0);
    Ended const ended = tool({"doctor", "--plain"});
    EXPECT_EQ(ended.status, 1);
    EXPECT_NE(ended.out.find("\nerror\tfolder\t/etc/passwd\tmy.proxies: the editor cannot write there: not a folder\t"), std::string::npos)
        << ended.out;
}

TEST_F(OwnKeys, PageOfTheReferenceHasThem)
{
    std::string const page = said({"list", "--format", "markdown"});
    std::string const begin =
        "\n| key | type | store | class | default | accepts | what it is for |\n| --- | --- | --- | --- | --- | --- | --- |\n";
    ASSERT_NE(page.find(begin), std::string::npos);
    EXPECT_EQ(page.substr(page.find(begin) + begin.size()),
              "| `my.layout` | bytes | product | local | empty | bytes in base64, with its padding | The layout |\n"
              "| `my.proxies` | text | product | local | empty | the absolute path of a folder | Folder of proxies |\n"
              "| `my.rate` | rational | product | roaming | `25/1` | a fraction such as 30000/1001, or a whole number | Frames a second |\n"
              "| `my.snap` | bool | product | roaming | `true` | true or false (or yes, no, on, off, 1, 0) | Whether clips snap |\n"
              "| `my.starts` | int | common | transient | `0` | a whole number from 0 to 1000 | Starts so far |\n"
              "| `my.theme` | text | product | roaming | `dark` | dark or light | The theme |\n"
              "| `my.tracks` | list | product | personal | `[\"Video\"]` | elements of text, none empty or with the separator of stored "
              "lists | The tracks |\n"
              "| `my.window.*` | text | product | local | empty | text in UTF-8 without a byte order mark | Geometry of a window |\n");
}

TEST_F(OwnKeys, CompletionOffersThem)
{
    EXPECT_EQ(said({"complete", "--", "get", "my.t"}), "my.theme\tThe theme\nmy.tracks\tThe tracks\n");
    said({"set", "my.rate", "1/2"});
    SqliteStorage(product()).setInt("my/other", 1);
    EXPECT_EQ(said({"complete", "--", "unset", "my"}), "my.rate\tFrames a second\nmy/other\t\n");
    ::unsetenv("EDITOR_SETTINGS_PRODUCT");
    EXPECT_EQ(said({"complete", "--", "get", "my.t"}), "");
    EXPECT_EQ(said({"complete", "--", "--product", inHome("product.json"), "explain", "my.th"}), "my.theme\tThe theme\n");
    EXPECT_EQ(said({"complete", "--", "--product", "/no/such", "get", "keepV"}),
              "keepVideoAspect\tWhether a video keeps its aspect ratio when it is resized\n");
}

TEST_F(OwnKeys, KeyOfTheLibraryIsRefusedWithItsLineByEveryVerb)
{
    std::string text = productText;
    text.replace(text.find("my.starts"), 9, "exportPath");
    std::string const file = m_home.write("product.json", text).string();
    std::string const reason =
        "product file " + file + " (line 10) declares the key \"exportPath\" that is the library's own; choose another name";
    for (std::vector<std::string> const& words :
         {std::vector<std::string>{"list"}, {"get", "my.snap"}, {"set", "my.snap", "off"}, {"list", "--format", "markdown"}})
        EXPECT_EQ(refused(words),
                  "editor-settings: " + reason + "\nName a product file with '--product FILE', or in EDITOR_SETTINGS_PRODUCT.\n");
    EXPECT_FALSE(std::filesystem::exists(inHome(".local"))) << "a store was made before the keys were looked at";
    Ended const doctor = tool({"doctor", "--plain"});
    EXPECT_EQ(doctor.status, 1);
    EXPECT_NE(doctor.out.find("\nerror\tproduct-file\t" + file + '\t' + reason), std::string::npos) << doctor.out;
}

TEST_F(OwnKeys, GetOpensTheStoreOfADeclaredKeyAlone)
{
    m_home.write(".local/share/Maker/Product/product-settings.sqlite", "not a store");
    EXPECT_EQ(said({"get", "my.starts"}), "0\n");
    EXPECT_EQ(refused({"get", "my.snap"}).find("editor-settings: " + product() + ": cannot open the store"), 0u);
}

// --- Undeclared ---

TEST_F(OwnKeys, UndeclaredKeyIsListedReadExplainedAndUnset)
{
    SqliteStorage(product()).setString("theirs", "a value");
    EXPECT_EQ(said({"list", "theirs", "--plain"}), "theirs\tstring\tproduct\tundeclared\ta value\n");
    EXPECT_EQ(said({"get", "theirs"}), "a value\n");
    EXPECT_EQ(
        parsed(said({"list", "theirs", "--json"})),
        parsed(
            R"([{"key": "theirs", "type": "string", "store": "product", "state": "undeclared", "layer": "local", "value": "a value", "default": null}])"));
    std::vector<std::string> const table = lines(said({"explain", "theirs", "--plain"}));
    EXPECT_EQ(table[1], "purpose\tunknown: neither the library nor the product file declares it");
    EXPECT_EQ(table[2], "accepts\tnothing: it is not declared");
    EXPECT_EQ(table[5], "type\tstring");
    EXPECT_EQ(table[9], "state\tundeclared");
    EXPECT_EQ(table.back(), "value\ta value");
    json const explained = parsed(said({"explain", "theirs", "--json"}));
    for (char const* field : {"purpose", "getter", "setter", "cppType", "class"})
        EXPECT_TRUE(explained[field].is_null()) << field;
    EXPECT_TRUE(explained["default"]["value"].is_null());
    Ended const doctor = tool({"doctor", "--plain"});
    EXPECT_EQ(doctor.status, 0);
    EXPECT_NE(doctor.out.find("\nnote\tunknown-key\ttheirs (product store)\t"), std::string::npos);
    EXPECT_EQ(said({"unset", "theirs"}), "");
    EXPECT_EQ(refused({"get", "theirs"}), "editor-settings: there is no preference 'theirs'; 'editor-settings list' "
                                          "shows all\n");
}

TEST_F(OwnKeys, UndeclaredKeyOfALaterVersionsKindIsShownAndRemoved)
{
    SqliteStorage(common()).setInt("theirs", 1);
    OtherProgram(common()).execute("UPDATE settings SET kind = 'colour' WHERE key = 'theirs'");
    EXPECT_EQ(said({"list", "--set", "--plain"}), "theirs\tcolour\tcommon\tunreadable\t(unreadable)\n");
    EXPECT_EQ(refused({"get", "theirs"}), "editor-settings: 'theirs' holds a value of kind 'colour' that this version cannot read; "
                                          "'editor-settings unset' removes it\n");
    EXPECT_EQ(lines(said({"explain", "theirs", "--plain"})).back(), "value\t(unreadable)");
    EXPECT_TRUE(parsed(said({"list", "--set", "--json"}))[0]["value"].is_null());
    EXPECT_EQ(tool({"doctor"}).status, 0);
    EXPECT_EQ(said({"unset", "theirs"}), "");
    EXPECT_EQ(said({"list", "--set", "--plain"}), "");
}

TEST_F(OwnKeys, UndeclaredKeyInBothStoresIsTheProductsFirst)
{
    SqliteStorage(product()).setInt("theirs", 1);
    SqliteStorage(common()).setBool("theirs", true);
    EXPECT_EQ(said({"list", "--set", "--plain"}), "theirs\tint\tproduct\tundeclared\t1\ntheirs\tbool\tcommon\tundeclared\ttrue\n");
    EXPECT_EQ(said({"get", "theirs"}), "1\n");
    said({"unset", "theirs"});
    EXPECT_EQ(said({"get", "theirs"}), "true\n");
}

} // namespace
