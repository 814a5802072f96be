// SPDX-License-Identifier: MIT
#include "Tool.h"

#include <Storage/SqliteStorage.h>

#include <support/Named.h>

#include <algorithm>
#include <atomic>
#include <fstream>
#include <set>
#include <thread>

#include <sys/stat.h>

namespace fs = std::filesystem;

namespace {

// The tool with all three folders in one, called "out" below the home folder.
class NextName : public Tool {
protected:
    NextName()
    {
        Storage::SqliteStorage store(productFile());
        for (char const* key : {"audioRecordPath", "exportPath", "stabilizedFilePath"})
            store.setString(key, inHome("out"));
    }

    Ended nextName(std::vector<std::string> arguments)
    {
        arguments.insert(arguments.begin(), "next-name");
        return tool(arguments);
    }

    // What `next-name` prints, without the folder and the end of the line.
    std::string named(std::vector<std::string> const& arguments) { return bare(nextName(arguments).out); }

    std::string bare(std::string const& printed) const
    {
        std::string const folder = inHome("out/");
        EXPECT_EQ(printed.substr(0, folder.size()), folder);
        EXPECT_EQ(printed.back(), '\n');
        return printed.substr(folder.size(), printed.size() - folder.size() - 1);
    }

    std::set<std::string> files() const
    {
        std::set<std::string> names;
        for (auto const& each : fs::directory_iterator(inHome("out")))
            names.insert(each.path().filename().string());
        return names;
    }

    static std::string takenInstead(char const* taken, char const* instead)
    {
        return std::string("editor-settings: '") + taken + "' is there already, though the editor would propose it; '" + instead +
               "' is reserved instead\n";
    }
};

using Names = std::set<std::string>;

// --- What the library answers ---

TEST_F(NextName, IsWhatTheLibraryProposes)
{
    m_home.write("out/Rec-3-x-y.wav", "");
    m_home.write("out/Holiday.final (4).png", "");
    m_home.write("out/Holiday-7.mov", "");
    std::string const recording = named({"audio"});
    EXPECT_EQ(recording.substr(0, 6), "Rec-4-");
    EXPECT_EQ(recording.size(), std::string("Rec-4-2024.03.09-17.05.31.wav").size());
    EXPECT_EQ(named({"freeze", "/a/Holiday.final.mov"}), "Holiday.final (5).png");
    EXPECT_EQ(named({"stabilized", "/a/Holiday.final.mov", "mp4"}), "Holiday-8.mp4");
    EXPECT_EQ(files().size(), 3u) << "nothing is made";
}

TEST_F(NextName, AsJsonAndPlain)
{
    EXPECT_EQ(json::parse(nextName({"freeze", "a.mov", "--json"}).out), json({{"path", inHome("out/a (1).png")}, {"reserved", false}}));
    EXPECT_EQ(json::parse(nextName({"--json", "--reserve", "freeze", "a.mov"}).out),
              json({{"path", inHome("out/a (1).png")}, {"reserved", true}}))
        << "options may stand before the kind";
    EXPECT_EQ(named({"stabilized", "a\tb.mov", "mp4", "--plain"}), "a\\tb-1.mp4");
    EXPECT_EQ(named({"stabilized", "[a,b].mov", "mp4"}), "[a,b]-1.mp4");
}

TEST_F(NextName, SourceThatIsNotUtf8IsSaidNoTo)
{
    EXPECT_EQ(refused({"next-name", "freeze", "a\xFF.mov"}),
              "editor-settings: 'a\xFF.mov' is not UTF-8 without a byte order mark; give the name in UTF-8\n");
    EXPECT_EQ(refused({"next-name", "stabilized", "a.mov", "\xFF"}),
              "editor-settings: '\xFF' is not UTF-8 without a byte order mark; give the name in UTF-8\n");
}

TEST_F(NextName, UsageIsChecked)
{
    for (std::vector<std::string> const& wrong :
         {std::vector<std::string>{}, {"video"}, {"freeze"}, {"stabilized", "a.mov"}, {"audio", "x"}})
        EXPECT_EQ(nextName(wrong).status, 2);
}

// --- Reserving ---

TEST_F(NextName, ReservedNameIsAnEmptyFileInAFolderThatIsMade)
{
    Ended const ended = nextName({"freeze", "a.mov", "--reserve"});
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.err, "");
    EXPECT_EQ(bare(ended.out), "a (1).png");
    EXPECT_TRUE(fs::is_regular_file(inHome("out/a (1).png")));
    EXPECT_EQ(fs::file_size(inHome("out/a (1).png")), 0u);
    EXPECT_EQ(named({"freeze", "a.mov", "--reserve"}), "a (2).png");
    EXPECT_EQ(named({"stabilized", "a.mov", "mp4", "--reserve"}), "a-1.mp4");
    EXPECT_EQ(named({"audio", "--reserve"}).substr(0, 6), "Rec-1-");
    EXPECT_EQ(named({"audio", "--reserve"}).substr(0, 6), "Rec-2-");
    EXPECT_EQ(files().size(), 5u);
}

