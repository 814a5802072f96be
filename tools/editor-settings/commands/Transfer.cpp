// SPDX-License-Identifier: MIT
#include "commands/Transfer.h"

#include "commands/Commands.h"

#include "terminal/Escaping.h"
#include "terminal/InputFile.h"
#include "terminal/ProgressLine.h"
#include "terminal/Terminal.h"
#include <Inspection/ExportDocument.h>
#include <Inspection/KnownKeys.h>
#include <Inspection/PreferenceState.h>
#include <Inspection/RowDifference.h>

#include <absl/strings/str_cat.h>

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

bool counts(TransferOptions const& options, std::string const& dataClass)
{
    return options.only.empty() || std::find(options.only.begin(), options.only.end(), dataClass) != options.only.end();
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
        return absl::StrCat("holds a value of kind ", quoted(row.kind), " that this version cannot read");
    return row.key.find('\0') != std::string::npos ? "has a NUL in its key" : "";
}

// --- export ---

// Any other value may name the user, the user's work or a folder.
bool survivesRedaction(SqliteStorage::Row const& row, Catalogue::DataClass dataClass)
{
    using Catalogue::DataClass;
    bool const isPlain = std::holds_alternative<bool>(row.value) || std::holds_alternative<int>(row.value);
    return dataClass == DataClass::roaming || dataClass == DataClass::transient || (dataClass == DataClass::local && isPlain);
}

Document exported(Host::Application const& application, TransferOptions const& options, Progress& progress)
{
    Document document = {inUtc(std::chrono::system_clock::now()), application.productFile().productName(), {}};
    for (Store const store : stores) {
        progress.next(absl::StrCat("reading the ", name(store), " store"));
        std::size_t unknown = 0;
        for (SqliteStorage::Row const& row : rowsOf(application, store, options)) {
            std::optional<KnownKey> const known = knownKey(row.key);
            if (options.redact && !known) {
                ++unknown;
                continue;
            }
            if (std::string const why = obstacleToCarrying(row); !why.empty()) {
                progress.aside(absl::StrCat(quoted(row.key), " in the ", name(store), " store ", why,
                                            ", so it is left out; 'editor-settings backup' keeps it"));
                continue;
            }
            bool const isRedacted = options.redact && !survivesRedaction(row, known->dataClass);
            document.entries.push_back({store, row.key, row.kind, classOf(row.key), isRedacted ? SqliteStorage::Value() : row.value});
        }
        if (unknown > 0)
            progress.aside(absl::StrCat(counted(unknown, "unknown key"), " in the ", name(store), " store left out"));
    }
    return document;
}

} // namespace

void exportSettings(Host::Application const& application, TransferOptions const& options)
{
    std::optional<Progress> progress(3);
    Document const document = exported(application, options, *progress);
    progress->next("writing the file");
    std::string const bytes = Transfer::written(document);
    if (options.file == "-") {
        progress.reset(); // standard output may be the same terminal
        std::cout << bytes;
    } else if (!Storage::writeNewFile(std::filesystem::absolute(options.file), bytes, "write the export")) {
        throw UserError(
            absl::StrCat(quoted(options.file), " is there already and was left as it is; name a new file, or move that one away"));
    }
}

// --- diff ---

namespace {

// A key of which a store and the document tell something else.
struct Difference {
    Store store;
    RowDifference change; // from what is stored to what the document holds
};

struct Comparison {
    std::vector<Difference> differences; // by store, sorted by key
    std::size_t same = 0;
    std::size_t redacted = 0;
};

std::string shownFile(TransferOptions const& options) { return options.file == "-" ? "standard input" : quoted(options.file); }

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
    for (RowDifference const& change : rowDifferences(rows, wanted)) {
        std::string const obstacle = change.after ? "" : obstacleToCarrying(*change.before);
        if (obstacle.empty())
            result.differences.push_back({store, change});
        else
            progress.aside(absl::StrCat(quoted(change.key), " in the ", name(store), " store ", obstacle, ", so it is not compared"));
        if (change.after)
            --result.same;
    }
}

