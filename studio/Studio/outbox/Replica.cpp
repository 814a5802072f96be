// SPDX-License-Identifier: MIT
#include <Studio/outbox/Replica.h>

#include <Studio/outbox/OutboxFile.h>

#include <SQLiteCpp/Column.h>
#include <SQLiteCpp/Statement.h>

namespace Studio {

namespace {

// Without the rows.
News readAbout(SQLite::Database& database)
{
    SQLite::Statement about(database, "SELECT epoch, user_revision, studio_revision, known FROM about");
    about.executeStep();
    News result;
    result.epoch = about.getColumn(0).getString();
    for (int layer = 0; layer < 2; ++layer)
        result.layers[static_cast<std::size_t>(layer)].revision = about.getColumn(1 + layer).getInt64();
    result.asOf = about.getColumn(3).getInt64();
    return result;
}

void forget(SQLite::Database& database, std::int64_t layer)
{
    SQLite::Statement all(database, "DELETE FROM setting WHERE layer = ?1");
    bindAll(all, layer);
    all.exec();
}

void keepRow(SQLite::Statement& remove, SQLite::Statement& add, std::int64_t layer, SharedRow const& row)
{
    bindAll(remove, layer, row.store, row.key);
    remove.exec();
    remove.reset();
    if (!row.value)
        return;
    bindAll(add, layer, row.store, row.key, row.value->kind, row.value->bytes, std::int64_t{row.locked}, row.changedBy, row.changedAt);
    add.exec();
    add.reset();
}

void keepRows(SQLite::Database& database, std::int64_t layer, std::vector<SharedRow> const& rows)
{
    SQLite::Statement remove(database, "DELETE FROM setting WHERE layer = ?1 AND store = ?2 AND key = ?3");
    SQLite::Statement add(database, "INSERT INTO setting VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8)");
    for (SharedRow const& row : rows)
        keepRow(remove, add, layer, row);
}

} // namespace

News readReplica(SQLite::Database& database)
{
    News result = readAbout(database);
    SQLite::Statement all(database,
                          "SELECT layer, store, key, kind, value, locked, changed_by, changed_at FROM setting WHERE layer IN (0, 1)");
    while (all.executeStep())
        result.layers[static_cast<std::size_t>(all.getColumn(0).getInt())].rows.push_back(
            {all.getColumn(1).getString(), all.getColumn(2).getString(),
             StoredValue{all.getColumn(3).getString(), all.getColumn(4).getString()}, all.getColumn(5).getInt() != 0,
             all.getColumn(6).getString(), all.getColumn(7).getInt64()});
    return result;
}

void keepNews(SQLite::Database& database, News const& news)
{
    News known = readAbout(database);
    if (known.epoch != news.epoch && (news.layers[0].since != 0 || news.layers[1].since != 0))
        return;
    for (std::size_t layer = 0; layer < 2; ++layer) {
        LayerNews const& came = news.layers[layer];
        std::int64_t& revision = known.layers[layer].revision;
        if (came.since != 0 && (came.revision <= revision || came.since > revision))
            continue;
        if (came.since == 0)
            forget(database, static_cast<std::int64_t>(layer));
        keepRows(database, static_cast<std::int64_t>(layer), came.rows);
        revision = came.revision;
    }
    SQLite::Statement about(database, "UPDATE about SET epoch = ?1, user_revision = ?2, studio_revision = ?3, known = ?4");
    bindAll(about, news.epoch, known.layers[0].revision, known.layers[1].revision, news.asOf);
    about.exec();
}

bool markOffered(SQLite::Database& database, std::string const& store, std::string const& key)
{
    SQLite::Statement mark(database, "INSERT OR IGNORE INTO setting VALUES (2, ?1, ?2, '', '', 0, '', 0)");
    bindAll(mark, store, key);
    return mark.exec() > 0;
}

void keepStored(SQLite::Database& database, std::int64_t sequence, std::string const& epoch, std::int64_t revision)
{
    News const known = readAbout(database);
    if (known.epoch != epoch || revision <= known.layers[0].revision)
        return;
    SQLite::Statement remove(
        database, "DELETE FROM setting WHERE layer = 0 AND (store, key) = (SELECT store, key FROM operation WHERE sequence = ?1)");
    bindAll(remove, sequence);
    remove.exec();
    SQLite::Statement add(database,
                          "INSERT INTO setting SELECT 0, store, key, kind, value, 0, '', 0 FROM operation WHERE sequence = ?1 AND "
                          "kind IS NOT NULL AND value IS NOT NULL");
    bindAll(add, sequence);
    add.exec();
}

} // namespace Studio
