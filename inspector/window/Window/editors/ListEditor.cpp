// SPDX-License-Identifier: MIT
#include <Window/editors/ListEditor.h>

#include <QColorDialog>
#include <QGridLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>
#include <QStyledItemDelegate>

#include <limits>

namespace Inspector {

namespace {

class ElementDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget* createEditor(QWidget* parent, QStyleOptionViewItem const& option, QModelIndex const& index) const override
    {
        QWidget* const editor = QStyledItemDelegate::createEditor(parent, option, index);
        if (auto* const line = qobject_cast<QLineEdit*>(editor))
            line->setMaxLength(std::numeric_limits<int>::max()); // else a long element is cut off
        editor->setAccessibleName(ListEditor::tr("Element"));
        return editor;
    }
};

QColor colourIn(QString const& text) { return QColor::isValidColor(text) ? QColor(text) : QColor(); }

} // namespace

ListEditor::ListEditor(Setting const& setting, QWidget* parent) : ValueEditor(parent), m_list(new QListWidget)
{
    auto* const grid = new QGridLayout(this);
    grid->setContentsMargins({});
    grid->addWidget(m_list, 0, 0, 1, 2);
    adopt(*m_list, Storing::never, setting.cells[Setting::keyColumn]);
    m_list->setItemDelegate(new ElementDelegate(m_list));
    m_list->setDragDropMode(QAbstractItemView::InternalMove);
    m_list->setTextElideMode(Qt::ElideNone);
    m_list->setMinimumHeight(6 * fontMetrics().lineSpacing());
    addButton(tr("&Add"), &ListEditor::add);
    m_remove = addButton(tr("&Remove"), &ListEditor::remove);
    m_colour = addButton(tr("C&olour\u2026"), &ListEditor::chooseColour);
    m_up = addButton(tr("U&p"), &ListEditor::moveUp);
    m_down = addButton(tr("&Down"), &ListEditor::moveDown);
    addButton(tr("&Store list"), &ListEditor::store);
    QAbstractItemModel const* const model = m_list->model();
    connect(model, &QAbstractItemModel::rowsInserted, this, &ListEditor::changed);
    connect(model, &QAbstractItemModel::rowsRemoved, this, &ListEditor::changed);
    connect(model, &QAbstractItemModel::rowsMoved, this, &ListEditor::changed);
    connect(m_list, &QListWidget::itemChanged, this, &ListEditor::changed);
    connect(this, &ValueEditor::changed, this, &ListEditor::showColours);
    connect(m_list, &QListWidget::currentRowChanged, this, &ListEditor::enableButtons);
    enableButtons();
}

QPushButton* ListEditor::addButton(QString const& text, void (ListEditor::*action)())
{
    auto* const button = new QPushButton(text);
    auto* const grid = static_cast<QGridLayout*>(layout());
    int const place = grid->count() - 1;
    grid->addWidget(button, 1 + place / 2, place % 2);
    adopt(*button, Storing::never, QString(text).remove(QLatin1Char('&')));
    connect(button, &QPushButton::clicked, this, action);
    return button;
}

QStringList ListEditor::words() const
{
    QStringList words;
    for (int row = 0; row < m_list->count(); ++row)
        words += m_list->item(row)->text();
    return words;
}

void ListEditor::setWords(QStringList const& words)
{
    QSignalBlocker const blocker(this);
    m_list->clear();
    for (QString const& word : words)
        insert(m_list->count(), word);
    showColours();
}

QString ListEditor::help() const { return tr("\u201CStore list\u201D stores \u00B7 F2 edits an element \u00B7 Esc goes back"); }

void ListEditor::insert(int row, QString const& text)
{
    auto* const item = new QListWidgetItem(text);
    item->setFlags(item->flags() | Qt::ItemIsEditable);
    m_list->insertItem(row, item);
}

void ListEditor::add()
{
    int const row = m_list->currentRow() + 1;
    insert(row, {});
    m_list->setCurrentRow(row);
    m_list->editItem(m_list->item(row));
}

void ListEditor::remove() { delete m_list->takeItem(m_list->currentRow()); }

void ListEditor::move(int lines)
{
    int const row = m_list->currentRow();
    QListWidgetItem* const item = m_list->takeItem(row);
    m_list->insertItem(row + lines, item);
    m_list->setCurrentItem(item);
}

void ListEditor::chooseColour()
{
    QListWidgetItem* const item = m_list->currentItem();
    auto* const dialog = new QColorDialog(colourIn(item->text()), this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setOption(QColorDialog::ShowAlphaChannel);
    connect(dialog, &QColorDialog::colorSelected, m_list, [list = m_list, item](QColor const& colour) {
        if (list->row(item) >= 0)
            item->setText(colour.name(colour.alpha() == 255 ? QColor::HexRgb : QColor::HexArgb));
    });
    dialog->show();
}

void ListEditor::showColours()
{
    QSignalBlocker const blocker(m_list);
    for (int row = 0; row < m_list->count(); ++row) {
        QColor const colour = colourIn(m_list->item(row)->text());
        m_list->item(row)->setData(Qt::DecorationRole, colour.isValid() ? QVariant(colour) : QVariant());
    }
    enableButtons();
}

void ListEditor::enableButtons()
{
    int const row = m_list->currentRow();
    m_remove->setEnabled(row >= 0);
    m_up->setEnabled(row > 0);
    m_down->setEnabled(row >= 0 && row + 1 < m_list->count());
    m_colour->setEnabled(row >= 0 && colourIn(m_list->item(row)->text()).isValid());
}

} // namespace Inspector
