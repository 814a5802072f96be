// SPDX-License-Identifier: MIT
//
// What lies in the place of a store's journal: nothing is opened, changed or deleted that is not the store's own.
#include <storage/hostile/Journal.h>
#include <storage/support/FaultySystem.h>
#include <storage/support/StoreFolder.h>

#include <Storage/Backup.h>

#include <support/Named.h>
#include <support/Process.h>

#include <algorithm>

#include <fcntl.h>
#include <unistd.h>

namespace {

using Storage::Backup;
using Storage::SqliteStorage;
using Storage::StorageError;
namespace fs = std::filesystem;

class JournalBeside : public StoreFolder {
protected:
    fs::path journal() const { return path("store.sqlite-journal"); }

    // A store whose value was "old" and is "new".
    void makeStore()
    {
        SqliteStorage store(path());
        store.setString("key", "old");
        m_before = content(path());
        store.setString("key", "new");
        m_after = content(path());
        fs::remove(journal());
    }

    std::string undoing(std::optional<std::string> const& superJournal) const { return Journal::undoing(m_after, m_before, superJournal); }

    // Every way to use the store in `file` is refused for `reason`, whether it lay there at opening or came later.
    void expectRefused(fs::path const& file, std::string const& reason, std::function<void()> const& put)
    {
        SqliteStorage open(file);
        SqliteStorage const other(path("other.sqlite"));
        fs::remove(fs::canonical(file).string() + "-journal");
        put();
        std::string const name = file.string() + ": cannot ";
        EXPECT_EQ(refusal([&] { SqliteStorage const store(file); }), name + "open the store: " + reason);
        EXPECT_EQ(refusal([&] { open.rows(); }), name + "list the stored values: " + reason);
        EXPECT_EQ(refusal([&] { open.setString("key", "other"); }), name + "set \"key\": " + reason);
        EXPECT_EQ(refusal([&] { open.remove("key"); }), name + "remove \"key\": " + reason);
        EXPECT_EQ(refusal([&] { open.examine(); }), name + "examine the store: " + reason);
        EXPECT_EQ(refusal([&] { open.snapshot(); }), name + "copy the store: " + reason);
        EXPECT_EQ(content(file), m_after);
        EXPECT_EQ(open.getString("key", ""), "new") << "a value in memory needs no journal";
        EXPECT_FALSE(isLocked(file));
    }

    // Asked as another process would be answered.
    static bool isLocked(fs::path const& file)
    {
        int const descriptor = ::open(file.c_str(), O_RDWR | O_CLOEXEC);
        struct flock lock = {};
        lock.l_type = F_WRLCK;
        ::fcntl(descriptor, F_OFD_GETLK, &lock);
        ::close(descriptor);
        return lock.l_type != F_UNLCK;
    }

    std::string m_before;
    std::string m_after;
};

// --- What is not a regular file ---

struct Entry {
    char const* meaning;
    void (*make)(fs::path const& file);
};

class StrangeJournal : public JournalBeside, public testing::WithParamInterface<Entry> {
protected:
    void put() const
    {
        StoreFolder::overwrite(path("victim"), std::string(5000, 'v'));
        GetParam().make(journal());
    }

