// SPDX-License-Identifier: MIT
//
// The verbs that carry stored values from one place to another: what an export holds, what an import takes and what it
// leaves as it is, and how the two differ.
#include <tools/commands/Tool.h>

#include <support/Documents.h>
#include <support/Json.h>
#include <support/Named.h>
#include <support/OtherProgram.h>
#include <support/Patterns.h>

#include <fstream>
#include <thread>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using Storage::SqliteStorage;

std::string fileContent(std::string const& name)
{
    std::ifstream file(name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

class Exchange : public Tool {
protected:
    std::string file(std::string const& content) const { return m_home.write("in.json", content).string(); }
    std::string productFileIn(char const* home) const { return inHome(home) + "/product-settings.sqlite"; }
    std::string commonFileIn(char const* home) const { return inHome(home) + "/common-settings.sqlite"; }

    // What an import says that must succeed and prints nothing.
    std::string imported(std::vector<std::string> const& arguments)
    {
        std::vector<std::string> command = {"import"};
        command.insert(command.end(), arguments.begin(), arguments.end());
        Ended const ended = tool(command);
        EXPECT_EQ(ended.status, 0);
        EXPECT_EQ(ended.out, "");
        return ended.err;
    }

    // An export to standard output, with a time that does not change.
    std::string exported(std::vector<std::string> const& options = {})
    {
        std::vector<std::string> command = {"export", "-"};
        command.insert(command.end(), options.begin(), options.end());
        return replaced(said(command), "\"made\": \"20..-..-..T..:..:..\\....Z\"", "\"made\": \"NOW\"");
    }
};

// --- The document ---

TEST_F(Exchange, ExportHasALineForEachValueSortedByKey)
{
    put(productFile(), {{"exportPath", std::string("/films")},
                        {"npsSendCount", -3},
                        {"npsEmailToSend", std::string("jane@example.com")},
                        {"keepVideoAspect", true},
                        {"Indication/x", Bytes{0, 255}},
                        {"favorites_fonts", std::string("Verdana|#|Arial")},
                        {"stabilizedFileFormat", std::string("mp4")},
                        {"somebody else's", std::string("\"kept\"\n")}});
    put(commonFile(), {{"autoUpdate", false}});
    EXPECT_EQ(exported(), R"({
  "format": "editor-settings export",
  "version": 1,
  "made": "NOW",
  "product": "Lumora Video Editor",
  "stores": {
    "product": {
      "Indication/x": {"kind": "bytes", "class": "transient", "value": "AP8="},
      "exportPath": {"kind": "string", "class": "local", "value": "/films"},
      "favorites_fonts": {"kind": "string", "class": "roaming", "value": "Verdana|#|Arial"},
      "keepVideoAspect": {"kind": "bool", "class": "roaming", "value": true},
      "npsEmailToSend": {"kind": "string", "class": "personal", "value": "jane@example.com"},
      "npsSendCount": {"kind": "int", "class": "transient", "value": -3},
      "somebody else's": {"kind": "string", "class": null, "value": "\"kept\"\n"},
      "stabilizedFileFormat": {"kind": "string", "class": null, "value": "mp4"}
    },
    "common": {
      "autoUpdate": {"kind": "bool", "class": "local", "value": false}
    }
  }
}
)");
}

TEST_F(Exchange, NothingStoredIsAnExportToo)
{
    std::string const nothing = exported();
    EXPECT_NE(nothing.find("  \"stores\": {\n    \"product\": {},\n    \"common\": {}\n  }\n}\n"), std::string::npos) << nothing;
    EXPECT_EQ(imported({file(nothing)}), "editor-settings: 0 changed, 0 already as in the file\n");
    EXPECT_FALSE(std::filesystem::exists(inHome(".local"))) << "nothing to store makes no store";
}

TEST_F(Exchange, RowsThatNoDocumentCarriesAreNamed)
{
    put(productFile(), {{"npsSendCount", 1}, {"lastTarget", std::string("x")}, {std::string("a\0b", 3), 1}});
    OtherProgram(productFile()).execute("UPDATE settings SET kind = 'da\nte' WHERE key = 'lastTarget'");
    Ended const ended = tool({"export", inHome("out.json")});
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.err,
              "editor-settings: 'a\\x00b' in the product store has a NUL in its key, so it is left out; 'editor-settings backup' "
              "keeps it\n"
              "editor-settings: 'lastTarget' in the product store holds a value of kind 'da\\nte' that this version cannot read, "
              "so it is left out; 'editor-settings backup' keeps it\n");
    json const stores = parsed(fileContent(inHome("out.json")))["stores"];
    EXPECT_EQ(stores["product"], parsed(R"({"npsSendCount": {"kind": "int", "class": "transient", "value": 1}})"));
    Ended const compared = tool({"diff", inHome("out.json")});
    EXPECT_EQ(compared.status, 0);
    EXPECT_EQ(compared.out, "");
    EXPECT_EQ(compared.err, "editor-settings: 'a\\x00b' in the product store has a NUL in its key, so it is not compared\n"
                            "editor-settings: 'lastTarget' in the product store holds a value of kind 'da\\nte' that this version cannot "
                            "read, so it is not compared\n");
}

