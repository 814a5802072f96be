// SPDX-License-Identifier: MIT
//
// Stores on a network file system, as NetworkFolder.cpp simulates one.
#include <storage/support/StoreFolder.h>

#include <Storage/Backup.h>

#include <cstdlib>

namespace {

using Storage::Backup;
using Storage::SqliteStorage;
using Storage::StorageError;
namespace fs = std::filesystem;

std::string const reason =
    "it lies on a network file system, where locks do not hold between machines, so that two programs can damage it; keep it on a local "
    "disk";

class NetworkFileSystem : public StoreFolder {
protected:
    NetworkFileSystem()
    {
        fs::create_directory(path("network"));
        ::setenv("TEST_NETWORK_FOLDER", fs::canonical(path("network")).c_str(), 1);
    }
    ~NetworkFileSystem() override { ::unsetenv("TEST_NETWORK_FOLDER"); }

    static SqliteStorage::Options insisting()
    {
        SqliteStorage::Options options;
        options.allowNetworkFileSystem = true;
        return options;
    }

    std::string refusalOf(fs::path const& file) const
    {
        return refusal([&] { SqliteStorage const store(file); });
    }

    fs::path const m_file = path("network") / "store.sqlite";
};

TEST_F(NetworkFileSystem, TakesNoNewStore)
{
    EXPECT_EQ(refusalOf(m_file), m_file.string() + ": cannot open the store: " + reason);
    EXPECT_EQ(refusalOf(path("network") / "folder" / "store.sqlite"),
              (path("network") / "folder" / "store.sqlite").string() + ": cannot open the store: " + reason);
    EXPECT_TRUE(fs::is_empty(path("network")));
}

TEST_F(NetworkFileSystem, StoreOnItIsRefusedAndLeftAsItIs)
{
    SqliteStorage(m_file, insisting()).setString("key", "value");
    std::string const before = content(m_file);
    EXPECT_EQ(refusalOf(m_file), m_file.string() + ": cannot open the store: " + reason);
    EXPECT_EQ(content(m_file), before);
    try {
        SqliteStorage const store(m_file);
        FAIL() << "it was opened";
    } catch (StorageError const& error) {
        EXPECT_EQ(error.code(), StorageError::Code::network);
    }
}

TEST_F(NetworkFileSystem, IsThatOfTheFileBehindALink)
{
    SqliteStorage(m_file, insisting()).setString("key", "value");
    fs::create_symlink("network/store.sqlite", path("link.sqlite"));
    EXPECT_EQ(refusalOf(path("link.sqlite")), path("link.sqlite").string() + ": cannot open the store: " + reason);
    fs::create_directory_symlink("network", path("folder"));
    EXPECT_EQ(refusalOf(path("folder") / "new.sqlite"), (path("folder") / "new.sqlite").string() + ": cannot open the store: " + reason);
}

TEST_F(NetworkFileSystem, IsAllowedToAHostThatInsists)
{
    SqliteStorage(m_file, insisting()).setString("key", "value");
    EXPECT_EQ(SqliteStorage(m_file, insisting()).getString("key", ""), "value");
}

TEST_F(NetworkFileSystem, LocalStoreBesideItIsOpened)
{
    SqliteStorage(path()).setString("key", "value");
    EXPECT_EQ(SqliteStorage(path()).getString("key", ""), "value");
}

TEST_F(NetworkFileSystem, TakesARestoreOnlyFromAHostThatInsists)
{
    SqliteStorage(m_file, insisting()).setString("key", "before");
    SqliteStorage(path()).setString("key", "in the backup");
    {
        SqliteStorage const store(path());
        Backup::write(path("network") / "copy.backup", {{"product", &store}});
    }
    std::string const before = content(m_file);
    Backup const backup(path("network") / "copy.backup");
    EXPECT_EQ(refusal([&] { backup.restore("product", m_file); }), m_file.string() + ": cannot restore the store: " + reason);
    EXPECT_EQ(content(m_file), before);
    EXPECT_TRUE(backup.restore("product", m_file, insisting()));
    EXPECT_EQ(SqliteStorage(m_file, insisting()).getString("key", ""), "in the backup");
}

} // namespace
