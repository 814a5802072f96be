// SPDX-License-Identifier: MIT
#pragma once

#include <Inspector/Desk.h>
#include <Window/editors/Passage.h>
#include <Window/editors/ValueEditor.h>
#include <Window/pane/AnswerBox.h>
#include <Window/pane/SettingPane.h>

#include <TestKit/TemporaryHome.h>
#include <storage/support/MemoryFolder.h>

#include <QApplication>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

using Catalogue::Store;
using Inspector::Answer;
using Inspector::Outcome;
using Inspector::Setting;
using Storage::SqliteStorage;

// Lets GoogleTest print what it compares.
inline void PrintTo(QString const& text, std::ostream* stream) { *stream << '"' << text.toStdString() << '"'; }
inline void PrintTo(QStringList const& texts, std::ostream* stream) { PrintTo(texts.join(QLatin1Char('|')), stream); }

/// Has temporary files lie in memory, and widgets on a screen that nobody sees. To be made first.
struct UnseenScreen {
    UnseenScreen()
    {
        ::setenv("TMPDIR", folder.path().c_str(), 1);
        ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
        ::setenv("QT_STYLE_OVERRIDE", "fusion", 1);
    }
    ~UnseenScreen() { ::unsetenv("TMPDIR"); }
    UnseenScreen(UnseenScreen const&) = delete;
    UnseenScreen& operator=(UnseenScreen const&) = delete;

    MemoryFolder folder;
};

/// A pane of 320 pixels, real stores behind it, and all that it asks to store. Waits last until what they wait for has come, and fail
/// after a minute.
class PaneTest : public testing::Test {
protected:
    static bool comes(std::function<bool()> const& holds)
    {
        auto const end = std::chrono::steady_clock::now() + std::chrono::minutes(1);
        while (!holds()) {
            if (std::chrono::steady_clock::now() > end)
                return false;
            QCoreApplication::processEvents();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            std::this_thread::sleep_for(std::chrono::microseconds(200));
        }
        return true;
    }

    /// Stores what somebody else stores.
    template <typename T>
    void store(std::string const& key, T const& value, Store where = Store::product)
    {
        SqliteStorage others(where == Store::product ? m_productFile : m_commonFile);
        if constexpr (std::is_same_v<T, bool>)
            others.setBool(key, value);
        else if constexpr (std::is_same_v<T, int>)
            others.setInt(key, value);
        else if constexpr (std::is_same_v<T, std::vector<unsigned char>>)
            others.setBytes(key, value);
        else
            others.setString(key, value);
    }

    SqliteStorage::Value stored(std::string const& key, Store where = Store::product) const
    {
        std::optional<SqliteStorage::Row> const row = SqliteStorage(where == Store::product ? m_productFile : m_commonFile).find(key);
        return row ? row->value : SqliteStorage::Value();
    }

    /// Shows the pane with the setting `key`, changes allowed, as soon as the stores are read.
    void open(std::string const& key)
    {
        start();
        m_pane->allowChanges(true);
        m_desk->allowChanges(true);
        go(key);
    }

    /// Starts the desk and shows the pane.
    void start()
    {
        m_desk.emplace(m_place);
        m_desk->setPause(std::chrono::milliseconds(5));
        QObject::connect(&*m_desk, &Inspector::Desk::looked, m_pane.get(), [this](auto const& snapshot) { take(snapshot); });
        QObject::connect(&*m_desk, &Inspector::Desk::answered, m_pane.get(), [this](Answer const& answer) {
            m_answers.push_back(answer);
            m_pane->take(answer);
        });
        QObject::connect(m_pane.get(), &Inspector::SettingPane::wantsToStore, m_pane.get(), [this](Inspector::Commit const& commit) {
            ++m_commits;
            m_desk->commit(commit);
        });
        QObject::connect(m_pane.get(), &Inspector::SettingPane::isDone, m_pane.get(), [this] { ++m_returns; });
        m_pane->resize(320, 640);
        m_pane->setVisible(true);
        m_pane->activateWindow();
        ASSERT_TRUE(comes([&] { return m_snapshot && m_pane->isActiveWindow(); }));
    }

    /// Makes `key` the current setting.
    void go(std::string const& key)
    {
        m_key = key;
        ASSERT_TRUE(comes([&] { return setting(key) != nullptr; })) << key;
        m_pane->show(setting(key));
    }

