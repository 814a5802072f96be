// SPDX-License-Identifier: MIT
#include "Tool.h"

#include <Storage/SqliteStorage.h>

#include <support/Json.h>
#include <support/Named.h>
#include <support/OtherProgram.h>
#include <support/Table.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

namespace {

// --- Values that stay ---

TEST_F(Tool, ValueIsReadByTheNextProcess)
{
    EXPECT_EQ(said({"set", "exportPath", inHome("x")}), "");
    EXPECT_EQ(said({"get", "exportPath"}), inHome("x") + '\n');
    EXPECT_EQ(Storage::SqliteStorage(productFile()).getString("exportPath", ""), inHome("x"));
}

struct Kept {
    char const* meaning;
    char const* key;
    std::vector<std::string> given;
    char const* printed;
};

class KeptValue : public Tool, public testing::WithParamInterface<Kept> {};

TEST_P(KeptValue, IsPrintedAsItWasGiven)
{
    std::vector<std::string> arguments = {"set", GetParam().key};
    arguments.insert(arguments.end(), GetParam().given.begin(), GetParam().given.end());
    said(arguments);
    EXPECT_EQ(said({"get", GetParam().key}), GetParam().printed);
}

INSTANTIATE_TEST_SUITE_P(
    Table, KeptValue,
    testing::Values(Kept{"True", "quizAgreementChecked", {"true"}, "true\n"}, Kept{"Number", "npsSendCount", {"42"}, "42\n"},
                    Kept{"NegativeNumber", "npsSendCount", {"-5"}, "-5\n"}, Kept{"Text", "lastTarget", {"a text"}, "a text\n"},
                    Kept{"EmptyText", "lastTarget", {""}, "\n"},
                    Kept{"TextBeyondAscii", "lastTarget", {"\xC3\xBC\xE2\x82\xAC"}, "\xC3\xBC\xE2\x82\xAC\n"},
                    Kept{"TextInBrackets", "lastTarget", {"[a,b]"}, "[a,b]\n"}, Kept{"TextWithLineBreak", "lastTarget", {"a\nb"}, "a\nb\n"},
                    Kept{"TextWithControlCharacter", "lastTarget", {"\x1f[x]"}, "\x1f[x]\n"},
                    Kept{"TextThatEndsAVerb", "lastTarget", {"++"}, "++\n"},
                    Kept{"ListWithAWordThatEndsAVerb", "userCustomColors", {"a", "++", "b"}, "a\n++\nb\n"},
                    Kept{"TextLikeAnOption", "lastTarget", {"--", "--json"}, "--json\n"},
                    Kept{"TextLikeAFileName", "lastTarget", {"@file"}, "@file\n"}, Kept{"Bytes", "mainWindowState", {"AP8="}, "AP8=\n"},
                    Kept{"List", "userCustomColors", {"#fff", "a b", "[c,d]"}, "#fff\na b\n[c,d]\n"},
                    Kept{"EmptyList", "userCustomColors", {"--empty"}, ""}),
    byMeaning);

TEST_F(Tool, BytesAreReadFromAFile)
{
    std::filesystem::path const file = m_home.write("state", std::string("\x00\xFFraw\n", 6));
    said({"set", "mainWindowState", "@" + file.string()});
    EXPECT_EQ(said({"get", "mainWindowState"}), "AP9yYXcK\n");
    said({"set", "mainWindowState", "@" + m_home.write("empty", "").string()});
    EXPECT_EQ(said({"get", "mainWindowState"}), "\n");
    EXPECT_EQ(Storage::SqliteStorage(productFile()).find("mainWindowState")->kind, "bytes");
}

TEST_F(Tool, UnsetBringsTheDefaultBack)
{
    said({"set", "npsSendCount", "3"});
    EXPECT_EQ(said({"unset", "npsSendCount"}), "");
    EXPECT_EQ(said({"get", "npsSendCount"}), "0\n");
    EXPECT_FALSE(Storage::SqliteStorage(productFile()).contains("npsSendCount"));
    Ended const again = tool({"unset", "npsSendCount"});
    EXPECT_EQ(again.status, 0);
    EXPECT_EQ(again.err, "editor-settings: npsSendCount was not set\n");
}

// --- Values that the editor cannot use ---

struct Doubtful {
    char const* meaning;
    char const* key;
    std::string value; // ~~ stands for the home folder
    std::string reason;
    char const* accepted;
};

class DoubtfulValue : public Tool, public testing::WithParamInterface<Doubtful> {
protected:
    std::string filled(std::string text) const
    {
        for (std::size_t at = 0; (at = text.find("~~", at)) != std::string::npos;)
            text.replace(at, 2, m_home.path().string());
        return text;
    }

