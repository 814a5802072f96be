// SPDX-License-Identifier: MIT
#include "DoctorChecks.h"

#include "FolderCheck.h"
#include "Nearest.h"
#include "Paths.h"
#include "Setting.h"
#include "Text.h"
#include "Translation.h"
#include "Values.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QStorageInfo>

#include <algorithm>
#include <initializer_list>
#include <limits>
#include <map>
#include <set>
#include <system_error>

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;
using Catalogue::Store;
using StoredRow = Storage::SqliteStorage::Row;

// --- The file of a store ---------------------------------------------------------------------------------------------

namespace {

fs::path nearestExisting(fs::path path)
{
    std::error_code error;
    while (path.has_relative_path() && !fs::exists(path, error))
        path = path.parent_path();
    return path;
}

FileSystem fileSystemOf(fs::path const& file)
{
    fs::path const existing = nearestExisting(file);
    QStorageInfo const volume(QFile::decodeName(existing.c_str()));
    return {volume.fileSystemType().toStdString(), volume.rootPath().toStdString(), volume.isReadOnly(), Storage::localityOf(existing)};
}

} // namespace

ExaminedStore examined(Host::Application const& application, Store store)
{
    Storage::SqliteStorage const* const opened = storage(application, store);
    ExaminedStore result;
    result.store = store;
    result.file = storageFile(application, store);
    result.fileSystem = fileSystemOf(result.file);
    result.error = storageError(application, store);
    result.isMissing = !opened && !result.error;
    if (!opened)
        return result;
    try {
        result.report = opened->examine();
        result.readOnlyError = opened->readOnlyError();
        result.rows = opened->rows();
    } catch (Storage::StorageError const& error) {
        result.error = error;
    }
    return result;
}

namespace {

// The folder above a missing store is an error's file too.
Finding findingOf(Storage::StorageError const& error, ExaminedStore const& store, Severity severity, char const* check)
{
    std::string const file = store.file.u8string();
    std::string const subject = error.file() == file ? "" : error.file() + ": ";
    return {severity, check, subject + "cannot " + error.attempt() + ": " + error.reason(), error.remedy(), store.store, {}, file};
}

std::string journalOf(ExaminedStore const& store) { return store.file.u8string() + "-journal"; }

// 0 also where there is none: an empty one stays beside every store.
std::uintmax_t sizeOfJournal(ExaminedStore const& store)
{
    std::error_code error;
    std::uintmax_t const size = fs::file_size(journalOf(store), error);
    return error ? 0 : size;
}

Finding aboutFile(ExaminedStore const& store, Severity severity, char const* check, std::string const& what, std::string const& remedy)
{
    return {severity, check, what, remedy, store.store, {}, store.file.u8string()};
}

// Whether the store can be made, and changed: a change needs a journal beside the file.
void checkFolderOfStore(ExaminedStore const& store, Findings& findings)
{
    fs::path const folder = store.file.parent_path();
    FolderCheck const found = checkFolderToWrite(QString::fromStdString(folder.u8string()));
    if (!found.isUsable)
        findings.push_back({Severity::error,
                            "store-folder",
                            store.isMissing
                                ? Text::of("the folder of the store cannot be used: %1, so no store can be made", found.remark)
                                : Text::of("the folder of the store cannot be used: %1, so no change can be stored", found.remark),
                            Text::of("give this user the rights to the folder, or name another with --home"),
                            store.store,
                            {},
                            folder.u8string()});
}

} // namespace

Findings checkAccess(ExaminedStore const& store)
{
    Findings findings;
    if (store.error)
        return {findingOf(*store.error, store, Severity::error, "store-unusable")};
    if (store.isMissing && sizeOfJournal(store) == 0)
        findings.push_back(aboutFile(store, Severity::note, "store-missing", Text::of("nothing is stored there yet"),
                                     Text::of("nothing to do: the store is made when something is stored")));
    if (!store.readOnlyError)
        checkFolderOfStore(store, findings);
    else if (store.readOnlyError->code() == Storage::StorageError::Code::newer)
        findings.push_back(findingOf(*store.readOnlyError, store, Severity::warning, "store-newer"));
    else
        findings.push_back(findingOf(*store.readOnlyError, store, Severity::error, "store-read-only"));
    return findings;
}

