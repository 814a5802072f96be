// SPDX-License-Identifier: MIT
#include "commands/Commands.h"
#include "commands/values/Output.h"
#include "terminal/Escaping.h"
#include "terminal/ProgressLine.h"
#include <Inspection/PreferenceState.h>
#include <Inspection/RowDifference.h>
#include <Inspection/ValueFormat.h>

#include <absl/strings/str_cat.h>
#include <nlohmann/json.hpp>

#include <Storage/Backup.h>

#include <algorithm>
#include <memory>

using Catalogue::Store;
using Inspection::inUtc;
using Inspection::RowDifference;
using Inspection::storage;
using Inspection::storageError;
using Inspection::storageFile;
using Inspection::storedJson;
using nlohmann::ordered_json;
using Storage::SqliteStorage;

namespace {

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
    std::vector<RowDifference> changes;
    bool isUsable; // Else the store's file is replaced, also where its values do not differ.
    std::optional<std::filesystem::path> kept;

    bool isNeeded() const { return !isUsable || !changes.empty(); }
};

// A newer version's store can be read, and takes no changes.
bool isUsable(SqliteStorage const* store)
{
    std::optional<Storage::StorageError> const error = store ? store->readOnlyError() : std::nullopt;
    return store && (!error || error->code() != Storage::StorageError::Code::newer);
}

// The backup in `file`, and the stores that it is about.
struct Source {
    Storage::Backup backup;
    std::vector<Store> stores;
};

// A store that an earlier restore kept is a backup of that store alone.
Source sourceIn(std::string const& file, Host::Application const& application)
{
    for (Store const store : Catalogue::bothStores)
        if (auto const made = Storage::Backup::timeOfKeeping(file, storageFile(application, store)))
            return {Storage::Backup(file, name(store), *made, application.storeOptions()), {store}};
    return {Storage::Backup(file), {std::begin(Catalogue::bothStores), std::end(Catalogue::bothStores)}};
}

void printAsJson(Storage::Backup const& backup, std::vector<Restored> const& all, bool isDryRun)
{
    ordered_json result = {{"made", inUtc(backup.made())}, {"dryRun", isDryRun}, {"stores", ordered_json::object()}};
    for (Restored const& restored : all) {
        auto changes = ordered_json::array();
        for (RowDifference const& change : restored.changes)
            changes.push_back({{"key", change.key}, {"before", storedJson(change.before)}, {"after", storedJson(change.after)}});
        result["stores"][name(restored.store)] = {{"kept", restored.kept ? ordered_json(restored.kept->u8string()) : ordered_json()},
                                                  {"changes", changes}};
    }
    printJson(result);
}

void printAsTable(std::vector<Restored> const& all, Format format)
{
    std::vector<Columns> table;
    for (Restored const& restored : all)
        for (RowDifference const& change : restored.changes)
            table.push_back(
                {name(restored.store), onOneLine(change.key), onOneLine(change.before, "(unset)"), onOneLine(change.after, "(unset)")});
    if (!table.empty())
        printTable(table, {"STORE", "KEY", "BEFORE", "RESTORED"}, format);
}

// The command that brings back what a restore has kept, for a shell in any folder.
std::string undoing(std::filesystem::path const& kept, Invocation const& invocation)
{
    std::string command = "editor-settings restore " + Inspection::shellWord(kept.u8string());
    if (invocation.storeFolder)
        absl::StrAppend(&command, " --home ", Inspection::shellWord(std::filesystem::absolute(*invocation.storeFolder).u8string()));
    if (invocation.productFile != Host::installedProductFile())
        absl::StrAppend(&command, " --product ", Inspection::shellWord(std::filesystem::absolute(invocation.productFile).u8string()));
    return invocation.options.allowNetworkFileSystem ? command + " --allow-network" : command;
}

std::string summary(Storage::Backup const& backup, Restored const& restored, Invocation const& invocation, bool isDryRun)
{
    std::string const store = absl::StrCat("the ", name(restored.store), " store of ", Inspection::inLocalTime(backup.made()), ": ");
    std::size_t const count = restored.changes.size();
    if (!restored.isNeeded())
        return store + "nothing differs, so the store stays as it is";
    if (isDryRun)
        return absl::StrCat(store, counted(count, "value"), " would change");
    std::string const changed = absl::StrCat(store, counted(count, "value"), " changed");
    if (restored.kept && restored.isUsable)
        return absl::StrCat(changed, "; to undo it: ", undoing(*restored.kept, invocation));
    return restored.kept ? absl::StrCat(changed, "; what was there is kept in ", restored.kept->u8string()) : changed;
}

