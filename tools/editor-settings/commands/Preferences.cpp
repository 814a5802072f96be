// SPDX-License-Identifier: MIT
#include "commands/Preferences.h"

#include "commands/Commands.h"
#include "commands/Reference.h"

#include "terminal/Table.h"
#include <Inspection/PreferenceState.h>
#include <Inspection/RowDifference.h>
#include <Inspection/ValueFormat.h>

#include <absl/strings/str_cat.h>
#include <memory>

#include <algorithm>
#include <iostream>

#include <fnmatch.h>

using Catalogue::InspectedValue;
using nlohmann::ordered_json;

namespace {

std::string typeWithLanguage(Catalogue::Value const& value)
{
    std::string const type = typeName(value);
    std::string const cpp = cppTypeName(value);
    return type == cpp ? type : type + " (" + cpp + ')';
}

Terminal::Style styleOf(PreferenceState const& state)
{
    if (!state.obstacle().empty())
        return Terminal::Style::bad;
    bool const isOwnValue = state.stored && state.observation.value != state.observation.defaultValue;
    return isOwnValue ? Terminal::Style::good : Terminal::Style::normal;
}

bool isListed(PreferenceState const& setting, ListOptions const& options)
{
    if (!options.pattern.empty() && ::fnmatch(options.pattern.c_str(), setting.key.c_str(), 0) != 0)
        return false;
    if ((options.onlySet && !setting.stored) || (options.onlyUnset && setting.stored))
        return false;
    return !options.store || *options.store == name(setting.store);
}

PreferenceState preferenceToWrite(Host::Application const& application, std::string const& key)
{
    PreferenceState found = preferenceState(application, key);
    if (!found.write)
        throw UserError(absl::StrCat(key, " is written by the editor alone, so it cannot be set; 'editor-settings unset' removes it"));
    return found;
}

void write(PreferenceState const& setting, Catalogue::Value const& value)
{
    if (!setting.observation.store)
        throw UserError(
            absl::StrCat(setting.key, " is kept in memory only by a product of this kind, so it cannot be set from outside the editor"));
    setting.write(value);
}

} // namespace

void listPreferences(Host::Application const& application, ListOptions const& options, Format format)
{
    std::vector<PreferenceState> settings = preferenceStates(application);
    auto const isLeftOut = [&](PreferenceState const& setting) { return !isListed(setting, options); };
    settings.erase(std::remove_if(settings.begin(), settings.end(), isLeftOut), settings.end());
    if (format == Format::json) {
        auto array = ordered_json::array();
        for (PreferenceState const& setting : settings) {
            array.push_back({{"key", setting.key},
                             {"type", typeName(setting.observation.value)},
                             {"store", setting.storeName()},
                             {"state", setting.state()},
                             {"value", toJson(setting.observation.value)},
                             {"default", toJson(setting.observation.defaultValue)}});
        }
        printJson(array);
        return;
    }
    std::vector<Columns> table;
    for (PreferenceState const& setting : settings)
        table.push_back({onOneLine(setting.key),
                         typeName(setting.observation.value),
                         setting.storeName(),
                         {setting.state(), styleOf(setting)},
                         inColumn(setting.observation.value, format)});
    printTable(table, {"KEY", "TYPE", "STORE", "STATE", "VALUE"}, format);
}

void getPreference(Host::Application const& application, std::string const& key, Format format)
{
    PreferenceState const found = preferenceState(application, key);
    Catalogue::Value const& value = found.observation.value;
    if (found.isUnreadable())
        printError(absl::StrCat(key, " holds a value of kind ", found.stored->kind,
                                " that cannot be read, so the default is read; 'editor-settings explain ", key, "' shows both"));
    else if (found.isOfOtherKind())
        printError(absl::StrCat(key, " holds a value of kind ", found.stored->kind, ", so the default is read; 'editor-settings explain ",
                                key, "' shows both"));
    if (format == Format::json)
        printJson({{"key", key}, {"type", typeName(value)}, {"value", toJson(value)}});
    else if (format == Format::plain)
        std::cout << onOneLine(value) << '\n';
    else if (value != Catalogue::Value(QStringList()))
        printAsItIs(text(value));
}

void setPreference(Host::Application const& application, std::string const& key, std::vector<std::string> const& words)
{
    PreferenceState const found = preferenceToWrite(application, key);
    write(found, parsed(key, found.observation.value, words));
}

