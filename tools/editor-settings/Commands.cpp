// SPDX-License-Identifier: MIT
#include "Commands.h"

#include "Nearest.h"
#include "Values.h"

#include <Lumora/Util/ByteConversion.h>

#include <QDateTime>

#include <algorithm>
#include <cstring>
#include <iostream>

#include <fnmatch.h>

using Catalogue::Observation;
using Catalogue::Row;
using Catalogue::Store;
using nlohmann::ordered_json;

namespace {

using Columns = std::vector<std::string>;

Row const& preference(std::string const& key)
{
    if (Row const* const row = Catalogue::findPreference(key))
        return *row;
    auto const& reserved = Catalogue::preferencesWithoutAccessors();
    if (std::find(reserved.begin(), reserved.end(), key) != reserved.end())
        throw Refusal(key + " is reserved: the editor neither reads nor writes it, so it cannot be reached");
    std::vector<std::string> names;
    for (Row const& row : Catalogue::preferences())
        names.push_back(row.name);
    std::vector<std::string> const similar = nearest(key, names);
    std::string suggestion;
    for (std::string const& name : similar)
        suggestion += (suggestion.empty() ? "did you mean " : " or ") + name;
    throw Refusal("there is no preference " + quoted(key) + "; " + (similar.empty() ? "" : suggestion + "? ") +
                  "'editor-settings list' shows all");
}

std::string name(Store store) { return store == Store::common ? "common" : "product"; }

Storage::SqliteStorage& storage(Host::Application const& application, Store store)
{
    return store == Store::common ? application.commonStorage() : application.productStorage();
}

// A preference with all that is known of it.
struct Look {
    Look(Host::Application const& application, Row const& preferenceRow) : row(preferenceRow), observation(Catalogue::observe(row))
    {
        if (observation.isStored)
            stored = storage(application, *observation.store).find(observation.key);
    }

    std::string storeName() const { return observation.store ? name(*observation.store) : "memory"; }

    // Why a read gives the default although something is stored; empty where it does not.
    std::string obstacle() const
    {
        if (stored && stored->kind != storedKind(row))
            return "other kind";
        return stored && std::holds_alternative<std::monostate>(stored->value) ? "unreadable" : "";
    }

    std::string state() const
    {
        if (!stored)
            return "unset";
        if (!obstacle().empty())
            return obstacle();
        return observation.value == observation.defaultValue ? "set to default" : "set";
    }

    Row row;
    Observation observation;
    std::optional<Storage::SqliteStorage::Row> stored;
};

std::string json(ordered_json const& value) { return value.dump(2, ' ', false, ordered_json::error_handler_t::replace); }

std::string typeWithLanguage(Row const& row)
{
    std::string const type = typeName(row);
    std::string const cpp = cppTypeName(row);
    return type == cpp ? type : type + " (" + cpp + ')';
}

// --- Tables ---

// Code points rather than bytes, so that columns line up in every script whose letters are one column wide.
std::size_t width(std::string const& text)
{
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char byte) { return (byte & 0xC0) != 0x80; }));
}

std::string joined(Columns const& columns, char const* separator)
{
    std::string line;
    for (std::string const& column : columns)
        line += (&column == &columns.front() ? "" : separator) + column;
    return line;
}

void printAligned(std::vector<Columns> const& table)
{
    std::vector<std::size_t> widths;
    for (Columns const& line : table) {
        widths.resize(line.size());
        for (std::size_t column = 0; column < line.size(); ++column)
            widths[column] = std::max(widths[column], width(line[column]));
    }
    for (Columns line : table) {
        for (std::size_t column = 0; column < line.size(); ++column)
            line[column].append(widths[column] - width(line[column]), ' ');
        std::string const aligned = joined(line, "  ");
        std::cout << aligned.substr(0, aligned.find_last_not_of(' ') + 1) << '\n';
    }
}

void printTable(std::vector<Columns> table, Columns const& heading, Format format)
{
    if (format == Format::people) {
        if (!heading.empty())
            table.insert(table.begin(), heading);
        printAligned(table);
        return;
    }
    for (Columns const& line : table)
        std::cout << joined(line, "\t") << '\n';
}

// Texts, lists and bytes can be long: people get the beginning, scripts the whole.
std::string inColumn(Catalogue::Value const& value, Format format)
{
    constexpr std::size_t enough = 120;
    QStringList const* const list = format == Format::people ? std::get_if<QStringList>(&value) : nullptr;
    std::string const line = list ? onOneLine(list->join(QStringLiteral(", ")).toStdString()) : onOneLine(value);
    if (format != Format::people || width(line) <= enough)
        return line;
    std::size_t end = 0;
    for (std::size_t letters = 0; letters < enough - 1; ++end)
        letters += (line[end + 1] & 0xC0) != 0x80;
    return line.substr(0, end) + "\xE2\x80\xA6";
}

std::string inUtc(std::chrono::system_clock::time_point time)
{
    auto const milliseconds = std::chrono::duration_cast<std::chrono::milliseconds>(time.time_since_epoch()).count();
    return QDateTime::fromMSecsSinceEpoch(milliseconds, Qt::UTC).toString(Qt::ISODateWithMs).toStdString();
}

// --- list ---

bool isListed(Look const& look, ListOptions const& options)
{
    if (!options.pattern.empty() && ::fnmatch(options.pattern.c_str(), look.row.name, 0) != 0)
        return false;
    if ((options.onlySet && !look.stored) || (options.onlyUnset && look.stored))
        return false;
    return !options.store || *options.store == name(look.row.store);
}

