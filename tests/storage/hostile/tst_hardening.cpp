// SPDX-License-Identifier: MIT
//
// What a file cannot make SQLite do once its database is hardened. The refusals of whole files are tested with stores.
#include "../support/StoreFolder.h"

#include <Storage/sqlite/Hardening.h>

#include <SQLiteCpp/Exception.h>
#include <SQLiteCpp/Statement.h>
#include <sqlite3.h>

namespace {

using Storage::Views;

class Hardening : public StoreFolder {
protected:
    // What SQLite says of `sql` on a hardened file that holds `content`.
    std::string answer(char const* content, char const* sql, Views views = Views::read) const
    {
        OtherProgram(path()).execute(content);
        SQLite::Database database(path().string(), SQLite::OPEN_READWRITE);
        Storage::harden(database, views);
        try {
            SQLite::Statement statement(database, sql);
            return statement.executeStep() ? statement.getColumn(0).getString() : "no row";
        } catch (SQLite::Exception const& error) {
            return error.what();
        }
    }
};

TEST_F(Hardening, NoFurtherFileIsAttached) { EXPECT_EQ(answer("", "ATTACH ':memory:' AS other"), "too many attached databases - max 0"); }

TEST_F(Hardening, NoExtensionIsLoaded) { EXPECT_EQ(answer("", "SELECT load_extension('x')"), "not authorized"); }

TEST_F(Hardening, NoVirtualTableIsRead)
{
    EXPECT_EQ(answer("CREATE VIRTUAL TABLE words USING fts5 (word)", "SELECT * FROM words"), "no such module: fts5");
}

TEST_F(Hardening, NoTriggerRuns)
{
    EXPECT_EQ(answer("CREATE TABLE t (n); CREATE TABLE u (n); CREATE TRIGGER g AFTER INSERT ON t BEGIN INSERT INTO u VALUES (1); END",
                     "INSERT INTO t VALUES (1)"),
              "no row");
    EXPECT_EQ(answer("", "SELECT count(*) FROM u"), "0");
    EXPECT_EQ(answer("", "SELECT count(*) FROM t"), "1");
}

TEST_F(Hardening, NoViewIsReadWhereTheyAreRefused)
{
    EXPECT_EQ(answer("CREATE VIEW v AS SELECT 1", "SELECT * FROM v", Views::refused), "access to view \"v\" prohibited");
    EXPECT_EQ(answer("", "SELECT * FROM v", Views::read), "1");
}

TEST_F(Hardening, NoViewCallsAFunction)
{
    EXPECT_EQ(answer("CREATE VIEW v AS SELECT abs(-1)", "SELECT * FROM v"), "not authorized to use function: abs");
}

TEST_F(Hardening, NoSchemaIsRewritten)
{
    EXPECT_EQ(answer("CREATE TABLE t (n)", "UPDATE sqlite_master SET sql = 'CREATE TABLE t (m)'"),
              "table sqlite_master may not be modified");
    SQLite::Database database(path().string(), SQLite::OPEN_READWRITE);
    Storage::harden(database, Views::read);
    database.exec("PRAGMA writable_schema = ON");
    EXPECT_THROW(database.exec("UPDATE sqlite_master SET sql = 'CREATE TABLE t (m)'"), SQLite::Exception);
}

TEST_F(Hardening, NoCheckOfANewerVersionFailsTheLookForDamage)
{
    EXPECT_EQ(answer("CREATE TABLE t (n CHECK (n < 5)); PRAGMA ignore_check_constraints = ON; INSERT INTO t VALUES (7)",
                     "PRAGMA integrity_check"),
              "ok");
}

TEST_F(Hardening, NoFunctionOfAHostRunsInAnIndex)
{
    SQLite::Database database(path().string(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
    Storage::harden(database, Views::read);
    database.createFunction("shout", 1, true, nullptr,
                            [](sqlite3_context* context, int, sqlite3_value**) { sqlite3_result_int(context, 1); });
    database.exec("CREATE TABLE t (n)");
    EXPECT_THROW(database.exec("CREATE INDEX i ON t (shout(n))"), SQLite::Exception) << "the schema is trusted";
}

} // namespace
