// SPDX-License-Identifier: MIT
//
// What an export takes from the stores, how a document differs from them, and what an import changes.
#include "Stores.h"

#include <Inspection/DocumentTransfer.h>

#include <support/OtherProgram.h>
#include <support/Table.h>

#include <climits>

namespace {

using Inspection::changeName;
using Inspection::Comparison;
using Inspection::exported;
using Inspection::imported;
using Inspection::NewValue;
using Inspection::Outcome;

class DocumentTransfer : public Stores {
protected:
    struct Compared : Comparison {
        std::vector<std::string> differences; // one line each
        std::deque<NewValue> values;          // of the document
    };

    Compared compared(Host::ToolApplication const& application, Inspection::Selection const& selection, Document document) const
    {
        Compared result;
        auto const take = [&](Inspection::Difference difference) {
            auto const& [store, row] = difference;
            result.differences.push_back(std::string(changeName(row.change())) + (store == Store::product ? " product " : " common ") +
                                         row.key);
            if (row.after)
                result.values.push_back({store, row.key, row.after->value});
        };
        static_cast<Comparison&>(result) = Inspection::compared(application, selection, std::move(document), take);
        return result;
    }

    // Imports the entries into the stores in `folder`.
    Inspection::Imported importInto(char const* folder, std::string const& content) const
    {
        Host::ToolApplication const application = bound(folder);
        return imported(application, compared(application, {}, readDocument(content)).values);
    }
};

TEST_F(DocumentTransfer, RedactionKeepsValuesByTheirClass)
{
    put(productFile(), {{"npsEmailToSend", std::string("jane@example.com")},
                        {"exportPath", std::string("/films")},
                        {"mainWindowState", Bytes{0, 255}},
                        {"lastTarget", std::string("disc")},
                        {"favorites_fonts", std::string("Verdana")},
                        {"Indication/x", Bytes{1}},
                        {"unknown", std::string("secret")}});
    put(commonFile(), {{"autoUpdate", false}});
    Host::ToolApplication const application = bound();
    Inspection::Export const result = exported(application, {{}, true});
    Values kept;
    std::vector<std::string> redacted;
    for (Entry const& entry : result.document.entries) {
        if (entry.isRedacted())
            redacted.push_back(entry.key);
        else
            kept[entry.key] = entry.value;
    }
    EXPECT_EQ(kept, (Values{{"Indication/x", Bytes{1}},
                            {"lastTarget", std::string("disc")},
                            {"favorites_fonts", std::string("Verdana")},
                            {"autoUpdate", false}}));
    EXPECT_EQ(redacted, (std::vector<std::string>{"exportPath", "mainWindowState", "npsEmailToSend"}));
    ASSERT_EQ(result.unknown.size(), 1u);
    EXPECT_EQ(result.unknown[0].first, Store::product);
    EXPECT_EQ(result.unknown[0].second, 1u);
}

// The kind decides that is stored, not the one that the editor would store.
TEST_F(DocumentTransfer, LocalValueOfAnotherKindIsRedacted)
{
    put(commonFile(), {{"autoUpdate", std::string("/home/jane")}});
    Host::ToolApplication const application = bound();
    Inspection::Export const result = exported(application, {{}, true});
    ASSERT_EQ(result.document.entries.size(), 1u);
    EXPECT_TRUE(result.document.entries[0].isRedacted());
}

TEST_F(DocumentTransfer, RowsThatNoDocumentHoldsAreListed)
{
    put(productFile(), {{"npsSendCount", 1}, {"lastTarget", std::string("x")}, {std::string("a\0b", 3), 1}});
    OtherProgram(productFile()).execute("UPDATE settings SET kind = 'later' WHERE key = 'lastTarget'");
    Host::ToolApplication const application = bound();
    Inspection::Export const result = exported(application, {});
    ASSERT_EQ(result.document.entries.size(), 1u);
    EXPECT_EQ(result.document.entries[0].key, "npsSendCount");
    Compared const comparison = compared(application, {}, result.document);
    EXPECT_TRUE(comparison.differences.empty());
    for (auto const* rows : {&result.uncarried, &comparison.uncarried}) {
        ASSERT_EQ(rows->size(), 2u);
        EXPECT_EQ(rows->at(0).key, std::string("a\0b", 3));
        EXPECT_TRUE(rows->at(0).isReadable);
        EXPECT_EQ(rows->at(1).kind, "later");
        EXPECT_FALSE(rows->at(1).isReadable);
    }
}

// Values of a type, from those that the editor stores to those that only another program would.
std::vector<SqliteStorage::Value> valuesOfType(std::string const& type)
{
    if (type == "bool")
        return {true, false};
    if (type == "int")
        return {0, -1, INT_MAX, INT_MIN};
    if (type == "QByteArray")
        return {Bytes{}, Bytes{0, 255, 10, 34}, Bytes(100000, 0x5c)};
    return {std::string(), std::string("|#||#|"), std::string("\xFF\0\n\"", 4), std::string(100000, '\\')};
}

TEST_F(DocumentTransfer, EveryPreferenceSurvivesTheRoundTrip)
{
    for (std::size_t round = 0; round < 4; ++round) {
        Values product = {{"Indication/\xC3\xBC\\\"\n", valuesOfType("QByteArray")[round % 3]},
                          {"favorites_", valuesOfType("QStringList")[round]}};
        Values common;
        for (PreferenceRow const& row : preferenceTable()) {
            std::vector<SqliteStorage::Value> const values = valuesOfType(row.type);
            if (row.hasAccessors())
                (row.store == "common" ? common : product)[row.key] = values[round % values.size()];
        }
        ASSERT_EQ(product.size() + common.size(), 57u);
        put(productFile(), product);
        put(commonFile(), common);
        std::string const whole = written(exported(bound(), {}).document);
        std::string const other = std::to_string(round);
        checkKeys(readDocument(whole), false);
        EXPECT_FALSE(importInto(other.c_str(), whole).error);
        EXPECT_EQ(valuesOf(m_home.path() / other / "product-settings.sqlite"), product);
        EXPECT_EQ(valuesOf(m_home.path() / other / "common-settings.sqlite"), common);
        Compared const again = compared(bound(other.c_str()), {}, readDocument(whole));
        EXPECT_TRUE(again.differences.empty());
        EXPECT_EQ(again.same, 57u);
    }
}

TEST_F(DocumentTransfer, ClassOfTheCatalogueSelectsAndNotThatOfTheDocument)
{
    put(productFile(), {{"keepVideoAspect", false}, {"npsSendCount", 1}, {"unknown", 1}});
    Host::ToolApplication const application = bound();
    Document const wanted = readDocument(document(R"("exportPath": {"kind": "string", "class": "roaming", "value": "/x"},
                                                     "lastTarget": {"kind": "string", "class": "later", "value": "y"})"));
    EXPECT_EQ(compared(application, {{"roaming"}, false}, wanted).differences, std::vector<std::string>{"removed product keepVideoAspect"});
    EXPECT_EQ(compared(application, {{"local"}, false}, wanted).differences, std::vector<std::string>{"added product exportPath"});
    EXPECT_EQ(compared(application, {{"transient", "roaming"}, false}, wanted).differences,
              (std::vector<std::string>{"removed product keepVideoAspect", "added product lastTarget", "removed product npsSendCount"}));
    EXPECT_EQ(exported(application, {{"transient"}, false}).document.entries.size(), 1u);
}

TEST_F(DocumentTransfer, ComparisonCountsWhatIsSameAndWhatIsRedacted)
{
    put(productFile(), {{"npsSendCount", 1}, {"lastTarget", std::string("same")}, {"snapshotPath", std::string("/x")}});
    Compared const comparison = compared(bound(), {}, readDocument(document(R"("npsSendCount": {"kind": "string", "value": "1"},
            "lastTarget": {"kind": "string", "value": "same"}, "snapshotPath": {"kind": "string", "redacted": true},
            "projectPath": {"kind": "string", "redacted": true}, "theirs": {"kind": "int", "value": 1})")));
    EXPECT_EQ(comparison.differences, (std::vector<std::string>{"changed product npsSendCount", "added product theirs"}));
    EXPECT_EQ(comparison.same, 1u);
    EXPECT_EQ(comparison.redacted, 2u);
}

TEST_F(DocumentTransfer, ImportMergesAndRewritesOnlyDifferences)
{
    put(productFile(), {{"npsSendCount", std::string("2")}, {"lastTarget", std::string("same")}, {"exportPath", std::string("/kept")}});
    OtherProgram(productFile()).execute("UPDATE settings SET changed = 5");
    Inspection::Imported const result =
        importInto("stores", document(R"("npsSendCount": {"kind": "int", "value": 2}, "lastTarget": {"kind": "string", "value": "same"})",
                                      R"("autoUpdate": {"kind": "bool", "value": false})"));
    EXPECT_FALSE(result.error);
    ASSERT_EQ(result.outcomes.size(), 2u);
    EXPECT_EQ(result.outcomes[1].second, Outcome::imported);
    EXPECT_EQ(valuesOf(productFile()),
              (Values{{"npsSendCount", 2}, {"lastTarget", std::string("same")}, {"exportPath", std::string("/kept")}}));
    EXPECT_EQ(valuesOf(commonFile()), (Values{{"autoUpdate", false}}));
    EXPECT_EQ(OtherProgram(productFile()).ask("SELECT group_concat(key) FROM settings WHERE changed = 5"), "exportPath,lastTarget");
}

TEST_F(DocumentTransfer, ImportWithoutDifferencesCreatesNoStore)
{
    EXPECT_FALSE(importInto("stores", document("")).error);
    EXPECT_FALSE(std::filesystem::exists(productFile()));
}

char const* const bothStores = R"("npsSendCount": {"kind": "int", "value": 2})";
// Another program is in the midst of a change: the store can be read, and takes no changes.
char const* const refuseChanges = "BEGIN IMMEDIATE";

TEST_F(DocumentTransfer, StoreThatTakesNoChangesKeepsTheOtherUnchanged)
{
    put(productFile(), {{"npsSendCount", 1}});
    put(commonFile(), {{"autoUpdate", false}});
    OtherProgram(commonFile()).execute("PRAGMA user_version = 2");
    Inspection::Imported const result = importInto("stores", document(bothStores, R"("autoUpdate": {"kind": "bool", "value": true})"));
    ASSERT_TRUE(result.error);
    EXPECT_EQ(result.error->code(), Storage::StorageError::Code::newer);
    EXPECT_TRUE(result.outcomes.empty());
    EXPECT_EQ(valuesOf(productFile()), (Values{{"npsSendCount", 1}}));
    EXPECT_FALSE(importInto("stores", document(bothStores)).error) << "the other store has no difference";
}

TEST_F(DocumentTransfer, FailureOfTheFirstStoreLeavesTheSecondUnchanged)
{
    put(productFile(), {{"npsSendCount", 1}, {"exportPath", std::string("/kept")}});
    put(commonFile(), {{"autoUpdate", false}});
    OtherProgram other(productFile());
    other.execute(refuseChanges);
    Inspection::Imported const result =
        importInto("stores", document(R"("exportPath": {"kind": "string", "value": "x"}, "npsSendCount": {"kind": "int", "value": 2})",
                                      R"("autoUpdate": {"kind": "bool", "value": true})"));
    EXPECT_TRUE(result.error);
    ASSERT_EQ(result.outcomes.size(), 2u);
    EXPECT_EQ(result.outcomes[0], std::make_pair(Store::product, Outcome::unchanged));
    EXPECT_EQ(result.outcomes[1], std::make_pair(Store::common, Outcome::unchanged));
    EXPECT_EQ(valuesOf(productFile()), (Values{{"npsSendCount", 1}, {"exportPath", std::string("/kept")}}));
    EXPECT_EQ(valuesOf(commonFile()), (Values{{"autoUpdate", false}}));
}

TEST_F(DocumentTransfer, FailureOfTheSecondStoreLeavesTheFirstImported)
{
    put(productFile(), {{"npsSendCount", 1}});
    put(commonFile(), {{"sendStatistics", false}});
    OtherProgram other(commonFile());
    other.execute(refuseChanges);
    Inspection::Imported const result = importInto("stores", document(bothStores, R"("sendStatistics": {"kind": "bool", "value": true})"));
    ASSERT_EQ(result.outcomes.size(), 2u);
    EXPECT_EQ(result.outcomes[0], std::make_pair(Store::product, Outcome::imported));
    EXPECT_EQ(result.outcomes[1], std::make_pair(Store::common, Outcome::unchanged));
    EXPECT_EQ(valuesOf(productFile()), (Values{{"npsSendCount", 2}}));
}

} // namespace
