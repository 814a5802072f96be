// SPDX-License-Identifier: MIT
//
// Hosts rely on the order in which this file constructs its static objects: the product's folder name, the keys and
// defaults of the preferences, the folder names, the names of resource files, the list separator and, last, s_instance.
// The defaults that copy format names need libLumoraConf, which the loader initialises first.
// Texts for the host are made of QLatin1String: the characters of a QStringLiteral lie in the library and go with it.
#include <Settings/RunningNumber.h>
#include <Settings/Settings.h>

#include <Lumora/Conf/Formats.h>
#include <Lumora/Util/ByteConversion.h>
#include <Lumora/Util/StandardPaths.h>

#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QLocale>
#include <QObject>
#include <QStringBuilder>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string_view>

QString const Configuration::productDataFolder = QLatin1String("Lumora Video Editor");

// --- Binding ---------------------------------------------------------------------------------------------------------
//
// The statement that calls a collaborator locks and releases it, so a host may replace or destroy one between two calls.

namespace {

constexpr bool product = false; // useCommonStorage of a preference in productStorage
constexpr bool common = true;   // useCommonStorage of a preference in commonStorage

template <typename Collaborator>
std::shared_ptr<Collaborator> locked(std::weak_ptr<Collaborator> const& reference, char const* name, char const* kind)
{
    std::shared_ptr<Collaborator> collaborator = reference.lock();
    if (!collaborator) {
        char const* const line = "EditorSettings: %s is not bound or has been destroyed; call Settings::init with a live %s first\n";
        std::fprintf(stderr, line, name, kind);
        std::abort();
    }
    return collaborator;
}

std::shared_ptr<ISettingsStorage> storage(bool useCommonStorage)
{
    return useCommonStorage ? locked(s_instance.commonStorage, "commonStorage", "store")
                            : locked(s_instance.productStorage, "productStorage", "store");
}

std::shared_ptr<IProductInfo> productInfo() { return locked(s_instance.productInfo, "productInfo", "product-information object"); }

} // namespace

void Settings::init(SettingsContext const& context) { s_instance = context; }

// --- Typed access ----------------------------------------------------------------------------------------------------
//
// One lock and one store call for each primitive value.

namespace {

extern QString const listSeparator;

// Drops the high bits silently, as stores hold 32-bit integers.
int low32Bits(long long component) { return static_cast<int>(component); }

} // namespace

std::string read(std::string const& key, std::string const& defaultValue, bool useCommonStorage)
{
    return storage(useCommonStorage)->getString(key, defaultValue);
}

QString read(std::string const& key, QString const& defaultValue, bool useCommonStorage)
{
    // A statement of its own, so that the store is released before its answer is decoded.
    std::string const value = storage(useCommonStorage)->getString(key, defaultValue.toStdString());
    return QString::fromStdString(value);
}

bool read(std::string const& key, bool const& defaultValue, bool useCommonStorage)
{
    return storage(useCommonStorage)->getBool(key, defaultValue);
}

int read(std::string const& key, int const& defaultValue, bool useCommonStorage)
{
    return storage(useCommonStorage)->getInt(key, defaultValue);
}

// Hosts rely on an empty array for an absent key, so the default is ignored.
QByteArray read(std::string const& key, QByteArray const& /*defaultValue*/, bool useCommonStorage)
{
    std::vector<unsigned char> const value = storage(useCommonStorage)->getBytes(key, {});
    return Lumora::Util::VectorByteToQByteArray(value);
}

boost::rational<long long> read(std::string const& key, boost::rational<long long> const& defaultValue, bool useCommonStorage)
{
    // A store may change the caller's default while it is asked for the numerator.
    int const defaultDenominator = low32Bits(defaultValue.denominator());
    long long const numerator = storage(useCommonStorage)->getInt(key + "_N", low32Bits(defaultValue.numerator()));
    long long const denominator = storage(useCommonStorage)->getInt(key + "_D", defaultDenominator);
    return {numerator, denominator};
}

QStringList read(std::string const& key, QStringList defaultValue, bool useCommonStorage)
{
    QString const joined = read(key, defaultValue.join(listSeparator), useCommonStorage);
    // A list of one shares its text, which splitting may copy.
    bool const isOne = !joined.isEmpty() && !joined.contains(listSeparator);
    return isOne ? QStringList(joined) : joined.split(listSeparator, Qt::SkipEmptyParts);
}

void write(std::string const& key, std::string const& value, bool useCommonStorage) { storage(useCommonStorage)->setString(key, value); }

void write(std::string const& key, QString const& value, bool useCommonStorage)
{
    storage(useCommonStorage)->setString(key, value.toStdString());
}

void write(std::string const& key, bool const& value, bool useCommonStorage) { storage(useCommonStorage)->setBool(key, value); }

void write(std::string const& key, int const& value, bool useCommonStorage) { storage(useCommonStorage)->setInt(key, value); }

void write(std::string const& key, QByteArray const& value, bool useCommonStorage)
{
    std::vector<unsigned char> const bytes = Lumora::Util::QByteArrayToVectorByte(value);
    storage(useCommonStorage)->setBytes(key, bytes);
}

void write(std::string const& key, boost::rational<long long> const& value, bool useCommonStorage)
{
    storage(useCommonStorage)->setInt(key + "_N", low32Bits(value.numerator()));
    storage(useCommonStorage)->setInt(key + "_D", low32Bits(value.denominator()));
}

