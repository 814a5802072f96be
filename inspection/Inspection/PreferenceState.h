// SPDX-License-Identifier: MIT
//
// Preferences, members of families such as the favourites of one list, keys that a product declares as its own, and stored keys
// that nobody declared, with all that is known of them.
#pragma once

#include <Catalogue/Catalogue.h>
#include <Host/Application.h>
#include <Host/OwnKeys.h>
#include <Inspection/PathStatus.h>
#include <Inspection/studio/Layers.h>
#include <Storage/Kind.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace Inspection {

/// Whether a preference is stored, and whether a read returns the stored value.
enum class State {
    unset,        ///< Not stored: a read returns the default.
    set,          ///< Stored with a value that is not the default.
    setToDefault, ///< Stored with the default.
    otherKind,    ///< Stored as another kind than a read asks for, so a read returns the default.
    unreadable,   ///< Stored with a value that its kind does not allow, so a read returns the default, or fails.
    undeclared,   ///< Stored, and neither the library's nor declared.
};

/// The word for a state, in tables and JSON: "unset", "set", "set to default", "other kind", "unreadable" or
/// "undeclared".
char const* stateName(State state);

/// One preference, one member of a family, or one other key, as the stores hold it now.
struct PreferenceState {
    std::string key;
    Catalogue::Store store;                        ///< Where it belongs; `observation` has the store that a read asks.
    std::optional<Catalogue::DataClass> dataClass; ///< nullopt for an undeclared key.
    Catalogue::InspectedValue observation;         ///< Of an undeclared key its stored value, where that can be read.
    /// What is stored, of whichever kind and by whom: none, one row, or both halves of a rational. Of several layers that hold a
    /// value it is the one that a read takes.
    std::vector<Storage::SqliteStorage::Row> stored;
    std::function<void(Catalogue::Value const&)> write; ///< Stores a value; empty where only the editor, or nobody, may.
    QString (*computedDefault)() = nullptr;             ///< The location that is its default; null for a fixed default.
    bool readFails = false;                             ///< A read throws, as the stored denominator is 0.
    std::vector<LayeredRow> layers =
        {}; ///< Who has a value: first whose is `stored`, then whose are covered. Of a rational its first half.

    State state() const;
    bool isUndeclared() const { return !dataClass; }
    /// The type of its values; of an undeclared key the stored word of its kind.
    std::string typeName() const;
    /// Whether a read returns the stored value.
    bool isRead() const { return state() == State::set || state() == State::setToDefault; }
    /// Whose value is stored; nullopt where a read gives the library's default.
    std::optional<Layer> layer() const { return layers.empty() ? std::nullopt : std::optional(layers.front().layer); }
    /// "product", "common", or "memory" for a value that ends with the editor.
    std::string storeName() const;
};

/// What is known of `key`; nullopt for a key that the library never asks for, that is not declared, and that neither store holds,
/// and for half of a declared rational. An undeclared key that both stores hold is looked at in the product's.
std::optional<PreferenceState> preferenceState(Host::Application const& application, std::string const& key);
/// The store in which `key` is looked for; nullopt where both are, as for an undeclared key.
std::optional<Catalogue::Store> storeOfKey(std::string const& key);
/// All preferences and declared keys, and whatever else is stored, sorted by key. What is stored is passed to `isLeftOut` first, for a
/// caller that knows some undeclared keys already.
std::vector<PreferenceState> preferenceStates(Host::Application const& application,
                                              std::function<bool(Catalogue::Store, std::vector<LayeredRow> const&)> const& isLeftOut = {});

/// The changes with which `value`, of the type of the preference, is stored: of a rational both halves. Makes none of them. The
/// preference must have `write`, and a store that is opened.
std::vector<Storage::SqliteStorage::Change> changesTo(Host::Application const& application, PreferenceState const& preference,
                                                      Catalogue::Value const& value);

/// A key that the library asks for, or that is declared, without a look at the stores.
struct KnownKey {
    Catalogue::Store store;
    Catalogue::DataClass dataClass;
    Storage::Kind kind; ///< The kind that the store keeps its values as.
    bool isList;        ///< Whether the text of the store is that of a list.
    Host::OwnKeys::Part part = Host::OwnKeys::Part::whole;
};

/// The known key `key`, of a preference, a member of a family, a declared key or half of a declared rational; nullopt for any other.
std::optional<KnownKey> knownKey(std::string const& key);
/// The names of all preferences, and of the keys that are declared one by one.
std::vector<std::string> keyNames();
/// What a known key is for, without a look at the stores.
struct Description {
    std::string purpose; ///< A few English words.
    std::string accepts; ///< What may be set.
    std::string getter;  ///< The function's name in C++.
    std::string setter;  ///< Likewise; empty for a key that the editor alone writes.
};

/// The description of a preference, a member of a family or a declared key; of an undeclared key all but `accepts` is empty.
Description describe(PreferenceState const& preference);
/// The values that the editor can use, among those of its type.
Catalogue::Usable usableOf(PreferenceState const& preference);
/// The purpose of a known key; empty for any other.
std::string purposeOf(std::string const& key);
/// What one declaration tells of its keys, for a listing of declarations.
struct OwnKeyFacts {
    Catalogue::Store store;
    Catalogue::DataClass dataClass;
    Catalogue::Value defaultValue; ///< Of the type of the values.
    std::string accepts;           ///< What may be set.
};

OwnKeyFacts factsOf(Host::OwnKey const& declared);
/// Why the editor cannot use `value`, which is of the key's type, although the library takes it; empty where it can. An empty folder
/// of a declared key stands for none.
std::string whyUnusable(std::string const& key, Catalogue::Value const& value, PathLook const& look = statusOnDisk);

/// The word for the class of `key`; empty for an unknown key.
std::string classOf(std::string const& key);
/// Whether the library has `key` for a preference that it neither reads nor writes.
bool isReserved(std::string const& key);

/// The opened store; null where it was left out.
Storage::SqliteStorage* storage(Host::Application const& application, Catalogue::Store store);
/// The absolute path of the store, also of one that is missing.
std::filesystem::path const& storageFile(Host::Application const& application, Catalogue::Store store);
/// Why an existing store was left out; nullopt where it was opened or is missing.
std::optional<Storage::StorageError> const& storageError(Host::Application const& application, Catalogue::Store store);

} // namespace Inspection
