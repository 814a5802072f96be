// SPDX-License-Identifier: MIT
#include "commands/Commands.h"
#include "commands/Reference.h"
#include "commands/values/GivenValue.h"
#include "commands/values/Output.h"
#include "terminal/Escaping.h"
#include "terminal/Table.h"
#include <Inspection/PreferenceState.h>
#include <Inspection/RowDifference.h>
#include <Inspection/ValueFormat.h>

#include <absl/strings/ascii.h>
#include <absl/strings/str_cat.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <iostream>
#include <memory>
#include <optional>

#include <fnmatch.h>

using Catalogue::InspectedValue;
using Catalogue::Value;
using Inspection::PreferenceState;
using Inspection::State;
using Inspection::toJson;
using nlohmann::ordered_json;

namespace {

std::string typeWithLanguage(PreferenceState const& preference)
{
    std::string const type = preference.typeName();
    std::string const cpp = Inspection::cppTypeName(preference.observation.value);
    return type == cpp || preference.isUndeclared() ? type : type + " (" + cpp + ')';
}

Terminal::Style styleOf(State state)
{
    if (state == State::otherKind || state == State::unreadable)
        return Terminal::Style::bad;
    return state == State::set ? Terminal::Style::good : Terminal::Style::normal;
}

// Whether the product shares settings with a studio, so that values have several sources.
bool hasLayers(Host::Application const& application) { return application.productLayers() != nullptr; }

struct ListOptions {
    std::string pattern;    // Of keys, with the wildcards of a shell; empty for all.
    bool onlySet = false;   // Only what is stored.
    bool onlyUnset = false; // Only what is not stored.
    std::string store;      // Only "product" or "common"; empty for both.
};

bool isListed(PreferenceState const& preference, ListOptions const& options)
{
    if (!options.pattern.empty() && ::fnmatch(options.pattern.c_str(), preference.key.c_str(), 0) != 0)
        return false;
    if ((options.onlySet && preference.stored.empty()) || (options.onlyUnset && !preference.stored.empty()))
        return false;
    return options.store.empty() || options.store == name(preference.store);
}

// --- Values as they are stored ---

bool isRational(PreferenceState const& found)
{
    return std::holds_alternative<Host::OwnKey::Rational>(found.observation.value) && !found.isUndeclared();
}

// An object; of a rational an array of those of its halves, each with its key.
ordered_json storedJsonOf(PreferenceState const& found)
{
    auto rows = ordered_json::array();
    for (auto const& row : found.stored) {
        ordered_json json = isRational(found) ? ordered_json({{"key", row.key}}) : ordered_json::object();
        json["kind"] = row.kind;
        json["value"] = Inspection::storedJson(row.value);
        json["changed"] = Inspection::inUtc(row.changed);
        rows.push_back(json);
    }
    return rows.empty() ? ordered_json() : isRational(found) ? rows : rows.front();
}

// null for a value that this version cannot read.
ordered_json valueJsonOf(PreferenceState const& found)
{
    return found.isUndeclared() ? Inspection::storedJson(found.stored.front().value) : toJson(found.observation.value);
}

ordered_json defaultJsonOf(PreferenceState const& found)
{
    return found.isUndeclared() ? ordered_json() : toJson(found.observation.defaultValue);
}

std::string dataClassOf(PreferenceState const& found) { return found.dataClass ? Catalogue::dataClassName(*found.dataClass) : ""; }

// As onOneLine shows it.
std::string shownValue(PreferenceState const& found)
{
    bool const isUnreadable = found.isUndeclared() && found.state() == State::unreadable;
    return isUnreadable ? "(unreadable)" : onOneLine(found.observation.value);
}

// The values that the one in force covers.
ordered_json coveredJsonOf(PreferenceState const& found)
{
    auto covered = ordered_json::array();
    for (std::size_t index = 1; index < found.layers.size(); ++index)
        covered.push_back({{"layer", Inspection::layerName(found.layers[index].layer)},
                           {"by", orNull(found.layers[index].by)},
                           {"changed", Inspection::inUtc(found.layers[index].row.changed)},
                           {"kind", found.layers[index].row.kind},
                           {"value", Inspection::storedJson(found.layers[index].row.value)}});
    return covered;
}

std::string setterOf(PreferenceState const& found) { return found.layers.empty() ? std::string() : found.layers.front().by; }

ordered_json jsonOf(PreferenceState const& found, std::string const& file, std::string const& computedBy)
{
    InspectedValue const& observation = found.observation;
    auto const& [purpose, accepts, getter, setter] = describe(found);
    return {{"key", found.key},
            {"purpose", orNull(purpose)},
            {"accepts", accepts},
            {"getter", orNull(getter)},
            {"setter", orNull(setter)},
            {"type", found.typeName()},
            {"cppType", found.isUndeclared() ? ordered_json() : ordered_json(Inspection::cppTypeName(observation.value))},
            {"class", orNull(dataClassOf(found))},
            {"store", found.storeName()},
            {"file", orNull(file)},
            {"state", Inspection::stateName(found.state())},
            {"layer", Inspection::layerName(found.layer())},
            {"by", orNull(setterOf(found))},
            {"stored", storedJsonOf(found)},
            {"covers", coveredJsonOf(found)},
            {"default", {{"value", defaultJsonOf(found)}, {"computedBy", orNull(computedBy)}}},
            {"value", valueJsonOf(found)}};
}

std::vector<Columns> tableOf(PreferenceState const& found, std::string const& file, std::string const& computedBy, bool isShared,
                             Format format)
{
    auto const& [purpose, accepts, getter, setter] = describe(found);
    std::vector<Columns> table = {
        {"key", onOneLine(found.key)},
        {"purpose", purpose.empty() ? "unknown: neither the library nor the product file declares it" : onOneLine(purpose)},
        {"accepts", onOneLine(accepts)},
        {"getter", getter},
        {"setter", setter},
        {"type", typeWithLanguage(found)},
        {"class", dataClassOf(found)},
        {"store", found.storeName()}};
    if (!file.empty())
        table.push_back({"file", onOneLine(file)});
    table.push_back({"state", Inspection::stateName(found.state())});
    if (isShared)
        for (Inspection::LayerFact const& fact :
             Inspection::layerFacts(found.layers, format == Format::plain ? Inspection::inUtc : Inspection::inLocalTime))
            table.push_back({fact.what, fact.text});
    for (auto const& row : found.stored) {
        std::string const half = isRational(found) ? onOneLine(row.key) + " = " : "";
        table.push_back({"stored", half + onOneLine(row, "")});
        table.push_back({"stored kind", onOneLine(row.kind)});
        table.push_back({"changed", format == Format::plain ? Inspection::inUtc(row.changed) : Inspection::inLocalTime(row.changed)});
    }
    if (!found.isUndeclared()) {
        table.push_back({"default", onOneLine(found.observation.defaultValue)});
        table.push_back({"computed by", computedBy.empty() ? "nothing: it is fixed" : computedBy + "()"});
    }
    table.push_back({"value", shownValue(found)});
    return table;
}

// --- What the verbs do ---

// Throws `UserError` where there is not even a default to read.
void checkIsRead(PreferenceState const& found)
{
    if (found.readFails)
        throw UserError(absl::StrCat(quoted(found.key),
                                     " is stored with the denominator 0, so every read of it fails; 'editor-settings unset' ",
                                     "removes it, so that the default holds"));
    if (found.isUndeclared() && found.state() == State::unreadable)
        throw UserError(absl::StrCat(quoted(found.key), " holds a value of kind ", quoted(found.stored.front().kind),
                                     " that this version cannot read; 'editor-settings unset' removes it"));
}

void warnOfDefault(PreferenceState const& found)
{
    State const state = found.state();
    if (state == State::otherKind || state == State::unreadable)
        printError(absl::StrCat(found.key, " holds a value of kind ", found.stored.front().kind,
                                state == State::unreadable ? " that cannot be read" : "",
                                ", so the default is read; 'editor-settings explain ", found.key, "' shows both"));
}

ordered_json shortJsonOf(PreferenceState const& found)
{
    return {{"key", found.key}, {"type", found.typeName()}, {"value", valueJsonOf(found)}};
}

void printOne(PreferenceState const& found, Format format)
{
    Value const& value = found.observation.value;
    if (format == Format::json)
        printJson(shortJsonOf(found));
    else if (format == Format::plain)
        std::cout << onOneLine(value) << '\n';
    else if (value != Value(QStringList()))
        printAsItIs(Inspection::text(value));
}

void printAll(std::vector<PreferenceState> const& all, Format format)
{
    auto array = ordered_json::array();
    std::vector<Columns> table;
    for (PreferenceState const& found : all) {
        array.push_back(shortJsonOf(found));
        table.push_back({onOneLine(found.key), onOneLine(found.observation.value)});
    }
    format == Format::json ? printJson(array) : printTable(table, {}, format);
}

// nullopt for several stores, or for a key that may stand in any.
std::optional<Catalogue::Store> onlyStoreOf(std::vector<std::string> const& keys)
{
    std::optional<Catalogue::Store> const first = Inspection::storeOfKey(keys.front());
    bool const isOne = std::all_of(keys.begin(), keys.end(), [&](std::string const& key) { return Inspection::storeOfKey(key) == first; });
    return isOne ? first : std::nullopt;
}

void getPreferences(Host::Application const& application, std::vector<std::string> const& keys, Format format)
{
    std::vector<PreferenceState> all;
    for (std::string const& key : keys)
        all.push_back(knownPreference(application, key));
    for (PreferenceState const& found : all)
        checkIsRead(found);
    for (PreferenceState const& found : all)
        warnOfDefault(found);
    all.size() == 1 ? printOne(all.front(), format) : printAll(all, format);
}

// `word` as the first key spells it that holds it in any case; empty for none.
std::string spelledInAKey(std::vector<PreferenceState> const& all, std::string const& word)
{
    for (PreferenceState const& each : all) {
        std::size_t const at = absl::AsciiStrToLower(each.key).find(absl::AsciiStrToLower(word));
        if (at != std::string::npos)
            return each.key.substr(at, word.size());
    }
    return {};
}

void warnOfNoPattern(std::vector<PreferenceState> const& all, std::string const& word)
{
    auto const isMeant = [&](PreferenceState const& each) { return each.key == word; };
    if (word.empty() || isPattern(word) || std::any_of(all.begin(), all.end(), isMeant))
        return;
    std::string const found = spelledInAKey(all, word);
    printError(absl::StrCat("no key is ", quotedBriefly(word),
                            found.empty() ? ", and none holds it"
                                          : absl::StrCat("; 'editor-settings list ",
                                                         Inspection::shellWord('*' + shortened(onOneLine(found), 200) + '*'),
                                                         "' shows those that hold it")));
}

// Before the value, which may be long; for scripts the last, so that the others stay where they are without a studio.
Columns::const_iterator layerColumn(Columns const& line, Format format) { return format == Format::plain ? line.end() : line.end() - 1; }

void listPreferences(Host::Application const& application, ListOptions const& options, Format format)
{
    std::vector<PreferenceState> preferences = Inspection::preferenceStates(application);
    warnOfNoPattern(preferences, options.pattern);
    auto const isLeftOut = [&](PreferenceState const& preference) { return !isListed(preference, options); };
    preferences.erase(std::remove_if(preferences.begin(), preferences.end(), isLeftOut), preferences.end());
    auto array = ordered_json::array();
    std::vector<Columns> table;
    for (PreferenceState const& preference : preferences) {
        array.push_back({{"key", preference.key},
                         {"type", preference.typeName()},
                         {"store", preference.storeName()},
                         {"state", Inspection::stateName(preference.state())},
                         {"layer", Inspection::layerName(preference.layer())},
                         {"value", valueJsonOf(preference)},
                         {"default", defaultJsonOf(preference)}});
        table.push_back({onOneLine(preference.key),
                         onOneLine(preference.typeName()),
                         preference.storeName(),
                         {Inspection::stateName(preference.state()), styleOf(preference.state())},
                         format == Format::people ? shortened(shownValue(preference), 120) : shownValue(preference)});
        if (hasLayers(application))
            table.back().insert(layerColumn(table.back(), format), Inspection::layerName(preference.layer()));
    }
    Columns heading = {"KEY", "TYPE", "STORE", "STATE", "VALUE"};
    if (hasLayers(application))
        heading.insert(layerColumn(heading, format), "LAYER");
    format == Format::json ? printJson(array) : printTable(table, heading, format);
}

struct SetWords {
    std::string key;
    GivenValue value;
};

void setPreference(Host::Application const& application, SetWords const& words)
{
    PreferenceState const found = preferenceToWrite(application, words.key);
    Value const value = valueIn(found, words.value);
    write(found, value, words.value.isStrict, [&] { found.write(value); });
}

void unsetPreference(Host::Application const& application, std::string const& key)
{
    PreferenceState const found = knownPreference(application, key);
    if (found.stored.empty())
        return printError(absl::StrCat(found.key, " was not set"));
    if (found.layer() == Inspection::Layer::studio)
        return printError(absl::StrCat(found.key, " was not set by you: the studio gives its value to who has no other"));
    std::vector<std::string> keys;
    for (auto const& row : found.stored)
        keys.push_back(row.key);
    Inspection::removeStored(application, *found.observation.store, keys);
}

void explainPreference(Host::Application const& application, std::string const& key, Format format)
{
    PreferenceState const found = knownPreference(application, key);
    std::string const computedBy =
        found.computedDefault ? std::string("Settings::") + Catalogue::locationOf(found.computedDefault).name : "";
    std::string const file =
        found.observation.store ? Inspection::storageFile(application, *found.observation.store).u8string() : std::string();
    if (format == Format::json)
        printJson(jsonOf(found, file, computedBy));
    else
        printTable(tableOf(found, file, computedBy, hasLayers(application), format), {}, format);
}

// --- The verbs ---

Command listCommand()
{
    struct Words {
        ListOptions options;
        std::string page;
        FormatChoice format;
    };
    auto const words = std::make_shared<Words>();
    Command command;
    command.name = "list";
    command.group = Group::look;
    command.summary = "All preferences with their values, sorted by key";
    command.options =
        withFormat(words->format, jsonHelpWithBytes,
                   {Option("PATTERN", &words->options.pattern, "Only keys that match, such as '*Path'").completedBy(Candidates::keys),
                    Option("--set", &words->options.onlySet, "Only what is stored"),
                    Option("--unset", &words->options.onlyUnset, "Only what is not stored").excluding({"--set"}),
                    Option("--store", &words->options.store, "Only one store").of("STORE").oneOf({"product", "common"}),
                    pageOption(words->page, {"PATTERN", "--set", "--unset", "--store", "--plain", "--json"})});
    command.examples = {{"editor-settings list '*Path'", "Every preference whose key ends in Path."},
                        {"editor-settings list --set --plain", "What is stored, one preference a line, for a script."}};
    command.stores = [words] { return words->page.empty() ? StoreUse::read : StoreUse::none; };
    command.studio = StudioUse::look;
    command.isLong = true;
    command.run = [words](Invocation const& invocation) {
        if (!words->page.empty())
            return printPreferencesPage(invocation.productFile), 0;
        listPreferences(*invocation.application, words->options, words->format);
        return 0;
    };
    return command;
}

Command getCommand()
{
    struct Words {
        std::vector<std::string> keys;
        FormatChoice format;
    };
    auto const words = std::make_shared<Words>();
    Command command;
    command.name = "get";
    command.group = Group::look;
    command.summary = "The value that the editor reads now";
    command.options = withFormat(words->format, jsonHelpWithBytes,
                                 {Option("KEY", &words->keys, "The preferences; of several, each key with its value on a line")
                                      .required()
                                      .completedBy(Candidates::keys)});
    command.examples = {{"editor-settings get exportPath", "The folder that the editor exports to."},
                        {"editor-settings get audioRecordFormat audioRecordCodec", "Both, each on a line with its key."},
                        {"editor-settings get userCustomColors --json", "A list in a form that every program reads alike."}};
    command.stores = always(StoreUse::read);
    command.onlyStore = [words] { return onlyStoreOf(words->keys); };
    command.studio = StudioUse::look;
    command.run = [words](Invocation const& invocation) {
        getPreferences(*invocation.application, words->keys, words->format);
        return 0;
    };
    return command;
}

Command setCommand()
{
    auto const words = std::make_shared<SetWords>();
    Command command;
    command.name = "set";
    command.group = Group::change;
    command.summary = "Stores a value";
    command.options = valueOptions(words->key, words->value);
    command.examples = {{"editor-settings set keepVideoAspect no", "Stores false."},
                        {"editor-settings set exportPath ~/Videos/Exports", "Stores another folder; the editor makes it."},
                        {"editor-settings set userCustomColors '#ff8800' navy", "Stores a list of two."},
                        {"editor-settings set Indication/tour @tour.state", "Stores the bytes of a file."},
                        {"editor-settings set lastTarget -- -x", "Stores a value that looks like an option."}};
    command.stores = always(StoreUse::change);
    command.studio = StudioUse::change;
    command.wrongWords = [words]() -> std::string {
        std::size_t const equals = words->key.find('=');
        if (!words->value.isMissing())
            return {};
        if (equals == std::string::npos)
            return "VALUE is required";
        return absl::StrCat("key and value are two words: 'editor-settings set ", Inspection::typedWord(words->key.substr(0, equals)), " ",
                            Inspection::typedWord(words->key.substr(equals + 1)), "'");
    };
    command.run = [words](Invocation const& invocation) {
        setPreference(*invocation.application, *words);
        return 0;
    };
    return command;
}

Command unsetCommand()
{
    auto const key = std::make_shared<std::string>();
    Command command;
    command.name = "unset";
    command.group = Group::change;
    command.otherNames = {"reset", "delete", "remove"};
    command.summary = "Removes the stored value; the default holds again";
    command.options = {Option("KEY", key.get(), "The preference").required().completedBy(Candidates::storedKeys)};
    command.examples = {{"editor-settings unset exportPath", "From now on the default holds."}};
    command.stores = always(StoreUse::read);
    command.studio = StudioUse::change;
    command.run = [key](Invocation const& invocation) {
        unsetPreference(*invocation.application, *key);
        return 0;
    };
    return command;
}

Command explainCommand()
{
    struct Words {
        std::string key;
        FormatChoice format;
    };
    auto const words = std::make_shared<Words>();
    Command command;
    command.name = "explain";
    command.group = Group::look;
    command.summary = "What a preference is for, and where its value comes from";
    command.options = withFormat(words->format, jsonHelpWithBytes, {keyOption(words->key)});
    command.examples = {{"editor-settings explain exportPath", "Whether it is stored, where and since when, and what the default is."}};
    command.stores = always(StoreUse::read);
    command.studio = StudioUse::look;
    command.run = [words](Invocation const& invocation) {
        explainPreference(*invocation.application, words->key, words->format);
        return 0;
    };
    return command;
}

} // namespace

std::vector<Command> commandsOfPreferences() { return {listCommand(), getCommand(), setCommand(), unsetCommand(), explainCommand()}; }
