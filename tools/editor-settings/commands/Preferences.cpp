// SPDX-License-Identifier: MIT
#include "commands/Commands.h"
#include "commands/Output.h"
#include "commands/Reference.h"
#include "terminal/Escaping.h"
#include "terminal/Suggestions.h"
#include "terminal/Table.h"
#include <Inspection/DeclaredKeys.h>
#include <Inspection/PreferenceState.h>
#include <Inspection/RowDifference.h>
#include <Inspection/ValueFormat.h>

#include <Host/FileContent.h>

#include <absl/strings/str_cat.h>

#include <algorithm>
#include <cerrno>
#include <iostream>
#include <memory>
#include <optional>
#include <sstream>
#include <system_error>

#include <fnmatch.h>
#include <unistd.h>

using Catalogue::InspectedValue;
using Catalogue::Value;
using Inspection::PreferenceState;
using Inspection::State;
using Inspection::toJson;
using Inspection::typeName;
using nlohmann::ordered_json;

namespace {

// --- Preferences by key ---

bool isPattern(std::string const& word) { return word.find_first_of("*?[") != std::string::npos; }

// Throws `UserError` for half of a declared rational.
void checkIsWhole(std::string const& key)
{
    std::optional<Host::OwnKeys::Match> const match = Inspection::ownKeys().find(key);
    if (match && match->part != Host::OwnKeys::Part::whole)
        throw UserError(absl::StrCat(quotedBriefly(key), " is half of the rational ", quotedBriefly(match->key),
                                     ", which is read and set as a whole; give that key"));
}

// Throws `UserError` for a key that the library never asks for, that is not declared and not stored, and that is no getter's name
// either. `adviceOnOwnKeys` ends the sentence about a key that is like no other.
PreferenceState knownPreference(Host::Application const& application, std::string const& key, std::string const& adviceOnOwnKeys = {})
{
    if (std::optional<PreferenceState> found = Inspection::preferenceState(application, key))
        return *std::move(found);
    if (Catalogue::Preference const* const row = Catalogue::findPreferenceByGetter(key))
        return Inspection::preferenceState(application, row->name).value();
    checkIsWhole(key);
    if (Inspection::isReserved(key))
        throw UserError(absl::StrCat(key, " is reserved: the editor neither reads nor writes it, so it cannot be reached"));
    if (Catalogue::findLocation(key))
        throw UserError(absl::StrCat(key, " is a location and no preference; 'editor-settings paths ", key, "' shows it"));
    if (isPattern(key))
        throw UserError(absl::StrCat(quotedBriefly(key), " is a pattern and no preference; 'editor-settings list PATTERN' takes patterns"));
    std::string const likely = didYouMean(key, Inspection::keyNames());
    throw UserError(absl::StrCat("there is no preference ", quotedBriefly(key), "; ", likely, "'editor-settings list' shows all",
                                 likely.empty() ? adviceOnOwnKeys : ""));
}

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

// --- Values to set ---

PreferenceState preferenceToWrite(Host::Application const& application, std::string const& key)
{
    PreferenceState found = knownPreference(
        application, key, "; a key of the host's own is declared in \"ownKeys\" of the product file, see editor-settings-product(5)");
    if (found.isUndeclared())
        throw UserError(absl::StrCat(quotedBriefly(key),
                                     " is not declared, so it cannot be set; declare it in \"ownKeys\" of the product file, see ",
                                     "editor-settings-product(5), or have the program that stored it set it"));
    if (!found.write)
        throw UserError(absl::StrCat(key, " is written by the editor alone, so it cannot be set; 'editor-settings unset' removes it"));
    return found;
}

// What is wrong with a value that the library takes and the editor cannot use, and what to give.
std::string complaint(PreferenceState const& preference, Value const& value, std::string const& consequence)
{
    std::string const reason = Inspection::whyUnusable(preference.key, value);
    return reason.empty() ? reason
                          : absl::StrCat(preference.key, ": the editor cannot use ", quotedBriefly(Inspection::text(value)), ": ", reason,
                                         "; ", consequence, "; give ", describe(preference).accepts);
}

void write(PreferenceState const& preference, Value const& value, bool isStrict)
{
    if (!preference.observation.store)
        throw UserError(
            absl::StrCat(preference.key, " is kept in memory only by a product of this kind, so it cannot be set from outside the editor"));
    if (std::string const refusal = complaint(preference, value, "nothing was stored"); isStrict && !refusal.empty())
        throw UserError(refusal);
    preference.write(value);
    if (std::string const warning = complaint(preference, value, "it is stored all the same"); !warning.empty())
        printError(warning);
}

std::string contentOfFile(std::string const& key, std::string const& file, char const* remedy)
{
    try {
        return Host::fileContent(file);
    } catch (std::system_error const& error) {
        throw UserError(absl::StrCat(key, ": cannot read ", quoted(file), " (", error.code().message(), "); ", remedy));
    }
}

std::string contentOfInput(std::string const& key)
{
    std::string content;
    char buffer[1 << 16];
    for (ssize_t count; (count = ::read(STDIN_FILENO, buffer, sizeof buffer)) != 0;) {
        if (count > 0)
            content.append(buffer, static_cast<std::size_t>(count));
        else if (errno != EINTR)
            throw UserError(
                absl::StrCat(key, ": cannot read standard input (", std::generic_category().message(errno), "); give it a file or a pipe"));
    }
    return content;
}

std::string reasonFor(Inspection::ValueError const& error, PreferenceState const& preference, std::size_t wordCount)
{
    if (error.reason == Inspection::Refusal::wordCount)
        return absl::StrCat(preference.key, " takes one value, not ", wordCount, "; ",
                            wordCount == 0 ? "--empty is for lists" : "put quotes around a value with blanks");
    Value const& like = preference.observation.value;
    char const* const verb = std::holds_alternative<QByteArray>(like) ? " holds "
                             : std::holds_alternative<int>(like)      ? " is an "
                                                                      : " is a ";
    char const* const option = error.reason == Inspection::Refusal::notBase64      ? ", or @FILE to read them from a file"
                               : error.reason == Inspection::Refusal::emptyElement ? " (--empty stores an empty list)"
                                                                                   : "";
    return absl::StrCat(preference.key, verb, typeName(like), " and cannot be ", quotedBriefly(error.word), "; ", error.what(), option);
}

Value parsedFor(PreferenceState const& preference, std::vector<std::string> const& words)
{
    try {
        return Inspection::parsed(preference.observation.value, words);
    } catch (Inspection::ValueError const& error) {
        throw UserError(reasonFor(error, preference, words.size()));
    }
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

ordered_json orNull(std::string const& text) { return text.empty() ? ordered_json() : ordered_json(text); }

std::string dataClassOf(PreferenceState const& found) { return found.dataClass ? Catalogue::dataClassName(*found.dataClass) : ""; }

// As onOneLine shows it.
std::string shownValue(PreferenceState const& found)
{
    bool const isUnreadable = found.isUndeclared() && found.state() == State::unreadable;
    return isUnreadable ? "(unreadable)" : onOneLine(found.observation.value);
}

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
            {"stored", storedJsonOf(found)},
            {"default", {{"value", defaultJsonOf(found)}, {"computedBy", orNull(computedBy)}}},
            {"value", valueJsonOf(found)}};
}

