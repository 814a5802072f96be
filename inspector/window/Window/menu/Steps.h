// SPDX-License-Identifier: MIT
#pragma once

#include <Inspector/History.h>

#include <QObject>

class QWidget;

namespace Inspector {

struct Actions;
class Committer;
class MessageBar;
class StatusLine;

/// Undo and redo: of the text with the focus while that has a step, else of what the window has stored. It tells in the menu and at
/// the bottom what the next step would be.
class Steps : public QObject {
    Q_OBJECT

public:
    Steps(Actions const& actions, Committer& committer, MessageBar& messages, StatusLine& status, QWidget& window);

    /// Tells of the next step.
    void show();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void step(History::Way way);

    Actions const& m_actions;
    Committer& m_committer;
    MessageBar& m_messages;
    StatusLine& m_status;
};

} // namespace Inspector