// --- The exported file ---

TEST_F(Exchange, FileIsForItsOwnerAloneWhateverTheUmask)
{
    said({"set", "npsSendCount", "1"});
    for (char const* umask : {"0", "0777"}) {
        std::string const out = inHome((std::string("out") + umask).c_str());
        Ended const ended = run({"sh", "-c", std::string("umask ") + umask + "; exec \"$0\" export \"$1\"", TOOL, out});
        EXPECT_EQ(ended.err, "");
        struct stat status = {};
        ASSERT_EQ(::stat(out.c_str(), &status), 0);
        EXPECT_EQ(status.st_mode & 07777, 0600u) << umask;
        EXPECT_EQ(parsed(fileContent(out))["stores"]["product"]["npsSendCount"]["value"], 1);
    }
}

TEST_F(Exchange, FileThatIsThereIsLeftAsItIs)
{
    std::string const there = m_home.write("there.json", "mine").string();
    EXPECT_EQ(refused({"export", there}),
              "editor-settings: '" + there + "' is there already and was left as it is; name a new file, or move that one away\n");
    EXPECT_EQ(fileContent(there), "mine");
    std::filesystem::create_symlink("nowhere", inHome("link"));
    refused({"export", inHome("link")});
    EXPECT_FALSE(std::filesystem::exists(inHome("nowhere")));
    refused({"export", inHome("")});
}

TEST_F(Exchange, NewFoldersAreMadeAndRelativeNamesTaken)
{
    EXPECT_EQ(run({"sh", "-c", "cd \"$1\" && exec \"$0\" export new/out.json", TOOL, m_home.path().string()}).err, "");
    EXPECT_EQ(parsed(fileContent(inHome("new/out.json")))["version"], 1);
    EXPECT_EQ(run({"sh", "-c", "cd \"$1\" && exec \"$0\" export out.json", TOOL, m_home.path().string()}).err, "");
    EXPECT_EQ(parsed(fileContent(inHome("out.json")))["version"], 1);
}

TEST_F(Exchange, FolderThatMayNotBeWrittenIsNamed)
{
    std::filesystem::create_directory(inHome("closed"));
    std::filesystem::permissions(inHome("closed"), std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec);
    Ended const ended = run(withoutPrivileges({TOOL, "export", inHome("closed/out.json")}));
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.err, "editor-settings: " + inHome("closed/out.json") +
                             ": cannot write the export: Permission denied; make the file and its folder readable and writable for this "
                             "user\n");
}

TEST_F(Exchange, DiskThatIsFullLeavesNoPartOfAFile)
{
    put(productFile(), {{"lastTarget", std::string(10000, 'x')}});
    EXPECT_EQ(run({"sh", "-c", "exec \"$0\" export - > /dev/full", TOOL}).status, 1);
    std::filesystem::create_directory(inHome("small"));
    // A limit for files in the place of a disk of that size.
    Ended const ended = run({"sh", "-c", "trap '' XFSZ; ulimit -f 1; exec \"$0\" export \"$1\"", TOOL, inHome("small/out.json")});
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.err, "editor-settings: " + inHome("small/out.json") +
                             ": cannot write the export: File too large; free some space on the disk and try again\n");
    EXPECT_TRUE(std::filesystem::is_empty(inHome("small")));
}

// --- Classes, and what is personal ---

