// SPDX-License-Identifier: MIT
//
// Folders of a network that is gone: the system answers late or never, and nobody waits for it.
#include <inspector/model/DeskTest.h>

#include <QElapsedTimer>

#include <atomic>
#include <condition_variable>
#include <mutex>

#include <fcntl.h>
#include <sys/stat.h>

namespace {

// Calls of lstat for what lies below this folder hang until they are let go.
struct DeadMount {
    void wait()
    {
        std::unique_lock<std::mutex> turn(turns);
        ++inside;
        changed.notify_all();
        changed.wait(turn, [this] { return !hangs; });
        --inside;
        changed.notify_all();
    }

    // Returns once no call is left.
    void letGo()
    {
        std::unique_lock<std::mutex> turn(turns);
        hangs = false;
        changed.notify_all();
        changed.wait(turn, [this] { return inside == 0; });
    }

    std::mutex turns;
    std::condition_variable changed;
    int inside = 0;
    bool hangs = true;
};

std::string const deadFolder = "/dead-mount";
std::atomic<DeadMount*> mounted{nullptr};

} // namespace

// In place of the system's.
extern "C" __attribute__((visibility("default"))) int lstat(char const* file, struct stat* status) noexcept
{
    DeadMount* const mount = mounted;
    if (mount && std::string(file).compare(0, deadFolder.size(), deadFolder) == 0)
        mount->wait();
    return ::fstatat(AT_FDCWD, file, status, AT_SYMLINK_NOFOLLOW);
}

namespace {

class SlowFolders : public DeskTest {
protected:
    SlowFolders() { mounted = &m_mount; }
    ~SlowFolders() override
    {
        m_mount.letGo();
        mounted = nullptr;
    }

    int hanging()
    {
        std::lock_guard<std::mutex> const turn(m_mount.turns);
        return m_mount.inside;
    }

    void startWithDeadFolder()
    {
        m_other.set("exportPath", deadFolder + "/films");
        startChanging();
        QObject::connect(&*m_desk, &Inspector::Desk::folderChecked, &m_receiver,
                         [this](int number, Inspection::PathStatus const& status) { m_checked[number] = remark(status); });
        ASSERT_TRUE(comes([this] { return hanging() > 0; }));
    }

    std::string statusOf(std::string const& location) const
    {
        for (auto const& each : m_snapshot->locations)
            if (each->id == location)
                return each->cells[3].toStdString();
        return "(none)";
    }

    // The remark of a typed folder; what stands there for none.
    std::string checked(QString const& folder)
    {
        int const number = m_desk->checkFolder(folder);
        EXPECT_TRUE(comes([&] { return m_checked.count(number) > 0; })) << folder.toStdString();
        return m_checked[number];
    }

    std::map<int, std::string> m_checked;
    DeadMount m_mount;
};

TEST_F(SlowFolders, DoNotHoldUpSettingsAndChanges)
{
    startWithDeadFolder();
    EXPECT_EQ(cell("exportPath"), "/dead-mount/films");
    ASSERT_TRUE(comes([this] { return statusOf("audioRecordPath") == "missing; the editor can make it"; })) << "the others are answered";
    EXPECT_EQ(statusOf("exportPath"), "the system has not answered yet");
    m_other.set("lastTarget", "theirs");
    EXPECT_TRUE(comesToShow("lastTarget", "theirs"));
    EXPECT_EQ(set("lastTarget", QStringLiteral("mine")).outcome, Outcome::stored);
    EXPECT_EQ(set("exportPath", QStringLiteral("/dead-mount/other")).outcome, Outcome::stored);
    EXPECT_GT(hanging(), 0) << "all the while";
}

TEST_F(SlowFolders, AnswerIsShownWhenItComes)
{
    startWithDeadFolder();
    m_mount.letGo();
    ASSERT_TRUE(comes([this] { return statusOf("exportPath").find("missing") == 0; })) << statusOf("exportPath");
    EXPECT_TRUE(comesToBeExamined());
}

TEST_F(SlowFolders, EndDoesNotWaitForThem)
{
    startWithDeadFolder();
    m_desk->checkFolder(QStringLiteral("/dead-mount/typed"));
    ASSERT_TRUE(comes([this] { return hanging() > 1; }));
    QElapsedTimer ending;
    ending.start();
    m_desk.reset();
    EXPECT_LT(ending.elapsed(), 30000);
    EXPECT_GT(hanging(), 1) << "the calls are left behind";
    m_mount.letGo();
}

TEST_F(SlowFolders, ManyOfThemHoldUpNoSetting)
{
    startWithDeadFolder();
    for (int number = 0; number < 10; ++number)
        m_desk->checkFolder(QStringLiteral("/dead-mount/%1").arg(number));
    ASSERT_TRUE(comes([this] { return hanging() == 4; })) << "no more threads than that";
    EXPECT_EQ(set("lastTarget", QStringLiteral("mine")).outcome, Outcome::stored);
    EXPECT_TRUE(m_checked.empty());
    m_mount.letGo();
    EXPECT_TRUE(comes([this] { return m_checked.size() == 10; }));
}

TEST_F(SlowFolders, TypedFolderIsAnsweredInTheWordsOfTheLocations)
{
    startWithDeadFolder();
    std::filesystem::path const home = m_home.path();
    m_home.write("blocked", "a file");
    std::filesystem::create_symlink("/nowhere/at/all", home / "dangling");
    std::filesystem::create_directory(home / "there");
    auto const inHome = [&](char const* name) { return QString::fromStdString((home / name).string()); };
    EXPECT_EQ(checked(inHome("there")), "");
    EXPECT_EQ(checked(inHome("missing")), "missing; the editor can make it");
    EXPECT_EQ(checked(inHome("blocked")), "not a folder");
    EXPECT_EQ(checked(inHome("blocked/below")), "missing, and " + (home / "blocked").string() + " is not a folder");
    EXPECT_EQ(checked(inHome("dangling")), "dangling link to /nowhere/at/all");
    EXPECT_EQ(checked(QString::fromStdString(home.string())), "the home folder itself");
    EXPECT_EQ(checked(QStringLiteral("films")), "not absolute: it depends on the folder that the editor is started in");
    EXPECT_EQ(checked(QString()), "empty");
}

} // namespace
