// SPDX-License-Identifier: MIT
//
// Preferences and members of families, as real stores hold them.
#include <Inspection/PreferenceState.h>
#include <Inspection/RowDifference.h>

#include <Host/ToolApplication.h>

#include <support/BoundLibrary.h>
#include <support/Named.h>
#include <support/OtherProgram.h>

#include <algorithm>

using Catalogue::DataClass;
using Catalogue::Store;
using Catalogue::Value;
using Inspection::PreferenceState;
using Inspection::State;
using Storage::SqliteStorage;

namespace {

class Preferences : public BoundLibrary {
protected:
    std::filesystem::path productFile(int kind = 0) const
    {
        return m_home.write("product.json", R"({"vendorName": "V", "productName": "P", "sharedDataFolderName": "S", "productKind": )" +
                                                std::to_string(kind) + R"(, "projectFileExtensions": [], "resourcesRoot": "r"})");
    }
    std::filesystem::path folder() const { return m_home.path() / "stores"; }

    Host::ToolApplication const m_application{productFile(), {folder()}};
    SqliteStorage& m_productRows = *m_application.productStorage();
    SqliteStorage& m_commonRows = *m_application.commonStorage();
};

// --- State ---

struct Held {
    char const* meaning;
    void (*hold)(SqliteStorage&); // in npsSendCount, an int with the default 0
    State state;
    char const* word;
    bool isRead;
    int value;
};

class HeldPreference : public Preferences, public testing::WithParamInterface<Held> {};

TEST_P(HeldPreference, HasItsState)
{
    GetParam().hold(m_productRows);
    PreferenceState const found = Inspection::preferenceState(m_application, "npsSendCount").value();
    EXPECT_EQ(found.state(), GetParam().state);
    EXPECT_STREQ(Inspection::stateName(found.state()), GetParam().word);
    EXPECT_EQ(found.isRead(), GetParam().isRead);
    EXPECT_EQ(found.observation.value, Value(GetParam().value));
    EXPECT_EQ(found.observation.defaultValue, Value(0));
    EXPECT_EQ(found.stored.has_value(), GetParam().state != State::unset);
}

void change(SqliteStorage& store, char const* assignment)
{
    store.setInt("npsSendCount", 1);
    OtherProgram(store.file()).execute(("UPDATE settings SET " + std::string(assignment)).c_str());
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(
    Table, HeldPreference,
    testing::Values(
        Held{"Nothing", [](SqliteStorage&) {}, State::unset, "unset", false, 0},
        Held{"Value", [](SqliteStorage& store) { store.setInt("npsSendCount", 7); }, State::set, "set", true, 7},
        Held{"Default", [](SqliteStorage& store) { store.setInt("npsSendCount", 0); }, State::setToDefault, "set to default", true, 0},
        Held{"Text", [](SqliteStorage& store) { store.setString("npsSendCount", "7"); }, State::otherKind, "other kind", false, 0},
        Held{"KindOfALaterVersion", [](SqliteStorage& store) { change(store, "kind = 'date', value = '2030-01-01'"); }, State::otherKind, "other kind", false, 0},
        Held{"ValueThatDoesNotFitItsKind", [](SqliteStorage& store) { change(store, "value = 'zz'"); }, State::unreadable, "unreadable", false, 0}),
    byMeaning);
// clang-format on

// --- One preference ---

TEST_F(Preferences, PreferenceIsKnownWithAllItsParts)
{
    m_commonRows.setBool("sendStatistics", false);
    PreferenceState const found = Inspection::preferenceState(m_application, "sendStatistics").value();
    EXPECT_EQ(found.key, "sendStatistics");
    EXPECT_EQ(found.store, Store::common);
    EXPECT_EQ(found.dataClass, DataClass::roaming);
    EXPECT_EQ(found.storeName(), "common");
    EXPECT_EQ(found.stored->kind, "bool");
    EXPECT_EQ(found.stored->value, SqliteStorage::Value(false));
    EXPECT_FALSE(found.computedDefault);
    found.write(Value(true));
    EXPECT_TRUE(m_commonRows.getBool("sendStatistics", false));
}

TEST_F(Preferences, ComputedDefaultIsALocation)
{
    PreferenceState const found = Inspection::preferenceState(m_application, "exportPath").value();
    EXPECT_EQ(found.computedDefault, &Settings::defaultLumoraLibraryPath);
    EXPECT_EQ(found.observation.defaultValue, Value(inHome("Videos/Lumora Library")));
    EXPECT_EQ(found.storeName(), "product");
}

TEST_F(Preferences, UnknownKeysHaveNoState)
{
    for (char const* key : {"nothingLikeIt", "", "EXPORTPATH", "stabilizedFileFormat", "defaultProjectPath", "favorites", "favorites_\xFF",
                            "favorites_\xEF\xBB\xBFx", "Indication"}) {
        EXPECT_FALSE(Inspection::preferenceState(m_application, key)) << key;
        EXPECT_FALSE(Inspection::knownKey(key)) << key;
        EXPECT_EQ(Inspection::classOf(key), "") << key;
    }
}

TEST_F(Preferences, MemberOfAFamilyIsReadAndWritten)
{
    m_productRows.setBytes("Indication/a/b", {0, 255});
    PreferenceState const found = Inspection::preferenceState(m_application, "Indication/a/b").value();
    EXPECT_EQ(found.key, "Indication/a/b");
    EXPECT_EQ(found.state(), State::set);
    EXPECT_EQ(found.observation.value, Value(QByteArray("\0\xFF", 2)));
    found.write(Value(QByteArray("x")));
    EXPECT_EQ(m_productRows.getBytes("Indication/a/b", {}), (std::vector<unsigned char>{'x'}));
}

TEST_F(Preferences, FamilyWithoutSetterIsNotWritten)
{
    m_productRows.setString("favorites_fonts", "a|#|b");
    PreferenceState const found = Inspection::preferenceState(m_application, "favorites_fonts").value();
    EXPECT_FALSE(found.write);
    EXPECT_EQ(found.observation.value, Value(QStringList{QStringLiteral("a"), QStringLiteral("b")}));
}

TEST_F(Preferences, ValueOfAnotherProductLivesInMemory)
{
    Host::ToolApplication const application(productFile(1), {folder()});
    PreferenceState const found = Inspection::preferenceState(application, "targetHistory").value();
    EXPECT_EQ(found.storeName(), "memory");
    EXPECT_EQ(found.store, Store::product);
    EXPECT_EQ(found.state(), State::unset);
}

// --- All ---

TEST_F(Preferences, AllAreSortedWithTheStoredMembers)
{
    m_productRows.setString("favorites_fonts", "Verdana");
    m_productRows.setString("Indication/x", "text");
    m_productRows.setString("favorites_\xFF", "no key of the library");
    m_productRows.setString("unknown", "kept");
    m_commonRows.setString("favorites_common", "not asked there");
    std::vector<PreferenceState> const all = Inspection::preferenceStates(m_application);
    EXPECT_EQ(all.size(), Catalogue::preferences().size() + 2);
    EXPECT_TRUE(std::is_sorted(all.begin(), all.end(), [](auto const& left, auto const& right) { return left.key < right.key; }));
    Calls stored;
    for (PreferenceState const& each : all)
        if (each.stored)
            stored.push_back(each.key + ": " + Inspection::stateName(each.state()));
    EXPECT_EQ(stored, (Calls{"Indication/x: other kind", "favorites_fonts: set"}));
}

TEST_F(Preferences, AllAreUnsetWithoutStores)
{
    Host::ToolApplication const application(productFile(), {m_home.path() / "none", Host::StorePolicy::leaveOutMissing});
    std::vector<PreferenceState> const all = Inspection::preferenceStates(application);
    EXPECT_EQ(all.size(), Catalogue::preferences().size());
    EXPECT_TRUE(std::all_of(all.begin(), all.end(), [](PreferenceState const& each) { return each.state() == State::unset; }));
    EXPECT_FALSE(Inspection::storage(application, Store::common));
    EXPECT_EQ(Inspection::storageFile(application, Store::common), m_home.path() / "none/common-settings.sqlite");
}

// --- Keys ---

struct Known {
    char const* meaning;
    char const* key;
    Store store;
    DataClass dataClass;
    char const* kind;
};

class KnownKeys : public Preferences, public testing::WithParamInterface<Known> {};

TEST_P(KnownKeys, HaveStoreClassAndKind)
{
    Inspection::KnownKey const known = Inspection::knownKey(GetParam().key).value();
    EXPECT_EQ(known.store, GetParam().store);
    EXPECT_EQ(known.dataClass, GetParam().dataClass);
    EXPECT_STREQ(Storage::storedWord(known.kind), GetParam().kind);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(
    Table, KnownKeys,
    testing::Values(
        Known{"Bool", "sendStatistics", Store::common, DataClass::roaming, "bool"},
        Known{"Int", "npsSendCount", Store::product, DataClass::transient, "int"},
        Known{"NarrowText", "recentProjects", Store::product, DataClass::personal, "string"},
        Known{"Text", "exportPath", Store::product, DataClass::local, "string"},
        Known{"List", "userCustomColors", Store::product, DataClass::roaming, "string"},
        Known{"Bytes", "mainWindowState", Store::product, DataClass::local, "bytes"},
        Known{"Indication", "Indication/x", Store::product, DataClass::transient, "bytes"},
        Known{"IndicationWithoutName", "Indication/", Store::product, DataClass::transient, "bytes"},
        Known{"Favorites", "favorites_x", Store::product, DataClass::roaming, "string"}),
    byMeaning);
// clang-format on

TEST_F(Preferences, ClassOfAKeyIsAWord)
{
    EXPECT_EQ(Inspection::classOf("exportPath"), "local");
    EXPECT_EQ(Inspection::classOf("favorites_x"), "roaming");
}

TEST_F(Preferences, PurposeOfAKeyNamesTheMember)
{
    EXPECT_EQ(Inspection::purposeOf("exportPath"), "Folder of exported films");
    EXPECT_EQ(Inspection::purposeOf("favorites_my fonts"), "The favourites of the list called \"my fonts\"");
    EXPECT_EQ(Inspection::purposeOf("unknown"), "");
}

TEST_F(Preferences, ValueIsUnusableForAReason)
{
    EXPECT_EQ(Inspection::whyUnusable("exportPath", QStringLiteral("films")),
              "not absolute: it depends on the folder that the editor is started in");
    EXPECT_EQ(Inspection::whyUnusable("lastAddMediaPath", QStringLiteral("~")), "only a shell replaces ~, and only outside quotes");
    EXPECT_EQ(Inspection::whyUnusable("audioRecordCodec", std::string("aac")), "the library has no such name");
    EXPECT_EQ(Inspection::whyUnusable("audioRecordCodec", std::string("pcm_s16le")), "");
    EXPECT_EQ(Inspection::whyUnusable("exportPath", QString::fromStdString((m_home.path() / "missing/x").string())), "");
    EXPECT_EQ(Inspection::whyUnusable("lastAddMediaPath", QString()), "");
    EXPECT_EQ(Inspection::whyUnusable("Indication/x", QByteArray("~")), "");
}

TEST_F(Preferences, StoredListIsOneWhereItsElementsHideNothing)
{
    auto const listIn = [&](char const* key, std::string const& stored) {
        m_productRows.setString(key, stored);
        return Inspection::storedList(*m_productRows.find(key));
    };
    EXPECT_EQ(listIn("userCustomColors", "a|#|b \\"), (QStringList{QStringLiteral("a"), QStringLiteral("b \\")}));
    EXPECT_EQ(listIn("favorites_x", ""), QStringList());
    EXPECT_EQ(listIn("userCustomColors", "a|#||#|b"), std::nullopt) << "it would be read without the empty element";
    EXPECT_EQ(listIn("exportPath", "a|#|b"), std::nullopt);
    EXPECT_EQ(listIn("unknown", "a|#|b"), std::nullopt);
}

TEST_F(Preferences, ReservedKeysAreThoseWithoutAccessors)
{
    EXPECT_TRUE(Inspection::isReserved("stabilizedFileFormat"));
    EXPECT_FALSE(Inspection::isReserved("exportPath"));
}

} // namespace
