// SPDX-License-Identifier: MIT
//
// The movies and music locations are Qt's whatever happens to the file and the environment that they come from, and Qt
// is not asked where nothing happened. This program stands before `open64`, to see when the file is read and to do
// things meanwhile, and before `time`, to let files be old.
#include <Lumora/Util/StandardPaths.h>

#include <support/BoundLibrary.h>
#include <support/Named.h>
#include <support/Process.h>
#include <support/Tally.h>

#include <QDir>
#include <QTextCodec>

#include <atomic>
#include <chrono>
#include <cstdarg>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <random>
#include <thread>

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

constexpr auto moviesLocation = QStandardPaths::MoviesLocation;
constexpr auto musicLocation = QStandardPaths::MusicLocation;

QString movies() { return Lumora::Util::GetStandardPath(moviesLocation); }

// What happens around the next opening of a user-dirs.dirs.
struct Meanwhile {
    std::function<void()> before = [] {};
    std::function<void()> after = [] {};
    int error = 0; // why it fails, if it does
};

std::atomic<int> openings = 0;
std::atomic<time_t> fixedTime = 0; // 0 for none
Meanwhile* meanwhile = nullptr;

template <typename Function>
Function* next(char const* name)
{
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

bool isUserDirs(char const* path) { return std::string(path).find("/user-dirs.dirs") != std::string::npos; }

// An answer is kept once the files are older than three seconds; by this clock they are, if nothing else happens.
struct LaterClock {
    LaterClock() { fixedTime = std::time(nullptr) + 1000; }
    ~LaterClock() { fixedTime = 0; }
};

// Whether `ask` is answered without a look into the file.
bool isKept(std::function<void()> const& ask = [] { movies(); })
{
    int const before = openings;
    ask();
    return openings == before;
}

// Asks once the kept answers are gone, which come to life later than it.
struct AtTheEnd {
    ~AtTheEnd()
    {
        if (movies() != QStandardPaths::writableLocation(moviesLocation))
            std::abort();
    }
} const atTheEnd;

// The same while Qt's codecs, which come to life with it, are still there.
struct BeforeTheEnd : AtTheEnd {
    BeforeTheEnd() { QTextCodec::codecForLocale(); }
} const beforeTheEnd;

} // namespace

#define VISIBLE __attribute__((visibility("default")))

extern "C" VISIBLE int open64(char const* path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    mode_t const mode = flags & (O_CREAT | O_TMPFILE) ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    static auto* const open = next<int(char const*, int, mode_t)>("open64");
    if (!isUserDirs(path))
        return open(path, flags, mode);
    ++openings;
    if (!meanwhile)
        return open(path, flags, mode);
    Meanwhile const& now = *std::exchange(meanwhile, nullptr);
    now.before();
    int const file = now.error == 0 ? open(path, flags, mode) : -1;
    now.after();
    if (now.error != 0)
        errno = now.error;
    return file;
}

extern "C" VISIBLE time_t time(time_t* result) noexcept
{
    time_t const now = fixedTime != 0 ? fixedTime.load() : next<time_t(time_t*)>("time")(nullptr);
    if (result)
        *result = now;
    return now;
}

namespace {

class UserDirectories : public testing::Test {
protected:
    // What is changed from now on has another stamp, also where stamps are as coarse as the kernel's tick.
    UserDirectories() { std::this_thread::sleep_for(std::chrono::milliseconds(20)); }

    std::string path(char const* relative) const { return (m_home.path() / relative).string(); }
    QString inHome(char const* relative) const { return QString::fromStdString(path(relative)); }

    void keep()
    {
        movies();
        ASSERT_TRUE(isKept()) << "the answer is kept at first";
    }

