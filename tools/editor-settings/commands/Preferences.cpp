// SPDX-License-Identifier: MIT
#include "commands/Preferences.h"

#include "commands/Output.h"
#include "terminal/Escaping.h"
#include "terminal/Suggestions.h"
#include <Inspection/PreferenceState.h>
#include <Inspection/RowDifference.h>
#include <Inspection/ValueFormat.h>

#include <absl/strings/str_cat.h>

#include <Host/FileContent.h>

#include <algorithm>
#include <cerrno>
#include <iostream>
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

// Throws `UserError` for a key that the library never asks for.
PreferenceState knownPreference(Host::Application const& application, std::string const& key)
{
    if (std::optional<PreferenceState> found = Inspection::preferenceState(application, key))
        return *std::move(found);
    if (Inspection::isReserved(key))
        throw UserError(absl::StrCat(key, " is reserved: the editor neither reads nor writes it, so it cannot be reached"));
    if (Catalogue::findLocation(key))
        throw UserError(absl::StrCat(key, " is a location and no preference; 'editor-settings paths ", key, "' shows it"));
    std::vector<std::string> names;
    for (Catalogue::Preference const& row : Catalogue::preferences())
        names.emplace_back(row.name);
    throw UserError(
        absl::StrCat("there is no preference ", quotedBriefly(key), "; ", didYouMean(key, names), "'editor-settings list' shows all"));
}

std::string typeWithLanguage(Value const& value)
{
    std::string const type = typeName(value);
    std::string const cpp = Inspection::cppTypeName(value);
    return type == cpp ? type : type + " (" + cpp + ')';
}

Terminal::Style styleOf(State state)
{
    if (state == State::otherKind || state == State::unreadable)
        return Terminal::Style::bad;
    return state == State::set ? Terminal::Style::good : Terminal::Style::normal;
}

bool isListed(PreferenceState const& preference, ListOptions const& options)
{
    if (!options.pattern.empty() && ::fnmatch(options.pattern.c_str(), preference.key.c_str(), 0) != 0)
        return false;
    if ((options.onlySet && !preference.stored) || (options.onlyUnset && preference.stored))
        return false;
    return !options.store || *options.store == name(preference.store);
}

// --- Values to set ---

PreferenceState preferenceToWrite(Host::Application const& application, std::string const& key)
{
    PreferenceState found = knownPreference(application, key);
    if (!found.write)
        throw UserError(absl::StrCat(key, " is written by the editor alone, so it cannot be set; 'editor-settings unset' removes it"));
    return found;
}

void write(PreferenceState const& preference, Value const& value)
{
    if (!preference.observation.store)
        throw UserError(
            absl::StrCat(preference.key, " is kept in memory only by a product of this kind, so it cannot be set from outside the editor"));
    preference.write(value);
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

ordered_json jsonOf(PreferenceState const& found, std::string const& file, std::string const& computedBy)
{
    ordered_json stored = nullptr;
    if (found.stored)
        stored = {{"kind", found.stored->kind}, {"value", storedJson(found.stored->value)}, {"changed", inUtc(found.stored->changed)}};
    InspectedValue const& observation = found.observation;
    return {{"key", found.key},
            {"type", typeName(observation.value)},
            {"cppType", Inspection::cppTypeName(observation.value)},
            {"class", Catalogue::dataClassName(found.dataClass)},
            {"store", found.storeName()},
            {"file", file.empty() ? ordered_json() : ordered_json(file)},
            {"state", Inspection::stateName(found.state())},
            {"stored", stored},
            {"default",
             {{"value", toJson(observation.defaultValue)}, {"computedBy", computedBy.empty() ? ordered_json() : ordered_json(computedBy)}}},
            {"value", toJson(observation.value)}};
}

std::vector<Columns> tableOf(PreferenceState const& found, std::string const& file, std::string const& computedBy)
{
    std::vector<Columns> table = {{"key", onOneLine(found.key)},
                                  {"type", typeWithLanguage(found.observation.value)},
                                  {"class", Catalogue::dataClassName(found.dataClass)},
                                  {"store", found.storeName()}};
    if (!file.empty())
        table.push_back({"file", onOneLine(file)});
    table.push_back({"state", Inspection::stateName(found.state())});
    if (found.stored) {
        table.push_back({"stored", onOneLine(storedText(found.stored->value))});
        table.push_back({"stored kind", onOneLine(found.stored->kind)});
        table.push_back({"changed", inUtc(found.stored->changed)});
    }
    table.push_back({"default", onOneLine(found.observation.defaultValue)});
    table.push_back({"computed by", computedBy.empty() ? "nothing: it is fixed" : computedBy + "()"});
    table.push_back({"value", onOneLine(found.observation.value)});
    return table;
}

} // namespace

