// SPDX-License-Identifier: MIT
#include <Window/list/Facets.h>

#include <Inspector/Search.h>

#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>

#include <algorithm>

namespace Inspector {

namespace {

constexpr int markRole = Qt::UserRole;
constexpr int groupRole = Qt::UserRole + 1;

struct Facet {
    char const* text; // of a group where the mark is empty
    char const* mark;
};

// Of a group one mark at a time makes sense.
constexpr Facet facets[] = {
    {QT_TRANSLATE_NOOP("Inspector::Facets", "State"), ""},
    {QT_TRANSLATE_NOOP("Inspector::Facets", "Set"), "@set"},
    {QT_TRANSLATE_NOOP("Inspector::Facets", "Unset"), "@unset"},
    {QT_TRANSLATE_NOOP("Inspector::Facets", "Set to default"), "@default"},
    {QT_TRANSLATE_NOOP("Inspector::Facets", "Other kind"), "@other-kind"},
    {QT_TRANSLATE_NOOP("Inspector::Facets", "Unreadable"), "@unreadable"},
    {QT_TRANSLATE_NOOP("Inspector::Facets", "Undeclared"), "@undeclared"},
    {QT_TRANSLATE_NOOP("Inspector::Facets", "Attention"), ""},
    {QT_TRANSLATE_NOOP("Inspector::Facets", "Changed just now"), "@changed"},
    {QT_TRANSLATE_NOOP("Inspector::Facets", "Trouble"), "@trouble"},
    {QT_TRANSLATE_NOOP("Inspector::Facets", "Locked"), "@locked"},
    {QT_TRANSLATE_NOOP("Inspector::Facets", "Store"), ""},
    {QT_TRANSLATE_NOOP("Inspector::Facets", "Product"), "@product"},
    {QT_TRANSLATE_NOOP("Inspector::Facets", "Common"), "@common"},
    {QT_TRANSLATE_NOOP("Inspector::Facets", "Memory"), "@memory"},
    {QT_TRANSLATE_NOOP("Inspector::Facets", "Class"), ""},
    {QT_TRANSLATE_NOOP("Inspector::Facets", "Roaming"), "@roaming"},
    {QT_TRANSLATE_NOOP("Inspector::Facets", "Local"), "@local"},
    {QT_TRANSLATE_NOOP("Inspector::Facets", "Personal"), "@personal"},
    {QT_TRANSLATE_NOOP("Inspector::Facets", "Transient"), "@transient"},
};

QStringList wordsOf(QString const& typed) { return typed.simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts); }

// It cannot be chosen, and can be read all the same.
void makeGroup(QTreeWidgetItem& item)
{
    item.setFlags(Qt::NoItemFlags);
    item.setForeground(0, item.treeWidget()->palette().brush(QPalette::Active, QPalette::Text));
    QFont font = item.treeWidget()->font();
    font.setItalic(true);
    item.setFont(0, font);
    item.setFirstColumnSpanned(true);
}

} // namespace

Facets::Facets(QWidget* parent) : QTreeWidget(parent)
{
    setColumnCount(2);
    setHeaderHidden(true);
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setIndentation(0);
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(0, QHeaderView::Stretch);
    header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    setAccessibleName(tr("Show"));
    auto* const all = new QTreeWidgetItem(this, QStringList{tr("All")});
    all->setData(0, groupRole, -1);
    int group = -1;
    for (Facet const& facet : facets) {
        auto* const item = new QTreeWidgetItem(this, QStringList{tr(facet.text)});
        bool const isGroup = *facet.mark == '\0';
        group += isGroup;
        item->setData(0, markRole, QString::fromLatin1(facet.mark));
        item->setData(0, groupRole, group);
        if (isGroup)
            makeGroup(*item);
        item->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
    }
    all->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
    connect(this, &QTreeWidget::itemClicked, this, &Facets::choose);
    setSearch({});
}

void Facets::count(ItemsModel const& model)
{
    for (int at = 0; at < topLevelItemCount(); ++at) {
        QTreeWidgetItem* const item = topLevelItem(at);
        if (item->flags() == Qt::NoItemFlags)
            continue;
        Search const search(item->data(0, markRole).toString());
        int count = 0;
        for (int row = 0; row < model.rowCount(); ++row)
            count += search.accepts(model.item(row));
        item->setText(1, locale().toString(count));
        item->setData(0, Qt::AccessibleTextRole, QStringLiteral("%1, %2").arg(item->text(0), item->text(1)));
    }
}

void Facets::setSearch(QString const& typed)
{
    m_search = typed;
    QStringList const words = wordsOf(typed);
    for (int at = 0; at < topLevelItemCount(); ++at) {
        QTreeWidgetItem* const item = topLevelItem(at);
        if (item->flags() == Qt::NoItemFlags)
            continue;
        QFont chosen = font();
        chosen.setBold(words.contains(item->data(0, markRole).toString()));
        item->setFont(0, chosen);
    }
}

QSize Facets::minimumSizeHint() const
{
    QFont bold = font();
    bold.setBold(true); // as what stands in the search is
    int widest = 0;
    for (int at = 0; at < topLevelItemCount(); ++at)
        widest = std::max(widest, QFontMetrics(bold).horizontalAdvance(topLevelItem(at)->text(0)));
    int const margins = 2 * (style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, this) + 1);
    int const counts = std::max(sizeHintForColumn(1), fontMetrics().horizontalAdvance(QStringLiteral("0000")) + margins);
    return {widest + margins + counts + 2 * frameWidth() + verticalScrollBar()->sizeHint().width(),
            QTreeWidget::minimumSizeHint().height()};
}

// The headings have their colour from the palette, and one for the dark may follow one for the day.
void Facets::changeEvent(QEvent* event)
{
    QTreeWidget::changeEvent(event);
    if (event->type() != QEvent::PaletteChange)
        return;
    for (int at = 0; at < topLevelItemCount(); ++at)
        if (topLevelItem(at)->flags() == Qt::NoItemFlags)
            topLevelItem(at)->setForeground(0, palette().brush(QPalette::Active, QPalette::Text));
}

void Facets::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_Space)
        choose(currentItem());
    else
        QTreeWidget::keyPressEvent(event);
}

void Facets::choose(QTreeWidgetItem const* item)
{
    if (!item || item->flags() == Qt::NoItemFlags)
        return;
    QString const mark = item->data(0, markRole).toString();
    QStringList words = wordsOf(m_search);
    bool const isNew = !mark.isEmpty() && !words.contains(mark);
    for (int at = 0; at < topLevelItemCount(); ++at)
        if (mark.isEmpty() || topLevelItem(at)->data(0, groupRole) == item->data(0, groupRole))
            words.removeAll(topLevelItem(at)->data(0, markRole).toString());
    if (isNew)
        words.append(mark);
    Q_EMIT searchChosen(words.join(QLatin1Char(' ')));
}

} // namespace Inspector
