// SPDX-License-Identifier: MIT
#include <Catalogue/Catalogue.h>

#include <algorithm>
#include <memory>
#include <utility>

namespace Catalogue {

namespace {

// The type is deduced from both addresses, so that a getter with another preference's setter does not compile where
// their types differ.
template <typename T>
Row row(char const* name, Store store, T (*get)(), void (*set)(T const&), QString (*computedDefault)() = nullptr)
{
    return {name, store, Accessors<T>{get, set}, computedDefault};
}

Place place(char const* name, QString (*get)()) { return {name, get}; }

} // namespace

// clang-format off
std::vector<Row> const& preferences()
{
    static std::vector<Row> const rows = {
        row("exportPath", Store::product, &Settings::exportPath, &Settings::setExportPath, &Settings::defaultLumoraLibraryPath),
        row("projectPath", Store::product, &Settings::projectPath, &Settings::setProjectPath, &Settings::defaultProjectPath),
        row("lastAddMediaPath", Store::product, &Settings::lastAddMediaPath, &Settings::setLastAddMediaPath),
        row("lastAddVideoPath", Store::product, &Settings::lastAddVideoPath, &Settings::setLastAddVideoPath),
        row("lastAddImagePath", Store::product, &Settings::lastAddImagePath, &Settings::setLastAddImagePath),
        row("lastAddAudioPath", Store::product, &Settings::lastAddAudioPath, &Settings::setLastAddAudioPath),
        row("lastAddDirectoryPath", Store::product, &Settings::lastAddDirectoryPath, &Settings::setLastAddDirectoryPath),
        row("lastAddImageDirectoryPath", Store::product, &Settings::lastAddImageDirectoryPath, &Settings::setLastAddImageDirectoryPath),
        row("lastTarget", Store::product, &Settings::lastTarget, &Settings::setLastTarget),
        row("openOutputAfterExport", Store::product, &Settings::openOutputAfterExport, &Settings::setOpenOutputAfterExport),
        row("openLinkAfterUpload", Store::product, &Settings::openLinkAfterUpload, &Settings::setOpenLinkAfterUpload),
        row("lastUsedPresetGroup", Store::product, &Settings::lastUsedPresetGroup, &Settings::setLastUsedPresetGroup),
        row("lastUsedPresetId", Store::product, &Settings::lastUsedPresetId, &Settings::setLastUsedPresetId),
        row("dontShowStartDialog", Store::product, &Settings::dontShowStartDialog, &Settings::setDontShowStartDialog),
        row("keepVideoAspect", Store::product, &Settings::keepVideoAspect, &Settings::setKeepVideoAspect),
        row("autoUpdate", Store::common, &Settings::autoUpdate, &Settings::setCheckForUpdates),
        row("sendStatistics", Store::common, &Settings::sendStatistics, &Settings::setSendStatistics),
        row("recentProjects", Store::product, &Settings::recentProjects, &Settings::setRecentProjects),
        row("recentProjectPreviews", Store::product, &Settings::recentProjectPreviews, &Settings::setRecentProjectPreviews),
        row("mainWindowGeometry", Store::product, &Settings::mainWindowGeometry, &Settings::setMainWindowGeometry),
        row("mainWindowState", Store::product, &Settings::mainWindowState, &Settings::setMainWindowState),
        row("splitterMainGeometry", Store::product, &Settings::splitterMainGeometry, &Settings::setSplitterMainGeometry),
        row("splitterMainState", Store::product, &Settings::splitterMainState, &Settings::setSplitterMainState),
        row("splitterTopPanelGeometry", Store::product, &Settings::splitterTopPanelGeometry, &Settings::setSplitterTopPanelGeometry),
        row("splitterTopPanelState", Store::product, &Settings::splitterTopPanelState, &Settings::setSplitterTopPanelState),
        row("audioRecordPath", Store::product, &Settings::audioRecordPath, &Settings::setAudioRecordPath, &Settings::defaultAudioRecordPath),
        row("audioRecordFormat", Store::product, &Settings::audioRecordFormat, &Settings::setAudioRecordFormat),
        row("audioRecordCodec", Store::product, &Settings::audioRecordCodec, &Settings::setAudioRecordCodec),
        row("downloadableResourcesPath", Store::product, &Settings::downloadableResourcesPath, &Settings::setDownloadableResourcesPath, &Settings::defaultDownloadableResourcesPath),
        row("stabilizedFilePath", Store::product, &Settings::stabilizedFilePath, &Settings::setStabilizedFilePath, &Settings::defaultStabilizedFilePath),
        row("freezedFileFormat", Store::product, &Settings::freezedFileFormat, &Settings::setfreezedFileFormat),
        row("notificationsEnabled", Store::product, &Settings::notificationsEnabled, &Settings::setNotificationsEnabled),
        row("useGuideLines", Store::product, &Settings::useGuideLines, &Settings::setUseGuideLines),
        row("acquaintedWithFastTrack", Store::product, &Settings::acquaintedWithFastTrack, &Settings::setAcquaintedWithFastTrack),
        row("fastTrackEnabled", Store::product, &Settings::fastTrackEnabled, &Settings::setFastTrackEnabled),
        row("useFilmstripPreview", Store::product, &Settings::useFilmstripPreview, &Settings::setUseFilmstripPreview),
        row("fastTrackContentPath", Store::product, &Settings::fastTrackContentPath, &Settings::setFastTrackContentPath, &Settings::defaultFastTrackContentPath),
        row("waveformCachePath", Store::product, &Settings::waveformCachePath, &Settings::setWaveformCachePath, &Settings::defaultWaveformCachePath),
        row("newsCenterContentPath", Store::product, &Settings::newsCenterContentPath, &Settings::setNewsCenterContentPath, &Settings::defaultNewsCenterContentPath),
        row("quizExportUserId", Store::product, &Settings::quizExportUserId, &Settings::setQuizExportUserId),
        row("quizAgreementChecked", Store::product, &Settings::quizAgreementChecked, &Settings::setQuizAgreementChecked),
        row("bundleShadowCachePath", Store::product, &Settings::bundleShadowCachePath, &Settings::setBundleShadowCachePath, &Settings::defaultBundleShadowCachePath),
        row("downloaderCachePath", Store::product, &Settings::downloaderCachePath, &Settings::setDownloaderCachePath, &Settings::defaultDownloaderCachePath),
        row("packInAppCachePath", Store::product, &Settings::packInAppCachePath, &Settings::setPackInAppCachePath, &Settings::defaultPackInAppCachePath),
        row("snapshotPath", Store::product, &Settings::snapshotPath, &Settings::setSnapshotPath, &Settings::defaultLumoraLibraryPath),
        row("npsReadyNotificationCount", Store::product, &Settings::npsReadyNotificationCount, &Settings::setNPSReadyNotificationCount),
        row("npsStartExportCount", Store::product, &Settings::npsStartExportCount, &Settings::setNPSStartExportCount),
        row("npsSendCount", Store::product, &Settings::npsSendCount, &Settings::setNPSSendCount),
        row("npsValueToSend", Store::product, &Settings::npsValueToSend, &Settings::setNPSValueToSend),
        row("npsCommentToSend", Store::product, &Settings::npsCommentToSend, &Settings::setNPSCommentToSend),
        row("npsEmailToSend", Store::product, &Settings::npsEmailToSend, &Settings::setNPSEmailToSend),
        row("achievedTutorials", Store::product, &Settings::achievedTutorials, &Settings::setAchievedTutorials),
        row("userCustomColors", Store::product, &Settings::userCustomColors, &Settings::setUserCustomColors),
        row("targetHistory", Store::product, &Settings::targetHistory, &Settings::setTargetHistory),
    };
    return rows;
}

std::vector<Place> const& places()
{
    static std::vector<Place> const rows = {
        place("defaultLumoraLibraryPath", &Settings::defaultLumoraLibraryPath),
        place("defaultProjectPath", &Settings::defaultProjectPath),
        place("defaultAudioRecordPath", &Settings::defaultAudioRecordPath),
        place("defaultStabilizedFilePath", &Settings::defaultStabilizedFilePath),
        place("defaultFastTrackContentPath", &Settings::defaultFastTrackContentPath),
        place("defaultDownloadableResourcesPath", &Settings::defaultDownloadableResourcesPath),
        place("defaultNewsCenterContentPath", &Settings::defaultNewsCenterContentPath),
        place("defaultBundleShadowCachePath", &Settings::defaultBundleShadowCachePath),
        place("defaultDownloaderCachePath", &Settings::defaultDownloaderCachePath),
        place("defaultPackInAppCachePath", &Settings::defaultPackInAppCachePath),
        place("defaultWaveformCachePath", &Settings::defaultWaveformCachePath),
    };
    return rows;
}
// clang-format on

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

char const* placeName(QString (*function)())
{
    return std::find_if(places().begin(), places().end(), [&](Place const& place) { return place.get == function; })->name;
}

Value Row::read() const
{
    return std::visit([](auto const& typed) -> Value { return typed.get(); }, accessors);
}

void Row::write(Value const& value) const
{
    std::visit([&](auto const& typed) { typed.set(std::get<decltype(typed.get())>(value)); }, accessors);
}

namespace {

// A store that answers as if nothing were stored, and notes what it was asked for.
class NothingStored final : public ISettingsStorage {
public:
    std::optional<std::string> askedKey() const { return m_askedKey; }

