// SPDX-License-Identifier: MIT
//
// A process that is killed while it writes: whatever the moment, no value is lost, and the next start finds nothing in
// its way.
#include <storage/support/Ledger.h>
#include <storage/support/MemoryFolder.h>
#include <storage/support/StoreFolder.h>
#include <storage/support/Traced.h>

#include <support/Process.h>
#include <support/Tally.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <map>
#include <random>
#include <thread>

#include <fcntl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using namespace std::chrono_literals;
using Storage::SqliteStorage;
using Storage::StorageError;

class Kill : public StoreFolder {
protected:
    Kill() : m_mask(::umask(0)) {} // that nobody else may read the files is not the mask's merit
    ~Kill() override { ::umask(m_mask); }

    virtual std::filesystem::path folder() const { return path("folder"); }
    std::filesystem::path file() const { return folder() / "store.sqlite"; }

    // The names and contents of what a killed process left.
    std::map<std::string, std::string> left() const
    {
        std::map<std::string, std::string> result;
        if (std::filesystem::exists(folder()))
            for (auto const& entry : std::filesystem::directory_iterator(folder()))
                result[entry.path().filename().string()] = content(entry.path());
        return result;
    }

    // Looks at the store after a kill, as the next start does. False where something is lost.
    bool expectWhole(Ledger& ledger)
    {
        auto const files = left();
        Ledger const before(ledger);
        int const failuresBefore = failures();
        for (auto const& [name, bytes] : files) {
            EXPECT_TRUE(name == "store.sqlite" || name == "store.sqlite-journal") << name << " was left";
            EXPECT_EQ(mode(folder() / name), 0600u) << name << ", of " << bytes.size() << " bytes";
        }
        try {
            auto duration = startAndWrite(ledger);
            // A busy disk is slow at times; what the store needs shows in the best of ten starts from the same files.
            for (int again = 1; duration > 50ms && again < 10; ++again) {
                ++m_slowStarts;
                std::this_thread::sleep_for(300ms);
                bring(files);
                ledger = before;
                duration = std::min(duration, startAndWrite(ledger));
            }
            if (duration > 50ms && diskAlone() > 25ms)
                ++m_busyDisk; // it tells nothing about the store then
            else
                EXPECT_LE(duration, 50ms) << "the next write took long";
            m_slowest = std::max(m_slowest, duration);
        } catch (StorageError const& error) {
            ADD_FAILURE() << error.what();
        }
        return failures() == failuresBefore;
    }

    void record(char const* what, int kills, int lost)
    {
        RecordProperty("kills", kills);
        RecordProperty("slowestNextWriteInMicroseconds",
                       static_cast<int>(std::chrono::duration_cast<std::chrono::microseconds>(m_slowest).count()));
        RecordProperty("slowStarts", m_slowStarts);
        RecordProperty("timesTheDiskAloneWasTooSlow", m_busyDisk);
        tally(what, kills, lost);
    }

    void bring(std::map<std::string, std::string> const& files) const
    {
        std::filesystem::remove_all(folder());
        if (!files.empty())
            std::filesystem::create_directory(folder());
        for (auto const& [name, bytes] : files) {
            overwrite(folder() / name, bytes);
            ::chmod((folder() / name).c_str(), 0600);
        }
    }

private:
    // How long the disk needs now for as many syncs as a write waits for.
    std::chrono::steady_clock::duration diskAlone() const
    {
        int const descriptor = ::open(path("sync").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
        std::string const page(4096, 'p');
        auto const start = std::chrono::steady_clock::now();
        for (off_t number = 0; number < 5; ++number)
            if (::pwrite(descriptor, page.data(), page.size(), number * 4096) < 0 || ::fdatasync(descriptor) != 0)
                ADD_FAILURE() << "cannot sync a file";
        auto const duration = std::chrono::steady_clock::now() - start;
        ::close(descriptor);
        std::filesystem::remove(path("sync"));
        return duration;
    }

    // How long the first write of a new start takes.
    std::chrono::steady_clock::duration startAndWrite(Ledger& ledger) const
    {
        SqliteStorage store(file());
        EXPECT_EQ(ledger.wrong(store), "");
        auto const start = std::chrono::steady_clock::now();
        ledger.change(store, 1);
        auto const duration = std::chrono::steady_clock::now() - start;
        EXPECT_EQ(ledger.wrong(store), "");
        return duration;
    }

    mode_t const m_mask;
    std::chrono::steady_clock::duration m_slowest{};
    int m_slowStarts = 0;
    int m_busyDisk = 0;
};

// A process that opens the store and changes it until it is killed.
class Writer {
public:
    Writer(std::filesystem::path const& file, Ledger& ledger) : m_ledger(ledger), m_before(ledger.begun()), m_process(::fork())
    {
        if (m_process != 0)
            return;
        try {
            SqliteStorage store(file);
            for (int change = 0;; ++change)
                ledger.change(store, change % Ledger::keys);
        } catch (std::exception const& error) {
            std::fputs(error.what(), stderr);
        }
        ::_exit(1);
    }

