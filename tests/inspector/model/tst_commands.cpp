// SPDX-License-Identifier: MIT
//
// What is copied as a command does in a shell what the window does.
#include "DeskTest.h"

#include <Inspector/Commands.h>
#include <Inspector/transfer/DocumentComparison.h>

#include <support/Process.h>

#include <Host/FileContent.h>
#include <Inspection/ExportDocument.h>
#include <Inspection/RowDifference.h>
#include <Inspection/ValueFormat.h>
#include <Storage/Backup.h>

#include <algorithm>
#include <cstdlib>
#include <random>

namespace {

using Content = std::map<std::string, std::pair<std::string, SqliteStorage::Value>>;
using Inspector::Place;
using Words = std::vector<std::string>;

// --- Words ---

TEST(Commands, NameTheSameStores)
{
    EXPECT_EQ(Inspector::command({}, "doctor"), QStringLiteral("editor-settings doctor"));
    EXPECT_EQ(Inspector::command({"/a b/p.json", "/films", true}, "explain", {"exportPath"}),
              QStringLiteral("editor-settings --product '/a b/p.json' --home /films --allow-network explain exportPath"));
    EXPECT_EQ(Inspector::command({}, "paths", {"effectsPath", "it's"}), QStringLiteral("editor-settings paths effectsPath 'it'\\''s'"));
}

TEST(Commands, LeaveTheInstalledProductFileOut)
{
    ::unsetenv("EDITOR_SETTINGS_PRODUCT");
    std::filesystem::path const installed =
        std::filesystem::canonical("/proc/self/exe").parent_path().parent_path() / "share/editor-settings/product.json";
    EXPECT_EQ(Inspector::command({installed, "/films"}, "doctor"), QStringLiteral("editor-settings --home /films doctor"));
    ::setenv("EDITOR_SETTINGS_PRODUCT", "/another.json", 1);
    EXPECT_TRUE(Inspector::command({installed}, "doctor")->startsWith(QStringLiteral("editor-settings --product ")));
    ::unsetenv("EDITOR_SETTINGS_PRODUCT");
}

TEST(Commands, QuoteEachTypeOfValue)
{
    auto const set = [](Catalogue::Value const& value) { return Inspector::commandToSet({}, "key", value).value(); };
    EXPECT_EQ(set(true), QStringLiteral("editor-settings set key true"));
    EXPECT_EQ(set(-5), QStringLiteral("editor-settings set -- key -5"));
    EXPECT_EQ(set(QString()), QStringLiteral("editor-settings set key ''"));
    EXPECT_EQ(set(QStringLiteral("$HOME\n")), QStringLiteral("editor-settings set key '$HOME\n'"));
    EXPECT_EQ(set(QByteArray("\0\xFF", 2)), QStringLiteral("editor-settings set key 'AP8='"));
    EXPECT_EQ(set(QStringList{QStringLiteral("a b"), QStringLiteral("c")}), QStringLiteral("editor-settings set key 'a b' c"));
    EXPECT_EQ(set(QStringList()), QStringLiteral("editor-settings set --empty -- key"));
    EXPECT_EQ(set(boost::rational<long long>(30000, 1001)), QStringLiteral("editor-settings set key 30000/1001"));
    EXPECT_EQ(set(std::string("a\0%\\'", 5)), QStringLiteral("printf -- 'a\\000%%\\\\'\\''' | editor-settings set --from-file - -- key"));
}

TEST(Commands, HideAPersonalValue)
{
    EXPECT_EQ(Inspector::commandToSetHidden({}, "who"), QString::fromUtf8("editor-settings set who '\xE2\x80\xA6'"));
}

TEST(Commands, AreNoneWhereNoTextCanCarryThem)
{
    EXPECT_FALSE(Inspector::commandToUnset({}, {"a\xFF"}));
    EXPECT_FALSE(Inspector::commandToUnset({}, {std::string("a\0b", 3)}));
    EXPECT_FALSE(Inspector::commandToSet({}, "key", QStringList{QString(QChar(0)), QStringLiteral("b")}));
    EXPECT_FALSE(Inspector::command({"/\xFF"}, "doctor"));
}

// --- In a shell ---

class CopiedCommand : public DeskTest {
protected:
    CopiedCommand() { ::setenv("LC_ALL", "C.UTF-8", 1); }

    static Content content(std::filesystem::path const& folder)
    {
        Content result;
        for (char const* const name : {"product-settings.sqlite", "common-settings.sqlite"})
            if (std::filesystem::exists(folder / name))
                for (SqliteStorage::Row const& row : SqliteStorage(folder / name).rows())
                    result[std::string(name) + ' ' + row.key] = {row.kind, row.value};
        return result;
    }

