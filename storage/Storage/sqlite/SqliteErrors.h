// SPDX-License-Identifier: MIT
//
// The errors of SQLite and of the system as a `StorageError`. Internal.
#pragma once

#include <Storage/StorageError.h>

#include <SQLiteCpp/Exception.h>

#include <cstddef>
#include <filesystem>
#include <string>

namespace Storage {

/// Remedies that several errors share.
inline constexpr char const* shortenName = "name a file with a shorter path";
inline constexpr char const* checkAccess = "make the file and its folder readable and writable for this user";
inline constexpr char const* nameAnotherFile = "move it away, or name another file";
inline constexpr char const* restoreBackup = "the file was left as it is: move it away and restore it from a backup";

/// `text`, which a stranger may have chosen, for a sentence: on one line, each byte that is not printable ASCII as `\\xHH`,
/// and cut after `most` bytes.
std::string forSentence(std::string const& text, std::size_t most);

/// Throws a `StorageError` with the system's words for `error`, a number of `errno`.
[[noreturn]] void throwSystemError(std::filesystem::path const& file, char const* attempt, int error);

/// The code for a number of `errno`.
StorageError::Code codeForSystem(int error);

/// The code for SQLite's error, which may be an extended one.
StorageError::Code codeFor(SQLite::Exception const& error);

/// The reason in words: SQLite's, which may quote the content of `file`, are for a sentence.
std::string reasonOf(std::filesystem::path const& file, SQLite::Exception const& error);

/// SQLite's error with its remedy.
StorageError storageError(std::filesystem::path const& file, std::string const& attempt, SQLite::Exception const& error);

/// Returns what `work` returns, and throws SQLite's errors as a `StorageError`.
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
