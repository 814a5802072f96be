// SPDX-License-Identifier: MIT
//
// The header, the catalogue's rows, the exported symbols and the independent table tell the same; where they do not,
// a test fails with the name of what differs.
#include <Catalogue/Catalogue.h>

#include <support/BoundLibrary.h>
#include <support/Patterns.h>
#include <support/Process.h>
#include <support/Table.h>

#include <algorithm>
#include <cxxabi.h>
#include <dlfcn.h>

#include <functional>
#include <map>
#include <set>

namespace {

using Catalogue::Preference;
using Names = std::set<std::string>;

// What is exported and is neither an accessor of a preference or a family nor a location, and why.
std::map<std::string, std::string> const otherFunctions = {
    {"Settings::init", "binds the library"},
    {"read", "takes any key"},
    {"write", "takes any key"},
    {"makeDefaultPath", "is what the default folders are made with"},
    {"nonLocalizedProductName", "is a name, not a location"},
    {"Settings::countFiguresDownFont", "is a font"},
    {"Settings::generateAudioRecordFilePath", "makes a new name at each call"},
    {"Settings::generateFreezedFilePath", "makes a new name at each call"},
    {"Settings::generateStabilizedFilePath", "makes a new name at each call"},
    {"Settings::projectNameDefault", "is a text to show"},
    {"Settings::supportedProjectFileExtensions", "is about extensions"},
    {"Settings::projectFileExtension", "is about extensions"},
    {"Settings::projectFileSaveFilter", "is about extensions"},
    {"Settings::projectFileOpenFilter", "is about extensions"},
};

void expectSame(Names const& left, char const* leftName, Names const& right, char const* rightName)
{
    for (std::string const& name : left)
        EXPECT_EQ(right.count(name), 1u) << name << " is in " << leftName << " but not in " << rightName;
    for (std::string const& name : right)
        EXPECT_EQ(left.count(name), 1u) << name << " is in " << rightName << " but not in " << leftName;
}

// The name of an exported function, without arguments and ABI tag.
template <typename Function>
std::string nameOf(Function* function)
{
    Dl_info info = {};
    if (!::dladdr(reinterpret_cast<void*>(function), &info) || !info.dli_sname || info.dli_saddr != reinterpret_cast<void*>(function))
        return "a function that is not exported";
    char* const demangled = abi::__cxa_demangle(info.dli_sname, nullptr, nullptr, nullptr);
    std::string name = demangled ? demangled : info.dli_sname;
    std::free(demangled);
    return name.substr(0, name.find_first_of("[("));
}

std::string nameOf(Catalogue::Location const& place)
{
    return std::visit([](auto const function) { return nameOf(function); }, place.function);
}

Names expectedFunctions()
{
    Names names;
    for (PreferenceRow const& row : preferenceTable())
        if (row.hasAccessors())
            names.insert({row.getter, row.setter});
    for (Catalogue::Location const& place : Catalogue::locations())
        names.insert(nameOf(place));
    for (Catalogue::Family const& family : Catalogue::families())
        std::visit(
            [&](auto const& accessors) {
                names.insert(nameOf(accessors.get));
                if (accessors.set)
                    names.insert(nameOf(accessors.set));
            },
            family.accessors);
    for (auto const& [name, reason] : otherFunctions)
        EXPECT_TRUE(names.insert(name).second) << name << " has a row although it is on the list of those that have none";
    return names;
}

struct Declared {
    std::string result;
    std::string comment; // without line breaks; empty for one that shares the comment before it
};

// The functions that the header declares.
std::map<std::string, Declared> declaredFunctions()
{
    std::ifstream file(TESTS_DATA "/../../library/Settings/Settings.h");
    std::string const header{std::istreambuf_iterator<char>(file), {}};
    std::map<std::string, Declared> functions;
    std::string comment;
    bool inNamespace = false;
    for (std::string const& line : lines(header)) {
        if (line == "namespace Settings {" || line == "} // namespace Settings")
            inNamespace = line[0] == 'n';
        std::vector<std::string> const declaration = captured(line, "^(?!namespace|extern)([\\w:<> ]+) (\\w+)\\(.*$");
        if (!declaration.empty())
            functions[(inNamespace ? "Settings::" : "") + declaration[1]] = {declaration[0], comment};
        bool const isComment = line.compare(0, 4, "/// ") == 0;
        comment = isComment ? comment + (comment.empty() ? "" : " ") + line.substr(4) : "";
    }
    return functions;
}

Names exportedFunctions()
{
    Names names;
    for (std::string const& line : lines(run({"nm", "--dynamic", "--defined-only", "--demangle", LIBRARY_FILE}).out))
        for (std::string const& name : captured(line, "^\\S+ T ([\\w:]+)(?:\\[abi:cxx11\\])?\\(.*$"))
            names.insert(name);
    return names;
}

TEST(Drift, HeaderDeclaresWhatTableAndRowsName)
{
    Names declared;
    for (auto const& [name, function] : declaredFunctions())
        declared.insert(name);
    ASSERT_GT(declared.size(), 100u);
    expectSame(declared, "Settings.h", expectedFunctions(), "preferences.tsv, the rows or the list of other functions");
}

TEST(Drift, LibraryExportsWhatTableAndRowsName)
{
    Names const exported = exportedFunctions();
    ASSERT_GT(exported.size(), 100u);
    expectSame(exported, "the library", expectedFunctions(), "preferences.tsv, the rows or the list of other functions");
}

TEST(Drift, HeaderDeclaresTheTypesOfTheTable)
{
    std::map<std::string, Declared> const declared = declaredFunctions();
    for (PreferenceRow const& row : preferenceTable()) {
        if (!row.hasAccessors())
            continue;
        EXPECT_EQ(declared.at(row.getter).result, row.type) << row.getter;
        EXPECT_EQ(declared.at(row.setter).result, "void") << row.setter;
    }
}

// The comment begins with the purpose, which ends where a part of a sentence does.
void expectPurpose(Declared const& function, std::string const& purpose)
{
    EXPECT_EQ(function.comment.substr(0, purpose.size()), purpose);
    EXPECT_NE(std::string(".,;").find(function.comment[purpose.size()]), std::string::npos) << purpose << " is not all of it";
}

TEST(Drift, RowsTellOfPreferencesWhatTheHeaderTells)
{
    std::map<std::string, Declared> const declared = declaredFunctions();
    for (PreferenceRow const& row : preferenceTable())
        if (row.hasAccessors())
            expectPurpose(declared.at(row.getter), Catalogue::findPreference(row.key)->purpose);
    for (Catalogue::Family const& family : Catalogue::families())
        expectPurpose(declared.at(std::string("Settings::") + family.name), family.purpose);
}

TEST(Drift, EveryRowOfTheTableHasARowOfTheCatalogue)
{
    Names table;
    Names withoutAccessors;
    for (PreferenceRow const& row : preferenceTable())
        (row.hasAccessors() ? table : withoutAccessors).insert(row.key);
    Names catalogue;
    for (Preference const& row : Catalogue::preferences())
        EXPECT_TRUE(catalogue.insert(row.name).second) << row.name << " has two rows";
    expectSame(table, "preferences.tsv", catalogue, "the catalogue");
    std::vector<std::string> const& reserved = Catalogue::preferencesWithoutAccessors();
    expectSame(withoutAccessors, "preferences.tsv", Names(reserved.begin(), reserved.end()), "the preferences without accessors");
}

std::string cppType(Preference const& row)
{
    char const* const names[] = {"bool", "int", "std::string", "QString", "QByteArray", "QStringList"};
    return names[row.accessors.index()];
}

class DriftOfRow : public BoundLibrary, public testing::WithParamInterface<PreferenceRow> {};

TEST_P(DriftOfRow, RowAgreesWithTheTable)
{
    PreferenceRow const& expected = GetParam();
    Preference const* const row = Catalogue::findPreference(expected.key);
    ASSERT_TRUE(row) << expected.key << " has no row in the catalogue";
    EXPECT_EQ(cppType(*row), expected.type);
    EXPECT_EQ(row->store == Catalogue::Store::common ? "common" : "product", expected.store);
    EXPECT_EQ(Catalogue::dataClassName(row->dataClass), expected.dataClass);
    std::visit(
        [&](auto const& accessors) {
            EXPECT_EQ(nameOf(accessors.get), expected.getter);
            std::visit([&](auto const set) { EXPECT_EQ(nameOf(set), expected.setter); }, accessors.set);
        },
        row->accessors);

    Catalogue::InspectedValue const observation = Catalogue::inspect(*row);
    EXPECT_EQ(observation.key, expected.key);
    EXPECT_EQ(observation.store, row->store) << "the row names another store than the library asks";

    ASSERT_EQ(row->computedDefault != nullptr, expected.hasComputedDefault());
    if (row->computedDefault) {
        EXPECT_EQ(Catalogue::locationOf(row->computedDefault).name + std::string("()"), expected.defaultValue);
        EXPECT_EQ(observation.defaultValue, Catalogue::Value(row->computedDefault())) << "the getter falls back on another location";
    }
}

std::vector<PreferenceRow> rowsWithAccessors()
{
    std::vector<PreferenceRow> rows = preferenceTable();
    rows.erase(std::remove_if(rows.begin(), rows.end(), [](PreferenceRow const& row) { return !row.hasAccessors(); }), rows.end());
    return rows;
}

INSTANTIATE_TEST_SUITE_P(Table, DriftOfRow, testing::ValuesIn(rowsWithAccessors()), [](auto const& test) { return test.param.key; });

std::string withoutNamespace(std::string const& name) { return name.substr(name.rfind(':') + 1); }

TEST(Drift, EveryPlaceAndFamilyIsNamedAfterItsFunction)
{
    Names names;
    for (Catalogue::Location const& place : Catalogue::locations()) {
        EXPECT_EQ(withoutNamespace(nameOf(place)), place.name);
        EXPECT_TRUE(names.insert(place.name).second) << place.name << " has two rows";
    }
    for (Catalogue::Family const& family : Catalogue::families())
        EXPECT_EQ(withoutNamespace(std::visit([](auto const& accessors) { return nameOf(accessors.get); }, family.accessors)), family.name);
}

TEST(Drift, EveryFolderPreferenceFallsBackOnALocationOfThatUse)
{
    Names fallbacks;
    for (Preference const& row : Catalogue::preferences())
        if (row.computedDefault)
            fallbacks.insert(Catalogue::locationOf(row.computedDefault).name);
    Names places;
    for (Catalogue::Location const& place : Catalogue::locations())
        if (place.use == Catalogue::Use::fallback)
            places.insert(place.name);
    expectSame(fallbacks, "the preferences", places, "the places");
}

// --- What a place starts from, and what it asks of the product ---

class DriftOfPlace : public BoundLibrary, public testing::WithParamInterface<Catalogue::Location> {};

// Moves one root after the other and looks which one takes the place along.
TEST_P(DriftOfPlace, PlaceStartsFromItsRoot)
{
    using Catalogue::Root;
    Catalogue::Location const& place = GetParam();
    m_home.write("R/resources/samples/stock/projects/sample.ext1", "");
    auto const bindResources = [&](char const* folder) {
        SettingsContext context = s_instance;
        context.resourcesRoot = Lumora::ioPath(inHome(folder).toStdString());
        Settings::init(context);
    };
    bindResources("R");
    std::string const argument = place.arguments.empty() ? "" : place.arguments.front();
    QString const before = place.path(argument);
    EXPECT_FALSE(before.isEmpty());

    std::map<Root, std::function<void()>> const moves = {
        {Root::movies, [&] { m_home.write(".config/user-dirs.dirs", "XDG_VIDEOS_DIR=\"$HOME/elsewhere\"\n"); }},
        {Root::music,
         [&] { m_home.write(".config/user-dirs.dirs", "XDG_VIDEOS_DIR=\"$HOME/elsewhere\"\nXDG_MUSIC_DIR=\"$HOME/elsewhere\"\n"); }},
        {Root::cache, [&] { ::setenv("XDG_CACHE_HOME", "/elsewhere", 1); }},
        {Root::data, [&] { ::setenv("XDG_DATA_HOME", "/elsewhere", 1); }},
        {Root::resources,
         [&] {
             m_home.write("elsewhere/resources/samples/stock/projects/sample.ext1", "");
             bindResources("elsewhere");
         }},
    };
    for (auto const& [root, move] : moves) {
        QString const unmoved = place.path(argument);
        move();
        EXPECT_EQ(place.path(argument) != unmoved, root == place.root) << "root " << static_cast<int>(root);
        if (root == place.root) {
            EXPECT_TRUE(place.path(argument).contains(QStringLiteral("elsewhere")));
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Places, DriftOfPlace, testing::ValuesIn(Catalogue::locations()), [](auto const& test) { return test.param.name; });

TEST(Drift, OnlyAFragmentOrAnEmbeddedFileIsWithoutARoot)
{
    using Catalogue::Use;
    for (Catalogue::Location const& place : Catalogue::locations())
        EXPECT_EQ(place.root == Catalogue::Root::nothing, place.use == Use::fragment || place.use == Use::embedded) << place.name;
}

} // namespace