Comparison compared(Host::Application const& application, TransferOptions const& options, Document const& wanted, Progress& progress)
{
    Comparison result;
    for (Store const store : stores) {
        progress.next(absl::StrCat("comparing with the ", name(store), " store"));
        std::vector<Entry> entries;
        for (Entry const& entry : wanted.entries)
            if (entry.store == store && counts(options, classOf(entry.key)))
                entries.push_back(entry);
        compare(result, store, rowsOf(application, store, options), entries, progress);
    }
    return result;
}

char const* wordFor(RowDifference const& change) { return !change.before ? "added" : !change.after ? "removed" : "changed"; }

Terminal::Style styleFor(RowDifference const& change)
{
    return !change.before ? Terminal::Style::good : !change.after ? Terminal::Style::bad : Terminal::Style::odd;
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
    RowDifference const& change = difference.change;
    bool const kindsDiffer = change.before && change.after && change.before->kind != change.after->kind;
    Columns line = {{wordFor(change), styleFor(change)}, name(difference.store), onOneLine(change.key)};
    for (Columns const& side :
         {columnsOf(change.before, "(unset)", kindsDiffer, format), columnsOf(change.after, "(absent)", kindsDiffer, format)})
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
        printTable(table, {"CHANGE", "STORE", "KEY", "STORED", "FILE"}, format);
}

} // namespace

bool showDifferences(Host::Application const& application, TransferOptions const& options, Format format)
{
    try {
        std::optional<Progress> progress(3);
        progress->next(isTyped(options) ? "" : "reading the file");
        Document const wanted = document(options);
        Comparison const comparison = compared(application, options, wanted, *progress);
        progress.reset(); // the answer may stand on the same terminal
        print(comparison.differences, format);
        if (comparison.redacted > 0)
            printError(absl::StrCat(comparison.redacted, " redacted in the file, so not compared"));
        return !comparison.differences.empty();
    } catch (Transfer::Error const& error) {
        throw UserError(absl::StrCat(shownFile(options), ": ", error.what()));
    }
}

// --- import ---

namespace {

std::string butNothingChanged(std::string const& trouble) { return absl::StrCat(trouble, "; nothing was changed"); }

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
                throw UserError(error->what());
        for (Target& target : targets)
            if (!target.store)
                target.store = made.emplace_back(std::make_unique<SqliteStorage>(storageFile(application, target.name))).get();
        return made;
    } catch (std::exception const& error) {
        throw UserError(butNothingChanged(error.what()));
    }
}

std::string asItWas(Target const& target) { return absl::StrCat("the ", name(target.name), " store is as it was"); }

std::string imported(Target const& target) { return absl::StrCat("the ", name(target.name), " store holds the imported values"); }

// What became of a store whose change failed: where the disk refused the last step, only a look tells.
std::string outcome(Target const& target)
{
    try {
        for (SqliteStorage::Change const& change : target.changes)
            if (std::optional<SqliteStorage::Row> const row = target.store->find(change.key); !row || row->value != change.value)
                return asItWas(target);
        return imported(target);
    } catch (Storage::StorageError const&) {
        return absl::StrCat("the ", name(target.name), " store cannot be read");
    }
}

void apply(std::vector<Target> const& targets)
{
    Progress progress(targets.size());
    std::vector<std::string> outcomes;
    for (auto target = targets.begin(); target != targets.end(); ++target) {
        progress.next(absl::StrCat("changing the ", name(target->name), " store"));
        try {
            target->store->apply(target->changes);
            outcomes.push_back(imported(*target));
        } catch (Storage::StorageError const& error) {
            outcomes.push_back(outcome(*target));
            std::transform(target + 1, targets.end(), std::back_inserter(outcomes), asItWas);
            throw UserError(absl::StrCat(error.what(), "; ", joined(outcomes, ", "), "; then import the file again"));
        }
    }
}

void tellOf(Comparison const& comparison, bool dryRun)
{
    std::size_t const changes = comparison.differences.size();
    std::vector<std::string> counts = {dryRun ? absl::StrCat(changes, " would change") : absl::StrCat(changes, " changed"),
                                       absl::StrCat(comparison.same, " already as in the file")};
    if (comparison.redacted > 0)
        counts.push_back(absl::StrCat(comparison.redacted, " redacted in the file and left alone"));
    printError(joined(counts, ", "));
}

