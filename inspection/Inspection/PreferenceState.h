// SPDX-License-Identifier: MIT
//
// Preferences, and members of families such as the favourites of one list, with all that is known of them.
#pragma once

#include <Catalogue/Catalogue.h>
#include <Host/Application.h>
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
    unreadable,   ///< Stored with a value that its kind does not allow, so a read returns the default.
};

/// The word for a state, in tables and JSON: "unset", "set", "set to default", "other kind" or "unreadable".
char const* stateName(State state);

/// One preference, or one member of a family, as the stores hold it now.
struct PreferenceState {
    std::string key;
    Catalogue::Store store; ///< Where it belongs; `observation` has the store that a read asks.
    Catalogue::DataClass dataClass;
    Catalogue::InspectedValue observation;
    std::optional<Storage::SqliteStorage::Row> stored;  ///< The row in the store, of whichever kind.
    std::function<void(Catalogue::Value const&)> write; ///< Calls the library's setter; empty for a preference without one.
    QString (*computedDefault)() = nullptr;             ///< The location that is its default; null for a fixed default.

    State state() const;
    /// Whether a read returns the stored value.
    bool isRead() const { return state() == State::set || state() == State::setToDefault; }
    /// "product", "common", or "memory" for a value that ends with the editor.
    std::string storeName() const;
};

/// The preference or member under `key`; nullopt for a key that the library never asks for.
std::optional<PreferenceState> preferenceState(Host::Application const& application, std::string const& key);
/// All preferences, and the members of families that are stored, sorted by key.
std::vector<PreferenceState> preferenceStates(Host::Application const& application);

/// A key that the library asks for, without a look at the stores.
struct KnownKey {
    Catalogue::Store store;
    Catalogue::DataClass dataClass;
    Storage::Kind kind; ///< The kind that the store keeps its values as.
    bool isList;        ///< Whether the text of the store is that of a list.
};

/// The known key `key`, of a preference or of a member of a family; nullopt for any other.
std::optional<KnownKey> knownKey(std::string const& key);
/// What a known key is for, without a look at the stores.
struct Description {
    std::string purpose; ///< A few English words.
    std::string accepts; ///< What may be set.
    std::string getter;  ///< The function's name in C++.
    std::string setter;  ///< Likewise; empty for a key that the editor alone writes.
};

/// The description of a preference or a member of a family.
Description describe(PreferenceState const& preference);
/// The purpose of a known key; empty for any other.
std::string purposeOf(std::string const& key);
/// Why the editor cannot use `value`, which is of the key's type, although the library takes it; empty where it can.
std::string whyUnusable(std::string const& key, Catalogue::Value const& value);

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
