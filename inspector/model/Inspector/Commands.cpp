// SPDX-License-Identifier: MIT
#include <Inspector/Commands.h>

#include <Host/ProductFile.h>
#include <Inspection/ExportDocument.h>
#include <Inspection/PreferenceState.h>
#include <Inspection/ValueFormat.h>

#include <absl/strings/str_cat.h>
#include <absl/strings/str_join.h>

#include <algorithm>
#include <tuple>
#include <utility>

namespace Inspector {

namespace {

using Words = std::vector<std::string>;

bool looksLikeOption(std::string const& word) { return !word.empty() && word[0] == '-'; }

bool hasNul(std::string const& word) { return word.find('\0') != std::string::npos; }

std::optional<QString> asText(std::string const& line)
{
    return Inspection::isUtf8(line) && !hasNul(line) ? std::optional(QString::fromStdString(line)) : std::nullopt;
}

// Whether the command line takes this product file without being asked to.
bool isTakenAnyway(std::filesystem::path const& productFile)
{
    bool const isAnotherNamed = qEnvironmentVariableIsSet("EDITOR_SETTINGS_PRODUCT"); // in the shell too, from which both are started
    return productFile.empty() || (!isAnotherNamed && productFile == Host::installedProductFile());
}

// Quoted words, the program with the options that lead to the same stores.
std::string line(Place const& place, std::string const& verb, Words const& words)
{
    Words all = {"editor-settings"};
    if (!isTakenAnyway(place.productFile))
        all.insert(all.end(), {"--product", place.productFile.string()});
    if (place.storeFolder)
        all.insert(all.end(), {"--home", place.storeFolder->string()});
    if (place.allowsNetworkFileSystem)
        all.emplace_back("--allow-network");
    all.push_back(verb);
    all.insert(all.end(), words.begin(), words.end());
    return absl::StrJoin(all, " ", [](std::string* result, std::string const& word) { result->append(Inspection::typedWord(word)); });
}

Words withEndOfOptions(Words words)
{
    if (std::any_of(words.begin(), words.end(), looksLikeOption))
        words.insert(words.begin(), "--");
    return words;
}

// `text` for printf, which passes a NUL on where no word of a command can hold one.
std::string printed(std::string const& text)
{
    std::string format;
    for (char const character : text)
        if (character == '\0')
            format += "\\000";
        else
            format += character == '%' ? "%%" : character == '\\' ? "\\\\" : std::string(1, character);
    return absl::StrCat("printf -- ", Inspection::shellWord(format), " | ");
}

} // namespace

Words wordsOf(Catalogue::Value const& value)
{
    auto const* const list = std::get_if<QStringList>(&value);
    if (!list)
        return {Inspection::text(value)};
    Words words;
    for (QString const& element : *list)
        words.push_back(element.toStdString());
    return words;
}

std::optional<QString> command(Place const& place, std::string const& verb, Words const& words)
{
    return asText(line(place, verb, withEndOfOptions(words)));
}

std::optional<QString> commandToSet(Place const& place, std::string const& key, Catalogue::Value const& value)
{
    Words words = wordsOf(value);
    if (words.empty())
        return asText(line(place, "set", {"--empty", "--", key}));
    if (words.size() == 1 && hasNul(words[0]) && !std::holds_alternative<QStringList>(value))
        return asText(printed(words[0]) + line(place, "set", {"--from-file", "-", "--", key}));
    words.insert(words.begin(), key);
    return command(place, "set", words);
}

std::optional<QString> commandToSetHidden(Place const& place, std::string const& key)
{
    return command(place, "set", {key, "\xE2\x80\xA6"});
}

std::optional<QString> commandToUnset(Place const& place, Words const& keys)
{
    Words lines;
    for (std::string const& key : keys)
        lines.push_back(line(place, "unset", withEndOfOptions({key})));
    return asText(absl::StrJoin(lines, " && "));
}

// --- Documents and backups ---

namespace {

// The row as an import takes it; a personal one that nobody asked to see is redacted, which an import leaves as it is.
Inspection::Entry entryOf(Catalogue::Store store, Storage::SqliteStorage::Row const& row, bool showsPersonal)
{
    bool const isHidden = Inspection::classOf(row.key) == Catalogue::dataClassName(Catalogue::DataClass::personal) && !showsPersonal;
    return {store, *Storage::kindFromWord(row.kind), row.key, isHidden ? Storage::SqliteStorage::Value() : row.value};
}

// An import of nothing but `entries`, on standard input.
std::string importOf(Place const& place, std::deque<Inspection::Entry> entries)
{
    std::sort(entries.begin(), entries.end(),
              [](auto const& one, auto const& other) { return std::tie(one.store, one.key) < std::tie(other.store, other.key); });
    auto const isUnknown = [](Inspection::Entry const& entry) { return Inspection::classOf(entry.key).empty(); };
    Words words = {"-"};
    if (std::any_of(entries.begin(), entries.end(), isUnknown))
        words.insert(words.begin(), "--with-unknown");
    std::string const document = Inspection::written({"", "", std::move(entries)});
    return absl::StrCat("printf %s ", Inspection::shellWord(document), " | ", line(place, "import", words));
}

bool isCarried(Storage::SqliteStorage::Row const& row) { return !std::holds_alternative<std::monostate>(row.value) && !hasNul(row.key); }

// The classes of which all lines are taken; nullopt where those of one class are taken in part.
std::optional<std::set<std::string>> classesTaken(DocumentComparison const& document, std::set<std::string> const& taken)
{
    std::set<std::string> whole;
    std::set<std::string> left;
    for (auto const& line : document.lines)
        if (!line->isRedacted)
            (taken.count(line->id) > 0 ? whole : left).insert(line->dataClass);
    auto const isLeft = [&](std::string const& dataClass) { return left.count(dataClass) > 0; };
    return std::any_of(whole.begin(), whole.end(), isLeft) ? std::nullopt : std::optional(whole);
}

bool isAllTaken(DocumentComparison const& document, std::set<std::string> const& taken)
{
    auto const isTaken = [&](auto const& line) { return line->isRedacted || taken.count(line->id) > 0; };
    return std::all_of(document.lines.begin(), document.lines.end(), isTaken);
}

} // namespace

std::optional<QString> commandToRevert(Place const& place, Step const& step, bool showsPersonal)
{
    std::deque<Inspection::Entry> entries;
    Words lines;
    for (auto const& [store, row] : step)
        if (row.before && !isCarried(*row.before))
            return std::nullopt;
        else if (row.before)
            entries.push_back(entryOf(store, *row.before, showsPersonal));
        else
            lines.push_back(line(place, "unset", withEndOfOptions({row.key})));
    if (!entries.empty())
        lines.insert(lines.begin(), importOf(place, std::move(entries)));
    return asText(absl::StrJoin(lines, " && "));
}

std::optional<QString> commandToImport(Place const& place, DocumentComparison const& document, std::set<std::string> const& taken,
                                       bool showsPersonal)
{
    auto const isTaken = [&](std::shared_ptr<DocumentLine const> const& line) { return !line->isRedacted && taken.count(line->id) > 0; };
    if (std::none_of(document.lines.begin(), document.lines.end(), isTaken))
        return std::nullopt;
    std::optional<std::set<std::string>> const classes = classesTaken(document, taken);
    bool const isAll = isAllTaken(document, taken);
    if (!classes || (!isAll && classes->count("") > 0)) { // no option names the unknown ones alone
        std::deque<Inspection::Entry> entries;
        for (auto const& line : document.lines)
            if (isTaken(line))
                entries.push_back(entryOf(line->store, line->wanted, showsPersonal));
        return asText(importOf(place, std::move(entries)));
    }
    Words words;
    for (std::string const& dataClass : isAll ? std::set<std::string>() : *classes)
        words.insert(words.end(), {"--only", dataClass});
    if (document.hasUnknown)
        words.emplace_back("--with-unknown");
    words.push_back(document.file.string());
    return asText(line(place, "import", words));
}

std::optional<QString> commandToExport(Place const& place, std::filesystem::path const& file, bool isRedacted)
{
    Words words = {std::filesystem::absolute(file).string()};
    if (isRedacted)
        words.insert(words.begin(), "--redact");
    return asText(line(place, "export", words));
}

std::optional<QString> commandToBackUp(Place const& place, std::filesystem::path const& file)
{
    return asText(line(place, "backup", {std::filesystem::absolute(file).string()}));
}

} // namespace Inspector
