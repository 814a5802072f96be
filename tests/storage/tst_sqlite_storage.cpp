// SPDX-License-Identifier: MIT
#include <storage/support/StoreFolder.h>

#include <TestKit/StorageContract.h>

#include <support/Process.h>

#include <csignal>
#include <thread>
#include <type_traits>

#include <sys/wait.h>
#include <unistd.h>

static_assert(!std::is_copy_constructible_v<Storage::SqliteStorage>, "one object, one connection");
static_assert(std::is_base_of_v<std::runtime_error, Storage::StorageError>);

namespace {

using Storage::SqliteStorage;
using Storage::StorageError;
using Bytes = std::vector<unsigned char>;

struct SqliteBackend {
    std::shared_ptr<ISettingsStorage> open() { return std::make_shared<SqliteStorage>(home.path() / "store.sqlite"); }

    TestKit::TemporaryHome home;
};

} // namespace

namespace TestKit {
INSTANTIATE_TYPED_TEST_SUITE_P(Sqlite, StorageContract, SqliteBackend);
}

namespace {

class SqliteStore : public StoreFolder {};

// --- The file ---

TEST_F(SqliteStore, IsCreatedForItsOwnerOnlyWhateverTheUmask)
{
    for (mode_t const mask : {0u, 022u, 077u, 0777u}) {
        std::filesystem::remove_all(path("new"));
        mode_t const earlier = ::umask(mask);
        {
            SqliteStorage store(path("new") / "folder" / "store.sqlite");
            store.setInt("key", 1);
            ::umask(earlier);
        }
        EXPECT_EQ(mode(path("new")), 0700u) << "umask " << mask;
        EXPECT_EQ(mode(path("new") / "folder"), 0700u) << "umask " << mask;
        EXPECT_EQ(mode(path("new") / "folder" / "store.sqlite"), 0600u) << "umask " << mask;
        EXPECT_EQ(mode(path("new") / "folder" / "store.sqlite-journal"), 0600u) << "umask " << mask;
    }
}

TEST_F(SqliteStore, ExistingFolderKeepsItsMode)
{
    std::filesystem::create_directory(path("folder"));
    ::chmod(path("folder").c_str(), 0755);
    SqliteStorage const store(path("folder") / "store.sqlite");
    EXPECT_EQ(mode(path("folder")), 0755u);
}

TEST_F(SqliteStore, CreationLeavesOneFile)
{
    std::filesystem::create_directory(path("folder"));
    {
        SqliteStorage const store(path("folder") / "store.sqlite");
    }
    std::vector<std::string> names;
    for (auto const& entry : std::filesystem::directory_iterator(path("folder")))
        names.push_back(entry.path().filename().string());
    EXPECT_EQ(names, std::vector<std::string>{"store.sqlite"});
}

TEST_F(SqliteStore, OpeningAndReadingAnExistingFileNeverRewritesIt)
{
    SqliteStorage(path()).setString("key", "value");
    std::string const before = content(path());
    auto const timeBefore = std::filesystem::last_write_time(path());
    struct stat statusBefore = {};
    ::stat(path().c_str(), &statusBefore);
    {
        SqliteStorage const store(path());
        EXPECT_EQ(store.getString("key", ""), "value");
        EXPECT_EQ(store.rows().size(), 1u);
    }
    struct stat statusAfter = {};
    ::stat(path().c_str(), &statusAfter);
    EXPECT_EQ(content(path()), before);
    EXPECT_EQ(std::filesystem::last_write_time(path()), timeBefore);
    EXPECT_EQ(statusAfter.st_ino, statusBefore.st_ino);
    EXPECT_EQ(statusAfter.st_mode, statusBefore.st_mode);
}

TEST_F(SqliteStore, FileIsNamedAbsolutelyAndSurvivesAChangeOfDirectory)
{
    std::filesystem::path const earlier = std::filesystem::current_path();
    std::filesystem::current_path(m_home.path());
    SqliteStorage store("relative.sqlite");
    std::filesystem::current_path(earlier);
    store.setInt("key", 1);
    EXPECT_EQ(store.file(), path("relative.sqlite"));
    EXPECT_EQ(SqliteStorage(path("relative.sqlite")).getInt("key", 0), 1);
}

TEST_F(SqliteStore, LinkToAStoreIsFollowed)
{
    SqliteStorage(path()).setInt("key", 1);
    std::filesystem::create_symlink(path(), path("link"));
    SqliteStorage store(path("link"));
    store.setInt("key", 2);
    EXPECT_EQ(SqliteStorage(path()).getInt("key", 0), 2);
    EXPECT_TRUE(std::filesystem::is_symlink(path("link")));
}

TEST_F(SqliteStore, UsesARollbackJournalAndTellsWhoseFileItIs)
{
    SqliteStorage store(path());
    store.setInt("key", 1);
    EXPECT_TRUE(std::filesystem::exists(path("store.sqlite-journal"))) << "an emptied journal stays";
    EXPECT_EQ(std::filesystem::file_size(path("store.sqlite-journal")), 0u);
    EXPECT_FALSE(std::filesystem::exists(path("store.sqlite-wal")));
    OtherProgram other(path());
    EXPECT_EQ(other.ask("PRAGMA journal_mode"), "delete") << "nothing about the journal is kept in the file";
    EXPECT_EQ(other.ask("PRAGMA application_id"), "1282753875");
    EXPECT_EQ(other.ask("PRAGMA user_version"), "1");
}

// --- Rows ---

TEST_F(SqliteStore, KeepsOneRowForEachKeyWithKindValueAndTime)
{
    using namespace std::chrono;
    SqliteStorage store(path());
    auto const before = floor<milliseconds>(system_clock::now());
    store.setString("d text", "\xC3\xBC");
    store.setBool("a flag", true);
    store.setInt("B number", -5);
    store.setBytes("c bytes", Bytes{0, 255});
    store.setInt("a flag", 7);
    auto const after = system_clock::now();

    std::vector<SqliteStorage::Row> const rows = store.rows();
    ASSERT_EQ(rows.size(), 4u);
    EXPECT_EQ(rows[0].key, "B number") << "sorted by bytes, capitals first";
    EXPECT_EQ(rows[0].kind, "int");
    EXPECT_EQ(rows[0].value, SqliteStorage::Value(-5));
    EXPECT_EQ(rows[1].key, "a flag");
    EXPECT_EQ(rows[1].kind, "int") << "the later kind";
    EXPECT_EQ(rows[1].value, SqliteStorage::Value(7));
    EXPECT_EQ(rows[2].kind, "bytes");
    EXPECT_EQ(rows[2].value, SqliteStorage::Value(Bytes{0, 255}));
    EXPECT_EQ(rows[3].kind, "string");
    EXPECT_EQ(rows[3].value, SqliteStorage::Value(std::string("\xC3\xBC")));
    for (SqliteStorage::Row const& row : rows) {
        EXPECT_GE(row.changed, before) << row.key;
        EXPECT_LE(row.changed, after) << row.key;
    }
    store.setBool("a flag", false);
    EXPECT_EQ(store.find("a flag")->kind, "bool");
    EXPECT_EQ(store.find("a flag")->value, SqliteStorage::Value(false));
}

TEST_F(SqliteStore, TimeIsThatOfTheLastSet)
{
    SqliteStorage store(path());
    store.setInt("key", 1);
    store.setInt("other", 1);
    OtherProgram(path()).execute("UPDATE settings SET changed = 1000");
    EXPECT_EQ(store.find("key")->changed, std::chrono::system_clock::time_point(std::chrono::seconds(1)));
    store.setInt("key", 1);
    EXPECT_GT(store.find("key")->changed, std::chrono::system_clock::time_point(std::chrono::seconds(1)));
    EXPECT_EQ(store.find("other")->changed, std::chrono::system_clock::time_point(std::chrono::seconds(1)));
}

TEST_F(SqliteStore, MismatchOfKindsCanBeAskedFor)
{
    SqliteStorage store(path());
    store.setString("npsSendCount", "many");
    EXPECT_EQ(store.getInt("npsSendCount", 3), 3);
    ASSERT_TRUE(store.find("npsSendCount"));
    EXPECT_EQ(store.find("npsSendCount")->kind, "string");
    EXPECT_EQ(store.find("npsSendCount")->value, SqliteStorage::Value(std::string("many")));
    EXPECT_FALSE(store.find("absent"));
}

TEST_F(SqliteStore, RowsThatThisVersionCannotReadGiveDefaultsAndStay)
{
    SqliteStorage store(path());
    OtherProgram other(path());
    other.execute(
        "INSERT INTO settings VALUES ('later', 'date', '2030-01-01', 5), ('big', 'int', 99999999999, 5), ('small', 'int', -2147483649, 5),"
        "('two', 'bool', 2, 5), ('number', 'string', 7, 5), ('text', 'int', '7', 5), ('textual', 'bytes', 'abc', 5), ('half', 'int', 0.5, "
        "5)");
    for (char const* key : {"later", "big", "small", "two", "number", "text", "textual", "half"}) {
        EXPECT_TRUE(store.contains(key)) << key;
        EXPECT_EQ(store.find(key)->value, SqliteStorage::Value()) << key;
        EXPECT_TRUE(store.getBool(key, true)) << key;
        EXPECT_EQ(store.getInt(key, 42), 42) << key;
        EXPECT_EQ(store.getString(key, "default"), "default") << key;
        EXPECT_EQ(store.getBytes(key, Bytes{9}), Bytes{9}) << key;
    }
    EXPECT_EQ(store.find("later")->kind, "date");
    store.setInt("own", 1);
    EXPECT_EQ(other.ask("SELECT kind || value || changed FROM settings WHERE key = 'later'"), "date2030-01-015");
    EXPECT_EQ(other.ask("SELECT value FROM settings WHERE key = 'big'"), "99999999999");
}

TEST_F(SqliteStore, EdgesOfTheNumbersAreReadable)
{
    SqliteStorage const store(path());
    OtherProgram(path()).execute("INSERT INTO settings VALUES ('max', 'int', 2147483647, 5), ('min', 'int', -2147483648, 5)");
    EXPECT_EQ(store.getInt("max", 0), 2147483647);
    EXPECT_EQ(store.getInt("min", 0), -2147483647 - 1);
}

TEST_F(SqliteStore, TimeBeyondTheClockIsItsFirstOrLast)
{
    SqliteStorage const store(path());
    OtherProgram(path()).execute("INSERT INTO settings VALUES ('end', 'int', 1, 9223372036854775807),"
                                 " ('begin', 'int', 1, -9223372036854775807 - 1), ('last', 'int', 1, 9223372036854)");
    using std::chrono::milliseconds;
    EXPECT_EQ(store.find("end")->changed.time_since_epoch(), milliseconds(9223372036854));
    EXPECT_EQ(store.find("begin")->changed.time_since_epoch(), milliseconds(-9223372036854));
    EXPECT_EQ(store.find("last")->changed.time_since_epoch(), milliseconds(9223372036854));
}

// --- Several processes ---

TEST_F(SqliteStore, ValueIsOnDiskWhenSetReturnsAndTheProcessIsKilled)
{
    pid_t const child = ::fork();
    if (child == 0) {
        SqliteStorage store(path());
        store.setString("exportPath", "/tmp/x");
        ::raise(SIGKILL);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    ASSERT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL);
    EXPECT_EQ(SqliteStorage(path()).getString("exportPath", ""), "/tmp/x");
}

TEST_F(SqliteStore, AnotherProcessesWriteShowsAtTheNextRead)
{
    LaterChild writer(*this, [&] { return SqliteStorage(path()).setInt("key", 2), std::string("done"); });
    SqliteStorage store(path());
    store.setInt("key", 1);
    EXPECT_EQ(store.getInt("key", 0), 1);
    writer.begin();
    EXPECT_EQ(writer.answer(), "done");
    EXPECT_EQ(store.getInt("key", 0), 2);
}

TEST_F(SqliteStore, ProcessesThatWriteAtOnceLoseNothing)
{
    constexpr int processes = 4;
    constexpr int writes = 25;
    std::vector<std::unique_ptr<Child>> children;
    for (int id = 0; id < processes; ++id)
        children.push_back(std::make_unique<Child>([&] {
            SqliteStorage store(path());
            for (int write = 0; write < writes; ++write)
                store.setInt(std::to_string(id) + '/' + std::to_string(write), write);
            return std::string("done");
        }));
    for (auto const& child : children)
        EXPECT_EQ(child->answer(), "done");
    EXPECT_EQ(SqliteStorage(path()).rows().size(), static_cast<std::size_t>(processes * writes));
}

TEST_F(SqliteStore, ThreadsThatCreateItAtOnceShareOneFile)
{
    constexpr int threads = 8;
    std::vector<std::thread> creating;
    for (int id = 0; id < threads; ++id)
        creating.emplace_back([&, id] { SqliteStorage(path("new") / "store.sqlite").setInt(std::to_string(id), id); });
    for (std::thread& thread : creating)
        thread.join();
    EXPECT_EQ(SqliteStorage(path("new") / "store.sqlite").rows().size(), static_cast<std::size_t>(threads));
}

TEST_F(SqliteStore, WriterWaitsForAnotherProcess)
{
    SqliteStorage store(path());
    OtherProgram other(path());
    other.execute("BEGIN EXCLUSIVE");
    std::thread releasing([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(200));
        other.execute("COMMIT");
    });
    EXPECT_NO_THROW(store.setInt("key", 1));
    releasing.join();
    EXPECT_EQ(store.getInt("key", 0), 1);
}

