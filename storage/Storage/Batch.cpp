// SPDX-License-Identifier: MIT
#include <Storage/Batch.h>

#include "sqlite/StoreContent.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <utility>
#include <variant>

namespace Storage {

namespace {

using Row = SqliteStorage::Row;
using Value = SqliteStorage::Value;

// A pointer has no destructor, so stores may be used until the very end of a thread.
thread_local Batch* innermost = nullptr;

std::chrono::system_clock::time_point now() { return std::chrono::floor<std::chrono::milliseconds>(std::chrono::system_clock::now()); }

} // namespace

Batch::Batch(SqliteStorage& store) : m_store(store), m_outer(innermost)
{
    if (openOn(store))
        throw std::logic_error("Storage::Batch: this thread has a batch on this store already; commit or destroy it first");
    innermost = this;
}

Batch::~Batch()
{
    Batch** link = &innermost;
    while (*link && *link != this)
        link = &(*link)->m_outer;
    if (!*link) {
        std::fputs("Storage::Batch: destroyed on another thread; keep it on the thread that made it\n", stderr);
        std::abort();
    }
    *link = m_outer;
}

void Batch::commit()
{
    if (openOn(m_store) != this)
        throw std::logic_error("Storage::Batch: committed on another thread; keep it on the thread that made it");
    if (m_rows.empty())
        return;
    m_store.apply(changes());
    m_rows.clear();
}

std::vector<SqliteStorage::Change> Batch::changes() const
{
    std::vector<SqliteStorage::Change> result;
    for (auto const& [key, row] : m_rows)
        result.push_back({key, row ? row->value : Value()});
    return result;
}

Batch* Batch::openOn(SqliteStorage const& store)
{
    Batch* batch = innermost;
    while (batch && &batch->m_store != &store)
        batch = batch->m_outer;
    return batch;
}

void Batch::put(std::string const& key, Value value)
{
    SharedRow row;
    if (char const* const kind = kindWord(value); !std::holds_alternative<std::monostate>(value))
        row = std::make_shared<Row const>(Row{key, kind, std::move(value), now()});
    m_rows.insert_or_assign(key, std::move(row));
}

Batch::SharedRow const* Batch::find(std::string const& key) const
{
    auto const found = m_rows.find(key);
    return found == m_rows.end() ? nullptr : &found->second;
}

std::vector<Row> Batch::laidOver(std::vector<Row> stored) const
{
    stored.erase(std::remove_if(stored.begin(), stored.end(), [&](Row const& row) { return m_rows.count(row.key) > 0; }), stored.end());
    for (auto const& [key, row] : m_rows)
        if (row)
            stored.push_back(*row);
    std::sort(stored.begin(), stored.end(), [](Row const& one, Row const& other) { return one.key < other.key; });
    return stored;
}

} // namespace Storage
