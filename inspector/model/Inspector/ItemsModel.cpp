// SPDX-License-Identifier: MIT
#include <Inspector/ItemsModel.h>

#include <algorithm>

namespace Inspector {

namespace {

QStringList headings(std::initializer_list<char const*> words)
{
    QStringList result;
    for (char const* word : words)
        result += QString::fromLatin1(word);
    return result;
}

} // namespace

QStringList locationHeadings() { return headings({"Location", "Path", "Use", "Status"}); }
QStringList findingHeadings() { return headings({"Severity", "Where", "What", "Remedy"}); }
QStringList changeHeadings() { return headings({"Time", "Who", "Store", "Key", "Before", "After"}); }

QModelIndex ItemsModel::indexOf(std::string const& id) const
{
    auto const isBefore = [](std::shared_ptr<Item const> const& item, std::string const& wanted) { return item->id < wanted; };
    auto const found = std::lower_bound(m_items.begin(), m_items.end(), id, isBefore);
    bool const isThere = found != m_items.end() && (*found)->id == id;
    return isThere ? index(static_cast<int>(found - m_items.begin()), 0) : QModelIndex();
}

int ItemsModel::rowCount(QModelIndex const& parent) const { return parent.isValid() ? 0 : static_cast<int>(m_items.size()); }

int ItemsModel::columnCount(QModelIndex const& parent) const { return parent.isValid() ? 0 : static_cast<int>(m_headings.size()); }

QVariant ItemsModel::data(QModelIndex const& index, int role) const
{
    if (!index.isValid())
        return {};
    Item const& line = item(index.row());
    switch (role) {
    case Qt::DisplayRole:
        return line.cells[index.column()];
    case Qt::AccessibleTextRole:
        return line.spokenLine();
    case idRole:
        return QByteArray::fromStdString(line.id);
    case searchRole:
        return line.searchedText();
    default:
        return {};
    }
}

QVariant ItemsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    bool const isHeading = orientation == Qt::Horizontal && role == Qt::DisplayRole && section >= 0 && section < m_headings.size();
    return isHeading ? m_headings[section] : QVariant();
}

// Both lists are sorted, so one way through both finds each run of lines that are gone, new or changed.
void ItemsModel::showItems(Items const& items)
{
    auto next = items.cbegin();
    for (std::ptrdiff_t row = 0; row < std::ptrdiff_t(m_items.size()) || next != items.cend();) {
        if (removeRun(row, items, next) > 0)
            continue;
        std::ptrdiff_t length = insertRun(row, items, next);
        if (length == 0)
            length = changeRun(row, items, next);
        row += length;
        next += length;
    }
}

// Removes the lines from `row` on that come before `next`; returns how many.
std::ptrdiff_t ItemsModel::removeRun(std::ptrdiff_t row, Items const& items, Items::const_iterator next)
{
    auto const isKept = [&](std::shared_ptr<Item const> const& item) { return next != items.end() && item->id >= (*next)->id; };
    auto const first = m_items.begin() + row;
    auto const end = std::find_if(first, m_items.end(), isKept);
    std::ptrdiff_t const length = end - first;
    if (length == 0)
        return 0;
    beginRemoveRows({}, static_cast<int>(row), static_cast<int>(row + length - 1));
    m_items.erase(first, end);
    endRemoveRows();
    return length;
}

// Inserts the lines from `next` on that come before `row`.
std::ptrdiff_t ItemsModel::insertRun(std::ptrdiff_t row, Items const& items, Items::const_iterator next)
{
    auto const here = m_items.begin() + row;
    auto const isHere = [&](std::shared_ptr<Item const> const& item) { return here != m_items.end() && item->id >= (*here)->id; };
    auto const end = std::find_if(next, items.end(), isHere);
    std::ptrdiff_t const length = end - next;
    if (length == 0)
        return 0;
    beginInsertRows({}, static_cast<int>(row), static_cast<int>(row + length - 1));
    m_items.insert(here, next, end);
    endInsertRows();
    return length;
}

// Takes the lines from `next` on that have the ids of those from `row` on and are others; one line where it is the same.
std::ptrdiff_t ItemsModel::changeRun(std::ptrdiff_t row, Items const& items, Items::const_iterator next)
{
    auto at = m_items.begin() + row;
    std::ptrdiff_t length = 0;
    for (; at != m_items.end() && next != items.end() && (*at)->id == (*next)->id && *at != *next; ++at, ++next, ++length)
        *at = *next;
    if (length == 0)
        return 1;
    Q_EMIT dataChanged(index(static_cast<int>(row), 0), index(static_cast<int>(row + length - 1), columnCount() - 1));
    return length;
}

SettingsModel::SettingsModel(QObject* parent)
    : ItemsModel(headings({"Key", "Value", "State", "Store", "Class", "Default", "Changed", "Purpose", "Layer"}), parent)
{}

void SettingsModel::reveal(std::string const& id)
{
    std::string const earlier = std::exchange(m_revealed, id);
    tellOfLine(earlier);
    tellOfLine(id);
}

void SettingsModel::tellOfLine(std::string const& id)
{
    if (QModelIndex const first = indexOf(id); first.isValid())
        Q_EMIT dataChanged(first, first.siblingAtColumn(columnCount() - 1));
}

QVariant SettingsModel::data(QModelIndex const& index, int role) const
{
    if (!index.isValid() || m_revealed.empty() || item(index.row()).id != m_revealed)
        return ItemsModel::data(index, role);
    if (role == Qt::DisplayRole && index.column() == Setting::valueColumn)
        return setting(index.row()).shownValue;
    return role == Qt::AccessibleTextRole ? setting(index.row()).spokenWithValue() : ItemsModel::data(index, role);
}

} // namespace Inspector
