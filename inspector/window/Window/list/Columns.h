// SPDX-License-Identifier: MIT
//
// The widths of the columns of a list, as they are kept between two starts: 0 for a hidden one.
#pragma once

#include <QList>

class QTreeView;

namespace Inspector {

/// Sets `kept`, or `first`, in characters, where that does not have a width for each column.
void setColumns(QTreeView& view, QList<int> const& kept, QList<int> const& first);
QList<int> columnsOf(QTreeView const& view);

} // namespace Inspector