struct Taken {
    char const* meaning;
    std::vector<std::string> arguments;
    std::vector<char const*> there;
    char const* proposed;
    char const* reserved;
};

class TakenName : public NextName, public testing::WithParamInterface<Taken> {};

// Names that the library proposes although they are there, as it does not count them.
TEST_P(TakenName, GivesWayToTheNextFreeNumber)
{
    for (char const* name : GetParam().there)
        m_home.write(std::string("out/") + name, "precious");
    std::vector<std::string> arguments = GetParam().arguments;
    EXPECT_EQ(named(arguments), GetParam().proposed);
    arguments.push_back("--reserve");
    Ended const ended = nextName(arguments);
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(bare(ended.out), GetParam().reserved);
    EXPECT_EQ(ended.err, takenInstead(GetParam().proposed, GetParam().reserved));
    EXPECT_EQ(fs::file_size(inHome("out") + '/' + GetParam().reserved), 0u);
    for (char const* name : GetParam().there)
        EXPECT_EQ(fs::file_size(inHome("out") + '/' + name), 8u) << name << " was touched";
}

INSTANTIATE_TEST_SUITE_P(
    Table, TakenName,
    testing::Values(
        Taken{"StabilizedWithParentheses", {"stabilized", "Clip (1).mov", "mp4"}, {"Clip (1)-1.mp4"}, "Clip (1)-1.mp4", "Clip (1)-2.mp4"},
        Taken{"StabilizedWithSeveralTaken",
              {"stabilized", "Clip (1).mov", "mp4"},
              {"Clip (1)-1.mp4", "Clip (1)-2.mp4", "Clip (1)-4.mp4"},
              "Clip (1)-1.mp4",
              "Clip (1)-3.mp4"},
        Taken{"StabilizedWithOtherFormatTaken", {"stabilized", "a+.mov", "mp4"}, {"a+-1.mp4", "a+-2.mov"}, "a+-1.mp4", "a+-2.mp4"},
        Taken{"StabilizedWithNumberFromElsewhere", {"stabilized", "a+.mov", "mp4"}, {"a+-aa-7.mov", "a+-8.mp4"}, "a+-8.mp4", "a+-9.mp4"},
        Taken{"StabilizedAfterTheLargestNumber",
              {"stabilized", "a.mov", "mp4"},
              {"a-2147483647.mp4", "a--2147483648.mp4"},
              "a--2147483648.mp4",
              "a--2147483647.mp4"},
        Taken{"FreezeWithPlaceholder", {"freeze", "Shot %1.mov"}, {"Shot 1 (png).%3"}, "Shot 1 (png).%3", "Shot 2 (png).%3"},
        Taken{"FreezeWithTwoPlaceholders", {"freeze", "%2 %1.mov"}, {"png 1 (png).%3"}, "png 1 (png).%3", "png 2 (png).%3"},
        Taken{"FreezeWithNumberBeforeAll", {"freeze", "%1.mov"}, {"1 (png).%3", "2 (png).%3"}, "1 (png).%3", "3 (png).%3"},
        Taken{"FreezeOfAHiddenSource", {"freeze", ".hidden.mov"}, {".hidden (1).png"}, ".hidden (1).png", ".hidden (2).png"}),
    byMeaning);

TEST_F(NextName, FolderOrLinkOfTheNameIsLeftAlone)
{
    fs::create_directories(inHome("out/a-1.mp4"));
    fs::create_symlink(inHome("elsewhere"), inHome("out/a-2.mp4"));
    ::mkfifo(inHome("out/a-3.mp4").c_str(), 0600);
    Ended const ended = nextName({"stabilized", "a.mov", "mp4", "--reserve"});
    EXPECT_EQ(bare(ended.out), "a-4.mp4");
    EXPECT_EQ(ended.err, takenInstead("a-1.mp4", "a-4.mp4"));
    EXPECT_FALSE(fs::exists(inHome("elsewhere"))) << "the link was followed";
    EXPECT_EQ(files(), (Names{"a-1.mp4", "a-2.mp4", "a-3.mp4", "a-4.mp4"}));
}

TEST_F(NextName, FormatWithAPlaceholderIsNotFilled)
{
    Storage::SqliteStorage(productFile()).setString("freezedFileFormat", "%1");
    EXPECT_EQ(named({"freeze", "a.mov"}), "a (1).%1");
    EXPECT_EQ(named({"freeze", "a.mov", "--reserve"}), "a (1).%1");
    EXPECT_EQ(named({"freeze", "a.mov", "--reserve"}), "a (2).%1");
}

