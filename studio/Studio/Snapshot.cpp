// SPDX-License-Identifier: MIT
#include <Studio/Snapshot.h>

#include <Storage/Kind.h>

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

void Snapshot::apply(std::vector<Change> const& changes, std::vector<Layer> const& forgotten)
{
    std::unique_lock const lock(m_mutex);
    for (Layer const layer : forgotten)
        m_layers[static_cast<std::size_t>(layer)].clear();
    for (Change const& change : changes) {
        Keys& keys = m_layers[static_cast<std::size_t>(change.layer)][change.store];
        if (change.setting)
            keys.insert_or_assign(change.key, change.setting);
        else
            keys.erase(change.key);
    }
}

std::shared_ptr<Setting const> Snapshot::findIn(Stores const& stores, std::string const& store, std::string const& key)
{
    auto const keys = stores.find(store);
    if (keys == stores.end())
        return nullptr;
    auto const found = keys->second.find(key);
    return found == keys->second.end() ? nullptr : found->second;
}

Snapshot::Found Snapshot::find(std::string const& store, std::string const& key) const
{
    std::shared_lock const lock(m_mutex);
    return {findIn(m_layers[0], store, key), findIn(m_layers[1], store, key)};
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
