// SPDX-License-Identifier: MIT
#pragma once

#include <Inspector/ItemsModel.h>

#include <QTreeWidget>

namespace Inspector {

/// How many lines have each mark. Choosing one only writes its word into the search, or takes it out.
class Facets : public QTreeWidget {
    Q_OBJECT

public:
    explicit Facets(QWidget* parent);

    /// Counts the lines of `model`.
    void count(ItemsModel const& model);
    /// Makes bold what stands in the search.
    void setSearch(QString const& typed);

    /// As wide as its texts.
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    void searchChosen(QString const& text);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void choose(QTreeWidgetItem const* item);

    QString m_search;
};

} // namespace Inspector
