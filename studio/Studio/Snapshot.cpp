// SPDX-License-Identifier: MIT
#include <Studio/Snapshot.h>

#include <Storage/Kind.h>

#include <algorithm>
#include <charconv>
#include <mutex>

namespace Studio {

using Storage::Kind;

namespace {

Value boolean(std::string_view text)
{
    if (text == "true" || text == "false")
        return text == "true";
    return {};
}

Value integer(std::string_view text)
{
    int number = 0;
    auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error == std::errc() && end == text.data() + text.size())
        return number;
    return {};
}

struct Writer {
    StoredValue operator()(std::monostate) const { return {}; }
    StoredValue operator()(bool value) const { return {storedWord(Kind::boolean), value ? "true" : "false"}; }
    StoredValue operator()(int value) const { return {storedWord(Kind::integer), std::to_string(value)}; }
    StoredValue operator()(std::string const& value) const { return {storedWord(Kind::text), value}; }
    StoredValue operator()(std::vector<unsigned char> const& value) const
    {
        return {storedWord(Kind::bytes), std::string(value.begin(), value.end())};
    }
};

// Who changed it, and when, makes no difference to those who read.
bool isSame(std::shared_ptr<Setting const> const& one, std::shared_ptr<Setting const> const& other)
{
    return one && other ? one->value == other->value && one->locked == other->locked : one == other;
}

} // namespace

StoredValue storedValue(Value const& value) { return std::visit(Writer(), value); }

Value valueOf(std::string_view kind, std::string_view bytes)
{
    std::optional<Kind> const known = Storage::kindFromWord(kind);
    if (!known)
        return {};
    switch (*known) {
    case Kind::boolean:
        return boolean(bytes);
    case Kind::integer:
        return integer(bytes);
    case Kind::text:
        return std::string(bytes);
    case Kind::bytes:
        return std::vector<unsigned char>(bytes.begin(), bytes.end());
    }
    return {};
}

std::set<Snapshot::Place> Snapshot::apply(std::vector<Change> const& changes, std::vector<Layer> const& forgotten)
{
    std::unique_lock const lock(m_mutex);
    std::array<Stores, 2> const before = takeOut(changes, forgotten);
    for (Change const& change : changes)
        if (change.setting)
            m_layers[static_cast<std::size_t>(change.layer)][change.store].insert_or_assign(change.key, change.setting);
    std::set<Place> changed;
    for (std::size_t layer = 0; layer < before.size(); ++layer)
        for (auto const& [store, keys] : before[layer])
            for (auto const& [key, setting] : keys) {
                if (!isSame(setting, findIn(m_layers[layer], store, key)))
                    changed.emplace(store, key);
                show({store, key});
            }
    return changed;
}

// Removes what is changed or forgotten. Returns what there was, with null where there was nothing.
std::array<Snapshot::Stores, 2> Snapshot::takeOut(std::vector<Change> const& changes, std::vector<Layer> const& forgotten)
{
    std::array<Stores, 2> before;
    for (Layer const layer : forgotten)
        before[static_cast<std::size_t>(layer)].swap(m_layers[static_cast<std::size_t>(layer)]);
    for (Change const& change : changes) {
        auto const layer = static_cast<std::size_t>(change.layer);
        before[layer][change.store].emplace(change.key, findIn(m_layers[layer], change.store, change.key));
        m_layers[layer][change.store].erase(change.key);
    }
    return before;
}

std::shared_ptr<Setting const> Snapshot::findIn(Stores const& stores, std::string const& store, std::string const& key)
{
    auto const keys = stores.find(store);
    if (keys == stores.end())
        return nullptr;
    auto const found = keys->second.find(key);
    return found == keys->second.end() ? nullptr : found->second;
}

void Snapshot::cover(std::int64_t number, Change const& change) { add({number, change.setting, false}, change); }

void Snapshot::offer(std::int64_t number, Change const& change) { add({number, change.setting, true}, change); }

void Snapshot::add(Cover const& cover, Change const& change)
{
    std::unique_lock const lock(m_mutex);
    m_covers[{change.store, change.key}].push_back(cover);
    show({change.store, change.key});
}

void Snapshot::lift(std::int64_t number, Place const& place, std::optional<Change> const& stored)
{
    std::unique_lock const lock(m_mutex);
    std::vector<Cover>& covers = m_covers[place];
    covers.erase(std::remove_if(covers.begin(), covers.end(), [&](Cover const& cover) { return cover.number == number; }), covers.end());
    if (covers.empty())
        m_covers.erase(place);
    if (stored && stored->setting)
        m_layers[0][stored->store].insert_or_assign(stored->key, stored->setting);
    else if (stored)
        m_layers[0][stored->store].erase(stored->key);
    show(place);
}

void Snapshot::show(Place const& place)
{
    auto const& [store, key] = place;
    Found const found{userAt(place), findIn(m_layers[1], store, key)};
    auto& keys = m_shown[store].m_keys;
    if (found.user || found.studio)
        keys.insert_or_assign(key, found);
    else
        keys.erase(key);
}

std::shared_ptr<Setting const> Snapshot::userAt(Place const& place) const
{
    std::shared_ptr<Setting const> inLayer = findIn(m_layers[0], place.first, place.second);
    auto const covers = m_covers.find(place);
    if (covers == m_covers.end())
        return inLayer;
    auto const last = std::find_if(covers->second.rbegin(), covers->second.rend(), [](Cover const& cover) { return !cover.isOffer; });
    if (last != covers->second.rend())
        return last->setting;
    return inLayer ? inLayer : covers->second.back().setting;
}

Snapshot::Found Snapshot::find(std::string const& store, std::string const& key) const
{
    std::shared_lock const lock(m_mutex);
    auto const keys = m_shown.find(store);
    if (keys == m_shown.end())
        return {};
    auto const found = keys->second.m_keys.find(key);
    return found == keys->second.m_keys.end() ? Found() : found->second;
}

std::shared_ptr<Setting const> Snapshot::inLayer(std::string const& store, std::string const& key) const
{
    std::shared_lock const lock(m_mutex);
    return findIn(m_layers[0], store, key);
}

Snapshot::Shown const& Snapshot::shown(std::string const& store)
{
    std::unique_lock const lock(m_mutex);
    return m_shown[store];
}

std::set<std::string> Snapshot::keys(std::string const& store) const
{
    std::shared_lock const lock(m_mutex);
    std::set<std::string> result;
    for (Stores const& stores : m_layers)
        if (auto const found = stores.find(store); found != stores.end())
            for (auto const& [key, setting] : found->second)
                result.insert(key);
    return result;
}

} // namespace Studio
