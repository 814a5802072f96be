// SPDX-License-Identifier: MIT
//
// Many processes and threads write to one file at once: each value is stored completely, and no call gives up early.
#include <storage/support/Ledger.h>
#include <storage/support/MemoryFolder.h>
#include <storage/support/StoreFolder.h>

#include <support/Named.h>
#include <support/Process.h>
#include <support/Tally.h>

#include <atomic>
#include <chrono>
#include <memory>
#include <mutex>
#include <thread>

namespace {

using namespace std::chrono_literals;
using Storage::SqliteStorage;
using Storage::StorageError;
using Clock = std::chrono::steady_clock;

constexpr int threads = 4;
constexpr int sharedKeys = 3;

std::string ownKey(int writer) { return "own " + std::to_string(writer); }
std::string sharedKey(int number) { return "shared " + std::to_string(number); }

// What a writer writes as its value of that number; no removals.
std::string value(int writer, int number) { return Ledger::text(writer, 5 * number + 1).value(); }

// Every other value goes to the writer's own key, the others to the shared keys in turn.
bool isOwn(int number) { return number % 2 == 0; }
int sharedKeyOf(int number) { return number / 2 % sharedKeys; }

// The last number that a writer gives a shared key, of `writes` in all.
int lastFor(int key, int writes)
{
    for (int number = writes - 1; number >= 0; --number)
        if (!isOwn(number) && sharedKeyOf(number) == key)
            return number;
    return -1;
}

// Whether a text is whole: one of those that a writer writes.
bool isWhole(std::string const& text)
{
    int writer = 0;
    int tag = 0;
    return std::sscanf(text.c_str(), "%d/%d ", &writer, &tag) == 2 && text == Ledger::text(writer, tag);
}

// What one writer does; the first thing that is wrong, else nothing.
std::string wrongInWriting(SqliteStorage& store, int writer, int writes, std::atomic<long long>& longest)
{
    for (int number = 0; number < writes; ++number) {
        std::string const key = isOwn(number) ? ownKey(writer) : sharedKey(sharedKeyOf(number));
        std::string const written = value(writer, number);
        auto const start = Clock::now();
        store.setString(key, written);
        auto const microseconds = std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - start).count();
        for (long long earlier = longest; earlier < microseconds && !longest.compare_exchange_weak(earlier, microseconds);) {
        }
        std::string const read = store.getString(key, "absent");
        if (isOwn(number) ? read != written : !isWhole(read))
            return key + " reads as " + read.substr(0, 40) + " after " + written.substr(0, 40);
    }
    return "";
}

// A process's part: its threads share a store, as those of an editor do. Gives what is wrong, or how long the longest
// write took. A slow disk may keep the last of 32 writers waiting for longer than an editor would.
std::string writeAsProcess(std::filesystem::path const& file, int process, int writes)
{
    SqliteStorage::Options options;
    options.busyTimeout = 60s;
    SqliteStorage store(file, options);
    std::atomic<long long> longest{0};
    std::mutex turns;
    std::string wrong;
    std::vector<std::thread> running;
    for (int thread = 0; thread < threads; ++thread)
        running.emplace_back([&, writer = process * threads + thread] {
            std::string what;
            try {
                what = wrongInWriting(store, writer, writes, longest);
            } catch (std::exception const& error) {
                what = error.what();
            }
            std::lock_guard<std::mutex> const turn(turns);
            wrong += what;
        });
    for (std::thread& thread : running)
        thread.join();
    return wrong.empty() ? std::to_string(longest) : "wrong: " + wrong;
}

// How many values the store has not, after `writers` wrote.
int lostValues(SqliteStorage const& store, int writers, int writes)
{
    int lost = 0;
    int const lastOwn = (writes - 1) / 2 * 2;
    for (int writer = 0; writer < writers; ++writer)
        lost += store.getString(ownKey(writer), "absent") != value(writer, lastOwn);
    for (int key = 0; key < sharedKeys; ++key) {
        std::string const found = store.getString(sharedKey(key), "absent");
        bool isLast = false;
        for (int writer = 0; writer < writers; ++writer)
            isLast = isLast || found == value(writer, lastFor(key, writes));
        lost += !isLast;
    }
    EXPECT_EQ(store.rows().size(), static_cast<std::size_t>(writers + sharedKeys));
    return lost;
}

