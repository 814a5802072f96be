// SPDX-License-Identifier: MIT
#include <Catalogue/Catalogue.h>

#include <algorithm>
#include <array>
#include <map>
#include <utility>

namespace Catalogue {

namespace {

template <typename Function>
Location location(char const* name, char const* purpose, Function* function, Root root, Use use, std::vector<std::string> arguments = {})
{
    return {name, purpose, root, use, function, std::move(arguments)};
}

} // namespace

// clang-format off
std::vector<Location> const& locations()
{
    static std::vector<Location> const rows = {
        location("productDataPath", "The product's own data, such as its store", &productDataPath, Root::data, Use::written),
        location("defaultLumoraLibraryPath", "The user's library: exported films, freeze frames and snapshots", &Settings::defaultLumoraLibraryPath, Root::movies, Use::fallback),
        location("defaultProjectPath", "Saved projects", &Settings::defaultProjectPath, Root::movies, Use::fallback),
        location("defaultAudioRecordPath", "Audio recordings", &Settings::defaultAudioRecordPath, Root::music, Use::fallback),
        location("defaultStabilizedFilePath", "Stabilized clips", &Settings::defaultStabilizedFilePath, Root::movies, Use::fallback),
        location("defaultFastTrackContentPath", "Preview files of the fast track", &Settings::defaultFastTrackContentPath, Root::movies, Use::fallback),
        location("defaultDownloadableResourcesPath", "Downloaded media", &Settings::defaultDownloadableResourcesPath, Root::movies, Use::fallback),
        location("defaultNewsCenterContentPath", "Content of the news centre", &Settings::defaultNewsCenterContentPath, Root::cache, Use::fallback),
        location("defaultBundleShadowCachePath", "Shadow copies of bundles", &Settings::defaultBundleShadowCachePath, Root::cache, Use::fallback),
        location("defaultDownloaderCachePath", "Cache of the downloader", &Settings::defaultDownloaderCachePath, Root::cache, Use::fallback),
        location("defaultPackInAppCachePath", "Packages delivered within the application", &Settings::defaultPackInAppCachePath, Root::cache, Use::fallback),
        location("defaultWaveformCachePath", "Cached waveforms", &Settings::defaultWaveformCachePath, Root::data, Use::fallback),
        location("resourceFile", "Whatever ships with the product, by its name below the resources root", &resourceFile, Root::resources, Use::shipped, {"FILE"}),
        location("stockSampleProjectsPath", "Sample projects", &stockSampleProjectsPath, Root::resources, Use::shipped),
        location("presetFilePath", "The product's presets", &Settings::presetFilePath, Root::resources, Use::shipped),
        location("transitionPreviewImageAPath", "Preview of transitions: the first picture", &Settings::transitionPreviewImageAPath, Root::resources, Use::shipped),
        location("transitionPreviewImageBPath", "Preview of transitions: the second picture", &Settings::transitionPreviewImageBPath, Root::resources, Use::shipped),
        location("titlePreviewImagePath", "Preview of titles", &Settings::titlePreviewImagePath, Root::resources, Use::shipped),
        location("calloutPreviewImagePath", "Preview of callouts", &Settings::calloutPreviewImagePath, Root::resources, Use::shipped),
        location("quizPreviewImagePath", "Preview of quizzes", &Settings::quizPreviewImagePath, Root::resources, Use::shipped),
        location("effectPreviewImagePath", "Preview of effects", &Settings::effectPreviewImagePath, Root::resources, Use::shipped),
        location("audioPreviewImagePath", "Preview of audio, a picture of the player", &Settings::audioPreviewImagePath, Root::resources, Use::shipped),
        location("panZoomPreviewImagePath", "Preview of pan and zoom", &Settings::panZoomPreviewImagePath, Root::resources, Use::shipped),
        location("animationBackgroundPreviewImagePath", "Preview of animations: the background", &Settings::animationBackgroundPreviewImagePath, Root::resources, Use::shipped),
        location("animationIconPreviewImagePath", "Preview of animations: the icon", &Settings::animationIconPreviewImagePath, Root::resources, Use::shipped),
        location("colorFilterPreviewImagePath", "Preview of colour filters", &Settings::colorFilterPreviewImagePath, Root::resources, Use::shipped),
        location("stockTitlesSvgPath", "Titles", &Settings::stockTitlesSvgPath, Root::resources, Use::shipped),
        location("stockCalloutsSvgPath", "Callouts", &Settings::stockCalloutsSvgPath, Root::resources, Use::shipped),
        location("stockStickersSvgPath", "Stickers", &Settings::stockStickersSvgPath, Root::resources, Use::shipped),
        location("stockImportsPath", "Imports", &Settings::stockImportsPath, Root::resources, Use::shipped),
        location("stockAudioEffectsPath", "Audio effects", &Settings::stockAudioEffectsPath, Root::resources, Use::shipped),
        location("stockVideoEffectsPath", "Video effects", &Settings::stockVideoEffectsPath, Root::resources, Use::shipped),
        location("stockPipEffectsPath", "Picture-in-picture effects", &Settings::stockPipEffectsPath, Root::resources, Use::shipped),
        location("stockColorFiltersPath", "Colour filters", &Settings::stockColorFiltersPath, Root::resources, Use::shipped),
        location("stockTransitionsPath", "Transitions", &Settings::stockTransitionsPath, Root::resources, Use::shipped),
        location("stockAnimationsPath", "Animations", &Settings::stockAnimationsPath, Root::resources, Use::shipped),
        location("stockPanAndZoomPath", "Pan and zoom", &Settings::stockPanAndZoomPath, Root::resources, Use::shipped),
        location("stockContentPackagesPath", "Packages of content", &Settings::stockContentPackagesPath, Root::resources, Use::shipped),
        location("stockServicePackagesPath", "Packages of services", &Settings::stockServicePackagesPath, Root::resources, Use::shipped),
        location("stockWizardPackagesPath", "Packages of the wizard", &Settings::stockWizardPackagesPath, Root::resources, Use::shipped),
        location("stockThemesPath", "Themes", &Settings::stockThemesPath, Root::resources, Use::shipped),
        location("stockWizardBackgroundsPath", "Backgrounds of the wizard", &Settings::stockWizardBackgroundsPath, Root::resources, Use::shipped),
        location("blurMasksPath", "Masks for blurring", &Settings::blurMasksPath, Root::resources, Use::shipped),
        location("flyingObjectsPath", "Flying objects", &Settings::flyingObjectsPath, Root::resources, Use::shipped),
        location("stockMusicPath", "Music", &Settings::stockMusicPath, Root::nothing, Use::fragment),
        location("stockAudioPath", "Audio", &Settings::stockAudioPath, Root::nothing, Use::fragment),
        location("stockVideoPath", "Videos", &Settings::stockVideoPath, Root::nothing, Use::fragment),
        location("stockBackgroundsPath", "Backgrounds", &Settings::stockBackgroundsPath, Root::nothing, Use::fragment),
        location("userIntrosPath", "The user's own intros", &Settings::userIntrosPath, Root::data, Use::written),
        location("userOverlaysPath", "The user's own overlays", &Settings::userOverlaysPath, Root::data, Use::written),
        location("userEffectsPath", "One of the user's own effects, by its name", &Settings::userEffectsPath, Root::data, Use::written, {"NAME"}),
        location("userUnsplashPath", "Pictures of Unsplash that the user has saved", &Settings::userUnsplashPath, Root::data, Use::written),
        location("unsplashContentPath", "Pictures of Unsplash", &Settings::unsplashContentPath, Root::data, Use::written),
        location("packageDeploymentPath", "Packages that are deployed, for all products of the vendor", &Settings::packageDeploymentPath, Root::data, Use::written),
        location("fastTrackConfigurationPath", "Configuration of the fast track", &Settings::fastTrackConfigurationPath, Root::data, Use::written),
        location("waveformConfigurationPath", "Configuration of waveforms", &Settings::waveformConfigurationPath, Root::data, Use::written),
        location("stockPackagesStatisticsPath", "Statistics of stock packages", &Settings::stockPackagesStatisticsPath, Root::data, Use::written),
        location("deployedPackagesStatisticsPath", "Statistics of deployed packages", &Settings::deployedPackagesStatisticsPath, Root::data, Use::written),
        location("notificationFile", "The sound of a notification", &Settings::notificationFile, Root::resources, Use::shipped, {"finish", "error"}),
        location("countDownImagePath", "Picture behind the countdown's figures", &Settings::countDownImagePath, Root::nothing, Use::embedded),
        location("portableProjectMediaPath", "Media of a portable project", &Settings::portableProjectMediaPath, Root::nothing, Use::fragment),
        location("sampleProjectPath", "The sample project to offer", &Settings::sampleProjectPath, Root::resources, Use::shipped),
    };
    return rows;
}
// clang-format on

// In the order of Root.
char const* rootName(Root root)
{
    static constexpr std::array words = {"movies", "music", "cache", "data", "resources", "nothing"};
    return words.at(static_cast<std::size_t>(root));
}

// In the order of Use.
char const* useName(Use use)
{
    static constexpr std::array words = {"default of a preference", "written to", "shipped with the product",
                                         "joined to a folder by the editor", "inside the editor's program"};
    return words.at(static_cast<std::size_t>(use));
}

Location const* findLocation(std::string const& name)
{
    auto const found =
        std::find_if(locations().begin(), locations().end(), [&](Location const& location) { return location.name == name; });
    return found == locations().end() ? nullptr : &*found;
}

Location const& locationOf(QString (*function)())
{
    auto const computes = [&](Location const& location) { return location.function == decltype(location.function)(function); };
    return *std::find_if(locations().begin(), locations().end(), computes);
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

// Calls the function of a location, with the argument if it takes one.
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

QString Location::path(std::string const& argument) const { return std::visit(Asked{argument}, function); }

} // namespace Catalogue
