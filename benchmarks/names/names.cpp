// SPDX-License-Identifier: MIT
//
// The names of new files in folders that are small and large, on the disk and in memory. The floor is a bare pass: readdir
// over the folder, which counts the regular files. The composition finds the number as one writes it down with Qt: a
// sorted, filtered list and a regular expression.
#include "Sources.h"

#include <support/Bench.h>
#include <support/BoundLibrary.h>
#include <support/Folders.h>

#include <QDir>
#include <QFile>
#include <QRegExp>

#include <algorithm>
#include <functional>

namespace {

struct Generator {
    std::string what;
    std::string folderKey;
    std::function<QString()> next;
    std::function<std::vector<std::string>(int count)> names;
    QString filter;
    QString number;
};

Generator recordings()
{
    return {"recording",
            "audioRecordPath",
            &Settings::generateAudioRecordFilePath,
            &Names::recordings,
            QStringLiteral("Rec-*-*-*.*"),
            QStringLiteral("Rec-(\\d+)-.*")};
}

Generator freezeFrames(std::string const& what, std::string const& stem)
{
    QString const source = QStringLiteral("/films/") + Bench::qString(stem) + QStringLiteral(".mov");
    return {what,
            "exportPath",
            [source] { return Settings::generateFreezedFilePath(source); },
            [stem](int count) { return Names::freezeFrames(stem, count); },
            QStringLiteral("*.png"),
            QRegExp::escape(Bench::qString(stem)) + QStringLiteral(" \\((\\d+)\\)\\.png")};
}

// `stem` is at work as a pattern, which the names of the files match.
Generator stabilizedClips(std::string const& what, std::string const& stem, std::string const& ofFiles)
{
    QString const source = QStringLiteral("/films/") + Bench::qString(stem) + QStringLiteral(".mov");
    return {what,
            "stabilizedFilePath",
            [source] { return Settings::generateStabilizedFilePath(source, QStringLiteral("mp4")); },
            [ofFiles](int count) { return Names::stabilized(ofFiles, count); },
            Bench::qString(stem) + QStringLiteral("-*.*"),
            Bench::qString(stem) + QStringLiteral("-(\\d+).*")};
}

Generator stabilizedClips(std::string const& what, std::string const& stem) { return stabilizedClips(what, stem, stem); }

std::vector<Generator> const& generators()
{
    static std::vector<Generator> const all{recordings(), freezeFrames("freeze frame", "Holiday.final"),
                                            stabilizedClips("stabilized clip", "Holiday")};
    return all;
}

// Names in other scripts, and a source whose name is a pattern.
std::vector<Generator> const& otherGenerators()
{
    static std::vector<Generator> const all = [] {
        std::vector<Generator> result{stabilizedClips("stabilized clip pattern", "[Hh]oliday", "Holiday")};
        for (auto const& [script, stem] :
             {std::pair("Japanese", u8"\u4F11\u65E5\u306E\u6620\u753B"), std::pair("Arabic", u8"\u0639\u0637\u0644\u0629"),
              std::pair("decomposed", u8"e\u0301te\u0301")}) {
            result.push_back(freezeFrames(std::string("freeze frame ") + script, stem));
            result.push_back(stabilizedClips(std::string("stabilized clip ") + script, stem));
        }
        return result;
    }();
    return all;
}

struct Surroundings {
    Bench::BoundLibrary library;
};

using Shared = std::shared_ptr<Surroundings>;
using SharedFolder = std::shared_ptr<Bench::Folder>;

int composed(QString const& folder, Generator const& generator)
{
    QRegExp number(generator.number);
    int highest = 0;
    QStringList const names = QDir(folder).entryList({generator.filter}, QDir::Files, QDir::Name);
    for (QString const& name : names)
        if (number.indexIn(name) >= 0)
            highest = std::max(highest, number.cap(1).toInt());
    return highest + 1;
}

void requireNumber(QString const& path, int number, std::string const& row)
{
    QString const file = path.section(QLatin1Char('/'), -1);
    QRegExp digits(QStringLiteral("\\d+"));
    Bench::require(digits.indexIn(file) >= 0 && digits.cap(0).toInt() == number, row + ": got " + file.toStdString());
}

// The largest folders are passed over once in a repetition, so more of these are needed for a steady median.
int repetitions() { return Bench::isShort() ? 1 : 9; }

void addLibrary(Shared const& all, Generator const& generator, std::string const& row, SharedFolder const& folder, int highest)
{
    auto const prepare = [=](benchmark::State& state) {
        all->library.productValues->setString(generator.folderKey, folder->path());
        state.counters["allocations"] = static_cast<double>(Bench::allocationsOf(generator.next).count);
        requireNumber(generator.next(), highest + 1, row);
    };
    auto const pass = [folder] { return Bench::passOver(folder->path()); };
    Bench::addByTurns(row, prepare, generator.next, pass)->Repetitions(repetitions());
}

void addComposition(Generator const& generator, std::string const& row, SharedFolder const& folder, int highest)
{
    QString const path = Bench::qString(folder->path());
    Bench::require(composed(path, generator) == highest + 1, row + ": the composition gives another number");
    auto* const added = Bench::addRun(row, "composition",
                                      [=](benchmark::State& state) { Bench::repeat(state, [&] { return composed(path, generator); }); });
    if (highest > 50000)
        added->Iterations(1)->Repetitions(1); // takes long enough to be measured in one go
}

void addSize(Shared const& all, Generator const& generator, int count, Bench::Place const& place)
{
    std::string const row = generator.what + ' ' + std::to_string(count) + ' ' + place.what;
    auto const folder = std::make_shared<Bench::Folder>(place.path);
    folder->fill(generator.names(count));
    addLibrary(all, generator, row, folder, count);
    addComposition(generator, row, folder, count);
}

// One in a hundred counts.
void addMixed(Shared const& all, Generator const& generator, Bench::Place const& place)
{
    int const count = Bench::isShort() ? 1000 : 10000;
    std::string const row = generator.what + " mixed " + place.what;
    auto const folder = std::make_shared<Bench::Folder>(place.path);
    folder->fill(Names::numbered("IMG_2041-", count - count / 100, ".jpeg"));
    folder->fill(generator.names(count / 100));
    addLibrary(all, generator, row, folder, count / 100);
    addComposition(generator, row, folder, count / 100);
}

Bench::Allocations allocationsIn(Shared const& all, Generator const& generator, Bench::Folder const& folder)
{
    all->library.productValues->setString(generator.folderKey, folder.path());
    generator.next();
    return Bench::allocationsOf(generator.next);
}

// What a million entries take beyond none. Too large to be kept beside the others, so the folder lives for one run.
void addMillion(Shared const& all, Generator const& generator, Bench::Place const& place)
{
    int const count = 1000000;
    std::string const row = generator.what + " 1000000 " + place.what;
    auto const run = [=](benchmark::State& state) {
        Bench::Folder const empty(place.path);
        auto const full = std::make_shared<Bench::Folder>(place.path);
        Bench::Allocations const none = allocationsIn(all, generator, empty);
        full->fill(generator.names(count));
        Bench::Allocations const million = allocationsIn(all, generator, *full);
        state.counters["more allocations"] = static_cast<double>(million.count - none.count);
        state.counters["more bytes"] = static_cast<double>(million.peak - none.peak);
        requireNumber(generator.next(), count + 1, row);
        Bench::repeat(state, generator.next);
    };
    Bench::addRun(row, "library", run)->Iterations(1)->Repetitions(1);
}

int freeByProbing(QString const& folder)
{
    QString const name = folder + QStringLiteral("/Holiday.final (%1).png");
    int number = 1;
    while (QFile::exists(name.arg(number)))
        ++number;
    return number;
}

void addTaken(Shared const& all, int count, Bench::Place const& place)
{
    Generator const& generator = generators()[1];
    std::string const row = Names::takenRow(count, place.what);
    auto const folder = std::make_shared<Bench::Folder>(place.path);
    folder->fill(generator.names(count));
    addLibrary(all, generator, row, folder, count);
    Bench::require(freeByProbing(Bench::qString(folder->path())) == count + 1, row + ": probing gives another number");
    Bench::add(row, "probing", [path = Bench::qString(folder->path())] { return freeByProbing(path); });
}

Bench::Registration const registration([] {
    auto const all = std::make_shared<Surroundings>();
    std::vector<int> const counts = Bench::isShort() ? std::vector{0, 1000} : std::vector{0, 1000, 10000, 100000};
    for (Bench::Place const& place : Bench::places()) {
        for (Generator const& generator : generators()) {
            for (int const count : counts)
                addSize(all, generator, count, place);
            addMixed(all, generator, place);
            if (!Bench::isShort() && place.what == "tmpfs")
                addMillion(all, generator, place);
        }
        for (Generator const& generator : otherGenerators())
            addSize(all, generator, Bench::isShort() ? 1000 : 10000, place);
        for (int const count : Names::takenCounts(Bench::isShort()))
            addTaken(all, count, place);
    }
});

} // namespace