    std::string told(std::string const& consequence) const
    {
        return "editor-settings: " + std::string(GetParam().key) + ": the editor cannot use '" + filled(GetParam().value) +
               "': " + filled(GetParam().reason) + "; " + consequence + "; give " + GetParam().accepted + '\n';
    }
};

TEST_P(DoubtfulValue, IsStoredWithAWarningAndRefusedOnRequest)
{
    m_home.write("file", "");
    std::string const value = filled(GetParam().value);
    EXPECT_EQ(refused({"set", GetParam().key, value, "--strict"}), told("nothing was stored"));
    EXPECT_EQ(said({"list", "--set", "--plain"}), "");
    Ended const set = tool({"set", GetParam().key, value});
    EXPECT_EQ(set.status, 0);
    EXPECT_EQ(set.err, told("it is stored all the same"));
    EXPECT_EQ(said({"get", GetParam().key}), value + '\n');
}

std::string const onlyAShell = "only a shell replaces ~, and only outside quotes";
std::string const notAbsolute = "not absolute: it depends on the folder that the editor is started in";
char const* const aFolder = "the absolute path of a folder";

INSTANTIATE_TEST_SUITE_P(Table, DoubtfulValue,
                         testing::Values(Doubtful{"QuotedHome", "exportPath", "~/Films", onlyAShell, aFolder},
                                         Doubtful{"QuotedHomeToRead", "lastAddVideoPath", "~/Films", onlyAShell, aFolder},
                                         Doubtful{"Relative", "projectPath", "films", notAbsolute, aFolder},
                                         Doubtful{"RelativeToRead", "lastAddMediaPath", "films", notAbsolute, aFolder},
                                         Doubtful{"Empty", "snapshotPath", "", "empty", aFolder},
                                         Doubtful{"BelowAFile", "audioRecordPath", "~~/file/x", "missing, and ~~/file is not a folder",
                                                  aFolder},
                                         Doubtful{"FileFormat", "freezedFileFormat", "jpg", "the library has no such name", "png"},
                                         Doubtful{"FormatOfAnotherKind", "audioRecordFormat", "png", "the library has no such name", "wav"},
                                         Doubtful{"Codec", "audioRecordCodec", "mp3", "the library has no such name", "pcm_s16le"}),
                         byMeaning);

TEST_F(Tool, FolderWithoutRightIsWarnedOf)
{
    std::filesystem::create_directories(inHome("closed"));
    std::filesystem::create_directories(inHome("stores"));
    std::filesystem::permissions(inHome("closed"), std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec);
    Ended const set = run(withoutPrivileges({TOOL, "--home", inHome("stores"), "set", "exportPath", inHome("closed/films")}));
    std::filesystem::permissions(inHome("closed"), std::filesystem::perms::owner_all);
    EXPECT_EQ(set.status, 0);
    EXPECT_EQ(set.err, "editor-settings: exportPath: the editor cannot use '" + inHome("closed/films") + "': missing, and " +
                           inHome("closed") + " is not writable; it is stored all the same; give the absolute path of a folder\n");
}

TEST_F(Tool, UsableValuesAreStoredWithoutAWord)
{
    EXPECT_EQ(said({"set", "exportPath", inHome("missing/films"), "--strict"}), "") << "the editor can make it";
    EXPECT_EQ(said({"set", "lastAddVideoPath", "/no/such/folder", "--strict"}), "") << "the editor only starts there";
    EXPECT_EQ(said({"set", "lastAddVideoPath", "", "--strict"}), "");
    EXPECT_EQ(said({"set", "audioRecordFormat", "wav", "--strict"}), "");
    EXPECT_EQ(said({"set", "lastTarget", "~", "--strict"}), "") << "no folder";
}

// --- Limits of the system ---

TEST_F(Tool, LimitOfFileSizesIsToldAsAFullDisk)
{
    Ended const set = run({"sh", "-c", "ulimit -f 1; exec \"$0\" set npsSendCount 1", TOOL});
    ASSERT_EQ(set.status, 1) << set.err;
    EXPECT_EQ(lines(set.err).front(),
              "editor-settings: " + commonFile() + ": cannot create the store: File too large; free some space on the disk and try again");
}

#ifndef UNDER_ADDRESS_SANITIZER // the sanitizer needs a descriptor itself
TEST_F(Tool, LackOfDescriptorsIsTold)
{
    said({"set", "npsSendCount", "1"});
    int told = 0;
    // Below some number the program itself cannot be loaded, and from some number on it has enough.
    for (int limit = 4; limit < 16; ++limit) {
        Ended const got = run({"sh", "-c", "ulimit -n " + std::to_string(limit) + "; exec \"$0\" list", TOOL});
        if (got.status == 1)
            told += lines(got.err).front() == "editor-settings: " + productFile() +
                                                  ": cannot open the store: Too many open files; close some files or programs, or raise "
                                                  "the limit of open files";
        EXPECT_EQ(got.err.find("make the file"), std::string::npos) << got.err;
    }
    EXPECT_GE(told, 1);
}
#endif

// --- Errors ---

struct Refused {
    char const* meaning;
    std::vector<std::string> arguments;
    std::string reason;
};

class RefusedCommand : public Tool, public testing::WithParamInterface<Refused> {};

TEST_P(RefusedCommand, TellsWhatIsAcceptedAndChangesNothing)
{
    said({"set", "npsSendCount", "7"});
    said({"set", "userCustomColors", "kept"});
    EXPECT_EQ(refused(GetParam().arguments), "editor-settings: " + GetParam().reason + '\n');
    EXPECT_EQ(said({"list", "--set", "--plain"}), "npsSendCount\tint\tproduct\tset\t7\nuserCustomColors\tlist\tproduct\tset\t[\"kept\"]\n");
}

std::string const wholeNumber = "give a whole number from -2147483648 to 2147483647";
std::string const trueOrFalse = "give true or false (or yes, no, on, off, 1, 0)";
std::string const base64 = "give the bytes in base64, with its padding, or @FILE to read them from a file";
std::string const utf8 = "give text in UTF-8 without a byte order mark, as anything else would not come back unchanged";

INSTANTIATE_TEST_SUITE_P(
    Table, RefusedCommand,
    testing::Values(
        Refused{"WordForANumber", {"set", "npsSendCount", "many"}, "npsSendCount is an int and cannot be 'many'; " + wholeNumber},
        Refused{"NumberForABool", {"set", "keepVideoAspect", "2"}, "keepVideoAspect is a bool and cannot be '2'; " + trueOrFalse},
        Refused{
            "TwoNumbers", {"set", "npsSendCount", "1", "2"}, "npsSendCount takes one value, not 2; put quotes around a value with blanks"},
        Refused{"EmptyForANumber", {"set", "npsSendCount", "--empty"}, "npsSendCount takes one value, not 0; --empty is for lists"},
        Refused{"NotBase64", {"set", "mainWindowState", "a*b"}, "mainWindowState holds bytes and cannot be 'a*b'; " + base64},
        Refused{"MissingFile",
                {"set", "mainWindowState", "@/no/such/file"},
                "mainWindowState: cannot read '/no/such/file' (No such file or directory); name a file that can be read after the @"},
        Refused{"FolderForAFile",
                {"set", "mainWindowState", "@/"},
                "mainWindowState: cannot read '/' (Is a directory); name a file that can be read after the @"},
        Refused{"TextThatIsNotUtf8", {"set", "lastTarget", "a\xFF"}, "lastTarget is a text and cannot be 'a\\xff'; " + utf8},
        Refused{"EmptyElement",
                {"set", "userCustomColors", "a", ""},
                "userCustomColors is a list and cannot be ''; an empty element is lost when the list is read back; leave it out (--empty "
                "stores an empty list)"},
        Refused{"ElementWithTheSeparator",
                {"set", "userCustomColors", "a", "x|#|y"},
                "userCustomColors is a list and cannot be 'x|#|y'; the element holds the separator of stored lists and would come back in "
                "pieces"},
        Refused{"ElementsThatMakeTheSeparator",
                {"set", "userCustomColors", "a|#", "|b"},
                "userCustomColors is a list and cannot be '|b'; together with the element before it, it makes up the separator of stored "
                "lists and would come back differently"},
        Refused{"UnknownKey", {"get", "nothingLikeIt"}, "there is no preference 'nothingLikeIt'; 'editor-settings list' shows all"},
        Refused{"MistypedKey",
                {"get", "exprtPath"},
                "there is no preference 'exprtPath'; did you mean exportPath? 'editor-settings list' shows all"},
        Refused{"PartOfAKey",
                {"explain", "export"},
                "there is no preference 'export'; did you mean exportPath or quizExportUserId or npsStartExportCount? "
                "'editor-settings list' shows all"},
        Refused{"UnknownKeyToUnset",
                {"unset", "snapshtPath"},
                "there is no preference 'snapshtPath'; did you mean snapshotPath? 'editor-settings list' shows all"},
        Refused{"KeyWithALineBreak", {"get", "a\nb"}, "there is no preference 'a\\nb'; 'editor-settings list' shows all"},
        Refused{"ReservedKey",
                {"get", "stabilizedFileFormat"},
                "stabilizedFileFormat is reserved: the editor neither reads nor writes it, so it cannot be reached"}),
    byMeaning);

struct Usage {
    char const* meaning;
    std::vector<std::string> arguments;
};

class WrongUsage : public Tool, public testing::WithParamInterface<Usage> {};

TEST_P(WrongUsage, EndsWithStatusTwoAndTouchesNothing)
{
    std::string const reason = refused(GetParam().arguments, 2);
    EXPECT_NE(reason.find(" --help' for more information."), std::string::npos) << reason;
    EXPECT_FALSE(std::filesystem::exists(inHome(".local")));
}

INSTANTIATE_TEST_SUITE_P(Table, WrongUsage,
                         testing::Values(Usage{"NoVerb", {}}, Usage{"UnknownVerb", {"forget"}}, Usage{"NoKey", {"get"}},
                                         Usage{"NoValue", {"set", "npsSendCount"}}, Usage{"UnknownOption", {"list", "--loud"}},
                                         Usage{"TwoFormats", {"list", "--json", "--plain"}},
                                         Usage{"SetAndUnset", {"list", "--set", "--unset"}},
                                         Usage{"UnknownStore", {"list", "--store", "third"}},
                                         Usage{"ValueAndEmpty", {"set", "userCustomColors", "a", "--empty"}},
                                         Usage{"TwoKeys", {"unset", "a", "b"}}, Usage{"KeyAndValueInOneWord", {"set", "npsSendCount=7"}},
                                         Usage{"HelpOfNoVerb", {"help", "forget"}}, Usage{"EmptyHome", {"--home", "", "list"}},
                                         Usage{"EmptyProductFile", {"--product", "", "list"}}),
                         byMeaning);

// The one literal list of the verbs.
TEST_F(Tool, HelpListsTheVerbsInTheirOrder)
{
    EXPECT_EQ(verbs(),
              (std::vector<std::string>{"list", "get", "explain", "paths", "project", "set", "unset", "next-name", "backup", "restore",
                                        "export", "import", "diff", "monitor", "doctor", "studio", "completion", "manual", "help"}));
}

TEST_F(Tool, HelpOpensNoStore)
{
    std::string const help = said({"--help"});
    for (char const* word : {"--home", "--product", "--color", "--no-pager", "--version"})
        EXPECT_NE(help.find(word), std::string::npos) << word;
    EXPECT_NE(said({"set", "--help"}).find("base64"), std::string::npos);
    EXPECT_EQ(said({"--version"}), "1.0.0\n");
    EXPECT_FALSE(std::filesystem::exists(inHome(".local")));
}

TEST_F(Tool, HelpIsAVerbToo)
{
    EXPECT_EQ(said({"help"}), said({"--help"}));
    EXPECT_EQ(said({"help", "set"}), said({"set", "--help"}));
    EXPECT_EQ(said({"help", "studio", "set"}), said({"studio", "set", "--help"}));
    EXPECT_EQ(said({"help", "next-name", "audio"}), said({"next-name", "audio", "--help"}));
    EXPECT_EQ(lines(said({"help", "help"})).at(1), "Usage: editor-settings help [OPTIONS] [VERB] [BELOW]");
    for (char const* const verb : {"studio", "set"})
        EXPECT_EQ(refused({"help", verb, "mislay"}, 2), std::string("editor-settings: BELOW: mislay is no verb below ") + verb +
                                                            "\nRun 'editor-settings help --help' for more information.\n");
    EXPECT_EQ(lines(said({"help", "set"})).at(1), "Usage: editor-settings set [OPTIONS] KEY [VALUE...]");
}

TEST_F(Tool, HelpFitsAScreen)
{
    std::vector<std::vector<std::string>> helps = {{"--help"}};
    for (std::string const& verb : verbs()) {
        helps.push_back({verb, "--help"});
        for (std::string const& below : helpLists("Verbs", {verb}))
            helps.push_back({verb, below, "--help"});
    }
    ASSERT_EQ(helps.size(), 31u);
    for (std::vector<std::string> const& help : helps) {
        std::vector<std::string> const shown = lines(said(help));
        EXPECT_LE(shown.size(), 40u) << help.front();
        for (std::string const& line : shown)
            EXPECT_LE(line.size(), 80u) << help.front() << ": " << line;
    }
}

TEST_F(Tool, OptionsOfAVerbMayStandBeforeIt)
{
    EXPECT_EQ(said({"--json", "get", "npsSendCount"}), said({"get", "npsSendCount", "--json"}));
    EXPECT_EQ(said({"--store", "common", "--home", inHome("x"), "--plain", "list", "s*"}), "sendStatistics\tbool\tcommon\tunset\ttrue\n");
    EXPECT_EQ(said({"--store=common", "list", "--plain", "s*"}), "sendStatistics\tbool\tcommon\tunset\ttrue\n");
    EXPECT_EQ(parsed(said({"--json", "next-name", "freeze", "a.mov"})), parsed(said({"next-name", "freeze", "a.mov", "--json"})));
    std::string const withoutServer = refused({"studio", "status", "--plain"});
    EXPECT_EQ(withoutServer.find("editor-settings: no server is named; "), 0u) << withoutServer;
    EXPECT_EQ(refused({"--plain", "studio", "status"}), withoutServer);
    EXPECT_EQ(refused({"studio", "--plain", "status"}), withoutServer);
    EXPECT_EQ(tool({"--reserve", "list"}).status, 2) << "another verb's option";
    EXPECT_EQ(tool({"--plain", "s*", "list"}).status, 2) << "a word is not moved";
}

TEST_F(Tool, LookingMakesNoStore)
{
    for (std::vector<std::string> const& look : {std::vector<std::string>{"list"},
                                                 {"get", "exportPath"},
                                                 {"explain", "exportPath"},
                                                 {"unset", "exportPath"},
                                                 {"paths"},
                                                 {"next-name", "audio"},
                                                 {"project"},
                                                 {"doctor"},
                                                 {"get", "favorites_x"},
                                                 {"get", "achievedTutorials"},
                                                 {"export", "-"}})
        EXPECT_EQ(tool(look).status, 0) << look.front();
    EXPECT_FALSE(std::filesystem::exists(inHome(".local")));
    said({"set", "achievedTutorials", "one"});
    EXPECT_TRUE(std::filesystem::exists(productFile()));
}

TEST_F(Tool, ReadOnlyHomeIsLookedAt)
{
    std::filesystem::permissions(m_home.path(), std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec);
    Ended const got = run(withoutPrivileges({TOOL, "get", "npsSendCount"}));
    Ended const set = run(withoutPrivileges({TOOL, "set", "npsSendCount", "1"}));
    std::filesystem::permissions(m_home.path(), std::filesystem::perms::owner_all);
    EXPECT_EQ(got.out, "0\n");
    EXPECT_EQ(set.status, 1);
    EXPECT_NE(set.err.find("Permission denied"), std::string::npos) << set.err;
}

TEST_F(Tool, ControlCharactersOfWrongWordsAreEscaped)
{
    EXPECT_EQ(lines(refused({"\x1b[31mred"}, 2)).front(), "editor-settings: The following argument was not expected: \\x1b[31mred");
}

TEST_F(Tool, FullStandardOutputIsAnError)
{
    Ended const ended = run({"sh", "-c", "exec \"$0\" list > /dev/full", TOOL});
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.err, "editor-settings: cannot write to standard output: No space left on device\n");
    for (char const* words : {"--help", "manual", "completion bash"})
        EXPECT_EQ(run({"sh", "-c", std::string("exec \"$0\" ") + words + " > /dev/full", TOOL}).status, 1) << words;
}

