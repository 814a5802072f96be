// SPDX-License-Identifier: MIT
#include <Window/editors/Passage.h>

#include <QAbstractTextDocumentLayout>

#include <cmath>

namespace Inspector {

namespace {

constexpr int mostCharacters = 4000;

} // namespace

Passage::Passage(QString const& name, QWidget* parent) : QTextEdit(parent)
{
    setAccessibleName(name);
    setReadOnly(true);
    setAcceptRichText(false);
    setTabChangesFocus(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setFrameShape(QFrame::NoFrame);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    viewport()->setAutoFillBackground(false);
    document()->setDocumentMargin(0);
    connect(document()->documentLayout(), &QAbstractTextDocumentLayout::documentSizeChanged, this, &Passage::fit);
    fit();
}

void Passage::tell(QString const& text)
{
    if (std::exchange(m_text, text) != text)
        setPlainText(text.size() <= mostCharacters ? text : text.left(mostCharacters) + QStringLiteral("\u2026"));
}

void Passage::fit() { setFixedHeight(static_cast<int>(std::ceil(document()->size().height()))); }

} // namespace Inspector
