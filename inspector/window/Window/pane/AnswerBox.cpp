// SPDX-License-Identifier: MIT
#include <Window/pane/AnswerBox.h>

#include <Window/editors/Passage.h>

#include <QPushButton>
#include <QVBoxLayout>

namespace Inspector {

AnswerBox::AnswerBox(QWidget* parent)
    : QFrame(parent), m_text(new Passage(tr("Not stored"))), m_keep(new QPushButton(tr("&Keep what is there"))), m_store(new QPushButton)
{
    setFrameShape(QFrame::StyledPanel);
    auto* const column = new QVBoxLayout(this);
    column->addWidget(m_text);
    column->addWidget(m_keep, 0, Qt::AlignLeading);
    column->addWidget(m_store, 0, Qt::AlignLeading);
    connect(m_keep, &QPushButton::clicked, this, &AnswerBox::keeps);
    connect(m_store, &QPushButton::clicked, this, &AnswerBox::stores);
    hide();
}

void AnswerBox::tell(QString const& text, QString const& attempt)
{
    m_text->tell(text);
    m_store->setText(attempt);
    m_store->setVisible(!attempt.isEmpty());
    show();
}

void AnswerBox::clear()
{
    m_text->tell({});
    hide();
}

void AnswerBox::focusKeep() { m_keep->setFocus(Qt::OtherFocusReason); }

} // namespace Inspector
