// SPDX-License-Identifier: MIT
#include <Inspection/DeclaredKeys.h>

#include <Catalogue/Catalogue.h>

#include <absl/strings/match.h>
#include <absl/strings/str_cat.h>

#include <algorithm>
#include <variant>

using Host::OwnKey;
using Host::OwnKeyError;

namespace Inspection {

namespace {

Host::OwnKeys& declared()
{
    static Host::OwnKeys keys;
    return keys;
}

// The library's keys: those of preferences, with and without accessors, and what the keys of families begin with.
struct LibraryKeys {
    std::vector<std::string> exact = Catalogue::preferencesWithoutAccessors();
    std::vector<std::string> prefixes;

    LibraryKeys()
    {
        for (Catalogue::Preference const& row : Catalogue::preferences())
            exact.emplace_back(row.name);
        for (Catalogue::Family const& family : Catalogue::families())
            prefixes.push_back(Catalogue::inspectUnstored(family, QString()).key);
    }

    bool hasKey(std::string const& key) const
    {
        auto const begins = [&](std::string const& prefix) { return absl::StartsWith(key, prefix); };
        return std::find(exact.begin(), exact.end(), key) != exact.end() || std::any_of(prefixes.begin(), prefixes.end(), begins);
    }

    // A key that begins with `prefix`, or what such keys begin with; empty for none.
    std::string below(std::string const& prefix) const
    {
        for (std::vector<std::string> const* const keys : {&exact, &prefixes})
            for (std::string const& key : *keys)
                if (absl::StartsWith(key, prefix))
                    return key;
        return hasKey(prefix) ? prefix : "";
    }
};

void check(OwnKey const& key, LibraryKeys const& library)
{
    if (!key.isPrefix && library.hasKey(key.key))
        throw OwnKeyError(key, "that is the library's own; choose another name");
    // A prefix covers its halves as well.
    if (!key.isPrefix && std::holds_alternative<OwnKey::Rational>(key.defaultValue))
        for (std::string const& half : {key.key + "_N", key.key + "_D"})
            if (library.hasKey(half))
                throw OwnKeyError(key, absl::StrCat("whose half ", half, " is the library's own; choose another name"));
    if (std::string const covered = key.isPrefix ? library.below(key.key) : ""; !covered.empty())
        throw OwnKeyError(key, absl::StrCat("that covers ", covered, ", which is the library's own; choose another prefix"));
    if (auto const* const list = std::get_if<QStringList>(&key.defaultValue); list && !Catalogue::survivesRoundTrip(*list))
        throw OwnKeyError(key, "with a default that holds the separator of stored lists; give other elements");
}

} // namespace

void declareOwnKeys(Host::OwnKeys const& keys)
{
    if (!keys.all().empty()) {
        LibraryKeys const library;
        for (OwnKey const& key : keys.all())
            check(key, library);
    }
    declared() = keys;
}

std::shared_ptr<Host::ProductFile> readProductFile(std::filesystem::path const& file)
{
    auto product = std::make_shared<Host::ProductFile>(file);
    try {
        declareOwnKeys(product->ownKeys());
        return product;
    } catch (OwnKeyError const& error) {
        throw Host::ProductFileError(error.what());
    }
}

Host::OwnKeys const& ownKeys() { return declared(); }

} // namespace Inspection
