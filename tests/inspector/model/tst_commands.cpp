// SPDX-License-Identifier: MIT
//
// What is copied as a command does in a shell what the window does.
#include "DeskTest.h"

#include <Inspector/Commands.h>

#include <support/Process.h>

#include <Inspection/ValueFormat.h>

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
    for (int round = 0; round < times(60, 400, 2000); ++round) {
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
