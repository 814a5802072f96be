// SPDX-License-Identifier: MIT
#include <Inspection/PreferenceState.h>

#include <Inspection/DeclaredKeys.h>
#include <Inspection/PathStatus.h>
#include <Inspection/ValueFormat.h>

#include <absl/strings/match.h>
#include <absl/strings/str_cat.h>
#include <absl/strings/str_join.h>
#include <absl/strings/str_replace.h>

#include <Lumora/Util/ByteConversion.h>
#include <Storage/Batch.h>

#include <algorithm>
#include <array>
#include <set>

using Catalogue::Family;
using Catalogue::Preference;
using Catalogue::Store;
using Catalogue::Usable;
using Catalogue::Value;
using Host::OwnKey;
using Host::OwnKeys;
using StoredRow = Storage::SqliteStorage::Row;

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
        if (absl::StartsWith(key, prefix))
            if (std::string const name = key.substr(prefix.size()); isUtf8(name))
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

void addStoredRow(Host::Application const& application, PreferenceState& state, std::string const& key)
{
    std::vector<LayeredRow> stored = storedLayers(application, *state.observation.store, key);
    if (stored.empty())
        return;
    state.stored.push_back(stored.front().row);
    if (state.layers.empty())
        state.layers = std::move(stored);
}

PreferenceState withStoredRow(Host::Application const& application, PreferenceState state)
{
    if (state.observation.isStored)
        addStoredRow(application, state, state.key);
    return state;
}

PreferenceState stateOf(Host::Application const& application, Preference const& row)
{
    return withStoredRow(application, {row.name,
                                       row.store,
                                       row.dataClass,
                                       Catalogue::inspect(row),
                                       {},
                                       [&row](Value const& value) { row.write(value); },
                                       row.computedDefault});
}

PreferenceState stateOf(Host::Application const& application, std::string const& key, Member const& member)
{
    Family const& family = *member.family;
    return withStoredRow(application, {key,
                                       family.store,
                                       family.dataClass,
                                       Catalogue::inspect(family, member.name),
                                       {},
                                       std::visit(WriterOf{member.name}, family.accessors)});
}

// --- Own keys ---

constexpr Catalogue::DataClass classes[] = {Catalogue::DataClass::roaming, Catalogue::DataClass::local, Catalogue::DataClass::personal,
                                            Catalogue::DataClass::transient};

Catalogue::DataClass dataClassOf(OwnKey const& declared) { return classes[static_cast<std::size_t>(declared.dataClass)]; }

Store storeOf(OwnKey const& declared) { return declared.isCommon ? Store::common : Store::product; }

Value defaultOf(OwnKey const& declared)
{
    if (declared.isFolder)
        return QString::fromStdString(std::get<std::string>(declared.defaultValue));
    return std::visit([](auto const& value) -> Value { return value; }, declared.defaultValue);
}

Usable usableOf(OwnKey const& declared) { return {declared.isFolder, declared.accepts}; }

// The keys of its rows: a rational has two.
std::vector<std::string> storedKeys(OwnKeys::Match const& match)
{
    bool const isRational = std::holds_alternative<OwnKey::Rational>(match.declaration->defaultValue);
    return isRational ? std::vector<std::string>{match.key + "_N", match.key + "_D"} : std::vector<std::string>{match.key};
}

void writeOwn(std::string const& key, bool isCommon, Value const& value)
{
    std::visit([&](auto const& typed) { ::write(key, typed, isCommon); }, value);
}

// A rational is stored whole or not at all.
std::function<void(Value const&)> writerOf(std::string const& key, bool isCommon, Storage::SqliteStorage* opened)
{
    return [=](Value const& value) {
        std::optional<Storage::Batch> together;
        if (opened)
            together.emplace(*opened);
        writeOwn(key, isCommon, value);
        if (together)
            together->commit();
    };
}

PreferenceState stateOf(Host::Application const& application, OwnKeys::Match const& match)
{
    OwnKey const& declared = *match.declaration;
    Value const defaultValue = defaultOf(declared);
    Store const store = storeOf(declared);
    Storage::SqliteStorage* const opened = storage(application, store);
    PreferenceState state = {match.key,
                             store,
                             dataClassOf(declared),
                             {defaultValue, defaultValue, store, match.key, false},
                             {},
                             writerOf(match.key, declared.isCommon, opened)};
    for (std::string const& key : storedKeys(match))
        addStoredRow(application, state, key);
    state.observation.isStored = !state.stored.empty();
    try {
        auto const read = [&](auto const& typed) -> Value { return ::read(match.key, typed, declared.isCommon); };
        state.observation.value = std::visit(read, defaultValue);
    } catch (boost::bad_rational const&) {
        state.readFails = true;
    }
    return state;
}

std::string whyUnusable(OwnKey const& declared, Value const& value)
{
    auto const isRefused = [&](std::string const& word) {
        return std::find(declared.accepts.begin(), declared.accepts.end(), word) == declared.accepts.end();
    };
    std::vector<std::string> words;
    if (auto const* const list = std::get_if<QStringList>(&value))
        for (QString const& element : *list)
            words.push_back(element.toStdString());
    else
        words.push_back(text(value));
    if (!declared.accepts.empty() && std::any_of(words.begin(), words.end(), isRefused))
        return "the product does not accept it";
    auto const* const number = std::get_if<int>(&value);
    if (number && declared.range && (*number < declared.range->first || *number > declared.range->second))
        return "it is outside the range that the product accepts";
    return {};
}

