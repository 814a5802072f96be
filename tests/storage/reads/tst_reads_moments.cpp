// SPDX-License-Identifier: MIT
//
// Commits of other processes at the moments that are dangerous for a read from memory: between any two system calls of a
// read, any number of commits between two reads, and a change counter that is used twice.
#include "Mark.h"
#include "Register.h"

#include <storage/support/FaultySystem.h>
#include <storage/support/StoreFolder.h>
#include <storage/support/Traced.h>

#include <support/Process.h>

#include <csignal>
#include <memory>
#include <stdexcept>

#include <sys/wait.h>
#include <unistd.h>

namespace {

using Storage::SqliteStorage;
using Storage::StorageError;
using Store = std::unique_ptr<SqliteStorage>;

int number(SqliteStorage const& store) { return store.getInt("number", 0); }

class ReadMoments : public StoreFolder {
protected:
    ReadMoments() { SqliteStorage(path()).setInt("number", 0); }

    Store open(std::chrono::milliseconds busyTimeout = std::chrono::seconds(5)) const
    {
        SqliteStorage::Options options;
        options.busyTimeout = busyTimeout;
        return std::make_unique<SqliteStorage>(path(), options);
    }

    static void setNumber(OtherProgram& other, int number)
    {
        other.execute(("UPDATE settings SET value = " + std::to_string(number) + " WHERE key = 'number'").c_str());
    }

    // Has another process commit a number at each system call of `work` in turn, or try to.
    void commitAtEachCall(std::function<void(Store&)> const& before, std::function<void(Store&, Register&)> const& work)
    {
        if (!Traced::isPossible())
            GTEST_SKIP() << "this process may not trace others, as in some containers: nothing was committed between system calls";
        OtherProgram other(path());
        int commits = 0;
        int calls = 0;
        for (bool isReached = true; isReached; ++calls) {
            setNumber(other, 0);
            Register numbers;
            Store store; // the traced process's own, as it is a copy of this one
            isReached = Traced::reachedCall({[&] { before(store); }, [&] { work(store, numbers); }}, calls + 1,
                                            [&] { commits += isCommitted(other, numbers); });
            EXPECT_EQ(numbers.wrong(), "") << "of " << numbers.reads() << ", with a commit at system call " << calls + 1;
        }
        EXPECT_GT(calls, 20);
        EXPECT_GT(commits, 5);
    }

private:
    // A reader that is stopped with its lock turns others away.
    static bool isCommitted(OtherProgram& other, Register& numbers)
    {
        try {
            numbers.write([&](int next) { setNumber(other, next); });
            return true;
        } catch (std::runtime_error const&) {
            return false;
        }
    }
};

// A process that sets the number 1 and stops when it has written all pages of that change, but has not committed it. It is
// forked first, as no store may be open in a process that is forked.
class HalfWriter {
public:
    explicit HalfWriter(std::filesystem::path const& file) : m_process(::fork())
    {
        if (m_process == 0)
            run(file);
        waitForStop();
    }
    HalfWriter(HalfWriter const&) = delete;
    HalfWriter& operator=(HalfWriter const&) = delete;

    void write() const
    {
        ::kill(m_process, SIGCONT);
        waitForStop();
    }

    void kill() const
    {
        ::kill(m_process, SIGKILL);
        ::waitpid(m_process, nullptr, 0);
    }

private:
    [[noreturn]] static void run(std::filesystem::path const& file)
    {
        ::raise(SIGSTOP);
        SqliteStorage store(file);
        FaultySystem::stopBefore("ftruncate64", 1); // the commit empties the journal
        store.setInt("number", 1);
        ::_exit(0);
    }

    void waitForStop() const
    {
        int status = 0;
        ::waitpid(m_process, &status, WUNTRACED);
        EXPECT_TRUE(WIFSTOPPED(status)) << "the writer did not stop before its commit";
    }

    pid_t const m_process;
};

TEST_F(ReadMoments, CommitAtAnyCallOfReadsAfterAChangeShows)
{
    commitAtEachCall(
        [&](Store& store) {
            store = open();
            store->setInt("another", 1);
        },
        [](Store& store, Register& numbers) {
            for (int read = 0; read < 4; ++read)
                numbers.read([&] { return number(*store); });
        });
}

TEST_F(ReadMoments, CommitAtAnyCallOfAnOpeningShows)
{
    commitAtEachCall([](Store&) {},
                     [&](Store& store, Register& numbers) {
                         store = open();
                         for (int read = 0; read < 2; ++read)
                             numbers.read([&] { return number(*store); });
                     });
}

TEST_F(ReadMoments, AnyNumberOfCommitsBetweenTwoReadsShows)
{
    Store const store = open();
    OtherProgram other(path());
    other.execute("PRAGMA synchronous = OFF");
    int last = 0;
    for (int commits : {1, 2, 3, 4, 5, 6, 7, 8, 15, 16, 17, 31, 32, 33, 63, 64, 65, 255, 256, 257, 511, 512})
        for (int again = 0; again < 2; ++again) {
            for (int commit = 0; commit < commits; ++commit)
                setNumber(other, ++last);
            for (int read = 0; read < 3; ++read)
                ASSERT_EQ(number(*store), last) << "in read " << read << " after " << commits << " commits";
        }
}

class ReadsBetween : public ReadMoments, public testing::WithParamInterface<int> {};

// The rollback of a killed process's change gives its counter free for the next commit.
TEST_P(ReadsBetween, RollbackAndCommitAreNotDeceivedByACounterThatIsUsedTwice)
{
    HalfWriter const writer(path());
    Store const store = open(std::chrono::milliseconds(20));
    std::string const before = markOf(path());
    ASSERT_EQ(number(*store), 0);
    writer.write();
    std::string const uncommitted = markOf(path());
    EXPECT_THROW(number(*store), StorageError) << "it does not know yet what is committed";
    writer.kill();
    ASSERT_NE(uncommitted, before);
    for (int read = 0; read < GetParam(); ++read)
        EXPECT_EQ(number(*store), 0) << "in read " << read;
    OtherProgram other(path());
    setNumber(other, 2);
    ASSERT_EQ(markOf(path()), uncommitted) << "the counter is not used twice";
    EXPECT_EQ(number(*store), 2);
}

INSTANTIATE_TEST_SUITE_P(Table, ReadsBetween, testing::Values(0, 1, 2, 3), testing::PrintToStringParamName());

TEST_F(ReadMoments, CounterThatIsUsedTwiceDeceivesNoOpening)
{
    HalfWriter const writer(path());
    writer.write();
    std::string const uncommitted = markOf(path());
    writer.kill();
    Store const store = open();
    EXPECT_EQ(number(*store), 0);
    OtherProgram other(path());
    setNumber(other, 2);
    ASSERT_EQ(markOf(path()), uncommitted) << "the counter is not used twice";
    EXPECT_EQ(number(*store), 2);
}

} // namespace
