// SPDX-License-Identifier: MIT
#pragma once

#include <Inspector/Commits.h>
#include <Inspector/Place.h>

#include <QStringList>
#include <QTimer>
#include <QWidget>

#include <map>
#include <memory>

class QCheckBox;
class QPushButton;
class QVBoxLayout;

namespace Inspector {

class AnswerBox;
class Passage;
class ValueEditor;

/// The value of a setting, its editor where it may be changed, what was entered and is not stored yet, and the answers to attempts to
/// store. Its functions and signals are those of the pane around it.
class ValueBox : public QWidget {
    Q_OBJECT

public:
    explicit ValueBox(QWidget* parent = nullptr);

    void look(std::shared_ptr<Snapshot const> const& snapshot);
    void show(std::shared_ptr<Setting const> const& setting);
    void allowChanges(bool isAllowed, QString const& reason);
    void take(Answer const& answer);
    void reveal(bool isRevealed);
    void storeAgain();
    std::vector<std::string> drafts() const;
    /// The command line that stores what is entered, or what is stored; nullopt where there is none.
    std::optional<QString> command(Place const& place) const;

Q_SIGNALS:
    void wantsToStore(Inspector::Commit const& commit);
    void wantsToCancel();
    void isDone();
    void isRevealed(bool isVisible);
    void draftsChanged();
    /// `command` is another one.
    void entryChanged();

private:
    using Value = std::optional<Catalogue::Value>; ///< nullopt for none, so that the default holds.

    /// A commit whose answer has not come.
    struct Wish {
        std::shared_ptr<Setting const> seen;
        Value value;
    };

    /// What was entered and is not stored.
    struct Draft {
        std::shared_ptr<Setting const> seen; ///< Over which it is to be stored.
        std::optional<QStringList> words{};  ///< As they were entered; nullopt for what was chosen and not stored.
        QString trouble{};                   ///< Why it is not stored.
        std::optional<Value> refused{};      ///< What another attempt would store.
        bool isConflict = false;
    };

    void build();
    Draft* draft();
    Draft const* draft() const;
    bool isHidden() const;
    bool isInUse() const;
    QString whyNotEdited() const;

    void reload();
    void refresh();
    void placeEditor();
    void placeView();
    void showAnswer();
    void showHelp();
    QStringList hints() const;
    QString conflictText(Draft const& met) const;

    void changeDraft();
    void drop(std::string const& id);
    void keep(Draft const& met);
    void store();
    void leave();
    void commit(Value const& value, std::shared_ptr<Setting const> const& seen);
    void keepTheirs();
    void storeMine();

    std::shared_ptr<Snapshot const> m_snapshot;
    std::shared_ptr<Setting const> m_setting;
    std::shared_ptr<Setting const> m_seen; // as the editor was opened over it
    std::map<std::string, Draft> m_drafts; // by the id of their setting
    std::optional<Wish> m_waiting;
    std::optional<Wish> m_unsaved; // as no backup could be made
    QTimer m_patience;
    QString m_reason; // why changes are not allowed
    bool m_isAllowed = false;
    bool m_isRevealed = false;
    bool m_isEditable = false; // whether `m_editor` is more than a view

    QVBoxLayout* m_column;
    Passage* m_value;
    ValueEditor* m_editor = nullptr;
    Passage* m_help;
    AnswerBox* m_answer;
    QCheckBox* m_unknown;
    QPushButton* m_cancel;
    QPushButton* m_show;
    QPushButton* m_unset;
};

} // namespace Inspector
