// SPDX-License-Identifier: MIT
#pragma once

#include <Inspector/ItemsModel.h>
#include <Inspector/Search.h>

#include <QSortFilterProxyModel>

#include <string>

namespace Inspector {

/// The lines of an `ItemsModel` that a search finds.
///
/// The cost of a filter is that of its separate runs of lines, so a search that changes more than 256 lines detaches the source
/// and attaches it again, which resets this model: a view that keeps the id of its current line finds it by `indexOf` then.
class SearchProxy : public QSortFilterProxyModel {
    Q_OBJECT

public:
    explicit SearchProxy(ItemsModel& source, QObject* parent = nullptr);

    /// Shows what `search` finds.
    void setSearch(Search const& search);
    /// Keeps the line `id`, which a view has as its current one, also where a change takes it out of the search, until the next
    /// call, or the next search, which does not find it. An empty id keeps none.
    void keep(std::string const& id);
    /// The first cell of the line `id`; invalid where it is not shown.
    QModelIndex indexOf(std::string const& id) const { return mapFromSource(m_source.indexOf(id)); }

protected:
    bool filterAcceptsRow(int row, QModelIndex const& parent) const override;

private:
    int linesThatChange(Search const& search) const;

    ItemsModel& m_source;
    Search m_search;
    std::string m_kept;
};

} // namespace Inspector
