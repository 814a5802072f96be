// SPDX-License-Identifier: MIT
#include <Catalogue/Catalogue.h>

#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <utility>

namespace Catalogue {

namespace {

// The type is deduced from both addresses, so that a getter with another preference's setter does not compile where
// their types differ.
template <typename T>
Row row(char const* name, Store store, Class category, T (*get)(), void (*set)(T const&), QString (*computedDefault)() = nullptr)
{
    return {name, store, category, Accessors<T>{get, set}, computedDefault};
}

template <typename T>
Row row(char const* name, Store store, Class category, T (*get)(), void (*set)(T))
{
    return {name, store, category, Accessors<T>{get, set}};
}

template <typename T>
Family family(char const* name, Store store, Class category, T (*get)(QString), void (*set)(QString, T const&) = nullptr)
{
    return {name, store, category, KeyedAccessors<T>{get, set}};
}

template <typename Function>
Place place(char const* name, Function* function, Root root, Use use, std::vector<std::string> arguments = {})
{
    return {name, root, use, function, std::move(arguments)};
}

} // namespace

// clang-format off
std::vector<Row> const& preferences()
{
    static std::vector<Row> const rows = {
        row("exportPath", Store::product, Class::local, &Settings::exportPath, &Settings::setExportPath, &Settings::defaultLumoraLibraryPath),
        row("projectPath", Store::product, Class::local, &Settings::projectPath, &Settings::setProjectPath, &Settings::defaultProjectPath),
        row("lastAddMediaPath", Store::product, Class::personal, &Settings::lastAddMediaPath, &Settings::setLastAddMediaPath),
        row("lastAddVideoPath", Store::product, Class::personal, &Settings::lastAddVideoPath, &Settings::setLastAddVideoPath),
        row("lastAddImagePath", Store::product, Class::personal, &Settings::lastAddImagePath, &Settings::setLastAddImagePath),
        row("lastAddAudioPath", Store::product, Class::personal, &Settings::lastAddAudioPath, &Settings::setLastAddAudioPath),
        row("lastAddDirectoryPath", Store::product, Class::personal, &Settings::lastAddDirectoryPath, &Settings::setLastAddDirectoryPath),
        row("lastAddImageDirectoryPath", Store::product, Class::personal, &Settings::lastAddImageDirectoryPath, &Settings::setLastAddImageDirectoryPath),
        row("lastTarget", Store::product, Class::transient, &Settings::lastTarget, &Settings::setLastTarget),
        row("openOutputAfterExport", Store::product, Class::roaming, &Settings::openOutputAfterExport, &Settings::setOpenOutputAfterExport),
        row("openLinkAfterUpload", Store::product, Class::roaming, &Settings::openLinkAfterUpload, &Settings::setOpenLinkAfterUpload),
        row("lastUsedPresetGroup", Store::product, Class::transient, &Settings::lastUsedPresetGroup, &Settings::setLastUsedPresetGroup),
        row("lastUsedPresetId", Store::product, Class::transient, &Settings::lastUsedPresetId, &Settings::setLastUsedPresetId),
        row("dontShowStartDialog", Store::product, Class::roaming, &Settings::dontShowStartDialog, &Settings::setDontShowStartDialog),
        row("keepVideoAspect", Store::product, Class::roaming, &Settings::keepVideoAspect, &Settings::setKeepVideoAspect),
        row("autoUpdate", Store::common, Class::local, &Settings::autoUpdate, &Settings::setCheckForUpdates),
        row("sendStatistics", Store::common, Class::roaming, &Settings::sendStatistics, &Settings::setSendStatistics),
        row("recentProjects", Store::product, Class::personal, &Settings::recentProjects, &Settings::setRecentProjects),
        row("recentProjectPreviews", Store::product, Class::personal, &Settings::recentProjectPreviews, &Settings::setRecentProjectPreviews),
        row("mainWindowGeometry", Store::product, Class::local, &Settings::mainWindowGeometry, &Settings::setMainWindowGeometry),
        row("mainWindowState", Store::product, Class::local, &Settings::mainWindowState, &Settings::setMainWindowState),
        row("splitterMainGeometry", Store::product, Class::local, &Settings::splitterMainGeometry, &Settings::setSplitterMainGeometry),
        row("splitterMainState", Store::product, Class::local, &Settings::splitterMainState, &Settings::setSplitterMainState),
        row("splitterTopPanelGeometry", Store::product, Class::local, &Settings::splitterTopPanelGeometry, &Settings::setSplitterTopPanelGeometry),
        row("splitterTopPanelState", Store::product, Class::local, &Settings::splitterTopPanelState, &Settings::setSplitterTopPanelState),
        row("audioRecordPath", Store::product, Class::local, &Settings::audioRecordPath, &Settings::setAudioRecordPath, &Settings::defaultAudioRecordPath),
        row("audioRecordFormat", Store::product, Class::roaming, &Settings::audioRecordFormat, &Settings::setAudioRecordFormat),
        row("audioRecordCodec", Store::product, Class::roaming, &Settings::audioRecordCodec, &Settings::setAudioRecordCodec),
        row("downloadableResourcesPath", Store::product, Class::local, &Settings::downloadableResourcesPath, &Settings::setDownloadableResourcesPath, &Settings::defaultDownloadableResourcesPath),
        row("stabilizedFilePath", Store::product, Class::local, &Settings::stabilizedFilePath, &Settings::setStabilizedFilePath, &Settings::defaultStabilizedFilePath),
        row("freezedFileFormat", Store::product, Class::roaming, &Settings::freezedFileFormat, &Settings::setfreezedFileFormat),
        row("notificationsEnabled", Store::product, Class::roaming, &Settings::notificationsEnabled, &Settings::setNotificationsEnabled),
        row("useGuideLines", Store::product, Class::roaming, &Settings::useGuideLines, &Settings::setUseGuideLines),
        row("acquaintedWithFastTrack", Store::product, Class::roaming, &Settings::acquaintedWithFastTrack, &Settings::setAcquaintedWithFastTrack),
        row("fastTrackEnabled", Store::product, Class::roaming, &Settings::fastTrackEnabled, &Settings::setFastTrackEnabled),
        row("useFilmstripPreview", Store::product, Class::roaming, &Settings::useFilmstripPreview, &Settings::setUseFilmstripPreview),
        row("fastTrackContentPath", Store::product, Class::local, &Settings::fastTrackContentPath, &Settings::setFastTrackContentPath, &Settings::defaultFastTrackContentPath),
        row("waveformCachePath", Store::product, Class::local, &Settings::waveformCachePath, &Settings::setWaveformCachePath, &Settings::defaultWaveformCachePath),
        row("newsCenterContentPath", Store::product, Class::local, &Settings::newsCenterContentPath, &Settings::setNewsCenterContentPath, &Settings::defaultNewsCenterContentPath),
        row("quizExportUserId", Store::product, Class::personal, &Settings::quizExportUserId, &Settings::setQuizExportUserId),
        row("quizAgreementChecked", Store::product, Class::personal, &Settings::quizAgreementChecked, &Settings::setQuizAgreementChecked),
        row("bundleShadowCachePath", Store::product, Class::local, &Settings::bundleShadowCachePath, &Settings::setBundleShadowCachePath, &Settings::defaultBundleShadowCachePath),
        row("downloaderCachePath", Store::product, Class::local, &Settings::downloaderCachePath, &Settings::setDownloaderCachePath, &Settings::defaultDownloaderCachePath),
        row("packInAppCachePath", Store::product, Class::local, &Settings::packInAppCachePath, &Settings::setPackInAppCachePath, &Settings::defaultPackInAppCachePath),
        row("snapshotPath", Store::product, Class::local, &Settings::snapshotPath, &Settings::setSnapshotPath, &Settings::defaultLumoraLibraryPath),
        row("npsReadyNotificationCount", Store::product, Class::transient, &Settings::npsReadyNotificationCount, &Settings::setNPSReadyNotificationCount),
        row("npsStartExportCount", Store::product, Class::transient, &Settings::npsStartExportCount, &Settings::setNPSStartExportCount),
        row("npsSendCount", Store::product, Class::transient, &Settings::npsSendCount, &Settings::setNPSSendCount),
        row("npsValueToSend", Store::product, Class::personal, &Settings::npsValueToSend, &Settings::setNPSValueToSend),
        row("npsCommentToSend", Store::product, Class::personal, &Settings::npsCommentToSend, &Settings::setNPSCommentToSend),
        row("npsEmailToSend", Store::product, Class::personal, &Settings::npsEmailToSend, &Settings::setNPSEmailToSend),
        row("achievedTutorials", Store::product, Class::roaming, &Settings::achievedTutorials, &Settings::setAchievedTutorials),
        row("userCustomColors", Store::product, Class::roaming, &Settings::userCustomColors, &Settings::setUserCustomColors),
        row("SUAutomaticallyUpdate", Store::common, Class::local, &Settings::autoDownloadUpdates, &Settings::setAutoDownloadUpdates),
        row("targetHistory", Store::product, Class::personal, &Settings::targetHistory, &Settings::setTargetHistory),
    };
    return rows;
}

std::vector<Family> const& families()
{
    static std::vector<Family> const rows = {
        family("indicationObject", Store::product, Class::transient, &Settings::indicationObject, &Settings::setIndicationObject),
        family("favoriteItems", Store::product, Class::roaming, &Settings::favoriteItems),
    };
    return rows;
}

std::vector<Place> const& places()
{
    static std::vector<Place> const rows = {
        place("productDataPath", &productDataPath, Root::data, Use::written),
        place("defaultLumoraLibraryPath", &Settings::defaultLumoraLibraryPath, Root::movies, Use::fallback),
        place("defaultProjectPath", &Settings::defaultProjectPath, Root::movies, Use::fallback),
        place("defaultAudioRecordPath", &Settings::defaultAudioRecordPath, Root::music, Use::fallback),
        place("defaultStabilizedFilePath", &Settings::defaultStabilizedFilePath, Root::movies, Use::fallback),
        place("defaultFastTrackContentPath", &Settings::defaultFastTrackContentPath, Root::movies, Use::fallback),
        place("defaultDownloadableResourcesPath", &Settings::defaultDownloadableResourcesPath, Root::movies, Use::fallback),
        place("defaultNewsCenterContentPath", &Settings::defaultNewsCenterContentPath, Root::cache, Use::fallback),
        place("defaultBundleShadowCachePath", &Settings::defaultBundleShadowCachePath, Root::cache, Use::fallback),
        place("defaultDownloaderCachePath", &Settings::defaultDownloaderCachePath, Root::cache, Use::fallback),
        place("defaultPackInAppCachePath", &Settings::defaultPackInAppCachePath, Root::cache, Use::fallback),
        place("defaultWaveformCachePath", &Settings::defaultWaveformCachePath, Root::data, Use::fallback),
        place("resourceFile", &resourceFile, Root::resources, Use::shipped, {"FILE"}),
        place("stockSampleProjectsPath", &stockSampleProjectsPath, Root::resources, Use::shipped),
        place("presetFilePath", &Settings::presetFilePath, Root::resources, Use::shipped),
        place("transitionPreviewImageAPath", &Settings::transitionPreviewImageAPath, Root::resources, Use::shipped),
        place("transitionPreviewImageBPath", &Settings::transitionPreviewImageBPath, Root::resources, Use::shipped),
        place("titlePreviewImagePath", &Settings::titlePreviewImagePath, Root::resources, Use::shipped),
        place("calloutPreviewImagePath", &Settings::calloutPreviewImagePath, Root::resources, Use::shipped),
        place("quizPreviewImagePath", &Settings::quizPreviewImagePath, Root::resources, Use::shipped),
        place("effectPreviewImagePath", &Settings::effectPreviewImagePath, Root::resources, Use::shipped),
        place("audioPreviewImagePath", &Settings::audioPreviewImagePath, Root::resources, Use::shipped),
        place("panZoomPreviewImagePath", &Settings::panZoomPreviewImagePath, Root::resources, Use::shipped),
        place("animationBackgroundPreviewImagePath", &Settings::animationBackgroundPreviewImagePath, Root::resources, Use::shipped),
        place("animationIconPreviewImagePath", &Settings::animationIconPreviewImagePath, Root::resources, Use::shipped),
        place("colorFilterPreviewImagePath", &Settings::colorFilterPreviewImagePath, Root::resources, Use::shipped),
        place("stockTitlesSvgPath", &Settings::stockTitlesSvgPath, Root::resources, Use::shipped),
        place("stockCalloutsSvgPath", &Settings::stockCalloutsSvgPath, Root::resources, Use::shipped),
        place("stockStickersSvgPath", &Settings::stockStickersSvgPath, Root::resources, Use::shipped),
        place("stockImportsPath", &Settings::stockImportsPath, Root::resources, Use::shipped),
        place("stockAudioEffectsPath", &Settings::stockAudioEffectsPath, Root::resources, Use::shipped),
        place("stockVideoEffectsPath", &Settings::stockVideoEffectsPath, Root::resources, Use::shipped),
        place("stockPipEffectsPath", &Settings::stockPipEffectsPath, Root::resources, Use::shipped),
        place("stockColorFiltersPath", &Settings::stockColorFiltersPath, Root::resources, Use::shipped),
        place("stockTransitionsPath", &Settings::stockTransitionsPath, Root::resources, Use::shipped),
        place("stockAnimationsPath", &Settings::stockAnimationsPath, Root::resources, Use::shipped),
        place("stockPanAndZoomPath", &Settings::stockPanAndZoomPath, Root::resources, Use::shipped),
        place("stockContentPackagesPath", &Settings::stockContentPackagesPath, Root::resources, Use::shipped),
        place("stockServicePackagesPath", &Settings::stockServicePackagesPath, Root::resources, Use::shipped),
        place("stockWizardPackagesPath", &Settings::stockWizardPackagesPath, Root::resources, Use::shipped),
        place("stockThemesPath", &Settings::stockThemesPath, Root::resources, Use::shipped),
        place("stockWizardBackgroundsPath", &Settings::stockWizardBackgroundsPath, Root::resources, Use::shipped),
        place("blurMasksPath", &Settings::blurMasksPath, Root::resources, Use::shipped),
        place("flyingObjectsPath", &Settings::flyingObjectsPath, Root::resources, Use::shipped),
        place("stockMusicPath", &Settings::stockMusicPath, Root::nothing, Use::fragment),
        place("stockAudioPath", &Settings::stockAudioPath, Root::nothing, Use::fragment),
        place("stockVideoPath", &Settings::stockVideoPath, Root::nothing, Use::fragment),
        place("stockBackgroundsPath", &Settings::stockBackgroundsPath, Root::nothing, Use::fragment),
        place("userIntrosPath", &Settings::userIntrosPath, Root::data, Use::written),
        place("userOverlaysPath", &Settings::userOverlaysPath, Root::data, Use::written),
        place("userEffectsPath", &Settings::userEffectsPath, Root::data, Use::written, {"NAME"}),
        place("userUnsplashPath", &Settings::userUnsplashPath, Root::data, Use::written),
        place("unsplashContentPath", &Settings::unsplashContentPath, Root::data, Use::written),
        place("packageDeploymentPath", &Settings::packageDeploymentPath, Root::data, Use::written),
        place("fastTrackConfigurationPath", &Settings::fastTrackConfigurationPath, Root::data, Use::written),
        place("waveformConfigurationPath", &Settings::waveformConfigurationPath, Root::data, Use::written),
        place("stockPackagesStatisticsPath", &Settings::stockPackagesStatisticsPath, Root::data, Use::written),
        place("deployedPackagesStatisticsPath", &Settings::deployedPackagesStatisticsPath, Root::data, Use::written),
        place("notificationFile", &Settings::notificationFile, Root::resources, Use::shipped, {"finish", "error"}),
        place("countDownImagePath", &Settings::countDownImagePath, Root::nothing, Use::embedded),
        place("portableProjectMediaPath", &Settings::portableProjectMediaPath, Root::nothing, Use::fragment),
        place("sampleProjectPath", &Settings::sampleProjectPath, Root::resources, Use::shipped),
    };
    return rows;
}
// clang-format on

char const* className(Class category)
{
    switch (category) {
    case Class::roaming:
        return "roaming";
    case Class::local:
        return "local";
    case Class::personal:
        return "personal";
    case Class::transient:
        break;
    }
    return "transient";
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

// A store that answers as if nothing were stored, and notes what it was asked for and the text that it was given.
class NothingStored final : public ISettingsStorage {
public:
    std::optional<std::string> askedKey() const { return m_askedKey; }
    std::string const& writtenText() const { return m_writtenText; }

    void setBool(std::string const&, bool) override {}
    void setInt(std::string const&, int) override {}
    void setString(std::string const&, std::string const& value) override { m_writtenText = value; }
    void setBytes(std::string const&, std::vector<unsigned char> const&) override {}
    bool contains(std::string const&) const override { return false; }
    void remove(std::string const&) override {}
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

// The library bound to `context`, for as long as the object lives.
class BoundForAMoment {
public:
    explicit BoundForAMoment(SettingsContext const& context) { Settings::init(context); }
    ~BoundForAMoment() { Settings::init(m_earlier); }
    BoundForAMoment(BoundForAMoment const&) = delete;
    BoundForAMoment& operator=(BoundForAMoment const&) = delete;

private:
    SettingsContext const m_earlier = s_instance;
};

// The library bound to stores that hold nothing, for as long as the object lives.
struct WithoutStoredValues {
    std::shared_ptr<NothingStored> const common = std::make_shared<NothingStored>();
    std::shared_ptr<NothingStored> const product = std::make_shared<NothingStored>();
    BoundForAMoment const binding{{s_instance.productInfo, common, product, s_instance.resourcesRoot}};
};

std::shared_ptr<ISettingsStorage> boundStore(Store store)
{
    return (store == Store::common ? s_instance.commonStorage : s_instance.productStorage).lock();
}

// `read` asks for at most one key.
Observation observeReading(std::function<Value()> const& read)
{
    Observation result;
    {
        WithoutStoredValues const stores;
        result.defaultValue = read();
        if (stores.product->askedKey())
            result.store = Store::product;
        if (stores.common->askedKey())
            result.store = Store::common;
        if (result.store)
            result.key = *(result.store == Store::common ? stores.common : stores.product)->askedKey();
    }
    result.value = read();
    result.isStored = result.store && boundStore(*result.store)->contains(result.key);
    return result;
}

// Product information that answers as another object does, and notes what it was asked.
class NotingProductInfo final : public IProductInfo {
public:
    explicit NotingProductInfo(std::shared_ptr<IProductInfo const> inner) : m_inner(std::move(inner)) {}

    std::vector<std::string> const& asked() const { return m_asked; }

    std::string vendorName() const override { return note("vendorName"), m_inner->vendorName(); }
    std::string productName() const override { return note("productName"), m_inner->productName(); }
    std::string sharedDataFolderName() const override { return note("sharedDataFolderName"), m_inner->sharedDataFolderName(); }
    int productKind() const override { return note("productKind"), m_inner->productKind(); }
    std::string projectFileExtensions() const override { return note("projectFileExtensions"), m_inner->projectFileExtensions(); }

private:
    void note(char const* operation) const { m_asked.emplace_back(operation); }

    std::shared_ptr<IProductInfo const> m_inner;
    mutable std::vector<std::string> m_asked;
};

} // namespace

Observation observe(Row const& row)
{
    return observeReading([&] { return row.read(); });
}

Observation observe(Family const& family, QString const& name)
{
    return observeReading([&] { return std::visit([&](auto const& typed) -> Value { return typed.get(name); }, family.accessors); });
}

std::vector<std::string> askedOfTheProduct(Place const& place)
{
    auto const noting = std::make_shared<NotingProductInfo>(s_instance.productInfo.lock());
    SettingsContext context = s_instance;
    context.productInfo = noting;
    BoundForAMoment const binding(context);
    place.path(place.arguments.empty() ? std::string() : place.arguments.front());
    return noting->asked();
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
