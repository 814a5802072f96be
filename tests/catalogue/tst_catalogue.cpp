// SPDX-License-Identifier: MIT
#include <Catalogue/Catalogue.h>

#include <support/BoundLibrary.h>
#include <support/Table.h>

#include <map>
#include <set>
#include <type_traits>

using Catalogue::Preference;
using Catalogue::Store;
using Catalogue::Value;

// A row's accessors and a value have their alternatives in the same order; no preference is a rational, the last of a value's.
template <std::size_t... Index>
constexpr bool alternativesMatch(std::index_sequence<Index...>)
{
    return (std::is_same_v<std::variant_alternative_t<Index, decltype(Preference::accessors)>,
                           Catalogue::Accessors<std::variant_alternative_t<Index, Value>>> &&
            ...);
}
static_assert(std::variant_size_v<Value> == 7 && std::variant_size_v<decltype(Preference::accessors)> == 6);
static_assert(alternativesMatch(std::make_index_sequence<6>()));

namespace {

class CatalogueOfPreferences : public BoundLibrary {};

Preference const& row(char const* name)
{
    Preference const* const found = Catalogue::findPreference(name);
    EXPECT_TRUE(found) << name;
    return *found;
}

TEST_F(CatalogueOfPreferences, RowReadsAndWritesThroughTheLibrary)
{
    row("npsSendCount").write(7);
    EXPECT_EQ(calls(), (Calls{"product.setInt(\"npsSendCount\", 7)"}));
    EXPECT_EQ(row("npsSendCount").read(), Value(7));
    row("autoUpdate").write(false);
    EXPECT_EQ(Settings::autoUpdate(), false);
    row("achievedTutorials").write(QStringList(QStringLiteral("one")));
    EXPECT_EQ(row("achievedTutorials").read(), Value(QStringList(QStringLiteral("one"))));
}

TEST_F(CatalogueOfPreferences, ValueOfAnotherTypeIsNotWritten)
{
    EXPECT_THROW(row("npsSendCount").write(true), std::bad_variant_access);
    EXPECT_THROW(row("exportPath").write(std::string("/x")), std::bad_variant_access);
    EXPECT_EQ(calls(), Calls{});
}

TEST_F(CatalogueOfPreferences, UnsetPreferenceIsObserved)
{
    Catalogue::InspectedValue const observation = Catalogue::inspect(row("exportPath"));
    EXPECT_EQ(observation.value, Value(inHome("Videos/Lumora Library")));
    EXPECT_EQ(observation.defaultValue, Value(inHome("Videos/Lumora Library")));
    EXPECT_EQ(observation.store, Store::product);
    EXPECT_EQ(observation.key, "exportPath");
    EXPECT_FALSE(observation.isStored);
}

TEST_F(CatalogueOfPreferences, SetPreferenceIsObserved)
{
    m_commonValues->setBool("sendStatistics", true);
    Catalogue::InspectedValue const observation = Catalogue::inspect(row("sendStatistics"));
    EXPECT_EQ(observation.value, Value(true));
    EXPECT_EQ(observation.defaultValue, Value(true));
    EXPECT_EQ(observation.store, Store::common);
    EXPECT_TRUE(observation.isStored) << "set, though to the default";
    m_commonValues->setBool("sendStatistics", false);
    EXPECT_EQ(Catalogue::inspect(row("sendStatistics")).value, Value(false));
    EXPECT_EQ(Catalogue::inspect(row("sendStatistics")).defaultValue, Value(true));
}

TEST_F(CatalogueOfPreferences, KeyThatHoldsAnotherKindIsStoredAndReadsAsTheDefault)
{
    m_productValues->setString("npsSendCount", "many");
    Catalogue::InspectedValue const observation = Catalogue::inspect(row("npsSendCount"));
    EXPECT_TRUE(observation.isStored);
    EXPECT_EQ(observation.value, Value(0));
}

TEST_F(CatalogueOfPreferences, ObservingChangesNeitherBindingNorStores)
{
    m_productValues->setInt("npsSendCount", 5);
    for (Preference const& each : Catalogue::preferences())
        Catalogue::inspect(each);
    EXPECT_EQ(m_productValues->values().size(), 1u);
    EXPECT_TRUE(m_commonValues->values().empty());
    EXPECT_EQ(s_instance.productStorage.lock(), m_productStore);
    EXPECT_EQ(s_instance.commonStorage.lock(), m_common);
    EXPECT_EQ(s_instance.productInfo.lock(), m_productInfo);
    EXPECT_EQ(s_instance.resourcesRoot.utf8string(), "/resources");
}

TEST_F(CatalogueOfPreferences, HistoryInMemoryAsksNoStore)
{
    m_product->kind = 1;
    Catalogue::InspectedValue const observation = Catalogue::inspect(row("targetHistory"));
    EXPECT_FALSE(observation.store);
    EXPECT_FALSE(observation.isStored);
    m_product->kind = 0;
    EXPECT_EQ(Catalogue::inspect(row("targetHistory")).store, Store::product);
}

TEST_F(CatalogueOfPreferences, ListsThatComeBackUnchangedAreToldFromOthers)
{
    auto const list = [](std::initializer_list<char const*> elements) {
        QStringList result;
        for (char const* element : elements)
            result.append(QString::fromUtf8(element));
        return result;
    };
    EXPECT_TRUE(Catalogue::survivesRoundTrip({}));
    EXPECT_TRUE(Catalogue::survivesRoundTrip(list({"a", "b c", "#", "|"})));
    EXPECT_FALSE(Catalogue::survivesRoundTrip(list({"a", ""})));
    EXPECT_FALSE(Catalogue::survivesRoundTrip(list({"x|#|y"})));
    EXPECT_FALSE(Catalogue::survivesRoundTrip(list({"a|#", "|b"}))) << "joined, the two make up a separator too many";
    EXPECT_EQ(Catalogue::storedText({}), "");
    EXPECT_EQ(Catalogue::storedText(list({"a"})), "a");
    EXPECT_EQ(Catalogue::storedText(list({"a", "", "b c"})), "a|#||#|b c");
    EXPECT_EQ(calls(), Calls{}) << "no store is touched to find out";
}

TEST_F(CatalogueOfPreferences, UnknownNameIsNotFound)
{
    EXPECT_FALSE(Catalogue::findPreference("nothing"));
    EXPECT_FALSE(Catalogue::findPreference("ExportPath"));
    EXPECT_FALSE(Catalogue::findPreference("stabilizedFileFormat")) << "it has no accessors";
    EXPECT_EQ(Catalogue::preferencesWithoutAccessors(), std::vector<std::string>{"stabilizedFileFormat"});
}

TEST_F(CatalogueOfPreferences, SetterThatTakesItsValueByValueIsCalledToo)
{
    row("SUAutomaticallyUpdate").write(true);
    EXPECT_EQ(calls(), (Calls{"common.setBool(\"SUAutomaticallyUpdate\", true)"}));
    EXPECT_EQ(row("SUAutomaticallyUpdate").read(), Value(true));
}

// --- Families ---

class CatalogueOfFamilies : public BoundLibrary {};

TEST_F(CatalogueOfFamilies, AreTheTwoThatTheLibraryHas)
{
    ASSERT_EQ(Catalogue::families().size(), 2u);
    EXPECT_STREQ(Catalogue::families()[0].name, "indicationObject");
    EXPECT_STREQ(Catalogue::families()[1].name, "favoriteItems");
    EXPECT_EQ(Catalogue::families()[0].dataClass, Catalogue::DataClass::transient);
    EXPECT_EQ(Catalogue::families()[1].dataClass, Catalogue::DataClass::roaming);
}

TEST_F(CatalogueOfFamilies, AreObservedUnderTheKeyOfAName)
{
    m_productValues->setString("favorites_fonts", "a|#|b");
    Catalogue::InspectedValue const favorites = Catalogue::inspect(Catalogue::families()[1], QStringLiteral("fonts"));
    EXPECT_EQ(favorites.key, "favorites_fonts");
    EXPECT_EQ(favorites.store, Store::product);
    EXPECT_TRUE(favorites.isStored);
    EXPECT_EQ(favorites.value, Value(QStringList{QStringLiteral("a"), QStringLiteral("b")}));
    EXPECT_EQ(favorites.defaultValue, Value(QStringList()));
    Catalogue::InspectedValue const indication = Catalogue::inspect(Catalogue::families()[0], QStringLiteral("a/b"));
    EXPECT_EQ(indication.key, "Indication/a/b");
    EXPECT_FALSE(indication.isStored);
    EXPECT_EQ(indication.value, Value(QByteArray()));
}

// --- Places ---

class CatalogueOfPlaces : public BoundLibrary {};

TEST_F(CatalogueOfPlaces, GiveWhatTheirFunctionsGive)
{
    EXPECT_EQ(Catalogue::findLocation("defaultProjectPath")->path(), inHome("Videos/Lumora Video Editor/Projects"));
    EXPECT_EQ(Catalogue::findLocation("presetFilePath")->path(), QStringLiteral("/resources/presets-videoeditor.json"));
    EXPECT_EQ(Catalogue::findLocation("stockMusicPath")->path(), QStringLiteral("/Music Library/"));
}

TEST_F(CatalogueOfPlaces, HandOnTheirArgument)
{
    EXPECT_EQ(Catalogue::findLocation("resourceFile")->path("a/b.png"), QStringLiteral("/resources/a/b.png"));
    EXPECT_EQ(Catalogue::findLocation("userEffectsPath")->path("a:b"), inHome(".local/share/Vendor/SharedData/Shared/UserEffects/a_b/"));
    Catalogue::Location const* const sound = Catalogue::findLocation("notificationFile");
    EXPECT_EQ(sound->path("finish"), QStringLiteral("/resources/resources/samples/notifications/finish.wav"));
    EXPECT_EQ(sound->path("error"), QStringLiteral("/resources/resources/samples/notifications/error.wav"));
    EXPECT_THROW(sound->path("other"), std::out_of_range);
    EXPECT_EQ(sound->arguments, (std::vector<std::string>{"finish", "error"}));
}

TEST_F(CatalogueOfPlaces, AreFoundByNameAndFunction)
{
    EXPECT_STREQ(Catalogue::locationOf(&Settings::defaultProjectPath).name, "defaultProjectPath");
    EXPECT_STREQ(Catalogue::locationOf(&Settings::defaultLumoraLibraryPath).name, "defaultLumoraLibraryPath");
    EXPECT_FALSE(Catalogue::findLocation("makeDefaultPath"));
    EXPECT_FALSE(Catalogue::findLocation("DefaultProjectPath"));
}

TEST_F(CatalogueOfPlaces, TellWhatTheyAskOfTheProduct)
{
    using Names = std::vector<std::string>;
    auto const asked = [](char const* name) { return Catalogue::askedOfTheProduct(*Catalogue::findLocation(name)); };
    EXPECT_EQ(asked("productDataPath"), (Names{"vendorName", "productName"}));
    EXPECT_EQ(asked("userEffectsPath"), (Names{"vendorName", "sharedDataFolderName"}));
    EXPECT_EQ(asked("packageDeploymentPath"), Names{"vendorName"});
    EXPECT_EQ(asked("defaultLumoraLibraryPath"), Names{"productKind"});
    EXPECT_EQ(asked("sampleProjectPath"), Names{"projectFileExtensions"});
    EXPECT_EQ(asked("defaultProjectPath"), Names{});
    EXPECT_EQ(asked("notificationFile"), Names{});
    EXPECT_EQ(s_instance.productInfo.lock(), m_productInfo) << "the binding is as it was";
}

TEST_F(CatalogueOfPlaces, AreUsedAsTheEditorUsesThem)
{
    using Catalogue::Use;
    std::map<Use, std::set<std::string>> names;
    for (Catalogue::Location const& place : Catalogue::locations())
        names[place.use].insert(place.name);
    EXPECT_EQ(names[Use::written],
              (std::set<std::string>{"productDataPath", "userIntrosPath", "userOverlaysPath", "userEffectsPath", "userUnsplashPath",
                                     "unsplashContentPath", "packageDeploymentPath", "fastTrackConfigurationPath",
                                     "waveformConfigurationPath", "stockPackagesStatisticsPath", "deployedPackagesStatisticsPath"}));
    EXPECT_EQ(names[Use::fragment], (std::set<std::string>{"stockMusicPath", "stockAudioPath", "stockVideoPath", "stockBackgroundsPath",
                                                           "portableProjectMediaPath"}));
    EXPECT_EQ(names[Use::embedded], std::set<std::string>{"countDownImagePath"});
    EXPECT_EQ(names[Use::fallback].size(), 11u);
    EXPECT_EQ(names[Use::shipped].size(), 34u);
    EXPECT_EQ(Catalogue::locations().size(), 62u);
}

TEST_F(CatalogueOfPreferences, NamesOfTheAccessorsAreThoseOfTheLibrary)
{
    std::size_t compared = 0;
    for (PreferenceRow const& expected : preferenceTable()) {
        if (!expected.hasAccessors())
            continue;
        ++compared;
        EXPECT_EQ(row(expected.key.c_str()).getterName(), expected.getter);
        EXPECT_EQ(row(expected.key.c_str()).setterName(), expected.setter);
    }
    EXPECT_EQ(compared, 55u);
    EXPECT_EQ(Catalogue::familyOf("favoriteItems").getterName(), "Settings::favoriteItems");
    EXPECT_EQ(Catalogue::familyOf("favoriteItems").setterName(), "");
    EXPECT_EQ(Catalogue::familyOf("indicationObject").setterName(), "Settings::setIndicationObject");
}

TEST_F(CatalogueOfPreferences, PreferenceIsFoundByItsGetter)
{
    EXPECT_EQ(Catalogue::findPreferenceByGetter("autoDownloadUpdates"), &row("SUAutomaticallyUpdate"));
    EXPECT_FALSE(Catalogue::findPreferenceByGetter("SUAutomaticallyUpdate"));
    EXPECT_FALSE(Catalogue::findPreferenceByGetter(""));
}

TEST_F(CatalogueOfPreferences, UsableValuesAreThoseOfTheEditor)
{
    std::size_t folders = 0;
    for (Preference const& each : Catalogue::preferences())
        folders += each.usable.isFolder;
    EXPECT_EQ(folders, 18u);
    EXPECT_TRUE(row("lastAddDirectoryPath").usable.isFolder);
    EXPECT_EQ(row("audioRecordFormat").usable.words, std::vector<std::string>{"wav"});
    EXPECT_EQ(row("audioRecordCodec").usable.words, std::vector<std::string>{"pcm_s16le"});
    EXPECT_EQ(row("freezedFileFormat").usable.words, std::vector<std::string>{"png"});
}

TEST_F(CatalogueOfPreferences, ListIsReadFromItsStoredText)
{
    EXPECT_EQ(Catalogue::listIn("a|#|b c"), (QStringList{QStringLiteral("a"), QStringLiteral("b c")}));
    EXPECT_EQ(Catalogue::listIn(""), QStringList());
}

} // namespace
