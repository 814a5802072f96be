// SPDX-License-Identifier: MIT
#include "commands/Preferences.h"

#include "terminal/Table.h"
#include <Inspection/PreferenceState.h>
#include <Inspection/RowDifference.h>
#include <Inspection/ValueFormat.h>

#include <absl/strings/str_cat.h>

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
            stored = {{"kind", found.stored->kind}, {"value", storedJson(found.stored->value)}, {"changed", inUtc(found.stored->changed)}};
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
        table.push_back({"stored", onOneLine(storedText(found.stored->value))});
        table.push_back({"stored kind", onOneLine(found.stored->kind)});
        table.push_back({"changed", inUtc(found.stored->changed)});
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