void write(std::string const& key, QStringList value, bool useCommonStorage)
{
    storage(useCommonStorage)->setString(key, value.join(listSeparator).toStdString());
}

// --- Preferences -----------------------------------------------------------------------------------------------------
//
// One block each: key, default, getter, setter. A getter whose default is a computed folder computes it at each call, and
// its default constant stays empty and unread.

std::string const exportPathKey = "exportPath";
QString const exportPathDefault;
QString Settings::exportPath() { return read(exportPathKey, defaultLumoraLibraryPath(), product); }
void Settings::setExportPath(QString const& value) { write(exportPathKey, value, product); }

std::string const projectPathKey = "projectPath";
QString const projectPathDefault;
QString Settings::projectPath() { return read(projectPathKey, defaultProjectPath(), product); }
void Settings::setProjectPath(QString const& value) { write(projectPathKey, value, product); }

std::string const lastAddMediaPathKey = "lastAddMediaPath";
QString const lastAddMediaPathDefault;
QString Settings::lastAddMediaPath() { return read(lastAddMediaPathKey, lastAddMediaPathDefault, product); }
void Settings::setLastAddMediaPath(QString const& value) { write(lastAddMediaPathKey, value, product); }

std::string const lastAddVideoPathKey = "lastAddVideoPath";
QString const lastAddVideoPathDefault;
QString Settings::lastAddVideoPath() { return read(lastAddVideoPathKey, lastAddVideoPathDefault, product); }
void Settings::setLastAddVideoPath(QString const& value) { write(lastAddVideoPathKey, value, product); }

std::string const lastAddImagePathKey = "lastAddImagePath";
QString const lastAddImagePathDefault;
QString Settings::lastAddImagePath() { return read(lastAddImagePathKey, lastAddImagePathDefault, product); }
void Settings::setLastAddImagePath(QString const& value) { write(lastAddImagePathKey, value, product); }

std::string const lastAddAudioPathKey = "lastAddAudioPath";
QString const lastAddAudioPathDefault;
QString Settings::lastAddAudioPath() { return read(lastAddAudioPathKey, lastAddAudioPathDefault, product); }
void Settings::setLastAddAudioPath(QString const& value) { write(lastAddAudioPathKey, value, product); }

std::string const lastAddDirectoryPathKey = "lastAddDirectoryPath";
QString const lastAddDirectoryPathDefault;
QString Settings::lastAddDirectoryPath() { return read(lastAddDirectoryPathKey, lastAddDirectoryPathDefault, product); }
void Settings::setLastAddDirectoryPath(QString const& value) { write(lastAddDirectoryPathKey, value, product); }

std::string const lastAddImageDirectoryPathKey = "lastAddImageDirectoryPath";
QString const lastAddImageDirectoryPathDefault;
QString Settings::lastAddImageDirectoryPath() { return read(lastAddImageDirectoryPathKey, lastAddImageDirectoryPathDefault, product); }
void Settings::setLastAddImageDirectoryPath(QString const& value) { write(lastAddImageDirectoryPathKey, value, product); }

std::string const lastTargetKey = "lastTarget";
QString const lastTargetDefault;
QString Settings::lastTarget() { return read(lastTargetKey, lastTargetDefault, product); }
void Settings::setLastTarget(QString const& value) { write(lastTargetKey, value, product); }

std::string const openOutputAfterExportKey = "openOutputAfterExport";
bool const openOutputAfterExportDefault = true;
bool Settings::openOutputAfterExport() { return read(openOutputAfterExportKey, openOutputAfterExportDefault, product); }
void Settings::setOpenOutputAfterExport(bool const& value) { write(openOutputAfterExportKey, value, product); }

std::string const openLinkAfterUploadKey = "openLinkAfterUpload";
bool const openLinkAfterUploadDefault = true;
bool Settings::openLinkAfterUpload() { return read(openLinkAfterUploadKey, openLinkAfterUploadDefault, product); }
void Settings::setOpenLinkAfterUpload(bool const& value) { write(openLinkAfterUploadKey, value, product); }

std::string const lastUsedPresetGroupKey = "lastUsedPresetGroup";
std::string const lastUsedPresetGroupDefault;
std::string Settings::lastUsedPresetGroup() { return read(lastUsedPresetGroupKey, lastUsedPresetGroupDefault, product); }
void Settings::setLastUsedPresetGroup(std::string const& value) { write(lastUsedPresetGroupKey, value, product); }

std::string const lastUsedPresetIdKey = "lastUsedPresetId";
std::string const lastUsedPresetIdDefault;
std::string Settings::lastUsedPresetId() { return read(lastUsedPresetIdKey, lastUsedPresetIdDefault, product); }
void Settings::setLastUsedPresetId(std::string const& value) { write(lastUsedPresetIdKey, value, product); }

// True although the name negates: a first start goes straight to the editor.
std::string const dontShowStartDialogKey = "dontShowStartDialog";
bool const dontShowStartDialogDefault = true;
bool Settings::dontShowStartDialog() { return read(dontShowStartDialogKey, dontShowStartDialogDefault, product); }
void Settings::setDontShowStartDialog(bool const& value) { write(dontShowStartDialogKey, value, product); }

std::string const keepVideoAspectKey = "keepVideoAspect";
bool const keepVideoAspectDefault = true;
bool Settings::keepVideoAspect() { return read(keepVideoAspectKey, keepVideoAspectDefault, product); }
void Settings::setKeepVideoAspect(bool const& value) { write(keepVideoAspectKey, value, product); }

