// SPDX-License-Identifier: MIT

/// @file
/// The editor's preferences, its locations, and names for the files that it is about to write.
///
/// Binding. Call `Settings::init` once before any other function, with a product-information object and two stores that
///   live for as long as the library is called. A call whose collaborator is unbound or destroyed aborts the process
///   with a line on standard error that names the collaborator. The library never substitutes a default for it.
/// Threads. After the binding any thread may call any function. Whether concurrent calls on one store are safe is the
///   store's business. `Settings::init` must not run concurrently with any other call. The constants are read-only.
/// Errors. The library reports and logs nothing. An exception of a store, of the product information, of the platform
///   libraries or of an allocation reaches the caller unchanged.
/// Text. A `std::string` is UTF-8. Every text owns its memory, so that a copy outlives the library.
///
/// Nothing is cached: each call asks its collaborators and the environment. No function creates, removes or checks a file
/// or a directory; the generated names and the sample project list one. Example paths are those of a user "u", with the
/// product names in parentheses.
#pragma once

#include <Settings/IProductInfo.h>
#include <Settings/ISettingsStorage.h>
#include <Settings/ProductConfiguration.h>
#include <Settings/SettingsContext.h>

#include <QByteArray>
#include <QFont>
#include <QStandardPaths>
#include <QString>
#include <QStringList>

#include <boost/rational.hpp>

#include <cstddef>
#include <string>
#include <type_traits>

#pragma GCC visibility push(default) // the library exports what this header declares

// --- Binding ---------------------------------------------------------------------------------------------------------

/// Preferences, locations and names of new files.
namespace Settings {

/// Binds the library to the collaborators of `context`, which it copies. A later call replaces the whole binding and
/// releases the earlier references. Throws only `std::bad_alloc`.
void init(SettingsContext const& context);

} // namespace Settings

// --- Typed access ----------------------------------------------------------------------------------------------------
//
// Each function takes any key, also one of the host's own. It uses `commonStorage` if `useCommonStorage` is true, else
// `productStorage`. The caller's default is read once, before the store is called, and no result shares memory with it.
//
// A text literal is no value: it would convert to `bool` before it converts to a string, so it does not compile. A
// `char const*` still converts. Pass a `std::string` or a `QString`.

/// The stored string unchanged, or `defaultValue`.
std::string read(std::string const& key, std::string const& defaultValue, bool useCommonStorage);
/// The stored string, or `defaultValue`, decoded from UTF-8. Invalid sequences become replacement characters. Never null.
QString read(std::string const& key, QString const& defaultValue, bool useCommonStorage);
/// The stored boolean, or `defaultValue`.
bool read(std::string const& key, bool const& defaultValue, bool useCommonStorage);
/// The stored integer, or `defaultValue`.
int read(std::string const& key, int const& defaultValue, bool useCommonStorage);
/// The stored bytes. `defaultValue` is ignored: an absent key returns a null array. Throws `std::length_error` for more
/// than 2147483647 bytes.
QByteArray read(std::string const& key, QByteArray const& defaultValue, bool useCommonStorage);
/// The fraction of the integers stored under key + "_N" and key + "_D", in lowest terms. Each absent half falls back on
/// that half of the default, cut to 32 bits. The two store calls are not atomic: another thread may write between them.
/// Throws `boost::bad_rational` ("bad rational: zero denominator") if the denominator is 0.
boost::rational<long long> read(std::string const& key, boost::rational<long long> const& defaultValue, bool useCommonStorage);
/// The stored string split at every "|#|", without empty elements. The default is joined and split likewise.
QStringList read(std::string const& key, QStringList defaultValue, bool useCommonStorage);
/// Refuses a text literal. Takes a `bool` alone as its last argument, as `read(0, buffer, size)` is a call of the system.
template <std::size_t size, typename Bool, typename = std::enable_if_t<std::is_same_v<Bool, bool>>>
bool read(std::string const& key, char const (&defaultValue)[size], Bool useCommonStorage) = delete;

