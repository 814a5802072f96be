// SPDX-License-Identifier: MIT
#include "Sources.h"

#include <support/Bench.h>
#include <support/Folders.h>

#include <KFileUtils>

#include <filesystem>
#include <memory>

namespace {

void addTaken(int count)
{
    std::string const row = Names::takenRow(count);
    auto const folder = std::make_shared<Bench::Folder>(std::filesystem::temp_directory_path().string());
    folder->fill(Names::freezeFrames(count));
    QUrl const url = QUrl::fromLocalFile(QString::fromStdString(folder->path()));
    QString const name = QStringLiteral("Holiday.final.png");
    QString const expected = QStringLiteral("Holiday.final (%1).png").arg(count + 1);
    auto const suggest = [folder, url, name, expected] {
        Bench::require(KFileUtils::suggestName(url, name) == expected, "KFileUtils suggests another name");
    };
    auto* const added = Bench::addRun(row, "KFileUtils", [suggest](benchmark::State& state) { Bench::repeat(state, suggest); });
    if (count > 5000)
        added->Iterations(1)->Repetitions(1); // takes seconds
}

Bench::Registration const registration([] {
    for (int const count : Names::takenCounts(Bench::isShort()))
        addTaken(count);
});

} // namespace