    std::string reason() const { return "its journal " + journal().string() + " is not a regular file; move the journal away"; }
};

TEST_P(StrangeJournal, IsNamedAndLeftAsItIs)
{
    makeStore();
    expectRefused(path(), reason(), [&] { put(); });
    EXPECT_FALSE(fs::is_regular_file(fs::symlink_status(journal())));
    EXPECT_EQ(content(path("victim")), std::string(5000, 'v'));
}

TEST_P(StrangeJournal, IsNoObstacleAfterItsRemoval)
{
    makeStore();
    SqliteStorage store(path());
    fs::remove(journal());
    put();
    EXPECT_THROW(store.rows(), StorageError);
    fs::remove_all(journal());
    EXPECT_EQ(store.getString("key", ""), "new");
    store.setString("key", "newer");
    EXPECT_EQ(SqliteStorage(path()).getString("key", ""), "newer");
}

TEST_P(StrangeJournal, OfALinkedStoreLiesBesideTheTargetOfTheLink)
{
    makeStore();
    fs::create_directory(path("links"));
    fs::create_symlink("../store.sqlite", path("links") / "link.sqlite");
    expectRefused(path("links") / "link.sqlite", reason(), [&] { put(); });
}

TEST_P(StrangeJournal, OfAMissingStoreIsNamedAndNoStoreIsMade)
{
    put();
    EXPECT_EQ(refusal([&] { SqliteStorage const store(path()); }),
              path().string() + ": cannot open the store: it is gone, but its journal is there and would be played back into a new one; "
                                "bring the store back beside its journal, or move the journal away");
    EXPECT_FALSE(fs::exists(path()));
}

TEST_P(StrangeJournal, OfABackupIsNamed)
{
    makeStore();
    Backup::write(path("copy.backup"), {});
    StoreFolder::overwrite(path("victim"), std::string(5000, 'v'));
    GetParam().make(path("copy.backup-journal"));
    EXPECT_EQ(refusal([&] { Backup(path("copy.backup")); }), path("copy.backup").string() + ": cannot read the backup: its journal " +
                                                                 path("copy.backup-journal").string() +
                                                                 " is not a regular file; move the journal away");
}

TEST_P(StrangeJournal, IsSetAsideByARestore)
{
    makeStore();
    SqliteStorage(path()).setString("key", "in the backup");
    {
        SqliteStorage const store(path());
        Backup::write(path("copy.backup"), {{"product", &store}});
    }
    fs::remove(journal());
    put();
    std::optional<fs::path> const kept = Backup(path("copy.backup")).restore("product", path());
    ASSERT_TRUE(kept);
    EXPECT_FALSE(fs::is_regular_file(fs::symlink_status(kept->string() + "-journal")));
    EXPECT_EQ(SqliteStorage(path()).getString("key", ""), "in the backup");
}

INSTANTIATE_TEST_SUITE_P(Table, StrangeJournal,
                         testing::Values(Entry{"Fifo", [](fs::path const& file) { ::mkfifo(file.c_str(), 0600); }},
                                         Entry{"Folder", [](fs::path const& file) { fs::create_directory(file); }},
                                         Entry{"Socket", &StoreFolder::makeSocket},
                                         Entry{"LinkToADevice", [](fs::path const& file) { fs::create_symlink("/dev/null", file); }},
                                         Entry{"LinkToAFile", [](fs::path const& file) { fs::create_symlink("victim", file); }},
                                         Entry{"LinkToNothing", [](fs::path const& file) { fs::create_symlink("nowhere", file); }}),
                         byMeaning);

// --- Super-journals ---

using SuperJournals = JournalBeside;

TEST_F(SuperJournals, JournalWithoutOneIsPlayedBack)
{
    makeStore();
    overwrite(journal(), undoing(std::nullopt));
    EXPECT_EQ(SqliteStorage(path()).getString("key", ""), "old");
}

TEST_F(SuperJournals, JournalOfAMissingOneIsStale)
{
    makeStore();
    for (fs::path const& missing : {path("missing"), path("missing/below"), path("store.sqlite/below"), path("store.sqlite-wal")}) {
        overwrite(journal(), undoing(missing.string()));
        EXPECT_EQ(SqliteStorage(path()).getString("key", ""), "new") << missing;
        EXPECT_FALSE(fs::exists(missing)) << missing;
        EXPECT_TRUE(!fs::exists(journal()) || fs::file_size(journal()) == 0) << missing;
    }
}

TEST_F(SuperJournals, JournalWithADamagedNameIsPlayedBack)
{
    makeStore();
    overwrite(path("private key"), "private");
    std::string damaged = undoing(path("private key").string());
    damaged[damaged.size() - 9] = static_cast<char>(damaged[damaged.size() - 9] + 1); // the sum of its bytes
    overwrite(journal(), damaged);
    EXPECT_EQ(SqliteStorage(path()).getString("key", ""), "old");
    EXPECT_EQ(content(path("private key")), "private");
}

struct Named {
    char const* meaning;
    char const* name;
    void (*make)(fs::path const& file);
};

void writePrivateKey(fs::path const& file) { StoreFolder::overwrite(file, "private"); }

class ExistingSuperJournal : public JournalBeside, public testing::WithParamInterface<Named> {
protected:
    fs::path named() const { return path(GetParam().name); }

    std::string reason() const
    {
        return "its journal " + journal().string() +
               " is a part of an interrupted change of several files; let the program that made that change undo it, or move the "
               "journal away and restore the store from a backup";
    }

