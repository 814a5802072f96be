// SPDX-License-Identifier: MIT
#include <Catalogue/Catalogue.h>

#include <Storage/EmptyStorage.h>
#include <TestKit/Recording.h>
#include <TestKit/ScopedBinding.h>

#include <algorithm>
#include <array>
#include <functional>
#include <map>
#include <memory>
#include <utility>

namespace Catalogue {

namespace {

// The type is deduced from both addresses, so that a getter with another preference's setter does not compile where
// their types differ.
template <typename T>
Row row(char const* name, char const* purpose, Store store, Class category, T (*get)(), void (*set)(T const&),
        QString (*computedDefault)() = nullptr)
{
    return {name, purpose, store, category, Accessors<T>{get, set}, computedDefault};
}

template <typename T>
Row row(char const* name, char const* purpose, Store store, Class category, T (*get)(), void (*set)(T))
{
    return {name, purpose, store, category, Accessors<T>{get, set}};
}

template <typename T>
Family family(char const* name, char const* purpose, Store store, Class category, T (*get)(QString),
              void (*set)(QString, T const&) = nullptr)
{
    return {name, purpose, store, category, KeyedAccessors<T>{get, set}};
}

template <typename Function>
Place place(char const* name, char const* purpose, Function* function, Root root, Use use, std::vector<std::string> arguments = {})
{
    return {name, purpose, root, use, function, std::move(arguments)};
}

} // namespace

// clang-format off
std::vector<Row> const& preferences()
{
    static std::vector<Row> const rows = {
        row("exportPath", "Folder of exported films", Store::product, Class::local, &Settings::exportPath, &Settings::setExportPath, &Settings::defaultLumoraLibraryPath),
        row("projectPath", "Folder of saved projects", Store::product, Class::local, &Settings::projectPath, &Settings::setProjectPath, &Settings::defaultProjectPath),
        row("lastAddMediaPath", "Folder last used to add media of any type", Store::product, Class::personal, &Settings::lastAddMediaPath, &Settings::setLastAddMediaPath),
        row("lastAddVideoPath", "Folder last used to add a video", Store::product, Class::personal, &Settings::lastAddVideoPath, &Settings::setLastAddVideoPath),
        row("lastAddImagePath", "Folder last used to add an image", Store::product, Class::personal, &Settings::lastAddImagePath, &Settings::setLastAddImagePath),
        row("lastAddAudioPath", "Folder last used to add audio", Store::product, Class::personal, &Settings::lastAddAudioPath, &Settings::setLastAddAudioPath),
        row("lastAddDirectoryPath", "Folder last added whole", Store::product, Class::personal, &Settings::lastAddDirectoryPath, &Settings::setLastAddDirectoryPath),
        row("lastAddImageDirectoryPath", "Folder of images last added whole", Store::product, Class::personal, &Settings::lastAddImageDirectoryPath, &Settings::setLastAddImageDirectoryPath),
        row("lastTarget", "Export target last used", Store::product, Class::transient, &Settings::lastTarget, &Settings::setLastTarget),
        row("openOutputAfterExport", "Whether an exported film is opened when it is done", Store::product, Class::roaming, &Settings::openOutputAfterExport, &Settings::setOpenOutputAfterExport),
        row("openLinkAfterUpload", "Whether the page of an uploaded film is opened when it is done", Store::product, Class::roaming, &Settings::openLinkAfterUpload, &Settings::setOpenLinkAfterUpload),
        row("lastUsedPresetGroup", "Group of the export preset last used", Store::product, Class::transient, &Settings::lastUsedPresetGroup, &Settings::setLastUsedPresetGroup),
        row("lastUsedPresetId", "Export preset last used", Store::product, Class::transient, &Settings::lastUsedPresetId, &Settings::setLastUsedPresetId),
        row("dontShowStartDialog", "Whether the start dialog is left out", Store::product, Class::roaming, &Settings::dontShowStartDialog, &Settings::setDontShowStartDialog),
        row("keepVideoAspect", "Whether a video keeps its aspect ratio when it is resized", Store::product, Class::roaming, &Settings::keepVideoAspect, &Settings::setKeepVideoAspect),
        row("autoUpdate", "Whether updates are looked for", Store::common, Class::local, &Settings::autoUpdate, &Settings::setCheckForUpdates),
        row("sendStatistics", "Whether usage statistics may be sent", Store::common, Class::roaming, &Settings::sendStatistics, &Settings::setSendStatistics),
        row("recentProjects", "Recently used projects, in a form that the host chooses", Store::product, Class::personal, &Settings::recentProjects, &Settings::setRecentProjects),
        row("recentProjectPreviews", "Previews of the recent projects, in a form that the host chooses", Store::product, Class::personal, &Settings::recentProjectPreviews, &Settings::setRecentProjectPreviews),
        row("mainWindowGeometry", "Geometry of the main window, as Qt saves it", Store::product, Class::local, &Settings::mainWindowGeometry, &Settings::setMainWindowGeometry),
        row("mainWindowState", "State of the main window's bars and docks, as Qt saves it", Store::product, Class::local, &Settings::mainWindowState, &Settings::setMainWindowState),
        row("splitterMainGeometry", "Geometry of the main splitter", Store::product, Class::local, &Settings::splitterMainGeometry, &Settings::setSplitterMainGeometry),
        row("splitterMainState", "State of the main splitter", Store::product, Class::local, &Settings::splitterMainState, &Settings::setSplitterMainState),
        row("splitterTopPanelGeometry", "Geometry of the top panel's splitter", Store::product, Class::local, &Settings::splitterTopPanelGeometry, &Settings::setSplitterTopPanelGeometry),
        row("splitterTopPanelState", "State of the top panel's splitter", Store::product, Class::local, &Settings::splitterTopPanelState, &Settings::setSplitterTopPanelState),
        row("audioRecordPath", "Folder of audio recordings", Store::product, Class::local, &Settings::audioRecordPath, &Settings::setAudioRecordPath, &Settings::defaultAudioRecordPath),
        row("audioRecordFormat", "File format of audio recordings", Store::product, Class::roaming, &Settings::audioRecordFormat, &Settings::setAudioRecordFormat),
        row("audioRecordCodec", "Codec of audio recordings", Store::product, Class::roaming, &Settings::audioRecordCodec, &Settings::setAudioRecordCodec),
        row("downloadableResourcesPath", "Folder of downloaded media", Store::product, Class::local, &Settings::downloadableResourcesPath, &Settings::setDownloadableResourcesPath, &Settings::defaultDownloadableResourcesPath),
        row("stabilizedFilePath", "Folder of stabilized clips", Store::product, Class::local, &Settings::stabilizedFilePath, &Settings::setStabilizedFilePath, &Settings::defaultStabilizedFilePath),
        row("freezedFileFormat", "File format of freeze frames", Store::product, Class::roaming, &Settings::freezedFileFormat, &Settings::setfreezedFileFormat),
        row("notificationsEnabled", "Whether notifications are shown", Store::product, Class::roaming, &Settings::notificationsEnabled, &Settings::setNotificationsEnabled),
        row("useGuideLines", "Whether guide lines are shown", Store::product, Class::roaming, &Settings::useGuideLines, &Settings::setUseGuideLines),
        row("acquaintedWithFastTrack", "Whether the user has met the fast track", Store::product, Class::roaming, &Settings::acquaintedWithFastTrack, &Settings::setAcquaintedWithFastTrack),
        row("fastTrackEnabled", "Whether the fast track is on", Store::product, Class::roaming, &Settings::fastTrackEnabled, &Settings::setFastTrackEnabled),
        row("useFilmstripPreview", "Whether clips are previewed as filmstrips", Store::product, Class::roaming, &Settings::useFilmstripPreview, &Settings::setUseFilmstripPreview),
        row("fastTrackContentPath", "Folder of the fast track's preview files", Store::product, Class::local, &Settings::fastTrackContentPath, &Settings::setFastTrackContentPath, &Settings::defaultFastTrackContentPath),
        row("waveformCachePath", "Folder of cached waveforms", Store::product, Class::local, &Settings::waveformCachePath, &Settings::setWaveformCachePath, &Settings::defaultWaveformCachePath),
        row("newsCenterContentPath", "Folder of the news centre's content", Store::product, Class::local, &Settings::newsCenterContentPath, &Settings::setNewsCenterContentPath, &Settings::defaultNewsCenterContentPath),
        row("quizExportUserId", "Who the user is to the quiz export", Store::product, Class::personal, &Settings::quizExportUserId, &Settings::setQuizExportUserId),
        row("quizAgreementChecked", "Whether the quiz agreement is accepted", Store::product, Class::personal, &Settings::quizAgreementChecked, &Settings::setQuizAgreementChecked),
        row("bundleShadowCachePath", "Folder of shadow copies of bundles", Store::product, Class::local, &Settings::bundleShadowCachePath, &Settings::setBundleShadowCachePath, &Settings::defaultBundleShadowCachePath),
        row("downloaderCachePath", "Folder of the downloader's cache", Store::product, Class::local, &Settings::downloaderCachePath, &Settings::setDownloaderCachePath, &Settings::defaultDownloaderCachePath),
        row("packInAppCachePath", "Folder of packages delivered within the application", Store::product, Class::local, &Settings::packInAppCachePath, &Settings::setPackInAppCachePath, &Settings::defaultPackInAppCachePath),
        row("snapshotPath", "Folder of snapshots", Store::product, Class::local, &Settings::snapshotPath, &Settings::setSnapshotPath, &Settings::defaultLumoraLibraryPath),
        row("npsReadyNotificationCount", "Notifications that the satisfaction survey is ready, as the host counts them", Store::product, Class::transient, &Settings::npsReadyNotificationCount, &Settings::setNPSReadyNotificationCount),
        row("npsStartExportCount", "Exports started, as the survey counts them", Store::product, Class::transient, &Settings::npsStartExportCount, &Settings::setNPSStartExportCount),
        row("npsSendCount", "Survey answers sent", Store::product, Class::transient, &Settings::npsSendCount, &Settings::setNPSSendCount),
        row("npsValueToSend", "Survey score that waits to be sent; -1 for none", Store::product, Class::personal, &Settings::npsValueToSend, &Settings::setNPSValueToSend),
        row("npsCommentToSend", "Survey comment that waits to be sent", Store::product, Class::personal, &Settings::npsCommentToSend, &Settings::setNPSCommentToSend),
        row("npsEmailToSend", "Survey e-mail address that waits to be sent", Store::product, Class::personal, &Settings::npsEmailToSend, &Settings::setNPSEmailToSend),
        row("achievedTutorials", "Tutorials that the user has finished", Store::product, Class::roaming, &Settings::achievedTutorials, &Settings::setAchievedTutorials),
        row("userCustomColors", "The user's own colours, in whatever text the host uses", Store::product, Class::roaming, &Settings::userCustomColors, &Settings::setUserCustomColors),
        row("SUAutomaticallyUpdate", "Whether the updater downloads what it finds", Store::common, Class::local, &Settings::autoDownloadUpdates, &Settings::setAutoDownloadUpdates),
        row("targetHistory", "Recent export targets in one string that the caller composes", Store::product, Class::personal, &Settings::targetHistory, &Settings::setTargetHistory),
    };
    return rows;
}

std::vector<Family> const& families()
{
    static std::vector<Family> const rows = {
        family("indicationObject", "What the editor keeps for the indication called `name`", Store::product, Class::transient, &Settings::indicationObject, &Settings::setIndicationObject),
        family("favoriteItems", "The favourites of the list called `name`", Store::product, Class::roaming, &Settings::favoriteItems),
    };
    return rows;
}

std::vector<Place> const& places()
{
    static std::vector<Place> const rows = {
        place("productDataPath", "The product's own data, such as its store", &productDataPath, Root::data, Use::written),
        place("defaultLumoraLibraryPath", "The user's library: exported films, freeze frames and snapshots", &Settings::defaultLumoraLibraryPath, Root::movies, Use::fallback),
        place("defaultProjectPath", "Saved projects", &Settings::defaultProjectPath, Root::movies, Use::fallback),
        place("defaultAudioRecordPath", "Audio recordings", &Settings::defaultAudioRecordPath, Root::music, Use::fallback),
        place("defaultStabilizedFilePath", "Stabilized clips", &Settings::defaultStabilizedFilePath, Root::movies, Use::fallback),
        place("defaultFastTrackContentPath", "Preview files of the fast track", &Settings::defaultFastTrackContentPath, Root::movies, Use::fallback),
        place("defaultDownloadableResourcesPath", "Downloaded media", &Settings::defaultDownloadableResourcesPath, Root::movies, Use::fallback),
        place("defaultNewsCenterContentPath", "Content of the news centre", &Settings::defaultNewsCenterContentPath, Root::cache, Use::fallback),
        place("defaultBundleShadowCachePath", "Shadow copies of bundles", &Settings::defaultBundleShadowCachePath, Root::cache, Use::fallback),
        place("defaultDownloaderCachePath", "Cache of the downloader", &Settings::defaultDownloaderCachePath, Root::cache, Use::fallback),
        place("defaultPackInAppCachePath", "Packages delivered within the application", &Settings::defaultPackInAppCachePath, Root::cache, Use::fallback),
        place("defaultWaveformCachePath", "Cached waveforms", &Settings::defaultWaveformCachePath, Root::data, Use::fallback),
        place("resourceFile", "Whatever ships with the product, by its name below the resources root", &resourceFile, Root::resources, Use::shipped, {"FILE"}),
        place("stockSampleProjectsPath", "Sample projects", &stockSampleProjectsPath, Root::resources, Use::shipped),
        place("presetFilePath", "The product's presets", &Settings::presetFilePath, Root::resources, Use::shipped),
        place("transitionPreviewImageAPath", "Preview of transitions: the first picture", &Settings::transitionPreviewImageAPath, Root::resources, Use::shipped),
        place("transitionPreviewImageBPath", "Preview of transitions: the second picture", &Settings::transitionPreviewImageBPath, Root::resources, Use::shipped),
        place("titlePreviewImagePath", "Preview of titles", &Settings::titlePreviewImagePath, Root::resources, Use::shipped),
        place("calloutPreviewImagePath", "Preview of callouts", &Settings::calloutPreviewImagePath, Root::resources, Use::shipped),
        place("quizPreviewImagePath", "Preview of quizzes", &Settings::quizPreviewImagePath, Root::resources, Use::shipped),
        place("effectPreviewImagePath", "Preview of effects", &Settings::effectPreviewImagePath, Root::resources, Use::shipped),
        place("audioPreviewImagePath", "Preview of audio, a picture of the player", &Settings::audioPreviewImagePath, Root::resources, Use::shipped),
        place("panZoomPreviewImagePath", "Preview of pan and zoom", &Settings::panZoomPreviewImagePath, Root::resources, Use::shipped),
        place("animationBackgroundPreviewImagePath", "Preview of animations: the background", &Settings::animationBackgroundPreviewImagePath, Root::resources, Use::shipped),
        place("animationIconPreviewImagePath", "Preview of animations: the icon", &Settings::animationIconPreviewImagePath, Root::resources, Use::shipped),
        place("colorFilterPreviewImagePath", "Preview of colour filters", &Settings::colorFilterPreviewImagePath, Root::resources, Use::shipped),
        place("stockTitlesSvgPath", "Titles", &Settings::stockTitlesSvgPath, Root::resources, Use::shipped),
        place("stockCalloutsSvgPath", "Callouts", &Settings::stockCalloutsSvgPath, Root::resources, Use::shipped),
        place("stockStickersSvgPath", "Stickers", &Settings::stockStickersSvgPath, Root::resources, Use::shipped),
        place("stockImportsPath", "Imports", &Settings::stockImportsPath, Root::resources, Use::shipped),
        place("stockAudioEffectsPath", "Audio effects", &Settings::stockAudioEffectsPath, Root::resources, Use::shipped),
        place("stockVideoEffectsPath", "Video effects", &Settings::stockVideoEffectsPath, Root::resources, Use::shipped),
        place("stockPipEffectsPath", "Picture-in-picture effects", &Settings::stockPipEffectsPath, Root::resources, Use::shipped),
        place("stockColorFiltersPath", "Colour filters", &Settings::stockColorFiltersPath, Root::resources, Use::shipped),
        place("stockTransitionsPath", "Transitions", &Settings::stockTransitionsPath, Root::resources, Use::shipped),
        place("stockAnimationsPath", "Animations", &Settings::stockAnimationsPath, Root::resources, Use::shipped),
        place("stockPanAndZoomPath", "Pan and zoom", &Settings::stockPanAndZoomPath, Root::resources, Use::shipped),
        place("stockContentPackagesPath", "Packages of content", &Settings::stockContentPackagesPath, Root::resources, Use::shipped),
        place("stockServicePackagesPath", "Packages of services", &Settings::stockServicePackagesPath, Root::resources, Use::shipped),
        place("stockWizardPackagesPath", "Packages of the wizard", &Settings::stockWizardPackagesPath, Root::resources, Use::shipped),
        place("stockThemesPath", "Themes", &Settings::stockThemesPath, Root::resources, Use::shipped),
        place("stockWizardBackgroundsPath", "Backgrounds of the wizard", &Settings::stockWizardBackgroundsPath, Root::resources, Use::shipped),
        place("blurMasksPath", "Masks for blurring", &Settings::blurMasksPath, Root::resources, Use::shipped),
        place("flyingObjectsPath", "Flying objects", &Settings::flyingObjectsPath, Root::resources, Use::shipped),
        place("stockMusicPath", "Music", &Settings::stockMusicPath, Root::nothing, Use::fragment),
        place("stockAudioPath", "Audio", &Settings::stockAudioPath, Root::nothing, Use::fragment),
        place("stockVideoPath", "Videos", &Settings::stockVideoPath, Root::nothing, Use::fragment),
        place("stockBackgroundsPath", "Backgrounds", &Settings::stockBackgroundsPath, Root::nothing, Use::fragment),
        place("userIntrosPath", "The user's own intros", &Settings::userIntrosPath, Root::data, Use::written),
        place("userOverlaysPath", "The user's own overlays", &Settings::userOverlaysPath, Root::data, Use::written),
        place("userEffectsPath", "One of the user's own effects, by its name", &Settings::userEffectsPath, Root::data, Use::written, {"NAME"}),
        place("userUnsplashPath", "Pictures of Unsplash that the user has saved", &Settings::userUnsplashPath, Root::data, Use::written),
        place("unsplashContentPath", "Pictures of Unsplash", &Settings::unsplashContentPath, Root::data, Use::written),
        place("packageDeploymentPath", "Packages that are deployed, for all products of the vendor", &Settings::packageDeploymentPath, Root::data, Use::written),
        place("fastTrackConfigurationPath", "Configuration of the fast track", &Settings::fastTrackConfigurationPath, Root::data, Use::written),
        place("waveformConfigurationPath", "Configuration of waveforms", &Settings::waveformConfigurationPath, Root::data, Use::written),
        place("stockPackagesStatisticsPath", "Statistics of stock packages", &Settings::stockPackagesStatisticsPath, Root::data, Use::written),
        place("deployedPackagesStatisticsPath", "Statistics of deployed packages", &Settings::deployedPackagesStatisticsPath, Root::data, Use::written),
        place("notificationFile", "The sound of a notification", &Settings::notificationFile, Root::resources, Use::shipped, {"finish", "error"}),
        place("countDownImagePath", "Picture behind the countdown's figures", &Settings::countDownImagePath, Root::nothing, Use::embedded),
        place("portableProjectMediaPath", "Media of a portable project", &Settings::portableProjectMediaPath, Root::nothing, Use::fragment),
        place("sampleProjectPath", "The sample project to offer", &Settings::sampleProjectPath, Root::resources, Use::shipped),
    };
    return rows;
}
// clang-format on

// The words stand in the order of the enumerations.
char const* className(Class category)
{
    static constexpr std::array words = {"roaming", "local", "personal", "transient"};
    return words.at(static_cast<std::size_t>(category));
}

char const* rootName(Root root)
{
    static constexpr std::array words = {"movies", "music", "cache", "data", "resources", "nothing"};
    return words.at(static_cast<std::size_t>(root));
}

char const* useName(Use use)
{
    static constexpr std::array words = {QT_TRANSLATE_NOOP("Text", "default of a preference"), QT_TRANSLATE_NOOP("Text", "written to"),
                                         QT_TRANSLATE_NOOP("Text", "shipped with the product"),
                                         QT_TRANSLATE_NOOP("Text", "joined to a folder by the editor"),
                                         QT_TRANSLATE_NOOP("Text", "inside the editor's program")};
    return words.at(static_cast<std::size_t>(use));
}

std::vector<std::string> const& preferencesWithoutAccessors()
{
    static std::vector<std::string> const names = {"stabilizedFileFormat"};
    return names;
}

Row const* findPreference(std::string const& name)
{
    auto const found = std::find_if(preferences().begin(), preferences().end(), [&](Row const& row) { return row.name == name; });
    return found == preferences().end() ? nullptr : &*found;
}

Family const& familyOf(std::string const& name)
{
    return *std::find_if(families().begin(), families().end(), [&](Family const& family) { return family.name == name; });
}

Place const* findPlace(std::string const& name)
{
    auto const found = std::find_if(places().begin(), places().end(), [&](Place const& place) { return place.name == name; });
    return found == places().end() ? nullptr : &*found;
}

Place const& placeOf(QString (*function)())
{
    auto const computes = [&](Place const& place) { return place.function == decltype(place.function)(function); };
    return *std::find_if(places().begin(), places().end(), computes);
}

namespace {

QString asPath(QString const& path) { return path; }
QString asPath(std::string const& path) { return QString::fromStdString(path); }

Settings::Notifications notification(std::string const& name)
{
    static std::map<std::string, Settings::Notifications> const sounds = {{"finish", Settings::FinishNotification},
                                                                          {"error", Settings::ErrorNotification}};
    return sounds.at(name);
}

// Calls a function of a place with what it takes of `argument`.
struct Asked {
    std::string const& argument;

