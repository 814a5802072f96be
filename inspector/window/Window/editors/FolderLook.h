// SPDX-License-Identifier: MIT
#pragma once

#include <Inspection/PathStatus.h>

#include <QObject>
#include <QStringList>
#include <QTimer>

#include <memory>

namespace Inspector {

/// Looks at one folder after the other, in a thread of its own: on a network that is gone a look takes minutes, for which nobody
/// waits.
class FolderLook : public QObject {
    Q_OBJECT

public:
    /// `isWritten` asks for what the editor writes to, else for what it reads.
    explicit FolderLook(bool isWritten, QObject* parent = nullptr);
    ~FolderLook() override;

    /// Looks at `path` as soon as nobody has asked for another one for a quarter of a second.
    void ask(QString const& path);

Q_SIGNALS:
    /// What `path` leads to, and the first of the folders beside which its last name stands.
    void seen(QString const& path, Inspection::PathStatus const& status, QStringList const& neighbours);

private:
    struct Mailbox;

    void begin();
    void end(QString const& path, Inspection::PathStatus const& status, QStringList const& neighbours);

    bool const m_isWritten;
    QString m_asked;
    QTimer m_pause;
    bool m_isLooking = false;
    std::shared_ptr<Mailbox> const m_mailbox;
};

} // namespace Inspector
