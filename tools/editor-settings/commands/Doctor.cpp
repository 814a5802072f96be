// SPDX-License-Identifier: MIT
#include "commands/Doctor.h"

#include "commands/HomeFolder.h"
#include "commands/Output.h"
#include "terminal/Escaping.h"
#include "terminal/ProgressLine.h"
#include "terminal/Terminal.h"
#include <Inspection/PreferenceState.h>
#include <Inspection/checks/Checks.h>

#include <absl/strings/str_cat.h>

#include <algorithm>
#include <iostream>
#include <utility>

namespace fs = std::filesystem;
using Catalogue::Store;
using nlohmann::ordered_json;

namespace {

// What is told whether anything is wrong or not.
struct Facts {
    std::string productFile;
    std::vector<ExaminedStore> stores;
};

void append(Findings& findings, Findings const& more) { findings.insert(findings.end(), more.begin(), more.end()); }

Findings checked(Host::Application const& application, ExaminedStore const& store)
{
    Findings findings = checkAccess(store);
    for (auto const check : {checkModes, checkJournal, checkFileSystem, checkKeys, checkRationals})
        append(findings, check(store));
    append(findings, checkValues(application, store));
    return findings;
}

Findings checkHome()
{
    std::string const trouble = troubleWithTheHome();
    return trouble.empty() ? Findings()
                           : Findings{{Severity::warning, "home", trouble, "set HOME to the folder of the user whom the editor runs for"}};
}

constexpr std::size_t steps = 4;

Findings checked(Host::Application const& application, Facts& facts, Progress& progress)
{
    Findings findings = checkHome();
    for (Store const store : {Store::product, Store::common}) {
        progress.next(absl::StrCat("looking at the ", name(store), " store"));
        facts.stores.push_back(examined(application, store));
        append(findings, checked(application, facts.stores.back()));
    }
    progress.next("looking at the folders that the editor writes to");
    append(findings, checkFolders());
    return findings;
}

Findings checked(fs::path const& productFile, std::optional<fs::path> const& storeFolder, Facts& facts)
{
    Progress progress(steps);
    progress.next("opening the stores");
    try {
        Host::Application const application(productFile, storeFolder, Host::StorePolicy::leaveOutUnusable);
        return checked(application, facts, progress);
    } catch (Host::ProductFileError const& error) {
        return {{Severity::error,
                 "product-file",
                 error.what(),
                 "nothing else can be looked at without it: mend it, or name another with --product",
                 std::nullopt,
                 {},
                 facts.productFile}};
    }
}

// --- How it is told ---

char const* nameOf(Severity severity)
{
    switch (severity) {
    case Severity::note:
        return "note";
    case Severity::warning:
        return "warning";
    case Severity::error:
        break;
    }
    return "error";
}

char const* stateOf(ExaminedStore const& store)
{
    if (store.isMissing)
        return "missing";
    if (!store.trouble.empty())
        return "unusable";
    return store.readOnlyReason.empty() ? "usable" : "read-only";
}

ordered_json orNull(std::string const& text) { return text.empty() ? ordered_json() : ordered_json(text); }

ordered_json asJson(ExaminedStore const& store)
{
    bool const isOpen = !store.isMissing && store.trouble.empty();
    return {{"store", name(store.store)},
            {"file", store.file.u8string()},
            {"state", stateOf(store)},
            {"schema", isOpen ? ordered_json(store.report.schemaVersion) : ordered_json()},
            {"journalMode", orNull(store.report.journalMode)},
            {"fileSystem", {{"type", orNull(store.fileSystem.type)}, {"mountPoint", orNull(store.fileSystem.mountPoint.u8string())}}}};
}

ordered_json asJson(Finding const& finding)
{
    return {{"severity", nameOf(finding.severity)},
            {"check", finding.check},
            {"store", finding.store ? ordered_json(name(*finding.store)) : ordered_json()},
            {"key", orNull(finding.key)},
            {"path", orNull(finding.path)},
            {"what", finding.what},
            {"remedy", finding.remedy}};
}

std::string whereOf(Finding const& finding)
{
    if (!finding.key.empty())
        return absl::StrCat(onOneLine(finding.key), " (", name(*finding.store), " store)");
    return onOneLine(finding.path);
}

std::string summaryOf(ExaminedStore const& store)
{
    std::string summary = stateOf(store);
    if (store.report.schemaVersion != 0)
        summary = absl::StrCat(summary, ", schema ", store.report.schemaVersion, ", journal mode ", store.report.journalMode);
    if (store.fileSystem.type.empty())
        return summary;
    std::string const type = onOneLine(store.fileSystem.type);
    std::string const mountPoint = onOneLine(store.fileSystem.mountPoint.u8string());
    return mountPoint.empty() ? absl::StrCat(summary, ", on ", type) : absl::StrCat(summary, ", on ", type, " at ", mountPoint);
}

std::string verdictOn(Findings const& findings)
{
    auto const count = [&](Severity severity) {
        auto const isMeant = [&](Finding const& finding) { return finding.severity == severity; };
        return static_cast<std::size_t>(std::count_if(findings.begin(), findings.end(), isMeant));
    };
    std::vector<std::string> counts;
    if (std::size_t const errors = count(Severity::error); errors > 0)
        counts.push_back(counted(errors, "error"));
    if (std::size_t const warnings = count(Severity::warning); warnings > 0)
        counts.push_back(counted(warnings, "warning"));
    return counts.empty() ? "all is well" : joined(counts, ", ");
}

Terminal::Style styleOf(Findings const& findings)
{
    auto const holds = [&](Severity severity) {
        return std::any_of(findings.begin(), findings.end(), [&](Finding const& finding) { return finding.severity == severity; });
    };
    return holds(Severity::error) ? Terminal::Style::bad : holds(Severity::warning) ? Terminal::Style::odd : Terminal::Style::good;
}

Terminal::Style styleOf(Severity severity)
{
    return severity == Severity::error     ? Terminal::Style::bad
           : severity == Severity::warning ? Terminal::Style::odd
                                           : Terminal::Style::normal;
}

// Below one another: where it is, what it is, and what to do.
void appendTo(std::vector<Columns>& table, Finding const& finding)
{
    Cell severity = {nameOf(finding.severity), styleOf(finding.severity)};
    for (std::string const& line : {whereOf(finding), withoutControls(finding.what), withoutControls(finding.remedy)})
        if (!line.empty())
            table.push_back({std::exchange(severity, Cell("")), line});
}

void printForPeople(Facts const& facts, Findings const& findings)
{
    std::vector<Columns> told = {{"product file", onOneLine(facts.productFile)}, {"SQLite", Storage::SqliteStorage::sqliteVersion()}};
    for (ExaminedStore const& store : facts.stores) {
        told.push_back({absl::StrCat(name(store.store), " store"), onOneLine(store.file.u8string())});
        told.push_back({"", summaryOf(store)});
    }
    printTable(told, {}, Format::people);
    std::vector<Columns> found;
    for (Finding const& finding : findings)
        appendTo(found, finding);
    std::cout << (findings.empty() ? "" : "\n");
    printTable(found, {}, Format::people);
    std::cout << '\n' << Terminal::painted(verdictOn(findings), styleOf(findings)) << '\n';
}

void printForScripts(Facts const& facts, Findings const& findings)
{
    std::vector<Columns> table = {{"fact", "product-file", onOneLine(facts.productFile), "", ""},
                                  {"fact", "sqlite", "", Storage::SqliteStorage::sqliteVersion(), ""}};
    for (ExaminedStore const& store : facts.stores)
        table.push_back({"fact", name(store.store) + "-store", onOneLine(store.file.u8string()), summaryOf(store), ""});
    for (Finding const& finding : findings)
        table.push_back({nameOf(finding.severity), finding.check, whereOf(finding), onOneLine(finding.what), onOneLine(finding.remedy)});
    printTable(table, {}, Format::plain);
}

void printAsJson(Facts const& facts, Findings const& findings, bool isWell)
{
    auto stores = ordered_json::array();
    for (ExaminedStore const& store : facts.stores)
        stores.push_back(asJson(store));
    auto found = ordered_json::array();
    for (Finding const& finding : findings)
        found.push_back(asJson(finding));
    printJson({{"facts", {{"productFile", facts.productFile}, {"sqlite", Storage::SqliteStorage::sqliteVersion()}, {"stores", stores}}},
               {"findings", found},
               {"isWell", isWell}});
}

} // namespace

bool examineAll(fs::path const& productFile, std::optional<fs::path> const& storeFolder, Format format)
{
    Facts facts = {productFile.u8string(), {}};
    Findings const findings = checked(productFile, storeFolder, facts);
    bool const isWell =
        std::all_of(findings.begin(), findings.end(), [](Finding const& finding) { return finding.severity == Severity::note; });
    if (format == Format::json)
        printAsJson(facts, findings, isWell);
    else if (format == Format::plain)
        printForScripts(facts, findings);
    else
        printForPeople(facts, findings);
    return isWell;
}
