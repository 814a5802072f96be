// SPDX-License-Identifier: MIT
//
// What other programs may do to a store that is open and has its rows in memory: the next read is right.
#include "Mark.h"

#include <storage/support/StoreFolder.h>

#include <Storage/Backup.h>

#include <support/Named.h>

#include <optional>

namespace {

using Storage::SqliteStorage;
using Storage::StorageError;

constexpr int absent = -1;

int number(SqliteStorage const& store) { return store.getInt("number", absent); }

// Three, as the first read after a change takes its row from the file, the second one all rows, and the third one none.
void expectNumber(SqliteStorage const& store, int expected)
{
    for (int read = 0; read < 3; ++read)
        EXPECT_EQ(number(store), expected) << "in read " << read;
}

struct Hand {
    char const* meaning;
    char const* sql;
    int expected;
};

class ForeignHand : public StoreFolder, public testing::WithParamInterface<Hand> {};

TEST_P(ForeignHand, LeavesNoReadBehind)
{
    SqliteStorage store(path());
    store.setInt("number", 1);
    expectNumber(store, 1);
    OtherProgram other(path());
    other.execute(GetParam().sql);
    expectNumber(store, GetParam().expected);
    other.execute("INSERT OR REPLACE INTO settings (key, kind, value, changed) VALUES ('number', 'int', 99, 0)");
    expectNumber(store, 99);
}

INSTANTIATE_TEST_SUITE_P(
    Table, ForeignHand,
    testing::Values(
        Hand{"Update", "UPDATE settings SET value = 2", 2},                                                              //
        Hand{"UpdateOfEqualValue", "UPDATE settings SET value = 1", 1}, Hand{"Removal", "DELETE FROM settings", absent}, //
        Hand{"Rollback", "BEGIN; UPDATE settings SET value = 2; ROLLBACK", 1},
        Hand{"RollbackAfterACommit", "UPDATE settings SET value = 2; BEGIN; UPDATE settings SET value = 3; ROLLBACK", 2},
        Hand{"Savepoint", "BEGIN; UPDATE settings SET value = 2; SAVEPOINT s; UPDATE settings SET value = 3; ROLLBACK TO s; COMMIT", 2},
        Hand{"ExclusiveMode",
             "PRAGMA locking_mode = EXCLUSIVE; UPDATE settings SET value = 2; UPDATE settings SET value = 3; "
             "UPDATE settings SET value = 4; PRAGMA locking_mode = NORMAL; SELECT * FROM settings",
             4},
        Hand{"NoJournal", "PRAGMA journal_mode = OFF; UPDATE settings SET value = 2", 2},
        Hand{"JournalInMemory", "PRAGMA journal_mode = MEMORY; UPDATE settings SET value = 2", 2},
        Hand{"PersistentJournal", "PRAGMA journal_mode = PERSIST; UPDATE settings SET value = 2", 2},
        Hand{"DeletedJournal", "PRAGMA journal_mode = DELETE; UPDATE settings SET value = 2", 2},
        Hand{"NoSync", "PRAGMA synchronous = OFF; UPDATE settings SET value = 2", 2}, //
        Hand{"Vacuum", "VACUUM", 1}, Hand{"VacuumAfterAnUpdate", "UPDATE settings SET value = 2; VACUUM", 2},
        Hand{"VacuumToOtherPages", "UPDATE settings SET value = 2; PRAGMA page_size = 1024; VACUUM", 2},
        Hand{"NewerVersion", "UPDATE settings SET value = 2; PRAGMA user_version = 2", 2},
        Hand{"ColumnOfANewerVersion", "ALTER TABLE settings ADD COLUMN note TEXT; UPDATE settings SET value = 2", 2},
        Hand{"AnotherKind", "UPDATE settings SET kind = 'string', value = 'two'", absent},
        Hand{"TableMadeAgain",
             "BEGIN; CREATE TABLE copy AS SELECT * FROM settings; DROP TABLE settings; CREATE TABLE settings (key TEXT NOT NULL "
             "PRIMARY KEY, kind TEXT NOT NULL, value NOT NULL, changed INTEGER NOT NULL); "
             "INSERT INTO settings SELECT key, kind, 2, changed FROM copy; DROP TABLE copy; COMMIT",
             2},
        Hand{"WriteAheadLogAndBack", "PRAGMA journal_mode = WAL; UPDATE settings SET value = 2; PRAGMA journal_mode = DELETE", 2}),
    byMeaning);

class ForeignFile : public StoreFolder {
protected:
    ForeignFile() { m_store->setInt("number", 1); }

