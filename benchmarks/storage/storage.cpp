// SPDX-License-Identifier: MIT
//
// The durable store. The floor of a write is SQLite itself, called plainly: one prepared statement, on a copy of the same
// file, in the same journal mode and with the same waiting for the disk. QSettings sees what other processes wrote, and
// writes what they shall see, by its sync().
#include "Keys.h"

#include <support/Bench.h>

#include <Storage/SqliteStorage.h>

#include <sqlite3.h>

#include <QSettings>
#include <QTemporaryDir>

#include <filesystem>
#include <memory>

namespace {

class PlainSqlite {
public:
    explicit PlainSqlite(std::string const& file)
    {
        Bench::require(sqlite3_open_v2(file.c_str(), &m_database, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr) == SQLITE_OK,
                       "cannot open " + file);
        sqlite3_exec(m_database, "PRAGMA journal_mode = TRUNCATE; PRAGMA synchronous = FULL", nullptr, nullptr, nullptr);
        char const* const set = "INSERT INTO settings (key, kind, value, changed) VALUES (?1, 'string', ?2, ?3) ON CONFLICT (key) DO UPDATE "
                                "SET kind = excluded.kind, value = excluded.value, changed = excluded.changed";
        Bench::require(sqlite3_prepare_v2(m_database, set, -1, &m_set, nullptr) == SQLITE_OK, "the file has another layout");
    }
    ~PlainSqlite()
    {
        sqlite3_finalize(m_set);
        sqlite3_close(m_database);
    }
    PlainSqlite(PlainSqlite const&) = delete;
    PlainSqlite& operator=(PlainSqlite const&) = delete;

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
};

struct Files {
    QTemporaryDir folder;
    std::string const store = folder.filePath(QStringLiteral("store.sqlite")).toStdString();
    std::string const copy = folder.filePath(QStringLiteral("copy.sqlite")).toStdString();

    Files()
    {
        fillStore();
        std::filesystem::copy_file(store, copy);
        QSettings settings(qtIni(), QSettings::IniFormat);
        for (char const* const key : Keys::all)
            settings.setValue(QString::fromLatin1(key), QString::fromStdString(Keys::value));
    }

    QString qtIni() const { return folder.filePath(QStringLiteral("settings.ini")); }
    std::string ini() const { return qtIni().toStdString(); }

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
    Files files;
    Storage::SqliteStorage store{files.store};
    PlainSqlite sqlite{files.copy};
    QSettings settings{files.qtIni(), QSettings::IniFormat};
    int count = 0;
};

using Shared = std::shared_ptr<Surroundings>;

void addReads(Shared const& all)
{
    std::string const row = "read that sees other processes";
    auto const library = [all] { return all->store.getString(Keys::key(all->count++), {}); };
    auto const qsettings = [all] {
        all->settings.sync();
        return all->settings.value(QString::fromLatin1(Keys::key(all->count++))).toString();
    };
    Bench::add(row, "library", library);
    Bench::add(row, "QSettings", qsettings);
    auto const other = std::make_shared<Storage::SqliteStorage>(all->files.store);
    std::string const afterWrite = "read after another process wrote";
    Bench::addAfter(afterWrite, "library", [all, other] { other->setString("exportPath", Keys::written(all->count++)); }, library);
    Bench::addAfter(afterWrite, "QSettings", [all] { Keys::makeYounger(all->files.ini(), all->count++); }, qsettings);
}

void addWrites(Shared const& all)
{
    std::string const row = "durable write";
    Bench::add(row, "library", [all] {
        int const number = all->count++;
        all->store.setString(Keys::key(number), Keys::written(number));
    });
    Bench::add(row, "floor", [all] {
        int const number = all->count++;
        all->sqlite.write(Keys::key(number), Keys::written(number), number);
    });
    Bench::add(row, "QSettings", [all] {
        int const number = all->count++;
        all->settings.setValue(QString::fromLatin1(Keys::key(number)), QString::fromStdString(Keys::written(number)));
        all->settings.sync();
    });
}

void addOpenings(Shared const& all)
{
    std::string const row = "open and sixty reads";
    // Files of their own, which no other row has open, and younger each time: QSettings would otherwise take the values
    // from an object that is there, or was.
    auto const own = std::make_shared<Files>();
    Bench::addAfter(row, "library", [own, all] { Keys::makeYounger(own->store, all->count++); }, [own] {
        Storage::SqliteStorage const store(own->store);
        for (char const* const key : Keys::all)
            benchmark::DoNotOptimize(store.getString(key, {}));
    });
    Bench::addAfter(row, "QSettings", [own, all] { Keys::makeYounger(own->ini(), all->count++); }, [own] {
        QSettings const settings(own->qtIni(), QSettings::IniFormat);
        for (char const* const key : Keys::all)
            benchmark::DoNotOptimize(settings.value(QString::fromLatin1(key)).toString());
    });
}

Bench::Registration const registration([] {
    auto const all = std::make_shared<Surroundings>();
    Bench::require(all->store.getString("exportPath", {}) == Keys::value, "the store lost a value");
    addReads(all);
    addWrites(all);
    addOpenings(all);
});

} // namespace
