// SPDX-License-Identifier: MIT
#pragma once

#include <Studio/outbox/LaneLocks.h>

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace Studio {

/// What is attempted, in the errors of opening an outbox.
inline constexpr char const* openTheOutbox = "open the outbox";

/// Opens the outbox in `file`, and creates a missing one with mode 0600 for the server and user that `identity` names. Every
/// change is on disk when its transaction ends.
///
/// A damaged file is moved aside, together with its journal, and a new one takes its place, unless another program has it open.
/// What another user could have written, another program's file, one of a newer version and that of another server or user are refused and
/// left as they are. `locks` has locked the opening. Throws `Storage::StorageError` and SQLite's errors.
SQLite::Database openOutbox(std::filesystem::path const& file, std::string const& identity, LaneLocks& locks);

/// Opens the outbox in `file` for one who only looks into it, and never has it moved. Throws likewise, also where it is missing.
SQLite::Database openOutboxToRead(std::filesystem::path const& file, std::string const& identity);

/// The damaged files that were moved aside of `file`, here or by earlier programs: support may find changes in them.
std::vector<std::filesystem::path> damagedOutboxes(std::filesystem::path const& file);

inline void bindOne(SQLite::Statement& statement, int index, std::int64_t value) { statement.bind(index, value); }
inline void bindOne(SQLite::Statement& statement, int index, std::string const& value) { statement.bindNoCopy(index, value); }

/// Binds `values` to the parameters from the first on. Texts may hold any bytes, and must outlive the use of the statement.
template <typename... Values>
void bindAll(SQLite::Statement& statement, Values const&... values)
{
    int index = 0;
    (bindOne(statement, ++index, values), ...);
}

} // namespace Studio
