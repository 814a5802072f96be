// SPDX-License-Identifier: MIT
//
// Two processes change one key at once, each only over the row that it saw: no change is lost.
#include <storage/support/MemoryFolder.h>
#include <storage/support/StoreFolder.h>

#include <Storage/Conflict.h>

#include <support/Named.h>
#include <support/Process.h>
#include <support/Tally.h>

#include <array>
#include <cerrno>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <system_error>
#include <vector>

#include <pthread.h>
#include <sys/mman.h>

namespace {

using Storage::Conflict;
using Storage::SqliteStorage;
using Row = SqliteStorage::Row;

constexpr int writers = 2;

// Where processes wait for each other.
class Barrier {
public:
    Barrier() : m_barrier(static_cast<pthread_barrier_t*>(shared(sizeof(pthread_barrier_t))))
    {
        pthread_barrierattr_t attributes;
        ::pthread_barrierattr_init(&attributes);
        ::pthread_barrierattr_setpshared(&attributes, PTHREAD_PROCESS_SHARED);
        ::pthread_barrier_init(m_barrier, &attributes, writers);
        ::pthread_barrierattr_destroy(&attributes);
    }
    ~Barrier() { ::munmap(m_barrier, sizeof(pthread_barrier_t)); }
    Barrier(Barrier const&) = delete;
    Barrier& operator=(Barrier const&) = delete;

    void wait() { ::pthread_barrier_wait(m_barrier); }

private:
    static void* shared(std::size_t size)
    {
        void* const memory = ::mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
        if (memory == MAP_FAILED)
            throw std::system_error(errno, std::generic_category(), "shared memory");
        return memory;
    }

    pthread_barrier_t* const m_barrier;
};

std::string version(std::optional<Row> const& row) { return row ? std::get<std::string>(row->value) : "absent"; }

// One attempt of a writer: the version that it saw, its own, and the outcome.
std::string attempt(SqliteStorage& store, std::optional<Row> const& seen, std::string const& own)
{
    std::string const log = version(seen) + ' ' + own + ' ';
    try {
        store.apply({{"key", own, SqliteStorage::Expected{seen}}});
        return log + "stored -\n";
    } catch (Conflict const& error) {
        return log + "conflict " + version(error.row()) + '\n';
    } catch (std::exception const& error) {
        return log + "error " + error.what() + '\n';
    }
}

// A process's attempts, a line each. With `inStep`, both writers have seen the same version before either changes it.
std::string writeAsProcess(std::filesystem::path const& file, int writer, int attempts, Barrier* inStep)
{
    SqliteStorage store(file);
    std::string log;
    for (int number = 0; number < attempts; ++number) {
        if (inStep)
            inStep->wait();
        std::optional<Row> const seen = store.find("key");
        if (inStep)
            inStep->wait();
        log += attempt(store, seen, std::to_string(writer) + '/' + std::to_string(number));
    }
    return log;
}

struct Log {
    std::map<std::string, std::string> successors; // of each version, the one that was stored over it
    int stored = 0;
    int conflicts = 0;
    int lost = 0; // changes that were stored over another version than the one seen, and conflicts about nothing
};

void read(Log& log, std::string const& lines)
{
    std::istringstream stream(lines);
    for (std::string seen, own, outcome, found; stream >> seen >> own >> outcome >> found;) {
        if (outcome == "stored") {
            ++log.stored;
            log.lost += !log.successors.emplace(seen, own).second;
        } else {
            EXPECT_EQ(outcome, "conflict") << lines.substr(0, 200);
            ++log.conflicts;
            log.lost += found == seen;
        }
    }
}

// Follows the versions from the first one on. Each that was stored must come up once, and the last one must be in the file.
int brokenLinks(Log const& log, std::string const& last)
{
    std::string current = "absent";
    int length = 0;
    for (auto next = log.successors.find(current); next != log.successors.end() && length <= log.stored; ++length) {
        current = next->second;
        next = log.successors.find(current);
    }
    EXPECT_EQ(current, last);
    return std::abs(log.stored - length) + (current != last);
}

Log race(std::filesystem::path const& file, int attempts, Barrier* inStep)
{
    std::array<std::unique_ptr<Child>, writers> children;
    for (int writer = 0; writer < writers; ++writer)
        children[static_cast<std::size_t>(writer)] =
            std::make_unique<Child>([&, writer] { return writeAsProcess(file, writer, attempts, inStep); });
    Log log;
    for (auto const& child : children)
        read(log, child->answer());
    log.lost += brokenLinks(log, version(SqliteStorage(file).find("key")));
    EXPECT_EQ(log.stored + log.conflicts, writers * attempts);
    EXPECT_EQ(log.lost, 0);
    tally("Raced for one key", attempts, log.lost);
    return log;
}

class Races : public StoreFolder {
protected:
    std::filesystem::path file() const { return m_memory.path() / "store.sqlite"; }

    MemoryFolder m_memory; // a disk would be waited for most of the time
};

TEST_F(Races, OneOfTwoThatSawTheSameWinsAndTheOtherIsToldOfIt)
{
    Barrier barrier;
    int const races = times(500, 10000);
    Log const log = race(file(), races, &barrier);
    EXPECT_EQ(log.stored, races);
    EXPECT_EQ(log.conflicts, races);
}

TEST_F(Races, NoUpdateIsLostWhereNobodyWaits) { EXPECT_GT(race(file(), times(500, 10000), nullptr).stored, 0); }

} // namespace