void setPreferenceFromFile(Host::Application const& application, std::string const& key, std::string const& file)
{
    PreferenceState const found = preferenceToWrite(application, key);
    write(found, parsedFile(key, found.observation.value, file));
}

void unsetPreference(Host::Application const& application, std::string const& key)
{
    PreferenceState const found = preferenceState(application, key);
    if (found.observation.isStored)
        storage(application, *found.observation.store)->remove(found.observation.key);
    else
        printError(absl::StrCat(key, " was not set"));
}

void explainPreference(Host::Application const& application, std::string const& key, Format format)
{
    PreferenceState const found = preferenceState(application, key);
    InspectedValue const& observation = found.observation;
    std::string const computedBy =
        found.computedDefault ? std::string("Settings::") + Catalogue::locationOf(found.computedDefault).name : "";
    std::string const file = observation.store ? storageFile(application, *observation.store).u8string() : "";

    if (format == Format::json) {
        ordered_json stored = nullptr;
        if (found.stored)
            stored = {{"kind", found.stored->kind},
                      {"value", Inspection::storedJson(found.stored->value)},
                      {"changed", Inspection::inUtc(found.stored->changed)}};
        printJson({{"key", key},
                   {"type", typeName(observation.value)},
                   {"cppType", cppTypeName(observation.value)},
                   {"class", Catalogue::dataClassName(found.dataClass)},
                   {"store", found.storeName()},
                   {"file", file.empty() ? ordered_json() : ordered_json(file)},
                   {"state", found.state()},
                   {"stored", stored},
                   {"default",
                    {{"value", toJson(observation.defaultValue)},
                     {"computedBy", computedBy.empty() ? ordered_json() : ordered_json(computedBy)}}},
                   {"value", toJson(observation.value)}});
        return;
    }
    std::vector<Columns> table = {{"key", onOneLine(key)},
                                  {"type", typeWithLanguage(observation.value)},
                                  {"class", Catalogue::dataClassName(found.dataClass)},
                                  {"store", found.storeName()}};
    if (!file.empty())
        table.push_back({"file", onOneLine(file)});
    table.push_back({"state", found.state()});
    if (found.stored) {
        table.push_back({"stored", onOneLine(Inspection::storedText(found.stored->value))});
        table.push_back({"stored kind", onOneLine(found.stored->kind)});
        table.push_back({"changed", Inspection::inUtc(found.stored->changed)});
    }
    table.push_back({"default", onOneLine(observation.defaultValue)});
    table.push_back({"computed by", computedBy.empty() ? "nothing: it is fixed" : computedBy + "()"});
    table.push_back({"value", onOneLine(observation.value)});
    printTable(table, {}, format);
}

void showProject(Format format)
{
    QStringList const extensions = Settings::supportedProjectFileExtensions();
    QString const sample = Settings::sampleProjectPath();
    if (format == Format::json) {
        printJson({{"defaultName", Settings::projectNameDefault().toStdString()},
                   {"extensions", toJson(extensions)},
                   {"extensionForSaving", Settings::projectFileExtension().toStdString()},
                   {"saveFilter", Settings::projectFileSaveFilter().toStdString()},
                   {"openFilter", Settings::projectFileOpenFilter().toStdString()},
                   {"sampleProject", sample.isNull() ? ordered_json() : ordered_json(sample.toStdString())}});
        return;
    }
    printTable({{"default name", onOneLine(Settings::projectNameDefault())},
                {"extensions", inColumn(extensions, format)},
                {"extension for saving", onOneLine(Settings::projectFileExtension())},
                {"save filter", onOneLine(Settings::projectFileSaveFilter())},
                {"open filter", onOneLine(Settings::projectFileOpenFilter())},
                {"sample project", onOneLine(sample)}},
               {}, format);
    if (sample.isNull() && format == Format::people)
        printError(absl::StrCat("there is no sample project below ", stockSampleProjectsPath().toStdString()));
}

// --- The verbs ---

