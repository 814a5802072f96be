// SPDX-License-Identifier: MIT
#include "commands/Commands.h"
#include "commands/values/GivenValue.h"
#include "commands/values/Output.h"
#include "studio/Migration.h"
#include "terminal/Escaping.h"
#include <Inspection/DeclaredKeys.h>
#include <Inspection/RowDifference.h>
#include <Inspection/studio/StudioServer.h>

#include <absl/strings/str_cat.h>
#include <nlohmann/json.hpp>

#include <cstdlib>
#include <iostream>
#include <memory>

using Inspection::inLocalTime;
using Inspection::inUtc;
using Inspection::KeptChanges;
using Inspection::Layer;
using Inspection::PreferenceState;
using Inspection::StudioAccount;
using Inspection::StudioServer;
using Inspection::StudioStatus;
using Inspection::SupersededValue;
using nlohmann::ordered_json;

namespace {

// The connection that was typed, or the product's; empty where the environment names the server. It may hold a password.
std::string connectionFor(std::vector<std::string> const& typed, std::filesystem::path const& productFile)
{
    std::string connection = joined(typed, " ");
    if (connection.empty())
        connection = Host::ProductFile(productFile).studio();
    if (connection.empty() && !std::getenv("PGSERVICE") && !std::getenv("PGHOST"))
        throw UserError("no server is named; give a connection such as 'host=db.example dbname=studio', name one in the product file as "
                        "\"studio\", or set PGSERVICE");
    return connection;
}

// All words are one connection, so that no error about a superfluous word shows a password.
Option connectionOption(std::vector<std::string>& words)
{
    return Option("CONNECTION", &words, "Pairs such as host=db dbname=studio, or a URI; default: the product's");
}

Command studioVerb(char const* name, char const* summary)
{
    Command command;
    command.name = name;
    command.summary = summary;
    command.stores = always(StoreUse::none);
    return command;
}

int migrate(std::string const& connection, bool isDryRun)
{
    Migration result;
    reinterpret_cast<decltype(migrateStudio)*>(Inspection::studioFunction("migrateStudio"))(result, connection, isDryRun);
    for (std::string const& reason : result.reasons)
        printError(absl::StrCat(result.server, ": ", reason));
    if (result.reasons.empty())
        std::cout << onOneLine(result.server) << ": " << result.answer << '\n';
    return result.reasons.empty() ? 0 : 1;
}

Command migrateCommand()
{
    struct Words {
        std::vector<std::string> connection;
        bool isDryRun = false;
    };
    auto const words = std::make_shared<Words>();
    Command command = studioVerb("migrate", "Makes the tables, functions and roles of a database, or updates them");
    command.options = {connectionOption(words->connection),
                       Option("--dry-run", &words->isDryRun, "Tells what would be done, and changes nothing")};
    command.examples = {
        {"editor-settings studio migrate --dry-run service=studio", "What would be done; exit status 1 where the server is out of reach."},
        {"editor-settings studio migrate host=db.invalid dbname=studio user=postgres",
         "As the database's owner, once and after updates; exit status 1 likewise."}};
    command.run = [words](Invocation const& invocation) {
        return migrate(connectionFor(words->connection, invocation.productFile), words->isDryRun);
    };
    return command;
}

// --- What is known of the server ---

// How changes of others arrive.
char const* hearingOf(StudioStatus const& status) { return status.isListening ? "listening" : "polling"; }

ordered_json asJson(std::vector<Inspection::RefusedChange> const& all)
{
    auto array = ordered_json::array();
    for (Inspection::RefusedChange const& refused : all)
        array.push_back({{"store", refused.store},
                         {"key", refused.key},
                         {"reason", refused.reason},
                         {"remedy", refused.remedy},
                         {"when", inUtc(refused.when)}});
    return array;
}

void printAsJson(StudioStatus const& status, StudioAccount const& account, KeptChanges const& kept)
{
    auto problem = ordered_json();
    if (status.problem)
        problem = {{"server", status.problem->file()}, {"reason", status.problem->reason()}, {"remedy", status.problem->remedy()}};
    printJson({{"server", orNull(account.server)},
               {"user", orNull(account.user)},
               {"isAdministrator", account.isAdministrator},
               {"schema", account.schema == 0 ? ordered_json() : ordered_json(account.schema)},
               {"isConnected", status.isConnected},
               {"changes", !status.isConnected ? ordered_json() : ordered_json(hearingOf(status))},
               {"historyChanged", status.historyChanged ? ordered_json(inUtc(*status.historyChanged)) : ordered_json()},
               {"asOf", status.asOf ? ordered_json(inUtc(*status.asOf)) : ordered_json()},
               {"problem", problem},
               {"pending", kept.pending},
               {"pendingSince", kept.since ? ordered_json(inUtc(*kept.since)) : ordered_json()},
               {"refused", asJson(kept.refused)},
               {"damaged", kept.damaged},
               {"roams", Inspection::roamingKeys()}});
}

std::vector<Columns> rowsOf(KeptChanges const& kept, Format format)
{
    auto const timeOf = [&](auto const& time) { return format == Format::plain ? inUtc(time) : inLocalTime(time); };
    std::vector<Columns> table;
    if (kept.pending > 0)
        table.push_back({"pending", absl::StrCat(kept.pending, " since ", timeOf(*kept.since))});
    for (Inspection::RefusedChange const& refused : kept.refused)
        table.push_back({"refused", absl::StrCat(onOneLine(refused.key), " (", onOneLine(refused.store), "), ", timeOf(refused.when), ": ",
                                                 refused.reason, "; ", refused.remedy)});
    for (std::string const& file : kept.damaged)
        table.push_back({"damaged", onOneLine(file)});
    return table;
}

void printAsTable(StudioStatus const& status, StudioAccount const& account, KeptChanges const& kept, Format format)
{
    std::vector<Columns> table;
    if (!account.user.empty())
        table = {{"server", onOneLine(account.server)},
                 {"user", onOneLine(account.user)},
                 {"administrator", account.isAdministrator ? "yes" : "no"},
                 {"schema", std::to_string(account.schema)},
                 {"changes", hearingOf(status)}};
    if (status.asOf)
        table.push_back({"as of", format == Format::plain ? inUtc(*status.asOf) : inLocalTime(*status.asOf)});
    for (Columns& row : rowsOf(kept, format))
        table.push_back(std::move(row));
    for (std::string const& key : Inspection::roamingKeys())
        table.push_back({"roams", onOneLine(key)});
    printTable(table, {}, format);
}

int showStatus(std::string const& connection, Format format)
{
    std::unique_ptr<StudioServer> const server = Inspection::openStudioServer(connection);
    StudioStatus const status = server->status();
    StudioAccount const account = status.problem ? StudioAccount() : server->account();
    if (status.problem)
        printError(status.problem->what());
    KeptChanges const kept = server->kept();
    format == Format::json ? printAsJson(status, account, kept) : printAsTable(status, account, kept, format);
    return status.problem ? 1 : 0;
}

Command statusCommand()
{
    struct Words {
        std::vector<std::string> connection;
        FormatChoice format;
    };
    auto const words = std::make_shared<Words>();
    Command command = studioVerb("status", "Which server, as whom, how current, what waits for it, and what roams");
    command.options = withFormat(words->format, jsonHelp, {connectionOption(words->connection)});
    command.examples = {
        {"editor-settings studio status host=db.invalid dbname=studio", "Whether it can be used; exit status 1 where it cannot."}};
    command.run = [words](Invocation const& invocation) {
        std::string const connection = connectionFor(words->connection, invocation.productFile);
        Inspection::readProductFile(invocation.productFile);
        return showStatus(connection, words->format);
    };
    return command;
}

// --- Values that lost a conflict ---

void printAsJson(std::vector<SupersededValue> const& all)
{
    auto array = ordered_json::array();
    for (SupersededValue const& value : all)
        array.push_back({{"lost", inUtc(value.lost)},
                         {"store", value.store},
                         {"key", value.row.key},
                         {"kind", orNull(value.row.kind)},
                         {"value", Inspection::storedJson(value.row.value)},
                         {"changed", inUtc(value.row.changed)},
                         {"by", value.by},
                         {"from", value.origin}});
    printJson(array);
}

void printAsTable(std::vector<SupersededValue> const& all, Format format)
{
    auto const timeOf = [&](auto const& time) { return format == Format::plain ? inUtc(time) : inLocalTime(time); };
    std::vector<Columns> table;
    for (SupersededValue const& value : all)
        table.push_back({timeOf(value.lost), onOneLine(value.store), onOneLine(value.row.key),
                         value.row.kind.empty() ? "(unset)" : onOneLine(value.row, ""), timeOf(value.row.changed), onOneLine(value.by),
                         onOneLine(value.origin)});
    printTable(table, {"LOST", "STORE", "KEY", "VALUE", "CHANGED", "BY", "FROM"}, format);
}

Command supersededCommand()
{
    auto const format = std::make_shared<FormatChoice>();
    Command command = studioVerb("superseded", "Your values of 90 days that lost to a change made elsewhere");
    command.options = withFormat(*format, jsonHelpWithBytes);
    command.examples = {{"editor-settings studio superseded", "What lost, when, and from where; exit status 1 where no server is named."}};
    command.isLong = true;
    command.run = [format](Invocation const& invocation) {
        Inspection::readProductFile(invocation.productFile);
        std::vector<SupersededValue> const all = Inspection::openStudioServer(connectionFor({}, invocation.productFile))->superseded();
        *format == Format::json ? printAsJson(all) : printAsTable(all, *format);
        return 0;
    };
    return command;
}

// --- The studio's values ---

// The server, and the stores as an editor of this workstation has them.
struct Bound {
    explicit Bound(Invocation const& invocation)
        : product(Inspection::readProductFile(invocation.productFile)),
          server(Inspection::openStudioServer(connectionFor({}, invocation.productFile))),
          application(product, {invocation.storeFolder,
                                Host::StorePolicy::leaveOutUnusable,
                                invocation.options,
                                {},
                                [this](auto const& name, auto const& local) { return server->store(name, local); }})
    {
        if (StudioStatus const status = server->status(); status.problem)
            throw Storage::StorageError(*status.problem);
    }

