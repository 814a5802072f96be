// SPDX-License-Identifier: MIT
//
// A process that is forked while a store is open: it is refused, at once, and leaves its parent's store alone.
#include <storage/support/StoreFolder.h>

#include <Storage/Backup.h>

#include <memory>

namespace {

using Storage::Backup;
using Storage::SqliteStorage;
using Storage::StorageError;

class Fork : public StoreFolder {
protected:
    std::string forked(std::string const& attempt) const
    {
        return path().string() + ": cannot " + attempt +
               ": this process was forked from one that had a store open; start a program of its own with exec, or open stores after the "
               "fork only\n";
    }
};

TEST_F(Fork, EveryCallOnAnInheritedStoreThrows)
{
    SqliteStorage store(path());
    store.setInt("key", 1);
    for (int read = 0; read < 3; ++read) // so that the rows are in memory
        EXPECT_EQ(store.getInt("key", 0), 1);
    std::string const answer = inChild([&] {
        std::string all;
        std::function<void()> const calls[] = {
            [&] { store.getInt("key", 0); },    [&] { store.setInt("key", 2); }, [&] { store.remove("key"); },
            [&] { store.contains("key"); },     [&] { store.find("key"); },      [&] { store.rows(); },
            [&] { store.apply({{"key", 2}}); }, [&] { store.snapshot(); },       [&] { store.changesOfOthers(); },
            [&] { store.readOnlyError(); },     [&] { store.examine(); }};
        for (auto const& call : calls)
            all += refusal(call) + '\n';
        return all;
    });
    EXPECT_EQ(answer, forked("read \"key\"") + forked("set \"key\"") + forked("remove \"key\"") + forked("read \"key\"") +
                          forked("read \"key\"") + forked("list the stored values") + forked("make 1 change") + forked("copy the store") +
                          forked("ask for changes") + forked("ask about the store") + forked("examine the store"));
    EXPECT_EQ(store.getInt("key", 0), 1);
}

TEST_F(Fork, NoStoreIsOpenedAndNoBackupUsed)
{
    SqliteStorage const store(path());
    Backup::write(path("copy.backup"), {{"product", &store}});
    Backup const inherited(path("copy.backup"));
    std::string const answer = inChild([&] {
        auto const code = [](std::function<void()> const& work) -> std::string {
            try {
                work();
            } catch (StorageError const& error) {
                return error.code() == StorageError::Code::forked ? "forked " : error.what();
            }
            return "used ";
        };
        return code([&] { SqliteStorage const other(path()); }) + code([&] { SqliteStorage const other(path("other.sqlite")); }) +
               code([&] { Backup const other(path("copy.backup")); }) + code([&] { inherited.rows("product"); }) +
               code([&] { inherited.restore("product", path("new.sqlite")); }) + code([&] { Backup::write(path("new.backup"), {}); }) +
               inChild([&] { return code([&] { SqliteStorage const other(path()); }); });
    });
    EXPECT_EQ(answer, "forked forked forked forked forked forked forked ");
    EXPECT_FALSE(std::filesystem::exists(path("other.sqlite")));
    EXPECT_FALSE(std::filesystem::exists(path("new.sqlite")));
}

TEST_F(Fork, StoresAreOpenedWhereTheParentHadNoneOpenAnyLonger)
{
    {
        SqliteStorage store(path());
        store.setInt("key", 1);
        Backup::write(path("copy.backup"), {{"product", &store}});
    }
    overwrite(path("no store"), "text");
    EXPECT_THROW(SqliteStorage(path("no store")), StorageError);
    EXPECT_THROW(Backup(path("no store")), StorageError);
    Backup const inherited(path("copy.backup"));
    EXPECT_EQ(inChild([&] {
                  SqliteStorage(path()).setInt("key", 2);
                  inherited.restore("product", path("restored.sqlite"));
                  return std::string("done");
              }),
              "done");
    EXPECT_EQ(SqliteStorage(path()).getInt("key", 0), 2);
    EXPECT_EQ(SqliteStorage(path("restored.sqlite")).getInt("key", 0), 1);
}

// A parent whose thread is in the midst of a change, and holds what a child would wait for.
TEST_F(Fork, ChildOfAProcessInTheMidstOfAChangeNeitherWaitsNorUndoesIt)
{
    auto store = std::make_unique<SqliteStorage>(path());
    store->setString("key", std::string(20000, 'o'));
    OtherProgram reader(path());
    reader.execute("BEGIN; SELECT * FROM settings");
    std::thread change([&] { store->setString("key", std::string(20000, 'n')); }); // waits for the reader to commit
    std::filesystem::path const journal = path("store.sqlite-journal");
    while (!std::filesystem::exists(journal) || std::filesystem::file_size(journal) == 0)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    std::string const before = content(journal);
    EXPECT_EQ(inChild([&] {
                  std::string const what = refusal([&] { store->setInt("key", 2); });
                  store.reset();
                  return what + '\n';
              }),
              forked("set \"key\""));
    EXPECT_TRUE(content(journal) == before) << "the child rolled the change back";
    reader.execute("COMMIT");
    change.join();
    EXPECT_EQ(store->getString("key", ""), std::string(20000, 'n'));
}

} // namespace