    TestKit::TemporaryHome m_home;
    std::string m_file = m_home.write(".config/user-dirs.dirs", "XDG_VIDEOS_DIR=\"/one\"\nXDG_MUSIC_DIR=\"$HOME/uno\"\n").string();
    LaterClock m_clock;
};

// --- What is kept ---

TEST_F(UserDirectories, AnswerIsKeptWhileNothingChanges)
{
    EXPECT_FALSE(isKept());
    for (int time = 0; time < 3; ++time)
        EXPECT_TRUE(isKept());
    EXPECT_EQ(movies(), QStringLiteral("/one"));
}

TEST_F(UserDirectories, BothLocationsAreKeptSideBySide)
{
    auto const ask = [&] {
        EXPECT_EQ(movies(), QStringLiteral("/one"));
        EXPECT_EQ(Lumora::Util::GetStandardPath(musicLocation), inHome("uno"));
    };
    ask();
    EXPECT_TRUE(isKept(ask));
}

TEST_F(UserDirectories, OtherLocationsAreAskedEachTime)
{
    m_home.write(".config/user-dirs.dirs", "XDG_DOCUMENTS_DIR=\"/texts\"\n");
    for (int time = 0; time < 2; ++time)
        EXPECT_FALSE(isKept([] { EXPECT_EQ(Lumora::Util::GetStandardPath(QStandardPaths::DocumentsLocation), QStringLiteral("/texts")); }));
}

TEST_F(UserDirectories, AbsentFileIsKeptAsWell)
{
    fs::remove(m_file);
    keep();
    EXPECT_EQ(movies(), inHome("Videos"));
}

TEST_F(UserDirectories, AbsentFolderIsKeptAsWell)
{
    fs::remove_all(m_home.path() / ".config");
    keep();
    EXPECT_EQ(movies(), inHome("Videos"));
}

TEST_F(UserDirectories, FileInTheFoldersPlaceIsAnAbsentFile)
{
    fs::remove_all(m_home.path() / ".config");
    m_home.write(".config", "");
    keep();
    EXPECT_EQ(movies(), inHome("Videos"));
}

TEST_F(UserDirectories, NamesBeyondUtf8AreThoseThatQtOpens)
{
    ::setenv("XDG_CONFIG_HOME", path("\xFF").c_str(), 1);
    m_home.write("\xEF\xBF\xBD/user-dirs.dirs", "XDG_VIDEOS_DIR=\"/replaced\"\n");
    keep();
    EXPECT_EQ(movies(), QStringLiteral("/replaced"));
    m_home.write("\xEF\xBF\xBD/user-dirs.dirs", "XDG_VIDEOS_DIR=\"/changed\"\n");
    EXPECT_EQ(movies(), QStringLiteral("/changed"));
}

// --- What ends it ---

struct Change {
    char const* meaning;
    void (*make)(fs::path const& home);
    char const* movies; // what they are then; "~" is the home folder
    char const* music;
};

void rewrite(fs::path const& file, char const* text) { std::ofstream(file, std::ios::binary | std::ios::trunc) << text; }
void setHome(fs::path const& home) { ::setenv("HOME", home.c_str(), 1); }
void setConfig(fs::path const& folder) { ::setenv("XDG_CONFIG_HOME", folder.c_str(), 1); }

char const* const two = "XDG_VIDEOS_DIR=\"/two\"\nXDG_MUSIC_DIR=\"$HOME/due\"\n";

// The tests start with XDG_CONFIG_HOME=~/.config. Other homes and folders hold what `two` holds.
Change const table[] = {
    {"ChangedInPlaceInTheSameLength", [](fs::path const& home) { rewrite(home / ".config/user-dirs.dirs", two); }, "/two", "~/due"},
    {"ChangedThroughAnotherLink",
     [](fs::path const& home) {
         fs::create_hard_link(home / ".config/user-dirs.dirs", home / "link");
         movies();
         rewrite(home / "link", two);
     },
     "/two", "~/due"},
    {"StampSetBack",
     [](fs::path const& home) {
         auto const stamp = fs::last_write_time(home / ".config/user-dirs.dirs");
         rewrite(home / ".config/user-dirs.dirs", two);
         fs::last_write_time(home / ".config/user-dirs.dirs", stamp);
     },
     "/two", "~/due"},
    {"Truncated", [](fs::path const& home) { fs::resize_file(home / ".config/user-dirs.dirs", 0); }, "~/Videos", "~/Music"},
    {"ReplacedByARename", [](fs::path const& home) { fs::rename(home / "two", home / ".config/user-dirs.dirs"); }, "/two", "~/due"},
    {"Removed", [](fs::path const& home) { fs::remove(home / ".config/user-dirs.dirs"); }, "~/Videos", "~/Music"},
    {"ReplacedByAFolder",
     [](fs::path const& home) {
         fs::remove(home / ".config/user-dirs.dirs");
         fs::create_directory(home / ".config/user-dirs.dirs");
     },
     "~/Videos", "~/Music"},
    {"ReplacedByADanglingLink",
     [](fs::path const& home) {
         fs::remove(home / ".config/user-dirs.dirs");
         fs::create_symlink("nowhere", home / ".config/user-dirs.dirs");
     },
     "~/Videos", "~/Music"},
    {"ReplacedByALinkToAnotherFile",
     [](fs::path const& home) {
         fs::remove(home / ".config/user-dirs.dirs");
         fs::create_symlink("../two", home / ".config/user-dirs.dirs");
     },
     "/two", "~/due"},
    {"FolderMovedAway", [](fs::path const& home) { fs::rename(home / ".config", home / "moved"); }, "~/Videos", "~/Music"},
    {"FolderReplacedByALink",
     [](fs::path const& home) {
         fs::rename(home / ".config", home / "moved");
         fs::create_symlink("other/.config", home / ".config");
     },
     "/two", "~/due"},
    {"OtherHome",
     [](fs::path const& home) {
         ::unsetenv("XDG_CONFIG_HOME");
         setHome(home / "other");
     },
     "/two", "~/other/due"},
    {"OtherHomeWithTheSameFile", [](fs::path const& home) { setHome(home / "other"); }, "/one", "~/other/uno"},
    {"OtherHomeWithoutAFile",
     [](fs::path const& home) {
         ::unsetenv("XDG_CONFIG_HOME");
         setHome(home / "none");
     },
     "~/none/Videos", "~/none/Music"},
    {"NoHomeAndNoFile",
     [](fs::path const&) {
         ::unsetenv("XDG_CONFIG_HOME");
         ::unsetenv("HOME");
     },
     "//Videos", "//Music"},
    {"EmptyHomeAndNoFile",
     [](fs::path const&) {
         ::unsetenv("XDG_CONFIG_HOME");
         setHome("");
     },
     "//Videos", "//Music"},
    {"UncleanHome",
     [](fs::path const& home) {
         ::unsetenv("XDG_CONFIG_HOME");
         setHome(home / "none/..//other/");
     },
     "/two", "~/other/due"},
    {"RelativeHome",
     [](fs::path const&) {
         ::unsetenv("XDG_CONFIG_HOME");
         setHome("no/such/../folder/");
     },
     "no/folder/Videos", "no/folder/Music"},
    {"OtherFolder", [](fs::path const& home) { setConfig(home / "other/.config"); }, "/two", "~/due"},
    {"OtherFolderWithoutAFile", [](fs::path const& home) { setConfig(home / "none"); }, "~/Videos", "~/Music"},
    {"EmptyFolderIsTheHomesOwn",
     [](fs::path const& home) {
         setConfig(home / "none");
         movies();
         setConfig("");
     },
     "/one", "~/uno"},
    {"NoFolderIsTheHomesOwn",
     [](fs::path const& home) {
         setConfig(home / "none");
         movies();
         ::unsetenv("XDG_CONFIG_HOME");
     },
     "/one", "~/uno"},
    {"FolderOfQtsOwn", [](fs::path const&) { setConfig(":"); }, "~/Videos", "~/Music"},
    {"TestMode", [](fs::path const&) { QStandardPaths::setTestModeEnabled(true); }, "~/Videos", "~/Music"},
};

std::ostream& operator<<(std::ostream& stream, Change const& change) { return stream << change.meaning; }

class ChangeOfTheFile : public UserDirectories, public testing::WithParamInterface<Change> {
protected:
    void TearDown() override { QStandardPaths::setTestModeEnabled(false); }

