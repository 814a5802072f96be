// SPDX-License-Identifier: MIT
//
// Changes of other processes, told as they happen.
#include "Tool.h"

#include <Storage/Backup.h>
#include <Storage/SqliteStorage.h>

#include <support/OtherProgram.h>

#include <chrono>
#include <csignal>
#include <fstream>
#include <thread>
#include <utility>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using Storage::SqliteStorage;

std::size_t timesIn(std::string const& text, std::string const& part)
{
    std::size_t times = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
        ++times;
    return times;
}

// The monitor, running in the background with its outputs in files.
class Monitor : public Tool {
protected:
    ~Monitor() override
    {
        if (m_process > 0) {
            ::kill(m_process, SIGKILL);
            ::waitpid(m_process, nullptr, 0);
        }
    }

    void start(std::vector<std::string> const& options = {}) { start(options, inHome("out")); }

    void start(std::vector<std::string> const& options, std::string const& output)
    {
        std::vector<std::string> words = {TOOL, "monitor"};
        words.insert(words.end(), options.begin(), options.end());
        m_process = ::fork();
        if (m_process == 0) {
            ::dup2(::open(output.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600), STDOUT_FILENO);
            ::dup2(::open(inHome("err").c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600), STDERR_FILENO);
            std::vector<char*> arguments;
            for (std::string& word : words)
                arguments.push_back(word.data());
            arguments.push_back(nullptr);
            ::execv(TOOL, arguments.data());
            ::_exit(127);
        }
    }

    static std::string content(std::string const& file)
    {
        std::ifstream stream(file);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    // Waits until `file` holds `text` so many times; the whole of it then, or what it held after a minute.
    std::string awaited(char const* file, std::string const& text, std::size_t times = 1) const
    {
        for (int time = 0; time < 6000 && timesIn(content(inHome(file)), text) < times; ++time)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        return content(inHome(file));
    }

    void awaitReady() const { EXPECT_EQ(awaited("err", "ends it\n"), "editor-settings: watching both stores; Ctrl+C ends it\n"); }

    int statusAfter(int signal)
    {
        ::kill(m_process, signal);
        int status = 0;
        ::waitpid(std::exchange(m_process, -1), &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    }

private:
    pid_t m_process = -1;
};

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
    json told = json::parse(awaited("out", "\n"));
    EXPECT_EQ(told["time"].get<std::string>().size(), 24u);
    told.erase("time");
    EXPECT_EQ(told, json::parse(R"({"store": "product", "key": "exportPath", "before": {"kind": "string", "value": "/films"},
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
