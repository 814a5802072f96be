// SPDX-License-Identifier: MIT
#include "Tool.h"

#include <Storage/SqliteStorage.h>

#include <support/Json.h>
#include <support/Named.h>
#include <support/Patterns.h>

#include <algorithm>
#include <atomic>
#include <ctime>
#include <set>
#include <thread>

#include <sys/stat.h>
#include <unistd.h>

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

    std::string cannotBeReserved(char const* folder, std::string const& setting, std::string const& remark) const
    {
        return "editor-settings: nothing can be reserved in '" + inHome(folder) + "', which is " + setting + ": " + remark + "; set " +
               setting + " to another folder\n";
    }

    static std::string takenInstead(char const* taken, char const* instead)
    {
        std::string const text = std::string("editor-settings: '") + taken + "' is there already, though the editor would propose it; '" +
                                 instead + "' is reserved instead\n";
        return replaced(text, "\x01", "\\x01");
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
    EXPECT_EQ(parsed(nextName({"freeze", "a.mov", "--json"}).out), json({{"path", inHome("out/a (1).png")}, {"reserved", false}}));
    EXPECT_EQ(parsed(nextName({"--json", "--reserve", "freeze", "a.mov"}).out),
              json({{"path", inHome("out/a (1).png")}, {"reserved", true}}))
        << "options may stand before the kind";
    EXPECT_EQ(named({"stabilized", "a\tb.mov", "mp4", "--plain"}), "a\\tb-1.mp4");
    EXPECT_EQ(named({"stabilized", "a.mov", "[x]"}), "a-1.[x]");
    EXPECT_EQ(named({"stabilized", "[a,b].mov", "mp4"}), "[a,b]-1.mp4");
}

TEST_F(NextName, SourceThatIsNotUtf8IsRefused)
{
    EXPECT_EQ(refused({"next-name", "freeze", "a\xFF.mov"}),
              "editor-settings: 'a\\xff.mov' is not UTF-8 without a byte order mark; give the name in UTF-8\n");
    EXPECT_EQ(refused({"next-name", "stabilized", "a.mov", "\xFF"}),
              "editor-settings: '\\xff' is not UTF-8 without a byte order mark; give the name in UTF-8\n");
}

TEST_F(NextName, UsageIsChecked)
{
    EXPECT_EQ(nextName({}).err,
              "editor-settings: A subcommand is required\nWhat follows next-name is one of audio, freeze and stabilized.\n"
              "Run 'editor-settings next-name --help' for more information.\n");
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
TEST_P(TakenName, IsFollowedByTheFirstFreeNumberInParentheses)
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
        Taken{"StabilizedWithSeveralTaken",
              {"stabilized", "Clip (1).mov", "mp4"},
              {"Clip (1)-1.mp4", "Clip (1)-1 (2).mp4", "Clip (1)-1 (4).mp4"},
              "Clip (1)-1.mp4",
              "Clip (1)-1 (3).mp4"},
        Taken{"FreezeWithPlaceholder", {"freeze", "Shot %1.mov"}, {"Shot 1 (png).%3"}, "Shot 1 (png).%3", "Shot 1 (png) (2).%3"},
        Taken{"FreezeWithAControlCharacter", {"freeze", ".a\x01z.mov"}, {".a\x01z (1).png"}, ".a\x01z (1).png", ".a\x01z (1) (2).png"},
        Taken{"StabilizedWithoutFormat", {"stabilized", "a+.mov", ""}, {"a+-1."}, "a+-1.", "a+-1. (2)"}),
    byMeaning);

TEST_F(NextName, FolderOrLinkOfTheNameIsLeftAlone)
{
    fs::create_directories(inHome("out/a-1.mp4"));
    fs::create_symlink(inHome("elsewhere"), inHome("out/a-1 (2).mp4"));
    ::mkfifo(inHome("out/a-1 (3).mp4").c_str(), 0600);
    Ended const ended = nextName({"stabilized", "a.mov", "mp4", "--reserve"});
    EXPECT_EQ(bare(ended.out), "a-1 (4).mp4");
    EXPECT_EQ(ended.err, takenInstead("a-1.mp4", "a-1 (4).mp4"));
    EXPECT_FALSE(fs::exists(inHome("elsewhere"))) << "the link was followed";
    EXPECT_EQ(files(), (Names{"a-1.mp4", "a-1 (2).mp4", "a-1 (3).mp4", "a-1 (4).mp4"}));
}

TEST_F(NextName, FolderThatCannotBeUsedIsRefusedWithTheReason)
{
    m_home.write("file", "precious");
    fs::create_symlink("nowhere", inHome("dangling"));
    Storage::SqliteStorage store(productFile());
    store.setString("exportPath", inHome("file"));
    EXPECT_EQ(refused({"next-name", "freeze", "a.mov", "--reserve"}), cannotBeReserved("file", "exportPath", "not a folder"));
    EXPECT_EQ(fs::file_size(inHome("file")), 8u);
    store.setString("exportPath", inHome("dangling"));
    EXPECT_EQ(refused({"next-name", "freeze", "a.mov", "--reserve"}),
              cannotBeReserved("dangling", "exportPath", "dangling link to nowhere"));
    EXPECT_FALSE(fs::exists(inHome("nowhere"))) << "the link was followed";
}

