// SPDX-License-Identifier: MIT
#pragma once

#include <Inspector/Snapshot.h>

#include <QStatusBar>

class QCheckBox;
class QLabel;

namespace Inspector {

/// Whether changes are allowed, the state of each store, how old the rows are, and what would be undone.
class StatusLine : public QStatusBar {
    Q_OBJECT

public:
    explicit StatusLine(QWidget* parent);

    void show(Snapshot const& snapshot);
    /// `words` tell how old the rows are.
    void showAge(QString const& words);
    /// `words` tell what would be undone, or what is being stored; may be empty.
    void showStep(QString const& words);
    /// `words` tell which backups were made, of which there is a hint as long as the window is open.
    void showBackups(QString const& words);
    /// Why no change can be allowed; empty where it can.
    QString const& refusal() const { return m_refusal; }
    QCheckBox& changes() const { return *m_changes; }

private:
    static void show(QLabel& label, QString const& name, StoreView const& store);

    QCheckBox* m_changes;
    QLabel* m_product;
    QLabel* m_common;
    QLabel* m_age;
    QLabel* m_step;
    QLabel* m_backups;
    QString m_refusal;
};

} // namespace Inspector
