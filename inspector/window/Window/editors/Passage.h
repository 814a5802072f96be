// SPDX-License-Identifier: MIT
#pragma once

#include <QTextEdit>

namespace Inspector {

/// Text to read, to select and to copy. It is wrapped anywhere, and as high as its text.
class Passage : public QTextEdit {
    Q_OBJECT

public:
    /// `name` is what a screen reader says of it.
    explicit Passage(QString const& name, QWidget* parent = nullptr);

    /// Shows `text`, the beginning of a very long one. A selection in an equal text stays.
    void tell(QString const& text);

private:
    void fit();

    QString m_text;
};

} // namespace Inspector
