// SPDX-License-Identifier: MIT
#pragma once

#include <Inspector/SearchProxy.h>

#include <map>
#include <string>
#include <vector>

namespace Inspector {

/// The lines that a search finds, with marks that are seen and heard: a draft beside the key, trouble beside the state.
class MarkedProxy : public SearchProxy {
    Q_OBJECT

public:
    using SearchProxy::SearchProxy;

    /// Marks the lines with these ids, which are sorted, as ones with a draft.
    void setDrafts(std::vector<std::string> const& ids);
    /// Marks the lines of these keys as ones in trouble, and tells a screen reader the words.
    void setTrouble(std::map<std::string, QString> const& words);

    QVariant data(QModelIndex const& index, int role = Qt::DisplayRole) const override;

private:
    void tellOfMarks();
    bool hasDraft(std::string const& id) const;
    QString troubleOf(std::string const& id) const;

    std::vector<std::string> m_drafts;
    std::map<std::string, QString> m_trouble;
};

} // namespace Inspector
