// SPDX-License-Identifier: MIT
#pragma once

#include <Window/list/ItemsView.h>

#include <QWidget>

class QPlainTextEdit;
class QPushButton;

namespace Inspector {

/// A list, below it the whole of its current line, and what can be done with it.
class DetailPage : public QWidget {
    Q_OBJECT

public:
    /// `name` is for screen readers; an empty `choice` makes no button.
    DetailPage(ItemsModel& model, QString const& name, QString const& choice, QWidget* parent);

    ItemsView& view() const { return *m_view; }
    /// What is below the list.
    QWidget& details() const { return *m_below; }
    /// Shows `text`. The button can be pressed where `isOffered`; `reason` says why it cannot.
    void show(QString const& text, bool isOffered = false, QString const& reason = {});

Q_SIGNALS:
    /// The button was pressed.
    void chosen();

private:
    ItemsView* m_view;
    QWidget* m_below;
    QPlainTextEdit* m_text;
    QPushButton* m_button;
};

} // namespace Inspector