// Hosts link against the setter's deviating name.
std::string const autoUpdateKey = "autoUpdate";
bool const autoUpdateDefault = true;
bool Settings::autoUpdate() { return read(autoUpdateKey, autoUpdateDefault, common); }
void Settings::setCheckForUpdates(bool const& value) { write(autoUpdateKey, value, common); }

std::string const sendStatisticsKey = "sendStatistics";
bool const sendStatisticsDefault = true;
bool Settings::sendStatistics() { return read(sendStatisticsKey, sendStatisticsDefault, common); }
void Settings::setSendStatistics(bool const& value) { write(sendStatisticsKey, value, common); }

std::string const recentProjectsKey = "recentProjects";
std::string const recentProjectsDefault;
std::string Settings::recentProjects() { return read(recentProjectsKey, recentProjectsDefault, product); }
void Settings::setRecentProjects(std::string const& value) { write(recentProjectsKey, value, product); }

std::string const recentProjectPreviewsKey = "recentProjectPreviews";
QByteArray const recentProjectPreviewsDefault;
QByteArray Settings::recentProjectPreviews() { return read(recentProjectPreviewsKey, recentProjectPreviewsDefault, product); }
void Settings::setRecentProjectPreviews(QByteArray const& value) { write(recentProjectPreviewsKey, value, product); }

std::string const mainWindowGeometryKey = "mainWindowGeometry";
QByteArray const mainWindowGeometryDefault;
QByteArray Settings::mainWindowGeometry() { return read(mainWindowGeometryKey, mainWindowGeometryDefault, product); }
void Settings::setMainWindowGeometry(QByteArray const& value) { write(mainWindowGeometryKey, value, product); }

std::string const mainWindowStateKey = "mainWindowState";
QByteArray const mainWindowStateDefault;
QByteArray Settings::mainWindowState() { return read(mainWindowStateKey, mainWindowStateDefault, product); }
void Settings::setMainWindowState(QByteArray const& value) { write(mainWindowStateKey, value, product); }

std::string const splitterMainGeometryKey = "splitterMainGeometry";
QByteArray const splitterMainGeometryDefault;
QByteArray Settings::splitterMainGeometry() { return read(splitterMainGeometryKey, splitterMainGeometryDefault, product); }
void Settings::setSplitterMainGeometry(QByteArray const& value) { write(splitterMainGeometryKey, value, product); }

std::string const splitterMainStateKey = "splitterMainState";
QByteArray const splitterMainStateDefault;
QByteArray Settings::splitterMainState() { return read(splitterMainStateKey, splitterMainStateDefault, product); }
void Settings::setSplitterMainState(QByteArray const& value) { write(splitterMainStateKey, value, product); }

std::string const splitterTopPanelGeometryKey = "splitterTopPanelGeometry";
QByteArray const splitterTopPanelGeometryDefault;
QByteArray Settings::splitterTopPanelGeometry() { return read(splitterTopPanelGeometryKey, splitterTopPanelGeometryDefault, product); }
void Settings::setSplitterTopPanelGeometry(QByteArray const& value) { write(splitterTopPanelGeometryKey, value, product); }

std::string const splitterTopPanelStateKey = "splitterTopPanelState";
QByteArray const splitterTopPanelStateDefault;
QByteArray Settings::splitterTopPanelState() { return read(splitterTopPanelStateKey, splitterTopPanelStateDefault, product); }
void Settings::setSplitterTopPanelState(QByteArray const& value) { write(splitterTopPanelStateKey, value, product); }

std::string const audioRecordPathKey = "audioRecordPath";
QString const audioRecordPathDefault;
QString Settings::audioRecordPath() { return read(audioRecordPathKey, defaultAudioRecordPath(), product); }
void Settings::setAudioRecordPath(QString const& value) { write(audioRecordPathKey, value, product); }

std::string const audioRecordFormatKey = "audioRecordFormat";
std::string const audioRecordFormatDefault = Lumora::Conf::IFormatFile::FORMAT_WAV;
std::string Settings::audioRecordFormat() { return read(audioRecordFormatKey, audioRecordFormatDefault, product); }
void Settings::setAudioRecordFormat(std::string const& value) { write(audioRecordFormatKey, value, product); }

std::string const audioRecordCodecKey = "audioRecordCodec";
std::string const audioRecordCodecDefault = Lumora::Conf::IFormatCodecAudio::CODEC_ID_PCM_S16LE;
std::string Settings::audioRecordCodec() { return read(audioRecordCodecKey, audioRecordCodecDefault, product); }
void Settings::setAudioRecordCodec(std::string const& value) { write(audioRecordCodecKey, value, product); }

std::string const downloadableResourcesPathKey = "downloadableResourcesPath";
QString const downloadableResourcesPathDefault;
QString Settings::downloadableResourcesPath() { return read(downloadableResourcesPathKey, defaultDownloadableResourcesPath(), product); }
void Settings::setDownloadableResourcesPath(QString const& value) { write(downloadableResourcesPathKey, value, product); }

std::string const stabilizedFilePathKey = "stabilizedFilePath";
QString const stabilizedFilePathDefault;
QString Settings::stabilizedFilePath() { return read(stabilizedFilePathKey, defaultStabilizedFilePath(), product); }
void Settings::setStabilizedFilePath(QString const& value) { write(stabilizedFilePathKey, value, product); }