// --- Where the stores lie ---

TEST_F(Tool, StoresLieWithProductAndVendorUnlessTheyAreNamed)
{
    said({"set", "npsSendCount", "1"});
    said({"set", "autoUpdate", "false"});
    EXPECT_EQ(Storage::SqliteStorage(productFile()).rows().size(), 1u);
    EXPECT_EQ(Storage::SqliteStorage(commonFile()).rows().size(), 1u);

    said({"--home", inHome("one"), "set", "npsSendCount", "2"});
    EXPECT_EQ(Storage::SqliteStorage(inHome("one/product-settings.sqlite")).getInt("npsSendCount", 0), 2);
    EXPECT_EQ(tool({"get", "npsSendCount"}, {{"EDITOR_SETTINGS_HOME", inHome("one")}}).out, "2\n");
    EXPECT_EQ(tool({"--home", inHome("two"), "get", "npsSendCount"}, {{"EDITOR_SETTINGS_HOME", inHome("one")}}).out, "0\n")
        << "the option wins";
    EXPECT_EQ(said({"get", "npsSendCount"}), "1\n");
    EXPECT_EQ(said({"get", "npsSendCount", "--home", inHome("one")}), "2\n") << "the option may stand behind the verb";
    EXPECT_EQ(tool({"get", "npsSendCount"}, {{"EDITOR_SETTINGS_HOME", ""}}).out, "1\n") << "an empty variable is none";
}

