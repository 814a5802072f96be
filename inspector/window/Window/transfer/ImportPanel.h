// SPDX-License-Identifier: MIT
#pragma once

#include <Inspector/Place.h>
#include <Inspector/transfer/ComparisonModel.h>

#include <QWidget>

#include <memory>

class QLabel;
class QPushButton;
class QTreeView;

namespace Inspector {

/// How a document differs from the stores, with a choice of what is taken of it. Nothing is stored until its button is pressed.
class ImportPanel : public QWidget {
    Q_OBJECT

public:
    ImportPanel(Place const& place, QWidget* parent);

    /// Shows it, with the focus in its list.
    void show(std::shared_ptr<DocumentComparison const> const& comparison);
    /// Whether anything can be stored; `reason` says why not.
    void allowChanges(bool isAllowed, QString const& reason);

Q_SIGNALS:
    /// To be stored in one step.
    void wantsToStore(Inspector::Step const& step);
    /// The page before is to be shown again.
    void isDone();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void showChoice();

    Place const m_place;
    ComparisonModel m_model;
    QLabel* m_title;
    QTreeView* m_view;
    QLabel* m_summary;
    QPushButton* m_copy;
    QPushButton* m_cancel;
    QPushButton* m_store;
    bool m_isAllowed = false;
};

} // namespace Inspector
