// SPDX-License-Identifier: MIT
//
// What ships with a program, found wherever the program was installed: its resources and its sample project.
//
// The resources root is part of the binding. Relative to the executable it is right in every prefix, and after a move. The
// library looks for a sample project only, so the host checks for everything else.
#include "Product.h"

#include <Settings/Settings.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <cstdio>
#include <stdexcept>

namespace {

QByteArray shippedText(std::string const& relative)
{
    std::string const path = resourceFile(relative);
    QFile file(QString::fromStdString(path));
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error("cannot read " + path + ": " + file.errorString().toStdString());
    return file.readAll();
}

QString shippedProject()
{
    QString const path = Settings::sampleProjectPath();
    if (path.isNull())
        throw std::runtime_error("there is no sample project in " + stockSampleProjectsPath().toStdString());
    return path;
}

} // namespace

int main(int argc, char** argv)
try {
    QCoreApplication const application(argc, argv);
    QString const root = QDir::cleanPath(QCoreApplication::applicationDirPath() + QStringLiteral("/../share/editor-examples"));
    // This program reads no preference, so it binds no store.
    auto const product = std::make_shared<Product>();
    Settings::init({product, {}, {}, Lumora::ioPath(root.toStdString())});

    std::fputs(shippedText("resources/welcome.txt").constData(), stdout);
    std::puts(shippedProject().toUtf8().constData());
} catch (std::exception const& error) {
    std::fprintf(stderr, "07-ship-resources: %s\n", error.what());
    return 1;
}