// Reserved: no function uses it, and the caller names the format of a stabilized clip.
std::string const stabilizedFileFormatKey = "stabilizedFileFormat";
std::string const stabilizedFileFormatDefault = Lumora::Conf::IFormatFile::FORMAT_MP4;

// Hosts link against the setter's small "f".
std::string const freezedFileFormatKey = "freezedFileFormat";
std::string const freezedFileFormatDefault = Lumora::Conf::IFormatFile::FORMAT_PNG;
std::string Settings::freezedFileFormat() { return read(freezedFileFormatKey, freezedFileFormatDefault, product); }
void Settings::setfreezedFileFormat(std::string const& value) { write(freezedFileFormatKey, value, product); }

std::string const notificationsEnabledKey = "notificationsEnabled";
bool const notificationsEnabledDefault = true;
bool Settings::notificationsEnabled() { return read(notificationsEnabledKey, notificationsEnabledDefault, product); }
void Settings::setNotificationsEnabled(bool const& value) { write(notificationsEnabledKey, value, product); }

std::string const useGuideLinesKey = "useGuideLines";
bool const useGuideLinesDefault = true;
bool Settings::useGuideLines() { return read(useGuideLinesKey, useGuideLinesDefault, product); }
void Settings::setUseGuideLines(bool const& value) { write(useGuideLinesKey, value, product); }

std::string const acquaintedWithFastTrackKey = "acquaintedWithFastTrack";
bool const acquaintedWithFastTrackDefault = false;
bool Settings::acquaintedWithFastTrack() { return read(acquaintedWithFastTrackKey, acquaintedWithFastTrackDefault, product); }
void Settings::setAcquaintedWithFastTrack(bool const& value) { write(acquaintedWithFastTrackKey, value, product); }

std::string const fastTrackEnabledKey = "fastTrackEnabled";
bool const fastTrackEnabledDefault = true;
bool Settings::fastTrackEnabled() { return read(fastTrackEnabledKey, fastTrackEnabledDefault, product); }
void Settings::setFastTrackEnabled(bool const& value) { write(fastTrackEnabledKey, value, product); }

std::string const useFilmstripPreviewKey = "useFilmstripPreview";
bool const useFilmstripPreviewDefault = true;
bool Settings::useFilmstripPreview() { return read(useFilmstripPreviewKey, useFilmstripPreviewDefault, product); }
void Settings::setUseFilmstripPreview(bool const& value) { write(useFilmstripPreviewKey, value, product); }

std::string const fastTrackContentPathKey = "fastTrackContentPath";
QString const fastTrackContentPathDefault;
QString Settings::fastTrackContentPath() { return read(fastTrackContentPathKey, defaultFastTrackContentPath(), product); }
void Settings::setFastTrackContentPath(QString const& value) { write(fastTrackContentPathKey, value, product); }

std::string const waveformCachePathKey = "waveformCachePath";
QString const waveformCachePathDefault;
QString Settings::waveformCachePath() { return read(waveformCachePathKey, defaultWaveformCachePath(), product); }
void Settings::setWaveformCachePath(QString const& value) { write(waveformCachePathKey, value, product); }

std::string const newsCenterContentPathKey = "newsCenterContentPath";
QString const newsCenterContentPathDefault;
QString Settings::newsCenterContentPath() { return read(newsCenterContentPathKey, defaultNewsCenterContentPath(), product); }
void Settings::setNewsCenterContentPath(QString const& value) { write(newsCenterContentPathKey, value, product); }

std::string const quizExportUserIdKey = "quizExportUserId";
QString const quizExportUserIdDefault;
QString Settings::quizExportUserId() { return read(quizExportUserIdKey, quizExportUserIdDefault, product); }
void Settings::setQuizExportUserId(QString const& value) { write(quizExportUserIdKey, value, product); }

std::string const quizAgreementCheckedKey = "quizAgreementChecked";
bool const quizAgreementCheckedDefault = false;
bool Settings::quizAgreementChecked() { return read(quizAgreementCheckedKey, quizAgreementCheckedDefault, product); }
void Settings::setQuizAgreementChecked(bool const& value) { write(quizAgreementCheckedKey, value, product); }

std::string const bundleShadowCachePathKey = "bundleShadowCachePath";
QString const bundleShadowCachePathDefault;
QString Settings::bundleShadowCachePath() { return read(bundleShadowCachePathKey, defaultBundleShadowCachePath(), product); }
void Settings::setBundleShadowCachePath(QString const& value) { write(bundleShadowCachePathKey, value, product); }

std::string const downloaderCachePathKey = "downloaderCachePath";
QString const downloaderCachePathDefault;
QString Settings::downloaderCachePath() { return read(downloaderCachePathKey, defaultDownloaderCachePath(), product); }
void Settings::setDownloaderCachePath(QString const& value) { write(downloaderCachePathKey, value, product); }

std::string const packInAppCachePathKey = "packInAppCachePath";
QString const packInAppCachePathDefault;
QString Settings::packInAppCachePath() { return read(packInAppCachePathKey, defaultPackInAppCachePath(), product); }
void Settings::setPackInAppCachePath(QString const& value) { write(packInAppCachePathKey, value, product); }

std::string const snapshotPathKey = "snapshotPath";
QString const snapshotPathDefault;
QString Settings::snapshotPath() { return read(snapshotPathKey, defaultLumoraLibraryPath(), product); }
void Settings::setSnapshotPath(QString const& value) { write(snapshotPathKey, value, product); }

