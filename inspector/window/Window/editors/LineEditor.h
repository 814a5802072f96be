// SPDX-License-Identifier: MIT
#pragma once

#include <Window/editors/ValueEditor.h>

class QLineEdit;
class QPlainTextEdit;

namespace Inspector {

/// An int, or a text of one line.
class LineEditor : public ValueEditor {
    Q_OBJECT

public:
    explicit LineEditor(Setting const& setting, QWidget* parent = nullptr);

    QStringList words() const override;
    void setWords(QStringList const& words) override;

protected:
    QLineEdit& line() const { return *m_line; }

private:
    QLineEdit* m_line;
};

/// A text of several lines.
class LinesEditor : public ValueEditor {
    Q_OBJECT

public:
    explicit LinesEditor(Setting const& setting, QWidget* parent = nullptr);

    QStringList words() const override;
    void setWords(QStringList const& words) override;
    QString help() const override;

private:
    QPlainTextEdit* m_field;
};

} // namespace Inspector
