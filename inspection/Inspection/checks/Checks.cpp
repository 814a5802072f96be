// SPDX-License-Identifier: MIT
#include <Inspection/checks/Checks.h>

#include "terminal/Escaping.h"
#include "terminal/Suggestions.h"
#include <Inspection/Locations.h>
#include <Inspection/PathStatus.h>
#include <Inspection/PreferenceState.h>
#include <Inspection/ValueFormat.h>

#include <absl/strings/str_cat.h>

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>
#include <limits>
#include <map>
#include <set>
#include <system_error>

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;
using Catalogue::Store;
using Inspection::isReserved;
using Inspection::isUtf8;
using Inspection::knownKey;
using Inspection::PreferenceState;
using Inspection::preferenceState;
using Inspection::State;
using Inspection::storage;
using Inspection::storageFile;
using Inspection::storageTrouble;
using Inspection::storedKind;
using StoredRow = Storage::SqliteStorage::Row;

// --- The file of a store ---------------------------------------------------------------------------------------------

ExaminedStore examined(Host::Application const& application, Store store)
{
    Storage::SqliteStorage const* const opened = storage(application, store);
    ExaminedStore result;
    result.store = store;
    result.file = storageFile(application, store);
    result.fileSystem = Storage::fileSystemOf(result.file);
    result.trouble = store == Store::common ? application.commonStorageTrouble() : application.productStorageTrouble();
    result.isMissing = !opened && result.trouble.empty();
    if (!opened)
        return result;
    try {
        result.report = opened->examine();
        result.readOnlyReason = opened->readOnlyReason();
        result.rows = opened->rows();
    } catch (Storage::StorageError const& error) {
        result.trouble = error.what();
    }
    return result;
}

Finding findingOf(std::string const& trouble, ExaminedStore const& store, Severity severity, char const* check)
{
    std::string const file = store.file.u8string();
    std::size_t const begin = trouble.compare(0, file.size(), file) == 0 ? file.size() + 2 : 0;
    std::size_t const end = trouble.find("; ", begin);
    return {severity, check, trouble.substr(begin, end - begin), end == std::string::npos ? "" : trouble.substr(end + 2), store.store,
            {},       file};
}

namespace {

std::string journalOf(ExaminedStore const& store) { return store.file.u8string() + "-journal"; }

// 0 also where there is none: an empty one stays beside every store.
std::uintmax_t sizeOfJournal(ExaminedStore const& store)
{
    std::error_code error;
    std::uintmax_t const size = fs::file_size(journalOf(store), error);
    return error ? 0 : size;
}

Finding aboutFile(ExaminedStore const& store, Severity severity, char const* check, std::string const& what, std::string const& remedy)
{
    return {severity, check, what, remedy, store.store, {}, store.file.u8string()};
}

// Whether the store can be made, and changed: a change needs a journal beside the file.
void checkFolderOfStore(ExaminedStore const& store, Findings& findings)
{
    fs::path const folder = store.file.parent_path();
    PathStatus const found = writtenFolderStatus(QString::fromStdString(folder.u8string()));
    if (!found.isUsable)
        findings.push_back({Severity::error,
                            "store-folder",
                            store.isMissing
                                ? absl::StrCat("the folder of the store cannot be used: ", found.remark, ", so no store can be made")
                                : absl::StrCat("the folder of the store cannot be used: ", found.remark, ", so no change can be stored"),
                            "give this user the rights to the folder, or name another with --home",
                            store.store,
                            {},
                            folder.u8string()});
}

} // namespace

Findings checkAccess(ExaminedStore const& store)
{
    Findings findings;
    if (!store.trouble.empty())
        return {findingOf(store.trouble, store, Severity::error, "store-unusable")};
    if (store.isMissing && sizeOfJournal(store) == 0)
        findings.push_back(aboutFile(store, Severity::note, "store-missing", "nothing is stored there yet",
                                     "nothing to do: the store is made when something is stored"));
    if (!store.readOnlyReason.empty())
        findings.push_back(store.isNewer() ? findingOf(store.readOnlyReason, store, Severity::warning, "store-newer")
                                           : findingOf(store.readOnlyReason, store, Severity::error, "store-read-only"));
    else
        checkFolderOfStore(store, findings);
    return findings;
}

