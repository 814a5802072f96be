// SPDX-License-Identifier: MIT
//
// Undo and redo of what a window stored, with the changes of others between.
#include "DeskTest.h"

#include <Inspector/History.h>

#include <algorithm>
#include <random>
#include <set>

namespace {

using Inspector::History;
using Inspector::Step;
using Way = History::Way;

// Without times: what comes back was changed just now.
using Content = std::map<std::string, std::tuple<std::string, SqliteStorage::Value, SqliteStorage::Payload>>;

class Histories : public DeskTest {
protected:
    Content content() const
    {
        Content result;
        for (SqliteStorage::Row const& row : SqliteStorage(m_productFile).rows())
            result[row.key] = {row.kind, row.value, row.payload};
        return result;
    }

    Answer committedFor(Way way, Inspector::Commit const& commit)
    {
        int const number = m_desk->commit(commit);
        m_history.sent(number, way);
        EXPECT_TRUE(comes([&] { return m_answers.count(number) > 0; }));
        m_history.answered(m_answers[number]);
        return m_answers[number];
    }

    Answer edit(std::vector<Edit> const& edits) { return committedFor(Way::edit, edits); }
    Answer edit(std::string const& key, std::optional<Catalogue::Value> const& value)
    {
        return edit(std::vector<Edit>{{setting(key), value}});
    }
    Answer go(Way way) { return committedFor(way, m_history.next(way).value()); }

    // As long as there is something to undo. Each answer must be that it was done, or a conflict.
    int undoAll()
    {
        int conflicts = 0;
        while (m_history.next(Way::undo)) {
            Answer const answer = go(Way::undo);
            EXPECT_TRUE(answer.outcome == Outcome::stored || answer.outcome == Outcome::conflict);
            conflicts += answer.outcome == Outcome::conflict;
        }
        return conflicts;
    }

    void waitForContent()
    {
        ASSERT_TRUE(comes([this] {
            std::vector<SqliteStorage::Row> seen;
            for (auto const& each : m_snapshot->settings)
                if (each->store == Store::product)
                    seen.insert(seen.end(), each->rows.begin(), each->rows.end());
            std::sort(seen.begin(), seen.end(), [](auto const& left, auto const& right) { return left.key < right.key; });
            return seen == SqliteStorage(m_productFile).rows();
        }));
    }

    History m_history;
};

TEST_F(Histories, StepsAreUndoneAndDoneAgain)
{
    m_other.set("exportPath", "/films");
    startChanging();
    Content const first = content();
    edit("exportPath", QStringLiteral("/a"));
    edit("exportPath", QStringLiteral("/b"));
    edit("exportPath", std::nullopt);
    Content const last = content();
    EXPECT_EQ(undoAll(), 0);
    EXPECT_EQ(content(), first);
    for (int step = 0; step < 3; ++step)
        EXPECT_EQ(go(Way::redo).outcome, Outcome::stored);
    EXPECT_FALSE(m_history.next(Way::redo));
    EXPECT_EQ(content(), last);
    EXPECT_EQ(undoAll(), 0);
    EXPECT_EQ(content(), first);
}

TEST_F(Histories, EditEndsWhatCouldBeDoneAgain)
{
    m_other.set("exportPath", "/films");
    startChanging();
    edit("exportPath", QStringLiteral("/a"));
    go(Way::undo);
    EXPECT_TRUE(m_history.next(Way::redo));
    edit("exportPath", QStringLiteral("/b"));
    EXPECT_FALSE(m_history.next(Way::redo));
}

TEST_F(Histories, ChangeOfSomebodyElseIsNotUndone)
{
    m_other.set("exportPath", "/films");
    startChanging();
    edit("exportPath", QStringLiteral("/a"));
    m_other.set("exportPath", "/theirs");
    Answer const answer = go(Way::undo);
    EXPECT_EQ(answer.outcome, Outcome::conflict);
    EXPECT_EQ(answer.there->value, SqliteStorage::Value("/theirs"));
    EXPECT_FALSE(m_history.next(Way::undo)) << "the step is forgotten";
    EXPECT_EQ(SqliteStorage(m_productFile).getString("exportPath", ""), "/theirs");
}

TEST_F(Histories, RestOfAStepIsUndoneWithoutTheKeyThatSomebodyElseChanged)
{
    m_other.set("exportPath", "/films");
    m_other.set("lastTarget", "x");
    startChanging();
    edit({{setting("exportPath"), std::nullopt}, {setting("lastTarget"), std::nullopt}});
    m_other.set("exportPath", "/theirs");
    EXPECT_EQ(undoAll(), 1);
    EXPECT_EQ(SqliteStorage(m_productFile).getString("exportPath", ""), "/theirs");
    EXPECT_EQ(SqliteStorage(m_productFile).getString("lastTarget", ""), "x");
}

TEST_F(Histories, StepOverBothStoresIsUndone)
{
    m_other.set("exportPath", "/films");
    SqliteStorage(m_commonFile).setBool("sendStatistics", false);
    startChanging();
    edit({{setting("exportPath"), std::nullopt}, {setting("sendStatistics", Store::common), std::nullopt}});
    EXPECT_FALSE(SqliteStorage(m_commonFile).contains("sendStatistics"));
    EXPECT_EQ(undoAll(), 0);
    EXPECT_EQ(SqliteStorage(m_commonFile).find("sendStatistics")->value, SqliteStorage::Value(false));
    EXPECT_EQ(SqliteStorage(m_productFile).getString("exportPath", ""), "/films");
}

TEST_F(Histories, ValueOfALaterVersionComesBackByteForByte)
{
    m_other.set("exportPath", "/films");
    OtherProgram(m_productFile).execute("UPDATE settings SET kind = 'colour', value = x'00ff'");
    startChanging();
    Content const first = content();
    EXPECT_EQ(edit("exportPath", std::nullopt).outcome, Outcome::stored);
    EXPECT_TRUE(content().empty());
    EXPECT_EQ(undoAll(), 0);
    EXPECT_EQ(content(), first);
    EXPECT_EQ(std::get<0>(content().at("exportPath")), "colour");
}

TEST_F(Histories, NextStepWaitsForTheAnswer)
{
    m_other.set("exportPath", "/films");
    startChanging();
    edit("exportPath", QStringLiteral("/a"));
    edit("exportPath", QStringLiteral("/b"));
    m_history.sent(1000, Way::undo);
    EXPECT_FALSE(m_history.next(Way::undo));
    EXPECT_FALSE(m_history.next(Way::redo));
    m_history.answered({1000, Outcome::failed});
    EXPECT_TRUE(m_history.next(Way::undo)) << "a step that failed stays";
}

// --- Random histories ---

class RandomHistories : public Histories, public testing::WithParamInterface<unsigned> {
protected:
    std::string randomKey() { return m_keys[m_random() % m_keys.size()]; }

