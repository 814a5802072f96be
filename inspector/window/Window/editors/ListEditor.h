// SPDX-License-Identifier: MIT
#pragma once

#include <Window/editors/ValueEditor.h>

class QListWidget;
class QPushButton;

namespace Inspector {

/// A list, an element in each line; beside one that is a colour stands that colour. Its own button stores it.
class ListEditor : public ValueEditor {
    Q_OBJECT

public:
    explicit ListEditor(Setting const& setting, QWidget* parent = nullptr);

    QStringList words() const override;
    void setWords(QStringList const& words) override;
    QString help() const override;

private:
    QPushButton* addButton(QString const& text, void (ListEditor::*action)());
    void insert(int row, QString const& text);
    void add();
    void remove();
    void moveUp() { move(-1); }
    void moveDown() { move(1); }
    void move(int lines);
    void chooseColour();
    void store() { Q_EMIT entered(); }
    void showColours();
    void enableButtons();

    QListWidget* m_list;
    QPushButton* m_remove;
    QPushButton* m_up;
    QPushButton* m_down;
    QPushButton* m_colour;
};

} // namespace Inspector
