// SPDX-License-Identifier: MIT
#pragma once

#include <Window/editors/ValueEditor.h>

class QRadioButton;

namespace Inspector {

/// A bool as three choices, one of which is that none is stored. Choosing stores; arrow keys only go from one to the next.
class FlagEditor : public ValueEditor {
    Q_OBJECT

public:
    explicit FlagEditor(Setting const& setting, QWidget* parent = nullptr);

    QStringList words() const override;
    void setWords(QStringList const& words) override;
    QString help() const override;

protected:
    bool eventFilter(QObject* field, QEvent* event) override;

private:
    struct Choice {
        QRadioButton* button;
        QStringList words;
    };

    void add(QString const& text, QStringList const& words);

    std::vector<Choice> m_choices;
};

} // namespace Inspector
