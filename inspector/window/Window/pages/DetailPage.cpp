// SPDX-License-Identifier: MIT
#include <Window/pages/DetailPage.h>

#include <QBoxLayout>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextDocument>

#include <cmath>

namespace Inspector {

namespace {

constexpr int visibleLines = 6; // the most cells that a line has

int heightOf(QPlainTextEdit const& text)
{
    double const line = std::ceil(QFontMetricsF(text.font()).lineSpacing()) + 1; // ascent and descent are rounded up, each
    double const margins = 3 * text.document()->documentMargin() + 1;            // the scroll bar reckons with one more than is seen
    return static_cast<int>(std::ceil(visibleLines * line + margins)) + 2 * text.frameWidth();
}

} // namespace

DetailPage::DetailPage(QStringList const& headings, QString const& name, QString const& choice, QWidget* parent)
    : QWidget(parent),
      m_model(headings),
      m_view(new ItemsView(m_model, name, this)),
      m_below(new QWidget(this)),
      m_text(new QPlainTextEdit(m_below)),
      m_button(new QPushButton(choice, m_below))
{
    m_text->setReadOnly(true);
    m_text->setTabChangesFocus(true);
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_text->setAccessibleName(tr("About the current line"));
    m_text->setFixedHeight(heightOf(*m_text));
    m_button->setVisible(!choice.isEmpty());
    connect(m_button, &QPushButton::clicked, this, &DetailPage::choose);
    connect(m_view, &ItemsView::moved, this, &DetailPage::refresh);
    auto* const below = new QHBoxLayout(m_below);
    below->setContentsMargins({});
    below->addWidget(m_text, 1);
    below->addWidget(m_button, 0, Qt::AlignTop);
    auto* const whole = new QVBoxLayout(this);
    whole->setContentsMargins({});
    whole->addWidget(m_view, 1);
    whole->addWidget(m_below);
    m_button->setEnabled(false);
}

// Before the model, of which its end would make a view without lines.
DetailPage::~DetailPage() { delete m_view; }

Item const* DetailPage::current() const
{
    int const row = m_view->currentRow();
    return row < 0 ? nullptr : &m_model.item(row);
}

bool DetailPage::isOffered() const
{
    Item const* const item = current();
    return item && isOfferedFor(*item);
}

QStringList DetailPage::about(Item const& item) const
{
    QStringList lines;
    for (int column = 0; column < item.cells.size(); ++column)
        if (!item.cells[column].isEmpty())
            lines += tr("%1: %2").arg(m_model.headerData(column, Qt::Horizontal).toString(), item.cells[column]);
    return lines;
}

void DetailPage::refresh()
{
    Item const* const item = current();
    QString const text = item ? about(*item).join(QLatin1Char('\n')) : QString();
    if (m_text->toPlainText() != text)
        m_text->setPlainText(text);
    QString const reason = item && !isOffered() ? whyNot() : QString();
    m_button->setEnabled(isOffered());
    m_button->setToolTip(reason);
    m_button->setAccessibleDescription(reason);
    Q_EMIT refreshed();
}

} // namespace Inspector