TEST_F(Tool, StoreThatIsNoneIsNamedAndKept)
{
    std::filesystem::path const file = m_home.write("broken/product-settings.sqlite", "not a store");
    EXPECT_EQ(refused({"--home", inHome("broken"), "set", "npsSendCount", "1"}),
              "editor-settings: " + file.string() +
                  ": cannot open the store: file is not a database; the file was left as it is: move it away and restore it from a backup\n"
                  "Run 'editor-settings doctor' with the same options to see what is wrong; 'editor-settings restore FILE' brings a backup "
                  "back.\n");
    EXPECT_EQ(std::filesystem::file_size(file), 11u);
}

TEST_F(Tool, ProductFileDecidesTheFolders)
{
    std::filesystem::path const file = m_home.write("product.json", R"({"vendorName": "V", "productName": "P", "sharedDataFolderName": "S",
        "productKind": 1, "projectFileExtensions": ["p"], "resourcesRoot": "."})");
    said({"--product", file.string(), "set", "npsSendCount", "1"});
    EXPECT_EQ(said({"--product", file.string(), "get", "waveformCachePath"}), inHome(".local/share/V/SharedData/S/Waveforms/Cache") + '\n');
    EXPECT_EQ(said({"--product", file.string(), "get", "exportPath"}), inHome("Videos/Lumora Video Editor") + '\n');
    EXPECT_TRUE(std::filesystem::exists(inHome(".local/share/V/P/product-settings.sqlite")));
    EXPECT_EQ(tool({"get", "exportPath"}, {{"EDITOR_SETTINGS_PRODUCT", file.string()}}).out, inHome("Videos/Lumora Video Editor") + '\n');
    EXPECT_EQ(
        refused({"--product", file.string(), "set", "targetHistory", "x"}),
        "editor-settings: targetHistory is kept in memory only by a product of this kind, so it cannot be set from outside the editor\n");
    EXPECT_EQ(said({"--product", file.string(), "list", "targetHistory", "--plain"}), "targetHistory\ttext\tmemory\tunset\t\n");
    EXPECT_EQ(parsed(said({"--product", file.string(), "explain", "targetHistory", "--json"}))["file"], json());
}

