// SPDX-License-Identifier: MIT
//
// Editors that share a studio's store: how soon another one shows a change, how soon all are back after the server's restart, what
// they cost the server at rest, and what a start costs while it does not answer. The floor listens and asks plainly. All programs are one
// user's, so that the server notifies each of a change.
#include "Server.h"

#include <support/Bench.h>

#include <Storage/SqliteStorage.h>
#include <Studio/Session.h>
#include <TestKit/MemoryStorage.h>

#include <QTemporaryDir>

#include <deque>
#include <functional>
#include <memory>
#include <thread>
#include <type_traits>
#include <vector>

namespace {

using namespace std::chrono_literals;

/// An editor with a session.
struct Editor {
    explicit Editor(std::string const& connection, std::string const& folder = {}, bool isNotified = true)
        : session([&] {
              Studio::Session::Options options{connection, [](std::string const&) { return true; }};
              options.worksOffline = !folder.empty();
              options.folder = folder;
              options.listen = isNotified;
              return options;
          }())
    {}

    void awaitNumber(int number) const
    {
        while (store->getInt("number", -1) != number)
            std::this_thread::sleep_for(50us);
    }

    Studio::Session session;
    std::shared_ptr<ISettingsStorage> store = session.store("common", std::make_shared<TestKit::MemoryStorage>());
};

/// An editor that asks the server now and then.
struct PollingEditor : Editor {
    explicit PollingEditor(std::string const& connection) : Editor(connection, {}, false) {}
};

int many() { return Bench::isShort() ? 10 : 500; }

void addDelivery()
{
    struct Pair {
        Server server{2};
        Editor writer{server.connection(0)};
        Editor reader{server.connection(0)};
        BareProgram bareWriter{server.connection(1), 1};
        BareProgram bareReader{server.connection(1), 2};
        int count = 0;
    };
    auto const pair = std::make_shared<std::unique_ptr<Pair>>();
    auto const prepare = [pair](benchmark::State&) {
        if (!*pair)
            *pair = std::make_unique<Pair>();
    };
    auto const library = [pair] {
        Pair& all = **pair;
        all.writer.store->setInt("number", ++all.count);
        all.reader.awaitNumber(all.count);
    };
    auto const floor = [pair] {
        Pair& all = **pair;
        all.bareWriter.change();
        all.bareReader.awaitHint();
        all.bareReader.askForChanges();
    };
    Bench::addByTurns("change shown by another editor", prepare, library, floor);
}

/// A server with one side's programs only.
template <typename Program>
struct Crowd {
    Server server{1};
    std::deque<Program> programs;
};

template <typename Program>
void fill(Crowd<Program>& crowd)
{
    for (int number = 0; number < many(); ++number)
        crowd.programs.emplace_back(crowd.server.connection(0));
}

template <>
void fill(Crowd<BareProgram>& crowd)
{
    for (int number = 0; number < many(); ++number)
        crowd.programs.emplace_back(crowd.server.connection(0), number);
}

// The seconds until the last one knows of the first one's change.
template <typename Program>
double timeOfDelivery(Crowd<Program>& crowd, int number)
{
    return Bench::timeOf([&] {
        crowd.programs.front().store->setInt("number", number);
        for (Program const& each : crowd.programs)
            each.awaitNumber(number);
    });
}

template <>
double timeOfDelivery(Crowd<BareProgram>& crowd, int)
{
    return Bench::timeOf([&] {
        crowd.programs.front().change();
        for (BareProgram const& each : crowd.programs)
            each.awaitHint();
    });
}

// The seconds from the moment at which the server is there again.
template <typename Program>
double timeOfReturn(Crowd<Program>& crowd)
{
    crowd.server.restart();
    return Bench::timeOf([&] {
        for (Program const& each : crowd.programs)
            while (!each.session.status().connected)
                std::this_thread::sleep_for(1ms);
    });
}

template <>
double timeOfReturn(Crowd<BareProgram>& crowd)
{
    crowd.programs.clear();
    crowd.server.restart();
    return Bench::timeOf([&] { fill(crowd); });
}

template <typename Program>
void addCrowd(char const* side)
{
    auto const crowd = std::make_shared<std::unique_ptr<Crowd<Program>>>();
    auto const prepare = [crowd] {
        if (*crowd)
            return;
        *crowd = std::make_unique<Crowd<Program>>();
        fill(**crowd);
    };
    auto const delivery = [crowd, prepare](benchmark::State& state) {
        prepare();
        int number = static_cast<int>(std::chrono::steady_clock::now().time_since_epoch().count() % 1000000);
        for ([[maybe_unused]] auto const once : state)
            state.SetIterationTime(timeOfDelivery(**crowd, ++number));
    };
    auto const memory = [crowd, prepare](benchmark::State& state) {
        prepare();
        Server const& server = (*crowd)->server;
        double const before = server.processorTimeOf("user0");
        double const seconds = Bench::isShort() ? 0.1 : 30;
        for ([[maybe_unused]] auto const once : state)
            state.SetIterationTime(Bench::timeOf([&] { std::this_thread::sleep_for(std::chrono::duration<double>(seconds)); }));
        state.counters["MB for each"] = server.memoryOf("user0") / many() / 1e6;
        state.counters["millionths of a core for each"] = 1e6 * (server.processorTimeOf("user0") - before) / seconds / many();
    };
    auto const back = [crowd, prepare](benchmark::State& state) {
        prepare();
        for ([[maybe_unused]] auto const once : state)
            state.SetIterationTime(timeOfReturn(**crowd));
    };
    auto const add = [side](std::string const& row, std::function<void(benchmark::State&)> run, int iterations) {
        benchmark::RegisterBenchmark((row + '/' + side).c_str(), std::move(run))->UseManualTime()->Repetitions(1)->Iterations(iterations);
    };
    if constexpr (!std::is_same_v<Program, PollingEditor>) // which see it when they ask
        add("change shown by the last of 500 editors", delivery, Bench::isShort() ? 1 : 20);
    add("500 idle editors", memory, 1);
    add("500 editors after a restart", back, 1);
}

void addStart()
{
    struct Silent {
        QTemporaryDir folder;
        Server server{1};
        std::string connection = server.connection(0);
        std::string file = folder.filePath(QStringLiteral("store.sqlite")).toStdString();
        Silent()
        {
            Editor editor(connection, folder.path().toStdString());
            editor.store->setInt("number", 7);
            Bench::require(editor.session.synchronise(10s), "the server does not answer");
            Storage::SqliteStorage(file).setInt("number", 7);
            server.halt();
        }
    };
    auto const silent = std::make_shared<std::unique_ptr<Silent>>();
    auto const prepare = [silent](benchmark::State&) {
        if (!*silent)
            *silent = std::make_unique<Silent>();
    };
    auto const library = [silent] {
        Editor const editor((*silent)->connection, (*silent)->folder.path().toStdString());
        Bench::require(editor.store->getInt("number", -1) == 7, "the workstation has lost what the server had");
    };
    auto const floor = [silent] {
        std::this_thread::sleep_for(500ms); // for which a start waits for the server
        return Storage::SqliteStorage((*silent)->file).getInt("number", -1);
    };
    Bench::addByTurns("start while the server is silent", prepare, library, floor)->Iterations(Bench::isShort() ? 1 : 5);
}

Bench::Registration const registration([] {
    addDelivery();
    addCrowd<Editor>("library");
    addCrowd<PollingEditor>("polling");
    addCrowd<BareProgram>("floor");
    addStart();
});

} // namespace
