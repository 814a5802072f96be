// SPDX-License-Identifier: MIT
#include <Inspection/studio/Layers.h>

#include <Inspection/DeclaredKeys.h>
#include <Inspection/OneLine.h>
#include <Inspection/PreferenceState.h>
#include <Inspection/RowDifference.h>
#include <TestKit/MemoryStorage.h>
#include <TestKit/ScopedBinding.h>

#include <absl/strings/str_cat.h>

#include <array>
#include <utility>

using Catalogue::Store;

namespace Inspection {

namespace {

struct Words {
    char const* name;
    char const* title;
};

constexpr std::array<Words, 5> words = {{{"locked", "the studio's, which has locked it"},
                                         {"user", "the user's own, on every workstation of the studio"},
                                         {"local", "this workstation's"},
                                         {"studio", "the studio's, for who has no other"},
                                         {"default", "the library's default"}}};

Words const& wordsOf(std::optional<Layer> layer) { return words.at(layer ? static_cast<std::size_t>(*layer) : words.size() - 1); }

} // namespace

char const* layerName(std::optional<Layer> layer) { return wordsOf(layer).name; }

char const* layerTitle(std::optional<Layer> layer) { return wordsOf(layer).title; }

bool operator==(LayerFact const& one, LayerFact const& other) { return one.what == other.what && one.text == other.text; }

std::vector<LayerFact> layerFacts(std::vector<LayeredRow> const& layers, std::string (*time)(std::chrono::system_clock::time_point),
                                  char const* inPlaceOfValues)
{
    std::optional<Layer> const inForce = layers.empty() ? std::nullopt : std::optional(layers.front().layer);
    std::vector<LayerFact> facts = {{"layer", layerTitle(inForce)}};
    if (std::string const by = layers.empty() ? "" : layers.front().by; !by.empty())
        facts.push_back({inForce == Layer::locked ? "locked by" : "set by", onOneLine(by)});
    for (std::size_t covered = 1; covered < layers.size(); ++covered) {
        auto const& [layer, row, by] = layers[covered];
        facts.push_back({"covers", absl::StrCat(inPlaceOfValues ? inPlaceOfValues : onOneLine(row, ""), " (", layerTitle(layer), ", of ",
                                                time(row.changed), by.empty() ? "" : " by " + onOneLine(by), ")")});
    }
    return facts;
}

Storage::LayeredStorage* layers(Host::Application const& application, Store store)
{
    return store == Store::common ? application.commonLayers() : application.productLayers();
}

std::vector<LayeredRow> storedLayers(Host::Application const& application, Store store, std::string const& key)
{
    Storage::LayeredStorage const* const layered = layers(application, store);
    Storage::SqliteStorage const* const local = storage(application, store);
    std::vector<LayeredRow> result;
    for (LayeredRow& stored : layered ? layered->layersOf(key) : std::vector<LayeredRow>{{Layer::local, {key, {}, {}, {}}, {}}}) {
        if (stored.layer != Layer::local)
            result.push_back(std::move(stored));
        else if (std::optional<Storage::SqliteStorage::Row> row = local ? local->find(key) : std::nullopt)
            result.push_back({Layer::local, *std::move(row), {}});
    }
    return result;
}

std::set<std::string> storedKeys(Host::Application const& application, Store store)
{
    std::set<std::string> keys;
    if (Storage::SqliteStorage const* const local = storage(application, store))
        for (Storage::SqliteStorage::Row const& row : local->rows())
            keys.insert(row.key);
    if (Storage::LayeredStorage const* const layered = layers(application, store))
        for (std::string const& key : layered->sharedKeys())
            keys.insert(key);
    return keys;
}

void removeStored(Host::Application const& application, Store store, std::vector<std::string> const& keys)
{
    if (Storage::LayeredStorage* const layered = layers(application, store)) {
        for (std::string const& key : keys)
            layered->remove(key);
        return;
    }
    std::vector<Storage::SqliteStorage::Change> together;
    for (std::string const& key : keys)
        together.push_back({key});
    storage(application, store)->apply(together);
}

std::vector<std::pair<std::string, Storage::SqliteStorage::Value>> rowsFor(PreferenceState const& preference, Catalogue::Value const& value)
{
    auto const memory = std::make_shared<TestKit::MemoryStorage>();
    TestKit::ScopedBinding const binding({s_instance.productInfo, memory, memory, s_instance.resourcesRoot});
    preference.write(value);
    std::vector<std::pair<std::string, Storage::SqliteStorage::Value>> rows;
    for (auto const& [key, stored] : memory->values())
        rows.emplace_back(key, std::visit([](auto const& typed) -> Storage::SqliteStorage::Value { return typed; }, stored));
    return rows;
}

bool roams(std::string const& key)
{
    std::optional<KnownKey> const known = knownKey(key);
    return known && known->dataClass == Catalogue::DataClass::roaming;
}

std::vector<std::string> roamingKeys()
{
    std::vector<std::string> keys;
    for (Catalogue::Preference const& row : Catalogue::preferences())
        if (row.dataClass == Catalogue::DataClass::roaming)
            keys.emplace_back(row.name);
    for (Catalogue::Family const& family : Catalogue::families())
        if (family.dataClass == Catalogue::DataClass::roaming)
            keys.push_back(Catalogue::inspectUnstored(family, QString()).key + '*');
    for (Host::OwnKey const& declared : ownKeys().all())
        if (declared.dataClass == Host::OwnKey::Class::roaming)
            keys.push_back(declared.isPrefix ? declared.key + '*' : declared.key);
    return keys;
}

} // namespace Inspection
