// SPDX-License-Identifier: MIT
//
// The folders below the user's movies, music, caches and data, and the preferences that fall back on them. The floor is the
// one question for a standard path that each of them asks.
#include <support/Bench.h>
#include <support/BoundLibrary.h>

#include <Lumora/Util/StandardPaths.h>

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

    Surroundings() { library.home.write(".config/user-dirs.dirs", userDirs); }
};

using Shared = std::shared_ptr<Surroundings>;

QString effectsPath() { return Settings::userEffectsPath("Sepia"); }

struct Row {
    char const* name;
    QString (*folder)();
    QStandardPaths::StandardLocation base;
};

Row const table[] = {
    {"defaultProjectPath", &Settings::defaultProjectPath, QStandardPaths::MoviesLocation},
    {"defaultAudioRecordPath", &Settings::defaultAudioRecordPath, QStandardPaths::MusicLocation},
    {"defaultStabilizedFilePath", &Settings::defaultStabilizedFilePath, QStandardPaths::MoviesLocation},
    {"defaultFastTrackContentPath", &Settings::defaultFastTrackContentPath, QStandardPaths::MoviesLocation},
    {"defaultDownloadableResourcesPath", &Settings::defaultDownloadableResourcesPath, QStandardPaths::MoviesLocation},
    {"defaultLumoraLibraryPath", &Settings::defaultLumoraLibraryPath, QStandardPaths::MoviesLocation},
    {"defaultNewsCenterContentPath", &Settings::defaultNewsCenterContentPath, QStandardPaths::CacheLocation},
    {"projectPath", &Settings::projectPath, QStandardPaths::MoviesLocation},
    {"audioRecordPath", &Settings::audioRecordPath, QStandardPaths::MusicLocation},
    {"stabilizedFilePath", &Settings::stabilizedFilePath, QStandardPaths::MoviesLocation},
    {"fastTrackContentPath", &Settings::fastTrackContentPath, QStandardPaths::MoviesLocation},
    {"downloadableResourcesPath", &Settings::downloadableResourcesPath, QStandardPaths::MoviesLocation},
    {"exportPath", &Settings::exportPath, QStandardPaths::MoviesLocation},
    {"newsCenterContentPath", &Settings::newsCenterContentPath, QStandardPaths::CacheLocation},
    {"userEffectsPath", &effectsPath, QStandardPaths::GenericDataLocation},
};

void addRow(Shared const& all, Row const& row)
{
    auto const floor = [base = row.base] { return Lumora::Util::GetStandardPath(base); };
    Bench::require(row.folder().startsWith(floor()), row.name + std::string(" lies outside its standard path"));
    auto const prepare = [all, row, floor](benchmark::State& state) {
        state.counters["allocations"] = static_cast<double>(Bench::allocationsOf(row.folder).count);
        state.counters["floor allocations"] = static_cast<double>(Bench::allocationsOf(floor).count);
    };
    constexpr int calls = 20; // about half a millisecond, so that the clock costs nothing that shows
    Bench::addByTurns(row.name, prepare, row.folder, floor, calls)->Iterations(Bench::isShort() ? 1 : 200);
}

Bench::Registration const registration([] {
    auto const all = std::make_shared<Surroundings>();
    for (Row const& row : table)
        addRow(all, row);
});

} // namespace
