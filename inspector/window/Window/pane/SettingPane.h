// SPDX-License-Identifier: MIT
#pragma once

#include <Inspector/Commits.h>
#include <Inspector/Place.h>

#include <QWidget>

#include <memory>

class QPushButton;
class QScrollArea;
class QVBoxLayout;

namespace Inspector {

class Passage;
class ValueBox;

/// All about the current setting, and the one place where it is edited. What is entered is stored on Enter, never when the focus
/// leaves or the setting changes: until then it is a draft, which the pane keeps for its setting.
class SettingPane : public QWidget {
    Q_OBJECT

public:
    explicit SettingPane(Place const& place, QWidget* parent = nullptr);

    /// Takes where the stores lie, what decides the defaults, and what is wrong with values. To be called before `show`.
    void look(std::shared_ptr<Snapshot const> const& snapshot);
    /// Shows `setting`, also a later state of the one that is shown; nullptr for none. An editor that is in use keeps its text.
    void show(std::shared_ptr<Setting const> const& setting);
    /// Whether editors take input. `reason` says why not: a tool tip and an accessible description.
    void allowChanges(bool isAllowed, QString const& reason = {});
    /// Takes the answer to the commit that `wantsToStore` has asked for.
    void take(Answer const& answer);
    /// Whether the personal value of the shown setting is visible, until another setting is shown.
    void reveal(bool isRevealed);
    /// Repeats the commit that failed for want of a backup, unless another one was asked for since.
    void storeAgain();
    /// Puts the focus into the editor.
    void edit();
    /// The ids of the settings with a draft, sorted.
    std::vector<std::string> drafts() const;

Q_SIGNALS:
    /// To be stored, and the answer to be given to `take`.
    void wantsToStore(Inspector::Commit const& commit);
    /// The last commit is not to be waited for any longer; `take` gets the answer all the same.
    void wantsToCancel();
    /// The focus is to go back to the list.
    void isDone();
    /// The pane's own button has made the personal value of the shown setting visible, or hidden it.
    void isRevealed(bool isVisible);
    /// `drafts` is another list.
    void draftsChanged();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void build();
    static void addPart(QVBoxLayout& column, QString const& heading, QWidget* part);
    void tell(Passage& part, QString const& text) const;
    void showFacts();
    void showCommand();

    Place const m_place;
    std::shared_ptr<Snapshot const> m_snapshot;
    std::shared_ptr<Setting const> m_setting;
    QString m_wholeCommand; // also where only its beginning is visible

    QScrollArea* m_area;
    Passage* m_key;
    Passage* m_purpose;
    Passage* m_kind;
    Passage* m_state;
    ValueBox* m_value;
    Passage* m_default;
    Passage* m_why;
    Passage* m_command;
    QPushButton* m_copy;
};

} // namespace Inspector
