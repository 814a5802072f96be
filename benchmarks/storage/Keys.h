// SPDX-License-Identifier: MIT
//
// Sixty settings as an editor has them after some time of use.
#pragma once

#include <array>
#include <chrono>
#include <filesystem>
#include <string>

namespace Keys {

inline std::array<char const*, 60> const all{
    "exportPath",         "projectPath",           "lastAddMediaPath",       "lastAddVideoPath",
    "lastAddImagePath",   "lastAddAudioPath",      "lastAddDirectoryPath",   "lastAddImageDirectoryPath",
    "lastTarget",         "openOutputAfterExport", "openLinkAfterUpload",    "lastUsedPresetGroup",
    "lastUsedPresetId",   "dontShowStartDialog",   "keepVideoAspect",        "recentProjects",
    "audioRecordPath",    "audioRecordFormat",     "audioRecordCodec",       "downloadableResourcesPath",
    "stabilizedFilePath", "freezedFileFormat",     "notificationsEnabled",   "useGuideLines",
    "fastTrackEnabled",   "useFilmstripPreview",   "fastTrackContentPath",   "waveformCachePath",
    "quizExportUserId",   "bundleShadowCachePath", "downloaderCachePath",    "packInAppCachePath",
    "snapshotPath",       "npsStartExportCount",   "npsSendCount",           "npsCommentToSend",
    "npsEmailToSend",     "achievedTutorials",     "userCustomColors",       "targetHistory",
    "favorites_effects",  "favorites_transitions", "favorites_titles",       "favorites_callouts",
    "favorites_stickers", "favorites_filters",     "favorites_music",        "favorites_backgrounds",
    "timelineZoom",       "timelineFollowsCursor", "timelineSnapsToMarkers", "playerVolume",
    "playerLoops",        "captureDevice",         "captureFrameRate",       "captureCountsDown",
    "exportQuality",      "exportFrameRate",       "exportIsHardwareAided",  "newsCenterContentPath",
};

/// The value of each: as long as a path.
inline std::string const value = "/home/u/Videos/Lumora Video Editor/Media Files";

/// The value of the n-th write, always another than before.
inline std::string written(int number) { return value + ' ' + std::to_string(number); }

/// Which of the keys is read or written the n-th time.
inline char const* key(int number) { return all[static_cast<std::size_t>(number) % all.size()]; }

inline char const* const durableWrite = "durable write";

/// A disk takes now less and now more time for the same, so writes alternate more often.
inline int writeRepetitions(bool isShort) { return isShort ? 1 : 25; }

/// Gives a file a time that it never had, as a rewrite would.
inline void makeYounger(std::string const& file, int number)
{
    std::filesystem::last_write_time(file, std::filesystem::file_time_type::clock::now() + std::chrono::seconds(number));
}

} // namespace Keys
