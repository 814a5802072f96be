// SPDX-License-Identifier: MIT
#include "TransferVerbs.h"

#include "HomeFolder.h"
#include "InputFile.h"
#include "KnownKeys.h"
#include "Progress.h"
#include "Setting.h"
#include "Stored.h"
#include "Terminal.h"
#include "Text.h"
#include "Transfer.h"
#include "Translation.h"

#include <Storage/AtomicFile.h>

#include <algorithm>
#include <chrono>
#include <iostream>
#include <iterator>
#include <memory>
#include <set>

#include <unistd.h>

using Catalogue::Store;
using Storage::SqliteStorage;
using Transfer::Document;
using Transfer::Entry;

namespace {

constexpr Store stores[] = {Store::product, Store::common};

bool counts(TransferOptions const& options, std::string const& category)
{
    return options.only.empty() || std::find(options.only.begin(), options.only.end(), category) != options.only.end();
}

// A store's rows of the classes that count.
std::vector<SqliteStorage::Row> rowsOf(Host::Application const& application, Store store, TransferOptions const& options)
{
    std::vector<SqliteStorage::Row> rows;
    if (storage(application, store))
        rows = storage(application, store)->rows();
    auto const isLeftOut = [&](SqliteStorage::Row const& row) { return !counts(options, classOf(row.key)); };
    rows.erase(std::remove_if(rows.begin(), rows.end(), isLeftOut), rows.end());
    return rows;
}

bool isRedacted(Entry const& entry) { return std::holds_alternative<std::monostate>(entry.value); }

bool isReadable(SqliteStorage::Row const& row) { return !std::holds_alternative<std::monostate>(row.value); }

// Why a document cannot hold a row; empty where it can.
std::string obstacleToCarrying(SqliteStorage::Row const& row)
{
    if (!isReadable(row))
        return Text::of("holds a value of kind %1 that this version cannot read", quoted(row.kind));
    return row.key.find('\0') != std::string::npos ? Text::of("has a NUL in its key") : "";
}

// --- export ---

struct TellsOfTheHome {
    bool operator()(std::string const& value) const { return tellsOfTheHome(value); }
    bool operator()(std::vector<unsigned char> const& value) const { return tellsOfTheHome(std::string(value.begin(), value.end())); }
    template <typename T>
    bool operator()(T const&) const
    {
        return false;
    }
};

bool isPersonal(Entry const& entry)
{
    return entry.category.empty() || entry.category == Catalogue::className(Catalogue::Class::personal) ||
           std::visit(TellsOfTheHome(), entry.value);
}

Document exported(Host::Application const& application, TransferOptions const& options, Progress& progress)
{
    Document document = {inUtc(std::chrono::system_clock::now()), application.productFile().productName(), {}};
    for (Store const store : stores) {
        progress.next(Text::of("reading the %1 store", name(store)));
        for (SqliteStorage::Row const& row : rowsOf(application, store, options)) {
            Entry entry = {store, row.key, row.kind, classOf(row.key), row.value};
            if (options.redact && tellsOfTheHome(row.key)) {
                progress.aside(Text::of("a key in the %1 store holds the path of the home folder, so it is left out", name(store)));
            } else if (std::string const why = obstacleToCarrying(row); !why.empty()) {
                progress.aside(Text::of("%1 in the %2 store %3, so it is left out; 'editor-settings backup' keeps it", quoted(row.key),
                                        name(store), why));
            } else {
                if (options.redact && isPersonal(entry))
                    entry.value = {};
                document.entries.push_back(entry);
            }
        }
    }
    return document;
}

} // namespace

void exportSettings(Host::Application const& application, TransferOptions const& options)
{
    std::optional<Progress> progress(3);
    Document const document = exported(application, options, *progress);
    progress->next(Text::of("writing the file"));
    std::string const bytes = Transfer::written(document);
    if (options.file == "-") {
        progress.reset(); // standard output may be the same terminal
        std::cout << bytes;
    } else if (!Storage::writeNewFile(std::filesystem::absolute(options.file), bytes, "write the export")) {
        throw Refusal(Text::of("%1 is there already and was left as it is; name a new file, or move that one away", quoted(options.file)));
    }
}

// --- diff ---

