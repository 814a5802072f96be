// SPDX-License-Identifier: MIT
#include "commands/values/GivenValue.h"

#include "terminal/Escaping.h"
#include "terminal/Suggestions.h"
#include <Inspection/DeclaredKeys.h>
#include <Inspection/ValueFormat.h>

#include <Host/FileContent.h>

#include <absl/strings/str_cat.h>

#include <cerrno>
#include <sstream>
#include <system_error>

#include <unistd.h>

using Catalogue::Value;
using Inspection::PreferenceState;
using Inspection::typeName;

namespace {

// Throws `UserError` for half of a declared rational.
void checkIsWhole(std::string const& key)
{
    std::optional<Host::OwnKeys::Match> const match = Inspection::ownKeys().find(key);
    if (match && match->part != Host::OwnKeys::Part::whole)
        throw UserError(absl::StrCat(quotedBriefly(key), " is half of the rational ", quotedBriefly(match->key),
                                     ", which is read and set as a whole; give that key"));
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
    if (error.reason == Inspection::ValueFault::wordCount)
        return absl::StrCat(preference.key, " takes one value, not ", wordCount, "; ",
                            wordCount == 0 ? "--empty is for lists" : "put quotes around a value with blanks");
    Value const& like = preference.observation.value;
    char const* const verb = std::holds_alternative<QByteArray>(like) ? " holds "
                             : std::holds_alternative<int>(like)      ? " is an "
                                                                      : " is a ";
    char const* const option = error.reason == Inspection::ValueFault::notBase64      ? ", or @FILE to read them from a file"
                               : error.reason == Inspection::ValueFault::emptyElement ? " (--empty stores an empty list)"
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

// What is wrong with a value that the library takes and the editor cannot use, and what to give.
std::string complaint(PreferenceState const& preference, Value const& value, std::string const& consequence)
{
    std::string const reason = Inspection::whyUnusable(preference.key, value);
    return reason.empty() ? reason
                          : absl::StrCat(preference.key, ": the editor cannot use ", quotedBriefly(Inspection::text(value)), ": ", reason,
                                         "; ", consequence, "; give ", describe(preference).accepts);
}

} // namespace

bool isPattern(std::string const& word) { return word.find_first_of("*?[") != std::string::npos; }

Option keyOption(std::string& key) { return Option("KEY", &key, "The preference").required().completedBy(Candidates::keys); }

std::vector<Option> valueOptions(std::string& key, GivenValue& words)
{
    return {
        keyOption(key),
        Option(
            "VALUE", &words.values,
            "A bool as true or false (or yes, no, on, off), an int in decimal, text in UTF-8, bytes in base64 or as @FILE, a list as one "
            "word for each element, a rational as N/D"),
        Option("--empty", &words.isEmpty, "Stores an empty list").excluding({"VALUE"}),
        fileOption("--from-file", words.file,
                   "Stores what the file holds, or standard input where it is -: byte for byte, but for a list one "
                   "element on each line")
            .of("FILE")
            .excluding({"VALUE", "--empty"}),
        Option("--strict", &words.isStrict, "Refuses what the editor cannot use, instead of a warning")};
}

PreferenceState knownPreference(Host::Application const& application, std::string const& key, std::string const& adviceOnOwnKeys)
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

Value valueIn(PreferenceState const& preference, GivenValue const& words)
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

void write(PreferenceState const& preference, Value const& value, bool isStrict, std::function<void()> const& store)
{
    if (!preference.observation.store)
        throw UserError(
            absl::StrCat(preference.key, " is kept in memory only by a product of this kind, so it cannot be set from outside the editor"));
    if (std::string const refusal = complaint(preference, value, "nothing was stored"); isStrict && !refusal.empty())
        throw UserError(refusal);
    store();
    if (std::string const warning = complaint(preference, value, "it is stored all the same"); !warning.empty())
        printError(warning);
}