    Catalogue::Value randomValue(Setting const& of)
    {
        int const number = static_cast<int>(m_random() % 4);
        if (std::holds_alternative<int>(of.value))
            return number + 1;
        if (std::holds_alternative<QByteArray>(of.value))
            return QByteArray(number, '\xFF');
        if (std::holds_alternative<boost::rational<long long>>(of.value))
            return boost::rational<long long>(number + 1, 3);
        return QString::number(number);
    }

    Edit randomEdit()
    {
        std::shared_ptr<Setting const> const seen = setting(randomKey());
        return m_random() % 3 == 0 ? Edit{seen, std::nullopt} : Edit{seen, randomValue(*seen)};
    }

    void ownStep()
    {
        std::vector<Edit> edits = {randomEdit()};
        if (Edit const another = randomEdit(); another.seen->key != edits[0].seen->key && m_random() % 2 == 0)
            edits.push_back(another);
        edit(edits);
    }

    void stepOfOthers()
    {
        std::string const key = randomKey();
        std::string const row = key == "rate" ? "rate_D" : key;
        if (m_random() % 3 == 0)
            m_other.remove(row);
        else if (m_random() % 2 == 0)
            m_other.set(row, "theirs" + std::to_string(m_random()));
        else
            m_other.count(row, 1 + static_cast<int>(m_random() % 3));
        m_theirs.insert(row);
    }

    void randomSteps()
    {
        for (std::size_t count = 1 + m_random() % 10; count > 0; --count) {
            if (m_random() % 4 == 0)
                waitForContent();
            switch (m_random() % 6) {
            case 0:
            case 1:
                stepOfOthers();
                break;
            case 2:
                if (Way const way = m_random() % 2 == 0 ? Way::undo : Way::redo; m_history.next(way))
                    go(way);
                break;
            default:
                ownStep();
            }
        }
    }

    std::vector<std::string> const m_keys = {"exportPath", "npsSendCount", "mainWindowGeometry", "rate", "lastTarget"};
    std::mt19937 m_random{seed() + GetParam()};
    std::set<std::string> m_theirs; // rows that others have changed
};

TEST_P(RandomHistories, UndoingAllOwnStepsGivesTheFirstRowsButForWhatOthersChanged)
{
    m_other.set("exportPath", "/films");
    startChanging();
    int conflicts = 0;
    int restored = 0;
    int const cases = times(25, 200, 2500);
    for (int number = 0; number < cases; ++number) {
        m_history = History();
        m_theirs.clear();
        waitForContent();
        Content const first = content();
        randomSteps();
        conflicts += undoAll();
        Content const last = content();
        for (char const* const row : {"exportPath", "npsSendCount", "mainWindowGeometry", "rate_N", "rate_D", "lastTarget"}) {
            if (m_theirs.count(row) > 0)
                continue;
            ++restored;
            ASSERT_EQ(last.count(row), first.count(row)) << "case " << number << ", " << row;
            if (first.count(row) > 0) {
                ASSERT_EQ(last.at(row), first.at(row)) << "case " << number << ", " << row;
            }
        }
    }
    EXPECT_GT(conflicts, 0);
    EXPECT_GT(restored, cases);
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomHistories, testing::Range(0u, 4u));

} // namespace
