// SPDX-License-Identifier: MIT
#include <Window/MainWindow.h>

#include <Settings/Version.h>

#include <QApplication>
#include <QCommandLineParser>

// NOLINTNEXTLINE(bugprone-exception-escape): only a lack of memory is thrown here, which ends the process
int main(int argc, char** argv)
{
    QApplication const application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("editor-settings-inspector"));
    QApplication::setApplicationVersion(QLatin1String(EDITOR_SETTINGS_VERSION_STRING));
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Shows and changes the preferences of Lumora Video Editor."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addOptions({{QStringLiteral("product"), QStringLiteral("The product file."), QStringLiteral("FILE")},
                       {QStringLiteral("home"), QStringLiteral("The folder that holds both stores."), QStringLiteral("FOLDER")}});
    parser.process(application);
    Inspector::Place place = {parser.value(QStringLiteral("product")).toStdString()};
    if (parser.isSet(QStringLiteral("home")))
        place.storeFolder = parser.value(QStringLiteral("home")).toStdString();
    Inspector::MainWindow window(place);
    window.show();
    return QApplication::exec();
}
