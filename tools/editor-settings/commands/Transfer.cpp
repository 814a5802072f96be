// SPDX-License-Identifier: MIT
#include "commands/Commands.h"
#include "commands/values/Output.h"
#include "terminal/Escaping.h"
#include "terminal/InputFile.h"
#include "terminal/ProgressLine.h"
#include "terminal/Suggestions.h"
#include "terminal/Terminal.h"
#include <Inspection/DocumentTransfer.h>
#include <Inspection/ExportDocument.h>
#include <Inspection/PreferenceState.h>
#include <Inspection/ValueFormat.h>

#include <absl/strings/str_cat.h>
#include <absl/strings/str_join.h>
#include <absl/strings/str_replace.h>
#include <nlohmann/json.hpp>

#include <Storage/AtomicFile.h>

#include <algorithm>
#include <deque>
#include <iostream>
#include <memory>
#include <optional>
#include <utility>

#include <unistd.h>

using Catalogue::Store;
using Inspection::Change;
using Inspection::changeName;
using Inspection::Comparison;
using Inspection::Difference;
using Inspection::Document;
using Inspection::DocumentError;
using Inspection::NewValue;
using Inspection::RowDifference;
using nlohmann::ordered_json;
using Storage::SqliteStorage;

namespace {

struct TransferOptions {
    std::string file;              // "-" for standard output or input.
    std::vector<std::string> only; // The classes of the keys that count; empty for all keys.
    bool redact = false;           // Export: keep values by what their class promises, and no unknown keys.
    bool withUnknown = false;      // Import: take keys that the library never asks for.
    bool dryRun = false;           // Import: print what would change, and change nothing.
};

Inspection::Selection selection(TransferOptions const& options) { return {options.only, options.redact}; }

Inspection::StoreBegins steps(ProgressLine& progress, char const* what)
{
    return [&progress, what](Store store) { progress.next(absl::StrCat(what, " the ", name(store), " store")); };
}

void printUncarried(std::vector<Inspection::Uncarried> const& rows, char const* consequence)
{
    for (Inspection::Uncarried const& row : rows)
        printError(absl::StrCat(inWords(row), ", so it is ", consequence));
}

// --- export ---

void exportSettings(Host::ToolApplication const& application, TransferOptions const& options)
{
    std::optional<ProgressLine> progress(3);
    Inspection::Export const result = Inspection::exported(application, selection(options), steps(*progress, "reading"));
    progress->next("writing the file");
    std::string const bytes = written(result.document);
    if (options.file != "-" && !Storage::writeNewFile(std::filesystem::absolute(options.file), bytes, "write the export"))
        throw UserError(
            absl::StrCat(quoted(options.file), " is there already and was left as it is; name a new file, or move that one away"));
    progress.reset(); // standard output may be the same terminal
    printUncarried(result.uncarried, "left out; 'editor-settings backup' keeps it");
    for (auto const& [store, count] : result.unknown)
        printError(absl::StrCat(counted(count, "unknown key"), " in the ", name(store), " store left out"));
    if (options.file == "-")
        std::cout << bytes;
}

// --- diff ---

std::string shownFile(TransferOptions const& options) { return options.file == "-" ? "standard input" : quoted(options.file); }

bool isTyped(TransferOptions const& options) { return options.file == "-" && Terminal::is(STDIN_FILENO); }

Document document(TransferOptions const& options)
{
    constexpr std::size_t most = std::size_t{64} * 1024 * 1024;
    return Inspection::readDocument(inputFile(options.file, most));
}

std::string shownPlace(DocumentError const& error)
{
    if (error.line() > 0)
        return absl::StrCat("line ", error.line(), ", column ", error.column(), ":");
    if (error.place().empty())
        return "the document";
    auto const append = [](std::string* text, std::string const& step) { text->append(shortened(onOneLine(step), 100)); };
    return absl::StrJoin(error.place(), ".", append);
}

std::string suggestion(DocumentError const& error)
{
    if (!dynamic_cast<Inspection::UnknownKeyError const*>(&error))
        return {};
    return didYouMean(error.place().back(), Inspection::keyNames());
}

std::string sentence(TransferOptions const& options, DocumentError const& error)
{
    return absl::StrCat(shownFile(options), ": ", shownPlace(error), " ", error.fault(), "; ", suggestion(error), error.remedy());
}

Terminal::Style styleFor(Change change)
{
    switch (change) {
    case Change::added:
        return Terminal::Style::good;
    case Change::removed:
        return Terminal::Style::bad;
    case Change::changed:
        break;
    }
    return Terminal::Style::odd;
}

// Kind and value of one side; people see the kind only where the kinds differ.
Columns columnsOf(std::optional<SqliteStorage::Row> const& row, std::string const& absent, bool kindsDiffer, Format format)
{
    if (format == Format::plain)
        return {row ? onOneLine(row->kind) : "", onOneLine(row, "")};
    return {shortened(onOneLine(row, absent), 120) + (kindsDiffer ? " (" + onOneLine(row->kind) + ')' : "")};
}

// An import removes nothing, so a difference is named by the side that has the key.
char const* differenceName(Change change)
{
    return change == Change::added ? "only in the file" : change == Change::removed ? "only here" : changeName(change);
}

Columns lineOf(Difference const& difference, Format format, char const* (*nameForPeople)(Change))
{
    RowDifference const& row = difference.row;
    bool const kindsDiffer = row.change() == Change::changed && row.before->kind != row.after->kind;
    char const* const change = (format == Format::plain ? changeName : nameForPeople)(row.change());
    Columns line = {{change, styleFor(row.change())}, name(difference.store), onOneLine(row.key)};
    for (Columns const& side :
         {columnsOf(row.before, "(unset)", kindsDiffer, format), columnsOf(row.after, "(absent)", kindsDiffer, format)})
        line.insert(line.end(), side.begin(), side.end());
    return line;
}

ordered_json jsonOf(std::optional<SqliteStorage::Row> const& row)
{
    bool const isReadable = row && !std::holds_alternative<std::monostate>(row->value);
    return isReadable ? Inspection::fieldsOf(row->kind, row->value) : Inspection::storedJson(row);
}

ordered_json jsonOf(Difference const& difference)
{
    auto const& [store, row] = difference;
    return {{"change", changeName(row.change())},
            {"store", name(store)},
            {"key", Inspection::nameOf(row.key)},
            {"stored", jsonOf(row.before)},
            {"file", jsonOf(row.after)}};
}

// As `printJson` prints an array, which would take many times the size of its text.
void printAsJson(std::deque<Difference> differences)
{
    char const* separator = "";
    std::cout << '[';
    for (; !differences.empty(); differences.pop_front())
        std::cout << std::exchange(separator, ",") << "\n  "
                  << absl::StrReplaceAll(Inspection::jsonText(jsonOf(differences.front()), 2), {{"\n", "\n  "}});
    std::cout << (*separator ? "\n]\n" : "]\n");
}

// Only columns that line up have to be known to the last before the first is printed.
void print(std::deque<Difference> differences, Format format, char const* (*nameForPeople)(Change))
{
    if (format == Format::json)
        return printAsJson(std::move(differences));
    Columns heading = {"CHANGE", "STORE", "KEY", "STORED", "FILE"};
    std::vector<Columns> table;
    while (!differences.empty()) {
        table.push_back(lineOf(differences.front(), format, nameForPeople));
        differences.pop_front();
        if (differences.empty() || !Terminal::isLookedAt()) {
            printTable(std::exchange(table, {}), heading, format);
            heading.clear();
        }
    }
}

// Whether anything differs.
bool showDifferences(Host::Application const& application, TransferOptions const& options, Format format)
{
    try {
        std::optional<ProgressLine> progress(3);
        progress->next(isTyped(options) ? "" : "reading the file");
        Document wanted = document(options);
        std::deque<Difference> differences;
        auto const take = [&](Difference difference) { differences.push_back(std::move(difference)); };
        Comparison const comparison =
            Inspection::compared(application, selection(options), std::move(wanted), take, steps(*progress, "comparing with"));
        progress.reset(); // the answer may stand on the same terminal
        printUncarried(comparison.uncarried, "not compared");
        bool const isDifferent = !differences.empty();
        print(std::move(differences), format, differenceName);
        if (comparison.redacted > 0)
            printError(absl::StrCat(comparison.redacted, " redacted in the file, so not compared"));
        return isDifferent;
    } catch (DocumentError const& error) {
        throw UserError(sentence(options, error));
    }
}

// --- import ---

std::string shownOutcome(std::pair<Store, Inspection::Outcome> const& outcome)
{
    std::string const store = absl::StrCat("the ", name(outcome.first), " store ");
    switch (outcome.second) {
    case Inspection::Outcome::imported:
        return store + "holds the imported values";
    case Inspection::Outcome::unchanged:
        return store + "is as it was";
    case Inspection::Outcome::unreadable:
        break;
    }
    return store + "cannot be read";
}

void import(Host::Application const& application, std::deque<NewValue> values)
{
    ProgressLine progress(2);
    auto const& [error, outcomes] = Inspection::imported(application, std::move(values), steps(progress, "changing"));
    if (!error)
        return;
    if (outcomes.empty())
        throw UserError(absl::StrCat(error->what(), "; nothing was changed"));
    auto const append = [](std::string* text, std::pair<Store, Inspection::Outcome> const& outcome) { *text += shownOutcome(outcome); };
    throw UserError(absl::StrCat(error->what(), "; ", absl::StrJoin(outcomes, ", ", append), "; then import the file again"));
}

void printCounts(std::size_t changes, Comparison const& comparison, bool isDryRun)
{
    std::string const redacted =
        comparison.redacted > 0 ? absl::StrCat(", ", comparison.redacted, " redacted in the file and left alone") : "";
    printError(absl::StrCat(changes, isDryRun ? " would change, " : " changed, ", comparison.same, " already as in the file", redacted));
}

Document checkedDocument(TransferOptions const& options)
{
    try {
        Document checked = document(options);
        checkKeys(checked, options.withUnknown);
        return checked;
    } catch (DocumentError const& error) {
        throw UserError(sentence(options, error) + "; nothing was changed");
    }
}

void importSettings(Host::Application const& application, TransferOptions const& options, Format format)
{
    std::optional<ProgressLine> progress(3);
    progress->next(isTyped(options) ? "" : "reading the file");
    Document wanted = checkedDocument(options);
    std::deque<Difference> shown;
    std::deque<NewValue> values;
    auto const take = [&](Difference difference) {
        std::optional<SqliteStorage::Row>& after = difference.row.after;
        if (after && options.dryRun)
            shown.push_back(std::move(difference));
        else if (after)
            values.push_back({difference.store, std::move(after->key), std::move(after->value)});
    };
    Comparison const comparison =
        Inspection::compared(application, selection(options), std::move(wanted), take, steps(*progress, "comparing with"));
    progress.reset(); // what follows is printed, or has steps of its own
    printUncarried(comparison.uncarried, "not compared");
    std::size_t const changes = shown.size() + values.size();
    if (options.dryRun)
        print(std::move(shown), format, changeName);
    else
        import(application, std::move(values));
    printCounts(changes, comparison, options.dryRun);
}

// --- The verbs ---

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
    command.summary = "Writes what is stored to a new file, in JSON";
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
    command.summary = "Stores what an exported file holds, all or nothing; the rest stays";
    command.options =
        withFormat(words->format, "With --dry-run: as JSON; bytes in base64", documentOptions(*words, "The file; - for standard input"));
    command.options.emplace_back("--with-unknown", &words->options.withUnknown, "Takes keys that the editor does not know as they are");
    command.options.emplace_back("--dry-run", &words->options.dryRun, "Tells what would change, as diff does, and changes nothing");
    command.examples = {
        {"editor-settings import settings.json --dry-run", "What would change."},
        {"editor-settings import --only roaming settings.json", "Stores what belongs to the user rather than to the machine."}};
    command.stores = [words] { return words->options.dryRun ? StoreUse::read : StoreUse::merge; };
    command.wrongWords = [words] {
        bool const isForDryRun = words->format.plain || words->format.json;
        return isForDryRun && !words->options.dryRun ? "--dry-run is required" : "";
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
    command.summary = "The differences between the stores and an exported file";
    command.options = withFormat(words->format, jsonHelpWithBytes, documentOptions(*words, "The file; - for standard input"));
    command.examples = {{"editor-settings diff settings.json", "What differs between stores and file; exit status 1 for a difference."},
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

std::vector<Command> commandsOfTransfer() { return {exportCommand(), importCommand(), diffCommand()}; }