namespace {

std::string userName(uid_t user)
{
    passwd const* const entry = ::getpwuid(user);
    return entry ? entry->pw_name : std::to_string(user);
}

std::string inOctal(mode_t mode)
{
    std::string digits;
    for (int shift = 9; shift >= 0; shift -= 3)
        digits += static_cast<char>('0' + ((mode >> shift) & 7));
    return digits;
}

void checkModeOf(std::string const& file, ExaminedStore const& store, Findings& findings)
{
    struct stat status = {};
    if (::stat(file.c_str(), &status) != 0 || !S_ISREG(status.st_mode))
        return;
    if ((status.st_mode & 077) != 0)
        findings.push_back({Severity::warning,
                            "file-mode",
                            Text::of("other users may read or change it: its mode is %1", inOctal(status.st_mode & 07777)),
                            "chmod 600 " + quoted(file),
                            store.store,
                            {},
                            file});
    if (status.st_uid != ::geteuid())
        findings.push_back({Severity::warning,
                            "file-owner",
                            Text::of("it belongs to another user, %1", userName(status.st_uid)),
                            Text::of("run this program and the editor as that user, or give the file to %1", userName(::geteuid())),
                            store.store,
                            {},
                            file});
}

} // namespace

Findings checkModes(ExaminedStore const& store)
{
    Findings findings;
    checkModeOf(store.file.u8string(), store, findings);
    checkModeOf(journalOf(store), store, findings);
    return findings;
}

Findings checkJournal(ExaminedStore const& store)
{
    std::uintmax_t const size = sizeOfJournal(store);
    if (size == 0)
        return {};
    std::string const bytes = std::to_string(size);
    if (store.isMissing)
        return {{Severity::error,
                 "journal-left",
                 Text::of("a journal of %1 bytes lies there: its store is gone, and no new one is made beside it", bytes),
                 Text::of("bring the store back beside its journal, or move the journal away"),
                 store.store,
                 {},
                 journalOf(store)}};
    return {{Severity::warning,
             "journal-left",
             Text::of("a journal of %1 bytes lies there: a change is being made right now, or was interrupted", bytes),
             Text::of("look again in a moment; where it stays, leave it beside the store and start the editor, which undoes the change"),
             store.store,
             {},
             journalOf(store)}};
}

namespace {

bool isOneOf(std::initializer_list<char const*> types, std::string const& type)
{
    return std::find(types.begin(), types.end(), type) != types.end();
}

} // namespace

Findings checkFileSystem(ExaminedStore const& store)
{
    FileSystem const& fileSystem = store.fileSystem;
    std::string const type = fileSystem.type.empty() ? Text::of("a file system without a name") : fileSystem.type;
    std::string const elsewhere =
        Text::of("keep the stores on a local disk: move the data folder there (XDG_DATA_HOME), or name a folder with --home");
    auto const found = [&](Severity severity, std::string const& what, std::string const& remedy) -> Findings {
        return {aboutFile(store, severity, "file-system", what, remedy)};
    };
    if (fileSystem.isReadOnly)
        return found(Severity::error, Text::of("it lies on %1, which may only be read, so nothing can be stored", type),
                     Text::of("mount it for writing, or name another folder with --home"));
    if (fileSystem.locality == Storage::Locality::network)
        return found(Severity::warning,
                     Text::of("it lies on %1, where locks do not hold between machines, so that two editors can damage it", type),
                     elsewhere);
    if (isOneOf({"vfat", "msdos", "exfat", "fuse.exfat"}, type))
        return found(store.isMissing ? Severity::error : Severity::warning,
                     Text::of("it lies on %1, which has no hard links, so that no store can be made there", type), elsewhere);
    if (isOneOf({"tmpfs", "ramfs"}, type))
        return found(Severity::warning, Text::of("it lies on %1, which is kept in memory, so that all is lost with a restart", type),
                     elsewhere);
    if (fileSystem.locality == Storage::Locality::unknown)
        return found(Severity::note, Text::of("it lies on %1, of which it cannot be told whether locks hold there", type),
                     Text::of("nothing to do where the disk is local; else %1", elsewhere));
    return {};
}

// --- What a store holds ----------------------------------------------------------------------------------------------

