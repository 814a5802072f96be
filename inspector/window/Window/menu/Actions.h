// SPDX-License-Identifier: MIT
#pragma once

#include <QAction>

#include <vector>

class QMainWindow;
class QMenu;

namespace Inspector {

/// What the menus offer, with its words and keys. What each does is the window's.
struct Actions {
    /// Makes the menu bar of `window`.
    explicit Actions(QMainWindow& window);

    QAction* importFile;
    QAction* exportFile;
    QAction* exportAll;
    QAction* backUp;
    QAction* quit;

    QAction* undo;
    QAction* redo;
    QAction* unset;
    QAction* putBack;
    QAction* copy;
    QAction* copyCommand;
    QAction* copyKey;
    QAction* copyValue;
    QAction* copyJson;
    QAction* find;
    QAction* allowChanges;

    std::vector<QAction*> pages;
    QAction* reveal;
    QAction* open;
    QMenu* columns;
    QAction* lookAgain;
    QAction* nextPart;
    QAction* previousPart;

    QAction* explain;
    QAction* about;
};

} // namespace Inspector
