// SPDX-License-Identifier: MIT
#include <Inspection/PathStatus.h>

#include <TestKit/TemporaryHome.h>

#include <support/Named.h>
#include <support/Process.h>

#include <gtest/gtest.h>

#include <filesystem>

#include <sys/stat.h>

namespace fs = std::filesystem;
using Inspection::PathReason;
using Inspection::PathStatus;

namespace {

class StatusOfAPath : public testing::Test {
protected:
    StatusOfAPath()
    {
        fs::create_directories(home() + "/there/below");
        m_home.write("file", "");
        fs::create_symlink("nowhere", home() + "/dangling");
        fs::create_directory_symlink("there", home() + "/link");
        fs::create_symlink("loop", home() + "/loop");
        fs::create_symlink("a\nb", home() + "/odd");
        ::mkfifo((home() + "/fifo").c_str(), 0600);
    }

    std::string home() const { return m_home.path().string(); }

    // `text` with each "~" as the home folder.
    std::string expanded(std::string text) const
    {
        for (std::size_t tilde; (tilde = text.find('~')) != std::string::npos;)
            text.replace(tilde, 1, home());
        return text;
    }

    QString path(std::string const& text) const { return QString::fromStdString(expanded(text)); }

    TestKit::TemporaryHome m_home;
};

struct Row {
    char const* meaning;
    char const* path; // "~" stands for the home folder
    bool exists;
    bool isWritable;
    bool isUsable;
    PathReason reason;
    char const* remark;
};

class WrittenFolder : public StatusOfAPath, public testing::WithParamInterface<Row> {};

TEST_P(WrittenFolder, IsJudgedAsTheEditorFindsIt)
{
    Row const& row = GetParam();
    PathStatus const status = Inspection::writtenFolderStatus(path(row.path));
    EXPECT_EQ(status.exists, row.exists);
    EXPECT_EQ(status.isWritable, row.isWritable);
    EXPECT_EQ(status.isUsable, row.isUsable);
    EXPECT_EQ(status.reason, row.reason);
    EXPECT_EQ(remark(status), expanded(row.remark));
}

INSTANTIATE_TEST_SUITE_P(
    Table, WrittenFolder,
    testing::Values(
        Row{"Folder", "~/there", true, true, true, PathReason::none, ""},
        Row{"FolderWithSeparatorAtItsEnd", "~/there/", true, true, true, PathReason::none, ""},
        Row{"LinkToAFolder", "~/link", true, true, true, PathReason::none, ""},
        Row{"HomeFolder", "~", true, true, true, PathReason::homeFolder, "the home folder itself"},
        Row{"HomeFolderByAnotherWay", "~/there/..", true, true, true, PathReason::homeFolder, "the home folder itself"},
        Row{"MissingFolder", "~/there/new/newer", false, true, true, PathReason::canBeMade, "missing; the editor can make it"},
        Row{"Nothing", "", false, false, false, PathReason::empty, "empty"},
        Row{"RelativePath", "films", false, false, false, PathReason::relative,
            "not absolute: it depends on the folder that the editor is started in"},
        Row{"DanglingLink", "~/dangling", false, false, false, PathReason::danglingLink, "dangling link to nowhere"},
        Row{"DanglingLinkWithSeparatorAtItsEnd", "~/dangling/", false, false, false, PathReason::danglingLink, "dangling link to nowhere"},
        Row{"DanglingLinkWithALineBreak", "~/odd", false, false, false, PathReason::danglingLink, "dangling link to a\nb"},
        Row{"FolderBelowADanglingLink", "~/dangling/new", false, false, false, PathReason::danglingLink,
            "missing, and ~/dangling: dangling link to nowhere"},
        Row{"LinkToItself", "~/loop", false, false, false, PathReason::unreachable, "Too many levels of symbolic links"},
        Row{"File", "~/file", true, true, false, PathReason::notAFolder, "not a folder"},
        Row{"FolderBelowAFile", "~/file/new", false, false, false, PathReason::notAFolder, "missing, and ~/file is not a folder"},
        Row{"Fifo", "~/fifo", true, true, false, PathReason::notAFolder, "not a folder"}),
    byMeaning);

TEST_F(StatusOfAPath, NulIsNotCutOff)
{
    PathStatus const status = Inspection::writtenFolderStatus(path("~/there") + QChar(0) + QLatin1Char('x'));
    EXPECT_FALSE(status.isUsable);
    EXPECT_EQ(remark(status), "holds a NUL, at which the system would cut it off");
}

TEST_F(StatusOfAPath, RootFolderIsAFolder)
{
    PathStatus const status = Inspection::readPathStatus(QStringLiteral("/"));
    EXPECT_TRUE(status.exists);
    EXPECT_EQ(status.reason, PathReason::none);
}

TEST_F(StatusOfAPath, PathThatIsOnlyReadNeedNotBeUsable)
{
    PathStatus const file = Inspection::readPathStatus(path("~/file"));
    EXPECT_TRUE(file.exists);
    EXPECT_TRUE(file.isWritable);
    EXPECT_EQ(file.reason, PathReason::none);
    PathStatus const missing = Inspection::readPathStatus(path("~/missing"));
    EXPECT_FALSE(missing.exists);
    EXPECT_TRUE(missing.isUsable);
    EXPECT_EQ(remark(missing), "missing");
    PathStatus const dangling = Inspection::readPathStatus(path("~/dangling"));
    EXPECT_TRUE(dangling.isUsable);
    EXPECT_EQ(remark(dangling), "dangling link to nowhere");
}

// --- As an ordinary user, whose rights count ---

class RightsOfAPath : public StatusOfAPath {
protected:
    // Other users may enter the home folder, as the check may run as one of them.
    RightsOfAPath() { fs::permissions(m_home.path(), fs::perms(0755)); }

