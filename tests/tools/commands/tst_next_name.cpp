// SPDX-License-Identifier: MIT
#include "Tool.h"

#include <Storage/SqliteStorage.h>

#include <support/Named.h>

#include <algorithm>
#include <atomic>
#include <ctime>
#include <fstream>
#include <regex>
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
        return "editor-settings: nothing can be reserved in '" + inHome(folder) + "', which is " + setting + ": " + remark +
               "; store another folder there, or mend that\n";
    }

    static std::string takenInstead(char const* taken, char const* instead)
    {
        std::string const text = std::string("editor-settings: '") + taken + "' is there already, though the editor would propose it; '" +
                                 instead + "' is reserved instead\n";
        return std::regex_replace(text, std::regex("\x01"), "\\x01");
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
    EXPECT_EQ(named({"stabilized", "a.mov", "[x]"}), "a-1.[x]");
    EXPECT_EQ(named({"stabilized", "[a,b].mov", "mp4"}), "[a,b]-1.mp4");
}

TEST_F(NextName, SourceThatIsNotUtf8IsSaidNoTo)
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
              "Run with --help for more information.\n");
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
        Taken{
            "StabilizedWithParentheses", {"stabilized", "Clip (1).mov", "mp4"}, {"Clip (1)-1.mp4"}, "Clip (1)-1.mp4", "Clip (1)-1 (2).mp4"},
        Taken{"StabilizedWithSeveralTaken",
              {"stabilized", "Clip (1).mov", "mp4"},
              {"Clip (1)-1.mp4", "Clip (1)-1 (2).mp4", "Clip (1)-1 (4).mp4"},
              "Clip (1)-1.mp4",
              "Clip (1)-1 (3).mp4"},
        Taken{"StabilizedAfterTheLargestNumber",
              {"stabilized", "a.mov", "mp4"},
              {"a-2147483647.mp4", "a--2147483648.mp4"},
              "a--2147483648.mp4",
              "a--2147483648 (2).mp4"},
        Taken{"FreezeWithPlaceholder", {"freeze", "Shot %1.mov"}, {"Shot 1 (png).%3"}, "Shot 1 (png).%3", "Shot 1 (png) (2).%3"},
        Taken{"FreezeWithAControlCharacter", {"freeze", ".a\x01z.mov"}, {".a\x01z (1).png"}, ".a\x01z (1).png", ".a\x01z (1) (2).png"},
        Taken{"StabilizedInBrackets", {"stabilized", "[x].mov", "[y]"}, {"[x]-1.[y]"}, "[x]-1.[y]", "[x]-1 (2).[y]"},
        Taken{"StabilizedWithoutFormat", {"stabilized", "a+.mov", ""}, {"a+-1."}, "a+-1.", "a+-1. (2)"},
        Taken{"FreezeOfAHiddenSource", {"freeze", ".hidden.mov"}, {".hidden (1).png"}, ".hidden (1).png", ".hidden (1) (2).png"}),
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

TEST_F(NextName, FormatWithAPlaceholderIsNotFilled)
{
    Storage::SqliteStorage(productFile()).setString("freezedFileFormat", "%1");
    EXPECT_EQ(named({"freeze", "a.mov"}), "a (1).%1");
    EXPECT_EQ(named({"freeze", "a.mov", "--reserve"}), "a (1).%1");
    EXPECT_EQ(named({"freeze", "a.mov", "--reserve"}), "a (2).%1");
}

struct Impossible {
    char const* meaning;
    std::string folder; // "~" at its beginning stands for the home folder
    char const* remark;
};

class ImpossibleFolder : public NextName, public testing::WithParamInterface<Impossible> {};

TEST_P(ImpossibleFolder, IsSaidNoToWithTheReason)
{
    m_home.write("file", "precious");
    fs::create_symlink("nowhere", inHome("dangling"));
    std::string const folder = GetParam().folder[0] == '~' ? m_home.path().string() + GetParam().folder.substr(1) : GetParam().folder;
    std::string remark = GetParam().remark;
    for (std::size_t tilde; (tilde = remark.find('~')) != std::string::npos;)
        remark.replace(tilde, 1, m_home.path().string());
    Storage::SqliteStorage(productFile()).setString("exportPath", folder);
    EXPECT_EQ(refused({"next-name", "freeze", "a.mov", "--reserve"}), "editor-settings: nothing can be reserved in '" + folder +
                                                                          "', which is exportPath: " + remark +
                                                                          "; store another folder there, or mend that\n");
    EXPECT_EQ(fs::file_size(inHome("file")), 8u);
    EXPECT_EQ(fs::symlink_status(inHome("dangling")).type(), fs::file_type::symlink);
}

INSTANTIATE_TEST_SUITE_P(Table, ImpossibleFolder,
                         testing::Values(Impossible{"FileInPlaceOfTheFolder", "~/file", "not a folder"},
                                         Impossible{"FolderBelowAFile", "~/file/x", "missing, and ~/file is not a folder"},
                                         Impossible{"DanglingLinkInPlaceOfTheFolder", "~/dangling", "dangling link to nowhere"},
                                         Impossible{"Nothing", "", "empty"},
                                         Impossible{"RelativeFolder", "films",
                                                    "not absolute: it depends on the folder that the editor is started in"}),
                         byMeaning);

TEST_F(NextName, FormatThatLeavesTheFolderIsSaidNoTo)
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

TEST_F(NextName, NameThatIsTooLongIsSaidNoTo)
{
    std::string const stem(250, 'x');
    EXPECT_EQ(refused({"next-name", "freeze", stem + ".mov", "--reserve"}),
              "editor-settings: cannot make the file '" + inHome("out/") + stem +
                  " (1).png' (File name too long); take a source with a shorter name\n");
}

TEST_F(NextName, FolderThatTheUserMayNotWriteToIsNamed)
{
    fs::create_directories(inHome("out"));
    fs::permissions(inHome("out"), fs::perms::owner_read | fs::perms::owner_exec);
    Ended const ended = run(withoutPrivileges({TOOL, "next-name", "freeze", "a.mov", "--reserve"}));
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.err, cannotBeReserved("out", "exportPath", "not writable"));
}

TEST_F(NextName, FolderThatHoldsANulIsNotCutOff)
{
    Storage::SqliteStorage(productFile()).setString("exportPath", inHome("out") + std::string("\0x", 2));
    EXPECT_EQ(refused({"next-name", "freeze", "a.mov", "--reserve"}),
              cannotBeReserved("out\\x00x", "exportPath", "holds a NUL, at which the system would cut it off"));
    EXPECT_FALSE(fs::exists(inHome("out")));
    Ended const check = tool({"paths", "exportPath", "--check", "--plain"});
    EXPECT_EQ(check.status, 1);
    EXPECT_EQ(check.out, "exportPath\tno\tno\tholds a NUL, at which the system would cut it off\t" + inHome("out") + "\\x00x\n");
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
    EXPECT_EQ(why.substr(0, 20), "editor-settings: 'a ") << why;
    EXPECT_NE(why.find(").png' was taken by someone else meanwhile; 'a ("), std::string::npos) << why;
    EXPECT_NE(why.find(" is reserved instead\n"), std::string::npos) << why;
}

} // namespace