    // In another folder than that of the desk.
    void inShell(std::optional<QString> const& command)
    {
        ASSERT_TRUE(command);
        std::string const path = std::string(TOOL_FOLDER) + ':' + std::getenv("PATH");
        Ended const ended = run({"/bin/sh", "-c", command->toStdString()}, {{"PATH", path}});
        ASSERT_EQ(ended.status, 0) << command->toStdString() << '\n' << ended.err;
    }

    QString randomText()
    {
        static std::vector<QString> const pieces = {
            QStringLiteral("'"),  QStringLiteral("\""),   QStringLiteral("\\"), QStringLiteral("$x"), QStringLiteral("`"),
            QStringLiteral("-"),  QStringLiteral("@"),    QStringLiteral("\n"), QStringLiteral(" "),  QStringLiteral("\t"),
            QStringLiteral("%s"), QStringLiteral("!"),    QStringLiteral("*"),  QStringLiteral("~"),  QStringLiteral("a"),
            QStringLiteral("--"), QString::fromUtf8("ü"), QString(QChar(0)),    QStringLiteral("["),  QStringLiteral("\x1f")};
        QString text;
        for (std::size_t count = m_random() % 5; count > 0; --count)
            text += pieces[m_random() % pieces.size()];
        return text;
    }

    Catalogue::Value randomValue(Catalogue::Value const& like)
    {
        if (std::holds_alternative<bool>(like))
            return m_random() % 2 == 0;
        if (std::holds_alternative<int>(like))
            return static_cast<int>(m_random());
        if (std::holds_alternative<std::string>(like))
            return randomText().toStdString();
        if (std::holds_alternative<QByteArray>(like))
            return randomText().toUtf8() + QByteArray(static_cast<int>(m_random() % 3), '\xFF');
        if (std::holds_alternative<boost::rational<long long>>(like))
            return boost::rational<long long>(static_cast<int>(m_random() % 100) - 50, 1 + m_random() % 9);
        if (!std::holds_alternative<QStringList>(like))
            return randomText();
        QStringList list;
        for (std::size_t count = m_random() % 4; count > 0; --count)
            list << randomText().remove(QChar(0));
        return list;
    }

    std::mt19937 m_random{seed()};
    Place const m_elsewhere{m_place.productFile, m_home.path() / "other"};
};

TEST_F(CopiedCommand, DoesInAShellWhatTheWindowDoes)
{
    startChanging();
    int compared = 0;
    for (int round = 0; round < times(100, 400, 10000); ++round) {
        std::shared_ptr<Setting const> const seen = m_snapshot->settings[m_random() % m_snapshot->settings.size()];
        if (!seen->isSettable)
            continue;
        bool const isReset = m_random() % 4 == 0;
        Catalogue::Value const value = randomValue(seen->value);
        Answer const answer = committed(std::vector<Edit>{{seen, isReset ? std::nullopt : std::optional(value)}});
        if (answer.outcome != Outcome::stored)
            continue;
        ++compared;
        inShell(isReset ? Inspector::commandToUnset(m_elsewhere, {seen->key}) : Inspector::commandToSet(m_elsewhere, seen->key, value));
        ASSERT_EQ(content(*m_elsewhere.storeFolder), content(folder())) << seen->key;
    }
    EXPECT_GT(compared, 20);
}

TEST_F(CopiedCommand, RemovesSeveralKeysAtOnce)
{
    for (std::filesystem::path const& folder : {folder(), *m_elsewhere.storeFolder})
        for (char const* const key : {"exportPath", "-x", "it's"})
            SqliteStorage(folder / "product-settings.sqlite").setString(key, "/films");
    inShell(Inspector::commandToUnset(m_elsewhere, {"exportPath", "-x", "it's"}));
    EXPECT_TRUE(content(*m_elsewhere.storeFolder).empty());
}

// What the window does and what its command does lead to the same rows. Both begin with `first`, in stores of their own.
class CopiedTransfer : public CopiedCommand {
protected:
    void store(std::string const& key, SqliteStorage::Value const& value)
    {
        for (std::filesystem::path const& each : {folder(), *m_elsewhere.storeFolder})
            SqliteStorage(each / "product-settings.sqlite").apply({{key, value}});
    }

    // Values that a product of this kind stores, with quotes and the like in them.
    SqliteStorage::Value randomStored(std::string const& key)
    {
        return key == "npsSendCount" || key == "age" ? SqliteStorage::Value(static_cast<int>(m_random()))
                                                     : SqliteStorage::Value(randomText().toStdString());
    }