    void makeFolder(char const* relative, unsigned mode) const
    {
        fs::create_directories(m_home.path() / relative);
        fs::permissions(m_home.path() / relative, fs::perms(mode));
    }

    // "exists writable usable remark", the first three as digits.
    std::string written(char const* relative) const { return asked(Inspection::writtenFolderStatus, relative); }
    std::string read(char const* relative) const { return asked(Inspection::readPathStatus, relative); }

private:
    std::string asked(PathStatus (*status)(QString const&), char const* relative) const
    {
        return inChild(
            [&] {
                PathStatus const found = status(path(std::string("~/") + relative));
                return std::to_string(int(found.exists)) + std::to_string(int(found.isWritable)) + std::to_string(int(found.isUsable)) +
                       ' ' + remark(found);
            },
            true);
    }
};

TEST_F(RightsOfAPath, FolderThatTheUserMayNotWriteToIsFound)
{
    makeFolder("locked", 0555);
    EXPECT_EQ(written("locked"), "100 not writable");
    EXPECT_EQ(written("locked/new"), expanded("000 missing, and ~/locked is not writable"));
    makeFolder("locked", 0000);
    EXPECT_EQ(written("locked/new"), "000 Permission denied");
    makeFolder("locked", 0777);
    EXPECT_EQ(written("locked"), "111 ");
}

TEST_F(RightsOfAPath, FolderThatCanBeWrittenButNotReadIsRemarked)
{
    makeFolder("blind", 0333);
    EXPECT_EQ(written("blind"), "111 not readable, so names are numbered as if it were empty");
    makeFolder("blind", 0222);
    EXPECT_EQ(written("blind"), "100 not writable");
}

TEST_F(RightsOfAPath, LinkIntoAForbiddenFolderIsNotCalledDangling)
{
    makeFolder("forbidden/there", 0777);
    fs::create_directory_symlink("forbidden/there", home() + "/into");
    makeFolder("forbidden", 0000);
    EXPECT_EQ(written("into"), "000 Permission denied");
    makeFolder("forbidden", 0755);
    EXPECT_EQ(written("into"), "111 ");
}

TEST_F(RightsOfAPath, FolderBelowAHomeFolderThatIsNotWritableCannotBeMade)
{
    fs::permissions(m_home.path(), fs::perms(0555));
    EXPECT_EQ(written("Videos/Lumora Library"), expanded("000 missing, and ~ is not writable"));
}

TEST_F(RightsOfAPath, ReadFileThatIsNotWritableIsNoTrouble)
{
    fs::permissions(home() + "/file", fs::perms(0444));
    EXPECT_EQ(read("file"), "101 ");
}

} // namespace