    void setBool(std::string const&, bool) override {}
    void setInt(std::string const&, int) override {}
    void setString(std::string const&, std::string const&) override {}
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
};

// The library bound to stores that hold nothing, for as long as the object lives.
class WithoutStoredValues {
public:
    WithoutStoredValues()
    {
        SettingsContext context = m_earlier;
        context.commonStorage = common;
        context.productStorage = product;
        Settings::init(context);
    }
    ~WithoutStoredValues() { Settings::init(m_earlier); }
    WithoutStoredValues(WithoutStoredValues const&) = delete;
    WithoutStoredValues& operator=(WithoutStoredValues const&) = delete;

    std::shared_ptr<NothingStored> const common = std::make_shared<NothingStored>();
    std::shared_ptr<NothingStored> const product = std::make_shared<NothingStored>();

private:
    SettingsContext const m_earlier = s_instance;
};

std::shared_ptr<ISettingsStorage> boundStore(Store store)
{
    return (store == Store::common ? s_instance.commonStorage : s_instance.productStorage).lock();
}

} // namespace

Observation observe(Row const& row)
{
    Observation result;
    {
        WithoutStoredValues const stores;
        result.defaultValue = row.read();
        if (stores.product->askedKey())
            result.store = Store::product;
        if (stores.common->askedKey())
            result.store = Store::common;
        if (result.store)
            result.key = *(result.store == Store::common ? stores.common : stores.product)->askedKey();
    }
    result.value = row.read();
    result.isStored = result.store && boundStore(*result.store)->contains(result.key);
    return result;
}

bool unset(Row const& row)
{
    Observation const observation = observe(row);
    if (observation.isStored)
        boundStore(*observation.store)->remove(observation.key);
    return observation.isStored;
}

bool comesBackUnchanged(QStringList const& list)
{
    // A default passes through the same encoding as a stored list.
    WithoutStoredValues const stores;
    bool const useCommonStorage = false;
    return ::read("list", list, useCommonStorage) == list;
}

} // namespace Catalogue
