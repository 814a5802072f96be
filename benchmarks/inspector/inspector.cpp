// SPDX-License-Identifier: MIT
//
// The window with the stores of a user, sixty-one lines, and with 10,000 undeclared keys beside them: its start on a screen
// that nobody sees, what it keeps in memory, how soon a search and another process's change are painted, what it takes at rest,
// and the longest time in which its thread did not turn to its events. Each is measured by a process of its own.
#include <support/Bench.h>
#include <support/Folders.h>

#include <Storage/SqliteStorage.h>

#include <QProcess>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;
using Change = Storage::SqliteStorage::Change;

constexpr int undeclared = 10000;

/// The folder of a product and its stores.
class Stores {
public:
    explicit Stores(bool isFull)
    {
        std::ofstream(path() / "product.json") << R"({"vendorName": "V", "productName": "P", "sharedDataFolderName": "S", "productKind": 0,
            "projectFileExtensions": [], "resourcesRoot": "r"})";
        std::vector<Change> changes{{"exportPath", (path() / "dead/films").string()}, {"keepVideoAspect", false}, {"npsSendCount", 3}};
        for (int number = 0; number < (isFull ? undeclared : 5); ++number)
            changes.push_back({"key" + std::to_string(number), std::string(number % 3 == 0 ? "third" : "other")});
        changes.push_back({"number", 0});
        fs::create_directory(path() / "stores");
        Storage::SqliteStorage(path() / "stores/product-settings.sqlite").apply(changes);
    }

    fs::path path() const { return m_folder.path(); }

private:
    Bench::Folder const m_folder{fs::temp_directory_path().string()};
};

using Figures = std::map<std::string, std::vector<double>>;

// Runs it; each line that it prints is a name, a separator and a figure.
Figures figuresOf(QString const& program, QStringList const& arguments, Stores const& stores, char separator)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    QString const folder = QString::fromStdString(stores.path().string());
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"),
                       program == QLatin1String(WINDOW) ? QStringLiteral("offscreen") : QStringLiteral("xcb"));
    for (char const* const name : {"HOME", "XDG_STATE_HOME", "XDG_RUNTIME_DIR"})
        environment.insert(QLatin1String(name), folder);
    process.setProcessEnvironment(environment);
    process.start(program, arguments);
    process.waitForFinished(-1);
    Bench::require(process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0,
                   program.toStdString() + ": " + process.readAllStandardError().toStdString());
    Figures figures;
    std::istringstream lines(process.readAllStandardOutput().toStdString());
    for (std::string name, figure; std::getline(lines, name, separator) && std::getline(lines, figure);)
        figures[name].push_back(std::stod(figure));
    return figures;
}

double median(std::vector<double> all)
{
    Bench::require(!all.empty(), "the program printed other figures");
    std::sort(all.begin(), all.end());
    return all[all.size() / 2];
}

// Ten starts on one screen.
void measureStart(benchmark::State& state, bool isFull)
{
    Stores const stores(isFull);
    QString const folder = QString::fromStdString(stores.path().string());
    QString const starts = QStringLiteral("for start in $(seq $0); do \"$@\" || exit 1; done");
    QStringList const arguments{QStringLiteral("-a"),
                                QStringLiteral("-s"),
                                QStringLiteral("-screen 0 1024x640x24 -noreset"),
                                QStringLiteral("sh"),
                                QStringLiteral("-c"),
                                starts,
                                Bench::isShort() ? QStringLiteral("1") : QStringLiteral("10"),
                                QStringLiteral(INSPECTOR),
                                QStringLiteral("--measure"),
                                QStringLiteral("--product"),
                                folder + QStringLiteral("/product.json"),
                                QStringLiteral("--home"),
                                folder + QStringLiteral("/stores")};
    for ([[maybe_unused]] auto const once : state) {
        Figures figures = figuresOf(QStringLiteral("xvfb-run"), arguments, stores, ':');
        state.counters["first paint in ms"] = median(figures["first paint"]);
        state.counters["rows shown in ms"] = median(figures["rows shown"]);
    }
}

struct Subject {
    char const* row;
    char const* verb;
    bool isFull;
    int number;      ///< How much of it, in the words of the program.
    int shortNumber; ///< For the shortest form.
};

constexpr Subject subjects[] = {
    {"memory with 61 lines", "memory", false, 0, 0},
    {"memory with 10000 undeclared keys", "memory", true, 0, 0},
    {"memory after 36000 changes and 1000 searches", "hour", false, 36000, 72},
    {"search painted, among 10000", "searches", true, 20, 1},
    {"change of another process painted", "changes", false, 1000, 5},
    {"change of another process painted, among 10000", "changes", true, 200, 2},
    {"a second at rest", "rest", false, 30, 1},
    {"gap while the store is held", "held", false, 8, 1},
    {"gap while 10000 keys are stored", "import", false, undeclared, undeclared},
    {"gap while a document of 10000 is taken", "taken", false, 10000, 10000},
    {"gap while a full store is examined", "doctor", true, 3, 1},
    {"gap while a folder does not answer", "dead", false, 8, 3},
    {"gap while the store is replaced", "replaced", false, 0, 0},
    {"gap while a full store is replaced", "replaced", true, 0, 0},
};

void measure(benchmark::State& state, Subject const& subject)
{
    Stores const stores(subject.isFull);
    int const number = Bench::isShort() ? subject.shortNumber : subject.number;
    QStringList const arguments{QLatin1String(subject.verb), QString::fromStdString(stores.path().string()), QString::number(number)};
    for ([[maybe_unused]] auto const once : state) {
        Figures figures = figuresOf(QStringLiteral(WINDOW), arguments, stores, '\t');
        for (auto const& [name, all] : figures)
            state.counters[name] = median(all);
        Bench::require(!figures.empty(), "the program printed no figure");
    }
}

// What counts are the counters; the time is that of the whole process.
template <typename Run>
void addOnce(std::string const& row, Run run)
{
    benchmark::RegisterBenchmark((row + "/library").c_str(), run)->UseRealTime()->Repetitions(1)->Iterations(1);
}

Bench::Registration const registration([] {
    addOnce("start with 61 lines", [](benchmark::State& state) { measureStart(state, false); });
    addOnce("start with 10000 undeclared keys", [](benchmark::State& state) { measureStart(state, true); });
    for (Subject const& subject : subjects)
        addOnce(subject.row, [&subject](benchmark::State& state) { measure(state, subject); });
});

} // namespace