// Writes a copy of the stores to the new file `file`. Throws `UserError` where there is no store.
void backUpStores(Host::Application const& application, std::string const& file)
{
    std::map<std::string, SqliteStorage const*> present;
    for (Store const store : Catalogue::bothStores)
        if (SqliteStorage const* const now = storage(application, store))
            present[name(store)] = now;
    if (present.empty())
        throw UserError("there is no store yet, so there is nothing to back up");
    ProgressLine progress(2);
    progress.next("copying the stores");
    Storage::Backup::write(file, present);
    progress.next("reading the copy");
    Storage::Backup const written(file);
    for (std::string const& store : written.names())
        progress.aside(absl::StrCat("the ", store, " store is backed up with ", counted(written.rows(store).size(), "value")));
}

Restored restoredStore(Storage::Backup const& backup, Store store, Host::Application const& application, bool isDryRun)
{
    Restored restored = {store, Inspection::rowDifferences(rowsNow(application, store), backup.rows(name(store))),
                         isUsable(storage(application, store)), std::nullopt};
    if (!isDryRun && restored.isNeeded())
        restored.kept = backup.restore(name(store), storageFile(application, store), application.storeOptions());
    return restored;
}

// Makes the stores what they are in the backup `file`, and tells how to undo that; with `isDryRun` only tells what would
// change. A store that the backup does not hold stays as it is.
void restoreStores(Invocation const& invocation, std::string const& file, bool isDryRun, Format format)
{
    Host::Application const& application = *invocation.application;
    std::vector<Restored> all;
    std::optional<ProgressLine> progress(3);
    progress->next("reading the backup");
    auto const& [backup, wanted] = sourceIn(file, application);
    for (Store const store : wanted) {
        progress->next(absl::StrCat("restoring the ", name(store), " store"));
        if (!holds(backup, store)) {
            progress->aside(absl::StrCat("the backup holds no ", name(store), " store, so that one stays as it is"));
            continue;
        }
        if (std::optional<Storage::StorageError> const& error = storageError(application, store))
            progress->aside(error->what());
        all.push_back(restoredStore(backup, store, application, isDryRun));
        if (format == Format::people)
            progress->aside(summary(backup, all.back(), invocation, isDryRun));
    }
    progress.reset(); // the answer may stand on the same terminal
    if (format == Format::json)
        printAsJson(backup, all, isDryRun);
    else
        printAsTable(all, format);
}

Command backupCommand()
{
    auto const file = std::make_shared<std::string>();
    Command command;
    command.name = "backup";
    command.summary = "Copies both stores into one file, also while the editor runs";
    command.options = {fileOption("FILE", *file, "The new file").required()};
    command.examples = {{"editor-settings backup settings.backup", "Copies both stores into that file."}};
    command.stores = always(StoreUse::read);
    command.namesFile = true;
    command.run = [file](Invocation const& invocation) {
        backUpStores(*invocation.application, *file);
        return 0;
    };
    return command;
}

Command restoreCommand()
{
    struct Words {
        std::string file;
        bool isDryRun = false;
        FormatChoice format;
    };
    auto const words = std::make_shared<Words>();
    Command command;
    command.name = "restore";
    command.summary = "Brings the stores of a backup back, and keeps what was there";
    command.options =
        withFormat(words->format, jsonHelpWithBytes,
                   {fileOption("FILE", words->file, "A file that backup has written, or a store that restore has kept").required(),
                    Option("--dry-run", &words->isDryRun, "Only tells what would change")});
    command.examples = {{"editor-settings restore settings.backup --dry-run", "What would change."},
                        {"editor-settings restore settings.backup", "Brings the stores back, and tells the command that undoes it."}};
    command.stores = [words] { return words->isDryRun ? StoreUse::readUsable : StoreUse::replace; };
    command.namesFile = true;
    command.run = [words](Invocation const& invocation) {
        restoreStores(invocation, words->file, words->isDryRun, words->format);
        return 0;
    };
    return command;
}

} // namespace

std::vector<Command> commandsOfBackups() { return {backupCommand(), restoreCommand()}; }
