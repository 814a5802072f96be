// SPDX-License-Identifier: MIT
#include <Inspector/transfer/ComparisonModel.h>

namespace Inspector {

namespace {

QStringList headings()
{
    return {QStringLiteral("Key"), QStringLiteral("Store"), QStringLiteral("Stored"), QStringLiteral("File"), QStringLiteral("Class")};
}

} // namespace

ComparisonModel::ComparisonModel(QObject* parent) : ItemsModel(headings(), parent) {}

void ComparisonModel::show(std::shared_ptr<DocumentComparison const> const& comparison)
{
    m_comparison = comparison;
    m_taken.clear();
    Lines<DocumentLine> const lines = comparison ? comparison->lines : Lines<DocumentLine>();
    for (auto const& line : lines)
        if (line->isTakenAtFirst())
            m_taken.insert(line->id);
    ItemsModel::show(lines);
    Q_EMIT takenChanged();
}

Step ComparisonModel::step() const { return m_comparison ? stepOf(*m_comparison, m_taken) : Step(); }

Qt::ItemFlags ComparisonModel::flags(QModelIndex const& index) const
{
    Qt::ItemFlags const all = ItemsModel::flags(index);
    bool const hasChoice = index.isValid() && index.column() == 0 && !line(index.row()).isRedacted;
    return hasChoice ? all | Qt::ItemIsUserCheckable : all;
}

QVariant ComparisonModel::data(QModelIndex const& index, int role) const
{
    if (!index.isValid())
        return {};
    bool const isTaken = m_taken.count(item(index.row()).id) > 0;
    if (role == Qt::CheckStateRole && index.column() == 0)
        return isTaken ? Qt::Checked : Qt::Unchecked;
    if (role != Qt::AccessibleTextRole)
        return ItemsModel::data(index, role);
    char const* const choice = line(index.row()).isRedacted ? ", cannot be taken" : isTaken ? ", taken" : ", not taken";
    return QString(item(index.row()).spoken + QLatin1String(choice));
}

bool ComparisonModel::setData(QModelIndex const& index, QVariant const& value, int role)
{
    if (role != Qt::CheckStateRole || !(flags(index) & Qt::ItemIsUserCheckable))
        return false;
    std::string const& id = item(index.row()).id;
    bool const isTaken = value.toInt() == Qt::Checked;
    bool const isOther = isTaken ? m_taken.insert(id).second : m_taken.erase(id) > 0;
    if (!isOther)
        return true;
    Q_EMIT dataChanged(index, index.siblingAtColumn(columnCount() - 1));
    Q_EMIT takenChanged();
    return true;
}

} // namespace Inspector
