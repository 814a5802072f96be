// SPDX-License-Identifier: MIT
#include "Backups.h"

#include "Progress.h"
#include "Setting.h"
#include "Stored.h"
#include "Text.h"
#include "Translation.h"

#include <Storage/Backup.h>

#include <algorithm>

using Catalogue::Store;
using nlohmann::ordered_json;
using Storage::SqliteStorage;

namespace {

constexpr Store stores[] = {Store::product, Store::common};

std::vector<SqliteStorage::Row> rowsNow(Host::Application const& application, Store store)
{
    SqliteStorage const* const now = storage(application, store);
    return now ? now->rows() : std::vector<SqliteStorage::Row>();
}

bool holds(Storage::Backup const& backup, Store store)
{
    std::vector<std::string> const names = backup.names();
    return std::find(names.begin(), names.end(), name(store)) != names.end();
}

// What a restore of one store does, or would.
struct Restored {
    Store store;
    std::vector<KeyChange> changes;
    std::optional<std::filesystem::path> kept;
};

void printAsJson(Storage::Backup const& backup, std::vector<Restored> const& all, bool isDryRun)
{
    ordered_json result = {{"made", inUtc(backup.made())}, {"dryRun", isDryRun}, {"stores", ordered_json::object()}};
    for (Restored const& restored : all) {
        auto changes = ordered_json::array();
        for (KeyChange const& change : restored.changes)
            changes.push_back({{"key", change.key}, {"before", storedJson(change.before)}, {"after", storedJson(change.after)}});
        result["stores"][name(restored.store)] = {{"kept", restored.kept ? ordered_json(restored.kept->u8string()) : ordered_json()},
                                                  {"changes", changes}};
    }
    printJson(result);
}

void printAsTable(std::vector<Restored> const& all, Format format)
{
    std::string const unset = Text::of("(unset)");
    std::vector<Columns> table;
    for (Restored const& restored : all)
        for (KeyChange const& change : restored.changes)
            table.push_back({name(restored.store), onOneLine(change.key), shown(change.before, unset), shown(change.after, unset)});
    if (!table.empty())
        printTable(table, {Text::of("STORE"), Text::of("KEY"), Text::of("NOW"), Text::of("IN THE BACKUP")}, format);
}

std::string told(Storage::Backup const& backup, Restored const& restored, bool isDryRun)
{
    std::string const store = name(restored.store);
    std::string const made = inUtc(backup.made());
    std::size_t const count = restored.changes.size();
    if (isDryRun)
        return Text::ofCount("the %1 store of %2: %n values would change", "the %1 store of %2: %n value would change", count, store, made);
    std::string const differing = Text::ofCount("the %1 store of %2: %n values differ from before",
                                                "the %1 store of %2: %n value differs from before", count, store, made);
    return restored.kept ? Text::of("%1; what was there is kept in %2", differing, restored.kept->u8string()) : differing;
}

} // namespace

void backUpStores(Host::Application const& application, std::string const& file)
{
    std::map<std::string, SqliteStorage const*> present;
    for (Store const store : stores)
        if (SqliteStorage const* const now = storage(application, store))
            present[name(store)] = now;
    if (present.empty())
        throw Refusal(Text::of("there is no store yet, so there is nothing to back up"));
    Progress progress(2);
    progress.next(Text::of("copying the stores"));
    Storage::Backup::write(file, present);
    progress.next(Text::of("reading the copy"));
    Storage::Backup const written(file);
    for (std::string const& store : written.names())
        progress.aside(Text::ofCount("the %1 store is backed up with %n values", "the %1 store is backed up with %n value",
                                     written.rows(store).size(), store));
}

void restoreStores(Host::Application const& application, std::string const& file, bool isDryRun, Format format)
{
    std::vector<Restored> all;
    std::optional<Progress> progress(3);
    progress->next(Text::of("reading the backup"));
    Storage::Backup const backup(file);
    for (Store const store : stores) {
        progress->next(Text::of("restoring the %1 store", name(store)));
        if (!holds(backup, store)) {
            progress->aside(Text::of("the backup holds no %1 store, so that one stays as it is", name(store)));
            continue;
        }
        if (std::optional<Storage::StorageError> const& error = storageError(application, store))
            progress->aside(error->what());
        Restored restored = {store, changesBetween(rowsNow(application, store), backup.rows(name(store))), std::nullopt};
        if (!isDryRun)
            restored.kept = backup.restore(name(store), storageFile(application, store));
        if (format == Format::people)
            progress->aside(told(backup, restored, isDryRun));
        all.push_back(std::move(restored));
    }
    progress.reset(); // the answer may stand on the same terminal
    if (format == Format::json)
        printAsJson(backup, all, isDryRun);
    else
        printAsTable(all, format);
}
