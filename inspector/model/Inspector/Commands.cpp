// SPDX-License-Identifier: MIT
#include <Inspector/Commands.h>

#include <Inspection/ValueFormat.h>

#include <absl/strings/str_cat.h>
#include <absl/strings/str_join.h>

#include <algorithm>

namespace Inspector {

namespace {

using Words = std::vector<std::string>;

bool isPlain(char character)
{
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') || (character >= '0' && character <= '9') ||
           std::string_view("_-./").find(character) != std::string_view::npos;
}

std::string quoted(std::string const& word)
{
    return !word.empty() && std::all_of(word.begin(), word.end(), isPlain) ? word : Inspection::shellWord(word);
}

bool looksLikeOption(std::string const& word) { return !word.empty() && word[0] == '-'; }

bool hasNul(std::string const& word) { return word.find('\0') != std::string::npos; }

std::optional<QString> asText(std::string const& line)
{
    return Inspection::isUtf8(line) && !hasNul(line) ? std::optional(QString::fromStdString(line)) : std::nullopt;
}

// Quoted words, the program with the options that lead to the same stores.
std::string line(Place const& place, std::string const& verb, Words const& words)
{
    Words all = {"editor-settings"};
    if (!place.productFile.empty())
        all.insert(all.end(), {"--product", place.productFile.string()});
    if (place.storeFolder)
        all.insert(all.end(), {"--home", place.storeFolder->string()});
    if (place.allowsNetworkFileSystem)
        all.emplace_back("--allow-network");
    all.push_back(verb);
    all.insert(all.end(), words.begin(), words.end());
    return absl::StrJoin(all, " ", [](std::string* result, std::string const& word) { result->append(quoted(word)); });
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

} // namespace Inspector
