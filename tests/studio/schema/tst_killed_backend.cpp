// SPDX-License-Identifier: MIT
//
// The server's process of a writer is killed, at whatever moment. All sessions fall, the server recovers, and the writer sends
// again what was not answered.
#include "support/SchemaTest.h"

#include <support/Tally.h>

#include <csignal>
#include <random>
#include <thread>

using namespace std::chrono_literals;

/// In several rounds, so that the long form of none takes long.
class KilledBackend : public SchemaTest, public testing::WithParamInterface<unsigned> {
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

    // Whether the operation is done, now or before; false where the connection fell. Throws where it is done at another revision,
    // as one before it was lost or doubled then.
    static bool isDone(std::string const& answer, long long op)
    {
        if (answer == "lost" || answer.substr(0, 3) == "57P")
            return false;
        if (answer != "stored|" + std::to_string(op) && answer != "repeated|" + std::to_string(op))
            throw std::runtime_error("operation " + std::to_string(op) + " was answered: " + answer);
        return true;
    }
    // Writes some operations, and kills the backend at some moment of one more. False where the connection fell before: a login
    // that the server let in before it noticed the kill of the last one.
    bool killInAPut(long long& op)
    {
        Login const alice = patientLogin();
        for (auto count = m_random() % 30; count > 0; --count, ++op)
            if (!isDone(put(alice, operation(op)), op))
                return false;
        alice.send(statement(operation(op)));
        std::this_thread::sleep_for(std::chrono::microseconds(m_random() % 6000));
        ::kill(alice.backend(), SIGKILL);
        op += isDone(alice.answer().text(), op);
        return true;
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

    std::minstd_rand m_random{seed() + GetParam()};
};

TEST_P(KilledBackend, LosesNothingDoublesNothingAndLeavesNoHole)
{
    int const kills = times(1, 4, 25);
    long long op = 1; // the next one
    for (int kill = 0; kill < kills;)
        kill += killInAPut(op);
    while (!isDone(put(patientLogin(), operation(op)), op)) {
        // The server let this login in, too, before it noticed the last kill.
    }
    EXPECT_EQ(ask("SELECT revision FROM settings.layer WHERE name = 'alice'"), std::to_string(op));
    EXPECT_EQ(ask("SELECT count(*) FROM settings.value WHERE key = convert_to('key' || revision, 'UTF8') AND value = "
                  "convert_to(revision::text, 'UTF8')"),
              std::to_string(op));
    EXPECT_EQ(ask("SELECT count(*) FROM settings.superseded"), "0");
    EXPECT_GT(op, kills);
    tally("The server's process of a writer to a shared store was killed", kills, 0);
}

INSTANTIATE_TEST_SUITE_P(Rounds, KilledBackend, testing::Range(0u, 4u));
