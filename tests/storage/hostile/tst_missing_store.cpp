// SPDX-License-Identifier: MIT
//
// Stores that are opened only where they exist, as by programs that look.
#include <storage/support/StoreFolder.h>

namespace {

using Storage::SqliteStorage;
using Storage::StorageError;
namespace fs = std::filesystem;

class ExistingStoresOnly : public StoreFolder {
protected:
    static SqliteStorage::Options looking()
    {
        SqliteStorage::Options options;
        options.createIfMissing = false;
        return options;
    }

    std::string refusalOf(fs::path const& file) const
    {
        return refusal([&] { SqliteStorage const store(file, looking()); });
    }
};

TEST_F(ExistingStoresOnly, MissingOneIsAnErrorAndNothingIsMade)
{
    fs::path const file = path("folder") / "below" / "store.sqlite";
    EXPECT_EQ(refusalOf(file), file.string() + ": cannot open the store: it does not exist; name the file of a store");
    EXPECT_EQ(refusalOf(path()), path().string() + ": cannot open the store: it does not exist; name the file of a store");
    EXPECT_FALSE(fs::exists(path("folder")));
    EXPECT_FALSE(fs::exists(path()));
    try {
        SqliteStorage const store(path(), looking());
        FAIL() << "it was opened";
    } catch (StorageError const& error) {
        EXPECT_EQ(error.code(), StorageError::Code::missing);
    }
}

TEST_F(ExistingStoresOnly, MissingOneIsMissingWhateverLiesBesideIt)
{
    overwrite(path("store.sqlite-journal"), "journal");
    overwrite(path("store.sqlite-wal"), "log");
    EXPECT_EQ(refusalOf(path()), path().string() + ": cannot open the store: it does not exist; name the file of a store");
    EXPECT_FALSE(fs::exists(path()));
}

TEST_F(ExistingStoresOnly, DanglingLinkIsForeign)
{
    fs::create_symlink("nowhere", path());
    EXPECT_EQ(refusalOf(path()), path().string() + ": cannot open the store: it is a symbolic link to a file that does not exist; remove "
                                                   "the link, or restore the file that it names");
    EXPECT_FALSE(fs::exists(path("nowhere")));
}

TEST_F(ExistingStoresOnly, ExistingOneIsOpenedAndMayBeChanged)
{
    SqliteStorage(path()).setString("key", "value");
    SqliteStorage store(path(), looking());
    EXPECT_EQ(store.getString("key", ""), "value");
    store.setString("key", "other");
    EXPECT_EQ(SqliteStorage(path()).getString("key", ""), "other");
}

} // namespace
