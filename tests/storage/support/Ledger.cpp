// SPDX-License-Identifier: MIT
#include <storage/support/Ledger.h>
#include <storage/support/SharedMemory.h>

#include <algorithm>
#include <map>
#include <new>
#include <numeric>

#include <sys/mman.h>

using Storage::SqliteStorage;

Ledger::Ledger() : m_entries(new (sharedMemory(keys * sizeof(Entry))) Entry[keys]{}) {}

Ledger::Ledger(Ledger const& other) : Ledger() { *this = other; }

Ledger& Ledger::operator=(Ledger const& other)
{
    for (int key = 0; key < keys; ++key) {
        m_entries[key].begun = other.m_entries[key].begun.load();
        m_entries[key].returned = other.m_entries[key].returned.load();
    }
    m_untouched = other.m_untouched;
    return *this;
}

Ledger::~Ledger() { ::munmap(m_entries, keys * sizeof(Entry)); }

void Ledger::fill(SqliteStorage& store)
{
    store.setBool("untouched flag", true);
    store.setInt("untouched number", -2147483647 - 1);
    store.setString("untouched text", std::string(5000, 'u'));
    store.setBytes("untouched bytes", {0, 255, 0});
    m_untouched = store.rows();
    for (int key = 0; key < keys; ++key)
        change(store, key);
}

void Ledger::change(SqliteStorage& store, int key)
{
    int const number = ++m_entries[key].begun;
    if (std::optional<std::string> const value = text(key, number))
        store.setString(name(key), *value);
    else
        store.remove(name(key));
    m_entries[key].returned = number;
}

std::string Ledger::wrong(SqliteStorage const& store)
{
    std::map<std::string, SqliteStorage::Row> stored;
    for (SqliteStorage::Row const& row : store.rows())
        stored.emplace(row.key, row);
    for (SqliteStorage::Row const& row : m_untouched) {
        auto const found = stored.find(row.key);
        if (found == stored.end() || !(found->second == row))
            return row.key + " was changed";
        stored.erase(found);
    }
    for (int key = 0; key < keys; ++key) {
        std::optional<SqliteStorage::Row> row;
        if (auto const found = stored.find(name(key)); found != stored.end()) {
            row = found->second;
            stored.erase(found);
        }
        if (std::string const what = wrongRow(key, row); !what.empty())
            return what;
    }
    return stored.empty() ? "" : stored.begin()->first + " came from nowhere";
}

std::string Ledger::wrongAt(SqliteStorage const& store, int key) { return wrongRow(key, store.find(name(key))); }

std::string Ledger::wrongRow(int key, std::optional<SqliteStorage::Row> const& row)
{
    std::string const* const stored = row ? std::get_if<std::string>(&row->value) : nullptr;
    Entry& entry = m_entries[key];
    for (int number = entry.returned; number <= entry.begun; ++number) {
        std::optional<std::string> const expected = text(key, number);
        if (expected ? stored && *stored == *expected : !row) {
            entry.returned = number;
            entry.begun = number;
            return "";
        }
    }
    return name(key) + " is neither value " + std::to_string(entry.returned) + " nor " + std::to_string(entry.begun) + " but " +
           (stored ? stored->substr(0, 40)
            : row  ? row->kind
                   : "absent");
}

int Ledger::begun() const
{
    return std::accumulate(m_entries, m_entries + keys, 0, [](int sum, Entry const& entry) { return sum + entry.begun; });
}

int Ledger::returned() const
{
    return std::accumulate(m_entries, m_entries + keys, 0, [](int sum, Entry const& entry) { return sum + entry.returned; });
}

std::string Ledger::name(int key) { return "key " + std::to_string(key); }

std::optional<std::string> Ledger::text(int key, int number)
{
    if (number % 5 == 0)
        return std::nullopt;
    std::string const word = std::to_string(key) + '/' + std::to_string(number) + ' ';
    // Up to three pages, so that a change takes some of them and gives others back.
    std::size_t const size = static_cast<std::size_t>(number * 2741 % 12000);
    std::string result = word;
    for (std::size_t place = 0; result.size() < size; ++place)
        result += word + std::to_string(place) + ' ';
    return result;
}