// Hosts link against the capitals in the names of the survey's setters.
std::string const npsReadyNotificationCountKey = "npsReadyNotificationCount";
int const npsReadyNotificationCountDefault = -1;
int Settings::npsReadyNotificationCount() { return read(npsReadyNotificationCountKey, npsReadyNotificationCountDefault, product); }
void Settings::setNPSReadyNotificationCount(int const& value) { write(npsReadyNotificationCountKey, value, product); }

std::string const npsStartExportCountKey = "npsStartExportCount";
int const npsStartExportCountDefault = 0;
int Settings::npsStartExportCount() { return read(npsStartExportCountKey, npsStartExportCountDefault, product); }
void Settings::setNPSStartExportCount(int const& value) { write(npsStartExportCountKey, value, product); }

std::string const npsSendCountKey = "npsSendCount";
int const npsSendCountDefault = 0;
int Settings::npsSendCount() { return read(npsSendCountKey, npsSendCountDefault, product); }
void Settings::setNPSSendCount(int const& value) { write(npsSendCountKey, value, product); }

std::string const npsValueToSendKey = "npsValueToSend";
int const npsValueToSendDefault = -1;
int Settings::npsValueToSend() { return read(npsValueToSendKey, npsValueToSendDefault, product); }
void Settings::setNPSValueToSend(int const& value) { write(npsValueToSendKey, value, product); }

std::string const npsCommentToSendKey = "npsCommentToSend";
QString const npsCommentToSendDefault;
QString Settings::npsCommentToSend() { return read(npsCommentToSendKey, npsCommentToSendDefault, product); }
void Settings::setNPSCommentToSend(QString const& value) { write(npsCommentToSendKey, value, product); }

std::string const npsEmailToSendKey = "npsEmailToSend";
QString const npsEmailToSendDefault;
QString Settings::npsEmailToSend() { return read(npsEmailToSendKey, npsEmailToSendDefault, product); }
void Settings::setNPSEmailToSend(QString const& value) { write(npsEmailToSendKey, value, product); }

// --- Composite settings ----------------------------------------------------------------------------------------------
//
// Lists, the updater's preference, and keys that contain a caller's name unescaped.

namespace {

// The updater's own key. Unlike autoUpdate it defaults to false: a download needs the user's consent.
constexpr char const* autoDownloadUpdatesKey = "SUAutomaticallyUpdate";
constexpr bool autoDownloadUpdatesDefault = false;

std::string indicationKey(QString const& name) { return QStringLiteral("Indication/%1").arg(name).toStdString(); }

std::string favoritesKey(QString const& name) { return QStringLiteral("favorites_%1").arg(name).toStdString(); }

// The target history of a product of kind 1, which never reaches a store.
std::string usedOutputDirectories;

bool productIsOfKindOne() { return productInfo()->productKind() == 1; }

} // namespace

std::string const achievedTutorialsKey = "achievedTutorials";
QStringList const achievedTutorialsDefault;
QStringList Settings::achievedTutorials() { return read(achievedTutorialsKey, achievedTutorialsDefault, product); }
void Settings::setAchievedTutorials(QStringList const& tutorials) { write(achievedTutorialsKey, tutorials, product); }

std::string const userCustomColorsKey = "userCustomColors";
QStringList const userCustomColorsDefault;
QStringList Settings::userCustomColors() { return read(userCustomColorsKey, userCustomColorsDefault, product); }
void Settings::setUserCustomColors(QStringList const& colors) { write(userCustomColorsKey, colors, product); }

bool Settings::autoDownloadUpdates() { return read(autoDownloadUpdatesKey, autoDownloadUpdatesDefault, common); }
void Settings::setAutoDownloadUpdates(bool enabled) { write(autoDownloadUpdatesKey, enabled, common); }

QByteArray Settings::indicationObject(QString name) { return read(indicationKey(name), QByteArray(), product); }
void Settings::setIndicationObject(QString name, QByteArray const& data) { write(indicationKey(name), data, product); }

// Without a setter: the part of the editor that shows the lists writes them.
QStringList Settings::favoriteItems(QString name) { return read(favoritesKey(name), QStringList(), product); }

std::string const targetHistoryKey = "targetHistory";
std::string const targetHistoryDefault;
std::string Settings::targetHistory()
{
    return productIsOfKindOne() ? usedOutputDirectories : read(targetHistoryKey, targetHistoryDefault, product);
}
void Settings::setTargetHistory(std::string const& history)
{
    if (productIsOfKindOne())
        usedOutputDirectories = history;
    else
        write(targetHistoryKey, history, product);
}

int const Settings::targetHistoryLength = 10;

// --- Folder names ----------------------------------------------------------------------------------------------------

std::string const Settings::lumoraLibrary = "Lumora Library";
QString const Settings::projectDirectory = QLatin1String("Projects");
QString const Settings::audioRecordDirectory = QLatin1String("Recorded Audio");
QString const Settings::resourcesDirectory = QLatin1String("Media Content");
QString const Settings::stabilizedFileDirectory = QLatin1String("Stabilized");
QString const Settings::fastTrackContentDirectory = QLatin1String("Preview Files");
QString const Settings::waveformCacheDirectory = QLatin1String("Cache");
QString const Settings::newsCenterContentDirectory = QLatin1String("News Center");
QString const Settings::bundleShadowCacheDirectory = QLatin1String("Bundle Shadow Copy");
QString const Settings::downloaderCacheDirectory = QLatin1String("Downloader Cache");
QString const Settings::packInAppCacheDirectory = QLatin1String("PackInApp Cache");
QFont const Settings::countDownFont(QLatin1String("Verdana"), 60, -1, false);
QString const Settings::countDownPadImage = QLatin1String(":/icons/Player/countdownPad.png");
// Hosts link against the misspelt name.
QString const Settings::packageExtenstion = QLatin1String("mpack");
QString const Settings::waveformExtension = QLatin1String("blob");

