// SPDX-License-Identifier: MIT
#include <Storage/SqliteStorage.h>

#include <Storage/EmptyStorage.h>
#include <support/BoundLibrary.h>
#include <support/Named.h>

#include <type_traits>

static_assert(std::is_same_v<decltype(&Settings::autoDownloadUpdates), bool (*)()>);
static_assert(std::is_same_v<decltype(&Settings::setAutoDownloadUpdates), void (*)(bool)>, "alone among the setters by value");
static_assert(std::is_same_v<decltype(&Settings::indicationObject), QByteArray (*)(QString)>);
static_assert(std::is_same_v<decltype(&Settings::setIndicationObject), void (*)(QString, QByteArray const&)>);
static_assert(std::is_same_v<decltype(&Settings::favoriteItems), QStringList (*)(QString)>);
static_assert(std::is_same_v<decltype(&Settings::achievedTutorials), QStringList (*)()>);
static_assert(std::is_same_v<decltype(&Settings::setAchievedTutorials), void (*)(QStringList const&)>);
static_assert(std::is_same_v<decltype(&Settings::userCustomColors), QStringList (*)()>);
static_assert(std::is_same_v<decltype(&Settings::setUserCustomColors), void (*)(QStringList const&)>);
static_assert(std::is_same_v<decltype(&Settings::targetHistory), std::string (*)()>);
static_assert(std::is_same_v<decltype(&Settings::setTargetHistory), void (*)(std::string const&)>);

// Whoever shows the lists of favourites writes them. A call takes a function of the library's, if there is one, rather
// than one that accepts anything.
namespace NotOfTheLibrary {
struct Undeclared {};
Undeclared setFavoriteItems(...);
Undeclared setAutoDownloadUpdates(...);
} // namespace NotOfTheLibrary
namespace BothInSight {
using namespace Settings;
using namespace NotOfTheLibrary;
static_assert(std::is_same_v<decltype(setFavoriteItems(QString(), QStringList())), Undeclared>);
static_assert(std::is_same_v<decltype(setAutoDownloadUpdates(true)), void>, "a declared function is found so");
} // namespace BothInSight

