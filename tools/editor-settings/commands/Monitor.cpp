// SPDX-License-Identifier: MIT
#include "commands/Commands.h"
#include "terminal/Escaping.h"
#include <Inspection/PreferenceState.h>
#include <Inspection/RowDifference.h>
#include <Inspection/StoreWatcher.h>
#include <Inspection/ValueFormat.h>

#include <csignal>
#include <iostream>
#include <memory>

using Catalogue::Store;
using Inspection::jsonText;
using Inspection::storageFile;
using Inspection::storedJson;
using Inspection::storedText;
using nlohmann::ordered_json;

namespace {

constexpr timespec pauseBetweenLooks = {0, 25000000};

struct WatchedStore {
    Store store;
    Inspection::StoreWatcher watcher;
};

void print(std::string const& store, Inspection::RowDifference const& difference, Format format)
{
    auto const& [key, before, after] = difference;
    std::string const time = Inspection::inUtc(after ? after->changed : std::chrono::system_clock::now());
    if (format == Format::json) {
        ordered_json const line = {
            {"time", time}, {"store", store}, {"key", key}, {"before", storedJson(before)}, {"after", storedJson(after)}};
        std::cout << jsonText(line) << '\n';
        return;
    }
    char const* const separator = format == Format::plain ? "\t" : "  ";
    std::cout << time << separator << store << separator << onOneLine(key) << separator << onOneLine(storedText(before, "(unset)"))
              << (format == Format::plain ? "\t" : " -> ") << onOneLine(storedText(after, "(unset)")) << '\n';
}

void look(WatchedStore& store, Format format)
{
    Inspection::StoreWatcher::Look const look = store.watcher.look();
    if (look.error)
        printError(look.error->what());
    for (Inspection::RowDifference const& difference : look.differences)
        print(name(store.store), difference, format);
}

// The signals that end the program are taken between two looks, so that a line is never cut.
sigset_t heldBackSignals()
{
    sigset_t ends;
    sigemptyset(&ends);
    sigaddset(&ends, SIGINT);
    sigaddset(&ends, SIGTERM);
    ::sigprocmask(SIG_BLOCK, &ends, nullptr);
    return ends;
}

// Prints each change that another process makes to a store, until SIGINT or SIGTERM. Waits for a missing store. Prints an
// error with a store once on standard error, and keeps watching it.
void monitorStores(Host::Application const& application, Format format)
{
    sigset_t const ends = heldBackSignals();
    auto const watcherOf = [&](Store store) {
        return Inspection::StoreWatcher(storageFile(application, store), application.storeOptions());
    };
    WatchedStore watched[] = {{Store::product, watcherOf(Store::product)}, {Store::common, watcherOf(Store::common)}};
    for (WatchedStore& store : watched)
        if (auto const error = store.watcher.look().error)
            printError(error->what());
    printError("watching both stores; Ctrl+C ends it");
    while (std::cout && ::sigtimedwait(&ends, nullptr, &pauseBetweenLooks) < 0)
        for (WatchedStore& store : watched) {
            look(store, format);
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
    command.summary = "Prints the changes that other processes make, as they happen";
    command.options = withFormat(*format, "One JSON object a line; bytes in base64");
    command.examples = {{"editor-settings monitor", "A line for each change, until Ctrl+C."}};
    command.stores = always(StoreUse::readUsable);
    command.run = [format](Invocation const& invocation) {
        monitorStores(*invocation.application, *format);
        return 0;
    };
    return {command};
}
