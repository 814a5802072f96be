// SPDX-License-Identifier: MIT
//
// Documents and backups: what they hold, how they differ from the stores, and what is taken of them.
#include "DeskTest.h"

#include <Inspector/Commands.h>
#include <Inspector/History.h>
#include <Inspector/transfer/ComparisonModel.h>

#include <Inspection/ExportDocument.h>
#include <Storage/Backup.h>
#include <storage/support/StoreFolder.h>

#include <sys/stat.h>

namespace {

namespace fs = std::filesystem;
using Inspector::ComparisonModel;
using Inspector::DocumentComparison;

constexpr char const* document = R"({"format": "editor-settings export", "version": 1, "made": "2026-11-20T16:40:53.344Z", "product": "P",
    "stores": {"product": {
        "exportPath": {"kind": "string", "class": "local", "value": "/other"},
        "lastTarget": {"kind": "string", "class": "transient", "value": "same"},
        "npsEmailToSend": {"kind": "string", "class": "personal", "redacted": true},
        "who": {"kind": "string", "class": "personal", "value": "s3cret"},
        "zoom": {"kind": "int", "class": null, "value": 42}},
    "common": {"sendStatistics": {"kind": "bool", "class": "roaming", "value": false}}}})";

class Transfer : public DeskTest {
protected:
    std::shared_ptr<DocumentComparison const> comparisonWith(std::string const& text)
    {
        Answer const found = answer(m_desk->compare(m_home.write("settings.json", text)));
        EXPECT_EQ(found.outcome, Outcome::compared) << found.reason;
        return found.comparison;
    }

    std::string refusalOf(std::string const& text)
    {
        Answer found = answer(m_desk->compare(m_home.write("settings.json", text)));
        EXPECT_EQ(found.outcome, Outcome::refused);
        std::string const file = (m_home.path() / "settings.json").string();
        std::size_t const name = found.reason.find(file);
        return name == std::string::npos ? found.reason : found.reason.replace(name, file.size(), "FILE");
    }

    // "key | stored | file | class | choice" of each line.
    static std::vector<std::string> linesOf(ComparisonModel const& model)
    {
        std::vector<std::string> lines;
        for (int row = 0; row < model.rowCount(); ++row) {
            std::string line;
            for (int const column : {0, 2, 3, 4})
                line += model.index(row, column).data().toString().toStdString() + " | ";
            bool const isFree = model.flags(model.index(row, 0)) & Qt::ItemIsUserCheckable;
            bool const isTaken = model.index(row, 0).data(Qt::CheckStateRole).toInt() == Qt::Checked;
            lines.push_back(line + (isTaken ? "taken" : isFree ? "left" : "never"));
        }
        return lines;
    }

    SqliteStorage::Value stored(std::string const& key, fs::path const& file) const
    {
        std::optional<SqliteStorage::Row> const row = fs::exists(file) ? SqliteStorage(file).find(key) : std::nullopt;
        return row ? row->value : SqliteStorage::Value();
    }
};

// --- Comparing ---

TEST_F(Transfer, LinesSayWhatDiffersAndWhatIsTaken)
{
    m_other.set("exportPath", "/films");
    m_other.set("lastTarget", "same");
    m_other.set("npsEmailToSend", "third.one@example.org");
    m_other.set("onlyHere", "1");
    start();
    ComparisonModel model;
    model.show(comparisonWith(document));
    EXPECT_EQ(linesOf(model),
              (std::vector<std::string>{"exportPath | /films | /other | local | taken",
                                        "npsEmailToSend | personal, hidden | redacted | personal | never",
                                        "sendStatistics | (unset) | false | roaming | taken",
                                        "who | (unset) | personal, hidden | personal | taken", "zoom | (unset) | 42 |  | left"}));
    EXPECT_EQ(model.comparison()->product, "P");
    EXPECT_EQ(model.comparison()->made, "2026-11-20T16:40:53.344Z");
    EXPECT_EQ(model.comparison()->same, 1u);
    EXPECT_EQ(model.comparison()->onlyHere, 1u);
    EXPECT_EQ(model.index(0, 0).data(Qt::AccessibleTextRole).toString(),
              QStringLiteral("exportPath, stored /films, in the file /other, taken"));
    EXPECT_EQ(model.index(1, 0).data(Qt::AccessibleTextRole).toString(),
              QStringLiteral("npsEmailToSend, stored personal, hidden, in the file redacted, cannot be taken"));
    model.show(nullptr);
    EXPECT_EQ(model.rowCount(), 0);
    EXPECT_TRUE(model.step().empty());
}

