// SPDX-License-Identifier: MIT
//
// Changes that a thread collects and commits in one transaction.
#include <storage/support/FaultySystem.h>
#include <storage/support/StoreFolder.h>

#include <Settings/Settings.h>
#include <Storage/Backup.h>
#include <Storage/Batch.h>
#include <TestKit/FixedProductInfo.h>
#include <TestKit/ScopedBinding.h>
#include <TestKit/StorageContract.h>

#include <support/Named.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <memory>
#include <stdexcept>
#include <thread>
#include <type_traits>

static_assert(!std::is_copy_constructible_v<Storage::Batch>, "a batch belongs to one thread and one scope");

namespace {

using namespace std::chrono_literals;
using Storage::Batch;
using Storage::SqliteStorage;
using Storage::StorageError;
using Bytes = std::vector<unsigned char>;
using Keys = std::vector<std::string>;

// A store whose every change is in a batch of this thread.
struct CollectingBackend {
    std::shared_ptr<ISettingsStorage> open() { return store; }

    TestKit::TemporaryHome home;
    std::shared_ptr<SqliteStorage> store = std::make_shared<SqliteStorage>(home.path() / "store.sqlite");
    Batch batch{*store};
};

} // namespace

namespace TestKit {
INSTANTIATE_TYPED_TEST_SUITE_P(Collecting, StorageContract, CollectingBackend);
}

namespace {

SqliteStorage::Options withoutWaiting()
{
    SqliteStorage::Options options;
    options.busyTimeout = 0ms;
    return options;
}

template <typename Work>
void onAnotherThread(Work const& work)
{
    std::thread(work).join();
}

class Batches : public StoreFolder {
protected:
    static Keys keys(SqliteStorage const& store)
    {
        Keys keys;
        for (SqliteStorage::Row const& row : store.rows())
            keys.push_back(row.key);
        return keys;
    }

