// SPDX-License-Identifier: MIT
//
// The default project name in the user's language.
//
// The library translates "New Project" at each call, in the context "QObject". lrelease compiles a .ts file with that context
// to a .qm file, which ships with the program and is installed as a translator.
#include <Settings/Settings.h>

#include <QCoreApplication>
#include <QLocale>
#include <QTranslator>

#include <cstdio>

int main(int argc, char** argv)
{
    QCoreApplication const application(argc, argv);
    std::puts(Settings::projectNameDefault().toUtf8().constData());

    // Most languages have no file: their users read English.
    QTranslator translator;
    QString const folder = QCoreApplication::applicationDirPath() + QStringLiteral("/../share/editor-examples/translations");
    if (translator.load(QLocale(), QStringLiteral("editor"), QStringLiteral("_"), folder))
        QCoreApplication::installTranslator(&translator);
    std::puts(Settings::projectNameDefault().toUtf8().constData());
}
