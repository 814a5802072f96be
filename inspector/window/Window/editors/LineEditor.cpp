// SPDX-License-Identifier: MIT
#include <Window/editors/LineEditor.h>

#include <QIntValidator>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSignalBlocker>
#include <QTextBlock>
#include <QVBoxLayout>

#include <limits>

namespace Inspector {

LineEditor::LineEditor(Setting const& setting, QWidget* parent) : ValueEditor(parent), m_line(new QLineEdit)
{
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins({});
    auto* const row = new QHBoxLayout;
    row->addWidget(m_line);
    column->addLayout(row);
    m_line->setMaxLength(std::numeric_limits<int>::max()); // else a long text is cut off
    if (std::holds_alternative<int>(setting.value)) {
        auto* const validator = new QIntValidator(m_line);
        validator->setLocale(QLocale::c());
        m_line->setValidator(validator);
    }
    adopt(*m_line, Storing::onEnter, setting.cells[Setting::keyColumn]);
    connect(m_line, &QLineEdit::textChanged, this, &LineEditor::changed);
}

QStringList LineEditor::words() const { return {m_line->text()}; }

void LineEditor::setWords(QStringList const& words)
{
    QSignalBlocker const blocker(m_line);
    m_line->setText(words.value(0));
}

LinesEditor::LinesEditor(Setting const& setting, QWidget* parent) : ValueEditor(parent), m_field(new QPlainTextEdit)
{
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->addWidget(m_field);
    m_field->setTabChangesFocus(true);
    adopt(*m_field, Storing::onControlEnter, setting.cells[Setting::keyColumn]);
    connect(m_field, &QPlainTextEdit::textChanged, this, &LinesEditor::changed);
}

// Block by block, as the whole plain text has other spaces than the document.
QStringList LinesEditor::words() const
{
    QStringList lines;
    for (QTextBlock block = m_field->document()->begin(); block.isValid(); block = block.next())
        lines += block.text();
    return {lines.join(QLatin1Char('\n'))};
}

void LinesEditor::setWords(QStringList const& words)
{
    QSignalBlocker const blocker(m_field);
    m_field->setPlainText(words.value(0));
}

QString LinesEditor::help() const { return tr("Ctrl+Enter stores \u00B7 Esc goes back"); }

} // namespace Inspector
