// SPDX-License-Identifier: MIT
//
// What is stored, over what, and the answers.
#include <inspector/model/DeskTest.h>

namespace {

using Inspector::Step;
using Storage::StorageError;
using Rational = boost::rational<long long>;

class Committing : public DeskTest {
protected:
    SqliteStorage::Value stored(std::string const& key) const
    {
        std::optional<SqliteStorage::Row> const row = SqliteStorage(m_productFile).find(key);
        return row ? row->value : SqliteStorage::Value();
    }

    std::size_t rowCount() const { return SqliteStorage(m_productFile).rows().size(); }
};

TEST_F(Committing, ValueIsStoredWithItsKind)
{
    m_other.set("exportPath", "/films");
    startChanging();
    Answer const answer = set("exportPath", QStringLiteral("/other"));
    EXPECT_EQ(answer.outcome, Outcome::stored);
    ASSERT_EQ(answer.made.size(), 1u);
    EXPECT_EQ(answer.made[0].row.before->value, SqliteStorage::Value("/films"));
    EXPECT_EQ(answer.made[0].row.after, SqliteStorage(m_productFile).find("exportPath"));
    EXPECT_EQ(stored("exportPath"), SqliteStorage::Value("/other"));
    EXPECT_EQ(cell("exportPath"), "/other") << "the snapshot comes before the answer";
    EXPECT_EQ(m_snapshot->changes.at(0)->cells[1], QStringLiteral("this window"));
    EXPECT_TRUE(m_snapshot->changes.at(0)->byThisWindow);
}

TEST_F(Committing, ListAndBytesAreStoredAsTheLibraryDoes)
{
    m_other.set("exportPath", "/films");
    m_other.set("Indication/tour", "a text in its place");
    startChanging();
    EXPECT_EQ(set("userCustomColors", QStringList{QStringLiteral("navy"), QStringLiteral("#ff8800")}).outcome, Outcome::stored);
    EXPECT_EQ(set("Indication/tour", QByteArray("\0\xFF\x80", 3)).outcome, Outcome::stored);
    EXPECT_EQ(stored("userCustomColors"), SqliteStorage::Value("navy|#|#ff8800"));
    EXPECT_EQ(stored("Indication/tour"), SqliteStorage::Value(std::vector<unsigned char>{0, 0xFF, 0x80}));
}

TEST_F(Committing, ResetRemovesTheRow)
{
    m_other.set("exportPath", "/films");
    startChanging();
    EXPECT_EQ(reset("exportPath").outcome, Outcome::stored);
    EXPECT_EQ(rowCount(), 0u);
    EXPECT_EQ(cell("exportPath", Setting::stateColumn), "unset");
}

// --- What is not written ---

TEST_F(Committing, ValueThatIsReadAlreadyIsNotWritten)
{
    m_other.set("exportPath", "/films");
    startChanging();
    EXPECT_EQ(set("exportPath", QStringLiteral("/films")).outcome, Outcome::unchanged);
    EXPECT_EQ(set("keepVideoAspect", setting("keepVideoAspect")->defaultValue).outcome, Outcome::unchanged) << "the default";
    EXPECT_EQ(set("rate", Rational(50, 2)).outcome, Outcome::unchanged) << "the default in other terms";
    EXPECT_EQ(rowCount(), 1u);
    EXPECT_EQ(SqliteStorage(m_productFile).changesOfOthers(), SqliteStorage(m_productFile).changesOfOthers());
}

TEST_F(Committing, WhatTheCommandLineRefusesIsRefused)
{
    m_other.set("zoom", "1");
    startChanging();
    EXPECT_EQ(set("userCustomColors", QStringList{QString()}).reason, "an empty element is lost when the list is read back; leave it out");
    EXPECT_EQ(set("exportPath", QString(QChar(0xFEFF)) + QLatin1Char('x')).reason,
              "give text in UTF-8 without a byte order mark, as anything else would not come back unchanged");
    Answer const undeclared = set("zoom", std::string("2"));
    EXPECT_EQ(undeclared.outcome, Outcome::refused);
    EXPECT_EQ(undeclared.reason, "it takes nothing: it is not declared");
    EXPECT_EQ(rowCount(), 1u);
}

// --- Over what ---

TEST_F(Committing, RowThatSomebodyElseChangedIsAConflict)
{
    m_other.set("exportPath", "/films");
    startChanging();
    std::shared_ptr<Setting const> const seen = setting("exportPath");
    m_other.set("exportPath", "/theirs");
    Answer const answer = committed(std::vector<Edit>{{seen, QStringLiteral("/mine")}});
    EXPECT_EQ(answer.outcome, Outcome::conflict);
    EXPECT_EQ(answer.key, "exportPath");
    EXPECT_EQ(answer.there->value, SqliteStorage::Value("/theirs"));
    EXPECT_EQ(stored("exportPath"), SqliteStorage::Value("/theirs"));
    m_other.remove("exportPath");
    Answer const gone = committed(std::vector<Edit>{{seen, std::nullopt}});
    EXPECT_EQ(gone.outcome, Outcome::conflict);
    EXPECT_FALSE(gone.there);
}

TEST_F(Committing, EqualValueThatWasStoredAgainIsNoConflict)
{
    m_other.set("exportPath", "/films");
    startChanging();
    std::shared_ptr<Setting const> const seen = setting("exportPath");
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
    m_other.set("exportPath", "/films");
    EXPECT_EQ(committed(std::vector<Edit>{{seen, QStringLiteral("/mine")}}).outcome, Outcome::stored);
    EXPECT_EQ(stored("exportPath"), SqliteStorage::Value("/mine"));
}

TEST_F(Committing, SeveralEditsAreStoredTogetherOrNotAtAll)
{
    m_other.set("exportPath", "/films");
    m_other.set("lastTarget", "a");
    startChanging();
    std::vector<Edit> const edits = {{setting("exportPath"), QStringLiteral("/mine")}, {setting("lastTarget"), std::nullopt}};
    m_other.set("lastTarget", "b");
    EXPECT_EQ(committed(edits).outcome, Outcome::conflict);
    EXPECT_EQ(stored("exportPath"), SqliteStorage::Value("/films"));
    ASSERT_TRUE(comesToShow("lastTarget", "b"));
    EXPECT_EQ(committed(std::vector<Edit>{{setting("exportPath"), QStringLiteral("/mine")}, {setting("lastTarget"), std::nullopt}}).outcome,
              Outcome::stored);
    EXPECT_EQ(rowCount(), 1u);
}

TEST_F(Committing, RationalIsStoredWhole)
{
    m_other.set("exportPath", "/films");
    startChanging();
    EXPECT_EQ(set("rate", Rational(30000, 1001)).outcome, Outcome::stored);
    EXPECT_EQ(stored("rate_N"), SqliteStorage::Value(30000));
    EXPECT_EQ(stored("rate_D"), SqliteStorage::Value(1001));
    EXPECT_EQ(cell("rate"), "30000/1001");
    std::shared_ptr<Setting const> const seen = setting("rate");
    SqliteStorage(m_productFile).setInt("rate_D", 1000);
    EXPECT_EQ(committed(std::vector<Edit>{{seen, Rational(24, 1)}}).outcome, Outcome::conflict) << "half of it is another one";
    EXPECT_EQ(stored("rate_N"), SqliteStorage::Value(30000));
}

// --- Missing stores ---

TEST_F(Committing, FirstValueMakesItsStoreOnly)
{
    startChanging();
    EXPECT_EQ(set("exportPath", QStringLiteral("/films")).outcome, Outcome::stored);
    EXPECT_EQ(stored("exportPath"), SqliteStorage::Value("/films"));
    EXPECT_FALSE(std::filesystem::exists(m_commonFile));
    EXPECT_TRUE(comesToShow("exportPath", "/films"));
}

TEST_F(Committing, StoreThatIsGoneIsNotMadeForAConflict)
{
    m_other.set("exportPath", "/films");
    startChanging();
    std::shared_ptr<Setting const> const seen = setting("exportPath");
    std::filesystem::remove(m_productFile);
    ASSERT_TRUE(comesToShow("exportPath", "unset", Setting::stateColumn));
    EXPECT_EQ(committed(std::vector<Edit>{{seen, QStringLiteral("/mine")}}).outcome, Outcome::conflict);
    EXPECT_EQ(committed(std::vector<Edit>{{seen, std::nullopt}}).outcome, Outcome::conflict);
    EXPECT_FALSE(std::filesystem::exists(m_productFile));
}

TEST_F(Committing, StoreIsNotMadeBelowAHomeFolderThatIsMissing)
{
    m_place.storeFolder.reset();
    ::setenv("HOME", (m_home.path() / "missing").c_str(), 1);
    ::unsetenv("XDG_DATA_HOME");
    startChanging();
    Answer const answer = set("lastTarget", QStringLiteral("x"));
    EXPECT_EQ(answer.outcome, Outcome::failed);
    ASSERT_TRUE(answer.error);
    EXPECT_EQ(answer.error->code(), StorageError::Code::access);
    EXPECT_FALSE(std::filesystem::exists(m_home.path() / "missing"));
}

// --- Races ---

// Two processes change one key at once. Each commit is stored over the value that was seen, or ends as a conflict.
TEST_F(Committing, NoUpdateIsLostInARaceWithAnotherProcess)
{
    m_other.set("lastTarget", "start");
    startChanging();
    int const rounds = times(300, 10000);
    int stored = 0;
    int conflicts = 0;
    int lost = 0;
    std::string current = "start"; // as the order of the changes has it
    for (int round = 0; round < rounds; ++round) {
        std::shared_ptr<Setting const> const seen = setting("lastTarget");
        std::string const mine = "mine " + std::to_string(round);
        int const number = m_desk->commit(std::vector<Edit>{{seen, QString::fromStdString(mine)}});
        if (round % 3 != 0)
            m_other.set("lastTarget", "theirs" + std::to_string(round));
        ASSERT_TRUE(comes([&] { return m_answers.count(number) > 0; }));
        Answer const& answer = m_answers[number];
        std::string const before = std::get<std::string>(seen->rows.at(0).value);
        if (answer.outcome == Outcome::stored) {
            ++stored;
            lost += std::get<std::string>(answer.made.at(0).row.before->value) != before;
        } else {
            ASSERT_EQ(answer.outcome, Outcome::conflict);
            ++conflicts;
            lost += answer.there->value == seen->rows.at(0).value;
        }
        ASSERT_TRUE(comes([&] { return setting("lastTarget")->rows.at(0) == SqliteStorage(m_productFile).find("lastTarget"); }));
    }
    EXPECT_EQ(stored + conflicts, rounds);
    EXPECT_GT(stored, 0);
    EXPECT_EQ(lost, 0);
}

} // namespace
