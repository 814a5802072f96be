// SPDX-License-Identifier: MIT
#include <Inspection/checks/StoreFileChecks.h>

#include <Inspection/PathStatus.h>
#include <Inspection/ValueFormat.h>

#include <Storage/Backup.h>

#include <absl/strings/str_cat.h>

#include <QString>

#include <algorithm>
#include <array>
#include <system_error>
#include <utility>

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;
using Storage::StorageError;

namespace Inspection {

namespace {

// SQLite keeps the journal of a linked store beside the link's target.
std::string besideStore(ExaminedStore const& store, char const* suffix)
{
    std::error_code error;
    bool const isLink = fs::is_symlink(fs::symlink_status(store.file, error));
    return (isLink ? fs::canonical(store.file, error) : store.file).u8string() + suffix;
}

std::string journalOf(ExaminedStore const& store) { return besideStore(store, "-journal"); }

// Every store keeps an empty journal beside it, so an absent one counts as empty.
std::uintmax_t sizeOfJournal(ExaminedStore const& store)
{
    std::error_code error;
    std::uintmax_t const size = fs::file_size(journalOf(store), error);
    return error ? 0 : size;
}

Finding aboutFile(ExaminedStore const& store, Severity severity, Check check, std::string const& what, std::string const& remedy)
{
    return {severity, check, what, remedy, store.store, {}, store.file.u8string()};
}

// --- Access ---

Finding aboutError(ExaminedStore const& store, Severity severity, Check check)
{
    StorageError const& error = *store.error;
    return {severity, check, absl::StrCat("cannot ", error.attempt(), ": ", error.reason()), error.remedy(), store.store, {}, error.file()};
}

// A store is made in its folder, and a change needs a journal there.
void checkFolderOfStore(ExaminedStore const& store, Findings& findings)
{
    std::string const folder = store.file.parent_path().u8string();
    PathStatus const status = writtenFolderStatus(QString::fromStdString(folder));
    if (status.isUsable)
        return;
    char const* const effect = store.state == StoreState::missing ? ", so no store can be made" : ", so no change can be stored";
    findings.push_back({Severity::error,
                        Check::storeFolder,
                        absl::StrCat("the folder of the store cannot be used: ", remark(status), effect),
                        remedy(status) + ", or name another folder with --home",
                        store.store,
                        {},
                        folder});
}

// What lies under the name of a companion of a missing store. Empty for a missing or empty file.
std::string leftOver(std::string const& companion, std::string const& name)
{
    std::error_code error;
    fs::file_status const status = fs::symlink_status(companion, error);
    if (!fs::exists(status))
        return "";
    if (!fs::is_regular_file(status))
        return "what lies there is no file";
    std::uintmax_t const size = fs::file_size(companion, error);
    return error || size == 0 ? "" : absl::StrCat("a ", name, " of ", size, " bytes lies there");
}

// Beside what a lost store has left no new one is made: SQLite would play it into that one.
void checkMissing(ExaminedStore const& store, Findings& findings)
{
    std::size_t const before = findings.size();
    for (auto const& [suffix, name] : {std::pair("-journal", "journal"), std::pair("-wal", "write-ahead log")}) {
        std::string const companion = besideStore(store, suffix);
        if (std::string const what = leftOver(companion, name); !what.empty())
            findings.push_back({Severity::error,
                                Check::journalLeft,
                                what + ": its store is gone, and no new one is made beside it",
                                absl::StrCat("bring the store back beside its ", name, ", or move the ", name, " away"),
                                store.store,
                                {},
                                companion});
    }
    if (findings.size() == before)
        findings.push_back(aboutFile(store, Severity::note, Check::storeMissing, "nothing is stored there yet",
                                     "nothing to do: the store is made when something is stored"));
}

void checkAccess(ExaminedStore const& store, Findings& findings)
{
    if (store.state == StoreState::missing)
        checkMissing(store, findings);
    if (store.state == StoreState::unusable)
        findings.push_back(aboutError(store, Severity::error, Check::storeUnusable));
    else if (!store.error)
        checkFolderOfStore(store, findings);
    else if (store.error->code() == StorageError::Code::newer)
        findings.push_back(aboutError(store, Severity::warning, Check::storeNewer));
    else
        findings.push_back(aboutError(store, Severity::error, Check::storeReadOnly));
}

// --- Modes and owners ---

std::string userName(uid_t user)
{
    passwd const* const entry = ::getpwuid(user);
    return entry ? entry->pw_name : std::to_string(user);
}

std::string inOctal(mode_t mode) { return QString::number(mode, 8).rightJustified(4, QLatin1Char('0')).toStdString(); }

void checkMode(std::string const& file, ExaminedStore const& store, Findings& findings)
{
    struct stat status = {};
    if (::stat(file.c_str(), &status) != 0 || !S_ISREG(status.st_mode))
        return;
    if ((status.st_mode & 077) != 0)
        findings.push_back({Severity::warning,
                            Check::fileMode,
                            "other users may read or change it: its mode is " + inOctal(status.st_mode & 07777),
                            "chmod 600 " + shellWord(file),
                            store.store,
                            {},
                            file});
    if (status.st_uid != ::geteuid())
        findings.push_back({Severity::warning,
                            Check::fileOwner,
                            "it belongs to another user, " + userName(status.st_uid),
                            "run this program and the editor as that user, or give the file to " + userName(::geteuid()),
                            store.store,
                            {},
                            file});
}

// --- The journal ---

void checkJournal(ExaminedStore const& store, Findings& findings)
{
    std::uintmax_t const size = store.state == StoreState::missing ? 0 : sizeOfJournal(store);
    if (size > 0)
        findings.push_back({Severity::warning,
                            Check::journalLeft,
                            absl::StrCat("a journal of ", size, " bytes lies there: a change is being made right now, or was interrupted"),
                            "look again in a moment; where it stays, leave it beside the store and start the editor, which undoes the "
                            "change",
                            store.store,
                            {},
                            journalOf(store)});
}

// --- The file system ---

template <std::size_t size>
bool isOneOf(std::array<char const*, size> const& types, std::string const& type)
{
    return std::find(types.begin(), types.end(), type) != types.end();
}

// A change takes its pages once more in the journal.
constexpr std::int64_t leastFree = std::int64_t{64} * 1024;

constexpr std::array<char const*, 4> typesWithoutHardLinks = {"vfat", "msdos", "exfat", "fuse.exfat"};
constexpr std::array<char const*, 2> typesInMemory = {"tmpfs", "ramfs"};

void checkFileSystem(ExaminedStore const& store, Findings& findings)
{
    FileSystem const& fileSystem = store.fileSystem;
    std::string const where = "it lies on " + (fileSystem.type.empty() ? "a file system without a name" : fileSystem.type);
    std::string const elsewhere =
        "keep the stores on a local disk: move the data folder there (XDG_DATA_HOME), or name a folder with --home";
    auto const add = [&](Severity severity, std::string const& what, std::string const& remedy) {
        findings.push_back(aboutFile(store, severity, Check::fileSystem, where + what, remedy));
    };
    if (!fileSystem.isReadOnly && fileSystem.bytesFree >= 0 && fileSystem.bytesFree < leastFree)
        add(Severity::error, absl::StrCat(", which has ", fileSystem.bytesFree, " bytes left, too few for a change"),
            "free some space there");
    if (fileSystem.isReadOnly)
        add(Severity::error, ", which may only be read, so nothing can be stored",
            "mount it for writing, or name another folder with --home");
    else if (fileSystem.locality == Storage::Locality::network)
        add(Severity::warning, ", where locks do not hold between machines, so that two editors can damage it", elsewhere);
    else if (isOneOf(typesWithoutHardLinks, fileSystem.type))
        add(store.state == StoreState::missing ? Severity::error : Severity::warning,
            ", which has no hard links, so that no store can be made there", elsewhere);
    else if (isOneOf(typesInMemory, fileSystem.type))
        add(Severity::warning, ", which is kept in memory, so that all is lost with a restart", elsewhere);
    else if (fileSystem.locality == Storage::Locality::unknown)
        add(Severity::note, ", of which it cannot be told whether locks hold there",
            "nothing to do where the disk is local; else " + elsewhere);
}

// --- What restore has kept ---

void checkKept(ExaminedStore const& store, Findings& findings)
{
    std::size_t count = 0;
    std::uintmax_t bytes = 0;
    std::error_code error;
    for (fs::directory_iterator entry(store.file.parent_path(), error), end; !error && entry != end; entry.increment(error))
        if (Storage::Backup::timeOfKeeping(entry->path(), store.file)) {
            std::error_code noFile;
            std::uintmax_t const size = entry->file_size(noFile);
            bytes += noFile ? 0 : size;
            ++count;
        }
    if (count > 0)
        findings.push_back(
            aboutFile(store, Severity::note, Check::keptStores,
                      absl::StrCat(count, count == 1 ? " copy" : " copies", " that restore kept, of ", bytes, " bytes together, beside it"),
                      absl::StrCat("'editor-settings restore FILE' brings one back; to remove all: rm ", shellWord(store.file.u8string()),
                                   ".before-restore-*")));
}

} // namespace

Findings checkStoreFile(ExaminedStore const& store)
{
    Findings findings;
    checkAccess(store, findings);
    checkMode(store.file.u8string(), store, findings);
    checkMode(journalOf(store), store, findings);
    checkJournal(store, findings);
    checkFileSystem(store, findings);
    checkKept(store, findings);
    return findings;
}

} // namespace Inspection
