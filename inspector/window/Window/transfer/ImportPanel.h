// SPDX-License-Identifier: MIT
#pragma once

#include <Inspector/Commits.h>
#include <Inspector/Place.h>
#include <Inspector/transfer/ComparisonModel.h>

#include <QWidget>

class QPushButton;

namespace Inspector {

class Passage;

/// What a document would change, of which somebody chooses what is stored. All of that is stored in one step.
class ImportPanel : public QWidget {
    Q_OBJECT

public:
    explicit ImportPanel(Place const& place, QWidget* parent = nullptr);

    /// Shows another comparison, with its first choice.
    void show(std::shared_ptr<DocumentComparison const> const& comparison);
    /// Whether the choice may be stored; `reason` says why not.
    void allowChanges(bool isAllowed, QString const& reason = {});
    /// Takes the answer to the commit that `wantsToStore` has asked for.
    void take(Answer const& answer);

Q_SIGNALS:
    /// To be stored, and the answer to be given to `take`.
    void wantsToStore(Inspector::Commit const& commit);
    /// Nothing more is to be chosen.
    void isDone();

private:
    void build();
    void showChoice();
    void store();

    Place const m_place;
    ComparisonModel m_model;
    QString m_wholeCommand; // also where only its beginning is visible
    QString m_reason;       // why nothing may be stored
    bool m_isAllowed = false;
    bool m_isWaiting = false;

    Passage* m_title;
    Passage* m_count;
    Passage* m_command;
    Passage* m_trouble;
    QPushButton* m_copy;
    QPushButton* m_cancel;
    QPushButton* m_store;
};

} // namespace Inspector
