// SPDX-License-Identifier: MIT
#include "commands/Commands.h"
#include "commands/values/Output.h"
#include "terminal/Escaping.h"
#include <Inspection/PreferenceState.h>
#include <Inspection/RowDifference.h>
#include <Inspection/ValueFormat.h>
#include <Inspection/studio/StudioServer.h>
#include <Storage/StoreWatcher.h>
#include <Storage/watch/ChangeHints.h>

#include <nlohmann/json.hpp>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <iostream>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <set>
#include <system_error>
#include <utility>

#include <sys/signalfd.h>
#include <unistd.h>

using Catalogue::Store;
using Inspection::jsonText;
using Inspection::Layer;
using Inspection::storageFile;
using Inspection::storedJson;
using nlohmann::ordered_json;
using Storage::StoreWatcher;

namespace {

// Between two looks where no hint comes.
constexpr std::chrono::milliseconds longestPause{25};

struct WatchedStore {
    Store store;
    StoreWatcher watcher;
};

// `sharedLayer` says whose value holds after a change at a studio's server; empty after one of the workstation's store.
void print(std::string const& store, Storage::RowDifference const& difference, std::string const& sharedLayer, Format format)
{
    auto const& [key, before, after] = difference;
    auto const when = after ? after->changed : std::chrono::system_clock::now();
    std::string const time = format == Format::people ? Inspection::inLocalTime(when) : Inspection::inUtc(when);
    if (format == Format::json) {
        ordered_json const line = {{"time", time},
                                   {"store", store},
                                   {"layer", sharedLayer.empty() ? Inspection::layerName(Layer::local) : sharedLayer},
                                   {"key", key},
                                   {"before", storedJson(before)},
                                   {"after", storedJson(after)}};
        std::cout << jsonText(line) << '\n';
        return;
    }
    char const* const separator = format == Format::plain ? "\t" : "  ";
    std::cout << time << separator << store << separator << onOneLine(key) << separator << onOneLine(before, "(unset)")
              << (format == Format::plain ? "\t" : " -> ") << onOneLine(after, "(unset)");
    std::cout << (sharedLayer.empty() ? "" : separator + sharedLayer) << '\n';
}

void look(WatchedStore& store, Format format)
{
    StoreWatcher::Look const look = store.watcher.look();
    if (look.error)
        printError(look.error->what());
    for (StoreWatcher::Difference const& difference : look.differences)
        print(name(store.store), difference, "", format);
}

// What changes at a studio's server for this user. The server's thread only notes keys; all else is done by the thread that looks.
class SharedChanges {
public:
    SharedChanges(Host::ToolApplication const& application, Inspection::StudioServer& studio) : m_application(application), m_studio(studio)
    {
        studio.onChange([this](std::string const& store, std::string const& key) {
            std::lock_guard const lock(m_mutex);
            m_changed.emplace(store == "common" ? Store::common : Store::product, key);
        });
        for (Store const store : Catalogue::bothStores)
            for (std::string const& key : Inspection::layers(application, store)->sharedKeys())
                m_known[{store, key}] = inForce({store, key});
    }
    ~SharedChanges() { m_studio.onChange({}); }
    SharedChanges(SharedChanges const&) = delete;
    SharedChanges& operator=(SharedChanges const&) = delete;

    void look(Format format)
    {
        std::unique_lock lock(m_mutex);
        std::set<Place> const changed = std::exchange(m_changed, {});
        lock.unlock();
        for (Place const& place : changed)
            look(place, format);
    }

private:
    using Place = std::pair<Store, std::string>;
    using InForce = std::optional<Inspection::LayeredRow>;

    InForce inForce(Place const& place) const
    {
        std::vector<Inspection::LayeredRow> const stored = Inspection::storedLayers(m_application, place.first, place.second);
        return stored.empty() ? std::nullopt : InForce(stored.front());
    }
    void look(Place const& place, Format format)
    {
        InForce const after = inForce(place);
        InForce const before = std::exchange(m_known[place], after);
        auto const layerOf = [](InForce const& row) { return row ? std::optional(row->layer) : std::nullopt; };
        auto const rowOf = [](InForce const& row) { return row ? std::optional(row->row) : std::nullopt; };
        std::optional<Layer> const layer = layerOf(after);
        // Else a value changed that another one covers.
        if (layer != layerOf(before) || !(rowOf(after) == rowOf(before)))
            print(name(place.first), {place.second, rowOf(before), rowOf(after)}, Inspection::layerName(layer), format);
    }

    Host::ToolApplication const& m_application;
    Inspection::StudioServer& m_studio;
    std::map<Place, InForce> m_known;
    std::mutex m_mutex;
    std::set<Place> m_changed;
};

// The signals that end the program, as a descriptor: they are taken between two looks, so that a line is never cut.
class EndSignals {
public:
    EndSignals()
    {
        sigset_t ends;
        sigemptyset(&ends);
        sigaddset(&ends, SIGINT);
        sigaddset(&ends, SIGTERM);
        ::sigprocmask(SIG_BLOCK, &ends, nullptr);
        descriptor = ::signalfd(-1, &ends, SFD_CLOEXEC);
        if (descriptor < 0)
            throw std::system_error(errno, std::generic_category(), "cannot wait for signals");
    }
    ~EndSignals() { ::close(descriptor); }
    EndSignals(EndSignals const&) = delete;
    EndSignals& operator=(EndSignals const&) = delete;

    int descriptor = -1;
};

// Prints each change that another process makes to a store, until SIGINT or SIGTERM. Waits for a missing store. Prints an
// error with a store once on standard error, and keeps watching it.
void monitorStores(Host::ToolApplication const& application, Inspection::StudioServer* studio, Format format)
{
    EndSignals const ends;
    std::filesystem::path const productFile = storageFile(application, Store::product);
    std::filesystem::path const commonFile = storageFile(application, Store::common);
    Storage::ChangeHints hints({productFile, commonFile});
    WatchedStore watched[] = {{Store::product, StoreWatcher(productFile, application.storeOptions())},
                              {Store::common, StoreWatcher(commonFile, application.storeOptions())}};
    for (WatchedStore& store : watched)
        if (auto const error = store.watcher.look().error)
            printError(error->what());
    std::optional<SharedChanges> shared;
    if (studio)
        shared.emplace(application, *studio);
    printError(studio ? "watching both stores and the studio's server; Ctrl+C ends it" : "watching both stores; Ctrl+C ends it");
    while (std::cout && !hints.wait(longestPause, ends.descriptor)) {
        for (WatchedStore& store : watched)
            look(store, format);
        if (shared)
            shared->look(format);
        std::cout.flush();
    }
}

} // namespace

std::vector<Command> commandsOfMonitor()
{
    auto const format = std::make_shared<FormatChoice>();
    Command command;
    command.name = "monitor";
    command.group = Group::support;
    command.summary = "Prints the changes that others make, as they happen";
    command.options = withFormat(*format, "One JSON object a line; bytes in base64");
    command.examples = {{"editor-settings monitor", "A line for each change, until Ctrl+C."}};
    command.stores = always(StoreUse::readUsable);
    command.studio = StudioUse::look;
    command.run = [format](Invocation const& invocation) {
        monitorStores(*invocation.application, invocation.studio, *format);
        return 0;
    };
    return {command};
}