// Lets processes write at once, and looks at what they left.
void expectNothingLost(std::filesystem::path const& file, int processes, int writes, std::string const& what)
{
    std::vector<std::unique_ptr<Child>> children;
    for (int process = 0; process < processes; ++process)
        children.push_back(std::make_unique<Child>([&, process] { return writeAsProcess(file, process, writes); }));
    long long longest = 0;
    for (auto const& child : children) {
        std::string const answer = child->answer();
        EXPECT_EQ(answer.find_first_not_of("0123456789"), std::string::npos) << answer;
        longest = std::max(longest, std::strtoll(answer.c_str(), nullptr, 10));
    }
    int const lost = lostValues(SqliteStorage(file), processes * threads, writes);
    EXPECT_EQ(lost, 0);
    testing::Test::RecordProperty("longestWriteInMicroseconds", std::to_string(longest));
    tally("Written at once by " + std::to_string(processes) + " processes with 4 threads each" + what, processes * threads * writes, lost);
}

class Processes : public StoreFolder, public testing::WithParamInterface<int> {};

TEST_P(Processes, WriteAtOnceAndLoseNothing)
{
    MemoryFolder const folder; // 32000 writes would wait for a disk for minutes
    expectNothingLost(folder.path() / "store.sqlite", GetParam(), times(50, 1000), "");
}

// A disk that is waited for keeps the file taken for most of the time.
TEST_P(Processes, WriteToADiskAtOnceAndLoseNothing) { expectNothingLost(path(), GetParam(), times(10, 100), ", to a disk"); }

INSTANTIATE_TEST_SUITE_P(Table, Processes, testing::Values(2, 4, 8), testing::PrintToStringParamName());

class Concurrency : public StoreFolder {
protected:
    MemoryFolder m_memory;
};

TEST_F(Concurrency, ThreadsWithStoresOfTheirOwnLoseNothing)
{
    int const writes = times(50, 1000);
    std::filesystem::path const file = path();
    std::atomic<long long> longest{0};
    std::vector<std::string> wrong(threads);
    std::vector<std::thread> running;
    for (int thread = 0; thread < threads; ++thread)
        running.emplace_back([&, thread] {
            try {
                SqliteStorage store(file);
                wrong[static_cast<std::size_t>(thread)] = wrongInWriting(store, thread, writes, longest);
            } catch (std::exception const& error) {
                wrong[static_cast<std::size_t>(thread)] = error.what();
            }
        });
    for (std::thread& thread : running)
        thread.join();
    EXPECT_EQ(wrong, std::vector<std::string>(threads));
    int const lost = lostValues(SqliteStorage(file), threads, writes);
    EXPECT_EQ(lost, 0);
    tally("Written at once by 4 threads with a store each", threads * writes, lost);
}

TEST_F(Concurrency, NobodyIsTurnedAwayBeforeTheTimeout)
{
    EXPECT_EQ(SqliteStorage::Options{}.busyTimeout, 5000ms);
    SqliteStorage::Options options;
    options.busyTimeout = 300ms;
    SqliteStorage store(path(), options);
    store.setInt("key", 1);
    store.getInt("key", 0); // the first read after a change takes its row from the file, the second one all rows
    store.getInt("key", 0);
    OtherProgram other(path());
    other.execute("BEGIN EXCLUSIVE");
    EXPECT_EQ(store.getInt("key", 0), 1) << "a value in memory waits for nobody";
    other.execute("UPDATE settings SET value = 2; COMMIT; BEGIN EXCLUSIVE");
    auto const expectWait = [](char const* what, auto const& work) {
        auto const start = Clock::now();
        EXPECT_THROW(work(), StorageError) << what;
        EXPECT_GE(Clock::now() - start, 300ms) << what;
    };
    expectWait("set", [&] { store.setInt("key", 1); });
    expectWait("remove", [&] { store.remove("key"); });
    expectWait("get", [&] { store.getInt("key", 0); });
    expectWait("rows", [&] { store.rows(); });
    expectWait("open", [&] { SqliteStorage(path(), options); });
}

// Reads at the same time hold a change up only for as long as each takes.
TEST_F(Concurrency, ChangeWaitsForAReaderThatGoesOn)
{
    SqliteStorage store(path());
    OtherProgram other(path());
    store.setInt("key", 1);
    other.execute("BEGIN; SELECT * FROM settings");
    std::thread releasing([&] {
        std::this_thread::sleep_for(200ms);
        other.execute("COMMIT");
    });
    EXPECT_NO_THROW(store.setInt("key", 2));
    releasing.join();
    EXPECT_EQ(store.getInt("key", 0), 2);
}

} // namespace
