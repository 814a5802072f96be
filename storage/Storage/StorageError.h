// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>
#include <string>

namespace Storage {

/// An error about a store's file. `what` joins its parts to one sentence for the user, in UTF-8. The stored values are
/// unchanged by the call, with one exception: where the disk refuses the very last step of a change, only the next read
/// shows whether the change holds.
class StorageError : public std::runtime_error {
public:
    /// What a program may decide by. The reason and the remedy are for people and may change.
    enum class Code {
        busy,        ///< Another process holds the store for longer than this one waits.
        full,        ///< The disk or the user's quota is full.
        damaged,     ///< The file is, or was, a store and cannot be read as one.
        foreign,     ///< Something other than a store, or a backup, has the file's name.
        newer,       ///< A newer version wrote the file.
        readOnly,    ///< The file or its file system may be read, but not changed.
        access,      ///< The file, or what belongs to it, is missing or was moved, or this user has no right to it.
        io,          ///< The system failed to read or to write, or lacks memory or descriptors.
        tooLarge,    ///< A key, a value or a path is longer than a store can take.
        conflict,    ///< Another row than the expected one is stored; thrown as a `Storage::Conflict`.
        missing,     ///< The store does not exist, and the caller did not ask to create it.
        network,     ///< The file lies on a network file system, where locks do not hold.
        forked,      ///< This process was forked, without exec, from one that had a store open.
        locked,      ///< The studio has locked the key against changes.
        unreachable, ///< The server of a shared store does not answer in time, or cannot be reached.
    };

    /// `what` becomes "`file`: cannot `attempt`: `reason`; `remedy`".
    StorageError(Code code, std::string const& file, std::string const& attempt, std::string const& reason, std::string const& remedy)
        : std::runtime_error(file + ": cannot " + attempt + ": " + reason + "; " + remedy),
          m_code(code),
          m_file(file),
          m_attempt(attempt),
          m_reason(reason),
          m_remedy(remedy)
    {}

    /// The class of the error.
    Code code() const noexcept { return m_code; }
    /// The file or folder that the error is about.
    std::string const& file() const noexcept { return m_file; }
    /// What was tried, such as "open the store".
    std::string const& attempt() const noexcept { return m_attempt; }
    /// Why it failed, in SQLite's, the system's or this library's words.
    std::string const& reason() const noexcept { return m_reason; }
    /// What the user can do.
    std::string const& remedy() const noexcept { return m_remedy; }

private:
    Code m_code;
    std::string m_file;
    std::string m_attempt;
    std::string m_reason;
    std::string m_remedy;
};

} // namespace Storage
