// SPDX-License-Identifier: MIT
#pragma once

#include <QLineEdit>

namespace Inspector {

/// Where a search is typed. Down and a second Esc lead back to the list.
class SearchField : public QLineEdit {
    Q_OBJECT

public:
    explicit SearchField(QWidget* parent);

Q_SIGNALS:
    /// To the first line that was found.
    void wantsFirst();
    /// To the line that was the current one.
    void wantsBack();

protected:
    void keyPressEvent(QKeyEvent* event) override;
};

} // namespace Inspector
