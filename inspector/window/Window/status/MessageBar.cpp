// SPDX-License-Identifier: MIT
#include <Window/status/MessageBar.h>

#include <QAccessible>
#include <QApplication>
#include <QBoxLayout>
#include <QClipboard>
#include <QFrame>
#include <QLabel>
#include <QPushButton>

namespace Inspector {

MessageBar::MessageBar(QWidget* parent) : QWidget(parent), m_layout(new QVBoxLayout(this))
{
    m_layout->setContentsMargins({});
    hide();
}

void MessageBar::tell(QString const& cause, QString const& text, Choices const& choices)
{
    auto const known = m_messages.find(cause);
    if (known != m_messages.end() && known->second.text == text)
        return;
    show(cause, text, choices, false);
}

void MessageBar::show(QString const& cause, QString const& text, Choices const& choices, bool isQuestion)
{
    clear(cause);
    QWidget* const frame = makeFrame(cause, text, choices, isQuestion);
    m_messages[cause] = {text, frame};
    m_layout->addWidget(frame);
    frame->show(); // now, as a button of it may get the focus
    setVisible(true);
    QAccessibleEvent alert(frame, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void MessageBar::ask(QString const& cause, QString const& text, Choices const& choices)
{
    show(cause, text, choices, true);
    QList<QPushButton*> const buttons = m_messages[cause].frame->findChildren<QPushButton*>();
    buttons[static_cast<int>(choices.size()) - 1]->setFocus(Qt::OtherFocusReason);
}

void MessageBar::clear(QString const& cause)
{
    close(cause);
    m_messages.erase(cause);
}

void MessageBar::close(QString const& cause)
{
    auto const found = m_messages.find(cause);
    if (found == m_messages.end() || !found->second.frame)
        return;
    QWidget* const frame = std::exchange(found->second.frame, nullptr);
    m_layout->removeWidget(frame);
    frame->hide();
    frame->deleteLater(); // the call may come from one of its buttons
    setVisible(m_layout->count() > 0);
}

QWidget* MessageBar::makeFrame(QString const& cause, QString const& text, Choices const& choices, bool isQuestion)
{
    auto* const frame = new QFrame(this);
    frame->setFrameShape(QFrame::StyledPanel);
    frame->setAccessibleName(text);
    auto* const row = new QHBoxLayout(frame);
    auto* const label = new QLabel(text, frame);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    label->setAccessibleName(tr("Message"));
    row->addWidget(label, 1);
    auto const add = [&](QString const& words, std::function<void()> const& act, bool isAnswer) {
        auto* const button = new QPushButton(words, frame);
        row->addWidget(button, 0, Qt::AlignTop);
        connect(button, &QPushButton::clicked, this, [=] {
            if (isAnswer)
                clear(cause);
            if (act)
                act();
        });
    };
    for (auto const& [words, act] : choices)
        add(words, act, isQuestion);
    add(
        tr("Co&py"), [text] { QApplication::clipboard()->setText(text); }, false);
    add(
        tr("Clos&e"), [=] { close(cause); }, false);
    return frame;
}

} // namespace Inspector
