// SPDX-License-Identifier: MIT
#include "RowCache.h"

#include "StoreContent.h"

#include <SQLiteCpp/Column.h>

#include <algorithm>
#include <mutex>
#include <utility>

namespace Storage {

namespace {

// The rows from the statement's next on. SQLite finds none of a key that is stored as a blob.
std::vector<RowCache::Row> remainingRows(SQLite::Statement& all)
{
    std::vector<RowCache::Row> rows;
    while (all.executeStep())
        if (SQLite::Column const key = all.getColumn(0); key.isText())
            rows.push_back(decodedRow(key.getString(), all.getColumn(1), all.getColumn(2), all.getColumn(3)));
    std::sort(rows.begin(), rows.end(), [](RowCache::Row const& one, RowCache::Row const& other) { return one.key < other.key; });
    return rows;
}

} // namespace

RowCache::Answer RowCache::answerFrom(SharedMoment const& moment, std::string const& key)
{
    auto const isBefore = [](Row const& row, std::string const& wanted) { return row.key < wanted; };
    auto const found = std::lower_bound(moment->rows.begin(), moment->rows.end(), key, isBefore);
    if (found == moment->rows.end() || found->key != key)
        return {};
    return {std::shared_ptr<Row const>(moment, &*found)};
}

std::optional<RowCache::Answer> RowCache::find(std::string const& key) const
{
    SharedMoment const known = moment();
    if (!known || m_file.mark() != known->mark)
        return std::nullopt;
    return answerFrom(known, key);
}

std::optional<RowCache::Answer> RowCache::findAfterChange(std::string const& key, Prepared& all)
{
    if (!m_isAllowed)
        return std::nullopt;
    // A single read after a change costs less without the other rows.
    std::optional<ChangeMark> const now = m_file.mark();
    if (!now || std::exchange(m_seen, now) != now)
        return std::nullopt;
    if (!m_moment || m_moment->mark != now) // else another thread has loaded them meanwhile
        load(all);
    if (!m_moment)
        return std::nullopt;
    return answerFrom(m_moment, key);
}

void RowCache::load(Prepared& all)
{
    if (!m_isAllowed)
        return;
    Use rows(all);
    rows->executeStep(); // to the row before the first: SQLite holds its lock from here to the statement's end
    StoreHeader const header = m_file.header();
    m_isAllowed = keepsRows(header);
    replaceMoment(m_isAllowed ? std::make_shared<Moment const>(Moment{header.mark, remainingRows(*rows)}) : nullptr);
}

// In a write-ahead log commits leave the mark alone, and SQLite converts the key that it looks for in other encodings.
bool RowCache::keepsRows(StoreHeader const& header) const
{
    return !header.usesWriteAheadLog && header.isUtf8 && m_file.size() <= largestFile;
}

RowCache::SharedMoment RowCache::moment() const
{
    std::shared_lock<std::shared_mutex> const reading(m_momentMutex);
    return m_moment;
}

void RowCache::replaceMoment(SharedMoment moment)
{
    std::lock_guard<std::shared_mutex> const writing(m_momentMutex);
    m_moment.swap(moment);
}

} // namespace Storage