    SqliteStorage m_store{path(), withoutWaiting()};
    SqliteStorage m_other{path()}; // what is stored
};

// --- Collecting ---

TEST_F(Batches, ChangesAreStoredByTheCommitAndNotBefore)
{
    m_store.setInt("gone", 1);
    Batch batch(m_store);
    m_store.setBool("flag", true);
    m_store.setInt("number", 7);
    m_store.setString("text", "first");
    m_store.setString("text", "second");
    m_store.setBytes("bytes", {0, 255});
    m_store.remove("gone");
    EXPECT_EQ(keys(m_other), Keys{"gone"});
    batch.commit();
    EXPECT_EQ(keys(m_other), (Keys{"bytes", "flag", "number", "text"}));
    EXPECT_TRUE(m_other.getBool("flag", false));
    EXPECT_EQ(m_other.getInt("number", 0), 7);
    EXPECT_EQ(m_other.getString("text", ""), "second");
    EXPECT_EQ(m_other.getBytes("bytes", {}), (Bytes{0, 255}));
}

TEST_F(Batches, BatchWithoutACommitIsDropped)
{
    m_store.setInt("key", 1);
    {
        Batch const batch(m_store);
        m_store.setInt("key", 2);
        m_store.setInt("new", 2);
    }
    EXPECT_EQ(m_store.getInt("key", 0), 1);
    EXPECT_EQ(keys(m_store), Keys{"key"});
    m_store.setInt("key", 3);
    EXPECT_EQ(m_other.getInt("key", 0), 3);
}

TEST_F(Batches, BatchIsDroppedByAnException)
{
    try {
        Batch const batch(m_store);
        m_store.setInt("key", 1);
        throw std::runtime_error("of the host");
    } catch (std::runtime_error const&) {
    }
    EXPECT_FALSE(m_store.contains("key"));
}

TEST_F(Batches, CollectionIsEmptyAfterACommitAndGoesOn)
{
    Batch batch(m_store);
    m_store.setInt("first", 1);
    batch.commit();
    m_other.setInt("first", 2);
    EXPECT_EQ(m_store.getInt("first", 0), 2);
    m_store.setInt("second", 1);
    EXPECT_FALSE(m_other.contains("second"));
    batch.commit();
    EXPECT_EQ(m_other.getInt("first", 0), 2);
    EXPECT_EQ(m_other.getInt("second", 0), 1);
}

TEST_F(Batches, NobodyIsKeptOutWhileABatchIsOpen)
{
    Batch batch(m_store);
    m_store.setInt("key", 1);
    OtherProgram(path()).execute("BEGIN EXCLUSIVE; INSERT INTO settings VALUES ('foreign', 'int', 1, 1000); COMMIT");
    batch.commit();
    EXPECT_EQ(keys(m_other), (Keys{"foreign", "key"}));
}

TEST_F(Batches, ChangesAreTheLastOfEachKeyForAnotherThreadToApply)
{
    Batch batch(m_store);
    m_store.setInt("a", 1);
    m_store.setInt("a", 2);
    m_store.remove("b");
    std::vector<SqliteStorage::Change> const changes = batch.changes();
    ASSERT_EQ(changes.size(), 2u);
    EXPECT_EQ(changes[0].key, "a");
    EXPECT_EQ(changes[0].value, SqliteStorage::Value(2));
    EXPECT_EQ(changes[1].key, "b");
    EXPECT_EQ(changes[1].value, SqliteStorage::Value());
    m_other.setInt("b", 1);
    onAnotherThread([&] { m_other.apply(changes); });
    EXPECT_EQ(keys(m_other), Keys{"a"});
}

// --- Reads ---

TEST_F(Batches, ReadsOfTheThreadLookInTheBatchFirst)
{
    m_store.apply({{"changed", 1}, {"kept", 1}, {"removed", 1}});
    Batch const batch(m_store);
    m_store.setString("changed", "text");
    m_store.setInt("added", 2);
    m_store.remove("removed");
    EXPECT_EQ(m_store.getString("changed", ""), "text");
    EXPECT_EQ(m_store.getInt("changed", -1), -1);
    EXPECT_EQ(m_store.getInt("kept", 0), 1);
    EXPECT_FALSE(m_store.contains("removed"));
    EXPECT_FALSE(m_store.find("removed"));
    EXPECT_TRUE(m_store.contains("added"));
    EXPECT_EQ(keys(m_store), (Keys{"added", "changed", "kept"}));
    EXPECT_EQ(m_store.rows()[1].value, SqliteStorage::Value("text"));
    EXPECT_EQ(m_store.rows()[1].kind, "string");
}

TEST_F(Batches, RowInTheBatchHasTheTimeOfItsCollection)
{
    auto const before = std::chrono::system_clock::now() - 1ms;
    Batch const batch(m_store);
    m_store.setInt("key", 1);
    auto const changed = m_store.find("key")->changed;
    EXPECT_GE(changed, before);
    EXPECT_LE(changed, std::chrono::system_clock::now());
    EXPECT_EQ(changed.time_since_epoch() % 1ms, 0ns);
}

TEST_F(Batches, RowsAreSortedByTheBytesOfTheirKeys)
{
    m_store.apply({{"b", 1}, {"\xC3\xA4", 1}});
    Batch const batch(m_store);
    for (char const* key : {"\xFF", "c", "", "a"})
        m_store.setInt(key, 1);
    EXPECT_EQ(keys(m_store), (Keys{"", "a", "b", "c", "\xC3\xA4", "\xFF"}));
}

TEST_F(Batches, OtherThreadsSeeAndChangeWhatIsStored)
{
    m_store.setInt("key", 1);
    Batch batch(m_store);
    m_store.setInt("key", 2);
    onAnotherThread([&] {
        EXPECT_EQ(m_store.getInt("key", 0), 1);
        EXPECT_EQ(m_store.find("key")->value, SqliteStorage::Value(1));
        EXPECT_EQ(m_store.rows()[0].value, SqliteStorage::Value(1));
        m_store.setInt("theirs", 3);
        m_store.setInt("removed", 3);
        m_store.remove("removed");
    });
    EXPECT_EQ(keys(m_other), (Keys{"key", "theirs"}));
    EXPECT_EQ(m_store.getInt("theirs", 0), 3);
    batch.commit();
    EXPECT_EQ(m_other.getInt("key", 0), 2);
}

TEST_F(Batches, OtherStoresAreChangedAtOnce)
{
    Batch const batch(m_store);
    m_other.setInt("key", 1);
    EXPECT_EQ(m_store.getInt("key", 0), 1);
    m_other.remove("key");
    EXPECT_FALSE(m_store.contains("key"));
}

TEST_F(Batches, TwoThreadsCollectApart)
{
    Batch batch(m_store);
    m_store.setInt("mine", 1);
    onAnotherThread([&] {
        Batch theirs(m_store);
        m_store.setInt("theirs", 1);
        EXPECT_EQ(keys(m_store), Keys{"theirs"});
        theirs.commit();
    });
    EXPECT_EQ(keys(m_other), Keys{"theirs"});
    batch.commit();
    EXPECT_EQ(keys(m_other), (Keys{"mine", "theirs"}));
}

TEST_F(Batches, FunctionsOfTheFileSeeWhatIsStored)
{
    m_store.setInt("key", 1);
    Batch batch(m_store);
    m_store.setInt("key", 2);
    m_store.apply({{"applied", 3}});
    EXPECT_EQ(keys(m_other), (Keys{"applied", "key"}));
    overwrite(path("copy.sqlite"), m_store.snapshot());
    EXPECT_EQ(SqliteStorage(path("copy.sqlite")).getInt("key", 0), 1);
    EXPECT_EQ(m_store.examine().damage, std::vector<std::string>());
    Storage::Backup::write(path("copy.backup"), {{"product", &m_store}});
    EXPECT_EQ(Storage::Backup(path("copy.backup")).rows("product")[1].value, SqliteStorage::Value(1));
    batch.commit();
    EXPECT_EQ(m_other.getInt("key", 0), 2);
}

// --- Two stores ---

TEST_F(Batches, BatchesOnTwoStoresOfAThreadEndInAnyOrder)
{
    auto first = std::make_unique<Batch>(m_store);
    auto second = std::make_unique<Batch>(m_other);
    m_store.setInt("first", 1);
    m_other.setInt("second", 2);
    first->commit();
    first.reset();
    m_store.setInt("at once", 3);
    EXPECT_EQ(keys(m_store), (Keys{"at once", "first"}));
    EXPECT_EQ(m_other.getInt("second", 0), 2);
    second->commit();
    second.reset();
    EXPECT_EQ(keys(m_store), (Keys{"at once", "first", "second"}));
}

// --- Errors ---

TEST_F(Batches, CommitThatFailsKeepsTheChangesForAnotherTry)
{
    OtherProgram other(path());
    Batch batch(m_store);
    m_store.setInt("key", 1);
    other.execute("BEGIN IMMEDIATE");
    try {
        batch.commit();
        FAIL() << "another process holds the store";
    } catch (StorageError const& error) {
        EXPECT_EQ(error.code(), StorageError::Code::busy);
        EXPECT_EQ(error.attempt(), "make 1 change");
    }
    EXPECT_EQ(m_store.getInt("key", 0), 1);
    other.execute("ROLLBACK");
    EXPECT_FALSE(m_other.contains("key"));
    batch.commit();
    EXPECT_EQ(m_other.getInt("key", 0), 1);
}

TEST_F(Batches, ChangeThatIsRefusedIsReportedByTheCommit)
{
    OtherProgram(path()).execute("PRAGMA user_version = 2");
    Batch batch(m_store);
    m_store.setInt("key", 1);
    EXPECT_THROW(batch.commit(), StorageError);
    EXPECT_TRUE(m_store.contains("key"));
    EXPECT_FALSE(m_other.contains("key"));
}

TEST_F(Batches, CommitOfNothingAsksNothingOfTheFile)
{
    OtherProgram other(path());
    Batch batch(m_store);
    other.execute("BEGIN EXCLUSIVE");
    EXPECT_NO_THROW(batch.commit());
}

TEST_F(Batches, SecondBatchOfAThreadOnAStoreIsRefused)
{
    Batch batch(m_store);
    m_store.setInt("key", 1);
    EXPECT_THROW(Batch second(m_store), std::logic_error);
    m_store.setInt("other", 2);
    EXPECT_EQ(keys(m_other), Keys());
    batch.commit();
    EXPECT_EQ(keys(m_other), (Keys{"key", "other"}));
}

TEST_F(Batches, CommitOnAnotherThreadIsRefused)
{
    Batch batch(m_store);
    m_store.setInt("key", 1);
    onAnotherThread([&] { EXPECT_THROW(batch.commit(), std::logic_error); });
    onAnotherThread([&] {
        Batch const theirs(m_store);
        EXPECT_THROW(batch.commit(), std::logic_error);
    });
    EXPECT_EQ(keys(m_other), Keys());
    batch.commit();
    EXPECT_EQ(keys(m_other), Keys{"key"});
}

using BatchesDeathTest = Batches;

TEST_F(BatchesDeathTest, BatchThatIsDestroyedOnAnotherThreadEndsTheProcess)
{
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    auto batch = std::make_unique<Batch>(m_store);
    EXPECT_DEATH(onAnotherThread([&] { batch.reset(); }),
                 "Storage::Batch: destroyed on another thread; keep it on the thread that made it");
}

// --- The library ---

// What an editor saves when it ends.
void saveThirtySettings(int round)
{
    QString const text = QString::number(round);
    std::string const word = text.toStdString();
    QByteArray const bytes(200, static_cast<char>(round));
    bool const flag = round % 2 == 0;
    Settings::setExportPath(text);
    Settings::setProjectPath(text);
    Settings::setLastAddMediaPath(text);
    Settings::setLastAddVideoPath(text);
    Settings::setLastAddImagePath(text);
    Settings::setLastAddAudioPath(text);
    Settings::setLastAddDirectoryPath(text);
    Settings::setLastAddImageDirectoryPath(text);
    Settings::setLastTarget(text);
    Settings::setLastUsedPresetGroup(word);
    Settings::setLastUsedPresetId(word);
    Settings::setRecentProjects(word);
    Settings::setAudioRecordPath(text);
    Settings::setAudioRecordFormat(word);
    Settings::setAudioRecordCodec(word);
    Settings::setSnapshotPath(text);
    Settings::setOpenOutputAfterExport(flag);
    Settings::setOpenLinkAfterUpload(flag);
    Settings::setDontShowStartDialog(flag);
    Settings::setKeepVideoAspect(flag);
    Settings::setUseGuideLines(flag);
    Settings::setUseFilmstripPreview(flag);
    Settings::setFastTrackEnabled(flag);
    Settings::setNPSStartExportCount(round);
    Settings::setMainWindowGeometry(bytes);
    Settings::setMainWindowState(bytes);
    Settings::setSplitterMainGeometry(bytes);
    Settings::setSplitterMainState(bytes);
    Settings::setSplitterTopPanelGeometry(bytes);
    Settings::setSplitterTopPanelState(bytes);
}

std::ptrdiff_t syncsOf(void (*work)(SqliteStorage& store), SqliteStorage& store)
{
    FaultySystem::watch();
    work(store);
    FaultySystem::rest();
    return std::count(FaultySystem::calls().begin(), FaultySystem::calls().end(), "fdatasync");
}

class BoundBatches : public StoreFolder {
protected:
    std::shared_ptr<SqliteStorage> m_common = std::make_shared<SqliteStorage>(path("common.sqlite"));
    std::shared_ptr<SqliteStorage> m_product = std::make_shared<SqliteStorage>(path("product.sqlite"));
    std::shared_ptr<TestKit::FixedProductInfo> m_info = std::make_shared<TestKit::FixedProductInfo>();
    TestKit::ScopedBinding m_binding{{m_info, m_common, m_product, {}}};
};

TEST_F(BoundBatches, ThirtyPreferencesOfTheLibraryAreSavedByOneTransaction)
{
    saveThirtySettings(1);
    ASSERT_EQ(m_product->rows().size(), 30u);
    std::ptrdiff_t const ofOne = syncsOf([](SqliteStorage& store) { store.setInt("npsStartExportCount", 5); }, *m_product);
    ASSERT_GE(ofOne, 3) << "journal, file and emptied journal are synced";
    EXPECT_EQ(syncsOf([](SqliteStorage&) { saveThirtySettings(2); }, *m_product), 30 * ofOne);
    EXPECT_EQ(syncsOf(
                  [](SqliteStorage& store) {
                      Batch batch(store);
                      saveThirtySettings(3);
                      EXPECT_EQ(Settings::exportPath(), QStringLiteral("3"));
                      batch.commit();
                  },
                  *m_product),
              ofOne);
    EXPECT_EQ(SqliteStorage(path("product.sqlite")).getString("exportPath", ""), "3");
    EXPECT_EQ(SqliteStorage(path("product.sqlite")).rows().size(), 30u);
}

TEST_F(BoundBatches, PreferencesOfTheOtherStoreAreStoredAtOnce)
{
    Batch const batch(*m_product);
    Settings::setSendStatistics(false);
    Settings::setKeepVideoAspect(false);
    EXPECT_EQ(SqliteStorage(path("product.sqlite")).rows().size(), 0u);
    EXPECT_EQ(SqliteStorage(path("common.sqlite")).rows().size(), 1u);
}

TEST_F(BoundBatches, LastSyncThatFailsIsReportedAndTheChangesAreKept)
{
    Batch batch(*m_product);
    Settings::setKeepVideoAspect(false);
    FaultySystem::watch({EIO, false, true, {"fdatasync"}});
    EXPECT_THROW(batch.commit(), StorageError);
    FaultySystem::rest();
    EXPECT_FALSE(Settings::keepVideoAspect());
    batch.commit();
    EXPECT_FALSE(SqliteStorage(path("product.sqlite")).getBool("keepVideoAspect", true));
}

} // namespace