namespace {

std::string userName(uid_t user)
{
    passwd const* const entry = ::getpwuid(user);
    return entry ? entry->pw_name : std::to_string(user);
}

std::string inOctal(mode_t mode)
{
    std::string digits;
    for (int shift = 9; shift >= 0; shift -= 3)
        digits += static_cast<char>('0' + ((mode >> shift) & 7));
    return digits;
}

void checkModeOf(std::string const& file, ExaminedStore const& store, Findings& findings)
{
    struct stat status = {};
    if (::stat(file.c_str(), &status) != 0 || !S_ISREG(status.st_mode))
        return;
    if ((status.st_mode & 077) != 0)
        findings.push_back({Severity::warning,
                            "file-mode",
                            absl::StrCat("other users may read or change it: its mode is ", inOctal(status.st_mode & 07777)),
                            "chmod 600 " + quoted(file),
                            store.store,
                            {},
                            file});
    if (status.st_uid != ::geteuid())
        findings.push_back({Severity::warning,
                            "file-owner",
                            absl::StrCat("it belongs to another user, ", userName(status.st_uid)),
                            absl::StrCat("run this program and the editor as that user, or give the file to ", userName(::geteuid())),
                            store.store,
                            {},
                            file});
}

} // namespace

Findings checkModes(ExaminedStore const& store)
{
    Findings findings;
    checkModeOf(store.file.u8string(), store, findings);
    checkModeOf(journalOf(store), store, findings);
    return findings;
}

Findings checkJournal(ExaminedStore const& store)
{
    std::uintmax_t const size = sizeOfJournal(store);
    if (size == 0)
        return {};
    std::string const bytes = std::to_string(size);
    if (store.isMissing)
        return {{Severity::error,
                 "journal-left",
                 absl::StrCat("a journal of ", bytes, " bytes lies there: its store is gone, and no new one is made beside it"),
                 "bring the store back beside its journal, or move the journal away",
                 store.store,
                 {},
                 journalOf(store)}};
    return {{Severity::warning,
             "journal-left",
             absl::StrCat("a journal of ", bytes, " bytes lies there: a change is being made right now, or was interrupted"),
             "look again in a moment; where it stays, leave it beside the store and start the editor, which undoes the change",
             store.store,
             {},
             journalOf(store)}};
}

Findings checkFileSystem(ExaminedStore const& store)
{
    std::string const type = store.fileSystem.type.empty() ? "a file system without a name" : store.fileSystem.type;
    std::string const elsewhere =
        "keep the stores on a local disk: move the data folder there (XDG_DATA_HOME), or name a folder with --home";
    auto const found = [&](Severity severity, std::string const& what, std::string const& remedy) -> Findings {
        return {aboutFile(store, severity, "file-system", what, remedy)};
    };
    switch (Storage::suitabilityForStores(store.fileSystem)) {
    case Storage::Suitability::suitable:
        break;
    case Storage::Suitability::readOnly:
        return found(Severity::error, absl::StrCat("it lies on ", type, ", which may only be read, so nothing can be stored"),
                     "mount it for writing, or name another folder with --home");
    case Storage::Suitability::network:
        return found(Severity::warning,
                     absl::StrCat("it lies on ", type, ", where locks do not hold between machines, so that two editors can damage it"),
                     elsewhere);
    case Storage::Suitability::withoutLinks:
        return found(store.isMissing ? Severity::error : Severity::warning,
                     absl::StrCat("it lies on ", type, ", which has no hard links, so that no store can be made there"), elsewhere);
    case Storage::Suitability::passing:
        return found(Severity::warning, absl::StrCat("it lies on ", type, ", which is kept in memory, so that all is lost with a restart"),
                     elsewhere);
    case Storage::Suitability::unknown:
        return found(Severity::note, absl::StrCat("it lies on ", type, ", of which it cannot be told whether locks hold there"),
                     absl::StrCat("nothing to do where the disk is local; else ", elsewhere));
    }
    return {};
}

