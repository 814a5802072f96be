// SPDX-License-Identifier: MIT
//
// KConfig sees what other processes wrote by reparseConfiguration(), and writes what they shall see by its sync().
#include "Keys.h"

#include <support/Bench.h>

#include <KConfig>
#include <KConfigGroup>

#include <QTemporaryDir>

#include <memory>

namespace {

struct Peer {
    QTemporaryDir folder;
    QString const file = folder.filePath(QStringLiteral("settings"));
    KConfig config{file, KConfig::SimpleConfig};
    KConfigGroup group{&config, "Settings"};
    int count = 0;

    Peer()
    {
        for (char const* const key : Keys::all)
            group.writeEntry(key, QString::fromStdString(Keys::value));
        config.sync();
    }
};

using Shared = std::shared_ptr<Peer>;

void addReadsAndWrites(Shared const& peer)
{
    // It reads its file again in any case.
    for (char const* const row : {"read that sees other processes", "read after another process wrote"})
        Bench::add(row, "KConfig", [peer] {
            peer->config.reparseConfiguration();
            return peer->group.readEntry(Keys::key(peer->count++), QString());
        });
    auto const write = [peer] {
        int const number = peer->count++;
        peer->group.writeEntry(Keys::key(number), QString::fromStdString(Keys::written(number)));
        peer->config.sync();
    };
    Bench::add(Keys::durableWrite, "KConfig", write)->Repetitions(Keys::writeRepetitions(Bench::isShort()));
}

void addOpening(Shared const& peer)
{
    Bench::add("open and sixty reads", "KConfig", [peer] {
        KConfig const config(peer->file, KConfig::SimpleConfig);
        KConfigGroup const group(&config, "Settings");
        for (char const* const key : Keys::all)
            benchmark::DoNotOptimize(group.readEntry(key, QString()));
    });
}

Bench::Registration const registration([] {
    addReadsAndWrites(std::make_shared<Peer>());
    addOpening(std::make_shared<Peer>());
});

} // namespace