namespace {

bool isReserved(std::string const& key)
{
    std::vector<std::string> const& reserved = Catalogue::preferencesWithoutAccessors();
    return std::find(reserved.begin(), reserved.end(), key) != reserved.end();
}

Finding aboutKey(ExaminedStore const& store, Severity severity, char const* check, std::string const& key, std::string const& what,
                 std::string const& remedy)
{
    return {severity, check, what, remedy, store.store, key, {}};
}

bool isKnown(ExaminedStore const& store, std::string const& key)
{
    return Catalogue::findPreference(key) || (store.store == Store::product && (isReserved(key) || isInAFamily(key)));
}

// A rational is kept as two ints.
struct Halves {
    StoredRow const* numerator = nullptr;
    StoredRow const* denominator = nullptr;
};

// By the key that the rational is read by. A single value is taken for a half only where it is an int.
std::map<std::string, Halves> rationalsIn(ExaminedStore const& store)
{
    std::map<std::string, Halves> rationals;
    for (StoredRow const& row : store.rows) {
        std::string const ending = row.key.size() > 2 ? row.key.substr(row.key.size() - 2) : "";
        if ((ending != "_N" && ending != "_D") || isKnown(store, row.key))
            continue;
        Halves& halves = rationals[row.key.substr(0, row.key.size() - 2)];
        (ending == "_N" ? halves.numerator : halves.denominator) = &row;
    }
    for (auto entry = rationals.begin(); entry != rationals.end();) {
        auto const& [numerator, denominator] = entry->second;
        bool const isRational =
            (numerator && denominator) || (numerator ? numerator : denominator)->kind == Storage::storedWord(Storage::Kind::integer);
        entry = isRational ? std::next(entry) : rationals.erase(entry);
    }
    return rationals;
}

std::vector<std::string> knownNames()
{
    std::vector<std::string> names;
    for (Catalogue::Row const& row : Catalogue::preferences())
        names.push_back(row.name);
    return names;
}

} // namespace

Findings checkKeys(ExaminedStore const& store)
{
    Findings findings;
    std::map<std::string, Halves> const rationals = rationalsIn(store);
    for (StoredRow const& row : store.rows) {
        Catalogue::Row const* const known = Catalogue::findPreference(row.key);
        bool const isHalf = row.key.size() > 2 && !isKnown(store, row.key) && rationals.count(row.key.substr(0, row.key.size() - 2)) != 0;
        if (known && known->store != store.store)
            findings.push_back(aboutKey(store, Severity::warning, "misplaced-key", row.key,
                                        Text::of("it belongs in the %1 store and is not read here", name(known->store)),
                                        Text::of("'editor-settings explain %1' shows what is read; what lies here is kept", row.key)));
        else if (!isKnown(store, row.key) && !isHalf)
            findings.push_back(
                aboutKey(store, Severity::warning, "unknown-key", row.key, Text::of("the library knows no such key; it is kept"),
                         didYouMean(row.key, knownNames()) + Text::of("nothing to do where a later version or another program stored it")));
    }
    return findings;
}

Findings checkRationals(ExaminedStore const& store)
{
    Findings findings;
    std::string const remedy = Text::of("have the program that keeps it store it anew");
    auto const found = [&](Severity severity, char const* check, std::string const& key, std::string const& what) {
        findings.push_back(aboutKey(store, severity, check, key, what, remedy));
    };
    for (auto const& [key, halves] : rationalsIn(store)) {
        auto const& [numerator, denominator] = halves;
        auto const isInt = [](StoredRow const* row) { return std::holds_alternative<int>(row->value); };
        if (!numerator || !denominator)
            found(Severity::warning, "rational-half", key,
                  Text::of("the rational has no %1, so a read mixes it with a default", key + (numerator ? "_D" : "_N")));
        else if (!isInt(numerator) || !isInt(denominator))
            found(Severity::warning, "rational-kind", key,
                  Text::of("the rational's %1 is no int, so a read mixes it with a default",
                           (isInt(numerator) ? denominator : numerator)->key));
        else if (std::get<int>(denominator->value) == 0)
            found(Severity::error, "rational-zero", key, Text::of("the rational's denominator is 0, so every read of it fails"));
        else
            findings.push_back(aboutKey(store, Severity::warning, "unknown-key", key,
                                        Text::of("the library knows no such rational; it is kept"),
                                        Text::of("nothing to do where a later version or another program stored it")));
    }
    return findings;
}

