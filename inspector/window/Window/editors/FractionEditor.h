// SPDX-License-Identifier: MIT
#pragma once

#include <Window/editors/ValueEditor.h>

class QLabel;
class QLineEdit;

namespace Inspector {

/// A rational as two ints, with its value in lowest terms beside them. Both are stored together.
class FractionEditor : public ValueEditor {
    Q_OBJECT

public:
    explicit FractionEditor(Setting const& setting, QWidget* parent = nullptr);

    QStringList words() const override;
    void setWords(QStringList const& words) override;

private:
    QLineEdit* addField(QString const& name);
    void showValue();

    QLineEdit* m_numerator;
    QLineEdit* m_denominator;
    QLabel* m_value;
};

} // namespace Inspector
