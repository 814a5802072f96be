// SPDX-License-Identifier: MIT
//
// The durable store. SQLite itself is called plainly: a prepared statement for each read and each write, on a copy of the same
// file, in the same journal mode and with the same waiting for the disk. It is the floor, but for a read of an unchanged file,
// whose floor is one look at the file. QSettings sees what other processes wrote, and
// writes what they shall see, by its sync(); once for a file of its own, and once as programs mostly make it, by name: it
// then asks for the file of the organisation, and for those of the system, as well.
#include "Keys.h"

#include <support/Bench.h>

#include <Storage/SqliteStorage.h>

#include <sqlite3.h>

#include <QSettings>
#include <QTemporaryDir>

#include <atomic>
#include <filesystem>
#include <future>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

namespace {

class PlainSqlite {
public:
    explicit PlainSqlite(std::string const& file)
    {
        Bench::require(sqlite3_open_v2(file.c_str(), &m_database, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr) == SQLITE_OK,
                       "cannot open " + file);
        sqlite3_exec(m_database, "PRAGMA journal_mode = TRUNCATE; PRAGMA synchronous = FULL", nullptr, nullptr, nullptr);
        char const* const set =
            "INSERT INTO settings (key, kind, value, changed) VALUES (?1, 'string', ?2, ?3) ON CONFLICT (key) DO UPDATE "
            "SET kind = excluded.kind, value = excluded.value, changed = excluded.changed";
        char const* const find = "SELECT value FROM settings WHERE key = ?1";
        Bench::require(sqlite3_prepare_v2(m_database, set, -1, &m_set, nullptr) == SQLITE_OK, "the file has another layout");
        Bench::require(sqlite3_prepare_v2(m_database, find, -1, &m_find, nullptr) == SQLITE_OK, "the file has another layout");
    }
    ~PlainSqlite()
    {
        sqlite3_finalize(m_set);
        sqlite3_finalize(m_find);
        sqlite3_close(m_database);
    }
    PlainSqlite(PlainSqlite const&) = delete;
    PlainSqlite& operator=(PlainSqlite const&) = delete;

    std::string read(std::string const& key)
    {
        sqlite3_bind_text(m_find, 1, key.c_str(), static_cast<int>(key.size()), SQLITE_STATIC);
        if (sqlite3_step(m_find) != SQLITE_ROW)
            Bench::require(false, "there is no " + key);
        std::string result(reinterpret_cast<char const*>(sqlite3_column_text(m_find, 0)));
        sqlite3_reset(m_find);
        return result;
    }

    void write(std::string const& key, std::string const& value, long long changed)
    {
        sqlite3_bind_text(m_set, 1, key.c_str(), static_cast<int>(key.size()), SQLITE_STATIC);
        sqlite3_bind_text(m_set, 2, value.c_str(), static_cast<int>(value.size()), SQLITE_STATIC);
        sqlite3_bind_int64(m_set, 3, changed);
        Bench::require(sqlite3_step(m_set) == SQLITE_DONE, sqlite3_errmsg(m_database));
        sqlite3_reset(m_set);
    }

private:
    sqlite3* m_database = nullptr;
    sqlite3_stmt* m_set = nullptr;
    sqlite3_stmt* m_find = nullptr;
};

QString const organisation = QStringLiteral("Lumora");
QString const application = QStringLiteral("Video Editor");

struct Files {
    QTemporaryDir folder;
    std::string const store = folder.filePath(QStringLiteral("store.sqlite")).toStdString();
    std::string const copy = folder.filePath(QStringLiteral("copy.sqlite")).toStdString();

    Files()
    {
        fillStore();
        std::filesystem::copy_file(store, copy);
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, folder.path());
        QSettings of(QSettings::IniFormat, QSettings::UserScope, organisation, application);
        QSettings file(qtIni(), QSettings::IniFormat);
        for (char const* const key : Keys::all) {
            file.setValue(QString::fromLatin1(key), QString::fromStdString(Keys::value));
            of.setValue(QString::fromLatin1(key), QString::fromStdString(Keys::value));
        }
    }