    QString expected(std::string folder) const
    {
        if (folder.front() == '~')
            folder.replace(0, 1, m_home.path().string());
        return QString::fromStdString(folder);
    }
};

TEST_P(ChangeOfTheFile, IsHeardAtOnce)
{
    m_home.write("two", two);
    m_home.write("other/.config/user-dirs.dirs", two);
    fs::create_directories(m_home.path() / "none");
    keep();
    Lumora::Util::GetStandardPath(musicLocation);
    GetParam().make(m_home.path());
    for (int time = 0; time < 3; ++time) {
        EXPECT_EQ(movies(), expected(GetParam().movies));
        EXPECT_EQ(Lumora::Util::GetStandardPath(musicLocation), expected(GetParam().music));
    }
}

INSTANTIATE_TEST_SUITE_P(Table, ChangeOfTheFile, testing::ValuesIn(table), byMeaning);

TEST_F(UserDirectories, FileAppears)
{
    fs::remove(m_file);
    keep();
    rewrite(m_file, two);
    EXPECT_EQ(movies(), QStringLiteral("/two"));
}

TEST_F(UserDirectories, FolderAndFileAppear)
{
    fs::remove_all(m_home.path() / ".config");
    keep();
    m_home.write(".config/user-dirs.dirs", two);
    EXPECT_EQ(movies(), QStringLiteral("/two"));
}

TEST_F(UserDirectories, FileOfAnUncleanHomeIsThatOfTheCleanOne)
{
    m_home.write("other/.config/user-dirs.dirs", two);
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    ::unsetenv("XDG_CONFIG_HOME");
    setHome(m_home.path() / "nowhere/..//other/");
    keep();
    EXPECT_EQ(movies(), QStringLiteral("/two"));
    m_home.write("other/.config/user-dirs.dirs", "");
    EXPECT_EQ(movies(), inHome("other/Videos"));
}

// Files that were made in one tick of a kernel with coarse stamps have the same, and only the inode tells them apart.
TEST_F(UserDirectories, LinkToAnotherFileWithTheSameStampsIsHeard)
{
    auto const stamps = [&](char const* name) {
        struct stat status = {};
        ::stat(path(name).c_str(), &status);
        return std::vector<long>{status.st_mtim.tv_sec, status.st_mtim.tv_nsec, status.st_ctim.tv_sec, status.st_ctim.tv_nsec};
    };
    for (int attempt = 0; attempt < 1000; ++attempt) {
        fs::remove(path("a"));
        fs::remove(path("b"));
        rewrite(path("a"), "XDG_VIDEOS_DIR=\"/a\"\n"); // with no look at the folder, which would make stamps finer
        rewrite(path("b"), "XDG_VIDEOS_DIR=\"/b\"\n");
        if (stamps("a") == stamps("b"))
            break;
    }
    if (stamps("a") != stamps("b"))
        GTEST_SKIP() << "stamps are too fine here";
    fs::create_symlink(path("b"), path("next"));
    fs::remove(m_file);
    fs::create_symlink(path("a"), m_file);
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    keep();
    EXPECT_EQ(movies(), QStringLiteral("/a"));
    fs::rename(path("next"), m_file);
    EXPECT_EQ(movies(), QStringLiteral("/b"));
}

TEST_F(UserDirectories, OtherCodecReadsTheFileOtherwise)
{
    rewrite(m_file, "XDG_VIDEOS_DIR=\"/\xC3\xBC\"\n");
    keep();
    EXPECT_EQ(movies(), QString::fromUtf16(u"/\u00FC"));
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("ISO-8859-1"));
    EXPECT_EQ(movies(), QString::fromUtf16(u"/\u00C3\u00BC"));
    EXPECT_FALSE(isKept());
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    EXPECT_EQ(movies(), QString::fromUtf16(u"/\u00FC"));
}

