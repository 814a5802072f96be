// SPDX-License-Identifier: MIT
//
// The first start on a machine where something is not as it mostly is: no store, no product file, no home folder, one that
// may not be written, a locale that is not UTF-8.
#include "Tool.h"

#include <Storage/SqliteStorage.h>

#include <support/Named.h>

#include <fstream>

#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

using Words = std::vector<std::string>;

std::vector<Words> const looking = {{"list"},
                                    {"get", "exportPath"},
                                    {"explain", "exportPath"},
                                    {"unset", "npsSendCount"},
                                    {"paths"},
                                    {"paths", "exportPath", "--explain"},
                                    {"next-name", "audio"},
                                    {"project"},
                                    {"get", "favorites_fonts"},
                                    {"get", "achievedTutorials"},
                                    {"export", "-"},
                                    {"completion", "bash"},
                                    {"manual"}};

class FirstStart : public Tool {
protected:
    // With these words of env before the program, where the variables that stand for folders are not set.
    static Ended with(Words const& environment, Words const& words)
    {
        Words command = {"env", "-u", "XDG_DATA_HOME", "-u", "XDG_CONFIG_HOME", "-u", "XDG_CACHE_HOME"};
        command.insert(command.end(), environment.begin(), environment.end());
        command.emplace_back(TOOL);
        command.insert(command.end(), words.begin(), words.end());
        return run(withoutPrivileges(command));
    }

    std::size_t entries() const
    {
        fs::recursive_directory_iterator const all(m_home.path());
        return static_cast<std::size_t>(std::distance(begin(all), end(all)));
    }

    std::size_t const m_before = entries();
};

TEST_F(FirstStart, WithoutStoresNothingIsMadeByLooking)
{
    for (Words const& words : looking) {
        Ended const ended = with({}, words);
        EXPECT_EQ(ended.status, 0) << words.front() << ended.err;
        EXPECT_EQ(ended.err, words.front() == "unset"     ? "editor-settings: npsSendCount was not set\n"
                             : words.front() == "project" ? "editor-settings: there is no sample project below " +
                                                                fs::path(TOOL).parent_path().parent_path().string() +
                                                                "/share/editor-settings/resources/resources/samples/stock/projects\n"
                                                          : "")
            << words.front();
    }
    EXPECT_EQ(with({}, {"get", "exportPath"}).out, inHome("Videos/Lumora Library\n"));
    EXPECT_EQ(entries(), m_before);
    EXPECT_EQ(with({}, {"set", "npsSendCount", "1"}).status, 0);
    EXPECT_EQ(with({}, {"get", "npsSendCount"}).out, "1\n");
}

// --- The product file ---

#ifndef UNDER_ADDRESS_SANITIZER // the sanitizer itself reads /proc
// As in a system that is just being set up.
Ended runWithoutProc(Words const& words)
{
    Words command = {"unshare", "--map-root-user", "--mount", "sh", "-c", "mount -t tmpfs none /proc && exec \"$@\"", "sh"};
    command.insert(command.end(), words.begin(), words.end());
    return run(command);
}

TEST_F(FirstStart, WhereTheProgramCannotTellWhereItLiesAProductFileIsToBeNamed)
{
    if (runWithoutProc({"true"}).status != 0)
        GTEST_SKIP() << "this process may not mount a file system";
    Ended const ended = runWithoutProc({TOOL, "list"});
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.err, "editor-settings: the program cannot tell where it is installed, as it cannot read /proc/self/exe: "
                         "No such file or directory\n"
                         "Name a product file with '--product FILE', or in EDITOR_SETTINGS_PRODUCT.\n");
    std::string const product = std::filesystem::path(TOOL).parent_path().parent_path() / "share/editor-settings/product.json";
    EXPECT_EQ(runWithoutProc({TOOL, "--product", product, "get", "npsSendCount"}).out, "0\n");
}
#endif

TEST_F(FirstStart, WithoutTheInstalledProductFileOneIsToBeNamed)
{
    fs::create_directories(inHome("bin"));
    fs::copy_file(TOOL, inHome("bin/editor-settings"));
    Ended const ended = run({inHome("bin/editor-settings"), "list"});
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.out, "");
    EXPECT_EQ(ended.err, "editor-settings: product file " + inHome("share/editor-settings/product.json") +
                             " cannot be read (No such file or directory); check its name and rights, or name another product file\n"
                             "Name a product file with '--product FILE', or in EDITOR_SETTINGS_PRODUCT.\n");
    std::string const installed = fs::path(TOOL).parent_path().parent_path().string() + "/share/editor-settings/product.json";
    EXPECT_EQ(run({inHome("bin/editor-settings"), "--product", installed, "get", "npsSendCount"}).out, "0\n");
    EXPECT_EQ(run({inHome("bin/editor-settings"), "--help"}).status, 0);
    EXPECT_EQ(run({inHome("bin/editor-settings"), "manual"}).status, 0);
}

