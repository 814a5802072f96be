// SPDX-License-Identifier: MIT
#include "StoreBackups.h"

#include <Host/Home.h>
#include <Inspection/PreferenceState.h>
#include <Storage/Backup.h>

#include <QByteArray>
#include <QCryptographicHash>
#include <QDateTime>
#include <QRegularExpression>

#include <absl/strings/str_cat.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <string>
#include <system_error>
#include <vector>

namespace fs = std::filesystem;

namespace Inspector {

namespace {

constexpr std::size_t mostKept = 5;

// The folders above are made where they are missing, but never a home folder.
fs::path folderForStates()
{
    if (char const* const states = std::getenv("XDG_STATE_HOME"); states && *states == '/')
        return states;
    char const* const home = std::getenv("HOME");
    std::string const trouble = Host::troubleWithHome();
    if (!trouble.empty() || !home)
        throw Storage::StorageError(Storage::StorageError::Code::access, home ? home : "", "keep a backup", trouble,
                                    "set HOME to your folder, or XDG_STATE_HOME to another one");
    return fs::path(home) / ".local/state";
}

// What the names of the backups of one file begin with.
std::string prefixOf(Catalogue::Store name, fs::path const& file)
{
    QByteArray const hash = QCryptographicHash::hash(QByteArray::fromStdString(file.string()), QCryptographicHash::Sha1);
    return absl::StrCat(Catalogue::name(name), "-", hash.left(4).toHex().toStdString(), "-");
}

void dropEarlierOnes(fs::path const& folder, std::string const& prefix)
{
    static QRegularExpression const stamp(QStringLiteral("\\A[0-9]{8}T[0-9]{6}\\.[0-9]{3}Z\\.backup\\z"));
    std::vector<std::string> names;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        std::string const name = entry->path().filename().string();
        if (name.compare(0, prefix.size(), prefix) == 0 && stamp.match(QString::fromStdString(name.substr(prefix.size()))).hasMatch())
            names.push_back(name);
    }
    std::sort(names.rbegin(), names.rend());
    for (std::size_t number = mostKept; number < names.size(); ++number)
        fs::remove(folder / names[number], error);
}

} // namespace

std::optional<fs::path> StoreBackups::keep(Catalogue::Store name, Storage::SqliteStorage const& store)
{
    if (has(name))
        return std::nullopt;
    fs::path const folder = m_folder ? *m_folder : folderForStates() / "editor-settings/backups";
    std::string const prefix = prefixOf(name, store.file());
    QString const now = QDateTime::currentDateTimeUtc().toString(QStringLiteral("yyyyMMdd'T'HHmmss.zzz'Z'"));
    fs::path const file = folder / absl::StrCat(prefix, now.toStdString(), ".backup");
    Storage::Backup::write(file, {{Catalogue::name(name), &store}});
    m_kept.insert(name);
    dropEarlierOnes(folder, prefix);
    return file;
}

} // namespace Inspector