std::vector<Columns> tableOf(PreferenceState const& found, std::string const& file, std::string const& computedBy, Format format)
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

void warnOfNoPattern(std::vector<PreferenceState> const& all, std::string const& word)
{
    auto const isMeant = [&](PreferenceState const& each) { return each.key == word; };
    if (!word.empty() && !isPattern(word) && std::none_of(all.begin(), all.end(), isMeant))
        printError(absl::StrCat("no key is ", quotedBriefly(word), "; 'editor-settings list '*", shortened(onOneLine(word), 200),
                                "*'' shows those that hold it"));
}

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
                         {"value", valueJsonOf(preference)},
                         {"default", defaultJsonOf(preference)}});
        table.push_back({onOneLine(preference.key),
                         onOneLine(preference.typeName()),
                         preference.storeName(),
                         {Inspection::stateName(preference.state()), styleOf(preference.state())},
                         format == Format::people ? shortened(shownValue(preference), 120) : shownValue(preference)});
    }
    format == Format::json ? printJson(array) : printTable(table, {"KEY", "TYPE", "STORE", "STATE", "VALUE"}, format);
}

struct SetWords {
    std::string key;
    std::vector<std::string> values;
    std::string file;
    bool isEmpty = false;
    bool isStrict = false;
};

// The content of `file`, or of standard input for "-": each line an element of a list, any other value byte for byte.
Value valueInFile(PreferenceState const& preference, std::string const& file)
{
    std::string const& key = preference.key;
    std::string const content = file == "-" ? contentOfInput(key) : contentOfFile(key, file, "name a file that can be read");
    if (std::holds_alternative<QByteArray>(preference.observation.value))
        return QByteArray::fromStdString(content);
    if (!std::holds_alternative<QStringList>(preference.observation.value))
        return parsedFor(preference, {content});
    std::vector<std::string> elements;
    std::istringstream stream(content);
    for (std::string line; std::getline(stream, line);)
        elements.push_back(line);
    return parsedFor(preference, elements);
}

