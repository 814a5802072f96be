// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>
#include <string>

namespace Storage {

/// Trouble with a store's file. The text is one sentence for the user in UTF-8: the file, what was tried, why it failed
/// (in SQLite's or the system's words) and what to do. The stored values are as they were before the call, but for one
/// case: where the disk refuses the very last step of a change, only the next read tells whether it holds.
class StorageError : public std::runtime_error {
public:
    /// Makes the sentence "`file`: cannot `attempt`: `reason`; `remedy`".
    StorageError(std::string const& file, std::string const& attempt, std::string const& reason, std::string const& remedy)
        : std::runtime_error(file + ": cannot " + attempt + ": " + reason + "; " + remedy), m_file(file), m_reason(reason)
    {}

    /// The file that the trouble is about.
    std::string const& file() const noexcept { return m_file; }
    /// Why it failed, without the rest of the sentence.
    std::string const& reason() const noexcept { return m_reason; }

private:
    std::string m_file;
    std::string m_reason;
};

} // namespace Storage
