// SPDX-License-Identifier: MIT
//
// Threads read from one store while other stores of the process write, and while the same store is changed and listed.
#include "Register.h"

#include <storage/support/MemoryFolder.h>
#include <storage/support/StoreFolder.h>

#include <support/Tally.h>

#include <atomic>
#include <mutex>
#include <thread>
#include <vector>

namespace {

using Storage::SqliteStorage;

constexpr int readers = 8;

class ReadThreads : public testing::Test {
protected:
    // Runs `work` in a thread of its own, over and over until the end, and keeps what it throws.
    template <typename Work>
    void start(Work work)
    {
        m_threads.emplace_back([this, work] {
            try {
                while (!m_numbers.isOver())
                    work();
            } catch (std::exception const& error) {
                std::lock_guard<std::mutex> const turn(m_turns);
                m_wrong += error.what();
            }
        });
    }

    void startReaders(SqliteStorage const& store)
    {
        for (int reader = 0; reader < readers; ++reader)
            start([this, &store] { m_numbers.read([&] { return store.getInt("number", 0); }); });
    }

    // Whether another change is to come: the readers may have been late.
    bool isOn(int change) const { return change < times(200, 4000) || (m_numbers.reads() < 1000 && change < 100000); }

    void finish()
    {
        m_numbers.end();
        for (std::thread& thread : m_threads)
            thread.join();
        EXPECT_EQ(m_wrong, "");
        EXPECT_EQ(m_numbers.wrong(), "") << "of " << m_numbers.reads() << " reads";
        EXPECT_GE(m_numbers.reads(), 1000);
    }

    MemoryFolder m_folder;
    std::filesystem::path const m_file = m_folder.path() / "store.sqlite";
    Register m_numbers;

private:
    std::vector<std::thread> m_threads;
    std::mutex m_turns;
    std::string m_wrong;
};

TEST_F(ReadThreads, SeeWhatTwoOtherStoresWrite)
{
    SqliteStorage const store(m_file);
    SqliteStorage writers[] = {SqliteStorage(m_file), SqliteStorage(m_file)};
    startReaders(store);
    for (int change = 0; isOn(change); ++change)
        m_numbers.write([&](int next) { writers[change % 2].setInt("number", next); });
    finish();
    tally("Read by 8 threads while two stores wrote", m_numbers.reads(), m_numbers.wrongReads());
}

// A read looks at the file beside the other calls on the same connection.
TEST_F(ReadThreads, SeeWhatTheirOwnStoreWritesWhileItIsListed)
{
    SqliteStorage store(m_file);
    startReaders(store);
    start([&] { store.rows(); });
    start([&] { store.getString("text", ""); });
    start([&] { store.changesOfOthers(); });
    for (int change = 0; isOn(change); ++change)
        m_numbers.write([&](int next) {
            store.apply({{"number", next}, {"text", std::string(static_cast<std::size_t>(next % 9000), 't')}});
        });
    finish();
    tally("Read by 8 threads while their store wrote", m_numbers.reads(), m_numbers.wrongReads());
}

} // namespace
