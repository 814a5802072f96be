// SPDX-License-Identifier: MIT
#include "SqliteErrors.h"

#include "VfsShim.h"

#include <cerrno>
#include <cstdio>
#include <system_error>

namespace fs = std::filesystem;

namespace Storage {

namespace {

using Code = StorageError::Code;

constexpr char const* freeSpace = "free some space on the disk and try again";

// What a program and a user make of an error.
struct Meaning {
    Code code;
    char const* remedy;
};

Meaning meaningOf(int extendedCode)
{
    if (extendedCode == SQLITE_READONLY_DBMOVED)
        return {Code::access, "the file was moved or removed while it was open: start the program again"};
    if (extendedCode == refusedJournal)
        return {Code::foreign, "move the journal away"};
    if (extendedCode == refusedSuperJournal)
        return {Code::foreign,
                "let the program that made that change undo it, or move the journal away and restore the store from a backup"};
    if (extendedCode == refusedLog)
        return {Code::foreign, "switch it back with: sqlite3 FILE 'PRAGMA journal_mode=DELETE'"};
    switch (extendedCode & 0xff) {
    case SQLITE_BUSY:
        return {Code::busy, "another process is writing: try again, or close the other process"};
    case SQLITE_FULL:
        return {Code::full, freeSpace};
    case SQLITE_NOTADB:
    case SQLITE_CORRUPT:
    case SQLITE_ERROR: // the statements are right, so the tables are not
        return {Code::damaged, restoreBackup};
    case SQLITE_READONLY:
        return {Code::readOnly, checkAccess};
    case SQLITE_CANTOPEN:
        return {Code::access, checkAccess};
    case SQLITE_INTERRUPT:
        return {Code::foreign, nameAnotherFile};
    case SQLITE_TOOBIG:
        return {Code::tooLarge, "keep the value in a file of its own and store the file's name"};
    default:
        return {Code::io, "check the disk and its space, and try again"};
    }
}

Meaning meaningOfSystem(int error)
{
    switch (error) {
    case ENAMETOOLONG:
        return {Code::tooLarge, shortenName};
    case ENOSPC:
    case EDQUOT:
        return {Code::full, freeSpace};
    case EROFS:
        return {Code::readOnly, checkAccess};
    case EACCES:
    case EPERM:
    case ENOENT:
    case ENOTDIR:
    case ELOOP:
    case EINVAL: // no file can have such a name
        return {Code::access, checkAccess};
    default:
        return {Code::io, checkAccess};
    }
}

// SQLite keeps the journal of a linked file beside the link's target.
std::string journalOf(fs::path const& file)
{
    std::error_code error;
    bool const isLink = fs::is_symlink(fs::symlink_status(file, error));
    return (isLink ? fs::canonical(file, error) : file).u8string() + "-journal";
}

// SQLiteCpp gives an error of its own a negative extended code.
int extendedCode(SQLite::Exception const& error)
{
    return error.getExtendedErrorCode() > 0 ? error.getExtendedErrorCode() : error.getErrorCode();
}

} // namespace

std::string forSentence(std::string const& text, std::size_t most)
{
    std::string result;
    for (char const character : text.substr(0, most)) {
        char escaped[5] = {character};
        if (character < ' ' || character > '~')
            std::snprintf(escaped, sizeof escaped, "\\x%02x", static_cast<unsigned>(static_cast<unsigned char>(character)));
        result += escaped;
    }
    return text.size() > most ? result + "..." : result;
}

void throwSystemError(fs::path const& file, char const* attempt, int error)
{
    Meaning const meaning = meaningOfSystem(error);
    throw StorageError(meaning.code, file.u8string(), attempt, std::generic_category().message(error), meaning.remedy);
}

StorageError::Code codeForSystem(int error) { return meaningOfSystem(error).code; }

StorageError::Code codeFor(SQLite::Exception const& error) { return meaningOf(extendedCode(error)).code; }

std::string reasonOf(fs::path const& file, SQLite::Exception const& error)
{
    int const code = extendedCode(error);
    if (code == refusedJournal)
        return "its journal " + journalOf(file) + " is not a regular file";
    if (code == refusedSuperJournal)
        return "its journal " + journalOf(file) + " is a part of an interrupted change of several files";
    if (code == refusedLog)
        return "it was switched to write-ahead logging, which can damage it";
    if (code == SQLITE_READONLY_ROLLBACK)
        return "its journal " + journalOf(file) + " holds an interrupted change, which can only be undone where the file may be written";
    if (code == SQLITE_INTERRUPT)
        return "reading it takes longer than reading a store of its size can";
    return forSentence(error.what(), 300);
}

StorageError storageError(fs::path const& file, std::string const& attempt, SQLite::Exception const& error)
{
    Meaning const meaning = meaningOf(extendedCode(error));
    return {meaning.code, file.u8string(), attempt, reasonOf(file, error), meaning.remedy};
}

} // namespace Storage
