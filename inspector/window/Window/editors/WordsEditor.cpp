// SPDX-License-Identifier: MIT
#include <Window/editors/WordsEditor.h>

#include <QComboBox>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace Inspector {

WordsEditor::WordsEditor(Setting const& setting, QWidget* parent) : ValueEditor(parent), m_choice(new QComboBox)
{
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->addWidget(m_choice);
    for (std::string const& word : setting.usable.words)
        m_choice->addItem(QString::fromStdString(word));
    adopt(*m_choice, Storing::onEnter, setting.cells[Setting::keyColumn]);
    connect(m_choice, &QComboBox::currentTextChanged, this, &WordsEditor::changed);
}

QStringList WordsEditor::words() const { return {m_choice->currentText()}; }

void WordsEditor::setWords(QStringList const& words)
{
    QSignalBlocker const blocker(m_choice);
    QString const word = words.value(0);
    if (m_choice->findText(word, Qt::MatchFixedString | Qt::MatchCaseSensitive) < 0)
        m_choice->addItem(word);
    m_choice->setCurrentIndex(m_choice->findText(word, Qt::MatchFixedString | Qt::MatchCaseSensitive));
}

} // namespace Inspector
