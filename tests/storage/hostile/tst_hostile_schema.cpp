// SPDX-License-Identifier: MIT
//
// What a stranger put into a store or a backup is never run: the schema is exactly the store's own, or a newer version's.
#include <storage/support/StoreFolder.h>

#include <Storage/Backup.h>

#include <support/Named.h>

#include <cstdint>

namespace {

using Storage::Backup;
using Storage::SqliteStorage;
using Storage::StorageError;
using Keys = std::vector<std::string>;

char const restore[] = "; the file was left as it is: move it away and restore it from a backup";
char const another[] = "; name another backup; this one was left as it is";
char const newer[] = "it was written by a newer version (schema 2, this version writes 1)";
char const update[] = "; update this program; the file was left as it is";

class HostileSchema : public StoreFolder {
protected:
    // A store with values that `sql` changes afterwards.
    void makeStore(std::string const& sql) const
    {
        {
            SqliteStorage store(path());
            store.setString("key", "value");
            store.setInt("other", 7);
        }
        OtherProgram(path()).execute(sql.c_str());
    }

    static void putIntoBackup(std::filesystem::path const& backup, std::string const& bytes)
    {
        std::string hex;
        char digits[3];
        for (char const byte : bytes) {
            std::snprintf(digits, sizeof digits, "%02x", static_cast<unsigned>(static_cast<unsigned char>(byte)));
            hex += digits;
        }
        OtherProgram(backup).execute(("UPDATE copies SET content = x'" + hex + '\'').c_str());
    }

    // The text of the error that reading a backup with the store's bytes throws.
    std::string refusalInABackup() const
    {
        SqliteStorage const empty(path("empty.sqlite"));
        Backup::write(path("copy.backup"), {{"product", &empty}});
        putIntoBackup(path("copy.backup"), content(path()));
        return refusal([&] { Backup const backup(path("copy.backup")); });
    }

    static StorageError::Code codeOf(std::function<void()> const& work)
    {
        try {
            work();
        } catch (StorageError const& error) {
            return error.code();
        }
        throw std::runtime_error("nothing was thrown");
    }