namespace {

using Storage::EmptyStorage;

using Bytes = std::vector<unsigned char>;

class Composites : public BoundLibrary {};

// --- The updater's preference ---

TEST_F(Composites, UpdatesAreNotDownloadedUnaskedThoughTheyAreLookedFor)
{
    EXPECT_TRUE(Settings::autoUpdate());
    calls();
    EXPECT_FALSE(Settings::autoDownloadUpdates());
    EXPECT_EQ(calls(), (Calls{"common.getBool(\"SUAutomaticallyUpdate\", false)"}));
}

TEST_F(Composites, DownloadOfUpdatesIsKeptUnderTheUpdatersKey)
{
    Settings::setAutoDownloadUpdates(true);
    EXPECT_EQ(calls(), (Calls{"common.setBool(\"SUAutomaticallyUpdate\", true)"}));
    EXPECT_TRUE(Settings::autoDownloadUpdates());
    EXPECT_EQ(calls(), (Calls{"common.getBool(\"SUAutomaticallyUpdate\", false)"}));
    Settings::setAutoDownloadUpdates(false);
    EXPECT_EQ(calls(), (Calls{"common.setBool(\"SUAutomaticallyUpdate\", false)"}));
    EXPECT_FALSE(Settings::autoDownloadUpdates());
    EXPECT_TRUE(m_productValues->values().empty());
}

TEST_F(Composites, DownloadOfUpdatesReadsWhatTheUpdaterStored)
{
    m_commonValues->setBool("SUAutomaticallyUpdate", true);
    EXPECT_TRUE(Settings::autoDownloadUpdates());
}

TEST_F(Composites, DownloadOfUpdatesIsNotLookedUpAmongTheProductsValues)
{
    m_productValues->setBool("SUAutomaticallyUpdate", true);
    EXPECT_FALSE(Settings::autoDownloadUpdates());
}

TEST_F(Composites, LookingForUpdatesAndDownloadingThemAreApart)
{
    Settings::setCheckForUpdates(false);
    Settings::setAutoDownloadUpdates(true);
    EXPECT_FALSE(Settings::autoUpdate());
    EXPECT_TRUE(Settings::autoDownloadUpdates());
    EXPECT_EQ(m_commonValues->values(),
              (std::map<std::string, TestKit::MemoryStorage::Value>{{"SUAutomaticallyUpdate", true}, {"autoUpdate", false}}));
}

// --- Keys that are made from a name ---

struct Name {
    char const* meaning;
    QString name;
    std::string inKey;
};

class NameInKey : public BoundLibrary, public testing::WithParamInterface<Name> {};

TEST_P(NameInKey, IsWrittenAndReadForAnIndicationAsItIs)
{
    std::string const key = "Indication/" + GetParam().inKey;
    Settings::setIndicationObject(GetParam().name, QByteArray("\xFF\0\x01", 3));
    EXPECT_EQ(m_productValues->values(), (std::map<std::string, TestKit::MemoryStorage::Value>{{key, Bytes{0xFF, 0, 1}}}));
    m_productValues->setBytes(key, {0x02});
    EXPECT_EQ(Settings::indicationObject(GetParam().name), QByteArray("\x02"));
    EXPECT_TRUE(m_commonValues->values().empty());
}

TEST_P(NameInKey, IsReadForFavoritesAsItIs)
{
    m_productValues->setString("favorites_" + GetParam().inKey, "one|#|two");
    EXPECT_EQ(Settings::favoriteItems(GetParam().name), (QStringList{QStringLiteral("one"), QStringLiteral("two")}));
    EXPECT_EQ(Settings::favoriteItems(GetParam().name + QStringLiteral("x")), QStringList());
}

INSTANTIATE_TEST_SUITE_P(
    Table, NameInKey,
    testing::Values(Name{"Plain", QStringLiteral("x"), "x"}, Name{"Empty", QStringLiteral(""), ""}, Name{"Null", QString(), ""},
                    Name{"Slashes", QStringLiteral("/a//b/"), "/a//b/"}, Name{"TheOnlyPlaceholder", QStringLiteral("%1"), "%1"},
                    Name{"NextPlaceholder", QStringLiteral("%2"), "%2"}, Name{"LocalizedPlaceholder", QStringLiteral("%L1 %"), "%L1 %"},
                    Name{"DoubledPercentSigns", QStringLiteral("100%%1"), "100%%1"}, Name{"Blanks", QStringLiteral("  a b "), "  a b "},
                    Name{"ListSeparator", QStringLiteral("a|#|b"), "a|#|b"},
                    Name{"KeyOfAPreference", QStringLiteral("lastTarget"), "lastTarget"},
                    Name{"NotAscii", QStringLiteral("gr\u00FC\u00DFe \u20AC\U0001F3AC"),
                         "gr\xC3\xBC\xC3\x9F"
                         "e \xE2\x82\xAC\xF0\x9F\x8E\xAC"},
                    Name{"EmbeddedNul", QStringLiteral("a\0b"), std::string("a\0b", 3)},
                    // Not text, so it has no UTF-8; Qt puts a question mark for it.
                    Name{"HalfASurrogatePair", QString(QChar(0xD83C)), "?"}),
    byMeaning);

// --- Indications ---

TEST_F(Composites, IndicationMakesOneStoreCall)
{
    EXPECT_EQ(Settings::indicationObject(QStringLiteral("x")), QByteArray());
    EXPECT_EQ(calls(), (Calls{"product.getBytes(\"Indication/x\", [])"}));
    Settings::setIndicationObject(QStringLiteral("x"), QByteArray("\xFF\0", 2));
    EXPECT_EQ(calls(), (Calls{"product.setBytes(\"Indication/x\", [ff 00])"}));
    EXPECT_EQ(Settings::indicationObject(QStringLiteral("x")), QByteArray("\xFF\0", 2));
    EXPECT_EQ(calls(), (Calls{"product.getBytes(\"Indication/x\", [])"}));
}

TEST_F(Composites, IndicationsOfTheCommonStoreAreNotSeen)
{
    m_commonValues->setBytes("Indication/x", {1});
    EXPECT_TRUE(Settings::indicationObject(QStringLiteral("x")).isNull());
}

TEST_F(Composites, AbsentIndicationIsNullThoughTheStoresVectorHasSpareCapacity)
{
    struct SpaciousStorage final : EmptyStorage {
        std::vector<unsigned char> getBytes(std::string const&, std::vector<unsigned char> const&) const override
        {
            std::vector<unsigned char> bytes;
            bytes.reserve(16);
            return bytes;
        }
    };
    auto const store = std::make_shared<SpaciousStorage>();
    TestKit::ScopedBinding const binding({m_productInfo, m_common, store, {}});
    EXPECT_TRUE(Settings::indicationObject(QStringLiteral("x")).isNull());
}

struct Store {
    char const* meaning;
    std::shared_ptr<ISettingsStorage> (*make)(TestKit::TemporaryHome const& home);
};

class IndicationStore : public BoundLibrary, public testing::WithParamInterface<Store> {
protected:
    std::shared_ptr<ISettingsStorage> m_store = GetParam().make(m_home);
    TestKit::ScopedBinding m_toTheStore{{m_productInfo, m_common, m_store, {}}};
};

TEST_P(IndicationStore, GivesNullWhereNothingWasEverSet)
{
    EXPECT_TRUE(Settings::indicationObject(QStringLiteral("x")).isNull());
    Settings::setIndicationObject(QStringLiteral("x"), QByteArray("data"));
    EXPECT_TRUE(Settings::indicationObject(QStringLiteral("y")).isNull());
    EXPECT_TRUE(Settings::indicationObject(QStringLiteral("X")).isNull()) << "names differ by case";
}

TEST_P(IndicationStore, GivesBackWhatWasSet)
{
    QByteArray const everyByte = [] {
        QByteArray bytes;
        for (int byte = 0; byte < 256; ++byte)
            bytes.append(static_cast<char>(byte));
        return bytes;
    }();
    Settings::setIndicationObject(QStringLiteral("x"), everyByte);
    EXPECT_EQ(Settings::indicationObject(QStringLiteral("x")), everyByte);
    Settings::setIndicationObject(QStringLiteral("x"), QByteArray("later"));
    EXPECT_EQ(Settings::indicationObject(QStringLiteral("x")), QByteArray("later"));
    EXPECT_EQ(m_store->getBytes("Indication/x", {}), (Bytes{'l', 'a', 't', 'e', 'r'}));
}

TEST_P(IndicationStore, KeepsAnEmptyArrayAsAValue)
{
    Settings::setIndicationObject(QStringLiteral("x"), QByteArray("data"));
    for (QByteArray const& empty : {QByteArray(""), QByteArray()}) {
        Settings::setIndicationObject(QStringLiteral("x"), empty);
        EXPECT_TRUE(Settings::indicationObject(QStringLiteral("x")).isEmpty());
        EXPECT_TRUE(m_store->contains("Indication/x"));
        EXPECT_EQ(m_store->getBytes("Indication/x", {1}), Bytes());
    }
}

TEST_P(IndicationStore, KeepsANameWithANul)
{
    Settings::setIndicationObject(QStringLiteral("a\0b"), QByteArray("data"));
    EXPECT_EQ(Settings::indicationObject(QStringLiteral("a\0b")), QByteArray("data"));
    EXPECT_TRUE(Settings::indicationObject(QStringLiteral("a")).isNull());
}

INSTANTIATE_TEST_SUITE_P(Table, IndicationStore,
                         testing::Values(Store{"InMemory",
                                               [](TestKit::TemporaryHome const&) -> std::shared_ptr<ISettingsStorage> {
                                                   return std::make_shared<TestKit::MemoryStorage>();
                                               }},
                                         Store{"InAFile",
                                               [](TestKit::TemporaryHome const& home) -> std::shared_ptr<ISettingsStorage> {
                                                   return std::make_shared<Storage::SqliteStorage>(home.path() / "product.db");
                                               }}),
                         byMeaning);

// --- Favourites ---

TEST_F(Composites, FavoritesMakeOneStoreCall)
{
    EXPECT_EQ(Settings::favoriteItems(QStringLiteral("titles")), QStringList());
    EXPECT_EQ(calls(), (Calls{"product.getString(\"favorites_titles\", \"\")"}));
    EXPECT_EQ(Settings::favoriteItems(QString()), QStringList());
    EXPECT_EQ(calls(), (Calls{"product.getString(\"favorites_\", \"\")"}));
}

TEST_F(Composites, FavoritesOfTheCommonStoreAreNotSeen)
{
    m_commonValues->setString("favorites_titles", "one");
    EXPECT_EQ(Settings::favoriteItems(QStringLiteral("titles")), QStringList());
}

TEST_F(Composites, FavoritesAreReadInTheListEncoding)
{
    m_productValues->setString("favorites_titles", "|#|b\xC3\xA9||#||#|%1 a,b|#|");
    EXPECT_EQ(Settings::favoriteItems(QStringLiteral("titles")), (QStringList{QStringLiteral("b\u00E9|"), QStringLiteral("%1 a,b")}));
    m_productValues->setString("favorites_titles", "");
    EXPECT_EQ(Settings::favoriteItems(QStringLiteral("titles")), QStringList());
    m_productValues->setString("favorites_titles", "|#|");
    EXPECT_EQ(Settings::favoriteItems(QStringLiteral("titles")), QStringList());
}

TEST_F(Composites, FavoritesAreWhatAHostWritesAsAList)
{
    write("favorites_titles", QStringList{QStringLiteral("one"), QStringLiteral("two")}, false);
    EXPECT_EQ(Settings::favoriteItems(QStringLiteral("titles")), (QStringList{QStringLiteral("one"), QStringLiteral("two")}));
}

// --- Lists and history, beyond what every preference does ---

TEST_F(Composites, ListsOfTheCallerAreNotChanged)
{
    QStringList const colors{QStringLiteral("#ff0000"), QString(), QStringLiteral("no colour")};
    Settings::setUserCustomColors(colors);
    EXPECT_EQ(colors, (QStringList{QStringLiteral("#ff0000"), QString(), QStringLiteral("no colour")}));
    EXPECT_EQ(Settings::userCustomColors(), (QStringList{QStringLiteral("#ff0000"), QStringLiteral("no colour")}));
}

TEST_F(Composites, HistoryIsKeptByteForByte)
{
    std::string const bytes("\xFF\0|#|%1\n ", 9);
    for (int const kind : {0, 1}) {
        m_product->kind = kind;
        Settings::setTargetHistory(bytes);
        EXPECT_EQ(Settings::targetHistory(), bytes) << "kind " << kind;
    }
    Settings::setTargetHistory("");
    EXPECT_EQ(m_productValues->getString("targetHistory", ""), bytes);
}

} // namespace
