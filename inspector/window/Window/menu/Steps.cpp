// SPDX-License-Identifier: MIT
#include <Window/menu/Steps.h>

#include <Window/changes/Committer.h>
#include <Window/menu/Actions.h>
#include <Window/status/MessageBar.h>
#include <Window/status/StatusLine.h>

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>

namespace Inspector {

namespace {

// Whether `widget` is a text that has something to undo or redo.
bool hasTextStep(QWidget const* widget, History::Way way)
{
    bool const isUndo = way == History::Way::undo;
    if (auto const* const line = qobject_cast<QLineEdit const*>(widget))
        return !line->isReadOnly() && (isUndo ? line->isUndoAvailable() : line->isRedoAvailable());
    if (auto const* const text = qobject_cast<QPlainTextEdit const*>(widget))
        return !text->isReadOnly() && (isUndo ? text->document()->isUndoAvailable() : text->document()->isRedoAvailable());
    return false;
}

} // namespace

Steps::Steps(Actions const& actions, Committer& committer, MessageBar& messages, StatusLine& status, QWidget& window)
    : QObject(&window), m_actions(actions), m_committer(committer), m_messages(messages), m_status(status)
{
    connect(actions.undo, &QAction::triggered, this, [this] { step(History::Way::undo); });
    connect(actions.redo, &QAction::triggered, this, [this] { step(History::Way::redo); });
    connect(&committer, &Committer::stepsChanged, this, &Steps::show);
    qApp->installEventFilter(this);
    show();
}

void Steps::show()
{
    QString const undo = m_committer.nextStep(History::Way::undo);
    QString const redo = m_committer.nextStep(History::Way::redo);
    m_actions.undo->setText(undo.isEmpty() ? tr("&Undo") : tr("&Undo: %1").arg(undo));
    m_actions.redo->setText(redo.isEmpty() ? tr("&Redo") : tr("&Redo: %1").arg(redo));
    m_status.showStep(m_committer.isWaiting() ? tr("Storing…") : undo.isEmpty() ? QString() : tr("Undo: %1 (Ctrl+Z)").arg(undo));
    if (!m_committer.isWaiting())
        m_messages.clear(QStringLiteral("waits"));
}

void Steps::step(History::Way way)
{
    QWidget* const focus = QApplication::focusWidget();
    if (hasTextStep(focus, way))
        QMetaObject::invokeMethod(focus, way == History::Way::undo ? "undo" : "redo");
    else if (m_status.changes().isChecked())
        m_committer.step(way);
}

// Keys that a text takes for itself although it has nothing to undo.
bool Steps::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::ShortcutOverride)
        return false;
    QKeySequence const keys(static_cast<QKeyEvent*>(event)->key() | static_cast<int>(static_cast<QKeyEvent*>(event)->modifiers()));
    bool const isUndo = m_actions.undo->shortcuts().contains(keys) && !hasTextStep(qobject_cast<QWidget*>(watched), History::Way::undo);
    bool const isRedo = m_actions.redo->shortcuts().contains(keys) && !hasTextStep(qobject_cast<QWidget*>(watched), History::Way::redo);
    if (isUndo || isRedo)
        event->ignore();
    return isUndo || isRedo;
}

} // namespace Inspector