    static Keys keys(SqliteStorage const& store)
    {
        Keys keys;
        for (SqliteStorage::Row const& row : store.rows())
            keys.push_back(row.key);
        return keys;
    }
};

// --- Objects that a store never holds ---

struct Object {
    char const* meaning;
    std::string sql;
    std::string reason;
};

class StrangeObject : public HostileSchema, public testing::WithParamInterface<Object> {};

TEST_P(StrangeObject, IsNamedAndItsStoreRefused)
{
    makeStore(GetParam().sql);
    std::string const before = content(path());
    EXPECT_EQ(refusal([&] { SqliteStorage const store(path()); }),
              path().string() + ": cannot open the store: " + GetParam().reason + restore);
    EXPECT_EQ(codeOf([&] { SqliteStorage const store(path()); }), StorageError::Code::foreign);
    EXPECT_TRUE(content(path()) == before) << "the file was changed";
}

TEST_P(StrangeObject, IsNamedAndItsBackupRefused)
{
    makeStore(GetParam().sql);
    EXPECT_EQ(refusalInABackup(), path("copy.backup").string() +
                                      ": cannot read the backup: its copy of the product store cannot be used (" + GetParam().reason + ")" +
                                      another);
}

// The table with another text in the schema, and its rows as they were.
std::string redefined(std::string const& text)
{
    return "PRAGMA writable_schema = ON; UPDATE sqlite_master SET sql = '" + text + "' WHERE name = 'settings'";
}

std::string const otherTable = "its table \"settings\" is not defined as that of a store";

INSTANTIATE_TEST_SUITE_P(
    Table, StrangeObject,
    testing::Values(
        Object{"TriggerThatDropsASet", "CREATE TRIGGER t BEFORE INSERT ON settings BEGIN SELECT RAISE(IGNORE); END",
               "it holds the trigger \"t\", which a store never does"},
        Object{"TriggerThatRemovesAnotherKey",
               "CREATE TRIGGER t AFTER UPDATE ON settings BEGIN DELETE FROM settings WHERE key = 'other'; END",
               "it holds the trigger \"t\", which a store never does"},
        Object{"View", "CREATE VIEW v AS SELECT 1", "it holds the view \"v\", which a store never does"},
        Object{"ViewWithoutEnd",
               "DROP TABLE settings; CREATE VIEW settings AS WITH RECURSIVE r (key) AS (SELECT 'k' UNION ALL SELECT key FROM r) "
               "SELECT key, 'int' AS kind, 1 AS value, 1 AS changed FROM r",
               "it holds the view \"settings\", which a store never does"},
        Object{"Table", "CREATE TABLE other (name)", "it holds the table \"other\", which a store never does"},
        Object{"VirtualTable", "CREATE VIRTUAL TABLE words USING fts5 (word)", "it holds the table \"words\", which a store never does"},
        Object{"Index", "CREATE INDEX i ON settings (kind)", "it holds the index \"i\", which a store never does"},
        Object{"UniqueIndex", "CREATE UNIQUE INDEX i ON settings (value)", "it holds the index \"i\", which a store never does"},
        Object{"IndexOnAnExpression", "CREATE INDEX i ON settings (hex(value))", "it holds the index \"i\", which a store never does"},
        Object{"Sequence", "CREATE TABLE s (n INTEGER PRIMARY KEY AUTOINCREMENT); DROP TABLE s",
               "it holds the table \"sqlite_sequence\", which a store never does"},
        Object{"GeneratedColumn", "ALTER TABLE settings ADD COLUMN more AS (hex(value))", otherTable},
        Object{"FurtherColumn", "ALTER TABLE settings ADD COLUMN more", otherTable},
        Object{"Check",
               redefined("CREATE TABLE settings ( key TEXT NOT NULL PRIMARY KEY, kind TEXT NOT NULL, value NOT NULL, changed INTEGER NOT "
                         "NULL CHECK (changed < 5))"),
               otherTable},
        Object{"Collation",
               redefined("CREATE TABLE settings ( key TEXT NOT NULL PRIMARY KEY COLLATE NOCASE, kind TEXT NOT NULL, value NOT NULL, "
                         "changed INTEGER NOT NULL)"),
               otherTable},
        Object{"ConflictThatReplaces",
               redefined("CREATE TABLE settings ( key TEXT NOT NULL PRIMARY KEY ON CONFLICT IGNORE, kind TEXT NOT NULL, value NOT NULL, "
                         "changed INTEGER NOT NULL)"),
               otherTable},
        Object{"NoPrimaryKey", "DROP TABLE settings; CREATE TABLE settings (key, kind, value, changed)", otherTable},
        Object{"StatisticsOfOtherColumns",
               "ANALYZE; PRAGMA writable_schema = ON; UPDATE sqlite_master SET sql = 'CREATE TABLE sqlite_stat1(tbl,idx,stat,more)' "
               "WHERE name = 'sqlite_stat1'",
               "it holds the table \"sqlite_stat1\", which a store never does"},
        Object{"NameOfSeveralLines", "CREATE VIEW \"a\nb\x1b[2J\xC3\xA4\" AS SELECT 1",
               "it holds the view \"a\\x0ab\\x1b[2J\\xc3\\xa4\", which a store never does"},
        Object{"LongName", "CREATE VIEW " + std::string(5000, 'v') + " AS SELECT 1",
               "it holds the view \"" + std::string(40, 'v') + "...\", which a store never does"},
        Object{"VersionBelowTheFirst", "CREATE VIEW v AS SELECT 1; PRAGMA user_version = 0",
               "it holds the view \"v\", which a store never does"}),
    byMeaning);

TEST_F(HostileSchema, StoreWhoseTextsAreUtf16IsRefused)
{
    makeStore("");
    std::string const table = OtherProgram(path()).ask("SELECT sql FROM sqlite_master WHERE name = 'settings'");
    OtherProgram(path("wide.sqlite"))
        .execute(("PRAGMA encoding = 'UTF-16le'; PRAGMA application_id = 1282753875; PRAGMA user_version = 1;" + table).c_str());
    EXPECT_EQ(refusal([&] { SqliteStorage const store(path("wide.sqlite")); }),
              path("wide.sqlite").string() + ": cannot open the store: its texts are in UTF-16le, which those of a store never are" +
                  restore);
}

TEST_F(HostileSchema, WordsOfSqliteAboutAForgedNameAreOnOneLine)
{
    makeStore("PRAGMA writable_schema = ON; INSERT INTO sqlite_master VALUES ('table', 'a' || char(10, 27) || 'b', 't', 2, 'CREATE x')");
    EXPECT_EQ(refusal([&] { SqliteStorage const store(path()); }),
              path().string() + ": cannot open the store: malformed database schema (a\\x0a\\x1bb) - near \"x\": syntax error" + restore);
}

// Big-endian numbers as SQLite's pages hold them.
std::string bytes(std::uint32_t number, int count)
{
    std::string result;
    for (int byte = count - 1; byte >= 0; --byte)
        result += static_cast<char>(number >> (8 * byte));
    return result;
}

// A page of a tree all of whose children are `child`.
std::string forgedPage(std::uint32_t child)
{
    constexpr std::uint32_t cells = 2;
    std::string page = '\5' + bytes(0, 2) + bytes(cells, 2) + bytes(4096 - 5 * cells, 2) + bytes(0, 1) + bytes(child, 4);
    for (std::uint32_t cell = 0; cell < cells; ++cell)
        page += bytes(4096 - 5 * (cell + 1), 2);
    page.resize(4096 - 5 * cells);
    for (std::uint32_t cell = 0; cell < cells; ++cell)
        page += bytes(child, 4) + '\1';
    return page;
}

// The store with a tree of some pages that has 3 to the power of 18 leaves: fewer faults than a check reports at most.
std::string forged(std::string store)
{
    EXPECT_EQ(store.size(), 3u * 4096);
    std::string const leaf = store.substr(4096, 4096);
    store.replace(4096, 4096, forgedPage(4));
    for (std::uint32_t page = 4; page < 21; ++page)
        store += forgedPage(page + 1);
    return (store + leaf).replace(28, 4, bytes(21, 4));
}

TEST_F(HostileSchema, ForgedTreeOfPagesIsRefusedAtOnce)
{
    makeStore("");
    overwrite(path(), forged(content(path())));
    std::string const reason = refusal([&] { SqliteStorage const store(path()); });
    EXPECT_NE(reason.find(": cannot open the store: the file is damaged (On tree page 20 cell "), std::string::npos) << reason;
    EXPECT_NE(refusalInABackup().find("cannot be used (the file is damaged (On tree page 20 cell "), std::string::npos);
}

TEST_F(HostileSchema, ForgedTreeOfPagesThatComesWhileTheStoreIsOpenIsExamined)
{
    makeStore("");
    SqliteStorage const store(path());
    overwrite(path(), forged(content(path())));
    std::vector<std::string> const damage = store.examine().damage;
    ASSERT_FALSE(damage.empty());
    EXPECT_EQ(damage[0].compare(0, 21, "On tree page 20 cell "), 0) << damage[0];
}

// --- What supporters do to a store ---

class Upkept : public HostileSchema, public testing::WithParamInterface<Object> {};

TEST_P(Upkept, StoreIsUsable)
{
    makeStore(GetParam().sql);
    {
        SqliteStorage store(path());
        EXPECT_EQ(store.getString("key", "lost"), "value");
        store.setString("key", "new");
        EXPECT_EQ(keys(store), (Keys{"key", "other"}));
    }
    SqliteStorage const store(path());
    EXPECT_EQ(store.getString("key", "lost"), "new");
    EXPECT_EQ(store.examine().damage, std::vector<std::string>());
    Backup::write(path("copy.backup"), {{"product", &store}});
    EXPECT_EQ(Backup(path("copy.backup")).rows("product").size(), 2u);
}

INSTANTIATE_TEST_SUITE_P(Table, Upkept,
                         testing::Values(Object{"Vacuum", "VACUUM", {}}, Object{"Statistics", "ANALYZE", {}},
                                         Object{"StatisticsThatWereDropped", "ANALYZE; DROP TABLE sqlite_stat1", {}},
                                         Object{"Reindex", "REINDEX", {}}, Object{"Optimize", "PRAGMA optimize", {}},
                                         Object{"OtherPageSize", "PRAGMA page_size = 1024; VACUUM", {}},
                                         Object{"AutoVacuum", "PRAGMA auto_vacuum = FULL; VACUUM", {}},
                                         Object{"VersionBelowTheFirst", "PRAGMA user_version = 0", {}},
                                         Object{"NegativeVersion", "PRAGMA user_version = -1", {}}),
                         byMeaning);

TEST_F(HostileSchema, StoreThatWasBuiltFromItsDumpIsUsable)
{
    makeStore("");
    std::string const table = OtherProgram(path()).ask("SELECT sql FROM sqlite_master WHERE name = 'settings'");
    OtherProgram dumped(path("dumped.sqlite"));
    dumped.execute(("BEGIN; " + table +
                    "; INSERT INTO settings VALUES ('key', 'int', 5, 5); COMMIT;"
                    "PRAGMA application_id = 1282753875; PRAGMA user_version = 1")
                       .c_str());
    EXPECT_EQ(SqliteStorage(path("dumped.sqlite")).getInt("key", 0), 5);
}

// --- What comes while a store is open ---

TEST_F(HostileSchema, TriggerThatComesWhileTheStoreIsOpenIsNotRun)
{
    makeStore("");
    SqliteStorage store(path());
    OtherProgram(path()).execute("CREATE TRIGGER one BEFORE UPDATE ON settings BEGIN SELECT RAISE(IGNORE); END;"
                                 "CREATE TRIGGER two AFTER DELETE ON settings BEGIN DELETE FROM settings; END");
    store.setString("key", "new");
    EXPECT_EQ(store.getString("key", "lost"), "new");
    store.remove("key");
    EXPECT_EQ(keys(store), Keys{"other"});
}

// --- Rows that only another program can have stored ---

TEST_F(HostileSchema, KeyThatIsNoTextIsNeitherReadNorListed)
{
    makeStore("INSERT INTO settings VALUES (x'6b6579', 'string', 'forged', 5), (x'6e6f206b6579', 'int', 1, 5)");
    SqliteStorage store(path());
    EXPECT_EQ(store.getString("key", "lost"), "value");
    EXPECT_FALSE(store.find("no key"));
    EXPECT_EQ(keys(store), (Keys{"key", "other"}));
    Backup::write(path("copy.backup"), {{"product", &store}});
    EXPECT_EQ(Backup(path("copy.backup")).rows("product").size(), 2u);
}

TEST_F(HostileSchema, KindsAndValuesOfAnyTypeAreReadAsWhatTheyAre)
{
    makeStore("INSERT INTO settings VALUES ('blob kind', x'696e74', 3, 5), ('number', 1.5, 'text', 5), ('long', 'int', 9e99, 'then'),"
              " ('text', 'bytes', 'text', x'00'), ('nul', 'int' || char(0), 4, -9223372036854775808)");
    SqliteStorage const store(path());
    EXPECT_EQ(store.getInt("blob kind", 0), 3);
    EXPECT_EQ(store.find("number")->kind, "1.5");
    EXPECT_EQ(store.find("number")->value, SqliteStorage::Value());
    EXPECT_EQ(store.getInt("long", -1), -1);
    EXPECT_EQ(store.getBytes("text", {1}), std::vector<unsigned char>{1});
    EXPECT_EQ(store.find("nul")->kind, std::string("int\0", 4));
    EXPECT_EQ(store.getInt("nul", -1), -1);
    EXPECT_EQ(store.rows().size(), 7u);
}

// --- Newer stores ---

TEST_F(HostileSchema, NewerStoreWithAnotherKeyIsRead)
{
    makeStore("PRAGMA user_version = 2; CREATE TABLE later (profile TEXT, key TEXT, kind TEXT, value, changed, PRIMARY KEY (profile, key));"
              "INSERT INTO later SELECT '', key, kind, value, changed FROM settings; DROP TABLE settings;"
              "ALTER TABLE later RENAME TO settings");
    SqliteStorage store(path());
    EXPECT_TRUE(store.isReadOnly());
    EXPECT_EQ(store.getString("key", "lost"), "value");
    EXPECT_EQ(keys(store), (Keys{"key", "other"}));
    EXPECT_EQ(refusal([&] { store.setInt("other", 8); }), path().string() + ": cannot set \"other\": " + newer + update);
    EXPECT_EQ(refusal([&] { store.remove("other"); }), path().string() + ": cannot remove \"other\": " + newer + update);
}

char const* const viewInsteadOfTable = "PRAGMA user_version = 2; ALTER TABLE settings RENAME TO later;"
                                       "CREATE VIEW settings AS SELECT key, kind, value, changed FROM later";

TEST_F(HostileSchema, NewerStoreWithAViewOverItsTablesIsRead)
{
    makeStore(viewInsteadOfTable);
    SqliteStorage store(path());
    EXPECT_EQ(store.getString("key", "lost"), "value");
    EXPECT_EQ(keys(store), (Keys{"key", "other"}));
    EXPECT_EQ(refusal([&] { store.setInt("other", 8); }), path().string() + ": cannot set \"other\": " + newer + update);
    EXPECT_EQ(refusal([&] { store.apply({{"other", std::monostate()}}); }), path().string() + ": cannot make 1 change: " + newer + update);
}

TEST_F(HostileSchema, StoreThatGetsAViewOfANewerVersionWhileItIsOpenIsRead)
{
    makeStore("");
    SqliteStorage const store(path());
    OtherProgram(path()).execute(viewInsteadOfTable);
    EXPECT_EQ(store.getString("key", "lost"), "value");
    EXPECT_EQ(keys(store), (Keys{"key", "other"}));
    EXPECT_TRUE(store.isReadOnly());
}

TEST_F(HostileSchema, StoreThatLosesItsTableToANewerVersionWhileItIsOpenSaysSo)
{
    makeStore("");
    SqliteStorage const store(path());
    OtherProgram(path()).execute("PRAGMA user_version = 2; ALTER TABLE settings RENAME TO later");
    EXPECT_EQ(refusal([&] { store.getInt("other", 0); }), path().string() + ": cannot read \"other\": " + newer +
                                                              ", in a layout that this version cannot read (no such table: settings)" +
                                                              update);
}

TEST_F(HostileSchema, NewerStoreWithFurtherObjectsIsRead)
{
    makeStore("PRAGMA user_version = 2; CREATE VIRTUAL TABLE words USING fts5 (word); CREATE INDEX i ON settings (kind);"
              "CREATE TRIGGER t AFTER INSERT ON settings BEGIN DELETE FROM settings; END;"
              "CREATE TABLE checked (n CHECK (n < 5)); PRAGMA ignore_check_constraints = ON; INSERT INTO checked VALUES (7)");
    EXPECT_EQ(keys(SqliteStorage(path())), (Keys{"key", "other"}));
}

char const* const viewWithoutEnd = "PRAGMA user_version = 2; DROP TABLE settings; CREATE VIEW settings AS WITH RECURSIVE r (n) AS (SELECT "
                                   "1 UNION ALL SELECT n + 1 FROM r) "
                                   "SELECT CAST(n AS TEXT) AS key, 'int' AS kind, 1 AS value, 1 AS changed FROM r WHERE n < 0";

std::string const endless = std::string(newer) +
                            ", in a layout that this version cannot read (reading it takes longer than reading a store of its size can)" +
                            update;

TEST_F(HostileSchema, NewerViewWithoutEndIsRefused)
{
    makeStore(viewWithoutEnd);
    EXPECT_EQ(refusal([&] { SqliteStorage const store(path()); }), path().string() + ": cannot open the store: " + endless);
    EXPECT_EQ(codeOf([&] { SqliteStorage const store(path()); }), StorageError::Code::newer);
}

TEST_F(HostileSchema, NewerViewWithoutEndThatComesWhileTheStoreIsOpenEnds)
{
    makeStore("");
    SqliteStorage const store(path());
    OtherProgram(path()).execute(viewWithoutEnd);
    EXPECT_EQ(refusal([&] { store.getInt("key", 0); }), path().string() + ": cannot read \"key\": " + endless);
    EXPECT_EQ(refusal([&] { store.getInt("key", 0); }), path().string() + ": cannot read \"key\": " + endless) << "of all rows";
    EXPECT_EQ(refusal([&] { store.rows(); }), path().string() + ": cannot list the stored values: " + endless);
}

TEST_F(HostileSchema, NewerViewWithoutEndInABackupIsNotLookedAt)
{
    makeStore(viewWithoutEnd);
    EXPECT_EQ(refusalInABackup(), path("copy.backup").string() +
                                      ": cannot read the backup: its copy of the product store cannot be used (" + newer + ")" + another);
}

TEST_F(HostileSchema, FunctionOfANewerViewIsNotCalled)
{
    makeStore("PRAGMA user_version = 2; ALTER TABLE settings RENAME TO later;"
              "CREATE VIEW settings AS SELECT key, kind, hex(zeroblob(400000000)) AS value, changed FROM later");
    EXPECT_EQ(refusal([&] { SqliteStorage const store(path()); }),
              path().string() + ": cannot open the store: " + newer +
                  ", in a layout that this version cannot read (not authorized to use function: hex)" + update);
}

// --- The file of a backup ---

class StrangeBackup : public HostileSchema, public testing::WithParamInterface<Object> {};

TEST_P(StrangeBackup, IsNamedAndRefused)
{
    {
        SqliteStorage const store(path());
        Backup::write(path("copy.backup"), {{"product", &store}});
    }
    OtherProgram(path("copy.backup")).execute(GetParam().sql.c_str());
    EXPECT_EQ(refusal([&] { Backup const backup(path("copy.backup")); }),
              path("copy.backup").string() + ": cannot read the backup: " + GetParam().reason + another);
    EXPECT_EQ(codeOf([&] { Backup const backup(path("copy.backup")); }), StorageError::Code::foreign);
}

INSTANTIATE_TEST_SUITE_P(
    Table, StrangeBackup,
    testing::Values(
        Object{"TableOfCopiesThatIsAViewWithoutEnd",
               "DROP TABLE copies; CREATE VIEW copies AS WITH RECURSIVE r (name) AS (SELECT 'product' UNION ALL SELECT name FROM r) "
               "SELECT name, x'' AS content FROM r",
               "it holds the view \"copies\", which a backup never does"},
        Object{"Trigger", "CREATE TRIGGER t AFTER INSERT ON copies BEGIN DELETE FROM copies; END",
               "it holds the trigger \"t\", which a backup never does"},
        Object{"TimeThatIsComputed",
               "DROP TABLE about; CREATE TABLE about (other INTEGER, made AS (hex(zeroblob(9)))); INSERT INTO about VALUES (1)",
               "its table \"about\" is not defined as that of a backup"},
        Object{"Table", "CREATE TABLE more (name)", "it holds the table \"more\", which a backup never does"}),
    byMeaning);

} // namespace
