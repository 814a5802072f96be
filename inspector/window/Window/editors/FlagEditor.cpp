// SPDX-License-Identifier: MIT
#include <Window/editors/FlagEditor.h>

#include <QKeyEvent>
#include <QRadioButton>
#include <QVBoxLayout>

#include <algorithm>

namespace Inspector {

FlagEditor::FlagEditor(Setting const& setting, QWidget* parent) : ValueEditor(parent)
{
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins({});
    add(QStringLiteral("true"), {QStringLiteral("true")});
    add(QStringLiteral("false"), {QStringLiteral("false")});
    if (setting.state != Inspection::State::undeclared)
        add(tr("not set: follows the default"), {});
}

void FlagEditor::add(QString const& text, QStringList const& words)
{
    auto* const button = new QRadioButton(text);
    layout()->addWidget(button);
    adopt(*button, Storing::never, text);
    connect(button, &QRadioButton::clicked, this, &FlagEditor::entered);
    m_choices.push_back({button, words});
}

QStringList FlagEditor::words() const
{
    auto const isChosen = [](Choice const& choice) { return choice.button->isChecked(); };
    auto const found = std::find_if(m_choices.begin(), m_choices.end(), isChosen);
    return found == m_choices.end() ? QStringList() : found->words;
}

void FlagEditor::setWords(QStringList const& words)
{
    for (Choice const& choice : m_choices)
        if (choice.words == words) {
            choice.button->setChecked(true);
            setFocusProxy(choice.button);
        }
}

QString FlagEditor::help() const { return tr("Space or a click stores \u00B7 Esc goes back"); }

// Qt would choose with each arrow key, and so store.
bool FlagEditor::eventFilter(QObject* field, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return ValueEditor::eventFilter(field, event);
    int const key = static_cast<QKeyEvent const*>(event)->key();
    bool const isBack = key == Qt::Key_Up || key == Qt::Key_Left;
    bool const isForth = key == Qt::Key_Down || key == Qt::Key_Right;
    if (!isBack && !isForth && key != Qt::Key_Return && key != Qt::Key_Enter)
        return ValueEditor::eventFilter(field, event);
    auto const isIt = [&](Choice const& choice) { return choice.button == field; };
    auto const here = std::find_if(m_choices.begin(), m_choices.end(), isIt);
    if (isBack && here != m_choices.begin())
        std::prev(here)->button->setFocus(Qt::BacktabFocusReason);
    else if (isForth && std::next(here) != m_choices.end())
        std::next(here)->button->setFocus(Qt::TabFocusReason);
    else if (!isBack && !isForth)
        here->button->click();
    return true;
}

} // namespace Inspector