    std::shared_ptr<Setting const> setting(std::string const& key) const
    {
        for (std::shared_ptr<Setting const> const& each : m_snapshot->settings)
            if (each->key == key)
                return each;
        return nullptr;
    }

    /// The visible widget of that type, of which there must be one.
    template <typename Widget>
    Widget& the(QString const& accessibleName = {}) const
    {
        for (Widget* const each : m_pane->template findChildren<Widget*>())
            if (each->isVisible() && (accessibleName.isEmpty() || each->accessibleName() == accessibleName))
                return *each;
        throw std::logic_error("no such widget");
    }

    template <typename Widget>
    bool has() const
    {
        for (Widget* const each : m_pane->template findChildren<Widget*>())
            if (each->isVisible())
                return true;
        return false;
    }

    /// The text of the visible passage of that name; empty where it is not visible.
    QString text(char const* name) const
    {
        for (Inspector::Passage* const each : m_pane->findChildren<Inspector::Passage*>())
            if (each->isVisible() && each->accessibleName() == QLatin1String(name))
                return each->toPlainText();
        return {};
    }

    QPushButton& button(char const* name) const
    {
        for (QPushButton* const each : m_pane->findChildren<QPushButton*>())
            if (each->isVisible() && each->text().remove(QLatin1Char('&')) == QString::fromUtf8(name))
                return *each;
        throw std::logic_error(std::string("no button ") + name);
    }

    static void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }

    /// Puts the focus into the editor and types over what is in it.
    void type(char const* text)
    {
        m_pane->edit();
        press(Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(QApplication::focusWidget(), QString::fromUtf8(text));
    }

    QStringList words() const { return the<Inspector::ValueEditor>().words(); }

    /// Waits for the answer to the last commit.
    Outcome answered()
    {
        EXPECT_TRUE(comes([&] { return m_answers.size() == m_commits; }));
        EXPECT_FALSE(m_answers.empty());
        return m_answers.empty() ? Outcome::refused : m_answers.back().outcome;
    }

    UnseenScreen m_screen;
    TestKit::TemporaryHome m_home;
    Inspector::Place m_place{m_home.write("product.json", R"({"vendorName": "V", "productName": "P", "sharedDataFolderName": "S",
        "productKind": 0, "projectFileExtensions": [], "resourcesRoot": "r", "ownKeys": [
        {"key": "rate", "kind": "rational", "store": "product", "class": "local", "purpose": "Frames of a second", "default": "25/1"},
        {"key": "who", "kind": "string", "store": "product", "class": "personal", "purpose": "The user"},
        {"key": "theme", "kind": "string", "store": "product", "class": "roaming", "purpose": "Colours of the window",
         "default": "dark", "accepts": ["dark", "light"]},
        {"prefix": "flag/", "kind": "bool", "store": "product", "class": "local", "purpose": "A flag", "default": false},
        {"prefix": "number/", "kind": "int", "store": "product", "class": "local", "purpose": "A number", "default": 0},
        {"prefix": "text/", "kind": "string", "store": "product", "class": "local", "purpose": "A text"},
        {"prefix": "list/", "kind": "list", "store": "product", "class": "local", "purpose": "A list"},
        {"prefix": "bytes/", "kind": "bytes", "store": "product", "class": "local", "purpose": "Bytes"},
        {"prefix": "folder/", "kind": "folder", "store": "product", "class": "local", "purpose": "A folder"}]})"),
                             m_home.path() / "stores"};
    std::filesystem::path const m_productFile = m_home.path() / "stores/product-settings.sqlite";
    std::filesystem::path const m_commonFile = m_home.path() / "stores/common-settings.sqlite";
    int m_argc = 1;
    char m_name[5] = "pane";
    char* m_argv[2] = {m_name, nullptr};
    QApplication m_application{m_argc, m_argv};
    std::optional<Inspector::Desk> m_desk;
    std::unique_ptr<Inspector::SettingPane> m_pane = std::make_unique<Inspector::SettingPane>(m_place);
    std::shared_ptr<Inspector::Snapshot const> m_snapshot;
    std::vector<Answer> m_answers;
    std::size_t m_commits = 0;
    int m_returns = 0;

private:
    void take(std::shared_ptr<Inspector::Snapshot const> const& snapshot)
    {
        m_snapshot = snapshot;
        m_pane->look(snapshot);
        if (!m_key.empty())
            m_pane->show(setting(m_key));
    }

    std::string m_key;
};
