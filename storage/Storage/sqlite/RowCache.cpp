// SPDX-License-Identifier: MIT
#include "RowCache.h"

#include "StoreContent.h"

#include <SQLiteCpp/Column.h>
#include <SQLiteCpp/Transaction.h>

#include <mutex>
#include <utility>

namespace Storage {

namespace {

// The rows from the statement's current one on. SQLite finds none of a key that is stored as a blob.
std::vector<RowCache::Row> rowsFrom(SQLite::Statement& all)
{
    std::vector<RowCache::Row> rows;
    rows.reserve(64); // an editor's preferences
    for (; all.hasRow(); all.executeStep())
        if (SQLite::Column const key = all.getColumn(0); key.isText())
            rows.push_back(decodedRow(key.getString(), all.getColumn(1), all.getColumn(2), all.getColumn(3)));
    return rows;
}

} // namespace

RowCache::Answer RowCache::answerFrom(SharedMoment const& moment, std::string const& key)
{
    auto const found = moment->byKey.find(key);
    if (found == moment->byKey.end())
        return {};
    return {std::shared_ptr<Row const>(moment, found->second)};
}

std::optional<RowCache::Answer> RowCache::find(std::string const& key) const
{
    std::shared_lock<std::shared_mutex> const reading(m_momentMutex);
    if (!m_moment || m_file.mark() != m_moment->mark)
        return std::nullopt;
    return answerFrom(m_moment, key);
}

std::optional<RowCache::Answer> RowCache::findAfterChange(std::string const& key, SQLite::Database& database, Prepared& all)
{
    if (!m_isAllowed)
        return std::nullopt;
    // A single read after a change costs less without the other rows.
    std::optional<ChangeMark> const now = m_file.mark();
    if (!now || std::exchange(m_seen, now) != now)
        return std::nullopt;
    if (!m_moment || m_moment->mark != now) { // else another thread has loaded them meanwhile
        SQLite::Transaction const moment(database);
        load(all);
    }
    if (!m_moment)
        return std::nullopt;
    return answerFrom(m_moment, key);
}

void RowCache::load(Prepared& all)
{
    if (!m_isAllowed)
        return;
    Use rows(all);
    rows->executeStep(); // SQLite holds its lock from here to the end of the transaction
    StoreHeader const header = m_file.header();
    m_isAllowed = keepsRows(header);
    if (!m_isAllowed)
        return replaceMoment(nullptr);
    auto const moment = std::make_shared<Moment>(Moment{header.mark, rowsFrom(*rows), {}});
    moment->byKey.reserve(moment->rows.size());
    for (Row const& row : moment->rows)
        moment->byKey.emplace(row.key, &row);
    replaceMoment(moment);
}

// In a write-ahead log commits leave the mark alone. A newer version may compare keys in another way than by their bytes.
bool RowCache::keepsRows(StoreHeader const& header) const
{
    return !header.usesWriteAheadLog && header.schema <= SqliteStorage::writtenSchema && m_file.size() <= largestFile;
}

void RowCache::replaceMoment(SharedMoment moment)
{
    std::lock_guard<std::shared_mutex> const writing(m_momentMutex);
    m_moment.swap(moment);
}

} // namespace Storage