TEST_F(Transfer, ChoiceIsChangedByTheCheckBoxOnly)
{
    start();
    ComparisonModel model;
    int changes = 0;
    QObject::connect(&model, &ComparisonModel::takenChanged, &m_receiver, [&] { ++changes; });
    model.show(comparisonWith(document));
    QModelIndex const first = model.index(0, 0);
    EXPECT_TRUE(model.setData(first, Qt::Unchecked, Qt::CheckStateRole));
    EXPECT_TRUE(model.setData(first, Qt::Unchecked, Qt::CheckStateRole));
    EXPECT_EQ(changes, 2) << "one for the comparison, one for the choice";
    EXPECT_EQ(model.taken().count(model.line(0).id), 0u);
    EXPECT_TRUE(model.setData(first, Qt::Checked, Qt::CheckStateRole));
    EXPECT_FALSE(model.setData(model.index(1, 0).siblingAtColumn(1), Qt::Checked, Qt::CheckStateRole));
    EXPECT_FALSE(model.setData(first, QStringLiteral("x"), Qt::EditRole));
    for (int row = 0; row < model.rowCount(); ++row)
        EXPECT_EQ(model.setData(model.index(row, 0), Qt::Checked, Qt::CheckStateRole), !model.line(row).isRedacted);
}

// --- Importing ---

TEST_F(Transfer, WhatIsTakenIsStoredInOneStepAndUndone)
{
    m_other.set("exportPath", "/films");
    startChanging();
    ComparisonModel model;
    model.show(comparisonWith(document));
    Inspector::History history;
    int const number = m_desk->commit(model.step());
    history.sent(number, Inspector::History::Way::edit);
    Answer const imported = answer(number);
    ASSERT_EQ(imported.outcome, Outcome::stored) << imported.whyNot().toStdString();
    history.answered(imported);
    EXPECT_EQ(stored("exportPath", m_productFile), SqliteStorage::Value("/other"));
    EXPECT_EQ(stored("lastTarget", m_productFile), SqliteStorage::Value("same"));
    EXPECT_EQ(stored("who", m_productFile), SqliteStorage::Value("s3cret"));
    EXPECT_EQ(stored("sendStatistics", m_commonFile), SqliteStorage::Value(false));
    EXPECT_EQ(stored("zoom", m_productFile), SqliteStorage::Value()) << "unknown";
    EXPECT_EQ(stored("npsEmailToSend", m_productFile), SqliteStorage::Value()) << "redacted";
    EXPECT_EQ(committed(*history.next(Inspector::History::Way::undo)).outcome, Outcome::stored);
    EXPECT_EQ(SqliteStorage(m_productFile).rows().size(), 1u);
    EXPECT_EQ(stored("exportPath", m_productFile), SqliteStorage::Value("/films"));
    EXPECT_TRUE(SqliteStorage(m_commonFile).rows().empty());
}

TEST_F(Transfer, RowThatChangedSinceTheComparisonIsAConflict)
{
    m_other.set("exportPath", "/films");
    startChanging();
    ComparisonModel model;
    model.show(comparisonWith(document));
    m_other.set("exportPath", "/theirs");
    Answer const answer = committed(model.step());
    EXPECT_EQ(answer.outcome, Outcome::conflict);
    EXPECT_EQ(answer.key, "exportPath");
    EXPECT_EQ(answer.whyNot(), QStringLiteral("exportPath was changed by somebody else meanwhile"));
    EXPECT_EQ(SqliteStorage(m_productFile).rows().size(), 1u) << "all or nothing";
}

// --- Documents of strangers ---

TEST_F(Transfer, WhatIsNoDocumentIsRefusedWithTheReason)
{
    start();
    EXPECT_EQ(refusalOf("x"),
              "'FILE': line 1, column 1: syntax error while parsing value - invalid literal; correct it there, or export the "
              "file again");
    EXPECT_EQ(refusalOf("{}"),
              "'FILE': format is missing, so this is no export of settings; give a file that 'editor-settings export' made");
    EXPECT_EQ(refusalOf(R"({"format": "editor-settings export", "version": 1, "stores": {"common": {"exportPath": {"kind": "string",
        "value": "/x"}}}})"),
              "'FILE': stores.common.exportPath is kept in the other store; move it to stores.product");
    EXPECT_EQ(refusalOf(R"({"format": "editor-settings export", "version": 1, "stores": {")" + std::string(500, 'k') + R"(": {}}})"),
              "'FILE': stores." + std::string(99, 'k') + "\xE2\x80\xA6 means nothing; remove it: what stands there is product, common");
}