    template <typename Path>
    QString operator()(Path (*function)()) const
    {
        return asPath(function());
    }
    template <typename Path>
    QString operator()(Path (*function)(std::string const&)) const
    {
        return asPath(function(argument));
    }
    QString operator()(QString (*function)(Settings::Notifications)) const { return function(notification(argument)); }
};

} // namespace

QString Place::path(std::string const& argument) const { return std::visit(Asked{argument}, function); }

Value Row::read() const
{
    return std::visit([](auto const& typed) -> Value { return typed.get(); }, accessors);
}

Value Family::read(QString const& member) const
{
    return std::visit([&](auto const& typed) -> Value { return typed.get(member); }, accessors);
}

void Row::write(Value const& value) const
{
    std::visit(
        [&](auto const& typed) {
            auto const& typedValue = std::get<decltype(typed.get())>(value);
            std::visit([&](auto const set) { set(typedValue); }, typed.set);
        },
        accessors);
}

namespace {

// Holds no value and records the key of the last read and the text of the last set.
class NothingStored final : public Storage::EmptyStorage {
public:
    std::optional<std::string> askedKey() const { return m_askedKey; }
    std::string const& writtenText() const { return m_writtenText; }

    void setString(std::string const&, std::string const& value) override { m_writtenText = value; }
    bool getBool(std::string const& key, bool defaultValue) const override { return asked(key, defaultValue); }
    int getInt(std::string const& key, int defaultValue) const override { return asked(key, defaultValue); }
    std::string getString(std::string const& key, std::string const& defaultValue) const override { return asked(key, defaultValue); }
    std::vector<unsigned char> getBytes(std::string const& key, std::vector<unsigned char> const& defaultValue) const override
    {
        return asked(key, defaultValue);
    }

private:
    template <typename T>
    T asked(std::string const& key, T const& defaultValue) const
    {
        m_askedKey = key;
        return defaultValue;
    }

