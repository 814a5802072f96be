// SPDX-License-Identifier: MIT
#include <Inspection/PathOrigin.h>

#include <Inspection/PreferenceState.h>

#include <absl/strings/str_cat.h>

#include <Lumora/Util/StandardPaths.h>

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTextStream>

#include <functional>
#include <map>

using Catalogue::Root;

namespace Inspection {
namespace {

using By = Decision::By;
using Lookup = Decision::Lookup;

// --- Sentences ---

std::string inDoubleQuotes(std::string const& text) { return absl::StrCat("\"", text, "\""); }

std::string inTheHomeFolder(std::string const& path)
{
    return path[0] == '/' ? path : absl::StrCat(inDoubleQuotes(path), " in the home folder");
}

std::string variableText(Decision const& decision)
{
    if (decision.lookup == Lookup::found)
        return absl::StrCat(decision.name, "=", *decision.value, " in the environment");
    char const* const what = decision.lookup == Lookup::empty ? " is empty, so " : " is not set, so ";
    return absl::StrCat(decision.name, what, inTheHomeFolder(decision.fallback));
}

std::string userDirsText(Decision const& decision)
{
    std::string const so = absl::StrCat(", so ", inTheHomeFolder(decision.fallback));
    switch (decision.lookup) {
    case Lookup::found:
        return absl::StrCat(decision.name, "=", inDoubleQuotes(*decision.value), " in ", place(decision));
    case Lookup::noFile:
        return absl::StrCat("there is no ", decision.where, so);
    case Lookup::unreadable:
        return absl::StrCat(decision.where, " cannot be read (", decision.error, ")", so);
    default:
        return absl::StrCat("no ", decision.name, " in ", decision.where, so);
    }
}

std::string preferenceText(Decision const& decision)
{
    if (decision.lookup == Lookup::found)
        return absl::StrCat(decision.name, " is stored in ", decision.where);
    char const* const what = decision.lookup == Lookup::otherKind ? " is stored with a value of another kind in " : " is not stored in ";
    return absl::StrCat(decision.name, what, decision.where, ", so Settings::", decision.fallback, "() holds");
}

// --- What decides the root ---

// A folder, with what decides that it is this one.
struct Origin {
    QString folder;
    std::vector<Decision> decisions;
};

Decision variable(char const* name, std::string const& fallback)
{
    std::optional<std::string> value;
    if (qEnvironmentVariableIsSet(name))
        value = qgetenv(name).toStdString();
    Lookup const lookup = !value ? Lookup::unset : value->empty() ? Lookup::empty : Lookup::found;
    return {By::environment, name, value, {}, 0, lookup, fallback};
}

// `folder` in the home folder, for the reason `first`.
Origin inHomeFolder(Decision const& first, QString const& folder)
{
    QString const home = QDir::homePath();
    return {home + folder, {first, variable("HOME", home.toStdString())}};
}

// The folder that a variable names.
Origin namedFolder(char const* name, char const* folderInHome)
{
    Decision const decision = variable(name, folderInHome);
    if (decision.lookup != Lookup::found)
        return inHomeFolder(decision, QLatin1Char('/') + QLatin1String(folderInHome));
    return {QFile::decodeName(qgetenv(name)), {decision}};
}

struct Line {
    int number = 0;
    QString value;
};

// The last line that sets `name`, without the quotes around its value. Qt takes the name up to the last "_DIR=" of a line,
// and no name from a line that is not valid text.
std::optional<Line> lastSetting(QFile& file, QString const& name)
{
    static QRegularExpression const setting(QStringLiteral("^(XDG_.*_DIR)=(.*)$"));
    std::optional<Line> found;
    QTextStream stream(&file);
    for (int number = 1; !stream.atEnd(); ++number) {
        QRegularExpressionMatch const match = setting.match(stream.readLine());
        if (match.captured(1) != name)
            continue;
        QString value = match.captured(2);
        if (value.size() > 2 && value.startsWith(QLatin1Char('"')) && value.endsWith(QLatin1Char('"')))
            value = value.mid(1, value.size() - 2);
        found = Line{number, value};
    }
    return found;
}

// The folder that `value` of a line names, which `decision` describes.
Origin lineFolder(QString const& value, Decision const& decision)
{
    QString const home = QStringLiteral("$HOME");
    Origin origin = value.startsWith(home) ? inHomeFolder(decision, value.mid(home.size())) : Origin{value, {decision}};
    if (origin.folder.size() > 1 && origin.folder.endsWith(QLatin1Char('/')))
        origin.folder.chop(1);
    return origin;
}

// The folder that a line of user-dirs.dirs names.
Origin userFolder(char const* name, char const* folderInHome)
{
    Origin const configuration = namedFolder("XDG_CONFIG_HOME", ".config");
    QFile file(configuration.folder + QLatin1String("/user-dirs.dirs"));
    bool const isReadable = file.open(QIODevice::ReadOnly);
    Decision decision = {By::userDirs, name, {}, file.fileName().toStdString(), 0, Lookup::unset, folderInHome};
    Origin origin;
    if (std::optional<Line> const line = isReadable ? lastSetting(file, QString::fromUtf8(name)) : std::nullopt) {
        decision = {By::userDirs, name, line->value.toStdString(), decision.where, line->number};
        origin = lineFolder(line->value, decision);
    } else {
        if (!isReadable) {
            decision.lookup = file.exists() ? Lookup::unreadable : Lookup::noFile;
            decision.error = file.errorString().toStdString();
        }
        origin = inHomeFolder(decision, QLatin1Char('/') + QLatin1String(folderInHome));
    }
    // The variable decides where the file is looked for.
    if (configuration.decisions.front().lookup == Lookup::found)
        origin.decisions.push_back(configuration.decisions.front());
    return origin;
}

// The decisions of `origin` where they lead to `folder`, which `function` returned; else the function itself.
std::vector<Decision> confirmed(Origin const& origin, QString const& folder, char const* function)
{
    if (origin.folder == folder)
        return origin.decisions;
    return {{By::platform, function, folder.toStdString()}};
}

std::vector<Decision> rootDecisions(Host::ToolApplication const& application, Root root)
{
    auto const standardPath = [](Origin const& origin, QStandardPaths::StandardLocation location) {
        return confirmed(origin, Lumora::Util::GetStandardPath(location), "Lumora::Util::GetStandardPath");
    };
    switch (root) {
    case Root::movies:
        return standardPath(userFolder("XDG_VIDEOS_DIR", "Videos"), QStandardPaths::MoviesLocation);
    case Root::music:
        return standardPath(userFolder("XDG_MUSIC_DIR", "Music"), QStandardPaths::MusicLocation);
    case Root::cache:
        return standardPath(namedFolder("XDG_CACHE_HOME", ".cache"), QStandardPaths::CacheLocation);
    case Root::data:
        return confirmed(namedFolder("XDG_DATA_HOME", ".local/share"),
                         QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation), "QStandardPaths::writableLocation");
    case Root::resources:
        return {{By::resourcesRoot, "resourcesRoot", application.productFile().resourcesRoot().u8string(),
                 application.productFile().file().u8string()}};
    case Root::nothing:
        break;
    }
    return {{By::library, "", {}}};
}

// The root's decisions, and the fields that the library asks the product for.
std::vector<Decision> decisions(Host::ToolApplication const& application, Catalogue::Location const& location)
{
    static std::map<std::string, std::function<std::string(IProductInfo const&)>> const fields = {
        {"vendorName", [](IProductInfo const& product) { return product.vendorName(); }},
        {"productName", [](IProductInfo const& product) { return product.productName(); }},
        {"sharedDataFolderName", [](IProductInfo const& product) { return product.sharedDataFolderName(); }},
        {"productKind", [](IProductInfo const& product) { return std::to_string(product.productKind()); }},
        {"projectFileExtensions", [](IProductInfo const& product) { return product.projectFileExtensions(); }},
    };
    std::vector<Decision> result = rootDecisions(application, location.root);
    for (std::string const& field : Catalogue::askedOfTheProduct(location))
        result.push_back(
            {By::productField, field, fields.at(field)(application.productFile()), application.productFile().file().u8string()});
    return result;
}

} // namespace

