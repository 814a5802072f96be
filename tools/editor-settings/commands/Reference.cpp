// SPDX-License-Identifier: MIT
#include "commands/Reference.h"

#include "commands/values/Output.h"
#include "terminal/Escaping.h"
#include "terminal/Table.h"
#include <Inspection/DeclaredKeys.h>
#include <Inspection/Locations.h>
#include <Inspection/PreferenceState.h>
#include <Inspection/ValueFormat.h>

#include <Host/ProductFile.h>
#include <Storage/EmptyStorage.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <utility>

using Catalogue::Family;
using Catalogue::Location;
using Catalogue::Preference;
using Inspection::cppTypeName;
using Inspection::LocationState;
using Inspection::typeName;

namespace {

// No file can lie below a device, so no file of this machine changes the pages.
std::string const nobodysHome = "/dev/null/home";
std::string const noResources = "/dev/null/resources";

// Binds the library to a product with empty stores, in the environment of a user who has set nothing.
class BoundOnAnyMachine {
public:
    explicit BoundOnAnyMachine(std::filesystem::path const& productFile) : m_product(Inspection::readProductFile(productFile))
    {
        ::setenv("HOME", nobodysHome.c_str(), 1);
        for (char const* variable : {"XDG_CACHE_HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME"})
            ::unsetenv(variable);
        Settings::init({m_product, m_nothing, m_nothing, Lumora::ioPath(noResources)});
    }

private:
    std::shared_ptr<Host::ProductFile> m_product;
    std::shared_ptr<ISettingsStorage> m_nothing = std::make_shared<Storage::EmptyStorage>();
};

// --- Markdown ---

// `text` with bars escaped, as they would end the cell of a table.
std::string inCell(std::string text)
{
    for (std::size_t at = text.find('|'); at != std::string::npos; at = text.find('|', at + 2))
        text.insert(at, 1, '\\');
    return text;
}

std::string code(std::string const& text) { return '`' + inCell(text) + '`'; }

std::string inPage(QString const& path)
{
    std::string const text = path.toStdString();
    for (auto const& [root, sign] : {std::pair(nobodysHome, "~"), std::pair(noResources, "/opt/editor")})
        if (text.compare(0, root.size(), root) == 0)
            return code(sign + text.substr(root.size()));
    return path.isNull() ? "whichever is found" : code(text);
}

using Line = std::vector<std::string>;

void printLine(Line const& cells) { std::cout << "| " << joined(cells, " | ") << " |\n"; }

// Prints `lines` sorted by their first cells.
void printMarkdown(Line const& heading, std::vector<Line> lines)
{
    std::sort(lines.begin(), lines.end());
    printLine(heading);
    printLine(Line(heading.size(), "---"));
    for (Line const& cells : lines)
        printLine(cells);
}

// --- Preferences ---

std::string typeInPage(Catalogue::Value const& value)
{
    std::string const type = typeName(value);
    std::string const cpp = cppTypeName(value);
    return type == cpp ? type : type + ", " + code(cpp);
}

std::string defaultInPage(Preference const& row, Catalogue::Value const& value)
{
    if (row.computedDefault)
        return inPage(row.computedDefault()) + ", which is " + code(Catalogue::locationOf(row.computedDefault).name);
    bool const isEmptyList = value == Catalogue::Value(QStringList());
    std::string const text = onOneLine(value);
    return isEmptyList || text.empty() ? "empty" : code(text);
}

// The setter without the namespace, which is the getter's.
template <typename Row>
std::string accessorsInPage(Row const& row)
{
    std::string const setter = row.setterName();
    return code(row.getterName()) + (setter.empty() ? "" : ", " + code(setter.substr(setter.rfind(':') + 1)));
}

Line lineOf(Preference const& row)
{
    Catalogue::Value const value = Catalogue::inspectUnstored(row).defaultValue;
    return {code(row.name), typeInPage(value),   name(row.store), Catalogue::dataClassName(row.dataClass), defaultInPage(row, value),
            row.purpose,    accessorsInPage(row)};
}

Line lineOf(Family const& family)
{
    Catalogue::InspectedValue const unstored = Catalogue::inspectUnstored(family, QStringLiteral("name"));
    return {code(unstored.key), typeInPage(unstored.defaultValue),
            name(family.store), Catalogue::dataClassName(family.dataClass),
            family.purpose,     accessorsInPage(family)};
}

// --- Own keys ---

Line lineOf(Host::OwnKey const& own)
{
    Inspection::OwnKeyFacts const facts = Inspection::factsOf(own);
    std::string const text = onOneLine(facts.defaultValue);
    bool const isEmpty = text.empty() || facts.defaultValue == Catalogue::Value(QStringList());
    return {code(onOneLine(own.key) + (own.isPrefix ? "*" : "")),
            typeName(facts.defaultValue),
            name(facts.store),
            Catalogue::dataClassName(facts.dataClass),
            isEmpty ? "empty" : code(text),
            inCell(onOneLine(facts.accepts)),
            inCell(onOneLine(own.purpose))};
}

char const* const ownKeysBegin = R"(
## Own keys

What the product file declares for the host itself, which reads and writes it with `read` and `write`. A `*` stands for what the host
puts behind a prefix.

)";