    // Regular files are compared by their content, others by their type.
    std::string state() const
    {
        fs::file_status const status = fs::symlink_status(named());
        return std::to_string(static_cast<int>(status.type())) + (fs::is_regular_file(status) ? content(named()) : "");
    }
};

TEST_P(ExistingSuperJournal, IsNamedAndLeftAsItIs)
{
    makeStore();
    std::string before;
    expectRefused(path(), reason(), [&] {
        GetParam().make(named());
        overwrite(journal(), undoing(named().string()));
        before = state();
    });
    EXPECT_EQ(state(), before);
    EXPECT_EQ(content(journal()), undoing(named().string())) << "neither played back nor dropped";
}

TEST_P(ExistingSuperJournal, LetsTheStoreBeUsedAgainAfterItsRemoval)
{
    makeStore();
    GetParam().make(named());
    overwrite(journal(), undoing(named().string()));
    EXPECT_THROW(SqliteStorage{path()}, StorageError);
    fs::remove_all(named());
    if (!fs::exists(journal())) // the journal was its own super-journal
        overwrite(journal(), undoing(named().string() + "-missing"));
    SqliteStorage store(path());
    EXPECT_EQ(store.getString("key", ""), "new");
    store.setString("key", "newer");
    EXPECT_EQ(SqliteStorage(path()).getString("key", ""), "newer");
}

TEST_P(ExistingSuperJournal, IsNotLookedForBesideABackup)
{
    makeStore();
    Backup::write(path("copy.backup"), {});
    std::string const content = StoreFolder::content(path("copy.backup"));
    GetParam().make(named());
    std::string const before = state();
    overwrite(path("copy.backup-journal"), Journal::undoing(content, std::string(content.size(), 'x'), named().string()));
    EXPECT_EQ(refusal([&] { Backup(path("copy.backup")); }),
              path("copy.backup").string() + ": cannot read the backup: its journal " + path("copy.backup-journal").string() +
                  " holds an interrupted change, which can only be undone where the file may be written; name another backup; this "
                  "one was left as it is");
    EXPECT_EQ(state(), before);
    EXPECT_EQ(StoreFolder::content(path("copy.backup")), content);
}

INSTANTIATE_TEST_SUITE_P(
    Table, ExistingSuperJournal,
    testing::Values(Named{"PrivateKey", "id", &writePrivateKey},
                    Named{"EmptyFile", "empty", [](fs::path const& file) { StoreFolder::overwrite(file, ""); }},
                    Named{"NameOfAnotherStoresJournal", "other.sqlite-journal", &writePrivateKey},
                    Named{"EmptyJournalOfAnotherStore", "other.sqlite-journal",
                          [](fs::path const& file) { StoreFolder::overwrite(file, ""); }},
                    Named{"NameOfItsOwnJournal", "store.sqlite-journal", [](fs::path const&) {}},
                    Named{"NameOfItsOwnLog", "store.sqlite-wal", [](fs::path const& file) { StoreFolder::overwrite(file, ""); }},
                    Named{"NameOfAnotherLog", "other.sqlite-wal", &writePrivateKey},
                    Named{"NameThatSqliteGives", "store.sqlite-mj0123456789AB", &writePrivateKey},
                    Named{"Fifo", "pipe", [](fs::path const& file) { ::mkfifo(file.c_str(), 0600); }},
                    Named{"Folder", "folder", [](fs::path const& file) { fs::create_directory(file); }},
                    Named{"LinkToADevice", "device", [](fs::path const& file) { fs::create_symlink("/dev/null", file); }},
                    Named{"LinkToNothing", "link", [](fs::path const& file) { fs::create_symlink("nowhere", file); }},
                    Named{"LinkToAFolder", "link", [](fs::path const& file) { fs::create_symlink(".", file); }}),
    byMeaning);

TEST_F(SuperJournals, RelativeNameIsMeantFromTheCurrentFolder)
{
    makeStore();
    overwrite(path("key"), "private");
    overwrite(journal(), undoing("key"));
    fs::path const earlier = fs::current_path();
    fs::current_path(m_home.path());
    EXPECT_THROW(SqliteStorage{path()}, StorageError);
    fs::current_path(earlier);
    EXPECT_EQ(content(path("key")), "private");
}

TEST_F(SuperJournals, NameThatCannotBeLookedForIsRefused)
{
    makeStore();
    overwrite(journal(), undoing(path(std::string(300, 'n').c_str()).string()));
    EXPECT_NE(refusal([&] { SqliteStorage const store(path()); }).find("several files"), std::string::npos);
}

// SQLite leaves some journals beside an open store as they are: stale ones, and those that begin with a zero. The journal of the
// next change is shorter, and must not end in the old one's name of a missing super-journal, by which SQLite would drop it.
class LeftJournal : public JournalBeside {
protected:
    // How many times a change waits for the disk before its end, which is the emptying of its journal.
    int syncsOfAChange(SqliteStorage& store) const
    {
        FaultySystem::watch();
        store.setString("key", "rehearsal");
        FaultySystem::rest();
        auto const& calls = FaultySystem::calls();
        auto const end = std::find(calls.rbegin(), calls.rend(), "ftruncate64").base();
        return static_cast<int>(std::count(calls.begin(), end, "fdatasync"));
    }

    // What the store holds after a process was killed at the end of a change, when the file held it already.
    std::string valueAfterAKill(std::string const& left)
    {
        makeStore();
        inChild([&]() -> std::string {
            SqliteStorage store(path());
            overwrite(journal(), left);
            int const syncs = syncsOfAChange(store);
            store.setString("key", "new");
            overwrite(journal(), left);
            EXPECT_EQ(store.rows().size(), 1u);
            FaultySystem::killBefore("fdatasync", syncs);
            store.setString("key", "newer");
            return "";
        });
        EXPECT_NE(content(path()).find("newer"), std::string::npos) << "the file does not hold the change";
        EXPECT_GT(fs::file_size(journal()), 512u);
        return SqliteStorage(path()).getString("key", "");
    }

    std::string stale() const { return Journal::magic + std::string(100000, 'x') + Journal::nameOf(path("missing").string()); }
};

TEST_F(LeftJournal, ThatIsStaleDoesNotSpoilTheNextOne) { EXPECT_EQ(valueAfterAKill(stale()), "new"); }

TEST_F(LeftJournal, ThatBeginsWithAZeroDoesNotSpoilTheNextOne) { EXPECT_EQ(valueAfterAKill('\0' + stale()), "new"); }

} // namespace