// --- Undeclared keys ---

struct ShownValue {
    Value operator()(std::monostate) const { return std::string(); }
    Value operator()(std::vector<unsigned char> const& bytes) const { return Lumora::Util::VectorByteToQByteArray(bytes); }
    template <typename T>
    Value operator()(T const& value) const
    {
        return value;
    }
};

PreferenceState undeclared(Store store, std::vector<LayeredRow> const& stored)
{
    StoredRow const& row = stored.front().row;
    Value const value = std::visit(ShownValue(), row.value);
    return {row.key, store, std::nullopt, {value, value, store, row.key, true}, {row}, {}, nullptr, false, stored};
}

std::optional<PreferenceState> undeclared(Host::Application const& application, std::string const& key, Store store)
{
    std::vector<LayeredRow> const stored = storedLayers(application, store, key);
    if (stored.empty())
        return std::nullopt;
    return undeclared(store, stored);
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

std::string accepted(Usable const& usable, Value const& like)
{
    if (usable.isFolder)
        return "the absolute path of a folder";
    return usable.words.empty() ? acceptedForm(like) : absl::StrJoin(usable.words, " or ");
}

std::string accepted(OwnKey const& declared, Value const& like)
{
    if (declared.range)
        return absl::StrCat("a whole number from ", declared.range->first, " to ", declared.range->second);
    return accepted(usableOf(declared), like);
}

std::string whyUnusableFolder(QString const& folder, bool isWritten, PathLook const& look)
{
    if (folder.startsWith(QLatin1Char('~')))
        return "only a shell replaces ~, and only outside quotes";
    PathStatus const status = look(folder, isWritten ? PathUse::written : PathUse::read);
    bool const isRelative = status.reason == PathReason::relative;
    return isRelative || (isWritten && !status.isUsable) ? remark(status) : std::string();
}

} // namespace

char const* stateName(State state)
{
    static constexpr std::array words = {"unset", "set", "set to default", "other kind", "unreadable", "undeclared"};
    return words.at(static_cast<std::size_t>(state));
}

State PreferenceState::state() const
{
    auto const isUnreadable = [](StoredRow const& row) { return std::holds_alternative<std::monostate>(row.value); };
    auto const isOfOtherKind = [&](StoredRow const& row) { return row.kind != Storage::storedWord(storedKind(observation.value)); };
    if (stored.empty())
        return State::unset;
    if (!isUndeclared() && std::any_of(stored.begin(), stored.end(), isOfOtherKind))
        return State::otherKind;
    if (readFails || std::any_of(stored.begin(), stored.end(), isUnreadable))
        return State::unreadable;
    if (isUndeclared())
        return State::undeclared;
    return observation.value == observation.defaultValue ? State::setToDefault : State::set;
}

std::string PreferenceState::typeName() const { return isUndeclared() ? stored.front().kind : Inspection::typeName(observation.value); }

std::string PreferenceState::storeName() const { return observation.store ? Catalogue::name(*observation.store) : "memory"; }

std::optional<PreferenceState> preferenceState(Host::Application const& application, std::string const& key)
{
    if (Preference const* const row = Catalogue::findPreference(key))
        return stateOf(application, *row);
    if (std::optional<Member> const member = memberOfAFamily(key))
        return stateOf(application, key, *member);
    if (std::optional<OwnKeys::Match> const match = ownKeys().find(key))
        return match->part == OwnKeys::Part::whole ? std::optional(stateOf(application, *match)) : std::nullopt;
    for (Store const store : Catalogue::bothStores)
        if (std::optional<PreferenceState> found = undeclared(application, key, store))
            return found;
    return std::nullopt;
}

std::optional<Store> storeOfKey(std::string const& key)
{
    if (Preference const* const row = Catalogue::findPreference(key))
        return row->store;
    if (std::optional<Member> const member = memberOfAFamily(key))
        return member->family->store;
    std::optional<OwnKeys::Match> const match = ownKeys().find(key);
    return match ? std::optional(storeOf(*match->declaration)) : std::nullopt;
}

namespace {

// What the stored key of these layers belongs to; nullopt for that of a preference, or in a store in which it is not looked for.
std::optional<PreferenceState> stateBehind(Host::Application const& application, Store store, std::vector<LayeredRow> const& stored)
{
    std::string const& key = stored.front().row.key;
    if (Catalogue::findPreference(key))
        return std::nullopt;
    if (std::optional<Member> const member = memberOfAFamily(key))
        return member->family->store == store ? std::optional(stateOf(application, key, *member)) : std::nullopt;
    if (std::optional<OwnKeys::Match> const match = ownKeys().find(key))
        return storeOf(*match->declaration) == store ? std::optional(stateOf(application, *match)) : std::nullopt;
    return undeclared(store, stored);
}

} // namespace

