// SPDX-License-Identifier: MIT
#pragma once

#include <Window/list/MarkedProxy.h>

#include <QTreeView>

#include <string>
#include <vector>

namespace Inspector {

/// The lines of a model that a search finds. It shows and never edits. Its current line, its selection and its place stay what they
/// are, by the ids of the lines, while lines come, go and change.
class ItemsView : public QTreeView {
    Q_OBJECT

public:
    /// `name` is for screen readers.
    ItemsView(ItemsModel& model, QString const& name, QWidget* parent);

    /// Shows what `typed` finds. A current line that is not found is the current one again as soon as a later search finds it.
    void setSearch(QString const& typed);
    QString const& search() const { return m_search; }
    int foundCount() const { return m_proxy.rowCount(); }
    int allCount() const { return m_model.rowCount(); }

    /// The row in the model; -1 where there is no current line.
    int currentRow() const { return m_proxy.mapToSource(currentIndex()).row(); }
    /// The selected rows in the model, from the top down.
    std::vector<int> selectedRows() const;
    /// The texts of the selected lines, with a tab between those of a line.
    QString selectedText() const;
    /// Makes it the current line, also where the search does not find it. Returns false where there is no such line.
    bool setCurrent(std::string const& id);
    /// Marks the lines with these ids, which are sorted, as ones with a draft.
    void setDrafts(std::vector<std::string> const& ids) { m_proxy.setDrafts(ids); }
    /// Marks the lines of these keys as ones in trouble, of which the words tell.
    void setTrouble(std::map<std::string, QString> const& words) { m_proxy.setTrouble(words); }

Q_SIGNALS:
    /// Another line is the current one, or there is none.
    void moved();
    /// Other lines are selected.
    void selected();
    /// The current line is to be worked with: Enter, F2 or a double click.
    void opened();
    /// "/" was typed.
    void wantsToSearch();

protected:
    void currentChanged(QModelIndex const& current, QModelIndex const& previous) override;
    void selectionChanged(QItemSelection const& now, QItemSelection const& before) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    class Painter;

    void noteTop();
    void restoreTop();
    void noteLines();
    void restoreLines();

    ItemsModel const& m_model;
    MarkedProxy m_proxy;
    QString m_search;
    std::string m_wanted; // the id of the current line, or of the one before a search that does not find it
    bool m_isSearching = false;
    bool m_hasMoved = false;             // while searching
    std::string m_top;                   // the id of the first visible line while lines come and go
    std::vector<std::string> m_selected; // while the proxy is reset
};

} // namespace Inspector
