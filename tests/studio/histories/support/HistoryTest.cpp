// SPDX-License-Identifier: MIT
#include "HistoryTest.h"

#include <thread>

using namespace std::chrono_literals;
using Kind = Step::Kind;

std::vector<std::string> HistoryTest::flawsOfHistory(unsigned seed, int steps)
{
    beginHistory(seed);
    for (int step = 0; step < steps; ++step)
        takeStep();
    endHistory();
    return judge();
}

void HistoryTest::beginHistory(unsigned seed)
{
    m_random.seed(seed);
    m_value = 0;
    m_operation = 0;
    m_stations.clear();
    m_administrator.reset();
    forgetAll();
    std::string const socket = m_server->ask("SHOW unix_socket_directories") + "/.s.PGSQL.5432";
    for (char const* const user : {"alice", "alice", "bob"})
        begin(m_stations.emplace_back(user, socket));
}

// Everybody has everything in the end.
void HistoryTest::endHistory()
{
    for (Workstation& at : m_stations) {
        at.network.open();
        auto const end = std::chrono::steady_clock::now() + 60s;
        while (!synchronise(at) && std::chrono::steady_clock::now() < end)
            std::this_thread::sleep_for(5ms);
        EXPECT_EQ(at.steps.back().kind, Kind::synchronised) << at.program->session.status().problem->what();
        for (char const* const key : {"a", "b", "c"})
            read(at, key);
    }
    for (Workstation& at : m_stations)
        at.program.reset();
}

void HistoryTest::takeStep()
{
    unsigned const choice = upTo(400);
    if (choice < 140)
        change(any(), anyKey(), anyValue());
    else if (choice < 250)
        read(any(), anyKey());
    else if (choice < 300)
        synchronise(any());
    else if (choice < 320)
        changeAtOnce(m_stations[0], m_stations[1]);
    else if (choice < 350)
        changeStudio();
    else if (choice < 380)
        cut(any());
    else if (choice < 395)
        begin(any());
    else if (choice < 397)
        endConnections();
    else if (choice < 399)
        forgetUser();
    else
        restartServer();
}

std::vector<std::string> HistoryTest::judge() const
{
    Judge const judge(record());
    std::vector<std::string> flaws = judge.flawsOfServer();
    for (Workstation const& at : m_stations)
        for (std::string const& flaw : judge.flawsOf(at.user, at.steps))
            flaws.push_back(flaw);
    return flaws;
}

// --- What programs do ---

void HistoryTest::begin(Workstation& at)
{
    Step step{Kind::began};
    step.known = known(at.user);
    at.network.open();
    at.program.emplace("host=127.0.0.1 sslmode=disable dbname=studio user=" + at.user + " port=" + std::to_string(at.network.port()), 10s);
    at.isCalm = at.isKnown = at.program->session.status().connected;
    if (!at.isCalm)
        step.known = {};
    at.steps.push_back(step);
}

void HistoryTest::change(Workstation& at, std::string const& key, std::optional<int> value)
{
    Step step{Kind::changed, key, value};
    step.deaf = at.isCalm;
    try {
        if (value)
            at.program->store->setInt(key, *value);
        else
            at.program->store->remove(key);
    } catch (Storage::StorageError const& error) {
        EXPECT_TRUE(error.code() == Code::locked || error.code() == Code::unreachable) << error.what();
        step.kind = error.code() == Code::locked ? Kind::refused : Kind::doubted;
        at.isCalm = false; // a refusal brings news of the server
    }
    at.steps.push_back(step);
}

void HistoryTest::changeAtOnce(Workstation& one, Workstation& other)
{
    std::string const key = anyKey();
    std::optional<int> const value = anyValue();
    std::thread thread([&, otherValue = anyValue()] { change(other, key, otherValue); });
    change(one, key, value);
    thread.join();
}

// Between the look at the lock and that at the value the program may hear of a change.
void HistoryTest::read(Workstation& at, std::string const& key)
{
    Step step{Kind::read, key};
    do {
        step.locked = at.program->session.lockOf("common", key).has_value();
        int const value = at.program->store->getInt(key, 0);
        step.value = value == 0 ? std::nullopt : std::optional(value);
    } while (step.locked != at.program->session.lockOf("common", key).has_value());
    at.steps.push_back(step);
}

bool HistoryTest::synchronise(Workstation& at)
{
    Step step{Kind::synchronised};
    step.known = known(at.user);
    bool const isWhole = upTo(2) == 0;
    if (isWhole)
        at.network.open();
    if (!at.program->session.synchronise(10s))
        return false;
    at.isCalm = at.isCalm || (isWhole && at.isKnown);
    at.steps.push_back(step);
    return true;
}

// --- What befalls them ---

// For the next bytes only, or until the next time that the network is opened.
void HistoryTest::cut(Workstation& at)
{
    at.isCalm = false;
    at.network.limit(upTo(2) == 0 ? Proxy::Way::toServer : Proxy::Way::toClient, upTo(600),
                     upTo(4) == 0 ? Proxy::Then::cut : Proxy::Then::cutOnce);
}

void HistoryTest::disturbAll()
{
    for (Workstation& at : m_stations)
        at.isCalm = false;
}

void HistoryTest::restartServer()
{
    disturbAll();
    m_observer.reset();
    m_administrator.reset();
    upTo(2) == 0 ? m_server->stop() : m_server->kill();
    for (auto steps = upTo(4); steps > 0; --steps) {
        change(any(), anyKey(), anyValue());
        read(any(), anyKey());
    }
    m_server->start();
    observe();
}

void HistoryTest::endConnections()
{
    disturbAll();
    EXPECT_EQ(m_observer->ask("SELECT pg_terminate_backend(pid) FROM pg_stat_activity WHERE usename IN ('alice', 'bob')").code, "");
}

void HistoryTest::forgetUser()
{
    for (Workstation& at : m_stations)
        if (at.user == "alice")
            at.isCalm = at.isKnown = false;
    EXPECT_EQ(administrator().ask("SELECT settings.forget_user_v1('alice')").code, "");
}

// Gives the studio a value, locked or not, or takes it away; or locks or unlocks the one that it has.
void HistoryTest::changeStudio()
{
    if (upTo(3) == 0) {
        std::string const answer =
            administrator().ask("SELECT settings.lock_v1('common', '" + anyKey() + "', " + (upTo(3) == 0 ? "true" : "false") + ")").code;
        EXPECT_TRUE(answer.empty() || answer == "ST007") << answer;
        return;
    }
    Put put;
    put.op = ++m_operation;
    put.studio = true;
    put.key = anyKey();
    put.base = 1000000;
    std::optional<int> const value = anyValue();
    put.kind = value ? std::optional<std::string>("int") : std::nullopt;
    put.value = value ? std::optional(std::to_string(-*value)) : std::nullopt;
    put.locked = value && upTo(3) == 0;
    EXPECT_EQ(SchemaTest::put(administrator(), put).substr(0, 7), "stored|");
}

Login const& HistoryTest::administrator()
{
    if (!m_administrator)
        m_administrator.emplace(user("ada"));
    return *m_administrator;
}