std::vector<Look> listedPreferences(Host::Application const& application, ListOptions const& options)
{
    std::vector<Row> sorted = Catalogue::preferences();
    std::sort(sorted.begin(), sorted.end(), [](Row const& left, Row const& right) { return std::strcmp(left.name, right.name) < 0; });
    std::vector<Look> looks;
    for (Row const& row : sorted) {
        Look look(application, row);
        if (isListed(look, options))
            looks.push_back(std::move(look));
    }
    return looks;
}

// The value as the store holds it, of whichever kind.
struct StoredAsJson {
    ordered_json operator()(std::monostate) const { return nullptr; }
    ordered_json operator()(std::vector<unsigned char> const& value) const { return toJson(Lumora::Util::VectorByteToQByteArray(value)); }
    template <typename T>
    ordered_json operator()(T const& value) const
    {
        return toJson(value);
    }
};

std::string storedText(Storage::SqliteStorage::Value const& value)
{
    ordered_json const shown = std::visit(StoredAsJson(), value);
    if (shown.is_null())
        return "(unreadable)";
    return shown.is_string() ? shown.get<std::string>() : shown.dump();
}

} // namespace

void listPreferences(Host::Application const& application, ListOptions const& options, Format format)
{
    std::vector<Look> const looks = listedPreferences(application, options);
    if (format == Format::json) {
        auto array = ordered_json::array();
        for (Look const& look : looks) {
            array.push_back({{"key", look.row.name},
                             {"type", typeName(look.row)},
                             {"store", look.storeName()},
                             {"state", look.state()},
                             {"value", toJson(look.observation.value)},
                             {"default", toJson(look.observation.defaultValue)}});
        }
        std::cout << json(array) << '\n';
        return;
    }
    std::vector<Columns> table;
    for (Look const& look : looks)
        table.push_back({look.row.name, typeName(look.row), look.storeName(), look.state(), inColumn(look.observation.value, format)});
    printTable(table, {"KEY", "TYPE", "STORE", "STATE", "VALUE"}, format);
}

void getPreference(Host::Application const& application, std::string const& key, Format format)
{
    Look const look(application, preference(key));
    if (!look.obstacle().empty())
        std::cerr << "editor-settings: " << key << " holds a value of kind " << look.stored->kind
                  << (look.obstacle() == "unreadable" ? " that cannot be read" : "")
                  << ", so the default is read; 'editor-settings explain " << key << "' shows both\n";
    if (format == Format::json)
        std::cout << json({{"key", key}, {"type", typeName(look.row)}, {"value", toJson(look.observation.value)}}) << '\n';
    else if (format == Format::plain)
        std::cout << onOneLine(look.observation.value) << '\n';
    else if (look.observation.value != Catalogue::Value(QStringList()))
        std::cout << text(look.observation.value) << '\n';
}

void setPreference(Host::Application const&, std::string const& key, std::vector<std::string> const& words)
{
    Row const& row = preference(key);
    Catalogue::Value const value = parsed(row, words);
    if (!Catalogue::observe(row).store)
        throw Refusal(key + " is kept in memory only by a product of this kind, so it cannot be set from outside the editor");
    row.write(value);
}

void unsetPreference(Host::Application const&, std::string const& key)
{
    if (!Catalogue::unset(preference(key)))
        std::cerr << "editor-settings: " << key << " was not set\n";
}

void explainPreference(Host::Application const& application, std::string const& key, Format format)
{
    Look const look(application, preference(key));
    Observation const& observation = look.observation;
    std::string const computedBy =
        look.row.computedDefault ? std::string("Settings::") + Catalogue::placeOf(look.row.computedDefault).name : "";
    std::string const file = observation.store ? storage(application, *observation.store).file().u8string() : "";

    if (format == Format::json) {
        ordered_json stored = nullptr;
        if (look.stored)
            stored = {{"kind", look.stored->kind},
                      {"value", std::visit(StoredAsJson(), look.stored->value)},
                      {"changed", inUtc(look.stored->changed)}};
        std::cout << json({{"key", key},
                           {"type", typeName(look.row)},
                           {"cppType", cppTypeName(look.row)},
                           {"store", look.storeName()},
                           {"file", file.empty() ? ordered_json() : ordered_json(file)},
                           {"state", look.state()},
                           {"stored", stored},
                           {"default",
                            {{"value", toJson(observation.defaultValue)},
                             {"computedBy", computedBy.empty() ? ordered_json() : ordered_json(computedBy)}}},
                           {"value", toJson(observation.value)}})
                  << '\n';
        return;
    }
    std::vector<Columns> table = {{"key", key}, {"type", typeWithLanguage(look.row)}, {"store", look.storeName()}};
    if (!file.empty())
        table.push_back({"file", onOneLine(file)});
    table.push_back({"state", look.state()});
    if (look.stored) {
        table.push_back({"stored", onOneLine(storedText(look.stored->value))});
        table.push_back({"stored kind", look.stored->kind});
        table.push_back({"changed", inUtc(look.stored->changed)});
    }
    table.push_back({"default", onOneLine(observation.defaultValue)});
    table.push_back({"computed by", computedBy.empty() ? "nothing: it is fixed" : computedBy + "()"});
    table.push_back({"value", onOneLine(observation.value)});
    printTable(table, {}, format);
}