TEST(UserDirectoriesOfAnOrdinaryUser, FileThatMayNotBeReadIsAskedForUntilItMay)
{
    auto const work = [] {
        TestKit::TemporaryHome const home;
        fs::path const file = home.write(".config/user-dirs.dirs", two);
        LaterClock const clock;
        auto const answer = [] {
            std::string const folder = fs::path(movies().toStdString()).filename().string();
            return folder + (isKept() ? " kept, " : " asked, ");
        };
        std::string answers = answer();
        fs::permissions(file, fs::perms::none);
        answers += answer();
        fs::permissions(file, fs::perms::owner_read);
        return answers + answer();
    };
    EXPECT_EQ(inChild(work, true), "two kept, Videos asked, two kept, ");
}

// --- What is not kept ---

TEST_F(UserDirectories, AnswerFromAYoungFileIsNotKept)
{
    struct stat status;
    ASSERT_EQ(::stat(m_file.c_str(), &status), 0);
    fixedTime = status.st_ctime + 3;
    movies();
    EXPECT_FALSE(isKept());
    fixedTime = status.st_ctime + 5; // the folder may be a second younger
    movies();
    EXPECT_TRUE(isKept());
}

TEST_F(UserDirectories, AnswerFromAFileWhoseStampWasSetBackIsYoungNevertheless)
{
    std::this_thread::sleep_for(std::chrono::milliseconds(1100)); // the folder is to be older
    rewrite(m_file, two);
    fs::last_write_time(m_file, fs::file_time_type::clock::now() - std::chrono::hours(1));
    struct stat status;
    ASSERT_EQ(::stat(m_file.c_str(), &status), 0);
    fixedTime = status.st_ctime + 3;
    movies();
    EXPECT_FALSE(isKept());
}