namespace {

// A key of which a store and the document tell something else.
struct Difference {
    Store store;
    KeyChange change; // from what is stored to what the document holds
};

struct Comparison {
    std::vector<Difference> differences; // by store, sorted by key
    std::size_t same = 0;
    std::size_t redacted = 0;
};

std::string shownFile(TransferOptions const& options) { return options.file == "-" ? Text::of("standard input") : quoted(options.file); }

bool isTyped(TransferOptions const& options) { return options.file == "-" && Terminal::is(STDIN_FILENO); }

Document document(TransferOptions const& options)
{
    constexpr std::size_t most = std::size_t{64} * 1024 * 1024;
    return Transfer::read(inputFile(options.file, most));
}

void removeKeys(std::vector<SqliteStorage::Row>& rows, std::set<std::string> const& keys)
{
    auto const isRemoved = [&](SqliteStorage::Row const& row) { return keys.count(row.key) > 0; };
    rows.erase(std::remove_if(rows.begin(), rows.end(), isRemoved), rows.end());
}

void compare(Comparison& result, Store store, std::vector<SqliteStorage::Row> rows, std::vector<Entry> const& entries, Progress& progress)
{
    std::vector<SqliteStorage::Row> wanted;
    std::set<std::string> redacted;
    for (Entry const& entry : entries) {
        if (isRedacted(entry))
            redacted.insert(entry.key);
        else
            wanted.push_back({entry.key, entry.kind, entry.value, {}});
    }
    removeKeys(rows, redacted);
    result.redacted += redacted.size();
    result.same += wanted.size();
    for (KeyChange const& change : changesBetween(rows, wanted)) {
        std::string const obstacle = change.after ? "" : obstacleToCarrying(*change.before);
        if (obstacle.empty())
            result.differences.push_back({store, change});
        else
            progress.aside(Text::of("%1 in the %2 store %3, so it is not compared", quoted(change.key), name(store), obstacle));
        if (change.after)
            --result.same;
    }
}

Comparison compared(Host::Application const& application, TransferOptions const& options, Document const& wanted, Progress& progress)
{
    Comparison result;
    for (Store const store : stores) {
        progress.next(Text::of("comparing with the %1 store", name(store)));
        std::vector<Entry> entries;
        for (Entry const& entry : wanted.entries)
            if (entry.store == store && counts(options, classOf(entry.key)))
                entries.push_back(entry);
        compare(result, store, rowsOf(application, store, options), entries, progress);
    }
    return result;
}

char const* wordFor(KeyChange const& change)
{
    return !change.before ? Text::mark("added") : !change.after ? Text::mark("removed") : Text::mark("changed");
}

// Kind and value of one side; for people the kind only where it tells something.
Columns columnsOf(std::optional<SqliteStorage::Row> const& row, std::string const& absent, bool kindsDiffer, Format format)
{
    if (format == Format::plain)
        return {row ? onOneLine(row->kind) : "", shown(row, "")};
    return {shortened(shown(row, absent), 120) + (kindsDiffer ? " (" + onOneLine(row->kind) + ')' : "")};
}

Columns lineOf(Difference const& difference, Format format)
{
    KeyChange const& change = difference.change;
    bool const kindsDiffer = change.before && change.after && change.before->kind != change.after->kind;
    Columns line = {Text::of(wordFor(change)), name(difference.store), onOneLine(change.key)};
    for (Columns const& side : {columnsOf(change.before, Text::of("(unset)"), kindsDiffer, format),
                                columnsOf(change.after, Text::of("(absent)"), kindsDiffer, format)})
        line.insert(line.end(), side.begin(), side.end());
    return line;
}

nlohmann::ordered_json jsonOf(std::optional<SqliteStorage::Row> const& row)
{
    return row && isReadable(*row) ? Transfer::fieldsOf(row->kind, row->value) : storedJson(row);
}

void print(std::vector<Difference> const& differences, Format format)
{
    if (format == Format::json) {
        auto array = nlohmann::ordered_json::array();
        for (auto const& [store, change] : differences)
            array.push_back({{"change", wordFor(change)},
                             {"store", name(store)},
                             {"key", Transfer::nameOf(change.key)},
                             {"stored", jsonOf(change.before)},
                             {"file", jsonOf(change.after)}});
        return printJson(array);
    }
    std::vector<Columns> table;
    for (Difference const& difference : differences)
        table.push_back(lineOf(difference, format));
    if (!table.empty())
        printTable(table, {Text::of("CHANGE"), Text::of("STORE"), Text::of("KEY"), Text::of("STORED"), Text::of("FILE")}, format, 0);
}

} // namespace

bool showDifferences(Host::Application const& application, TransferOptions const& options, Format format)
{
    try {
        std::optional<Progress> progress(3);
        progress->next(isTyped(options) ? "" : Text::of("reading the file"));
        Document const wanted = document(options);
        Comparison const comparison = compared(application, options, wanted, *progress);
        progress.reset(); // the answer may stand on the same terminal
        print(comparison.differences, format);
        if (comparison.redacted > 0)
            tell(
                Text::ofCount("%n redacted in the file, so not compared", "%n redacted in the file, so not compared", comparison.redacted));
        return !comparison.differences.empty();
    } catch (Transfer::Error const& error) {
        throw Refusal(Text::of("%1: %2", shownFile(options), error.what()));
    }
}

