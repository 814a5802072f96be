// SPDX-License-Identifier: MIT
#include <Catalogue/Catalogue.h>

#include <Lumora/Conf/Formats.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cxxabi.h>
#include <utility>

#include <dlfcn.h>

namespace Catalogue {

namespace {

// T is deduced from both addresses, so a getter and a setter of different types do not compile.
template <typename T>
Preference preference(char const* name, char const* purpose, Store store, DataClass dataClass, T (*get)(), void (*set)(T const&),
                      Usable usable = {})
{
    return {name, purpose, store, dataClass, Accessors<T>{get, set}, nullptr, std::move(usable)};
}

Preference preference(char const* name, char const* purpose, Store store, DataClass dataClass, QString (*get)(),
                      void (*set)(QString const&), QString (*computedDefault)())
{
    return {name, purpose, store, dataClass, Accessors<QString>{get, set}, computedDefault, {true}};
}

template <typename T>
Preference preference(char const* name, char const* purpose, Store store, DataClass dataClass, T (*get)(), void (*set)(T))
{
    return {name, purpose, store, dataClass, Accessors<T>{get, set}};
}

template <typename T>
Family family(char const* name, char const* purpose, Store store, DataClass dataClass, T (*get)(QString),
              void (*set)(QString, T const&) = nullptr)
{
    return {name, purpose, store, dataClass, KeyedAccessors<T>{get, set}};
}

Usable const anyFolder = {true};

// The name without parameters and ABI tag; empty for a null pointer, which neither function knows.
std::string nameAt(void const* function)
{
    Dl_info info = {};
    ::dladdr(function, &info);
    char* const demangled = abi::__cxa_demangle(info.dli_sname, nullptr, nullptr, nullptr);
    std::string const name = demangled ? demangled : "";
    std::free(demangled);
    return name.substr(0, name.find_first_of("[("));
}

template <typename Function>
std::string functionName(Function* function)
{
    return nameAt(reinterpret_cast<void*>(function));
}

} // namespace

// clang-format off
std::vector<Preference> const& preferences()
{
    static std::vector<Preference> const rows = {
        preference("exportPath", "Folder of exported films", Store::product, DataClass::local, &Settings::exportPath, &Settings::setExportPath, &Settings::defaultLumoraLibraryPath),
        preference("projectPath", "Folder of saved projects", Store::product, DataClass::local, &Settings::projectPath, &Settings::setProjectPath, &Settings::defaultProjectPath),
        preference("lastAddMediaPath", "Folder last used to add media of any type", Store::product, DataClass::personal, &Settings::lastAddMediaPath, &Settings::setLastAddMediaPath, anyFolder),
        preference("lastAddVideoPath", "Folder last used to add a video", Store::product, DataClass::personal, &Settings::lastAddVideoPath, &Settings::setLastAddVideoPath, anyFolder),
        preference("lastAddImagePath", "Folder last used to add an image", Store::product, DataClass::personal, &Settings::lastAddImagePath, &Settings::setLastAddImagePath, anyFolder),
        preference("lastAddAudioPath", "Folder last used to add audio", Store::product, DataClass::personal, &Settings::lastAddAudioPath, &Settings::setLastAddAudioPath, anyFolder),
        preference("lastAddDirectoryPath", "Folder last added whole", Store::product, DataClass::personal, &Settings::lastAddDirectoryPath, &Settings::setLastAddDirectoryPath, anyFolder),
        preference("lastAddImageDirectoryPath", "Folder of images last added whole", Store::product, DataClass::personal, &Settings::lastAddImageDirectoryPath, &Settings::setLastAddImageDirectoryPath, anyFolder),
        preference("lastTarget", "Export target last used", Store::product, DataClass::transient, &Settings::lastTarget, &Settings::setLastTarget),
        preference("openOutputAfterExport", "Whether an exported film is opened when it is done", Store::product, DataClass::roaming, &Settings::openOutputAfterExport, &Settings::setOpenOutputAfterExport),
        preference("openLinkAfterUpload", "Whether the page of an uploaded film is opened when it is done", Store::product, DataClass::roaming, &Settings::openLinkAfterUpload, &Settings::setOpenLinkAfterUpload),
        preference("lastUsedPresetGroup", "Group of the export preset last used", Store::product, DataClass::transient, &Settings::lastUsedPresetGroup, &Settings::setLastUsedPresetGroup),
        preference("lastUsedPresetId", "Export preset last used", Store::product, DataClass::transient, &Settings::lastUsedPresetId, &Settings::setLastUsedPresetId),
        preference("dontShowStartDialog", "Whether the start dialog is left out", Store::product, DataClass::roaming, &Settings::dontShowStartDialog, &Settings::setDontShowStartDialog),
        preference("keepVideoAspect", "Whether a video keeps its aspect ratio when it is resized", Store::product, DataClass::roaming, &Settings::keepVideoAspect, &Settings::setKeepVideoAspect),
        preference("autoUpdate", "Whether updates are looked for", Store::common, DataClass::local, &Settings::autoUpdate, &Settings::setCheckForUpdates),
        preference("sendStatistics", "Whether usage statistics may be sent", Store::common, DataClass::roaming, &Settings::sendStatistics, &Settings::setSendStatistics),
        preference("recentProjects", "Recently used projects, in a form that the host chooses", Store::product, DataClass::personal, &Settings::recentProjects, &Settings::setRecentProjects),
        preference("recentProjectPreviews", "Previews of the recent projects, in a form that the host chooses", Store::product, DataClass::personal, &Settings::recentProjectPreviews, &Settings::setRecentProjectPreviews),
        preference("mainWindowGeometry", "Geometry of the main window, as Qt saves it", Store::product, DataClass::local, &Settings::mainWindowGeometry, &Settings::setMainWindowGeometry),
        preference("mainWindowState", "State of the main window's bars and docks, as Qt saves it", Store::product, DataClass::local, &Settings::mainWindowState, &Settings::setMainWindowState),
        preference("splitterMainGeometry", "Geometry of the main splitter", Store::product, DataClass::local, &Settings::splitterMainGeometry, &Settings::setSplitterMainGeometry),
        preference("splitterMainState", "State of the main splitter", Store::product, DataClass::local, &Settings::splitterMainState, &Settings::setSplitterMainState),
        preference("splitterTopPanelGeometry", "Geometry of the top panel's splitter", Store::product, DataClass::local, &Settings::splitterTopPanelGeometry, &Settings::setSplitterTopPanelGeometry),
        preference("splitterTopPanelState", "State of the top panel's splitter", Store::product, DataClass::local, &Settings::splitterTopPanelState, &Settings::setSplitterTopPanelState),
        preference("audioRecordPath", "Folder of audio recordings", Store::product, DataClass::local, &Settings::audioRecordPath, &Settings::setAudioRecordPath, &Settings::defaultAudioRecordPath),
        preference("audioRecordFormat", "File format of audio recordings", Store::product, DataClass::roaming, &Settings::audioRecordFormat, &Settings::setAudioRecordFormat, {false, {Lumora::Conf::IFormatFile::FORMAT_WAV}}),
        preference("audioRecordCodec", "Codec of audio recordings", Store::product, DataClass::roaming, &Settings::audioRecordCodec, &Settings::setAudioRecordCodec, {false, {Lumora::Conf::IFormatCodecAudio::CODEC_ID_PCM_S16LE}}),
        preference("downloadableResourcesPath", "Folder of downloaded media", Store::product, DataClass::local, &Settings::downloadableResourcesPath, &Settings::setDownloadableResourcesPath, &Settings::defaultDownloadableResourcesPath),
        preference("stabilizedFilePath", "Folder of stabilized clips", Store::product, DataClass::local, &Settings::stabilizedFilePath, &Settings::setStabilizedFilePath, &Settings::defaultStabilizedFilePath),
        preference("freezedFileFormat", "File format of freeze frames", Store::product, DataClass::roaming, &Settings::freezedFileFormat, &Settings::setfreezedFileFormat, {false, {Lumora::Conf::IFormatFile::FORMAT_PNG}}),
        preference("notificationsEnabled", "Whether notifications are shown", Store::product, DataClass::roaming, &Settings::notificationsEnabled, &Settings::setNotificationsEnabled),
        preference("useGuideLines", "Whether guide lines are shown", Store::product, DataClass::roaming, &Settings::useGuideLines, &Settings::setUseGuideLines),
        preference("acquaintedWithFastTrack", "Whether the user has met the fast track", Store::product, DataClass::roaming, &Settings::acquaintedWithFastTrack, &Settings::setAcquaintedWithFastTrack),
        preference("fastTrackEnabled", "Whether the fast track is on", Store::product, DataClass::roaming, &Settings::fastTrackEnabled, &Settings::setFastTrackEnabled),
        preference("useFilmstripPreview", "Whether clips are previewed as filmstrips", Store::product, DataClass::roaming, &Settings::useFilmstripPreview, &Settings::setUseFilmstripPreview),
        preference("fastTrackContentPath", "Folder of the fast track's preview files", Store::product, DataClass::local, &Settings::fastTrackContentPath, &Settings::setFastTrackContentPath, &Settings::defaultFastTrackContentPath),
        preference("waveformCachePath", "Folder of cached waveforms", Store::product, DataClass::local, &Settings::waveformCachePath, &Settings::setWaveformCachePath, &Settings::defaultWaveformCachePath),
        preference("newsCenterContentPath", "Folder of the news centre's content", Store::product, DataClass::local, &Settings::newsCenterContentPath, &Settings::setNewsCenterContentPath, &Settings::defaultNewsCenterContentPath),
        preference("quizExportUserId", "Who the user is to the quiz export", Store::product, DataClass::personal, &Settings::quizExportUserId, &Settings::setQuizExportUserId),
        preference("quizAgreementChecked", "Whether the quiz agreement is accepted", Store::product, DataClass::personal, &Settings::quizAgreementChecked, &Settings::setQuizAgreementChecked),
        preference("bundleShadowCachePath", "Folder of shadow copies of bundles", Store::product, DataClass::local, &Settings::bundleShadowCachePath, &Settings::setBundleShadowCachePath, &Settings::defaultBundleShadowCachePath),
        preference("downloaderCachePath", "Folder of the downloader's cache", Store::product, DataClass::local, &Settings::downloaderCachePath, &Settings::setDownloaderCachePath, &Settings::defaultDownloaderCachePath),
        preference("packInAppCachePath", "Folder of packages delivered within the application", Store::product, DataClass::local, &Settings::packInAppCachePath, &Settings::setPackInAppCachePath, &Settings::defaultPackInAppCachePath),
        preference("snapshotPath", "Folder of snapshots", Store::product, DataClass::local, &Settings::snapshotPath, &Settings::setSnapshotPath, &Settings::defaultLumoraLibraryPath),
        preference("npsReadyNotificationCount", "Notifications that the satisfaction survey is ready, as the host counts them", Store::product, DataClass::transient, &Settings::npsReadyNotificationCount, &Settings::setNPSReadyNotificationCount),
        preference("npsStartExportCount", "Exports started, as the survey counts them", Store::product, DataClass::transient, &Settings::npsStartExportCount, &Settings::setNPSStartExportCount),
        preference("npsSendCount", "Survey answers sent", Store::product, DataClass::transient, &Settings::npsSendCount, &Settings::setNPSSendCount),
        preference("npsValueToSend", "Survey score that waits to be sent; -1 for none", Store::product, DataClass::personal, &Settings::npsValueToSend, &Settings::setNPSValueToSend),
        preference("npsCommentToSend", "Survey comment that waits to be sent", Store::product, DataClass::personal, &Settings::npsCommentToSend, &Settings::setNPSCommentToSend),
        preference("npsEmailToSend", "Survey e-mail address that waits to be sent", Store::product, DataClass::personal, &Settings::npsEmailToSend, &Settings::setNPSEmailToSend),
        preference("achievedTutorials", "Tutorials that the user has finished", Store::product, DataClass::roaming, &Settings::achievedTutorials, &Settings::setAchievedTutorials),
        preference("userCustomColors", "The user's own colours, in whatever text the host uses", Store::product, DataClass::roaming, &Settings::userCustomColors, &Settings::setUserCustomColors),
        preference("SUAutomaticallyUpdate", "Whether the updater downloads what it finds", Store::common, DataClass::local, &Settings::autoDownloadUpdates, &Settings::setAutoDownloadUpdates),
        preference("targetHistory", "Recent export targets in one string that the caller composes", Store::product, DataClass::personal, &Settings::targetHistory, &Settings::setTargetHistory),
    };
    return rows;
}

std::vector<Family> const& families()
{
    static std::vector<Family> const rows = {
        family("indicationObject", "What the editor keeps for the indication called `name`", Store::product, DataClass::transient, &Settings::indicationObject, &Settings::setIndicationObject),
        family("favoriteItems", "The favourites of the list called `name`", Store::product, DataClass::roaming, &Settings::favoriteItems),
    };
    return rows;
}
// clang-format on

std::string name(Store store) { return store == Store::common ? "common" : "product"; }

// In the order of DataClass.
char const* dataClassName(DataClass dataClass)
{
    static constexpr std::array words = {"roaming", "local", "personal", "transient"};
    return words.at(static_cast<std::size_t>(dataClass));
}

std::vector<std::string> const& preferencesWithoutAccessors()
{
    static std::vector<std::string> const names = {"stabilizedFileFormat"};
    return names;
}

Preference const* findPreference(std::string const& name)
{
    auto const found =
        std::find_if(preferences().begin(), preferences().end(), [&](Preference const& preference) { return preference.name == name; });
    return found == preferences().end() ? nullptr : &*found;
}

Preference const* findPreferenceByGetter(std::string const& name)
{
    auto const found = std::find_if(preferences().begin(), preferences().end(),
                                    [&](Preference const& preference) { return preference.getterName() == "Settings::" + name; });
    return found == preferences().end() ? nullptr : &*found;
}

Family const& familyOf(std::string const& name)
{
    return *std::find_if(families().begin(), families().end(), [&](Family const& family) { return family.name == name; });
}

std::string Preference::getterName() const
{
    return std::visit([](auto const& typed) { return functionName(typed.get); }, accessors);
}

std::string Preference::setterName() const
{
    auto const nameOf = [](auto const set) { return functionName(set); };
    return std::visit([&](auto const& typed) { return std::visit(nameOf, typed.set); }, accessors);
}

std::string Family::getterName() const
{
    return std::visit([](auto const& typed) { return functionName(typed.get); }, accessors);
}

std::string Family::setterName() const
{
    return std::visit([](auto const& typed) { return functionName(typed.set); }, accessors);
}

Value Preference::read() const
{
    return std::visit([](auto const& typed) -> Value { return typed.get(); }, accessors);
}

Value Family::read(QString const& member) const
{
    return std::visit([&](auto const& typed) -> Value { return typed.get(member); }, accessors);
}

void Preference::write(Value const& value) const
{
    std::visit(
        [&](auto const& typed) {
            auto const& typedValue = std::get<decltype(typed.get())>(value);
            std::visit([&](auto const set) { set(typedValue); }, typed.set);
        },
        accessors);
}

} // namespace Catalogue
