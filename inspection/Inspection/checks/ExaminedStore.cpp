// SPDX-License-Identifier: MIT
#include <Inspection/checks/ExaminedStore.h>

#include <Inspection/PreferenceState.h>

#include <QFile>
#include <QStorageInfo>

#include <array>
#include <cstddef>
#include <system_error>

namespace fs = std::filesystem;

namespace Inspection {

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
    return {volume.fileSystemType().toStdString(), volume.rootPath().toStdString(), volume.isReadOnly(), Storage::localityOf(existing),
            volume.bytesTotal() > 0 ? volume.bytesAvailable() : -1}; // what stores nothing, as /proc, is never full
}

void examineOpened(Storage::SqliteStorage const& opened, ExaminedStore& result)
{
    try {
        result.report = opened.examine();
        result.error = opened.readOnlyError();
        result.rows = opened.rows();
        result.state = result.error ? StoreState::readOnly : StoreState::usable;
    } catch (Storage::StorageError const& error) {
        result.error = error;
        result.state = StoreState::unusable;
    }
}

} // namespace

char const* storeStateName(StoreState state)
{
    constexpr std::array<char const*, 4> names = {"missing", "unusable", "read-only", "usable"};
    return names.at(static_cast<std::size_t>(state));
}

ExaminedStore examine(Host::Application const& application, Catalogue::Store store)
{
    ExaminedStore result = {store, storageFile(application, store), {}, StoreState::missing, storageError(application, store), {}, {}};
    result.fileSystem = fileSystemOf(result.file);
    if (result.error)
        result.state = StoreState::unusable;
    if (Storage::SqliteStorage const* const opened = storage(application, store))
        examineOpened(*opened, result);
    return result;
}

} // namespace Inspection
