// SPDX-License-Identifier: MIT
//
// Keys that a product declares as its own, beside the library's.
#include "Stores.h"

#include <Inspection/DeclaredKeys.h>
#include <Inspection/Locations.h>
#include <Inspection/PreferenceState.h>
#include <Inspection/RowDifference.h>
#include <Inspection/ValueFormat.h>
#include <Inspection/checks/StoredValueChecks.h>

#include <support/Named.h>
#include <support/OtherProgram.h>

#include <array>
#include <fstream>

namespace {

using Catalogue::DataClass;
using Catalogue::Value;
using Host::OwnKey;
using Host::OwnKeyError;
using Host::OwnKeys;
using Inspection::PreferenceState;
using Inspection::State;

OwnKey declared(std::string const& key, OwnKey::Value const& value, bool isPrefix = false)
{
    OwnKey result;
    result.key = key;
    result.defaultValue = value;
    result.purpose = "It is tested";
    result.isPrefix = isPrefix;
    return result;
}

// --- Names that the library has ---

struct Taken {
    char const* meaning;
    OwnKey key;
    char const* fault;
};

class TakenName : public testing::TestWithParam<Taken> {};

TEST_P(TakenName, IsRefused)
{
    try {
        Inspection::declareOwnKeys(OwnKeys({GetParam().key}));
        FAIL() << "it was taken";
    } catch (OwnKeyError const& error) {
        EXPECT_EQ(std::string(error.what()), std::string("the host declares ") + GetParam().fault);
    }
    EXPECT_TRUE(Inspection::ownKeys().all().empty()) << "what was declared before holds";
}

INSTANTIATE_TEST_SUITE_P(
    Table, TakenName,
    testing::Values(
        Taken{"Preference", declared("exportPath", 1), "the key \"exportPath\" that is the library's own; choose another name"},
        Taken{"Reserved", declared("stabilizedFileFormat", 1),
              "the key \"stabilizedFileFormat\" that is the library's own; choose another name"},
        Taken{"Favorites", declared("favorites_mine", 1), "the key \"favorites_mine\" that is the library's own; choose another name"},
        Taken{"Indication", declared("Indication/", 1), "the key \"Indication/\" that is the library's own; choose another name"},
        Taken{"PrefixOfAPreference", declared("export", 1, true),
              "the prefix \"export\" that covers exportPath, which is the library's own; choose another prefix"},
        Taken{"PrefixOfTheReserved", declared("stabilizedFileF", 1, true),
              "the prefix \"stabilizedFileF\" that covers stabilizedFileFormat, which is the library's own; choose another prefix"},
        Taken{"PrefixOfAFamily", declared("fav", 1, true),
              "the prefix \"fav\" that covers favorites_, which is the library's own; choose another prefix"},
        Taken{"PrefixWithinAFamily", declared("Indication/mine/", 1, true),
              "the prefix \"Indication/mine/\" that covers Indication/mine/, which is the library's own; choose another prefix"},
        Taken{"RationalWithHalvesInAFamily", declared("favorites", OwnKey::Rational(1)),
              "the key \"favorites\" whose half favorites_N is the library's own; choose another name"},
        Taken{"ListThatALibraryWouldSplit", declared("a", QStringList{QStringLiteral("x|#|y")}),
              "the key \"a\" with a default that holds the separator of stored lists; give other elements"}),
    byMeaning);

TEST(DeclaredNames, MayBeginLikeAFamilyOfTheLibrary)
{
    Inspection::declareOwnKeys(OwnKeys({declared("favorites", 1)}));
    EXPECT_EQ(Inspection::ownKeys().all().size(), 1u);
    Inspection::declareOwnKeys(OwnKeys());
}

// --- States ---

OwnKeys const keys({declared("flag", true), declared("rate", OwnKey::Rational(25, 2)), declared("word.", std::string("x"), true),
                    declared("rates.", OwnKey::Rational(1), true), declared("tracks", QStringList{QStringLiteral("Video")})});

class DeclaredKeys : public Stores {
protected:
    DeclaredKeys() { Inspection::declareOwnKeys(keys); }
    ~DeclaredKeys() override { Inspection::declareOwnKeys(OwnKeys()); }

    PreferenceState state(std::string const& key) { return Inspection::preferenceState(m_application, key).value(); }

