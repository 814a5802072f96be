// SPDX-License-Identifier: MIT
//
// The folders below the user's movies and music, and the preferences that fall back on them. The composition is the same
// text put together from what QStandardPaths says; the floor is one look at the file that both have to heed.
#include <support/Bench.h>
#include <support/BoundLibrary.h>

#include <QDir>

#include <chrono>
#include <thread>

#include <sys/stat.h>

namespace {

// As desktops write it at the first login.
constexpr char const* userDirs = R"(# This file is written by xdg-user-dirs-update
# If you want to change or add directories, just edit the line you're
# interested in. All local changes will be retained on the next run.
# Format is XDG_xxx_DIR="$HOME/yyy", where yyy is a shell-escaped
# homedir-relative path, or XDG_xxx_DIR="/yyy", where /yyy is an
# absolute path. No other format is supported.
# 
XDG_DESKTOP_DIR="$HOME/Desktop"
XDG_DOWNLOAD_DIR="$HOME/Downloads"
XDG_TEMPLATES_DIR="$HOME/Templates"
XDG_PUBLICSHARE_DIR="$HOME/Public"
XDG_DOCUMENTS_DIR="$HOME/Documents"
XDG_MUSIC_DIR="$HOME/Music"
XDG_PICTURES_DIR="$HOME/Pictures"
XDG_VIDEOS_DIR="$HOME/Videos"
)";

struct Surroundings {
    Bench::BoundLibrary library;
    std::string const file = library.home.write(".config/user-dirs.dirs", userDirs).string();

    // A user's file is old. What was changed a moment ago may change again without its time stamp telling so, and need
    // not be trusted.
    Surroundings()
    {
        if (!Bench::isShort())
            std::this_thread::sleep_for(std::chrono::seconds(4));
    }
};

using Shared = std::shared_ptr<Surroundings>;

QString composed(QStandardPaths::StandardLocation location, QString const& folder)
{
    return QDir::toNativeSeparators(QDir::cleanPath(QStandardPaths::writableLocation(location) + QDir::separator() +
                                                    QStringLiteral("Lumora Video Editor") + QDir::separator() + folder));
}

template <typename Work>
void addSide(std::string const& row, char const* side, Work work)
{
    Bench::addRun(row, side, [work](benchmark::State& state) {
        static_cast<void>(work());
        state.counters["allocations"] = static_cast<double>(Bench::allocationsOf(work).count);
        if (int const count = Bench::systemCallsOf(work); count >= 0)
            state.counters["system calls"] = count;
        Bench::repeat(state, work);
    });
}

template <typename Library, typename Composition>
void addRow(Shared const& all, std::string const& row, Library library, Composition composition)
{
    Bench::require(library() == composition() && library().startsWith(Bench::qString(all->library.home.path().string())),
                   row + ": the library and the composition differ");
    addSide(row, "library", library);
    addSide(row, "composition", composition);
    addSide(row, "floor", [all] {
        struct stat status;
        return ::stat(all->file.c_str(), &status);
    });
}

struct Folder {
    char const* locationName;
    QString (*location)();
    char const* preferenceName;
    QString (*preference)();
    QStandardPaths::StandardLocation base;
    QString const& name;
};

void addRows(Shared const& all, Folder const& folder)
{
    auto const location = [base = folder.base, name = folder.name] { return composed(base, name); };
    std::string const key = folder.preferenceName;
    addRow(all, folder.locationName, folder.location, location);
    addRow(all, folder.preferenceName, folder.preference, [key, location] { return read(key, location(), Bench::inProductStorage); });
}

Bench::Registration const registration([] {
    auto const all = std::make_shared<Surroundings>();
    auto const movies = QStandardPaths::MoviesLocation;
    Folder const folders[] = {
        {"defaultProjectPath", &Settings::defaultProjectPath, "projectPath", &Settings::projectPath, movies, Settings::projectDirectory},
        {"defaultAudioRecordPath", &Settings::defaultAudioRecordPath, "audioRecordPath", &Settings::audioRecordPath,
         QStandardPaths::MusicLocation, Settings::audioRecordDirectory},
        {"defaultStabilizedFilePath", &Settings::defaultStabilizedFilePath, "stabilizedFilePath", &Settings::stabilizedFilePath, movies,
         Settings::stabilizedFileDirectory},
        {"defaultFastTrackContentPath", &Settings::defaultFastTrackContentPath, "fastTrackContentPath", &Settings::fastTrackContentPath,
         movies, Settings::fastTrackContentDirectory},
        {"defaultDownloadableResourcesPath", &Settings::defaultDownloadableResourcesPath, "downloadableResourcesPath",
         &Settings::downloadableResourcesPath, movies, Settings::resourcesDirectory},
    };
    for (Folder const& folder : folders)
        addRows(all, folder);
});

} // namespace
