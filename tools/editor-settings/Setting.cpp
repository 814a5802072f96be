// SPDX-License-Identifier: MIT
#include "Setting.h"

#include "Nearest.h"
#include "Translation.h"
#include "Values.h"

#include <algorithm>

using Catalogue::Family;
using Catalogue::Row;
using Catalogue::Store;
using Catalogue::Value;

namespace {

void look(Host::Application const& application, Setting& setting)
{
    if (setting.observation.isStored)
        setting.stored = storage(application, *setting.observation.store)->find(setting.observation.key);
}

Setting settingOf(Host::Application const& application, Row const& row)
{
    Setting setting = {
        row.name,           row.store, row.category, Catalogue::observe(row), {}, [&row](Value const& value) { row.write(value); },
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

Setting settingOf(Host::Application const& application, Family const& family, QString const& member)
{
    Catalogue::Observation const observation = Catalogue::observe(family, member);
    Setting setting = {observation.key, family.store, family.category, observation, {}, std::visit(Writer{member}, family.accessors)};
    look(application, setting);
    return setting;
}

// What the keys of a family begin with: the key of the member without a name.
std::string prefix(Family const& family) { return Catalogue::observe(family, QString()).key; }

bool beginsWith(std::string const& text, std::string const& beginning) { return text.compare(0, beginning.size(), beginning) == 0; }

// The member of a family that a key belongs to; none where it belongs to no family, or is not UTF-8.
std::optional<Setting> memberOfAFamily(Host::Application const& application, std::string const& key)
{
    for (Family const& family : Catalogue::families()) {
        std::string const beginning = prefix(family);
        if (!beginsWith(key, beginning))
            continue;
        QString const member = QString::fromStdString(key.substr(beginning.size()));
        Setting found = settingOf(application, family, member);
        if (found.key == key)
            return found;
    }
    return std::nullopt;
}

std::string suggestion(std::string const& key)
{
    std::vector<std::string> names;
    for (Row const& row : Catalogue::preferences())
        names.push_back(row.name);
    return didYouMean(key, names);
}

} // namespace

std::string Setting::storeName() const { return observation.store ? name(*observation.store) : "memory"; }

std::string Setting::obstacle() const { return isOfOtherKind() ? Text::of("other kind") : isUnreadable() ? Text::of("unreadable") : ""; }

bool Setting::isOfOtherKind() const { return stored && stored->kind != storedKind(observation.value); }

bool Setting::isUnreadable() const { return stored && !isOfOtherKind() && std::holds_alternative<std::monostate>(stored->value); }

std::string Setting::state() const
{
    if (!stored)
        return Text::of("unset");
    if (!obstacle().empty())
        return obstacle();
    return observation.value == observation.defaultValue ? Text::of("set to default") : Text::of("set");
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

Setting setting(Host::Application const& application, std::string const& key)
{
    if (Row const* const row = Catalogue::findPreference(key))
        return settingOf(application, *row);
    if (std::optional<Setting> member = memberOfAFamily(application, key))
        return *std::move(member);
    auto const& reserved = Catalogue::preferencesWithoutAccessors();
    if (std::find(reserved.begin(), reserved.end(), key) != reserved.end())
        throw Refusal(Text::of("%1 is reserved: the editor neither reads nor writes it, so it cannot be reached", key));
    if (Catalogue::findPlace(key))
        throw Refusal(Text::of("%1 is a location and no preference; 'editor-settings paths %1' shows it", key));
    throw Refusal(Text::of("there is no preference %1; %2'editor-settings list' shows all", quotedBriefly(key), suggestion(key)));
}

bool isInAFamily(std::string const& key)
{
    auto const isMember = [&](Family const& family) {
        std::string const beginning = prefix(family);
        return beginsWith(key, beginning) && Catalogue::observe(family, QString::fromStdString(key.substr(beginning.size()))).key == key;
    };
    return std::any_of(Catalogue::families().begin(), Catalogue::families().end(), isMember);
}

std::vector<Setting> allSettings(Host::Application const& application)
{
    std::vector<Setting> settings;
    for (Row const& row : Catalogue::preferences())
        settings.push_back(settingOf(application, row));
    std::vector<Storage::SqliteStorage::Row> rows;
    if (application.productStorage())
        rows = application.productStorage()->rows();
    for (Storage::SqliteStorage::Row const& stored : rows)
        if (std::optional<Setting> member = memberOfAFamily(application, stored.key))
            settings.push_back(*std::move(member));
    std::sort(settings.begin(), settings.end(), [](Setting const& left, Setting const& right) { return left.key < right.key; });
    return settings;
}

std::string keyInFamily(Family const& family, std::string const& member)
{
    if (!isUtf8(member))
        throw Refusal(
            Text::of("the name %1 is not UTF-8 without a byte order mark; give it as the editor writes it", quotedBriefly(member)));
    return prefix(family) + member;
}