    Host::ToolApplication const m_application{m_productFile, {m_home.path() / "stores"}};
    SqliteStorage& m_product = *m_application.productStorage();
    SqliteStorage& m_common = *m_application.commonStorage();
};

TEST_F(DeclaredKeys, UnsetKeyHasItsDefault)
{
    PreferenceState const found = state("tracks");
    EXPECT_EQ(found.state(), State::unset);
    EXPECT_EQ(found.observation.value, Value(QStringList{QStringLiteral("Video")}));
    EXPECT_EQ(found.dataClass, DataClass::local);
    EXPECT_EQ(found.typeName(), "list");
    EXPECT_EQ(Inspection::describe(found).purpose, "It is tested");
    EXPECT_EQ(Inspection::classOf("tracks"), "local");
}

struct Held {
    char const* meaning;
    void (*hold)(SqliteStorage&);
    State state;
    OwnKey::Rational value;
    std::size_t rows;
    bool readFails;
};

class HeldRational : public DeclaredKeys, public testing::WithParamInterface<Held> {};

TEST_P(HeldRational, HasItsState)
{
    GetParam().hold(m_product);
    PreferenceState const found = state("rate");
    EXPECT_EQ(Inspection::stateName(found.state()), std::string(Inspection::stateName(GetParam().state)));
    EXPECT_EQ(found.observation.value, Value(GetParam().value));
    EXPECT_EQ(found.stored.size(), GetParam().rows);
    EXPECT_EQ(found.readFails, GetParam().readFails);
}

void hold(SqliteStorage& store, int numerator, int denominator)
{
    store.setInt("rate_N", numerator);
    store.setInt("rate_D", denominator);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(
    Table, HeldRational,
    testing::Values(
        Held{"Nothing", [](SqliteStorage&) {}, State::unset, {25, 2}, 0, false},
        Held{"Value", [](SqliteStorage& store) { hold(store, 30000, 1001); }, State::set, {30000, 1001}, 2, false},
        Held{"Default", [](SqliteStorage& store) { hold(store, 25, 2); }, State::setToDefault, {25, 2}, 2, false},
        Held{"DefaultInOtherTerms", [](SqliteStorage& store) { hold(store, 50, 4); }, State::setToDefault, {25, 2}, 2, false},
        Held{"NumeratorOnly", [](SqliteStorage& store) { store.setInt("rate_N", 7); }, State::set, {7, 2}, 1, false},
        Held{"DenominatorOnly", [](SqliteStorage& store) { store.setInt("rate_D", 4); }, State::set, {25, 4}, 1, false},
        Held{"LeastHalves", [](SqliteStorage& store) { hold(store, -2147483647 - 1, -2147483647 - 1); }, State::set, {1, 1}, 2, false},
        Held{"ZeroBelow", [](SqliteStorage& store) { hold(store, 1, 0); }, State::unreadable, {25, 2}, 2, true},
        Held{"ZeroTwice", [](SqliteStorage& store) { hold(store, 0, 0); }, State::unreadable, {25, 2}, 2, true},
        Held{"HalfOfAnotherKind", [](SqliteStorage& store) { store.setInt("rate_N", 7); store.setString("rate_D", "0"); }, State::otherKind, {7, 2}, 2, false},
        Held{"HalfOfALaterVersion", [](SqliteStorage& store) { hold(store, 7, 3); OtherProgram(store.file()).execute("UPDATE settings SET kind = 'date' WHERE key = 'rate_D'"); }, State::otherKind, {7, 2}, 2, false},
        Held{"HalfThatDoesNotFitItsKind", [](SqliteStorage& store) { hold(store, 7, 3); OtherProgram(store.file()).execute("UPDATE settings SET value = 'zz' WHERE key = 'rate_D'"); }, State::unreadable, {7, 2}, 2, false}),
    byMeaning);
// clang-format on

TEST_F(DeclaredKeys, RationalIsWrittenWhole)
{
    state("rate").write(Value(OwnKey::Rational(60000, 2002)));
    EXPECT_EQ(m_product.getInt("rate_N", 0), 30000);
    EXPECT_EQ(m_product.getInt("rate_D", 0), 1001);
}

// The file counts its transactions in the bytes from 24 to 27 of its header.
TEST_F(DeclaredKeys, HalvesOfARationalAreWrittenInOneTransaction)
{
    hold(m_product, 1, 2);
    auto const transactions = [&] {
        std::ifstream file(m_product.file(), std::ios::binary);
        std::array<unsigned char, 28> header = {};
        EXPECT_TRUE(file.read(reinterpret_cast<char*>(header.data()), header.size()));
        return header[26] * 256 + header[27];
    };
    int const before = transactions();
    EXPECT_GT(before, 0);
    state("rate").write(Value(OwnKey::Rational(30000, 1001)));
    EXPECT_EQ(transactions(), before + 1);
}

TEST_F(DeclaredKeys, ChangesToAValueAreCollectedAndNotMade)
{
    auto const changes = [&](char const* key, Value const& value) {
        std::vector<std::string> collected;
        for (SqliteStorage::Change const& change : Inspection::changesTo(m_application, state(key), value))
            collected.push_back(change.key + ' ' + Inspection::storedText(change.value));
        return collected;
    };
    EXPECT_EQ(changes("rate", Value(OwnKey::Rational(60000, 2002))), (std::vector<std::string>{"rate_D 1001", "rate_N 30000"}));
    EXPECT_EQ(changes("flag", Value(false)), std::vector<std::string>{"flag false"});
    EXPECT_EQ(changes("exportPath", Value(QStringLiteral("/films"))), std::vector<std::string>{"exportPath /films"});
    EXPECT_TRUE(m_product.rows().empty());
}

TEST_F(DeclaredKeys, HalfIsKnownAsAStoredIntAndNotByItself)
{
    hold(m_product, 1, 2);
    EXPECT_FALSE(Inspection::preferenceState(m_application, "rate_N"));
    Inspection::KnownKey const half = Inspection::knownKey("rate_D").value();
    EXPECT_EQ(half.kind, Storage::Kind::integer);
    EXPECT_EQ(half.part, OwnKeys::Part::denominator);
    EXPECT_EQ(Inspection::classOf("rate_N"), "local");
}

TEST_F(DeclaredKeys, EachSettingIsListedOnce)
{
    hold(m_product, 1, 2);
    m_product.setInt("rates.a_N", 1);
    m_product.setInt("rates.a_D", 3);
    m_product.setString("word.b", "y");
    m_product.setInt("other", 1);
    m_common.setInt("other", 2);
    m_common.setBool("flag", false); // no read asks there
    std::vector<std::string> shown;
    for (PreferenceState const& each : Inspection::preferenceStates(m_application))
        if (!Catalogue::findPreference(each.key))
            shown.push_back(each.key + ' ' + each.typeName() + ' ' + each.storeName() + ' ' + Inspection::stateName(each.state()) + ' ' +
                            Inspection::text(each.observation.value));
    EXPECT_EQ(shown,
              (std::vector<std::string>{"flag bool product unset true", "other int product undeclared 1", "other int common undeclared 2",
                                        "rate rational product set 1/2", "rates.a rational product set 1/3",
                                        "tracks list product unset Video", "word.b text product set y"}));
}

TEST_F(DeclaredKeys, StoredListIsKnownAsOne)
{
    EXPECT_TRUE(Inspection::knownKey("tracks").value().isList);
    EXPECT_FALSE(Inspection::knownKey("word.x").value().isList);
    EXPECT_FALSE(Inspection::knownKey("other"));
}

TEST_F(DeclaredKeys, UndeclaredKeyHasWhatIsStored)
{
    m_product.setBytes("raw", {1, 2});
    PreferenceState const found = state("raw");
    EXPECT_TRUE(found.isUndeclared());
    EXPECT_EQ(found.typeName(), "bytes");
    EXPECT_EQ(found.observation.value, Value(QByteArray("\1\2")));
    EXPECT_FALSE(found.write);
    EXPECT_EQ(Inspection::classOf("raw"), "");
    OtherProgram(m_product.file()).execute("UPDATE settings SET kind = 'colour' WHERE key = 'raw'");
    EXPECT_EQ(state("raw").typeName(), "colour");
    EXPECT_EQ(state("raw").state(), State::unreadable);
    EXPECT_FALSE(Inspection::preferenceState(m_application, "nothing"));
}

// --- Documents and checks ---

TEST_F(DeclaredKeys, DocumentIsCheckedAgainstTheDeclarations)
{
    auto const fault = [](char const* rows) -> std::string {
        try {
            checkKeys(readDocument(document(rows)), false);
            return "none";
        } catch (DocumentError const& error) {
            return error.what();
        }
    };
    EXPECT_EQ(
        fault(R"("flag": {"kind": "bool", "value": false}, "rate_N": {"kind": "int", "value": 0}, "rate_D": {"kind": "int", "value": 1})"),
        "none");
    EXPECT_EQ(fault(R"("flag": {"kind": "int", "value": 1})"),
              "stores.product.flag.kind is \"int\", which the editor would not read; give a value of kind \"bool\"");
    EXPECT_EQ(fault(R"("rates.x_D": {"kind": "int", "value": 0})"),
              "stores.product.rates.x_D.value is 0, which no rational has below its line; give another number");
}

class DeclaredChecks : public DeclaredKeys {
protected:
    std::vector<std::string> found(Store store)
    {
        std::vector<std::string> result;
        for (Inspection::Finding const& each : Inspection::checkStoredValues(m_application, Inspection::examine(m_application, store)))
            result.push_back(std::string(severityName(each.severity)) + ' ' + checkName(each.check) + ' ' + each.key + ' ' + each.what);
        return result;
    }
};

TEST_F(DeclaredChecks, SoundValuesAreNotFound)
{
    hold(m_product, 1, 2);
    m_product.setBool("flag", false);
    m_product.setString("word.x", "y");
    EXPECT_EQ(found(Store::product), std::vector<std::string>());
}

TEST_F(DeclaredChecks, ValuesAreCheckedAsTheLibrarys)
{
    m_product.setInt("flag", 1);
    m_product.setInt("rate_N", 1);
    m_product.setInt("rates.a_N", 1);
    m_product.setInt("rates.a_D", 0);
    m_product.setString("tracks", "a|#|");
    m_product.setInt("mine_N", 1);
    m_common.setInt("rate_D", 1);
    EXPECT_EQ(found(Store::product),
              (std::vector<std::string>{
                  "note rational-half mine the rational has no mine_D, so a read mixes it with a default",
                  "warning rational-half rate the rational has no rate_D, so a read mixes it with a default",
                  "error rational-zero rates.a the rational's denominator is 0, so every read of it fails",
                  "warning other-kind flag it holds a value of kind int where one of kind bool is read, so the default is read",
                  "warning list-changes tracks the stored list would be another one when it is read and stored again, as it has empty "
                  "elements or a part of the separator"}));
    EXPECT_EQ(found(Store::common),
              (std::vector<std::string>{"warning misplaced-key rate_D it belongs in the product store and is not read here"}));
}

TEST_F(DeclaredChecks, ValueThatTheProductDoesNotAcceptIsFound)
{
    OwnKey word = declared("quality", std::string("draft"));
    word.accepts = {"draft", "final"};
    OwnKey list = declared("meters", QStringList());
    list.accepts = {"peak", "loudness"};
    OwnKey number = declared("gain", 0);
    number.range = std::pair(-60, 12);
    OwnKey folder = declared("proxies.", std::string(), true);
    folder.isFolder = true;
    OwnKey single = declared("renders", std::string());
    single.isFolder = true;
    Inspection::declareOwnKeys(OwnKeys({word, list, number, folder, single}));
    m_product.setString("quality", "final");
    m_product.setString("meters", "peak|#|loudness");
    m_product.setInt("gain", 12);
    m_product.setString("proxies.a", "");
    EXPECT_EQ(found(Store::product), std::vector<std::string>());
    m_product.setString("quality", "Final");
    m_product.setString("meters", "peak|#|vu");
    m_product.setInt("gain", 13);
    m_product.setString("proxies.a", "relative");
    m_product.setString("renders", "relative"); // the checks of folders tell of it
    EXPECT_EQ(found(Store::product),
              (std::vector<std::string>{
                  "warning unusable-value gain the editor cannot use the stored value: it is outside the range that the product accepts",
                  "warning unusable-value meters the editor cannot use the stored value: the product does not accept it",
                  "warning unusable-value proxies.a the editor cannot use the stored value: not absolute: it depends on the folder that "
                  "the editor is started in",
                  "warning unusable-value quality the editor cannot use the stored value: the product does not accept it"}));
}

TEST_F(DeclaredKeys, FolderIsAmongThoseToWriteUnlessItIsEmpty)
{
    OwnKey folder = declared("proxies", std::string());
    folder.isFolder = true;
    Inspection::declareOwnKeys(OwnKeys({folder}));
    std::size_t const others = Inspection::foldersToWrite().size();
    m_product.setString("proxies", m_home.write("file", "").string());
    std::vector<Inspection::WrittenFolder> const folders = Inspection::foldersToWrite();
    ASSERT_EQ(folders.size(), others + 1);
    auto const found = std::find_if(folders.begin(), folders.end(), [](auto const& each) { return each.label == "proxies"; });
    ASSERT_NE(found, folders.end());
    EXPECT_EQ(found->check.reason, Inspection::PathReason::notAFolder);
}

} // namespace
