// SPDX-License-Identifier: MIT
#include "OwnChanges.h"

#include <iterator>
#include <thread>

namespace fs = std::filesystem;

namespace Storage {

std::shared_ptr<OwnChanges> OwnChanges::of(fs::path const& realName)
{
    static std::mutex turns;
    static std::map<std::string, std::weak_ptr<OwnChanges>> all;
    std::lock_guard<std::mutex> const turn(turns);
    for (auto entry = all.begin(); entry != all.end();)
        entry = entry->second.expired() ? all.erase(entry) : std::next(entry);
    if (std::shared_ptr<OwnChanges> known = all[realName.native()].lock())
        return known;
    auto const made = std::make_shared<OwnChanges>();
    all[realName.native()] = made;
    return made;
}

// The thread sanitizer does not know how std::timed_mutex waits, so the turn is asked for again and again.
OwnChanges::Turn OwnChanges::turnWithin(std::chrono::milliseconds time)
{
    auto const end = std::chrono::steady_clock::now() + time;
    Turn turn(m_turns, std::try_to_lock);
    while (!turn && std::chrono::steady_clock::now() < end) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
        static_cast<void>(turn.try_lock());
    }
    return turn;
}

void OwnChanges::removeWatcher()
{
    if (--m_watchers == 0)
        m_last.clear();
}

void OwnChanges::keepMade()
{
    for (auto& [key, row] : m_made)
        m_last[key] = {++m_count, std::move(row)};
    m_made.clear();
}

void OwnChanges::noteReplacement(std::vector<Row> const& rows)
{
    if (!isWatched())
        return;
    m_last.clear();
    m_replacement = ++m_count;
    for (Row const& row : rows)
        m_last[row.key] = {m_count, row};
}

bool OwnChanges::hasMade(std::string const& key, std::optional<Row> const& after, long long seen) const
{
    auto const last = m_last.find(key);
    if (last == m_last.end())
        return !after && m_replacement > seen;
    std::optional<Row> const& row = last->second.row;
    return last->second.number > seen && row == after;
}

} // namespace Storage
