// SPDX-License-Identifier: MIT
#pragma once

#include <Window/editors/ValueEditor.h>

#include <QByteArray>

class QPlainTextEdit;

namespace Inspector {

class Passage;

/// Bytes to look at, to be saved as a file, and to be replaced by those of one, which stores them. They are never edited as text.
class BytesEditor : public ValueEditor {
    Q_OBJECT

public:
    /// `mayReplace` offers to load a file.
    BytesEditor(QString const& name, bool mayReplace, QWidget* parent = nullptr);

    void setBytes(QByteArray const& bytes);

    QStringList words() const override;
    void setWords(QStringList const& words) override;
    QString help() const override;

private:
    void choose(bool isToSave);
    void save(QString const& file);
    void load(QString const& file);
    void tellTrouble(QString const& text);

    QByteArray m_bytes;
    Passage* m_look;
    QPlainTextEdit* m_hex;
    Passage* m_trouble;
};

} // namespace Inspector