/// Stores `value` unchanged; UTF-8 by convention.
void write(std::string const& key, std::string const& value, bool useCommonStorage);
/// Stores `value` encoded in UTF-8.
void write(std::string const& key, QString const& value, bool useCommonStorage);
/// Stores a boolean.
void write(std::string const& key, bool const& value, bool useCommonStorage);
/// Stores an integer.
void write(std::string const& key, int const& value, bool useCommonStorage);
/// Stores bytes of any number and content.
void write(std::string const& key, QByteArray const& value, bool useCommonStorage);
/// Stores numerator and denominator under key + "_N" and key + "_D", each cut to its low 32 bits. If the second
/// store call throws, the first half is already written.
void write(std::string const& key, boost::rational<long long> const& value, bool useCommonStorage);
/// Stores the elements joined with "|#|", unescaped. The next read drops empty elements, splits an element that contains
/// "|#|", and splits an element that ends in "|#" from the next one at the wrong place.
void write(std::string const& key, QStringList value, bool useCommonStorage);
/// Refuses a text literal. Takes a `bool` alone as its last argument, as `write(0, "text", size)` is a call of the system.
template <std::size_t size, typename Bool, typename = std::enable_if_t<std::is_same_v<Bool, bool>>>
void write(std::string const& key, char const (&value)[size], Bool useCommonStorage) = delete;

// --- Preferences -----------------------------------------------------------------------------------------------------
//
// The key of a preference is its getter's name. All lie in `productStorage` but for `autoUpdate` and `sendStatistics`,
// which lie in `commonStorage`. A getter returns the stored value, unchecked, or the default named here; a stored empty
// text is a value, too. A setter stores its argument unchanged.