namespace {

constexpr char const* keyHelp = "The preference";

Option keyOption(std::string& key) { return Option("KEY", &key, keyHelp).required().completedBy(Candidates::keys); }

Command listCommand()
{
    struct Words {
        ListOptions options;
        std::string store;
        std::string page;
        FormatChoice format;
    };
    auto const words = std::make_shared<Words>();
    Command command;
    command.name = "list";
    command.summary = "All preferences with their values, sorted by key";
    command.options =
        withFormat(words->format, jsonHelpWithBytes,
                   {Option("PATTERN", &words->options.pattern, "Only keys that match, such as '*Path'").completedBy(Candidates::keys),
                    Option("--set", &words->options.onlySet, "Only what is stored"),
                    Option("--unset", &words->options.onlyUnset, "Only what is not stored").excluding({"--set"}),
                    Option("--store", &words->store, "Only one store").of("STORE").oneOf({"product", "common"}),
                    pageOption(words->page, {"PATTERN", "--set", "--unset", "--store", "--plain", "--json"})});
    command.examples = {{"editor-settings list '*Path'", "Every preference whose key ends in Path."},
                        {"editor-settings list --set --plain", "What is stored, one preference a line, for a script."}};
    command.stores = [words] { return words->page.empty() ? StoreUse::read : StoreUse::none; };
    command.isLong = true;
    command.run = [words](Invocation const& invocation) {
        if (!words->page.empty())
            return printPreferencesPage(invocation.productFile), 0;
        if (!words->store.empty())
            words->options.store = words->store;
        listPreferences(*invocation.application, words->options, words->format);
        return 0;
    };
    return command;
}

Command getCommand()
{
    struct Words {
        std::string key;
        FormatChoice format;
    };
    auto const words = std::make_shared<Words>();
    Command command;
    command.name = "get";
    command.summary = "The value that the editor reads now";
    command.options = withFormat(words->format, jsonHelpWithBytes, {keyOption(words->key)});
    command.examples = {{"editor-settings get exportPath", "The folder that the editor exports to."},
                        {"editor-settings get userCustomColors --json", "A list in a form that every program reads alike."}};
    command.stores = always(StoreUse::read);
    command.run = [words](Invocation const& invocation) {
        getPreference(*invocation.application, words->key, words->format);
        return 0;
    };
    return command;
}

Command setCommand()
{
    struct Words {
        std::string key;
        std::vector<std::string> values;
        std::string file;
        bool isEmpty = false;
    };
    auto const words = std::make_shared<Words>();
    Command command;
    command.name = "set";
    command.summary = "Stores a value";
    command.options = {keyOption(words->key),
                       Option("VALUE", &words->values,
                              "A bool as true or false, an int in decimal, text in UTF-8, bytes in base64 or as @FILE, a list as one "
                              "word for each element"),
                       Option("--empty", &words->isEmpty, "Stores an empty list").excluding({"VALUE"}),
                       fileOption("--from-file", words->file,
                                  "Stores what the file holds, or standard input where it is -: byte for byte, but for a list one "
                                  "element on each line")
                           .of("FILE")
                           .excluding({"VALUE", "--empty"})};
    command.examples = {{"editor-settings set keepVideoAspect no", "Stores false."},
                        {"editor-settings set exportPath ~/Videos/Exports", "Stores another folder; the editor makes it."},
                        {"editor-settings set userCustomColors '#ff8800' navy", "Stores a list of two."},
                        {"editor-settings set lastTarget -- -x", "Stores a value that looks like an option."}};
    command.stores = always(StoreUse::change);
    command.missingWord = [words] { return words->values.empty() && !words->isEmpty && words->file.empty() ? "VALUE" : ""; };
    command.run = [words](Invocation const& invocation) {
        if (words->file.empty())
            setPreference(*invocation.application, words->key, words->values);
        else
            setPreferenceFromFile(*invocation.application, words->key, words->file);
        return 0;
    };
    return command;
}

Command unsetCommand()
{
    auto const key = std::make_shared<std::string>();
    Command command;
    command.name = "unset";
    command.summary = "Removes the stored value, so that the default holds again";
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
    command.summary = "Where a value comes from: what is stored, since when, and the default";
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

std::vector<Command> preferenceCommands() { return {listCommand(), getCommand(), setCommand(), unsetCommand(), explainCommand()}; }

Command projectCommand()
{
    auto const format = std::make_shared<FormatChoice>();
    Command command;
    command.name = "project";
    command.summary = "Default name, extensions and filters of projects, and the sample project";
    command.options = withFormat(*format, jsonHelp);
    command.examples = {{"editor-settings project", "What a new project is called, and which files the editor opens."}};
    command.stores = always(StoreUse::read);
    command.run = [format](Invocation const&) {
        showProject(*format);
        return 0;
    };
    return command;
}