Document checkedDocument(TransferOptions const& options)
{
    try {
        Document checked = document(options);
        checkKeys(checked, options.withUnknown);
        return checked;
    } catch (Transfer::Error const& error) {
        throw UserError(butNothingChanged(absl::StrCat(shownFile(options), ": ", error.what())));
    }
}

} // namespace

void importSettings(Host::Application const& application, TransferOptions const& options, Format format)
{
    std::optional<Progress> progress(3);
    progress->next(isTyped(options) ? "" : "reading the file");
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

// --- The verbs ---

namespace {

struct TransferWords {
    TransferOptions options;
    FormatChoice format;
};

std::vector<Option> documentOptions(TransferWords& words, char const* help)
{
    return {fileOption("FILE", words.options.file, help).required(),
            Option("--only", &words.options.only, "Only keys of this class; may be given several times")
                .of("CLASS")
                .oneOf({"roaming", "local", "personal", "transient"})};
}

Command exportCommand()
{
    auto const words = std::make_shared<TransferWords>();
    Command command;
    command.name = "export";
    command.summary = "Writes what is stored to a new file, in JSON: for another machine, or for somebody who helps";
    command.options = documentOptions(*words, "The new file; - for standard output");
    command.options.emplace_back("--redact", &words->options.redact,
                                 "Keeps values of the classes roaming and transient, and local ones that are bool or int; redacts all "
                                 "others and leaves out unknown keys");
    command.examples = {{"editor-settings export settings.json", "Writes all that is stored."},
                        {"editor-settings export --redact -", "The same without what is personal, on standard output."}};
    command.stores = always(StoreUse::read);
    command.namesFile = true;
    command.run = [words](Invocation const& invocation) {
        exportSettings(*invocation.application, words->options);
        return 0;
    };
    return command;
}

Command importCommand()
{
    auto const words = std::make_shared<TransferWords>();
    Command command;
    command.name = "import";
    command.summary = "Stores what an exported file holds, all of it or nothing; what it does not name stays";
    command.options =
        withFormat(words->format, "With --dry-run: as JSON; bytes in base64", documentOptions(*words, "The file; - for standard input"));
    command.options.emplace_back("--with-unknown", &words->options.withUnknown, "Takes keys that the editor does not know as they are");
    command.options.emplace_back("--dry-run", &words->options.dryRun, "Tells what would change, as diff does, and changes nothing");
    command.examples = {
        {"editor-settings import settings.json --dry-run", "What would change."},
        {"editor-settings import --only roaming settings.json", "Stores what belongs to the user rather than to the machine."}};
    command.stores = [words] { return words->options.dryRun ? StoreUse::read : StoreUse::merge; };
    command.missingWord = [words] {
        bool const isForDryRun = words->format.plain || words->format.json;
        return isForDryRun && !words->options.dryRun ? "--dry-run" : "";
    };
    command.run = [words](Invocation const& invocation) {
        importSettings(*invocation.application, words->options, words->format);
        return 0;
    };
    return command;
}

Command diffCommand()
{
    auto const words = std::make_shared<TransferWords>();
    Command command;
    command.name = "diff";
    command.summary = "The differences between what is stored and what an exported file holds";
    command.options = withFormat(words->format, jsonHelpWithBytes, documentOptions(*words, "The file; - for standard input"));
    command.examples = {
        {"editor-settings diff settings.json", "What is stored otherwise than in the file; exit status 1, as something is."},
        {"editor-settings export - | editor-settings diff -", "Nothing, as the two are alike."}};
    command.stores = always(StoreUse::read);
    command.isLong = true;
    command.errorStatus = 2; // as programs of that name do, which end with 1 where something differs
    command.run = [words](Invocation const& invocation) {
        return showDifferences(*invocation.application, words->options, words->format) ? 1 : 0;
    };
    return command;
}

} // namespace

std::vector<Command> transferCommands() { return {exportCommand(), importCommand(), diffCommand()}; }
