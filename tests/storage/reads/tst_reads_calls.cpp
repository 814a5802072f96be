// SPDX-License-Identifier: MIT
//
// The system calls of a read: one where the rows in memory answer it, all those of SQLite where they may not.
#include <storage/support/StoreFolder.h>
#include <storage/support/Traced.h>

#include <support/Named.h>
#include <support/Process.h>

#include <algorithm>
#include <memory>

#include <dlfcn.h>
#include <sqlite3.h>
#include <sys/syscall.h>
#include <sys/vfs.h>

namespace {

// The type of every file system, in the system's numbers; 0 leaves it as it is.
decltype(std::declval<struct statfs>().f_type) pretendedType = 0;

} // namespace

extern "C" __attribute__((visibility("default"))) int statfs(char const* path, struct statfs* status) noexcept
{
    auto* const real = reinterpret_cast<int (*)(char const*, struct statfs*)>(::dlsym(RTLD_NEXT, "statfs"));
    int const result = real(path, status);
    if (pretendedType != 0)
        status->f_type = pretendedType;
    return result;
}

namespace {

using Storage::SqliteStorage;
using Store = std::unique_ptr<SqliteStorage>;

std::vector<long> const oneRead{SYS_pread64};

class ReadCalls : public StoreFolder {
protected:
    void SetUp() override
    {
        if (!Traced::isPossible())
            GTEST_SKIP() << "this process may not trace others, as in some containers: no call was counted";
        SqliteStorage(path()).apply(
            {{"flag", true}, {"number", 1}, {"text", std::string(300, 't')}, {"bytes", std::vector<unsigned char>(9)}});
    }

    // The system calls of `work` on a store that was opened, and changed by `change`, in the same process before.
    std::vector<long> calls(
        std::function<void(SqliteStorage&)> const& work, std::function<void(SqliteStorage&)> const& change = [](SqliteStorage&) {})
    {
        Store store; // the traced process's own
        auto const before = [&] {
            SqliteStorage::Options options;
            options.allowNetworkFileSystem = true;
            store = std::make_unique<SqliteStorage>(path(), options);
            change(*store);
        };
        return Traced::systemCalls({before, [&] { work(*store); }});
    }

    // Whether SQLite reads the row, which takes a lock and gives it back.
    static bool isLocking(std::vector<long> const& calls) { return std::count(calls.begin(), calls.end(), SYS_fcntl) >= 2; }

