// SPDX-License-Identifier: MIT
#include <Host/Application.h>
#include <Notifier/Notifier.h>
#include <Settings/Settings.h>
#include <Settings/Version.h>

#include <QCoreApplication>
#include <QTranslator>

#include <cstdio>

struct Product : IProductInfo {
    std::string vendorName() const override { return "Lumora"; }
    std::string productName() const override { return "Lumora Video Editor"; }
    std::string sharedDataFolderName() const override { return "VideoEditor"; }
    int productKind() const override { return 0; }
    std::string projectFileExtensions() const override { return "lumora"; }
};

// Sets a preference once its store is watched, and ends at the signal of that change.
void follow(Storage::SqliteStorage& store)
{
    Notifier::Notifier notifier({{QStringLiteral("product"), store.file()}});
    notifier.watch(QStringLiteral("npsSendCount"));
    QObject::connect(&notifier, &Notifier::Notifier::watching, [&] { store.setInt("npsSendCount", 3); });
    QObject::connect(&notifier, &Notifier::Notifier::changed, [](QString const& key) {
        std::puts(key.toUtf8().constData());
        QCoreApplication::quit();
    });
    QCoreApplication::exec();
}

int main(int argc, char** argv)
{
    QCoreApplication const qt(argc, argv);
    Host::Application const application(std::make_shared<Product>(), "resources");

    std::puts(EDITOR_SETTINGS_VERSION_STRING);
    std::puts(Settings::exportPath().toUtf8().constData());
    QTranslator french;
    if (french.load(QStringLiteral("editor-settings_fr"), QStringLiteral(TRANSLATIONS)))
        QCoreApplication::installTranslator(&french);
    std::puts(Settings::projectNameDefault().toUtf8().constData());
    follow(*application.productStorage());
}
