// SPDX-License-Identifier: MIT
#pragma once

#include <Inspector/Snapshot.h>

#include <QStringList>
#include <QWidget>

namespace Inspector {

/// What a value is entered with. It stores nothing by itself: Enter, or a choice, asks for that with `entered`. The wheel never changes
/// what is entered.
class ValueEditor : public QWidget {
    Q_OBJECT

public:
    using QWidget::QWidget;

    /// What is entered, in the words of the command line: an element of a list in each. None for a value that is not to be stored, but
    /// of a list, which is empty then.
    virtual QStringList words() const = 0;
    /// Enters `words`, without a signal.
    virtual void setWords(QStringList const& words) = 0;
    /// How it is stored and left, on one line.
    virtual QString help() const;
    /// Why it should not be stored without being asked for twice; empty for no reason. Asks once for each text.
    virtual QString doubt() { return {}; }

Q_SIGNALS:
    /// Other words are entered.
    void changed();
    /// The words are to be stored.
    void entered();
    /// The words are to be forgotten.
    void left();

protected:
    /// Which key asks for storing: none for a field that needs it for itself.
    enum class Storing { onEnter, onControlEnter, never };

    /// Has the keys of `field`, which gets the focus and the name, do what `help` says.
    void adopt(QWidget& field, Storing storing, QString const& name);
    bool eventFilter(QObject* field, QEvent* event) override;
};

/// The words with which an editor of `setting` opens.
QStringList openingWords(Setting const& setting);

} // namespace Inspector