Value valueIn(PreferenceState const& preference, SetWords const& words)
{
    if (!words.file.empty())
        return valueInFile(preference, words.file);
    bool const isFile =
        std::holds_alternative<QByteArray>(preference.observation.value) && words.values.size() == 1 && words.values[0][0] == '@';
    if (isFile)
        return QByteArray::fromStdString(
            contentOfFile(preference.key, words.values[0].substr(1), "name a file that can be read after the @"));
    return parsedFor(preference, words.values);
}

void setPreference(Host::Application const& application, SetWords const& words)
{
    PreferenceState const found = preferenceToWrite(application, words.key);
    write(found, valueIn(found, words), words.isStrict);
}

void unsetPreference(Host::Application const& application, std::string const& key)
{
    PreferenceState const found = knownPreference(application, key);
    if (found.stored.empty())
        return printError(absl::StrCat(found.key, " was not set"));
    Storage::SqliteStorage& store = *Inspection::storage(application, *found.observation.store);
    if (found.stored.size() == 1)
        return store.remove(found.stored.front().key);
    std::vector<Storage::SqliteStorage::Change> both;
    for (auto const& row : found.stored)
        both.push_back({row.key});
    store.apply(both);
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
        printTable(tableOf(found, file, computedBy, format), {}, format);
}

// --- The verbs ---

constexpr char const* keyHelp = "The preference";

Option keyOption(std::string& key) { return Option("KEY", &key, keyHelp).required().completedBy(Candidates::keys); }

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
    command.run = [words](Invocation const& invocation) {
        getPreferences(*invocation.application, words->keys, words->format);
        return 0;
    };
    return command;
}

std::vector<Option> setOptions(SetWords& words)
{
    return {keyOption(words.key),
            Option("VALUE", &words.values,
                   "A bool as true or false, an int in decimal, text in UTF-8, bytes in base64 or as @FILE, a list as one "
                   "word for each element, a rational as N/D"),
            Option("--empty", &words.isEmpty, "Stores an empty list").excluding({"VALUE"}),
            fileOption("--from-file", words.file,
                       "Stores what the file holds, or standard input where it is -: byte for byte, but for a list one "
                       "element on each line")
                .of("FILE")
                .excluding({"VALUE", "--empty"}),
            Option("--strict", &words.isStrict, "Refuses what the editor cannot use, instead of a warning")};
}

Command setCommand()
{
    auto const words = std::make_shared<SetWords>();
    Command command;
    command.name = "set";
    command.group = Group::change;
    command.summary = "Stores a value";
    command.options = setOptions(*words);
    command.examples = {{"editor-settings set keepVideoAspect no", "Stores false."},
                        {"editor-settings set exportPath ~/Videos/Exports", "Stores another folder; the editor makes it."},
                        {"editor-settings set userCustomColors '#ff8800' navy", "Stores a list of two."},
                        {"editor-settings set Indication/tour @tour.state", "Stores the bytes of a file."},
                        {"editor-settings set lastTarget -- -x", "Stores a value that looks like an option."}};
    command.stores = always(StoreUse::change);
    command.wrongWords = [words]() -> std::string {
        std::size_t const equals = words->key.find('=');
        if (!words->values.empty() || words->isEmpty || !words->file.empty())
            return {};
        if (equals == std::string::npos)
            return "VALUE is required";
        return absl::StrCat("key and value are two words: 'editor-settings set ", words->key.substr(0, equals), " ",
                            words->key.substr(equals + 1), "'");
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
    command.options = {Option("KEY", key.get(), keyHelp).required().completedBy(Candidates::storedKeys)};
    command.examples = {{"editor-settings unset exportPath", "From now on the default holds."}};
    command.stores = always(StoreUse::read);
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
    command.run = [words](Invocation const& invocation) {
        explainPreference(*invocation.application, words->key, words->format);
        return 0;
    };
    return command;
}

} // namespace

std::vector<Command> commandsOfPreferences() { return {listCommand(), getCommand(), setCommand(), unsetCommand(), explainCommand()}; }