std::string keyInFamily(Catalogue::Family const& family, std::string const& member)
{
    if (std::optional<std::string> key = Inspection::keyInFamily(family, member))
        return *std::move(key);
    throw UserError(
        absl::StrCat("the name ", quotedBriefly(member), " is not UTF-8 without a byte order mark; give it as the editor writes it"));
}

void listPreferences(Host::Application const& application, ListOptions const& options, Format format)
{
    std::vector<PreferenceState> preferences = Inspection::preferenceStates(application);
    auto const isLeftOut = [&](PreferenceState const& preference) { return !isListed(preference, options); };
    preferences.erase(std::remove_if(preferences.begin(), preferences.end(), isLeftOut), preferences.end());
    auto array = ordered_json::array();
    std::vector<Columns> table;
    for (PreferenceState const& preference : preferences) {
        InspectedValue const& observation = preference.observation;
        array.push_back({{"key", preference.key},
                         {"type", typeName(observation.value)},
                         {"store", preference.storeName()},
                         {"state", Inspection::stateName(preference.state())},
                         {"value", toJson(observation.value)},
                         {"default", toJson(observation.defaultValue)}});
        table.push_back({onOneLine(preference.key),
                         typeName(observation.value),
                         preference.storeName(),
                         {Inspection::stateName(preference.state()), styleOf(preference.state())},
                         inColumn(observation.value, format)});
    }
    format == Format::json ? printJson(array) : printTable(table, {"KEY", "TYPE", "STORE", "STATE", "VALUE"}, format);
}

void getPreference(Host::Application const& application, std::string const& key, Format format)
{
    PreferenceState const found = knownPreference(application, key);
    Value const& value = found.observation.value;
    if (found.stored && !found.isRead())
        printError(absl::StrCat(key, " holds a value of kind ", found.stored->kind,
                                found.state() == State::unreadable ? " that cannot be read" : "",
                                ", so the default is read; 'editor-settings explain ", key, "' shows both"));
    if (format == Format::json)
        printJson({{"key", key}, {"type", typeName(value)}, {"value", toJson(value)}});
    else if (format == Format::plain)
        std::cout << onOneLine(value) << '\n';
    else if (value != Value(QStringList()))
        printAsItIs(Inspection::text(value));
}

void setPreference(Host::Application const& application, std::string const& key, std::vector<std::string> const& words)
{
    PreferenceState const found = preferenceToWrite(application, key);
    bool const isFile = std::holds_alternative<QByteArray>(found.observation.value) && words.size() == 1 && words[0][0] == '@';
    if (isFile)
        write(found, QByteArray::fromStdString(contentOfFile(key, words[0].substr(1), "name a file that can be read after the @")));
    else
        write(found, parsedFor(found, words));
}

void setPreferenceFromFile(Host::Application const& application, std::string const& key, std::string const& file)
{
    PreferenceState const found = preferenceToWrite(application, key);
    std::string const content = file == "-" ? contentOfInput(key) : contentOfFile(key, file, "name a file that can be read");
    if (std::holds_alternative<QByteArray>(found.observation.value))
        return write(found, QByteArray::fromStdString(content));
    if (!std::holds_alternative<QStringList>(found.observation.value))
        return write(found, parsedFor(found, {content}));
    std::vector<std::string> elements;
    std::istringstream stream(content);
    for (std::string line; std::getline(stream, line);)
        elements.push_back(line);
    write(found, parsedFor(found, elements));
}

void unsetPreference(Host::Application const& application, std::string const& key)
{
    PreferenceState const found = knownPreference(application, key);
    if (found.observation.isStored)
        Inspection::storage(application, *found.observation.store)->remove(key);
    else
        printError(absl::StrCat(key, " was not set"));
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
        printTable(tableOf(found, file, computedBy), {}, format);
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
