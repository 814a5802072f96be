// SPDX-License-Identifier: MIT
#include <Window/menu/Actions.h>

#include <QActionGroup>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>

namespace Inspector {

namespace {

QString tr(char const* text) { return QMainWindow::tr(text); }

} // namespace

Actions::Actions(QMainWindow& window)
{
    auto const add = [&](QMenu* menu, QString const& text, QList<QKeySequence> const& keys = {}) {
        QAction* const action = menu->addAction(text);
        action->setShortcuts(keys);
        action->setMenuRole(QAction::NoRole);
        return action;
    };
    QMenu* const file = window.menuBar()->addMenu(tr("&File"));
    importFile = add(file, tr("&Import…"), {tr("Ctrl+O")});
    exportFile = add(file, tr("&Export without personal values…"), {tr("Ctrl+S")});
    exportAll = add(file, tr("Export with &personal values…"));
    backUp = add(file, tr("&Back up…"), {tr("Ctrl+Shift+B")});
    file->addSeparator();
    quit = add(file, tr("&Quit"), {tr("Ctrl+Q")});

    QMenu* const edit = window.menuBar()->addMenu(tr("&Edit"));
    undo = add(edit, {}, {tr("Ctrl+Z")});
    redo = add(edit, {}, {tr("Ctrl+Shift+Z"), tr("Ctrl+Y")});
    edit->addSeparator();
    unset = add(edit, tr("U&nset"), {tr("Del")});
    putBack = add(edit, tr("&Put back"));
    edit->addSeparator();
    copy = add(edit, tr("&Copy"), {tr("Ctrl+C")});
    copyCommand = add(edit, tr("Copy as co&mmand"), {tr("Ctrl+Shift+C")});
    copyKey = add(edit, tr("Copy &key"));
    copyValue = add(edit, tr("Copy &value"));
    copyJson = add(edit, tr("Copy as &JSON"));
    edit->addSeparator();
    find = add(edit, tr("&Find"), {tr("Ctrl+F")});
    edit->addSeparator();
    allowChanges = add(edit, tr("&Allow changes"), {tr("Ctrl+E")});
    allowChanges->setCheckable(true);

    QMenu* const view = window.menuBar()->addMenu(tr("&View"));
    auto* const group = new QActionGroup(&window);
    for (QString const& name : {tr("&Settings"), tr("&Locations"), tr("&Health"), tr("&Changes")}) {
        pages.push_back(add(view, name, {tr("Ctrl+%1").arg(pages.size() + 1)}));
        pages.back()->setCheckable(true);
        group->addAction(pages.back());
    }
    view->addSeparator();
    open = add(view, tr("&Go to the editor or the setting"));
    reveal = add(view, tr("Show &personal value"), {tr("Ctrl+R")});
    reveal->setCheckable(true);
    columns = view->addMenu(tr("C&olumns"));
    view->addSeparator();
    lookAgain = add(view, tr("Look &now"), {tr("F5")});
    nextPart = add(view, tr("Ne&xt part of the window"), {tr("F6")});
    previousPart = add(view, tr("Pre&vious part of the window"), {tr("Shift+F6")});

    QMenu* const help = window.menuBar()->addMenu(tr("&Help"));
    explain = add(help, tr("&What this is for"), {tr("F1")});
    about = add(help, tr("&About"));
}

} // namespace Inspector
