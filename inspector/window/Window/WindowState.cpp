// SPDX-License-Identifier: MIT
#include <Window/WindowState.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>

namespace Inspector {

namespace {

constexpr qint64 largestFile = 65536;
constexpr int largestSize = 10000;

QString folder()
{
    QString const given = qEnvironmentVariable("XDG_STATE_HOME");
    bool const isAbsolute = given.startsWith(QLatin1Char('/')); // else it is to be ignored
    return (isAbsolute ? given : QDir::homePath() + QStringLiteral("/.local/state")) + QStringLiteral("/editor-settings-inspector");
}

int sizeOf(QJsonValue const& value) { return qBound(0, value.toInt(), largestSize); }

QList<int> sizesOf(QJsonValue const& value)
{
    QList<int> result;
    QJsonArray const all = value.toArray();
    for (auto const& each : all)
        result += sizeOf(each);
    return result;
}

QJsonArray arrayOf(QList<int> const& sizes)
{
    QJsonArray result;
    for (int const size : sizes)
        result += size;
    return result;
}

// Empty where the file cannot be the one that was saved. A pipe would be waited for, a device may have no end.
QJsonObject content(QString const& name)
{
    QFileInfo const info(name);
    QFile file(name);
    if (info.isSymLink() || !info.isFile() || info.size() > largestFile || !file.open(QIODevice::ReadOnly))
        return {};
    return QJsonDocument::fromJson(file.read(largestFile)).object();
}

} // namespace

QString WindowState::file() { return folder() + QStringLiteral("/window.json"); }

WindowState WindowState::load()
{
    QJsonObject const kept = content(file());
    WindowState state;
    QList<int> const size = sizesOf(kept[QLatin1String("size")]);
    if (size.size() == 2)
        state.size = {size[0], size[1]};
    state.page = sizeOf(kept[QLatin1String("page")]);
    QJsonArray const searches = kept[QLatin1String("searches")].toArray();
    for (auto const& search : searches)
        state.searches += search.toString();
    QJsonArray const columns = kept[QLatin1String("columns")].toArray();
    for (auto const& widths : columns)
        state.columns += sizesOf(widths);
    state.parts = sizesOf(kept[QLatin1String("parts")]);
    return state;
}

void WindowState::save() const
{
    QJsonArray widths;
    for (QList<int> const& each : columns)
        widths += arrayOf(each);
    QJsonObject const kept = {{QStringLiteral("size"), arrayOf({size.width(), size.height()})},
                              {QStringLiteral("page"), page},
                              {QStringLiteral("searches"), QJsonArray::fromStringList(searches)},
                              {QStringLiteral("columns"), widths},
                              {QStringLiteral("parts"), arrayOf(parts)}};
    // What a link leads to is not the program's own.
    if (QFileInfo(file()).isSymLink() || !QDir().mkpath(folder()))
        return;
    QSaveFile saved(file());
    if (saved.open(QIODevice::WriteOnly) && saved.write(QJsonDocument(kept).toJson()) > 0)
        saved.commit();
}

} // namespace Inspector