// --- The home folder ---

struct Home {
    char const* meaning;
    Words environment;
    std::string trouble;
    std::string note; // to whoever looks
};

class OddHome : public FirstStart, public testing::WithParamInterface<Home> {};

TEST_P(OddHome, IsToldWhereItMatters)
{
    for (Words const& words : looking) {
        bool const needsNoNote = words.front() == "manual" || words.front() == "completion" || words.back() == "--explain";
        Ended const ended = with(GetParam().environment, words);
        EXPECT_EQ(ended.status, 0) << words.front() << ended.err;
        EXPECT_EQ(ended.err.find("HOME") != std::string::npos, !GetParam().note.empty() && !needsNoNote) << words.front() << ended.err;
    }
    EXPECT_EQ(with(GetParam().environment, {"list"}).err, GetParam().note);
    Ended const set = with(GetParam().environment, {"set", "npsSendCount", "1"});
    EXPECT_EQ(set.status, 1);
    EXPECT_EQ(set.err, "editor-settings: " + GetParam().trouble + "; set HOME to your folder, or name one for the stores with --home\n");
    EXPECT_EQ(entries(), m_before);
    EXPECT_FALSE(fs::exists("/no"));
    EXPECT_FALSE(fs::exists("/.local/share/Lumora"));
}

TEST_P(OddHome, DoesNotMatterToStoresThatLieElsewhere)
{
    Ended const set = with(GetParam().environment, {"--home", inHome("stores"), "set", "npsSendCount", "1"});
    EXPECT_EQ(set.status, 0);
    EXPECT_EQ(set.err, "");
    EXPECT_EQ(Storage::SqliteStorage(inHome("stores/product-settings.sqlite")).getInt("npsSendCount", 0), 1);
    Words environment = GetParam().environment;
    environment.push_back("XDG_DATA_HOME=" + inHome("data"));
    EXPECT_EQ(with(environment, {"set", "npsSendCount", "2"}).status, 0);
    EXPECT_TRUE(fs::exists(inHome("data/Lumora/Lumora Video Editor/product-settings.sqlite")));
}

TEST_P(OddHome, IsNoPlaceForWhatIsBroughtBack)
{
    Words const elsewhere = {"EDITOR_SETTINGS_HOME=" + inHome("stores")};
    std::string const backup = inHome("settings.backup");
    std::string const exported = inHome("settings.json");
    EXPECT_EQ(with(elsewhere, {"set", "npsSendCount", "1"}).err, "");
    EXPECT_EQ(with(elsewhere, {"backup", backup}).status, 0);
    EXPECT_EQ(with(elsewhere, {"export", exported}).status, 0);
    for (Words const& words : {Words{"restore", backup}, Words{"import", exported}}) {
        Ended const ended = with(GetParam().environment, words);
        EXPECT_EQ(ended.status, 1) << words.front();
        EXPECT_EQ(ended.err,
                  "editor-settings: " + GetParam().trouble + "; set HOME to your folder, or name one for the stores with --home\n");
        EXPECT_EQ(with(GetParam().environment, {words.front(), words.back(), "--dry-run"}).status, 0) << words.front();
    }
}

std::string const noHome = "HOME is not set, so / is taken for the home folder";

INSTANTIATE_TEST_SUITE_P(
    Table, OddHome,
    testing::Values(Home{"Unset", {"-u", "HOME"}, noHome, "editor-settings: " + noHome + "; set HOME to your folder\n"},
                    Home{"Empty", {"HOME="}, noHome, "editor-settings: " + noHome + "; set HOME to your folder\n"},
                    Home{"Missing", {"HOME=/no/such"}, "HOME is '/no/such', which is not there", ""}),
    byMeaning);

// --- The folder of data ---

TEST_F(FirstStart, RelativeDataFolderCountsAsNotSet)
{
    std::string const store = inHome(".local/share/Lumora/Lumora Video Editor/product-settings.sqlite");
    for (char const* folder : {"data", "./data", "~/data"}) {
        Words const environment = {"-C", m_home.path().string(), std::string("XDG_DATA_HOME=") + folder};
        std::string const note =
            std::string("editor-settings: XDG_DATA_HOME is '") + folder + "', which is not absolute, so it counts as not set\n";
        Ended const set = with(environment, {"set", "npsSendCount", "3"});
        EXPECT_EQ(set.status, 0);
        EXPECT_EQ(set.err, note);
        EXPECT_EQ(Storage::SqliteStorage(store).getInt("npsSendCount", 0), 3);
        EXPECT_EQ(with(environment, {"get", "npsSendCount"}).out, "3\n");
        EXPECT_EQ(with(environment, {"paths", "productDataPath", "--plain"}).out, inHome(".local/share/Lumora/Lumora Video Editor") + '\n');
        Ended const doctor = with(environment, {"doctor"});
        EXPECT_EQ(doctor.err, note);
        EXPECT_NE(doctor.out.find("product store\t" + store + '\n'), std::string::npos) << doctor.out;
        EXPECT_EQ(with(environment, {"complete", "--", "unset", ""}).err, "");
        fs::remove(store);
    }
    EXPECT_FALSE(fs::exists(inHome("data")));
    EXPECT_FALSE(fs::exists(inHome("~")));
}

