// SPDX-License-Identifier: MIT
#include <Notifier/Notifier.h>
#include <Storage/SqliteStorage.h>

#include <QCoreApplication>

#include <cstdio>

int main(int argc, char** argv)
{
    QCoreApplication const application(argc, argv);
    Storage::SqliteStorage store("followed.sqlite");
    Notifier::Notifier notifier({{QStringLiteral("own"), store.file()}});
    notifier.watchPrefix(QString());
    QObject::connect(&notifier, &Notifier::Notifier::watching, [&] { store.setInt("a", 1); });
    QObject::connect(&notifier, &Notifier::Notifier::changed, [](QString const& key) {
        std::printf("%s changed\n", key.toUtf8().constData());
        QCoreApplication::quit();
    });
    return QCoreApplication::exec();
}