TEST_F(Tool, MissingProductFileIsNamed)
{
    EXPECT_EQ(refused({"--product", "/no/such.json", "list"}),
              "editor-settings: product file /no/such.json cannot be read (No such file "
              "or directory); check its name and rights, or name another product file\n"
              "Name a product file with '--product FILE', or in EDITOR_SETTINGS_PRODUCT.\n");
}

// --- list ---

TEST_F(Tool, ListHoldsEveryPreferenceSorted)
{
    std::vector<std::string> keys;
    for (PreferenceRow const& row : preferenceTable())
        if (row.hasAccessors())
            keys.push_back(row.key);
    std::sort(keys.begin(), keys.end());
    std::vector<std::string> listed;
    for (std::string const& line : lines(said({"list", "--plain"})))
        listed.push_back(line.substr(0, line.find('\t')));
    EXPECT_EQ(listed, keys);
}

TEST_F(Tool, ListHasAHeadingForPeople)
{
    said({"set", "npsSendCount", "7"});
    said({"set", "npsValueToSend", "-1"});
    EXPECT_EQ(said({"list", "nps*"}), "KEY\tTYPE\tSTORE\tSTATE\tVALUE\n"
                                      "npsCommentToSend\ttext\tproduct\tunset\t\n"
                                      "npsEmailToSend\ttext\tproduct\tunset\t\n"
                                      "npsReadyNotificationCount\tint\tproduct\tunset\t-1\n"
                                      "npsSendCount\tint\tproduct\tset\t7\n"
                                      "npsStartExportCount\tint\tproduct\tunset\t0\n"
                                      "npsValueToSend\tint\tproduct\tset to default\t-1\n");
}

TEST_F(Tool, ListShortensLongValuesForPeopleOnly)
{
    std::string letters;
    for (int letter = 0; letter < 150; ++letter)
        letters += "\xC3\xA4";
    said({"set", "lastTarget", letters});
    EXPECT_EQ(said({"list", "lastTarget"}),
              "KEY\tTYPE\tSTORE\tSTATE\tVALUE\nlastTarget\ttext\tproduct\tset\t" + letters.substr(0, 2 * 119) + "\xE2\x80\xA6\n");
    EXPECT_EQ(said({"list", "lastTarget", "--plain"}), "lastTarget\ttext\tproduct\tset\t" + letters + '\n');
    said({"set", "lastTarget", letters.substr(0, 2 * 120)});
    EXPECT_EQ(said({"list", "lastTarget"}),
              "KEY\tTYPE\tSTORE\tSTATE\tVALUE\nlastTarget\ttext\tproduct\tset\t" + letters.substr(0, 2 * 120) + '\n');
}