// --- import ---

namespace {

std::string butNothingChanged(std::string const& trouble) { return Text::of("%1; nothing was changed", trouble); }

// A store and what is to change in it.
struct Target {
    Store name;
    SqliteStorage* store;
    std::vector<SqliteStorage::Change> changes;
};

std::vector<Target> targetsOf(Host::Application const& application, std::vector<Difference> const& differences)
{
    std::vector<Target> targets;
    for (Store const store : stores) {
        Target target = {store, storage(application, store), {}};
        for (auto const& [where, change] : differences)
            if (where == store)
                target.changes.push_back({change.key, change.after->value});
        if (!target.changes.empty())
            targets.push_back(target);
    }
    return targets;
}

// A store that is not there is made only when nothing else stands in the way.
std::vector<std::unique_ptr<SqliteStorage>> madeReady(Host::Application const& application, std::vector<Target>& targets)
{
    std::vector<std::unique_ptr<SqliteStorage>> made;
    try {
        for (Target const& target : targets)
            if (std::optional<Storage::StorageError> const error = target.store ? target.store->readOnlyError() : std::nullopt)
                throw Refusal(error->what());
        for (Target& target : targets)
            if (!target.store)
                target.store = made.emplace_back(std::make_unique<SqliteStorage>(storageFile(application, target.name))).get();
        return made;
    } catch (std::exception const& error) {
        throw Refusal(butNothingChanged(error.what()));
    }
}

std::string asItWas(Target const& target) { return Text::of("the %1 store is as it was", name(target.name)); }

std::string imported(Target const& target) { return Text::of("the %1 store holds the imported values", name(target.name)); }

// What became of a store whose change failed: where the disk refused the last step, only a look tells.
std::string outcome(Target const& target)
{
    try {
        for (SqliteStorage::Change const& change : target.changes)
            if (std::optional<SqliteStorage::Row> const row = target.store->find(change.key); !row || row->value != change.value)
                return asItWas(target);
        return imported(target);
    } catch (Storage::StorageError const&) {
        return Text::of("the %1 store cannot be read", name(target.name));
    }
}

void apply(std::vector<Target> const& targets)
{
    Progress progress(targets.size());
    std::vector<std::string> outcomes;
    for (auto target = targets.begin(); target != targets.end(); ++target) {
        progress.next(Text::of("changing the %1 store", name(target->name)));
        try {
            target->store->apply(target->changes);
            outcomes.push_back(imported(*target));
        } catch (Storage::StorageError const& error) {
            outcomes.push_back(outcome(*target));
            std::transform(target + 1, targets.end(), std::back_inserter(outcomes), asItWas);
            throw Refusal(Text::of("%1; %2; then import the file again", error.what(), joined(outcomes, Text::of(", "))));
        }
    }
}

void tellOf(Comparison const& comparison, bool dryRun)
{
    std::size_t const changes = comparison.differences.size();
    std::vector<std::string> counts = {dryRun ? Text::ofCount("%n would change", "%n would change", changes)
                                              : Text::ofCount("%n changed", "%n changed", changes),
                                       Text::ofCount("%n already as in the file", "%n already as in the file", comparison.same)};
    if (comparison.redacted > 0)
        counts.push_back(
            Text::ofCount("%n redacted in the file and left alone", "%n redacted in the file and left alone", comparison.redacted));
    tell(joined(counts, Text::of(", ")));
}

Document checkedDocument(TransferOptions const& options)
{
    try {
        Document checked = document(options);
        checkKeys(checked, options.withUnknown);
        return checked;
    } catch (Transfer::Error const& error) {
        throw Refusal(butNothingChanged(Text::of("%1: %2", shownFile(options), error.what())));
    }
}

} // namespace

void importSettings(Host::Application const& application, TransferOptions const& options, Format format)
{
    std::optional<Progress> progress(3);
    progress->next(isTyped(options) ? "" : Text::of("reading the file"));
    Document const wanted = checkedDocument(options);
    Comparison comparison = compared(application, options, wanted, *progress);
    progress.reset(); // what follows is told, or has steps of its own
    auto const isOfTheStoreAlone = [](Difference const& difference) { return !difference.change.after; };
    auto& differences = comparison.differences;
    differences.erase(std::remove_if(differences.begin(), differences.end(), isOfTheStoreAlone), differences.end());
    if (options.dryRun) {
        print(differences, format);
    } else {
        std::vector<Target> targets = targetsOf(application, differences);
        auto const made = madeReady(application, targets);
        apply(targets);
    }
    tellOf(comparison, options.dryRun);
}
