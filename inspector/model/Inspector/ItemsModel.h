// SPDX-License-Identifier: MIT
#pragma once

#include <Inspector/Snapshot.h>

#include <QAbstractTableModel>

#include <memory>
#include <string>
#include <vector>

namespace Inspector {

/// A table of lines, which takes each new state by its differences: it is never reset, so that a view keeps its current line,
/// its selection and its place. `Qt::AccessibleTextRole` of every cell is the whole line.
class ItemsModel : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Role {
        idRole = Qt::UserRole, ///< `Item::id`, a QByteArray.
        searchRole,            ///< `Item::searchedText`.
    };

    explicit ItemsModel(QStringList const& headings, QObject* parent = nullptr) : QAbstractTableModel(parent), m_headings(headings) {}

    /// Shows `items`, which are sorted by their ids.
    template <typename T>
    void show(Lines<T> const& items)
    {
        showItems({items.begin(), items.end()});
    }
    /// The line of `row`, which must exist.
    Item const& item(int row) const { return *m_items[static_cast<std::size_t>(row)]; }
    /// The first cell of the line `id`; invalid where there is none.
    QModelIndex indexOf(std::string const& id) const;

    int rowCount(QModelIndex const& parent = {}) const override;
    int columnCount(QModelIndex const& parent = {}) const override;
    QVariant data(QModelIndex const& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    using Items = Lines<Item>;

    void showItems(Items const& items);
    std::ptrdiff_t removeRun(std::ptrdiff_t row, Items const& items, Items::const_iterator next);
    std::ptrdiff_t insertRun(std::ptrdiff_t row, Items const& items, Items::const_iterator next);
    std::ptrdiff_t changeRun(std::ptrdiff_t row, Items const& items, Items::const_iterator next);

    QStringList const m_headings;
    Items m_items;
};

/// The table of settings, in which one personal value at a time can be made visible.
class SettingsModel : public ItemsModel {
    Q_OBJECT

public:
    explicit SettingsModel(QObject* parent = nullptr);

    /// The setting of `row`, which must exist.
    Setting const& setting(int row) const { return static_cast<Setting const&>(item(row)); }
    /// Shows the personal value of the line `id` and of no other; of none for an empty id. No search finds it.
    void reveal(std::string const& id);

    QVariant data(QModelIndex const& index, int role = Qt::DisplayRole) const override;

private:
    void tellOfLine(std::string const& id);

    std::string m_revealed;
};

/// What the other models head their columns with.
QStringList locationHeadings();
QStringList findingHeadings();
QStringList changeHeadings();

} // namespace Inspector
