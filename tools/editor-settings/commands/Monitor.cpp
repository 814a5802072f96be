// SPDX-License-Identifier: MIT
#include "commands/Commands.h"
#include "commands/values/Output.h"
#include "terminal/Escaping.h"
#include <Inspection/PreferenceState.h>
#include <Inspection/RowDifference.h>
#include <Inspection/ValueFormat.h>
#include <Storage/StoreWatcher.h>
#include <Storage/watch/ChangeHints.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <iostream>
#include <memory>
#include <system_error>

#include <sys/signalfd.h>
#include <unistd.h>

using Catalogue::Store;
using Inspection::jsonText;
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

void print(std::string const& store, Storage::RowDifference const& difference, Format format)
{
    auto const& [key, before, after] = difference;
    auto const when = after ? after->changed : std::chrono::system_clock::now();
    std::string const time = format == Format::people ? Inspection::inLocalTime(when) : Inspection::inUtc(when);
    if (format == Format::json) {
        ordered_json const line = {
            {"time", time}, {"store", store}, {"key", key}, {"before", storedJson(before)}, {"after", storedJson(after)}};
        std::cout << jsonText(line) << '\n';
        return;
    }
    char const* const separator = format == Format::plain ? "\t" : "  ";
    std::cout << time << separator << store << separator << onOneLine(key) << separator << onOneLine(before, "(unset)")
              << (format == Format::plain ? "\t" : " -> ") << onOneLine(after, "(unset)") << '\n';
}

void look(WatchedStore& store, Format format)
{
    StoreWatcher::Look const look = store.watcher.look();
    if (look.error)
        printError(look.error->what());
    for (StoreWatcher::Difference const& difference : look.differences)
        print(name(store.store), difference, format);
}

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
void monitorStores(Host::Application const& application, Format format)
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
    printError("watching both stores; Ctrl+C ends it");
    while (std::cout && !hints.wait(longestPause, ends.descriptor))
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