TEST_F(Exchange, OnlySomeClassesAreExportedComparedAndImported)
{
    put(productFile(), {{"exportPath", std::string("/films")},
                        {"keepVideoAspect", false},
                        {"npsSendCount", 1},
                        {"npsEmailToSend", std::string("jane@example.com")},
                        {"unknown", 1}});
    put(commonFile(), {{"sendStatistics", false}});
    auto const keys = [&](std::vector<std::string> const& options) {
        std::string names;
        json const exportedStores = parsed(exported(options))["stores"];
        for (auto const& store : exportedStores)
            for (auto const& entry : store.items())
                names += (names.empty() ? "" : " ") + entry.key();
        return names;
    };
    EXPECT_EQ(keys({"--only", "roaming"}), "sendStatistics keepVideoAspect");
    EXPECT_EQ(keys({"--only", "personal"}), "npsEmailToSend");
    EXPECT_EQ(keys({"--only", "transient", "--only", "local"}), "exportPath npsSendCount");
    EXPECT_EQ(keys({}), "sendStatistics exportPath keepVideoAspect npsEmailToSend npsSendCount unknown");
    EXPECT_EQ(refused({"export", "-", "--only", "all"}, 2).substr(0, 26), "editor-settings: --only: a");

    std::string const local = file(exported({"--only", "local"}));
    EXPECT_EQ(tool({"diff", local, "--only", "local"}).out, "");
    EXPECT_EQ(lines(tool({"diff", local, "--plain"}).out).size(), 5u);
    EXPECT_EQ(imported({file(exported()), "--with-unknown", "--only", "transient", "--only", "roaming", "--home", inHome("other")}),
              "editor-settings: 3 changed, 0 already as in the file\n");
    EXPECT_EQ(valuesOf(productFileIn("other")), (Values{{"keepVideoAspect", false}, {"npsSendCount", 1}}));
    EXPECT_EQ(valuesOf(commonFileIn("other")), (Values{{"sendStatistics", false}}));
}

TEST_F(Exchange, RedactedExportKeepsValuesByTheirClass)
{
    put(productFile(), {{"npsEmailToSend", std::string("jane@example.com")},
                        {"npsValueToSend", 777777},
                        {"exportPath", std::string("/films")},
                        {"mainWindowState", Bytes{0, 255}},
                        {"npsSendCount", 8},
                        {"favorites_fonts", std::string("Verdana")},
                        {"unknown/jane", std::string("secret")},
                        {"keepVideoAspect", false}});
    put(commonFile(), {{"autoUpdate", false}, {"theirs", 424242}, {"others", 1}});
    OtherProgram(productFile()).execute("UPDATE settings SET kind = 'later' WHERE key = 'unknown/jane'");

    Ended const ended = tool({"export", inHome("out.json"), "--redact"});
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.err, "editor-settings: 1 unknown key in the product store left out\n"
                         "editor-settings: 2 unknown keys in the common store left out\n");
    EXPECT_EQ(parsed(fileContent(inHome("out.json")))["stores"], parsed(R"({
        "product": {"exportPath": {"kind": "string", "class": "local", "redacted": true},
                    "favorites_fonts": {"kind": "string", "class": "roaming", "value": "Verdana"},
                    "keepVideoAspect": {"kind": "bool", "class": "roaming", "value": false},
                    "mainWindowState": {"kind": "bytes", "class": "local", "redacted": true},
                    "npsEmailToSend": {"kind": "string", "class": "personal", "redacted": true},
                    "npsSendCount": {"kind": "int", "class": "transient", "value": 8},
                    "npsValueToSend": {"kind": "int", "class": "personal", "redacted": true}},
        "common": {"autoUpdate": {"kind": "bool", "class": "local", "value": false}}})"));

    SqliteStorage(productFile()).setInt("npsSendCount", 9);
    SqliteStorage(productFile()).remove("unknown/jane");
    Ended const differing = tool({"diff", inHome("out.json"), "--plain"});
    EXPECT_EQ(differing.out, "changed\tproduct\tnpsSendCount\tint\t9\tint\t8\n"
                             "removed\tcommon\tothers\tint\t1\t\t\n"
                             "removed\tcommon\ttheirs\tint\t424242\t\t\n");
    EXPECT_EQ(differing.err, "editor-settings: 4 redacted in the file, so not compared\n");
    EXPECT_EQ(imported({inHome("out.json")}),
              "editor-settings: 1 changed, 3 already as in the file, 4 redacted in the file and left alone\n");
    EXPECT_EQ(valuesOf(productFile()).at("exportPath"), SqliteStorage::Value(std::string("/films")));
}

// --- What an import takes ---