namespace {

// A list, as a value of the library's, that another text would be stored for.
bool changesWhenStoredAgain(Setting const& setting)
{
    auto const* const list = std::get_if<QStringList>(&setting.observation.value);
    return list && Catalogue::storedText(*list) != std::get<std::string>(setting.stored->value);
}

bool isTextThatIsNotUtf8(Setting const& setting)
{
    return std::holds_alternative<QString>(setting.observation.value) && !isUtf8(std::get<std::string>(setting.stored->value));
}

bool isAtTheEdge(Setting const& setting)
{
    auto const* const number = std::get_if<int>(&setting.stored->value);
    return number && (*number == std::numeric_limits<int>::max() || *number == std::numeric_limits<int>::min());
}

// What is wrong with a stored value, if anything.
void checkValue(Setting const& setting, ExaminedStore const& store, Findings& findings)
{
    std::string const unset = Text::of("'editor-settings unset %1' removes it, so that the default holds", setting.key);
    std::string const storeAnew =
        setting.write ? Text::of("store it anew: 'editor-settings set %1 VALUE'", setting.key) : Text::of("have the editor store it anew");
    auto const found = [&](char const* check, std::string const& what, std::string const& remedy) {
        findings.push_back(aboutKey(store, Severity::warning, check, setting.key, what, remedy));
    };
    if (setting.isOfOtherKind())
        found("other-kind",
              Text::of("it holds a value of kind %1 where one of kind %2 is read, so the default is read", setting.stored->kind,
                       storedKind(setting.observation.value)),
              unset);
    else if (setting.isUnreadable())
        found("unreadable", Text::of("it holds a value of kind %1 that cannot be read, so the default is read", setting.stored->kind),
              unset);
    else if (isTextThatIsNotUtf8(setting))
        found("no-utf8", Text::of("it holds text that is not UTF-8, so it is not read as it is stored"), storeAnew);
    else if (changesWhenStoredAgain(setting))
        found("list-changes",
              Text::of("the stored list would be another one when it is read and stored again, as it has empty elements or a part of the "
                       "separator"),
              storeAnew);
    else if (isAtTheEdge(setting))
        found("number-edge",
              Text::of("it holds %1, at the edge of its range: counting on would leave it",
                       std::to_string(std::get<int>(setting.stored->value))),
              unset);
}

} // namespace

Findings checkValues(Host::Application const& application, ExaminedStore const& store)
{
    Findings findings;
    for (StoredRow const& row : store.rows) {
        Catalogue::Row const* const known = Catalogue::findPreference(row.key);
        if (known ? known->store != store.store : store.store != Store::product || !isInAFamily(row.key))
            continue;
        Setting const found = setting(application, row.key);
        if (found.stored) // else it was removed meanwhile, or is kept in memory by a product of this kind
            checkValue(found, store, findings);
    }
    return findings;
}

// --- What the editor writes ------------------------------------------------------------------------------------------

