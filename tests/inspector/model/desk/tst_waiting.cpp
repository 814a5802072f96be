// SPDX-License-Identifier: MIT
//
// Requests that wait for others, and that nobody wants any more.
#include <inspector/model/DeskTest.h>

namespace {

class Waiting : public DeskTest {
protected:
    void startWaiting()
    {
        m_other.set("exportPath", "/films");
        startChanging();
        QObject::connect(&*m_desk, &Inspector::Desk::waits, &m_receiver, [this](int number) { m_waiting.push_back(number); });
        m_program.emplace(m_productFile);
        m_program->execute("PRAGMA busy_timeout = 60000; BEGIN EXCLUSIVE"); // the desk reads now and then
    }

    int setLater(std::string const& value)
    {
        return m_desk->commit(std::vector<Edit>{{setting("exportPath"), QString::fromStdString(value)}});
    }

    std::vector<int> m_waiting;
    std::optional<OtherProgram> m_program;
};

TEST_F(Waiting, RequestSaysOnceThatItWaits)
{
    startWaiting();
    int const first = setLater("/other");
    int const second = m_desk->commit(std::vector<Edit>{{setting("lastTarget"), QStringLiteral("x")}});
    ASSERT_TRUE(comes([&] { return m_waiting.size() == 2; }));
    EXPECT_EQ(m_waiting, (std::vector<int>{first, second}));
    m_program->execute("ROLLBACK");
    EXPECT_EQ(answer(first).outcome, Outcome::stored);
    EXPECT_EQ(answer(second).outcome, Outcome::stored);
    EXPECT_EQ(m_waiting.size(), 2u);
}

TEST_F(Waiting, RequestThatIsDoneAtOnceSaysNothing)
{
    startWaiting();
    m_program.reset();
    EXPECT_EQ(answer(setLater("/other")).outcome, Outcome::stored);
    EXPECT_TRUE(m_waiting.empty());
}

TEST_F(Waiting, CancelledRequestStoresNothingAndLetsTheNextOneThrough)
{
    startWaiting();
    int const first = setLater("/first");
    int const second = m_desk->commit(std::vector<Edit>{{setting("lastTarget"), QStringLiteral("x")}});
    ASSERT_TRUE(comes([&] { return !m_waiting.empty(); }));
    m_desk->cancel(first);
    Answer const cancelled = answer(first);
    EXPECT_EQ(cancelled.outcome, Outcome::cancelled);
    EXPECT_TRUE(cancelled.made.empty());
    EXPECT_EQ(cancelled.whyNot(), QStringLiteral("cancelled; nothing was changed"));
    EXPECT_EQ(m_answers.count(second), 0u) << "still locked";
    m_program->execute("ROLLBACK");
    EXPECT_EQ(answer(second).outcome, Outcome::stored);
    EXPECT_EQ(SqliteStorage(m_productFile).getString("exportPath", ""), "/films");
}

TEST_F(Waiting, RequestBehindAnotherOneIsCancelled)
{
    startWaiting();
    int const first = setLater("/first");
    int const second = setLater("/second");
    m_desk->cancel(second);
    EXPECT_EQ(answer(second).outcome, Outcome::cancelled);
    m_program->execute("ROLLBACK");
    EXPECT_EQ(answer(first).outcome, Outcome::stored);
}

TEST_F(Waiting, WhatIsAnsweredIsNotCancelled)
{
    startWaiting();
    m_program.reset();
    int const number = setLater("/other");
    ASSERT_EQ(answer(number).outcome, Outcome::stored);
    m_desk->cancel(number);
    m_desk->cancel(12345);
    EXPECT_EQ(answer(setLater("/third")).outcome, Outcome::stored);
    EXPECT_EQ(m_answers[number].outcome, Outcome::stored);
}

// Each number has one answer, whenever the cancel comes, and the store holds what the answers say.
TEST_F(Waiting, AnswerSaysTheTruthHoweverTheCancelRacesWithTheChange)
{
    startWaiting();
    m_program.reset();
    int stored = 0;
    int cancelled = 0;
    for (int round = 0; round < times(100, 2000); ++round) {
        std::string const value = "/" + std::to_string(round);
        std::shared_ptr<Setting const> const seen = setting("exportPath");
        int const number = setLater(value);
        if (round % 2 == 0)
            std::this_thread::sleep_for(std::chrono::microseconds(round % 50 * 20));
        m_desk->cancel(number);
        Answer const told = answer(number);
        bool const isStored = told.outcome == Outcome::stored;
        ASSERT_TRUE(isStored || told.outcome == Outcome::cancelled);
        ++(isStored ? stored : cancelled);
        ASSERT_EQ(SqliteStorage(m_productFile).getString("exportPath", "") == value, isStored);
        ASSERT_TRUE(comes([&] { return setting("exportPath")->rows.at(0) == SqliteStorage(m_productFile).find("exportPath"); }));
    }
    EXPECT_GT(stored + cancelled, 0);
}

} // namespace