// --- What a store holds ----------------------------------------------------------------------------------------------

namespace {

Finding aboutKey(ExaminedStore const& store, Severity severity, char const* check, std::string const& key, std::string const& what,
                 std::string const& remedy)
{
    return {severity, check, what, remedy, store.store, key, {}};
}

bool isKnown(ExaminedStore const& store, std::string const& key)
{
    return Catalogue::findPreference(key) || (store.store == Store::product && (knownKey(key) || isReserved(key)));
}

// A rational is kept as two ints.
struct Halves {
    StoredRow const* numerator = nullptr;
    StoredRow const* denominator = nullptr;
};

// By the key that the rational is read by. A single value is taken for a half only where it is an int.
std::map<std::string, Halves> rationalsIn(ExaminedStore const& store)
{
    std::map<std::string, Halves> rationals;
    for (StoredRow const& row : store.rows) {
        std::string const ending = row.key.size() > 2 ? row.key.substr(row.key.size() - 2) : "";
        if ((ending != "_N" && ending != "_D") || isKnown(store, row.key))
            continue;
        Halves& halves = rationals[row.key.substr(0, row.key.size() - 2)];
        (ending == "_N" ? halves.numerator : halves.denominator) = &row;
    }
    for (auto entry = rationals.begin(); entry != rationals.end();) {
        auto const& [numerator, denominator] = entry->second;
        bool const isRational = (numerator && denominator) || (numerator ? numerator : denominator)->kind == "int";
        entry = isRational ? std::next(entry) : rationals.erase(entry);
    }
    return rationals;
}

std::vector<std::string> knownNames()
{
    std::vector<std::string> names;
    for (Catalogue::Preference const& row : Catalogue::preferences())
        names.push_back(row.name);
    return names;
}

} // namespace

Findings checkKeys(ExaminedStore const& store)
{
    Findings findings;
    std::map<std::string, Halves> const rationals = rationalsIn(store);
    for (StoredRow const& row : store.rows) {
        Catalogue::Preference const* const known = Catalogue::findPreference(row.key);
        bool const isHalf = row.key.size() > 2 && !isKnown(store, row.key) && rationals.count(row.key.substr(0, row.key.size() - 2)) != 0;
        if (known && known->store != store.store)
            findings.push_back(
                aboutKey(store, Severity::warning, "misplaced-key", row.key,
                         absl::StrCat("it belongs in the ", name(known->store), " store and is not read here"),
                         absl::StrCat("'editor-settings explain ", row.key, "' shows what is read; what lies here is kept")));
        else if (!isKnown(store, row.key) && !isHalf)
            findings.push_back(aboutKey(store, Severity::warning, "unknown-key", row.key, "the library knows no such key; it is kept",
                                        didYouMean(row.key, knownNames()) +
                                            std::string("nothing to do where a later version or another program stored it")));
    }
    return findings;
}

Findings checkRationals(ExaminedStore const& store)
{
    Findings findings;
    std::string const remedy = "have the program that keeps it store it anew";
    auto const found = [&](Severity severity, char const* check, std::string const& key, std::string const& what) {
        findings.push_back(aboutKey(store, severity, check, key, what, remedy));
    };
    for (auto const& [key, halves] : rationalsIn(store)) {
        auto const& [numerator, denominator] = halves;
        auto const isInt = [](StoredRow const* row) { return std::holds_alternative<int>(row->value); };
        if (!numerator || !denominator)
            found(Severity::warning, "rational-half", key,
                  absl::StrCat("the rational has no ", key + (numerator ? "_D" : "_N"), ", so a read mixes it with a default"));
        else if (!isInt(numerator) || !isInt(denominator))
            found(Severity::warning, "rational-kind", key,
                  absl::StrCat("the rational's ", (isInt(numerator) ? denominator : numerator)->key,
                               " is no int, so a read mixes it with a default"));
        else if (std::get<int>(denominator->value) == 0)
            found(Severity::error, "rational-zero", key, "the rational's denominator is 0, so every read of it fails");
        else
            findings.push_back(aboutKey(store, Severity::warning, "unknown-key", key, "the library knows no such rational; it is kept",
                                        "nothing to do where a later version or another program stored it"));
    }
    return findings;
}

