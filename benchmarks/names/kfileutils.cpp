// SPDX-License-Identifier: MIT
#include "Sources.h"

#include <support/Bench.h>
#include <support/Folders.h>

#include <KFileUtils>

#include <memory>

namespace {

void addTaken(int count, Bench::Place const& place)
{
    std::string const row = Names::takenRow(count, place.what);
    auto const folder = std::make_shared<Bench::Folder>(place.path);
    folder->fill(Names::freezeFrames("Holiday.final", count));
    QUrl const url = QUrl::fromLocalFile(QString::fromStdString(folder->path()));
    QString const name = QStringLiteral("Holiday.final.png");
    QString const expected = QStringLiteral("Holiday.final (%1).png").arg(count + 1);
    auto const suggest = [folder, url, name, expected] {
        Bench::require(KFileUtils::suggestName(url, name) == expected, "KFileUtils suggests another name");
    };
    auto* const added = Bench::addRun(row, "KFileUtils", [suggest](benchmark::State& state) { Bench::repeat(state, suggest); });
    if (count > 5000)
        added->Iterations(1)->Repetitions(1); // takes long enough to be measured in one go
}

Bench::Registration const registration([] {
    for (Bench::Place const& place : Bench::places())
        for (int const count : Names::takenCounts(Bench::isShort()))
            addTaken(count, place);
});

} // namespace
