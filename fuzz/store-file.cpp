// SPDX-License-Identifier: MIT
//
// A store's file of any bytes: it yields values or a `StorageError`, and stays unchanged.
//
// An input is the file's content.
#include <support/Fuzz.h>
#include <support/names/NaiveNames.h>

#include <Storage/SqliteStorage.h>

#include <unistd.h>

using Fuzz::expect;
using Storage::SqliteStorage;

namespace {

void checkError(Storage::StorageError const& error, std::filesystem::path const& file)
{
    Fuzz::expectEqual("file of an error", error.file(), file.string());
    if (error.attempt().empty() || error.reason().empty() || error.remedy().empty())
        Fuzz::finding("an error with all its parts", {error.what()});
}

void read(SqliteStorage const& store)
{
    for (SqliteStorage::Row const& row : store.rows())
        store.getString(row.key, "default");
    store.find("npsSendCount");
    store.getInt("npsSendCount", 0);
    store.contains("");
}

} // namespace

int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    static TestKit::TemporaryHome const home;
    static std::filesystem::path const file = home.path() / "store.sqlite";
    Fuzz::writeFile(file, data, size);
    try {
        SqliteStorage const store(file, {std::chrono::milliseconds(0), SqliteStorage::Synchronous::normal});
        read(store);
    } catch (Storage::StorageError const& error) {
        checkError(error, file);
    }
    expect(Fuzz::fileContent(file) == std::string(data, data + size), "a file that is only read stays as it is");
    for (char const* const companion : {"-journal", "-wal", "-shm"})
        expect(::access((file.string() + companion).c_str(), F_OK) != 0, "nothing is left beside the file");
    return 0;
}
