// SPDX-License-Identifier: MIT
//
// Files that no outbox of this version is in: none is changed, and a damaged one is moved aside.
#include "support/OutboxTest.h"

#include <unistd.h>

namespace fs = std::filesystem;

namespace {

class OutboxFile : public OutboxTest {
protected:
    void make() const { addAndEnd("a", "1"); }

    void overwrite(std::string const& text) const
    {
        std::ofstream(file(), std::ios::binary | std::ios::trunc) << text;
        fs::permissions(file(), fs::perms::owner_read | fs::perms::owner_write);
    }

    // Expects the file to be refused, for the reason, and left as it is.
    void expectRefusal(Code code, std::string const& reason) const
    {
        std::string const before = content(file());
        Storage::StorageError const error = errorOfOpening();
        EXPECT_EQ(error.code(), code) << error.what();
        EXPECT_EQ(error.file(), file().string());
        EXPECT_EQ(error.attempt(), "open the outbox");
        EXPECT_EQ(error.reason(), reason);
        EXPECT_FALSE(error.remedy().empty());
        EXPECT_EQ(content(file()), before);
    }

    // Expects a new outbox in the place of the file, and the file itself, with its bytes, under another name.
    void expectMovedAside() const
    {
        std::string const before = content(file());
        Outbox outbox(file(), identity);
        EXPECT_EQ(text(outbox.pending()), "");
        ASSERT_EQ(outbox.damaged().size(), 1U);
        EXPECT_EQ(content(outbox.damaged().front()), before);
        EXPECT_EQ(outbox.damaged().front().string().substr(0, file().string().size() + 9), file().string() + ".damaged-");
        add(outbox, "b", "2");
    }
};

TEST_F(OutboxFile, OfANewerVersionIsRefused)
{
    make();
    OtherProgram(file()).execute("PRAGMA user_version = 2; CREATE TABLE later (x)");
    expectRefusal(Code::newer, "it was written by a newer version (schema 2, this version writes 1)");
}

TEST_F(OutboxFile, OfAnotherProgramIsRefused)
{
    OtherProgram(file()).execute("CREATE TABLE other (x)");
    fs::permissions(file(), fs::perms::owner_read | fs::perms::owner_write);
    expectRefusal(Code::foreign, "it is an SQLite file of another program");
}

TEST_F(OutboxFile, WithATriggerIsRefused)
{
    make();
    OtherProgram(file()).execute("CREATE TRIGGER loses AFTER INSERT ON operation BEGIN DELETE FROM operation; END");
    expectRefusal(Code::foreign, "it holds the trigger \"loses\", which an outbox never does");
}

TEST_F(OutboxFile, WithAnotherTableIsRefused)
{
    make();
    OtherProgram(file()).execute("DROP TABLE refusal; CREATE TABLE refusal (x)");
    expectRefusal(Code::foreign, "its table \"refusal\" is not defined as that of an outbox");
}

TEST_F(OutboxFile, ThatOthersMayReadIsRefused)
{
    make();
    fs::permissions(file(), fs::perms::group_read, fs::perm_options::add);
    expectRefusal(Code::foreign, "another user may read or change it");
}

TEST_F(OutboxFile, ThatIsALinkOrAFolderIsRefused)
{
    make();
    fs::rename(file(), m_home.path() / "elsewhere.sqlite");
    fs::create_symlink(m_home.path() / "elsewhere.sqlite", file());
    EXPECT_EQ(errorOfOpening().reason(), "it is not a regular file");
    fs::remove(file());
    fs::create_directory(file());
    EXPECT_EQ(errorOfOpening().reason(), "it is not a regular file");
}

TEST_F(OutboxFile, WhoseLocksAreALinkIsRefused)
{
    std::ofstream(m_home.path() / "precious") << "text";
    fs::create_symlink(m_home.path() / "precious", file().string() + "-lanes");
    Storage::StorageError const error = errorOfOpening();
    EXPECT_EQ(error.code(), Code::access) << error.what();
    EXPECT_EQ(content(m_home.path() / "precious"), "text");
    EXPECT_FALSE(fs::exists(file()));
}

TEST_F(OutboxFile, WhoseLocksAreNoFileOfThisUsersAloneIsRefused)
{
    fs::create_directory(m_home.path() / "folder");
    ASSERT_EQ(::mkfifo((file().string() + "-lanes").c_str(), 0600), 0);
    EXPECT_EQ(errorOfOpening().reason(), "it is not a regular file");
    fs::remove(file().string() + "-lanes");
    std::ofstream(file().string() + "-lanes") << "";
    fs::permissions(file().string() + "-lanes", fs::perms::others_write, fs::perm_options::add);
    EXPECT_EQ(errorOfOpening().reason(), "another user may read or change it");
}

TEST_F(OutboxFile, OfAnotherUserIsRefused)
{
    if (::geteuid() != 0)
        GTEST_SKIP() << "only root can give a file to another user";
    make();
    ASSERT_EQ(::chown(file().c_str(), ordinaryUser, ordinaryUser), 0);
    expectRefusal(Code::foreign, "another user may read or change it");
}

TEST_F(OutboxFile, ThatIsNoSqliteFileIsMovedAside)
{
    overwrite(std::string(5000, 'z'));
    expectMovedAside();
}

TEST_F(OutboxFile, ThatIsEmptyIsMovedAside)
{
    overwrite("");
    expectMovedAside();
}

TEST_F(OutboxFile, WithADamagedPageIsMovedAside)
{
    make();
    std::string bytes = content(file());
    bytes.replace(4096 * 2, 4096, std::string(4096, 'z'));
    overwrite(bytes);
    expectMovedAside();
}

TEST_F(OutboxFile, WhoseNumbersMakeNoSenseIsMovedAside)
{
    make();
    OtherProgram(file()).execute("UPDATE lane SET last = 9223372036854775807");
    expectMovedAside();
}

TEST_F(OutboxFile, WithoutKnowledgeOfTheServerIsMovedAside)
{
    make();
    OtherProgram(file()).execute("DELETE FROM about");
    expectMovedAside();
}

TEST_F(OutboxFile, DamagedFilesAreNamedUntilTheyAreRemoved)
{
    overwrite("no");
    {
        Outbox(file(), identity);
    }
    overwrite("no again");
    {
        Outbox(file(), identity);
    }
    Outbox const outbox(file(), identity);
    std::vector<fs::path> const damaged = outbox.damaged();
    ASSERT_EQ(damaged.size(), 2U);
    EXPECT_EQ(content(damaged.front()), "no");
    EXPECT_EQ(content(damaged.back()), "no again");
    fs::remove(damaged.front());
    EXPECT_EQ(outbox.damaged().size(), 1U);
}

TEST_F(OutboxFile, WhoseProgramIsStillAliveIsNotMovedAside)
{
    Outbox alive(file(), identity);
    add(alive, "a", "1");
    std::string const before = content(file());
    std::string const answer = inChild([&]() -> std::string {
        execl("/bin/sh", "sh", "-c", ("printf damaged >'" + file().string() + "'").c_str(), nullptr);
        return "cannot start a shell";
    });
    EXPECT_EQ(answer, "");
    Storage::StorageError const error = errorOfOpening();
    EXPECT_EQ(error.code(), Code::damaged);
    EXPECT_EQ(content(file()), "damaged");
    EXPECT_TRUE(alive.damaged().empty());
}

} // namespace
