// SPDX-License-Identifier: MIT
//
// The preferences as tools see them: one row for each, made from the addresses of the library's own functions, so that
// a tool reaches a preference the way the editor does. Defaults, keys and whether a preference is stored are observed
// at the stores, never restated here.
//
// To observe, the library is bound to other stores for a moment. So nothing here may run beside another call of the
// library: this is for tools, not for the editor itself.
#pragma once

#include <Settings/Settings.h>

#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace Catalogue {

enum class Store { product, common };

/// A value of a preference, in the type that the library's functions take.
using Value = std::variant<bool, int, std::string, QString, QByteArray, QStringList>;

/// The getter and the setter of a preference with values of type `T`.
template <typename T>
struct Accessors {
    T (*get)();
    void (*set)(T const&);
};

/// One preference.
struct Row {
    char const* name;
    Store store;
    std::variant<Accessors<bool>, Accessors<int>, Accessors<std::string>, Accessors<QString>, Accessors<QByteArray>, Accessors<QStringList>>
        accessors;                          ///< In the order of the alternatives of `Value`.
    QString (*computedDefault)() = nullptr; ///< The location that a read falls back on, where it is computed.

    /// What the getter gives.
    Value read() const;
    /// Hands `value` to the setter. Its type must be the row's: `std::bad_variant_access` otherwise.
    void write(Value const& value) const;
};

/// One location.
struct Place {
    char const* name; ///< Of the function, without namespace.
    QString (*get)();
};

/// What a look at the stores tells of a preference.
struct Observation {
    Value value;                ///< What a read gives now.
    Value defaultValue;         ///< What a read gives where nothing is stored.
    std::optional<Store> store; ///< The store that a read asks; none where the value is kept in memory.
    std::string key;            ///< The key that it asks for.
    bool isStored = false;      ///< Whether the store holds the key, with a value of whichever kind.
};

/// All preferences that have accessors, in the order of the library's header.
std::vector<Row> const& preferences();
/// The preference called `name`; null where there is none.
Row const* findPreference(std::string const& name);
/// Preferences that the library has a key and a default for, but no accessors.
std::vector<std::string> const& preferencesWithoutAccessors();

/// The locations that preferences fall back on.
std::vector<Place> const& places();
/// The name of the location that `function`, one of those in `places`, computes.
char const* placeName(QString (*function)());

/// Looks at a preference in the stores that the library is bound to.
Observation observe(Row const& row);
/// Removes what is stored for a preference, so that reads give the default again. Whether anything was stored.
bool unset(Row const& row);

/// Whether a list comes back from a store as it was written: empty elements are lost, and the library's separator
/// splits an element that holds it.
bool comesBackUnchanged(QStringList const& list);

} // namespace Catalogue