namespace Settings {

/// Folder of exported films. Default: `defaultLumoraLibraryPath()`, at each call.
QString exportPath();
void setExportPath(QString const& value);
/// Folder of saved projects. Default: `defaultProjectPath()`, at each call.
QString projectPath();
void setProjectPath(QString const& value);
/// Folder last used to add media of any type. Default: empty.
QString lastAddMediaPath();
void setLastAddMediaPath(QString const& value);
/// Folder last used to add a video. Default: empty.
QString lastAddVideoPath();
void setLastAddVideoPath(QString const& value);
/// Folder last used to add an image. Default: empty.
QString lastAddImagePath();
void setLastAddImagePath(QString const& value);
/// Folder last used to add audio. Default: empty.
QString lastAddAudioPath();
void setLastAddAudioPath(QString const& value);
/// Folder last added whole. Default: empty.
QString lastAddDirectoryPath();
void setLastAddDirectoryPath(QString const& value);
/// Folder of images last added whole. Default: empty.
QString lastAddImageDirectoryPath();
void setLastAddImageDirectoryPath(QString const& value);
/// Export target last used. Default: empty.
QString lastTarget();
void setLastTarget(QString const& value);
/// Whether an exported film is opened when it is done. Default: true.
bool openOutputAfterExport();
void setOpenOutputAfterExport(bool const& value);
/// Whether the page of an uploaded film is opened when it is done. Default: true.
bool openLinkAfterUpload();
void setOpenLinkAfterUpload(bool const& value);
/// Group of the export preset last used. Default: empty.
std::string lastUsedPresetGroup();
void setLastUsedPresetGroup(std::string const& value);
/// Export preset last used. Default: empty.
std::string lastUsedPresetId();
void setLastUsedPresetId(std::string const& value);
/// Whether the start dialog is left out. Default: true, although the name reads like an opt-out.
bool dontShowStartDialog();
void setDontShowStartDialog(bool const& value);
/// Whether a video keeps its aspect ratio when it is resized. Default: true.
bool keepVideoAspect();
void setKeepVideoAspect(bool const& value);
/// Whether updates are looked for, in `commonStorage`. The setter is `setCheckForUpdates`. Default: true.
bool autoUpdate();
void setCheckForUpdates(bool const& value);
/// Whether usage statistics may be sent, in `commonStorage`. Default: true.
bool sendStatistics();
void setSendStatistics(bool const& value);
/// Recently used projects, in a form that the host chooses. Default: empty.
std::string recentProjects();
void setRecentProjects(std::string const& value);
/// Previews of the recent projects, in a form that the host chooses. Default: empty.
QByteArray recentProjectPreviews();
void setRecentProjectPreviews(QByteArray const& value);
/// Geometry of the main window, as Qt saves it. Default: empty.
QByteArray mainWindowGeometry();
void setMainWindowGeometry(QByteArray const& value);
/// State of the main window's bars and docks, as Qt saves it. Default: empty.
QByteArray mainWindowState();
void setMainWindowState(QByteArray const& value);
/// Geometry of the main splitter. Default: empty.
QByteArray splitterMainGeometry();
void setSplitterMainGeometry(QByteArray const& value);
/// State of the main splitter. Default: empty.
QByteArray splitterMainState();
void setSplitterMainState(QByteArray const& value);
/// Geometry of the top panel's splitter. Default: empty.
QByteArray splitterTopPanelGeometry();
void setSplitterTopPanelGeometry(QByteArray const& value);
/// State of the top panel's splitter. Default: empty.
QByteArray splitterTopPanelState();
void setSplitterTopPanelState(QByteArray const& value);
/// Folder of audio recordings. Default: `defaultAudioRecordPath()`, at each call.
QString audioRecordPath();
void setAudioRecordPath(QString const& value);
/// File format of audio recordings. Default: `Lumora::Conf::IFormatFile::FORMAT_WAV`.
std::string audioRecordFormat();
void setAudioRecordFormat(std::string const& value);
/// Codec of audio recordings. Default: `Lumora::Conf::IFormatCodecAudio::CODEC_ID_PCM_S16LE`.
std::string audioRecordCodec();
void setAudioRecordCodec(std::string const& value);
/// Folder of downloaded media. Default: `defaultDownloadableResourcesPath()`, at each call.
QString downloadableResourcesPath();
void setDownloadableResourcesPath(QString const& value);
/// Folder of stabilized clips. Default: `defaultStabilizedFilePath()`, at each call.
QString stabilizedFilePath();
void setStabilizedFilePath(QString const& value);
/// File format of freeze frames. The setter has a small "f" after "set". Default: `Lumora::Conf::IFormatFile::FORMAT_PNG`.
std::string freezedFileFormat();
void setfreezedFileFormat(std::string const& value);
/// Whether notifications are shown. Default: true.
bool notificationsEnabled();
void setNotificationsEnabled(bool const& value);
/// Whether guide lines are shown. Default: true.
bool useGuideLines();
void setUseGuideLines(bool const& value);
/// Whether the user has met the fast track. Default: false.
bool acquaintedWithFastTrack();
void setAcquaintedWithFastTrack(bool const& value);
/// Whether the fast track is on. Default: true.
bool fastTrackEnabled();
void setFastTrackEnabled(bool const& value);
/// Whether clips are previewed as filmstrips. Default: true.
bool useFilmstripPreview();
void setUseFilmstripPreview(bool const& value);
/// Folder of the fast track's preview files. Default: `defaultFastTrackContentPath()`, at each call.
QString fastTrackContentPath();
void setFastTrackContentPath(QString const& value);
/// Folder of cached waveforms. Default: `defaultWaveformCachePath()`, at each call.
QString waveformCachePath();
void setWaveformCachePath(QString const& value);
/// Folder of the news centre's content. Default: `defaultNewsCenterContentPath()`, at each call.
QString newsCenterContentPath();
void setNewsCenterContentPath(QString const& value);
/// Who the user is to the quiz export. Default: empty.
QString quizExportUserId();
void setQuizExportUserId(QString const& value);
/// Whether the quiz agreement is accepted. Default: false.
bool quizAgreementChecked();
void setQuizAgreementChecked(bool const& value);
/// Folder of shadow copies of bundles. Default: `defaultBundleShadowCachePath()`, at each call.
QString bundleShadowCachePath();
void setBundleShadowCachePath(QString const& value);
/// Folder of the downloader's cache. Default: `defaultDownloaderCachePath()`, at each call.
QString downloaderCachePath();
void setDownloaderCachePath(QString const& value);
/// Folder of packages delivered within the application. Default: `defaultPackInAppCachePath()`, at each call.
QString packInAppCachePath();
void setPackInAppCachePath(QString const& value);
/// Folder of snapshots. Default: `defaultLumoraLibraryPath()`, at each call.
QString snapshotPath();
void setSnapshotPath(QString const& value);
/// Notifications that the satisfaction survey is ready, as the host counts them. Default: -1.
int npsReadyNotificationCount();
void setNPSReadyNotificationCount(int const& value);
/// Exports started, as the survey counts them. Default: 0.
int npsStartExportCount();
void setNPSStartExportCount(int const& value);
/// Survey answers sent. Default: 0.
int npsSendCount();
void setNPSSendCount(int const& value);
/// Survey score that waits to be sent; -1 for none. Default: -1.
int npsValueToSend();
void setNPSValueToSend(int const& value);
/// Survey comment that waits to be sent. Default: empty.
QString npsCommentToSend();
void setNPSCommentToSend(QString const& value);
/// Survey e-mail address that waits to be sent. Default: empty.
QString npsEmailToSend();
void setNPSEmailToSend(QString const& value);

// --- Composite settings ----------------------------------------------------------------------------------------------

/// Tutorials that the user has finished, as a list. Default: empty.
QStringList achievedTutorials();
void setAchievedTutorials(QStringList const& tutorials);
/// The user's own colours, in whatever text the host uses, as a list. Default: empty.
QStringList userCustomColors();
void setUserCustomColors(QStringList const& colors);
/// Whether the updater downloads what it finds, under the updater's own key "SUAutomaticallyUpdate" in `commonStorage`.
/// Default: false, unlike that of `autoUpdate`.
bool autoDownloadUpdates();
void setAutoDownloadUpdates(bool enabled);
/// What the editor keeps for the indication called `name`, under the key "Indication/" and the unescaped name. Default:
/// null.
QByteArray indicationObject(QString name);
void setIndicationObject(QString name, QByteArray const& data);
/// The favourites of the list called `name`, under the key "favorites_" and the unescaped name. Default: empty. The
/// library has no setter: a host writes them with `write` for a list under the same key.
QStringList favoriteItems(QString name);
/// Recent export targets in one string that the caller composes; stored unchanged. A product of kind 1 keeps it in process
/// memory instead of a store, and must call both functions on one thread. Default: empty.
std::string targetHistory();
void setTargetHistory(std::string const& history);
/// 10: the number of targets that a caller should keep in the history. The library does not enforce it.
extern int const targetHistoryLength;

// --- Folder names ----------------------------------------------------------------------------------------------------

extern std::string const lumoraLibrary;          ///< "Lumora Library", the user library; UTF-8
extern QString const projectDirectory;           ///< "Projects"
extern QString const audioRecordDirectory;       ///< "Recorded Audio"
extern QString const resourcesDirectory;         ///< "Media Content"
extern QString const stabilizedFileDirectory;    ///< "Stabilized"
extern QString const fastTrackContentDirectory;  ///< "Preview Files"
extern QString const waveformCacheDirectory;     ///< "Cache"
extern QString const newsCenterContentDirectory; ///< "News Center"
extern QString const bundleShadowCacheDirectory; ///< "Bundle Shadow Copy"
extern QString const downloaderCacheDirectory;   ///< "Downloader Cache"
extern QString const packInAppCacheDirectory;    ///< "PackInApp Cache"
extern QFont const countDownFont;                ///< Verdana, 60 points, of the countdown's figures
extern QString const countDownPadImage;          ///< ":/icons/Player/countdownPad.png", in the host's resources
extern QString const packageExtenstion;          ///< "mpack"; the spelling is what hosts link against
extern QString const waveformExtension;          ///< "blob"

} // namespace Settings

