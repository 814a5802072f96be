// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QSize>
#include <QString>
#include <QStringList>

namespace Inspector {

/// What is kept between two starts, in a file of the program's own and in no store. What does not look like it is taken for nothing:
/// a size that is not positive, a missing text.
struct WindowState {
    QSize size;
    int page = 0;
    QStringList searches;      ///< Of each page.
    QList<QList<int>> columns; ///< The widths of each page; 0 for a hidden column.
    QList<int> parts;          ///< The widths of facets, list and pane.

    /// The file below XDG_STATE_HOME.
    static QString file();
    static WindowState load();
    /// A failure is no matter: the next start looks like the first.
    void save() const;
};

} // namespace Inspector