TEST_F(Exchange, ImportMergesAndRewritesOnlyWhatDiffers)
{
    put(productFile(), {{"npsSendCount", 1}, {"lastTarget", std::string("same")}, {"exportPath", std::string("/kept")}});
    OtherProgram(productFile()).execute("UPDATE settings SET changed = 5");
    std::string const in =
        file(document(R"("npsSendCount": {"kind": "int", "value": 2}, "lastTarget": {"kind": "string", "value": "same"})",
                      R"("autoUpdate": {"kind": "bool", "value": false})"));
    EXPECT_EQ(imported({in}), "editor-settings: 2 changed, 1 already as in the file\n");
    EXPECT_EQ(valuesOf(productFile()),
              (Values{{"npsSendCount", 2}, {"lastTarget", std::string("same")}, {"exportPath", std::string("/kept")}}));
    EXPECT_EQ(valuesOf(commonFile()), (Values{{"autoUpdate", false}}));
    EXPECT_EQ(OtherProgram(productFile()).ask("SELECT group_concat(key) FROM settings WHERE changed = 5"), "exportPath,lastTarget");
}

TEST_F(Exchange, FileIsReadFromStandardInputToo)
{
    std::string const in = file(document(R"("npsSendCount": {"kind": "int", "value": 2})"));
    EXPECT_EQ(run({"sh", "-c", "cat \"$1\" | \"$0\" import -", TOOL, in}).err, "editor-settings: 1 changed, 0 already as in the file\n");
    EXPECT_EQ(run({"sh", "-c", "\"$0\" diff - < \"$1\"", TOOL, in}).status, 0);
    EXPECT_EQ(
        refused({"import", "-"}),
        "editor-settings: standard input: line 1, column 1: syntax error while parsing value - unexpected end of input; expected '[', "
        "'{', or a literal; correct it there, or export the file again; nothing was changed\n");
}

TEST_F(Exchange, UnknownKeysAreTakenWhenAskedFor)
{
    std::string const in =
        file(document(R"("unknown": {"kind": "int", "value": 2}, "stabilizedFileFormat": {"kind": "bool", "value": true})"));
    EXPECT_EQ(imported({in, "--with-unknown"}), "editor-settings: 2 changed, 0 already as in the file\n");
    EXPECT_EQ(valuesOf(productFile()), (Values{{"unknown", 2}, {"stabilizedFileFormat", true}}));
}

#ifndef UNDER_ADDRESS_SANITIZER // what the sanitizer keeps itself is many times that
// The most memory that a command took, in bytes.
std::size_t peakOf(std::vector<std::string> command)
{
    pid_t const child = ::fork();
    if (child == 0) {
        ::dup2(::open("/dev/null", O_WRONLY), STDOUT_FILENO);
        ::dup2(STDOUT_FILENO, STDERR_FILENO);
        std::vector<char*> arguments;
        for (std::string& word : command)
            arguments.push_back(word.data());
        arguments.push_back(nullptr);
        ::execv(arguments[0], arguments.data());
        ::_exit(127);
    }
    int status = -1;
    rusage usage = {};
    ::wait4(child, &status, 0, &usage);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) <= 1) << status; // diff ends with 1
    return static_cast<std::size_t>(usage.ru_maxrss) * 1024;
}

// Many small values without white space are the worst, as the parts of an entry take more than its text does.
TEST_F(Exchange, ImportTakesEightTimesTheDocumentAtMost)
{
    constexpr int count = 200000;
    std::ofstream stream(inHome("in.json"));
    stream << R"({"format":"editor-settings export","version":1,"stores":{"product":{)";
    for (int number = 0; number < count; ++number)
        stream << (number == 0 ? "" : ",") << R"("k)" << number << R"(":{"kind":"int","value":1})";
    stream << "}}}";
    stream.close();
    std::size_t const size = std::filesystem::file_size(inHome("in.json"));
    ASSERT_GT(size, 6000000u);
    std::string const small = m_home.write("small.json", document(R"("key": {"kind": "int", "value": 1})")).string();
    std::size_t const least = peakOf({TOOL, "import", "--with-unknown", small});
    ASSERT_LT(least, 100000000u);
    EXPECT_LE(peakOf({TOOL, "import", "--with-unknown", inHome("in.json")}), least + 8 * size);
    EXPECT_EQ(valuesOf(productFile()).size(), count + 1u);
    EXPECT_LE(peakOf({TOOL, "import", "--with-unknown", inHome("in.json")}), least + 8 * size) << "nothing differs";
}
#endif