struct Impossible {
    char const* meaning;
    char const* folder; // below the home folder
    std::string source;
    char const* reason;
};

class ImpossibleName : public NextName, public testing::WithParamInterface<Impossible> {};

TEST_P(ImpossibleName, IsSaidNoToWithTheReason)
{
    m_home.write("file", "precious");
    fs::create_symlink("nowhere", inHome("dangling"));
    Storage::SqliteStorage(productFile()).setString("exportPath", inHome(GetParam().folder));
    std::string const reason = refused({"next-name", "freeze", GetParam().source, "--reserve"});
    EXPECT_NE(reason.find(GetParam().reason), std::string::npos) << reason;
    EXPECT_EQ(fs::file_size(inHome("file")), 8u);
}

INSTANTIATE_TEST_SUITE_P(
    Table, ImpossibleName,
    testing::Values(Impossible{"FileInPlaceOfTheFolder", "file", "a.mov", "file' (Not a directory); 'editor-settings paths --check'"},
                    Impossible{"FolderBelowAFile", "file/x", "a.mov", "cannot make the folder '"},
                    Impossible{"DanglingLinkInPlaceOfTheFolder", "dangling", "a.mov", "cannot make the folder '"},
                    Impossible{"NameTooLong", "out", std::string(250, 'x') + ".mov", "(File name too long); mend that"}),
    byMeaning);

TEST_F(NextName, FolderThatTheUserMayNotWriteToIsNamed)
{
    fs::create_directories(inHome("out"));
    fs::permissions(inHome("out"), fs::perms::owner_read | fs::perms::owner_exec);
    Ended const ended = run(withoutPrivileges({TOOL, "next-name", "freeze", "a.mov", "--reserve"}));
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.err, "editor-settings: cannot make the file '" + inHome("out/a (1).png") +
                             "' (Permission denied); mend that, or choose another folder\n");
}

// --- Two hundred at once ---

class Crowd : public NextName {
protected:
    // Two hundred reservations, eight at a time; what each printed.
    std::vector<Ended> crowd(std::vector<std::string> const& arguments)
    {
        std::vector<std::string> command = {TOOL, "next-name"};
        command.insert(command.end(), arguments.begin(), arguments.end());
        command.emplace_back("--reserve");
        std::vector<Ended> ended(200);
        std::vector<std::thread> threads;
        for (std::size_t first = 0; first < 8; ++first)
            threads.emplace_back([&, first] {
                for (std::size_t index = first; index < ended.size(); index += 8)
                    ended[index] = run(command);
            });
        for (std::thread& thread : threads)
            thread.join();
        return ended;
    }

    void expectTwoHundredFiles(std::vector<std::string> const& arguments, Names const& thereBefore)
    {
        Names names;
        for (Ended const& each : crowd(arguments)) {
            EXPECT_EQ(each.status, 0) << each.err;
            EXPECT_TRUE(names.insert(bare(each.out)).second) << each.out << "was given twice";
        }
        EXPECT_EQ(names.size(), 200u);
        for (std::string const& name : thereBefore)
            EXPECT_EQ(fs::file_size(inHome("out") + '/' + name), 8u) << name << " was overwritten";
        names.insert(thereBefore.begin(), thereBefore.end());
        EXPECT_EQ(files(), names);
    }
};

TEST_F(Crowd, OfRecordingsGetsTwoHundredFiles)
{
    m_home.write("out/Rec-5-a-b.wav", "precious");
    expectTwoHundredFiles({"audio"}, {"Rec-5-a-b.wav"});
}

TEST_F(Crowd, OfFreezeFramesGetsTwoHundredFiles) { expectTwoHundredFiles({"freeze", "a.mov"}, {}); }

TEST_F(Crowd, OfNamesThatTheLibraryDoesNotCountGetsTwoHundredFiles)
{
    m_home.write("out/Clip (1)-1.mp4", "precious");
    expectTwoHundredFiles({"stabilized", "Clip (1).mov", "mp4"}, {"Clip (1)-1.mp4"});
}

TEST_F(NextName, NameThatSomeoneElseTakesMeanwhileGivesWayToALaterOne)
{
    // Someone else makes files as fast as they can, until a reservation has met one.
    std::atomic<bool> done{false};
    fs::create_directories(inHome("out"));
    std::thread someone([&] {
        for (int number = 1; !done && number < 20000; ++number)
            std::ofstream(inHome("out") + "/a (" + std::to_string(number) + ").png");
    });
    std::string why;
    for (int round = 0; why.empty() && round < 200; ++round)
        why = nextName({"freeze", "a.mov", "--reserve"}).err;
    done = true;
    someone.join();
    EXPECT_EQ(why.substr(0, 34), "editor-settings: someone else took") << why;
    EXPECT_NE(why.find(" is reserved instead\n"), std::string::npos) << why;
}

} // namespace