TEST_F(UserDirectories, AnswerFromAFileOfTheFutureIsNotKept)
{
    fs::last_write_time(m_file, fs::file_time_type::clock::now() + std::chrono::hours(1));
    movies();
    EXPECT_FALSE(isKept());
}

TEST_F(UserDirectories, AnswerFromAYoungFolderIsNotKept)
{
    struct stat status;
    ASSERT_EQ(::stat(m_file.c_str(), &status), 0);
    std::this_thread::sleep_for(std::chrono::milliseconds(1100));
    m_home.write(".config/other", "");
    fixedTime = status.st_ctime + 4; // enough for the file alone
    movies();
    EXPECT_FALSE(isKept());
    fixedTime = status.st_ctime + 10;
    movies();
    EXPECT_TRUE(isKept());
}

TEST_F(UserDirectories, RelativeFolderIsAskedForEachTime)
{
    fs::path const earlier = fs::current_path();
    m_home.write("other/.config/user-dirs.dirs", two);
    setConfig(".config");
    fs::current_path(m_home.path());
    EXPECT_EQ(movies(), QStringLiteral("/one"));
    EXPECT_FALSE(isKept());
    fs::current_path(m_home.path() / "other");
    EXPECT_EQ(movies(), QStringLiteral("/two"));
    fs::current_path(earlier);
}

TEST_F(UserDirectories, FolderOfQtsSearchPathsIsAskedForEachTime)
{
    setConfig("searched:");
    EXPECT_EQ(movies(), inHome("Videos"));
    QDir::setSearchPaths(QStringLiteral("searched"), {inHome(".config")});
    EXPECT_EQ(movies(), QStringLiteral("/one"));
    EXPECT_FALSE(isKept());
    QDir::setSearchPaths(QStringLiteral("searched"), {});
    EXPECT_EQ(movies(), inHome("Videos"));
}

TEST_F(UserDirectories, WhatIsNoPlainFileIsAskedForEachTime)
{
    fs::remove(m_file);
    fs::create_directory(m_file);
    EXPECT_EQ(movies(), inHome("Videos"));
    EXPECT_FALSE(isKept());
    fs::remove(m_file);
    fs::create_symlink("/dev/null", m_file);
    EXPECT_EQ(movies(), inHome("Videos"));
    EXPECT_FALSE(isKept());
}

TEST_F(UserDirectories, WhatCannotBeLookedAtIsAskedForEachTime)
{
    fs::remove(m_file);
    fs::create_symlink("user-dirs.dirs", m_file);
    EXPECT_EQ(movies(), inHome("Videos"));
    EXPECT_FALSE(isKept());
}

TEST_F(UserDirectories, RefusedOpeningIsNotKept)
{
    for (int const error : {EMFILE, EIO, EACCES}) {
        rewrite(m_file, two);
        Meanwhile refused;
        refused.error = error;
        meanwhile = &refused;
        EXPECT_EQ(movies(), inHome("Videos")) << "what Qt makes of it";
        EXPECT_EQ(movies(), QStringLiteral("/two"));
    }
}