TEST_F(Exchange, DryRunTellsAndMakesNothing)
{
    std::string const in =
        file(document(R"("npsSendCount": {"kind": "int", "value": 2})", R"("autoUpdate": {"kind": "bool", "value": false})"));
    Ended const ended = tool({"import", in, "--dry-run"});
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.out, "CHANGE\tSTORE\tKEY\tSTORED\tFILE\n"
                         "added\tproduct\tnpsSendCount\t(unset)\t2\n"
                         "added\tcommon\tautoUpdate\t(unset)\tfalse\n");
    EXPECT_EQ(ended.err, "editor-settings: 2 would change, 0 already as in the file\n");
    EXPECT_FALSE(std::filesystem::exists(inHome(".local")));

    put(productFile(), {{"npsSendCount", 1}, {"exportPath", std::string("/x")}});
    std::string const before = fileContent(productFile());
    EXPECT_EQ(tool({"import", in, "--dry-run", "--plain"}).out, "changed\tproduct\tnpsSendCount\tint\t1\tint\t2\n"
                                                                "added\tcommon\tautoUpdate\t\t\tbool\tfalse\n");
    EXPECT_EQ(parsed(tool({"import", in, "--dry-run", "--json"}).out).size(), 2u);
    EXPECT_EQ(fileContent(productFile()), before);
    EXPECT_FALSE(std::filesystem::exists(commonFile()));
    EXPECT_EQ(lines(refused({"import", in, "--json"}, 2)).front(), "editor-settings: --dry-run is required");
}

// --- What an import does not take ---

// The stores, whole.
struct Stores {
    Values product;
    Values common;
    std::string productBytes;
    std::string commonBytes;
};

class RefusedImport : public Exchange {
protected:
    void SetUp() override
    {
        put(productFile(), {{"npsSendCount", 1}, {"exportPath", std::string("/kept")}, {"unknown", Bytes{1}}});
        put(commonFile(), {{"autoUpdate", false}});
    }

    Stores stores() const
    {
        return {valuesOf(productFile()), valuesOf(commonFile()), fileContent(productFile()), fileContent(commonFile())};
    }

    // The reason for which an import must change nothing at all.
    std::string reason(std::vector<std::string> const& arguments)
    {
        Stores const before = stores();
        std::vector<std::string> command = {"import"};
        command.insert(command.end(), arguments.begin(), arguments.end());
        std::string const said = refused(command);
        Stores const after = stores();
        EXPECT_EQ(after.product, before.product);
        EXPECT_EQ(after.common, before.common);
        EXPECT_TRUE(after.productBytes == before.productBytes);
        EXPECT_TRUE(after.commonBytes == before.commonBytes);
        EXPECT_EQ(after.product.size() + after.common.size(), 4u);
        return said;
    }
};

class MalformedDocument : public RefusedImport, public testing::WithParamInterface<Malformed> {};

TEST_P(MalformedDocument, SaysWhereItIsWrongAndChangesNothing)
{
    std::string const in = file(GetParam().content);
    EXPECT_EQ(reason({in}), "editor-settings: '" + in + "': " + GetParam().reason + "; nothing was changed\n");
}

INSTANTIATE_TEST_SUITE_P(Everywhere, MalformedDocument, testing::ValuesIn(malformedEverywhere()), byMeaning);

INSTANTIATE_TEST_SUITE_P(
    Table, MalformedDocument,
    testing::Values(
        Malformed{"LoneBackslashInAKey", after(R"("Indication/\\n": {"kind": "bytes", "value": ""})"),
                  "stores.product.Indication/\\\\n" + writeTheKeySo},
        Malformed{"MistypedKey", after(R"("exprtPath": {"kind": "string", "value": "x"})"),
                  "stores.product.exprtPath is no preference of the editor; did you mean exportPath? correct or remove it, or give "
                  "--with-unknown to take such keys as they are"},
        Malformed{
            "LongKeyIsCut", after("\"" + std::string(1000, 'q') + R"(": {"kind": "int", "value": 1})"),
            "stores.product." + std::string(99, 'q') +
                "\xE2\x80\xA6 is no preference of the editor; correct or remove it, or give --with-unknown to take such keys as they are"}),
    byMeaning);

TEST_F(RefusedImport, FileThatIsNoneIsNamed)
{
    std::string const remedy = "; name a file that can be read, or give - for standard input\n";
    EXPECT_EQ(reason({"/no/such"}), "editor-settings: cannot read '/no/such' (No such file or directory)" + remedy);
    EXPECT_EQ(reason({"/"}), "editor-settings: cannot read '/' (it is a folder)" + remedy);
    EXPECT_EQ(reason({"/dev/null"}), "editor-settings: cannot read '/dev/null' (it is not a regular file)" + remedy);
    ASSERT_EQ(::mkfifo(inHome("pipe").c_str(), 0600), 0);
    EXPECT_EQ(reason({inHome("pipe")}), "editor-settings: cannot read '" + inHome("pipe") + "' (it is not a regular file)" + remedy);
    std::filesystem::permissions(file(document("")), std::filesystem::perms::none);
    Ended const closed = run(withoutPrivileges({TOOL, "import", inHome("in.json")}));
    EXPECT_EQ(closed.err, "editor-settings: cannot read '" + inHome("in.json") + "' (Permission denied)" + remedy);
    EXPECT_EQ(run({"sh", "-c", "exec \"$0\" import - < /", TOOL}).err,
              "editor-settings: cannot read standard input (Is a directory)" + remedy);
    EXPECT_EQ(refused({"import", ""}, 2).substr(0, 17), "editor-settings: ");
}