// --- Roots -----------------------------------------------------------------------------------------------------------
//
// Hosts compare paths as text, so two forms stay apart: folders for the user come from the editor's GetStandardPath and
// are cleaned and native; data roots come from Qt and keep doubled separators.

namespace {

QString vendorName() { return QString::fromStdString(productInfo()->vendorName()); }

QString sharedDataFolderName() { return QString::fromStdString(productInfo()->sharedDataFolderName()); }

// One question at most beside "%": compilers differ in the order in which they evaluate its operands.
QString vendorDataPath()
{
    QString const root = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    return root % QDir::separator() % vendorName();
}

QString sharedDataPath()
{
    QString const path = vendorDataPath();
    return path % QLatin1String("/SharedData/") % sharedDataFolderName();
}

} // namespace

QString makeDefaultPath(QStandardPaths::StandardLocation location, QString folder)
{
    QString const base = Lumora::Util::GetStandardPath(location);
    QString const path = base % QDir::separator() % Configuration::productDataFolder % QDir::separator() % folder;
    return QDir::toNativeSeparators(QDir::cleanPath(path));
}

QString productDataPath()
{
    QString const path = vendorDataPath();
    return path % QDir::separator() % nonLocalizedProductName();
}

QString nonLocalizedProductName() { return QString::fromStdString(productInfo()->productName()); }

QString Settings::defaultLumoraLibraryPath()
{
    QString const name = productIsOfKindOne() ? Configuration::productDataFolder : QString::fromStdString(lumoraLibrary);
    return QDir::toNativeSeparators(QDir::cleanPath(Lumora::Util::GetLumoraLibraryPath(name)));
}

// --- Default folders -------------------------------------------------------------------------------------------------

QString Settings::defaultProjectPath() { return makeDefaultPath(QStandardPaths::MoviesLocation, projectDirectory); }
QString Settings::defaultAudioRecordPath() { return makeDefaultPath(QStandardPaths::MusicLocation, audioRecordDirectory); }
QString Settings::defaultStabilizedFilePath() { return makeDefaultPath(QStandardPaths::MoviesLocation, stabilizedFileDirectory); }
QString Settings::defaultFastTrackContentPath() { return makeDefaultPath(QStandardPaths::MoviesLocation, fastTrackContentDirectory); }
QString Settings::defaultDownloadableResourcesPath() { return makeDefaultPath(QStandardPaths::MoviesLocation, resourcesDirectory); }
QString Settings::defaultNewsCenterContentPath() { return makeDefaultPath(QStandardPaths::CacheLocation, newsCenterContentDirectory); }
QString Settings::defaultBundleShadowCachePath() { return makeDefaultPath(QStandardPaths::CacheLocation, bundleShadowCacheDirectory); }
QString Settings::defaultDownloaderCachePath() { return makeDefaultPath(QStandardPaths::CacheLocation, downloaderCacheDirectory); }
QString Settings::defaultPackInAppCachePath() { return makeDefaultPath(QStandardPaths::CacheLocation, packInAppCacheDirectory); }
QString Settings::defaultWaveformCachePath() { return sharedDataPath() % QLatin1String("/Waveforms/") % waveformCacheDirectory; }

// --- Stock content and resources -------------------------------------------------------------------------------------
//
// Three forms stay apart, too: a resource file is joined, made absolute and narrow; a stock folder is concatenated, with a
// doubled separator inside and one at its end; the caller joins a fragment.

std::string const presetFilePath = "presets-videoeditor.json";
// Reserved: no function reads it.
std::string const userPresetFilePath = "customPresets.json";
std::string const transitionPreviewFileAPath = "resources/samples/transitionPreview1.png";
std::string const transitionPreviewFileBPath = "resources/samples/transitionPreview2.png";
std::string const titlePreviewFilePath = "resources/samples/titlePreview.png";
std::string const calloutPreviewFilePath = "resources/samples/calloutPreview.png";
std::string const quizPreviewFilePath = "resources/samples/quizPreview.png";
std::string const effectPreviewFilePath = "resources/samples/effectPreview.png";
// The file's name differs from its function's: it shows the audio player.
std::string const audioPreviewFilePath = "resources/samples/audioPlayerPreview.png";
std::string const panZoomPreviewFilePath = "resources/samples/panZoomPreview.png";
std::string const animationBackgroundPreviewFilePath = "resources/samples/animationBackgroundPreview.png";
std::string const animationIconPreviewFilePath = "resources/samples/animationIconPreview.png";
std::string const colorFilterPreviewFilePath = "resources/samples/colorFilterPreview.png";

namespace {

// Decoded up to the first NUL, as Qt searches a folder whose path contains one without end.
QString resourcesRoot() { return QString::fromUtf8(s_instance.resourcesRoot.utf8string().c_str()); }

QString stockPath(QLatin1String folder) { return resourcesRoot() % QLatin1String("/resources/samples/stock/") % folder; }

} // namespace

std::string resourceFile(std::string const& relative)
{
    Lumora::ioPath path = s_instance.resourcesRoot;
    path /= Lumora::ioPath(relative);
    path.make_preferred();
    return path.absolute_path().utf8string();
}

