// SPDX-License-Identifier: MIT
//
// Changes of other processes, told as they happen.
#include "Monitoring.h"

#include <Storage/Backup.h>
#include <Storage/SqliteStorage.h>

#include <support/Json.h>
#include <support/OtherProgram.h>

#include <csignal>
#include <fstream>

namespace {

using Storage::SqliteStorage;

class Monitor : public Monitoring<Tool> {};

std::string withoutTime(std::string const& line) { return line.substr(19); }

TEST_F(Monitor, TellsChangesOfOtherProcessesAndNotWhatWasThere)
{
    SqliteStorage(productFile()).setString("exportPath", "/films");
    SqliteStorage(commonFile()).setBool("autoUpdate", true);
    start();
    awaitReady();
    tool({"set", "exportPath", "/a\nb"});
    EXPECT_EQ(withoutTime(awaited("out", "exportPath")), "  product  exportPath  /films -> /a\\nb\n");
    said({"set", "autoUpdate", "no"});
    awaited("out", "autoUpdate");
    said({"unset", "exportPath"});
    awaited("out", "-> (unset)");
    said({"set", "npsSendCount", "7"});
    std::vector<std::string> const told = lines(awaited("out", "npsSendCount"));
    ASSERT_EQ(told.size(), 4u);
    EXPECT_EQ(withoutTime(told[1]), "  common  autoUpdate  true -> false");
    EXPECT_EQ(withoutTime(told[2]), "  product  exportPath  /a\\nb -> (unset)");
    EXPECT_EQ(withoutTime(told[3]), "  product  npsSendCount  (unset) -> 7");
    EXPECT_EQ(statusAfter(SIGINT), 0);
}

TEST_F(Monitor, TellsChangesToScripts)
{
    SqliteStorage(productFile()).setString("exportPath", "/films");
    start({"--json"});
    awaitReady();
    tool({"set", "exportPath", "/a"});
    json told = parsed(awaited("out", "\n"));
    EXPECT_EQ(told["time"].get<std::string>().size(), 24u);
    told.erase("time");
    EXPECT_EQ(told, parsed(R"({"store": "product", "layer": "local", "key": "exportPath", "before": {"kind": "string", "value": "/films"},
                                    "after": {"kind": "string", "value": "/a"}})"));
    EXPECT_EQ(statusAfter(SIGTERM), 0);
}

TEST_F(Monitor, TellsWhenTheValueWasStored)
{
    SqliteStorage(productFile()).setString("exportPath", "/films");
    start({"--plain"});
    awaitReady();
    OtherProgram(productFile()).execute("UPDATE settings SET value = '/a', changed = 5");
    EXPECT_EQ(awaited("out", "\n"), "1970-01-01T00:00:00.005Z\tproduct\texportPath\t/films\t/a\n");
    EXPECT_EQ(statusAfter(SIGTERM), 0);
}

TEST_F(Monitor, TellsPeopleTheTimeInTheirZone)
{
    SqliteStorage(productFile()).setString("exportPath", "/films");
    ::setenv("TZ", "XYZ-9", 1);
    start();
    ::unsetenv("TZ");
    awaitReady();
    OtherProgram(productFile()).execute("UPDATE settings SET value = '/a', changed = 5999");
    EXPECT_EQ(awaited("out", "\n"), "1970-01-01 09:00:05  product  exportPath  /films -> /a\n");
    EXPECT_EQ(statusAfter(SIGTERM), 0);
}

TEST_F(Monitor, TellsAListAsItIsTold)
{
    SqliteStorage(productFile()).setString("userCustomColors", "a|#|b");
    start({"--plain"});
    awaitReady();
    said({"set", "userCustomColors", "\\", "a\"b"});
    EXPECT_EQ(awaited("out", "\n").substr(24), "\tproduct\tuserCustomColors\t[\"a\",\"b\"]\t[\"\\\\\",\"a\\\"b\"]\n");
    EXPECT_EQ(statusAfter(SIGTERM), 0);
}

TEST_F(Monitor, TellsADeclaredListAsItIsTold)
{
    std::string const file = m_home
                                 .write("product.json", R"({"vendorName": "V", "productName": "P", "sharedDataFolderName": "S",
        "productKind": 0, "projectFileExtensions": [], "resourcesRoot": "share", "ownKeys": [{"key": "my.tracks", "kind": "list",
        "store": "product", "class": "local", "purpose": "The tracks"}]})")
                                 .string();
    start({"--plain", "--product", file});
    awaitReady();
    said({"--product", file, "set", "my.tracks", "a", "b"});
    EXPECT_EQ(awaited("out", "\n").substr(24), "\tproduct\tmy.tracks\t(unset)\t[\"a\",\"b\"]\n");
    EXPECT_EQ(statusAfter(SIGTERM), 0);
}

TEST_F(Monitor, EndsWhereNobodyCanReadIt)
{
    SqliteStorage(productFile()).setString("exportPath", "/films");
    start({}, "/dev/full");
    awaitReady();
    tool({"set", "exportPath", "/a"});
    std::string const reason = "editor-settings: cannot write to standard output: No space left on device\n";
    EXPECT_EQ(awaited("err", reason), "editor-settings: watching both stores; Ctrl+C ends it\n" + reason);
    EXPECT_EQ(statusAfter(SIGTERM), 1);
}

TEST_F(Monitor, TellsTroubleOnceAndGoesOn)
{
    SqliteStorage(commonFile()).setBool("autoUpdate", true);
    SqliteStorage(productFile()).setString("exportPath", "/films");
    start();
    awaitReady();
    std::filesystem::rename(productFile(), inHome("store"));
    std::ofstream(inHome("garbage")) << "not a store";
    awaited("out", "(unset)");
    std::filesystem::rename(inHome("garbage"), productFile());
    std::string const trouble = "editor-settings: " + productFile() +
                                ": cannot open the store: file is not a database; the file was left as it is: move it away and restore it "
                                "from a backup\n";
    awaited("err", trouble);
    SqliteStorage(commonFile()).setBool("autoUpdate", false);
    awaited("out", "autoUpdate");
    std::filesystem::rename(inHome("store"), productFile());
    std::string const out = awaited("out", "-> /films");
    ASSERT_EQ(lines(out).size(), 3u) << out;
    EXPECT_EQ(withoutTime(lines(out)[0]), "  product  exportPath  /films -> (unset)");
    EXPECT_EQ(withoutTime(lines(out)[1]), "  common  autoUpdate  true -> false");
    EXPECT_EQ(withoutTime(lines(out)[2]), "  product  exportPath  (unset) -> /films");
    EXPECT_EQ(content(inHome("err")), "editor-settings: watching both stores; Ctrl+C ends it\n" + trouble);
    EXPECT_EQ(statusAfter(SIGINT), 0);
}

} // namespace
