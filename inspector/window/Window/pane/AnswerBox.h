// SPDX-License-Identifier: MIT
#pragma once

#include <QFrame>

class QPushButton;

namespace Inspector {

class Passage;

/// What became of an attempt to store that did not succeed, with what can be done. Not visible at first.
class AnswerBox : public QFrame {
    Q_OBJECT

public:
    explicit AnswerBox(QWidget* parent = nullptr);

    /// `attempt` is what the button says that tries again; there is none for an empty one.
    void tell(QString const& text, QString const& attempt);
    /// Clears the text.
    void clear();
    /// Puts the focus on the way that changes nothing.
    void focusKeep();

Q_SIGNALS:
    /// What is stored is to stay.
    void keeps();
    /// What was entered is to be stored.
    void stores();

private:
    Passage* m_text;
    QPushButton* m_keep;
    QPushButton* m_store;
};

} // namespace Inspector