    std::optional<SqliteStorage> m_store{path()};
};

// Its commits leave the mark alone, so nothing is answered from memory.
TEST_F(ForeignFile, SwitchedToAWriteAheadLogIsAnErrorUntilItIsSwitchedBack)
{
    expectNumber(*m_store, 1);
    OtherProgram other(path());
    other.execute("PRAGMA journal_mode = WAL");
    for (int commit = 0; commit < 3; ++commit) {
        other.execute("UPDATE settings SET value = value + 1");
        EXPECT_THROW(number(*m_store), StorageError) << "after commit " << commit;
    }
    other.execute("PRAGMA journal_mode = DELETE");
    expectNumber(*m_store, 4);
}

TEST_F(ForeignFile, OwnChangeOverAnUnseenOneShowsBoth)
{
    expectNumber(*m_store, 1);
    OtherProgram(path()).execute("UPDATE settings SET value = 2");
    m_store->setInt("another", 1);
    expectNumber(*m_store, 2);
    EXPECT_EQ(m_store->getInt("another", absent), 1);
}

TEST_F(ForeignFile, OlderContentInItsPlaceShows)
{
    std::string const older = content(path());
    m_store->setInt("number", 2);
    expectNumber(*m_store, 2);
    std::fstream(path(), std::ios::in | std::ios::out | std::ios::binary) << older;
    expectNumber(*m_store, 1);
}

TEST_F(ForeignFile, RestoreShows)
{
    Storage::Backup::write(path("backup"), {{"store", &*m_store}});
    m_store->setInt("number", 2);
    expectNumber(*m_store, 2);
    Storage::Backup(path("backup")).restore("store", path());
    expectNumber(*m_store, 1);
}

// As SQLite itself goes on with a file that it has open.
TEST_F(ForeignFile, RenamedFileIsReadOn)
{
    expectNumber(*m_store, 1);
    std::filesystem::rename(path(), path("elsewhere"));
    expectNumber(*m_store, 1);
    OtherProgram(path("elsewhere")).execute("UPDATE settings SET value = 2");
    expectNumber(*m_store, 2);
    EXPECT_THROW(m_store->setInt("number", 3), StorageError);
}

TEST_F(ForeignFile, RemovedFileIsReadOn)
{
    expectNumber(*m_store, 1);
    std::filesystem::remove(path());
    expectNumber(*m_store, 1);
    EXPECT_THROW(m_store->setInt("number", 3), StorageError);
}

TEST_F(ForeignFile, FileCutToLessThanItsHeaderIsAnError)
{
    expectNumber(*m_store, 1);
    std::filesystem::resize_file(path(), 30);
    EXPECT_THROW(number(*m_store), StorageError);
    EXPECT_THROW(number(*m_store), StorageError);
}

// A known value instead of an error, until something has to be read or written.
TEST_F(ForeignFile, FileCutToItsFirstPageAnswersWithKnownValues)
{
    expectNumber(*m_store, 1);
    std::filesystem::resize_file(path(), 4096);
    expectNumber(*m_store, 1);
    EXPECT_THROW(m_store->rows(), StorageError);
    EXPECT_THROW(m_store->setInt("number", 2), StorageError);
}

TEST_F(ForeignFile, DroppedTableIsAnError)
{
    expectNumber(*m_store, 1);
    OtherProgram(path()).execute("DROP TABLE settings");
    for (int read = 0; read < 3; ++read)
        EXPECT_THROW(number(*m_store), StorageError) << "in read " << read;
}

// SQLite finds no blob where it looks for a text.
TEST_F(ForeignFile, KeyThatIsABlobIsNotFound)
{
    OtherProgram(path()).execute("INSERT INTO settings VALUES (x'626C6F62', 'int', 5, 0)");
    for (int read = 0; read < 3; ++read)
        EXPECT_EQ(m_store->getInt("blob", absent), absent) << "in read " << read;
    EXPECT_EQ(OtherProgram(path()).ask("SELECT count(*) FROM settings"), "2");
}

TEST_F(ForeignFile, KeysOfANewerVersionAreComparedAsItsTableDefines)
{
    OtherProgram(path()).execute(
        "BEGIN; CREATE TABLE copy (key TEXT NOT NULL PRIMARY KEY COLLATE NOCASE, kind TEXT NOT NULL, value NOT NULL, changed INTEGER);"
        "INSERT INTO copy SELECT * FROM settings; DROP TABLE settings; ALTER TABLE copy RENAME TO settings; PRAGMA user_version = 2;"
        "COMMIT");
    SqliteStorage const opened(path());
    for (int read = 0; read < 3; ++read) {
        EXPECT_EQ(m_store->getInt("NUMBER", absent), 1) << "in read " << read;
        EXPECT_EQ(opened.getInt("NUMBER", absent), 1) << "in read " << read;
    }
}

TEST_F(ForeignFile, KeysOfAnyBytesAreFound)
{
    std::string const keys[] = {"", std::string("a\0b", 3), "a", "\xff\xfe", "b", "ab", "\xc3\xa4"};
    int value = 0;
    for (std::string const& key : keys)
        m_store->setInt(key, ++value);
    for (int read = 0; read < 3; ++read) {
        value = 0;
        for (std::string const& key : keys)
            EXPECT_EQ(m_store->getInt(key, absent), ++value) << "in read " << read;
        EXPECT_EQ(m_store->getInt(std::string("a\0", 2), absent), absent);
    }
}

// --- Each kind of commit changes the mark, or no content: what reads from memory rest on ---

struct Commit {
    char const* meaning;
    void (*make)(SqliteStorage& store, std::filesystem::path const& backup);
    bool changesTheMark;
};

class CommitOfTheStore : public StoreFolder, public testing::WithParamInterface<Commit> {};

TEST_P(CommitOfTheStore, ChangesTheMarkOrNoContent)
{
    SqliteStorage store(path());
    store.apply({{"number", 1}, {"text", std::string(20000, 't')}, {"bytes", std::vector<unsigned char>{1, 2}}});
    Storage::Backup::write(path("backup"), {{"store", &store}});
    store.setBool("flag", true);
    std::string const mark = markOf(path());
    std::string const before = content(path());
    GetParam().make(store, path("backup"));
    EXPECT_EQ(markOf(path()) != mark, GetParam().changesTheMark);
    EXPECT_EQ(content(path()) != before, GetParam().changesTheMark);
}

INSTANTIATE_TEST_SUITE_P(
    Table, CommitOfTheStore,
    testing::Values(Commit{"Set", [](SqliteStorage& store, auto&) { store.setInt("number", 2); }, true},
                    Commit{"SetOfAnotherKind", [](SqliteStorage& store, auto&) { store.setString("number", "2"); }, true},
                    Commit{"SetOfANewKey", [](SqliteStorage& store, auto&) { store.setInt("new", 2); }, true},
                    Commit{"SetOfALargeValue", [](SqliteStorage& store, auto&) { store.setString("text", std::string(50000, 'l')); }, true},
                    Commit{"Removal", [](SqliteStorage& store, auto&) { store.remove("number"); }, true},
                    Commit{"RemovalOfALargeValue", [](SqliteStorage& store, auto&) { store.remove("text"); }, true},
                    Commit{"RemovalOfAnAbsentKey", [](SqliteStorage& store, auto&) { store.remove("absent"); }, false},
                    Commit{"Apply",
                           [](SqliteStorage& store, auto&) {
                               store.apply({{"number", 2}, {"text", {}}, {"new", true}});
                           },
                           true},
                    Commit{"ApplyOfNothing", [](SqliteStorage& store, auto&) { store.apply({}); }, false},
                    Commit{"Restore",
                           [](SqliteStorage& store, std::filesystem::path const& backup) {
                               Storage::Backup(backup).restore("store", store.file());
                           },
                           true}),
    byMeaning);

// An equal value at an equal time is no change for SQLite; at another time it is one.
TEST_F(StoreFolder, SetOfAnEqualValueChangesTheMarkWhereItChangesTheFile)
{
    SqliteStorage store(path());
    int changes = 0;
    for (int set = 0; set < 50; ++set) {
        std::string const before = content(path());
        store.setInt("number", 1);
        std::string const after = content(path());
        EXPECT_EQ(after.substr(24, 16) != before.substr(24, 16), after != before) << "in set " << set;
        changes += after != before;
    }
    EXPECT_GT(changes, 0);
}

} // namespace