TEST_F(Transfer, WhatIsNoRegularFileIsRefusedAndHoldsUpNobody)
{
    start();
    fs::path const fifo = m_home.path() / "fifo";
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    EXPECT_EQ(answer(m_desk->compare(fifo)).reason,
              "cannot read '" + fifo.string() + "' (it is not a regular file); name a file that 'editor-settings export' made");
    EXPECT_EQ(answer(m_desk->compare(m_home.path())).reason,
              "cannot read '" + m_home.path().string() + "' (it is a folder); name a file that 'editor-settings export' made");
    fs::path const large = m_home.write("large.json", "");
    fs::resize_file(large, 64 * 1024 * 1024 + 1);
    EXPECT_EQ(answer(m_desk->compare(large)).reason,
              "cannot read '" + large.string() + "' (it is larger than 67108864 bytes); name a file that 'editor-settings export' made");
}

// --- Exporting and backing up ---

TEST_F(Transfer, ExportHasNoPersonalValueUnlessItIsAskedFor)
{
    m_other.set("exportPath", "/films");
    m_other.set("lastTarget", "a");
    m_other.set("who", "s3cret");
    m_other.set("unknown", "s3cret");
    start();
    fs::path const file = m_home.path() / "new/export.json";
    Answer const redacted = answer(m_desk->exportTo(file));
    EXPECT_EQ(redacted.outcome, Outcome::written) << redacted.whyNot().toStdString();
    EXPECT_EQ(redacted.file, file);
    EXPECT_EQ(redacted.notes, std::vector<std::string>{"1 unknown key in the product store left out"});
    std::string const content = StoreFolder::content(file);
    EXPECT_EQ(content.find("s3cret"), std::string::npos);
    EXPECT_EQ(content.find("/films"), std::string::npos) << "a folder may name the user";
    EXPECT_NE(content.find(R"("lastTarget": {"kind": "string", "class": "transient", "value": "a"})"), std::string::npos);
    Answer const again = answer(m_desk->exportTo(file));
    EXPECT_EQ(again.outcome, Outcome::refused);
    EXPECT_EQ(again.reason, "'" + file.string() + "' is there already and was left as it is; name a new file, or move that one away");
    EXPECT_EQ(answer(m_desk->exportTo(m_home.path() / "all.json", false)).outcome, Outcome::written);
    EXPECT_NE(StoreFolder::content(m_home.path() / "all.json").find("s3cret"), std::string::npos);
}

TEST_F(Transfer, FileThatCannotBeWrittenIsAFailure)
{
    m_other.set("exportPath", "/films");
    start();
    Answer const failed = answer(m_desk->exportTo("/proc/none/export.json"));
    EXPECT_EQ(failed.outcome, Outcome::failed);
    EXPECT_FALSE(failed.whyNot().isEmpty());
    EXPECT_EQ(answer(m_desk->backUpTo("/proc/none/settings.backup")).outcome, Outcome::failed);
}

TEST_F(Transfer, BackupHoldsBothStores)
{
    start();
    fs::path const file = m_home.path() / "settings.backup";
    EXPECT_EQ(answer(m_desk->backUpTo(file)).reason, "there is no store yet, so there is nothing to back up");
    m_other.set("exportPath", "/films");
    SqliteStorage(m_commonFile).setBool("sendStatistics", false);
    ASSERT_TRUE(comesToShow("exportPath", "/films"));
    ASSERT_TRUE(comesToShow("sendStatistics", "false", Setting::valueColumn, Store::common));
    Answer const written = answer(m_desk->backUpTo(file));
    ASSERT_EQ(written.outcome, Outcome::written) << written.whyNot().toStdString();
    Storage::Backup const backup(file);
    EXPECT_EQ(backup.names(), (std::vector<std::string>{"common", "product"}));
    EXPECT_EQ(backup.rows("product").at(0).value, SqliteStorage::Value("/films"));
    EXPECT_EQ(answer(m_desk->backUpTo(file)).outcome, Outcome::failed) << "it is there already";
}

TEST_F(Transfer, NothingIsTakenOfAProductFileThatCannotBeRead)
{
    m_place.productFile = m_home.write("product.json", "{");
    startChanging();
    EXPECT_EQ(answer(m_desk->compare(m_home.write("settings.json", document))).outcome, Outcome::refused);
    EXPECT_EQ(answer(m_desk->exportTo(m_home.path() / "x.json")).outcome, Outcome::refused);
    EXPECT_EQ(answer(m_desk->backUpTo(m_home.path() / "x.backup")).outcome, Outcome::refused);
}

} // namespace
