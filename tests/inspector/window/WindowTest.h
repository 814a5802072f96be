// SPDX-License-Identifier: MIT
#pragma once

#include <Window/MainWindow.h>
#include <Window/list/Facets.h>
#include <Window/list/ItemsView.h>
#include <Window/list/SearchField.h>
#include <Window/status/MessageBar.h>

#include <TestKit/TemporaryHome.h>
#include <storage/support/MemoryFolder.h>
#include <storage/support/OtherProcess.h>
#include <support/OtherProgram.h>
#include <support/Tally.h>

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QTabBar>
#include <QTest>

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <thread>

using Catalogue::Store;
using Inspector::MainWindow;
using Storage::SqliteStorage;

// Lets GoogleTest print what it compares.
inline void PrintTo(QString const& text, std::ostream* stream) { *stream << '"' << text.toStdString() << '"'; }

/// Has temporary files lie in memory, and windows on a screen that nobody sees. To be made first.
struct Surroundings {
    Surroundings()
    {
        ::setenv("TMPDIR", folder.path().c_str(), 1);
        ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
        ::setenv("QT_STYLE_OVERRIDE", "fusion", 1);
    }
    ~Surroundings() { ::unsetenv("TMPDIR"); }
    Surroundings(Surroundings const&) = delete;
    Surroundings& operator=(Surroundings const&) = delete;

    MemoryFolder folder;
};

/// Stores in a home folder of the test's own, another process that changes the product's store, and a window onto both. Waits last
/// until what they wait for has come, and fail after a minute.
class WindowTest : public testing::Test {
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

    /// Shows the window and waits for its lines.
    void open()
    {
        m_window = std::make_unique<MainWindow>(m_place);
        bool isFilled = false;
        QObject::connect(m_window.get(), &MainWindow::filled, m_window.get(), [&] { isFilled = true; });
        m_window->resize(1024, 640);
        m_window->show();
        m_window->activateWindow();
        ASSERT_TRUE(comes([&] { return isFilled && m_window->isActiveWindow(); }));
        m_window->findChild<Inspector::ItemsView*>()->setFocus(); // that of the settings
    }

    /// Shows it with changes allowed.
    void openChanging()
    {
        open();
        press(Qt::Key_E, Qt::ControlModifier);
        ASSERT_TRUE(m_window->findChild<QCheckBox*>()->isChecked());
    }

    /// Has the window closed as by its user; without an answer to what it asks.
    void close()
    {
        m_window->close();
        m_window.reset();
    }

    Inspector::ItemsView& view(MainWindow::Page page) const
    {
        QList<Inspector::ItemsView*> const views = m_window->findChildren<Inspector::ItemsView*>();
        char const* const names[] = {"Settings", "Locations", "Findings", "Changes"};
        for (Inspector::ItemsView* const each : views)
            if (each->accessibleName() == QLatin1String(names[page]))
                return *each;
        throw std::logic_error(names[page]);
    }
    Inspector::ItemsView& settings() const { return view(MainWindow::settingsPage); }
    Inspector::SearchField& search() const { return *m_window->findChild<Inspector::SearchField*>(); }
    QString tab(MainWindow::Page page) const { return m_window->findChild<QTabBar*>()->tabText(page); }

    /// A key as its user presses it: it goes to the widget with the focus.
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const
    {
        QWidget* const focus = QApplication::focusWidget();
        QTest::keyClick(focus ? focus : m_window.get(), key, modifiers);
    }
    void type(char const* text) const { QTest::keyClicks(QApplication::focusWidget(), QString::fromUtf8(text)); }

    void goTo(std::string const& key) const
    {
        m_window->goTo(key);
        QCoreApplication::processEvents();
    }

    /// The cell of the current line.
    static QString cell(Inspector::ItemsView const& view, int column)
    {
        return view.currentIndex().siblingAtColumn(column).data().toString();
    }
    QString currentKey() const { return cell(settings(), 0); }
    QString currentValue() const { return cell(settings(), 1); }

    /// The texts of all messages.
    QString messages() const
    {
        QStringList result;
        for (QLabel const* const label : m_window->findChild<Inspector::MessageBar*>()->findChildren<QLabel*>())
            if (label->isVisible())
                result += label->text();
        return result.join(QLatin1Char('\n'));
    }

    /// Presses the visible button with that text, mnemonics left out.
    void choose(char const* text) const
    {
        for (QPushButton* const button : m_window->findChildren<QPushButton*>())
            if (button->isVisible() && button->text().remove(QLatin1Char('&')) == QLatin1String(text))
                return QTest::mouseClick(button, Qt::LeftButton);
        ADD_FAILURE() << "no button " << text;
    }

    std::string stored(std::string const& key) const { return SqliteStorage(m_productFile).getString(key, "(unset)"); }
    bool comesToBeStored(std::string const& key, std::string const& value)
    {
        return comes([&] { return stored(key) == value; });
    }

    Surroundings m_surroundings;
    TestKit::TemporaryHome m_home;
    Inspector::Place m_place{m_home.write("product.json", R"({"vendorName": "V", "productName": "P", "sharedDataFolderName": "S",
        "productKind": 0, "projectFileExtensions": [], "resourcesRoot": "r", "ownKeys": [
        {"key": "rate", "kind": "rational", "store": "product", "class": "local", "purpose": "frames", "default": "25/1"},
        {"key": "who", "kind": "string", "store": "product", "class": "personal", "purpose": "the user"},
        {"key": "age", "kind": "int", "store": "product", "class": "personal", "purpose": "in years"}]})"),
                             m_home.path() / "stores"};
    std::filesystem::path const m_productFile = m_home.path() / "stores/product-settings.sqlite";
    std::filesystem::path const m_commonFile = m_home.path() / "stores/common-settings.sqlite";
    OtherProcess m_other{m_productFile};
    int m_argc = 1;
    char m_name[7] = "window";
    char* m_argv[2] = {m_name, nullptr};
    QApplication m_application{m_argc, m_argv};
    std::unique_ptr<MainWindow> m_window;
};