std::vector<PreferenceState> preferenceStates(Host::Application const& application,
                                              std::function<bool(Store, std::vector<LayeredRow> const&)> const& isLeftOut)
{
    std::vector<PreferenceState> states;
    for (Preference const& row : Catalogue::preferences())
        states.push_back(stateOf(application, row));
    std::set<std::string> own; // a rational stands in two rows
    for (OwnKey const& declared : ownKeys().all())
        if (!declared.isPrefix && own.insert(declared.key).second)
            states.push_back(stateOf(application, {&declared, declared.key, OwnKeys::Part::whole}));
    for (Store const store : Catalogue::bothStores)
        for (std::vector<LayeredRow> const& stored : allStoredLayers(application, store))
            if (std::optional<PreferenceState> state =
                    isLeftOut && isLeftOut(store, stored) ? std::nullopt : stateBehind(application, store, stored);
                state && (state->isUndeclared() || !ownKeys().find(state->key) || own.insert(state->key).second))
                states.push_back(*std::move(state));
    std::stable_sort(states.begin(), states.end(),
                     [](PreferenceState const& left, PreferenceState const& right) { return left.key < right.key; });
    return states;
}

std::vector<Storage::SqliteStorage::Change> changesTo(Host::Application const& application, PreferenceState const& preference,
                                                      Value const& value)
{
    Storage::Batch collected(*storage(application, *preference.observation.store));
    if (ownKeys().find(preference.key))
        writeOwn(preference.key, preference.store == Store::common, value); // its `write` has a batch already
    else
        preference.write(value);
    return collected.changes();
}

std::optional<KnownKey> knownKey(std::string const& key)
{
    if (Preference const* const row = Catalogue::findPreference(key))
        return known(*row);
    if (std::optional<Member> const member = memberOfAFamily(key))
        return known(*member->family);
    if (std::optional<OwnKeys::Match> const match = ownKeys().find(key)) {
        Value const like = defaultOf(*match->declaration);
        return KnownKey{storeOf(*match->declaration), dataClassOf(*match->declaration), storedKind(like),
                        std::holds_alternative<QStringList>(like), match->part};
    }
    return std::nullopt;
}

std::vector<std::string> keyNames()
{
    std::vector<std::string> names;
    for (Preference const& row : Catalogue::preferences())
        names.emplace_back(row.name);
    for (OwnKey const& declared : ownKeys().all())
        if (!declared.isPrefix)
            names.push_back(declared.key);
    return names;
}

Description describe(PreferenceState const& preference)
{
    Value const& like = preference.observation.value;
    if (Preference const* const row = Catalogue::findPreference(preference.key))
        return {row->purpose, accepted(row->usable, like), row->getterName(), row->setterName()};
    if (preference.isUndeclared())
        return {"", "nothing: it is not declared", "", ""};
    if (std::optional<OwnKeys::Match> const match = ownKeys().find(preference.key))
        return {match->declaration->purpose, accepted(*match->declaration, like), "read", "write"};
    Family const& family = *memberOfAFamily(preference.key).value().family;
    return {purposeOf(preference.key), preference.write ? acceptedForm(like) : "nothing: the editor alone writes it", family.getterName(),
            family.setterName()};
}

Usable usableOf(PreferenceState const& preference)
{
    if (Preference const* const row = Catalogue::findPreference(preference.key))
        return row->usable;
    std::optional<OwnKeys::Match> const match =
        preference.isUndeclared() || memberOfAFamily(preference.key) ? std::nullopt : ownKeys().find(preference.key);
    return match ? usableOf(*match->declaration) : Usable();
}

OwnKeyFacts factsOf(OwnKey const& declared)
{
    Value const defaultValue = defaultOf(declared);
    return {storeOf(declared), dataClassOf(declared), defaultValue, accepted(declared, defaultValue)};
}

std::string purposeOf(std::string const& key)
{
    if (Preference const* const row = Catalogue::findPreference(key))
        return row->purpose;
    if (std::optional<Member> const member = memberOfAFamily(key))
        return absl::StrReplaceAll(member->family->purpose, {{"`name`", '"' + member->name.toStdString() + '"'}});
    std::optional<OwnKeys::Match> const match = ownKeys().find(key);
    return match ? match->declaration->purpose : "";
}

std::string whyUnusable(std::string const& key, Value const& value, PathLook const& look)
{
    Preference const* const row = Catalogue::findPreference(key);
    std::vector<std::string> const words = row ? row->usable.words : std::vector<std::string>();
    if (!words.empty() && std::find(words.begin(), words.end(), text(value)) == words.end())
        return "the library has no such name";
    if (row)
        return row->usable.isFolder ? whyUnusableFolder(std::get<QString>(value), row->computedDefault, look) : std::string();
    std::optional<OwnKeys::Match> const match = memberOfAFamily(key) ? std::nullopt : ownKeys().find(key);
    if (!match)
        return {};
    if (!match->declaration->isFolder)
        return whyUnusable(*match->declaration, value);
    auto const& folder = std::get<QString>(value);
    return folder.isEmpty() ? std::string() : whyUnusableFolder(folder, true, look);
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