TEST_F(FirstStart, EmptyDataFolderCountsAsNotSetWithoutAWord)
{
    EXPECT_EQ(with({"XDG_DATA_HOME="}, {"set", "npsSendCount", "3"}).err, "");
    EXPECT_TRUE(fs::exists(inHome(".local/share/Lumora/Lumora Video Editor/product-settings.sqlite")));
}

TEST_F(FirstStart, HomeThatIsNotSetIsFoundByTheDoctor)
{
    Ended const ended = with({"-u", "HOME"}, {"doctor", "--plain"});
    EXPECT_EQ(ended.status, 1);
    EXPECT_NE(ended.out.find("\nwarning\thome\t\t" + noHome + "\tset HOME to the folder of the user whom the editor runs for\n"),
              std::string::npos)
        << ended.out;
}

TEST_F(FirstStart, HomeThatMayNotBeWrittenIsLookedAtAndNotChanged)
{
    ::chmod(m_home.path().c_str(), 0500);
    for (Words const& words : looking)
        EXPECT_EQ(with({}, words).status, 0) << words.front();
    Ended const set = with({}, {"set", "npsSendCount", "1"});
    Ended const doctor = with({}, {"doctor", "--plain"});
    Ended const backup = with({}, {"backup", inHome("new")});
    ::chmod(m_home.path().c_str(), 0700);
    EXPECT_EQ(set.status, 1);
    EXPECT_EQ(set.err, "editor-settings: " + inHome(".local") +
                           ": cannot create the folder: Permission denied; make the file and its "
                           "folder readable and writable for this user\nRun 'editor-settings doctor' with the same options to see what is "
                           "wrong; 'editor-settings restore FILE' brings a backup back.\n");
    EXPECT_EQ(doctor.status, 1);
    EXPECT_NE(doctor.out.find("error\tstore-folder\t"), std::string::npos) << doctor.out;
    EXPECT_EQ(backup.err, "editor-settings: there is no store yet, so there is nothing to back up\n");
    EXPECT_EQ(entries(), m_before);
}

// --- The locale ---

class Locale : public FirstStart, public testing::WithParamInterface<char const*> {};

TEST_P(Locale, ChangesNothingThatIsPrintedOrStored)
{
    std::string const home = inHome("J\xC3\xBCrgen \xE6\x97\xA5");
    fs::create_directories(home);
    Words const environment = {std::string("LC_ALL=") + GetParam(), "HOME=" + home};
    Ended const set = with(environment, {"set", "lastTarget", "\xC3\xBC\xE6\x97\xA5"});
    EXPECT_EQ(set.status, 0);
    EXPECT_EQ(set.err, "");
    EXPECT_EQ(with(environment, {"get", "lastTarget"}).out, "\xC3\xBC\xE6\x97\xA5\n");
    EXPECT_EQ(with(environment, {"get", "exportPath"}).out, home + "/Videos/Lumora Library\n");
    EXPECT_TRUE(fs::exists(home + "/.local/share/Lumora/Lumora Video Editor/product-settings.sqlite"));
    EXPECT_EQ(with(environment, {"get", "\xC3\xBC"}).err,
              "editor-settings: there is no preference '\xC3\xBC'; 'editor-settings list' shows all\n");
    EXPECT_EQ(with(environment, {"doctor"}).status, with({"LC_ALL=C.UTF-8", "HOME=" + home}, {"doctor"}).status);
    std::string const reserved = with(environment, {"next-name", "--reserve", "freeze", "\xC3\xBC.mov"}).out;
    EXPECT_EQ(reserved, home + "/Videos/Lumora Library/\xC3\xBC (1).png\n");
    EXPECT_TRUE(fs::exists(home + "/Videos/Lumora Library/\xC3\xBC (1).png"));
}

INSTANTIATE_TEST_SUITE_P(Table, Locale, testing::Values("C", "POSIX", "C.UTF-8", "de_DE.ISO-8859-1", "no_SUCH.UTF-8"),
                         [](auto const& test) { return "Number" + std::to_string(test.index); });

} // namespace
