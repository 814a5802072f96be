// SPDX-License-Identifier: MIT
#include <Inspection/StoreWatcher.h>

#include <sys/stat.h>

using Storage::SqliteStorage;

namespace Inspection {

StoreWatcher::Look StoreWatcher::look()
{
    std::vector<SqliteStorage::Row> const before = m_rows;
    try {
        bool const isRead = read();
        m_error.clear();
        return {isRead ? rowDifferences(before, m_rows) : std::vector<RowDifference>(), std::nullopt};
    } catch (Storage::StorageError const& error) {
        m_opened.reset();
        if (error.code() == Storage::StorageError::Code::missing) {
            m_rows.clear();
            m_error.clear();
            return {rowDifferences(before, m_rows), std::nullopt};
        }
        bool const isKnown = m_error == error.what();
        m_error = error.what();
        return {{}, isKnown ? std::nullopt : std::optional(error)};
    }
}

// Whether the rows may be others than before.
bool StoreWatcher::read()
{
    struct stat status = {};
    bool const exists = ::stat(m_file.c_str(), &status) == 0;
    Identity const identity = {status.st_dev, status.st_ino};
    if (!m_opened || !exists || identity != m_identity) {
        m_opened = std::make_unique<SqliteStorage>(m_file, m_options);
        m_identity = identity;
    } else if (m_opened->changesOfOthers() == m_version) {
        return false;
    }
    m_version = m_opened->changesOfOthers();
    m_rows = m_opened->rows();
    return true;
}

} // namespace Inspection