TEST_F(NextName, FormatThatLeavesTheFolderIsRefused)
{
    for (char const* format : {"a/b", "a/", "x/.", "x/..", "/../../evil"})
        EXPECT_EQ(refused({"next-name", "--reserve", "stabilized", "Clip.mov", format}),
                  std::string("editor-settings: the name 'Clip-1.") + format + "' would not lie in '" + inHome("out") +
                      "' as it is; take a format without \"/\" and NUL\n");
    using Words = std::vector<std::string>;
    for (auto const& [key, words] :
         {std::pair{"freezedFileFormat", Words{"freeze", "Clip.mov"}}, std::pair{"audioRecordFormat", Words{"audio"}}}) {
        Words command = {"next-name", "--reserve"};
        command.insert(command.end(), words.begin(), words.end());
        for (std::string const& format : {std::string("x/."), std::string("x\0y", 3)}) {
            Storage::SqliteStorage(productFile()).setString(key, format);
            EXPECT_NE(refused(command).find("would not lie in"), std::string::npos);
        }
    }
    EXPECT_FALSE(fs::exists(inHome("out"))) << "nothing is made";
}

TEST_F(NextName, NameThatIsTooLongIsRefused)
{
    std::string const stem(250, 'x');
    EXPECT_EQ(refused({"next-name", "freeze", stem + ".mov", "--reserve"}),
              "editor-settings: cannot make the file '" + inHome("out/") + stem +
                  " (1).png' (File name too long); take a source with a shorter name\n");
}

TEST_F(NextName, FolderThatHoldsANulIsNotCutOff)
{
    Storage::SqliteStorage(productFile()).setString("exportPath", inHome("out") + std::string("\0x", 2));
    EXPECT_EQ(refused({"next-name", "freeze", "a.mov", "--reserve"}),
              cannotBeReserved("out\\x00x", "exportPath", "holds a NUL, at which the system would cut it off"));
    EXPECT_FALSE(fs::exists(inHome("out")));
}

TEST_F(NextName, ReservedNameIsNotLostWhenItCannotBePrinted)
{
    Ended const ended = run({"sh", "-c", "exec \"$0\" next-name freeze a.mov --reserve > /dev/full", TOOL});
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.err, "editor-settings: '" + inHome("out/a (1).png") +
                             "' is reserved, but standard output cannot be written; remove the file if it is not wanted\neditor-settings: "
                             "cannot write to standard output: No space left on device\n");
}

TEST_F(NextName, ReservedFileHasTheRightsThatTheUserGivesFiles)
{
    run({"sh", "-c", "umask 027; exec \"$0\" next-name freeze a.mov --reserve", TOOL});
    EXPECT_EQ(fs::status(inHome("out/a (1).png")).permissions(), fs::perms(0640));
}

TEST_F(NextName, FolderThatIsRemovedMeanwhileIsMadeAgain)
{
    std::atomic<bool> done{false};
    std::thread someone([&] {
        while (!done)
            ::rmdir(inHome("out").c_str());
    });
    for (int round = 0; round < 40; ++round)
        EXPECT_EQ(nextName({"freeze", "a.mov", "--reserve"}).status, 0);
    done = true;
    someone.join();
    EXPECT_EQ(files().size(), 40u);
}

TEST_F(NextName, RecordingOfATakenNameGetsANumberInParentheses)
{
    // The names of the next seconds are taken by folders, which the library does not count.
    m_home.write("out/Rec-11-a-b.wav", "");
    std::time_t const now = std::time(nullptr);
    for (std::time_t second = now; second < now + 20; ++second) {
        char name[64];
        std::strftime(name, sizeof name, "Rec-12-%Y.%m.%d-%H.%M.%S.wav", std::localtime(&second));
        fs::create_directories(inHome("out") + '/' + name);
    }
    Ended const ended = nextName({"audio", "--reserve"});
    EXPECT_EQ(bare(ended.out).substr(0, 7), "Rec-12-");
    EXPECT_NE(bare(ended.out).find(" (2).wav"), std::string::npos) << ended.out;
    EXPECT_NE(ended.err.find(" is there already, though the editor would propose it; 'Rec-12-"), std::string::npos) << ended.err;
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

TEST_F(Crowd, OfNamesThatTheLibraryDoesNotCountGetsTwoHundredFiles)
{
    m_home.write("out/Clip (1)-1.mp4", "precious");
    expectTwoHundredFiles({"stabilized", "Clip (1).mov", "mp4"}, {"Clip (1)-1.mp4"});
}

TEST_F(NextName, NameThatSomeoneElseTakesMeanwhileGivesWayToALaterOne)
{
    fs::create_directories(inHome("out"));
    Ended const ended = tool({"next-name", "freeze", "a.mov", "--reserve"}, {{"TEST_TAKEN_NAME", inHome("out/a (1).png")},
                                                                             {"LD_PRELOAD", INTERPOSED},
                                                                             {"ASAN_OPTIONS", "verify_asan_link_order=0:detect_leaks=0"}});
    EXPECT_EQ(ended.err, "editor-settings: 'a (1).png' was taken by someone else meanwhile; 'a (2).png' is reserved instead\n");
    EXPECT_EQ(ended.out, inHome("out/a (2).png") + "\n");
    EXPECT_EQ(files(), (Names{"a (1).png", "a (2).png"}));
}

} // namespace