    static void readNumber(SqliteStorage& store)
    {
        if (store.getInt("number", 0) != 1)
            throw std::runtime_error("another number was read");
    }
};

struct Read {
    char const* meaning;
    void (*act)(SqliteStorage& store);
};

class KnownRead : public ReadCalls, public testing::WithParamInterface<Read> {};

TEST_P(KnownRead, IsOneSystemCall) { EXPECT_EQ(calls(GetParam().act), oneRead); }

INSTANTIATE_TEST_SUITE_P(Table, KnownRead,
                         testing::Values(Read{"Bool", [](SqliteStorage& store) { store.getBool("flag", false); }},
                                         Read{"Int", [](SqliteStorage& store) { store.getInt("number", 0); }},
                                         Read{"Text", [](SqliteStorage& store) { store.getString("text", ""); }},
                                         Read{"Bytes", [](SqliteStorage& store) { store.getBytes("bytes", {}); }},
                                         Read{"AnotherKind", [](SqliteStorage& store) { store.getInt("text", 0); }},
                                         Read{"AbsentKey", [](SqliteStorage& store) { store.getInt("absent", 0); }},
                                         Read{"Contains", [](SqliteStorage& store) { store.contains("text"); }},
                                         Read{"Find", [](SqliteStorage& store) { store.find("text"); }}),
                         byMeaning);

// The first read takes its row from the file, as no second one may follow; the second one takes all rows.
TEST_F(ReadCalls, TwoReadsAfterAChangeLockTheFile)
{
    auto const reads = [](int count) {
        return [count](SqliteStorage& store) {
            store.setInt("another", 2);
            for (int read = 0; read < count; ++read)
                readNumber(store);
        };
    };
    EXPECT_TRUE(isLocking(calls(readNumber, reads(0))));
    EXPECT_TRUE(isLocking(calls(readNumber, reads(1))));
    EXPECT_EQ(calls(readNumber, reads(2)), oneRead);
}

// Of the four calls, three take a lock for reading and one gives it back.
TEST_F(ReadCalls, OfAnOpeningLockTheFileOnce)
{
    std::vector<long> const opening = Traced::systemCalls({[] {}, [&] { SqliteStorage const store(path()); }});
    EXPECT_EQ(std::count(opening.begin(), opening.end(), SYS_fcntl), 4);
}

struct FileSystem {
    char const* meaning;
    decltype(pretendedType) type;
    bool isTrusted;
};

class ReadOnFileSystem : public ReadCalls, public testing::WithParamInterface<FileSystem> {};

// Where a lock is what makes the system ask the server again, a read without one would be stale.
TEST_P(ReadOnFileSystem, LocksTheFileUnlessItIsLocal)
{
    pretendedType = GetParam().type;
    EXPECT_EQ(calls(readNumber) == oneRead, GetParam().isTrusted);
    EXPECT_EQ(isLocking(calls(readNumber)), !GetParam().isTrusted);
    pretendedType = 0;
}

INSTANTIATE_TEST_SUITE_P(Table, ReadOnFileSystem,
                         testing::Values(FileSystem{"Ext4", 0xEF53, true}, FileSystem{"Memory", 0x01021994, true},
                                         FileSystem{"Nfs", 0x6969, false}, FileSystem{"Cifs", 0xFF534D42, false},
                                         FileSystem{"Fuse", 0x65735546, false}),
                         byMeaning);

// A host may ask SQLite to map files into memory. Another program that cuts such a file short would end the process.
TEST_F(ReadCalls, FileIsNotMapped)
{
    Store store;
    auto const before = [&] {
        sqlite3_shutdown();
        sqlite3_int64 const size = 1 << 24;
        if (sqlite3_config(SQLITE_CONFIG_MMAP_SIZE, size, size) != SQLITE_OK)
            throw std::runtime_error("SQLite is in use");
        store = std::make_unique<SqliteStorage>(path());
        store->rows();
    };
    EXPECT_EQ(Traced::systemCalls({before, [&] { readNumber(*store); }}), oneRead);
}

// --- Large files are read row by row ---

constexpr std::uintmax_t largest = 256 * 1024;

class ReadOfALargeFile : public ReadCalls {
protected:
    // Lets the file grow to exactly so many bytes.
    static void grow(SqliteStorage& store, std::uintmax_t size)
    {
        for (int row = 0; std::filesystem::file_size(store.file()) < size; ++row)
            store.setString("padding " + std::to_string(row), std::string(3000, 'p'));
        if (std::filesystem::file_size(store.file()) != size)
            throw std::runtime_error("the file has another size");
    }

    // No store may be open in a process that is forked to be traced.
    void growTo(std::uintmax_t size) const
    {
        SqliteStorage store(path());
        grow(store, size);
    }

    static void readThrice(SqliteStorage& store)
    {
        for (int read = 0; read < 3; ++read)
            readNumber(store);
    }
};

TEST_F(ReadOfALargeFile, UpToTheLimitIsOneSystemCall)
{
    growTo(largest);
    EXPECT_EQ(calls(readNumber), oneRead);
}

TEST_F(ReadOfALargeFile, BeyondTheLimitLocksTheFile)
{
    growTo(largest + 4096);
    EXPECT_TRUE(isLocking(calls(readNumber, readThrice)));
}

TEST_F(ReadOfALargeFile, ThatGrewWhileItWasOpenLocksItUntilItIsOpenedAgain)
{
    auto const growAndShrink = [](SqliteStorage& store) {
        readThrice(store);
        grow(store, largest + 4096);
        readThrice(store);
        OtherProgram(store.file()).execute("DELETE FROM settings WHERE key LIKE 'padding%'; VACUUM");
        readThrice(store);
    };
    EXPECT_TRUE(isLocking(calls(readNumber, growAndShrink)));
    ASSERT_LT(std::filesystem::file_size(path()), largest);
    EXPECT_EQ(calls(readNumber), oneRead);
}

TEST_F(ReadOfALargeFile, ShowsEachCommitOfAnotherProgram)
{
    SqliteStorage store(path());
    OtherProgram other(path());
    for (int value = 1; value < 40; ++value) {
        std::string const size = std::to_string(value < 20 ? value * 20000 : (40 - value) * 20000); // up beyond the limit and down
        other.execute(("BEGIN; INSERT OR REPLACE INTO settings VALUES ('padding', 'bytes', zeroblob(" + size +
                       "), 0); UPDATE settings SET value = " + std::to_string(value) + " WHERE key = 'number'; COMMIT")
                          .c_str());
        for (int read = 0; read < 3; ++read)
            ASSERT_EQ(store.getInt("number", 0), value) << "in read " << read;
    }
}

} // namespace
