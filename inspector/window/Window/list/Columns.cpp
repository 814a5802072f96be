// SPDX-License-Identifier: MIT
#include <Window/list/Columns.h>

#include <QTreeView>

namespace Inspector {

void setColumns(QTreeView& view, QList<int> const& kept, QList<int> const& first)
{
    int const count = view.model()->columnCount();
    for (int column = 0; column < count; ++column) {
        int const width = kept.size() == count ? kept[column] : first[column] * view.fontMetrics().averageCharWidth();
        view.setColumnHidden(column, width == 0 && column > 0);
        if (width > 0)
            view.setColumnWidth(column, width);
    }
}

QList<int> columnsOf(QTreeView const& view)
{
    QList<int> widths;
    for (int column = 0; column < view.model()->columnCount(); ++column)
        widths += view.isColumnHidden(column) ? 0 : view.columnWidth(column);
    return widths;
}

} // namespace Inspector