    std::string storeOf(PreferenceState const& preference) const
    {
        return preference.observation.store == Catalogue::Store::common ? "common" : product->productName();
    }

    std::shared_ptr<Host::ProductFile> product;
    std::unique_ptr<StudioServer> server;
    Host::ToolApplication application;
};

void giveValue(Bound const& studio, std::string const& key, GivenValue const& words, bool locks)
{
    PreferenceState const found = preferenceToWrite(studio.application, key);
    Catalogue::Value const value = valueIn(found, words);
    write(found, value, words.isStrict, [&] {
        for (auto const& [stored, row] : Inspection::rowsFor(found, value))
            studio.server->set(studio.storeOf(found), stored, row, locks);
    });
}

// Calls `change` for each key under which a preference is stored.
template <typename Change>
void forEachKey(Bound const& studio, std::string const& key, Change const& change)
{
    PreferenceState const found = preferenceToWrite(studio.application, key);
    for (auto const& [stored, row] : Inspection::rowsFor(found, found.observation.value))
        change(studio.storeOf(found), stored);
}

void lock(Bound const& studio, std::string const& key, bool isLocked)
{
    forEachKey(studio, key, [&](std::string const& store, std::string const& stored) {
        if (!studio.server->lock(store, stored, isLocked))
            throw UserError(absl::StrCat("the studio has no value for ", quotedBriefly(key), ", so there is nothing to ",
                                         isLocked ? "lock; give the value behind the key" : "unlock"));
    });
}

void withdraw(Bound const& studio, std::string const& key)
{
    bool hasValue = false;
    for (Inspection::LayeredRow const& each : knownPreference(studio.application, key).layers)
        hasValue = hasValue || each.layer == Layer::studio || each.layer == Layer::locked;
    if (!hasValue)
        return printError(absl::StrCat("the studio has no value for ", quotedBriefly(key)));
    forEachKey(studio, key,
               [&](std::string const& store, std::string const& stored) { studio.server->set(store, stored, std::nullopt, false); });
}

struct GivenWords {
    std::string key;
    GivenValue value;
};

constexpr char const* withoutServer = "; exit status 1 without a server.";

Command setForAllCommand()
{
    auto const words = std::make_shared<GivenWords>();
    Command command = studioVerb("set", "Gives a value to all users that have no other");
    command.options = valueOptions(words->key, words->value);
    command.examples = {
        {"editor-settings studio set exportPath /mnt/exports", absl::StrCat("Who has chosen no folder exports there", withoutServer)}};
    command.wrongWords = [words] { return words->value.isMissing() ? "VALUE is required" : ""; };
    command.run = [words](Invocation const& invocation) { return giveValue(Bound(invocation), words->key, words->value, false), 0; };
    return command;
}

Command unsetForAllCommand()
{
    auto const key = std::make_shared<std::string>();
    Command command = studioVerb("unset", "Removes the studio's value, and its lock");
    command.options = {keyOption(*key)};
    command.examples = {
        {"editor-settings studio unset exportPath", absl::StrCat("A user's own value or the default holds", withoutServer)}};
    command.run = [key](Invocation const& invocation) { return withdraw(Bound(invocation), *key), 0; };
    return command;
}

Command lockCommand()
{
    auto const words = std::make_shared<GivenWords>();
    Command command = studioVerb("lock", "Has all users keep the studio's value");
    command.options = valueOptions(words->key, words->value);
    command.examples = {{"editor-settings studio lock autoUpdate no", absl::StrCat("Gives the value and locks it at once", withoutServer)},
                        {"editor-settings studio lock exportPath", absl::StrCat("Locks the value that the studio has", withoutServer)}};
    command.run = [words](Invocation const& invocation) {
        Bound const studio(invocation);
        words->value.isMissing() ? lock(studio, words->key, true) : giveValue(studio, words->key, words->value, true);
        return 0;
    };
    return command;
}

Command unlockCommand()
{
    auto const key = std::make_shared<std::string>();
    Command command = studioVerb("unlock", "Lets users have another value than the studio's again");
    command.options = {keyOption(*key)};
    command.examples = {{"editor-settings studio unlock exportPath", absl::StrCat("The value stays, for who has no other", withoutServer)}};
    command.run = [key](Invocation const& invocation) { return lock(Bound(invocation), *key, false), 0; };
    return command;
}

Command forgetCommand()
{
    struct Words {
        std::string user;
        bool isSure = false;
    };
    auto const words = std::make_shared<Words>();
    Command command = studioVerb("forget", "Removes everything that the server has of a user");
    command.options = {Option("USER", &words->user, "The login").required(),
                       Option("--yes", &words->isSure, "Required, as nothing brings the values back")};
    command.examples = {
        {"editor-settings studio forget alice --yes", absl::StrCat("Before the name is given to somebody else", withoutServer)}};
    command.wrongWords = [words] { return words->isSure ? "" : "--yes is required, as nothing brings the values back"; };
    command.run = [words](Invocation const& invocation) {
        if (!Inspection::openStudioServer(connectionFor({}, invocation.productFile))->forget(words->user))
            throw UserError(absl::StrCat("the server has nothing of ", quotedBriefly(words->user)));
        return 0;
    };
    return command;
}

} // namespace

std::vector<Command> commandsOfStudio()
{
    Command command;
    command.name = "studio";
    command.group = Group::support;
    command.summary = "Settings that a studio shares on PostgreSQL";
    command.examples = {{"editor-settings studio status", "Which server, and as whom; exit status 1 where no server is named."}};
    command.stores = always(StoreUse::none);
    command.verbs = {statusCommand(), supersededCommand(), setForAllCommand(), unsetForAllCommand(),
                     lockCommand(),   unlockCommand(),     forgetCommand(),    migrateCommand()};
    return {command};
}
