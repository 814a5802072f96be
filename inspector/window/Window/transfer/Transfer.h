// SPDX-License-Identifier: MIT
#pragma once

#include <Inspector/Desk.h>

#include <QObject>

#include <functional>

class QWidget;

namespace Inspector {

class Committer;
class MessageBar;

/// Import, export and backup: asks for the name of the file, and tells what became of it.
class Transfer : public QObject {
    Q_OBJECT

public:
    Transfer(Desk& desk, Committer& committer, MessageBar& messages, QWidget& window);

    void chooseImport();
    /// `isRedacted` leaves personal values out.
    void chooseExport(bool isRedacted);
    void chooseBackup();
    /// Has the document `file` compared with the stores.
    void compare(QString const& file);

Q_SIGNALS:
    void compared(std::shared_ptr<Inspector::DocumentComparison const> const& comparison);

private:
    void choose(QString const& title, bool isNew, QString const& name, std::function<void(QString const&)> const& act);
    void tellWritten(Answer const& answer);

    Desk& m_desk;
    Committer& m_committer;
    MessageBar& m_messages;
    QWidget& m_window;
};

} // namespace Inspector