TEST_F(Tool, ListShowsAListOnOneLine)
{
    said({"set", "userCustomColors", "#fff", "navy"});
    EXPECT_EQ(said({"list", "--set"}), "KEY\tTYPE\tSTORE\tSTATE\tVALUE\nuserCustomColors\tlist\tproduct\tset\t[\"#fff\",\"navy\"]\n");
    EXPECT_EQ(said({"list", "--set", "--plain"}), "userCustomColors\tlist\tproduct\tset\t[\"#fff\",\"navy\"]\n");
    EXPECT_EQ(said({"get", "userCustomColors", "--plain"}), "[\"#fff\",\"navy\"]\n");
    said({"set", "userCustomColors", "#fff\nnavy"});
    EXPECT_EQ(said({"get", "userCustomColors", "--plain"}), "[\"#fff\\nnavy\"]\n") << "one element with a line break is told from two";
}

TEST_F(Tool, PlainListKeepsOneRecordALine)
{
    said({"set", "lastTarget", "a\tb\nc\\d\re\x01"});
    EXPECT_EQ(said({"list", "lastTarget", "--plain"}), "lastTarget\ttext\tproduct\tset\ta\\tb\\nc\\\\d\\re\\x01\n");
    EXPECT_EQ(said({"get", "lastTarget", "--plain"}), "a\\tb\\nc\\\\d\\re\\x01\n");
}

TEST_F(Tool, ListIsNarrowedByStateAndStore)
{
    said({"set", "autoUpdate", "false"});
    said({"set", "npsSendCount", "0"});
    EXPECT_EQ(said({"list", "--set", "--plain"}), "autoUpdate\tbool\tcommon\tset\tfalse\nnpsSendCount\tint\tproduct\tset to default\t0\n");
    EXPECT_EQ(said({"list", "--store", "common", "--plain"}),
              "SUAutomaticallyUpdate\tbool\tcommon\tunset\tfalse\nautoUpdate\tbool\tcommon\tset\tfalse\n"
              "sendStatistics\tbool\tcommon\tunset\ttrue\n");
    EXPECT_EQ(said({"list", "s*", "--store", "common", "--unset", "--plain"}), "sendStatistics\tbool\tcommon\tunset\ttrue\n");
    EXPECT_EQ(lines(said({"list", "--store", "product", "--plain"})).size(), 52u);
    EXPECT_EQ(lines(said({"list", "--unset", "--plain"})).size(), 53u);
    EXPECT_EQ(said({"list", "nothing*", "--plain"}), "");
    EXPECT_EQ(said({"list", "[ab]u*", "--set", "--plain"}), "autoUpdate\tbool\tcommon\tset\tfalse\n");
}

TEST_F(Tool, ListAsJsonHasTypedValues)
{
    said({"set", "userCustomColors", "a", "b"});
    said({"set", "mainWindowState", "AP8="});
    json const list = parsed(said({"list", "--json"}));
    ASSERT_EQ(list.size(), 55u);
    std::map<std::string, json> byKey;
    for (json const& row : list)
        byKey[row["key"]] = row;
    EXPECT_EQ(
        byKey["userCustomColors"],
        parsed(
            R"({"key": "userCustomColors", "type": "list", "store": "product", "state": "set", "layer": "local", "value": ["a", "b"], "default": []})"));
    EXPECT_EQ(
        byKey["mainWindowState"],
        parsed(
            R"({"key": "mainWindowState", "type": "bytes", "store": "product", "state": "set", "layer": "local", "value": "AP8=", "default": ""})"));
    EXPECT_EQ(
        byKey["autoUpdate"],
        parsed(
            R"({"key": "autoUpdate", "type": "bool", "store": "common", "state": "unset", "layer": "default", "value": true, "default": true})"));
    EXPECT_EQ(byKey["npsValueToSend"]["value"], -1);
    EXPECT_EQ(byKey["exportPath"]["default"], inHome("Videos/Lumora Library"));
}

// --- get and explain ---

TEST_F(Tool, GetAsJsonTellsTheType)
{
    EXPECT_EQ(parsed(said({"get", "npsSendCount", "--json"})), parsed(R"({"key": "npsSendCount", "type": "int", "value": 0})"));
    said({"set", "userCustomColors", "a\nb"});
    EXPECT_EQ(parsed(said({"get", "userCustomColors", "--json"}))["value"], parsed(R"(["a\nb"])"));
}

TEST_F(Tool, GetOfSeveralKeysHasALineForEach)
{
    said({"set", "userCustomColors", "#fff", "navy"});
    EXPECT_EQ(said({"get", "npsSendCount", "userCustomColors"}), "npsSendCount\t0\nuserCustomColors\t[\"#fff\",\"navy\"]\n");
    EXPECT_EQ(said({"get", "userCustomColors", "npsSendCount", "--plain"}), "userCustomColors\t[\"#fff\",\"navy\"]\nnpsSendCount\t0\n");
    EXPECT_EQ(parsed(said({"get", "npsSendCount", "keepVideoAspect", "--json"})),
              parsed(R"([{"key": "npsSendCount", "type": "int", "value": 0}, {"key": "keepVideoAspect", "type": "bool", "value": true}])"));
    EXPECT_EQ(refused({"get", "npsSendCount", "nothingLikeIt"}),
              "editor-settings: there is no preference 'nothingLikeIt'; 'editor-settings list' shows all\n");
}