namespace {

// A list, as a value of the library's, that another text would be stored for.
bool changesWhenStoredAgain(PreferenceState const& setting)
{
    auto const* const list = std::get_if<QStringList>(&setting.observation.value);
    return list && Catalogue::storedText(*list) != std::get<std::string>(setting.stored->value);
}

bool isTextThatIsNotUtf8(PreferenceState const& setting)
{
    return std::holds_alternative<QString>(setting.observation.value) && !isUtf8(std::get<std::string>(setting.stored->value));
}

bool isAtTheEdge(PreferenceState const& setting)
{
    auto const* const number = std::get_if<int>(&setting.stored->value);
    return number && (*number == std::numeric_limits<int>::max() || *number == std::numeric_limits<int>::min());
}

// What is wrong with a stored value, if anything.
void checkValue(PreferenceState const& setting, ExaminedStore const& store, Findings& findings)
{
    std::string const unset = absl::StrCat("'editor-settings unset ", setting.key, "' removes it, so that the default holds");
    std::string const storeAnew =
        setting.write ? absl::StrCat("store it anew: 'editor-settings set ", setting.key, " VALUE'") : "have the editor store it anew";
    auto const found = [&](char const* check, std::string const& what, std::string const& remedy) {
        findings.push_back(aboutKey(store, Severity::warning, check, setting.key, what, remedy));
    };
    if (setting.state() == State::otherKind)
        found("other-kind",
              absl::StrCat("it holds a value of kind ", setting.stored->kind, " where one of kind ", storedKind(setting.observation.value),
                           " is read, so the default is read"),
              unset);
    else if (setting.state() == State::unreadable)
        found("unreadable", absl::StrCat("it holds a value of kind ", setting.stored->kind, " that cannot be read, so the default is read"),
              unset);
    else if (isTextThatIsNotUtf8(setting))
        found("no-utf8", "it holds text that is not UTF-8, so it is not read as it is stored", storeAnew);
    else if (changesWhenStoredAgain(setting))
        found("list-changes",
              "the stored list would be another one when it is read and stored again, as it has empty elements or a part of the "
              "separator",
              storeAnew);
    else if (isAtTheEdge(setting))
        found("number-edge",
              absl::StrCat("it holds ", std::get<int>(setting.stored->value), ", at the edge of its range: counting on would leave it"),
              unset);
}

} // namespace

Findings checkValues(Host::Application const& application, ExaminedStore const& store)
{
    Findings findings;
    for (StoredRow const& row : store.rows) {
        std::optional<PreferenceState> const found = preferenceState(application, row.key);
        // Without a row it was removed meanwhile, or is kept in memory by a product of this kind.
        if (found && found->store == store.store && found->stored)
            checkValue(*found, store, findings);
    }
    return findings;
}

// --- What the editor writes ------------------------------------------------------------------------------------------

Findings checkFolders()
{
    Findings findings;
    std::vector<std::string> missing;
    for (WrittenFolder const& folder : foldersToWrite()) {
        std::string const path = folder.path.toStdString();
        if (!folder.check.isUsable)
            findings.push_back({Severity::error,
                                "folder",
                                absl::StrCat(folder.label, ": the editor cannot write there: ", folder.check.remark),
                                "mend what is remarked: 'editor-settings paths --explain' tells what decides, and a preference "
                                "may be set to another folder",
                                std::nullopt,
                                {},
                                path});
        else if (!folder.check.exists)
            missing.push_back(folder.label);
        else if (!folder.check.remark.empty())
            findings.push_back({Severity::warning,
                                "folder",
                                absl::StrCat(folder.label, ": ", folder.check.remark),
                                "make it readable, or set the preference to another folder",
                                std::nullopt,
                                {},
                                path});
    }
    if (!missing.empty())
        findings.push_back({Severity::note, "folders-missing", absl::StrCat("not there yet: ", joined(missing, ", ")),
                            "nothing to do: the editor makes them when it writes there"});
    return findings;
}
