// SPDX-License-Identifier: MIT
#include <Inspection/KnownKeys.h>

#include "terminal/Escaping.h"

#include <type_traits>
#include <utility>
#include <vector>

using Catalogue::Family;
using Catalogue::Preference;
using Catalogue::Store;

namespace {

template <typename T>
Storage::Kind kindOfType()
{
    if constexpr (std::is_same_v<T, bool> || std::is_same_v<T, int>)
        return Storage::kindOfType<T>();
    else
        return std::is_same_v<T, QByteArray> ? Storage::Kind::bytes : Storage::Kind::text;
}

struct KindOfAccessors {
    template <typename T>
    Storage::Kind operator()(Catalogue::Accessors<T> const&) const
    {
        return kindOfType<T>();
    }
    template <typename T>
    Storage::Kind operator()(Catalogue::KeyedAccessors<T> const&) const
    {
        return kindOfType<T>();
    }
};

struct NamedFamily {
    std::string beginning; // of its keys: the key of the member without a name
    Family const* family;
};

// Asked once: to ask the library binds it anew each time.
std::vector<NamedFamily> const& families()
{
    static std::vector<NamedFamily> const all = [] {
        std::vector<NamedFamily> result;
        for (Family const& family : Catalogue::families())
            result.push_back({Catalogue::inspect(family, QString()).key, &family});
        return result;
    }();
    return all;
}

bool isMember(std::string const& key, std::string const& beginning)
{
    return key.compare(0, beginning.size(), beginning) == 0 && isUtf8(key.substr(beginning.size()));
}

} // namespace

std::optional<KnownKey> knownKey(std::string const& key)
{
    if (Preference const* const row = Catalogue::findPreference(key))
        return KnownKey{row->store, row->dataClass, std::visit(KindOfAccessors(), row->accessors)};
    for (auto const& [beginning, family] : families())
        if (isMember(key, beginning))
            return KnownKey{family->store, family->dataClass, std::visit(KindOfAccessors(), family->accessors)};
    return std::nullopt;
}

std::string classOf(std::string const& key)
{
    std::optional<KnownKey> const known = knownKey(key);
    return known ? Catalogue::dataClassName(known->dataClass) : "";
}
