// SPDX-License-Identifier: MIT
#include <Inspection/PreferenceState.h>

#include "terminal/Suggestions.h"
#include <Inspection/ValueFormat.h>

#include <absl/strings/str_cat.h>

#include <algorithm>

using Catalogue::Family;
using Catalogue::Preference;
using Catalogue::Store;
using Catalogue::Value;

namespace {

void look(Host::Application const& application, PreferenceState& setting)
{
    if (setting.observation.isStored)
        setting.stored = storage(application, *setting.observation.store)->find(setting.observation.key);
}

PreferenceState stateOf(Host::Application const& application, Preference const& row)
{
    PreferenceState setting = {
        row.name,           row.store, row.dataClass, Catalogue::inspect(row), {}, [&row](Value const& value) { row.write(value); },
        row.computedDefault};
    look(application, setting);
    return setting;
}

// Hands a value to the setter of a family, if there is one.
struct Writer {
    QString member;

    template <typename T>
    std::function<void(Value const&)> operator()(Catalogue::KeyedAccessors<T> const& accessors) const
    {
        if (!accessors.set)
            return {};
        return [set = accessors.set, member = member](Value const& value) { set(member, std::get<T>(value)); };
    }
};

PreferenceState stateOf(Host::Application const& application, Family const& family, QString const& member)
{
    Catalogue::InspectedValue const observation = Catalogue::inspect(family, member);
    PreferenceState setting = {observation.key, family.store, family.dataClass,
                               observation,     {},           std::visit(Writer{member}, family.accessors)};
    look(application, setting);
    return setting;
}

// What the keys of a family begin with: the key of the member without a name.
std::string prefix(Family const& family) { return Catalogue::inspect(family, QString()).key; }

bool beginsWith(std::string const& text, std::string const& beginning) { return text.compare(0, beginning.size(), beginning) == 0; }

// The member of a family that a key belongs to; none where it belongs to no family, or is not UTF-8.
std::optional<PreferenceState> memberOfAFamily(Host::Application const& application, std::string const& key)
{
    for (Family const& family : Catalogue::families()) {
        std::string const beginning = prefix(family);
        if (!beginsWith(key, beginning))
            continue;
        QString const member = QString::fromStdString(key.substr(beginning.size()));
        PreferenceState found = stateOf(application, family, member);
        if (found.key == key)
            return found;
    }
    return std::nullopt;
}

std::string suggestion(std::string const& key)
{
    std::vector<std::string> names;
    for (Preference const& row : Catalogue::preferences())
        names.push_back(row.name);
    return didYouMean(key, names);
}

} // namespace

std::string PreferenceState::storeName() const { return observation.store ? name(*observation.store) : "memory"; }

std::string PreferenceState::obstacle() const { return isOfOtherKind() ? "other kind" : isUnreadable() ? "unreadable" : ""; }

bool PreferenceState::isOfOtherKind() const { return stored && stored->kind != storedKind(observation.value); }

bool PreferenceState::isUnreadable() const { return stored && !isOfOtherKind() && std::holds_alternative<std::monostate>(stored->value); }

std::string PreferenceState::state() const
{
    if (!stored)
        return "unset";
    if (!obstacle().empty())
        return obstacle();
    return observation.value == observation.defaultValue ? "set to default" : "set";
}

std::string name(Store store) { return store == Store::common ? "common" : "product"; }

Storage::SqliteStorage* storage(Host::Application const& application, Store store)
{
    return store == Store::common ? application.commonStorage() : application.productStorage();
}

std::filesystem::path const& storageFile(Host::Application const& application, Store store)
{
    return store == Store::common ? application.commonStorageFile() : application.productStorageFile();
}

std::optional<Storage::StorageError> const& storageError(Host::Application const& application, Store store)
{
    return store == Store::common ? application.commonStorageError() : application.productStorageError();
}

PreferenceState preferenceState(Host::Application const& application, std::string const& key)
{
    if (Preference const* const row = Catalogue::findPreference(key))
        return stateOf(application, *row);
    if (std::optional<PreferenceState> member = memberOfAFamily(application, key))
        return *std::move(member);
    auto const& reserved = Catalogue::preferencesWithoutAccessors();
    if (std::find(reserved.begin(), reserved.end(), key) != reserved.end())
        throw UserError(absl::StrCat(key, " is reserved: the editor neither reads nor writes it, so it cannot be reached"));
    if (Catalogue::findLocation(key))
        throw UserError(absl::StrCat(key, " is a location and no preference; 'editor-settings paths ", key, "' shows it"));
    throw UserError(absl::StrCat("there is no preference ", quotedBriefly(key), "; ", suggestion(key), "'editor-settings list' shows all"));
}

bool isInAFamily(std::string const& key)
{
    auto const isMember = [&](Family const& family) {
        std::string const beginning = prefix(family);
        return beginsWith(key, beginning) && Catalogue::inspect(family, QString::fromStdString(key.substr(beginning.size()))).key == key;
    };
    return std::any_of(Catalogue::families().begin(), Catalogue::families().end(), isMember);
}

std::vector<PreferenceState> preferenceStates(Host::Application const& application)
{
    std::vector<PreferenceState> settings;
    for (Preference const& row : Catalogue::preferences())
        settings.push_back(stateOf(application, row));
    std::vector<Storage::SqliteStorage::Row> rows;
    if (application.productStorage())
        rows = application.productStorage()->rows();
    for (Storage::SqliteStorage::Row const& stored : rows)
        if (std::optional<PreferenceState> member = memberOfAFamily(application, stored.key))
            settings.push_back(*std::move(member));
    std::sort(settings.begin(), settings.end(),
              [](PreferenceState const& left, PreferenceState const& right) { return left.key < right.key; });
    return settings;
}

std::string keyInFamily(Family const& family, std::string const& member)
{
    if (!isUtf8(member))
        throw UserError(
            absl::StrCat("the name ", quotedBriefly(member), " is not UTF-8 without a byte order mark; give it as the editor writes it"));
    return prefix(family) + member;
}
