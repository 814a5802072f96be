// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <shared_mutex>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <variant>
#include <vector>

namespace Studio {

/// A value of a shared store; `std::monostate` where this version cannot read the kind, or the bytes as that kind.
using Value = std::variant<std::monostate, bool, int, std::string, std::vector<unsigned char>>;

/// What the server keeps of a value: the stored word of its kind, and its bytes, which are text but for the kind "bytes".
struct StoredValue {
    std::string kind;
    std::string bytes;
};

/// `value`, which is not `std::monostate`, as the server keeps it.
StoredValue storedValue(Value const& value);
/// What the server keeps, as a value. The server looks into no value, so any bytes may be there.
Value valueOf(std::string_view kind, std::string_view bytes);

/// A key's value with what the server knows of it.
struct Setting {
    Value value;
    bool locked = false;                           ///< Whether users may not change the key; in the studio's layer only.
    std::string changedBy;                         ///< The login that changed it last, or that locked it.
    std::chrono::system_clock::time_point changed; ///< When that was, by the server's clock.
    std::string kind;                              ///< The stored word of a value that cannot be read.
};

/// What a session knows of the server's settings: the user's own, and those that the studio gives to all. Any thread may call.
class Snapshot {
public:
    enum class Layer : std::size_t { user, studio };

    /// What both layers have for a key; null where a layer has nothing.
    struct Found {
        std::shared_ptr<Setting const> user;
        std::shared_ptr<Setting const> studio;
    };

    /// One store's settings as reads find them. Lives as long as the snapshot.
    class Shown {
        friend Snapshot;
        std::unordered_map<std::string, Found> m_keys;
    };

    /// A key's new setting; null where it was removed.
    struct Change {
        Layer layer;
        std::string store;
        std::string key;
        std::shared_ptr<Setting const> setting;
    };

    /// A store, and a key in it.
    using Place = std::pair<std::string, std::string>;

    /// Takes over all of `changes` at once, in place of what it has of the layers in `forgotten`. Returns where a layer has another
    /// value now, or another lock, or none of either any more.
    std::set<Place> apply(std::vector<Change> const& changes, std::vector<Layer> const& forgotten = {});
    /// Shows `change`, of the user's layer, in place of what that has, until `lift` takes it off. `number` tells it from others; of
    /// several that cover one key the last one shows.
    void cover(std::int64_t number, Change const& change);
    /// The same, but `change` shows only while neither the layer nor a cover has something for its key.
    void offer(std::int64_t number, Change const& change);
    /// Takes off what `number` covers the key of `place` with. At the same moment the layer gets `stored`, where there is one.
    void lift(std::int64_t number, Place const& place, std::optional<Change> const& stored = {});
    Found find(std::string const& store, std::string const& key) const;
    /// What the user's layer has for a key, whatever covers it.
    std::shared_ptr<Setting const> inLayer(std::string const& store, std::string const& key) const;
    /// The settings of a store, for `read`.
    Shown const& shown(std::string const& store);
    /// What `look` returns of what both layers have for a key: a read without a copy. A writer waits for it.
    template <typename Look>
    auto read(Shown const& store, std::string const& key, Look const& look) const
    {
        static Found const none;
        std::shared_lock const lock(m_mutex);
        auto const found = store.m_keys.find(key);
        return look(found == store.m_keys.end() ? none : found->second);
    }
    /// The keys for which a layer has something.
    std::set<std::string> keys(std::string const& store) const;

private:
    using Keys = std::map<std::string, std::shared_ptr<Setting const>>;
    using Stores = std::map<std::string, Keys>;

    struct Cover {
        std::int64_t number;
        std::shared_ptr<Setting const> setting;
        bool isOffer;
    };

    void add(Cover const& cover, Change const& change);
    void show(Place const& place);
    std::shared_ptr<Setting const> userAt(Place const& place) const;
    std::array<Stores, 2> takeOut(std::vector<Change> const& changes, std::vector<Layer> const& forgotten);
    static std::shared_ptr<Setting const> findIn(Stores const& stores, std::string const& store, std::string const& key);

    mutable std::shared_mutex m_mutex;
    std::array<Stores, 2> m_layers;
    std::map<Place, std::vector<Cover>> m_covers; // of the user's layer; none is empty
    std::map<std::string, Shown> m_shown;         // what the two above come to
};

} // namespace Studio
