// SPDX-License-Identifier: MIT
//
// What the desk finds in stores of every condition, and that it changes none of them while it looks.
#include <inspector/model/DeskTest.h>

#include <storage/support/StoreFolder.h>

#include <QElapsedTimer>

#include <fstream>
#include <sys/stat.h>

namespace {

namespace fs = std::filesystem;
using Inspection::StoreState;
using Storage::StorageError;

class Looking : public DeskTest {
protected:
    // All that a write or a replacement would change.
    static std::string traceOf(fs::path const& file)
    {
        struct stat status = {};
        EXPECT_EQ(::stat(file.c_str(), &status), 0) << file;
        std::ostringstream trace;
        trace << status.st_ino << ' ' << status.st_size << ' ' << status.st_mtim.tv_sec << '.' << status.st_mtim.tv_nsec << ' '
              << status.st_ctim.tv_sec << '.' << status.st_ctim.tv_nsec << ' ' << StoreFolder::content(file);
        return trace.str();
    }

    std::vector<std::string> files() const
    {
        std::vector<std::string> names;
        if (fs::exists(folder()))
            for (fs::directory_entry const& entry : fs::directory_iterator(folder()))
                names.push_back(entry.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }

    // "who store key before after" of each change, the newest first.
    std::vector<std::string> journal() const
    {
        std::vector<std::string> result;
        for (auto const& change : m_snapshot->changes)
            result.push_back(change->cells.mid(1).join(QLatin1Char(' ')).toStdString());
        return result;
    }
};

// --- Snapshots ---

TEST_F(Looking, SettingsHaveTheirStatesAndValues)
{
    SqliteStorage(m_productFile).setString("exportPath", "/films");
    SqliteStorage(m_productFile).setInt("npsSendCount", 0);
    SqliteStorage(m_productFile).setString("keepVideoAspect", "yes");
    SqliteStorage(m_productFile).setInt("zoomLevel", 42);
    SqliteStorage(m_commonFile).setBool("sendStatistics", false);
    start();
    EXPECT_EQ(cell("exportPath"), "/films");
    EXPECT_EQ(cell("exportPath", Setting::stateColumn), "set");
    EXPECT_EQ(cell("exportPath", Setting::storeColumn), "product");
    EXPECT_EQ(cell("exportPath", Setting::classColumn), "local");
    EXPECT_EQ(cell("exportPath", Setting::defaultColumn), (m_home.path() / "Videos/Lumora Library").string());
    EXPECT_EQ(setting("exportPath")->computedBy, "defaultLumoraLibraryPath");
    EXPECT_EQ(cell("exportPath", Setting::changedColumn),
              Inspection::inLocalTime(SqliteStorage(m_productFile).find("exportPath")->changed));
    EXPECT_EQ(setting("exportPath")->spoken, QStringLiteral("exportPath, /films, set"));
    EXPECT_EQ(cell("npsSendCount", Setting::stateColumn), "set to default");
    EXPECT_EQ(cell("keepVideoAspect", Setting::stateColumn), "other kind");
    EXPECT_EQ(cell("keepVideoAspect"), "true");
    EXPECT_EQ(cell("zoomLevel", Setting::stateColumn), "undeclared");
    EXPECT_FALSE(setting("zoomLevel")->isSettable);
    EXPECT_EQ(cell("sendStatistics", Setting::valueColumn, Store::common), "false");
    EXPECT_EQ(cell("recordingPath", Setting::stateColumn), "(none)");
}

TEST_F(Looking, LinesThatDidNotChangeAreTheSameObjects)
{
    SqliteStorage(m_productFile).setString("exportPath", "/films");
    start();
    ASSERT_TRUE(comesToBeExamined());
    auto const earlier = m_snapshot;
    m_other.set("zoom", "1");
    ASSERT_TRUE(comesToShow("zoom", "1"));
    ASSERT_EQ(m_snapshot->settings.size(), earlier->settings.size() + 1);
    for (auto const& line : earlier->settings)
        EXPECT_EQ(setting(line->key, line->store), line) << line->key;
    EXPECT_EQ(m_snapshot->locations, earlier->locations);
}

TEST_F(Looking, LocationsHaveTheirStatus)
{
    m_home.write("Videos/blocked", "a file");
    SqliteStorage(m_productFile).setString("exportPath", (m_home.path() / "Videos/blocked").string());
    start();
    ASSERT_TRUE(comesToBeExamined());
    for (auto const& location : m_snapshot->locations)
        if (location->id == "exportPath") {
            EXPECT_EQ(location->cells[3], QStringLiteral("not a folder"));
            EXPECT_FALSE(location->isUsable);
            ASSERT_FALSE(location->decidedBy.empty());
            return;
        }
    FAIL() << "no exportPath";
}

TEST_F(Looking, FindingsMarkTheirSettings)
{
    SqliteStorage(m_productFile).setString("npsSendCount", "three");
    m_home.write("Videos/blocked", "a file");
    SqliteStorage(m_productFile).setString("exportPath", (m_home.path() / "Videos/blocked").string());
    start();
    ASSERT_TRUE(comes([this] { return setting("npsSendCount")->searchText.endsWith(QStringLiteral("\t@trouble")); }));
    ASSERT_TRUE(comes([this] { return setting("exportPath")->searchText.endsWith(QStringLiteral("\t@trouble")); }));
    EXPECT_FALSE(setting("keepVideoAspect")->searchText.contains(QStringLiteral("@trouble")));
    EXPECT_EQ(m_snapshot->findings.front()->cells[0], QStringLiteral("error"));
    EXPECT_EQ(m_snapshot->findings.back()->cells[0], QStringLiteral("note"));
}

// --- No write while looking ---

TEST_F(Looking, LooksChangeNothing)
{
    SqliteStorage(m_productFile).setString("exportPath", "/films");
    SqliteStorage(m_commonFile).setBool("sendStatistics", false);
    std::string const product = traceOf(m_productFile);
    std::string const common = traceOf(m_commonFile);
    std::vector<std::string> const before = files();
    start();
    ASSERT_TRUE(comesToBeExamined());
    m_desk->lookAgain();
    ASSERT_EQ(set("exportPath", QStringLiteral("/other")).outcome, Outcome::lookingOnly);
    ASSERT_EQ(reset("exportPath").outcome, Outcome::lookingOnly);
    m_desk->allowChanges(true);
    ASSERT_EQ(set("exportPath", QStringLiteral("/films")).outcome, Outcome::unchanged);
    ASSERT_EQ(reset("lastTarget").outcome, Outcome::unchanged);
    m_desk.reset();
    EXPECT_EQ(traceOf(m_productFile), product);
    EXPECT_EQ(traceOf(m_commonFile), common);
    EXPECT_EQ(files(), before);
}

TEST_F(Looking, MissingStoreStaysMissing)
{
    start();
    ASSERT_TRUE(comesToBeExamined());
    EXPECT_EQ(m_snapshot->product.state, StoreState::missing);
    EXPECT_EQ(cell("exportPath", Setting::stateColumn), "unset");
    m_desk.reset();
    EXPECT_FALSE(fs::exists(folder()));
}

// --- Changes of others ---

TEST_F(Looking, ChangesOfOthersAreShownAndNoted)
{
    m_other.set("exportPath", "/films");
    start();
    m_other.set("exportPath", "/other");
    ASSERT_TRUE(comesToShow("exportPath", "/other"));
    m_other.remove("exportPath");
    ASSERT_TRUE(comesToShow("exportPath", "unset", Setting::stateColumn));
    EXPECT_EQ(journal(), (std::vector<std::string>{"somebody else product exportPath /other (unset)",
                                                   "somebody else product exportPath /films /other"}));
    EXPECT_TRUE(setting("exportPath")->searchText.contains(QStringLiteral("\t@changed")));
}

TEST_F(Looking, StoreThatAppearsIsRead)
{
    start();
    m_other.set("exportPath", "/films");
    ASSERT_TRUE(comesToShow("exportPath", "/films"));
    EXPECT_EQ(m_snapshot->product.state, StoreState::usable);
    EXPECT_EQ(journal(), std::vector<std::string>{"somebody else product exportPath (unset) /films"});
}

TEST_F(Looking, StoreThatIsReplacedIsRead)
{
    m_other.set("exportPath", "/films");
    start();
    SqliteStorage(folder() / "new.sqlite").setString("exportPath", "/other");
    fs::rename(folder() / "new.sqlite", m_productFile);
    ASSERT_TRUE(comesToShow("exportPath", "/other"));
    m_other.set("exportPath", "/last");
    ASSERT_TRUE(comesToShow("exportPath", "/last"));
}

TEST_F(Looking, StoreThatIsRemovedIsMissing)
{
    m_other.set("exportPath", "/films");
    start();
    fs::remove(m_productFile);
    ASSERT_TRUE(comesToShow("exportPath", "unset", Setting::stateColumn));
    EXPECT_EQ(m_snapshot->product.state, StoreState::missing);
}

TEST_F(Looking, EqualValueThatIsStoredAgainHasItsNewTime)
{
    m_other.set("exportPath", "/films");
    start();
    ASSERT_TRUE(comesToBeExamined());
    m_other.set("zoom", "1");
    ASSERT_TRUE(comesToShow("zoom", "1")) << "nothing else is left to be read";
    auto const earlier = setting("exportPath")->rows.at(0).changed;
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
    m_other.set("exportPath", "/films");
    ASSERT_TRUE(comes([&] { return setting("exportPath")->rows.at(0).changed > earlier; }));
    EXPECT_EQ(journal(), std::vector<std::string>{"somebody else product zoom (unset) 1"});
}

// --- Stores in trouble ---

TEST_F(Looking, DamagedStoreIsToldAndTheOtherOneWorks)
{
    m_home.write("stores/product-settings.sqlite", "not a store");
    SqliteStorage(m_commonFile).setBool("sendStatistics", false);
    start();
    EXPECT_EQ(m_snapshot->product.state, StoreState::unusable);
    EXPECT_EQ(m_snapshot->product.error->code(), StorageError::Code::damaged);
    EXPECT_EQ(cell("exportPath"), "");
    EXPECT_EQ(cell("exportPath", Setting::stateColumn), "cannot be read");
    EXPECT_FALSE(setting("exportPath")->state);
    EXPECT_EQ(cell("sendStatistics", Setting::valueColumn, Store::common), "false");
    SqliteStorage(m_commonFile).setBool("sendStatistics", true);
    EXPECT_TRUE(comesToShow("sendStatistics", "true", Setting::valueColumn, Store::common));
    fs::remove(m_productFile);
    m_other.set("exportPath", "/films");
    EXPECT_TRUE(comesToShow("exportPath", "/films"));
    EXPECT_EQ(m_snapshot->product.state, StoreState::usable);
}

TEST_F(Looking, StoreThatIsDamagedLaterKeepsItsLines)
{
    m_other.set("exportPath", "/films");
    m_other.set("zoom", "1");
    start();
    fs::rename(m_home.write("garbage", "not a store"), m_productFile);
    ASSERT_TRUE(comes([this] { return m_snapshot->product.state == StoreState::unusable; }));
    EXPECT_EQ(cell("exportPath"), "/films");
    EXPECT_EQ(cell("zoom"), "1");
}

TEST_F(Looking, StoreOfALaterVersionIsReadOnly)
{
    m_other.set("exportPath", "/films");
    OtherProgram(m_productFile).execute("PRAGMA user_version = 2");
    startChanging();
    EXPECT_EQ(m_snapshot->product.state, StoreState::readOnly);
    EXPECT_EQ(m_snapshot->product.error->code(), StorageError::Code::newer);
    EXPECT_EQ(cell("exportPath"), "/films");
    Answer const answer = set("exportPath", QStringLiteral("/other"));
    EXPECT_EQ(answer.outcome, Outcome::failed);
    EXPECT_EQ(answer.error->code(), StorageError::Code::newer);
    EXPECT_EQ(SqliteStorage(m_productFile).getString("exportPath", ""), "/films");
}

TEST_F(Looking, LockedStoreHoldsUpNobody)
{
    m_other.set("exportPath", "/films");
    startChanging();
    OtherProgram program(m_productFile);
    program.execute("PRAGMA busy_timeout = 60000; BEGIN EXCLUSIVE"); // the desk reads now and then
    int const number = m_desk->commit(std::vector<Edit>{{setting("exportPath"), QStringLiteral("/other")}});
    SqliteStorage(m_commonFile).setBool("sendStatistics", true);
    ASSERT_TRUE(comesToShow("sendStatistics", "set to default", Setting::stateColumn, Store::common)) << "while the other one is locked";
    EXPECT_EQ(cell("exportPath"), "/films");
    EXPECT_EQ(m_answers.count(number), 0u);
    program.execute("ROLLBACK");
    ASSERT_TRUE(comes([&] { return m_answers.count(number) > 0; }));
    EXPECT_EQ(m_answers[number].outcome, Outcome::stored);
    EXPECT_TRUE(comesToShow("exportPath", "/other"));
    EXPECT_EQ(m_snapshot->product.state, StoreState::usable);
}

TEST_F(Looking, StoreThatIsLockedFromTheStartIsNoChangeOnceItIsFree)
{
    m_other.set("exportPath", "/films");
    OtherProgram program(m_productFile);
    program.execute("PRAGMA busy_timeout = 60000; BEGIN EXCLUSIVE"); // the desk reads now and then
    start();
    EXPECT_EQ(m_snapshot->product.error->code(), StorageError::Code::busy);
    EXPECT_EQ(cell("exportPath", Setting::stateColumn), "cannot be read");
    program.execute("ROLLBACK");
    ASSERT_TRUE(comesToShow("exportPath", "/films"));
    EXPECT_TRUE(m_snapshot->changes.empty());
}

// One wait of the store's own would take five seconds, and the lock is held until the end.
TEST_F(Looking, EndDoesNotWaitForALockedStore)
{
    m_other.set("exportPath", "/films");
    startChanging();
    OtherProgram program(m_productFile);
    program.execute("PRAGMA busy_timeout = 60000; BEGIN EXCLUSIVE"); // the desk reads now and then
    m_desk->commit(std::vector<Edit>{{setting("exportPath"), QStringLiteral("/other")}});
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    QElapsedTimer ending;
    ending.start();
    m_desk.reset();
    EXPECT_LT(ending.elapsed(), 4000);
    program.execute("ROLLBACK");
    EXPECT_EQ(SqliteStorage(m_productFile).getString("exportPath", ""), "/films");
}

TEST_F(Looking, CommitGivesUpOnAStoreThatStaysLocked)
{
    m_other.set("exportPath", "/films");
    startChanging();
    OtherProgram program(m_productFile);
    program.execute("PRAGMA busy_timeout = 60000; BEGIN EXCLUSIVE"); // the desk reads now and then
    Answer const answer = set("exportPath", QStringLiteral("/other"));
    EXPECT_EQ(answer.outcome, Outcome::failed);
    EXPECT_EQ(answer.error->code(), StorageError::Code::busy);
    program.execute("ROLLBACK");
}

TEST_F(Looking, ProductFileThatCannotBeReadIsTheOnlyFinding)
{
    m_place.productFile = m_home.write("product.json", "{");
    start();
    ASSERT_EQ(m_snapshot->findings.size(), 1u);
    EXPECT_EQ(m_snapshot->findings[0]->found.check, Inspection::Check::productFile);
    EXPECT_TRUE(m_snapshot->settings.empty());
    m_home.write("product.json", R"({"vendorName": "V", "productName": "P", "sharedDataFolderName": "S", "productKind": 0,
        "projectFileExtensions": [], "resourcesRoot": "r"})");
    m_desk->lookAgain();
    EXPECT_TRUE(comes([this] { return !m_snapshot->settings.empty(); }));
}

} // namespace
