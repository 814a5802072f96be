// SPDX-License-Identifier: MIT
#include <Inspection/PreferenceState.h>

#include <Inspection/PathStatus.h>
#include <Inspection/ValueFormat.h>

#include <absl/strings/match.h>
#include <absl/strings/str_join.h>
#include <absl/strings/str_replace.h>

#include <algorithm>
#include <array>

using Catalogue::Family;
using Catalogue::Preference;
using Catalogue::Store;
using Catalogue::Value;

namespace Inspection {

namespace {

struct PrefixedFamily {
    std::string prefix; // of its keys: the key of the member without a name
    Family const* family;
};

// Kept, as each inspection binds the library again.
std::vector<PrefixedFamily> const& families()
{
    static std::vector<PrefixedFamily> const all = [] {
        std::vector<PrefixedFamily> result;
        for (Family const& family : Catalogue::families())
            result.push_back({Catalogue::inspectUnstored(family, QString()).key, &family});
        return result;
    }();
    return all;
}

struct Member {
    Family const* family;
    QString name;
};

// The member that the library makes `key` from. A name that is not UTF-8 never becomes a key.
std::optional<Member> memberOfAFamily(std::string const& key)
{
    for (auto const& [prefix, family] : families())
        if (std::string const name = key.substr(std::min(prefix.size(), key.size())); absl::StartsWith(key, prefix) && isUtf8(name))
            return Member{family, QString::fromStdString(name)};
    return std::nullopt;
}

// A setter of a family for one of its members; empty for a family without setter.
struct WriterOf {
    QString member;

    template <typename T>
    std::function<void(Value const&)> operator()(Catalogue::KeyedAccessors<T> const& accessors) const
    {
        if (!accessors.set)
            return {};
        return [set = accessors.set, member = member](Value const& value) { set(member, std::get<T>(value)); };
    }
};

PreferenceState withStoredRow(Host::Application const& application, PreferenceState state)
{
    if (state.observation.isStored)
        state.stored = storage(application, *state.observation.store)->find(state.key);
    return state;
}

PreferenceState stateOf(Host::Application const& application, Preference const& row)
{
    return withStoredRow(application, {row.name, row.store, row.dataClass, Catalogue::inspect(row), std::nullopt,
                                       [&row](Value const& value) { row.write(value); }, row.computedDefault});
}

PreferenceState stateOf(Host::Application const& application, std::string const& key, Member const& member)
{
    Family const& family = *member.family;
    return withStoredRow(application, {key, family.store, family.dataClass, Catalogue::inspect(family, member.name), std::nullopt,
                                       std::visit(WriterOf{member.name}, family.accessors)});
}

struct EmptyValue {
    template <typename T>
    Value operator()(Catalogue::Accessors<T> const&) const
    {
        return Value(std::in_place_type<T>);
    }
    template <typename T>
    Value operator()(Catalogue::KeyedAccessors<T> const&) const
    {
        return Value(std::in_place_type<T>);
    }
};

template <typename Row>
KnownKey known(Row const& row)
{
    Value const empty = std::visit(EmptyValue(), row.accessors);
    return {row.store, row.dataClass, storedKind(empty), std::holds_alternative<QStringList>(empty)};
}

std::string accepted(Catalogue::Usable const& usable, Value const& like)
{
    if (usable.isFolder)
        return "the absolute path of a folder";
    return usable.words.empty() ? acceptedForm(like) : absl::StrJoin(usable.words, " or ");
}

} // namespace

char const* stateName(State state)
{
    static constexpr std::array words = {"unset", "set", "set to default", "other kind", "unreadable"};
    return words.at(static_cast<std::size_t>(state));
}

State PreferenceState::state() const
{
    if (!stored)
        return State::unset;
    if (stored->kind != Storage::storedWord(storedKind(observation.value)))
        return State::otherKind;
    if (std::holds_alternative<std::monostate>(stored->value))
        return State::unreadable;
    return observation.value == observation.defaultValue ? State::setToDefault : State::set;
}

std::string PreferenceState::storeName() const { return observation.store ? Catalogue::name(*observation.store) : "memory"; }

std::optional<PreferenceState> preferenceState(Host::Application const& application, std::string const& key)
{
    if (Preference const* const row = Catalogue::findPreference(key))
        return stateOf(application, *row);
    if (std::optional<Member> const member = memberOfAFamily(key))
        return stateOf(application, key, *member);
    return std::nullopt;
}

std::vector<PreferenceState> preferenceStates(Host::Application const& application)
{
    std::vector<PreferenceState> states;
    for (Preference const& row : Catalogue::preferences())
        states.push_back(stateOf(application, row));
    std::vector<Storage::SqliteStorage::Row> rows;
    if (application.productStorage())
        rows = application.productStorage()->rows();
    for (Storage::SqliteStorage::Row const& stored : rows)
        if (std::optional<Member> const member = memberOfAFamily(stored.key))
            states.push_back(stateOf(application, stored.key, *member));
    std::sort(states.begin(), states.end(), [](PreferenceState const& left, PreferenceState const& right) { return left.key < right.key; });
    return states;
}

std::optional<KnownKey> knownKey(std::string const& key)
{
    if (Preference const* const row = Catalogue::findPreference(key))
        return known(*row);
    if (std::optional<Member> const member = memberOfAFamily(key))
        return known(*member->family);
    return std::nullopt;
}

Description describe(PreferenceState const& preference)
{
    Value const& like = preference.observation.value;
    if (Preference const* const row = Catalogue::findPreference(preference.key))
        return {row->purpose, accepted(row->usable, like), row->getterName(), row->setterName()};
    Family const& family = *memberOfAFamily(preference.key).value().family;
    return {purposeOf(preference.key), preference.write ? acceptedForm(like) : "nothing: the editor alone writes it", family.getterName(),
            family.setterName()};
}

std::string purposeOf(std::string const& key)
{
    if (Preference const* const row = Catalogue::findPreference(key))
        return row->purpose;
    std::optional<Member> const member = memberOfAFamily(key);
    return member ? absl::StrReplaceAll(member->family->purpose, {{"`name`", '"' + member->name.toStdString() + '"'}}) : "";
}

std::string whyUnusable(std::string const& key, Value const& value)
{
    Preference const* const row = Catalogue::findPreference(key);
    std::vector<std::string> const words = row ? row->usable.words : std::vector<std::string>();
    if (!words.empty() && std::find(words.begin(), words.end(), text(value)) == words.end())
        return "the library has no such name";
    if (!row || !row->usable.isFolder)
        return {};
    auto const& folder = std::get<QString>(value);
    if (folder.startsWith(QLatin1Char('~')))
        return "only a shell replaces ~, and only outside quotes";
    bool const isWritten = row->computedDefault;
    PathStatus const status = isWritten ? writtenFolderStatus(folder) : readPathStatus(folder);
    bool const isRelative = status.reason == PathReason::relative;
    return isRelative || (isWritten && !status.isUsable) ? remark(status) : std::string();
}

std::string classOf(std::string const& key)
{
    std::optional<KnownKey> const found = knownKey(key);
    return found ? Catalogue::dataClassName(found->dataClass) : "";
}

bool isReserved(std::string const& key)
{
    std::vector<std::string> const& reserved = Catalogue::preferencesWithoutAccessors();
    return std::find(reserved.begin(), reserved.end(), key) != reserved.end();
}

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

} // namespace Inspection
