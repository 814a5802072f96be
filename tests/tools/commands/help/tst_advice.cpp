// SPDX-License-Identifier: MIT
//
// The error texts, word for word: what is wrong, and what to do.
#include <tools/commands/Tool.h>

#include <Storage/SqliteStorage.h>

#include <support/Named.h>

#include <cstring>
#include <utility>

namespace {

using Words = std::vector<std::string>;

struct Wrong {
    char const* meaning;
    Words words; // ~ stands for the home folder
    int status;
    std::string told;
};

class Advice : public Tool, public testing::WithParamInterface<Wrong> {
protected:
    // A store that is none in the folder "broken", a product file that lacks something, a file that is no export.
    void SetUp() override
    {
        said({"set", "npsSendCount", "7"});
        m_home.write("broken/product-settings.sqlite", "not a store");
        m_home.write("product.json", R"({"vendorName": "V"})");
        m_home.write("in.json", "{}");
        m_home.write("there", "");
    }

    std::string filled(std::string text) const
    {
        for (auto const& [sign, meaning] : {std::pair("~", m_home.path().string())})
            for (std::size_t at = 0; (at = text.find(sign, at)) != std::string::npos;)
                text.replace(at, std::strlen(sign), meaning);
        return text;
    }
};

TEST_P(Advice, TellsWhatIsWrongAndWhatToDo)
{
    Words words;
    for (std::string const& word : GetParam().words)
        words.push_back(filled(word));
    EXPECT_EQ(refused(words, GetParam().status), filled("editor-settings: " + GetParam().told + '\n'));
    EXPECT_EQ(said({"list", "--set", "--plain"}), "npsSendCount\tint\tproduct\tset\t7\n") << "no is said, and something changed";
}

std::string const forMore = "Run 'editor-settings --help' for more information.";
std::string helpOf(std::string const& verb) { return "Run 'editor-settings " + verb + " --help' for more information."; }
std::string const theVerbs =
    "The verbs are list, get, set, unset, explain, paths, next-name, project, backup, restore, monitor, doctor, studio, "
    "export, import, diff, completion, manual and help.\n";
std::string const kinds = "What follows next-name is one of audio, freeze and stabilized.\n";
std::string const nameAProduct = "\nName a product file with '--product FILE', or in EDITOR_SETTINGS_PRODUCT.";
std::string const lookAtTheStores =
    "\nRun 'editor-settings doctor' with the same options to see what is wrong; 'editor-settings restore FILE' brings a backup back.";
std::string const noStore = "~/broken/product-settings.sqlite: cannot open the store: file is not a database; the file was left as it is: "
                            "move it away and restore it from a backup";
std::string const notExpected = "The following argument was not expected: ";

INSTANTIATE_TEST_SUITE_P(
    Words, Advice,
    testing::Values(
        Wrong{"MistypedVerb",
              {"lst"},
              2,
              notExpected + "lst\nDid you mean list? 'editor-settings list --help' shows how it is used.\n" + theVerbs + forMore},
        Wrong{"VerbInAnotherCase",
              {"Doctor"},
              2,
              notExpected + "Doctor\nDid you mean doctor? 'editor-settings doctor --help' shows how it is used.\n" + theVerbs + forMore},
        Wrong{"PartOfAVerb",
              {"back"},
              2,
              notExpected + "back\nDid you mean backup? 'editor-settings backup --help' shows how it is used.\n" + theVerbs + forMore},
        Wrong{"VerbBetweenTwo",
              {"jet"},
              2,
              notExpected + "jet\nDid you mean get or set? 'editor-settings get --help' shows how it is used.\n" + theVerbs + forMore},
        Wrong{"VerbLikeNone", {"forget"}, 2, notExpected + "forget\n" + theVerbs + forMore},
        Wrong{"NoVerb", {}, 2, "A verb is required\n" + theVerbs + forMore},
        Wrong{"OptionLikeNoneBeforeAVerb", {"--loud"}, 2, notExpected + "--loud\n" + theVerbs + forMore},
        Wrong{"MistypedKindOfName",
              {"next-name", "frieze", "x"},
              2,
              "A subcommand is required\nDid you mean freeze? 'editor-settings next-name freeze --help' shows how it is used.\n" + kinds +
                  helpOf("next-name")},
        Wrong{"MistypedOption", {"list", "--plan"}, 2, notExpected + "--plan\nDid you mean --plain?\n" + helpOf("list")},
        Wrong{"OptionBetweenTwo", {"list", "--uset"}, 2, notExpected + "--uset\nDid you mean --set or --unset?\n" + helpOf("list")},
        Wrong{"OptionBeforeAWordBeforeTheVerb",
              {"--plain", "s*", "list"},
              2,
              "The following arguments were not expected: --plain s*\nPut --plain behind 'editor-settings list'.\n" + helpOf("list")},
        Wrong{"OptionLikeNone", {"list", "--elsewhere"}, 2, notExpected + "--elsewhere\n" + helpOf("list")},
        Wrong{"MistypedOptionWithAValue",
              {"list", "--stor=product"},
              2,
              notExpected + "--stor=product\nDid you mean --store?\n" + helpOf("list")},
        Wrong{"MistypedOptionForAll",
              {"--produkt", "x", "list"},
              2,
              "The following arguments were not expected: --produkt x\nDid you mean --product?\n" + helpOf("list")},
        Wrong{"WordTooMany", {"unset", "exportPath", "x"}, 2, notExpected + "x\n" + helpOf("unset")},
        Wrong{"KeyAndValueInOneWord",
              {"set", "npsSendCount=8"},
              2,
              "key and value are two words: 'editor-settings set npsSendCount 8'\n" + helpOf("set")},
        Wrong{"ValueWithABlankInOneWord",
              {"set", "exportPath=a b"},
              2,
              "key and value are two words: 'editor-settings set exportPath 'a b''\n" + helpOf("set")},
        Wrong{"EmptyValueInOneWord",
              {"set", "exportPath="},
              2,
              "key and value are two words: 'editor-settings set exportPath '''\n" + helpOf("set")},
        Wrong{"ResetForUnset",
              {"reset"},
              2,
              notExpected + "reset\nDid you mean unset? 'editor-settings unset --help' shows how it is used.\n" + theVerbs + forMore},
        Wrong{"DeleteForUnset",
              {"delete"},
              2,
              notExpected + "delete\nDid you mean unset? 'editor-settings unset --help' shows how it is used.\n" + theVerbs + forMore},
        Wrong{"RemoveForUnset",
              {"remove"},
              2,
              notExpected + "remove\nDid you mean unset? 'editor-settings unset --help' shows how it is used.\n" + theVerbs + forMore},
        Wrong{"NoKey", {"get"}, 2, "KEY is required\n" + helpOf("get")},
        Wrong{"NoValue", {"set", "npsSendCount"}, 2, "VALUE is required\n" + helpOf("set")},
        Wrong{"WrongStore", {"list", "--store", "third"}, 2, "--store: third not in {product,common}\n" + helpOf("list")},
        Wrong{"WrongClass", {"export", "-", "--only", "x"}, 2, "--only: x not in {roaming,local,personal,transient}\n" + helpOf("export")},
        Wrong{"WrongShell", {"completion", "csh"}, 2, "SHELL: csh not in {bash,zsh,fish}\n" + helpOf("completion")},
        Wrong{"WrongColor", {"--color", "red", "list"}, 2, "--color: red not in {auto,always,never}\n" + helpOf("list")}),
    byMeaning);

INSTANTIATE_TEST_SUITE_P(
    Keys, Advice,
    testing::Values(Wrong{"PatternForAKey",
                          {"get", "*Path"},
                          1,
                          "'*Path' is a pattern and no preference; 'editor-settings list PATTERN' takes patterns"},
                    Wrong{"MistypedKey",
                          {"get", "exprtPath"},
                          1,
                          "there is no preference 'exprtPath'; did you mean exportPath? 'editor-settings list' shows all"},
                    Wrong{"KeyLikeNone",
                          {"set", "nothing", "x"},
                          1,
                          "there is no preference 'nothing'; 'editor-settings list' shows all; a key of the host's own is declared in "
                          "\"ownKeys\" of the product file, see editor-settings-product(5)"},
                    Wrong{"LocationForAKey",
                          {"get", "productDataPath"},
                          1,
                          "productDataPath is a location and no preference; 'editor-settings paths productDataPath' shows it"},
                    Wrong{"MistypedLocation",
                          {"paths", "exprtPath"},
                          1,
                          "there is no location 'exprtPath'; did you mean exportPath? 'editor-settings paths' shows all"},
                    Wrong{"LocationWithoutArgument",
                          {"paths", "notificationFile"},
                          1,
                          "say what notificationFile is asked about: 'editor-settings paths notificationFile finish' or 'error'"},
                    Wrong{"WordForANumber",
                          {"set", "npsSendCount", "many"},
                          1,
                          "npsSendCount is an int and cannot be 'many'; give a whole number from -2147483648 to 2147483647"},
                    Wrong{"WordForABool",
                          {"set", "autoUpdate", "maybe"},
                          1,
                          "autoUpdate is a bool and cannot be 'maybe'; give true or false (or yes, no, on, off, 1, 0)"},
                    Wrong{"WordForBytes",
                          {"set", "mainWindowState", "a*b"},
                          1,
                          "mainWindowState holds bytes and cannot be 'a*b'; give the bytes in base64, with its padding, or @FILE to read "
                          "them from a file"},
                    Wrong{"EmptyElement",
                          {"set", "userCustomColors", "a", ""},
                          1,
                          "userCustomColors is a list and cannot be ''; an empty element is lost when the list is read back; leave it out "
                          "(--empty stores an empty list)"},
                    Wrong{"TwoValuesForOne",
                          {"set", "npsSendCount", "1", "2"},
                          1,
                          "npsSendCount takes one value, not 2; put quotes around a value with blanks"},
                    Wrong{"FileOfAValue",
                          {"set", "lastTarget", "--from-file", "/no/such"},
                          1,
                          "lastTarget: cannot read '/no/such' (No such file or directory); name a file that can be read"}),
    byMeaning);

INSTANTIATE_TEST_SUITE_P(
    Stores, Advice,
    testing::Values(
        Wrong{"StoreThatIsNoneToRead", {"--home", "~/broken", "list"}, 1, noStore + lookAtTheStores},
        Wrong{"StoreThatIsNoneToChange", {"--home", "~/broken", "set", "npsSendCount", "1"}, 1, noStore + lookAtTheStores},
        Wrong{"StoreThatIsNoneToBackUp", {"--home", "~/broken", "backup", "~/new"}, 1, noStore + lookAtTheStores},
        Wrong{"StoreThatIsNoneToExport", {"--home", "~/broken", "export", "-"}, 1, noStore + lookAtTheStores},
        Wrong{"FolderOfAStore",
              {"--home", "/dev/null/x", "set", "npsSendCount", "1"},
              1,
              "/dev/null/x: cannot create the folder: Not a directory; make the file and its folder readable and writable for this user" +
                  lookAtTheStores},
        Wrong{"BackupOverAFile",
              {"backup", "~/there"},
              1,
              "~/there: cannot write the backup: it is there already; name a new file, or move that one away"},
        Wrong{"BackupThatIsNone",
              {"restore", "~/in.json"},
              1,
              "~/in.json: cannot read the backup: file is not a database; name another backup; this one was left as it is"},
        Wrong{"NothingToBackUp", {"--home", "~/empty", "backup", "~/new"}, 1, "there is no store yet, so there is nothing to back up"},
        Wrong{"ExportOverAFile",
              {"export", "~/there"},
              1,
              "'~/there' is there already and was left as it is; name a new file, or move that one away"},
        Wrong{"ExportWhereNoFileCanBe",
              {"export", "/dev/null/x"},
              1,
              "/dev/null/x: cannot write the export: Not a directory; make the file and its folder readable and writable for this user"},
        Wrong{"NoFileToImport",
              {"import", "~/missing"},
              1,
              "cannot read '~/missing' (No such file or directory); name a file that can be read, or give - for standard input"},
        Wrong{"NoExportToImport",
              {"import", "~/in.json"},
              1,
              "'~/in.json': format is missing, so this is no export of settings; give a file that 'editor-settings export' made; nothing "
              "was changed"},
        Wrong{"NoExportToCompare",
              {"diff", "~/in.json"},
              2,
              "'~/in.json': format is missing, so this is no export of settings; give a file that 'editor-settings export' made"}),
    byMeaning);

INSTANTIATE_TEST_SUITE_P(
    Products, Advice,
    testing::Values(Wrong{"MissingProductFile",
                          {"--product", "/no/such.json", "list"},
                          1,
                          "product file /no/such.json cannot be read (No such file or directory); check its name and "
                          "rights, or name another product file" +
                              nameAProduct},
                    Wrong{"ProductFileThatLacksAField",
                          {"--product", "~/product.json", "list"},
                          1,
                          "product file ~/product.json has no field \"productName\"; the fields are vendorName, "
                          "productName, sharedDataFolderName, productKind, projectFileExtensions, resourcesRoot, studio, ownKeys" +
                              nameAProduct},
                    Wrong{"ProductFileThatIsNoJson",
                          {"--product", "~/there", "list"},
                          1,
                          "product file ~/there is not JSON: parse error at line 1, column 1: syntax error while "
                          "parsing value - unexpected end of input; expected '[', '{', or a literal" +
                              nameAProduct}),
    byMeaning);

TEST_F(Advice, WordWithoutWildcardsLeadsToAPattern)
{
    Ended const listed = tool({"list", "Path", "--plain"});
    EXPECT_EQ(listed.status, 0);
    EXPECT_EQ(listed.out, "");
    EXPECT_EQ(listed.err, "editor-settings: no key is 'Path'; 'editor-settings list '*Path*'' shows those that hold it\n");
    EXPECT_EQ(tool({"list", "PATH"}).err, "editor-settings: no key is 'PATH'; 'editor-settings list '*Path*'' shows those that hold it\n");
    EXPECT_EQ(tool({"list", "anything"}).err, "editor-settings: no key is 'anything', and none holds it\n");
    EXPECT_EQ(said({"list", "exportPath", "--set", "--plain"}), "") << "a key, though not stored";
    EXPECT_EQ(said({"list", "nothing*", "--plain"}), "");
}

} // namespace
