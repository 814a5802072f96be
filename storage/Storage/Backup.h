// SPDX-License-Identifier: MIT
#pragma once

#include <Storage/SqliteStorage.h>

#include <chrono>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace Storage {

/// Copies of stores, in one file: whole, with all that later versions keep in them.
///
/// Threads: one at a time. Errors: every function throws `StorageError` (and `std::bad_alloc`).
class Backup {
public:
    /// Writes a copy of each of `stores`, by name, to the new file `file`, with mode 0600; each as of one moment, also
    /// while others write to it. The file gets its name when it is whole and on disk. A file that is there is an error.
    static void write(std::filesystem::path const& file, std::map<std::string, SqliteStorage const*> const& stores);

    /// Reads `file` and checks it and each copy in it, whole.
    explicit Backup(std::filesystem::path const& file);
    ~Backup();

    /// When it was made, to the second.
    std::chrono::system_clock::time_point made() const;
    /// The names of the stores that it holds, sorted.
    std::vector<std::string> names() const;
    /// The rows of the copy called `name`, which must be one of `names`, sorted by the bytes of their keys.
    std::vector<SqliteStorage::Row> rows(std::string const& name) const;

    /// Makes the store in `file` what the copy called `name` is. What is there stays beside it, and its new name is the
    /// answer; none where nothing was there.
    ///
    /// A usable store is changed in one transaction, so that programs that have it open read the restored values from
    /// then on, and a crash leaves it as it was or as it will be; nobody else changes it between the keeping and the
    /// restoring. Anything else, such as a damaged store or a link that leads to none, is replaced by a new file, which
    /// takes its place when it is whole.
    std::optional<std::filesystem::path> restore(std::string const& name, std::filesystem::path const& file) const;

private:
    class Copy;
    static std::unique_ptr<Copy> checkedCopy(std::filesystem::path const& backup, std::string const& name, std::string content);

    std::filesystem::path m_file;
    std::chrono::system_clock::time_point m_made;
    std::map<std::string, std::unique_ptr<Copy>> m_copies;
};

} // namespace Storage