std::string Settings::presetFilePath() { return resourceFile(::presetFilePath); }
std::string Settings::transitionPreviewImageAPath() { return resourceFile(transitionPreviewFileAPath); }
std::string Settings::transitionPreviewImageBPath() { return resourceFile(transitionPreviewFileBPath); }
std::string Settings::titlePreviewImagePath() { return resourceFile(titlePreviewFilePath); }
std::string Settings::calloutPreviewImagePath() { return resourceFile(calloutPreviewFilePath); }
std::string Settings::quizPreviewImagePath() { return resourceFile(quizPreviewFilePath); }
std::string Settings::effectPreviewImagePath() { return resourceFile(effectPreviewFilePath); }
std::string Settings::audioPreviewImagePath() { return resourceFile(audioPreviewFilePath); }
std::string Settings::panZoomPreviewImagePath() { return resourceFile(panZoomPreviewFilePath); }
std::string Settings::animationBackgroundPreviewImagePath() { return resourceFile(animationBackgroundPreviewFilePath); }
std::string Settings::animationIconPreviewImagePath() { return resourceFile(animationIconPreviewFilePath); }
std::string Settings::colorFilterPreviewImagePath() { return resourceFile(colorFilterPreviewFilePath); }

QString Settings::stockTitlesSvgPath() { return stockPath(QLatin1String("/titles/")); }
QString Settings::stockCalloutsSvgPath() { return stockPath(QLatin1String("/callouts/")); }
QString Settings::stockStickersSvgPath() { return stockPath(QLatin1String("/stickers/")); }
QString Settings::stockImportsPath() { return stockPath(QLatin1String("/imports/")); }
QString Settings::stockAudioEffectsPath() { return stockPath(QLatin1String("/audioEffects/")); }
QString Settings::stockVideoEffectsPath() { return stockPath(QLatin1String("/videoEffects/")); }
QString Settings::stockPipEffectsPath() { return stockPath(QLatin1String("/pipEffects/")); }
QString Settings::stockColorFiltersPath() { return stockPath(QLatin1String("/colorFilters/")); }
QString Settings::stockTransitionsPath() { return stockPath(QLatin1String("/transitions/")); }
QString Settings::stockAnimationsPath() { return stockPath(QLatin1String("/animations/")); }
QString Settings::stockPanAndZoomPath() { return stockPath(QLatin1String("/panandzoom/")); }
QString Settings::stockContentPackagesPath() { return stockPath(QLatin1String("/packages/Content/")); }
QString Settings::stockServicePackagesPath() { return stockPath(QLatin1String("/packages/Service/")); }
QString Settings::stockWizardPackagesPath() { return stockPath(QLatin1String("/packages/Wizard/")); }
QString Settings::stockThemesPath() { return stockPath(QLatin1String("/themes/")); }
QString Settings::stockWizardBackgroundsPath() { return stockPath(QLatin1String("/wizardBackgrounds/")); }
QString Settings::blurMasksPath() { return stockPath(QLatin1String("/blurMasks/")); }
QString Settings::flyingObjectsPath() { return stockPath(QLatin1String("/flyingObjects/")); }

QString Settings::stockMusicPath() { return QLatin1String("/Music Library/"); }
QString Settings::stockAudioPath() { return QLatin1String("/Audio/"); }
QString Settings::stockVideoPath() { return QLatin1String("/Video/"); }
QString Settings::stockBackgroundsPath() { return QLatin1String("/Backgrounds/"); }

// --- User content, notifications and configuration -------------------------------------------------------------------
//
// Concatenated and not cleaned, but for the two Unsplash folders.

namespace {

// Seven characters. Hosts rely on the backslash and the asterisk, which stay.
QString sanitized(QString fileName)
{
    auto const isReplaced = [](QChar character) {
        return std::u16string_view(u"/:?\"<>|").find(character.unicode()) != std::u16string_view::npos;
    };
    std::replace_if(fileName.begin(), fileName.end(), isReplaced, QLatin1Char('_'));
    return fileName;
}

QString productFolder(QLatin1String folder)
{
    return QDir::toNativeSeparators(QDir::cleanPath(productDataPath() % QDir::separator() % folder));
}

} // namespace

// Hosts rely on the name, intros, and on the folder, imports.
QString Settings::userIntrosPath() { return sharedDataPath() % QLatin1String("/UserImports/"); }
QString Settings::userOverlaysPath() { return sharedDataPath() % QLatin1String("/UserOverlays/"); }
QString Settings::userEffectsPath(std::string const& name)
{
    QString const folder = sharedDataPath(); // the product information may change the name
    return folder % QLatin1String("/UserEffects/") % sanitized(QString::fromStdString(name)) % QDir::separator();
}
QString Settings::userUnsplashPath() { return productFolder(QLatin1String("Unsplash/SavedCollection")); }
QString Settings::unsplashContentPath() { return productFolder(QLatin1String("Unsplash/Content")); }

// All editors of the vendor share these three, so the folder is "VideoEditor" for each product.
QString Settings::packageDeploymentPath() { return vendorDataPath() % QLatin1String("/SharedData/VideoEditor/Packages/"); }
QString Settings::fastTrackConfigurationPath() { return vendorDataPath() % QLatin1String("/SharedData/VideoEditor/FastTrack/"); }
QString Settings::waveformConfigurationPath()
{
    return vendorDataPath() % QLatin1String("/SharedData/VideoEditor/Waveforms/Configuration/");
}

