// SPDX-License-Identifier: MIT
#include <Storage/StoreWatcher.h>

#include "watch/OwnChanges.h"
#include "watch/RealName.h"

#include <algorithm>
#include <chrono>
#include <map>
#include <string_view>
#include <system_error>
#include <utility>

#include <sys/stat.h>

namespace fs = std::filesystem;

namespace Storage {

namespace {

using Clock = std::chrono::steady_clock;
using Rows = std::vector<SqliteStorage::Row>;

// A look that waits for longer would keep its thread from ending.
constexpr std::chrono::milliseconds longestWait{50};

using Row = SqliteStorage::Row;

bool isSame(Row const* before, Row const* after)
{
    if (!before || !after)
        return false;
    bool const isReadable = !std::holds_alternative<std::monostate>(after->value);
    return before->kind == after->kind && before->value == after->value && (isReadable || before->changed == after->changed);
}

Row const* pointer(std::optional<Row> const& row) { return row ? &*row : nullptr; }

std::optional<Row> copied(Row const* row) { return row ? std::optional(*row) : std::nullopt; }

fs::path madeAbsolute(fs::path const& file)
{
    std::error_code error;
    fs::path const result = fs::absolute(file, error);
    return error ? file : result;
}

StorageError busyError(fs::path const& file)
{
    return {StorageError::Code::busy, file.u8string(), "ask for changes", "this program is writing", "try again"};
}

} // namespace

std::optional<RowDifference> rowDifference(std::optional<SqliteStorage::Row> before, std::optional<SqliteStorage::Row> after)
{
    if ((!before && !after) || isSame(pointer(before), pointer(after)))
        return std::nullopt;
    std::string const key = (before ? before : after)->key;
    return RowDifference{key, std::move(before), std::move(after)};
}

std::vector<RowDifference> rowDifferences(Rows const& before, Rows const& after)
{
    std::map<std::string_view, std::pair<Row const*, Row const*>> byKey; // rows are copied only where they differ
    for (SqliteStorage::Row const& row : before)
        byKey.try_emplace(byKey.end(), row.key)->second.first = &row;
    for (SqliteStorage::Row const& row : after)
        byKey[row.key].second = &row;
    std::vector<RowDifference> changes;
    for (auto const& [key, rows] : byKey)
        if (!isSame(rows.first, rows.second))
            changes.push_back({std::string(key), copied(rows.first), copied(rows.second)});
    return changes;
}

class StoreWatcher::Watch {
public:
    Watch(fs::path const& file, SqliteStorage::Options const& options)
        : m_file(madeAbsolute(file)), m_options(options), m_patience(options.busyTimeout)
    {
        m_options.busyTimeout = std::min(m_options.busyTimeout, longestWait);
        m_options.createIfMissing = false;
        follow();
    }
    ~Watch() { unfollow(); }
    Watch(Watch const&) = delete;
    Watch& operator=(Watch const&) = delete;

    Look look()
    {
        try {
            return succeeded(changes());
        } catch (StorageError const& error) {
            if (error.code() == StorageError::Code::missing)
                return succeeded(gone());
            return {{}, toBeTold(error), false};
        }
    }

private:
    using Identity = std::pair<dev_t, ino_t>; // another one for the file that replaced another

    Look succeeded(std::vector<Difference> differences)
    {
        m_error.clear();
        m_busySince.reset();
        return {std::move(differences), std::nullopt, true};
    }

    std::vector<Difference> changes()
    {
        struct stat status = {};
        bool const exists = ::stat(m_file.c_str(), &status) == 0;
        if (!m_opened || !exists || m_identity != Identity(status.st_dev, status.st_ino))
            open({status.st_dev, status.st_ino});
        OwnChanges::Turn const turn = m_own->turnWithin(longestWait);
        if (!turn)
            throw busyError(m_file);
        long long const version = m_opened->changesOfOthers();
        return version == m_version ? std::vector<Difference>() : read(version);
    }

    std::vector<Difference> gone()
    {
        m_opened.reset();
        return differencesTo({});
    }

    // The identity is that of the name before it is opened: should the file be replaced in between, the next look sees it.
    void open(Identity const& identity)
    {
        m_opened.reset();
        m_version.reset();
        follow();
        m_opened = std::make_unique<SqliteStorage>(m_file, m_options);
        m_identity = identity;
    }

    // A change after the version was asked for is read now or by the next look.
    std::vector<Difference> read(long long version)
    {
        std::vector<Difference> differences = differencesTo(m_opened->rows());
        m_version = version;
        m_seen = m_own->count();
        return differences;
    }

    std::vector<Difference> differencesTo(Rows rows)
    {
        std::vector<Difference> result;
        for (RowDifference& difference : rowDifferences(m_rows, rows)) {
            bool const isOwn = m_own->hasMade(difference.key, difference.after, m_seen);
            result.push_back({std::move(difference), isOwn});
        }
        m_rows = std::move(rows);
        return result;
    }

    std::optional<StorageError> toBeTold(StorageError const& error)
    {
        if (error.code() == StorageError::Code::busy) {
            m_busySince = m_busySince.value_or(Clock::now());
            if (Clock::now() - *m_busySince < m_patience)
                return std::nullopt;
        }
        m_opened.reset();
        bool const isKnown = std::exchange(m_error, error.what()) == error.what();
        return isKnown ? std::nullopt : std::optional(error);
    }

    // Notes which changes this process makes from now on. Links may lead elsewhere than before.
    void follow()
    {
        std::shared_ptr<OwnChanges> const own = OwnChanges::of(realName(m_file));
        if (own == m_own)
            return;
        unfollow();
        m_own = own;
        OwnChanges::Turn const turn = m_own->turn();
        m_own->addWatcher();
        m_seen = m_own->count();
    }

    void unfollow()
    {
        if (!m_own)
            return;
        OwnChanges::Turn const turn = m_own->turn();
        m_own->removeWatcher();
    }

    fs::path const m_file;
    SqliteStorage::Options m_options;
    std::chrono::milliseconds const m_patience;
    std::shared_ptr<OwnChanges> m_own;
    long long m_seen = 0; // changes of this process before the last look that succeeded
    std::unique_ptr<SqliteStorage> m_opened;
    Identity m_identity;
    std::optional<long long> m_version;
    Rows m_rows;
    std::string m_error;
    std::optional<Clock::time_point> m_busySince;
};

StoreWatcher::StoreWatcher(fs::path const& file, SqliteStorage::Options const& options) : m_watch(std::make_unique<Watch>(file, options)) {}
StoreWatcher::~StoreWatcher() = default;
StoreWatcher::StoreWatcher(StoreWatcher&& other) noexcept = default;
StoreWatcher& StoreWatcher::operator=(StoreWatcher&& other) noexcept = default;

StoreWatcher::Look StoreWatcher::look() { return m_watch->look(); }

} // namespace Storage