    QString qtIni() const { return folder.filePath(QStringLiteral("settings.ini")); }
    std::string ini() const { return qtIni().toStdString(); }
    std::string namedIni() const
    {
        return folder.filePath(organisation + QLatin1Char('/') + application + QStringLiteral(".ini")).toStdString();
    }

private:
    void fillStore() const
    {
        Storage::SqliteStorage values(store);
        std::vector<Storage::SqliteStorage::Change> changes;
        for (char const* const key : Keys::all)
            changes.push_back({key, Keys::value});
        values.apply(changes);
    }
};

struct Surroundings {
    Files own;   // for stores that are opened each time
    Files files; // the later one is where QSettings looks by name
    Storage::SqliteStorage store{files.store};
    PlainSqlite sqlite{files.copy};
    int const file = ::open(files.copy.c_str(), O_RDONLY | O_CLOEXEC); // never closed, as that would drop SQLite's locks
    QSettings settings{files.qtIni(), QSettings::IniFormat};
    QSettings namedSettings{QSettings::IniFormat, QSettings::UserScope, organisation, application};
    std::mutex turns; // of the threads that read through `sqlite`
    int count = 0;
};

using Shared = std::shared_ptr<Surroundings>;

QString afterSync(QSettings& settings, int number)
{
    settings.sync();
    return settings.value(QString::fromLatin1(Keys::key(number))).toString();
}

void addReads(Shared const& all)
{
    std::string const row = "read that sees other processes";
    auto const library = [all] { return all->store.getString(Keys::key(all->count++), {}); };
    auto const ofFile = [all] { return afterSync(all->settings, all->count++); };
    auto const byName = [all] { return afterSync(all->namedSettings, all->count++); };
    auto const sqlite = [all] { return all->sqlite.read(Keys::key(all->count++)); };
    auto const oneLook = [all] {
        char bytes[16];
        return ::pread(all->file, bytes, sizeof bytes, 24);
    };
    auto const readTwice = [library](benchmark::State&) { // as other rows have changed the file
        benchmark::DoNotOptimize(library());
        benchmark::DoNotOptimize(library());
    };
    Bench::addByTurns(row, readTwice, library, oneLook, 100)->Iterations(Bench::isShort() ? 1 : 20);
    Bench::add(row, "SQLite", sqlite);
    Bench::add(row, "QSettings", ofFile);
    Bench::add(row, "QSettings by name", byName);
    auto const other = std::make_shared<Storage::SqliteStorage>(all->files.store);
    auto const otherSqlite = std::make_shared<PlainSqlite>(all->files.copy);
    std::string const changed = "read after another process wrote";
    Bench::addAfterByTurns(
        changed, [all, other] { other->setString("exportPath", Keys::written(all->count++)); }, library,
        [all, otherSqlite] { otherSqlite->write("exportPath", Keys::written(all->count), all->count); }, sqlite);
    Bench::addAfter(
        changed, "QSettings", [all] { Keys::makeYounger(all->files.ini(), all->count++); }, ofFile);
    Bench::addAfter(
        changed, "QSettings by name", [all] { Keys::makeYounger(all->files.namedIni(), all->count++); }, byName);
}

// The time in seconds in which 32 threads together make 6400 calls of `read`.
template <typename Read>
double timeInThreads(Read const& read)
{
    constexpr int threads = 32;
    std::promise<void> start;
    std::shared_future<void> const started(start.get_future());
    std::atomic<int> ready{0};
    std::vector<std::thread> running;
    for (int thread = 0; thread < threads; ++thread)
        running.emplace_back([&, thread] {
            ++ready;
            started.wait();
            for (int call = 0; call < 200; ++call)
                benchmark::DoNotOptimize(read(Keys::key(thread + call)));
        });
    while (ready < threads)
        std::this_thread::yield();
    return Bench::timeOf([&] {
        start.set_value();
        for (std::thread& thread : running)
            thread.join();
    });
}

