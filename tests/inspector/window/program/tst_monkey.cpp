// SPDX-License-Identifier: MIT
#include <inspector/window/WindowTest.h>

#include <QAbstractScrollArea>
#include <QFileDialog>
#include <QMenu>
#include <QWheelEvent>

#include <fstream>
#include <random>
#include <sstream>

#include <sys/stat.h>

namespace {

/// Presses, turns and clicks at random. Whatever it does is no reason to store anything.
class Monkey : public WindowTest {
protected:
    enum class Mode { looking, changing };

    int below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(m_random); }

    QWidget* anyWidget()
    {
        QList<QWidget*> widgets;
        for (QWidget* const each : m_window->findChildren<QWidget*>())
            if (each->isVisible() && !qobject_cast<QMenu*>(each))
                widgets += each;
        return widgets[below(static_cast<int>(widgets.size()))];
    }

    void turnWheel(QWidget& widget)
    {
        QPointF const at(widget.rect().center());
        QWheelEvent event(at, widget.mapToGlobal(at.toPoint()), {}, {0, below(2) ? 120 : -120}, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&widget, &event);
    }

    void pressAny(Mode mode)
    {
        static constexpr Qt::Key safe[] = {Qt::Key_Up,  Qt::Key_Down,     Qt::Key_Left,   Qt::Key_Right, Qt::Key_Home, Qt::Key_End,
                                           Qt::Key_Tab, Qt::Key_PageDown, Qt::Key_Escape, Qt::Key_F6,    Qt::Key_F5,   Qt::Key_A,
                                           Qt::Key_7,   Qt::Key_Slash,    Qt::Key_F1,     Qt::Key_Minus, Qt::Key_F2};
        static constexpr Qt::Key choices[] = {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Delete, Qt::Key_Space, Qt::Key_Backspace, Qt::Key_Z};
        bool const isOnSwitch = QApplication::focusWidget() == m_window->findChild<QCheckBox*>();
        bool const isChoice = mode == Mode::looking && !isOnSwitch && below(4) == 0;
        Qt::Key const key = isChoice ? choices[below(6)] : safe[below(17)];
        static constexpr Qt::KeyboardModifiers modifiers[] = {Qt::NoModifier, Qt::NoModifier, Qt::ShiftModifier, Qt::ControlModifier};
        press(key, key == Qt::Key_Space ? Qt::NoModifier : modifiers[below(4)]);
    }

    // A click on a button, or on a radio button of an editor, is a choice.
    bool isClickable(QWidget const& widget, Mode mode) const
    {
        auto const* const allow = m_window->findChild<QCheckBox*>();
        return &widget != allow && (mode == Mode::looking || !qobject_cast<QAbstractButton const*>(&widget));
    }

    void step(Mode mode)
    {
        QWidget* const widget = anyWidget();
        switch (below(6)) {
        case 0:
            return turnWheel(*widget);
        case 1:
        case 2:
            return pressAny(mode);
        case 3:
            if (isClickable(*widget, mode))
                QTest::mouseClick(widget, Qt::LeftButton, {}, {below(widget->width() + 1), below(widget->height() + 1)});
            return;
        case 4:
            return widget->setFocus(Qt::MouseFocusReason);
        default:
            if (below(50) == 0)
                m_window->close();
            m_window->show();
            QCoreApplication::processEvents();
        }
    }

    void play(Mode mode, int steps)
    {
        SCOPED_TRACE("seed " + std::to_string(seed()));
        std::cout << "seed " << seed() << '\n';
        for (int at = 0; at < steps; ++at) {
            step(mode);
            // Qt's own dialog renames and removes files, and asks back in a loop of its own, which nobody here would end.
            for (QFileDialog* const dialog : m_window->findChildren<QFileDialog*>())
                delete dialog;
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); // as an event loop does between two events
        }
    }

    /// All that tells of a change of the file.
    static std::string traceOf(std::filesystem::path const& file)
    {
        struct stat status = {};
        EXPECT_EQ(::stat(file.c_str(), &status), 0);
        std::ostringstream trace;
        trace << status.st_ino << ' ' << status.st_mtim.tv_sec << '.' << status.st_mtim.tv_nsec << '\n' << std::ifstream(file).rdbuf();
        return trace.str();
    }

    void fill()
    {
        SqliteStorage product(m_productFile);
        product.setString("exportPath", "/films");
        product.setString("who", "Grace");
        product.setInt("age", 45);
        product.setBool("keepVideoAspect", false);
        product.setString("lastTarget", "disk");
        product.setInt("rate_N", 30);
        product.setInt("rate_D", 1);
        product.setInt("unknown", 7);
        SqliteStorage(m_commonFile).setBool("sendStatistics", false);
    }

    std::mt19937 m_random{seed()};
};

TEST_F(Monkey, LookingLeavesTheStoresAsTheyWere)
{
    fill();
    std::string const product = traceOf(m_productFile);
    std::string const common = traceOf(m_commonFile);
    open();
    int const steps = times(2000, 100000, 1000000);
    play(Mode::looking, steps);
    close();
    bool const isSame = traceOf(m_productFile) == product && traceOf(m_commonFile) == common;
    EXPECT_TRUE(isSame);
    tally("random events on a window that only looks", steps, isSame ? 0 : 1);
}

TEST_F(Monkey, ChangingStoresNothingWithoutAChoice)
{
    fill();
    std::string const product = traceOf(m_productFile);
    std::string const common = traceOf(m_commonFile);
    openChanging();
    int const steps = times(2000, 100000, 1000000);
    play(Mode::changing, steps);
    m_window.reset();
    bool const isSame = traceOf(m_productFile) == product && traceOf(m_commonFile) == common;
    EXPECT_TRUE(isSame);
    tally("random events without a choice on a window that may change", steps, isSame ? 0 : 1);
}

} // namespace
