// SPDX-License-Identifier: MIT
#include <Inspector/SearchProxy.h>

namespace Inspector {

SearchProxy::SearchProxy(ItemsModel& source, QObject* parent) : QSortFilterProxyModel(parent), m_source(source) { setSourceModel(&source); }

bool SearchProxy::filterAcceptsRow(int row, QModelIndex const&) const
{
    Item const& line = m_source.item(row);
    return m_search.accepts(line) || (!m_kept.empty() && line.id == m_kept);
}

int SearchProxy::linesThatChange(Search const& search) const
{
    int count = 0;
    for (int row = 0; row < m_source.rowCount(); ++row)
        count += search.accepts(m_source.item(row)) != filterAcceptsRow(row, {});
    return count;
}

void SearchProxy::setSearch(Search const& search)
{
    bool const isLarge = linesThatChange(search) > 256; // where attaching again is as quick as removing runs of lines
    if (isLarge)
        setSourceModel(nullptr);
    m_search = search;
    m_kept.clear();
    if (isLarge)
        setSourceModel(&m_source);
    else
        invalidateFilter();
}

void SearchProxy::keep(std::string const& id)
{
    m_kept = id;
    invalidateFilter();
}

} // namespace Inspector