TEST_F(UserDirectories, ChangeWhileQtReadsIsHeard)
{
    Meanwhile changed;
    changed.before = [&] { rewrite(m_file, two); };
    meanwhile = &changed;
    EXPECT_EQ(movies(), QStringLiteral("/two"));
    rewrite(m_file, "XDG_VIDEOS_DIR=\"/six\"\nXDG_MUSIC_DIR=\"$HOME/sei\"\n");
    EXPECT_EQ(movies(), QStringLiteral("/six"));
    changed.before = [] {};
    changed.after = [&] { fs::remove(m_file); };
    rewrite(m_file, two);
    meanwhile = &changed;
    EXPECT_EQ(movies(), QStringLiteral("/two")) << "from the file that Qt had opened";
    EXPECT_EQ(movies(), inHome("Videos"));
}

TEST_F(UserDirectories, FileThatComesAndGoesWhileQtReadsIsNotKept)
{
    fs::remove(m_file);
    Meanwhile there;
    there.before = [&] { rewrite(m_file, two); };
    there.after = [&] { fs::remove(m_file); };
    meanwhile = &there;
    EXPECT_EQ(movies(), QStringLiteral("/two"));
    EXPECT_EQ(movies(), inHome("Videos"));
}

TEST_F(UserDirectories, FileMissingBehindALinkIsAskedForEachTime)
{
    fs::remove(m_file);
    fs::create_directory(path("elsewhere"));
    fs::create_symlink(path("elsewhere/file"), m_file);
    EXPECT_EQ(movies(), inHome("Videos"));
    EXPECT_FALSE(isKept());
    fs::remove_all(path(".config"));
    fs::create_symlink(path("elsewhere/folder"), path(".config"));
    EXPECT_EQ(movies(), inHome("Videos"));
    EXPECT_FALSE(isKept());
}

TEST_F(UserDirectories, FileThatComesAndGoesBehindALinkWhileQtReadsIsNotKept)
{
    fs::remove(m_file);
    fs::create_directory(path("elsewhere"));
    fs::create_symlink(path("elsewhere/file"), m_file);
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    Meanwhile there;
    there.before = [&] { m_home.write("elsewhere/file", two); };
    there.after = [&] { fs::remove(path("elsewhere/file")); };
    meanwhile = &there;
    EXPECT_EQ(movies(), QStringLiteral("/two"));
    EXPECT_EQ(movies(), inHome("Videos"));
}

TEST_F(UserDirectories, FolderThatComesAndGoesWhileQtReadsIsNotKept)
{
    fs::remove_all(m_home.path() / ".config");
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    Meanwhile there;
    there.before = [&] { m_home.write(".config/user-dirs.dirs", two); };
    there.after = [&] { fs::remove_all(m_home.path() / ".config"); };
    meanwhile = &there;
    EXPECT_EQ(movies(), QStringLiteral("/two"));
    EXPECT_EQ(movies(), inHome("Videos"));
}

TEST_F(UserDirectories, LinkThatLeadsElsewhereWhileQtReadsIsNotKept)
{
    m_home.write("two", two);
    fs::rename(m_file, path("one"));
    fs::create_symlink(path("one"), m_file);
    auto const lead = [&](char const* to) {
        fs::remove(m_file);
        fs::create_symlink(path(to), m_file);
    };
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    Meanwhile elsewhere;
    elsewhere.before = [&] { lead("two"); };
    elsewhere.after = [&] { lead("one"); };
    meanwhile = &elsewhere;
    EXPECT_EQ(movies(), QStringLiteral("/two"));
    EXPECT_EQ(movies(), QStringLiteral("/one"));
}

// --- At full speed ---

// Lets what was made so far grow older than three seconds, by the real clock.
void settle() { std::this_thread::sleep_for(std::chrono::milliseconds(4100)); }

std::string linesFor(int number, char letter)
{
    std::string const folder = std::to_string(10000 + number) + letter;
    return "XDG_VIDEOS_DIR=\"/m" + folder + "\"\nXDG_MUSIC_DIR=\"$HOME/s" + folder + "\"\n";
}

TEST(UserDirectoriesAtFullSpeed, OldFilesThatAreChangedInTheSameLengthAreReadAgain)
{
    TestKit::TemporaryHome const home;
    constexpr int files = 400;
    auto const folder = [&](int number) { return home.path() / std::to_string(number); };
    for (int number = 0; number < files; ++number)
        home.write(folder(number) / "user-dirs.dirs", linesFor(number, 'a'));
    settle();
    for (int number = 0; number < files; ++number) {
        setConfig(folder(number));
        movies();
        ASSERT_TRUE(isKept()) << number;
        rewrite(folder(number) / "user-dirs.dirs", linesFor(number, 'b').c_str());
        ASSERT_EQ(movies().toStdString(), "/m" + std::to_string(10000 + number) + "b");
    }
}

