// SPDX-License-Identifier: MIT
//
// The store that a studio shares, against a server on this machine. The floor calls libpq plainly, over a connection of its own
// to the same server: what its function takes without the library.
#include "Server.h"

#include <support/Bench.h>

#include <Storage/SqliteStorage.h>
#include <Studio/Session.h>
#include <TestKit/MemoryStorage.h>

#include <QTemporaryDir>

#include <atomic>
#include <deque>
#include <memory>
#include <optional>
#include <thread>
#include <vector>

#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using namespace std::chrono_literals;

// --- One program ---

// Without a file on the workstation: what is measured is the way to the server.
Studio::Session::Options optionsOf(std::string const& connection)
{
    Studio::Session::Options options{connection, [](std::string const&) { return true; }};
    options.worksOffline = false;
    return options;
}

struct Surroundings {
    Server server{4};
    Studio::Session session{optionsOf(server.connection(0))};
    std::shared_ptr<ISettingsStorage> shared = session.store("common", std::make_shared<TestKit::MemoryStorage>());
    TestKit::MemoryStorage memory;
    QTemporaryDir folder;
    Storage::SqliteStorage file{folder.filePath(QStringLiteral("store.sqlite")).toStdString()};
    Bare bare{server.connection(1)};
    BareProgram program{server.connection(2), 2};
    int count = 0;
};

using Shared = std::shared_ptr<Surroundings>;

std::string key(int number) { return "setting " + std::to_string(number % 60); }

void fill(Surroundings& all)
{
    for (int number = 0; number < 60; ++number)
        for (ISettingsStorage* const store :
             {all.shared.get(), static_cast<ISettingsStorage*>(&all.memory), static_cast<ISettingsStorage*>(&all.file)})
            store->setString(key(number), "value");
}

// A process that may not call the system any more, but for its end, reads. 1 where it was killed for a call, else 0.
int systemCallsOfReads(ISettingsStorage const& store)
{
    benchmark::DoNotOptimize(store.getString(key(0), {}));
    pid_t const child = ::fork();
    if (child == 0) {
        ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_STRICT);
        for (int number = 0; number < 1000; ++number)
            benchmark::DoNotOptimize(store.getString(key(number), {}));
        ::syscall(SYS_exit, 0);
    }
    int status = 0;
    Bench::require(child > 0 && ::waitpid(child, &status, 0) == child, "cannot start a process");
    return WIFEXITED(status) && WEXITSTATUS(status) == 0 ? 0 : 1;
}

void addReads(Shared const& all)
{
    std::string const row = "read of a shared setting";
    auto const count = [all](benchmark::State& state) { state.counters["system calls"] = systemCallsOfReads(*all->shared); };
    auto const library = [all] { return all->shared->getString(key(all->count++), {}); };
    auto const floor = [all] { return all->memory.getString(key(all->count++), {}); };
    Bench::addByTurns(row, count, library, floor, 1000)->Iterations(Bench::isShort() ? 1 : 100);
    Bench::add(row, "SQLite store", [all] { return all->file.getString(key(all->count++), {}); });
}

void addRoundTrips(Shared const& all)
{
    all->bare.ask("SELECT settings.hello_v1(gen_random_uuid(), 0)");
    auto const synchronise = [all] { Bench::require(all->session.synchronise(10s), "the server does not answer"); };
    Bench::addByTurns("synchronise with nothing new", synchronise, [all] { return all->bare.ask("SELECT $1::integer", {"1"}); });
    Bench::add("synchronise with nothing new", "changes", [all] { return all->bare.ask("SELECT * FROM settings.changes_v1(0, 0)"); });
    auto const change = [all] { all->shared->setInt("number", all->count++); };
    Bench::addByTurns("change of a shared setting", change, [all] { all->program.change(); });
}