char const* const preferencesBegin = R"(# Preferences

<!-- Printed by 'editor-settings list --format markdown'; scripts/docs rewrites it. -->

What the library keeps for the editor, by key. A read returns the stored value, else the default.

- **type**: as the command line takes it, and as the library does where that has another name.
- **store**: `product` for this product alone, `common` for what the vendor's products share.
- **class**: what the preference is when settings leave the machine. `roaming` is the user's taste and holds on any machine;
  `local` fits this machine; `personal` tells who the user is or what the user works on; `transient` was last used or
  counted, and the editor soon sets it again.
- **default**: folders as they are for a user who has set nothing, with `~` for the home folder. They are computed at each
  read; [locations](locations.md) tells from what.
- **getter, setter**: the functions; the command line takes a getter's name, without its namespace, for the key.

)";

char const* const familiesBegin = R"(
## Under names of the editor's choice

Each `name` has a value of its own, which is empty until it is set.

)";

char const* const reservedBegin = R"(
## Reserved

Keys that have a default and that nothing reads yet: )";

char const* const locationsBegin = R"(# Locations

<!-- Printed by 'editor-settings paths --format markdown'; scripts/docs rewrites it. -->

Where the editor's files and folders lie, for a user who has set nothing: `~` is the home folder, and `/opt/editor` stands for
the resources root of the binding. Separators that are doubled, and those at the end, belong to the paths.

**decided by** names what a path starts from, and what the library asks of the product:

- `movies` and `music`: the folders that `XDG_VIDEOS_DIR` and `XDG_MUSIC_DIR` name in `user-dirs.dirs`, which lies in
  `XDG_CONFIG_HOME`, by default `~/.config`.
- `data` and `cache`: `XDG_DATA_HOME` and `XDG_CACHE_HOME`, by default `~/.local/share` and `~/.cache`. To the cache Qt adds
  the application's and the organisation's name where the editor sets them; here it sets neither.
- `resources`: the resources root.
- `nothing`: the text is fixed.
- A folder preference decides by itself once it is set.

On a machine, `editor-settings paths NAME --explain` tells what decides there.

)";

// --- Locations ---

std::string decidedBy(Location const& location)
{
    std::vector<std::string> deciding = {Catalogue::rootName(location.root)};
    for (std::string const& field : Catalogue::askedOfTheProduct(location))
        deciding.push_back(code(field));
    return joined(deciding, ", ");
}

Line lineOf(LocationState const& state)
{
    Preference const* const preference = state.preference;
    return {code(state.label()), inPage(state.path), Catalogue::useName(state.use),
            preference ? "itself, else as " + code(state.location->name) : decidedBy(*state.location),
            preference ? preference->purpose : state.location->purpose};
}

template <typename T>
std::vector<Line> linesOf(std::vector<T> const& rows)
{
    std::vector<Line> lines;
    for (T const& row : rows)
        lines.push_back(lineOf(row));
    return lines;
}

} // namespace

void printPreferencesPage(std::filesystem::path const& productFile)
{
    BoundOnAnyMachine const binding(productFile);
    std::cout << preferencesBegin;
    printMarkdown({"key", "type", "store", "class", "default", "what it is for", "getter, setter"}, linesOf(Catalogue::preferences()));
    std::cout << familiesBegin;
    printMarkdown({"key", "type", "store", "class", "what it is for", "getter, setter"}, linesOf(Catalogue::families()));
    std::cout << reservedBegin << code(joined(Catalogue::preferencesWithoutAccessors(), "`, `")) << ".\n";
    if (Inspection::ownKeys().all().empty())
        return;
    std::cout << ownKeysBegin;
    printMarkdown({"key", "type", "store", "class", "default", "accepts", "what it is for"}, linesOf(Inspection::ownKeys().all()));
}

void printLocationsPage(std::filesystem::path const& productFile)
{
    BoundOnAnyMachine const binding(productFile);
    std::cout << locationsBegin;
    printMarkdown({"location", "path", "use", "decided by", "what it is for"}, linesOf(Inspection::locationStates()));
}

Option pageOption(std::string& page, std::vector<std::string> const& others)
{
    return Option("--format", &page, "markdown: the page of the reference, the same on every machine")
        .of("FORMAT")
        .oneOf({"markdown"})
        .excluding(others);
}
