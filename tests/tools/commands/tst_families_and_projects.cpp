// SPDX-License-Identifier: MIT
//
// Settings under names that the editor chooses, and projects.
#include "Tool.h"

#include <Storage/SqliteStorage.h>

#include <support/Json.h>
#include <support/Named.h>

namespace {

class Families : public Tool {
protected:
    Storage::SqliteStorage::Row stored(char const* key) const { return Storage::SqliteStorage(productFile()).find(key).value(); }
    std::string text(char const* key) const { return std::get<std::string>(stored(key).value); }
};

struct Indication {
    char const* meaning;
    char const* key;
};

class IndicationKey : public Families, public testing::WithParamInterface<Indication> {};

TEST_P(IndicationKey, HoldsTheBytesThatWereSet)
{
    char const* const key = GetParam().key;
    EXPECT_EQ(said({"get", key}), "\n") << "nothing was ever set";
    EXPECT_EQ(said({"set", key, "AP8="}), "");
    EXPECT_EQ(std::get<std::vector<unsigned char>>(stored(key).value), (std::vector<unsigned char>{0, 255}));
    EXPECT_EQ(said({"get", key}), "AP8=\n");
    said({"set", key, "@" + m_home.write("bytes", std::string("\x00\xFFraw", 5)).string()});
    EXPECT_EQ(said({"get", key}), "AP9yYXc=\n");
}

INSTANTIATE_TEST_SUITE_P(Table, IndicationKey,
                         testing::Values(Indication{"Plain", "Indication/x"}, Indication{"WithSeparator", "Indication/a/%2"},
                                         Indication{"WithoutName", "Indication/"}),
                         byMeaning);

TEST_F(Families, FavoritesAreReadAndNotWritten)
{
    EXPECT_EQ(said({"get", "favorites_fonts"}), "");
    EXPECT_EQ(parsed(said({"get", "favorites_fonts", "--json"})), parsed(R"({"key": "favorites_fonts", "type": "list", "value": []})"));
    Storage::SqliteStorage(productFile()).setString("favorites_fonts", "Verdana|#||#|Open Sans");
    EXPECT_EQ(said({"get", "favorites_fonts"}), "Verdana\nOpen Sans\n");
    EXPECT_EQ(said({"get", "favorites_"}), "") << "the list without a name is another one";
    EXPECT_EQ(refused({"set", "favorites_fonts", "Arial"}),
              "editor-settings: favorites_fonts is written by the editor alone, so it cannot be set; 'editor-settings unset' removes it\n");
    EXPECT_EQ(text("favorites_fonts"), "Verdana|#||#|Open Sans");
}

TEST_F(Families, KeysMadeFromNamesAreListedExplainedAndUnset)
{
    said({"set", "Indication/x", "AP8="});
    Storage::SqliteStorage(productFile()).setString("favorites_fonts", "Verdana");
    Storage::SqliteStorage(productFile()).setString("unknown", "kept");
    EXPECT_EQ(said({"list", "--set", "--plain"}),
              "Indication/x\tbytes\tproduct\tset\tAP8=\nfavorites_fonts\tlist\tproduct\tset\t[\"Verdana\"]\n"
              "unknown\tstring\tproduct\tundeclared\tkept\n");
    std::vector<std::string> const explained = lines(said({"explain", "Indication/x", "--plain"}));
    EXPECT_EQ(explained[0], "key\tIndication/x");
    EXPECT_EQ(explained[1], "purpose\tWhat the editor keeps for the indication called \"x\"");
    EXPECT_EQ(explained[2], "accepts\tbytes in base64, with its padding");
    EXPECT_EQ(explained[3], "getter\tSettings::indicationObject");
    EXPECT_EQ(explained[4], "setter\tSettings::setIndicationObject");
    EXPECT_EQ(lines(said({"explain", "favorites_fonts"}))[2], "accepts\tnothing: the editor alone writes it");
    said({"unset", "Indication/x"});
    said({"unset", "favorites_fonts"});
    EXPECT_EQ(said({"list", "--set", "--plain"}), "unknown\tstring\tproduct\tundeclared\tkept\n");
    EXPECT_EQ(text("unknown"), "kept");
}

TEST_F(Families, WordThatLacksPaddingIsNoBytes)
{
    EXPECT_EQ(refused({"set", "Indication/x", "AP8"}),
              "editor-settings: Indication/x holds bytes and cannot be 'AP8'; give the bytes in base64, with its padding, or @FILE to read "
              "them from a file\n");
}

// A key is shown and changed by the verbs for all keys; no verb of its own takes a word that was meant for another.
TEST_F(Families, HaveNoVerbsOfTheirOwn)
{
    said({"set", "userCustomColors", "#ff8800"});
    for (char const* verb : {"favorites", "indication", "tutorials", "colors", "target-history"})
        EXPECT_EQ(tool({verb, "x"}).status, 2) << verb;
    EXPECT_EQ(said({"get", "userCustomColors"}), "#ff8800\n");
    for (char const* key : {"achievedTutorials", "userCustomColors", "targetHistory"})
        EXPECT_EQ(lines(said({"list", key, "--plain"})).size(), 1u) << key;
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
                                                       "extensions\t[\"ext1\",\"EXT2\"]\n"
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
    EXPECT_EQ(parsed(said({"--product", product, "project", "--json"})), json({{"defaultName", "New Project"},
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
    EXPECT_EQ(parsed(said({"--product", product, "project", "--json"}))["sampleProject"], json());
    EXPECT_EQ(lines(said({"--product", product, "project", "--plain"})).back(), "sample project\t");
    m_home.write("R/resources/samples/stock/projects/a\nb.ext1", "");
    EXPECT_EQ(lines(said({"--product", product, "project"})).back(),
              "sample project\t" + inHome("R/resources/samples/stock/projects/a\\nb.ext1"));
}

} // namespace