TEST_F(RefusedImport, BackupIsTakenForWhatItIs)
{
    put(inHome("other/product-settings.sqlite"), {{"npsSendCount", 1}});
    EXPECT_EQ(tool({"--home", inHome("other"), "backup", inHome("backup")}).status, 0);
    std::string const is =
        "the document is a database; where 'editor-settings backup' made it, 'editor-settings restore' takes it; nothing was changed\n";
    EXPECT_EQ(reason({inHome("backup")}), "editor-settings: '" + inHome("backup") + "': " + is);
}

TEST_F(RefusedImport, FileBeyondAllSizeIsNotReadWhole)
{
    std::string const large = m_home.write("large", "{").string();
    std::filesystem::resize_file(large, 64 * 1024 * 1024 + 1);
    EXPECT_EQ(reason({large}), "editor-settings: '" + large + "' holds more than 67108864 bytes, which is too much; name a smaller one\n");
    std::filesystem::resize_file(large, 64 * 1024 * 1024);
    EXPECT_EQ(reason({large}), "editor-settings: '" + large + "': line 1, column 2:" + nul + "; nothing was changed\n");
}

TEST_F(RefusedImport, StoreOfANewerVersionKeepsTheOtherFromBeingChanged)
{
    OtherProgram(commonFile()).execute("PRAGMA user_version = 2");
    std::string const in =
        file(document(R"("npsSendCount": {"kind": "int", "value": 2})", R"("autoUpdate": {"kind": "bool", "value": true})"));
    EXPECT_EQ(reason({in}), "editor-settings: " + commonFile() +
                                ": cannot change the store: it was written by a newer version (schema 2, this version writes 1); update "
                                "this program; the file was left as it is; nothing was changed\n");
    EXPECT_EQ(imported({file(document("", R"("autoUpdate": {"kind": "bool", "value": false})"))}),
              "editor-settings: 0 changed, 1 already as in the file\n")
        << "a store that nothing is to change in need not take changes";
}

TEST_F(RefusedImport, StoreThatCannotBeMadeKeepsTheOtherFromBeingChanged)
{
    std::string const home = inHome("other");
    put(home + "/product-settings.sqlite", {{"npsSendCount", 1}});
    std::string const before = fileContent(home + "/product-settings.sqlite");
    std::string const in =
        file(document(R"("npsSendCount": {"kind": "int", "value": 2})", R"("autoUpdate": {"kind": "bool", "value": true})"));
    std::filesystem::permissions(home, std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec);
    Ended const ended = run(withoutPrivileges({TOOL, "--home", home, "import", in}));
    std::filesystem::permissions(home, std::filesystem::perms::owner_all);
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.err, "editor-settings: " + home +
                             "/common-settings.sqlite: cannot create the store: Permission denied; make the file and its folder readable "
                             "and writable for this user; nothing was changed\n");
    EXPECT_EQ(fileContent(home + "/product-settings.sqlite"), before);
}

// --- One transaction for each store ---

// Another program is in the midst of a change: the store can be read, and takes no changes.
char const* const refuseChanges = "BEGIN IMMEDIATE";

TEST_F(Exchange, SecondStoreThatFailsIsToldWithTheFirst)
{
    put(productFile(), {{"npsSendCount", 1}});
    put(commonFile(), {{"autoUpdate", false}});
    OtherProgram other(commonFile());
    other.execute(refuseChanges);
    std::string const in =
        file(document(R"("npsSendCount": {"kind": "int", "value": 2})",
                      R"("autoUpdate": {"kind": "bool", "value": true}, "sendStatistics": {"kind": "bool", "value": true})"));
    EXPECT_EQ(refused({"import", in}), "editor-settings: " + commonFile() +
                                           ": cannot make 2 changes together: database is locked; another process is writing: try again, "
                                           "or close the other process; the product store holds the imported "
                                           "values, the common store is as it was; then import the file again\n");
    EXPECT_EQ(valuesOf(productFile()), (Values{{"npsSendCount", 2}}));
    EXPECT_EQ(valuesOf(commonFile()), (Values{{"autoUpdate", false}}));
    other.execute("ROLLBACK");
    EXPECT_EQ(imported({in}), "editor-settings: 2 changed, 1 already as in the file\n");
}

