// SPDX-License-Identifier: MIT
#include <Window/pages/DetailPage.h>

#include <QBoxLayout>
#include <QPlainTextEdit>
#include <QPushButton>

namespace Inspector {

DetailPage::DetailPage(ItemsModel& model, QString const& name, QString const& choice, QWidget* parent)
    : QWidget(parent),
      m_view(new ItemsView(model, name, this)),
      m_below(new QWidget(this)),
      m_text(new QPlainTextEdit(m_below)),
      m_button(new QPushButton(choice, m_below))
{
    m_text->setReadOnly(true);
    m_text->setTabChangesFocus(true);
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_text->setAccessibleName(tr("About the current line"));
    m_text->setFixedHeight(fontMetrics().lineSpacing() * 6);
    m_button->setVisible(!choice.isEmpty());
    connect(m_button, &QPushButton::clicked, this, &DetailPage::chosen);
    auto* const below = new QHBoxLayout(m_below);
    below->setContentsMargins({});
    below->addWidget(m_text, 1);
    below->addWidget(m_button, 0, Qt::AlignTop);
    auto* const whole = new QVBoxLayout(this);
    whole->setContentsMargins({});
    whole->addWidget(m_view, 1);
    whole->addWidget(m_below);
    show({});
}

void DetailPage::show(QString const& text, bool isOffered, QString const& reason)
{
    if (m_text->toPlainText() != text)
        m_text->setPlainText(text);
    m_button->setEnabled(isOffered);
    m_button->setToolTip(reason);
    m_button->setAccessibleDescription(reason);
}

} // namespace Inspector
