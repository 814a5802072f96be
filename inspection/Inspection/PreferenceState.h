// SPDX-License-Identifier: MIT
//
// A setting as the verbs see it: a preference, or a member of a family such as the favourites of one list, with all that
// is known of it.
#pragma once

#include <Catalogue/Catalogue.h>
#include <Host/Application.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

struct PreferenceState {
    std::string key;
    Catalogue::Store store; ///< Where it belongs; `observation` tells which store a read asks.
    Catalogue::DataClass dataClass;
    Catalogue::InspectedValue observation;
    std::optional<Storage::SqliteStorage::Row> stored;  ///< What the store holds, of whichever kind.
    std::function<void(Catalogue::Value const&)> write; ///< Empty where the library has no setter.
    QString (*computedDefault)() = nullptr;

    /// "product", "common", or "memory" where the value does not outlive the editor.
    std::string storeName() const;
    /// "unset", "set", "set to default", or the obstacle.
    std::string state() const;
    /// Why a read gives the default although something is stored, "other kind" or "unreadable"; empty where it does not.
    std::string obstacle() const;
    /// The obstacles by themselves; at most one is there.
    bool isOfOtherKind() const;
    bool isUnreadable() const;
};

/// The name of a store on the command line.
std::string name(Catalogue::Store store);
/// The store itself; null where there is none yet.
Storage::SqliteStorage* storage(Host::Application const& application, Catalogue::Store store);
/// Where it lies, or would.
std::filesystem::path const& storageFile(Host::Application const& application, Catalogue::Store store);

/// Why an existing store was left out; nullopt where it was opened or is missing.
std::optional<Storage::StorageError> const& storageError(Host::Application const& application, Catalogue::Store store);

/// The setting under `key`. Throws `UserError`, with what may have been meant.
PreferenceState preferenceState(Host::Application const& application, std::string const& key);
/// Whether the library makes `key` from a name, as one of those that the editor keeps under names of its own.
bool isInAFamily(std::string const& key);
/// All preferences, and the members of families that are stored, sorted by key.
std::vector<PreferenceState> preferenceStates(Host::Application const& application);
/// The key of the member `member` of a family. Throws `UserError` where it is not UTF-8.
std::string keyInFamily(Catalogue::Family const& family, std::string const& member);