    // At a moment after `changes` were begun, or after the whole delay where it does not get so far.
    void killAfter(int changes, std::chrono::microseconds delay)
    {
        for (auto const end = std::chrono::steady_clock::now() + 5s;
             m_ledger.begun() - m_before < changes && std::chrono::steady_clock::now() < end;)
            std::this_thread::sleep_for(100us);
        std::this_thread::sleep_for(delay);
        ::kill(m_process, SIGKILL);
        int status = 0;
        ::waitpid(m_process, &status, 0);
        EXPECT_TRUE(WIFSIGNALED(status)) << "it ended by itself";
    }

private:
    Ledger& m_ledger;
    int const m_before;
    pid_t const m_process;
};

TEST_F(Kill, AtARandomMomentLosesNothing)
{
    std::mt19937 random(seed());
    auto const number = [&](int most) { return std::uniform_int_distribution<int>(0, most)(random); };
    Ledger ledger;
    int const kills = times(100, 1000);
    int inAChange = 0;
    int lost = 0;
    for (int kill = 0; kill < kills; ++kill) {
        SCOPED_TRACE("EDITOR_SETTINGS_SEED=" + std::to_string(seed()) + ", kill " + std::to_string(kill));
        if (kill % 10 == 0) {
            std::filesystem::remove_all(folder());
            ledger = Ledger();
            if (kill % 20 == 0) {
                SqliteStorage store(file());
                ledger.fill(store);
            }
        }
        // Every other one comes while the store is opened, at the earliest.
        Writer(file(), ledger).killAfter(kill % 2 == 0 ? number(4) + 1 : 0, std::chrono::microseconds(number(10000)));
        inAChange += ledger.begun() > ledger.returned();
        lost += !expectWhole(ledger);
    }
    RecordProperty("killsInAChange", inAChange);
    EXPECT_GT(inAChange, 0);
    record("Killed at a random moment", kills, lost);
}

// Kills a process at each system call of what it does in turn.
class KillAtEachCall : public Kill {
protected:
    std::filesystem::path folder() const override { return m_memory.path() / "folder"; }

    void SetUp() override
    {
        if (!Traced::isPossible())
            GTEST_SKIP() << "this process may not trace others, as in some containers: nothing was killed at its system calls";
    }

    // A store with values, and one key changed so often.
    void fill(Ledger& ledger, int key, int changes) const
    {
        SqliteStorage store(file());
        ledger.fill(store);
        for (int change = 1; change < changes; ++change)
            ledger.change(store, key);
    }

    // Starts from the files and the ledger as they are. `prepare` is what the process does before the calls that count.
    void killEverywhere(char const* what, Ledger const& before, std::function<void(std::unique_ptr<SqliteStorage>&)> const& prepare,
                        std::function<void(std::unique_ptr<SqliteStorage>&, Ledger&)> const& work)
    {
        auto const files = left();
        int lost = 0;
        int calls = 0;
        for (bool isKilled = true; isKilled; ++calls) {
            SCOPED_TRACE(std::string(what) + ", system call " + std::to_string(calls + 1));
            bring(files);
            Ledger ledger(before);
            std::unique_ptr<SqliteStorage> store; // the process's own, as it is a copy of this one
            isKilled = Traced::killedAtCall({[&] { prepare(store); }, [&] { work(store, ledger); }}, calls + 1);
            lost += !expectWhole(ledger);
        }
        EXPECT_GT(calls, 20);
        record((std::string("Killed at each system call: ") + what).c_str(), calls - 1, lost);
    }

    std::function<void(std::unique_ptr<SqliteStorage>&)> const nothing = [](std::unique_ptr<SqliteStorage>&) {};
    std::function<void(std::unique_ptr<SqliteStorage>&)> const opening = [this](std::unique_ptr<SqliteStorage>& store) {
        store = std::make_unique<SqliteStorage>(file());
    };

private:
    MemoryFolder m_memory;
};

TEST_F(KillAtEachCall, OfAWriteLosesNothing)
{
    Ledger ledger;
    fill(ledger, 2, 3);
    killEverywhere("write", ledger, opening, [](std::unique_ptr<SqliteStorage>& store, Ledger& copy) { copy.change(*store, 2); });
}

TEST_F(KillAtEachCall, OfARemovalLosesNothing)
{
    Ledger ledger;
    fill(ledger, 4, 4);
    killEverywhere("remove", ledger, opening, [](std::unique_ptr<SqliteStorage>& store, Ledger& copy) { copy.change(*store, 4); });
}

TEST_F(KillAtEachCall, OfACreationLeavesNothingInTheWay)
{
    killEverywhere("create", Ledger(), nothing, [&](std::unique_ptr<SqliteStorage>& store, Ledger& copy) {
        opening(store);
        copy.change(*store, 0);
    });
}

TEST_F(KillAtEachCall, OfTheStartAfterAKillLosesNothing)
{
    Ledger ledger;
    fill(ledger, 2, 3);
    auto const files = left();
    Ledger copy(ledger);
    std::unique_ptr<SqliteStorage> store;
    std::vector<long> const calls = Traced::systemCalls({[&] { opening(store); }, [&] { copy.change(*store, 2); }});
    bring(files);
    // When all pages of the change but the last are in the file.
    auto const last = std::find(calls.rbegin(), calls.rend(), SYS_pwrite64).base() - calls.begin();
    ASSERT_TRUE(Traced::killedAtCall({[&] { opening(store); }, [&] { ledger.change(*store, 2); }}, static_cast<int>(last)));
    ASSERT_GT(left()["store.sqlite-journal"].size(), 512u) << "there is nothing to roll back";
    killEverywhere("start after a kill", ledger, nothing, [&](std::unique_ptr<SqliteStorage>& opened, Ledger&) { opening(opened); });
}

} // namespace
