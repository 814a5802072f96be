// SPDX-License-Identifier: MIT
#include <Inspection/checks/StoredValueChecks.h>

#include <Inspection/DeclaredKeys.h>
#include <Inspection/Locations.h>
#include <Inspection/PreferenceState.h>
#include <Inspection/ValueFormat.h>

#include <absl/strings/match.h>
#include <absl/strings/str_cat.h>

#include <algorithm>
#include <map>

using Catalogue::Store;
using StoredRow = Storage::SqliteStorage::Row;

namespace Inspection {

namespace {

Finding aboutKey(ExaminedStore const& store, Severity severity, Check check, std::string const& key, std::string const& what,
                 std::string const& remedy)
{
    return {severity, check, what, remedy, store.store, key, {}};
}

char const unknownRemedy[] = "nothing to do where a later version or another program stored it; a product file declares a host's own keys";

using Part = Host::OwnKeys::Part;

// --- Keys ---

bool isOneByOne(std::string const& key) { return Catalogue::findPreference(key) || ownKeys().find(key); }

bool isKnown(ExaminedStore const& store, std::string const& key)
{
    std::optional<KnownKey> const known = knownKey(key);
    return known ? known->store == store.store || isOneByOne(key) : store.store == Store::product && isReserved(key);
}

// A store keeps a rational as two ints, under its key with "_N" and "_D" behind it.
struct Halves {
    StoredRow const* numerator = nullptr;
    StoredRow const* denominator = nullptr;
};

using Rationals = std::map<std::string, Halves>;

bool isNamedLikeAHalf(std::string const& key) { return key.size() > 2 && (absl::EndsWith(key, "_N") || absl::EndsWith(key, "_D")); }

std::string keyOfRational(std::string const& half) { return half.substr(0, half.size() - 2); }

// A half without the other counts as a rational only where its kind is int.
bool isRational(Halves const& halves)
{
    auto const& [numerator, denominator] = halves;
    return (numerator && denominator) || (numerator ? numerator : denominator)->kind == Storage::storedWord(Storage::Kind::integer);
}

Rationals rationalsIn(ExaminedStore const& store)
{
    Rationals rationals;
    for (StoredRow const& row : store.rows) {
        std::optional<KnownKey> const known = knownKey(row.key);
        bool const isDeclared = known && known->part != Part::whole && known->store == store.store;
        if (!isDeclared && (!isNamedLikeAHalf(row.key) || isKnown(store, row.key)))
            continue;
        Halves& halves = rationals[keyOfRational(row.key)];
        (row.key.back() == 'N' ? halves.numerator : halves.denominator) = &row;
    }
    for (auto entry = rationals.begin(); entry != rationals.end();)
        entry = ownKeys().find(entry->first) || isRational(entry->second) ? std::next(entry) : rationals.erase(entry);
    return rationals;
}

void checkKey(ExaminedStore const& store, Rationals const& rationals, std::string const& key, Findings& findings)
{
    std::optional<KnownKey> const known = knownKey(key);
    bool const isHalf = isNamedLikeAHalf(key) && rationals.count(keyOfRational(key)) != 0;
    if (known && known->store != store.store && isOneByOne(key))
        findings.push_back(aboutKey(store, Severity::warning, Check::misplacedKey, key,
                                    absl::StrCat("it belongs in the ", name(known->store), " store and is not read here"),
                                    absl::StrCat("'editor-settings explain ", known->part == Part::whole ? key : keyOfRational(key),
                                                 "' shows what is read; what lies here is kept")));
    else if (!isKnown(store, key) && !isHalf)
        findings.push_back(
            aboutKey(store, Severity::note, Check::unknownKey, key, "the library knows no such key; it is kept", unknownRemedy));
}

// --- Rationals ---

std::optional<Finding> aboutRational(ExaminedStore const& store, std::string const& key, Halves const& halves)
{
    auto const& [numerator, denominator] = halves;
    auto const isInt = [](StoredRow const* row) { return std::holds_alternative<int>(row->value); };
    auto const found = [&](Severity severity, Check check, std::string const& what) {
        return aboutKey(store, severity, check, key, what, "have the program that owns it store it again");
    };
    // Nobody says that undeclared keys with such ends are a rational at all.
    Severity const severity = ownKeys().find(key) ? Severity::warning : Severity::note;
    if (!numerator || !denominator)
        return found(severity, Check::rationalHalf,
                     absl::StrCat("the rational has no ", key, numerator ? "_D" : "_N", ", so a read mixes it with a default"));
    if (!isInt(numerator) || !isInt(denominator))
        return found(severity, Check::rationalKind,
                     absl::StrCat("the rational's ", (isInt(numerator) ? denominator : numerator)->key,
                                  " is no int, so a read mixes it with a default"));
    if (std::get<int>(denominator->value) == 0)
        return found(Severity::error, Check::rationalZero, "the rational's denominator is 0, so every read of it fails");
    if (ownKeys().find(key))
        return std::nullopt;
    return aboutKey(store, Severity::note, Check::unknownRational, key, "the library knows no such rational; it is kept", unknownRemedy);
}

// --- Values ---

bool isTextThatIsNotUtf8(PreferenceState const& preference)
{
    if (!std::holds_alternative<QString>(preference.observation.value))
        return false;
    std::string const& stored = std::get<std::string>(preference.stored.front().value);
    return QString::fromStdString(stored).toStdString() != stored;
}

bool isListThatChanges(PreferenceState const& preference)
{
    auto const* const list = std::get_if<QStringList>(&preference.observation.value);
    return list && Catalogue::storedText(*list) != std::get<std::string>(preference.stored.front().value);
}

// The checks of folders tell of those that are written to, stored or not.
std::string untoldReason(PreferenceState const& preference, PathLook const& look)
{
    std::string const reason = whyUnusable(preference.key, preference.observation.value, look);
    if (reason.empty())
        return {};
    std::vector<WrittenFolder> const folders = foldersToWrite(look);
    auto const isIt = [&](WrittenFolder const& folder) { return folder.isPreference && folder.label == preference.key; };
    return std::any_of(folders.begin(), folders.end(), isIt) ? std::string() : reason;
}

void checkValue(PreferenceState const& preference, ExaminedStore const& store, PathLook const& look, Findings& findings)
{
    std::string const& key = preference.key;
    std::string const unset = absl::StrCat("'editor-settings unset ", key, "' removes it, so that the default holds");
    std::string const storeAgain =
        preference.write ? absl::StrCat("store it again: 'editor-settings set ", key, " VALUE'") : "have the editor store it again";
    auto const add = [&](Check check, std::string const& what, std::string const& remedy) {
        findings.push_back(aboutKey(store, Severity::warning, check, key, what, remedy));
    };
    std::string const holds = absl::StrCat("it holds a value of kind ", preference.stored.front().kind);
    State const state = preference.state();
    if (state == State::otherKind)
        add(Check::otherKind,
            absl::StrCat(holds, " where one of kind ", Storage::storedWord(storedKind(preference.observation.value)),
                         " is read, so the default is read"),
            unset);
    else if (state == State::unreadable)
        add(Check::unreadable, holds + " that cannot be read, so the default is read", unset);
    else if (isTextThatIsNotUtf8(preference))
        add(Check::notUtf8, "it holds text that is not UTF-8, so it is not read as it is stored", storeAgain);
    else if (isListThatChanges(preference))
        add(Check::listChanges,
            "the stored list would be another one when it is read and stored again, as it has empty elements or a part of the separator",
            storeAgain);
    else if (std::string const reason = untoldReason(preference, look); !reason.empty())
        add(Check::unusableValue, "the editor cannot use the stored value: " + reason,
            absl::StrCat("'editor-settings explain ", key, "' shows what it accepts; ", unset));
}

bool isReadFrom(ExaminedStore const& store, std::string const& key)
{
    std::optional<KnownKey> const known = knownKey(key);
    return known && known->store == store.store && known->part == Part::whole;
}

} // namespace

Findings checkStoredValues(Host::Application const& application, ExaminedStore const& store, PathLook const& look)
{
    Findings findings;
    Rationals const rationals = rationalsIn(store);
    for (StoredRow const& row : store.rows)
        checkKey(store, rationals, row.key, findings);
    for (auto const& [key, halves] : rationals)
        if (std::optional<Finding> const finding = aboutRational(store, key, halves))
            findings.push_back(*finding);
    for (StoredRow const& row : store.rows) {
        if (!isReadFrom(store, row.key))
            continue;
        PreferenceState const preference = preferenceState(application, row.key).value();
        // Another process may have removed the row meanwhile, and some products keep a preference in memory.
        if (!preference.stored.empty())
            checkValue(preference, store, look, findings);
    }
    return findings;
}

} // namespace Inspection
