// SPDX-License-Identifier: MIT
//
// The errors of SQLite and of the system as a `StorageError`. Internal.
#pragma once

#include <Storage/StorageError.h>

#include <SQLiteCpp/Exception.h>

#include <filesystem>
#include <string>

namespace Storage {

/// What a user can do, wherever a store is refused for that reason.
inline constexpr char const* shortenName = "name a file with a shorter path";
inline constexpr char const* checkAccess = "make the file and its folder readable and writable for this user";
inline constexpr char const* restoreBackup = "the file was left as it is: move it away and restore it from a backup";

/// Throws a `StorageError` with the system's words for `error` and what to do about it.
[[noreturn]] void throwSystemError(std::filesystem::path const& file, char const* attempt, int error);

/// SQLite's error as this project's, with a remedy.
StorageError storageError(std::filesystem::path const& file, std::string const& attempt, SQLite::Exception const& error);

/// Does `work`; what SQLite throws comes out as a `StorageError`.
template <typename Work>
auto withStorageErrors(std::filesystem::path const& file, std::string const& attempt, Work const& work)
{
    try {
        return work();
    } catch (SQLite::Exception const& error) {
        throw storageError(file, attempt, error);
    }
}

} // namespace Storage