// --- Roots -----------------------------------------------------------------------------------------------------------

/// The folder `folder` of the product in a standard location, cleaned, with native separators:
/// "/home/u/Videos/Lumora Video Editor/Projects" for the movies location and "Projects".
QString makeDefaultPath(QStandardPaths::StandardLocation location, QString folder);
/// The product's own data folder: "/home/u/.local/share/Lumora/Lumora Video Editor" (vendor and product name).
/// Not cleaned: an empty name or a trailing separator of the data location leaves a doubled separator.
QString productDataPath();
/// The product's name, not translated: "Lumora Video Editor" (product name).
QString nonLocalizedProductName();

namespace Settings {

/// The user library, cleaned, with native separators: "/home/u/Videos/Lumora Library", or, for a product of kind 1,
/// "/home/u/Videos/Lumora Video Editor".
QString defaultLumoraLibraryPath();

// --- Default folders -------------------------------------------------------------------------------------------------

/// "/home/u/Videos/Lumora Video Editor/Projects"
QString defaultProjectPath();
/// "/home/u/Music/Lumora Video Editor/Recorded Audio"
QString defaultAudioRecordPath();
/// "/home/u/Videos/Lumora Video Editor/Stabilized"
QString defaultStabilizedFilePath();
/// "/home/u/Videos/Lumora Video Editor/Preview Files"
QString defaultFastTrackContentPath();
/// "/home/u/Videos/Lumora Video Editor/Media Content"
QString defaultDownloadableResourcesPath();
/// "/home/u/.cache/Lumora Video Editor/News Center"
QString defaultNewsCenterContentPath();
/// "/home/u/.cache/Lumora Video Editor/Bundle Shadow Copy"
QString defaultBundleShadowCachePath();
/// "/home/u/.cache/Lumora Video Editor/Downloader Cache"
QString defaultDownloaderCachePath();
/// "/home/u/.cache/Lumora Video Editor/PackInApp Cache"
QString defaultPackInAppCachePath();
/// "/home/u/.local/share/Lumora/SharedData/VideoEditor/Waveforms/Cache" (vendor and shared-data folder name). Not
/// cleaned, with "/" on every platform.
QString defaultWaveformCachePath();

} // namespace Settings

