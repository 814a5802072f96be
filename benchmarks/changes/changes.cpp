// SPDX-License-Identifier: MIT
//
// How soon the change of another process is reported, from the return of its call to the slot, with inotify and without; and the
// processor's time that watching takes while nothing changes. Two stores of sixty settings on the disk, all keys chosen.
#include <support/Bench.h>
#include <support/interposed/RefusedHints.h>

#include <Notifier/Notifier.h>
#include <Storage/SqliteStorage.h>

#include <QCoreApplication>
#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include <sys/resource.h>

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;

class Watched {
public:
    Watched()
    {
        for (std::string const& file : {m_product, m_common}) {
            std::vector<Storage::SqliteStorage::Change> changes;
            for (int number = 0; number < 60; ++number)
                changes.push_back({"setting " + std::to_string(number), std::string("value")});
            Storage::SqliteStorage(file).apply(changes);
        }
        m_changer.start(QStringLiteral(CHANGER), {QString::fromStdString(m_product)});
        QObject::connect(&m_notifier, &Notifier::Notifier::watching, &m_notifier, [this] { m_isWatching = true; });
        QObject::connect(&m_notifier, &Notifier::Notifier::changed, &m_notifier, [this] { m_told = Clock::now(); });
        m_notifier.watchPrefix(QString());
        while (!m_isWatching)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    ~Watched()
    {
        m_changer.closeWriteChannel();
        m_changer.waitForFinished();
    }
    Watched(Watched const&) = delete;
    Watched& operator=(Watched const&) = delete;

    // The time from a change to its slot.
    Seconds changed()
    {
        m_told.reset();
        m_changer.write("change\n");
        while (!m_told || !m_changer.canReadLine())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        Clock::time_point const returned{Clock::duration(m_changer.readLine().trimmed().toLongLong())};
        return std::max<Seconds>(*m_told - returned, 0s);
    }

private:
    QTemporaryDir m_folder;
    std::string const m_product = m_folder.filePath(QStringLiteral("product.sqlite")).toStdString();
    std::string const m_common = m_folder.filePath(QStringLiteral("common.sqlite")).toStdString();
    QProcess m_changer;
    bool m_isWatching = false;
    std::optional<Clock::time_point> m_told;
    Notifier::Notifier m_notifier{{{QStringLiteral("product"), m_product}, {QStringLiteral("common"), m_common}}};
};

// The pauses differ, so that changes come at any moment between two looks.
void measureChanges(benchmark::State& state)
{
    Watched watched;
    std::vector<double> all;
    for ([[maybe_unused]] auto const once : state) {
        std::this_thread::sleep_for(std::chrono::milliseconds(37 * all.size() % 211));
        all.push_back(watched.changed().count());
        state.SetIterationTime(all.back());
    }
    std::sort(all.begin(), all.end());
    state.counters["95th percentile in ms"] = 1000 * all[(all.size() * 95 + 99) / 100 - 1];
}

Seconds processorTime()
{
    rusage usage = {};
    ::getrusage(RUSAGE_SELF, &usage);
    auto const seconds = [](timeval const& time) {
        return Seconds(static_cast<double>(time.tv_sec) + 1e-6 * static_cast<double>(time.tv_usec));
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

void measureRest(benchmark::State& state)
{
    Watched const watched;
    Seconds const length = Bench::isShort() ? 300ms : 10s;
    for ([[maybe_unused]] auto const once : state) {
        Seconds const before = processorTime();
        std::this_thread::sleep_for(length);
        double const share = (processorTime() - before) / length;
        state.SetIterationTime(share);
        state.counters["millionths of a core"] = 1e6 * share;
    }
}

void addOnce(char const* row, void (*run)(benchmark::State&), int iterations)
{
    std::string const name = row + std::string("/library");
    benchmark::RegisterBenchmark(name.c_str(), run)->UseManualTime()->Repetitions(1)->Iterations(Bench::isShort() ? 1 : iterations);
}

Bench::Registration const registration([] {
    addOnce("change told with inotify", measureChanges, 200);
    addOnce(
        "change told without inotify",
        [](benchmark::State& state) {
            RefusedHints const refused;
            measureChanges(state);
        },
        100);
    addOnce("a second without changes", measureRest, 1);
});

} // namespace
