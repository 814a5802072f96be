// SPDX-License-Identifier: MIT
#include <Inspection/PathOrigin.h>

#include "terminal/Escaping.h"

#include <absl/strings/str_cat.h>

#include <Lumora/Util/StandardPaths.h>

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTextStream>

#include <functional>
#include <map>

using Catalogue::Root;

namespace {

std::string inDoubleQuotes(std::string const& text) { return '"' + onOneLine(text) + '"'; }

// A folder, with what decides that it is this one.
struct Origin {
    QString folder;
    std::vector<Decision> decisions;
};

// The reason that a variable is, and whether it says anything: Qt takes an empty one for none.
Decision variable(char const* name, std::string const& consequence)
{
    bool const isSet = qEnvironmentVariableIsSet(name);
    std::string const value = qgetenv(name).toStdString();
    std::string const text = !isSet          ? absl::StrCat(name, " is not set, so ", consequence)
                             : value.empty() ? absl::StrCat(name, " is empty, so ", consequence)
                                             : absl::StrCat(name, "=", onOneLine(value), " in the environment");
    return {"environment", name, isSet ? std::optional<std::string>(value) : std::nullopt, "", text};
}

Origin homeFolder() { return {QDir::homePath(), {variable("HOME", QDir::homePath().toStdString())}}; }

// `folder` in the home folder, after the reason why.
Origin inHomeFolder(Decision const& reason, char const* folder)
{
    Origin origin = homeFolder();
    origin.folder += QLatin1Char('/') + QString::fromUtf8(folder);
    origin.decisions.insert(origin.decisions.begin(), reason);
    return origin;
}

std::string consequence(char const* folder) { return absl::StrCat(inDoubleQuotes(folder), " in the home folder"); }

// A folder that a variable names.
Origin namedFolder(char const* name, char const* folderInHome)
{
    Decision const decision = variable(name, consequence(folderInHome));
    QByteArray const value = qgetenv(name);
    return value.isEmpty() ? inHomeFolder(decision, folderInHome) : Origin{QFile::decodeName(value), {decision}};
}

struct Line {
    int number = 0;
    QString value;
};

// The last line that sets `name`, with the quotes around the value taken off as Qt does, which also takes the last
// "_DIR=" of a line for the end of its name and leaves a line out that is no text.
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

// The folder that the value of a line names.
Origin lineFolder(Line const& line, Decision const& decision)
{
    QString const home = QStringLiteral("$HOME");
    Origin origin = {line.value, {decision}};
    if (line.value.startsWith(home)) {
        origin = homeFolder();
        origin.folder += line.value.midRef(home.size());
        origin.decisions.insert(origin.decisions.begin(), decision);
    }
    if (origin.folder.size() > 1 && origin.folder.endsWith(QLatin1Char('/')))
        origin.folder.chop(1);
    return origin;
}

// A folder that a line of user-dirs.dirs names.
Origin userFolder(char const* name, char const* folderInHome)
{
    Origin const configuration = namedFolder("XDG_CONFIG_HOME", ".config");
    QFile file(configuration.folder + QLatin1String("/user-dirs.dirs"));
    std::string const where = file.fileName().toStdString();
    bool const isReadable = file.open(QIODevice::ReadOnly);
    std::optional<Line> const line = isReadable ? lastSetting(file, QString::fromUtf8(name)) : std::nullopt;
    Origin origin;
    if (line) {
        std::string const value = line->value.toStdString();
        std::string const place = absl::StrCat(where, ", line ", line->number);
        std::string const text = absl::StrCat(name, "=", inDoubleQuotes(value), " in ", onOneLine(place));
        origin = lineFolder(*line, {"user-dirs.dirs", name, value, place, text});
    } else {
        std::string const path = onOneLine(where);
        std::string const so = consequence(folderInHome);
        std::string const text = isReadable      ? absl::StrCat("no ", name, " in ", path, ", so ", so)
                                 : file.exists() ? absl::StrCat(path, " cannot be read (", file.errorString().toStdString(), "), so ", so)
                                                 : absl::StrCat("there is no ", path, ", so ", so);
        origin = inHomeFolder({"user-dirs.dirs", name, {}, where, text}, folderInHome);
    }
    // Where the file is looked for.
    if (!qEnvironmentVariableIsEmpty("XDG_CONFIG_HOME"))
        origin.decisions.push_back(configuration.decisions.front());
    return origin;
}

// The reasons, where they lead to the folder that the library gets; else who gives it.
std::vector<Decision> confirmed(Origin const& origin, QString const& answer, std::string const& function)
{
    if (origin.folder == answer)
        return origin.decisions;
    std::string const path = answer.toStdString();
    return {{"platform", function, path, "", absl::StrCat(function, " gives ", onOneLine(path))}};
}

std::vector<Decision> rootDecisions(Host::Application const& application, Root root)
{
    auto const standardPath = [](Origin const& origin, QStandardPaths::StandardLocation location) {
        return confirmed(origin, Lumora::Util::GetStandardPath(location), "Lumora::Util::GetStandardPath");
    };
    std::string const productFile = application.productFile().file().u8string();
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
    case Root::resources: {
        std::string const folder = application.productFile().resourcesRoot().u8string();
        return {{"product file", "resourcesRoot", folder, productFile,
                 absl::StrCat("resourcesRoot of ", onOneLine(productFile), ", which is ", onOneLine(folder))}};
    }
    case Root::nothing:
        break;
    }
    return {{"library", "", {}, "", "nothing: the text is fixed"}};
}

} // namespace

std::vector<Decision> decisions(Host::Application const& application, Catalogue::Location const& place)
{
    std::map<std::string, std::function<std::string(IProductInfo const&)>> const fields = {
        {"vendorName", [](IProductInfo const& product) { return product.vendorName(); }},
        {"productName", [](IProductInfo const& product) { return product.productName(); }},
        {"sharedDataFolderName", [](IProductInfo const& product) { return product.sharedDataFolderName(); }},
        {"productKind", [](IProductInfo const& product) { return std::to_string(product.productKind()); }},
        {"projectFileExtensions", [](IProductInfo const& product) { return product.projectFileExtensions(); }},
    };
    std::vector<Decision> result = rootDecisions(application, place.root);
    std::string const file = application.productFile().file().u8string();
    for (std::string const& field : Catalogue::askedOfTheProduct(place)) {
        std::string const value = fields.at(field)(application.productFile());
        result.push_back({"product file", field, value, file, absl::StrCat(field, " ", inDoubleQuotes(value), " in ", onOneLine(file))});
    }
    return result;
}
