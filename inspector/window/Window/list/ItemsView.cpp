// SPDX-License-Identifier: MIT
#include <Window/list/ItemsView.h>

#include <QHeaderView>
#include <QKeyEvent>
#include <QStyledItemDelegate>

#include <algorithm>
#include <utility>

namespace Inspector {

namespace {

std::string idOf(QModelIndex const& index) { return index.data(ItemsModel::idRole).toByteArray().toStdString(); }

} // namespace

class ItemsView::Painter : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    // Keys, paths and values read from left to right also in a window that does not.
    void initStyleOption(QStyleOptionViewItem* option, QModelIndex const& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        if (option->direction == Qt::RightToLeft)
            option->text = QChar(0x2066) + option->text + QChar(0x2069);
    }
};

ItemsView::ItemsView(ItemsModel& model, QString const& name, QWidget* parent) : QTreeView(parent), m_model(model), m_proxy(model)
{
    setAccessibleName(name);
    setItemDelegate(new Painter(this));
    setModel(&m_proxy);
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setUniformRowHeights(true);
    setAlternatingRowColors(true);
    setAllColumnsShowFocus(true);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(ExtendedSelection);
    setTabKeyNavigation(false);
    setContextMenuPolicy(Qt::ActionsContextMenu);
    header()->setSectionsMovable(false);
    header()->setTextElideMode(Qt::ElideRight);
    connect(&m_proxy, &QAbstractItemModel::rowsAboutToBeInserted, this, &ItemsView::noteTop);
    connect(&m_proxy, &QAbstractItemModel::rowsAboutToBeRemoved, this, &ItemsView::noteTop);
    connect(&m_proxy, &QAbstractItemModel::modelAboutToBeReset, this, &ItemsView::noteLines);
    connect(&m_proxy, &QAbstractItemModel::modelReset, this, &ItemsView::restoreLines);
}

void ItemsView::setSearch(QString const& typed)
{
    if (typed == m_search)
        return;
    bool const isWanted = idOf(currentIndex()) == m_wanted;
    m_search = typed;
    m_isSearching = true;
    m_proxy.setSearch(Search(typed));
    QModelIndex const wanted = m_proxy.indexOf(m_wanted);
    if (wanted.isValid() && isWanted)
        selectionModel()->setCurrentIndex(wanted, QItemSelectionModel::NoUpdate);
    else
        setCurrentIndex(wanted.isValid() ? wanted : m_proxy.index(0, 0));
    m_proxy.keep(idOf(currentIndex()));
    m_isSearching = false;
    scrollTo(currentIndex());
    if (std::exchange(m_hasMoved, false))
        Q_EMIT moved();
}

std::vector<int> ItemsView::selectedRows() const
{
    std::vector<int> rows;
    QModelIndexList const selected = selectionModel()->selectedRows();
    for (QModelIndex const& index : selected)
        rows.push_back(m_proxy.mapToSource(index).row());
    std::sort(rows.begin(), rows.end());
    return rows;
}

QString ItemsView::selectedText() const
{
    QStringList lines;
    for (int const row : selectedRows())
        lines += m_model.item(row).cells.join(QLatin1Char('\t'));
    return lines.join(QLatin1Char('\n'));
}

bool ItemsView::setCurrent(std::string const& id)
{
    m_proxy.keep(id);
    QModelIndex const index = m_proxy.indexOf(id);
    if (index.isValid())
        setCurrentIndex(index);
    m_top.clear(); // the place is that of the line now
    return index.isValid();
}

// The line is kept later, as that changes the rows, which a change of the current one must not do while it is made known. Of a
// search it is made known when all rows have come and gone: who hears of it may change lines of the model that are just filtered.
void ItemsView::currentChanged(QModelIndex const& current, QModelIndex const& previous)
{
    QTreeView::currentChanged(current, previous);
    m_hasMoved = m_isSearching;
    if (m_isSearching)
        return;
    if (current.isValid()) {
        m_wanted = idOf(current);
        QMetaObject::invokeMethod(
            this, [this] { m_proxy.keep(idOf(currentIndex())); }, Qt::QueuedConnection);
    }
    Q_EMIT moved();
}

void ItemsView::selectionChanged(QItemSelection const& now, QItemSelection const& before)
{
    QTreeView::selectionChanged(now, before);
    Q_EMIT selected();
}

void ItemsView::keyPressEvent(QKeyEvent* event)
{
    bool const isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_F2;
    bool const isPlain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    if (isEnter && isPlain && currentIndex().isValid())
        Q_EMIT opened();
    else if (event->text() == QLatin1String("/"))
        Q_EMIT wantsToSearch();
    else
        QTreeView::keyPressEvent(event);
}

void ItemsView::mouseDoubleClickEvent(QMouseEvent* event)
{
    QTreeView::mouseDoubleClickEvent(event);
    if (event->button() == Qt::LeftButton && indexAt(event->pos()).isValid())
        Q_EMIT opened();
}

// --- The place ---

// The rows that come or go may be many runs, so the place is found again once for all of them, before the next painting.
void ItemsView::noteTop()
{
    if (m_isSearching || !m_top.empty())
        return;
    m_top = idOf(indexAt({0, 0}));
    QMetaObject::invokeMethod(this, &ItemsView::restoreTop, Qt::QueuedConnection);
}

void ItemsView::restoreTop()
{
    QModelIndex const top = m_proxy.indexOf(std::exchange(m_top, {}));
    if (top.isValid())
        scrollTo(top, PositionAtTop);
}

// A reset detaches the source first, and attaches it in a second one.
void ItemsView::noteLines()
{
    if (!m_proxy.sourceModel())
        return;
    m_selected.clear();
    QModelIndexList const selected = selectionModel()->selectedRows();
    for (QModelIndex const& index : selected)
        m_selected.push_back(idOf(index));
}

void ItemsView::restoreLines()
{
    if (!m_proxy.sourceModel())
        return;
    if (QModelIndex const wanted = m_proxy.indexOf(m_wanted); wanted.isValid())
        selectionModel()->setCurrentIndex(wanted, QItemSelectionModel::NoUpdate);
    for (std::string const& id : std::exchange(m_selected, {}))
        if (QModelIndex const index = m_proxy.indexOf(id); index.isValid())
            selectionModel()->select(index, QItemSelectionModel::Select | QItemSelectionModel::Rows);
}

} // namespace Inspector
