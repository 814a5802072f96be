// SPDX-License-Identifier: MIT
#include "commands/Commands.h"
#include "commands/values/Output.h"
#include "terminal/Escaping.h"
#include "terminal/ProgressLine.h"
#include "terminal/Suggestions.h"
#include "terminal/Terminal.h"
#include <Inspection/DeclaredKeys.h>
#include <Inspection/PreferenceState.h>
#include <Inspection/checks/FolderChecks.h>
#include <Inspection/checks/StoreFileChecks.h>
#include <Inspection/checks/StoredValueChecks.h>
#include <Inspection/checks/StudioServerChecks.h>

#include <absl/strings/str_cat.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <utility>

using namespace Inspection;
using Catalogue::Store;
using nlohmann::ordered_json;

namespace {

struct Report {
    std::string productFile;
    std::vector<ExaminedStore> stores;
    Findings findings;

    std::size_t count(Severity severity) const
    {
        auto const isMeant = [&](Finding const& finding) { return finding.severity == severity; };
        return static_cast<std::size_t>(std::count_if(findings.begin(), findings.end(), isMeant));
    }
    bool isWell() const { return count(Severity::error) == 0 && count(Severity::warning) == 0; }
    void add(Findings const& more) { findings.insert(findings.end(), more.begin(), more.end()); }
};

void examineStores(Host::Application const& application, Report& report, ProgressLine& progress)
{
    for (Store const store : Catalogue::bothStores) {
        progress.next(absl::StrCat("looking at the ", name(store), " store"));
        report.stores.push_back(examine(application, store));
        report.add(checkStoreFile(report.stores.back()));
        report.add(checkStoredValues(application, report.stores.back()));
    }
}

Findings checkStudio(std::string const& connection)
try {
    return checkStudioServer(*openStudioServer(connection));
} catch (std::runtime_error const& noModule) {
    return {{Severity::error, Check::studioServer, noModule.what(), "", std::nullopt, {}, {}, {}}};
}

Report reportOn(Invocation const& invocation)
{
    Report report = {invocation.productFile.u8string(), {}, {}};
    ProgressLine progress(4);
    progress.next("opening the stores");
    try {
        Host::ToolApplication const application(readProductFile(invocation.productFile),
                                                {invocation.storeFolder, Host::StorePolicy::leaveOutUnusable, invocation.options});
        report.add(checkHome());
        examineStores(application, report, progress);
        progress.next("looking at the folders that the editor writes to");
        report.add(checkFolders());
        if (!application.productFile().studio().empty())
            report.add(checkStudio(application.productFile().studio()));
    } catch (Host::ProductFileError const& error) {
        report.findings = {aboutProductFile(error.what(), report.productFile)};
    }
    return report;
}

// --- Output ---

std::string remedyOf(Finding const& finding)
{
    std::vector<std::string> names;
    if (finding.check == Check::unknownKey)
        names = keyNames();
    return didYouMean(finding.key, names) + finding.remedy;
}

ordered_json asJson(ExaminedStore const& store)
{
    return {{"store", name(store.store)},
            {"file", store.file.u8string()},
            {"state", storeStateName(store.state)},
            {"schema", store.isOpen() ? ordered_json(store.report.schemaVersion) : ordered_json()},
            {"journalMode", orNull(store.report.journalMode)},
            {"fileSystem", {{"type", orNull(store.fileSystem.type)}, {"mountPoint", orNull(store.fileSystem.mountPoint)}}}};
}

ordered_json asJson(Finding const& finding)
{
    return {{"severity", severityName(finding.severity)},
            {"check", checkName(finding.check)},
            {"store", finding.store ? ordered_json(name(*finding.store)) : ordered_json()},
            {"key", orNull(finding.key)},
            {"path", orNull(finding.path)},
            {"what", finding.what},
            {"remedy", orNull(remedyOf(finding))},
            {"names", finding.names}};
}

std::string whereOf(Finding const& finding)
{
    if (!finding.key.empty())
        return absl::StrCat(onOneLine(finding.key), " (", name(*finding.store), " store)");
    return onOneLine(finding.path);
}

std::string summaryOf(ExaminedStore const& store)
{
    std::string summary = storeStateName(store.state);
    if (store.report.schemaVersion != 0)
        absl::StrAppend(&summary, ", schema ", store.report.schemaVersion, ", journal mode ", store.report.journalMode);
    if (store.fileSystem.type.empty())
        return summary;
    std::string const type = onOneLine(store.fileSystem.type);
    std::string const mountPoint = onOneLine(store.fileSystem.mountPoint);
    return mountPoint.empty() ? absl::StrCat(summary, ", on ", type) : absl::StrCat(summary, ", on ", type, " at ", mountPoint);
}

std::string verdictOn(Report const& report)
{
    std::vector<std::string> counts;
    if (std::size_t const errors = report.count(Severity::error); errors > 0)
        counts.push_back(counted(errors, "error"));
    if (std::size_t const warnings = report.count(Severity::warning); warnings > 0)
        counts.push_back(counted(warnings, "warning"));
    return counts.empty() ? "all is well" : joined(counts, ", ");
}

Terminal::Style styleOf(Severity severity)
{
    return severity == Severity::error     ? Terminal::Style::bad
           : severity == Severity::warning ? Terminal::Style::odd
                                           : Terminal::Style::normal;
}

Terminal::Style styleOfVerdict(Report const& report)
{
    return report.isWell() ? Terminal::Style::good : styleOf(report.count(Severity::error) > 0 ? Severity::error : Severity::warning);
}

// What was found, with the names of what it counts where they are wanted.
std::string whatOf(Finding const& finding, bool isVerbose)
{
    return isVerbose && !finding.names.empty() ? absl::StrCat(finding.what, ": ", joined(finding.names, ", ")) : finding.what;
}

// The place, the finding and the remedy, below one another.
void appendTo(std::vector<Columns>& table, Finding const& finding, bool isVerbose)
{
    Cell severity = {severityName(finding.severity), styleOf(finding.severity)};
    for (std::string const& line : {whereOf(finding), withoutControls(whatOf(finding, isVerbose)), withoutControls(remedyOf(finding))})
        if (!line.empty())
            table.push_back({std::exchange(severity, Cell("")), line});
}

void printForPeople(Report const& report, bool isVerbose)
{
    std::vector<Columns> facts = {{"product file", onOneLine(report.productFile)}, {"SQLite", Storage::SqliteStorage::sqliteVersion()}};
    for (ExaminedStore const& store : report.stores) {
        facts.push_back({absl::StrCat(name(store.store), " store"), onOneLine(store.file.u8string())});
        facts.push_back({"", summaryOf(store)});
    }
    printTable(facts, {}, Format::people);
    std::vector<Columns> findings;
    for (Finding const& finding : report.findings)
        appendTo(findings, finding, isVerbose);
    std::cout << (findings.empty() ? "" : "\n");
    printTable(findings, {}, Format::people);
    std::cout << '\n' << Terminal::painted(verdictOn(report), styleOfVerdict(report)) << '\n';
}

void printForScripts(Report const& report, bool isVerbose)
{
    std::vector<Columns> table = {{"fact", "product-file", onOneLine(report.productFile), "", ""},
                                  {"fact", "sqlite", "", Storage::SqliteStorage::sqliteVersion(), ""}};
    for (ExaminedStore const& store : report.stores)
        table.push_back({"fact", absl::StrCat(name(store.store), "-store"), onOneLine(store.file.u8string()), summaryOf(store), ""});
    for (Finding const& finding : report.findings)
        table.push_back({severityName(finding.severity), checkName(finding.check), whereOf(finding), onOneLine(whatOf(finding, isVerbose)),
                         onOneLine(remedyOf(finding))});
    printTable(table, {}, Format::plain);
}

void printAsJson(Report const& report)
{
    auto stores = ordered_json::array();
    for (ExaminedStore const& store : report.stores)
        stores.push_back(asJson(store));
    auto findings = ordered_json::array();
    for (Finding const& finding : report.findings)
        findings.push_back(asJson(finding));
    printJson({{"facts", {{"productFile", report.productFile}, {"sqlite", Storage::SqliteStorage::sqliteVersion()}, {"stores", stores}}},
               {"findings", findings},
               {"isWell", report.isWell()}});
}

// Prints the findings about the home folder, the product file, both stores and the folders that the editor writes to.
// Changes nothing, except that SQLite undoes an interrupted change. Returns whether there are only notes.
bool examineAll(Invocation const& invocation, Format format, bool isVerbose)
{
    Report const report = reportOn(invocation);
    if (format == Format::json)
        printAsJson(report);
    else if (format == Format::plain)
        printForScripts(report, isVerbose);
    else
        printForPeople(report, isVerbose);
    return report.isWell();
}

} // namespace

std::vector<Command> commandsOfDoctor()
{
    struct Words {
        FormatChoice format;
        bool isVerbose = false;
    };
    auto const words = std::make_shared<Words>();
    Command command;
    command.name = "doctor";
    command.group = Group::support;
    command.summary = "What is wrong with stores, values and folders, and what to do";
    command.options = withFormat(words->format, jsonHelp, {Option("--verbose", &words->isVerbose, "Lists what is otherwise only counted")});
    command.examples = {{"editor-settings doctor", "What is wrong and what to do; exit status 0 where all is well."},
                        {"editor-settings doctor --json > report.json", "The same, for support."}};
    command.stores = always(StoreUse::none);
    command.isLong = true;
    command.run = [words](Invocation const& invocation) { return examineAll(invocation, words->format, words->isVerbose) ? 0 : 1; };
    return {command};
}