    mutable std::optional<std::string> m_askedKey;
    std::string m_writtenText;
};

// The library bound to stores that hold nothing, for as long as the object lives.
struct WithoutStoredValues {
    std::shared_ptr<NothingStored> const common = std::make_shared<NothingStored>();
    std::shared_ptr<NothingStored> const product = std::make_shared<NothingStored>();
    TestKit::ScopedBinding const binding{{s_instance.productInfo, common, product, s_instance.resourcesRoot}};
};

std::shared_ptr<ISettingsStorage> boundStore(Store store)
{
    return (store == Store::common ? s_instance.commonStorage : s_instance.productStorage).lock();
}

// `read` asks for at most one key.
Observation observeReadingNothing(std::function<Value()> const& read)
{
    WithoutStoredValues const stores;
    Observation result;
    result.value = result.defaultValue = read();
    if (stores.product->askedKey())
        result.store = Store::product;
    if (stores.common->askedKey())
        result.store = Store::common;
    if (result.store)
        result.key = *(result.store == Store::common ? stores.common : stores.product)->askedKey();
    return result;
}

Observation observeReading(std::function<Value()> const& read)
{
    Observation result = observeReadingNothing(read);
    result.value = read();
    result.isStored = result.store && boundStore(*result.store)->contains(result.key);
    return result;
}

} // namespace

Observation observe(Row const& row)
{
    return observeReading([&] { return row.read(); });
}

Observation observe(Family const& family, QString const& name)
{
    return observeReading([&] { return family.read(name); });
}

Observation observeUnstored(Row const& row)
{
    return observeReadingNothing([&] { return row.read(); });
}

Observation observeUnstored(Family const& family, QString const& name)
{
    return observeReadingNothing([&] { return family.read(name); });
}

std::vector<std::string> askedOfTheProduct(Place const& place)
{
    std::vector<std::string> asked;
    auto const record = [&](std::string const& operation) { asked.push_back(operation); };
    auto const recording = std::make_shared<TestKit::RecordingProductInfo>(record, s_instance.productInfo.lock());
    SettingsContext context = s_instance;
    context.productInfo = recording;
    TestKit::ScopedBinding const binding(context);
    place.path(place.arguments.empty() ? std::string() : place.arguments.front());
    return asked;
}

bool comesBackUnchanged(QStringList const& list)
{
    // A default passes through the same encoding as a stored list.
    WithoutStoredValues const stores;
    bool const useCommonStorage = false;
    return ::read("list", list, useCommonStorage) == list;
}

std::string storedText(QStringList const& list)
{
    WithoutStoredValues const stores;
    bool const useCommonStorage = false;
    ::write("list", list, useCommonStorage);
    return stores.product->writtenText();
}

} // namespace Catalogue