TEST_F(Tool, GetOpensTheStoreOfItsKeysAlone)
{
    said({"set", "npsSendCount", "7"});
    m_home.write(".local/share/Lumora/common-settings.sqlite", "not a store");
    EXPECT_EQ(said({"get", "npsSendCount"}), "7\n");
    EXPECT_EQ(said({"get", "Indication/x", "npsSendCount"}), "Indication/x\t\nnpsSendCount\t7\n");
    for (std::vector<std::string> const& words : {std::vector<std::string>{"get", "npsSendCount", "sendStatistics"},
                                                  {"get", "sendStatistics"},
                                                  {"get", "autoDownloadUpdates"},
                                                  {"get", "undeclared"}})
        EXPECT_EQ(refused(words).find("editor-settings: " + commonFile() + ": cannot open the store: file is not a database"), 0u)
            << words.back();
}

TEST_F(Tool, GetAnswersAsListDoes)
{
    said({"set", "npsSendCount", "7"});
    said({"set", "sendStatistics", "no"});
    for (char const* const store : {"product", "common"}) {
        std::vector<std::string> get = {"get", "--plain"};
        std::string values;
        for (std::string const& line : lines(said({"list", "--plain", "--store", store}))) {
            std::string const key = line.substr(0, line.find('\t'));
            get.push_back(key);
            values += key + line.substr(line.rfind('\t')) + '\n';
        }
        EXPECT_GT(get.size(), 4u);
        EXPECT_EQ(said(get), values);
    }
}

TEST_F(Tool, NameOfAGetterStandsForItsKey)
{
    EXPECT_EQ(said({"set", "autoDownloadUpdates", "yes"}), "");
    EXPECT_EQ(Storage::SqliteStorage(commonFile()).getBool("SUAutomaticallyUpdate", false), true);
    EXPECT_EQ(said({"get", "autoDownloadUpdates"}), "true\n");
    EXPECT_EQ(parsed(said({"get", "autoDownloadUpdates", "--json"}))["key"], "SUAutomaticallyUpdate");
    EXPECT_EQ(lines(said({"explain", "autoDownloadUpdates"})).front(), "key\tSUAutomaticallyUpdate");
    EXPECT_EQ(said({"unset", "autoDownloadUpdates"}), "");
    EXPECT_EQ(said({"list", "--set", "--plain"}), "");
    EXPECT_EQ(refused({"get", "setAutoDownloadUpdates"}),
              "editor-settings: there is no preference 'setAutoDownloadUpdates'; 'editor-settings list' shows all\n");
}

TEST_F(Tool, ExplainTellsWhatItIsForAndWhereAnUnsetValueComesFrom)
{
    EXPECT_EQ(said({"explain", "exportPath"}), "key\texportPath\n"
                                               "purpose\tFolder of exported films\n"
                                               "accepts\tthe absolute path of a folder\n"
                                               "getter\tSettings::exportPath\n"
                                               "setter\tSettings::setExportPath\n"
                                               "type\ttext (QString)\n"
                                               "class\tlocal\n"
                                               "store\tproduct\n"
                                               "file\t" +
                                                   productFile() +
                                                   "\n"
                                                   "state\tunset\n"
                                                   "default\t" +
                                                   inHome("Videos/Lumora Library") +
                                                   "\n"
                                                   "computed by\tSettings::defaultLumoraLibraryPath()\n"
                                                   "value\t" +
                                                   inHome("Videos/Lumora Library") + '\n');
}

TEST_F(Tool, ExplainTellsWhatIsStoredAndSinceWhen)
{
    Storage::SqliteStorage(commonFile()).setBool("autoUpdate", false);
    OtherProgram(commonFile()).execute("UPDATE settings SET changed = 1795192853344");
    std::map<std::string, std::string> const tokyo = {{"TZ", "Asia/Tokyo"}};
    std::string const explained = tool({"explain", "autoUpdate", "--plain"}, tokyo).out;
    EXPECT_EQ(explained, "key\tautoUpdate\n"
                         "purpose\tWhether updates are looked for\n"
                         "accepts\ttrue or false (or yes, no, on, off, 1, 0)\n"
                         "getter\tSettings::autoUpdate\n"
                         "setter\tSettings::setCheckForUpdates\n"
                         "type\tbool\n"
                         "class\tlocal\n"
                         "store\tcommon\n"
                         "file\t" +
                             commonFile() +
                             "\n"
                             "state\tset\n"
                             "stored\tfalse\n"
                             "stored kind\tbool\n"
                             "changed\t2026-11-20T16:40:53.344Z\n"
                             "default\ttrue\n"
                             "computed by\tnothing: it is fixed\n"
                             "value\tfalse\n");
    EXPECT_EQ(lines(tool({"explain", "autoUpdate"}, tokyo).out).at(12), "changed\t2026-11-21 01:40:53") << "local, for people";
}