// The disk fails at each sync of an import in turn. At the last one the values are there already.
TEST_F(Exchange, StoreOnAFailingDiskIsToldAsItIsThen)
{
    std::string const in = file(document(R"("npsSendCount": {"kind": "int", "value": 2})"));
    put(productFile(), {{"npsSendCount", 1}});
    auto const withSyncFailing = [&](int call) {
        std::string const fault = "inject=fsync,fdatasync:error=EIO:when=" + std::to_string(call);
        return run({"strace", "-qq", "-o", "/dev/null", "-e", "trace=fsync,fdatasync", "-e", fault, TOOL, "import", in},
                   {{"ASAN_OPTIONS", "detect_leaks=0"}});
    };
    if (withSyncFailing(1000).status != 0)
        GTEST_SKIP() << "strace is missing, or may not be used";
    int kept = 0;
    int changed = 0;
    for (int call = 1; call <= 6; ++call) {
        put(productFile(), {{"npsSendCount", 1}});
        Ended const ended = withSyncFailing(call);
        bool const holds = valuesOf(productFile()) == Values{{"npsSendCount", 2}};
        if (ended.status == 0) {
            EXPECT_TRUE(holds) << call;
            continue;
        }
        char const* const told = holds ? "; the product store holds the imported values; " : "; the product store is as it was; ";
        EXPECT_NE(ended.err.find(told), std::string::npos) << call << ": " << ended.err;
        ++(holds ? changed : kept);
    }
    EXPECT_GE(kept, 1);
    EXPECT_GE(changed, 1);
}

TEST_F(Exchange, OthersMayWriteMeanwhile)
{
    std::string const product = productFile();
    put(product, {{"lastTarget", std::string("0")}, {"lastUsedPresetId", std::string("0")}});
    std::filesystem::path const stop = m_home.path() / "stop";
    Child writer([&] {
        SqliteStorage store(product);
        int round = 0;
        for (; !std::filesystem::exists(stop); ++round) {
            store.apply({{"lastTarget", std::to_string(round)}, {"lastUsedPresetId", std::to_string(round)}, {"round", round}});
            std::this_thread::sleep_for(std::chrono::milliseconds(5)); // others are to have their turn
        }
        return std::to_string(round - 1);
    });
    for (int number = 0; number < 5; ++number) {
        json const entries = parsed(said({"export", "-"}))["stores"]["product"];
        EXPECT_EQ(entries["lastTarget"]["value"], entries["lastUsedPresetId"]["value"]) << "an export is of one moment";
        EXPECT_EQ(imported({file(document(R"("npsSendCount": {"kind": "int", "value": )" + std::to_string(number) + "}"))}),
                  "editor-settings: 1 changed, 0 already as in the file\n");
    }
    std::ofstream(stop) << "";
    std::string const last = writer.answer();
    EXPECT_GT(std::stoi(last), 0);
    EXPECT_EQ(valuesOf(product),
              (Values{{"lastTarget", last}, {"lastUsedPresetId", last}, {"round", std::stoi(last)}, {"npsSendCount", 4}}));
}

// --- diff ---

class Difference : public Exchange {
protected:
    void SetUp() override
    {
        put(productFile(), {{"npsSendCount", 1},
                            {"exportPath", std::string("/a")},
                            {"lastTarget", std::string("same")},
                            {"npsValueToSend", std::string("7")},
                            {"unknown", Bytes{0, 255}}});
        put(commonFile(), {{"autoUpdate", true}});
        m_file = file(document(R"("npsSendCount": {"kind": "int", "value": 2}, "lastTarget": {"kind": "string", "value": "same"},
            "npsValueToSend": {"kind": "int", "value": 7}, "theirs": {"kind": "string", "encoding": "base64", "value": "/w=="},
            "projectPath": {"kind": "string", "value": ""}, "snapshotPath": {"kind": "string", "redacted": true})"));
    }

    std::string m_file;
};

TEST_F(Difference, IsALineForEachKey)
{
    Ended const ended = tool({"diff", m_file});
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.err, "editor-settings: 1 redacted in the file, so not compared\n");
    EXPECT_EQ(tool({"diff", m_file, "--plain"}).out, "removed\tproduct\texportPath\tstring\t/a\t\t\n"
                                                     "changed\tproduct\tnpsSendCount\tint\t1\tint\t2\n"
                                                     "changed\tproduct\tnpsValueToSend\tstring\t7\tint\t7\n"
                                                     "added\tproduct\tprojectPath\t\t\tstring\t\n"
                                                     "added\tproduct\ttheirs\t\t\tstring\t\\xff\n"
                                                     "removed\tproduct\tunknown\tbytes\tAP8=\t\t\n"
                                                     "removed\tcommon\tautoUpdate\tbool\ttrue\t\t\n");
    SqliteStorage(productFile()).remove("unknown");
    EXPECT_EQ(tool({"diff", file(replaced(fileContent(m_file), "\"theirs[^}]*\\},", ""))}).out,
              "CHANGE\tSTORE\tKEY\tSTORED\tFILE\n"
              "only here\tproduct\texportPath\t/a\t(absent)\n"
              "changed\tproduct\tnpsSendCount\t1\t2\n"
              "changed\tproduct\tnpsValueToSend\t7 (string)\t7 (int)\n"
              "only in the file\tproduct\tprojectPath\t(unset)\t\n"
              "only here\tcommon\tautoUpdate\ttrue\t(absent)\n");
}

