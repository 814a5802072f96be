// SPDX-License-Identifier: MIT
//
// The preferences and locations as tools see them: one row for each, made from the addresses of the library's own
// functions, so that a tool reaches them the way the editor does. Defaults, keys, whether a preference is stored and
// what a location asks of the product are observed at the collaborators, never restated here.
//
// To observe, the library is bound to other collaborators for a moment. So nothing here may run beside another call of
// the library: this is for tools, not for the editor itself.
#pragma once

#include <Settings/Settings.h>

#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace Catalogue {

enum class Store { product, common };

/// The word for a store: "product" or "common".
std::string name(Store store);

/// What a preference is when settings leave the machine: for another machine of the user, or for somebody who helps.
enum class DataClass {
    roaming,   ///< The user's taste: it holds on any machine.
    local,     ///< Fits this machine: folders, windows, updates of the program.
    personal,  ///< Tells who the user is or what the user works on.
    transient, ///< What was last used or counted: the editor comes to it again by itself.
};

/// The word for a class: "roaming", "local", "personal" or "transient".
char const* dataClassName(DataClass dataClass);

/// A value of a preference, in the type that the library's functions take.
using Value = std::variant<bool, int, std::string, QString, QByteArray, QStringList>;

/// The getter and the setter of a preference with values of type `T`.
template <typename T>
struct Accessors {
    T (*get)();
    std::variant<void (*)(T const&), void (*)(T)> set;
};

/// One preference.
struct Preference {
    char const* name;    ///< Its key.
    char const* purpose; ///< What it is for, in a few words.
    Store store;
    DataClass dataClass;
    std::variant<Accessors<bool>, Accessors<int>, Accessors<std::string>, Accessors<QString>, Accessors<QByteArray>, Accessors<QStringList>>
        accessors;                          ///< In the order of the alternatives of `Value`.
    QString (*computedDefault)() = nullptr; ///< The location that a read falls back on, where it is computed.

    /// What the getter gives.
    Value read() const;
    /// Hands `value` to the setter. Its type must be the row's: `std::bad_variant_access` otherwise.
    void write(Value const& value) const;
};

/// The getter and the setter, if there is one, of values of type `T` under keys that are made from a name.
template <typename T>
struct KeyedAccessors {
    T (*get)(QString);
    void (*set)(QString, T const&);
};

/// Settings that the editor keeps under names of its own choice.
struct Family {
    char const* name;    ///< Of the getter, without namespace.
    char const* purpose; ///< What they are for, in a few words.
    Store store;
    DataClass dataClass; ///< Of each member.
    std::variant<KeyedAccessors<QByteArray>, KeyedAccessors<QStringList>> accessors;

    /// What the getter gives for the member called `member`.
    Value read(QString const& member) const;
};

/// What a location starts from.
enum class Root {
    movies,    ///< The movies location of the editor's platform library.
    music,     ///< The music location, likewise.
    cache,     ///< The cache location, likewise.
    data,      ///< Qt's generic data location.
    resources, ///< The resources root of the binding.
    nothing,   ///< The text is fixed.
};

/// What the editor does with a location.
enum class Use {
    fallback, ///< Takes it for a folder preference that is not stored.
    written,  ///< Writes there, and makes the folder first where it is missing.
    shipped,  ///< Reads what the product brings along.
    fragment, ///< Joins it to a folder of its choice: by itself it is no place.
    embedded, ///< Finds it in the application's own program, not on disk.
};

/// The word for a root: "movies", "music", "cache", "data", "resources" or "nothing".
char const* rootName(Root root);
/// What the editor does, in words for the user: "default of a preference", "written to", "shipped with the product",
/// "joined to a folder by the editor" or "inside the editor's program".
char const* useName(Use use);

/// One location.
struct Location {
    char const* name;    ///< Of the function, without namespace.
    char const* purpose; ///< What lies there, in a few words.
    Root root;
    Use use;
    std::variant<QString (*)(), std::string (*)(), QString (*)(std::string const&), std::string (*)(std::string const&),
                 QString (*)(Settings::Notifications)>
        function;
    /// What to ask it about, for a listing: an example where it takes any name, and every answer where it takes a few.
    /// Empty where it takes nothing.
    std::vector<std::string> arguments = {};

    /// What the function gives now, for `argument` where it takes one: a name in UTF-8, or "finish" or "error" for a
    /// notification, `std::out_of_range` for another.
    QString path(std::string const& argument = {}) const;
};

/// What a look at the stores tells of a preference.
struct InspectedValue {
    Value value;                ///< What a read gives now.
    Value defaultValue;         ///< What a read gives where nothing is stored.
    std::optional<Store> store; ///< The store that a read asks; none where the value is kept in memory.
    std::string key;            ///< The key that it asks for.
    bool isStored = false;      ///< Whether the store holds the key, with a value of whichever kind.
};

/// All preferences that have accessors, in the order of the library's header.
std::vector<Preference> const& preferences();
/// The preference called `name`; null where there is none.
Preference const* findPreference(std::string const& name);
/// Preferences that the library has a key and a default for, but no accessors.
std::vector<std::string> const& preferencesWithoutAccessors();

/// The settings under names of the editor's choice.
std::vector<Family> const& families();
/// The family called `name`, which must be one of them.
Family const& familyOf(std::string const& name);

/// All locations, in the order of the library's header.
std::vector<Location> const& locations();
/// The location called `name`; null where there is none.
Location const* findLocation(std::string const& name);
/// The location that `function`, one of those in `places`, computes.
Location const& locationOf(QString (*function)());
/// The operations of `IProductInfo` that the library asks for a location, in their order.
std::vector<std::string> askedOfTheProduct(Location const& location);

/// Looks at a preference in the stores that the library is bound to.
InspectedValue inspect(Preference const& preference);
/// Looks at what `family` keeps under `name`.
InspectedValue inspect(Family const& family, QString const& name);
/// Looks at a preference as it is where nothing is stored. Needs no store.
InspectedValue inspectUnstored(Preference const& preference);
/// Looks at what `family` gives for `name` where nothing is stored, likewise.
InspectedValue inspectUnstored(Family const& family, QString const& name);

/// Whether a list comes back from a store as it was written: empty elements are lost, and the library's separator
/// splits an element that holds it.
bool survivesRoundTrip(QStringList const& list);
/// The text that the library stores a list as.
std::string storedText(QStringList const& list);

} // namespace Catalogue
