// SPDX-License-Identifier: MIT
//
// The verbs about composite settings and about projects.
#include "Tool.h"

#include <Storage/SqliteStorage.h>

#include <support/Named.h>

namespace {

class ShortVerbs : public Tool {
protected:
    Storage::SqliteStorage::Row stored(char const* key) const { return Storage::SqliteStorage(productFile()).find(key).value(); }
    std::string text(char const* key) const { return std::get<std::string>(stored(key).value); }
};

struct Verb {
    char const* meaning;
    std::vector<std::string> verb;
    char const* key;
    std::vector<std::string> words;
    std::string stored; // as the store holds it
    char const* printed;
    char const* json;
};

class WritingVerb : public ShortVerbs, public testing::WithParamInterface<Verb> {};

TEST_P(WritingVerb, StoresItsWordsAndPrintsThemAgain)
{
    std::vector<std::string> command = GetParam().verb;
    command.insert(command.end(), GetParam().words.begin(), GetParam().words.end());
    EXPECT_EQ(said(command), "");
    EXPECT_EQ(stored(GetParam().key).kind, GetParam().json[0] == 'A' ? "bytes" : "string");
    EXPECT_EQ(said(GetParam().verb), GetParam().printed);
    EXPECT_EQ(said({"get", GetParam().key}), GetParam().printed) << "the verb is short for the setting under that key";
    command = GetParam().verb;
    command.emplace_back("--json");
    json const value = json::parse(said(command))["value"];
    EXPECT_EQ(value.is_string() ? value.get<std::string>() : value.dump(), GetParam().json);
    if (GetParam().json[0] != 'A') {
        EXPECT_EQ(text(GetParam().key), GetParam().stored);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Table, WritingVerb,
    testing::Values(
        Verb{"Tutorials", {"tutorials"}, "achievedTutorials", {"a", "b c"}, "a|#|b c", "a\nb c\n", R"(["a","b c"])"},
        Verb{"NoTutorials", {"tutorials"}, "achievedTutorials", {"--empty"}, "", "", "[]"},
        Verb{"Colors", {"colors"}, "userCustomColors", {"#ff8800", "[x]"}, "#ff8800|#|[x]", "#ff8800\n[x]\n", R"(["#ff8800","[x]"])"},
        Verb{"TargetHistory", {"target-history"}, "targetHistory", {"a;b"}, "a;b", "a;b\n", "a;b"},
        Verb{"EmptyTargetHistory", {"target-history"}, "targetHistory", {""}, "", "\n", ""},
        Verb{"Indication", {"indication", "x"}, "Indication/x", {"AP8="}, "", "AP8=\n", "AP8="},
        Verb{"IndicationWithSeparator", {"indication", "a/%2"}, "Indication/a/%2", {"AP8="}, "", "AP8=\n", "AP8="},
        Verb{"IndicationWithoutName", {"indication", ""}, "Indication/", {"AP8="}, "", "AP8=\n", "AP8="}),
    byMeaning);

TEST_F(ShortVerbs, IndicationIsReadFromAFile)
{
    EXPECT_EQ(said({"indication", "x"}), "\n") << "nothing was ever set";
    said({"indication", "x", "@" + m_home.write("bytes", std::string("\x00\xFFraw", 5)).string()});
    EXPECT_EQ(said({"indication", "x"}), "AP9yYXc=\n");
    EXPECT_EQ(std::get<std::vector<unsigned char>>(stored("Indication/x").value), (std::vector<unsigned char>{0, 255, 'r', 'a', 'w'}));
}

TEST_F(ShortVerbs, FavoritesAreReadAndNotWritten)
{
    EXPECT_EQ(said({"favorites", "fonts"}), "");
    EXPECT_EQ(json::parse(said({"favorites", "fonts", "--json"})),
              json::parse(R"({"key": "favorites_fonts", "type": "list", "value": []})"));
    Storage::SqliteStorage(productFile()).setString("favorites_fonts", "Verdana|#||#|Open Sans");
    EXPECT_EQ(said({"favorites", "fonts"}), "Verdana\nOpen Sans\n");
    EXPECT_EQ(said({"favorites", ""}), "") << "the list without a name is another one";
    EXPECT_EQ(tool({"favorites", "fonts", "Arial"}).status, 2);
    EXPECT_EQ(refused({"set", "favorites_fonts", "Arial"}),
              "editor-settings: favorites_fonts is written by the editor alone, so it cannot be set; 'editor-settings unset' removes it\n");
    EXPECT_EQ(text("favorites_fonts"), "Verdana|#||#|Open Sans");
}

TEST_F(ShortVerbs, KeysMadeFromNamesAreListedExplainedAndUnset)
{
    said({"indication", "x", "AP8="});
    Storage::SqliteStorage(productFile()).setString("favorites_fonts", "Verdana");
    Storage::SqliteStorage(productFile()).setString("unknown", "kept");
    EXPECT_EQ(said({"list", "--set", "--plain"}),
              "Indication/x\tbytes\tproduct\tset\tAP8=\nfavorites_fonts\tlist\tproduct\tset\t[\"Verdana\"]\n");
    std::vector<std::string> const explained = lines(said({"explain", "Indication/x", "--plain"}));
    EXPECT_EQ(explained[0], "key\tIndication/x");
    EXPECT_EQ(explained[1], "type\tbytes (QByteArray)");
    EXPECT_EQ(explained[5], "state\tset");
    said({"unset", "Indication/x"});
    said({"unset", "favorites_fonts"});
    EXPECT_EQ(said({"list", "--set", "--plain"}), "");
    EXPECT_EQ(text("unknown"), "kept");
}

TEST_F(ShortVerbs, ValueOfAnotherKindIsTold)
{
    Storage::SqliteStorage(productFile()).setString("Indication/x", "text");
    Ended const ended = tool({"indication", "x"});
    EXPECT_EQ(ended.out, "\n");
    EXPECT_EQ(ended.err, "editor-settings: Indication/x holds a value of kind string, so the default is read; 'editor-settings explain "
                         "Indication/x' shows both\n");
}

TEST_F(ShortVerbs, WrongWordsAreRefused)
{
    EXPECT_EQ(refused({"indication", "x", "a*b"}),
              "editor-settings: Indication/x holds bytes and cannot be 'a*b'; give the bytes in base64, or "
              "@FILE to read them from a file\n");
    EXPECT_EQ(refused({"indication", "x\xFF"}),
              "editor-settings: the name 'x\\xff' is not UTF-8 without a byte order mark; give it as the editor writes it\n");
    EXPECT_EQ(refused({"tutorials", "a", ""}),
              "editor-settings: achievedTutorials is a list and cannot be ''; an empty element is lost when the "
              "list is read back; leave it out (--empty stores an empty list)\n");
    EXPECT_EQ(tool({"target-history", "a", "b"}).status, 2);
    EXPECT_EQ(tool({"colors", "a", "--empty"}).status, 2);
    EXPECT_EQ(tool({"indication"}).status, 2);
}

// --- project ---

class Project : public Tool {
protected:
    std::string productWith(char const* extensions) const
    {
        return m_home
            .write("product.json", std::string(R"({"vendorName": "V", "productName": "P", "sharedDataFolderName": "S", "productKind": 0,
                "projectFileExtensions": )") +
                                       extensions + R"(, "resourcesRoot": "R"})")
            .string();
    }
};

TEST_F(Project, NameExtensionsFiltersAndSampleAreTold)
{
    std::string const product = productWith(R"(["ext1", "EXT2"])");
    std::string const sample = m_home.write("R/resources/samples/stock/projects/deep/a.Ext2", "").string();
    EXPECT_EQ(said({"--product", product, "project"}), "default name\tNew Project\n"
                                                       "extensions\text1, EXT2\n"
                                                       "extension for saving\text1\n"
                                                       "save filter\t*.ext1\n"
                                                       "open filter\t*.ext1 *.EXT2\n"
                                                       "sample project\t" +
                                                           sample + '\n');
    EXPECT_EQ(
        said({"--product", product, "project", "--plain"}),
        "default name\tNew Project\nextensions\t[\"ext1\",\"EXT2\"]\nextension for saving\text1\nsave filter\t*.ext1\nopen filter\t*.ext1 "
        "*.EXT2\nsample project\t" +
            sample + '\n');
    EXPECT_EQ(json::parse(said({"--product", product, "project", "--json"})), json({{"defaultName", "New Project"},
                                                                                    {"extensions", {"ext1", "EXT2"}},
                                                                                    {"extensionForSaving", "ext1"},
                                                                                    {"saveFilter", "*.ext1"},
                                                                                    {"openFilter", "*.ext1 *.EXT2"},
                                                                                    {"sampleProject", sample}}));
}

TEST_F(Project, MissingSampleIsSaid)
{
    std::string const product = productWith(R"(["ext1"])");
    Ended const ended = tool({"--product", product, "project"});
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(lines(ended.out).back(), "sample project\t");
    EXPECT_EQ(ended.err, "editor-settings: there is no sample project below " + inHome("R/resources/samples/stock/projects\n"));
    EXPECT_EQ(json::parse(said({"--product", product, "project", "--json"}))["sampleProject"], json());
    EXPECT_EQ(lines(said({"--product", product, "project", "--plain"})).back(), "sample project\t");
    m_home.write("R/resources/samples/stock/projects/a\nb.ext1", "");
    EXPECT_EQ(lines(said({"--product", product, "project"})).back(),
              "sample project\t" + inHome("R/resources/samples/stock/projects/a\\nb.ext1"));
}

} // namespace
