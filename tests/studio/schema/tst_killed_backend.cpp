// SPDX-License-Identifier: MIT
//
// The server's process of a writer is killed, at whatever moment. All sessions fall, the server recovers, and the writer sends
// again what was not answered.
#include "support/SchemaTest.h"

#include <support/Tally.h>

#include <atomic>
#include <csignal>
#include <random>
#include <thread>

using namespace std::chrono_literals;

class KilledBackend : public SchemaTest {
protected:
    std::vector<std::string> serverSettings() const override { return {"fsync=on"}; }

    // A login of alice's that has said hello, as soon as the server lets her in.
    Login patientLogin() const
    {
        auto const deadline = std::chrono::steady_clock::now() + 120s;
        for (;;) {
            try {
                Login alice = login("alice");
                if (alice.ask(hello()).code.empty())
                    return alice;
            } catch (std::runtime_error const&) {
            }
            if (std::chrono::steady_clock::now() > deadline)
                throw std::runtime_error("the server does not recover: " + m_server->log());
            std::this_thread::sleep_for(20ms);
        }
    }

    // Whether the operation was answered: it is done, now or before.
    static bool isDone(Login const& alice, long long op)
    {
        std::string const answer = put(alice, operation(op));
        return answer == "stored|" + std::to_string(op) || answer == "repeated|" + std::to_string(op);
    }
    static Put operation(long long op)
    {
        Put change;
        change.op = op;
        change.key = "key" + std::to_string(op);
        change.value = std::to_string(op);
        change.kind = "int";
        return change;
    }
};

TEST_F(KilledBackend, LosesNothingDoublesNothingAndLeavesNoHole)
{
    std::minstd_rand random(seed());
    int const kills = times(4, 100);
    std::atomic<long long> op = 1; // the next one
    for (int kill = 0; kill < kills; ++kill) {
        Login const alice = patientLogin();
        long long const enough = op + 1 + static_cast<long long>(random() % 30);
        std::chrono::microseconds const moment(random() % 20000);
        std::thread killer([&, process = alice.backend()] {
            while (op < enough)
                std::this_thread::sleep_for(1ms);
            std::this_thread::sleep_for(moment);
            ::kill(process, SIGKILL);
        });
        while (isDone(alice, op))
            ++op;
        if (op < enough)
            op = enough; // lets the other thread end: what is wrong shows below
        killer.join();
    }
    EXPECT_TRUE(isDone(patientLogin(), op));
    EXPECT_EQ(ask("SELECT revision FROM settings.layer WHERE name = 'alice'"), std::to_string(op));
    EXPECT_EQ(ask("SELECT count(*) FROM settings.value WHERE key = convert_to('key' || revision, 'UTF8') AND value = "
                  "convert_to(revision::text, 'UTF8')"),
              std::to_string(op));
    EXPECT_EQ(ask("SELECT count(*) FROM settings.superseded"), "0");
    EXPECT_GT(op, kills);
    tally("The server's process of a writer to a shared store was killed", kills, 0);
}