TEST_F(Difference, AsJsonHasBothSidesAsTheDocumentHasThem)
{
    Ended const ended = tool({"diff", m_file, "--json"});
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(parsed(ended.out), parsed(R"([
        {"change": "removed", "store": "product", "key": "exportPath", "stored": {"kind": "string", "value": "/a"}, "file": null},
        {"change": "changed", "store": "product", "key": "npsSendCount", "stored": {"kind": "int", "value": 1}, "file": {"kind": "int", "value": 2}},
        {"change": "changed", "store": "product", "key": "npsValueToSend", "stored": {"kind": "string", "value": "7"}, "file": {"kind": "int", "value": 7}},
        {"change": "added", "store": "product", "key": "projectPath", "stored": null, "file": {"kind": "string", "value": ""}},
        {"change": "added", "store": "product", "key": "theirs", "stored": null, "file": {"kind": "string", "encoding": "base64", "value": "/w=="}},
        {"change": "removed", "store": "product", "key": "unknown", "stored": {"kind": "bytes", "value": "AP8="}, "file": null},
        {"change": "removed", "store": "common", "key": "autoUpdate", "stored": {"kind": "bool", "value": true}, "file": null}])"));
}

TEST_F(Difference, ValueThatCannotBeReadDiffersFromAnyOther)
{
    OtherProgram(productFile()).execute("UPDATE settings SET kind = 'date' WHERE key = 'npsSendCount'");
    EXPECT_EQ(lines(tool({"diff", m_file}).out)[2], "changed\tproduct\tnpsSendCount\t(unreadable) (date)\t2 (int)");
    EXPECT_EQ(parsed(tool({"diff", m_file, "--json"}).out)[1]["stored"], parsed(R"({"kind": "date", "value": null})"));
}

TEST_F(Difference, StatusTellsSameFromDifferentFromTrouble)
{
    EXPECT_EQ(said({"diff", file(exported())}), "");
    EXPECT_EQ(said({"diff", file(exported()), "--plain"}), "");
    EXPECT_EQ(said({"diff", file(exported()), "--json"}), "[]\n");
    EXPECT_EQ(tool({"diff", file(document(""))}).status, 1);
    EXPECT_EQ(refused({"diff", file("{")}, 2),
              "editor-settings: '" + inHome("in.json") +
                  "': line 1, column 2: syntax error while parsing object key - unexpected end of input; expected string literal" +
                  correct + '\n');
    EXPECT_EQ(tool({"diff", "/no/such"}).status, 2);
    EXPECT_EQ(tool({"--product", "/no/such", "diff", file(document(""))}).status, 2);
    EXPECT_EQ(tool({"diff"}).status, 2);
    OtherProgram(productFile()).execute("PRAGMA application_id = 1");
    EXPECT_EQ(tool({"diff", file(document(""))}).status, 2);
    EXPECT_EQ(tool({"export", "-"}).status, 1);
}

TEST_F(Difference, OutputThatIsFullIsTroubleAndNotADifference)
{
    EXPECT_EQ(run({"sh", "-c", "exec \"$0\" diff \"$1\" > /dev/full", TOOL, m_file}).status, 2);
}

TEST_F(Difference, StoresThatAreNotThereHoldNothing)
{
    EXPECT_EQ(tool({"--home", inHome("other"), "diff", m_file}).status, 1);
    EXPECT_EQ(tool({"--home", inHome("other"), "diff", file(document(""))}).status, 0);
    EXPECT_FALSE(std::filesystem::exists(inHome("other")));
}

} // namespace
