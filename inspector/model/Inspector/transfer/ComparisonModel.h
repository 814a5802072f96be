// SPDX-License-Identifier: MIT
#pragma once

#include <Inspector/ItemsModel.h>
#include <Inspector/transfer/DocumentComparison.h>

#include <memory>
#include <set>
#include <string>

namespace Inspector {

/// The table of what a document would change, with a check box in the first column of each line: whether it is taken. A redacted
/// line cannot be checked, and one of a key that the editor does not know is not checked at first.
class ComparisonModel : public ItemsModel {
    Q_OBJECT

public:
    explicit ComparisonModel(QObject* parent = nullptr);

    /// Shows another comparison, with its first choice. nullptr shows none.
    void show(std::shared_ptr<DocumentComparison const> const& comparison);
    /// What is shown; nullptr for none.
    std::shared_ptr<DocumentComparison const> const& comparison() const { return m_comparison; }
    /// The line of `row`, which must exist.
    DocumentLine const& line(int row) const { return static_cast<DocumentLine const&>(item(row)); }
    /// The ids of the lines that are taken.
    std::set<std::string> const& taken() const { return m_taken; }
    /// What to commit in order to store them.
    Step step() const;

    Qt::ItemFlags flags(QModelIndex const& index) const override;
    QVariant data(QModelIndex const& index, int role = Qt::DisplayRole) const override;
    bool setData(QModelIndex const& index, QVariant const& value, int role = Qt::EditRole) override;

Q_SIGNALS:
    /// `taken` is another set.
    void takenChanged();

private:
    std::shared_ptr<DocumentComparison const> m_comparison;
    std::set<std::string> m_taken;
};

} // namespace Inspector