TEST_F(SqliteStore, LongestWaitIsNotTakenForNone)
{
    SqliteStorage::Options patient;
    patient.busyTimeout = std::chrono::milliseconds::max();
    SqliteStorage store(path(), patient);
    OtherProgram other(path());
    other.execute("BEGIN EXCLUSIVE");
    std::thread releasing([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(200));
        other.execute("COMMIT");
    });
    EXPECT_NO_THROW(store.setInt("key", 1));
    releasing.join();
}

TEST_F(SqliteStore, WriterThatWaitsTooLongThrowsAndWorksAgainLater)
{
    SqliteStorage::Options impatient;
    impatient.busyTimeout = std::chrono::milliseconds(50);
    SqliteStorage store(path(), impatient);
    store.setInt("key", 1);
    OtherProgram other(path());
    other.execute("BEGIN EXCLUSIVE");
    try {
        store.setInt("key", 2);
        FAIL() << "nothing was thrown";
    } catch (StorageError const& error) {
        EXPECT_EQ(std::string(error.what()), path().string() + ": cannot set \"key\": database is locked; "
                                                               "another process is writing: try again, or close the other process");
        EXPECT_EQ(error.file(), path().string());
    }
    auto const start = std::chrono::steady_clock::now();
    EXPECT_THROW(store.getInt("key", 0), StorageError) << "a default in place of a value that cannot be read would be a lie";
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(4)) << "it waited as long as it does by default";
    EXPECT_THROW(store.rows(), StorageError);
    other.execute("COMMIT");
    EXPECT_EQ(store.getInt("key", 0), 1);
    store.setInt("key", 3);
    EXPECT_EQ(store.getInt("key", 0), 3);
}

TEST_F(SqliteStore, ReaderHoldsNoLockAfterItsCall)
{
    SqliteStorage store(path());
    store.setInt("key", 1);
    store.getInt("key", 0);
    store.getInt("absent", 0);
    store.find("key");
    store.rows();
    OtherProgram other(path());
    EXPECT_NO_THROW(other.execute("BEGIN EXCLUSIVE; COMMIT"));
}

} // namespace
