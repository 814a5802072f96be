// SPDX-License-Identifier: MIT
//
// A store whose name another file has got: the journal beside the name is that file's, whose writer may be alive.
#include <storage/support/StoreFolder.h>

namespace {

using Storage::SqliteStorage;
namespace fs = std::filesystem;

class StoreThatLostItsName : public StoreFolder {
protected:
    StoreThatLostItsName()
    {
        m_replaced.setString("key", "replaced");
        SqliteStorage(path("new.sqlite")).setString("key", "new");
        fs::rename(path("new.sqlite"), path());
        m_writer = std::make_unique<OtherProgram>(path());
        m_writer->execute("PRAGMA journal_mode = TRUNCATE; BEGIN; UPDATE settings SET value = 'newer'");
        m_journal = content(path("store.sqlite-journal"));
    }

    // The writer goes on as if nobody had come by.
    void expectAnUntouchedJournal()
    {
        EXPECT_GT(m_journal.size(), 512u);
        EXPECT_EQ(content(path("store.sqlite-journal")), m_journal);
        m_writer->execute("ROLLBACK");
        EXPECT_EQ(SqliteStorage(path()).getString("key", ""), "new");
    }

    std::string refused(std::string const& attempt) const
    {
        return path().string() + ": cannot " + attempt +
               ": attempt to write a readonly database; the file was moved or removed while it was open: start the program again";
    }

    SqliteStorage m_replaced{path()};
    std::unique_ptr<OtherProgram> m_writer;
    std::string m_journal;
};

TEST_F(StoreThatLostItsName, ListsNothingByTheNewStoresJournal)
{
    EXPECT_EQ(refusal([&] { m_replaced.rows(); }), refused("list the stored values"));
    expectAnUntouchedJournal();
}

TEST_F(StoreThatLostItsName, ChangesNothingByTheNewStoresJournal)
{
    EXPECT_EQ(refusal([&] { m_replaced.setString("key", "late"); }), refused("set \"key\""));
    expectAnUntouchedJournal();
}

TEST_F(StoreThatLostItsName, ReadsItsLastValuesOnceTheNewStoreIsAtRest)
{
    m_writer->execute("COMMIT");
    EXPECT_EQ(m_replaced.rows().at(0).value, SqliteStorage::Value("replaced"));
    EXPECT_EQ(refusal([&] { m_replaced.setString("key", "late"); }), refused("set \"key\""));
    EXPECT_EQ(SqliteStorage(path()).getString("key", ""), "newer");
}

} // namespace