char const* name(Decision::By by)
{
    static std::map<By, char const*> const names = {
        {By::environment, "environment"},    {By::userDirs, "user-dirs.dirs"}, {By::productField, "product file"},
        {By::resourcesRoot, "product file"}, {By::preference, "preference"},   {By::library, "library"},
        {By::platform, "platform"},          {By::argument, "argument"},
    };
    return names.at(by);
}

std::string place(Decision const& decision)
{
    return decision.line == 0 ? decision.where : absl::StrCat(decision.where, ", line ", decision.line);
}

std::string text(Decision const& decision)
{
    switch (decision.by) {
    case By::environment:
        return variableText(decision);
    case By::userDirs:
        return userDirsText(decision);
    case By::productField:
        return absl::StrCat(decision.name, " ", inDoubleQuotes(*decision.value), " in ", decision.where);
    case By::resourcesRoot:
        return absl::StrCat("resourcesRoot of ", decision.where, ", which is ", *decision.value);
    case By::preference:
        return preferenceText(decision);
    case By::library:
        return "nothing: the text is fixed";
    case By::platform:
        return absl::StrCat(decision.name, " gives ", *decision.value);
    case By::argument:
        break;
    }
    return "nothing else: an absolute path stands for itself";
}

std::vector<Decision> decisions(Host::ToolApplication const& application, LocationState const& location)
{
    if (location.location->root == Root::resources && location.argument[0] == '/')
        return {{By::argument, location.argument, location.argument}};
    if (!location.preference)
        return decisions(application, *location.location);
    PreferenceState const found = preferenceState(application, location.name).value();
    bool const isOfStudio = found.layer() == Layer::locked || found.layer() == Layer::studio;
    Decision decision = {
        By::preference, location.name, {}, isOfStudio ? "the studio's settings" : application.productStorageFile().u8string()};
    if (found.isRead()) {
        decision.value = location.path.toStdString();
        return {decision};
    }
    decision.lookup = found.stored.empty() ? Lookup::unset : Lookup::otherKind;
    decision.fallback = location.location->name;
    std::vector<Decision> result = decisions(application, *location.location);
    result.insert(result.begin(), decision);
    return result;
}

} // namespace Inspection
