// SPDX-License-Identifier: MIT
//
// Whose value of a preference an editor reads, and what that one covers.
#pragma once

#include <Catalogue/Catalogue.h>
#include <Host/Application.h>
#include <Storage/LayeredStorage.h>

#include <chrono>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace Inspection {

struct PreferenceState;

using Storage::Layer;
using LayeredRow = Storage::LayeredStorage::LayeredRow;

/// The word for scripts: "locked", "user", "local" or "studio"; "default" for nullopt.
char const* layerName(std::optional<Layer> layer);
/// The same for people, such as "the user's own".
char const* layerTitle(std::optional<Layer> layer);

/// What is to be told of the layers of a preference.
struct LayerFact {
    std::string what; ///< "layer", "set by", "locked by" or "covers".
    std::string text; ///< On one line.
};

bool operator==(LayerFact const& one, LayerFact const& other);

/// Whose value a read takes, who gave it, and what it covers, each with its time as `time` writes it. `inPlaceOfValues` stands for every
/// value, where it is not null.
std::vector<LayerFact> layerFacts(std::vector<LayeredRow> const& layers, std::string (*time)(std::chrono::system_clock::time_point),
                                  char const* inPlaceOfValues = nullptr);

/// The layers of the opened store; null where its product belongs to no studio.
Storage::LayeredStorage* layers(Host::Application const& application, Catalogue::Store store);
/// What is stored for `key`: first what a read takes, then what that covers. Without a studio at most the row of the workstation's store.
std::vector<LayeredRow> storedLayers(Host::Application const& application, Catalogue::Store store, std::string const& key);
/// All keys for which something is stored.
std::set<std::string> storedKeys(Host::Application const& application, Catalogue::Store store);
/// Removes what the user has stored for `keys`, of one preference. Throws `Storage::StorageError`, for a locked key too.
void removeStored(Host::Application const& application, Catalogue::Store store, std::vector<std::string> const& keys);

/// The keys and values that the library stores for a value of the preference: two of a rational. Stores nothing.
std::vector<std::pair<std::string, Storage::SqliteStorage::Value>> rowsFor(PreferenceState const& preference,
                                                                           Catalogue::Value const& value);

/// Whether the values of `key` go with the user to every workstation of a studio.
bool roams(std::string const& key);
/// The keys that do; with "*" behind what all keys of a family begin with.
std::vector<std::string> roamingKeys();

} // namespace Inspection
