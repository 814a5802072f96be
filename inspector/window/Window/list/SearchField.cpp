// SPDX-License-Identifier: MIT
#include <Window/list/SearchField.h>

#include <QKeyEvent>

namespace Inspector {

SearchField::SearchField(QWidget* parent) : QLineEdit(parent)
{
    setPlaceholderText(tr("Search: folder @set"));
    setAccessibleName(tr("Search"));
    setClearButtonEnabled(true);
    setMaxLength(1000);
}

void SearchField::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Down || event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        Q_EMIT wantsFirst();
    else if (event->key() != Qt::Key_Escape)
        QLineEdit::keyPressEvent(event);
    else if (text().isEmpty())
        Q_EMIT wantsBack();
    else
        clear();
}

} // namespace Inspector
