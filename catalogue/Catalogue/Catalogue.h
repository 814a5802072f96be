// SPDX-License-Identifier: MIT
//
// Preferences and locations for tools: one row for each, made from the addresses of the library's own functions. Defaults,
// keys, stores and what a location asks of the product are observed at the collaborators, never restated here.
//
// An inspection binds the library to other collaborators while it runs, so no other thread may call the library at that
// time: this is for tools, not for the editor.
#pragma once

#include <Settings/Settings.h>

#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace Catalogue {

enum class Store { product, common };

inline constexpr Store bothStores[] = {Store::product, Store::common};

/// The word for a store: "product" or "common".
std::string name(Store store);

/// Where the value of a preference may go when settings leave the machine.
enum class DataClass {
    roaming,   ///< The user's taste, valid on any machine.
    local,     ///< Fits this machine only: folders, windows, updates of the program.
    personal,  ///< Discloses who the user is or what the user works on.
    transient, ///< Last used or counted: the editor makes it again by itself.
};

/// The word for a class: "roaming", "local", "personal" or "transient".
char const* dataClassName(DataClass dataClass);

/// A value in the type that the library's functions take. No preference is a rational, but a host's own key may be one.
using Value = std::variant<bool, int, std::string, QString, QByteArray, QStringList, boost::rational<long long>>;

/// The getter and the setter of a preference with values of type `T`.
template <typename T>
struct Accessors {
    T (*get)();
    std::variant<void (*)(T const&), void (*)(T)> set;
};

/// The values that the editor can use, among those that the library takes.
struct Usable {
    bool isFolder = false;               ///< Only the absolute path of a folder.
    std::vector<std::string> words = {}; ///< Only these, unless there are none.
};

/// One preference.
struct Preference {
    char const* name;    ///< The key.
    char const* purpose; ///< A few English words.
    Store store;
    DataClass dataClass;
    std::variant<Accessors<bool>, Accessors<int>, Accessors<std::string>, Accessors<QString>, Accessors<QByteArray>, Accessors<QStringList>>
        accessors;                          ///< In the order of the alternatives of `Value`.
    QString (*computedDefault)() = nullptr; ///< The location that is the default; null for a fixed default.
    Usable usable = {};

    /// The function's name in C++, such as "Settings::exportPath"; empty where the program's loader does not know it.
    std::string getterName() const;
    /// Likewise.
    std::string setterName() const;
    /// Calls the getter.
    Value read() const;
    /// Calls the setter. Throws `std::bad_variant_access` for a value of another type than the row's.
    void write(Value const& value) const;
};

/// The getter of values of type `T` under keys made from a name, and the setter, which may be null.
template <typename T>
struct KeyedAccessors {
    T (*get)(QString);
    void (*set)(QString, T const&);
};

/// Preferences under names that the editor chooses.
struct Family {
    char const* name;    ///< The getter's name, without namespace.
    char const* purpose; ///< A few English words.
    Store store;
    DataClass dataClass; ///< Of each member.
    std::variant<KeyedAccessors<QByteArray>, KeyedAccessors<QStringList>> accessors;

    /// The function's name in C++, such as "Settings::favoriteItems"; empty where the program's loader does not know it.
    std::string getterName() const;
    /// Likewise; also empty without a setter.
    std::string setterName() const;
    /// Calls the getter for the member `member`.
    Value read(QString const& member) const;
};

/// The root of a location's path.
enum class Root {
    movies,    ///< The movies location of the editor's platform library.
    music,     ///< The music location of the same library.
    cache,     ///< The cache location of the same library.
    data,      ///< Qt's generic data location.
    resources, ///< The resources root of the binding.
    nothing,   ///< None: the text is fixed.
};

/// What the editor does with a location.
enum class Use {
    fallback, ///< Uses it as the default of a folder preference.
    written,  ///< Writes there, and creates a missing folder first.
    shipped,  ///< Reads files that the product installs.
    fragment, ///< Joins it to a folder of its choice: the path is relative.
    embedded, ///< Reads it from the program's resources, not from disk.
};

/// The word for a root: "movies", "music", "cache", "data", "resources" or "nothing".
char const* rootName(Root root);
/// What the editor does, in words for users: "default of a preference", "written to", "shipped with the product",
/// "joined to a folder by the editor" or "inside the editor's program".
char const* useName(Use use);

/// One location.
struct Location {
    char const* name;    ///< The function's name, without namespace.
    char const* purpose; ///< A few English words on what lies there.
    Root root;
    Use use;
    std::variant<QString (*)(), std::string (*)(), QString (*)(std::string const&), std::string (*)(std::string const&),
                 QString (*)(Settings::Notifications)>
        function;
    /// Arguments for a listing: one example for a function of any name, all of them for a function of a few names, none for
    /// a function without parameter.
    std::vector<std::string> arguments = {};

    /// Calls the function, with `argument` if it takes one: a name in UTF-8, or "finish" or "error" for a notification.
    /// Throws `std::out_of_range` for another notification.
    QString path(std::string const& argument = {}) const;
};

/// A preference as the library reads it from the bound stores.
struct InspectedValue {
    Value value;                ///< The result of a read.
    Value defaultValue;         ///< The result of a read of an empty store.
    std::optional<Store> store; ///< The store that a read asks; nullopt for a value kept in memory.
    std::string key;            ///< The key that a read asks for.
    bool isStored = false;      ///< Whether the store contains the key, with a value of any kind.
};

/// All preferences that have accessors, in the order of the library's header.
std::vector<Preference> const& preferences();
/// The preference called `name`; null for an unknown name.
Preference const* findPreference(std::string const& name);
/// The preference whose getter in namespace `Settings` is called `name`; null for an unknown name.
Preference const* findPreferenceByGetter(std::string const& name);
/// Preferences that the library has a key and a default for, but no accessors.
std::vector<std::string> const& preferencesWithoutAccessors();

/// All families.
std::vector<Family> const& families();
/// The family called `name`, which must exist.
Family const& familyOf(std::string const& name);

/// All locations, in the order of the library's header.
std::vector<Location> const& locations();
/// The location called `name`; null for an unknown name.
Location const* findLocation(std::string const& name);
/// The location with the function `function`, which must be one of `locations()`.
Location const& locationOf(QString (*function)());
/// The operations of `IProductInfo` that the library asks for a location, in their order.
std::vector<std::string> askedOfTheProduct(Location const& location);

/// Inspects a preference in the stores that the library is bound to.
InspectedValue inspect(Preference const& preference);
/// Inspects the member `name` of `family` in the stores that the library is bound to.
InspectedValue inspect(Family const& family, QString const& name);
/// Inspects a preference with empty stores in the place of the bound ones; the library needs no store.
InspectedValue inspectUnstored(Preference const& preference);
/// Inspects the member `name` of `family` with empty stores in the place of the bound ones.
InspectedValue inspectUnstored(Family const& family, QString const& name);

/// Whether a list survives the round trip through a store, which drops empty elements and splits an element at the
/// library's separator.
bool survivesRoundTrip(QStringList const& list);
/// The text that the library stores for a list.
std::string storedText(QStringList const& list);
/// The list that the library reads from a stored text.
QStringList listIn(std::string const& storedText);

} // namespace Catalogue
