// SPDX-License-Identifier: MIT
//
// No call takes longer than its bound, wherever in it the network fails, and a change is done once or not at all.
#include "support/SessionFaults.h"

#include <support/Named.h>
#include <support/Tally.h>

using namespace std::chrono_literals;
using Then = Proxy::Then;
using Way = Proxy::Way;

namespace {

constexpr std::chrono::milliseconds bound{150};

/// How long a call may take beyond its bound. The longest form of the tests has the machine for itself.
std::chrono::milliseconds beyond() { return thoroughness() > 1 ? 100ms : slack; }

/// Only the start and changes are in haste: a loaded machine is slow at all else.
Studio::Session::Options hasty(std::string const& connection, std::chrono::milliseconds firstWait, std::chrono::milliseconds changeWait)
{
    Studio::Session::Options options = quiet(connection);
    options.firstWait = firstWait;
    options.changeWait = changeWait;
    return options;
}

/// How the network fails once some bytes of a change are through.
struct Failure {
    char const* meaning;
    Way way;
    Then then;
};

} // namespace

class BrokenNetwork : public SessionFaults, public testing::WithParamInterface<Failure> {
protected:
    long bytesOfAChange(Way way)
    {
        Program alice(throughProxy());
        m_proxy->open();
        alice.store->setInt("number", 1000);
        return m_proxy->passed(way);
    }

    // A change of which `count` bytes pass. Whether it returned.
    bool changeCutAt(long count, int value)
    {
        m_proxy->open();
        Program alice(hasty(throughProxy(), 60s, bound));
        EXPECT_TRUE(alice.session.status().connected);
        m_proxy->limit(GetParam().way, count, GetParam().then);
        bool returned = false;
        auto const time = timeOf([&] { returned = changes(alice, value); });
        EXPECT_LE(time.count(), (bound + beyond()).count());
        EXPECT_LE(timeOf([&] { EXPECT_EQ(alice.store->getInt("other", 42), 42); }).count(), beyond().count());
        EXPECT_LE(timeOf([&] { alice.session.synchronise(bound); }).count(), (bound + beyond()).count());
        return returned;
    }

    static bool changes(Program& program, int value)
    {
        try {
            program.store->setInt("number", value);
            return true;
        } catch (Storage::StorageError const& error) {
            EXPECT_EQ(error.code(), Code::unreachable) << error.what();
            return false;
        }
    }

    long long revision() const { return std::stoll(ask("SELECT revision FROM settings.layer WHERE name = 'alice'")); }
};

TEST_P(BrokenNetwork, KeepsNoCallLongerThanItsBoundAtAnyByte)
{
    long const bytes = bytesOfAChange(GetParam().way);
    ASSERT_GT(bytes, 40);
    int tried = 0;
    for (long count = 0; count < bytes; count += times(23, 5, 1), ++tried) {
        long long const before = revision();
        int const value = 2000 + static_cast<int>(count);
        bool const returned = changeCutAt(count, value);
        endConnections();
        long long const after = revision();
        bool const isStored = atServer("number") == "int " + std::to_string(value);
        ASSERT_EQ(after, before + (isStored ? 1 : 0)) << count << " of " << bytes;
        ASSERT_TRUE(isStored || !returned) << count << " of " << bytes;
    }
    EXPECT_GT(tried, 2);
    tally("A change of a shared store met a network that fails", tried, 0);
}

INSTANTIATE_TEST_SUITE_P(Bounds, BrokenNetwork,
                         testing::Values(Failure{"CutOnTheWay", Way::toServer, Then::cut},
                                         Failure{"CutOnTheWayBack", Way::toClient, Then::cut},
                                         Failure{"StalledOnTheWay", Way::toServer, Then::stall},
                                         Failure{"StalledOnTheWayBack", Way::toClient, Then::stall},
                                         Failure{"TricklingOnTheWay", Way::toServer, Then::trickle},
                                         Failure{"TricklingOnTheWayBack", Way::toClient, Then::trickle}),
                         byMeaning);

class Bounds : public SessionFaults {};

TEST_F(Bounds, StartEndsInTimeWhereverTheLoginStalls)
{
    m_proxy->open();
    Program(throughProxy()).session.status();
    long const bytes = m_proxy->passed(Way::toClient);
    ASSERT_GT(bytes, 400);
    for (long count = 0; count < bytes; count += times(131, 23, 5)) {
        m_proxy->limit(Way::toClient, count, Then::stall);
        auto const time = timeOf([&] { Program(hasty(throughProxy(), bound, bound)); });
        EXPECT_LE(time.count(), (bound + beyond()).count()) << count << " of " << bytes;
    }
}

TEST_F(Bounds, SlowNetworkDelaysAChangeAndNoMore)
{
    Program alice(throughProxy());
    m_proxy->limit(Way::toServer, 0, Then::delay);
    EXPECT_GE(timeOf([&] { alice.store->setInt("number", 1); }), 500ms);
    EXPECT_EQ(atServer("number"), "int 1");
    EXPECT_EQ(alice.store->getInt("number", 0), 1);
}

// It arrives after the program gave it up, and the program learns of it.
TEST_F(Bounds, ChangeThatArrivesTooLateIsSeenAfterSynchronising)
{
    Program alice(hasty(throughProxy(), 60s, bound));
    m_proxy->limit(Way::toServer, 0, Then::delay);
    auto const time = timeOf([&] { EXPECT_EQ(errorOf([&] { alice.store->setInt("number", 1); }).code(), Code::unreachable); });
    EXPECT_LE(time.count(), (bound + beyond()).count());
    ASSERT_TRUE(alice.session.synchronise(60s));
    EXPECT_EQ(atServer("number"), "int 1");
    EXPECT_EQ(alice.store->getInt("number", 0), 1);
    EXPECT_EQ(ask("SELECT revision FROM settings.layer WHERE name = 'alice'"), "1");
}