namespace {

constexpr long long greatest = std::numeric_limits<int>::max();
constexpr long long nearTheEdge = greatest - 1000;

// The number in a proposed name, by a pattern that has one group for it.
std::optional<long long> numberIn(QString const& path, QString const& pattern)
{
    QRegularExpressionMatch const match = QRegularExpression(pattern).match(QFileInfo(path).fileName());
    return match.hasMatch() ? std::optional<long long>(match.captured(1).toLongLong()) : std::nullopt;
}

void checkNextNumber(QString const& proposed, QString const& pattern, char const* preference, Findings& findings)
{
    std::optional<long long> const number = numberIn(proposed, pattern);
    if (!number || (*number >= 0 && *number <= nearTheEdge))
        return;
    std::string const folder = QFileInfo(proposed).path().toStdString();
    std::string const next = quoted(QFileInfo(proposed).fileName().toStdString());
    std::string const remedy =
        Text::of("move the file with the highest number out of the folder, or store another folder in %1", preference);
    if (*number < 0)
        findings.push_back({Severity::error, "running-number",
                            Text::of("the running number has passed 2147483647 and counts no further; the next is %1", next), remedy,
                            Store::product, preference, folder});
    else
        findings.push_back({Severity::warning, "running-number",
                            Text::of("the running number nears its end at 2147483647; the next is %1", next), remedy, Store::product,
                            preference, folder});
}

// What stands before the running number in the names of a folder, where that is near the edge. The library says what it
// makes of them; to ask it about every name would take long.
std::set<QString> stemsOfGreatNumbers(QString const& folder, QString const& pattern)
{
    QRegularExpression const numbered(pattern);
    std::set<QString> stems;
    QStringList const names = QDir(folder).entryList(QDir::Files);
    for (QString const& name : names)
        for (auto matches = numbered.globalMatch(name); matches.hasNext();) {
            QRegularExpressionMatch const match = matches.next();
            long long const number = match.captured(1).toLongLong();
            if (number >= nearTheEdge && number <= greatest)
                stems.insert(name.left(match.capturedStart()));
        }
    return stems;
}

// Files with a running number for each stem.
struct NumberedFiles {
    char const* preference;
    QString folder;
    QString inName; // finds the number in the name of any of them
    QString (*proposed)(QString const& source);
    QString inProposed; // finds it in a proposed name
};

void checkNumbers(NumberedFiles const& files, Findings& findings)
{
    constexpr std::size_t most = 20; // for each the library reads the whole folder
    std::set<QString> const stems = stemsOfGreatNumbers(files.folder, files.inName);
    std::size_t left = stems.size();
    for (auto stem = stems.begin(); stem != stems.end() && stems.size() - left < most; ++stem, --left) // a source with any extension
        checkNextNumber(files.proposed(*stem + QStringLiteral(".x")), files.inProposed, files.preference, findings);
    if (left > 0)
        findings.push_back({Severity::warning, "running-number",
                            Text::ofCount("%n more names in the folder with numbers near 2147483647 were not looked at",
                                          "%n more names in the folder with numbers near 2147483647 were not looked at", left),
                            Text::of("move them out of the folder, or look again when those above are mended"), Store::product,
                            files.preference, files.folder.toStdString()});
}

} // namespace

Findings checkRecordings()
{
    Findings findings;
    checkNextNumber(Settings::generateAudioRecordFilePath(), QStringLiteral("^Rec-(-?\\d+)-"), "audioRecordPath", findings);
    return findings;
}

Findings checkFreezeFrames()
{
    Findings findings;
    checkNumbers({"exportPath", Settings::exportPath(), QStringLiteral(" \\((\\d+)\\)\\."),
                  [](QString const& source) { return Settings::generateFreezedFilePath(source); },
                  QStringLiteral(" \\((-?\\d+)\\)\\.[^.]*$")},
                 findings);
    return findings;
}

Findings checkStabilizedClips()
{
    Findings findings;
    checkNumbers({"stabilizedFilePath", Settings::stabilizedFilePath(), QStringLiteral("-(\\d+)"),
                  [](QString const& source) { return Settings::generateStabilizedFilePath(source, QStringLiteral("x")); },
                  QStringLiteral("-(-?\\d+)\\.x$")},
                 findings);
    return findings;
}

Findings checkFolders()
{
    Findings findings;
    std::vector<std::string> missing;
    for (WrittenFolder const& folder : foldersToWrite()) {
        std::string const path = folder.path.toStdString();
        if (!folder.check.isUsable)
            findings.push_back({Severity::error,
                                "folder",
                                Text::of("%1: the editor cannot write there: %2", folder.label, folder.check.remark),
                                Text::of("mend what is remarked: 'editor-settings paths --explain' tells what decides, and a preference "
                                         "may be set to another folder"),
                                std::nullopt,
                                {},
                                path});
        else if (!folder.check.exists)
            missing.push_back(folder.label);
        else if (!folder.check.remark.empty())
            findings.push_back({Severity::warning,
                                "folder",
                                Text::of("%1: %2", folder.label, folder.check.remark),
                                Text::of("make it readable, or set the preference to another folder"),
                                std::nullopt,
                                {},
                                path});
    }
    if (!missing.empty())
        findings.push_back({Severity::note, "folders-missing", Text::of("not there yet: %1", joined(missing, ", ")),
                            Text::of("nothing to do: the editor makes them when it writes there")});
    return findings;
}
