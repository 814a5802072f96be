// SPDX-License-Identifier: MIT
#pragma once

#include <Window/editors/FolderLook.h>
#include <Window/editors/LineEditor.h>

class QLabel;
class QStringListModel;

namespace Inspector {

/// The path of a folder, with what it leads to, the folders that its beginning may become, and a chooser.
class FolderEditor : public LineEditor {
    Q_OBJECT

public:
    explicit FolderEditor(Setting const& setting, QWidget* parent = nullptr);

    void setWords(QStringList const& words) override;
    QString doubt() override;

protected:
    bool eventFilter(QObject* field, QEvent* event) override;

private:
    void browse();
    void check();
    void tell(Inspection::PathStatus const& status, QStringList const& neighbours);

    FolderLook m_look;
    QLabel* m_status;
    QStringListModel* m_neighbours;
    QString m_doubted; // the text that was asked for once
};

} // namespace Inspector