    // A document with a random choice of keys, one of which nobody knows.
    std::string randomDocument()
    {
        Inspection::Document document;
        for (std::string const& key : m_keys)
            if (m_random() % 2 == 0) {
                SqliteStorage::Value const value = randomStored(key);
                Storage::Kind const kind = std::holds_alternative<int>(value) ? Storage::Kind::integer : Storage::Kind::text;
                document.entries.push_back({Store::product, kind, key, value});
            }
        return written(document);
    }

    std::vector<std::string> const m_keys = {"age", "exportPath", "lastTarget", "npsSendCount", "who", "zoom"}; // sorted
};

TEST_F(CopiedTransfer, TakesTheSameOfADocument)
{
    store("exportPath", "/films");
    startChanging();
    int compared = 0;
    int byFile = 0;
    for (int round = 0; round < times(30, 120, 3000); ++round) {
        std::filesystem::path const file = m_home.write("it's.json", randomDocument());
        std::shared_ptr<Inspector::DocumentComparison const> const document = answer(m_desk->compare(file)).comparison;
        ASSERT_TRUE(document);
        std::set<std::string> taken;
        bool const isWhole = m_random() % 2 == 0;
        for (auto const& line : document->lines)
            if (isWhole ? line->isTakenAtFirst() : m_random() % 2 == 0)
                taken.insert(line->id);
        std::optional<QString> const command = Inspector::commandToImport(m_elsewhere, *document, taken, true);
        ASSERT_EQ(command.has_value(), !taken.empty());
        if (!command)
            continue;
        ++compared;
        byFile += command->contains(QString::fromStdString(Inspection::shellWord(file.string())));
        ASSERT_EQ(committed(stepOf(*document, taken)).outcome, Outcome::stored);
        inShell(command);
        ASSERT_EQ(content(*m_elsewhere.storeFolder), content(folder())) << command->toStdString();
    }
    EXPECT_GT(compared, 10);
    EXPECT_GT(byFile, 0) << "some choices are those of an option";
    EXPECT_LT(byFile, compared) << "others are not";
}

TEST_F(CopiedTransfer, UndoesAndRedoesTheSame)
{
    store("exportPath", "/films");
    startChanging();
    int compared = 0;
    int const rounds = times(30, 120, 3000);
    for (int round = 0; round < rounds; ++round) {
        std::string const key = std::vector<std::string>{"age", "exportPath", "lastTarget", "npsSendCount", "who"}[m_random() % 5];
        bool const isReset = m_random() % 3 == 0;
        Catalogue::Value const value = randomValue(setting(key)->value);
        Answer const made = committed(std::vector<Edit>{{setting(key), isReset ? std::nullopt : std::optional(value)}});
        if (made.outcome != Outcome::stored)
            continue;
        inShell(isReset ? Inspector::commandToUnset(m_elsewhere, {key}) : Inspector::commandToSet(m_elsewhere, key, value));
        Inspector::Step step = made.made;
        for (int const times : {1, 2}) {
            inShell(Inspector::commandToRevert(m_elsewhere, step, true));
            Answer const undone = committed(step);
            ASSERT_EQ(undone.outcome, Outcome::stored);
            ASSERT_EQ(content(*m_elsewhere.storeFolder), content(folder())) << key << ", " << times;
            step = undone.made;
        }
        ++compared;
    }
    EXPECT_GT(compared, rounds / 3);
}

TEST_F(CopiedTransfer, ExportsAndBacksUpTheSame)
{
    store("exportPath", "/films");
    store("who", "s3cret");
    start();
    for (bool const isRedacted : {true, false}) {
        std::filesystem::path const mine = m_home.path() / (isRedacted ? "mine redacted.json" : "mine.json");
        std::filesystem::path const theirs = m_home.path() / (isRedacted ? "their's redacted.json" : "theirs.json");
        ASSERT_EQ(answer(m_desk->exportTo(mine, isRedacted)).outcome, Outcome::written);
        inShell(Inspector::commandToExport(m_elsewhere, theirs, isRedacted));
        auto const entries = [](std::filesystem::path const& file) {
            std::string const text = Host::fileContent(file);
            return text.substr(text.find("\"product\":"));
        };
        EXPECT_EQ(entries(mine), entries(theirs));
        EXPECT_EQ(entries(mine).find("s3cret") == std::string::npos, isRedacted);
    }
    inShell(Inspector::commandToBackUp(m_elsewhere, m_home.path() / "theirs.backup"));
    ASSERT_EQ(answer(m_desk->backUpTo(m_home.path() / "mine.backup")).outcome, Outcome::written);
    Storage::Backup const mine(m_home.path() / "mine.backup");
    Storage::Backup const theirs(m_home.path() / "theirs.backup");
    EXPECT_EQ(mine.names(), theirs.names());
    EXPECT_TRUE(Storage::rowDifferences(mine.rows("product"), theirs.rows("product")).empty());
}

TEST(Commands, SayWhichPartOfADocument)
{
    auto const lineOf = [](std::string const& key, std::string const& dataClass, SqliteStorage::Value const& value) {
        Inspector::DocumentLine line;
        line.key = line.id = key;
        line.store = Store::product;
        line.wanted = {key, "string", value, {}};
        line.dataClass = dataClass;
        return std::make_shared<Inspector::DocumentLine const>(line);
    };
    Inspector::DocumentComparison document;
    document.file = "/a/settings.json";
    document.lines = {lineOf("exportPath", "local", "/x"), lineOf("lastTarget", "transient", "y"),
                      lineOf("npsEmailToSend", "personal", "s3cret")};
    auto const command = [&](std::set<std::string> const& taken) {
        return Inspector::commandToImport({}, document, taken).value_or(QStringLiteral("none"));
    };
    EXPECT_EQ(command({"exportPath", "lastTarget", "npsEmailToSend"}), QStringLiteral("editor-settings import /a/settings.json"));
    EXPECT_EQ(command({"exportPath", "lastTarget"}),
              QStringLiteral("editor-settings import --only local --only transient /a/settings.json"));
    EXPECT_EQ(command({}), QStringLiteral("none"));
    document.lines.insert(document.lines.begin() + 1, lineOf("importPath", "local", "/y"));
    QString const piped = command({"exportPath", "npsEmailToSend"});
    EXPECT_TRUE(piped.startsWith(QStringLiteral("printf %s '{\n"))) << piped.toStdString();
    EXPECT_TRUE(piped.endsWith(QStringLiteral("' | editor-settings import -"))) << piped.toStdString();
    EXPECT_FALSE(piped.contains(QStringLiteral("s3cret"))) << "nobody asked to see it";
    document.hasUnknown = true;
    EXPECT_EQ(command({"lastTarget"}), QStringLiteral("editor-settings import --only transient --with-unknown /a/settings.json"));
}

// --- The same words ---

class SameWords : public CopiedCommand {
protected:
    std::vector<std::string> toolPrints(std::string const& verb) const
    {
        Ended const ended = run({std::string(TOOL_FOLDER) + "/editor-settings", "--product", m_place.productFile.string(), "--home",
                                 m_place.storeFolder->string(), verb, "--plain"});
        return lines(ended.out);
    }
};

TEST_F(SameWords, SettingsAreThoseOfTheList)
{
    SqliteStorage store(m_productFile);
    store.setString("exportPath", "/a\nb");
    store.setInt("keepVideoAspect", 3);
    store.setString("userCustomColors", "navy|#|red");
    store.setInt("zoom", 7);
    store.setInt("npsSendCount", 0);
    SqliteStorage(m_commonFile).setInt("zoom", 8);
    start();
    std::vector<std::string> shown;
    for (auto const& each : m_snapshot->settings) {
        std::string const type = each->state == Inspection::State::undeclared ? each->rows.at(0).kind : Inspection::typeName(each->value);
        shown.push_back(each->cells[0].toStdString() + '\t' + type + '\t' + each->cells[3].toStdString() + '\t' +
                        each->cells[2].toStdString() + '\t' + each->shownValue.toStdString());
    }
    std::vector<std::string> printed = toolPrints("list");
    std::sort(shown.begin(), shown.end());
    std::sort(printed.begin(), printed.end());
    EXPECT_EQ(shown, printed);
    EXPECT_GT(shown.size(), 55u);
}

TEST_F(SameWords, FindingsAreThoseOfTheDoctor)
{
    SqliteStorage store(m_productFile);
    store.setInt("keepVideoAspect", 3);
    store.setInt("npsSendCount", 2147483647);
    store.setInt("rate_N", 1);
    m_home.write("blocked", "a file");
    store.setString("exportPath", (m_home.path() / "blocked").string());
    start();
    ASSERT_TRUE(comesToBeExamined());
    std::vector<std::string> shown;
    for (auto const& each : m_snapshot->findings)
        shown.push_back(each->cells[0].toStdString() + '\t' + Inspection::checkName(each->found.check) + '\t' + each->found.what + '\t' +
                        each->found.remedy);
    std::vector<std::string> printed;
    for (std::string const& line : toolPrints("doctor"))
        if (line.compare(0, 4, "fact") != 0) {
            std::size_t const where = line.find('\t', line.find('\t') + 1);
            printed.push_back(line.substr(0, where) + line.substr(line.find('\t', where + 1)));
        }
    std::sort(shown.begin(), shown.end());
    std::sort(printed.begin(), printed.end());
    EXPECT_EQ(shown, printed);
    EXPECT_GT(shown.size(), 3u);
}

} // namespace