// A home folder whose file is changed in every way, and others that stay as they are.
class Changes {
public:
    explicit Changes(unsigned seed) : m_random(seed)
    {
        for (int number = 0; number < homes; number += 2) // the others have none
            m_root.write(std::to_string(number) + "/.config/user-dirs.dirs", linesFor(number, 'h'));
        for (int number = 1; number < homes; number += 2)
            fs::create_directories(m_root.path() / std::to_string(number));
        m_root.write("spare", linesFor(0, 's'));
        fs::create_directory(m_file.parent_path());
        settle();
    }

    void makeOne()
    {
        if (any(2) == 0)
            changeEnvironment();
        else
            changeFile();
    }

private:
    int any(int count) { return static_cast<int>(m_random() % static_cast<unsigned>(count)); }

    void changeEnvironment()
    {
        fs::path const home = m_root.path() / std::to_string(any(homes));
        switch (any(5)) {
        case 0:
            return setHome(home);
        case 1:
            return setConfig(home / ".config");
        case 2:
            return setConfig(m_file.parent_path());
        case 3:
            return setConfig("");
        default:
            ::unsetenv("XDG_CONFIG_HOME");
        }
    }

    void changeFile()
    {
        switch (any(8)) {
        case 0:
        case 1:
            clear();
            return rewrite(m_file, linesFor(any(100), 'i').c_str()); // in place, mostly: see clear
        case 2:
            clear();
            rewrite(m_root.path() / "new", linesFor(any(100), 'r').c_str());
            return fs::rename(m_root.path() / "new", m_file);
        case 3:
            fs::remove(m_file);
            return;
        case 4:
            clear();
            return rewrite(m_file, "");
        case 5:
            fs::remove(m_file);
            fs::create_directory(m_file);
            return;
        case 6:
            fs::remove(m_file);
            return fs::create_symlink("nowhere", m_file);
        default:
            fs::remove(m_file);
            return fs::create_symlink(m_root.path() / "spare", m_file);
        }
    }

    // Takes away what is no plain file.
    void clear()
    {
        if (!fs::is_regular_file(fs::symlink_status(m_file)))
            fs::remove(m_file);
    }

    static constexpr int homes = 10;
    std::mt19937 m_random;
    TestKit::TemporaryHome m_root;
    fs::path m_file = m_root.path() / "busy/user-dirs.dirs";
};

TEST(UserDirectoriesAtFullSpeed, AnswersAreQtsAfterEveryChange)
{
    Changes changes(seed());
    int const count = times(20000, 60000);
    int stale = 0;
    int kept = 0;
    for (int change = 0; change < count; ++change) {
        changes.makeOne();
        for (auto const location : {moviesLocation, musicLocation}) {
            QString answer;
            kept += isKept([&] { answer = Lumora::Util::GetStandardPath(location); });
            stale += answer != QStandardPaths::writableLocation(location);
        }
    }
    EXPECT_EQ(stale, 0) << "of " << count << " changes";
    EXPECT_GT(kept, count / 10) << "kept answers are really given";
}

TEST_F(UserDirectories, ThreadsMayAskWhileAnotherProgramWrites)
{
    std::atomic<bool> isOver = false;
    std::atomic<int> others = 0;
    auto const read = [&] {
        while (!isOver) {
            QString const answer = movies();
            others += answer != QStringLiteral("/one") && answer != QStringLiteral("/two") && answer != inHome("Videos");
        }
    };
    std::vector<std::thread> readers;
    for (int reader = 0; reader < 3; ++reader)
        readers.emplace_back(read);
    for (int change = 0; change < 50; ++change) {
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        rewrite(m_file, change % 2 == 0 ? two : "XDG_VIDEOS_DIR=\"/one\"\n");
        EXPECT_EQ(movies(), change % 2 == 0 ? QStringLiteral("/two") : QStringLiteral("/one"));
    }
    isOver = true;
    for (std::thread& reader : readers)
        reader.join();
    EXPECT_EQ(others, 0);
}

} // namespace