QString Settings::stockPackagesStatisticsPath() { return productDataPath() % QLatin1String("/StockPackagesStats/"); }
// The statistics of deployed packages lie beside the packages.
QString Settings::deployedPackagesStatisticsPath() { return packageDeploymentPath(); }

QString Settings::notificationFile(Notifications kind)
{
    QString const folder = resourcesRoot() % QLatin1String("/resources/samples/notifications/");
    switch (kind) {
    case FinishNotification:
        return folder % QLatin1String("finish.wav");
    case ErrorNotification:
        return folder % QLatin1String("error.wav");
    }
    return folder; // a sound that this version does not know
}

QString Settings::countDownImagePath() { return countDownPadImage; }
QFont Settings::countFiguresDownFont() { return countDownFont; }
QString Settings::portableProjectMediaPath() { return QLatin1String("/media/"); }

// --- Generated file names --------------------------------------------------------------------------------------------
//
// The number after the highest in the folder. What is escaped, in what case a name is compared and how often the folder
// setting is read differs between the three on purpose: files that users have keep the numbers they count as.

namespace {

// After the largest number comes the smallest.
int following(int number) { return static_cast<int>(static_cast<unsigned>(number) + 1); }

// Whether a pattern of this text matches the text and nothing else.
bool isLiteral(QString const& text) { return RunningNumber::escaped(text) == text; }

QString joined(QString const& folder, QString const& name) { return QStringList{folder, name}.join(QDir::separator()); }

} // namespace

QString Settings::generateAudioRecordFilePath()
{
    RunningNumber::Layout const names{QLatin1String("Rec-*-*-*.*"), QLatin1String("Rec-"), QLatin1String("-")};
    int const highest = RunningNumber::highest(audioRecordPath(), names);
    QString const number = QString::number(following(highest));
    // In the digits of the system's locale, for which QDateTime::toString takes those of C with Qt 6.
    QString const timestamp = QLocale::system().toString(QDateTime::currentDateTime(), QStringLiteral("yyyy.MM.dd-HH.mm.ss"));
    QString const extension = QString::fromStdString(audioRecordFormat()).toLower();
    // The folder is asked for again: a host may have changed it meanwhile, and the recording belongs into the new one.
    return joined(audioRecordPath(), QStringLiteral("Rec-%1-%2.%3").arg(number, timestamp, extension));
}

QString Settings::generateFreezedFilePath(QString sourceFilePath)
{
    QString const stem = QFileInfo(sourceFilePath).completeBaseName();
    QString const format = QString::fromStdString(freezedFileFormat());
    QString const folder = exportPath();
    RunningNumber::Layout names{QLatin1String("*.") + format, stem + QLatin1String(" ("), QLatin1String(").") + format, stem};
    // One pass for each argument, so a placeholder that the stem brings in is filled as well.
    if (stem.contains(QLatin1Char('%')) || !isLiteral(format))
        names.pattern = QStringLiteral("%1 \\((\\d+)\\)\\.%2").arg(RunningNumber::escaped(stem)).arg(format); // clazy:exclude=qstring-arg
    qlonglong const number = following(RunningNumber::highest(folder, names));
    return joined(folder, QStringLiteral("%1 (%2).%3").arg(stem).arg(number).arg(format));
}

QString Settings::generateStabilizedFilePath(QString sourceFilePath, QString fileFormat)
{
    // Up to the first dot, and with its wildcards and pattern characters at work.
    QString const stem = QFileInfo(sourceFilePath).baseName();
    RunningNumber::Layout names{stem + QLatin1String("-*.*"), stem + QLatin1Char('-')};
    if (!isLiteral(stem))
        names.pattern = stem + QLatin1String("-(\\d+).*");
    int const highest = RunningNumber::highest(stabilizedFilePath(), names);
    QString const number = QString::number(following(highest));
    // Asked for again, as for recordings.
    return joined(stabilizedFilePath(), QStringLiteral("%1-%2.%3").arg(stem, number, fileFormat));
}

// --- Project files ---------------------------------------------------------------------------------------------------

QString Settings::projectNameDefault() { return QObject::tr("New Project"); }

QStringList Settings::supportedProjectFileExtensions()
{
    return QString::fromStdString(productInfo()->projectFileExtensions()).split(QLatin1Char(','), Qt::SkipEmptyParts);
}

QString Settings::projectFileExtension() { return supportedProjectFileExtensions().value(0, QLatin1String("")); } // empty, not null
QString Settings::projectFileSaveFilter() { return QLatin1String("*.") + projectFileExtension(); }
QString Settings::projectFileOpenFilter() { return QLatin1String("*.") + supportedProjectFileExtensions().join(QLatin1String(" *.")); }

QString stockSampleProjectsPath() { return stockPath(QLatin1String("projects")); }

QString Settings::sampleProjectPath()
{
    QString const folder = stockSampleProjectsPath();
    QStringList const filters = projectFileOpenFilter().split(QLatin1Char(' '), Qt::KeepEmptyParts);
    QDirIterator samples(folder, filters, QDir::Files | QDir::NoSymLinks, QDirIterator::Subdirectories);
    return samples.hasNext() ? samples.next() : QString();
}

// --- The objects that are constructed last -----------------------------------------------------------------------------

namespace {

QString const listSeparator = QLatin1String("|#|");

} // namespace

SettingsContext s_instance;
