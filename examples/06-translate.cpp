// SPDX-License-Identifier: MIT
//
// The default project name in the user's language.
//
// The library looks "New Project" up at each call, in the context "QObject". A .ts file with that context is all
// that it takes: lrelease makes a .qm file of it, which ships with the program and is installed as a translator.
#include <Settings/Settings.h>

#include <QCoreApplication>
#include <QLocale>
#include <QTranslator>

#include <cstdio>

int main(int argc, char** argv)
{
    QCoreApplication const application(argc, argv);
    std::puts(Settings::projectNameDefault().toUtf8().constData());

    // There is no file for most of the languages: their users read English, as everybody did before.
    QTranslator translator;
    QString const folder = QCoreApplication::applicationDirPath() + QStringLiteral("/../share/editor-examples/translations");
    if (translator.load(QLocale(), QStringLiteral("editor"), QStringLiteral("_"), folder))
        QCoreApplication::installTranslator(&translator);
    std::puts(Settings::projectNameDefault().toUtf8().constData());
}
