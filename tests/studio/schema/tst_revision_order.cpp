// SPDX-License-Identifier: MIT
//
// A reader that asks for what is above the last revision that it saw misses nothing, however many write at once.
#include "support/SchemaTest.h"

#include <support/Tally.h>

#include <atomic>
#include <set>
#include <thread>

/// In several rounds, so that the long form of none takes long.
class RevisionOrder : public SchemaTest, public testing::WithParamInterface<int> {
protected:
    static constexpr int writers = 8;

    std::vector<std::string> serverSettings() const override { return {"fsync=off", "max_connections=40"}; }

    // A writer of alice's puts its own keys. Transactions of different lengths, so that commits overtake one another where they can.
    void write(int client, int puts, std::atomic<int>& failures) const
    {
        Login const alice = user("alice", client);
        for (int op = 1; op <= puts; ++op) {
            Put change;
            change.client = client;
            change.op = op;
            change.key = std::to_string(client) + '/' + std::to_string(op);
            std::string const pause = op % 16 == 0 ? "SELECT pg_sleep(0.001); " : "";
            failures += alice.ask("BEGIN; " + statement(change) + "; " + pause + "COMMIT").code != "";
        }
    }
};

TEST_P(RevisionOrder, PollerMissesNothingOfEightWriters)
{
    int const puts = times(75, 100, 3125);
    Login const poller = user("alice", 9);
    std::atomic<int> failures = 0;
    std::atomic<int> working = writers;
    std::vector<std::thread> threads;
    for (int client = 1; client <= writers; ++client)
        threads.emplace_back([&, client] {
            write(client, puts, failures);
            --working;
        });
    std::set<std::string> seen;
    std::string since = "0";
    int polls = 0;
    for (bool isLast = false; !isLast; ++polls) {
        isLast = working == 0; // what is asked for now is asked for after the last commit
        for (std::vector<std::string> const& row :
             poller.ask("SELECT layer_revision, key FROM settings.changes_v1($1, 0) WHERE NOT studio", {since}).rows) {
            since = row[0];
            if (row[1] != "null")
                seen.insert(row[1]);
        }
    }
    for (std::thread& thread : threads)
        thread.join();
    std::size_t const written = static_cast<std::size_t>(writers * puts);
    EXPECT_EQ(failures, 0);
    EXPECT_EQ(since, std::to_string(written));
    EXPECT_EQ(seen.size(), written);
    EXPECT_GT(polls, 10) << "it polled while they wrote";
    tally("Changes of a shared store, by 8 writers, were polled for", static_cast<long long>(written),
          static_cast<long long>(written - seen.size()));
}

INSTANTIATE_TEST_SUITE_P(Rounds, RevisionOrder, testing::Range(0, 4));
