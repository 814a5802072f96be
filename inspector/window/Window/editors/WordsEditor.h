// SPDX-License-Identifier: MIT
#pragma once

#include <Window/editors/ValueEditor.h>

class QComboBox;

namespace Inspector {

/// A text of which the editor can use a few only.
class WordsEditor : public ValueEditor {
    Q_OBJECT

public:
    explicit WordsEditor(Setting const& setting, QWidget* parent = nullptr);

    QStringList words() const override;
    /// Adds a word that is none of those, as that is what is stored.
    void setWords(QStringList const& words) override;

private:
    QComboBox* m_choice;
};

} // namespace Inspector
