// SPDX-License-Identifier: MIT
#include "commands/Monitor.h"

#include "commands/Commands.h"

#include "terminal/Escaping.h"
#include <Inspection/PreferenceState.h>
#include <Inspection/RowDifference.h>
#include <Inspection/ValueFormat.h>

#include <csignal>
#include <iostream>
#include <memory>

#include <sys/stat.h>

using Catalogue::Store;
using Inspection::jsonText;
using Inspection::storageFile;
using nlohmann::ordered_json;
using Storage::SqliteStorage;

namespace {

constexpr timespec pauseBetweenLooks = {0, 25000000};

// Which file a name leads to: another one where the store was replaced.
using Identity = std::pair<dev_t, ino_t>;

std::optional<Identity> identityOf(std::filesystem::path const& file)
{
    struct stat status = {};
    if (::stat(file.c_str(), &status) != 0)
        return std::nullopt;
    return Identity{status.st_dev, status.st_ino};
}

class WatchedStore {
public:
    WatchedStore(std::string name, std::filesystem::path file) : m_name(std::move(name)), m_file(std::move(file)) {}

    std::string const& name() const { return m_name; }

    // What has changed since the last look.
    std::vector<RowDifference> look()
    {
        try {
            std::vector<SqliteStorage::Row> const before = m_rows;
            bool const isReadAnew = read();
            m_trouble.clear();
            return isReadAnew ? rowDifferences(before, m_rows) : std::vector<RowDifference>();
        } catch (Storage::StorageError const& error) {
            m_opened.reset();
            tellOnce(error.what());
            return {};
        }
    }

private:
    // Whether the rows were read anew.
    bool read()
    {
        std::optional<Identity> const identity = identityOf(m_file);
        if (!identity) {
            m_opened.reset();
            bool const wasThere = !m_rows.empty();
            m_rows.clear();
            return wasThere;
        }
        if (!m_opened || identity != m_identity) {
            m_opened = std::make_unique<SqliteStorage>(m_file);
            m_identity = identity;
        } else if (m_opened->changesOfOthers() == m_version) {
            return false;
        }
        m_version = m_opened->changesOfOthers();
        m_rows = m_opened->rows();
        return true;
    }

    // Each trouble once, for as long as it lasts.
    void tellOnce(std::string const& trouble)
    {
        if (trouble != m_trouble)
            printError(trouble);
        m_trouble = trouble;
    }

    std::string m_name;
    std::filesystem::path m_file;
    std::unique_ptr<SqliteStorage> m_opened;
    std::optional<Identity> m_identity;
    long long m_version = 0;
    std::vector<SqliteStorage::Row> m_rows;
    std::string m_trouble;
};

void print(std::string const& store, RowDifference const& change, Format format)
{
    std::string const time = inUtc(change.after ? change.after->changed : std::chrono::system_clock::now());
    if (format == Format::json) {
        ordered_json const line = {{"time", time},
                                   {"store", store},
                                   {"key", change.key},
                                   {"before", storedJson(change.before)},
                                   {"after", storedJson(change.after)}};
        std::cout << jsonText(line) << '\n';
        return;
    }
    std::string const unset = "(unset)";
    char const* const separator = format == Format::plain ? "\t" : "  ";
    std::cout << time << separator << store << separator << onOneLine(change.key) << separator << shown(change.before, unset)
              << (format == Format::plain ? "\t" : " -> ") << shown(change.after, unset) << '\n';
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

} // namespace

void monitorStores(Host::Application const& application, Format format)
{
    sigset_t const ends = heldBackSignals();
    WatchedStore watched[] = {{name(Store::product), storageFile(application, Store::product)},
                              {name(Store::common), storageFile(application, Store::common)}};
    for (WatchedStore& store : watched)
        store.look();
    printError("watching both stores; Ctrl+C ends it");
    while (std::cout && ::sigtimedwait(&ends, nullptr, &pauseBetweenLooks) < 0)
        for (WatchedStore& store : watched) {
            for (RowDifference const& change : store.look())
                print(store.name(), change, format);
            std::cout.flush();
        }
}

Command monitorCommand()
{
    auto const format = std::make_shared<FormatChoice>();
    Command command;
    command.name = "monitor";
    command.summary = "Prints the changes that other processes make, as they happen";
    command.options = withFormat(*format, "One JSON object a line; bytes in base64");
    command.examples = {{"editor-settings monitor", "A line for each change, until Ctrl+C."}};
    command.stores = always(StoreUse::readUsable);
    command.run = [format](Invocation const& invocation) {
        monitorStores(*invocation.application, *format);
        return 0;
    };
    return command;
}