TEST_F(Tool, ListHasOneFaceEverywhere)
{
    said({"set", "userCustomColors", "#fff", "a \\ b"});
    std::string const face = R"(["#fff","a \\ b"])";
    EXPECT_EQ(said({"list", "userCustomColors"}), "KEY\tTYPE\tSTORE\tSTATE\tVALUE\nuserCustomColors\tlist\tproduct\tset\t" + face + '\n');
    EXPECT_EQ(said({"get", "userCustomColors", "--plain"}), face + '\n');
    std::string const explained = said({"explain", "userCustomColors"});
    EXPECT_NE(explained.find("\nstored\t" + face + "\nstored kind\tstring\n"), std::string::npos) << explained;
    EXPECT_NE(explained.find("\nvalue\t" + face + '\n'), std::string::npos) << explained;
    said({"export", inHome("settings.json")});
    said({"unset", "userCustomColors"});
    for (std::vector<std::string> words : {std::vector<std::string>{"diff"}, {"import", "--dry-run"}}) {
        words.insert(words.end(), {inHome("settings.json"), "--plain"});
        EXPECT_EQ(tool(words).out, "added\tproduct\tuserCustomColors\t\t\tstring\t" + face + '\n');
    }
    Storage::SqliteStorage(productFile()).setString("userCustomColors", "a|#||#|b");
    EXPECT_NE(said({"explain", "userCustomColors"}).find("\nstored\ta|#||#|b\n"), std::string::npos) << "a list that is read as another";
}

TEST_F(Tool, ExplainGivesTheTimeInUtc)
{
    said({"set", "npsSendCount", "1"});
    OtherProgram(productFile()).execute("UPDATE settings SET changed = 1795192853344");
    EXPECT_EQ(parsed(tool({"explain", "npsSendCount", "--json"}, {{"TZ", "Asia/Tokyo"}}).out)["stored"]["changed"],
              "2026-11-20T16:40:53.344Z");
}

TEST_F(Tool, ExplainAsJsonTellsAll)
{
    said({"set", "snapshotPath", inHome("s")});
    json explained = parsed(said({"explain", "snapshotPath", "--json"}));
    EXPECT_EQ(explained["stored"]["changed"].get<std::string>().size(), 24u);
    explained["stored"].erase("changed");
    json expected = parsed(R"({"key": "snapshotPath", "purpose": "Folder of snapshots", "accepts": "the absolute path of a folder",
        "getter": "Settings::snapshotPath", "setter": "Settings::setSnapshotPath", "type": "text", "cppType": "QString", "class": "local", "store": "product",
        "state": "set", "layer": "local", "by": null, "covers": [],
        "stored": {"kind": "string", "value": null}, "default": {"computedBy": "Settings::defaultLumoraLibraryPath"}})");
    expected["file"] = productFile();
    expected["value"] = expected["stored"]["value"] = inHome("s");
    expected["default"]["value"] = inHome("Videos/Lumora Library");
    EXPECT_EQ(explained, expected);
    EXPECT_EQ(parsed(said({"explain", "npsSendCount", "--json"}))["stored"], json());
    EXPECT_EQ(parsed(said({"explain", "npsSendCount", "--json"}))["default"]["computedBy"], json());
}

TEST_F(Tool, ValueOfAnotherKindIsToldAndNotLost)
{
    {
        Storage::SqliteStorage store(productFile());
        store.setString("npsSendCount", "many");
        store.setBytes("exportPath", {0, 255});
        store.setString("quizAgreementChecked", "false");
    }
    EXPECT_EQ(said({"list", "--set", "--plain"}),
              "exportPath\ttext\tproduct\tother kind\t" + inHome("Videos/Lumora Library") +
                  "\nnpsSendCount\tint\tproduct\tother kind\t0\nquizAgreementChecked\tbool\tproduct\tother kind\tfalse\n");
    Ended const got = tool({"get", "npsSendCount"});
    EXPECT_EQ(got.status, 0);
    EXPECT_EQ(got.out, "0\n");
    EXPECT_EQ(got.err, "editor-settings: npsSendCount holds a value of kind string, so the default is read; 'editor-settings explain "
                       "npsSendCount' shows both\n");
    json const stored = parsed(said({"explain", "exportPath", "--json"}))["stored"];
    EXPECT_EQ(stored["kind"], "bytes");
    EXPECT_EQ(stored["value"], "AP8=");
    EXPECT_NE(said({"explain", "npsSendCount"}).find("\nstored\tmany\nstored kind\tstring\n"), std::string::npos);
    EXPECT_EQ(Storage::SqliteStorage(productFile()).getString("npsSendCount", ""), "many");
}

TEST_F(Tool, ValueThatDoesNotFitItsKindIsToldToo)
{
    said({"set", "npsSendCount", "1"});
    OtherProgram(productFile()).execute("UPDATE settings SET value = 'zz'");
    EXPECT_EQ(said({"list", "--set", "--plain"}), "npsSendCount\tint\tproduct\tunreadable\t0\n");
    Ended const got = tool({"get", "npsSendCount"});
    EXPECT_EQ(got.out, "0\n");
    EXPECT_EQ(got.err, "editor-settings: npsSendCount holds a value of kind int that cannot be read, so the default is read; "
                       "'editor-settings explain npsSendCount' shows both\n");
}

TEST_F(Tool, RowOfALaterVersionIsShownAsUnreadable)
{
    said({"set", "npsSendCount", "1"});
    OtherProgram(productFile()).execute("UPDATE settings SET kind = 'date', value = '2030-01-01'");
    EXPECT_NE(said({"explain", "npsSendCount"}).find("\nstored\t(unreadable)\nstored kind\tdate\n"), std::string::npos);
    EXPECT_EQ(parsed(said({"explain", "npsSendCount", "--json"}))["stored"]["value"], json());
}

} // namespace