// --- Stock content and resources -------------------------------------------------------------------------------------
//
// The content that the product ships below the resources root of the binding, "/opt/editor" in the examples. No function
// checks that it exists. The three forms differ, so compare a path only with one of its own form.

/// The resource `relative` to the root, absolute, with preferred separators, in UTF-8: "/opt/editor/resources/x.png" for
/// "resources/x.png". A relative root is resolved against the current directory, an absolute `relative` replaces it.
/// Throws `std::filesystem::filesystem_error` if the root is relative and the current directory does not exist.
std::string resourceFile(std::string const& relative);
/// The folder of sample projects: "/opt/editor/resources/samples/stock/projects". Not cleaned, without a separator at the
/// end. The root is read up to its first NUL.
QString stockSampleProjectsPath();

namespace Settings {

/// `resourceFile("presets-videoeditor.json")`: "/opt/editor/presets-videoeditor.json"
std::string presetFilePath();
/// The previews likewise: "/opt/editor/resources/samples/transitionPreview1.png"
std::string transitionPreviewImageAPath();
std::string transitionPreviewImageBPath();         ///< transitionPreview2.png
std::string titlePreviewImagePath();               ///< titlePreview.png
std::string calloutPreviewImagePath();             ///< calloutPreview.png
std::string quizPreviewImagePath();                ///< quizPreview.png
std::string effectPreviewImagePath();              ///< effectPreview.png
std::string audioPreviewImagePath();               ///< audioPlayerPreview.png
std::string panZoomPreviewImagePath();             ///< panZoomPreview.png
std::string animationBackgroundPreviewImagePath(); ///< animationBackgroundPreview.png
std::string animationIconPreviewImagePath();       ///< animationIconPreview.png
std::string colorFilterPreviewImagePath();         ///< colorFilterPreview.png

/// Stock folders: "/opt/editor/resources/samples/stock//titles/". The root is read up to its first NUL. Not cleaned: with
/// a doubled separator and one at the end, "/" on every platform.
QString stockTitlesSvgPath();
QString stockCalloutsSvgPath();       ///< …//callouts/
QString stockStickersSvgPath();       ///< …//stickers/
QString stockImportsPath();           ///< …//imports/
QString stockAudioEffectsPath();      ///< …//audioEffects/
QString stockVideoEffectsPath();      ///< …//videoEffects/
QString stockPipEffectsPath();        ///< …//pipEffects/
QString stockColorFiltersPath();      ///< …//colorFilters/
QString stockTransitionsPath();       ///< …//transitions/
QString stockAnimationsPath();        ///< …//animations/
QString stockPanAndZoomPath();        ///< …//panandzoom/
QString stockContentPackagesPath();   ///< …//packages/Content/
QString stockServicePackagesPath();   ///< …//packages/Service/
QString stockWizardPackagesPath();    ///< …//packages/Wizard/
QString stockThemesPath();            ///< …//themes/
QString stockWizardBackgroundsPath(); ///< …//wizardBackgrounds/
QString blurMasksPath();              ///< …//blurMasks/
QString flyingObjectsPath();          ///< …//flyingObjects/

/// Fragments that the caller joins to a root of its choice.
QString stockMusicPath();       ///< "/Music Library/"
QString stockAudioPath();       ///< "/Audio/"
QString stockVideoPath();       ///< "/Video/"
QString stockBackgroundsPath(); ///< "/Backgrounds/"

// --- User content, notifications and configuration -------------------------------------------------------------------
//
// Not cleaned, with "/" at the end, but for the two Unsplash folders.

/// The user's own intros: "/home/u/.local/share/Lumora/SharedData/VideoEditor/UserImports/"
QString userIntrosPath();
/// "/home/u/.local/share/Lumora/SharedData/VideoEditor/UserOverlays/"
QString userOverlaysPath();
/// "/home/u/.local/share/Lumora/SharedData/VideoEditor/UserEffects/My_Effect_/" for "My:Effect?": each of / : ? " < > |
/// in `name` becomes "_". An empty name leaves a doubled separator; ".." and backslashes stay.
QString userEffectsPath(std::string const& name);
/// "/home/u/.local/share/Lumora/Lumora Video Editor/Unsplash/SavedCollection", cleaned, with native separators.
QString userUnsplashPath();
/// "/home/u/.local/share/Lumora/Lumora Video Editor/Unsplash/Content", cleaned, with native separators.
QString unsplashContentPath();
/// "/home/u/.local/share/Lumora/SharedData/VideoEditor/Packages/"; "VideoEditor" for every product of the vendor, here
/// and in the next two.
QString packageDeploymentPath();
/// "/home/u/.local/share/Lumora/SharedData/VideoEditor/FastTrack/"
QString fastTrackConfigurationPath();
/// "/home/u/.local/share/Lumora/SharedData/VideoEditor/Waveforms/Configuration/"
QString waveformConfigurationPath();
/// "/home/u/.local/share/Lumora/Lumora Video Editor/StockPackagesStats/"
QString stockPackagesStatisticsPath();
/// The same as `packageDeploymentPath()`.
QString deployedPackagesStatisticsPath();

/// The sounds of notifications.
enum Notifications : int {
    FinishNotification = 0, ///< Something is done.
    ErrorNotification = 1,  ///< Something went wrong.
};
/// "/opt/editor/resources/samples/notifications/finish.wav" or ".../error.wav"; for any other value the folder, with "/"
/// at its end. The root is read up to its first NUL.
QString notificationFile(Notifications kind);

QString countDownImagePath();       ///< A copy of `countDownPadImage`.
QFont countFiguresDownFont();       ///< A copy of `countDownFont`.
QString portableProjectMediaPath(); ///< "/media/", to be joined to a portable project's folder.

// --- Generated file names --------------------------------------------------------------------------------------------
//
// Each lists a folder and answers with a name whose number is one above the highest there. Nothing is created or
// reserved: two calls before the caller has made the file give the same number. To claim a name, make the folder and
// open the file so that it must not exist. A folder that is missing or cannot be read counts as empty. After 2147483647
// comes -2147483648, which later calls do not count. Qt itself warns on standard error where a "[" stays open in a format
// or in the name of a stabilized clip's source; and repetitions within repetitions there, such as "((a{99}){99}){99}", may
// take longer than anybody waits.

/// "/home/u/Music/Lumora Video Editor/Recorded Audio/Rec-4-2024.03.09-17.05.31.wav": in `audioRecordPath()`, with the
/// local time and `audioRecordFormat()` in lower case. "Rec-3-…" counts whatever its extension.
/// The folder is asked for twice, so a change in between lists one folder and names a file in the other.
QString generateAudioRecordFilePath();
/// "/home/u/Videos/Lumora Library/Holiday.final (2).png" for "/a/Holiday.final.mov": in `exportPath()`, named after the
/// source up to its last dot, with `freezedFileFormat()`. Only files of that format count. The source need not exist.
/// A placeholder such as "%1" in the source's name is filled as well; the name that results is never counted.
QString generateFreezedFilePath(QString sourceFilePath);
/// "/home/u/Videos/Lumora Video Editor/Stabilized/Holiday-4.mp4" for "/a/Holiday.final.mov" and "mp4": in
/// `stabilizedFilePath()`, which is asked for twice, named after the source up to its first dot. Any extension counts.
/// Wildcards and pattern characters in the source's name are at work, so "Clip (1)" gives a name that may exist.
QString generateStabilizedFilePath(QString sourceFilePath, QString fileFormat);

// --- Project files ---------------------------------------------------------------------------------------------------
//
// The extensions of the product information, in its order and case, blanks included, without empty ones.

/// "New Project", translated at each call in context "QObject".
QString projectNameDefault();
/// All extensions, without dots: "lumora", "lumorax".
QStringList supportedProjectFileExtensions();
/// The extension for saving, which is the first: "lumora". Empty, not null, without extensions.
QString projectFileExtension();
/// For a save dialog, without description: "*.lumora"; "*." without extensions.
QString projectFileSaveFilter();
/// For an open dialog, without description: "*.lumora *.lumorax"; "*." without extensions.
QString projectFileOpenFilter();
/// The first file below `stockSampleProjectsPath()` that matches the open filter, in any case; null if no file does.
/// Links, hidden files and hidden folders do not count. The file system decides which file is first.
QString sampleProjectPath();

} // namespace Settings

#pragma GCC visibility pop