void addReadsInThreads(Shared const& all)
{
    auto const add = [](char const* side, auto read) {
        auto const run = [read](benchmark::State& state) {
            for ([[maybe_unused]] auto const once : state)
                state.SetIterationTime(timeInThreads(read));
        };
        benchmark::RegisterBenchmark((std::string("6400 reads by 32 threads/") + side).c_str(), run)->UseManualTime();
    };
    add("library", [all](char const* key) { return all->store.getString(key, {}); });
    add("SQLite", [all](char const* key) {
        std::lock_guard<std::mutex> const turn(all->turns); // a connection serves one thread at a time
        return all->sqlite.read(key);
    });
}

void setOne(QSettings& settings, int number)
{
    settings.setValue(QString::fromLatin1(Keys::key(number)), QString::fromStdString(Keys::written(number)));
}

void writeAndSync(QSettings& settings, int number)
{
    setOne(settings, number);
    settings.sync();
}

void addThirtyChanges(Shared const& all)
{
    constexpr int changes = 30;
    auto const add = [](char const* side, auto work) { Bench::add("thirty changes", side, work); };
    add("library", [all] {
        std::vector<Storage::SqliteStorage::Change> together;
        for (int change = 0; change < changes; ++change, ++all->count)
            together.push_back({Keys::key(all->count), Keys::written(all->count)});
        all->store.apply(together);
    });
    add("one by one", [all] {
        for (int change = 0; change < changes; ++change, ++all->count)
            all->store.setString(Keys::key(all->count), Keys::written(all->count));
    });
    add("QSettings", [all] {
        for (int change = 0; change < changes; ++change)
            setOne(all->settings, all->count++);
        all->settings.sync();
    });
}

void addWrites(Shared const& all)
{
    // Not by turns: the store pauses between writes that follow one another, which the other's writes would stand between.
    auto const addSide = [](char const* side, auto work) {
        Bench::add(Keys::durableWrite, side, work)->Repetitions(Keys::writeRepetitions(Bench::isShort()));
    };
    addSide("library", [all] {
        int const number = all->count++;
        all->store.setString(Keys::key(number), Keys::written(number));
    });
    addSide("floor", [all] {
        int const number = all->count++;
        all->sqlite.write(Keys::key(number), Keys::written(number), number);
    });
    addSide("QSettings", [all] { writeAndSync(all->settings, all->count++); });
    addSide("QSettings by name", [all] { writeAndSync(all->namedSettings, all->count++); });
}

void readAll(QSettings const& settings)
{
    for (char const* const key : Keys::all)
        benchmark::DoNotOptimize(settings.value(QString::fromLatin1(key)).toString());
}

void addOpenings(Shared const& all)
{
    std::string const row = "open and sixty reads";
    auto const library = [all] {
        Storage::SqliteStorage const store(all->own.store);
        for (char const* const key : Keys::all)
            benchmark::DoNotOptimize(store.getString(key, {}));
    };
    auto const floor = [all] {
        PlainSqlite sqlite(all->own.copy);
        for (char const* const key : Keys::all)
            benchmark::DoNotOptimize(sqlite.read(key));
    };
    Bench::addByTurns(row, library, floor);
    // Younger each time: QSettings would otherwise take the values from an object that was there before.
    auto const younger = [all](std::string const& file) { return [all, file] { Keys::makeYounger(file, all->count++); }; };
    Bench::addAfter(row, "QSettings", younger(all->own.ini()), [all] { readAll(QSettings(all->own.qtIni(), QSettings::IniFormat)); });
    Bench::addAfter(row, "QSettings by name", younger(all->files.namedIni()),
                    [] { readAll(QSettings(QSettings::IniFormat, QSettings::UserScope, organisation, application)); });
}

Bench::Registration const registration([] {
    auto const all = std::make_shared<Surroundings>();
    Bench::require(all->store.getString("exportPath", {}) == Keys::value, "the store lost a value");
    addReads(all);
    addReadsInThreads(all);
    addWrites(all);
    addThirtyChanges(all);
    addOpenings(all);
});

} // namespace
