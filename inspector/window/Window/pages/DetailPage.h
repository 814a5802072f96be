// SPDX-License-Identifier: MIT
#pragma once

#include <Window/list/ItemsView.h>

#include <QWidget>

class QPlainTextEdit;
class QPushButton;

namespace Inspector {

/// A list, below it the whole of its current line, and what can be done with it. What the lines are is the derived page's.
class DetailPage : public QWidget {
    Q_OBJECT

public:
    ~DetailPage() override;

    ItemsView& view() const { return *m_view; }
    /// What is below the list.
    QWidget& details() const { return *m_below; }
    /// Shows `lines`, which are sorted by their ids.
    template <typename T>
    void showLines(Lines<T> const& lines)
    {
        m_model.show(lines);
        refresh();
    }
    /// Does with the current line what the button says, where that can be pressed.
    virtual void choose() {}
    /// Whether `choose` does anything.
    bool isOffered() const;

Q_SIGNALS:
    /// `isOffered` may have another answer.
    void refreshed();

protected:
    /// `name` is for screen readers; an empty `choice` makes no button.
    DetailPage(QStringList const& headings, QString const& name, QString const& choice, QWidget* parent);

    /// nullptr for none.
    Item const* current() const;
    /// All about `item`, in lines that say what they are.
    virtual QStringList about(Item const& item) const;
    virtual bool isOfferedFor(Item const&) const { return false; }
    /// Why nothing is offered for a line, for people.
    virtual QString whyNot() const { return {}; }
    void refresh();

private:
    ItemsModel m_model;
    ItemsView* m_view;
    QWidget* m_below;
    QPlainTextEdit* m_text;
    QPushButton* m_button;
};

} // namespace Inspector
