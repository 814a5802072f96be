// SPDX-License-Identifier: MIT
//
// No text is cut off in a window of 1024 x 640, in either direction, also where texts are longer than the English ones. The program
// runs once for each scale of the screen.
#include "WindowTest.h"

#include <QHeaderView>
#include <QLineEdit>
#include <QMenuBar>
#include <QTextEdit>
#include <QTranslator>

namespace {

/// Makes what the window says two fifths longer.
class Longer : public QTranslator {
public:
    bool isEmpty() const override { return false; }
    QString translate(char const* context, char const* source, char const*, int) const override
    {
        QString text = QString::fromUtf8(source);
        bool const isKeys = text.startsWith(QLatin1String("Ctrl+")) || text.startsWith(QLatin1String("Shift+"));
        bool const isShort = text.size() < 4; // of F6 and the like, and what stands between words
        if (isKeys || isShort || !QByteArray(context).startsWith("Inspector::"))
            return {};
        for (int more = static_cast<int>(text.size()) * 2 / 5; more > 0; more -= 7)
            text += QLatin1Char(' ') + QString(std::min(more, 6), QChar(0xF6));
        return text;
    }
};

class Looks : public WindowTest, public testing::WithParamInterface<std::tuple<Qt::LayoutDirection, bool>> {
protected:
    void SetUp() override
    {
        QApplication::setLayoutDirection(std::get<0>(GetParam()));
        if (std::get<1>(GetParam()))
            QCoreApplication::installTranslator(&m_longer);
        SqliteStorage store(m_productFile);
        store.setString("exportPath", "/films");
        store.setInt("rate_N", 30);
        store.setInt("rate_D", 1);
        store.setString("who", "Grace");
        store.setInt("zoom", 7);
        store.setInt("lastTarget", 3);
    }

    static QSize wanted(QLabel const& label)
    {
        bool const isWrapped = label.wordWrap() && label.heightForWidth(label.width()) >= 0;
        return isWrapped ? QSize(0, label.heightForWidth(label.width())) : label.sizeHint();
    }
    static QSize wanted(QTextEdit const& text) { return {0, static_cast<int>(text.document()->size().height())}; }
    static QSize wanted(QLineEdit const& field)
    {
        return {field.fontMetrics().horizontalAdvance(field.text().isEmpty() ? field.placeholderText() : QString()), 0};
    }
    static QSize wanted(QWidget const& widget) { return widget.sizeHint(); }

    template <typename Widget>
    void look(char const* kind, QString (*textOf)(Widget const&))
    {
        for (Widget const* const each : m_window->findChildren<Widget*>()) {
            QSize const size = wanted(*each);
            bool const isCut = size.width() > each->width() || size.height() > each->height();
            if (each->isVisible() && !textOf(*each).isEmpty() && isCut)
                m_cut += QStringLiteral("%1 %2: %3 x %4 in %5 x %6")
                             .arg(QLatin1String(kind), textOf(*each))
                             .arg(size.width())
                             .arg(size.height())
                             .arg(each->width())
                             .arg(each->height());
        }
    }

    void lookAtHeadings()
    {
        for (QHeaderView const* const header : m_window->findChildren<QHeaderView*>())
            for (int column = 0; header->isVisible() && column < header->count(); ++column) {
                QString const text = header->model()->headerData(column, Qt::Horizontal).toString();
                if (!header->isSectionHidden(column) && header->fontMetrics().horizontalAdvance(text) > header->sectionSize(column))
                    m_cut += QStringLiteral("heading ") + text;
            }
    }

    void lookAtAll()
    {
        m_cut.clear();
        if (m_window->size() != QSize(1024, 640))
            m_cut += QStringLiteral("the window grew to %1 x %2").arg(m_window->width()).arg(m_window->height());
        look<QLabel>("label", [](QLabel const& label) { return label.text(); });
        look<QAbstractButton>("button", [](QAbstractButton const& button) { return button.text(); });
        look<QTabBar>("tabs", [](QTabBar const& tabs) { return tabs.tabText(0); });
        look<QTextEdit>("passage", [](QTextEdit const& text) { return text.toPlainText(); });
        look<QLineEdit>("field", [](QLineEdit const& field) { return field.placeholderText(); });
        look<QMenuBar>("menu bar", [](QMenuBar const& bar) { return bar.actions().value(0)->text(); });
        lookAtHeadings();
    }

    /// What is cut off and stays so, each with the sizes wanted and given.
    std::string cut()
    {
        for (int round = 0; round < 200; ++round) { // a new size may ask for another one
            QCoreApplication::processEvents();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            lookAtAll();
            if (round > 1 && m_cut.isEmpty())
                break;
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
        return m_cut.join(QLatin1Char('\n')).toStdString();
    }

    Longer m_longer;
    QStringList m_cut;
};

TEST_P(Looks, NoTextIsCutOffOnAnyPage)
{
    open();
    for (Qt::Key const page : {Qt::Key_1, Qt::Key_2, Qt::Key_3, Qt::Key_4}) {
        press(page, Qt::ControlModifier);
        EXPECT_EQ(cut(), "") << "page " << page - Qt::Key_0;
    }
}

TEST_P(Looks, NoTextIsCutOffBesideAnySettingThatMayChange)
{
    open();
    m_window->findChild<QCheckBox*>()->setChecked(true);
    for (char const* const key : {"exportPath", "rate", "who", "zoom", "lastTarget", "keepVideoAspect", "userCustomColors",
                                  "mainWindowGeometry", "sendStatistics", "npsSendCount", "lastUsedPresetId"}) {
        goTo(key);
        EXPECT_EQ(cut(), "") << key;
        press(Qt::Key_Return);
        EXPECT_EQ(cut(), "") << key << ", edited";
        press(Qt::Key_Escape);
    }
}

TEST_P(Looks, NoMessageIsCutOff)
{
    m_home.write("stores/product-settings.sqlite", "not a store");
    open();
    ASSERT_FALSE(messages().isEmpty());
    EXPECT_EQ(cut(), "");
}

INSTANTIATE_TEST_SUITE_P(Directions, Looks,
                         testing::Combine(testing::Values(Qt::LeftToRight, Qt::RightToLeft), testing::Values(false, true)),
                         [](auto const& each) {
                             return std::string(std::get<0>(each.param) == Qt::LeftToRight ? "FromTheLeft" : "FromTheRight") +
                                    (std::get<1>(each.param) ? "Longer" : "");
                         });

} // namespace
