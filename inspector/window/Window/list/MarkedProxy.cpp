// SPDX-License-Identifier: MIT
#include <Window/list/MarkedProxy.h>

#include <algorithm>

namespace Inspector {

void MarkedProxy::setDrafts(std::vector<std::string> const& ids)
{
    if (m_drafts == ids)
        return;
    m_drafts = ids;
    tellOfMarks();
}

void MarkedProxy::setTrouble(std::map<std::string, QString> const& words)
{
    if (m_trouble == words)
        return;
    m_trouble = words;
    tellOfMarks();
}

void MarkedProxy::tellOfMarks()
{
    if (rowCount() > 0)
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

bool MarkedProxy::hasDraft(std::string const& id) const { return std::binary_search(m_drafts.begin(), m_drafts.end(), id); }

// An id is the key, a NUL and the store; a key may hold a NUL itself.
QString MarkedProxy::troubleOf(std::string const& id) const
{
    auto const found = m_trouble.find(id.substr(0, id.rfind('\0')));
    return found == m_trouble.end() ? QString() : found->second;
}

QVariant MarkedProxy::data(QModelIndex const& index, int role) const
{
    QVariant const plain = SearchProxy::data(index, role);
    bool const isMarkable = role == Qt::AccessibleTextRole ||
                            (role == Qt::DisplayRole && (index.column() == Setting::keyColumn || index.column() == Setting::stateColumn));
    if (!isMarkable || !index.isValid() || (m_drafts.empty() && m_trouble.empty()))
        return plain;
    std::string const id = SearchProxy::data(index, ItemsModel::idRole).toByteArray().toStdString();
    QString const trouble = troubleOf(id);
    QString text = plain.toString();
    if (role == Qt::AccessibleTextRole)
        return text + (hasDraft(id) ? tr(", draft") : QString()) + (trouble.isEmpty() ? QString() : tr(", trouble: %1").arg(trouble));
    if (index.column() == Setting::keyColumn)
        return hasDraft(id) ? tr("%1 (draft)").arg(text) : text;
    return trouble.isEmpty() ? text : QStringLiteral("\u26A0 ") + text;
}

} // namespace Inspector
