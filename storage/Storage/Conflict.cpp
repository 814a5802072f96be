// SPDX-License-Identifier: MIT
#include <Storage/Conflict.h>

namespace Storage {

Conflict::Conflict(std::string const& file, std::string const& attempt, std::string const& key,
                   std::optional<SqliteStorage::Row> const& expected, std::optional<SqliteStorage::Row> const& stored)
    : StorageError(Code::conflict, file, attempt,
                   '"' + key + "\" was " +
                       (!stored    ? "removed"
                        : expected ? "changed"
                                   : "set") +
                       " in the meantime",
                   "read it again and decide again"),
      m_key(key),
      m_row(stored)
{}

} // namespace Storage
