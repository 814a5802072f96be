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

/// Complete copies of stores in one file, with all rows and tables of later versions.
///
/// Threads: one at a time. Forks: as for `SqliteStorage`. Errors: every function throws `StorageError` (and `std::bad_alloc`).
class Backup {
public:
    /// Writes a copy of each of `stores`, by name, to the new file `file`, with mode 0600; each as of one moment, also
    /// while others write to it. The file gets its name when it is complete and on disk. An existing file is an error.
    static void write(std::filesystem::path const& file, std::map<std::string, SqliteStorage const*> const& stores);

    /// Reads `file`, and checks it and each copy in it completely.
    explicit Backup(std::filesystem::path const& file);
    /// Reads the file `kept`, a store that `restore` kept at the time `made`, as a backup of it alone under `name`, and checks
    /// it completely. Never creates it. Of `options` the timeout and the permission for network file systems count.
    Backup(std::filesystem::path const& kept, std::string const& name, std::chrono::system_clock::time_point made,
           SqliteStorage::Options const& options = {});
    ~Backup();

    /// The time in the name of `file`, to the second, where `restore` gives that name to what it keeps of the store in `store`;
    /// nullopt for any other name or folder. The file itself may be anything, as an unusable original is kept as it was.
    static std::optional<std::chrono::system_clock::time_point> timeOfKeeping(std::filesystem::path const& file,
                                                                              std::filesystem::path const& store);

    /// The time at which it was made, to the second.
    std::chrono::system_clock::time_point made() const;
    /// The names of the stores that it holds, sorted.
    std::vector<std::string> names() const;
    /// The rows of the copy called `name`, which must be one of `names`, sorted by the bytes of their keys.
    std::vector<SqliteStorage::Row> rows(std::string const& name) const;

    /// Makes the store in `file` equal to the copy called `name`, and creates a missing one. The original stays beside it;
    /// returns its new name, or nullopt where `file` was missing.
    ///
    /// A usable store is changed in one transaction, so that programs that have it open read the restored values from
    /// then on, and a crash leaves it either unchanged or restored; nobody else changes it between the copy of the original
    /// and the change. Anything else, such as a damaged store or a dangling link, is replaced atomically by a new file,
    /// while no program that has it open can change it. Either waits five seconds for others, and is `busy` then.
    std::optional<std::filesystem::path> restore(std::string const& name, std::filesystem::path const& file,
                                                 SqliteStorage::Options const& options = {}) const;

private:
    class Copy;
    static std::unique_ptr<Copy> checkedCopy(std::filesystem::path const& backup, std::string const& name, std::string content);

    std::filesystem::path m_file;
    std::chrono::system_clock::time_point m_made;
    std::map<std::string, std::unique_ptr<Copy>> m_copies;
};

} // namespace Storage
