// SPDX-License-Identifier: MIT
#pragma once

#include <Inspector/Desk.h>

#include <TestKit/TemporaryHome.h>
#include <storage/support/MemoryFolder.h>
#include <storage/support/OtherProcess.h>
#include <support/OtherProgram.h>
#include <support/Tally.h>

#include <QCoreApplication>

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <thread>
#include <utility>
#include <vector>

using Catalogue::Store;
using Inspector::Answer;
using Inspector::Edit;
using Inspector::Outcome;
using Inspector::Setting;
using Inspector::Snapshot;
using Storage::SqliteStorage;

// Lets GoogleTest print what it compares.
inline void PrintTo(QString const& text, std::ostream* stream) { *stream << '"' << text.toStdString() << '"'; }

namespace Inspector {

inline void PrintTo(Outcome outcome, std::ostream* stream)
{
    constexpr char const* words[] = {"stored", "unchanged", "conflict",  "lookingOnly", "refused",
                                     "failed", "noBackup",  "cancelled", "compared",    "written"};
    *stream << words[static_cast<std::size_t>(outcome)];
}

} // namespace Inspector

/// Has temporary files lie in memory, as a disk would be waited for most of the time.
struct InMemory {
    InMemory() { ::setenv("TMPDIR", folder.path().c_str(), 1); }
    ~InMemory() { ::unsetenv("TMPDIR"); }
    InMemory(InMemory const&) = delete;
    InMemory& operator=(InMemory const&) = delete;

    MemoryFolder folder;
};

/// Stores in a home folder of the test's own, another process that changes the product's store, and a desk that looks at both. Waits
/// last until what they wait for has come, and fail after a minute.
class DeskTest : public testing::Test {
protected:
    static bool comes(std::function<bool()> const& holds)
    {
        auto const end = std::chrono::steady_clock::now() + std::chrono::minutes(1);
        while (!holds()) {
            if (std::chrono::steady_clock::now() > end)
                return false;
            QCoreApplication::processEvents();
            std::this_thread::sleep_for(std::chrono::microseconds(200));
        }
        return true;
    }

    /// Starts the desk and waits for its first snapshot.
    void start()
    {
        m_desk.emplace(m_place);
        m_desk->setPause(std::chrono::milliseconds(5));
        QObject::connect(&*m_desk, &Inspector::Desk::looked, &m_receiver, [this](std::shared_ptr<Snapshot const> const& snapshot) {
            m_snapshot = snapshot;
            ++m_looks;
        });
        QObject::connect(&*m_desk, &Inspector::Desk::answered, &m_receiver,
                         [this](Answer const& answer) { m_answers.emplace(answer.number, answer); });
        ASSERT_TRUE(comes([this] { return m_snapshot != nullptr; }));
    }

    /// Starts it with changes allowed.
    void startChanging()
    {
        start();
        m_desk->allowChanges(true);
    }

    std::shared_ptr<Setting const> setting(std::string const& key, Store store = Store::product) const
    {
        for (std::shared_ptr<Setting const> const& each : m_snapshot->settings)
            if (each->id == Inspector::settingId(key, store))
                return each;
        return nullptr;
    }

    /// The shown cell of a setting; "(none)" for one that is not listed.
    std::string cell(std::string const& key, Setting::Column column = Setting::valueColumn, Store store = Store::product) const
    {
        std::shared_ptr<Setting const> const found = setting(key, store);
        return found ? found->cells[column].toStdString() : "(none)";
    }

    /// Waits until the cell has that text.
    bool comesToShow(std::string const& key, std::string const& text, Setting::Column column = Setting::valueColumn,
                     Store store = Store::product)
    {
        return comes([&] { return cell(key, column, store) == text; });
    }

    /// Waits until the folders have been looked at, and the findings are about them.
    bool comesToBeExamined()
    {
        auto const isAnswered = [](auto const& location) {
            return location->cells[3] != QStringLiteral("the system has not answered yet");
        };
        return comes([&] {
            Inspector::Lines<Inspector::Location> const& all = m_snapshot->locations;
            return !all.empty() && std::all_of(all.begin(), all.end(), isAnswered);
        });
    }

    /// The answer to the request of that number.
    Answer answer(int number)
    {
        EXPECT_TRUE(comes([&] { return m_answers.count(number) > 0; })) << "request " << number;
        return m_answers[number];
    }

    Answer committed(Inspector::Commit const& commit) { return answer(m_desk->commit(commit)); }

    Answer set(std::string const& key, Catalogue::Value const& value) { return committed(std::vector<Edit>{{setting(key), value}}); }
    Answer reset(std::string const& key) { return committed(std::vector<Edit>{{setting(key), std::nullopt}}); }

    std::filesystem::path folder() const { return m_home.path() / "stores"; }

    InMemory m_memory;
    TestKit::TemporaryHome m_home;
    Inspector::Place m_place{m_home.write("product.json", R"({"vendorName": "V", "productName": "P", "sharedDataFolderName": "S",
        "productKind": 0, "projectFileExtensions": [], "resourcesRoot": "r", "ownKeys": [
        {"key": "rate", "kind": "rational", "store": "product", "class": "local", "purpose": "frames", "default": "25/1"},
        {"key": "who", "kind": "string", "store": "product", "class": "personal", "purpose": "the user"},
        {"key": "home: nest", "kind": "folder", "store": "product", "class": "personal", "purpose": "the user's folder"},
        {"key": "age", "kind": "int", "store": "product", "class": "personal", "purpose": "in years"}]})"),
                             m_home.path() / "stores"};
    std::filesystem::path const m_productFile = folder() / "product-settings.sqlite";
    std::filesystem::path const m_commonFile = folder() / "common-settings.sqlite";
    OtherProcess m_other{m_productFile};
    int m_argc = 0;
    QCoreApplication m_application{m_argc, nullptr};
    QObject m_receiver;
    std::optional<Inspector::Desk> m_desk;
    std::shared_ptr<Snapshot const> m_snapshot;
    std::map<int, Answer> m_answers;
    int m_looks = 0;
};
