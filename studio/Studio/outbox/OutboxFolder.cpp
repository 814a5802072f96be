// SPDX-License-Identifier: MIT
#include <Studio/outbox/OutboxFolder.h>

#include <Storage/AtomicFile.h>
#include <Storage/FileSystem.h>
#include <Storage/sqlite/SqliteErrors.h>

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace Studio {

using Code = Storage::StorageError::Code;

namespace {

constexpr char const* keepChanges = "keep changes for the studio";
constexpr char const* ownFolder = "move it away, or give a local folder of this user's own";

[[noreturn]] void refuse(fs::path const& path, Code code, char const* reason, char const* remedy)
{
    throw Storage::StorageError(code, path.u8string(), keepChanges, reason, remedy);
}

// A relative path counts for nothing here: it would name another folder in each program.
fs::path stateFolder()
{
    if (char const* const state = std::getenv("XDG_STATE_HOME"); state && *state == '/')
        return state;
    char const* const home = std::getenv("HOME");
    return home && *home == '/' ? fs::path(home) / ".local/state" : fs::path();
}

bool isOthersToChange(struct stat const& status) { return status.st_uid != ::geteuid() || (status.st_mode & (S_IWGRP | S_IWOTH)) != 0; }

// Whether anybody may put another folder in the place of this user's.
bool isOpenToAll(fs::path const& parent)
{
    struct stat status = {};
    return ::stat(parent.c_str(), &status) != 0 || ((status.st_mode & S_IWOTH) != 0 && (status.st_mode & S_ISVTX) == 0);
}

void makeFolder(fs::path const& folder)
{
    if (Storage::localityOf(folder) != Storage::Locality::local)
        refuse(folder, Code::network, "it lies on no local disk, so that locks may not hold there", "give a folder on a local disk");
    Storage::createFolders(folder);
    struct stat status = {};
    if (::lstat(folder.c_str(), &status) != 0)
        Storage::throwSystemError(folder, keepChanges, errno);
    if (!S_ISDIR(status.st_mode))
        refuse(folder, Code::foreign, "it is not a folder", ownFolder);
    if (isOthersToChange(status) || isOpenToAll(folder.parent_path()))
        refuse(folder, Code::foreign, "another user may change it", ownFolder);
    if (::access(folder.c_str(), W_OK | X_OK) != 0)
        Storage::throwSystemError(folder, keepChanges, errno);
}

} // namespace

std::vector<fs::path> outboxFolders(fs::path const& chosen)
{
    std::vector<fs::path> result;
    if (!chosen.empty())
        result.push_back(chosen);
    if (fs::path const state = stateFolder(); !state.empty())
        result.push_back(state / "editor-settings");
    result.push_back("/var/tmp/editor-settings-" + std::to_string(::geteuid()));
    return result;
}

OutboxFolder findOutboxFolder(std::vector<fs::path> const& folders)
{
    OutboxFolder result;
    for (fs::path const& folder : folders) {
        try {
            makeFolder(folder);
            result.path = folder;
            return result;
        } catch (Storage::StorageError const& error) {
            result.skipped.push_back(error);
        }
    }
    return result;
}

fs::path outboxFile(fs::path const& folder, std::string const& identity)
{
    std::uint64_t hash = 14695981039346656037u; // FNV-1a
    for (char const character : identity)
        hash = (hash ^ static_cast<unsigned char>(character)) * 1099511628211u;
    char name[32];
    std::snprintf(name, sizeof name, "studio-%016llx.sqlite", static_cast<unsigned long long>(hash));
    return folder / name;
}

void demandOwnFile(fs::path const& file, struct stat const& status, char const* attempt)
{
    if (!S_ISREG(status.st_mode))
        throw Storage::StorageError(Code::foreign, file.u8string(), attempt, "it is not a regular file", moveAway);
    if (status.st_uid != ::geteuid() || (status.st_mode & (S_IRWXG | S_IRWXO)) != 0)
        throw Storage::StorageError(Code::foreign, file.u8string(), attempt, "another user may read or change it", moveAway);
}

} // namespace Studio