// A program whose server is known to be away.
struct Away {
    explicit Away(std::string const& folder)
        : session([&] {
              Studio::Session::Options options{"host=" + folder + " dbname=studio user=away", [](std::string const&) { return true; }};
              options.folder = folder;
              return options;
          }())
    {}

    Studio::Session session;
    std::shared_ptr<ISettingsStorage> store = session.store("common", std::make_shared<TestKit::MemoryStorage>());
    int count = 0;
};

void addAway(Shared const& all)
{
    auto const away = std::make_shared<Away>(all->folder.path().toStdString());
    Bench::require(away->session.status().outbox.has_value(), "the session has no outbox");
    auto const change = [away] { away->store->setInt("number", away->count++); };
    Bench::addByTurns("change while the server is away", change, [all] { all->file.setInt("number", all->count++); });
}

// --- Many programs ---

// What gives a layer its next revision, with another rule of who is notified.
std::string nextRevision(char const* rule)
{
    return std::string("CREATE OR REPLACE FUNCTION settings.next_revision(target settings.layer) RETURNS bigint LANGUAGE plpgsql "
                       "SET search_path = pg_catalog, pg_temp AS $$ DECLARE given bigint := target.revision + 1; BEGIN "
                       "UPDATE settings.layer AS l SET revision = given WHERE l.id = target.id; ") +
           rule + " RETURN given; END $$";
}

/// A server with many programs that listen, of which some write.
struct Crowd {
    int const listening = Bench::isShort() ? 20 : 500;
    int const writing = Bench::isShort() ? 4 : 32;
    Server server{listening + writing};
    Bare administrator{server.administration()};
    std::string const shipped = administrator.ask("SELECT pg_get_functiondef('settings.next_revision'::regproc)");
    std::deque<BareProgram> listeners;
    std::deque<BareProgram> writers;

    Crowd()
    {
        for (int number = 0; number < listening; ++number)
            listeners.emplace_back(server.connection(number), number);
        for (int number = listening; number < listening + writing; ++number)
            writers.emplace_back(server.connection(number), number);
    }

    // The seconds that a commit takes, of all that the writers make within a while.
    double timeOfCommit(std::string const& function)
    {
        administrator.ask(function.c_str());
        std::atomic<bool> ends = false;
        std::atomic<int> commits = 0;
        std::vector<std::thread> threads;
        auto const begin = std::chrono::steady_clock::now();
        for (BareProgram& writer : writers)
            threads.emplace_back([&] {
                for (; !ends; ++commits)
                    writer.change();
            });
        std::this_thread::sleep_for(Bench::isShort() ? 50ms : 1s);
        ends = true;
        for (std::thread& thread : threads)
            thread.join();
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count() / commits;
    }
};

void addCommits()
{
    // Made by the first of its rows: it takes seconds, and a gigabyte.
    auto const crowd = std::make_shared<std::optional<Crowd>>();
    auto const add = [crowd](char const* side, auto function) {
        auto const run = [crowd, function](benchmark::State& state) {
            if (!*crowd)
                crowd->emplace();
            for ([[maybe_unused]] auto const once : state)
                state.SetIterationTime((*crowd)->timeOfCommit(function(**crowd)));
        };
        benchmark::RegisterBenchmark((std::string("commit of 32 writers among 500 listeners/") + side).c_str(), run)
            ->UseManualTime()
            ->Iterations(1);
    };
    add("library", [](Crowd const& of) { return of.shipped; });
    add("without NOTIFY", [](Crowd const&) { return nextRevision(""); });
    add("NOTIFY always", [](Crowd const&) { return nextRevision("PERFORM pg_notify('settings_u' || target.id, given::text);"); });
}

Bench::Registration const registration([] {
    Bench::require(Cluster::obstacle().empty(), Cluster::obstacle());
    auto const all = std::make_shared<Surroundings>();
    Bench::require(all->session.status().connected, "the session has no connection");
    fill(*all);
    addReads(all);
    addRoundTrips(all);
    addAway(all);
    addCommits();
});

} // namespace
