// SPDX-License-Identifier: MIT
//
// Processes read while one writer after another commits, and ends by itself or is stopped and killed at random moments: no
// read is stale, none goes back, and none sees what was never committed.
#include "Register.h"

#include <storage/support/MemoryFolder.h>
#include <storage/support/StoreFolder.h>

#include <support/Named.h>
#include <support/Process.h>
#include <support/Tally.h>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <memory>
#include <random>
#include <thread>
#include <vector>

#include <sys/wait.h>
#include <unistd.h>

namespace {

using namespace std::chrono_literals;
using Storage::SqliteStorage;

constexpr int readers = 3;
char const* const keys[] = {"left", "right"};

int number(SqliteStorage const& store, int which) { return store.getInt(keys[which % 2], 0); }

// Both keys in one commit, so that who saw one may not see an earlier number in the other.
void writeByStore(std::filesystem::path const& file, Register& numbers)
{
    SqliteStorage store(file);
    while (!numbers.isTurnOver()) {
        numbers.write([&](int next) { store.apply({{"left", next}, {"right", next}}); });
        numbers.read([&] { return number(store, numbers.begun()); });
    }
}

constexpr char const* fewPages = "PRAGMA cache_size = 4; PRAGMA journal_mode = TRUNCATE; PRAGMA synchronous = FULL";
constexpr char const* changeOfManyPages = "BEGIN IMMEDIATE; UPDATE settings SET value = zeroblob(3000) WHERE key LIKE 'padding%'; ";

// A change that needs more pages than the cache has: SQLite writes them into the file long before it commits.
void writeSpilling(std::filesystem::path const& file, Register& numbers)
{
    OtherProgram program(file);
    program.execute("PRAGMA busy_timeout = 5000");
    program.execute(fewPages);
    for (;;)
        numbers.write([&](int next) {
            std::string const set = "UPDATE settings SET value = " + std::to_string(next) + " WHERE key IN ('left', 'right'); COMMIT";
            program.execute((changeOfManyPages + set).c_str());
        });
}

// A process that writes until it ends by itself, or is killed.
class Writer {
public:
    Writer(std::function<void()> const& write) : m_process(::fork())
    {
        if (m_process != 0)
            return;
        try {
            write();
            ::_exit(0);
        } catch (std::exception const& error) {
            std::fputs(error.what(), stderr);
        }
        ::_exit(1);
    }
    ~Writer()
    {
        if (m_hasEnded)
            return;
        ::kill(m_process, SIGKILL);
        EXPECT_TRUE(WIFSIGNALED(statusOfEnd())) << "it ended by itself";
    }
    Writer(Writer const&) = delete;
    Writer& operator=(Writer const&) = delete;

    void stop() const
    {
        ::kill(m_process, SIGSTOP);
        int status = 0;
        ::waitpid(m_process, &status, WUNTRACED);
    }

    // Waits until it ends by itself.
    void expectEnd()
    {
        EXPECT_EQ(statusOfEnd(), 0);
        m_hasEnded = true;
    }

private:
    int statusOfEnd() const
    {
        int status = 0;
        ::waitpid(m_process, &status, 0);
        return status;
    }

    pid_t const m_process;
    bool m_hasEnded = false;
};

struct Course {
    char const* meaning;
    void (*write)(std::filesystem::path const& file, Register& numbers);
    bool isInMemory;
    bool isKilled;
    char const* tally;
};

class Linearizability : public StoreFolder, public testing::WithParamInterface<Course> {
protected:
    std::filesystem::path file() const { return (GetParam().isInMemory ? m_memory.path() : m_home.path()) / "store.sqlite"; }
    std::filesystem::path journal() const { return file().string() + "-journal"; }

    void makeStore() const
    {
        std::vector<SqliteStorage::Change> changes{{"left", 0}, {"right", 0}};
        for (int row = 0; row < 40; ++row)
            changes.push_back({"padding " + std::to_string(row), std::vector<unsigned char>(3000)});
        SqliteStorage(file()).apply(changes);
        ASSERT_LT(std::filesystem::file_size(file()), 256u * 1024) << "the store is read row by row";
    }

