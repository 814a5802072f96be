// SPDX-License-Identifier: MIT
#include <Window/editors/FractionEditor.h>

#include <Inspection/ValueFormat.h>

#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace Inspector {

FractionEditor::FractionEditor(Setting const&, QWidget* parent) : ValueEditor(parent), m_value(new QLabel)
{
    setLayoutDirection(Qt::LeftToRight);
    auto* const column = new QVBoxLayout(this);
    auto* const row = new QHBoxLayout;
    column->setContentsMargins({});
    m_numerator = addField(tr("Numerator"));
    m_denominator = addField(tr("Denominator"));
    row->addWidget(m_numerator);
    row->addWidget(new QLabel(QStringLiteral("/")));
    row->addWidget(m_denominator);
    column->addLayout(row);
    column->addWidget(m_value);
    m_value->setTextFormat(Qt::PlainText);
    connect(this, &ValueEditor::changed, this, &FractionEditor::showValue);
}

QLineEdit* FractionEditor::addField(QString const& name)
{
    auto* const field = new QLineEdit;
    auto* const validator = new QIntValidator(field);
    validator->setLocale(QLocale::c());
    field->setValidator(validator);
    adopt(*field, Storing::onEnter, name);
    connect(field, &QLineEdit::textChanged, this, &FractionEditor::changed);
    return field;
}

QStringList FractionEditor::words() const { return {m_numerator->text() + QLatin1Char('/') + m_denominator->text()}; }

void FractionEditor::setWords(QStringList const& words)
{
    QSignalBlocker const blocker(this);
    QStringList const halves = words.value(0).split(QLatin1Char('/'));
    m_numerator->setText(halves.value(0));
    m_denominator->setText(halves.value(1));
    showValue();
}

void FractionEditor::showValue()
try {
    boost::rational<long long> const like;
    m_value->setText(QStringLiteral("= ") +
                     QString::fromStdString(Inspection::text(Inspection::parsed(like, {words().value(0).toStdString()}))));
} catch (Inspection::ValueError const&) {
    m_value->clear();
}

} // namespace Inspector
