// SPDX-License-Identifier: MIT
//
// That what a page shows can be read: by eye and by ear.
#include "WindowTest.h"

#include <QPlainTextEdit>
#include <QScrollBar>
#include <QSplitter>

#include <cmath>

namespace {

class Pages : public WindowTest {
protected:
    void TearDown() override { QApplication::setPalette(QPalette()); }

    /// All about the current line, below the list.
    QPlainTextEdit const& details() const
    {
        for (QPlainTextEdit const* const each : m_window->findChildren<QPlainTextEdit*>())
            if (each->isVisible() && each->accessibleName() == QLatin1String("About the current line"))
                return *each;
        throw std::logic_error("no details");
    }
    static QString spoken(Inspector::ItemsView const& view) { return view.currentIndex().data(Qt::AccessibleTextRole).toString(); }
};

// As WCAG 2 has it.
double luminance(QColor const& colour)
{
    auto const linear = [](double part) { return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4); };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

double contrast(QColor const& one, QColor const& other)
{
    double const first = luminance(one);
    double const second = luminance(other);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

QPalette dark()
{
    QPalette palette(QColor(45, 47, 51));
    palette.setColor(QPalette::Base, QColor(32, 34, 37));
    palette.setColor(QPalette::Text, QColor(225, 227, 230));
    return palette;
}

TEST_F(Pages, ChangeIsToldInLinesThatSayWhatTheyAre)
{
    open();
    m_other.set("exportPath", "/films");
    ASSERT_TRUE(comes([this] { return view(MainWindow::changesPage).foundCount() == 1; }));
    press(Qt::Key_4, Qt::ControlModifier);
    view(MainWindow::changesPage).setCurrentIndex(view(MainWindow::changesPage).model()->index(0, 0));
    QString const text = details().toPlainText();
    EXPECT_TRUE(text.startsWith(QStringLiteral("Time: 20"))) << text.toStdString();
    EXPECT_TRUE(text.endsWith(QStringLiteral("\nWho: somebody else\nStore: product\nKey: exportPath\nBefore: (unset)\nAfter: /films")))
        << text.toStdString();
    EXPECT_EQ(details().verticalScrollBar()->maximum(), 0) << "all lines are visible";
}

TEST_F(Pages, FindingAndLocationSayWhatTheirLinesAre)
{
    SqliteStorage(m_productFile).setInt("exportPath", 3);
    open();
    press(Qt::Key_3, Qt::ControlModifier);
    ASSERT_TRUE(comes([this] { return view(MainWindow::healthPage).foundCount() > 0; }));
    search().setText(QStringLiteral("exportPath (product"));
    ASSERT_TRUE(comes([this] { return view(MainWindow::healthPage).foundCount() == 1; }));
    EXPECT_TRUE(details().toPlainText().contains(QStringLiteral("\nWhere: exportPath (product store)\nWhat: ")))
        << details().toPlainText().toStdString();
    press(Qt::Key_2, Qt::ControlModifier);
    ASSERT_TRUE(comes([this] { return view(MainWindow::locationsPage).foundCount() > 0; }));
    search().setText(QStringLiteral("exportPath"));
    EXPECT_TRUE(details().toPlainText().startsWith(QStringLiteral("Location: exportPath\nPath: ")))
        << details().toPlainText().toStdString();
    EXPECT_TRUE(details().toPlainText().contains(QStringLiteral("\nDecided by: "))) << details().toPlainText().toStdString();
}

TEST_F(Pages, UseOfALocationIsShownWhole)
{
    open();
    press(Qt::Key_2, Qt::ControlModifier);
    ASSERT_TRUE(comes([this] { return view(MainWindow::locationsPage).foundCount() > 40; }));
    auto const isWhole = [this] {
        QTreeView const& locations = view(MainWindow::locationsPage);
        return locations.columnWidth(2) >= static_cast<QAbstractItemView const&>(locations).sizeHintForColumn(2);
    };
    EXPECT_TRUE(comes(isWhole)) << "once the widths were asked for again";
}

TEST_F(Pages, FacetsAreNoNarrowerThanTheirTexts)
{
    open();
    auto& facets = *m_window->findChild<Inspector::Facets*>();
    m_window->findChild<QSplitter*>()->setSizes({1, 900, 100});
    QCoreApplication::processEvents();
    QAbstractItemView const& view = facets;
    EXPECT_GE(facets.columnWidth(0), view.sizeHintForColumn(0));
    EXPECT_GE(facets.viewport()->width(), facets.columnWidth(0) + facets.columnWidth(1));
}

TEST_F(Pages, HeadingsOfFacetsAreLegibleInEachPalette)
{
    open();
    auto const& facets = *m_window->findChild<Inspector::Facets*>();
    std::pair<char const*, QPalette> const palettes[] = {{"light", QPalette()}, {"dark", dark()}};
    for (auto const& [name, palette] : palettes) {
        QApplication::setPalette(palette);
        QCoreApplication::processEvents();
        int headings = 0;
        for (int at = 0; at < facets.topLevelItemCount(); ++at)
            if (QTreeWidgetItem const& item = *facets.topLevelItem(at); item.flags() == Qt::NoItemFlags) {
                EXPECT_GE(contrast(item.foreground(0).color(), facets.palette().color(QPalette::Active, QPalette::Base)), 4.5)
                    << name << ": " << item.text(0).toStdString();
                ++headings;
            }
        EXPECT_EQ(headings, 4);
        EXPECT_GE(contrast(facets.palette().color(QPalette::Text), facets.palette().color(QPalette::Base)), 4.5) << name;
    }
}

TEST_F(Pages, TroubleIsSeenBesideTheStateAndHeard)
{
    std::string const file = m_home.write("file", "");
    m_other.set("exportPath", file + "/films");
    m_other.set("lastTarget", "tv");
    open();
    goTo("exportPath");
    ASSERT_TRUE(comes([this] { return cell(settings(), 2) == QStringLiteral("\u26A0 set"); })) << cell(settings(), 2).toStdString();
    EXPECT_TRUE(spoken(settings()).contains(QStringLiteral(", set, trouble: exportPath: the editor cannot write there: ")))
        << spoken(settings()).toStdString();
    goTo("lastTarget");
    EXPECT_EQ(cell(settings(), 2), QStringLiteral("set"));
    EXPECT_EQ(spoken(settings()), QStringLiteral("lastTarget, tv, set"));
}

TEST_F(Pages, DraftIsSeenBesideTheKeyAndHeard)
{
    m_other.set("lastTarget", "tv");
    openChanging();
    goTo("lastTarget");
    press(Qt::Key_Return);
    type("s");
    EXPECT_EQ(currentKey(), QStringLiteral("lastTarget (draft)"));
    EXPECT_EQ(spoken(settings()), QStringLiteral("lastTarget, tv, set, draft"));
    press(Qt::Key_Escape);
    EXPECT_EQ(spoken(settings()), QStringLiteral("lastTarget, tv, set"));
}

} // namespace