    // A reader's part: what is wrong, else nothing.
    std::string readUntilTheEnd()
    {
        SqliteStorage const store(file());
        for (int which = 0; !m_numbers.isOver(); ++which)
            m_numbers.read([&] { return number(store, which); });
        return "";
    }

    // Lets one writer write for some milliseconds. One that is to be killed is stopped for some before, so that others meet
    // what it has begun.
    void letWrite(std::mt19937& random)
    {
        auto const upTo = [&](int most) { return std::chrono::microseconds(std::uniform_int_distribution<int>(0, most)(random)); };
        int const begun = m_numbers.begun();
        m_numbers.beginTurn();
        Writer writer([&] { GetParam().write(file(), m_numbers); });
        for (auto const end = std::chrono::steady_clock::now() + 5s; m_numbers.begun() == begun && std::chrono::steady_clock::now() < end;)
            std::this_thread::sleep_for(100us);
        std::this_thread::sleep_for(upTo(GetParam().isKilled ? 5000 : 100000));
        if (!GetParam().isKilled) {
            m_numbers.endTurn();
            return writer.expectEnd();
        }
        writer.stop();
        std::error_code ignored;
        m_killedInAChange += std::filesystem::file_size(journal(), ignored) > 0;
        std::this_thread::sleep_for(upTo(1000));
    }

    MemoryFolder m_memory;
    Register m_numbers;
    int m_killedInAChange = 0;
};

TEST_P(Linearizability, HoldsForEveryRead)
{
    makeStore();
    std::vector<std::unique_ptr<Child>> children;
    for (int reader = 0; reader < readers; ++reader)
        children.push_back(std::make_unique<Child>([&] { return readUntilTheEnd(); }));
    std::mt19937 random(seed());
    int const writers = GetParam().isKilled ? times(40, 1000) : times(5, 100);
    for (int writer = 0; writer < writers; ++writer)
        letWrite(random);
    m_numbers.end();
    for (auto const& child : children)
        EXPECT_EQ(child->answer(), "");
    EXPECT_EQ(m_numbers.wrong(), "") << "of " << m_numbers.reads() << " reads, with EDITOR_SETTINGS_SEED=" << seed();
    EXPECT_GT(m_numbers.reads(), 1000);
    EXPECT_GE(m_numbers.begun(), writers);
    EXPECT_EQ(m_killedInAChange > 0, GetParam().isKilled);
    RecordProperty("reads", std::to_string(m_numbers.reads()));
    RecordProperty("writes", m_numbers.begun());
    RecordProperty("killsInAChange", m_killedInAChange);
    tally(GetParam().tally, m_numbers.reads(), m_numbers.wrongReads());
}

INSTANTIATE_TEST_SUITE_P(
    Table, Linearizability,
    testing::Values(Course{"WhileOthersWrite", writeByStore, true, false, "Read while others wrote"},
                    Course{"WhileWritersAreKilled", writeByStore, true, true, "Read while writers were killed"},
                    Course{"WhileWritersAreKilledOnADisk", writeByStore, false, true, "Read while writers were killed, on a disk"},
                    Course{"WhilePagesAreSpilled", writeSpilling, true, true, "Read while writers were killed in changes of many pages"}),
    byMeaning);

TEST_F(StoreFolder, ChangeOfManyPagesReachesTheFileBeforeItsCommit)
{
    std::vector<SqliteStorage::Change> changes;
    for (int row = 0; row < 40; ++row)
        changes.push_back({"padding " + std::to_string(row), std::string(3000, 'p')});
    SqliteStorage(path()).apply(changes);
    std::string const before = content(path());
    OtherProgram program(path());
    program.execute(fewPages);
    program.execute(changeOfManyPages);
    EXPECT_NE(content(path()), before);
    program.execute("ROLLBACK");
    EXPECT_EQ(content(path()), before);
}

} // namespace
