// SPDX-License-Identifier: MIT
//
// The rows of an open store in memory. Internal.
#pragma once

#include "Prepared.h"
#include "StoreFile.h"

#include <Storage/SqliteStorage.h>

#include <memory>
#include <optional>
#include <shared_mutex>
#include <string>
#include <vector>

namespace Storage {

/// The rows of a store as of one commit, which answer reads while the file carries that commit's mark. Mark and rows are
/// read under one lock of SQLite's, each commit changes the mark before anybody can see it, and marks do not repeat: so an
/// answer is that of the last commit before the mark was looked at. See docs/decisions/0017-reads-from-memory.md.
class RowCache {
public:
    using Row = SqliteStorage::Row;
    /// Of one key.
    struct Answer {
        std::shared_ptr<Row const> row; ///< nullptr where the key is absent.
    };

    /// Files beyond this many bytes are read row by row.
    static constexpr std::int64_t largestFile = std::int64_t{256} * 1024;

    /// `isAllowed` says whether what another process writes shows at once in the file system.
    RowCache(StoreFile const& file, bool isAllowed) : m_file(file), m_isAllowed(isAllowed) {}

    /// The row of `key` as of now, in one system call; nullopt where it has to be asked of SQLite. Any thread may call at
    /// any time.
    std::optional<Answer> find(std::string const& key) const;

    /// As `find`, from the second call after a change on: it loads the rows then. One caller at a time, no transaction of
    /// whose connection is a write; `all` is `allRows`.
    std::optional<Answer> findAfterChange(std::string const& key, Prepared& all);

    /// Reads all rows, of a file that is not too large. One caller at a time, as above.
    void load(Prepared& all);

private:
    struct Moment {
        ChangeMark mark = {};
        std::vector<Row> rows; // sorted by the bytes of their keys
    };
    using SharedMoment = std::shared_ptr<Moment const>;

    bool keepsRows(StoreHeader const& header) const;
    static Answer answerFrom(SharedMoment const& moment, std::string const& key);
    SharedMoment moment() const;
    void replaceMoment(SharedMoment moment);

    StoreFile const& m_file;
    bool m_isAllowed;
    std::optional<ChangeMark> m_seen; // at the last read that the rows in memory could not answer
    mutable std::shared_mutex m_momentMutex;
    SharedMoment m_moment; // nullptr where no rows are kept
};

} // namespace Storage
